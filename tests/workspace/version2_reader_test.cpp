#include "workspace/version2_reader.h"

#include "support/reading_test.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string kSweepRow = "9 0.5 2.0 0.25 1.75 7 8\r\n";

std::string SweepRows(int count) {
  return Repeat(kSweepRow, count);
}

/// An event row of version 2 in sweep `sweep`.
std::string EventRow(int sweep) {
  return std::to_string(sweep) + " 0.5 1E-12 2E-12 3 4.5\r\n";
}

class Version2 : public ReadingTest {
 protected:
  /// File and index of every sweep, as "file/index".
  std::vector<std::string> Numbering() {
    std::vector<std::string> numbering;
    for (std::int32_t row = 0; row < workspace().Sweeps.Count; ++row) {
      numbering.push_back(std::to_string(Sweep(row).File) + "/" + std::to_string(Sweep(row).Index));
    }
    return numbering;
  }
};

TEST_F(Version2, EveryColumnGoesToItsField) {
  EXPECT_TRUE(Parse("2\r\nSweeps\r\n" + kSweepRow + "Events\r\n" + EventRow(1)));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_THAT(Counts(), ElementsAre(1, 1, 1));
  const SweepRecord& sweep = Sweep(0);
  EXPECT_EQ(sweep.SelectionFlags, 0u);
  EXPECT_EQ(sweep.File, 1u);
  EXPECT_EQ(sweep.Index, 1u);
  EXPECT_EQ(sweep.StartTime, 0.5);
  EXPECT_EQ(sweep.Duration, 2.0);
  EXPECT_EQ(sweep.RelevantStart, 0.25);
  EXPECT_EQ(sweep.RelevantEnd, 1.75);
  EXPECT_EQ(sweep.RelevantValue, 7.0);
  EXPECT_EQ(sweep.TagValue, 8.0);
  const EventRecord& event = Event(0);
  EXPECT_EQ(event.Sweep, 1u);
  EXPECT_EQ(event.Transition, 0.5);
  EXPECT_EQ(event.PreAmplitude, 1e-12);
  EXPECT_EQ(event.PostAmplitude, 2e-12);
  EXPECT_EQ(event.Level, 3);
  EXPECT_EQ(event.TagValue, 4.5);
}

TEST_F(Version2, ASweepHasOneSegmentOverItsWholeLength) {
  EXPECT_TRUE(Parse("2 Sweeps " + kSweepRow + "Events " + EventRow(1)));
  ASSERT_EQ(Sweep(0).SegmentCount, 1);
  EXPECT_EQ(Sweep(0).Segments[0].Start, 0.5);
  EXPECT_EQ(Sweep(0).Segments[0].End, 2.5);
}

TEST_F(Version2, Version1RowsHaveTwoMoreTokens) {
  EXPECT_TRUE(Parse("1 Sweeps " + kSweepRow + "Events 1 0.5 1E-12 77 2E-12 88 3 4.5\r\n"));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_THAT(Counts(), ElementsAre(1, 1, 1));
  EXPECT_EQ(Event(0).PreAmplitude, 1e-12);
  EXPECT_EQ(Event(0).PostAmplitude, 2e-12);
  EXPECT_EQ(Event(0).Level, 3);
  EXPECT_EQ(Event(0).TagValue, 4.5);
}

TEST_F(Version2, ASingleFileIsUndefinedAndCountsItsSweeps) {
  EXPECT_TRUE(Parse("2 Sweeps " + SweepRows(3) + "Events " + EventRow(1)));
  EXPECT_THAT(Counts(), ElementsAre(1, 3, 1));
  EXPECT_EQ(File(0).Type, FileType::Undefined);
  EXPECT_STREQ(File(0).Name, "");
  EXPECT_EQ(File(0).SweepCount, 3);
}

TEST_F(Version2, TheSweepsOfASingleFileAllGetIndex1AndRisingFileNumbers) {
  EXPECT_TRUE(Parse("2 Sweeps " + SweepRows(3) + "Events " + EventRow(1)));
  EXPECT_THAT(Numbering(), ElementsAre("1/1", "2/1", "3/1"));
}

TEST_F(Version2, SweepCountsLeftByEarlierReadsDoNotChangeThatNumbering) {
  for (std::int32_t row = 0; row < workspace().Files.Capacity; ++row) {
    workspace().Files.Index[row]->SweepCount = 5;
  }
  EXPECT_TRUE(Parse("2 Sweeps " + SweepRows(3) + "Events " + EventRow(1)));
  EXPECT_THAT(Numbering(), ElementsAre("1/1", "2/1", "3/1"));
}

