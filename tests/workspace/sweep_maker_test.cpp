#include "workspace/sweep_maker.h"

#include "support/reading_test.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Sweeps are made from bare lists whose rows are given by sweep and time here.
class SweepMaker : public ReadingTest {
 protected:
  struct Row {
    int Sweep;
    double Time;
  };
  bool ParseRows(std::initializer_list<Row> rows) {
    std::string text;
    for (const Row& row : rows) {
      text += std::to_string(row.Sweep) + " " + std::to_string(row.Time) + " 0 0 1E-12 0 1\r\n";
    }
    return Parse(text);
  }
  void ExpectOnlySegment(std::int32_t row, double start, double end) {
    ASSERT_EQ(Sweep(row).SegmentCount, 1);
    EXPECT_EQ(Sweep(row).Segments[0].Start, start);
    EXPECT_EQ(Sweep(row).Segments[0].End, end);
  }
  void ExpectEmptySweep(std::int32_t row) {
    EXPECT_EQ(Sweep(row).StartTime, 0.0);
    EXPECT_EQ(Sweep(row).Duration, 0.0);
    EXPECT_EQ(Sweep(row).RelevantStart, 0.0);
    EXPECT_EQ(Sweep(row).RelevantEnd, 0.0);
    EXPECT_EQ(Sweep(row).RelevantValue, 0.0);
    EXPECT_EQ(Sweep(row).TagValue, 0.0);
    ExpectOnlySegment(row, 0.0, 0.0);
  }
};

TEST_F(SweepMaker, ASweepEndsAtItsLastTransition) {
  EXPECT_TRUE(ParseRows({{1, 0.5}, {1, 2.5}, {2, 1.5}}));
  EXPECT_THAT(Counts(), ElementsAre(1, 2, 3));
  const SweepRecord& sweep = Sweep(0);
  EXPECT_EQ(sweep.SelectionFlags, 0u);
  EXPECT_EQ(sweep.File, 1u);
  EXPECT_EQ(sweep.Index, 1u);
  EXPECT_EQ(sweep.StartTime, 0.0);
  EXPECT_EQ(sweep.Duration, 2.5);
  EXPECT_EQ(sweep.RelevantStart, 0.0);
  EXPECT_EQ(sweep.RelevantEnd, 2.5);
  EXPECT_EQ(sweep.RelevantValue, 0.0);
  EXPECT_EQ(sweep.TagValue, 0.0);
  ExpectOnlySegment(0, 0.0, 2.5);
  EXPECT_EQ(Sweep(1).Index, 2u);
  EXPECT_EQ(Sweep(1).Duration, 1.5);
}

TEST_F(SweepMaker, TheFileIsUndefinedWithTheLastSweepNumberAsItsCount) {
  EXPECT_TRUE(ParseRows({{1, 0.5}, {2, 0.5}, {3, 0.5}}));
  EXPECT_EQ(File(0).Type, FileType::Undefined);
  EXPECT_STREQ(File(0).Name, "");
  EXPECT_EQ(File(0).SweepCount, 3);
}

TEST_F(SweepMaker, NumbersTwoTwoFourAreFilledInAndPass) {
  EXPECT_TRUE(ParseRows({{2, 0.5}, {2, 0.75}, {4, 1.0}}));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_THAT(Counts(), ElementsAre(1, 4, 3));
  ExpectEmptySweep(0);
  EXPECT_EQ(Sweep(1).Duration, 0.75);
  ExpectEmptySweep(2);
  EXPECT_EQ(Sweep(3).Duration, 1.0);
  for (std::int32_t row = 0; row < 4; ++row) {
    EXPECT_EQ(Sweep(row).Index, static_cast<std::uint32_t>(row) + 1);
    EXPECT_EQ(Sweep(row).File, 1u);
  }
}

TEST_F(SweepMaker, NumbersOneTwoOneAreAmbiguous) {
  EXPECT_TRUE(ParseRows({{1, 0.5}, {2, 0.5}, {1, 0.5}}));
  EXPECT_THAT(Messages(), ElementsAre(kAmbiguous));
  EXPECT_THAT(Counts(), ElementsAre(0, 0, 0));
}

TEST_F(SweepMaker, NumbersOneTwoFiveGiveEmptyRowsForThreeAndFour) {
  EXPECT_TRUE(ParseRows({{1, 0.5}, {2, 0.5}, {5, 0.25}}));
  EXPECT_THAT(Counts(), ElementsAre(1, 5, 3));
  ExpectEmptySweep(2);
  ExpectEmptySweep(3);
  EXPECT_EQ(Event(2).Sweep, 5u);
  EXPECT_EQ(GetSweepByNumber(workspace().Sweeps, Event(2).Sweep)->Duration, 0.25);
}

