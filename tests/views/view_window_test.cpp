#include "views/view_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/window_events.h"
#include "support/view_test.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr ViewKind kOpenable[] = {ViewKind::Event, ViewKind::Level, ViewKind::Sweep,
                                  ViewKind::Statistics};
constexpr std::int32_t kStep = 27;  // the platform's smallest height of a window

class ViewWindowTest : public ViewTest {
 protected:
  void FillRows(std::int32_t count) {
    FillEvents(count, [](EventRecord&, std::int32_t) {});
  }

  ChildWindow* OpenEventView(std::int32_t rows = 0) {
    FillRows(rows);
    return Open(ViewKind::Event);
  }

  std::vector<std::string> Titles() { return scripted::StackOfChildren(); }
};

// --- Opening -------------------------------------------------------------------------------------

TEST_F(ViewWindowTest, EachViewOpensItsWindowWithItsTitleInFront) {
  for (const ViewKind kind : kOpenable) OpenView(Frame(), kind);
  EXPECT_THAT(Titles(), ElementsAre("Statistics", "Sweep", "Level", "Event"));
  for (const ViewKind kind : kOpenable) {
    ASSERT_NE(View(kind).Window, nullptr);
    EXPECT_EQ(WindowOf(kind).Title, FactsOf(kind).Title);
    EXPECT_EQ(View(kind).Window->Owner, &workspace());
    EXPECT_EQ(WindowOf(kind).Frame, Frame());
  }
}

TEST_F(ViewWindowTest, OnlyTheRecordTablesGetAScrollBarAndNobodyAHorizontalOne) {
  for (const ViewKind kind : kOpenable) {
    Open(kind);
    const auto& bars = WindowOf(kind).Bars;
    EXPECT_EQ(bars[static_cast<std::size_t>(Axis::Vertical)].Exists, kind != ViewKind::Statistics);
    EXPECT_FALSE(bars[static_cast<std::size_t>(Axis::Horizontal)].Exists);
  }
}

TEST_F(ViewWindowTest, AViewOpenedTwiceBringsItsWindowForwardAndTakesNoFurtherPlace) {
  ChildWindow* first = Open(ViewKind::Event);
  Open(ViewKind::Level);
  const std::int32_t offset = workspace().CascadeOffset;
  OpenView(Frame(), ViewKind::Event);
  EXPECT_EQ(View(ViewKind::Event).Window, first);
  EXPECT_THAT(Titles(), ElementsAre("Event", "Level"));
  EXPECT_EQ(workspace().CascadeOffset, offset);
}

TEST_F(ViewWindowTest, NewViewsCascadeByTheSmallestHeightOfAWindow) {
  ASSERT_EQ(workspace().CascadeOffset, kStep);
  ASSERT_EQ(scripted::WindowOf(Frame()).Client, (IntRect{0, 0, 792, 554}));
  Open(ViewKind::Event);
  EXPECT_EQ(WindowOf(ViewKind::Event).Place, (IntRect{27, 27, 792, 527}));
  Open(ViewKind::Level);
  EXPECT_EQ(WindowOf(ViewKind::Level).Place, (IntRect{54, 54, 792, 527}));
  Open(ViewKind::Sweep);
  EXPECT_EQ(WindowOf(ViewKind::Sweep).Place, (IntRect{81, 81, 792, 527}));
}

TEST_F(ViewWindowTest, OffsetAndStepOfTheCascadeAreTwoSettings) {
  workspace().CascadeOffset = 100;
  workspace().CascadeStep = 40;
  Open(ViewKind::Event);
  EXPECT_EQ(View(ViewKind::Event).ViewRect, (IntRect{100, 100, 792, 514}));
  EXPECT_EQ(workspace().CascadeOffset, 140);
  EXPECT_EQ(workspace().CascadeStep, 40);
}

TEST_F(ViewWindowTest, AViewClosedAndReopenedKeepsItsPlaceAndTakesNoNewOneInTheCascade) {
  ChildWindow* window = Open(ViewKind::Event);
  scripted::PlaceChild(window, {200, 100, 500, 400});
  const std::int32_t offset = workspace().CascadeOffset;
  DestroyView(workspace(), ViewKind::Event);
  EXPECT_EQ(View(ViewKind::Event).ViewRect, (IntRect{200, 100, 500, 400}));
  Open(ViewKind::Event);
  EXPECT_EQ(WindowOf(ViewKind::Event).Place, (IntRect{200, 100, 500, 400}));
  EXPECT_EQ(workspace().CascadeOffset, offset);
}

