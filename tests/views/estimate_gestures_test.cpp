#include "views/estimate_gestures.h"

#include "views/estimates_fixture.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;

constexpr Place kNowhere = {300, 60};

INSTANTIATE_TEST_SUITE_P(Both, EstimateTwinsTest,
                         ::testing::Values(ViewKind::Amplitude, ViewKind::Duration), NameOfTwin);

// --- Single and double clicks --------------------------------------------------------------------

TEST_P(EstimateTwinsTest, ASingleClickWithoutTheFitViewDoesNothing) {
  OpenHistogram(Kind());
  Gesture(Kind()).PressX = -7;
  workspace().ClickKind = ClickChoice::SecondOfDouble;
  Click(Kind(), {160, AxisY(Kind())});
  EXPECT_EQ(View(Fit()).Window, nullptr);
  EXPECT_EQ(Gesture(Kind()).PressX, -7);
  EXPECT_EQ(workspace().ClickKind, ClickChoice::SecondOfDouble);
  EXPECT_EQ(workspace().LastClickTime, shell().Ticks);
  EXPECT_TRUE(Drawn().empty());
}

TEST_P(EstimateTwinsTest, ADoubleClickAnywhereOpensTheFitView) {
  OpenHistogram(Kind());
  Gesture(Kind()).PressX = -7;
  DoubleClick(Kind(), {3, 5});
  EXPECT_NE(View(Fit()).Window, nullptr);
  EXPECT_EQ(TermCount(Kind()), 1);
  EXPECT_EQ(Gesture(Kind()).PressX, -7) << "and that is all";
  EXPECT_EQ(Gesture(Kind()).OnRelease, nullptr);
  EXPECT_EQ(workspace().LastClickTime, shell().Ticks);
}

TEST_P(EstimateTwinsTest, ADoubleClickOnTheAxisOpensTheFitViewWithoutAddingATerm) {
  OpenHistogram(Kind());
  DoubleClick(Kind(), {240, AxisY(Kind())});
  EXPECT_NE(View(Fit()).Window, nullptr);
  EXPECT_EQ(TermCount(Kind()), 1);
}

TEST_P(EstimateTwinsTest, ClicksAsFarApartAsTheDoubleClickTimeAreADouble) {
  OpenBoth(Kind());
  shell().DoubleClickTime = 300;
  Click(Kind(), kNowhere);
  EXPECT_EQ(workspace().ClickKind, ClickChoice::Single);
  Click(Kind(), kNowhere, 300);
  EXPECT_EQ(workspace().ClickKind, ClickChoice::SecondOfDouble);
}

TEST_P(EstimateTwinsTest, ClicksFurtherApartAreTwoSingles) {
  OpenBoth(Kind());
  shell().DoubleClickTime = 300;
  Click(Kind(), kNowhere);
  Click(Kind(), kNowhere, 301);
  EXPECT_EQ(workspace().ClickKind, ClickChoice::Single);
}

TEST_P(EstimateTwinsTest, ThePressesOfATripleClickAreTwoDoubles) {
  OpenBoth(Kind());
  DoubleClick(Kind(), {240, AxisY(Kind())});
  EXPECT_EQ(TermCount(Kind()), 2);
  Click(Kind(), {400, AxisY(Kind())}, 500);
  EXPECT_EQ(TermCount(Kind()), 3) << "the time counts from the second press";
}

TEST_P(EstimateTwinsTest, ADoubleClickIsToldWhileTheClockOfTheSystemStartsAgain) {
  OpenBoth(Kind());
  workspace().LastClickTime = 0xFFFFFF00U;
  shell().Ticks = 0;
  Press(Kind(), kNowhere, 244);
  EXPECT_EQ(workspace().ClickKind, ClickChoice::SecondOfDouble) << "500 ms";
  workspace().LastClickTime = 0xFFFFFF00U;
  shell().Ticks = 0;
  Press(Kind(), kNowhere, 245);
  EXPECT_EQ(workspace().ClickKind, ClickChoice::Single) << "501 ms";
}

TEST_F(EstimateViewsTest, ClicksOnTwoHistogramsMakeADouble) {
  OpenBoth(ViewKind::Amplitude);
  OpenBoth(ViewKind::Duration);
  Click(ViewKind::Amplitude, kNowhere);
  Click(ViewKind::Duration, kNowhere, 100);
  EXPECT_EQ(workspace().ClickKind, ClickChoice::SecondOfDouble);
}

