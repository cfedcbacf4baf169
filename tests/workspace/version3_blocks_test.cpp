// The "Segments" and "Events" blocks of version 3 and above.
#include "support/version3_table.h"
#include "workspace/version3_reader.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Version3Blocks : public ReadingTest {};

// --- Segments -------------------------------------------------------------------------------

TEST_F(Version3Blocks, SegmentRowsMayComeInAnyOrderAndMayBeMissing) {
  EXPECT_TRUE(Parse(Table(Group(SweepRows(3), "3 1 0.5 0.6\r\n1 0\r\n", EventRow(1)))));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_EQ(Sweep(0).SegmentCount, 0);
  EXPECT_EQ(Sweep(0).Segments, nullptr);
  EXPECT_EQ(Sweep(1).SegmentCount, 0);
  EXPECT_EQ(Sweep(1).Segments, nullptr);
  ASSERT_EQ(Sweep(2).SegmentCount, 1);
  EXPECT_EQ(Sweep(2).Segments[0].End, 0.6);
}

TEST_F(Version3Blocks, ASecondRowForASweepReplacesItsSegments) {
  EXPECT_TRUE(Parse(Table(Group(SweepRows(1), "1 2 1 2 3 4 1 1 5 6\r\n", EventRow(1)))));
  ASSERT_EQ(Sweep(0).SegmentCount, 1);
  EXPECT_EQ(Sweep(0).Segments[0].Start, 5.0);
}

TEST_F(Version3Blocks, ASegmentRowBeyondTheSweepsIsToldAndTheBlockIsDone) {
  EXPECT_FALSE(Parse(Table(Group(SweepRows(2), "1 1 0 1 3 ", ""))));
  EXPECT_THAT(Messages(), ElementsAre(Corrupted(2, "Event"), Corrupted(1, "Event")))
      << "the keyword behind it is read as the first event";
  EXPECT_THAT(Counts(), ElementsAre(0, 0, 0));
}

TEST_F(Version3Blocks, TheCursorStandsBehindTheNumberOfSuchARow) {
  EXPECT_TRUE(Parse("5 File Undefined Sweeps " + SweepRows(2) + "Segments 3 " + EventRow(2)));
  EXPECT_THAT(Messages(), ElementsAre(Corrupted(1, "Event")));
  EXPECT_THAT(Counts(), ElementsAre(1, 2, 1));
  EXPECT_EQ(Event(0).Sweep, 2u);
}

TEST_F(Version3Blocks, ASegmentRowBelow1BeforeAllSweepsIsToldLikewise) {
  for (const char* number : {"0 ", "-1 ", "-2147483648 "}) {
    FreeAllTables(workspace());
    AllocateAllTables(Frame());
    shell().Boxes.clear();
    EXPECT_TRUE(
        Parse("5 File Undefined Sweeps " + SweepRows(2) + "Segments " + number + EventRow(2)));
    EXPECT_THAT(Messages(), ElementsAre(Corrupted(1, "Event"))) << number;
    EXPECT_THAT(Counts(), ElementsAre(1, 2, 1)) << number;
  }
}

TEST_F(Version3Blocks, ASegmentRow0ReachesTheLastSweepOfTheFileBefore) {
  EXPECT_TRUE(Parse(Table(Group(SweepRows(1), "1 1 1 2\r\n", EventRow(1)) +
                          Group(SweepRows(1), "0 1 3 4\r\n", EventRow(1)))));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_EQ(Sweep(0).Segments[0].Start, 3.0);
  EXPECT_EQ(Sweep(1).SegmentCount, 0);
}

TEST_F(Version3Blocks, TheLargestSegmentNumberDoesNoHarm) {
  EXPECT_TRUE(Parse(Table(Group(SweepRows(3), "", EventRow(1)))));
  EXPECT_TRUE(Parse("5 File Undefined Sweeps Segments 2147483647 "));
  EXPECT_THAT(Messages(), ElementsAre(Corrupted(1, "Event")));
}

