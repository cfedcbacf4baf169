// Drags of the handles of widths, which only amplitudes have.
#include "views/estimates_fixture.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;

class EstimateWidthsTest : public EstimateViewsTest {
 protected:
  static constexpr ViewKind kKind = ViewKind::Amplitude;

  EstimateWidthsTest() {
    OpenBoth(kKind);
    Drag(kKind, CentreOf(Peak(kKind, 0)), {160, 100});
    Paint(kKind);
    ForgetAll();
  }

  AmplitudeTerm& Term() { return Amplitude().Terms[0]; }
  int WidthLeft() { return Width(0).Left; }
  Place Grip() { return CentreOf(Width(0)); }
};

TEST_F(EstimateWidthsTest, ABarIsHalfAsLongAsItsTermIsWide) {
  const Place grip = Grip();
  Drag(kKind, grip, {grip.X + 40, grip.Y});
  EXPECT_NEAR(Term().StdDev, 2.0, 1e-12) << "the bar goes from 160 to 240";
  EXPECT_EQ(Term().Current, 1.0);
}

TEST_F(EstimateWidthsTest, TheScaleOfTheBarCounts) {
  Amplitude().CurveScale = 2.0;
  Paint(kKind);
  EXPECT_EQ(WidthLeft(), 240);
  const Place grip = Grip();
  Drag(kKind, grip, {grip.X + 40, grip.Y});
  EXPECT_NEAR(Term().StdDev, 1.5, 1e-12);
}

TEST_F(EstimateWidthsTest, ThePeakKeepsItsHeight) {
  const double ratio = Term().Area / Term().StdDev;
  ASSERT_GT(ratio, 0.0);
  const Place grip = Grip();
  const int left = WidthLeft() + 55;
  Drag(kKind, grip, {grip.X + 55, grip.Y - 60});
  const double middle = (Term().Current - Amplitude().Minimum) * kPixelsPerUnit;
  EXPECT_EQ(Term().StdDev, (left - kPlotLeft - middle) * 2.0 / (kPixelsPerUnit * 1.0));
  EXPECT_EQ(Term().StdDev, 2.375);
  EXPECT_EQ(Term().Area, ratio * Term().StdDev);
}

TEST_F(EstimateWidthsTest, WeightsFollow) {
  SetTerms(kKind, {1.0, 3.0});
  Drag(kKind, CentreOf(Peak(kKind, 0)), {160, 100});
  Drag(kKind, CentreOf(Peak(kKind, 1)), {320, 100});
  EXPECT_NEAR(Amplitude().Terms[0].Weight, 0.5, 1e-12);
  Press(kKind, Grip());
  Move(kKind, {Grip().X + 80, 100});
  EXPECT_NEAR(Amplitude().Terms[0].Weight, 0.75, 1e-12) << "three times as wide";
  EXPECT_NEAR(Amplitude().Terms[1].Weight, 0.25, 1e-12);
}

TEST_F(EstimateWidthsTest, AHundredMovesOfOnePixelAreAHundredPixels) {
  for (const double scale : {1.0, 0.7, 1.3}) {
    for (const IntRect& client : {kClient, IntRect{0, 0, 643, 251}, IntRect{0, 0, 997, 403}}) {
      Term() = {.Weight = 0.0, .Current = 0.37, .StdDev = 0.9, .Area = 500.0};
      Amplitude().CurveScale = scale;
      WindowOf(kKind).Client = client;
      Paint(kKind);
      const int left = WidthLeft();
      const int breadth = Width(0).Right - left;
      const Place grip = Grip();
      Press(kKind, grip);
      for (int i = 1; i <= 100; ++i) {
        Move(kKind, {grip.X + i, grip.Y});
        ASSERT_EQ(WidthLeft(), left + i);
        ASSERT_EQ(Width(0).Right - WidthLeft(), breadth);
      }
      const double barEnd = View(kKind).Frame.PlotLeft + Term().Current * Amplitude().PixelsPerPa +
                            Term().StdDev * scale * Amplitude().PixelsPerPa / 2.0;
      EXPECT_NEAR(barEnd, left + 100, 1e-9);
      for (int i = 99; i >= 0; --i) Move(kKind, {grip.X + i, grip.Y});
      EXPECT_EQ(WidthLeft(), left);
      Release(kKind, grip);
    }
  }
}

