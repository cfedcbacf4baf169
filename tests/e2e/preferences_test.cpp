// What the program remembers from one run to the next.
#include <gmock/gmock.h>

#include <filesystem>

#include "dialog_sheets.h"
#include "preferences_fixture.h"

namespace ondrel::e2e {
namespace {

using ::testing::SizeIs;

class Preferences : public PreferencesTest {};

// --- From one run to the next --------------------------------------------------------------------

TEST_F(Preferences, TheEndOfAFirstRunLeavesTheFileBehind) {
  StartAfresh();
  ASSERT_FALSE(std::filesystem::exists(PreferencePath()));
  EXPECT_EQ(program_->Exit(), 0);
  const std::vector<std::string> lines = LinesOf(ContentOf(PreferencePath()));
  ASSERT_THAT(lines, SizeIs(kPreferenceLines));
  EXPECT_EQ(lines[0], "8");
  EXPECT_EQ(lines[1], "0");
  EXPECT_EQ(lines[2], "10");
  EXPECT_EQ(lines[3], "2.500E-01");
  EXPECT_EQ(lines[13], "8000");
}

TEST_F(Preferences, ALaterStartSaysNoWelcome) {
  StartAfresh();
  ExitAndStartAgain();
  const Dialog dialog = program_->WaitForDialog("File Settings");
  EXPECT_THAT(program_->Dialogs(), SizeIs(1)) << program_->Describe();
  dialog.Leave(settings::kOk);
  ExpectNoData(*program_);
}

TEST_F(Preferences, WhatWasEnteredInEveryDialogIsThereAtTheNextStart) {
  StartAfresh();
  const std::vector<std::pair<int, std::string>> values{{settings::kEvents, "900"},
                                                        {settings::kSweeps, "90"},
                                                        {settings::kFontSize, "12"},
                                                        {settings::kPenSize, "0.75"}};
  Dialog dialog = OpenSettings();
  for (const auto& [field, text] : values) dialog.Type(field, text);
  dialog.Leave(settings::kOk);
  program_->ToForeground();
  OpenData();
  EnterEverything();

  ExitAndStartAgain();
  dialog = program_->WaitForDialog("File Settings");
  for (const auto& [field, text] : values) EXPECT_EQ(dialog.Text(field), text);
  program_->PassLaterStart();
  OpenData();
  ExpectEverythingEntered();
}

TEST_F(Preferences, RealsComeBackWithFourDigits) {
  const DialogSheet sheet = EverySheet().front();
  StartAfresh();
  OpenData();
  Dialog dialog = OpenSheet(*program_, sheet);
  dialog.Type(12, "123.456");
  dialog.Leave(kOkButton);
  program_->ToForeground();
  ExitAndStartAgain();
  program_->PassLaterStart();
  OpenData();
  EXPECT_EQ(OpenSheet(*program_, sheet).Text(12), "123.500");
}

TEST_F(Preferences, ColoursComeBackButThatOfTheEventViewsHeader) {
  constexpr int kHeaderColor = 25858;
  constexpr std::uint32_t kDarkRed = 0xC80000;
  constexpr std::uint32_t kDarkGreen = 0x008000;
  const RowGrid grid;
  StartAfresh();
  OpenData();
  program_->Command(command::kViewEvent);
  program_->WaitForTopView("Event");
  ChooseColor(*program_, command::kEventColor, "Event color:", kDarkRed);
  ChooseColor(*program_, kHeaderColor, "Header color:", kDarkGreen);
  (void)program_->WaitForPicture(program_->View("Event"), "both colours", [&](const Picture& now) {
    return grid.Header(now).Count(kDarkGreen) > 100 && now.Count(kDarkRed) > 100;
  });
  ExitAndStartAgain();
  program_->PassLaterStart();
  OpenData();
  program_->Command(command::kViewEvent);
  program_->WaitForTopView("Event");
  const Picture view =
      program_->WaitForPicture(program_->View("Event"), "dark red rows",
                               [](const Picture& now) { return now.Count(kDarkRed) > 100; });
  EXPECT_EQ(view.Count(kDarkGreen), 0);
  EXPECT_GT(grid.Header(view).Count(kBlue), 100);
  EXPECT_EQ(view.Count(kBlack), 0);
}

// --- Places --------------------------------------------------------------------------------------

struct PlacedView {
  const char* Title;
  int Command;
  Rect Place;
};

/// One of each kind of view.
constexpr PlacedView kPlacedViews[] = {
    {"Event", command::kViewEvent, {11, 23, 431, 323}},
    {"Level", command::kViewLevel, {57, 41, 517, 361}},
    {"Statistics", command::kViewStatistics, {103, 67, 503, 407}},
    {"Sweep", command::kViewSweep, {29, 131, 409, 431}},
    {"Amplitude Histogram", 52481, {71, 83, 471, 483}},
    {"Amplitude Scatter Plot", 52482, {13, 17, 413, 377}},
    {"Stationarity", 52488, {37, 59, 477, 459}},
};

TEST_F(Preferences, ViewsComeBackWhereTheyStood) {
  StartAfresh();
  program_->PlaceFrame({8, 8, 1000, 800});
  OpenData();
  for (const PlacedView& view : kPlacedViews) {
    program_->Command(view.Command);
    program_->WaitForTopView(view.Title);
    const Window window = program_->View(view.Title);
    window.MoveTo(view.Place);
    WaitFor("the view to take its place", [&] { return window.PlaceInParent() == view.Place; });
  }
  ExitAndStartAgain();
  program_->PassLaterStart();
  OpenData();
  for (const PlacedView& view : kPlacedViews) {
    program_->Command(view.Command);
    program_->WaitForTopView(view.Title);
    EXPECT_EQ(program_->View(view.Title).PlaceInParent(), view.Place) << view.Title;
  }
}

class FramePreferences : public PreferencesTest {
 protected:
  static constexpr Rect kPlace{67, 89, 891, 701};

