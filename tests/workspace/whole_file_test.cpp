#include "workspace/whole_file.h"

#include "support/reading_test.h"
#include "support/sample_tables.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class WholeFileTest : public ReadingTest {
 protected:
  bool ReadFile(const std::string& path) { return ReadWholeFile(Frame(), path.c_str(), &file_); }
  ~WholeFileTest() override { toolkit::FreeMemory(file_.Bytes); }

  WholeFile file_;
};

TEST_F(WholeFileTest, TheBlockHoldsEveryByteOfTheFile) {
  const std::string bytes("a\0b\r\n\xFF", 6);
  const ScratchFile file("bytes.evt", bytes);
  ASSERT_TRUE(ReadFile(file.Path()));
  EXPECT_EQ(std::string(file_.Bytes, file_.Size), bytes);
  EXPECT_EQ(shell().OpenFiles, 0);
  EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(WholeFileTest, AnEmptyFileIsNoFailure) {
  const ScratchFile file("empty.evt", "");
  ASSERT_TRUE(ReadFile(file.Path()));
  EXPECT_EQ(file_.Size, 0u);
  EXPECT_NE(file_.Bytes, nullptr);
}

TEST_F(WholeFileTest, TheShortNameIsWhatStandsBehindTheLastBackslash) {
  EXPECT_FALSE(ReadFile("C:\\my data\\none here.evt"));
  EXPECT_STREQ(file_.Name, "none here.evt");
  EXPECT_FALSE(ReadFile("none.evt"));
  EXPECT_STREQ(file_.Name, "none.evt");
}

TEST_F(WholeFileTest, TheShortNameHas127Bytes) {
  EXPECT_FALSE(ReadFile("C:\\" + std::string(200, 'n')));
  EXPECT_EQ(file_.Name, std::string(127, 'n'));
}

TEST_F(WholeFileTest, AFileThatDoesNotOpenIsToldWithItsCode) {
  EXPECT_FALSE(ReadFile("C:\\data\\none.evt"));
  EXPECT_THAT(Messages(), ElementsAre("Could not open file none.evt. Error code 2."));
  EXPECT_EQ(file_.Bytes, nullptr);
}

TEST_F(WholeFileTest, NoMemoryForTheFileIsTold) {
  const ScratchFile file("a.evt", "1");
  shell().Allocation.Next = 1;
  EXPECT_FALSE(ReadFile(file.Path()));
  EXPECT_THAT(Messages(), ElementsAre("Insufficient memory for " + ShortNameOf(file.Path()) +
                                      ". You can increase the amount of memory by quiting some "
                                      "other programs."));
  EXPECT_EQ(file_.Bytes, nullptr);
  EXPECT_EQ(shell().OpenFiles, 0);
}

TEST_F(WholeFileTest, ASizeThatCannotBeHadIsToldLikewise) {
  const ScratchFile file("a.evt", "1");
  shell().Size.Next = 1;
  EXPECT_FALSE(ReadFile(file.Path()));
  EXPECT_THAT(Messages(), ElementsAre(::testing::StartsWith("Insufficient memory for ")));
  EXPECT_EQ(shell().OpenFiles, 0);
}

TEST_F(WholeFileTest, AFailedSeekOrReadIsToldWithItsCodeAndFreesTheBlock) {
  const ScratchFile file("a.evt", "1");
  for (scripted::Fault* const fault : {&shell().Seek, &shell().Read}) {
    shell().Boxes.clear();
    const int before = shell().LiveAllocations;
    fault->Next = 1;
    EXPECT_FALSE(ReadFile(file.Path()));
    EXPECT_THAT(Messages(), ElementsAre("Error code 23 while reading the file."));
    EXPECT_EQ(file_.Bytes, nullptr);
    EXPECT_EQ(shell().LiveAllocations, before);
    EXPECT_EQ(shell().OpenFiles, 0);
  }
}

TEST_F(WholeFileTest, EveryFailureIsABoxWithOneOkButtonAndTheStopIcon) {
  const ScratchFile file("a.evt", "1");
  shell().Allocation.Next = 1;
  EXPECT_FALSE(ReadFile(file.Path()));
  shell().Read.Next = 1;
  EXPECT_FALSE(ReadFile(file.Path()));
  EXPECT_FALSE(ReadFile("none"));
  ASSERT_EQ(shell().Boxes.size(), 3u);
  for (const scripted::Box& box : shell().Boxes) {
    EXPECT_EQ(box.Buttons, toolkit::BoxButtons::Ok);
    EXPECT_EQ(box.Icon, toolkit::BoxIcon::Stop);
  }
}

}  // namespace
}  // namespace ondrel