TEST_F(EstimateWidthsTest, AWidthMarkerCannotCrossThePeakMarker) {
  // Its middle, 3 right of its left edge, comes as far as the right edge of the peak's handle.
  const int nearest = 154 + 2 * kHalf - kHalf / 2;
  ASSERT_EQ(Peak(kKind, 0).Left, 154);
  const Place grip = Grip();
  const int inward = WidthLeft() - nearest;
  Press(kKind, grip);
  Move(kKind, {grip.X - inward - 1, grip.Y});
  EXPECT_EQ(WidthLeft(), 200) << "too far, not taken";
  Press(kKind, grip);
  Move(kKind, {grip.X - inward, grip.Y});
  EXPECT_EQ(WidthLeft(), nearest);
  EXPECT_NEAR(Term().StdDev, (nearest - 160) / 40.0, 1e-12);
  Move(kKind, {grip.X - inward - 1, grip.Y});
  EXPECT_EQ(WidthLeft(), nearest);
}

TEST_F(EstimateWidthsTest, AWidthMarkerDoesNotLeaveThePlot) {
  const int furthest = kPlotRight - kHalf / 2;
  const Place grip = Grip();
  const int outward = furthest - WidthLeft();
  Press(kKind, grip);
  Move(kKind, {grip.X + outward + 1, grip.Y});
  EXPECT_EQ(WidthLeft(), 200);
  Press(kKind, grip);
  Move(kKind, {grip.X + outward, grip.Y});
  EXPECT_EQ(WidthLeft(), furthest);
}

TEST_F(EstimateWidthsTest, AMoveThatIsNotTakenIsForgotten) {
  const Place grip = Grip();
  Press(kKind, grip);
  Move(kKind, {grip.X - 100, grip.Y});
  EXPECT_EQ(HistogramsDrawn(), 0);
  EXPECT_EQ(TablesDrawn(), 1);
  EXPECT_EQ(WidthLeft(), 200);
  Move(kKind, {grip.X - 90, grip.Y});
  EXPECT_EQ(WidthLeft(), 210) << "from where it stands";
  EXPECT_EQ(Gesture(kKind).LastX, grip.X - 90);
}

TEST_F(EstimateWidthsTest, OnlyMovesAlongTheAxisCount) {
  const Place grip = Grip();
  Press(kKind, grip);
  Move(kKind, {grip.X, grip.Y - 30});
  EXPECT_EQ(HistogramsDrawn(), 0);
  EXPECT_EQ(TablesDrawn(), 1);
  EXPECT_EQ(Gesture(kKind).LastY, grip.Y - 30);
  ForgetAll();
  Move(kKind, {grip.X + 1, grip.Y - 30});
  EXPECT_EQ(HistogramsDrawn(), 1);
  EXPECT_EQ(TablesDrawn(), 1);
}

TEST_F(EstimateWidthsTest, ADragEndsWithTheFitView) {
  for (const std::size_t term : {0u, 1u}) {
    SetTerms(kKind, {1.0, 3.0});
    const Place grip = CentreOf(Width(term));
    Press(kKind, grip);
    ASSERT_NE(Gesture(kKind).OnMove, nullptr);
    DestroyView(workspace(), ViewKind::AmplitudeFit);
    Move(kKind, {grip.X + 20, grip.Y});
    EXPECT_EQ(Amplitude().Terms[0].StdDev, 1.0);
    EXPECT_EQ(Amplitude().Terms[1].StdDev, 1.0);
    Open(ViewKind::AmplitudeFit);
  }
}

TEST_F(EstimateWidthsTest, APeakTakesItsBarAlong) {
  Drag(kKind, CentreOf(Peak(kKind, 0)), {240, 120});
  EXPECT_THAT(RectOf(Width(0)), ElementsAre(280, 117, 286, 123));
}

TEST_F(EstimateWidthsTest, TheOtherTermsStay) {
  SetTerms(kKind, {1.0, 3.0, 3.5});
  const Place grip = CentreOf(Width(1));
  Drag(kKind, grip, {grip.X + 20, grip.Y});
  EXPECT_EQ(Amplitude().Terms[0].StdDev, 1.0);
  EXPECT_NEAR(Amplitude().Terms[1].StdDev, 1.5, 1e-12);
  EXPECT_EQ(Amplitude().Terms[2].StdDev, 1.0);
}

TEST_F(EstimateWidthsTest, AHandleWhoseTermIsNoLongerOnTheAxisCanBeDraggedOn) {
  SetTerms(kKind, {1.0, 3.0});
  Amplitude().Terms[0].Current = -2.0;  // and nothing is painted yet
  const Place grip = Grip();
  Press(kKind, grip);
  for (int i = 1; i <= 5; ++i) Move(kKind, {grip.X + i, grip.Y});
  EXPECT_NEAR(Term().StdDev, (205 - 80 + 160) / 40.0, 1e-12);
  EXPECT_EQ(Amplitude().MarkerCount, 1);
  EXPECT_EQ(Amplitude().Terms[1].StdDev, 1.0);
}

}  // namespace
}  // namespace ondrel
