#include "output/placeable_metafile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "support/shell_test.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char kWritingFailed[] =
    "Ondrel encountered an error while writing to the file. Ondrel will not write any more data to "
    "the file.";

// --- The header ----------------------------------------------------------------------------------

using Header = std::array<std::uint8_t, kPlaceableHeaderSize>;

std::uint32_t WordAt(const Header& header, std::size_t offset) {
  return static_cast<std::uint32_t>(header[offset]) | static_cast<std::uint32_t>(header[offset + 1])
                                                          << 8;
}

MetafileRecord Described(const IntRect& frame, double dpi, const char* name) {
  MetafileRecord record;
  record.Header.fill(0xEE);
  DescribeMetafile(record, frame, dpi, name);
  return record;
}

TEST(PlaceableHeaderTest, AHeaderOfAFileIsTheseTwentyTwoBytes) {
  const MetafileRecord record = Described({1, 2, 0x1234, 0x0567}, 600.0, "a.wmf");
  // The last word: CDD7 ^ 9AC6 ^ 0 ^ 1 ^ 2 ^ 1234 ^ 0567 ^ 0258 ^ 0 ^ 0 = 4219.
  EXPECT_THAT(record.Header, ElementsAre(0xD7, 0xCD, 0xC6, 0x9A, 0, 0, 1, 0, 2, 0, 0x34, 0x12, 0x67,
                                         0x05, 0x58, 0x02, 0, 0, 0, 0, 0x19, 0x42));
}

TEST(PlaceableHeaderTest, AllElevenWordsCancelOut) {
  for (const double dpi : {1.0, 96.0, 300.5, 65535.0}) {
    const MetafileRecord record = Described({7, -9, 4321, 30000}, dpi, "a.wmf");
    std::uint32_t sum = 0;
    for (std::size_t i = 0; i < kPlaceableHeaderSize; i += 2) sum ^= WordAt(record.Header, i);
    EXPECT_EQ(sum, 0u);
  }
}

TEST(PlaceableHeaderTest, UnitsPerInchAreTruncated) {
  EXPECT_EQ(WordAt(Described({0, 0, 10, 10}, 299.99, "a.wmf").Header, 14), 299u);
}

TEST(PlaceableHeaderTest, OfLargeAndNegativeNumbersTheLowerSixteenBitsAreKept) {
  const Header header = Described({-1, -2, 65536 + 3, 1 << 20}, 65536.0 + 5.0, "a.wmf").Header;
  EXPECT_EQ(WordAt(header, 6), 0xFFFFu);
  EXPECT_EQ(WordAt(header, 8), 0xFFFEu);
  EXPECT_EQ(WordAt(header, 10), 3u);
  EXPECT_EQ(WordAt(header, 12), 0u);
  EXPECT_EQ(WordAt(header, 14), 5u);
}

TEST(PlaceableHeaderTest, WithoutAFileOnlyTheRectangleIsFilled) {
  const MetafileRecord record = Described({1, 2, 0x1234, 0x0567}, 600.0, "");
  EXPECT_THAT(record.Header, ElementsAre(0, 0, 0, 0, 0, 0, 1, 0, 2, 0, 0x34, 0x12, 0x67, 0x05, 0, 0,
                                         0, 0, 0, 0, 0, 0));
}

TEST(PlaceableHeaderTest, TheRecordKeepsFrameAndName) {
  const MetafileRecord record = Described({1, 2, 100000, 200000}, 600.0, "a.wmf");
  EXPECT_EQ(record.Frame, (IntRect{1, 2, 100000, 200000}));
  EXPECT_STREQ(record.FileName, "a.wmf");
}

// --- The file ------------------------------------------------------------------------------------

class WriteMetafileTest : public ShellTest {
 protected:
  WriteMetafileTest()
      : path_((std::filesystem::path(::testing::TempDir()) /
               (std::string("placeable_") +
                ::testing::UnitTest::GetInstance()->current_test_info()->name()))
                  .string()) {
    std::filesystem::remove(path_);
  }
  ~WriteMetafileTest() override { std::filesystem::remove(path_); }

  /// Writes a metafile in which `points` points were drawn.
  bool Write(int points = 2) {
    DeviceRecord device = toolkit::BeginMetafile();
    drawn_.clear();
    for (int i = 0; i < points; ++i) {
      toolkit::DrawPoint(device, i, i);
      drawn_.push_back("point " + std::to_string(i) + " " + std::to_string(i));
    }
    MetafileRecord record;
    record.Picture = toolkit::EndMetafile(device);
    DescribeMetafile(record, {0, 0, 100, 50}, 96.0, path_.c_str());
    header_.assign(record.Header.begin(), record.Header.end());
    const bool written = WriteMetafile(Frame(), record);
    EXPECT_EQ(record.Picture.Handle, nullptr);
    EXPECT_EQ(shell().LiveMetafiles, 0) << "deleted on every path";
    EXPECT_EQ(shell().OpenFiles, 0);
    return written;
  }

