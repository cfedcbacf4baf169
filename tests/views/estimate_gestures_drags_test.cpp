// Drags of the handles of peaks, and what their release does.
#include <numbers>

#include "fit/estimates_fixture.h"
#include "views/estimate_gestures.h"
#include "views/estimates_fixture.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;

class EstimateDragsTest : public EstimateTwinsTest {
 protected:
  /// Counts at the top of a term, worked back from its area.
  double PeakCount(std::size_t term) {
    if (Kind() == ViewKind::Duration) {
      return Duration().Terms[term].Area / Duration().BinsPerDecade * std::numbers::ln10 /
             std::numbers::e;
    }
    const AmplitudeTerm& shown = Amplitude().Terms[term];
    return shown.Area * Amplitude().PerTick /
           (std::sqrt(6.283185307178) * shown.StdDev * Amplitude().BinsPerTick);
  }

  /// Device units of a count on a linear axis: two intervals of 100, or of 10, on the axis.
  double PixelsPerCount() {
    return (AxisY(Kind()) - kPlotTop) / (Kind() == ViewKind::Amplitude ? 200.0 : 20.0);
  }

  /// A hundred levels in one bin.
  void CountLevels() {
    FillLevels(100, [](LevelRecord& level, std::int32_t) {
      level.Amplitude = 2.02e-12;
      level.Duration = 0.00105;
    });
    BuildAmplitudeHistogram(workspace());
    BuildDurationHistogram(workspace());
  }

  estimates::Peak PeakOfFirstTerm() {
    const GraphFrame& frame = View(Kind()).Frame;
    return Kind() == ViewKind::Amplitude
               ? estimates::PeakOf(Amplitude(), frame, Amplitude().Terms[0])
               : estimates::PeakOf(Duration(), frame, Duration().Terms[0]);
  }
  double AreaOfFirstTerm(double rise) {
    const GraphFrame& frame = View(Kind()).Frame;
    return Kind() == ViewKind::Amplitude
               ? estimates::AreaOf(Amplitude(), frame, Amplitude().Terms[0], rise)
               : estimates::AreaOf(Duration(), frame, Duration().Terms[0], rise);
  }

  void UseSquareRootAxes() {
    Amplitude().SquareRootAxis = true;
    Duration().SquareRootAxis = true;
    CountLevels();
  }
};

INSTANTIATE_TEST_SUITE_P(Both, EstimateDragsTest,
                         ::testing::Values(ViewKind::Amplitude, ViewKind::Duration), NameOfTwin);

// --- Peaks ---------------------------------------------------------------------------------------

TEST_P(EstimateDragsTest, ATermFollowsItsHandleOnALinearAxis) {
  OpenBoth(Kind());
  Drag(Kind(), CentreOf(Peak(Kind(), 0)), {240, 80});
  EXPECT_NEAR(Distance(Kind(), 0), 2.0, 1e-12);
  EXPECT_NEAR(PeakCount(0), (AxisY(Kind()) - 80) / PixelsPerCount(), 1e-9);
  EXPECT_EQ(Weight(Kind(), 0), 1.0);
}

TEST_P(EstimateDragsTest, ATermFollowsItsHandleOnASquareRootAxis) {
  UseSquareRootAxes();
  OpenBoth(Kind());
  const int middle = (AxisY(Kind()) + kPlotTop) / 2;
  Drag(Kind(), CentreOf(Peak(Kind(), 0)), {240, middle});
  EXPECT_NEAR(Distance(Kind(), 0), 2.0, 1e-12);
  EXPECT_NEAR(PeakCount(0), 25.0, 1e-9) << "half the root of the 100 that fill the plot";
}

TEST_P(EstimateDragsTest, TheHandleStaysUnderTheMouseAndIsDrawnThere) {
  OpenBoth(Kind());
  Press(Kind(), CentreOf(Peak(Kind(), 0)));
  Move(Kind(), {243, 91});
  EXPECT_THAT(RectOf(Peak(Kind(), 0)), ::testing::ElementsAreArray(SquareAt({243, 91})));
  Release(Kind(), {243, 91});
  Paint(Kind());
  EXPECT_NEAR(CentreOf(Peak(Kind(), 0)).X, 243, 1);
  EXPECT_NEAR(CentreOf(Peak(Kind(), 0)).Y, 91, 1);
}

