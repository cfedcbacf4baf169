// The child windows: stacking, activation, keys, the system menu, minimised and maximised views,
// the limits of moving, and places that outlive a window.
#include <gmock/gmock.h>

#include "fixtures.h"

namespace ondrel::e2e {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::Ge;
using ::testing::Le;

/// The title of the view popup that stands in the bar before "&Help"; empty when there is none.
std::string ViewPopup(const Program& program) {
  const std::vector<MenuEntry> menu = program.Menu();
  return menu.size() == 5 ? menu[3].Text : "";
}

void WaitForViewPopup(const Program& program, const std::string& title) {
  WaitFor(
      "the view popup '" + title + "' in the bar", [&] { return ViewPopup(program) == title; },
      [&] { return program.Describe(); });
}

void WaitForPlace(const Window& view, const Rect& place) {
  WaitFor(
      "'" + view.Title() + "' to stand at " + ToText(place),
      [&] { return view.PlaceInParent() == place; },
      [&] { return "it stands at " + ToText(view.PlaceInParent()); });
}

class Views : public EndToEnd {
 protected:
  /// Three views that overlap at their edges only: "Sweep" on top, then "Level", then "Event".
  void OpenThree(Program& program) const {
    program.PassStart();
    OpenTable(program, VersionFive(3, 20));
    program.Command(command::kViewSweep);
    program.WaitForViews({"Sweep", "Level", "Event"});
    program.View("Event").MoveTo({0, 0, 300, 300});
    program.View("Level").MoveTo({250, 50, 550, 350});
    program.View("Sweep").MoveTo({500, 100, 800, 400});
    WaitForPlace(program.View("Sweep"), {500, 100, 800, 400});
    WaitForViewPopup(program, "S&weep");
  }
};

TEST_F(Views, ClickingALowerViewBringsItUpWithItsMenu) {
  Program program;
  OpenThree(program);
  program.ClickAt(program.View("Event").ClientArea().Middle());
  program.WaitForViews({"Event", "Sweep", "Level"});
  WaitForViewPopup(program, "E&vent");
}

TEST_F(Views, ClickingATitleBarBringsTheViewUp) {
  Program program;
  OpenThree(program);
  program.ClickAt(program.View("Level").PartOnScreen(HTCAPTION));
  program.WaitForViews({"Level", "Sweep", "Event"});
  WaitForViewPopup(program, "&Level");
}

TEST_F(Views, ControlF6BringsUpTheLowestView) {
  Program program;
  OpenThree(program);
  program.Key(VK_F6, {VK_CONTROL});
  program.WaitForViews({"Event", "Sweep", "Level"});
  WaitForViewPopup(program, "E&vent");
  program.Key(VK_F6, {VK_CONTROL});
  program.WaitForViews({"Level", "Event", "Sweep"});
  program.Key(VK_F6, {VK_CONTROL});
  program.WaitForViews({"Sweep", "Level", "Event"});
}

TEST_F(Views, ControlF6WithOneViewDoesNothing) {
  Program program;
  program.PassStart();
  OpenTable(program, VersionFive(1, 20));
  program.Key(VK_F4, {VK_CONTROL});
  program.WaitForViews({"Event"});
  WaitForViewPopup(program, "E&vent");
  const Picture before = program.ClientPicture(program.View("Event"));
  program.Key(VK_F6, {VK_CONTROL});
  EXPECT_THAT(program.ViewTitles(), ElementsAre("Event"));
  EXPECT_EQ(ViewPopup(program), "E&vent");
  EXPECT_EQ(program.ClientPicture(program.View("Event")), before);
}

TEST_F(Views, ControlF4ClosesTheActiveViewAndActivatesAnother) {
  Program program;
  OpenThree(program);
  program.Key(VK_F4, {VK_CONTROL});
  WaitFor("the view to close", [&] { return !program.IsOpen("Sweep"); });
  EXPECT_EQ(program.ViewTitles().size(), 2U);
  WaitFor("another view's popup", [&] { return !ViewPopup(program).empty(); });
}

TEST_F(Views, TheCloseBoxOfAViewClosesIt) {
  Program program;
  OpenThree(program);
  program.ClickAt(program.View("Sweep").PartOnScreen(HTCLOSE));
  program.WaitForNoView("Sweep");
}

TEST_F(Views, TheSystemMenuNamesItsKeys) {
  Program program;
  program.PassStart();
  OpenTable(program, VersionFive(1, 20));
  const std::vector<MenuEntry> menu = program.SystemMenu(program.View("Level"));
  const MenuEntry* close = FindEntry(menu, SC_CLOSE);
  ASSERT_NE(close, nullptr);
  EXPECT_EQ(close->Text, "&Close\tCtrl+F4");
  // Only a system whose menus have a task list offers the other entry.
  const MenuEntry* next = FindEntry(menu, SC_NEXTWINDOW);
  if (next != nullptr) {
    EXPECT_EQ(next->Text, "Nex&t\tCtrl+F6");
  }
}

TEST_F(Views, TheSystemCommandForTheNextWindowBringsUpTheLowestView) {
  Program program;
  OpenThree(program);
  program.View("Sweep").Post(WM_SYSCOMMAND, SC_NEXTWINDOW);
  program.WaitForViews({"Event", "Sweep", "Level"});
}

TEST_F(Views, MinimisingAViewActivatesTheNext) {
  Program program;
  OpenThree(program);
  const Window sweep = program.View("Sweep");
  program.ClickAt(sweep.PartOnScreen(HTMINBUTTON));
  WaitFor("the view to be minimised", [&] { return sweep.Minimized(); });
  program.WaitForTopView("Event");
  WaitForViewPopup(program, "E&vent");
}

TEST_F(Views, AMinimisedViewComesBackToItsPlace) {
  Program program;
  OpenThree(program);
  const Window sweep = program.View("Sweep");
  sweep.Post(WM_SYSCOMMAND, SC_MINIMIZE);
  WaitFor("the view to be minimised", [&] { return sweep.Minimized(); });
  sweep.Post(WM_SYSCOMMAND, SC_RESTORE);
  WaitForPlace(sweep, {500, 100, 800, 400});
}

TEST_F(Views, AViewCannotBeMovedOutOfTheFrame) {
  Program program;
  OpenThree(program);
  const Window view = program.View("Sweep");
  const int menu = GetSystemMetrics(SM_CYMENU);
  const int title = 2 * menu + 2;
  const Rect frame = program.Frame().Place();

  view.MoveTo({-2000, 100, -1700, 400});
  WaitForPlace(view, {menu - 300, 100, menu, 400});
  view.MoveTo({5000, 100, 5300, 400});
  WaitForPlace(view, {frame.Width() - menu, 100, frame.Width() - menu + 300, 400});
  view.MoveTo({500, -200, 800, 100});
  WaitForPlace(view, {500, 0, 800, 300});
  view.MoveTo({500, 5000, 800, 5300});
  const int lowest = frame.Height() - title - menu;
  WaitForPlace(view, {500, lowest, 800, lowest + 300});
}

TEST_F(Views, AViewDraggedByItsTitleFollowsTheMouse) {
  Program program;
  OpenThree(program);
  const Window view = program.View("Sweep");
  const Point title = view.PartOnScreen(HTCAPTION);
  program.Drag(title, {title.X - 60, title.Y + 80});
  WaitForPlace(view, {440, 180, 740, 480});
}

/// A maximised child covers the frame's client area. Its border lies outside at the left; its top
/// is held in the frame, and its size is cut to the frame's less the height of title and menu.
void ExpectFillsFrame(const Window& view, const Window& frame) {
  const Rect place = frame.Place();
  const int border = GetSystemMetrics(SM_CXFRAME);
  const int title = 2 * GetSystemMetrics(SM_CYMENU) + 2;
  const Rect expected{-border, 0, place.Width() - border, place.Height() - title};
  (void)HoldsWithin(3000, [&] { return view.PlaceInParent() == expected; });
  EXPECT_EQ(view.PlaceInParent(), expected);
  EXPECT_GE(view.PlaceInParent().Right, frame.ClientArea().Width());
  EXPECT_GE(view.PlaceInParent().Bottom, frame.ClientArea().Height());
}

TEST_F(Views, AMaximisedViewFollowsTheFramesSize) {
  Program program;
  OpenThree(program);
  const Window view = program.View("Sweep");
  program.ClickAt(view.PartOnScreen(HTMAXBUTTON));
  WaitFor("the view to be maximised", [&] { return view.Maximized(); });
  ExpectFillsFrame(view, program.Frame());

  program.PlaceFrame({40, 60, 740, 660});
  ExpectFillsFrame(view, program.Frame());
  EXPECT_TRUE(view.Maximized());
  EXPECT_EQ(program.ViewTitles().front(), "Sweep");

  program.PlaceFrame({20, 30, 1020, 830});
  ExpectFillsFrame(view, program.Frame());
}

TEST_F(Views, ADoubleClickOnTheTitleMaximisesAndBringsBack) {
  Program program;
  OpenThree(program);
  const Window view = program.View("Sweep");
  program.DoubleClickAt(view.PartOnScreen(HTCAPTION));
  WaitFor("the view to be maximised", [&] { return view.Maximized(); });
  ExpectFillsFrame(view, program.Frame());
  view.Post(WM_SYSCOMMAND, SC_RESTORE);
  WaitForPlace(view, {500, 100, 800, 400});
}

TEST_F(Views, AViewOpenedTwiceComesForwardAndDoesNotCascade) {
  Program program;
  program.PassStart();
  OpenTable(program, VersionFive(3, 20));
  const Rect place = program.View("Event").PlaceInParent();
  program.Command(command::kViewEvent);
  program.WaitForViews({"Event", "Level"});
  EXPECT_EQ(program.View("Event").PlaceInParent(), place);
  program.Command(command::kViewSweep);
  program.WaitForViews({"Sweep", "Event", "Level"});
  EXPECT_EQ(program.View("Sweep").PlaceInParent().Left, 3 * GetSystemMetrics(SM_CYMINTRACK));
}

TEST_F(Views, AClosedViewReopensAtItsPlaceAndTakesNoCascadePlace) {
  Program program;
  OpenThree(program);
  program.Key(VK_F4, {VK_CONTROL});
  program.WaitForNoView("Sweep");
  program.Command(command::kViewSweep);
  program.WaitForTopView("Sweep");
  WaitForPlace(program.View("Sweep"), {500, 100, 800, 400});
  program.Command(command::kViewStatistics);
  EXPECT_EQ(program.View("Statistics").PlaceInParent().Left, 4 * GetSystemMetrics(SM_CYMINTRACK));
}

TEST_F(Views, PlacesOutliveTheData) {
  Program program;
  OpenThree(program);
  program.Command(command::kClose);
  ExpectNoData(program);
  OpenTable(program, VersionFive(3, 20));
  WaitForPlace(program.View("Event"), {0, 0, 300, 300});
  WaitForPlace(program.View("Level"), {250, 50, 550, 350});
}

}  // namespace
}  // namespace ondrel::e2e
