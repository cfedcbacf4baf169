#include "workspace/dwell_table_writer.h"

#include <limits>

#include "support/saving_test.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DwellTableWriterTest : public SavingTest {
 protected:
  void Add(std::uint32_t sweep, std::int32_t level, double duration, std::uint32_t flags = 0) {
    AddLevel({.LevelFlags = flags, .Sweep = sweep, .Duration = duration, .Level = level});
  }
  std::string SavedDwells() { return Saved(SaveDwellTable); }
};

TEST_F(DwellTableWriterTest, ARunOfLevelsIsASegment) {
  Add(1, 0, 0.5);
  Add(1, 1, 0.0012345678);
  Add(1, 0, 12.0);
  EXPECT_EQ(SavedDwells(),
            "Segment: 1\tDwells: 3\r\n\t0\t0.500000\r\n\t1\t0.001235\r\n\t0\t12.000000\r\n");
  EXPECT_TRUE(saved_);
  EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(DwellTableWriterTest, DurationsAreInSeconds) {
  Add(1, 1, 0.25);
  EXPECT_EQ(SavedDwells(), "Segment: 1\tDwells: 1\r\n\t1\t0.250000\r\n");
}

TEST_F(DwellTableWriterTest, WithoutLevelsTheFileIsEmpty) {
  EXPECT_EQ(SavedDwells(), "");
  EXPECT_TRUE(saved_);
}

TEST_F(DwellTableWriterTest, WithoutASelectedLevelTheFileIsEmpty) {
  Add(1, 0, 0.5, 1);
  Add(1, 1, 0.5, 0x80000000);
  EXPECT_EQ(SavedDwells(), "");
  EXPECT_TRUE(saved_);
  EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(DwellTableWriterTest, ALevelThatIsNotSelectedEndsASegment) {
  Add(1, 0, 0.125, 1);
  Add(1, 1, 0.25);
  Add(1, 0, 0.5);
  Add(1, 5, 0.75, 4);
  Add(1, 6, 0.875, 4);
  Add(1, 1, 1.0);
  Add(1, 0, 2.0, 1);
  EXPECT_EQ(SavedDwells(),
            "Segment: 1\tDwells: 2\r\n\t1\t0.250000\r\n\t0\t0.500000\r\n"
            "Segment: 2\tDwells: 1\r\n\t1\t1.000000\r\n");
}

TEST_F(DwellTableWriterTest, AnotherSweepBeginsAnotherSegment) {
  Add(1, 1, 0.25);
  Add(2, 0, 0.5);
  Add(2, 1, 0.75);
  Add(1, 0, 1.0);
  EXPECT_EQ(SavedDwells(),
            "Segment: 1\tDwells: 1\r\n\t1\t0.250000\r\n"
            "Segment: 2\tDwells: 2\r\n\t0\t0.500000\r\n\t1\t0.750000\r\n"
            "Segment: 3\tDwells: 1\r\n\t0\t1.000000\r\n");
}

TEST_F(DwellTableWriterTest, TheFlagsOfNeighboursDoNotCount) {
  AddLevel({.PrecedingFlags = 1, .FollowingFlags = 1, .Sweep = 1, .Duration = 0.5, .Level = 1});
  EXPECT_EQ(SavedDwells(), "Segment: 1\tDwells: 1\r\n\t1\t0.500000\r\n");
}

TEST_F(DwellTableWriterTest, Level2FailsInASegmentThatBeginsAt0) {
  Add(1, 0, 0.5);
  Add(1, 1, 0.25);
  Add(1, 2, 0.125);
  Add(1, 1, 0.0625);
  EXPECT_EQ(SavedDwells(), "Segment: 1\tDwells: 4\r\n\t0\t0.500000\r\n\t1\t0.250000\r\n");
  EXPECT_FALSE(saved_);
  EXPECT_THAT(Messages(), ElementsAre(kJump));
  EXPECT_EQ(shell().Boxes[0].Icon, toolkit::BoxIcon::Stop);
}

TEST_F(DwellTableWriterTest, LevelsNextToTheFirstMayBeTwoApart) {
  Add(1, 1, 0.5);
  Add(1, 0, 0.25);
  Add(1, 2, 0.125);
  EXPECT_EQ(SavedDwells(),
            "Segment: 1\tDwells: 3\r\n\t1\t0.500000\r\n\t0\t0.250000\r\n\t2\t0.125000\r\n");
  EXPECT_TRUE(saved_);
}

TEST_F(DwellTableWriterTest, LevelsBelowTheFirstFailAlike) {
  Add(1, 0, 0.5);
  Add(1, -1, 0.25);
  Add(1, -2, 0.125);
  EXPECT_EQ(SavedDwells(), "Segment: 1\tDwells: 3\r\n\t0\t0.500000\r\n\t-1\t0.250000\r\n");
  EXPECT_THAT(Messages(), ElementsAre(kJump));
}

TEST_F(DwellTableWriterTest, EachSegmentIsHeldAgainstItsOwnFirstLevel) {
  Add(1, 0, 0.5);
  Add(2, 5, 0.25);
  Add(2, 6, 0.125);
  EXPECT_EQ(SavedDwells(),
            "Segment: 1\tDwells: 1\r\n\t0\t0.500000\r\n"
            "Segment: 2\tDwells: 2\r\n\t5\t0.250000\r\n\t6\t0.125000\r\n");
  EXPECT_TRUE(saved_);
}

TEST_F(DwellTableWriterTest, AJumpFromOneEndOfTheNumbersToTheOtherIsAJump) {
  Add(1, std::numeric_limits<std::int32_t>::max(), 0.5);
  Add(1, std::numeric_limits<std::int32_t>::min(), 0.25);
  SavedDwells();
  EXPECT_THAT(Messages(), ElementsAre(kJump));
}

TEST_F(DwellTableWriterTest, AFailedWriteEndsTheSaveAndIsToldOnce) {
  std::string expected = "Segment: 1\tDwells: 3000\r\n";
  for (int i = 0; i < 3000; ++i) {
    Add(1, i % 2, 0.5);
    expected += i % 2 == 0 ? "\t0\t0.500000\r\n" : "\t1\t0.500000\r\n";
  }
  ASSERT_EQ(SavedDwells(), expected);
  const int writes = shell().Write.Calls;
  ASSERT_GE(writes, 4);
  for (int failing = 1; failing < writes; ++failing) {
    shell().Boxes.clear();
    shell().Write = {.Next = failing};
    const std::string saved = SavedDwells();
    EXPECT_EQ(saved, expected.substr(0, saved.size()));
    EXPECT_LT(saved.size(), expected.size());
    EXPECT_FALSE(saved_);
    EXPECT_THAT(Messages(), ElementsAre(kWritingFailed)) << failing;
    EXPECT_EQ(shell().Write.Calls, failing) << "nothing more is tried";
    EXPECT_EQ(shell().OpenFiles, 0);
  }
}

}  // namespace
}  // namespace ondrel