TEST_F(ViewWindowTest, TheCascadeOffsetOnlyGrowsWhileTheRunLasts) {
  Open(ViewKind::Event);
  DestroyView(workspace(), ViewKind::Event);
  EXPECT_EQ(workspace().CascadeOffset, 2 * kStep);
  Open(ViewKind::Level);
  EXPECT_EQ(View(ViewKind::Level).ViewRect.Left, 2 * kStep);
}

TEST_F(ViewWindowTest, ARememberedPlaceIsUsedAsItIs) {
  View(ViewKind::Event).ViewRect = {10, 20, 310, 220};
  Open(ViewKind::Event);
  EXPECT_EQ(WindowOf(ViewKind::Event).Place, (IntRect{10, 20, 310, 220}));
  EXPECT_EQ(workspace().CascadeOffset, kStep);
}

TEST_F(ViewWindowTest, APlaceWithoutWidthIsNone) {
  View(ViewKind::Event).ViewRect = {10, 20, 10, 220};
  Open(ViewKind::Event);
  EXPECT_EQ(WindowOf(ViewKind::Event).Place.Left, kStep);
}

TEST_F(ViewWindowTest, APlaceWithoutHeightIsNone) {
  View(ViewKind::Event).ViewRect = {10, 20, 310, 20};
  Open(ViewKind::Event);
  EXPECT_EQ(WindowOf(ViewKind::Event).Place.Left, kStep);
}

TEST_F(ViewWindowTest, TheScrollRangeEndsAtTheLastRow) {
  FillEvents(12, [](EventRecord&, std::int32_t) {});
  FillLevels(1, [](LevelRecord&, std::int32_t) {});
  FillSweeps(300, [](SweepRecord&, std::int32_t) {});
  for (const ViewKind kind : kOpenable) Open(kind);
  EXPECT_EQ(WindowOf(ViewKind::Event).Bars[0].Maximum, 11);
  EXPECT_EQ(WindowOf(ViewKind::Level).Bars[0].Maximum, 0);
  EXPECT_EQ(WindowOf(ViewKind::Sweep).Bars[0].Maximum, 299);
}

TEST_F(ViewWindowTest, TheScrollRangeOfAnEmptyTableIsNothing) {
  OpenEventView(0);
  EXPECT_EQ(WindowOf(ViewKind::Event).Bars[0].Maximum, 0);
}

TEST_F(ViewWindowTest, AViewOpensWhereItWasScrolledTo) {
  OpenEventView(40);
  View(ViewKind::Event).TopRow = 17;
  DestroyView(workspace(), ViewKind::Event);
  Open(ViewKind::Event);
  Paint(ViewKind::Event);
  EXPECT_EQ(View(ViewKind::Event).TopRow, 17);
  EXPECT_EQ(WindowOf(ViewKind::Event).Bars[0].Position, 17);
}

TEST_F(ViewWindowTest, ANewWindowIsClearedAtOnceAndLeftToBePainted) {
  OpenView(Frame(), ViewKind::Statistics);
  const IntRect client = WindowOf(ViewKind::Statistics).Client;
  EXPECT_THAT(LinesWith(Drawn(), "fill ").size(), std::size_t{1});
  EXPECT_THAT(WindowOf(ViewKind::Statistics).Invalidated, ElementsAre(client));
}

// --- Failures of opening -------------------------------------------------------------------------

struct CreationFailure {
  ViewKind Kind;
  std::string Message;
};

const CreationFailure kCreationFailures[] = {
    {ViewKind::Event,
     "Insufficient memory for creating <Event> window. You can increase the amount of memory by "
     "quiting some other programs."},
    {ViewKind::Level,
     "Insufficient memory for creating <Level> window. You can increase the amount of memory by "
     "quiting some other programs."},
    {ViewKind::Sweep,
     "Insufficient memory for creating <Sweep> window. You can increase the amount of memory by "
     "quiting some other programs."},
    {ViewKind::Statistics,
     "Insufficient memory for creating <Statistics> window. You can increase the amount of memory "
     "by quiting some other programs."},
};