  std::string OnDisk() const {
    std::stringstream bytes;
    bytes << std::ifstream(path_, std::ios::binary).rdbuf();
    return bytes.str();
  }
  bool Exists() const { return std::filesystem::exists(path_); }
  std::string Whole() const { return header_ + scripted::MetafileBytes(drawn_); }

  std::string path_;
  std::string header_;
  std::vector<std::string> drawn_;
};

TEST_F(WriteMetafileTest, AFileIsTheHeaderAndThePicture) {
  EXPECT_TRUE(Write());
  EXPECT_EQ(header_.size(), std::size_t{22});
  EXPECT_EQ(OnDisk(), Whole());
  EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(WriteMetafileTest, ALargePictureIsWrittenWhole) {
  EXPECT_TRUE(Write(5000));
  EXPECT_GT(OnDisk().size(), std::size_t{50000});
  EXPECT_EQ(OnDisk(), Whole());
}

TEST_F(WriteMetafileTest, WhatStandsInTheFileIsReplaced) {
  std::ofstream(path_) << std::string(100000, 'x');
  EXPECT_TRUE(Write());
  EXPECT_EQ(OnDisk(), Whole());
}

TEST_F(WriteMetafileTest, AFileThatCannotBeCreatedIsToldAndNothingIsWritten) {
  shell().Create = {.Next = 1};
  EXPECT_FALSE(Write());
  EXPECT_THAT(Messages(), ElementsAre(kWritingFailed));
  EXPECT_FALSE(Exists());
}

TEST_F(WriteMetafileTest, AFileThatCannotBeOpenedIsToldAndRemoved) {
  shell().OpenForWriting = {.Next = 1};
  EXPECT_FALSE(Write());
  EXPECT_THAT(Messages(), ElementsAre(kWritingFailed));
  EXPECT_FALSE(Exists());
}

TEST_F(WriteMetafileTest, WithoutMemoryForThePictureTheHeaderStaysAlone) {
  shell().Allocation = {.Next = 1};
  EXPECT_FALSE(Write());
  EXPECT_THAT(Messages(), ElementsAre("Out of memory."));
  EXPECT_EQ(shell().Boxes[0].Icon, toolkit::BoxIcon::Stop);
  EXPECT_EQ(shell().Boxes[0].Buttons, toolkit::BoxButtons::Ok);
  EXPECT_EQ(OnDisk(), header_);
}

TEST_F(WriteMetafileTest, APictureThatGivesNoBytesIsAFailureOfWriting) {
  shell().CopyMetafile = {.Next = 1};
  EXPECT_FALSE(Write());
  EXPECT_THAT(Messages(), ElementsAre(kWritingFailed));
  EXPECT_EQ(OnDisk(), header_);
}

TEST_F(WriteMetafileTest, APictureWithoutBytesIsAFailureOfWriting) {
  shell().NoMetafileBytes = true;
  EXPECT_FALSE(Write());
  EXPECT_THAT(Messages(), ElementsAre(kWritingFailed));
  EXPECT_EQ(OnDisk(), header_);
}

TEST_F(WriteMetafileTest, AFailedWriteIsToldOnce) {
  for (const int points : {2, 5000}) {
    shell().Write = {.Next = 1, .Lasting = true};
    EXPECT_FALSE(Write(points));
    EXPECT_THAT(Messages(), ElementsAre(kWritingFailed));
    EXPECT_EQ(OnDisk(), "");
    shell().Boxes.clear();
  }
}

TEST_F(WriteMetafileTest, AFailureInTheMiddleLeavesWhatCameBefore) {
  shell().Write = {.Next = 2};
  EXPECT_FALSE(Write(5000));
  EXPECT_THAT(Messages(), ElementsAre(kWritingFailed));
  EXPECT_FALSE(OnDisk().empty());
  EXPECT_TRUE(Whole().starts_with(OnDisk()));
  EXPECT_LT(OnDisk().size(), Whole().size());
}

TEST_F(WriteMetafileTest, AFileThatCannotBeClosedIsTold) {
  shell().Close = {.Next = 1};
  EXPECT_FALSE(Write());
  EXPECT_THAT(Messages(), ElementsAre(kWritingFailed));
}

TEST_F(WriteMetafileTest, APictureThatCannotBeDeletedIsToldThoughTheFileIsThere) {
  shell().DeleteMetafile = {.Next = 1};
  EXPECT_FALSE(Write());
  EXPECT_THAT(Messages(), ElementsAre(kWritingFailed));
  EXPECT_EQ(OnDisk(), Whole());
}

TEST_F(WriteMetafileTest, TwoFailuresAreToldAsOne) {
  shell().Create = {.Next = 1};
  shell().DeleteMetafile = {.Next = 1};
  EXPECT_FALSE(Write());
  EXPECT_THAT(Messages(), ElementsAre(kWritingFailed));
  shell().Boxes.clear();
  shell().Allocation = {.Next = 1};
  shell().DeleteMetafile = {.Next = 1};
  EXPECT_FALSE(Write());
  EXPECT_THAT(Messages(), ElementsAre("Out of memory."));
}

}  // namespace
}  // namespace ondrel
