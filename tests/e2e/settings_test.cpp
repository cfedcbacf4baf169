// The dialog "File Settings": what bad input does to its buttons, and what its values lead to.
#include <gmock/gmock.h>

#include "fixtures.h"

namespace ondrel::e2e {
namespace {

class FileSettings : public EndToEnd {
 protected:
  [[nodiscard]] static Dialog OpenDialog(const Program& program) {
    program.Command(command::kSettings);
    return program.WaitForDialog("File Settings");
  }

  /// Sets the two capacities from the menu.
  static void SetCapacities(const Program& program, const std::string& events,
                            const std::string& sweeps) {
    const Dialog dialog = OpenDialog(program);
    dialog.Type(settings::kEvents, events);
    dialog.Type(settings::kSweeps, sweeps);
    dialog.Leave(settings::kOk);
    program.ToForeground();
  }

  static void ExpectButtons(const Dialog& dialog, bool enabled) {
    (void)HoldsWithin(3000, [&] { return dialog.IsEnabled(settings::kOpen) == enabled; });
    EXPECT_EQ(dialog.IsEnabled(settings::kOpen), enabled);
    EXPECT_EQ(dialog.IsEnabled(settings::kOk), enabled);
    EXPECT_TRUE(dialog.IsEnabled(settings::kCancel));
  }
};

TEST_F(FileSettings, ALoneMinusGreysTheButtonsUntilTheFieldIsMended) {
  Program program;
  program.PassStart();
  for (const int field :
       {settings::kEvents, settings::kSweeps, settings::kFontSize, settings::kPenSize}) {
    SCOPED_TRACE(field);
    const Dialog dialog = OpenDialog(program);
    ExpectButtons(dialog, true);
    dialog.Type(field, "-");
    ExpectButtons(dialog, false);
    dialog.Type(field, "12");
    ExpectButtons(dialog, true);
    dialog.Leave(settings::kCancel);
    program.ToForeground();
  }
}

TEST_F(FileSettings, TwoBadFieldsHaveBothToBeMended) {
  Program program;
  program.PassStart();
  const Dialog dialog = OpenDialog(program);
  dialog.Type(settings::kEvents, "-");
  dialog.Type(settings::kPenSize, "0");
  ExpectButtons(dialog, false);
  dialog.Type(settings::kEvents, "100");
  ExpectButtons(dialog, false);
  dialog.Type(settings::kPenSize, "0.5");
  ExpectButtons(dialog, true);
}

TEST_F(FileSettings, ValuesBelowOneAreBad) {
  Program program;
  program.PassStart();
  const Dialog dialog = OpenDialog(program);
  for (const int field : {settings::kEvents, settings::kSweeps, settings::kFontSize}) {
    SCOPED_TRACE(field);
    dialog.Type(field, "0");
    ExpectButtons(dialog, false);
    dialog.Type(field, "1");
    ExpectButtons(dialog, true);
  }
}

TEST_F(FileSettings, CancelForgetsAndOkKeeps) {
  Program program;
  program.PassStart();
  Dialog dialog = OpenDialog(program);
  dialog.Type(settings::kEvents, "123");
  dialog.Type(settings::kPenSize, "1.5");
  dialog.Leave(settings::kCancel);
  dialog = OpenDialog(program);
  EXPECT_EQ(dialog.Text(settings::kEvents), "8000");
  EXPECT_EQ(dialog.Text(settings::kPenSize), "0.25");
  dialog.Type(settings::kEvents, "123");
  dialog.Type(settings::kPenSize, "1.5");
  dialog.Leave(settings::kOk);
  dialog = OpenDialog(program);
  EXPECT_EQ(dialog.Text(settings::kEvents), "123");
  EXPECT_EQ(dialog.Text(settings::kPenSize), "1.50");
  dialog.Leave(settings::kCancel);
}

/// To Windows Escape is button 2, which stores here.
TEST_F(FileSettings, EscapeAndTheCloseBoxForget) {
  Program program;
  program.PassStart();
  Dialog dialog = OpenDialog(program);
  const std::string folder = Environment("ONDREL_PICTURES");
  if (!folder.empty()) {
    SavePng(program.ClientPicture(dialog.Frame()),
            NativePath(folder) + "\\dialog_file_settings.png");
  }
  for (const char* const entered : {"123", "x"}) {  // both ways while the buttons are greyed, too
    SCOPED_TRACE(entered);
    dialog.Type(settings::kEvents, entered);
    program.Key(VK_ESCAPE);
    dialog.WaitUntilGone();
    dialog = OpenDialog(program);
    EXPECT_EQ(dialog.Text(settings::kEvents), "8000");
    dialog.Type(settings::kEvents, entered);
    dialog.Frame().Post(WM_SYSCOMMAND, SC_CLOSE);
    dialog.WaitUntilGone();
    dialog = OpenDialog(program);
    EXPECT_EQ(dialog.Text(settings::kEvents), "8000");
  }
}

TEST_F(FileSettings, TheCheckBoxFollowsItsPresses) {
  Program program;
  program.PassStart();
  const Dialog dialog = OpenDialog(program);
  EXPECT_FALSE(dialog.IsChecked(settings::kSkip));
  for (const bool checked : {true, false, true}) {
    dialog.Press(settings::kSkip);
    WaitFor("the check box to turn", [&] { return dialog.IsChecked(settings::kSkip) == checked; });
  }
  dialog.Leave(settings::kOk);
  const Dialog again = OpenDialog(program);
  EXPECT_TRUE(again.IsChecked(settings::kSkip));
}

TEST_F(FileSettings, OpenStoresTheValuesAndLeadsToTheFileDialog) {
  Program program;
  program.PassStart();
  const Dialog dialog = OpenDialog(program);
  dialog.Type(settings::kEvents, "77");
  dialog.Leave(settings::kOpen);
  program.WaitForDialog("Data file:").Leave(kCancelButton);
  program.ToForeground();
  EXPECT_EQ(OpenDialog(program).Text(settings::kEvents), "77");
}

TEST_F(FileSettings, AFileWithMoreEventsThanEntriesFails) {
  Program program;
  program.PassStart();
  SetCapacities(program, "5", "1000");
  program.Open(File("six.evt", BareList(1, 6)));
  const Box box = program.WaitForBox(
      "Event table is full. File reading will be aborted. Select \"Settings\" in \"File\" menu. "
      "Change Event table entries.");
  EXPECT_EQ(box.Icon(), BoxIcon::Stop);
  EXPECT_EQ(box.Caption(), "");
  box.Answer(kOkButton);
  ExpectNoData(program);
}

TEST_F(FileSettings, ABareListThatFillsTheEventTableExactlyOpens) {
  Program program;
  program.PassStart();
  SetCapacities(program, "6", "2");
  OpenTable(program, BareList(1, 6));
  EXPECT_EQ(program.Scroll(program.View("Event")).Maximum, 5);
}

TEST_F(FileSettings, ABareListThatFillsTheSweepTableExactlyIsDropped) {
  Program program;
  program.PassStart();
  SetCapacities(program, "6", "1");
  program.Open(File("one.evt", BareList(1, 6)));
  program
      .WaitForBox(
          "Sweep table is full. File reading will be aborted. Select \"Settings\" in \"File\" "
          "menu. Change Sweep table entries.")
      .Answer(kOkButton);
  program.WaitForViews({"Level", "Event"});
  EXPECT_EQ(program.Scroll(program.View("Event")).Maximum, 0);
}

TEST_F(FileSettings, VersionFiveThatFillsTheTableExactlyFails) {
  Program program;
  program.PassStart();
  SetCapacities(program, "6", "10");
  program.Open(File("six.evt", VersionFive(1, 6)));
  program
      .WaitForBox(
          "Event table is full. File reading will be aborted. Select \"Settings\" in \"File\" "
          "menu. Change Event table entries.")
      .Answer(kOkButton);
  ExpectNoData(program);
}

TEST_F(FileSettings, AFileWithMoreSweepsThanEntriesFails) {
  Program program;
  program.PassStart();
  SetCapacities(program, "100", "2");
  program.Open(File("three.evt", VersionFive(3, 6)));
  program
      .WaitForBox(
          "Sweep table is full. File reading will be aborted. Select \"Settings\" in \"File\" "
          "menu. Change Sweep table entries.")
      .Answer(kOkButton);
  ExpectNoData(program);
}

TEST_F(FileSettings, ALargerFontMakesHigherRows) {
  Program program;
  program.PassStart();
  const Dialog dialog = OpenDialog(program);
  dialog.Type(settings::kFontSize, "20");
  dialog.Leave(settings::kOk);
  program.ToForeground();
  OpenTable(program, VersionFive(1, 3));
  program.Command(command::kViewEvent);
  program.WaitForTopView("Event");
  const Window view = program.View("Event");
  const Rect frame = program.Frame().ClientArea();
  view.MoveTo({0, 0, frame.Width(), frame.Height()});
  const RowGrid grid(20);
  ASSERT_GT(grid.LineHeight(), RowGrid(10).LineHeight() + 10);
  const Picture picture = program.WaitForPicture(view, "a blue header", [&](const Picture& now) {
    return grid.Header(now).Count(kBlue) > 100;
  });
  for (int row = 0; row < 3; ++row) EXPECT_GT(grid.Row(picture, row).Count(kBlack), 0) << row;
  const Picture below = grid.Below(picture, 2);
  EXPECT_EQ(below.Count(kWhite), static_cast<int>(below.Pixels.size()));
}

}  // namespace
}  // namespace ondrel::e2e
