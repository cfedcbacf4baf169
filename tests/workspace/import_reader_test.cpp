#include "workspace/import_reader.h"

#include "support/reading_test.h"
#include "support/sample_tables.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Tables with two sweeps of 2 s and 1 s, and one event.
class ImportTest : public ReadingTest {
 protected:
  ImportTest() { LoadSweeps(); }

  void LoadSweeps() {
    EXPECT_TRUE(
        Parse("5 File Undefined Sweeps 1 2 0 2 0 0 2 1 0 1 0 0 Segments Events "
              "1 0.5 0 1E-12 1 0"));
  }
  void DropEvents() { ClearEvents(Frame(), 0, workspace().Events.Count); }
};

TEST_F(ImportTest, RowsReplaceTheEvents) {
  EXPECT_TRUE(Import("1 0.25 1E-12 2E-12 3 4.5\r\n2 1.0 5E-12 6E-12 -7 8\r\n"));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_THAT(Counts(), ElementsAre(1, 2, 2));
  EXPECT_EQ(Event(0).Sweep, 1u);
  EXPECT_EQ(Event(0).Transition, 0.25);
  EXPECT_EQ(Event(0).PreAmplitude, 1e-12);
  EXPECT_EQ(Event(0).PostAmplitude, 2e-12);
  EXPECT_EQ(Event(0).Level, 3);
  EXPECT_EQ(Event(0).TagValue, 4.5);
  EXPECT_EQ(Event(1).Sweep, 2u);
  EXPECT_EQ(Event(1).Level, -7);
}

TEST_F(ImportTest, TheSweepIsTakenAsTheRowOfTheWholeTable) {
  LoadSweeps();
  EXPECT_TRUE(Import("4 0.5 0 0 0 0"));
  EXPECT_EQ(Event(0).Sweep, 4u);
}