TEST_F(ViewWindowTest, WithoutMemoryForItsTableAViewTellsItAndStaysClosed) {
  for (const CreationFailure& failure : kCreationFailures) {
    shell().Boxes.clear();
    shell().Allocation.Next = 1;
    OpenView(Frame(), failure.Kind);
    EXPECT_THAT(Messages(), ElementsAre(failure.Message));
    EXPECT_EQ(View(failure.Kind).Window, nullptr);
  }
  EXPECT_THAT(Titles(), IsEmpty());
  EXPECT_EQ(workspace().CascadeOffset, kStep) << "no place was taken";
}

TEST_F(ViewWindowTest, WithoutAWindowAViewTellsTheSameAndFreesItsTable) {
  for (const CreationFailure& failure : kCreationFailures) {
    shell().Boxes.clear();
    shell().CreateChild.Next = 1;
    OpenView(Frame(), failure.Kind);
    EXPECT_THAT(Messages(), ElementsAre(failure.Message));
    EXPECT_EQ(View(failure.Kind).Window, nullptr);
    EXPECT_EQ(shell().LiveAllocations, 0);
  }
  EXPECT_THAT(Titles(), IsEmpty());
  EXPECT_THAT(Drawn(), IsEmpty());
}

TEST_F(ViewWindowTest, AFailureIsABoxWithOneButtonAndTheStopIcon) {
  shell().CreateChild.Next = 1;
  OpenView(Frame(), ViewKind::Event);
  ASSERT_EQ(shell().Boxes.size(), std::size_t{1});
  EXPECT_EQ(shell().Boxes[0].Buttons, toolkit::BoxButtons::Ok);
  EXPECT_EQ(shell().Boxes[0].Icon, toolkit::BoxIcon::Stop);
}

TEST_F(ViewWindowTest, AViewThatCouldNotOpenOpensTheNextTime) {
  shell().Allocation.Next = 1;
  OpenView(Frame(), ViewKind::Event);
  shell().CreateChild.Next = 1;
  OpenView(Frame(), ViewKind::Event);
  OpenView(Frame(), ViewKind::Event);
  EXPECT_THAT(Titles(), ElementsAre("Event"));
}

// --- Closing -------------------------------------------------------------------------------------

TEST_F(ViewWindowTest, TheCloseBoxTakesTheMenuAwayAndThenDestroysTheWindow) {
  ChildWindow* window = Open(ViewKind::Event);
  window->Callbacks->Close(window);
  EXPECT_THAT(Happened(), ElementsAre("menu of no view", "destroy Event"));
  EXPECT_EQ(View(ViewKind::Event).Window, nullptr);
  EXPECT_EQ(shell().LiveAllocations, 0);
}

TEST_F(ViewWindowTest, TheNextViewComesForwardWithItsMenuWhenOneCloses) {
  Open(ViewKind::Level);
  ChildWindow* window = Open(ViewKind::Event);
  window->Callbacks->Close(window);
  EXPECT_THAT(Happened(), ElementsAre("menu of no view", "destroy Event", "forward Level",
                                      "menu of no view", "menu of Level"));
  EXPECT_THAT(Titles(), ElementsAre("Level"));
}

TEST_F(ViewWindowTest, ClosingForgetsTheWindowAndThatItsPictureIsStale) {
  Open(ViewKind::Event);
  View(ViewKind::Event).NeedsRebuild = true;
  DestroyView(workspace(), ViewKind::Event);
  EXPECT_EQ(View(ViewKind::Event).Window, nullptr);
  EXPECT_FALSE(View(ViewKind::Event).NeedsRebuild);
}

TEST_F(ViewWindowTest, ClosingKeepsColoursPlaceAndTopRow) {
  ChildWindow* window = OpenEventView(40);
  scripted::PlaceChild(window, {200, 100, 500, 400});
  View(ViewKind::Event).Colors[0] = kGrey;
  View(ViewKind::Event).TopRow = 5;
  DestroyView(workspace(), ViewKind::Event);
  EXPECT_EQ(View(ViewKind::Event).Colors[0], kGrey);
  EXPECT_EQ(View(ViewKind::Event).ViewRect, (IntRect{200, 100, 500, 400}));
  EXPECT_EQ(View(ViewKind::Event).TopRow, 5);
}

