// The rules that turn window messages into calls on a view.
#include "shell/window_events.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "shell/toolkit.h"
#include "support/shell_test.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// What the view under test was told, one line a call; the functions of a table cannot carry state.
std::vector<std::string>& Calls() {
  static std::vector<std::string> calls;
  return calls;
}

/// A key that the view under test keeps for itself.
constexpr int kKeyOfTheView = 0x41;

std::string On(Axis axis) {
  return axis == Axis::Horizontal ? " horizontally" : " vertically";
}

std::string At(int x, int y) {
  return " " + std::to_string(x) + " " + std::to_string(y);
}

void NoteClose(WindowRecord* window) {
  Calls().push_back("close " + scripted::WindowOf(window).Title);
  toolkit::DestroyWindow(window);
}

constexpr ChildCallbacks kNotingView = {
    .Created = [](WindowRecord*) { Calls().push_back("created"); },
    .Command = [](WindowRecord*, int high,
                  int low) { Calls().push_back("command" + At(high, low)); },
    .MouseDown =
        [](WindowRecord* window, int x, int y) {
          Calls().push_back((window->Captured ? "captured" : "down") + At(x, y));
        },
    .MouseMove = [](WindowRecord*, int x, int y) { Calls().push_back("move" + At(x, y)); },
    .MouseUp = [](WindowRecord* window, int x,
                  int y) { Calls().push_back((window->Captured ? "up" : "released") + At(x, y)); },
    .ScrollBegin = [](WindowRecord*, Axis axis) { Calls().push_back("begin" + On(axis)); },
    .ScrollLineUp = [](WindowRecord*, Axis axis) { Calls().push_back("line up" + On(axis)); },
    .ScrollPageUp = [](WindowRecord*, Axis axis) { Calls().push_back("page up" + On(axis)); },
    .ScrollHome = [](WindowRecord*, Axis axis) { Calls().push_back("home" + On(axis)); },
    .ScrollEnd = [](WindowRecord*, Axis axis) { Calls().push_back("end" + On(axis)); },
    .ScrollPageDown = [](WindowRecord*, Axis axis) { Calls().push_back("page down" + On(axis)); },
    .ScrollLineDown = [](WindowRecord*, Axis axis) { Calls().push_back("line down" + On(axis)); },
    .ScrollDone = [](WindowRecord*, Axis axis) { Calls().push_back("done" + On(axis)); },
    .Moved = [](WindowRecord*, WindowPlacement) {},
    .Sized =
        [](WindowRecord*, WindowPlacement placement) {
          Calls().push_back("sized " + std::to_string(static_cast<int>(placement)));
        },
    .Close = NoteClose,
    .Activate = [](WindowRecord*, bool) {},
    .Paint = [](WindowRecord*, const DeviceRecord&) {},
    .Enabled = [](WindowRecord*, bool) {},
    .Unused19 = [](WindowRecord*) {},
    .Unused20 = [](WindowRecord*) {},
    .KeyDown =
        [](WindowRecord*, int key) {
          Calls().push_back("key " + std::to_string(key));
          return key == kKeyOfTheView ? 1 : 0;
        },
    .Char = [](WindowRecord*, int) {},
    .FilterMessage = [](WindowRecord*, const void*) { return 0; },
    .Closing = [](WindowRecord*) {},
};

class WindowEvents : public ShellTest {
 protected:
  WindowEvents() {
    child_ = OpenChild("First");
    toolkit::SetScrollRange(child_, Axis::Vertical, 100000);
    Forget();
  }

  ChildWindow* OpenChild(const char* title) {
    return toolkit::CreateChild(Frame(), title, {10, 20, 300, 200}, true, true, &workspace(),
                                &kNotingView);
  }

  void Forget() {
    Calls().clear();
    shell().Windows.clear();
  }

  void Scroll(Axis axis, ScrollCode code, std::uint16_t position = 0) {
    OnScroll(child_, axis, static_cast<std::int32_t>(code), position);
  }

  ChildWindow* child_;
};

// --- Creation and commands -----------------------------------------------------------------------

TEST_F(WindowEvents, ACreatedWindowKnowsItsHandleAndIsInNoGesture) {
  int handle = 0;
  WindowRecord window;
  window.Captured = true;
  window.Scrolling = true;
  window.Callbacks = &kNotingView;
  OnCreated(&window, &handle);
  EXPECT_EQ(window.Handle, &handle);
  EXPECT_FALSE(window.Captured);
  EXPECT_FALSE(window.Scrolling);
  EXPECT_THAT(Calls(), ElementsAre("created"));
}

