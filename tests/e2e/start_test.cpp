// The first start: the welcome, the "File Settings" dialog, and its three ways out; and the ends.
#include <gmock/gmock.h>

#include "fixtures.h"

namespace ondrel::e2e {
namespace {

constexpr const char* kWelcome = "Welcome to Ondrel for Windows X4.3.3!";

using ::testing::ElementsAre;

class Start : public EndToEnd {};

TEST_F(Start, TheFirstStartWelcomesTheUserInABoxWithNoCaption) {
  Program program;
  const Box welcome = program.WaitForBox(kWelcome);
  EXPECT_EQ(welcome.Caption(), "");
  EXPECT_EQ(welcome.Icon(), BoxIcon::Information);
  EXPECT_THAT(welcome.Buttons(), ElementsAre(kOkButton));
}

TEST_F(Start, TheSettingsDialogFollowsWithTheDefaults) {
  Program program;
  program.WaitForBox(kWelcome).Answer(kOkButton);
  const Dialog dialog = program.WaitForDialog("File Settings");
  EXPECT_EQ(dialog.Text(settings::kEvents), "8000");
  EXPECT_EQ(dialog.Text(settings::kSweeps), "1000");
  EXPECT_EQ(dialog.Text(settings::kFontSize), "10");
  EXPECT_EQ(dialog.Text(settings::kPenSize), "0.25");
  EXPECT_FALSE(dialog.IsChecked(settings::kSkip));
  EXPECT_EQ(dialog.Text(settings::kSkip), "&Do not show this dialog on startup");
  EXPECT_EQ(dialog.Text(settings::kOpen), "O&pen...");
  EXPECT_EQ(dialog.Text(settings::kOk), "&OK");
  EXPECT_EQ(dialog.Text(settings::kCancel), "&Cancel");
}

TEST_F(Start, TheFrameStandsBehindTheDialogAtAPlaceWithSize) {
  Program program;
  program.WaitForBox(kWelcome).Answer(kOkButton);
  (void)program.WaitForDialog("File Settings");
  EXPECT_TRUE(program.Frame().Visible());
  EXPECT_FALSE(program.Frame().Enabled());
  EXPECT_EQ(program.Frame().Title(), "Ondrel");
  EXPECT_GT(program.Frame().Place().Width(), 200);
  EXPECT_GT(program.Frame().Place().Height(), 200);
}

TEST_F(Start, OkLeavesTheStateWithoutData) {
  Program program;
  program.PassStart();
  ExpectNoData(program);
  EXPECT_TRUE(program.Dialogs().empty()) << program.Describe();
}

TEST_F(Start, CancelLeavesTheStateWithoutData) {
  Program program;
  program.WaitForBox(kWelcome).Answer(kOkButton);
  program.WaitForDialog("File Settings").Leave(settings::kCancel);
  ExpectNoData(program);
}

TEST_F(Start, OpenLeadsToTheFileDialogAndCancellingThatToNoData) {
  Program program;
  program.WaitForBox(kWelcome).Answer(kOkButton);
  program.WaitForDialog("File Settings").Leave(settings::kOpen);
  program.WaitForDialog("Data file:").Leave(kCancelButton);
  ExpectNoData(program);
}

TEST_F(Start, OpenInTheSettingsDialogOpensAFile) {
  Program program;
  program.WaitForBox(kWelcome).Answer(kOkButton);
  program.WaitForDialog("File Settings").Leave(settings::kOpen);
  ChooseFile(program.WaitForDialog("Data file:"), File("first.evt", BareList(1, 12)));
  program.WaitForViews({"Level", "Event"});
}

TEST_F(Start, ExitEndsTheProcessWithCodeZero) {
  Program program;
  program.PassStart();
  EXPECT_EQ(program.Exit(), 0);
}

TEST_F(Start, ExitWithDataAndFourViewsEndsTheProcessWithCodeZero) {
  Program program;
  program.PassStart();
  OpenTable(program, VersionFive(3, 20));
  program.Command(command::kViewSweep);
  program.WaitForTopView("Sweep");
  program.Command(command::kViewStatistics);
  program.WaitForTopView("Statistics");
  EXPECT_EQ(program.Exit(), 0);
}

TEST_F(Start, TheCloseBoxOfTheFrameEndsTheProcessWithCodeZero) {
  Program program;
  program.PassStart();
  OpenTable(program, BareList(1, 12));
  // The frame's border may belong to a window manager, which turns its close box into this.
  program.Frame().Post(WM_SYSCOMMAND, SC_CLOSE);
  EXPECT_EQ(program.WaitForEnd(), 0);
}

TEST_F(Start, AltF4InAViewEndsTheProcessWithCodeZero) {
  Program program;
  program.PassStart();
  OpenTable(program, BareList(1, 12));
  program.ToForeground();
  PressKey(VK_F4, {VK_MENU});
  EXPECT_EQ(program.WaitForEnd(), 0);
}

TEST_F(Start, ExitIsReachedByTheKeysOfTheMenu) {
  Program program;
  program.PassStart();
  program.Key('F', {VK_MENU});
  PressKey('X');
  EXPECT_EQ(program.WaitForEnd(), 0);
}

}  // namespace
}  // namespace ondrel::e2e