TEST_F(ViewWindowTest, DestroyingAClosedViewDoesNothing) {
  View(ViewKind::Event).NeedsRebuild = true;
  DestroyView(workspace(), ViewKind::Event);
  EXPECT_THAT(Happened(), IsEmpty());
  EXPECT_TRUE(View(ViewKind::Event).NeedsRebuild);
}

TEST_F(ViewWindowTest, CtrlF4ClosesTheActiveView) {
  ChildWindow* window = Open(ViewKind::Event);
  EXPECT_TRUE(OnChildKeyDown(window, kKeyF4, true));
  EXPECT_EQ(View(ViewKind::Event).Window, nullptr);
}

// --- Activation ----------------------------------------------------------------------------------

TEST_F(ViewWindowTest, AnActiveViewHasItsMenuInTheBarAndAnInactiveOneHasNot) {
  for (const ViewKind kind : kOpenable) {
    ChildWindow* window = Open(kind);
    window->Callbacks->Activate(window, true);
    window->Callbacks->Activate(window, false);
    EXPECT_THAT(Happened(),
                ElementsAre(std::string("menu of ") + FactsOf(kind).Title, "menu of no view"));
  }
}

FrameWindow* theMenusFrame = nullptr;

TEST_F(ViewWindowTest, TheMenuIsTheFrames) {
  workspace().Menus = {
      .InstallViewMenu = [](FrameWindow* frame, ViewKind) { theMenusFrame = frame; },
      .InstallDataMenu = [](FrameWindow* frame) { theMenusFrame = frame; },
      .RefreshFitEntries = [](FrameWindow*) {}};
  ChildWindow* window = Open(ViewKind::Event);
  for (const bool active : {true, false}) {
    theMenusFrame = nullptr;
    window->Callbacks->Activate(window, active);
    EXPECT_EQ(theMenusFrame, Frame());
  }
  theMenusFrame = nullptr;
  window->Callbacks->Close(window);
  EXPECT_EQ(theMenusFrame, Frame());
}

TEST_F(ViewWindowTest, OpeningAViewEndsWithItsMenuInTheBar) {
  OpenView(Frame(), ViewKind::Event);
  EXPECT_EQ(Happened().back(), "menu of Event");
  OpenView(Frame(), ViewKind::Level);
  EXPECT_EQ(Happened().back(), "menu of Level");
  OpenView(Frame(), ViewKind::Event);
  EXPECT_EQ(Happened().back(), "menu of Event");
}

// --- Place ---------------------------------------------------------------------------------------

TEST_F(ViewWindowTest, ANormalWindowsMoveStoresPlacementAndPlace) {
  ChildWindow* window = Open(ViewKind::Event);
  View(ViewKind::Event).Placement = WindowPlacement::Maximized;
  WindowOf(ViewKind::Event).Place = {1, 2, 301, 202};
  window->Callbacks->Moved(window, WindowPlacement::Normal);
  EXPECT_EQ(View(ViewKind::Event).Placement, WindowPlacement::Normal);
  EXPECT_EQ(View(ViewKind::Event).ViewRect, (IntRect{1, 2, 301, 202}));
}

TEST_F(ViewWindowTest, AMaximisedOrMinimisedWindowsMoveStoresThePlacementAlone) {
  ChildWindow* window = Open(ViewKind::Event);
  const IntRect before = View(ViewKind::Event).ViewRect;
  WindowOf(ViewKind::Event).Place = {-4, -4, 900, 700};
  for (const WindowPlacement placement : {WindowPlacement::Maximized, WindowPlacement::Minimized}) {
    window->Callbacks->Moved(window, placement);
    EXPECT_EQ(View(ViewKind::Event).Placement, placement);
    EXPECT_EQ(View(ViewKind::Event).ViewRect, before);
  }
}

TEST_F(ViewWindowTest, ANormalWindowsNewSizeStoresThePlaceAndLeavesThePlacement) {
  ChildWindow* window = Open(ViewKind::Event);
  View(ViewKind::Event).Placement = WindowPlacement::Minimized;
  WindowOf(ViewKind::Event).Place = {1, 2, 301, 202};
  window->Callbacks->Sized(window, WindowPlacement::Normal);
  EXPECT_EQ(View(ViewKind::Event).ViewRect, (IntRect{1, 2, 301, 202}));
  EXPECT_EQ(View(ViewKind::Event).Placement, WindowPlacement::Minimized);
}

