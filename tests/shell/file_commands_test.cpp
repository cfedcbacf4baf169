#include "shell/file_commands.h"

#include <gmock/gmock.h>

#include "support/program_test.h"

namespace ondrel {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FileCommandsTest : public ProgramTest {
 protected:
  FileCommandsTest() : file_("openings.evt", kTwoOpenings), rows_("rows.txt", kImportRows) {}

  void RunWithData(const std::function<void()>& act) {
    Run([&] {
      OpenFile(file_.Path());
      shell().Boxes.clear();
      act();
    });
  }

  ScratchFile file_;
  ScratchFile rows_;
};

TEST_F(FileCommandsTest, OpeningShowsEventsAndLevels) {
  RunWithData([&] {
    EXPECT_THAT(scripted::StackOfChildren(), ElementsAre("Level", "Event"));
    EXPECT_EQ(workspace().Events.Count, 4);
    EXPECT_EQ(workspace().Levels.Count, 5);
    EXPECT_EQ(workspace().Sweeps.Count, 1);
    EXPECT_EQ(workspace().Files.Count, 1);
    EXPECT_EQ(workspace().Statistics.TotalEvents, 3) << "the first and the last level are out";
  });
}

TEST_F(FileCommandsTest, AfterAFailedOpenNothingSurvives) {
  const ScratchFile bad("bad.evt", "5\tFile\tUndefined\tSweeps\t1\tx");
  Run([&] {
    OpenFile(bad.Path());
    EXPECT_EQ(workspace().Events.Index, nullptr);
    EXPECT_EQ(workspace().Levels.Index, nullptr);
    EXPECT_EQ(workspace().Sweeps.Index, nullptr);
    EXPECT_EQ(workspace().Files.Index, nullptr);
    EXPECT_EQ(workspace().Sweeps.Count, 0);
    EXPECT_THAT(shell().Children, IsEmpty());
  });
}

TEST_F(FileCommandsTest, EachAllocationOfAnOpenCanFailWithoutHarm) {
  for (int failing = 1; failing < 40; ++failing) {
    scripted::ResetShell();
    int calls = 0;
    Run([&] {
      shell().Boxes.clear();
      const int before = shell().Allocation.Calls;
      shell().Allocation.Next = failing;
      OpenFile(file_.Path());
      calls = shell().Allocation.Calls - before;
      const std::size_t told = calls >= failing ? 1 : 0;
      EXPECT_EQ(shell().Boxes.size(), told) << failing;
    });
    ASSERT_EQ(shell().LiveAllocations, 0) << failing;
    if (calls < failing) return;
  }
  ADD_FAILURE() << "an open needs fewer allocations than that";
}

TEST_F(FileCommandsTest, WithNoWindowForAViewTheDataCanStillBeClosed) {
  Run([&] {
    shell().Boxes.clear();
    shell().CreateChild = {.Next = 1, .Lasting = true};
    OpenFile(file_.Path());
    EXPECT_THAT(
        Messages(),
        ElementsAre("Insufficient memory for creating <Event> window. You can increase the amount "
                    "of memory by quiting some other programs.",
                    "Insufficient memory for creating <Level> window. You can increase the amount "
                    "of memory by quiting some other programs."));
    EXPECT_TRUE(shell().Menu.Entries.at({1, 2, 0})) << "Close";
    EXPECT_TRUE(shell().Menu.Popups.at(3)) << "View";
    Choose(command::kClose);
    EXPECT_EQ(workspace().Events.Index, nullptr);
  });
}

TEST_F(FileCommandsTest, AFailedAddKeepsWhatItReadAndDrawsNothingAnew) {
  const ScratchFile half("half.evt", std::string(kTwoOpenings) + "File\tUndefined\tSweeps\t1\tx");
  RunWithData([&] {
    const std::int32_t levels = workspace().Levels.Count;
    auto& events = scripted::WindowOf(ViewOf(workspace(), ViewKind::Event).Window);
    events.Invalidated.clear();
    shell().FileChoices.push_back(half.Path());
    Choose(command::kAdd);
    EXPECT_EQ(workspace().Events.Count, 8);
    EXPECT_EQ(workspace().Levels.Count, levels);
    EXPECT_THAT(events.Invalidated, IsEmpty());
    EXPECT_EQ(events.Bars[0].Maximum, 7) << "the new rows can be scrolled to";
  });
}

TEST_F(FileCommandsTest, TablesAreFreedInReverseWhenOneCannotBeHad) {
  const char* const words[] = {"event table", "event table", "level table",
                               "level table", "Sweep table", "Sweep table"};
  int failing = 0;
  for (const char* word : words) {
    ++failing;
    scripted::ResetShell();
    Run([&] {
      shell().Boxes.clear();
      shell().Allocation.Next = failing;
      OpenFile(file_.Path());
      ASSERT_EQ(shell().Boxes.size(), 1u);
      EXPECT_EQ(shell().Boxes[0].Text,
                std::string("Insufficient memory for ") + word +
                    ". You can increase the amount of memory available either select "
                    "\"Settings\" in \"File\" menu, reduce \"Event entries\" or \"Sweep entries\" "
                    "or quit some other programs.");
      EXPECT_EQ(shell().Boxes[0].Icon, toolkit::BoxIcon::Stop);
      EXPECT_THAT(shell().FileDialogs, IsEmpty());
    });
    EXPECT_EQ(shell().LiveAllocations, 0);
  }
}

TEST_F(FileCommandsTest, TheFileTableSaysItsShorterSentence) {
  Run([&] {
    shell().Boxes.clear();
    shell().Allocation.Next = 7;
    OpenFile(file_.Path());
    EXPECT_THAT(Messages(), ElementsAre("Insufficient memory for File table. You can increase the "
                                        "amount of memory by quiting some other programs."));
  });
}

TEST_F(FileCommandsTest, AddingAppendsAndDerivesAnew) {
  RunWithData([&] {
    shell().FileChoices.push_back(file_.Path());
    Choose(command::kAdd);
    EXPECT_EQ(workspace().Events.Count, 8);
    EXPECT_EQ(workspace().Sweeps.Count, 2);
    EXPECT_EQ(workspace().Files.Count, 2);
    EXPECT_EQ(workspace().Levels.Count, 10);
    EXPECT_EQ(workspace().Statistics.TotalEvents, 6);
    EXPECT_EQ(workspace().Events.Index[4]->Sweep, 2u);
  });
}

TEST_F(FileCommandsTest, AddWithAClosedEventViewOpensIt) {
  RunWithData([&] {
    ChildWindow* events = ViewOf(workspace(), ViewKind::Event).Window;
    events->Callbacks->Close(events);
    EXPECT_THAT(scripted::StackOfChildren(), ElementsAre("Level"));
    shell().FileChoices.push_back(file_.Path());
    Choose(command::kAdd);
    EXPECT_THAT(scripted::StackOfChildren(), ElementsAre("Event", "Level"));
  });
}

TEST_F(FileCommandsTest, AddRedrawsTheOtherOpenViews) {
  RunWithData([&] {
    Choose(command::kStatisticsView);
    Choose(command::kSweepView);
    for (const ViewKind kind : {ViewKind::Statistics, ViewKind::Sweep, ViewKind::Event}) {
      scripted::WindowOf(ViewOf(workspace(), kind).Window).Invalidated.clear();
    }
    shell().FileChoices.push_back(file_.Path());
    Choose(command::kAdd);
    for (const ViewKind kind : {ViewKind::Statistics, ViewKind::Sweep, ViewKind::Event}) {
      EXPECT_EQ(scripted::WindowOf(ViewOf(workspace(), kind).Window).Invalidated.size(), 1u);
    }
  });
}

TEST_F(FileCommandsTest, ACancelledAddChangesNothing) {
  RunWithData([&] {
    Choose(command::kAdd);
    EXPECT_EQ(workspace().Events.Count, 4);
    EXPECT_THAT(Messages(), IsEmpty());
  });
}

TEST_F(FileCommandsTest, ImportAsksBeforeItErasesEvents) {
  RunWithData([&] {
    shell().Answers.push_back(toolkit::BoxAnswer::No);
    Choose(command::kImportEvents);
    ASSERT_THAT(Messages(),
                ElementsAre("There are events in the event table. Import events will erase all "
                            "the events in the event table. Do you want to import?"));
    EXPECT_EQ(shell().Boxes[0].Buttons, toolkit::BoxButtons::YesNo);
    EXPECT_EQ(shell().Boxes[0].Icon, toolkit::BoxIcon::Question);
    EXPECT_EQ(workspace().Events.Count, 4);
    EXPECT_EQ(shell().FileDialogs.size(), 1u) << "only the one of Open";
  });
}

TEST_F(FileCommandsTest, ImportReplacesTheEvents) {
  RunWithData([&] {
    shell().Answers.push_back(toolkit::BoxAnswer::Yes);
    shell().FileChoices.push_back(rows_.Path());
    Choose(command::kImportEvents);
    EXPECT_EQ(shell().FileDialogs.back().Title, "Event file:");
    EXPECT_EQ(workspace().Events.Count, 2);
    EXPECT_EQ(workspace().Levels.Count, 3);
    EXPECT_EQ(workspace().Statistics.TotalEvents, 1);
  });
}

TEST_F(FileCommandsTest, CloseGoesBackToNoData) {
  RunWithData([&] {
    Choose(command::kSweepView);
    ViewOf(workspace(), ViewKind::Event).TopRow = 3;
    Choose(command::kClose);
    EXPECT_THAT(shell().Children, IsEmpty());
    EXPECT_EQ(workspace().Events.Index, nullptr);
    EXPECT_EQ(workspace().Events.Count, 0);
    EXPECT_EQ(workspace().Levels.Count, 0);
    EXPECT_EQ(workspace().Sweeps.Count, 0);
    EXPECT_EQ(workspace().Files.Count, 0);
    EXPECT_EQ(ViewOf(workspace(), ViewKind::Event).TopRow, 0);
    EXPECT_FALSE(shell().Menu.Popups[2]);
    EXPECT_EQ(shell().Menu.InsertedResource, 0);
  });
}

TEST_F(FileCommandsTest, AfterCloseTheSettingsAreAsTheyWere) {
  RunWithData([&] {
    workspace().Levels.LevelSelection.TagChoice = Selection::Exclude;
    workspace().Levels.BaseLevel = 2;
    workspace().Sweeps.FileHigh = 9;
    ViewOf(workspace(), ViewKind::Event).Colors[0] = kRed;
    Choose(command::kClose);
    EXPECT_EQ(workspace().Levels.LevelSelection.TagChoice, Selection::Exclude);
    EXPECT_EQ(workspace().Levels.BaseLevel, 2);
    EXPECT_EQ(workspace().Sweeps.FileHigh, 9);
    EXPECT_EQ(ViewOf(workspace(), ViewKind::Event).Colors[0], kRed);
  });
}

TEST_F(FileCommandsTest, ARecordingCanBeOpenedAgainAfterClose) {
  RunWithData([&] {
    Choose(command::kClose);
    OpenFile(file_.Path());
    EXPECT_EQ(workspace().Events.Count, 4);
    EXPECT_THAT(scripted::StackOfChildren(), ElementsAre("Level", "Event"));
  });
}

TEST_F(FileCommandsTest, ClosingDestroysTheViewsInTheirOrder) {
  RunWithData([&] {
    Choose(command::kSweepView);
    Choose(command::kStatisticsView);
    shell().Windows.clear();
    Choose(command::kClose);
    std::vector<std::string> destroyed;
    for (const std::string& line : shell().Windows) {
      if (line.starts_with("destroy")) destroyed.push_back(line);
    }
    EXPECT_THAT(destroyed, ElementsAre("destroy Event", "destroy Level", "destroy Statistics",
                                       "destroy Sweep"));
  });
}

}  // namespace
}  // namespace ondrel