TEST_P(EstimateDragsTest, AHandleDraggedToWhereItStandsChangesItsTermByLessThanAPixel) {
  for (const bool root : {false, true}) {
    if (root) UseSquareRootAxes();
    OpenBoth(Kind());
    SetTerms(Kind(), {1.2345});
    Amplitude().Terms[0].Area = 1234.5;
    Duration().Terms[0].Area = 123.4;
    Paint(Kind());
    const double x = kPlotLeft + Distance(Kind(), 0) * kPixelsPerUnit;
    const double part = root ? std::sqrt(PeakCount(0) / 100.0) : 0.0;
    const double plot = AxisY(Kind()) - kPlotTop;
    const double y = AxisY(Kind()) - (root ? part * plot : PeakCount(0) * PixelsPerCount());
    const Place centre = CentreOf(Peak(Kind(), 0));
    Press(Kind(), centre);
    Move(Kind(), {centre.X + 9, centre.Y - 9});
    Move(Kind(), centre);
    // Handles are cut to whole pixels, so that the way back is at most one to the left and up.
    const double left = x - (kPlotLeft + Distance(Kind(), 0) * kPixelsPerUnit);
    EXPECT_GE(left, -1e-9);
    EXPECT_LT(left, 1.0);
    const double after =
        root ? std::sqrt(PeakCount(0) / 100.0) * plot : PeakCount(0) * PixelsPerCount();
    const double up = after - (AxisY(Kind()) - y);
    EXPECT_GE(up, -1e-9);
    EXPECT_LT(up, 1.0);
    DestroyView(workspace(), Kind());
    DestroyView(workspace(), Fit());
  }
}

TEST_P(EstimateDragsTest, InAWindowOfAnySizeTheTermIsAtTheMiddleOfTheHandle) {
  OpenBoth(Kind());
  Amplitude().Minimum = -0.5;
  Duration().MinimumExponent = -6;
  WindowOf(Kind()).Client = {0, 0, 733, 391};
  SetTerms(Kind(), {2.0});
  Press(Kind(), CentreOf(Peak(Kind(), 0)));
  Move(Kind(), {250, 140});
  const GraphFrame& frame = View(Kind()).Frame;
  const double half = 733.0 * 0.75 / 80.0;
  const TermMarker& marker = Peak(Kind(), 0);
  EXPECT_THAT(RectOf(marker),
              ElementsAre(static_cast<int>(250 - half), static_cast<int>(140 - half),
                          static_cast<int>(250 + half), static_cast<int>(140 + half)));
  const double perUnit = 5 * 20;  // 5 pixels a bin
  EXPECT_NEAR(Distance(Kind(), 0), (marker.Left + half - 733.0 / 8.0) / perUnit, 1e-12);
  const double perCount =
      (frame.PlotBottom - frame.PlotTop) / (Kind() == ViewKind::Amplitude ? 200.0 : 20.0);
  EXPECT_NEAR(PeakCount(0), (frame.PlotBottom - (marker.Top + half)) / perCount, 1e-9);
}

TEST_P(EstimateDragsTest, AHandleIsDrawnAgainAtThePixelToWhichItsNumbersLead) {
  for (const bool root : {false, true}) {
    if (root) UseSquareRootAxes();
    OpenBoth(Kind());
    WindowOf(Kind()).Client = {0, 0, 733, 391};
    SetTerms(Kind(), {2.0});
    const GraphFrame& frame = View(Kind()).Frame;
    const double half = MarkerHalf(frame);
    Press(Kind(), CentreOf(Peak(Kind(), 0)));
    for (int y = 330; y > 40; --y) {
      Move(Kind(), {330 - y / 2, y});
      const estimates::Peak peak = PeakOfFirstTerm();
      const double rise = Kind() == ViewKind::Amplitude
                              ? frame.PlotBottom - Peak(Kind(), 0).Top - half
                              : frame.PlotBottom - (Peak(Kind(), 0).Top + half);
      ASSERT_EQ(Area(Kind(), 0), AreaOfFirstTerm(rise));
      Paint(Kind());
      ASSERT_EQ(Peak(Kind(), 0).Left, static_cast<int>(peak.X - half));
      ASSERT_EQ(Peak(Kind(), 0).Top, static_cast<int>(peak.Y - half)) << "at " << y;
    }
    DestroyView(workspace(), Kind());
    DestroyView(workspace(), Fit());
  }
}