TEST_F(ViewWindowTest, AMaximisedOrMinimisedWindowsSizeIsNotRemembered) {
  ChildWindow* window = Open(ViewKind::Event);
  const IntRect before = View(ViewKind::Event).ViewRect;
  WindowOf(ViewKind::Event).Place = {-4, -4, 900, 700};
  for (const WindowPlacement placement : {WindowPlacement::Maximized, WindowPlacement::Minimized}) {
    window->Callbacks->Sized(window, placement);
    EXPECT_EQ(View(ViewKind::Event).ViewRect, before);
    EXPECT_EQ(View(ViewKind::Event).Placement, WindowPlacement::Normal);
  }
}

TEST_F(ViewWindowTest, EachViewRemembersItsOwnPlace) {
  for (const ViewKind kind : kOpenable) {
    const auto at = static_cast<std::int32_t>(kind) * 10;
    scripted::PlaceChild(Open(kind), {at, at + 1, at + 200, at + 100});
  }
  for (const ViewKind kind : kOpenable) {
    const auto at = static_cast<std::int32_t>(kind) * 10;
    EXPECT_EQ(View(kind).ViewRect, (IntRect{at, at + 1, at + 200, at + 100}));
  }
}

// --- The callback table --------------------------------------------------------------------------

TEST_F(ViewWindowTest, EverySlotIsFilled) {
  for (const ViewKind kind : kOpenable) {
    const ChildCallbacks& slots = *Open(kind)->Callbacks;
    EXPECT_NE(slots.Created, nullptr);
    EXPECT_NE(slots.Command, nullptr);
    EXPECT_NE(slots.MouseDown, nullptr);
    EXPECT_NE(slots.MouseMove, nullptr);
    EXPECT_NE(slots.MouseUp, nullptr);
    EXPECT_NE(slots.ScrollBegin, nullptr);
    EXPECT_NE(slots.ScrollLineUp, nullptr);
    EXPECT_NE(slots.ScrollPageUp, nullptr);
    EXPECT_NE(slots.ScrollHome, nullptr);
    EXPECT_NE(slots.ScrollEnd, nullptr);
    EXPECT_NE(slots.ScrollPageDown, nullptr);
    EXPECT_NE(slots.ScrollLineDown, nullptr);
    EXPECT_NE(slots.ScrollDone, nullptr);
    EXPECT_NE(slots.Moved, nullptr);
    EXPECT_NE(slots.Sized, nullptr);
    EXPECT_NE(slots.Close, nullptr);
    EXPECT_NE(slots.Activate, nullptr);
    EXPECT_NE(slots.Paint, nullptr);
    EXPECT_NE(slots.Enabled, nullptr);
    EXPECT_NE(slots.Unused19, nullptr);
    EXPECT_NE(slots.Unused20, nullptr);
    EXPECT_NE(slots.KeyDown, nullptr);
    EXPECT_NE(slots.Char, nullptr);
    EXPECT_NE(slots.FilterMessage, nullptr);
    EXPECT_NE(slots.Closing, nullptr);
  }
}

TEST_F(ViewWindowTest, SlotsThatATableDoesNothingWithDoNothing) {
  ChildWindow* window = OpenEventView(40);
  const ChildCallbacks& slots = *window->Callbacks;
  slots.Command(window, 202, 2);
  slots.MouseDown(window, 1, 2);
  slots.MouseMove(window, 3, 4);
  slots.MouseUp(window, 5, 6);
  slots.Enabled(window, false);
  slots.Unused19(window);
  slots.Unused20(window);
  slots.Char(window, 'a');
  EXPECT_EQ(slots.FilterMessage(window, nullptr), 0);
  slots.Closing(window);
  EXPECT_THAT(Happened(), IsEmpty());
  EXPECT_THAT(Drawn(), IsEmpty());
  EXPECT_EQ(View(ViewKind::Event).Window, window);
}

TEST_F(ViewWindowTest, EachWindowOwnsATableOfItsOwn) {
  EXPECT_EQ(shell().LiveAllocations, 0);
  const ChildCallbacks* event = Open(ViewKind::Event)->Callbacks;
  const ChildCallbacks* level = Open(ViewKind::Level)->Callbacks;
  EXPECT_NE(event, level);
  EXPECT_EQ(shell().LiveAllocations, 2);
}