TEST_P(EstimateTwinsTest, APressIsNotedAsTheLastPlaceToo) {
  OpenBoth(Kind());
  Press(Kind(), {301, 62});
  const MouseGesture& gesture = Gesture(Kind());
  EXPECT_EQ((Place{gesture.PressX, gesture.PressY}), (Place{301, 62}));
  EXPECT_EQ((Place{gesture.LastX, gesture.LastY}), (Place{301, 62}));
}

TEST_P(EstimateTwinsTest, APressForgetsTheGestureBefore) {
  OpenBoth(Kind());
  Click(Kind(), CentreOf(Peak(Kind(), 0)));
  EXPECT_NE(Gesture(Kind()).OnMove, nullptr) << "handlers stay until the next press";
  EXPECT_NE(Gesture(Kind()).OnRelease, nullptr);
  Press(Kind(), kNowhere);
  EXPECT_EQ(Gesture(Kind()).OnMove, nullptr);
  EXPECT_EQ(Gesture(Kind()).OnRelease, nullptr);
}

TEST_P(EstimateTwinsTest, APressWithoutTheFitViewForgetsTheGestureBefore) {
  OpenBoth(Kind());
  Click(Kind(), CentreOf(Peak(Kind(), 0)));
  DestroyView(workspace(), Fit());
  Press(Kind(), kNowhere);
  EXPECT_EQ(Gesture(Kind()).OnMove, nullptr);
  EXPECT_EQ(Gesture(Kind()).OnRelease, nullptr);
}

TEST_P(EstimateTwinsTest, MovesAndReleasesOfAGestureOfNothingDoNothing) {
  OpenBoth(Kind());
  const double distance = Distance(Kind(), 0);
  Drag(Kind(), kNowhere, {160, 100});
  EXPECT_EQ(Distance(Kind(), 0), distance);
  EXPECT_TRUE(Drawn().empty());
  EXPECT_FALSE(IsRepainted(Kind()));
}

// --- Hits ----------------------------------------------------------------------------------------

TEST_P(EstimateTwinsTest, AHandleIsHitOnItsEdgesAndNotBesideThem) {
  OpenBoth(Kind());
  SetTerms(Kind(), {2.0});
  const TermMarker marker = Peak(Kind(), 0);
  const auto picks = [&](int x, int y) {
    Press(Kind(), {x, y});
    return Gesture(Kind()).OnMove != nullptr;
  };
  EXPECT_TRUE(picks(marker.Left, marker.Top));
  EXPECT_TRUE(picks(marker.Right, marker.Bottom));
  EXPECT_FALSE(picks(marker.Left - 1, marker.Top));
  EXPECT_FALSE(picks(marker.Right + 1, marker.Top));
  EXPECT_FALSE(picks(marker.Left, marker.Top - 1));
  EXPECT_FALSE(picks(marker.Left, marker.Bottom + 1));
}

TEST_P(EstimateTwinsTest, TheFirstOfTwoHandlesInOnePlaceIsPicked) {
  OpenBoth(Kind());
  SetTerms(Kind(), {1.0, 2.0, 2.0});
  Press(Kind(), CentreOf(Peak(Kind(), 2)));
  EXPECT_EQ(Gesture(Kind()).PickedMarker, 1);
}

TEST_F(EstimateViewsTest, APeakIsPickedBeforeTheWidthOfItsTerm) {
  OpenBoth(ViewKind::Amplitude);
  Width(0) = Peak(ViewKind::Amplitude, 0);
  const Place place = CentreOf(Width(0));
  Drag(ViewKind::Amplitude, place, {place.X + 40, place.Y});
  EXPECT_EQ(Amplitude().Terms[0].StdDev, 1.0);
  EXPECT_EQ(Amplitude().Terms[0].Current, 1.5);
}

TEST_F(EstimateViewsTest, AWidthIsPickedBeforeThePeakOfALaterTerm) {
  OpenBoth(ViewKind::Amplitude);
  SetTerms(ViewKind::Amplitude, {1.0, 1.5});
  const Place place = {203, 200};  // where the bar of one and the peak of the other end
  Drag(ViewKind::Amplitude, place, {place.X + 40, place.Y});
  EXPECT_EQ(Amplitude().Terms[0].StdDev, 2.0);
  EXPECT_EQ(Amplitude().Terms[1].Current, 1.5);
}

