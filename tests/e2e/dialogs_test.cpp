// The dialogs of settings and exports, each opened from its menu: what stands in it, the keyboard
// in it, bad numbers, and whether it keeps what was entered. Pictures of them are kept when
// ONDREL_PICTURES names a folder.
#include <gmock/gmock.h>

#include <algorithm>

#include "dialog_sheets.h"
#include "fixtures.h"

namespace ondrel::e2e {
namespace {

using ::testing::ElementsAreArray;

/// Whether the first button becomes as it should be; the dialog may still be about to answer.
bool FirstButtonIs(const Dialog& dialog, bool enabled) {
  return HoldsWithin(3000, [&] { return dialog.IsEnabled(kOkButton) == enabled; });
}

class Dialogs : public EndToEnd {
 protected:
  void Start() {
    program_.PassStart();
    OpenTable(program_, VersionFive(2, 7));
  }

  void Keep(const Dialog& dialog, const std::string& name) const {
    const std::string folder = Environment("ONDREL_PICTURES");
    if (folder.empty()) return;
    // The client area stands at its last place once two pictures of it are alike.
    const Picture picture = program_.ClientPicture(dialog.Frame());
    SavePng(picture, NativePath(folder) + "\\dialog_" + name + ".png");
  }

  Program program_;
};

class EveryDialog : public Dialogs, public ::testing::WithParamInterface<DialogSheet> {
 protected:
  [[nodiscard]] Dialog OpenDialog() const { return OpenSheet(program_, GetParam()); }

