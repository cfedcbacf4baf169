#include "workspace/event_table_reader.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "support/random_seed.h"
#include "support/reading_test.h"
#include "support/sample_tables.h"

namespace ondrel {
namespace {

using ::testing::_;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::IsEmpty;
using namespace std::string_view_literals;

class ParseTableTest : public ReadingTest {};

TEST_F(ParseTableTest, AnEmptyFileCannotBeRead) {
  EXPECT_FALSE(Parse(""));
  EXPECT_THAT(Messages(), ElementsAre(CannotRead("table.evt")));
}

TEST_F(ParseTableTest, AFileOfBlanksFailsWithNoMessage) {
  EXPECT_FALSE(Parse("  \t \r\n "));
  EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(ParseTableTest, TheSecondTokenTellsTheLayout) {
  EXPECT_TRUE(Parse("1 0.5 0 0 1 0 1"));
  EXPECT_TRUE(Parse("2 Sweeps 1 0 1 0 1 0 0 Events 1 0.5 0 1 1 0"));
  EXPECT_TRUE(Parse("2 Files 1 Sweeps 1 0 1 0 1 0 0 Events 1 0.5 0 1 1 0"));
  EXPECT_TRUE(Parse("3 File Undefined Sweeps 1 1 0 1 0 0 Segments Events 1 0.5 0 1 1 0"));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_THAT(Counts(), ElementsAre(4, 4, 4));
}

TEST_F(ParseTableTest, AVersionOf0OrBelowCannotBeRead) {
  for (const char* text : {"0 File", "-1 File", "-2147483648 File", "0 Sweeps"}) {
    shell().Boxes.clear();
    EXPECT_FALSE(Parse(text));
    EXPECT_THAT(Messages(), ElementsAre(CannotRead("table.evt"))) << text;
  }
}

TEST_F(ParseTableTest, AVersionThatIsNoNumberCannotBeRead) {
  for (const char* text : {"x File", "5x File", "5.0 File", "99999999999 File"}) {
    shell().Boxes.clear();
    EXPECT_FALSE(Parse(text));
    EXPECT_THAT(Messages(), ElementsAre(CannotRead("table.evt"))) << text;
  }
}

TEST_F(ParseTableTest, AVersionOf99ReadsAsVersion3AndAbove) {
  EXPECT_TRUE(Parse("99 File Undefined Sweeps 1 1 0 1 0 0 Segments Events 1 0.5 0 1 1 0"));
  EXPECT_THAT(Counts(), ElementsAre(1, 1, 1));
}

TEST_F(ParseTableTest, ABareListThatBeginsWithAKeywordBehindItsFirstNumberCannotBeRead) {
  EXPECT_FALSE(Parse("3 Sweeps 1 1 1 1 1"));
  EXPECT_THAT(Messages(), ElementsAre(CannotRead("table.evt")));
}

TEST_F(ParseTableTest, AKeywordInAnotherCaseIsNone) {
  EXPECT_FALSE(Parse("3 file Undefined"));
  EXPECT_THAT(Messages(), ElementsAre(Corrupted(1, "Event"))) << "read as a bare list";
}

TEST_F(ParseTableTest, TheTokensThatTellTheLayoutHave31Bytes) {
  const std::string version = std::string(30, '0') + "3";
  EXPECT_TRUE(Parse(version + "File"));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_FALSE(Parse(version + "0 File"));
  EXPECT_THAT(Messages(), ElementsAre(Corrupted(1, "Event"))) << "read as a bare list";
}

TEST_F(ParseTableTest, TheBlockIsFreedInEveryOutcome) {
  const int before = shell().LiveAllocations;
  for (const char* text : {"", " ", "x", "0 File", "3 File", "1 x", "2 Sweeps", "5 File Unknown"}) {
    Parse(text);
    EXPECT_EQ(shell().LiveAllocations, before) << text;
  }
}

TEST_F(ParseTableTest, AByteBeyondTheEndIsNeverLookedAt) {
  // Every cut of a table, each in a block of its own size, so that a sanitizer sees an overrun.
  const std::string table =
      "5\r\nFile\r\npClamp6\ta b.abf\t1\t2\t3\t4\t5\t6.5E-3\r\nSweeps\r\n1\t2.0\t0.0\t2.0\t0\t0\r\n"
      "Segments\r\n1\t1\t0.0\t2.0\t\r\nEvents\r\n1\t0.5\t0.0E+00\t1.2345678E-12\t1\t0\r\n";
  for (std::size_t size = 0; size <= table.size(); ++size) {
    Parse(std::string_view(table).substr(0, size));
    FreeAllTables(workspace());
    AllocateAllTables(Frame());
  }
  Parse(table);
  EXPECT_THAT(Counts(), ElementsAre(1, 1, 1));
}

// --- Any bytes ------------------------------------------------------------------------------

/// Sweep rows own what they point to, and every count is inside its capacity.
void ExpectSoundTables(const Workspace& workspace) {
  EXPECT_LE(workspace.Events.Count, workspace.Events.Capacity);
  EXPECT_LE(workspace.Sweeps.Count, workspace.Sweeps.Capacity);
  EXPECT_LE(workspace.Files.Count, workspace.Files.Capacity);
  for (std::int32_t row = 0; row < workspace.Sweeps.Capacity; ++row) {
    const SweepRecord& sweep = workspace.Sweeps.Records[row];
    if (row >= workspace.Sweeps.Count) {
      EXPECT_EQ(sweep.Segments, nullptr) << "row " << row << " of no sweep owns segments";
    } else {
      EXPECT_EQ(sweep.Segments == nullptr, sweep.SegmentCount == 0);
    }
  }
}

TEST_F(ParseTableTest, ShuffledTokensEndInAMessageOrInData) {
  std::mt19937_64 random(RandomSeed());
  static const std::vector<std::string> tokens = {
      "1",      "2",      "3",        "5",   "0",           "-1",         "File", "Files", "Sweeps",
      "Events", "Events", "Segments", "0.5", "1E-12",       "Undefined",  "ABF",  "Pulse", "x",
      "Sweeps", "1",      "1",        "2",   "99999999999", "2147483647", "\r\n", "\t",    "1"};
  for (int i = 0; i < 20000; ++i) {
    FreeAllTables(workspace());
    workspace().Events.Capacity = workspace().Levels.Capacity =
        static_cast<std::int32_t>(1 + random() % 12);
    workspace().Sweeps.Capacity = static_cast<std::int32_t>(1 + random() % 12);
    AllocateAllTables(Frame());
    std::string text =
        std::vector<std::string>{"", "1 Sweeps ", "2 Files ", "5 File "}[random() % 4];
    for (auto count = random() % 60; count > 0; --count)
      text += tokens[random() % tokens.size()] + " ";
    Parse(text);
    ASSERT_NO_FATAL_FAILURE(ExpectSoundTables(workspace()));
    ASSERT_FALSE(HasFailure()) << text;
  }
}

// --- Reading files --------------------------------------------------------------------------

class ReadDataFileTest : public ReadingTest {
 protected:
  int Read(const std::string& path) {
    shell().FileChoices.push_back(path);
    return ReadDataFile(Frame());
  }
};

TEST_F(ReadDataFileTest, AsksForAFileToOpen) {
  EXPECT_EQ(ReadDataFile(Frame()), -1);
  ASSERT_EQ(shell().FileDialogs.size(), 1u);
  EXPECT_EQ(shell().FileDialogs[0].Title, "Data file:");
  EXPECT_EQ(shell().FileDialogs[0].Mode, toolkit::FileDialogMode::Open);
  EXPECT_EQ(shell().FileDialogs[0].DefaultName, "");
}

TEST_F(ReadDataFileTest, CancelHasNoMessage) {
  EXPECT_EQ(ReadDataFile(Frame()), -1);
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_EQ(shell().WaitCursorChanges, 0);
}

TEST_F(ReadDataFileTest, AGoodFileLeavesRecordsAndLevelsAndSelections) {
  const ScratchFile file("good.evt", kTwoOpenings);
  EXPECT_EQ(Read(file.Path()), 0);
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_THAT(Counts(), ElementsAre(1, 1, 4));
  EXPECT_EQ(workspace().Levels.Count, 5);
  EXPECT_EQ(workspace().Sweeps.SelectedCount, 1);
  EXPECT_EQ(workspace().Stationarity.ShortestSweep, 0.1);
  EXPECT_NE(workspace().Levels.Index[0]->LevelFlags, 0u) << "the first level of a sweep is out";
  EXPECT_EQ(workspace().Levels.Index[1]->LevelFlags, 0u);
}

TEST_F(ReadDataFileTest, TheWaitCursorIsShownAndTakenBack) {
  const ScratchFile good("good.evt", kTwoOpenings);
  EXPECT_EQ(Read(good.Path()), 0);
  EXPECT_EQ(shell().WaitCursorChanges, 2);
  EXPECT_FALSE(shell().Waiting);
  const ScratchFile bad("bad.evt", "1 x");
  EXPECT_EQ(Read(bad.Path()), -1);
  EXPECT_EQ(shell().WaitCursorChanges, 4);
  EXPECT_FALSE(shell().Waiting);
}

TEST_F(ReadDataFileTest, AnEmptyFileCannotBeRead) {
  const ScratchFile file("empty.evt", "");
  EXPECT_EQ(Read(file.Path()), -1);
  EXPECT_THAT(Messages(), ElementsAre(CannotRead(ShortNameOf(file.Path()))));
}

TEST_F(ReadDataFileTest, AFailedFileDerivesNothing) {
  const ScratchFile good("good.evt", kTwoOpenings);
  EXPECT_EQ(Read(good.Path()), 0);
  const ScratchFile bad("bad.evt", std::string(kTwoOpenings) + "File\r\nUnknown\r\n");
  EXPECT_EQ(Read(bad.Path()), -1);
  EXPECT_THAT(Counts(), ElementsAre(2, 2, 8)) << "the file before the failure stays";
  EXPECT_EQ(workspace().Levels.Count, 5) << "without levels until the next rebuild";
}

TEST_F(ReadDataFileTest, AFurtherFileBuildsAllLevelsAgain) {
  const ScratchFile file("good.evt", kTwoOpenings);
  EXPECT_EQ(Read(file.Path()), 0);
  EXPECT_EQ(Read(file.Path()), 0);
  EXPECT_EQ(workspace().Levels.Count, 10);
  EXPECT_EQ(workspace().Levels.Index[5]->Sweep, 2u);
}

TEST_F(ReadDataFileTest, AListWhoseRowsWereDroppedIsAGoodReadWithoutData) {
  const ScratchFile file("list.txt", "1 1 0 0 0 0 0 2 1 0 0 0 0 0 1 1 0 0 0 0 0");
  EXPECT_EQ(Read(file.Path()), 0);
  EXPECT_THAT(Messages(), ElementsAre(kAmbiguous));
  EXPECT_THAT(Counts(), ElementsAre(0, 0, 0));
  EXPECT_EQ(workspace().Levels.Count, 0);
}

TEST_F(ReadDataFileTest, EveryFaultOnTheWayIsToldAndLeavesTheTables) {
  const ScratchFile file("good.evt", kTwoOpenings);
  scripted::Fault* const faults[] = {&shell().Open, &shell().Size, &shell().Allocation,
                                     &shell().Seek, &shell().Read};
  for (scripted::Fault* const fault : faults) {
    shell().Boxes.clear();
    const int before = shell().LiveAllocations;
    fault->Next = 1;
    EXPECT_EQ(Read(file.Path()), -1);
    EXPECT_EQ(shell().Boxes.size(), 1u);
    EXPECT_THAT(Counts(), ElementsAre(0, 0, 0));
    EXPECT_EQ(shell().LiveAllocations, before);
    EXPECT_EQ(shell().OpenFiles, 0);
    EXPECT_EQ(shell().WaitCursorChanges, 0);
  }
  EXPECT_EQ(Read(file.Path()), 0);
}

/// Fails the first, the second, ... allocation of a read, once and from there on, until a read
/// needs no more of them.
TEST_F(ReadDataFileTest, EveryAllocationMayFail) {
  const ScratchFile files[] = {
      {"three.evt",
       "5 File Undefined Sweeps 1 1 0 1 0 0 2 1 0 1 0 0 Segments 1 1 0 1 2 1 0 1 "
       "Events 1 0.5 0 1 1 0"},
      {"two.evt", "2 Sweeps 1 0 1 0 1 0 0 1 0 1 0 1 0 0 Events 1 0.5 0 1 1 0"},
      {"bare.txt", "1 0.5 0 0 1 0 1 3 0.5 0 0 1 0 1"}};
  for (const ScratchFile& file : files) {
    for (const bool lasting : {false, true}) {
      int faults = 0;
      for (bool struck = true; struck && faults < 20; faults += struck ? 1 : 0) {
        FreeAllTables(workspace());
        AllocateAllTables(Frame());
        shell().Boxes.clear();
        shell().Allocation.Next = faults + 1;
        shell().Allocation.Lasting = lasting;
        Read(file.Path());
        struck = !shell().Boxes.empty();
        shell().Allocation.Next = 0;
        if (struck) {
          EXPECT_THAT(Messages(), ElementsAre(::testing::StartsWith("Insufficient memory for ")));
          EXPECT_THAT(Counts(), ElementsAre(0, 0, 0));
        }
      }
      EXPECT_GE(faults, 3) << file.Path();
      EXPECT_LT(faults, 20) << file.Path();
    }
  }
}

// --- Recordings -----------------------------------------------------------------------------

struct Recording {
  const char* Name;
  std::int32_t Sweeps;
  std::int32_t Events;
};

/// Real recordings are not part of the sources. ONDREL_RECORDINGS names the folder that holds them.
class RecordingsTest : public ReadingTest, public ::testing::WithParamInterface<Recording> {};

TEST_P(RecordingsTest, ReadsWhole) {
  const char* const folder = std::getenv("ONDREL_RECORDINGS");
  if (folder == nullptr || !std::filesystem::is_directory(folder)) {
    GTEST_SKIP() << "ONDREL_RECORDINGS names no folder";
  }
  shell().FileChoices.push_back((std::filesystem::path(folder) / GetParam().Name).string());
  EXPECT_EQ(ReadDataFile(Frame()), 0);
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_THAT(Counts(), ElementsAre(1, GetParam().Sweeps, GetParam().Events));
}

INSTANTIATE_TEST_SUITE_P(All, RecordingsTest,
                         ::testing::Values(Recording{"achr-simulated.evt", 1, 4311},
                                           Recording{"glyr-k276e-30mM.evt", 4, 5809},
                                           Recording{"elic-propylamine-1mM.evt", 21, 2975},
                                           Recording{"inward-bare-list.txt", 9, 3000},
                                           Recording{"inward-version2.txt", 25, 3000}),
                         [](const auto& info) {
                           std::string name = info.param.Name;
                           std::erase_if(name, [](char byte) { return !std::isalnum(byte); });
                           return name;
                         });

}  // namespace
}  // namespace ondrel
