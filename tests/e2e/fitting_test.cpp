// Estimates by mouse: the view of fit parameters and what it turns on, terms that double clicks add
// and remove, handles that are dragged, and the table that follows.
#include <gmock/gmock.h>

#include <cmath>

#include "fitting_fixture.h"
#include "text_reader.h"

namespace ondrel::e2e {
namespace {

class Estimates : public FittingTest {
 protected:
  /// Places on the axis, in its units, far enough from each other for their handles.
  [[nodiscard]] double Spot(int number) const {
    return FirstAxis(Kind()).Minimum + 0.5 + 0.45 * number;
  }

  void ExpectWhere(const FitTable& table, std::size_t term, double axisValue) {
    ASSERT_GT(table.Terms.size(), term);
    const Plot plot = hand_.PlotNow();
    EXPECT_NEAR(table.Terms[term].Where, Shown(axisValue), PixelAt(plot, axisValue)) << term;
  }

  /// A first term dragged to a place in the upper half of the plot.
  Point LiftFirstTerm(double axisValue, double height) {
    const Plot plot = hand_.PlotNow();
    const Point target = Above(plot, axisValue, height);
    hand_.Drag(plot.OnAxis(Kind().FirstEstimate), target);
    return target;
  }
};

TEST_P(Estimates, ADoubleClickOpensTheFitParametersAndASingleOneDoesNot) {
  OpenHistogram(RecordingOf({}));
  const Picture before = HistogramPicture();
  const Point middle{before.Width / 2, before.Height / 2};
  EXPECT_FALSE(CanFit());
  hand_.Click(middle);
  hand_.Click(middle);
  EXPECT_FALSE(program_.IsOpen(Kind().Fit));
  EXPECT_EQ(HistogramPicture(), before);
  hand_.DoubleClick(middle);
  program_.WaitForTopView(Kind().Fit);
}

TEST_P(Estimates, ManualFitOpensTheParametersOnceAndTurnsAutomaticFitOn) {
  OpenHistogram(RecordingOf({}));
  EXPECT_FALSE(CanFit());
  program_.Key(Kind().AutomaticFitKey, {VK_CONTROL});  // dead while the entry is greyed
  EXPECT_EQ(HistogramPicture().Count(kBlue), 0);
  program_.Key(Kind().ManualFitKey, {VK_CONTROL});
  program_.WaitForTopView(Kind().Fit);
  const Window fit = Fit();
  program_.Command(Kind().View);
  program_.WaitForTopView(Kind().Histogram);
  EXPECT_TRUE(CanFit());
  program_.Command(Kind().ManualFit);
  program_.WaitForTopView(Kind().Fit);
  EXPECT_EQ(Fit(), fit);
  EXPECT_EQ(program_.ViewTitles().size(), 4u) << program_.Describe();
}

TEST_P(Estimates, ClosingTheParametersTakesCurveHandlesAndAutomaticFitAway) {
  OpenHistogramWithFit(RecordingOf({}));
  // Without the tables nothing covers the histogram afterwards and has it painted for that.
  for (const int table : {command::kViewLevel, command::kViewEvent}) {
    program_.Command(table);
    program_.WaitForTopView(table == command::kViewLevel ? "Level" : "Event");
    program_.Key(VK_F4, {VK_CONTROL});
  }
  program_.WaitForNoView("Event");
  program_.Command(Kind().View);
  program_.WaitForViews({Kind().Histogram, Kind().Fit});
  const Plot plot = hand_.PlotNow();
  EXPECT_TRUE(ShowsHandle(HistogramPicture(), plot, plot.OnAxis(Kind().FirstEstimate)));
  hand_.DoubleClick(plot.OnAxis(Spot(5)));
  EXPECT_EQ(Table().Terms.size(), 2u);
  program_.Command(Kind().ManualFit);
  program_.WaitForTopView(Kind().Fit);
  program_.Key(VK_F4, {VK_CONTROL});
  program_.WaitForViews({Kind().Histogram});
  EXPECT_EQ(HistogramPicture().Count(kBlue), 0);
  EXPECT_FALSE(CanFit());
  hand_.Click(plot.OnAxis(Spot(2)));  // no gesture without the table
  EXPECT_EQ(HistogramPicture().Count(kBlue), 0);
  program_.Command(Kind().ManualFit);
  program_.WaitForTopView(Kind().Fit);
  EXPECT_EQ(Table().Terms.size(), 1u);
}

TEST_P(Estimates, TheParametersShowTheFormulaAndATableWithOneTerm) {
  const Channel channel;
  OpenHistogramWithFit(RecordingOf(channel));
  const Picture view = FitPicture();
  const Picture formula = view.Cut({0, 0, Kind().FormulaWidth, Kind().FormulaHeight - 4});
  EXPECT_GT(formula.Count(kBlack), 300);
  const Picture beside = view.Cut({Kind().FormulaWidth, 0, view.Width, Kind().FormulaHeight - 4});
  EXPECT_EQ(beside.Count(kWhite), static_cast<int>(beside.Pixels.size()));
  const FitTable table = ReadFitTable(Kind(), view);
  EXPECT_EQ(table.Events, LevelsOf(channel));
  ASSERT_EQ(table.Terms.size(), 1u);
  EXPECT_EQ(table.Terms[0].Weight, 0.0);
  EXPECT_NEAR(table.Terms[0].Where / Shown(Kind().FirstEstimate), 1.0, 1e-3);
  EXPECT_EQ(table.Terms[0].StdDev, IsAmplitude() ? 1.0 : 0.0);
  Keep(view, "fit_parameters");
}

TEST_P(Estimates, DoubleClicksAddTermsOnTheAxisAndRemoveThemFromTheirHandles) {
  OpenHistogramWithFit(RecordingOf({}));
  const Plot plot = hand_.PlotNow();
  for (const int spot : {3, 6}) hand_.DoubleClick(plot.OnAxis(Spot(spot)));
  FitTable table = Table();
  ASSERT_EQ(table.Terms.size(), 3u);
  ExpectWhere(table, 1, Spot(3));
  ExpectWhere(table, 2, Spot(6));
  EXPECT_EQ(table.Terms[2].Weight, 0.0);
  Picture view = HistogramPicture();
  for (const int spot : {3, 6}) EXPECT_TRUE(ShowsHandle(view, plot, plot.OnAxis(Spot(spot))));

  hand_.DoubleClick(plot.OnAxis(Spot(3)));
  table = Table();
  ASSERT_EQ(table.Terms.size(), 2u);
  ExpectWhere(table, 1, Spot(6));
  view = HistogramPicture();
  EXPECT_FALSE(ShowsHandle(view, plot, plot.OnAxis(Spot(3))));
  EXPECT_TRUE(ShowsHandle(view, plot, plot.OnAxis(Spot(6))));

  hand_.DoubleClick(plot.OnAxis(Kind().FirstEstimate));
  EXPECT_EQ(Table().Terms.size(), 1u);
  hand_.DoubleClick(plot.OnAxis(Spot(6)));  // the last one stays
  EXPECT_EQ(Table().Terms.size(), 1u);
  ExpectWhere(Table(), 0, Spot(6));
}

TEST_P(Estimates, DoubleClicksBesideTheAxisAddNothing) {
  OpenHistogramWithFit(RecordingOf({}));
  const Plot plot = hand_.PlotNow();
  const Picture before = HistogramPicture();
  const Point spot = plot.OnAxis(Spot(5));
  const Point beside[] = {{spot.X, spot.Y + 3},
                          {spot.X + 40, spot.Y - 3},
                          {spot.X, spot.Y - 60},
                          {static_cast<int>(plot.Left) - 2, spot.Y},
                          {static_cast<int>(plot.Right) + 2, spot.Y}};
  for (const Point& place : beside) hand_.DoubleClick(place);
  EXPECT_EQ(Table().Terms.size(), 1u);
  EXPECT_EQ(HistogramPicture(), before);
  hand_.DoubleClick({spot.X, spot.Y + 2});
  hand_.DoubleClick({spot.X + 60, spot.Y - 2});
  EXPECT_EQ(Table().Terms.size(), 3u);
}

TEST_P(Estimates, TenTermsAreTheLimit) {
  OpenHistogramWithFit(RecordingOf({}));
  const Plot plot = hand_.PlotNow();
  hand_.Drag(plot.OnAxis(Kind().FirstEstimate), plot.OnAxis(Spot(0)));
  for (int spot = 1; spot < 10; ++spot) hand_.DoubleClick(plot.OnAxis(Spot(spot)));
  EXPECT_EQ(Table().Terms.size(), 10u);
  hand_.DoubleClick(plot.OnAxis(Spot(0) - 0.25));
  EXPECT_EQ(Table().Terms.size(), 10u);
  hand_.DoubleClick(plot.OnAxis(Spot(4)));
  EXPECT_EQ(Table().Terms.size(), 9u);
  Keep(FitPicture(), "fit_parameters_of_nine_terms");
}

TEST_P(Estimates, CurveHandleAndTableFollowADragWhileTheButtonIsHeld) {
  OpenHistogramWithFit(RecordingOf({}));
  const Plot plot = hand_.PlotNow();
  const double distance = IsAmplitude() ? -1.0 : 0.5;  // a curve beside the width bar
  Point last = plot.OnAxis(Kind().FirstEstimate);
  hand_.Press(last);
  Picture lastView = program_.HeldPicture(Histogram());
  Picture lastFit = program_.HeldPicture(Fit());
  const struct {
    double Where;
    double Height;
  } kSteps[] = {{1.4, 0.2}, {2.0, 0.5}, {2.6, 0.9}, {2.2, 0.6}};
  for (const auto& step : kSteps) {
    const double where = FirstAxis(Kind()).Minimum + step.Where;
    const Point now = Above(plot, where, step.Height);
    hand_.Move(now);
    const Picture view = program_.HeldPicture(Histogram());
    const Picture fit = program_.HeldPicture(Fit());
    EXPECT_NE(view, lastView);
    EXPECT_NE(fit, lastFit);
    EXPECT_TRUE(ShowsHandle(view, plot, now)) << step.Where;
    EXPECT_FALSE(ShowsHandle(view, plot, last)) << step.Where;
    const double beside = step.Height * CurveBeside(distance, 1.0);
    EXPECT_TRUE(CurvePasses(view, Above(plot, where + distance, beside))) << step.Where;
    const FitTable table = ReadFitTable(Kind(), fit);
    ExpectWhere(table, 0, where);
    EXPECT_EQ(table.Terms.at(0).Weight, 1.0);
    last = now;
    lastView = view;
    lastFit = fit;
  }
  hand_.Release();
  EXPECT_EQ(HistogramPicture(), lastView);
  EXPECT_EQ(FitPicture(), lastFit);
  hand_.Press({last.X + 40, last.Y});  // beside the handle: nothing is held
  hand_.Move({last.X + 80, last.Y - 30});
  hand_.Release();
  EXPECT_EQ(HistogramPicture(), lastView);
}

TEST_P(Estimates, WeightsAreTheSharesOfTheAreas) {
  OpenHistogramWithFit(RecordingOf({}));
  const Plot plot = hand_.PlotNow();
  LiftFirstTerm(Spot(2), 0.6);
  hand_.DoubleClick(plot.OnAxis(Spot(7)));
  EXPECT_EQ(Table().Terms.at(1).Weight, 0.0);
  hand_.Drag(plot.OnAxis(Spot(7)), Above(plot, Spot(7), 0.3));
  const FitTable table = Table();
  ASSERT_EQ(table.Terms.size(), 2u);
  // Equal widths: the areas are as the heights, give or take a pixel of some hundreds.
  EXPECT_NEAR(table.Terms[0].Weight, 2.0 / 3.0, 0.01);
  EXPECT_NEAR(table.Terms[1].Weight, 1.0 / 3.0, 0.01);
}

/// The edges of the plot lie a little beyond the axis, where terms have no handles.
TEST_P(Estimates, ATermDraggedOutOfThePlotIsHeldAtItsEdge) {
  OpenHistogramWithFit(RecordingOf({}));
  const Plot plot = hand_.PlotNow();
  for (const int edge : {static_cast<int>(plot.Left), static_cast<int>(plot.Right)}) {
    const bool isLeft = edge < plot.XOf(Spot(3));
    hand_.DoubleClick(plot.OnAxis(Spot(3)));
    hand_.Press(plot.OnAxis(Spot(3)));
    hand_.Move(Above(plot, Spot(3), 0.5));
    hand_.Move({edge + (isLeft ? -60 : 60), plot.BottomPixel() - 100});
    hand_.Release();
    ExpectWhere(Table(), isLeft ? 1 : 2, plot.ValueAt(edge));
    EXPECT_FALSE(ShowsHandle(HistogramPicture(), plot, {edge, plot.BottomPixel() - 100}));
  }
}

FOR_BOTH_HISTOGRAMS(Estimates);

// --- What only one of the two has ----------------------------------------------------------------

class AmplitudeEstimates : public Estimates {
 protected:
  /// The bar reaches from the middle of the peak half a standard deviation to either side. Looked
  /// at is what stands out of the handle on the left.
  static bool ShowsWidthBar(const Picture& view, const Plot& plot, Point peak, double stdDev) {
    const int left = peak.X - static_cast<int>(stdDev * plot.PerUnit / 2.0) + 2;
    const int right = peak.X - static_cast<int>(plot.HandleHalf) - 2;
    for (int y = peak.Y - 1; y <= peak.Y + 1; ++y) {
      if (view.Cut({left, y, right, y + 1}).Count(kBlue) == right - left) return true;
    }
    return false;
  }
};

TEST_P(AmplitudeEstimates, TheSecondHandleWidensATermAndKeepsItsHeight) {
  OpenHistogramWithFit(RecordingOf({}));
  const Plot plot = hand_.PlotNow();
  const Point peak = LiftFirstTerm(2.5, 0.6);
  const Point handle = WidthHandle(plot, peak, 1.0);
  hand_.Press(handle);
  for (const double stdDev : {1.3, 0.7, 0.5}) {
    const int moved = static_cast<int>((stdDev - 1.0) * plot.PerUnit / 2.0);
    hand_.Move({handle.X + moved, handle.Y});
    const Picture view = program_.HeldPicture(Histogram());
    EXPECT_TRUE(ShowsHandle(view, plot, peak)) << stdDev;
    EXPECT_TRUE(ShowsWidthBar(view, plot, peak, stdDev)) << stdDev;
    // A pixel of the width is up to four of the height where the curve is steep.
    EXPECT_TRUE(CurvePasses(view, Above(plot, 2.5 + stdDev, 0.6 * CurveBeside(1.0, 1.0)), 6))
        << stdDev;
    const FitTable table = ReadFitTable(Kind(), program_.HeldPicture(Fit()));
    EXPECT_NEAR(table.Terms.at(0).StdDev, stdDev, 2.0 * 2.0 / plot.PerUnit) << stdDev;
    ExpectWhere(table, 0, 2.5);
  }
  hand_.Release();
}

TEST_P(AmplitudeEstimates, TheSecondHandleDoesNotCrossThePeaks) {
  OpenHistogramWithFit(RecordingOf({}));
  const Plot plot = hand_.PlotNow();
  const Point peak = LiftFirstTerm(2.5, 0.6);
  const Point handle = WidthHandle(plot, peak, 1.0);
  hand_.Press(handle);
  for (int x = peak.X + 20; x > peak.X - 10; x -= 2) hand_.Move({x, peak.Y});
  hand_.Release();
  // Its middle stops at the right side of the other, half of its own width from the peak.
  EXPECT_NEAR(Table().Terms.at(0).StdDev, plot.HandleHalf / plot.PerUnit, 2.0 * 2.0 / plot.PerUnit);
  EXPECT_TRUE(ShowsHandle(HistogramPicture(), plot, peak));
}

INSTANTIATE_TEST_SUITE_P(Only, AmplitudeEstimates, ::testing::Values(&kAmplitudeTwin),
                         [](const auto& info) { return std::string(info.param->Name); });

class DurationEstimates : public Estimates {};

TEST_P(DurationEstimates, ATermIsPulledBelowTheLineOfZero) {
  OpenHistogramWithFit(RecordingOf({}));
  const Plot plot = hand_.PlotNow();
  const Point below = LiftFirstTerm(-3.0, -0.5);
  ASSERT_GT(below.Y, plot.BottomPixel());
  const Picture view = HistogramPicture();
  EXPECT_TRUE(ShowsHandle(view, plot, below));
  EXPECT_TRUE(CurvePasses(view, Above(plot, -2.5, -0.5 * CurveBeside(0.5, 0.0))));
  hand_.DoubleClick(plot.OnAxis(-1.0));
  hand_.Drag(plot.OnAxis(-1.0), Above(plot, -1.0, 0.75));
  const FitTable table = Table();
  EXPECT_NEAR(table.Terms.at(0).Weight, -2.0, 0.05);
  EXPECT_NEAR(table.Terms.at(1).Weight, 3.0, 0.05);
}

INSTANTIATE_TEST_SUITE_P(Only, DurationEstimates, ::testing::Values(&kDurationTwin),
                         [](const auto& info) { return std::string(info.param->Name); });

}  // namespace
}  // namespace ondrel::e2e