TEST_F(Version2, MoreThan100SweepsOfASingleFileKeepTheNumbering) {
  EXPECT_TRUE(Parse("2 Sweeps " + SweepRows(250) + "Events " + EventRow(1)));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_THAT(Counts(), ElementsAre(1, 250, 1));
  EXPECT_EQ(Sweep(249).File, 250u);
  EXPECT_EQ(Sweep(249).Index, 1u);
  EXPECT_EQ(File(0).SweepCount, 250);
}

TEST_F(Version2, SweepsAreDealtToTheFilesInOrder) {
  EXPECT_TRUE(Parse("2 Files 2 1 3 Sweeps " + SweepRows(6) + "Events " + EventRow(1)));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_THAT(Counts(), ElementsAre(3, 6, 1));
  EXPECT_THAT(Numbering(), ElementsAre("1/1", "1/2", "2/1", "3/1", "3/2", "3/3"));
  EXPECT_EQ(File(0).SweepCount, 2);
  EXPECT_EQ(File(1).SweepCount, 1);
  EXPECT_EQ(File(2).SweepCount, 3);
}

TEST_F(Version2, AFileWithoutSweepsTakesOneAllTheSame) {
  EXPECT_TRUE(Parse("2 Files 0 2 Sweeps " + SweepRows(2) + "Events " + EventRow(1)));
  EXPECT_THAT(Numbering(), ElementsAre("1/1", "2/1"));
}

TEST_F(Version2, FilesThatDoNotAccountForEverySweepAreToldAndTheBlockGoes) {
  for (const int rows : {2, 4}) {
    shell().Boxes.clear();
    EXPECT_FALSE(Parse("2 Files 2 1 Sweeps " + SweepRows(rows) + "Events " + EventRow(1)));
    EXPECT_THAT(Messages(), ElementsAre(kDifferent));
    EXPECT_THAT(Counts(), ElementsAre(0, 0, 0));
  }
}

TEST_F(Version2, ASingleRowOfFilesIsNotHeldToItsCount) {
  EXPECT_TRUE(Parse("2 Files 2 Sweeps " + SweepRows(4) + "Events " + EventRow(1)));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_THAT(Numbering(), ElementsAre("1/1", "1/2", "2/1", "3/1"));
  EXPECT_EQ(File(0).SweepCount, 2);
}

TEST_F(Version2, SweepCountsThatOverflowTogetherAreDifferentFromTheRows) {
  EXPECT_FALSE(
      Parse("2 Files 2147483647 2147483647 3 Sweeps " + SweepRows(1) + "Events " + EventRow(1)));
  EXPECT_THAT(Messages(), ElementsAre(kDifferent));
  EXPECT_THAT(Counts(), ElementsAre(0, 0, 0));
}

TEST_F(Version2, AHundredFilesFit) {
  EXPECT_TRUE(
      Parse("2 Files " + Repeat("1 ", 100) + "Sweeps " + SweepRows(100) + "Events " + EventRow(1)));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_THAT(Counts(), ElementsAre(100, 100, 1));
}

TEST_F(Version2, MoreThan100FilesAreRefused) {
  EXPECT_FALSE(
      Parse("2 Files " + Repeat("1 ", 101) + "Sweeps " + SweepRows(101) + "Events " + EventRow(1)));
  EXPECT_THAT(Messages(), ElementsAre(kTooManyFiles));
  EXPECT_THAT(Counts(), ElementsAre(0, 0, 0));
}

TEST_F(Version2, ASingleFileBeyond100IsToldAsAFullEventTable) {
  ASSERT_TRUE(
      Parse("2 Files " + Repeat("1 ", 100) + "Sweeps " + SweepRows(100) + "Events " + EventRow(1)));
  EXPECT_FALSE(Parse("2 Sweeps " + SweepRows(1) + "Events " + EventRow(1)));
  EXPECT_THAT(Messages(), ElementsAre(TableFull("Event")));
  EXPECT_THAT(Counts(), ElementsAre(100, 100, 1));
}

TEST_F(Version2, ABadSweepCountIsCorruptedWithTheWordFile) {
  EXPECT_FALSE(Parse("2 Files 2 x Sweeps " + SweepRows(2) + "Events " + EventRow(1)));
  EXPECT_THAT(Messages(), ElementsAre(Corrupted(2, "File")));
  EXPECT_THAT(Counts(), ElementsAre(0, 0, 0));
}