TEST_F(WindowEvents, AMenuIdentifierIsSplitIntoMenuAndItem) {
  OnCommand(child_, 51713);
  OnCommand(child_, 0xFFFF);
  EXPECT_THAT(Calls(), ElementsAre("command 202 1", "command 255 255"));
}

TEST_F(WindowEvents, OnlyTheLowSixteenBitsOfAnIdentifierCount) {
  OnCommand(child_, 0x10000 + 51713);  // an accelerator says so above them
  EXPECT_THAT(Calls(), ElementsAre("command 202 1"));
}

// --- Scroll gestures -----------------------------------------------------------------------------

TEST_F(WindowEvents, AGestureBeginsOnceAndEndsOnce) {
  Scroll(Axis::Vertical, ScrollCode::LineDown);
  Scroll(Axis::Vertical, ScrollCode::LineDown);
  EXPECT_TRUE(child_->Scrolling);
  Scroll(Axis::Vertical, ScrollCode::EndScroll);
  EXPECT_FALSE(child_->Scrolling);
  EXPECT_THAT(Calls(), ElementsAre("begin vertically", "line down vertically",
                                   "line down vertically", "done vertically"));
}

TEST_F(WindowEvents, TheNextGestureBeginsAnew) {
  Scroll(Axis::Vertical, ScrollCode::LineUp);
  Scroll(Axis::Vertical, ScrollCode::EndScroll);
  Forget();
  Scroll(Axis::Horizontal, ScrollCode::PageUp);
  EXPECT_THAT(Calls(), ElementsAre("begin horizontally", "page up horizontally"));
}

TEST_F(WindowEvents, EveryCodeOfALineOrPageHasItsMove) {
  child_->Scrolling = true;
  Scroll(Axis::Vertical, ScrollCode::LineUp);
  Scroll(Axis::Vertical, ScrollCode::LineDown);
  Scroll(Axis::Horizontal, ScrollCode::PageUp);
  Scroll(Axis::Horizontal, ScrollCode::PageDown);
  EXPECT_THAT(Calls(), ElementsAre("line up vertically", "line down vertically",
                                   "page up horizontally", "page down horizontally"));
}

TEST_F(WindowEvents, AThumbThatIsLetGoSetsTheBarWithoutRedrawAndTellsNobody) {
  child_->Scrolling = true;
  Scroll(Axis::Vertical, ScrollCode::ThumbPosition, 65535);
  EXPECT_EQ(toolkit::ReadScrollPosition(child_, Axis::Vertical), 65535);
  EXPECT_THAT(shell().Windows, ElementsAre("quiet thumb First"));
  EXPECT_THAT(Calls(), IsEmpty());
}

TEST_F(WindowEvents, TheViewReadsTheNewPositionWhenADragEnds) {
  Scroll(Axis::Vertical, ScrollCode::ThumbTrack, 40);
  Scroll(Axis::Vertical, ScrollCode::ThumbTrack, 80);
  EXPECT_EQ(toolkit::ReadScrollPosition(child_, Axis::Vertical), 0) << "while it is dragged";
  Scroll(Axis::Vertical, ScrollCode::ThumbPosition, 70);
  Scroll(Axis::Vertical, ScrollCode::EndScroll, 0);
  EXPECT_EQ(toolkit::ReadScrollPosition(child_, Axis::Vertical), 70);
  EXPECT_THAT(Calls(), ElementsAre("begin vertically", "done vertically"));
}

TEST_F(WindowEvents, CodesWithoutAMoveAreLeftAlone) {
  child_->Scrolling = true;
  for (const std::int32_t code : {5, 6, 7, 9, 100, 65535})
    OnScroll(child_, Axis::Vertical, code, 3);
  EXPECT_THAT(Calls(), IsEmpty());
  EXPECT_TRUE(child_->Scrolling);
  EXPECT_EQ(toolkit::ReadScrollPosition(child_, Axis::Vertical), 0);
}

// --- Keys ----------------------------------------------------------------------------------------

struct KeyMove {
  int Key;
  const char* Move;
  Axis MoveAxis;
};

