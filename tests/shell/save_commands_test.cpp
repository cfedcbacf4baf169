#include "shell/save_commands.h"

#include <tuple>

#include "support/sample_tables.h"
#include "support/saving_test.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

constexpr int kOk = 1;
constexpr int kFormList = 3;
constexpr int kRows = 1000;  // of events and of levels, half of them in either sweep

class SaveCommandsTest : public SavingTest {
 protected:
  SaveCommandsTest() { WatchBoxes(); }

  /// A user who is told of a failed write may take the disk out or delete the file at once. The
  /// other two failures are told amid the lines of a file that can still be written to.
  void WatchBoxes() {
    shell().WhileBoxStands = [&](FrameWindow*) {
      const std::string& told = shell().Boxes.back().Text;
      if (told == kJump || told == kNoMemoryForLine) return;
      EXPECT_EQ(shell().OpenFiles, 0) << "the file is closed before the message";
    };
  }

  void SaveEvents() {
    shell().FileChoices.push_back(Path());
    SaveEventsCommand(Frame());
  }

  void ChooseForm(LevelFileChoice choice) {
    shell().DialogScripts.push_back([choice](scripted::OpenDialog& dialog) {
      dialog.Choose(kFormList, static_cast<int>(choice));
      dialog.Press(kOk);
    });
  }
  void SaveLevels(LevelFileChoice choice) {
    ChooseForm(choice);
    shell().FileChoices.push_back(Path());
    SaveLevelsCommand(Frame());
  }

  /// Segments beyond the first block of a line, and events for several writes.
  void FillTables() {
    AddFile(FileOfType("IgorWave", "wave"));
    AddSweep(1.0, std::vector<SegmentRecord>(100, SegmentRecord{0.25, 0.5}));
    AddSweep(2.0, std::vector<SegmentRecord>(200, SegmentRecord{0.25, 0.5}));
    for (int i = 0; i < kRows; ++i) {
      AddEvent({i < kRows / 2 ? 1u : 2u, 0.001 * i, 1e-12, -2e-12, i % 2, 0.0});
      AddLevel({.Sweep = i < kRows / 2 ? 1u : 2u,
                .Transition = 0.001 * i,
                .Duration = 0.001,
                .Level = i % 2});
    }
  }

  /// What every failure leaves: `told` once, the tables as they were, and on the disk nothing but
  /// the beginning of the whole file.
  void ExpectFailure(const std::string& told, const std::string& whole, int held) {
    EXPECT_THAT(Messages(), ElementsAre(told));
    EXPECT_EQ(shell().Boxes.back().Icon, toolkit::BoxIcon::Stop);
    EXPECT_EQ(shell().OpenFiles, 0);
    EXPECT_EQ(shell().LiveAllocations, held);
    EXPECT_THAT(whole, StartsWith(BytesOf(Path())));
    EXPECT_THAT(Counts(), ElementsAre(1, 2, kRows));
    EXPECT_EQ(workspace().Levels.Count, kRows);
    EXPECT_EQ(Sweep(1).SegmentCount, 200);
  }
};

TEST_F(SaveCommandsTest, EventsAreAskedForUnderUntitled) {
  SaveEventsCommand(Frame());
  ASSERT_EQ(shell().FileDialogs.size(), 1u);
  EXPECT_EQ(shell().FileDialogs[0].Mode, toolkit::FileDialogMode::Save);
  EXPECT_EQ(shell().FileDialogs[0].Title, "Save event list as:");
  EXPECT_EQ(shell().FileDialogs[0].DefaultName, "Untitled");
  EXPECT_THAT(shell().Dialogs, IsEmpty());
}