TEST_P(EstimateTwinsTest, BeforeTheFirstDrawingThereIsAHandleInTheCorner) {
  OpenInert(Kind());
  OpenInert(Fit());
  const MouseRoutines& mouse = Kind() == ViewKind::Amplitude ? kAmplitudeMouse : kDurationMouse;
  ChildWindow* window = View(Kind()).Window;
  shell().Ticks += 5000;
  mouse.Down(window, 0, 0);
  EXPECT_NE(Gesture(Kind()).OnMove, nullptr);
  mouse.Up(window, 0, 0);
  EXPECT_FALSE(IsRepainted(Kind()));
}

// --- Adding and removing -------------------------------------------------------------------------

TEST_P(EstimateTwinsTest, ADoubleClickOnTheAxisAddsATermThere) {
  OpenBoth(Kind());
  DoubleClick(Kind(), {240, AxisY(Kind())});
  ASSERT_EQ(TermCount(Kind()), 2);
  EXPECT_NEAR(Distance(Kind(), 1), 160 / kPixelsPerUnit, 1e-12);
  EXPECT_EQ(Area(Kind(), 1), 0.0);
  EXPECT_EQ(MarkerCount(Kind()), 2);
  EXPECT_EQ(Peak(Kind(), 1).TermIndex, 1);
}

TEST_P(EstimateTwinsTest, ANewTermHasAHandleOnTheAxisOnceTheViewIsPainted) {
  OpenBoth(Kind());
  DoubleClick(Kind(), {240, AxisY(Kind())});
  Paint(Kind());
  const Place centre = CentreOf(Peak(Kind(), 1));
  EXPECT_NEAR(centre.X, 240, 1);
  EXPECT_EQ(centre.Y, AxisY(Kind()));
}

TEST_P(EstimateTwinsTest, AClickWithinTwoPixelsOfTheAxisIsOnIt) {
  OpenBoth(Kind());
  int terms = 1;
  for (const int dy : {-2, -1, 1, 2}) {
    DoubleClick(Kind(), {240, AxisY(Kind()) + dy});
    EXPECT_EQ(TermCount(Kind()), ++terms) << dy;
  }
}

TEST_P(EstimateTwinsTest, ADoubleClickThreePixelsFromTheAxisAddsNothing) {
  OpenBoth(Kind());
  for (const int dy : {-3, 3, 50, -50}) {
    DoubleClick(Kind(), {240, AxisY(Kind()) + dy});
    EXPECT_EQ(TermCount(Kind()), 1) << dy;
    EXPECT_EQ(Gesture(Kind()).OnRelease, nullptr);
  }
  EXPECT_TRUE(Drawn().empty());
}

TEST_P(EstimateTwinsTest, TheFirstClickOfADoubleOffTheAxisIsASinglePress) {
  OpenBoth(Kind());
  Click(Kind(), {240, AxisY(Kind()) + 3});
  EXPECT_EQ(workspace().ClickKind, ClickChoice::Single);
  EXPECT_EQ(Gesture(Kind()).PressX, 240);
  Click(Kind(), {241, AxisY(Kind()) + 3}, 100);
  EXPECT_EQ(workspace().ClickKind, ClickChoice::SecondOfDouble);
  EXPECT_EQ(Gesture(Kind()).PressX, 241);
}

TEST_P(EstimateTwinsTest, BothEndsOfThePlotBelongToTheAxis) {
  OpenBoth(Kind());
  DoubleClick(Kind(), {kPlotLeft - 1, AxisY(Kind())});
  DoubleClick(Kind(), {kPlotRight + 1, AxisY(Kind())});
  EXPECT_EQ(TermCount(Kind()), 1);
  DoubleClick(Kind(), {kPlotLeft, AxisY(Kind())});
  DoubleClick(Kind(), {kPlotRight, AxisY(Kind())});
  EXPECT_EQ(TermCount(Kind()), 3);
}

TEST_P(EstimateTwinsTest, WholePixelsTellWhereTheAxisIs) {
  OpenBoth(Kind());
  View(Kind()).Frame = {
      .PlotLeft = 80.9, .PlotRight = 560.9, .PlotTop = 40.9, .PlotBottom = AxisY(Kind()) + 0.9};
  DoubleClick(Kind(), {80, AxisY(Kind()) - 2});
  EXPECT_EQ(TermCount(Kind()), 2);
  DoubleClick(Kind(), {300, AxisY(Kind()) + 3});
  DoubleClick(Kind(), {561, AxisY(Kind())});
  EXPECT_EQ(TermCount(Kind()), 2);
}