class ScrollKeys : public WindowEvents, public ::testing::WithParamInterface<KeyMove> {};

TEST_P(ScrollKeys, PerformACompleteGesture) {
  const std::string axis = On(GetParam().MoveAxis);
  EXPECT_EQ(HandleScrollKey(child_, GetParam().Key), 1);
  EXPECT_THAT(Calls(), ElementsAre("begin" + axis, GetParam().Move + axis, "done" + axis));
}

INSTANTIATE_TEST_SUITE_P(AllEight, ScrollKeys,
                         ::testing::Values(KeyMove{0x21, "page up", Axis::Vertical},
                                           KeyMove{0x22, "page down", Axis::Vertical},
                                           KeyMove{0x23, "end", Axis::Vertical},
                                           KeyMove{0x24, "home", Axis::Vertical},
                                           KeyMove{0x25, "line up", Axis::Horizontal},
                                           KeyMove{0x26, "line up", Axis::Vertical},
                                           KeyMove{0x27, "line down", Axis::Horizontal},
                                           KeyMove{0x28, "line down", Axis::Vertical}));

TEST_F(WindowEvents, OtherKeysDoNotScroll) {
  for (const int key : {0x20, 0x29, 0x0D, 0x41}) EXPECT_EQ(HandleScrollKey(child_, key), 0);
  EXPECT_THAT(Calls(), IsEmpty());
}

TEST_F(WindowEvents, AKeyThatTheViewTakesGoesNoFurther) {
  EXPECT_TRUE(OnChildKeyDown(child_, kKeyOfTheView, true));
  EXPECT_THAT(Calls(), ElementsAre("key 65"));
}

TEST_F(WindowEvents, AKeyThatNobodyTakesIsNotHandled) {
  EXPECT_FALSE(OnChildKeyDown(child_, 0x42, true));
  EXPECT_FALSE(OnChildKeyDown(child_, 0x42, false));
}

TEST_F(WindowEvents, ControlF4ClosesTheChildAfterTheViewWasAsked) {
  EXPECT_TRUE(OnChildKeyDown(child_, kKeyF4, true));
  EXPECT_THAT(Calls(), ElementsAre("key 115", "close First"));
  EXPECT_THAT(scripted::StackOfChildren(), IsEmpty());
}

TEST_F(WindowEvents, ControlF6BringsTheLowestChildForward) {
  OpenChild("Second");
  ChildWindow* top = OpenChild("Third");
  EXPECT_TRUE(OnChildKeyDown(top, kKeyF6, true));
  EXPECT_THAT(scripted::StackOfChildren(), ElementsAre("First", "Third", "Second"));
}

TEST_F(WindowEvents, ControlF6WithOneChildDoesNothing) {
  EXPECT_TRUE(OnChildKeyDown(child_, kKeyF6, true));
  EXPECT_THAT(shell().Windows, IsEmpty());
}

TEST_F(WindowEvents, WithoutControlF4AndF6DoNothing) {
  OpenChild("Second");
  Forget();
  EXPECT_FALSE(OnChildKeyDown(child_, kKeyF4, false));
  EXPECT_FALSE(OnChildKeyDown(child_, kKeyF6, false));
  EXPECT_THAT(scripted::StackOfChildren(), ElementsAre("Second", "First"));
}

// --- Mouse and size ------------------------------------------------------------------------------

TEST_F(WindowEvents, MovesReachTheViewOnlyBetweenPressAndRelease) {
  EXPECT_FALSE(OnMouseMove(child_, 1, 2));
  OnMouseDown(child_, 3, 4);
  EXPECT_TRUE(OnMouseMove(child_, 65530, -6));
  OnMouseUp(child_, 7, 8);
  EXPECT_FALSE(OnMouseMove(child_, 9, 10));
  EXPECT_THAT(Calls(), ElementsAre("down 3 4", "move 65530 -6", "up 7 8"))
      << "a view is told before the capture changes";
}

TEST_F(WindowEvents, AMinimisedChildGivesWayToTheNext) {
  OpenChild("Second");
  ChildWindow* top = OpenChild("Third");
  Forget();
  OnChildSized(top, WindowPlacement::Minimized);
  EXPECT_THAT(Calls(), ElementsAre("sized 2"));
  EXPECT_THAT(shell().Windows, ElementsAre("forward First"));
}

