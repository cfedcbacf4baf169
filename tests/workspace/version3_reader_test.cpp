#include "workspace/version3_reader.h"

#include "support/version3_table.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Version3 : public ReadingTest {};

TEST_F(Version3, EveryColumnGoesToItsField) {
  EXPECT_TRUE(
      Parse(Table(Group("17" + kSweepRow.substr(1), "1 2 0.1 0.2 0.3 0.4\r\n", EventRow(1)))));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_THAT(Counts(), ElementsAre(1, 1, 1));
  const SweepRecord& sweep = Sweep(0);
  EXPECT_EQ(sweep.SelectionFlags, 0u);
  EXPECT_EQ(sweep.File, 1u);
  EXPECT_EQ(sweep.Index, 17u) << "the number is taken as it is written";
  EXPECT_EQ(sweep.StartTime, 0.0);
  EXPECT_EQ(sweep.Duration, 2.0);
  EXPECT_EQ(sweep.RelevantStart, 0.25);
  EXPECT_EQ(sweep.RelevantEnd, 1.75);
  EXPECT_EQ(sweep.RelevantValue, 7.0);
  EXPECT_EQ(sweep.TagValue, 8.0);
  ASSERT_EQ(sweep.SegmentCount, 2);
  EXPECT_EQ(sweep.Segments[0].Start, 0.1);
  EXPECT_EQ(sweep.Segments[0].End, 0.2);
  EXPECT_EQ(sweep.Segments[1].Start, 0.3);
  EXPECT_EQ(sweep.Segments[1].End, 0.4);
  const EventRecord& event = Event(0);
  EXPECT_EQ(event.Sweep, 1u);
  EXPECT_EQ(event.Transition, 0.5);
  EXPECT_EQ(event.PreAmplitude, 1e-12);
  EXPECT_EQ(event.PostAmplitude, 2e-12);
  EXPECT_EQ(event.Level, 3);
  EXPECT_EQ(event.TagValue, 4.5);
  EXPECT_EQ(File(0).SweepCount, 1);
}

