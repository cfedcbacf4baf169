#include "shell/commands.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <utility>

#include "shell/menus.h"
#include "support/program_test.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class CommandsTest : public ProgramTest {
 protected:
  CommandsTest() : file_("commands.evt", kTwoOpenings) {}

  void RunWithData(const std::function<void()>& act) {
    Run([&] {
      OpenFile(file_.Path());
      shell().Boxes.clear();
      act();
    });
  }

 private:
  ScratchFile file_;
};

TEST_F(CommandsTest, TheAboutBoxGivesNameAndVersion) {
  Run([&] {
    shell().Boxes.clear();
    Choose(command::kAbout);
    Choose(command::kAboutKey);
    EXPECT_THAT(Messages(), ElementsAre("Ondrel for Windows X4.3.3", "Ondrel for Windows X4.3.3"));
    EXPECT_EQ(shell().Boxes[0].Icon, toolkit::BoxIcon::Information);
  });
}

TEST_F(CommandsTest, ViewCommandsOpenTheirView) {
  RunWithData([&] {
    Choose(command::kSweepView);
    Choose(command::kStatisticsView);
    EXPECT_THAT(scripted::StackOfChildren(), ElementsAre("Statistics", "Sweep", "Level", "Event"));
    Choose(command::kEventView);
    EXPECT_THAT(scripted::StackOfChildren(), ElementsAre("Event", "Statistics", "Sweep", "Level"));
  });
}

TEST_F(CommandsTest, EachOfTheTenViewCommandsOpensItsView) {
  RunWithData([&] {
    const std::pair<CommandId, const char*> views[] = {
        {52481, "Amplitude Histogram"},
        {52482, "Amplitude Scatter Plot"},
        {52483, "Amplitude/Duration"},
        {52484, "Duration Histogram"},
        {52485, "Duration Scatter Plot"},
        {52486, "Event"},
        {52487, "Level"},
        {52488, "Stationarity"},
        {52489, "Statistics"},
        {52490, "Sweep"},
    };
    for (const auto& [command, title] : views) {
      Choose(command);
      EXPECT_EQ(scripted::StackOfChildren().front(), title) << command;
    }
    EXPECT_EQ(shell().Children.size(), std::size(views));
  });
}

TEST_F(CommandsTest, ControlSDoesNothing) {
  RunWithData([&] {
    const auto before = shell().Windows;
    Choose(51718);
    EXPECT_EQ(shell().Windows, before);
    EXPECT_THAT(Messages(), IsEmpty());
  });
}

TEST_F(CommandsTest, EditKeysButCopyDoNothing) {
  RunWithData([&] {
    for (const int id : {51969, 51971, 51973}) {
      EXPECT_FALSE(HasHandler(static_cast<CommandId>(id)));
      Choose(static_cast<CommandId>(id));
    }
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_EQ(shell().Children.size(), 2u);
  });
}

TEST_F(CommandsTest, MenusWithoutCommandsDoNothing) {
  RunWithData([&] {
    const auto before = shell().Windows;
    for (int low = 0; low < 256; ++low) {
      DispatchCommand(Frame(), 206, low);
      DispatchCommand(Frame(), 212, low);
    }
    EXPECT_EQ(shell().Windows, before);
    EXPECT_THAT(Messages(), IsEmpty());
  });
}

TEST_F(CommandsTest, NumbersOutsideTheMenusDoNothing) {
  RunWithData([&] {
    const auto before = shell().Windows;
    for (const int high : {0, 1, 100, 217, 255}) {
      for (int low = 0; low < 256; ++low) DispatchCommand(Frame(), high, low);
    }
    EXPECT_EQ(shell().Windows, before);
    EXPECT_THAT(Messages(), IsEmpty());
  });
}

TEST_F(CommandsTest, ResetPutsSelectionsBackAndRefreshes) {
  RunWithData([&] {
    workspace().Levels.LevelSelection.LevelChoice = Selection::Include;
    workspace().Levels.LevelSelection.Position = PositionChoice::First;
    ViewState& levels = ViewOf(workspace(), ViewKind::Level);
    scripted::WindowOf(levels.Window).Invalidated.clear();
    Choose(command::kResetFilters);
    EXPECT_EQ(workspace().Levels.LevelSelection.LevelChoice, Selection::SelectAll);
    EXPECT_EQ(workspace().Levels.LevelSelection.Position, PositionChoice::AllButFirstAndLast);
    EXPECT_FALSE(scripted::WindowOf(levels.Window).Invalidated.empty());
    EXPECT_TRUE(
        scripted::WindowOf(ViewOf(workspace(), ViewKind::Event).Window).Invalidated.size() <= 1)
        << "events do not depend on selections";
    EXPECT_FALSE(levels.NeedsRebuild);
  });
}