TEST_P(EstimateTwinsTest, WithTenTermsADoubleClickOnTheAxisAddsNothing) {
  OpenBoth(Kind());
  SetManyTerms(Kind(), 9);
  DoubleClick(Kind(), {500, AxisY(Kind())});
  EXPECT_EQ(TermCount(Kind()), 10);
  Paint(Kind());
  ForgetAll();
  DoubleClick(Kind(), {520, AxisY(Kind())});
  EXPECT_EQ(TermCount(Kind()), 10);
  EXPECT_TRUE(Drawn().empty());
  EXPECT_FALSE(IsRepainted(Kind()));
}

TEST_P(EstimateTwinsTest, WithTenTermsADoubleClickOnAMarkerStillRemoves) {
  OpenBoth(Kind());
  SetManyTerms(Kind(), 10);
  DoubleClick(Kind(), CentreOf(Peak(Kind(), 4)));
  EXPECT_EQ(TermCount(Kind()), 9);
  EXPECT_NEAR(Distance(Kind(), 3), 1.75, 1e-12);
  EXPECT_NEAR(Distance(Kind(), 4), 2.75, 1e-12);
}

TEST_P(EstimateTwinsTest, ADoubleClickOnAPeakMarkerWithOneTermLeftDoesNothing) {
  OpenBoth(Kind());
  DoubleClick(Kind(), CentreOf(Peak(Kind(), 0)));
  EXPECT_EQ(TermCount(Kind()), 1) << "neither removed nor added, though the marker is on the axis";
  EXPECT_EQ(MarkerCount(Kind()), 1);
  EXPECT_EQ(Gesture(Kind()).OnRelease, nullptr);
  EXPECT_TRUE(Drawn().empty());
  EXPECT_FALSE(IsRepainted(Kind()));
}

TEST_P(EstimateTwinsTest, TheOnlyMarkerOfTwoTermsCanBeRemoved) {
  OpenBoth(Kind());
  SetTerms(Kind(), {-1.0, 2.0});
  ASSERT_EQ(MarkerCount(Kind()), 1) << "the other term is beside the axis";
  DoubleClick(Kind(), CentreOf(Peak(Kind(), 0)));
  EXPECT_EQ(TermCount(Kind()), 1);
  EXPECT_EQ(MarkerCount(Kind()), 0);
  EXPECT_NEAR(Distance(Kind(), 0), -1.0, 1e-12);
}

TEST_F(EstimateViewsTest, ADoubleClickOnAWidthRemovesNothing) {
  OpenBoth(ViewKind::Amplitude);
  SetTerms(ViewKind::Amplitude, {1.0, 3.0});
  Drag(ViewKind::Amplitude, CentreOf(Peak(ViewKind::Amplitude, 0)), {160, 100});
  DoubleClick(ViewKind::Amplitude, CentreOf(Width(0)));
  EXPECT_EQ(Amplitude().TermCount, 2);
}

TEST_P(EstimateTwinsTest, WeightsFollowAtOnceWhenATermComesOrGoes) {
  OpenBoth(Kind());
  SetTerms(Kind(), {1.0, 3.0});
  Drag(Kind(), CentreOf(Peak(Kind(), 0)), {160, 80});
  Drag(Kind(), CentreOf(Peak(Kind(), 1)), {320, 80});
  EXPECT_NEAR(Weight(Kind(), 0), 0.5, 1e-12);
  DoubleClick(Kind(), CentreOf(Peak(Kind(), 0)));
  EXPECT_EQ(Weight(Kind(), 0), 1.0);
  DoubleClick(Kind(), {400, AxisY(Kind())});
  EXPECT_EQ(Weight(Kind(), 1), 0.0);
}

TEST_P(EstimateTwinsTest, TheReleaseAfterAnAddedOrRemovedTermShowsIt) {
  OpenBoth(Kind());
  const Place place = {240, AxisY(Kind())};
  for (const int terms : {2, 1}) {
    Click(Kind(), place);
    Press(Kind(), place, 100);
    EXPECT_EQ(TermCount(Kind()), terms);
    ForgetAll();
    Release(Kind(), place);
    EXPECT_EQ(TablesDrawn(), 1);
    EXPECT_TRUE(IsRepainted(Kind()));
    Paint(Kind());
  }
}

TEST_P(EstimateTwinsTest, AWindowWithoutRoomTakesNoTerm) {
  OpenBoth(Kind());
  WindowOf(Kind()).Client = {0, 0, 0, 0};
  Paint(Kind());
  MarkerCount(Kind()) = 0;
  for (int y = -2; y <= 2; ++y) DoubleClick(Kind(), {0, y});
  EXPECT_EQ(TermCount(Kind()), 1);
  EXPECT_EQ(MarkerCount(Kind()), 0);
}

}  // namespace
}  // namespace ondrel