TEST_F(Version3, EveryVersionFrom3UpReads) {
  for (const int version : {3, 4, 5, 99, 2147483647}) {
    FreeAllTables(workspace());
    AllocateAllTables(Frame());
    EXPECT_TRUE(Parse(Table(Group(SweepRows(1), "", EventRow(1)), version))) << version;
    EXPECT_THAT(Counts(), ElementsAre(1, 1, 1)) << version;
  }
  EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(Version3, AFileWithNothingBehindTheKeywordReadsWithNoData) {
  EXPECT_TRUE(Parse("3 File"));
  EXPECT_TRUE(Parse("3\r\nFile\r\n \t"));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_THAT(Counts(), ElementsAre(0, 0, 0));
}

TEST_F(Version3, AKeywordBeyondTheLastEventsReadsAsWell) {
  EXPECT_TRUE(Parse(Table(Group(SweepRows(1), "", EventRow(1)) + "File\r\n")));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_THAT(Counts(), ElementsAre(1, 1, 1));
}

TEST_F(Version3, AnotherKeywordMakesTheFileUnreadable) {
  for (const char* text : {"3 Sweeps 1 1 1", "5 Files 1 Sweeps"}) {
    shell().Boxes.clear();
    EXPECT_FALSE(Parse(text));
    EXPECT_THAT(Messages(), ElementsAre(CannotRead("table.evt")));
  }
}

// --- Header ---------------------------------------------------------------------------------

TEST_F(Version3, AFileNameWithBlanksIsKeptWhole) {
  EXPECT_TRUE(
      Parse("5\r\nFile\r\nExchange\tC:\\my data\\a b.dat\t17\r\nSweeps\r\nSegments\r\nEvents\r\n"));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_EQ(File(0).Type, FileType::Exchange);
  EXPECT_STREQ(File(0).Name, "C:\\my data\\a b.dat");
  EXPECT_EQ(File(0).Header.Exchange.Int1, 17);
}

TEST_F(Version3, AFileNameMayEndWithItsLine) {
  EXPECT_TRUE(Parse("5\r\nFile\r\nIgorWave\twave 1\r\nSweeps\r\nSegments\r\nEvents\r\n"));
  EXPECT_STREQ(File(0).Name, "wave 1");
}

TEST_F(Version3, AFileNameHas259BytesAtMost) {
  const std::string name(259, 'n');
  EXPECT_TRUE(Parse("5 File IgorWave " + name + "\tSweeps Segments Events"));
  EXPECT_EQ(File(0).Name, name);
}

TEST_F(Version3, WhatALongerFileNameLeavesIsReadAsTheHeader) {
  EXPECT_TRUE(Parse("5 File Exchange " + std::string(259, 'n') + "17\tSweeps Segments Events"));
  EXPECT_EQ(File(0).Header.Exchange.Int1, 17);
}

TEST_F(Version3, AnUndefinedFileHasNoName) {
  EXPECT_TRUE(Parse(Table(Group(SweepRows(1), "", EventRow(1)))));
  EXPECT_EQ(File(0).Type, FileType::Undefined);
  EXPECT_STREQ(File(0).Name, "");
}

TEST_F(Version3, AbfReadsAsPClamp6) {
  EXPECT_TRUE(Parse("5 File ABF a.abf\t1 2 3 4 5 6 Sweeps Segments Events"));
  EXPECT_EQ(File(0).Type, FileType::PClamp6);
  EXPECT_STREQ(File(0).Name, "a.abf");
  EXPECT_EQ(File(0).Header.PClamp6.Real1, 6.0);
}

TEST_F(Version3, BelowVersion4HeadersHaveTheirFillers) {
  EXPECT_TRUE(Parse("3 File pClamp6 a.abf\tx y 1 2 3 4 5 6 Sweeps Segments Events"));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_EQ(File(0).Header.PClamp6.Int1, 1);
  EXPECT_EQ(File(0).Header.PClamp6.Real1, 6.0);
}

TEST_F(Version3, AnUnknownTypeEndsTheReadWithNoMessage) {
  EXPECT_FALSE(Parse("5 File Unknown a.dat\t1 Sweeps Segments Events"));
  EXPECT_FALSE(Parse("5 File undefined Sweeps Segments Events"));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_THAT(Counts(), ElementsAre(0, 0, 0));
}

TEST_F(Version3, ABadHeaderTokenEndsTheReadWithNoMessage) {
  EXPECT_FALSE(Parse("5 File Exchange a.dat\tx Sweeps Segments Events"));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_THAT(Counts(), ElementsAre(0, 0, 0));
}

TEST_F(Version3, FilesBeforeAnUnknownTypeStay) {
  EXPECT_FALSE(Parse(Table(Group(SweepRows(2), "", EventRow(1)) + "File Unknown")));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_THAT(Counts(), ElementsAre(1, 2, 1));
}

// --- Sweeps ---------------------------------------------------------------------------------

TEST_F(Version3, AnotherTokenInPlaceOfSweepsIsToldWithNumber0AndTheBlockIsDone) {
  EXPECT_TRUE(Parse("5 File Undefined Swoops Events"));
  EXPECT_THAT(Messages(), ElementsAre(Corrupted(0, "Sweep")));
  EXPECT_THAT(Counts(), ElementsAre(1, 0, 0));
}

TEST_F(Version3, ATableThatEndsInTheSweepsIsToldAndKept) {
  EXPECT_TRUE(Parse("5 File Undefined Sweeps " + SweepRows(2)));
  EXPECT_THAT(Messages(), ElementsAre(Corrupted(3, "Sweep"), Corrupted(1, "Event")));
  EXPECT_THAT(Counts(), ElementsAre(1, 2, 0));
  EXPECT_EQ(File(0).SweepCount, 2);
}

TEST_F(Version3, ABadTokenInEachColumnOfASweepFails) {
  const std::string row = "1 1 1 1 1 1 ";
  for (std::size_t column = 0; column < 6; ++column) {
    shell().Boxes.clear();
    std::string bad = row;
    bad[2 * column] = 'x';
    EXPECT_FALSE(Parse(Table(Group(row + bad, "", EventRow(1)))));
    EXPECT_THAT(Messages(), ElementsAre(Corrupted(2, "Sweep"))) << "column " << column;
    EXPECT_THAT(Counts(), ElementsAre(0, 0, 0));
  }
}

TEST_F(Version3, AnExactFitOfSweepsFails) {
  SetCapacities(10, 3);
  EXPECT_FALSE(Parse(Table(Group(SweepRows(3), "", EventRow(1)))));
  EXPECT_THAT(Messages(), ElementsAre(TableFull("Sweep")));
  EXPECT_THAT(Counts(), ElementsAre(0, 0, 0));
}

TEST_F(Version3, OneSweepLessThanTheCapacityPasses) {
  SetCapacities(10, 4);
  EXPECT_TRUE(Parse(Table(Group(SweepRows(3), "", EventRow(1)))));
  EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(Version3, TheEndOfTheDataIsSeenBeforeAFullSweepTable) {
  SetCapacities(10, 2);
  EXPECT_TRUE(Parse("5 File Undefined Sweeps " + SweepRows(2)));
  EXPECT_THAT(Messages(), ElementsAre(Corrupted(3, "Sweep"), Corrupted(1, "Event")));
}

// --- Several files --------------------------------------------------------------------------

TEST_F(Version3, SeveralFilesCountOn) {
  const std::string table =
      Table(Group(SweepRows(2), "2 1 0.1 0.2\r\n", EventRow(1) + EventRow(2)) +
            Group(SweepRows(1), "1 1 0.3 0.4\r\n", EventRow(1)));
  EXPECT_TRUE(Parse(table));
  EXPECT_TRUE(Parse(table));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_THAT(Counts(), ElementsAre(4, 6, 6));
  const std::uint32_t files[] = {1, 1, 2, 3, 3, 4};
  const std::uint32_t sweeps[] = {1, 2, 3, 4, 5, 6};
  for (std::int32_t row = 0; row < 6; ++row) {
    EXPECT_EQ(Sweep(row).File, files[row]);
    EXPECT_EQ(Sweep(row).Index, 1u);
    EXPECT_EQ(Event(row).Sweep, sweeps[row]);
  }
  EXPECT_EQ(Sweep(4).Segments[0].Start, 0.1);
  EXPECT_EQ(Sweep(5).Segments[0].Start, 0.3);
  EXPECT_EQ(File(2).SweepCount, 2);
  EXPECT_EQ(File(3).SweepCount, 1);
}

TEST_F(Version3, AHundredFilesFit) {
  EXPECT_TRUE(Parse(Table(Repeat(Group("", "", ""), 100))));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_THAT(Counts(), ElementsAre(100, 0, 0));
}

TEST_F(Version3, FilesBeyond100AreToldAndThoseBeforeAreAGoodRead) {
  EXPECT_TRUE(Parse(Table(Repeat(Group("", "", ""), 101))));
  EXPECT_THAT(Messages(), ElementsAre(kTooManyFiles));
  EXPECT_THAT(Counts(), ElementsAre(100, 0, 0));
}

TEST_F(Version3, AFurtherTableBeyond100FilesFails) {
  EXPECT_TRUE(Parse(Table(Repeat(Group("", "", ""), 100))));
  EXPECT_FALSE(Parse(Table(Group("", "", ""))));
  EXPECT_THAT(Messages(), ElementsAre(kTooManyFiles));
  EXPECT_THAT(Counts(), ElementsAre(100, 0, 0));
}

TEST_F(Version3, TheViewsLearnTheCountsWhenAFileStaysThoughALaterOneFails) {
  OpenTableView(ViewKind::Event);
  OpenTableView(ViewKind::Sweep);
  EXPECT_FALSE(Parse(Table(Group(SweepRows(3), "", EventRow(1) + EventRow(1)) + "File Unknown")));
  EXPECT_EQ(ScrollRange(ViewKind::Event), 1);
  EXPECT_EQ(ScrollRange(ViewKind::Sweep), 2);
}

TEST_F(Version3, TheViewsAreLeftAloneWhenNoFileStays) {
  OpenTableView(ViewKind::Event);
  OpenTableView(ViewKind::Sweep);
  EXPECT_FALSE(Parse("5 File Unknown"));
  EXPECT_EQ(ScrollRange(ViewKind::Event), kNoRange);
  EXPECT_EQ(ScrollRange(ViewKind::Sweep), kNoRange);
}

TEST_F(Version3, SegmentsOfAFailedReadAreNotSeenByALaterOne) {
  EXPECT_FALSE(Parse(Table(Group(SweepRows(2), "1 2 1 2 3 4 2 1 5 6 ", "x"))));
  EXPECT_TRUE(Parse(Table(Group(SweepRows(2), "", EventRow(1)))));
  EXPECT_EQ(Sweep(0).SegmentCount, 0);
  EXPECT_EQ(Sweep(0).Segments, nullptr);
}

}  // namespace
}  // namespace ondrel