TEST_P(EstimateDragsTest, EachMoveDrawsTheHistogramAndThenTheTable) {
  OpenBoth(Kind());
  Press(Kind(), CentreOf(Peak(Kind(), 0)));
  for (int i = 1; i <= 3; ++i) {
    ForgetAll();
    Move(Kind(), {160 + i, 100});
    EXPECT_EQ(HistogramsDrawn(), 1);
    EXPECT_EQ(TablesDrawn(), 1);
    EXPECT_TRUE(LinesWith({Drawn().front()}, "image ").empty());
    EXPECT_FALSE(IsRepainted(Kind()));
  }
  const auto isCounts = [](const std::string& line) { return line.ends_with(" Counts"); };
  const auto isImage = [](const std::string& line) { return line.starts_with("image "); };
  EXPECT_LT(std::find_if(Drawn().begin(), Drawn().end(), isCounts),
            std::find_if(Drawn().begin(), Drawn().end(), isImage));
}

TEST_P(EstimateDragsTest, AMoveToTheSamePlaceDrawsTheTableOnly) {
  OpenBoth(Kind());
  const Place press = CentreOf(Peak(Kind(), 0));
  const double distance = Distance(Kind(), 0);
  Press(Kind(), press);
  Move(Kind(), press);
  EXPECT_EQ(HistogramsDrawn(), 0);
  EXPECT_EQ(TablesDrawn(), 1);
  EXPECT_EQ(Distance(Kind(), 0), distance);
}

TEST_P(EstimateDragsTest, AMoveAlongOneAxisIsAMove) {
  OpenBoth(Kind());
  Press(Kind(), CentreOf(Peak(Kind(), 0)));
  Move(Kind(), {200, 100});
  Move(Kind(), {200, 80});
  EXPECT_NEAR(PeakCount(0), (AxisY(Kind()) - 80) / PixelsPerCount(), 1e-9);
  Move(Kind(), {240, 80});
  EXPECT_NEAR(Distance(Kind(), 0), 2.0, 1e-12);
}

TEST_P(EstimateDragsTest, APeakStaysBetweenTheEndsOfThePlot) {
  OpenBoth(Kind());
  Press(Kind(), CentreOf(Peak(Kind(), 0)));
  Move(Kind(), {kPlotRight + 30, 100});
  EXPECT_NEAR(Distance(Kind(), 0), 6.0, 1e-12);
  Move(Kind(), {0, 100});
  EXPECT_NEAR(Distance(Kind(), 0), 0.0, 1e-12);
  Move(Kind(), {65530, 100});
  EXPECT_NEAR(Distance(Kind(), 0), 6.0, 1e-12) << "how a place left of the window is told";
}

TEST_P(EstimateDragsTest, TheLastPlaceIsTheLimitedOne) {
  OpenBoth(Kind());
  Press(Kind(), CentreOf(Peak(Kind(), 0)));
  Move(Kind(), {kPlotRight + 30, 1000});
  EXPECT_EQ(Gesture(Kind()).LastX, kPlotRight);
  EXPECT_EQ(Gesture(Kind()).LastY, Kind() == ViewKind::Amplitude ? kPlotBottom : 240 - kHalf);
  ForgetAll();
  Move(Kind(), {kPlotRight + 90, 2000});
  EXPECT_EQ(HistogramsDrawn(), 0) << "further out is no move";
  EXPECT_EQ(TablesDrawn(), 1);
}

TEST_P(EstimateDragsTest, APeakMayStandAboveThePlot) {
  OpenBoth(Kind());
  Drag(Kind(), CentreOf(Peak(Kind(), 0)), {240, 10});
  EXPECT_NEAR(PeakCount(0), (AxisY(Kind()) - 10) / PixelsPerCount(), 1e-9);
}

TEST_F(EstimateViewsTest, AnAmplitudeIsNotPulledBelowTheAxis) {
  OpenBoth(ViewKind::Amplitude);
  Press(ViewKind::Amplitude, CentreOf(Peak(ViewKind::Amplitude, 0)));
  Move(ViewKind::Amplitude, {240, 230});
  EXPECT_EQ(CentreOf(Peak(ViewKind::Amplitude, 0)), (Place{240, kPlotBottom}));
  EXPECT_EQ(Amplitude().Terms[0].Area, 0.0);
}