TEST_F(ViewWindowTest, EachViewPaintsItself) {
  struct Mark {
    ViewKind Kind;
    std::string Text;  // that stands in this header alone
  };
  for (const Mark& mark : {Mark{ViewKind::Event, "Transition(s)"},
                           {ViewKind::Level, "Duration(s)"},
                           {ViewKind::Sweep, "Index"},
                           {ViewKind::Statistics, "Std.Dev.(s)"}}) {
    Open(mark.Kind);
    bool found = false;
    for (const DrawnText& text : TextsIn(Paint(mark.Kind))) found |= text.Text == mark.Text;
    EXPECT_TRUE(found) << mark.Text;
  }
}

// --- Scrolling -----------------------------------------------------------------------------------

TEST_F(ViewWindowTest, ScrollingAnswersForTheVerticalAxisAlone) {
  ChildWindow* window = OpenEventView(40);
  View(ViewKind::Event).TopRow = 20;
  Paint(ViewKind::Event);
  ForgetAll();
  const ChildCallbacks& slots = *window->Callbacks;
  View(ViewKind::Event).Stepped = true;
  slots.ScrollBegin(window, Axis::Horizontal);
  EXPECT_TRUE(View(ViewKind::Event).Stepped);
  View(ViewKind::Event).Stepped = false;
  slots.ScrollLineUp(window, Axis::Horizontal);
  slots.ScrollPageUp(window, Axis::Horizontal);
  slots.ScrollHome(window, Axis::Horizontal);
  slots.ScrollEnd(window, Axis::Horizontal);
  slots.ScrollPageDown(window, Axis::Horizontal);
  slots.ScrollLineDown(window, Axis::Horizontal);
  EXPECT_FALSE(View(ViewKind::Event).Stepped);
  toolkit::SetScrollPositionQuietly(window, Axis::Vertical, 5);
  slots.ScrollDone(window, Axis::Horizontal);
  EXPECT_EQ(View(ViewKind::Event).TopRow, 20);
  EXPECT_THAT(Drawn(), IsEmpty());
}

TEST_F(ViewWindowTest, EachScrollSlotMakesItsOwnStep) {
  ChildWindow* window = OpenEventView(100);
  WindowOf(ViewKind::Event).Client = {0, 0, 700, 164};  // ten rows
  View(ViewKind::Event).TopRow = 50;
  Paint(ViewKind::Event);
  const ChildCallbacks& slots = *window->Callbacks;
  const std::int32_t& topRow = View(ViewKind::Event).TopRow;
  slots.ScrollLineUp(window, Axis::Vertical);
  EXPECT_EQ(topRow, 49);
  slots.ScrollPageUp(window, Axis::Vertical);
  EXPECT_EQ(topRow, 40);
  slots.ScrollLineDown(window, Axis::Vertical);
  EXPECT_EQ(topRow, 41);
  slots.ScrollPageDown(window, Axis::Vertical);
  EXPECT_EQ(topRow, 50);
  slots.ScrollEnd(window, Axis::Vertical);
  EXPECT_EQ(topRow, 99);
  slots.ScrollHome(window, Axis::Vertical);
  EXPECT_EQ(topRow, 0);
}

TEST_F(ViewWindowTest, TheScrollKeysMakeCompleteGestures) {
  ChildWindow* window = OpenEventView(100);
  WindowOf(ViewKind::Event).Client = {0, 0, 700, 164};  // ten rows
  View(ViewKind::Event).TopRow = 50;
  Paint(ViewKind::Event);
  const auto press = [&](int key) {
    EXPECT_EQ(window->Callbacks->KeyDown(window, key), 1);
    return View(ViewKind::Event).TopRow;
  };
  EXPECT_EQ(press(kKeyUp), 49);
  EXPECT_EQ(press(kKeyPageUp), 40);
  EXPECT_EQ(press(kKeyDown), 41);
  EXPECT_EQ(press(kKeyPageDown), 50);
  EXPECT_EQ(press(kKeyLeft), 50);
  EXPECT_EQ(press(kKeyRight), 50);
  EXPECT_EQ(press(kKeyEnd), 99);
  EXPECT_EQ(press(kKeyHome), 0);
}

TEST_F(ViewWindowTest, OtherKeysAreLeftAlone) {
  for (const ViewKind kind : kOpenable) {
    ChildWindow* window = Open(kind);
    EXPECT_EQ(window->Callbacks->KeyDown(window, 'A'), 0);
    EXPECT_EQ(window->Callbacks->KeyDown(window, kKeyF4), 0);
    EXPECT_THAT(Drawn(), IsEmpty());
  }
}

