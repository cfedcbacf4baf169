#include "workspace/output_file.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "support/shell_test.h"
#include "workspace/row_text.h"

namespace ondrel {
namespace {

class OutputFileTest : public ShellTest {
 protected:
  void SetUp() override {
    path_ = (std::filesystem::path(::testing::TempDir()) /
             (std::string("output_file_") +
              ::testing::UnitTest::GetInstance()->current_test_info()->name()))
                .string();
    ASSERT_EQ(toolkit::CreateEmptyFile(path_.c_str()), 0);
    ASSERT_EQ(OpenOutputFile(path_.c_str(), file_), 0);
  }

  void TearDown() override { toolkit::RemoveFile(path_.c_str()); }

  std::string OnDisk() {
    std::ifstream stream(path_, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }

  std::string path_;
  OutputFile file_;
};

TEST_F(OutputFileTest, ALineEndsInCarriageReturnAndLineFeed) {
  EXPECT_EQ(WriteLine(file_, "one"), 0);
  EXPECT_EQ(WriteLine(file_, ""), 0);
  EXPECT_EQ(WriteText(file_, "two"), 0);
  EXPECT_EQ(CloseOutputFile(file_), 0);
  EXPECT_EQ(OnDisk(), "one\r\n\r\ntwo");
}

TEST_F(OutputFileTest, LinesOfAnyLengthArriveWhole) {
  std::string expected;
  for (std::size_t length : {std::size_t{0}, std::size_t{1}, file_.Gathered.size() - 2,
                             file_.Gathered.size(), 3 * file_.Gathered.size() + 5}) {
    const std::string line(length, static_cast<char>('a' + length % 26));
    EXPECT_EQ(WriteLine(file_, line), 0);
    expected += line + "\r\n";
  }
  EXPECT_EQ(CloseOutputFile(file_), 0);
  EXPECT_EQ(OnDisk(), expected);
}

TEST_F(OutputFileTest, ThousandLinesTakeFewWrites) {
  for (int line = 0; line < 1000; ++line) WriteLine(file_, "0123456789012345678901234567890");
  EXPECT_EQ(CloseOutputFile(file_), 0);
  EXPECT_LE(shell().Write.Calls, 5);
  EXPECT_EQ(OnDisk().size(), 33000u);
}

TEST_F(OutputFileTest, AFailedWriteClosesTheFileAndNothingFollows) {
  const std::string piece(file_.Gathered.size(), 'x');
  EXPECT_EQ(WriteText(file_, piece), 0);
  shell().Write.Next = 1;
  const std::int32_t code = WriteText(file_, piece);
  EXPECT_NE(code, 0);
  EXPECT_EQ(shell().OpenFiles, 0);
  EXPECT_EQ(WriteLine(file_, "later"), code);
  EXPECT_EQ(CloseOutputFile(file_), code);
  EXPECT_EQ(OnDisk(), piece);
}

TEST_F(OutputFileTest, AFailureOfTheLastPieceShowsWhenClosing) {
  EXPECT_EQ(WriteLine(file_, "short"), 0);
  shell().Write.Next = 1;
  EXPECT_NE(CloseOutputFile(file_), 0);
  EXPECT_EQ(shell().OpenFiles, 0);
}

TEST_F(OutputFileTest, WhatWaitsReachesTheDiskAtOnceWhenItIsAskedFor) {
  EXPECT_EQ(WriteLine(file_, "one"), 0);
  EXPECT_EQ(shell().Write.Calls, 0);
  EXPECT_EQ(FlushOutputFile(file_), 0);
  EXPECT_EQ(shell().Write.Calls, 1);
  EXPECT_EQ(shell().OpenFiles, 1) << "the file stays open";
  EXPECT_EQ(WriteLine(file_, "two"), 0);
  EXPECT_EQ(CloseOutputFile(file_), 0);
  EXPECT_EQ(OnDisk(), "one\r\ntwo\r\n");
}

TEST_F(OutputFileTest, NothingIsWrittenWhereNothingWaits) {
  shell().Write.Next = 1;
  EXPECT_EQ(FlushOutputFile(file_), 0);
  EXPECT_EQ(shell().Write.Calls, 0);
  shell().Write.Next = 0;
  EXPECT_EQ(WriteLine(file_, "one"), 0);
  EXPECT_EQ(FlushOutputFile(file_), 0);
  EXPECT_EQ(FlushOutputFile(file_), 0);
  EXPECT_EQ(CloseOutputFile(file_), 0);
  EXPECT_EQ(shell().Write.Calls, 1);
}

TEST_F(OutputFileTest, AFailureOfWhatWaitsShowsWhenItIsAskedFor) {
  EXPECT_EQ(WriteLine(file_, "short"), 0);
  shell().Write.Next = 1;
  const std::int32_t code = FlushOutputFile(file_);
  EXPECT_NE(code, 0);
  EXPECT_EQ(shell().OpenFiles, 0);
  EXPECT_EQ(WriteLine(file_, "later"), code);
  EXPECT_EQ(FlushOutputFile(file_), code);
  EXPECT_EQ(CloseOutputFile(file_), code);
  EXPECT_EQ(shell().Write.Calls, 1);
  EXPECT_EQ(OnDisk(), "");
}

TEST_F(OutputFileTest, AFailedCloseIsTold) {
  EXPECT_EQ(WriteLine(file_, "short"), 0);
  shell().Close.Next = 1;
  EXPECT_NE(CloseOutputFile(file_), 0);
  EXPECT_EQ(OnDisk(), "short\r\n");
}

TEST_F(OutputFileTest, AnOldFileIsWrittenFromItsStart) {
  WriteLine(file_, "longer than what comes");
  ASSERT_EQ(CloseOutputFile(file_), 0);
  ASSERT_EQ(OpenOutputFile(path_.c_str(), file_), 0);
  WriteText(file_, "LONG");
  EXPECT_EQ(CloseOutputFile(file_), 0);
  EXPECT_EQ(OnDisk(), "LONGer than what comes\r\n");
}

TEST_F(OutputFileTest, WhatCannotBeOpenedIsTold) {
  ASSERT_EQ(CloseOutputFile(file_), 0);
  EXPECT_NE(OpenOutputFile((path_ + "/none").c_str(), file_), 0);
  EXPECT_NE(WriteLine(file_, "x"), 0);
  EXPECT_NE(CloseOutputFile(file_), 0);
}

TEST_F(OutputFileTest, ANewFileTakesThePlaceOfTheOneThatStandsThere) {
  ASSERT_EQ(WriteLine(file_, "former"), 0);
  ASSERT_EQ(CloseOutputFile(file_), 0);
  EXPECT_EQ(CreateOutputFile(path_.c_str(), file_), 0);
  EXPECT_EQ(WriteText(file_, "new"), 0);
  EXPECT_EQ(CloseOutputFile(file_), 0);
  EXPECT_EQ(OnDisk(), "new");
}

TEST_F(OutputFileTest, ANewFileThatCannotBeOpenedIsRemovedAgain) {
  ASSERT_EQ(CloseOutputFile(file_), 0);
  shell().OpenForWriting = {.Next = 1};
  EXPECT_NE(CreateOutputFile(path_.c_str(), file_), 0);
  EXPECT_FALSE(std::filesystem::exists(path_));
}

TEST_F(OutputFileTest, AFileThatCannotBeMadeIsNotOpened) {
  ASSERT_EQ(CloseOutputFile(file_), 0);
  const int opened = shell().OpenForWriting.Calls;
  shell().Create = {.Next = 1};
  EXPECT_NE(CreateOutputFile(path_.c_str(), file_), 0);
  EXPECT_EQ(shell().OpenForWriting.Calls, opened);
}

TEST_F(OutputFileTest, WhatCannotBeMadeOrOpenedTakesNothing) {
  const toolkit::FileHandle stale = file_.Handle;
  ASSERT_EQ(CloseOutputFile(file_), 0);
  for (scripted::Fault* fault : {&shell().Create, &shell().OpenForWriting}) {
    // What an earlier file may have left behind: neither is written to, nor closed once more.
    file_.Handle = stale;
    file_.Status = 0;
    file_.Used = 5;
    *fault = {.Next = 1};
    const std::int32_t code = CreateOutputFile(path_.c_str(), file_);
    EXPECT_NE(code, 0);
    ASSERT_EQ(file_.Handle.Handle, nullptr);
    EXPECT_EQ(file_.Used, 0u);
    EXPECT_EQ(WriteLine(file_, std::string(2 * file_.Gathered.size(), 'x')), code);
    EXPECT_EQ(FlushOutputFile(file_), code);
    EXPECT_EQ(CloseOutputFile(file_), code);
    EXPECT_EQ(shell().Write.Calls, 0);
    EXPECT_EQ(shell().OpenFiles, 0);
  }
}

TEST_F(OutputFileTest, AfterAFailureTheNextFileIsWhole) {
  ASSERT_EQ(CloseOutputFile(file_), 0);
  for (scripted::Fault* fault : {&shell().Create, &shell().OpenForWriting, &shell().Write}) {
    *fault = {.Next = 1};
    static_cast<void>(CreateOutputFile(path_.c_str(), file_));
    WriteLine(file_, "first");
    EXPECT_NE(CloseOutputFile(file_), 0);
    ASSERT_EQ(CreateOutputFile(path_.c_str(), file_), 0);
    WriteLine(file_, "second");
    EXPECT_EQ(CloseOutputFile(file_), 0);
    EXPECT_EQ(OnDisk(), "second\r\n");
  }
}

TEST(RowTextTest, FieldsHaveOneTabBetweenThem) {
  RowText row;
  AppendInteger(row, -7);
  AppendReal(row, 0.25, 6, 'f');
  AppendReal(row, -1.5e-12, 7, 'E');
  AppendText(row, "name");
  EXPECT_EQ(TextOf(row), "-7\t0.250000\t-1.5000000E-12\tname");
}

TEST(RowTextTest, TheLongestRowHasRoom) {
  RowText row;
  for (std::size_t field = 0; field < kMostRowFields; ++field) {
    AppendReal(row, -1.7976931348623157e308, kMaxRealDigits, 'f');
  }
  EXPECT_EQ(row.Length, kMostRowFields * (1 + 309 + 1 + 17 + 1) - 1);
  EXPECT_LT(row.Length, row.Text.size());
}

}  // namespace
}  // namespace ondrel