TEST_F(EstimateViewsTest, ADurationIsPulledBelowTheZeroLineDownToTheWindowsEnd) {
  OpenBoth(ViewKind::Duration);
  Press(ViewKind::Duration, CentreOf(Peak(ViewKind::Duration, 0)));
  Move(ViewKind::Duration, {240, 200});
  const double perCount = 0.05 * std::numbers::ln10 / std::numbers::e;
  EXPECT_NEAR(Duration().Terms[0].Area * perCount, -80 / 4.0, 1e-9);
  EXPECT_EQ(Duration().Terms[0].Weight, 1.0) << "a share of a negative sum";
  Move(ViewKind::Duration, {240, 239});
  EXPECT_EQ(CentreOf(Peak(ViewKind::Duration, 0)), (Place{240, 240 - kHalf}));
  EXPECT_NEAR(Duration().Terms[0].Area * perCount, -114 / 4.0, 1e-9);
}

TEST_F(EstimateViewsTest, TheLowestPlaceOfADurationIsCutToAWholePixelOnce) {
  OpenBoth(ViewKind::Duration);
  WindowOf(ViewKind::Duration).Client = {0, 0, 733, 391};  // half a handle is 6.87
  SetTerms(ViewKind::Duration, {2.0});
  Press(ViewKind::Duration, CentreOf(Peak(ViewKind::Duration, 0)));
  Move(ViewKind::Duration, {240, 390});
  EXPECT_EQ(Gesture(ViewKind::Duration).LastY, 384);
  EXPECT_EQ(Peak(ViewKind::Duration, 0).Top, 377);
}

TEST_F(EstimateViewsTest, ADurationConstrainedToPositiveStaysAboveTheAxis) {
  Duration().ConstrainPositive = true;
  OpenBoth(ViewKind::Duration);
  Press(ViewKind::Duration, CentreOf(Peak(ViewKind::Duration, 0)));
  Move(ViewKind::Duration, {240, 230});
  EXPECT_EQ(CentreOf(Peak(ViewKind::Duration, 0)), (Place{240, kPlotBottom}));
  EXPECT_EQ(Duration().Terms[0].Area, 0.0);
}

TEST_F(EstimateViewsTest, ANegativeDurationOnASquareRootAxisHasTheAreaOfItsMirrorImage) {
  Duration().SquareRootAxis = true;
  FillLevels(100, [](LevelRecord& level, std::int32_t) { level.Duration = 0.00105; });
  OpenBoth(ViewKind::Duration);
  Press(ViewKind::Duration, CentreOf(Peak(ViewKind::Duration, 0)));
  Move(ViewKind::Duration, {240, kZeroLine - 40});
  const double above = Duration().Terms[0].Area;
  Move(ViewKind::Duration, {240, kZeroLine + 40});
  EXPECT_GT(above, 0.0);
  EXPECT_NEAR(Duration().Terms[0].Area, -above, 1e-9);
}

TEST_P(EstimateDragsTest, WeightsAreZeroUntilAnAreaIsAboveZero) {
  OpenBoth(Kind());
  SetTerms(Kind(), {1.0, 3.0});
  Press(Kind(), CentreOf(Peak(Kind(), 1)));
  Move(Kind(), {240, AxisY(Kind())});
  EXPECT_EQ(Weight(Kind(), 0), 0.0);
  EXPECT_EQ(Weight(Kind(), 1), 0.0);
  Move(Kind(), {240, AxisY(Kind()) - 1});
  EXPECT_EQ(Weight(Kind(), 0), 0.0);
  EXPECT_EQ(Weight(Kind(), 1), 1.0);
}

TEST_P(EstimateDragsTest, ATermThatLeavesTheAxisInADragComesBackWithIt) {
  OpenBoth(Kind());
  SetTerms(Kind(), {1.0, 2.0, 3.0});
  Press(Kind(), CentreOf(Peak(Kind(), 1)));
  for (const int x : {kAxisEnd + 20, kAxisEnd + 40}) {
    Move(Kind(), {x, 100});
    ASSERT_EQ(MarkerCount(Kind()), 2);
    EXPECT_EQ(Peak(Kind(), 0).TermIndex, 0) << "the others keep their handles";
    EXPECT_EQ(Peak(Kind(), 1).TermIndex, 2);
    EXPECT_NEAR(Distance(Kind(), 1), (x - kPlotLeft) / kPixelsPerUnit, 1e-12);
  }
  Move(Kind(), {300, 100});
  EXPECT_EQ(MarkerCount(Kind()), 3);
  EXPECT_NEAR(Distance(Kind(), 0), 1.0, 1e-12);
  EXPECT_NEAR(Distance(Kind(), 1), 2.75, 1e-12);
  EXPECT_NEAR(Distance(Kind(), 2), 3.0, 1e-12);
  EXPECT_THAT(RectOf(Peak(Kind(), 1)), ::testing::ElementsAreArray(SquareAt({300, 100})));
}

