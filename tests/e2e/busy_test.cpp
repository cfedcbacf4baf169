// What reaches the program while a dialog stands, and a table much longer than the defaults.
#include <gmock/gmock.h>

#include "fixtures.h"

namespace ondrel::e2e {
namespace {

class Busy : public EndToEnd {
 protected:
  static Dialog OpenSettings(const Program& program) {
    program.Command(command::kSettings);
    return program.WaitForDialog("File Settings");
  }

  static std::string EventEntries(const Program& program) {
    const Dialog dialog = OpenSettings(program);
    const std::string entries = dialog.Text(settings::kEvents);
    dialog.Leave(settings::kCancel);
    return entries;
  }
};

TEST_F(Busy, EscapeCancelsTheSettings) {
  Program program;
  program.PassStart();
  const Dialog dialog = OpenSettings(program);
  dialog.Type(settings::kEvents, "123");
  program.Key(VK_ESCAPE);
  dialog.WaitUntilGone();
  program.ToForeground();
  EXPECT_EQ(EventEntries(program), "8000");
}

TEST_F(Busy, EscapeCancelsWhileAFieldIsBad) {
  Program program;
  program.PassStart();
  const Dialog dialog = OpenSettings(program);
  dialog.Type(settings::kEvents, "-");
  WaitFor("OK to be greyed", [&] { return !dialog.IsEnabled(settings::kOk); });
  program.Key(VK_ESCAPE);
  dialog.WaitUntilGone();
  EXPECT_TRUE(program.Running());
}

TEST_F(Busy, TheCloseBoxOfTheSettingsCancels) {
  Program program;
  program.PassStart();
  const Dialog dialog = OpenSettings(program);
  dialog.Type(settings::kEvents, "123");
  dialog.Frame().Post(WM_CLOSE);
  dialog.WaitUntilGone();
  program.ToForeground();
  EXPECT_EQ(EventEntries(program), "8000");
}

/// A system that shuts down, or a task manager, closes windows without asking whether a dialog
/// stands before them.
TEST_F(Busy, AFrameBehindADialogDoesNotClose) {
  Program program;
  program.PassStart();
  const Dialog dialog = OpenSettings(program);
  program.Frame().Post(WM_CLOSE);
  program.Frame().Post(WM_COMMAND, command::kOpen);
  program.Settle(program.Frame());
  EXPECT_TRUE(program.Frame().Exists());
  EXPECT_EQ(program.Dialogs().size(), 1u) << program.Describe();
  dialog.Leave(settings::kCancel);
  program.ToForeground();
  EXPECT_EQ(program.Exit(), 0);
}

TEST_F(Busy, AMillionEventsOpenWhenThereIsRoomForThem) {
  Program program;
  program.PassStart();
  const Dialog dialog = OpenSettings(program);
  dialog.Type(settings::kEvents, "1000001");  // a table that fits exactly is refused
  dialog.Leave(settings::kOk);
  program.ToForeground();
  OpenTable(program, VersionFive(1, 1000000));
  EXPECT_EQ(program.Scroll(program.View("Event")).Maximum, 999999);
  EXPECT_EQ(program.Scroll(program.View("Level")).Maximum, 1000000);
  program.Command(command::kViewEvent);
  program.WaitForTopView("Event");
  program.Key(VK_END);
  program.WaitForScroll(program.View("Event"), 999999);
  EXPECT_EQ(program.Exit(), 0);
}

}  // namespace
}  // namespace ondrel::e2e