TEST_F(Version2, DataThatEndsInTheFilesFailsQuietly) {
  EXPECT_FALSE(Parse("2 Files 2 3"));
  EXPECT_FALSE(Parse("2 Files"));
  EXPECT_FALSE(Parse("2 Files Sweeps " + SweepRows(1) + "Events " + EventRow(1)));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_THAT(Counts(), ElementsAre(0, 0, 0));
}

TEST_F(Version2, ABadTokenInEachColumnOfASweepIsCorruptedAndTheBlockGoes) {
  const std::string row = "1 1 1 1 1 1 1 ";
  for (std::size_t column = 0; column < 7; ++column) {
    shell().Boxes.clear();
    std::string bad = row;
    bad[2 * column] = 'x';
    EXPECT_FALSE(Parse("2 Sweeps " + row + row + bad + "Events " + EventRow(1)));
    EXPECT_THAT(Messages(), ElementsAre(Corrupted(3, "Sweep"))) << "column " << column;
    EXPECT_THAT(Counts(), ElementsAre(0, 0, 0));
  }
}

TEST_F(Version2, AnExactFitOfSweepsPasses) {
  SetCapacities(10, 3);
  EXPECT_TRUE(Parse("2 Sweeps " + SweepRows(3) + "Events " + EventRow(3)));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_THAT(Counts(), ElementsAre(1, 3, 1));
}

TEST_F(Version2, OneSweepTooManyFillsTheTableAndTheBlockGoes) {
  SetCapacities(10, 3);
  EXPECT_FALSE(Parse("2 Sweeps " + SweepRows(4) + "Events " + EventRow(1)));
  EXPECT_THAT(Messages(), ElementsAre(TableFull("Sweep")));
  EXPECT_THAT(Counts(), ElementsAre(0, 0, 0));
}

TEST_F(Version2, NoMemoryForASegmentLeavesNothing) {
  for (int fault = 1; fault <= 3; ++fault) {
    shell().Boxes.clear();
    const int before = shell().LiveAllocations;
    shell().Allocation.Next = 1 + fault;  // the block of the table comes first
    EXPECT_FALSE(Parse("2 Sweeps " + SweepRows(3) + "Events " + EventRow(1)));
    EXPECT_THAT(Messages(), ElementsAre(kNoMemoryForSweep)) << fault;
    EXPECT_THAT(Counts(), ElementsAre(0, 0, 0)) << fault;
    EXPECT_EQ(shell().LiveAllocations, before) << fault;
  }
}

TEST_F(Version2, DataWithoutEventsFailsQuietly) {
  EXPECT_FALSE(Parse("2 Sweeps " + SweepRows(2)));
  EXPECT_FALSE(Parse("2 Sweeps " + SweepRows(2) + "Events\r\n"));
  EXPECT_FALSE(Parse("2 Sweeps"));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_THAT(Counts(), ElementsAre(0, 0, 0));
}

TEST_F(Version2, ABadTokenInEachColumnOfAnEventIsCorruptedAndNothingStays) {
  const std::string row = "1 1 1 1 1 1 ";
  for (std::size_t column = 0; column < 6; ++column) {
    shell().Boxes.clear();
    std::string bad = row;
    bad[2 * column] = 'x';
    EXPECT_FALSE(Parse("2 Sweeps " + SweepRows(1) + "Events " + row + bad));
    EXPECT_THAT(Messages(), ElementsAre(Corrupted(2, "Event"))) << "column " << column;
    EXPECT_THAT(Counts(), ElementsAre(0, 0, 0));
  }
}

TEST_F(Version2, TheDroppedTokensOfVersion1AreChecked) {
  const std::string row = "1 1 1 1 1 1 1 1 ";
  for (const std::size_t column : {std::size_t{3}, std::size_t{5}}) {
    shell().Boxes.clear();
    std::string bad = row;
    bad[2 * column] = 'x';
    EXPECT_FALSE(Parse("1 Sweeps " + SweepRows(1) + "Events " + row + bad));
    EXPECT_THAT(Messages(), ElementsAre(Corrupted(2, "Event"))) << "column " << column;
  }
}

TEST_F(Version2, AnExactFitOfEventsPasses) {
  SetCapacities(2, 10);
  EXPECT_TRUE(Parse("2 Sweeps " + SweepRows(1) + "Events " + EventRow(1) + EventRow(1)));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_THAT(Counts(), ElementsAre(1, 1, 2));
}