TEST_P(EstimateDragsTest, ADragEndsWithTheFitView) {
  for (const std::size_t term : {0u, 1u}) {
    OpenBoth(Kind());
    SetTerms(Kind(), {1.0, 3.0});
    Press(Kind(), CentreOf(Peak(Kind(), term)));
    DestroyView(workspace(), Fit());
    ForgetAll();
    Move(Kind(), {240, 100});
    Release(Kind(), {240, 100});
    EXPECT_NEAR(Distance(Kind(), 0), 1.0, 1e-12) << "the term that stays";
    EXPECT_NEAR(Distance(Kind(), 1), 3.0, 1e-12);
    EXPECT_EQ(Area(Kind(), term), 0.0);
    EXPECT_TRUE(Drawn().empty());
    EXPECT_FALSE(IsRepainted(Kind()));
    DestroyView(workspace(), Kind());
  }
}

TEST_P(EstimateDragsTest, ADragThatEndedWithTheFitViewDoesNotGoOnInTheNextOne) {
  OpenBoth(Kind());
  Press(Kind(), CentreOf(Peak(Kind(), 0)));
  DestroyView(workspace(), Fit());
  Open(Fit());
  Move(Kind(), {240, 100});
  EXPECT_NEAR(Distance(Kind(), 0), 1.0, 1e-12);
  EXPECT_EQ(Area(Kind(), 0), 0.0);
}

TEST_P(EstimateDragsTest, TheTableIsDrawnOnTheBackgroundOfItsViewInADrag) {
  OpenBoth(Kind());
  View(Fit()).Colors[0] = {7, 8, 9};
  Press(Kind(), CentreOf(Peak(Kind(), 0)));
  Move(Kind(), {240, 100});
  EXPECT_EQ(LinesWith(Drawn(), "background ").back(), "background 7 8 9");
  ForgetAll();
  Release(Kind(), {240, 100});
  EXPECT_EQ(LinesWith(Drawn(), "background ").front(), "background 7 8 9");
}

TEST_P(EstimateDragsTest, AWindowWithoutRoomMovesNoTerm) {
  OpenBoth(Kind());
  const double distance = Distance(Kind(), 0);
  Press(Kind(), CentreOf(Peak(Kind(), 0)));
  WindowOf(Kind()).Client = {0, 0, 0, 0};
  Paint(Kind());
  for (const int x : {0, 1, 500}) Move(Kind(), {x, -20});
  EXPECT_EQ(Distance(Kind(), 0), distance);
  EXPECT_EQ(Area(Kind(), 0), 0.0);
}

// --- Releases ------------------------------------------------------------------------------------

TEST_P(EstimateDragsTest, AReleaseAtThePressLeavesTheTableAsTheLastMoveDrewIt) {
  OpenBoth(Kind());
  const Place press = CentreOf(Peak(Kind(), 0));
  Press(Kind(), press);
  Move(Kind(), {240, 100});
  ForgetAll();
  Release(Kind(), press);
  EXPECT_TRUE(Drawn().empty());
  EXPECT_FALSE(IsRepainted(Kind()));
}

TEST_P(EstimateDragsTest, AReleaseElsewhereDrawsTheTableAndRepaintsTheHistogram) {
  OpenBoth(Kind());
  const Place press = CentreOf(Peak(Kind(), 0));
  for (const Place& end : {Place{press.X + 1, press.Y}, Place{press.X, press.Y + 1}}) {
    Press(Kind(), press);
    ForgetAll();
    Release(Kind(), end);
    EXPECT_EQ(TablesDrawn(), 1);
    EXPECT_TRUE(IsRepainted(Kind()));
  }
}

}  // namespace
}  // namespace ondrel