TEST_F(Version3Blocks, ABadTokenInTheSegmentsUndoesTheSweeps) {
  for (const char* segments : {"x 1 0 1", "1 x 0 1", "1 1 x 1", "1 1 0 x", "1 2 0 1 2 x"}) {
    shell().Boxes.clear();
    const int before = shell().LiveAllocations;
    EXPECT_FALSE(Parse(
        Table(Group(SweepRows(2), "2 1 0.5 0.6\r\n" + std::string(segments) + " ", EventRow(1)))));
    EXPECT_THAT(Messages(), ElementsAre(Corrupted(2, "Event"))) << segments;
    EXPECT_THAT(Counts(), ElementsAre(0, 0, 0)) << segments;
    EXPECT_EQ(shell().LiveAllocations, before) << segments;
  }
}

TEST_F(Version3Blocks, ANegativeSegmentCountHasNoMemoryAndUndoesTheSweeps) {
  for (const char* count : {"-1", "-2147483648"}) {
    shell().Boxes.clear();
    EXPECT_FALSE(Parse(Table(Group(SweepRows(2), "1 " + std::string(count) + " ", EventRow(1)))));
    EXPECT_THAT(Messages(), ElementsAre(kNoMemoryForSegments)) << count;
    EXPECT_THAT(Counts(), ElementsAre(0, 0, 0)) << count;
  }
}

TEST_F(Version3Blocks, NoMemoryForSegmentsUndoesTheSweeps) {
  for (int fault = 1; fault <= 2; ++fault) {
    shell().Boxes.clear();
    const int before = shell().LiveAllocations;
    shell().Allocation.Next = 1 + fault;  // the block of the table comes first
    EXPECT_FALSE(Parse(Table(Group(SweepRows(2), "1 1 0 1 2 1 0 1\r\n", EventRow(1)))));
    EXPECT_THAT(Messages(), ElementsAre(kNoMemoryForSegments)) << fault;
    EXPECT_THAT(Counts(), ElementsAre(0, 0, 0)) << fault;
    EXPECT_EQ(shell().LiveAllocations, before) << fault;
  }
}

TEST_F(Version3Blocks, AGiganticSegmentCountIsAFailedAllocation) {
  EXPECT_FALSE(Parse(Table(Group(SweepRows(1), "1 2147483647 0 1 ", EventRow(1)))));
  EXPECT_THAT(Messages(), ElementsAre(kNoMemoryForSegments));
  EXPECT_THAT(Counts(), ElementsAre(0, 0, 0));
}

TEST_F(Version3Blocks, ATableThatEndsInTheSegmentsIsToldAndKept) {
  EXPECT_TRUE(Parse("5 File Undefined Sweeps " + SweepRows(2) + "Segments 1 3 0.5 0.6 0.7"));
  EXPECT_THAT(Messages(), ElementsAre(Corrupted(2, "Event")));
  EXPECT_THAT(Counts(), ElementsAre(1, 2, 0));
  ASSERT_EQ(Sweep(0).SegmentCount, 3);
  EXPECT_EQ(Sweep(0).Segments[0].End, 0.6);
  EXPECT_EQ(Sweep(0).Segments[1].Start, 0.7);
  EXPECT_EQ(Sweep(0).Segments[1].End, 0.0);
  EXPECT_EQ(Sweep(0).Segments[2].End, 0.0);
}

TEST_F(Version3Blocks, ALargeCountAtTheEndOfTheDataTakesNoTime) {
  EXPECT_TRUE(Parse("5 File Undefined Sweeps " + SweepRows(1) + "Segments 1 10000000 0.5 0.6"));
  EXPECT_THAT(Messages(), ElementsAre(Corrupted(2, "Event")));
  EXPECT_EQ(Sweep(0).SegmentCount, 10000000);
  EXPECT_EQ(Sweep(0).Segments[9999999].End, 0.0);
}

// --- Events ---------------------------------------------------------------------------------

