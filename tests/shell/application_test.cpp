#include "shell/application.h"

#include <gmock/gmock.h>

#include "support/program_test.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ApplicationTest = ProgramTest;

constexpr int kFileSettings = 122;

TEST_F(ApplicationTest, AFirstRunWelcomesTheUser) {
  const auto expectWelcome = [&] {
    ASSERT_THAT(Messages(), ElementsAre("Welcome to Ondrel for Windows X4.3.3!"));
    EXPECT_EQ(shell().Boxes[0].Icon, toolkit::BoxIcon::Information);
    EXPECT_EQ(shell().Boxes[0].Buttons, toolkit::BoxButtons::Ok);
  };
  EXPECT_EQ(Run(expectWelcome), 0);
}

TEST_F(ApplicationTest, WithoutAFolderForProgramsTheEndTellsThatNothingIsSaved) {
  EXPECT_EQ(Run([] {}), 0);
  EXPECT_EQ(Messages().back(), "Ondrel could not save the preferences. Error code 3.");
}

TEST_F(ApplicationTest, TheStartupDialogIsShownBeforeTheMessageLoop) {
  std::vector<int> shownAtLoop;
  Run([&] { shownAtLoop = shell().Dialogs; });
  EXPECT_THAT(shownAtLoop, ElementsAre(kFileSettings));
}

TEST_F(ApplicationTest, TheWelcomeComesBeforeTheFrameAndTheDialogAfterIt) {
  bool shownAtDialog = false;
  std::size_t boxesAtDialog = 0;
  int menuAtDialog = 0;
  shell().DialogScripts.push_back([&](scripted::OpenDialog&) {
    shownAtDialog = shell().FrameHolder->Shown;
    boxesAtDialog = shell().Boxes.size();
    menuAtDialog = shell().Menu.Resource;
  });
  Run([] {});
  EXPECT_TRUE(shownAtDialog);
  EXPECT_EQ(boxesAtDialog, 1u);
  EXPECT_EQ(menuAtDialog, 200);
}

TEST_F(ApplicationTest, LeavingTheStartupDialogByOkOpensNothing) {
  shell().DialogScripts.push_back([](scripted::OpenDialog& dialog) { dialog.Press(2); });
  Run([&] { EXPECT_THAT(shell().FileDialogs, IsEmpty()); });
}

TEST_F(ApplicationTest, LeavingTheStartupDialogByOpenAsksForTheDataFile) {
  shell().DialogScripts.push_back([](scripted::OpenDialog& dialog) { dialog.Press(1); });
  Run([&] {
    ASSERT_EQ(shell().FileDialogs.size(), 1u);
    EXPECT_EQ(shell().FileDialogs[0].Title, "Data file:");
    EXPECT_EQ(workspace().Events.Index, nullptr) << "cancelling leaves the no-data state";
    EXPECT_FALSE(shell().Menu.Popups[2]);
  });
}

TEST_F(ApplicationTest, TheFrameIsTitledAndShownWithTheNoDataMenu) {
  Run([&] {
    EXPECT_EQ(shell().FrameHolder->Title, "Ondrel");
    EXPECT_TRUE(shell().FrameHolder->Shown);
    EXPECT_EQ(shell().Menu.Resource, 200);
    EXPECT_EQ(shell().Menu.InsertedResource, 0);
  });
}

TEST_F(ApplicationTest, WithoutARememberedPlaceThePlatformsPlaceIsTaken) {
  Run([&] { EXPECT_EQ(workspace().FrameRect, shell().FrameHolder->Place); });
}

/// Settings that were remembered are in place by the time of the welcome, before the frame is
/// shown.
class RememberedSettingsTest : public ProgramTest {
 protected:
  void RunWith(const std::function<void(Workspace&)>& remember, const std::function<void()>& act) {
    bool remembered = false;
    shell().WhileBoxStands = [&](FrameWindow* frame) {
      if (!remembered) remember(*frame->Owner);
      remembered = true;
    };
    Run(act);
  }
};

TEST_F(RememberedSettingsTest, WithTheStartupDialogSkippedTheDataFileIsAskedForAtOnce) {
  RunWith([](Workspace& workspace) { workspace.SkipStartupDialog = true; },
          [&] {
            EXPECT_THAT(shell().Dialogs, IsEmpty());
            ASSERT_EQ(shell().FileDialogs.size(), 1u);
            EXPECT_EQ(shell().FileDialogs[0].Title, "Data file:");
            EXPECT_EQ(workspace().Events.Index, nullptr) << "cancelling leaves no data";
            EXPECT_FALSE(shell().Menu.Popups[2]);
          });
}

