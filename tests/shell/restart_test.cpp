// What one run of the program leaves for the next: two runs in the same folder of a user.
#include <gmock/gmock.h>

#include "preferences_fixture.h"
#include "shell/preferences.h"
#include "support/program_test.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class RestartTest : public ProgramTest {
 protected:
  RestartTest() { shell().UserFolder = folder_.Path(); }

  const ScratchFolder& folder() const { return folder_; }

  /// The program ends and starts anew, on a shell that knows nothing of the run before.
  void StartAgain(const std::function<void()>& act) {
    scripted::ResetShell();
    shell().UserFolder = folder_.Path();
    Run(act);
  }

  void MoveFrame(const IntRect& place, WindowPlacement state) {
    shell().FrameHolder->Place = place;
    Frame()->Callbacks->Moved(Frame(), WindowPlacement::Normal);
    Frame()->Callbacks->Sized(Frame(), WindowPlacement::Normal);
    shell().FrameHolder->State = state;
    Frame()->Callbacks->Sized(Frame(), state);
  }

 private:
  ScratchFolder folder_;
};

constexpr IntRect kFramePlace{100, 50, 700, 450};

TEST_F(RestartTest, TheFirstRunWelcomesAndTheSecondDoesNot) {
  Run([] {});
  EXPECT_THAT(Messages(), ElementsAre(kWelcome));
  EXPECT_TRUE(folder().HasOwnFile());
  StartAgain([] {});
  EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(RestartTest, SettingsColoursAndPlacesAreThereAgain) {
  const ScratchFile recording("restart.evt", kTwoOpenings);
  const IntRect place{10, 20, 410, 320};
  const RgbColor color{257, 514, 65535};
  Run([&] {
    OpenFile(recording.Path());
    Choose(command::kAmplitudeView);
    scripted::PlaceChild(ViewOf(workspace(), ViewKind::Amplitude).Window, place);
    ASSERT_EQ(ViewOf(workspace(), ViewKind::Amplitude).ViewRect, place);
    shell().ColorChoices.push_back(color);
    Choose(26369);  // of the histogram
    workspace().FontSize = 14;
    workspace().Levels.LevelSelection.DurationHigh = 0.25;
    workspace().Duration.MinimumExponent = -4;
  });
  StartAgain([&] {
    EXPECT_EQ(workspace().FontSize, 14);
    EXPECT_EQ(workspace().Levels.LevelSelection.DurationHigh, 0.25);
    EXPECT_EQ(workspace().Duration.MinimumExponent, -4);
    EXPECT_EQ(workspace().Duration.Terms[0].TimeConstant, 0.001);
    OpenFile(recording.Path());
    Choose(command::kAmplitudeView);
    const ViewState& view = ViewOf(workspace(), ViewKind::Amplitude);
    EXPECT_EQ(scripted::WindowOf(view.Window).Place, place);
    EXPECT_EQ(ColorOf(view, HistogramColor::Histogram), color);
  });
}

TEST_F(RestartTest, ANormalFrameIsBackAtItsPlace) {
  Run([&] { MoveFrame(kFramePlace, WindowPlacement::Normal); });
  StartAgain([&] {
    EXPECT_TRUE(shell().FrameHolder->Shown);
    EXPECT_EQ(shell().FrameHolder->Place, kFramePlace);
    EXPECT_EQ(shell().FrameHolder->State, WindowPlacement::Normal);
  });
}

TEST_F(RestartTest, AMaximisedFrameIsBackMaximisedOverItsPlace) {
  Run([&] { MoveFrame(kFramePlace, WindowPlacement::Maximized); });
  for (int start = 0; start < 2; ++start) {  // what a start reads it leaves for the next
    StartAgain([&] {
      EXPECT_EQ(shell().FrameHolder->State, WindowPlacement::Maximized);
      EXPECT_EQ(workspace().FrameShow, WindowPlacement::Maximized);
      EXPECT_EQ(workspace().FrameRect, kFramePlace);
    });
  }
}

TEST_F(RestartTest, AMinimisedFrameIsBackAtItsNormalPlace) {
  Run([&] { MoveFrame(kFramePlace, WindowPlacement::Minimized); });
  StartAgain([&] {
    EXPECT_EQ(shell().FrameHolder->State, WindowPlacement::Normal);
    EXPECT_EQ(shell().FrameHolder->Place, kFramePlace);
  });
}

TEST_F(RestartTest, WithAnEmptyPlaceInTheFileThePlatformsIsTaken) {
  folder().WriteOwnFile(DefaultPreferenceBytes());
  Run([&] {
    EXPECT_TRUE(shell().FrameHolder->Shown);
    EXPECT_EQ(workspace().FrameRect, shell().FrameHolder->Place);
    EXPECT_FALSE(IsDegenerate(workspace().FrameRect));
  });
}

TEST_F(RestartTest, TheFrameIsMadeBeforeItsPlaceIsRead) {
  folder().WriteOwnFile(PreferencesWith(3, "33"));
  shell().CreateFrame.Next = 1;
  Run([] {});
  EXPECT_EQ(shell().Open.Calls, 0);
}

TEST_F(RestartTest, ASkippedStartupDialogIsSkippedInTheNextRun) {
  Run([&] { workspace().SkipStartupDialog = true; });
  StartAgain([&] {
    EXPECT_THAT(shell().Dialogs, IsEmpty());
    ASSERT_EQ(shell().FileDialogs.size(), 1u);
    EXPECT_EQ(shell().FileDialogs[0].Title, "Data file:");
    EXPECT_EQ(workspace().Events.Index, nullptr) << "cancelling leaves no data";
    EXPECT_FALSE(shell().Menu.Popups[2]);
  });
}

TEST_F(RestartTest, WhatIsNotInTheFileIsBackAtItsDefault) {
  const RgbColor color{1, 2, 3};
  Run([&] {
    workspace().LimitToWindow = false;
    workspace().ExportRect = {1, 2, 3, 4};
    workspace().Amplitude.TermCount = 4;
    ViewOf(workspace(), ViewKind::Event).Colors[static_cast<std::size_t>(EventColor::Header)] =
        color;
    ViewOf(workspace(), ViewKind::Level).Colors[static_cast<std::size_t>(LevelColor::Header)] =
        color;
    ViewOf(workspace(), ViewKind::AmplitudeFit).Colors[0] = color;
    ViewOf(workspace(), ViewKind::DurationFit).Colors[0] = color;
  });
  StartAgain([&] {
    EXPECT_TRUE(workspace().LimitToWindow);
    EXPECT_EQ(workspace().ExportRect, IntRect{});
    EXPECT_EQ(workspace().Amplitude.TermCount, 1);
    EXPECT_EQ(ColorOf(ViewOf(workspace(), ViewKind::Event), EventColor::Header), kBlue);
    EXPECT_EQ(ColorOf(ViewOf(workspace(), ViewKind::Level), LevelColor::Header), kBlue);
    EXPECT_EQ(ColorOf(ViewOf(workspace(), ViewKind::AmplitudeFit), FitColor::Background), kWhite);
    EXPECT_EQ(ColorOf(ViewOf(workspace(), ViewKind::DurationFit), FitColor::Background), kWhite);
  });
}

TEST_F(RestartTest, ExitSavesWhileTheViewsAndTheDataAreStillThere) {
  const ScratchFile recording("exit.evt", kTwoOpenings);
  std::size_t viewsAtSave = 0;
  bool closingAtSave = false;
  Run([&] {
    OpenFile(recording.Path());
    shell().Write.Next = 1;
    shell().WhileBoxStands = [&](FrameWindow* frame) {
      viewsAtSave = shell().Children.size();
      closingAtSave = frame->Owner->Closing;
    };
    Choose(command::kExit);
  });
  EXPECT_EQ(viewsAtSave, 2u);
  EXPECT_TRUE(closingAtSave);
  EXPECT_TRUE(shell().Quit) << "a failure does not keep the user in";
  EXPECT_EQ(Messages().back(), kWriteFailure);
}

TEST_F(RestartTest, PreferencesAreLoadedOnlyWithoutDataAndSavedAlways) {
  const ScratchFile recording("menu.evt", kTwoOpenings);
  const ScratchFile preferences("menu.set", PreferencesWith(3, "33"));
  Run([&] {
    shell().FileChoices.push_back(preferences.Path());
    Choose(command::kLoadPreferences);
    EXPECT_EQ(workspace().FontSize, 33);
    OpenFile(recording.Path());
    workspace().FontSize = 44;
    Choose(command::kLoadPreferences);
    EXPECT_EQ(workspace().FontSize, 44) << "greyed while data is loaded";
    shell().FileChoices.push_back(preferences.Path());
    Choose(command::kSavePreferences);
    EXPECT_NE(BytesOf(preferences.Path()).find("8\r\n0\r\n44\r\n"), std::string::npos);
  });
}

}  // namespace
}  // namespace ondrel