TEST_F(ViewWindowTest, AViewThatDoesNotScrollTakesTheScrollKeysAndStaysWhereItIs) {
  ChildWindow* window = Open(ViewKind::Statistics);
  for (const int key :
       {kKeyUp, kKeyDown, kKeyLeft, kKeyRight, kKeyHome, kKeyEnd, kKeyPageUp, kKeyPageDown}) {
    EXPECT_EQ(window->Callbacks->KeyDown(window, key), 1);
  }
  EXPECT_THAT(Drawn(), IsEmpty());
  EXPECT_THAT(WindowOf(ViewKind::Statistics).Invalidated, IsEmpty());
}

TEST_F(ViewWindowTest, EachTableScrollsItsOwnView) {
  FillEvents(40, [](EventRecord&, std::int32_t) {});
  FillLevels(50, [](LevelRecord&, std::int32_t) {});
  FillSweeps(60, [](SweepRecord&, std::int32_t) {});
  for (const ViewKind kind : {ViewKind::Event, ViewKind::Level, ViewKind::Sweep}) {
    ChildWindow* window = Open(kind);
    window->Callbacks->ScrollEnd(window, Axis::Vertical);
  }
  EXPECT_EQ(View(ViewKind::Event).TopRow, 39);
  EXPECT_EQ(View(ViewKind::Level).TopRow, 49);
  EXPECT_EQ(View(ViewKind::Sweep).TopRow, 59);
}

// --- Repainting ----------------------------------------------------------------------------------

TEST_F(ViewWindowTest, ARepaintClearsTheWindowNowAndHasTheRestPainted) {
  Open(ViewKind::Level);
  View(ViewKind::Level).Colors[static_cast<std::size_t>(LevelColor::Background)] = {1, 2, 3};
  WindowOf(ViewKind::Level).Client = {0, 0, 300, 200};
  RepaintView(workspace(), ViewKind::Level);
  EXPECT_THAT(Drawn(), ElementsAre("background 1 2 3", "pen width 1", "fill 0 0 300 200 with 1 2 3",
                                   "clean up"));
  EXPECT_THAT(WindowOf(ViewKind::Level).Invalidated, ElementsAre(IntRect{0, 0, 300, 200}));
  EXPECT_EQ(shell().OpenDevices, 0);
}

TEST_F(ViewWindowTest, RepaintingAClosedViewDoesNothing) {
  RepaintView(workspace(), ViewKind::Level);
  EXPECT_THAT(Drawn(), IsEmpty());
}

TEST_F(ViewWindowTest, AStaleViewIsRepaintedOnce) {
  Open(ViewKind::Level);
  View(ViewKind::Level).NeedsRebuild = true;
  RepaintViewIfStale(workspace(), ViewKind::Level);
  EXPECT_EQ(LinesWith(Drawn(), "fill ").size(), std::size_t{1});
  EXPECT_FALSE(View(ViewKind::Level).NeedsRebuild);
  ForgetAll();
  RepaintViewIfStale(workspace(), ViewKind::Level);
  EXPECT_THAT(Drawn(), IsEmpty());
  EXPECT_THAT(WindowOf(ViewKind::Level).Invalidated, IsEmpty());
}

TEST_F(ViewWindowTest, AClosedViewIsNotStaleAfterTheRefreshEither) {
  View(ViewKind::Level).NeedsRebuild = true;
  RepaintViewIfStale(workspace(), ViewKind::Level);
  EXPECT_FALSE(View(ViewKind::Level).NeedsRebuild);
  EXPECT_THAT(Drawn(), IsEmpty());
}

TEST_F(ViewWindowTest, PaintingWithAnEmptyUpdateRegionDrawsNothing) {
  for (const ViewKind kind : kOpenable) {
    OpenView(Frame(), kind);
    ChildWindow* window = View(kind).Window;
    EXPECT_TRUE(scripted::PaintInvalidChild(window)) << "a new window is to be painted";
    shell().Drawing.clear();
    EXPECT_FALSE(scripted::PaintInvalidChild(window)) << "a paint leaves nothing to be painted";
    EXPECT_THAT(Drawn(), IsEmpty());
  }
}

}  // namespace
}  // namespace ondrel