TEST_F(Version2, OneEventTooManyFillsTheTableAndNothingStays) {
  SetCapacities(2, 10);
  EXPECT_FALSE(Parse("2 Sweeps " + SweepRows(1) + "Events " + Repeat(EventRow(1), 3)));
  EXPECT_THAT(Messages(), ElementsAre(TableFull("Event")));
  EXPECT_THAT(Counts(), ElementsAre(0, 0, 0));
}

TEST_F(Version2, AnEventBeyondTheSweepsMeansThatSweepsAreMissing) {
  EXPECT_FALSE(
      Parse("2 Sweeps " + SweepRows(2) + "Events " + EventRow(1) + EventRow(3) + EventRow(2)));
  EXPECT_THAT(Messages(), ElementsAre(kSweepsMissing));
  EXPECT_THAT(Counts(), ElementsAre(0, 0, 0));
}

TEST_F(Version2, SweepNumbersAreHeldAgainstTheSweepsOfThisFileOnly) {
  EXPECT_TRUE(Parse("2 Sweeps " + SweepRows(2) + "Events " + EventRow(2)));
  EXPECT_FALSE(Parse("2 Sweeps " + SweepRows(1) + "Events " + EventRow(2)));
  EXPECT_THAT(Messages(), ElementsAre(kSweepsMissing));
  EXPECT_THAT(Counts(), ElementsAre(1, 2, 1));
}

TEST_F(Version2, SweepNumbersBelow1AreNotRefused) {
  EXPECT_TRUE(Parse("2 Sweeps " + SweepRows(1) + "Events " + EventRow(0) + EventRow(-2147483647)));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_EQ(Event(0).Sweep, 0u);
}

TEST_F(Version2, ATruncatedLastRowIsKeptWithZeros) {
  EXPECT_TRUE(Parse("2 Sweeps " + SweepRows(1) + "Events " + EventRow(1) + "1 0.75"));
  EXPECT_THAT(Counts(), ElementsAre(1, 1, 2));
  EXPECT_EQ(Event(1).Transition, 0.75);
  EXPECT_EQ(Event(1).TagValue, 0.0);
}

TEST_F(Version2, AFurtherFileCountsOn) {
  const std::string table =
      "2 Files 1 2 Sweeps " + SweepRows(3) + "Events " + EventRow(1) + EventRow(3);
  EXPECT_TRUE(Parse(table));
  EXPECT_TRUE(Parse(table));
  EXPECT_THAT(Counts(), ElementsAre(4, 6, 4));
  EXPECT_THAT(Numbering(), ElementsAre("1/1", "2/1", "2/2", "3/1", "4/1", "4/2"));
  EXPECT_EQ(Event(2).Sweep, 4u);
  EXPECT_EQ(Event(3).Sweep, 6u);
}

TEST_F(Version2, AFailedFurtherFileLeavesTheFirstWithItsSegments) {
  EXPECT_TRUE(Parse("2 Sweeps " + SweepRows(1) + "Events " + EventRow(1)));
  EXPECT_FALSE(Parse("2 Sweeps " + SweepRows(2) + "Events x"));
  EXPECT_THAT(Counts(), ElementsAre(1, 1, 1));
  EXPECT_EQ(Sweep(0).Segments[0].End, 2.5);
}

TEST_F(Version2, AnotherKeywordMakesTheFileUnreadable) {
  for (const char* text : {"2 File", "1 File Undefined Sweeps"}) {
    shell().Boxes.clear();
    EXPECT_FALSE(Parse(text));
    EXPECT_THAT(Messages(), ElementsAre(CannotRead("table.evt")));
  }
}

TEST_F(Version2, TheViewsLearnTheCountsInBothOutcomes) {
  OpenTableView(ViewKind::Event);
  OpenTableView(ViewKind::Sweep);
  EXPECT_TRUE(Parse("2 Sweeps " + SweepRows(3) + "Events " + EventRow(1) + EventRow(2)));
  EXPECT_EQ(ScrollRange(ViewKind::Event), 1);
  EXPECT_EQ(ScrollRange(ViewKind::Sweep), 2);
  OpenTableView(ViewKind::Event);
  OpenTableView(ViewKind::Sweep);
  EXPECT_FALSE(Parse("2 Sweeps " + SweepRows(3) + "Events x"));
  EXPECT_EQ(ScrollRange(ViewKind::Event), 1);
  EXPECT_EQ(ScrollRange(ViewKind::Sweep), 2);
}

}  // namespace
}  // namespace ondrel