TEST_F(Version3Blocks, ABadTokenInEachColumnOfAnEventUndoesTheGroup) {
  const std::string row = "1 1 1 1 1 1 ";
  for (std::size_t column = 0; column < 6; ++column) {
    shell().Boxes.clear();
    const int before = shell().LiveAllocations;
    std::string bad = row;
    bad[2 * column] = 'x';
    EXPECT_FALSE(Parse(Table(Group(SweepRows(2), "1 1 0 1 ", row + bad))));
    EXPECT_THAT(Messages(), ElementsAre(Corrupted(2, "Event"))) << "column " << column;
    EXPECT_THAT(Counts(), ElementsAre(0, 0, 0));
    EXPECT_EQ(shell().LiveAllocations, before);
  }
}

TEST_F(Version3Blocks, AnExactFitOfEventsFails) {
  SetCapacities(3, 10);
  EXPECT_FALSE(Parse(Table(Group(SweepRows(1), "", Repeat(EventRow(1), 3)))));
  EXPECT_THAT(Messages(), ElementsAre(TableFull("Event")));
  EXPECT_THAT(Counts(), ElementsAre(0, 0, 0));
}

TEST_F(Version3Blocks, OneEventLessThanTheCapacityPasses) {
  SetCapacities(4, 10);
  EXPECT_TRUE(Parse(Table(Group(SweepRows(1), "", Repeat(EventRow(1), 3)))));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_THAT(Counts(), ElementsAre(1, 1, 3));
}

TEST_F(Version3Blocks, TheCapacityReachedInALaterFileLeavesTheEarlierOnes) {
  SetCapacities(4, 10);
  EXPECT_FALSE(Parse(Table(Group(SweepRows(1), "1 1 0 1 ", Repeat(EventRow(1), 2)) +
                           Group(SweepRows(2), "1 1 0 1 ", Repeat(EventRow(1), 2)))));
  EXPECT_THAT(Messages(), ElementsAre(TableFull("Event")));
  EXPECT_THAT(Counts(), ElementsAre(1, 1, 2));
}

TEST_F(Version3Blocks, AnEventBeyondTheSweepsEndsTheBlockAndKeepsTheRowsBefore) {
  EXPECT_FALSE(Parse(Table(Group(SweepRows(2), "", EventRow(1) + EventRow(3) + EventRow(1)))));
  EXPECT_THAT(Messages(), ElementsAre(Corrupted(2, "Event")));
  EXPECT_THAT(Counts(), ElementsAre(1, 2, 1));
}

TEST_F(Version3Blocks, SuchARowAtTheVeryEndIsAGoodRead) {
  EXPECT_TRUE(Parse(Table(Group(SweepRows(2), "", EventRow(1) + "3"))));
  EXPECT_THAT(Messages(), ElementsAre(Corrupted(2, "Event")));
  EXPECT_THAT(Counts(), ElementsAre(1, 2, 1));
}

TEST_F(Version3Blocks, SweepNumbersOfEventsBelow1AreNotRefused) {
  EXPECT_TRUE(Parse(Table(Group(SweepRows(2), "", EventRow(1)) +
                          Group(SweepRows(1), "", EventRow(0) + EventRow(-5)))));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_EQ(Event(1).Sweep, 2u);
  EXPECT_EQ(Event(2).Sweep, static_cast<std::uint32_t>(-3));
}

TEST_F(Version3Blocks, ATruncatedLastRowIsKeptWithZeros) {
  EXPECT_TRUE(Parse(Table(Group(SweepRows(1), "", EventRow(1) + "1 0.75"))));
  EXPECT_THAT(Counts(), ElementsAre(1, 1, 2));
  EXPECT_EQ(Event(1).Transition, 0.75);
  EXPECT_EQ(Event(1).PostAmplitude, 0.0);
}

TEST_F(Version3Blocks, AFileMayHaveSweepsButNoEvents) {
  EXPECT_TRUE(Parse(Table(Group(SweepRows(1), "", "") + Group(SweepRows(1), "", EventRow(1)))));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_THAT(Counts(), ElementsAre(2, 2, 1));
  EXPECT_EQ(Event(0).Sweep, 2u);
}

}  // namespace
}  // namespace ondrel