TEST_F(RememberedSettingsTest, AnEmptyPlaceLeavesThePlatformsAndTakesItOver) {
  RunWith([](Workspace& workspace) { workspace.FrameRect = {}; },
          [&] {
            EXPECT_EQ(shell().FrameHolder->Place, (IntRect{22, 22, 822, 622}));
            EXPECT_EQ(workspace().FrameRect, (IntRect{22, 22, 822, 622}));
          });
}

TEST_F(RememberedSettingsTest, TheFrameIsShownAtItsPlace) {
  const IntRect place{100, 50, 700, 450};
  RunWith([&](Workspace& workspace) { workspace.FrameRect = place; },
          [&] {
            EXPECT_TRUE(shell().FrameHolder->Shown);
            EXPECT_EQ(shell().FrameHolder->Place, place);
            EXPECT_EQ(shell().FrameHolder->State, WindowPlacement::Normal);
          });
}

TEST_F(RememberedSettingsTest, AFrameThatWasMaximisedIsShownAtItsPlaceAndThenMaximised) {
  const IntRect place{100, 50, 700, 450};
  RunWith(
      [&](Workspace& workspace) {
        workspace.FrameRect = place;
        workspace.FrameShow = WindowPlacement::Maximized;
      },
      [&] {
        EXPECT_EQ(shell().FrameHolder->State, WindowPlacement::Maximized);
        EXPECT_EQ(workspace().FrameShow, WindowPlacement::Maximized);
        EXPECT_EQ(workspace().FrameRect, place) << "where it is restored to";
      });
}

TEST_F(RememberedSettingsTest, AFrameThatWasMinimisedComesBackAtItsNormalPlace) {
  const IntRect place{100, 50, 700, 450};
  RunWith(
      [&](Workspace& workspace) {
        workspace.FrameRect = place;
        workspace.FrameShow = WindowPlacement::Minimized;
      },
      [&] {
        EXPECT_EQ(shell().FrameHolder->State, WindowPlacement::Normal);
        EXPECT_EQ(shell().FrameHolder->Place, place);
      });
}

TEST_F(ApplicationTest, OnlyANormalFrameIsRemembered) {
  Run([&] {
    const IntRect normal{10, 20, 510, 420};
    shell().FrameHolder->Place = normal;
    Frame()->Callbacks->Moved(Frame(), WindowPlacement::Normal);
    EXPECT_EQ(workspace().FrameRect, normal);
    shell().FrameHolder->Place = {0, 0, 1280, 1024};
    Frame()->Callbacks->Moved(Frame(), WindowPlacement::Maximized);
    Frame()->Callbacks->Sized(Frame(), WindowPlacement::Maximized);
    EXPECT_EQ(workspace().FrameRect, normal);
    EXPECT_EQ(workspace().FrameShow, WindowPlacement::Maximized);
    Frame()->Callbacks->Sized(Frame(), WindowPlacement::Minimized);
    EXPECT_EQ(workspace().FrameShow, WindowPlacement::Minimized);
    EXPECT_EQ(workspace().FrameRect, normal);
  });
}

TEST_F(ApplicationTest, KeysAndMessagesGoOnToThePlatform) {
  Run([&] {
    const FrameCallbacks& slots = *Frame()->Callbacks;
    EXPECT_EQ(slots.KeyDown(Frame(), 0x70), 0);
    EXPECT_EQ(slots.FilterMessage(Frame(), nullptr), 0) << "messages go on to the platform";
    EXPECT_EQ(slots.Char, nullptr);
  });
}

TEST_F(ApplicationTest, TheCloseBoxEndsTheProgram) {
  EXPECT_EQ(Run([&] { Frame()->Callbacks->Closing(Frame()); }), 0);
  EXPECT_TRUE(shell().Quit);
}

TEST_F(ApplicationTest, ExitWithDataClosesTheViewsAndFreesEverything) {
  const ScratchFile file("exit.evt", kTwoOpenings);
  Run([&] {
    OpenFile(file.Path());
    ASSERT_EQ(shell().Children.size(), 2u);
    Choose(command::kExit);
    EXPECT_THAT(shell().Children, IsEmpty());
  });
  EXPECT_TRUE(shell().Quit);
}

TEST_F(ApplicationTest, WithoutMemoryTheRunEndsWithoutAMessage) {
  for (int failing = 1; failing <= 2; ++failing) {
    scripted::ResetShell();
    shell().Allocation.Next = failing;
    EXPECT_EQ(Run([] { ADD_FAILURE() << "no loop without memory"; }), -1);
    EXPECT_THAT(shell().Boxes, IsEmpty());
    EXPECT_EQ(shell().LiveAllocations, 0);
  }
}

TEST_F(ApplicationTest, WithoutAFrameTheRunEndsWithoutAMessage) {
  shell().CreateFrame.Next = 1;
  EXPECT_EQ(Run([] { ADD_FAILURE() << "no loop without a frame"; }), -1);
  EXPECT_THAT(shell().Boxes, IsEmpty());
}

}  // namespace
}  // namespace ondrel