TEST_F(SweepMaker, NumbersBelowOneAreAmbiguous) {
  EXPECT_TRUE(ParseRows({{0, 0.5}}));
  EXPECT_TRUE(ParseRows({{-1, 0.5}}));
  EXPECT_TRUE(ParseRows({{-1, 0.5}, {1, 0.5}}));
  EXPECT_THAT(Messages(), ElementsAre(kAmbiguous, kAmbiguous, kAmbiguous));
  EXPECT_THAT(Counts(), ElementsAre(0, 0, 0));
}

TEST_F(SweepMaker, DescendingNumbersAreAmbiguous) {
  EXPECT_TRUE(ParseRows({{2, 0.5}, {1, 0.5}}));
  EXPECT_THAT(Messages(), ElementsAre(kAmbiguous));
}

TEST_F(SweepMaker, SweepsThatWouldFillTheTableExactlyAreRefused) {
  SetCapacities(10, 3);
  EXPECT_TRUE(ParseRows({{1, 0.5}, {2, 0.5}, {3, 0.5}}));
  EXPECT_THAT(Messages(), ElementsAre(TableFull("Sweep")));
  EXPECT_THAT(Counts(), ElementsAre(0, 0, 0));
}

TEST_F(SweepMaker, OneSweepLessThanTheCapacityPasses) {
  SetCapacities(10, 4);
  EXPECT_TRUE(ParseRows({{1, 0.5}, {2, 0.5}, {3, 0.5}}));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_THAT(Counts(), ElementsAre(1, 3, 3));
}

TEST_F(SweepMaker, AHugeNumberFillsTheTableAndStopsThere) {
  SetCapacities(10, 50);
  EXPECT_TRUE(ParseRows({{1, 0.5}, {2147483647, 0.5}, {3, 0.5}}));
  EXPECT_THAT(Messages(), ElementsAre(TableFull("Sweep")));
  EXPECT_THAT(Counts(), ElementsAre(0, 0, 0));
}

TEST_F(SweepMaker, AFurtherFileThatDoesNotFitLeavesTheFirst) {
  SetCapacities(10, 4);
  EXPECT_TRUE(ParseRows({{1, 0.5}, {2, 0.5}}));
  EXPECT_TRUE(ParseRows({{1, 0.5}, {2, 0.5}}));
  EXPECT_THAT(Messages(), ElementsAre(TableFull("Sweep")));
  EXPECT_THAT(Counts(), ElementsAre(1, 2, 2));
  ExpectOnlySegment(1, 0.0, 0.5);
}

TEST_F(SweepMaker, AFullFileTableIsToldAsAFullEventTableAndDropsTheRows) {
  for (int file = 0; file < 100; ++file) ASSERT_TRUE(ParseRows({{1, 0.5}}));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_TRUE(ParseRows({{1, 0.5}, {2, 0.5}}));
  EXPECT_THAT(Messages(), ElementsAre(TableFull("Event")));
  EXPECT_THAT(Counts(), ElementsAre(100, 100, 100));
}

TEST_F(SweepMaker, NoMemoryForASegmentDropsTheRows) {
  for (int fault = 1; fault <= 3; ++fault) {
    shell().Boxes.clear();
    const int before = shell().LiveAllocations;
    shell().Allocation.Next = 1 + fault;  // the block of the table comes first
    EXPECT_TRUE(ParseRows({{1, 0.5}, {3, 0.5}}));
    EXPECT_THAT(Messages(), ElementsAre(kNoMemoryForSweep)) << fault;
    EXPECT_THAT(Counts(), ElementsAre(0, 0, 0)) << fault;
    EXPECT_EQ(shell().LiveAllocations, before) << fault;
  }
}

TEST_F(SweepMaker, TheTablesTakeANewFileAfterEachFailure) {
  EXPECT_TRUE(ParseRows({{1, 0.5}, {2, 0.5}, {1, 0.5}}));
  EXPECT_TRUE(ParseRows({{1, 0.5}, {2, 0.5}}));
  EXPECT_THAT(Counts(), ElementsAre(1, 2, 2));
  ExpectOnlySegment(0, 0.0, 0.5);
}

}  // namespace
}  // namespace ondrel