  /// Ids of the controls that have the focus, from the one that has it first to the one that has
  /// it when Tab has come round.
  [[nodiscard]] std::vector<int> WalkByTab(const Dialog& dialog) const {
    program_.ToForeground();
    WaitFor("a control to have the focus", [&] { return dialog.Focused() != 0; });
    std::vector<int> visited{dialog.Focused()};
    const std::size_t most = GetParam().Rows.size() + 3;
    while (visited.size() < most) {
      program_.Key(VK_TAB);
      if (dialog.Focused() == visited.front()) break;
      visited.push_back(dialog.Focused());
    }
    return visited;
  }
};

TEST_P(EveryDialog, ShowsItsControlsAsTheyAreAtTheStart) {
  Start();
  const Dialog dialog = OpenDialog();
  EXPECT_THAT(dialog.Lines(), ElementsAreArray(LinesAtStart(GetParam())));
  EXPECT_FALSE(program_.Frame().Enabled());
  EXPECT_TRUE(dialog.IsEnabled(kOkButton));
  EXPECT_TRUE(dialog.IsEnabled(kCancelButton));
  Keep(dialog, GetParam().Name);
}

TEST_P(EveryDialog, TabGoesFromTheTopDownAndComesRound) {
  Start();
  const Dialog dialog = OpenDialog();
  const std::vector<int> visited = WalkByTab(dialog);
  ASSERT_THAT(visited, ElementsAreArray(TabStops(GetParam())));
  for (std::size_t i = 1; i < visited.size(); ++i) {
    const Rect former = dialog.Frame().Control(visited[i - 1]).Place();
    const Rect place = dialog.Frame().Control(visited[i]).Place();
    const bool below = place.Top >= former.Bottom;
    const bool beside = place.Left >= former.Right && place.Bottom > former.Top;
    EXPECT_TRUE(below || beside) << visited[i] << " at " << ToText(place) << " comes after "
                                 << visited[i - 1] << " at " << ToText(former);
  }
}

TEST_P(EveryDialog, EscapeForgetsWhatWasEntered) {
  Start();
  const Dialog dialog = OpenDialog();
  EnterAll(dialog, GetParam());
  program_.Key(VK_ESCAPE);
  dialog.WaitUntilGone();
  EXPECT_THAT(OpenDialog().Lines(), ElementsAreArray(LinesAtStart(GetParam())));
}

TEST_P(EveryDialog, ReturnKeepsWhatWasEntered) {
  Start();
  const Dialog dialog = OpenDialog();
  EnterAll(dialog, GetParam());
  program_.Key(VK_RETURN);
  dialog.WaitUntilGone();
  CancelWhatFollows(program_, GetParam());
  EXPECT_THAT(OpenDialog().Lines(), ElementsAreArray(LinesLater(GetParam())));
}

std::string NameOf(const ::testing::TestParamInfo<DialogSheet>& info) {
  return info.param.Name;
}

INSTANTIATE_TEST_SUITE_P(All, EveryDialog, ::testing::ValuesIn(EverySheet()), NameOf);
INSTANTIATE_TEST_SUITE_P(Exports, EveryDialog, ::testing::ValuesIn(ExportSheets()), NameOf);

class EveryDialogWithNumbers : public EveryDialog {};

TEST_P(EveryDialogWithNumbers, ABadNumberGreysTheFirstButtonAloneUntilItIsMended) {
  Start();
  const Dialog dialog = OpenDialog();
  for (const SheetRow& row : GetParam().Rows) {
    for (const auto& [bad, good] : row.Edges) {
      SCOPED_TRACE(std::to_string(row.Id) + ": '" + bad + "', '" + good + "'");
      dialog.Type(row.Id, bad);
      EXPECT_TRUE(FirstButtonIs(dialog, false));
      EXPECT_TRUE(dialog.IsEnabled(kCancelButton));
      dialog.Type(row.Id, good);
      EXPECT_TRUE(FirstButtonIs(dialog, true));
    }
  }
}

std::vector<DialogSheet> WithNumbers(const std::vector<DialogSheet>& all) {
  std::vector<DialogSheet> sheets;
  for (const DialogSheet& sheet : all) {
    const bool any = std::any_of(sheet.Rows.begin(), sheet.Rows.end(),
                                 [](const SheetRow& row) { return !row.Edges.empty(); });
    if (any) sheets.push_back(sheet);
  }
  return sheets;
}

INSTANTIATE_TEST_SUITE_P(All, EveryDialogWithNumbers,
                         ::testing::ValuesIn(WithNumbers(EverySheet())), NameOf);
INSTANTIATE_TEST_SUITE_P(Exports, EveryDialogWithNumbers,
                         ::testing::ValuesIn(WithNumbers(ExportSheets())), NameOf);

// --- Single dialogs ------------------------------------------------------------------------------

const DialogSheet& Sheet(const std::string& name) {
  for (const DialogSheet& sheet : EverySheet()) {
    if (sheet.Name == name) return sheet;
  }
  Fail("there is no dialog " + name);
}

TEST_F(Dialogs, TwoBadFieldsHaveBothToBeMended) {
  Start();
  const Dialog dialog = OpenSheet(program_, Sheet("DurationScaling"));
  dialog.Type(7, "0");
  dialog.Type(19, "1");
  EXPECT_TRUE(FirstButtonIs(dialog, false));
  dialog.Type(7, "4");
  EXPECT_FALSE(dialog.IsEnabled(kOkButton));
  dialog.Type(19, "2");
  EXPECT_TRUE(FirstButtonIs(dialog, true));
}

TEST_F(Dialogs, ReturnIsDeadWhileANumberIsBad) {
  Start();
  const Dialog dialog = OpenSheet(program_, Sheet("DurationCorrection"));
  dialog.Type(4, "0");
  program_.Key(VK_RETURN);
  EXPECT_TRUE(dialog.Frame().Visible());
  dialog.Type(4, "100");
  program_.Key(VK_RETURN);
  dialog.WaitUntilGone();
}

TEST_F(Dialogs, CancelAndTheCloseBoxForgetWhatWasEntered) {
  Start();
  const DialogSheet& sheet = Sheet("AmplitudeScaling");
  Dialog dialog = OpenSheet(program_, sheet);
  EnterAll(dialog, sheet);
  dialog.Leave(kCancelButton);
  dialog = OpenSheet(program_, sheet);
  EXPECT_THAT(dialog.Lines(), ElementsAreArray(LinesAtStart(sheet)));
  EnterAll(dialog, sheet);
  dialog.Frame().Post(WM_SYSCOMMAND, SC_CLOSE);
  dialog.WaitUntilGone();
  EXPECT_THAT(OpenSheet(program_, sheet).Lines(), ElementsAreArray(LinesAtStart(sheet)));
}

TEST_F(Dialogs, RangesThatEndBelowTheirStartAreTurnedRound) {
  Start();
  Dialog dialog = OpenSheet(program_, Sheet("Level"));
  dialog.Type(13, "5");
  dialog.Type(14, "1");
  dialog.Type(9, "4");
  dialog.Type(10, "2.5");
  dialog.Leave(kOkButton);
  dialog = OpenSheet(program_, Sheet("Level"));
  EXPECT_EQ(dialog.Text(13), "1");
  EXPECT_EQ(dialog.Text(14), "5");
  EXPECT_EQ(dialog.Text(9), "2.500");
  EXPECT_EQ(dialog.Text(10), "4.000");
}

TEST_F(Dialogs, TheResetTakesChoicesBackAndLeavesNumbers) {
  Start();
  for (const char* name : {"Sweep", "Level", "Preceding", "Following"}) {
    const Dialog dialog = OpenSheet(program_, Sheet(name));
    EnterAll(dialog, Sheet(name));
    dialog.Leave(kOkButton);
  }
  program_.CommandDone(command::kReset);
  for (const char* name : {"Sweep", "Level", "Preceding", "Following"}) {
    SCOPED_TRACE(name);
    DialogSheet expected = Sheet(name);
    for (SheetRow& row : expected.Rows) {
      if (row.Sort == SheetRow::Kind::List) row.Later = row.Shown;
    }
    const Dialog dialog = OpenSheet(program_, Sheet(name));
    EXPECT_THAT(dialog.Lines(), ElementsAreArray(LinesLater(expected)));
    dialog.Leave(kCancelButton);
  }
}

/// A radio button that gets the focus takes it for a press: the first one must not.
TEST_F(Dialogs, AChosenRadioButtonStaysChosenWhenTheDialogIsOnlyLookedAt) {
  Start();
  const DialogSheet& sheet = Sheet("LevelTag");
  EnterAll(OpenSheet(program_, sheet), sheet);
  program_.Key(VK_RETURN);
  for (int time = 0; time < 2; ++time) {
    const Dialog dialog = OpenSheet(program_, sheet);
    EXPECT_THAT(dialog.Lines(), ElementsAreArray(LinesLater(sheet)));
    program_.Key(VK_RETURN);
    dialog.WaitUntilGone();
  }
}

TEST_F(Dialogs, ArrowsMoveAmongRadioButtons) {
  Start();
  const Dialog dialog = OpenSheet(program_, Sheet("AmplitudeScaling"));
  while (dialog.Focused() != 13) program_.Key(VK_TAB);
  program_.Key(VK_DOWN);
  EXPECT_TRUE(HoldsWithin(3000, [&] { return dialog.IsChecked(14) && !dialog.IsChecked(13); }));
  program_.Key(VK_UP);
  EXPECT_TRUE(HoldsWithin(3000, [&] { return dialog.IsChecked(13) && !dialog.IsChecked(14); }));
}

TEST_F(Dialogs, SpaceTurnsACheckBoxRoundOnce) {
  Start();
  const Dialog dialog = OpenSheet(program_, Sheet("ScatterStyle"));
  while (dialog.Focused() != 3) program_.Key(VK_TAB);
  const bool before = dialog.IsChecked(3);
  program_.Key(VK_SPACE);
  EXPECT_TRUE(HoldsWithin(3000, [&] { return dialog.IsChecked(3) != before; }));
  program_.Key(VK_SPACE);
  EXPECT_TRUE(HoldsWithin(3000, [&] { return dialog.IsChecked(3) == before; }));
}

}  // namespace
}  // namespace ondrel::e2e