TEST_F(CommandsTest, ACommandThatTheMenuGreysDoesNotRun) {
  Run([&] {
    Choose(command::kEventView);
    Choose(command::kClose);
    Choose(command::kAdd);
    EXPECT_THAT(shell().Children, IsEmpty());
    EXPECT_THAT(shell().FileDialogs, IsEmpty());
  });
  RunWithData([&] {
    const auto asked = shell().FileDialogs.size();
    Choose(command::kOpen);
    EXPECT_EQ(shell().FileDialogs.size(), asked);
  });
}

/// The manual fits, an autoscale and a colour. Keys reach the commands of a view's menu although no
/// such menu stands in the bar.
constexpr CommandId kViewMenuCommands[] = {53254, 53511, 53249, 26369};

class ViewMenuCommandsTest : public CommandsTest {
 protected:
  void ExpectNothingFromViewMenus() {
    workspace().Amplitude.Minimum = 1000.0;
    shell().ColorLabels.clear();
    shell().Boxes.clear();
    const auto before = shell().Windows;
    for (const CommandId id : kViewMenuCommands) {
      ASSERT_TRUE(HasHandler(id));
      Choose(id);
      EXPECT_EQ(shell().Windows, before) << id;
      EXPECT_THAT(shell().ColorLabels, IsEmpty()) << id;
      EXPECT_THAT(shell().Children, IsEmpty()) << id;
    }
    EXPECT_EQ(workspace().Amplitude.Minimum, 1000.0);
    EXPECT_THAT(Messages(), IsEmpty());
  }
};

TEST_F(ViewMenuCommandsTest, TheyDoNothingWhileNoViewIsActive) {
  RunWithData([&] {
    while (!shell().Children.empty()) {
      ChildWindow* child = &shell().Children.front()->Record;
      child->Callbacks->Close(child);
    }
    ASSERT_EQ(CurrentMenuState(workspace()), MenuState::Data);
    ExpectNothingFromViewMenus();
  });
}

TEST_F(ViewMenuCommandsTest, TheyDoNothingWithoutData) {
  Run([&] {
    ASSERT_EQ(CurrentMenuState(workspace()), MenuState::NoData);
    ExpectNothingFromViewMenus();
  });
}

TEST_F(ViewMenuCommandsTest, TheyActOnceAViewIsActive) {
  RunWithData([&] {
    workspace().Amplitude.Minimum = 1000.0;
    for (const CommandId id : kViewMenuCommands) Choose(id);
    EXPECT_NE(workspace().Amplitude.Minimum, 1000.0);
    EXPECT_EQ(shell().ColorLabels.size(), std::size_t{1});
    EXPECT_EQ(shell().Children.size(), std::size_t{4}) << "events, levels, and both fits";
  });
}

TEST_F(CommandsTest, WhileAPageIsPrintedNoCommandIsTakenAndTheFrameStays) {
  Run([&] {
    workspace().Printing = true;
    Choose(command::kAboutKey);
    Choose(command::kExit);
    Frame()->Callbacks->Closing(Frame());
    EXPECT_TRUE(Messages().size() <= 1) << "the welcome alone";
    EXPECT_FALSE(shell().Quit);
    workspace().Printing = false;
    const std::size_t before = Messages().size();
    Choose(command::kAboutKey);
    EXPECT_EQ(Messages().size(), before + 1);
  });
}

TEST_F(CommandsTest, EveryCommandOfTheProgramStandsInAMenuOrBehindAKey) {
  constexpr CommandId kBehindKeys[] = {command::kAboutKey, command::kCopy};
  for (int id = 0; id <= 0xFFFF; ++id) {
    const auto command = static_cast<CommandId>(id);
    if (!HasHandler(command) || std::ranges::count(kBehindKeys, command) > 0) continue;
    bool inMenu = false;
    for (const int resource : {200, 206, 207, 208, 209, 210, 211, 212, 213, 214, 215}) {
      for (const MenuRow& row : RowsOfMenu(resource)) inMenu |= row.Id == id;
    }
    EXPECT_TRUE(inMenu) << id;
  }
}

}  // namespace
}  // namespace ondrel