TEST_F(WindowEvents, AChildThatIsSizedOrMaximisedStays) {
  OpenChild("Second");
  Forget();
  OnChildSized(child_, WindowPlacement::Normal);
  OnChildSized(child_, WindowPlacement::Maximized);
  EXPECT_THAT(Calls(), ElementsAre("sized 0", "sized 1"));
  EXPECT_THAT(shell().Windows, IsEmpty());
}

// --- Keeping a child in the frame ----------------------------------------------------------------
// A menu height of 19 gives 2 * 19 + 2 = 40 for the frame's borders, caption and menu. In a frame
// of 800 by 600 the left edge may go to 781, the upper edge to 600 - 40 - 19 = 541.

constexpr std::int32_t kMenuHeight = 19;
constexpr PixelSize kFrameSize{800, 600};

IntRect Kept(const IntRect& place) {
  return KeepChildInFrame(place, kFrameSize, kMenuHeight);
}

TEST(KeepingAChildInTheFrame, LeavesAPlaceInsideAlone) {
  EXPECT_EQ(Kept({27, 54, 427, 354}), (IntRect{27, 54, 427, 354}));
  EXPECT_EQ(Kept({780, 540, 1180, 840}), (IntRect{780, 540, 1180, 840}));
}

TEST(KeepingAChildInTheFrame, LeavesAMenuHeightOfItOnTheLeft) {
  EXPECT_EQ(Kept({-381, 10, 19, 310}), (IntRect{-381, 10, 19, 310}));
  EXPECT_EQ(Kept({-382, 10, 18, 310}), (IntRect{-381, 10, 19, 310}));
  EXPECT_EQ(Kept({-2000, 10, -1600, 310}), (IntRect{-381, 10, 19, 310}));
}

TEST(KeepingAChildInTheFrame, LeavesAMenuHeightOfItOnTheRight) {
  EXPECT_EQ(Kept({781, 10, 1181, 310}), (IntRect{781, 10, 1181, 310}));
  EXPECT_EQ(Kept({782, 10, 1182, 310}), (IntRect{781, 10, 1181, 310}));
}

TEST(KeepingAChildInTheFrame, LetsItsCaptionNeitherAboveNorBelowTheClientArea) {
  EXPECT_EQ(Kept({10, -1, 410, 299}), (IntRect{10, 0, 410, 300}));
  EXPECT_EQ(Kept({10, 541, 410, 841}), (IntRect{10, 541, 410, 841}));
  EXPECT_EQ(Kept({10, 542, 410, 842}), (IntRect{10, 541, 410, 841}));
}

TEST(KeepingAChildInTheFrame, LetsTheLowerEdgeWinInAFrameTooSmall) {
  EXPECT_EQ(KeepChildInFrame({5, 5, 105, 105}, {160, 31}, kMenuHeight), (IntRect{5, -28, 105, 72}));
}

TEST(KeepingAChildInTheFrame, LetsTheRightEdgeWinInAFrameTooSmall) {
  EXPECT_EQ(KeepChildInFrame({-500, 5, -400, 105}, {10, 600}, kMenuHeight),
            (IntRect{-81, 5, 19, 105}));
  EXPECT_EQ(KeepChildInFrame({-5, 5, 5, 105}, {10, 600}, kMenuHeight), (IntRect{-9, 5, 1, 105}));
}

TEST(LimitingAMaximisedChild, LeavesASizeThatFitsAlone) {
  EXPECT_EQ(LimitMaximizedSize({800, 560}, kFrameSize, kMenuHeight), (PixelSize{800, 560}));
  EXPECT_EQ(LimitMaximizedSize({300, 200}, kFrameSize, kMenuHeight), (PixelSize{300, 200}));
}

TEST(LimitingAMaximisedChild, CutsASizeTooHighDownToTheFrame) {
  EXPECT_EQ(LimitMaximizedSize({800, 561}, kFrameSize, kMenuHeight), (PixelSize{800, 560}));
  EXPECT_EQ(LimitMaximizedSize({700, 561}, kFrameSize, kMenuHeight), (PixelSize{800, 560}));
}

TEST(LimitingAMaximisedChild, CutsASizeTooWideDownToTheFrame) {
  EXPECT_EQ(LimitMaximizedSize({801, 500}, kFrameSize, kMenuHeight), (PixelSize{800, 560}));
}

}  // namespace
}  // namespace ondrel