  void StartWithPlacedFrame() {
    StartAfresh();
    program_->PlaceFrame(kPlace);
  }

  void GiveSystemCommand(WPARAM command) const { program_->Frame().Post(WM_SYSCOMMAND, command); }

  /// A window manager may move a new frame about for a moment.
  void ExpectPlace() const {
    EXPECT_TRUE(HoldsWithin(5000, [&] { return program_->Frame().Place() == kPlace; }))
        << program_->Describe();
    EXPECT_FALSE(program_->Frame().Maximized());
    EXPECT_FALSE(program_->Frame().Minimized());
  }
};

TEST_F(FramePreferences, TheFrameComesBackWhereItStood) {
  StartWithPlacedFrame();
  ExitAndStartAgain();
  program_->PassLaterStart();
  ExpectPlace();
}

TEST_F(FramePreferences, AMaximisedFrameComesBackMaximisedAndKnowsItsPlace) {
  StartWithPlacedFrame();
  GiveSystemCommand(SC_MAXIMIZE);
  WaitFor("the frame to be maximised",
          [&] { return program_->Frame().Maximized() && program_->Frame().Place().Left <= 0; });
  ExitAndStartAgain();
  program_->PassLaterStart();
  WaitFor("the frame to be maximised", [&] { return program_->Frame().Maximized(); });
  GiveSystemCommand(SC_RESTORE);
  WaitFor("the frame to be restored", [&] { return !program_->Frame().Maximized(); });
  ExpectPlace();
}

TEST_F(FramePreferences, AFrameThatEndedMinimisedComesBackAtItsPlace) {
  StartWithPlacedFrame();
  GiveSystemCommand(SC_MINIMIZE);
  WaitFor("the frame to be minimised", [&] { return program_->Frame().Minimized(); });
  ExitAndStartAgain();
  program_->PassLaterStart();
  ExpectPlace();
}

// --- The start -----------------------------------------------------------------------------------

TEST_F(Preferences, WithoutTheStartupDialogTheFileDialogComesFirst) {
  StartAfresh();
  const Dialog dialog = OpenSettings();
  dialog.Press(settings::kSkip);
  WaitFor("the check box to turn", [&] { return dialog.IsChecked(settings::kSkip); });
  dialog.Leave(settings::kOk);
  program_->ToForeground();
  ExitAndStartAgain();
  const Dialog files = program_->WaitForDialog("Data file:");
  EXPECT_TRUE(program_->Frame().Visible());
  EXPECT_THAT(program_->Dialogs(), SizeIs(1)) << program_->Describe();
  files.Leave(kCancelButton);
  ExpectNoData(*program_);
  StartAgain();
  ChooseFile(program_->WaitForDialog("Data file:"), File("first.evt", VersionFive(1, 12)));
  program_->WaitForViews({"Level", "Event"});
}

}  // namespace
}  // namespace ondrel::e2e
