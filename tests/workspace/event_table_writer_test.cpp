#include "workspace/event_table_writer.h"

#include <tuple>

#include "support/sample_tables.h"
#include "support/saving_test.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class EventTableWriterTest : public SavingTest {};

TEST_F(EventTableWriterTest, WithoutFilesTheVersionStandsAlone) {
  EXPECT_EQ(SavedEvents(), "5\r\n");
  EXPECT_TRUE(saved_);
  EXPECT_EQ(SavedLevels(LevelFileChoice::Ond), "5\r\n");
}

TEST_F(EventTableWriterTest, WithoutTablesTheVersionStandsAlone) {
  FreeAllTables(workspace());
  EXPECT_EQ(SavedEvents(), "5\r\n");
  EXPECT_EQ(SavedLevels(LevelFileChoice::Ond), "5\r\n");
}

TEST_F(EventTableWriterTest, AGroupIsWrittenByteForByte) {
  AddFile(FileOfType("Undefined", ""));
  AddSweep({.SelectionFlags = 3,
            .File = 1,
            .Index = 7,
            .StartTime = 9.0,
            .Duration = 2.5,
            .RelevantStart = 0.25,
            .RelevantEnd = 1.75,
            .RelevantValue = -70.0,
            .TagValue = 0.125},
           {{0.0, 1.0}, {1.5, 2.5}});
  AddEvent({1, 0.5, -1.5e-12, 2.25e-12, 1, 4.5});
  AddEvent({1, 0.75, 2.25e-12, 0.0, -2, 0.0});
  EXPECT_EQ(SavedEvents(),
            "5\r\nFile\r\nUndefined\r\nSweeps\r\n"
            "1\t2.500000\t0.250000\t1.750000\t-7.000000E+01\t1.250000E-01\r\n"
            "Segments\r\n1\t2\t0.000000\t1.000000\t1.500000\t2.500000\t\r\nEvents\r\n"
            "1\t0.500000\t-1.5000000E-12\t2.2500000E-12\t1\t4.500000E+00\r\n"
            "1\t0.750000\t2.2500000E-12\t0.0000000E+00\t-2\t0.000000E+00\r\n");
  EXPECT_TRUE(saved_);
  EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(EventTableWriterTest, ATableOfTheWrittenFormComesBackByteForByte) {
  ASSERT_TRUE(Parse(kTwoOpenings));
  EXPECT_EQ(SavedEvents(), kTwoOpenings);
}

TEST_F(EventTableWriterTest, SweepsAndEventsCountAnewInEachFile) {
  for (int file = 0; file < 3; ++file) {
    AddFile(FileOfType("IgorWave", file == 0 ? "a" : file == 1 ? "b" : "c"));
    AddSweep(1.0);
    AddSweep(2.0);
    const auto base = static_cast<std::uint32_t>(2 * file);
    AddEvent({base + 1, 0.5, 0.0, 1e-12, 1, 0.0});
    AddEvent({base + 2, 0.25, 1e-12, 0.0, 0, 0.0});
  }
  const std::string group =
      "Sweeps\r\n"
      "1\t1.000000\t0.000000\t1.000000\t0.000000E+00\t0.000000E+00\r\n"
      "2\t2.000000\t0.000000\t2.000000\t0.000000E+00\t0.000000E+00\r\n"
      "Segments\r\n1\t0\t\r\n2\t0\t\r\nEvents\r\n"
      "1\t0.500000\t0.0000000E+00\t1.0000000E-12\t1\t0.000000E+00\r\n"
      "2\t0.250000\t1.0000000E-12\t0.0000000E+00\t0\t0.000000E+00\r\n";
  EXPECT_EQ(SavedEvents(), "5\r\nFile\r\nIgorWave\ta\r\n" + group + "File\r\nIgorWave\tb\r\n" +
                               group + "File\r\nIgorWave\tc\r\n" + group);
}

TEST_F(EventTableWriterTest, AFileWithSweepsButNoEventsEndsInItsEventsLine) {
  AddFile(FileOfType("Undefined", ""));
  AddSweep(1.0);
  AddFile(FileOfType("Undefined", ""));
  AddSweep(2.0);
  AddEvent({2, 0.5, 0.0, 1e-12, 1, 0.0});
  EXPECT_EQ(SavedEvents(),
            "5\r\nFile\r\nUndefined\r\nSweeps\r\n"
            "1\t1.000000\t0.000000\t1.000000\t0.000000E+00\t0.000000E+00\r\n"
            "Segments\r\n1\t0\t\r\nEvents\r\n"
            "File\r\nUndefined\r\nSweeps\r\n"
            "1\t2.000000\t0.000000\t2.000000\t0.000000E+00\t0.000000E+00\r\n"
            "Segments\r\n1\t0\t\r\nEvents\r\n"
            "1\t0.500000\t0.0000000E+00\t1.0000000E-12\t1\t0.000000E+00\r\n");
}

TEST_F(EventTableWriterTest, AFileWithoutSweepsHasItsFourLines) {
  AddFile(FileOfType("Undefined", ""));
  AddFile(FileOfType("IgorWave", "b"));
  AddSweep(1.0);
  AddEvent({1, 0.5, 0.0, 1e-12, 1, 0.0});
  EXPECT_EQ(SavedEvents(),
            "5\r\nFile\r\nUndefined\r\nSweeps\r\nSegments\r\nEvents\r\n"
            "File\r\nIgorWave\tb\r\nSweeps\r\n"
            "1\t1.000000\t0.000000\t1.000000\t0.000000E+00\t0.000000E+00\r\n"
            "Segments\r\n1\t0\t\r\nEvents\r\n"
            "1\t0.500000\t0.0000000E+00\t1.0000000E-12\t1\t0.000000E+00\r\n");
}

TEST_F(EventTableWriterTest, ASweepWithoutSegmentsHasItsLine) {
  AddFile(FileOfType("Undefined", ""));
  AddSweep(1.0);
  EXPECT_THAT(SavedEvents(), HasSubstr("Segments\r\n1\t0\t\r\nEvents\r\n"));
}

TEST_F(EventTableWriterTest, AnyNumberOfSegmentsStandsInOneLine) {
  AddFile(FileOfType("Undefined", ""));
  std::vector<SegmentRecord> segments;
  std::string line = "1\t1000\t";
  for (int i = 0; i < 1000; ++i) {
    segments.push_back({i + 0.25, i + 0.5});
    line += std::to_string(i) + ".250000\t" + std::to_string(i) + ".500000\t";
  }
  AddSweep(1000.0, segments);
  AddSweep(1.0, {{0.0, 1.0}});
  const int held = shell().LiveAllocations;
  EXPECT_THAT(SavedEvents(),
              HasSubstr("Segments\r\n" + line + "\r\n2\t1\t0.000000\t1.000000\t\r\nEvents\r\n"));
  EXPECT_EQ(shell().LiveAllocations, held) << "the line is freed";
}

TEST_F(EventTableWriterTest, TheRunOfSweepsEndsAtAnotherFile) {
  AddFile(FileOfType("Undefined", ""));
  AddFile(FileOfType("Undefined", ""));
  for (const std::uint32_t file : {1u, 2u, 1u, 2u}) {
    AddSweep({.File = file, .Duration = static_cast<double>(file)}, {});
  }
  for (std::uint32_t sweep = 1; sweep <= 4; ++sweep) AddEvent({sweep, 0.5, 0.0, 0.0, 1, 0.0});
  const std::string saved = SavedEvents();
  EXPECT_EQ(saved,
            "5\r\nFile\r\nUndefined\r\nSweeps\r\n"
            "1\t1.000000\t0.000000\t0.000000\t0.000000E+00\t0.000000E+00\r\n"
            "Segments\r\n1\t0\t\r\nEvents\r\n"
            "1\t0.500000\t0.0000000E+00\t0.0000000E+00\t1\t0.000000E+00\r\n"
            "File\r\nUndefined\r\nSweeps\r\n"
            "1\t2.000000\t0.000000\t0.000000\t0.000000E+00\t0.000000E+00\r\n"
            "Segments\r\n1\t0\t\r\nEvents\r\n"
            "1\t0.500000\t0.0000000E+00\t0.0000000E+00\t1\t0.000000E+00\r\n")
      << "the third and the fourth sweep belong to no run";
}

TEST_F(EventTableWriterTest, EventsOfAFileNeedNoOrder) {
  AddFile(FileOfType("Undefined", ""));
  AddSweep(1.0);
  AddSweep(1.0);
  AddFile(FileOfType("Undefined", ""));
  AddSweep(1.0);
  for (const std::uint32_t sweep : {2u, 1u, 2u, 3u, 1u, 3u}) {
    AddEvent({sweep, 0.5, 0.0, 0.0, 1, 0.0});
  }
  const std::string saved = SavedEvents();
  const std::string rest = "\t0.500000\t0.0000000E+00\t0.0000000E+00\t1\t0.000000E+00\r\n";
  EXPECT_THAT(saved, HasSubstr("Events\r\n2" + rest + "1" + rest + "2" + rest + "File\r\n"));
  EXPECT_THAT(saved, HasSubstr("Events\r\n1" + rest + "-1" + rest + "1" + rest))
      << "the number counts from the file's first sweep";
}

TEST_F(EventTableWriterTest, ASweepNumberOf0OrBelowComesBack) {
  const std::string table =
      "5\r\nFile\r\nUndefined\r\nSweeps\r\n"
      "1\t1.000000\t0.000000\t1.000000\t0.000000E+00\t0.000000E+00\r\n"
      "Segments\r\n1\t0\t\r\nEvents\r\n"
      "0\t0.500000\t0.0000000E+00\t1.0000000E-12\t1\t0.000000E+00\r\n"
      "-3\t0.500000\t0.0000000E+00\t1.0000000E-12\t1\t0.000000E+00\r\n"
      "-2147483648\t0.500000\t0.0000000E+00\t1.0000000E-12\t1\t0.000000E+00\r\n"
      "1\t0.500000\t0.0000000E+00\t1.0000000E-12\t1\t0.000000E+00\r\n";
  ASSERT_TRUE(Parse(table));
  EXPECT_EQ(SavedEvents(), table);
}

TEST_F(EventTableWriterTest, EventsBehindTheLastSweepOfTheLastFileAreLeftOut) {
  AddFile(FileOfType("Undefined", ""));
  AddSweep(1.0);
  AddEvent({1, 0.5, 0.0, 0.0, 1, 0.0});
  AddEvent({2, 0.625, 0.0, 0.0, 1, 0.0});
  AddEvent({1, 0.75, 0.0, 0.0, 1, 0.0});
  EXPECT_THAT(
      SavedEvents(),
      ::testing::EndsWith("Events\r\n1\t0.500000\t0.0000000E+00\t0.0000000E+00\t1\t0.000000E+00"
                          "\r\n"));
}

TEST_F(EventTableWriterTest, SavingLeavesTheTablesAlone) {
  ASSERT_TRUE(Parse(kTwoOpenings));
  const SweepRecord sweep = Sweep(0);
  const EventRecord event = Event(3);
  SavedEvents();
  EXPECT_THAT(Counts(), ElementsAre(1, 1, 4));
  EXPECT_EQ(Sweep(0).Segments, sweep.Segments);
  EXPECT_EQ(Sweep(0).SegmentCount, 1);
  EXPECT_EQ(Sweep(0).Duration, sweep.Duration);
  EXPECT_EQ(Event(3).Transition, event.Transition);
}

TEST_F(EventTableWriterTest, AWriteThatFailsInAHeaderLineIsToldOnce) {
  const std::string name(255, 'n');
  for (int file = 0; file < 30; ++file) AddFile(FileOfType("IgorWave", name.c_str()));
  const std::string whole = SavedEvents();
  const std::string written = whole.substr(0, std::tuple_size_v<decltype(OutputFile::Gathered)>);
  ASSERT_THAT(written.substr(written.rfind('\n') + 1), ::testing::StartsWith("IgorWave\tnnn"))
      << "where the first piece ends";
  shell().Write = {.Next = 1};
  EXPECT_EQ(SavedEvents(), "");
  EXPECT_FALSE(saved_);
  EXPECT_THAT(Messages(), ElementsAre(kWritingFailed));
}

class LevelFileWriterTest : public SavingTest {};

/// Amplitude and duration must not show.
LevelFields LevelOf(std::uint32_t sweep, double transition, std::int32_t level) {
  return {.Sweep = sweep,
          .PreAmplitude = -1.5e-12,
          .PostAmplitude = 2.25e-12,
          .Amplitude = 7e-7,
          .Transition = transition,
          .Duration = 77.0,
          .Level = level,
          .TagValue = 4.5};
}

TEST_F(LevelFileWriterTest, LevelsStandInThePlaceOfEvents) {
  AddFile(FileOfType("Undefined", ""));
  AddSweep(2.5, {{0.0, 2.5}});
  AddEvent({1, 0.125, 0.0, 0.0, 9, 9.0});
  AddLevel(LevelOf(1, 0.5, 1));
  AddLevel(LevelOf(1, 0.75, -2));
  EXPECT_EQ(SavedLevels(LevelFileChoice::Ond),
            "5\r\nFile\r\nUndefined\r\nSweeps\r\n"
            "1\t2.500000\t0.000000\t2.500000\t0.000000E+00\t0.000000E+00\r\n"
            "Segments\r\n1\t1\t0.000000\t2.500000\t\r\nEvents\r\n"
            "1\t0.500000\t-1.5000000E-12\t2.2500000E-12\t1\t4.500000E+00\r\n"
            "1\t0.750000\t-1.5000000E-12\t2.2500000E-12\t-2\t4.500000E+00\r\n");
}

TEST_F(LevelFileWriterTest, LevelsThatAreNotSelectedAreWrittenToo) {
  AddFile(FileOfType("Undefined", ""));
  AddSweep(1.0);
  LevelFields level = LevelOf(1, 0.5, 1);
  level.LevelFlags = 0xFFFFFFFF;
  AddLevel(level);
  EXPECT_THAT(
      SavedLevels(LevelFileChoice::Ond),
      HasSubstr("Events\r\n1\t0.500000\t-1.5000000E-12\t2.2500000E-12\t1\t4.500000E+00\r\n"));
}

TEST_F(LevelFileWriterTest, LevelsAreDealtToTheirFiles) {
  AddFile(FileOfType("Undefined", ""));
  AddSweep(1.0);
  AddSweep(1.0);
  AddFile(FileOfType("Undefined", ""));
  AddSweep(1.0);
  AddLevel(LevelOf(2, 0.5, 1));
  AddLevel(LevelOf(3, 0.25, 2));
  const std::string saved = SavedLevels(LevelFileChoice::Ond);
  EXPECT_THAT(saved, HasSubstr("Events\r\n2\t0.500000\t-1.5000000E-12\t2.2500000E-12\t1\t"
                               "4.500000E+00\r\nFile\r\n"));
  EXPECT_THAT(saved, HasSubstr("Events\r\n1\t0.250000\t-1.5000000E-12\t2.2500000E-12\t2\t"
                               "4.500000E+00\r\n"));
}

TEST_F(LevelFileWriterTest, TheChosenFormIsWritten) {
  AddFile(FileOfType("Undefined", ""));
  AddSweep(1.0);
  AddLevel(LevelOf(1, 0.5, 1));
  EXPECT_THAT(SavedLevels(LevelFileChoice::Ond), ::testing::StartsWith("5\r\nFile\r\n"));
  EXPECT_EQ(SavedLevels(LevelFileChoice::Qub), "Segment: 1\tDwells: 1\r\n\t1\t77.000000\r\n");
}

}  // namespace
}  // namespace ondrel