TEST_F(SaveCommandsTest, ACancelledFileDialogEndsTheCommand) {
  SaveEventsCommand(Frame());
  ChooseForm(LevelFileChoice::Ond);
  SaveLevelsCommand(Frame());
  EXPECT_EQ(shell().Create.Calls, 0);
  EXPECT_EQ(shell().OpenForWriting.Calls, 0);
  EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(SaveCommandsTest, EventsAreSavedAndReadBack) {
  ASSERT_TRUE(Parse(kTwoOpenings));
  SaveEvents();
  EXPECT_EQ(BytesOf(Path()), kTwoOpenings);
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_EQ(shell().OpenFiles, 0);
  ReadBack();
  EXPECT_THAT(Counts(), ElementsAre(1, 1, 4));
}

TEST_F(SaveCommandsTest, AnOldFileIsReplacedAsAWhole) {
  ASSERT_TRUE(Parse(kTwoOpenings));
  std::ofstream(Path(), std::ios::binary) << std::string(100000, 'x');
  SaveEvents();
  EXPECT_EQ(BytesOf(Path()), kTwoOpenings);
}

TEST_F(SaveCommandsTest, WithNoFilesLoadedTheVersionStandsAlone) {
  FreeAllTables(workspace());
  SaveEvents();
  EXPECT_EQ(BytesOf(Path()), "5\r\n");
  SaveLevels(LevelFileChoice::Ond);
  EXPECT_EQ(BytesOf(Path()), "5\r\n");
  SaveLevels(LevelFileChoice::Qub);
  EXPECT_EQ(BytesOf(Path()), "");
  EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(SaveCommandsTest, LevelsAreAskedForTheirFormFirst) {
  ChooseForm(LevelFileChoice::Ond);
  SaveLevelsCommand(Frame());
  EXPECT_THAT(shell().Dialogs, ElementsAre(144));
  ASSERT_EQ(shell().FileDialogs.size(), 1u);
  EXPECT_EQ(shell().FileDialogs[0].Mode, toolkit::FileDialogMode::Save);
  EXPECT_EQ(shell().FileDialogs[0].Title, "Save level list as:");
}

TEST_F(SaveCommandsTest, TheDefaultNameOfLevelsGoesWithTheForm) {
  ChooseForm(LevelFileChoice::Ond);
  SaveLevelsCommand(Frame());
  ChooseForm(LevelFileChoice::Qub);
  SaveLevelsCommand(Frame());
  ASSERT_EQ(shell().FileDialogs.size(), 2u);
  EXPECT_EQ(shell().FileDialogs[0].DefaultName, "Untitled.evt");
  EXPECT_EQ(shell().FileDialogs[1].DefaultName, "Untitled.dwt");
}

TEST_F(SaveCommandsTest, ACancelledFormEndsTheCommandAndKeepsTheChoice) {
  workspace().LevelFileType = LevelFileChoice::Qub;
  shell().DialogScripts.push_back([](scripted::OpenDialog& dialog) {
    EXPECT_EQ(dialog.At(kFormList).Shown, 0);
    dialog.Choose(kFormList, 1);
    dialog.Escape();
  });
  SaveLevelsCommand(Frame());
  EXPECT_EQ(workspace().LevelFileType, LevelFileChoice::Qub);
  EXPECT_THAT(shell().FileDialogs, IsEmpty());
}

TEST_F(SaveCommandsTest, TheFormStaysChosenWhenTheFileIsCancelled) {
  workspace().LevelFileType = LevelFileChoice::Ond;
  ChooseForm(LevelFileChoice::Qub);
  SaveLevelsCommand(Frame());
  EXPECT_EQ(workspace().LevelFileType, LevelFileChoice::Qub);
}

TEST_F(SaveCommandsTest, LevelsAreSavedInTheChosenForm) {
  AddFile(FileOfType("Undefined", ""));
  AddSweep(1.0);
  AddLevel({.Sweep = 1, .Transition = 0.25, .Duration = 0.5, .Level = 1});
  SaveLevels(LevelFileChoice::Qub);
  EXPECT_EQ(BytesOf(Path()), "Segment: 1\tDwells: 1\r\n\t1\t0.500000\r\n");
  SaveLevels(LevelFileChoice::Ond);
  EXPECT_EQ(BytesOf(Path()),
            "5\r\nFile\r\nUndefined\r\nSweeps\r\n"
            "1\t1.000000\t0.000000\t1.000000\t0.000000E+00\t0.000000E+00\r\n"
            "Segments\r\n1\t0\t\r\nEvents\r\n"
            "1\t0.250000\t0.0000000E+00\t0.0000000E+00\t1\t0.000000E+00\r\n");
  EXPECT_THAT(Messages(), IsEmpty());
}

// --- Failures ------------------------------------------------------------------------------------

TEST_F(SaveCommandsTest, AFileThatCannotBeMadeIsToldAndTheOldOneStays) {
  FillTables();
  const int held = shell().LiveAllocations;
  std::ofstream(Path(), std::ios::binary) << "5\r\n";
  shell().Create.Next = 1;
  SaveEvents();
  ExpectFailure(kWritingFailed, "5\r\n", held);
  EXPECT_EQ(BytesOf(Path()), "5\r\n");
  EXPECT_EQ(shell().OpenForWriting.Calls, 0);
}

TEST_F(SaveCommandsTest, AFileThatCannotBeOpenedIsToldAndTheNewOneStays) {
  FillTables();
  const int held = shell().LiveAllocations;
  std::ofstream(Path(), std::ios::binary) << "old";
  shell().OpenForWriting.Next = 1;
  SaveEvents();
  ExpectFailure(kWritingFailed, "", held);
  EXPECT_TRUE(std::filesystem::exists(Path())) << "nothing is deleted";
  EXPECT_EQ(shell().Write.Calls, 0);
}

TEST_F(SaveCommandsTest, TheSameHoldsForLevels) {
  FillTables();
  const int held = shell().LiveAllocations;
  for (const LevelFileChoice choice : {LevelFileChoice::Qub, LevelFileChoice::Ond}) {
    shell().Boxes.clear();
    shell().Create.Next = 1;
    SaveLevels(choice);
    ExpectFailure(kWritingFailed, "", held);
    EXPECT_FALSE(std::filesystem::exists(Path()));
    shell().Boxes.clear();
    shell().OpenForWriting.Next = 1;
    SaveLevels(choice);
    ExpectFailure(kWritingFailed, "", held);
    EXPECT_TRUE(std::filesystem::exists(Path()));
    std::filesystem::remove(Path());
  }
}

class FailingSaveTest : public SaveCommandsTest, public ::testing::WithParamInterface<int> {
 protected:
  FailingSaveTest() { FillTables(); }

  void Save() {
    switch (GetParam()) {
      case 0:
        return SaveEvents();
      case 1:
        return SaveLevels(LevelFileChoice::Ond);
      default:
        return SaveLevels(LevelFileChoice::Qub);
    }
  }
};

constexpr std::size_t kPiece = std::tuple_size_v<decltype(OutputFile::Gathered)>;

TEST_P(FailingSaveTest, EachWriteCanFailAndIsToldOnce) {
  Save();
  ASSERT_THAT(Messages(), IsEmpty());
  const std::string whole = BytesOf(Path());
  const int writes = shell().Write.Calls;
  ASSERT_GE(writes, 2);
  const int held = shell().LiveAllocations;
  for (int failing = 1; failing <= writes; ++failing) {
    shell().Boxes.clear();
    shell().Write = {.Next = failing};
    Save();
    ExpectFailure(kWritingFailed, whole, held);
    EXPECT_EQ(BytesOf(Path()).size(), static_cast<std::size_t>(failing - 1) * kPiece);
    EXPECT_EQ(shell().Write.Calls, failing) << "nothing more is written";
  }
}

TEST_P(FailingSaveTest, AFailedCloseIsAFailedWrite) {
  Save();
  const std::string whole = BytesOf(Path());
  const int held = shell().LiveAllocations;
  shell().Close = {.Next = 1};
  Save();
  ExpectFailure(kWritingFailed, whole, held);
  EXPECT_EQ(BytesOf(Path()), whole) << "the file stays as far as it came";
}

TEST_P(FailingSaveTest, AFullDiskThatAlsoFailsToCloseIsToldOnce) {
  Save();
  const std::string whole = BytesOf(Path());
  const int held = shell().LiveAllocations;
  shell().Write = {.Next = 1, .Lasting = true};
  shell().Close = {.Next = 1, .Lasting = true};
  Save();
  ExpectFailure(kWritingFailed, whole, held);
}

TEST_P(FailingSaveTest, AfterAFailureTheNextSaveIsWhole) {
  Save();
  const std::string whole = BytesOf(Path());
  shell().Write = {.Next = 1};
  Save();
  shell().Boxes.clear();
  Save();
  EXPECT_EQ(BytesOf(Path()), whole);
  EXPECT_THAT(Messages(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(OfEventsAndLevelsInBothForms, FailingSaveTest, ::testing::Values(0, 1, 2));

TEST_F(SaveCommandsTest, EachAllocationOfALineCanFail) {
  FillTables();
  SaveEvents();
  const std::string whole = BytesOf(Path());
  const int held = shell().LiveAllocations;
  const std::size_t secondLine = whole.find("\r\n2\t200\t") + 2;
  std::size_t onDisk = 0;
  // 1806 bytes in steps of 256 need eight blocks, the 3606 bytes of the next line seven more.
  constexpr int kAllocations = 15;
  for (int failing = 1; failing <= kAllocations; ++failing) {
    shell().Boxes.clear();
    shell().Allocation = {.Next = failing};
    SaveEvents();
    ExpectFailure(kNoMemoryForLine, whole, held);
    onDisk = BytesOf(Path()).size();
    EXPECT_EQ(onDisk, failing <= 8 ? whole.find("1\t100\t") : secondLine)
        << "up to the line that could not be put together";
  }
  shell().Boxes.clear();
  shell().Allocation = {.Next = kAllocations + 1};
  SaveEvents();
  EXPECT_THAT(Messages(), IsEmpty()) << "a save needs no more allocations";
  EXPECT_EQ(BytesOf(Path()), whole);
}

TEST_F(SaveCommandsTest, AfterAFailedAllocationAFailedWriteIsNotTold) {
  FillTables();
  const int held = shell().LiveAllocations;
  shell().Allocation.Next = 1;
  shell().Write.Next = 1;
  SaveEvents();
  ExpectFailure(kNoMemoryForLine, "", held);
}

TEST_F(SaveCommandsTest, AJumpOfLevelsIsToldOnceAndTheFileStays) {
  FillTables();
  workspace().Levels.Index[800]->Level = 2;
  const int held = shell().LiveAllocations;
  shell().Close.Next = 1;
  SaveLevels(LevelFileChoice::Qub);
  std::string whole = "Segment: 1\tDwells: 500\r\n";
  for (int i = 0; i < 800; ++i) {
    if (i == 500) whole += "Segment: 2\tDwells: 500\r\n";
    whole += i % 2 == 0 ? "\t0\t0.001000\r\n" : "\t1\t0.001000\r\n";
  }
  ExpectFailure(kJump, whole, held);
  EXPECT_EQ(BytesOf(Path()), whole);
}

}  // namespace
}  // namespace ondrel