TEST_F(ImportTest, ATransitionAtTheVeryEndOfItsSweepFits) {
  EXPECT_TRUE(Import("1 2.0 0 0 0 0"));
  EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(ImportTest, ATransitionBeyondItsSweepLeavesNoEvents) {
  EXPECT_TRUE(Import("1 0.5 0 0 0 0 1 2.000001 0 0 0 0 1 0.5 0 0 0 0"));
  EXPECT_THAT(Messages(), ElementsAre(kNoMatch));
  EXPECT_THAT(Counts(), ElementsAre(1, 2, 0));
}

TEST_F(ImportTest, ARowOfNoSweepLeavesNoEvents) {
  for (const char* sweep : {"0", "3", "-1", "-2147483648", "2147483647"}) {
    shell().Boxes.clear();
    Import("1 0.5 0 0 0 0 " + std::string(sweep) + " 0.5 0 0 0 0");
    EXPECT_THAT(Messages(), ElementsAre(kNoMatch)) << sweep;
    EXPECT_EQ(workspace().Events.Count, 0) << sweep;
  }
}

TEST_F(ImportTest, ABadTokenInEachColumnLeavesNoEvents) {
  const std::string row = "1 1 1 1 1 1 ";
  for (std::size_t column = 0; column < 6; ++column) {
    shell().Boxes.clear();
    std::string bad = row;
    bad[2 * column] = 'x';
    Import(row + bad + row);
    EXPECT_THAT(Messages(), ElementsAre(Corrupted(2, "Event"))) << "column " << column;
    EXPECT_EQ(workspace().Events.Count, 0);
  }
}

TEST_F(ImportTest, AFullTableKeepsTheRowsThatFit) {
  SetCapacities(2, 10);
  LoadSweeps();
  EXPECT_TRUE(Import(Repeat("1 0.5 0 0 0 0 ", 3)));
  EXPECT_THAT(Messages(), ElementsAre(TableFull("Event")));
  EXPECT_EQ(workspace().Events.Count, 2);
}

TEST_F(ImportTest, AnExactFitPasses) {
  SetCapacities(2, 10);
  LoadSweeps();
  EXPECT_TRUE(Import(Repeat("1 0.5 0 0 0 0 ", 2)));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_EQ(workspace().Events.Count, 2);
}

TEST_F(ImportTest, TheResultIsGoodWhenEventsStoodThereBefore) {
  EXPECT_TRUE(Import("x"));
  EXPECT_EQ(workspace().Events.Count, 0);
  EXPECT_FALSE(Import("x")) << "none before and none now";
}

TEST_F(ImportTest, TheResultIsGoodWhenEventsStandThereNow) {
  DropEvents();
  EXPECT_TRUE(Import("1 0.5 0 0 0 0"));
}

TEST_F(ImportTest, AFileOfBlanksDropsTheEventsWithNoMessage) {
  EXPECT_TRUE(Import(" \r\n"));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_EQ(workspace().Events.Count, 0);
}

TEST_F(ImportTest, AnEmptyFileCannotBeReadAndLeavesTheEvents) {
  EXPECT_FALSE(Import(""));
  EXPECT_THAT(Messages(), ElementsAre(CannotRead("events.txt")));
  EXPECT_EQ(workspace().Events.Count, 1);
}

TEST_F(ImportTest, ATruncatedLastRowIsKeptWithZeros) {
  EXPECT_TRUE(Import("1 0.5"));
  EXPECT_EQ(workspace().Events.Count, 1);
  EXPECT_EQ(Event(0).TagValue, 0.0);
}

TEST_F(ImportTest, TheEventViewLearnsTheNewCount) {
  OpenTableView(ViewKind::Event);
  OpenTableView(ViewKind::Sweep);
  EXPECT_TRUE(Import(Repeat("1 0.5 0 0 0 0 ", 3)));
  EXPECT_EQ(ScrollRange(ViewKind::Event), 2);
  EXPECT_EQ(ScrollRange(ViewKind::Sweep), kNoRange);
  EXPECT_TRUE(Import("x"));
  EXPECT_EQ(ScrollRange(ViewKind::Event), 0);
}

TEST_F(ImportTest, TheBlockIsFreedInEveryOutcome) {
  const int before = shell().LiveAllocations;
  for (const char* text : {"", " ", "x", "9 0 0 0 0 0", "1 0.5 0 0 0 0"}) {
    Import(text);
    EXPECT_EQ(shell().LiveAllocations, before) << text;
  }
}

// --- The command ----------------------------------------------------------------------------

TEST_F(ImportTest, AsksBeforeItErasesEvents) {
  shell().Answers.push_back(toolkit::BoxAnswer::No);
  EXPECT_EQ(AskAndImportEvents(Frame()), -1);
  ASSERT_EQ(shell().Boxes.size(), 1u);
  EXPECT_EQ(shell().Boxes[0].Text,
            "There are events in the event table. Import events will erase all the events in the "
            "event table. Do you want to import?");
  EXPECT_EQ(shell().Boxes[0].Buttons, toolkit::BoxButtons::YesNo);
  EXPECT_EQ(shell().Boxes[0].Icon, toolkit::BoxIcon::Question);
  EXPECT_THAT(shell().FileDialogs, IsEmpty());
  EXPECT_EQ(workspace().Events.Count, 1);
}

TEST_F(ImportTest, AsksNothingWithoutEvents) {
  DropEvents();
  EXPECT_EQ(AskAndImportEvents(Frame()), -1);
  EXPECT_THAT(Messages(), IsEmpty());
  ASSERT_EQ(shell().FileDialogs.size(), 1u);
  EXPECT_EQ(shell().FileDialogs[0].Title, "Event file:");
  EXPECT_EQ(shell().FileDialogs[0].Mode, toolkit::FileDialogMode::Open);
}

TEST_F(ImportTest, YesGoesOnToTheFileAndItsLevels) {
  const ScratchFile file("events.txt", "1 0.25 0 1E-12 1 0 1 0.5 1E-12 0 0 0");
  shell().Answers.push_back(toolkit::BoxAnswer::Yes);
  shell().FileChoices.push_back(file.Path());
  EXPECT_EQ(AskAndImportEvents(Frame()), 0);
  EXPECT_EQ(workspace().Events.Count, 2);
  EXPECT_EQ(workspace().Levels.Count, 3);
  EXPECT_EQ(shell().WaitCursorChanges, 2);
  EXPECT_FALSE(shell().Waiting);
}

TEST_F(ImportTest, CancelInTheFileDialogLeavesTheEvents) {
  EXPECT_EQ(AskAndImportEvents(Frame()), -1);
  EXPECT_EQ(workspace().Events.Count, 1);
  EXPECT_EQ(shell().WaitCursorChanges, 0);
}

TEST_F(ImportTest, AFailedImportOfLoadedEventsDerivesTheEmptyTables) {
  const ScratchFile good("events.txt", "1 0.25 0 1E-12 1 0");
  EXPECT_EQ(ImportEvents(Frame(), good.Path().c_str()), 0);
  EXPECT_EQ(workspace().Levels.Count, 2);
  const ScratchFile bad("bad.txt", "x");
  EXPECT_EQ(ImportEvents(Frame(), bad.Path().c_str()), 0);
  EXPECT_EQ(workspace().Levels.Count, 0);
  EXPECT_EQ(ImportEvents(Frame(), bad.Path().c_str()), -1);
}

TEST_F(ImportTest, AFileThatDoesNotOpenIsToldAndLeavesTheEvents) {
  EXPECT_EQ(ImportEvents(Frame(), "C:\\none.txt"), -1);
  EXPECT_THAT(Messages(), ElementsAre("Could not open file none.txt. Error code 2."));
  EXPECT_EQ(workspace().Events.Count, 1);
}

TEST_F(ImportTest, NoMemoryForTheFileIsToldAndLeavesTheEvents) {
  const ScratchFile file("events.txt", "1 0.25 0 1E-12 1 0");
  shell().Allocation.Next = 1;
  EXPECT_EQ(ImportEvents(Frame(), file.Path().c_str()), -1);
  EXPECT_EQ(shell().Boxes.size(), 1u);
  EXPECT_EQ(workspace().Events.Count, 1);
}

}  // namespace
}  // namespace ondrel
