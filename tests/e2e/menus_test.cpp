// The menu bar in its three states, the popup that follows the active view, accelerators, "About"
// and the colour items.
#include <gmock/gmock.h>

#include <algorithm>

#include "fitting_gestures.h"
#include "fixtures.h"
#include "menu_tables.h"
#include "plot_places.h"

namespace ondrel::e2e {
namespace {

/// The lines of the bar. What stands in a grey popup cannot be chosen anyway: its entries are taken
/// without their own states. A separator in front of "&Colors" is a matter of looks.
std::vector<std::string> SeenLines(const Program& program) {
  std::vector<MenuEntry> menu = program.Menu();
  for (MenuEntry& popup : menu) {
    std::vector<MenuEntry> kept;
    for (MenuEntry& entry : popup.Entries) {
      if (!popup.Enabled) entry.Enabled = true;
      if (entry.Text == "&Colors" && !kept.empty() && kept.back().Separator) kept.pop_back();
      kept.push_back(entry);
    }
    popup.Entries = kept;
  }
  return MenuLines(menu);
}

/// Waits until the bar is as it should be; a difference is told line by line.
void ExpectBar(const Program& program, const std::vector<std::string>& expected) {
  (void)HoldsWithin(3000, [&] { return SeenLines(program) == expected; });
  EXPECT_THAT(SeenLines(program), ::testing::ElementsAreArray(expected));
}

void ExpectBarOfView(const Program& program, const std::string& view, bool fitOpen = false) {
  ExpectBar(program, ExpectedBar(MenuState::ActiveView, ExpectedViewPopup(view, fitOpen)));
}

class Menus : public EndToEnd {};

TEST_F(Menus, TheBarWithoutDataOffersOpeningSettingsAndTheEnd) {
  Program program;
  program.PassStart();
  ExpectBar(program, ExpectedBar(MenuState::NoData));
}

TEST_F(Menus, TheBarFollowsTheActiveViewAtThePlaceBeforeHelp) {
  Program program;
  program.PassStart();
  OpenTable(program, VersionFive(2, 12));
  ExpectBarOfView(program, "Level");
  program.Command(command::kViewEvent);
  program.WaitForTopView("Event");
  ExpectBarOfView(program, "Event");
  program.Command(command::kViewSweep);
  program.WaitForTopView("Sweep");
  ExpectBarOfView(program, "Sweep");
  program.Command(command::kViewStatistics);
  program.WaitForTopView("Statistics");
  ExpectBarOfView(program, "Statistics");
}

TEST_F(Menus, AHistogramHasItsOwnPopupAndItsFitParametersHaveNone) {
  Program program;
  program.PassStart();
  OpenTable(program, VersionFive(2, 12));
  for (const Twin* twin : {&kAmplitudeTwin, &kDurationTwin}) {
    SCOPED_TRACE(twin->Name);
    program.Command(twin->View);
    program.WaitForTopView(twin->Histogram);
    ExpectBarOfView(program, twin->Histogram);
    program.Command(twin->ManualFit);
    program.WaitForTopView(twin->Fit);
    ExpectBarOfView(program, twin->Fit);
    program.Command(twin->View);
    program.WaitForTopView(twin->Histogram);
    ExpectBarOfView(program, twin->Histogram, true);
  }
  // Each waits for its own parameters.
  program.Command(kDurationTwin.ManualFit);
  program.WaitForTopView(kDurationTwin.Fit);
  program.Key(VK_F4, {VK_CONTROL});
  program.WaitForNoView(kDurationTwin.Fit);
  program.Command(kDurationTwin.View);
  program.WaitForTopView(kDurationTwin.Histogram);
  ExpectBarOfView(program, kDurationTwin.Histogram, false);
  program.Command(kAmplitudeTwin.View);
  program.WaitForTopView(kAmplitudeTwin.Histogram);
  ExpectBarOfView(program, kAmplitudeTwin.Histogram, true);
}

TEST_F(Menus, EachPlotHasItsOwnPopupWhileItIsActive) {
  Program program;
  program.PassStart();
  OpenTable(program, VersionFive(2, 12));
  for (const PlotKind* kind : kEveryPlot) {
    SCOPED_TRACE(kind->Name);
    program.Command(kind->View);
    program.WaitForTopView(kind->Title);
    ASSERT_FALSE(ExpectedViewPopup(kind->Title).empty());
    ExpectBarOfView(program, kind->Title);
    program.Key(VK_F4, {VK_CONTROL});
    program.WaitForNoView(kind->Title);
    ExpectBarOfView(program, program.ViewTitles().front());
  }
}

TEST_F(Menus, WithDataAndNoOpenViewTheBarHasNoViewPopupAndNoExport) {
  Program program;
  program.PassStart();
  OpenTable(program, VersionFive(2, 12));
  program.Key(VK_F4, {VK_CONTROL});
  program.WaitForViews({"Event"});
  ExpectBarOfView(program, "Event");
  program.Key(VK_F4, {VK_CONTROL});
  program.WaitForViews({});
  ExpectBar(program, ExpectedBar(MenuState::Data));
}

TEST_F(Menus, ABoxTakesTheViewPopupAwayWhileItStands) {
  Program program;
  program.PassStart();
  OpenTable(program, VersionFive(2, 12));
  ExpectBarOfView(program, "Level");
  program.Command(command::kAbout);
  WaitFor("the box", [&] { return !program.Dialogs().empty(); });
  ExpectBar(program, ExpectedBar(MenuState::Data));
  Box(program.Dialogs().front()).Answer(kOkButton);
  ExpectBarOfView(program, "Level");
}

TEST_F(Menus, ClosingTheDataBringsTheFirstStateBack) {
  Program program;
  program.PassStart();
  OpenTable(program, VersionFive(2, 12));
  program.Command(command::kClose);
  program.WaitForViews({});
  ExpectBar(program, ExpectedBar(MenuState::NoData));
}

TEST_F(Menus, AboutTellsNameAndVersionWithTheInformationIcon) {
  Program program;
  program.PassStart();
  program.Command(command::kAbout);
  WaitFor("the box", [&] { return !program.Dialogs().empty(); });
  const Box box(program.Dialogs().front());
  EXPECT_EQ(box.Caption(), "");
  EXPECT_EQ(box.Icon(), BoxIcon::Information);
  EXPECT_THAT(box.Text(), ::testing::HasSubstr("Ondrel"));
  EXPECT_THAT(box.Text(), ::testing::HasSubstr("X4.3.3"));
  box.Answer(kOkButton);
}

TEST_F(Menus, ControlOOpensAndControlWCloses) {
  Program program;
  program.PassStart();
  program.Key('O', {VK_CONTROL});
  ChooseFile(program.WaitForDialog("Data file:"), File("keys.evt", VersionFive(1, 12)));
  program.WaitForViews({"Level", "Event"});
  program.Key('W', {VK_CONTROL});
  ExpectNoData(program);
}

TEST_F(Menus, ControlWClosesAlsoWithNoViewOpen) {
  Program program;
  program.PassStart();
  OpenTable(program, VersionFive(1, 12));
  program.Key(VK_F4, {VK_CONTROL});
  program.WaitForViews({"Event"});
  program.Key(VK_F4, {VK_CONTROL});
  program.WaitForViews({});
  program.Key('W', {VK_CONTROL});
  ExpectNoData(program);
}

TEST_F(Menus, ControlOIsDeadWhileDataIsLoaded) {
  Program program;
  program.PassStart();
  OpenTable(program, VersionFive(1, 12));
  ExpectBarOfView(program, "Level");
  program.Key('O', {VK_CONTROL});
  EXPECT_TRUE(program.Dialogs().empty()) << program.Describe();
  EXPECT_THAT(program.ViewTitles(), ::testing::ElementsAre("Level", "Event"));
}

TEST_F(Menus, TheOtherControlKeysWithoutACommandDoNothing) {
  Program program;
  program.PassStart();
  OpenTable(program, VersionFive(1, 12));
  ExpectBarOfView(program, "Level");
  const Picture before = program.ClientPicture(program.View("Level"));
  for (const int key : {'S', 'V', 'X', 'Z'}) {
    program.Key(key, {VK_CONTROL});
    EXPECT_TRUE(program.Dialogs().empty()) << program.Describe();
  }
  EXPECT_THAT(program.ViewTitles(), ::testing::ElementsAre("Level", "Event"));
  ExpectBarOfView(program, "Level");
  EXPECT_EQ(program.ClientPicture(program.View("Level")), before);
}

TEST_F(Menus, AColourItemRepaintsItsViewInTheChosenColour) {
  constexpr int kRedField = 0x2C2;
  constexpr int kGreenField = 0x2C3;
  constexpr int kBlueField = 0x2C4;
  Program program;
  program.PassStart();
  OpenTable(program, VersionFive(1, 12));
  program.Command(command::kViewEvent);
  program.WaitForTopView("Event");
  program.Command(command::kEventColor);
  const Dialog dialog = program.WaitForDialog("Event color:");
  dialog.Type(kRedField, "200");
  dialog.Type(kGreenField, "0");
  dialog.Type(kBlueField, "0");
  dialog.Leave(kOkButton);
  const Picture view =
      program.WaitForPicture(program.View("Event"), "dark red rows",
                             [](const Picture& picture) { return picture.Count(0xC80000) > 100; });
  EXPECT_EQ(view.Count(kBlack), 0);
  EXPECT_GT(RowGrid().Header(view).Count(kBlue), 0);
}

TEST_F(Menus, CancellingTheColourDialogKeepsTheColour) {
  Program program;
  program.PassStart();
  OpenTable(program, VersionFive(1, 12));
  program.Command(command::kViewEvent);
  program.WaitForTopView("Event");
  const Picture before = program.ClientPicture(program.View("Event"));
  program.Command(command::kEventColor);
  program.WaitForDialog("Event color:").Leave(kCancelButton);
  program.ToForeground();
  EXPECT_EQ(program.ClientPicture(program.View("Event")), before);
}

}  // namespace
}  // namespace ondrel::e2e
