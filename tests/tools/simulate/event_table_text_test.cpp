// Each layout's table of a small hand-made recording, written out in full.
#include "simulate/event_table_text.h"

#include <gmock/gmock.h>

#include "simulate/table_reader.h"

namespace ondrel::simulate {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

/// Two sweeps of 2 s, 5 s from start to start.
FilePlan SmallPlan() {
  FilePlan plan;
  plan.Sweeps = 2;
  plan.Duration = 2.0;
  plan.Interval = 5.0;
  plan.HasRelevant = true;
  plan.Relevant = {0.25, 1.75};
  plan.RelevantValue = {-80.0, 20.0};
  plan.TagValue = {3.0, 0.0};
  plan.EventTag = {7.0, 0.5};
  return plan;
}

SimulatedFile SmallFile(const FilePlan& plan) {
  return {&plan,
          {{{{0.5, 0.125, 5.0, 0, 1}, {0.75, 5.0, -0.5, 1, 0}}}, {{{1.25, 10.0, 5.5, 2, 1}}}}};
}

TEST(BareTable, HasRowsOfSevenColumnsAndNothingElse) {
  const FilePlan plan = SmallPlan();
  EXPECT_EQ(WriteEventTable({SmallFile(plan)}, TableLayout::Bare),
            "1\t0.500000\t1.2500000E-13\t0\t5.0000000E-12\t1\t1\r\n"
            "1\t0.750000\t5.0000000E-12\t1\t-5.0000000E-13\t0\t0\r\n"
            "2\t1.250000\t1.0000000E-11\t2\t5.5000000E-12\t1\t1\r\n");
}

TEST(BareTable, ClosesUpItsNumbersOverSweepsWithoutTransitions) {
  const FilePlan plan = SmallPlan();
  SimulatedFile file = SmallFile(plan);
  file.Sweeps.insert(file.Sweeps.begin(), SimulatedSweep{});
  file.Sweeps.insert(file.Sweeps.begin() + 2, SimulatedSweep{});
  const auto events = ReadBareTable(WriteEventTable({file}, TableLayout::Bare));
  ASSERT_EQ(events.size(), 3u);
  EXPECT_EQ(events[0].Sweep, 1);
  EXPECT_EQ(events[1].Sweep, 1);
  EXPECT_EQ(events[2].Sweep, 2);
}

TEST(Version1Table, HasSweepsAndEventsWithBothLevels) {
  const FilePlan plan = SmallPlan();
  EXPECT_EQ(WriteEventTable({SmallFile(plan)}, TableLayout::Version1),
            "1\r\n"
            "Sweeps\r\n"
            "1\t0.000000\t2.000000\t0.250000\t1.750000\t-8.000000E+01\t3.000000E+00\r\n"
            "2\t5.000000\t2.000000\t0.250000\t1.750000\t-6.000000E+01\t3.000000E+00\r\n"
            "Events\r\n"
            "1\t0.500000\t1.2500000E-13\t0\t5.0000000E-12\t1\t1\t7.000000E+00\r\n"
            "1\t0.750000\t5.0000000E-12\t1\t-5.0000000E-13\t0\t0\t7.000000E+00\r\n"
            "2\t1.250000\t1.0000000E-11\t2\t5.5000000E-12\t1\t1\t7.500000E+00\r\n");
}

TEST(Version2Table, HasEventsOfSixColumns) {
  const FilePlan plan = SmallPlan();
  EXPECT_EQ(WriteEventTable({SmallFile(plan)}, TableLayout::Version2),
            "2\r\n"
            "Sweeps\r\n"
            "1\t0.000000\t2.000000\t0.250000\t1.750000\t-8.000000E+01\t3.000000E+00\r\n"
            "2\t5.000000\t2.000000\t0.250000\t1.750000\t-6.000000E+01\t3.000000E+00\r\n"
            "Events\r\n"
            "1\t0.500000\t1.2500000E-13\t5.0000000E-12\t1\t7.000000E+00\r\n"
            "1\t0.750000\t5.0000000E-12\t-5.0000000E-13\t0\t7.000000E+00\r\n"
            "2\t1.250000\t1.0000000E-11\t5.5000000E-12\t1\t7.500000E+00\r\n");
}

TEST(FilesBlock, TellsTheSweepCountsAndNumbersSweepsThroughAllFiles) {
  const FilePlan plan = SmallPlan();
  FilePlan shorter = SmallPlan();
  shorter.Sweeps = 1;
  const SimulatedFile second{&shorter, {{{{0.125, 0.0, 5.0, 0, 1}}}}};
  EXPECT_EQ(WriteEventTable({SmallFile(plan), second}, TableLayout::Version2Files),
            "2\r\n"
            "Files\r\n"
            "2\r\n"
            "1\r\n"
            "Sweeps\r\n"
            "1\t0.000000\t2.000000\t0.250000\t1.750000\t-8.000000E+01\t3.000000E+00\r\n"
            "2\t5.000000\t2.000000\t0.250000\t1.750000\t-6.000000E+01\t3.000000E+00\r\n"
            "3\t0.000000\t2.000000\t0.250000\t1.750000\t-8.000000E+01\t3.000000E+00\r\n"
            "Events\r\n"
            "1\t0.500000\t1.2500000E-13\t5.0000000E-12\t1\t7.000000E+00\r\n"
            "1\t0.750000\t5.0000000E-12\t-5.0000000E-13\t0\t7.000000E+00\r\n"
            "2\t1.250000\t1.0000000E-11\t5.5000000E-12\t1\t7.500000E+00\r\n"
            "3\t0.125000\t0.0000000E+00\t5.0000000E-12\t1\t7.000000E+00\r\n");
}

TEST(FilesBlock, StandsInVersion1WithItsEightColumns) {
  const FilePlan plan = SmallPlan();
  const auto lines = Lines(WriteEventTable({SmallFile(plan)}, TableLayout::Version1Files));
  ASSERT_EQ(lines.size(), 10u);
  EXPECT_EQ(lines[0], "1");
  EXPECT_EQ(lines[1], "Files");
  EXPECT_EQ(lines[2], "2");
  EXPECT_EQ(lines[3], "Sweeps");
  EXPECT_EQ(Columns(lines[9]).size(), 8u);
}

TEST(Version5Table, HasAGroupForTheFileWithItsBlocks) {
  const FilePlan plan = SmallPlan();
  EXPECT_EQ(WriteEventTable({SmallFile(plan)}, TableLayout::Version5),
            "5\r\n"
            "File\r\n"
            "Undefined\r\n"
            "Sweeps\r\n"
            "1\t2.000000\t0.250000\t1.750000\t-8.000000E+01\t3.000000E+00\r\n"
            "2\t2.000000\t0.250000\t1.750000\t-6.000000E+01\t3.000000E+00\r\n"
            "Segments\r\n"
            "1\t1\t0.000000\t2.000000\t\r\n"
            "2\t1\t0.000000\t2.000000\t\r\n"
            "Events\r\n"
            "1\t0.500000\t1.2500000E-13\t5.0000000E-12\t1\t7.000000E+00\r\n"
            "1\t0.750000\t5.0000000E-12\t-5.0000000E-13\t0\t7.000000E+00\r\n"
            "2\t1.250000\t1.0000000E-11\t5.5000000E-12\t1\t7.500000E+00\r\n");
}

TEST(Version5Table, NumbersTheSweepsOfEachFileFromOne) {
  const FilePlan plan = SmallPlan();
  const auto files =
      ReadFileTable(WriteEventTable({SmallFile(plan), SmallFile(plan)}, TableLayout::Version5));
  ASSERT_EQ(files.size(), 2u);
  for (const ReadFile& file : files) {
    ASSERT_EQ(file.Sweeps.size(), 2u);
    EXPECT_EQ(file.Sweeps[0].Number, 1);
    EXPECT_EQ(file.Sweeps[1].Number, 2);
    ASSERT_EQ(file.Events.size(), 3u);
    EXPECT_EQ(file.Events[0].Sweep, 1);
    EXPECT_EQ(file.Events[2].Sweep, 2);
  }
}

TEST(Version5Table, KeepsTheNumberOfASweepBehindASilentOne) {
  const FilePlan plan = SmallPlan();
  SimulatedFile file = SmallFile(plan);
  file.Sweeps[0].Transitions.clear();
  const auto files = ReadFileTable(WriteEventTable({file}, TableLayout::Version5));
  ASSERT_EQ(files[0].Events.size(), 1u);
  EXPECT_EQ(files[0].Events[0].Sweep, 2);
}

TEST(Version5Table, WritesEverySegmentOfASweep) {
  FilePlan plan = SmallPlan();
  plan.Segments = {{0.0, 0.5}, {1.0, 2.0}};
  EXPECT_THAT(WriteEventTable({SmallFile(plan)}, TableLayout::Version5),
              HasSubstr("Segments\r\n1\t2\t0.000000\t0.500000\t1.000000\t2.000000\t\r\n"));
}

TEST(Version5Table, TakesTheWholeSweepAsRelevantUnlessAStretchIsGiven) {
  FilePlan plan = SmallPlan();
  plan.HasRelevant = false;
  const auto files = ReadFileTable(WriteEventTable({SmallFile(plan)}, TableLayout::Version5));
  EXPECT_EQ(files[0].Sweeps[0].RelevantStart, 0.0);
  EXPECT_EQ(files[0].Sweeps[0].RelevantEnd, 2.0);
}

TEST(Version5Table, MayBeWithoutAnyTransitionButNoOtherMay) {
  const FilePlan plan = SmallPlan();
  const SimulatedFile silent{&plan, {{}, {}}};
  EXPECT_EQ(Lines(WriteEventTable({silent}, TableLayout::Version5)).back(), "Events");
  for (const TableLayout layout :
       {TableLayout::Bare, TableLayout::Version1, TableLayout::Version1Files, TableLayout::Version2,
        TableLayout::Version2Files}) {
    EXPECT_THROW(WriteEventTable({silent}, layout), ModelError);
  }
}

struct HeaderCase {
  const char* Keyword;
  std::vector<double> Header;
  const char* Line;
};

class FileHeader : public ::testing::TestWithParam<HeaderCase> {};

TEST_P(FileHeader, StandsOnTheLineBehindFile) {
  FilePlan plan = SmallPlan();
  plan.Kind = FindFileKind(GetParam().Keyword);
  plan.Name = plan.Kind->HasName ? "C:\\data\\a b.dat" : "";
  plan.Header = GetParam().Header;
  const auto lines = Lines(WriteEventTable({SmallFile(plan)}, TableLayout::Version5));
  EXPECT_EQ(lines[2], GetParam().Line);
}

INSTANTIATE_TEST_SUITE_P(
    OfEachType, FileHeader,
    ::testing::Values(
        HeaderCase{"Undefined", {}, "Undefined"},
        HeaderCase{"pClamp6",
                   {5, 1, 2, 400, -20, 1.25},
                   "pClamp6\tC:\\data\\a b.dat\t5\t1\t2\t400\t-20\t1.250000E+00"},
        HeaderCase{"Sampler", {2}, "Sampler\tC:\\data\\a b.dat\t2"},
        HeaderCase{"Exchange", {7}, "Exchange\tC:\\data\\a b.dat\t7"},
        HeaderCase{"Pulse", {1, 30, 2, 50, 3, 70}, "Pulse\tC:\\data\\a b.dat\t1\t30\t2\t50\t3\t70"},
        HeaderCase{"IgorWave", {}, "IgorWave\tC:\\data\\a b.dat"},
        HeaderCase{"RawContinuous",
                   {1234.5, 5000, 16, 0.05, 1, 256},
                   "RawContinuous\tC:\\data\\a b.dat\t1.23E+03\t5.00E+03\t16\t5.00E-02\t1\t256\t"}),
    [](const auto& info) { return info.param.Keyword; });

TEST(FileHeaderDefaults, AreNoughtAndOneInTheColumnsThatCountFromOne) {
  FilePlan plan = SmallPlan();
  plan.Kind = FindFileKind("Pulse");
  plan.Name = "a.dat";
  const auto lines = Lines(WriteEventTable({SmallFile(plan)}, TableLayout::Version5));
  EXPECT_THAT(Columns(lines[2]), ElementsAre("Pulse", "a.dat", "1", "0", "1", "0", "1", "0"));
}

TEST(EventTable, HoldsTheLongestTimesInFull) {
  FilePlan plan = SmallPlan();
  plan.Duration = 1e300;
  plan.Interval = 0.0;
  plan.HasRelevant = false;
  const auto lines = Lines(WriteEventTable({SmallFile(plan)}, TableLayout::Version2));
  EXPECT_EQ(Columns(lines[3]).size(), 7u);
  EXPECT_EQ(Columns(lines[3])[1].size(), 301u + 7u);
}

}  // namespace
}  // namespace ondrel::simulate
