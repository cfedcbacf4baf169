#include "views/amplitude_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "output/screen_sink.h"
#include "support/histogram_view_test.h"
#include "views/estimate_gestures.h"
#include "views/histogram_layout.h"
#include "views/view_window.h"

namespace ondrel {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

/// Two ticks of 1 pA in ten bins of 126; counts up to 150, so that ticks stand at 0, 100 and 200.
class AmplitudeViewTest : public HistogramViewTest {
 protected:
  AmplitudeViewTest() {
    amplitude().TickMarks = 2;
    amplitude().BinsPerTick = 5;
    amplitude().YMaximum = 150.0;
    SetHeights(amplitude(), {0.0, 150.0, 20.0});
    auto& colors = View(ViewKind::Amplitude).Colors;
    colors = {RgbColor{1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {4, 0, 0}, {5, 0, 0}};
    LayoutAmplitude(workspace(), sink(), kRect);
  }

  void DrawAll() { DrawAmplitude(workspace(), sink(), kRect); }
  void DrawXAxis() { DrawAmplitudeXAxis(workspace(), sink(), kRect); }
  void DrawYAxis() { DrawAmplitudeYAxis(workspace(), sink(), kRect); }
  void DrawBars() { DrawAmplitudeBars(workspace(), sink()); }
  void DrawFit() { DrawAmplitudeFit(workspace(), sink()); }

  void OpenFitView() { OpenInert(ViewKind::AmplitudeFit); }

  void SetCurrents(const std::vector<double>& currents) {
    amplitude().TermCount = static_cast<std::int32_t>(currents.size());
    for (std::size_t i = 0; i < currents.size(); ++i) {
      amplitude().Terms[i] = {.Weight = 0.5, .Current = currents[i], .StdDev = 0.1, .Area = 10.0};
    }
  }

  /// The terms whose curve or handle was drawn, in order: "curve 0 2", "marker".
  std::vector<std::string> FitSteps() {
    std::vector<std::string> steps;
    for (const std::string& line : Lines()) {
      if (line.starts_with("amplitude curve ")) steps.push_back("curve " + line.substr(29));
      if (line.starts_with("line ")) steps.push_back("marker");
    }
    return steps;
  }
};

// --- X axis --------------------------------------------------------------------------------------

TEST_F(AmplitudeViewTest, TheXAxisIsTitleLineAndForEachTickItsNumber) {
  DrawXAxis();
  EXPECT_THAT(Lines(), ElementsAre("color k 3 0 0", "left 650 1650 Amplitude (pA)",  //
                                   "color K 4 0 0", "line 230 1410 1490 1410",       //
                                   "line 230 1410 230 1445",                         //
                                   "color k 3 0 0", "left 222.5 1522 0.0",           //
                                   "color K 4 0 0", "line 860 1410 860 1445",        //
                                   "color k 3 0 0", "left 852.5 1522 1.0",           //
                                   "color K 4 0 0", "line 1490 1410 1490 1445",      //
                                   "color k 3 0 0", "left 1482.5 1522 2.0"));
}

TEST_F(AmplitudeViewTest, NumbersAreCentredByTheirWidthInTheFontOfTheDevice) {
  toolkit::SetFontHeight(workspace().Graphics.Device, 20);  // 10 a letter
  amplitude().Minimum = -10.0;
  amplitude().PerTick = 5.0;
  DrawXAxis();
  EXPECT_THAT(LinesOf({"left"}), ElementsAre("left 650 1650 Amplitude (pA)",  //
                                             "left 205 1522 -10.0",           // 50 wide
                                             "left 840 1522 -5.0",            // 40 wide
                                             "left 1475 1522 0.0"));
  toolkit::CleanUpDevice(workspace().Graphics.Device);
}

TEST_F(AmplitudeViewTest, NumbersHaveOneDecimal) {
  amplitude().Minimum = -0.26;
  amplitude().PerTick = 1234.5;
  DrawXAxis();
  EXPECT_THAT(LinesOf({"left"}), ElementsAre("left 650 1650 Amplitude (pA)", "left 220 1522 -0.3",
                                             "left 845 1522 1234.2", "left 1475 1522 2468.7"));
}

TEST_F(AmplitudeViewTest, ValuesAreAddedUpTickByTick) {
  amplitude().TickMarks = 5;
  amplitude().Minimum = -1.0;
  amplitude().PerTick = 0.2;  // five of them added to -1.0 come to just below 0
  DrawXAxis();
  EXPECT_THAT(Lines().back(), ::testing::EndsWith(" -0.0"));
}

TEST_F(AmplitudeViewTest, TheXAxisWithoutLabelsHasOneColour) {
  amplitude().ShowLabels = false;
  DrawXAxis();
  EXPECT_THAT(Lines(),
              ElementsAre("color K 4 0 0", "line 230 1410 1490 1410", "line 230 1410 230 1445",
                          "line 860 1410 860 1445", "line 1490 1410 1490 1445"));
}

TEST_F(AmplitudeViewTest, TheXAxisWithoutAxesIsTitleAndNumbers) {
  amplitude().ShowAxes = false;
  DrawXAxis();
  EXPECT_THAT(Lines(),
              ElementsAre("color k 3 0 0", "left 650 1650 Amplitude (pA)", "left 222.5 1522 0.0",
                          "left 852.5 1522 1.0", "left 1482.5 1522 2.0"));
}

TEST_F(AmplitudeViewTest, TicksStandAtWholeBinsOnTheScreenAndNotAtTheEndOfTheLine) {
  amplitude().TickMarks = 8;  // 40 bins of 31.5, cut to 31
  LayoutAmplitude(workspace(), kScreenSink, kRect);
  DrawXAxis();
  EXPECT_TRUE(HasLine("line 230 1410 1490 1410"));
  EXPECT_TRUE(HasLine("line 1470 1410 1470 1445"));  // 230 + 8 * 5 * 31
}

// --- Y axis --------------------------------------------------------------------------------------

TEST_F(AmplitudeViewTest, TheYAxisIsTitleLineAndForEachTickItsCount) {
  DrawYAxis();
  EXPECT_THAT(Lines(), ElementsAre("color k 3 0 0", "left 115 174 Counts",    //
                                   "color K 4 0 0", "line 230 290 230 1410",  //
                                   "line 230 1410 195 1410",                  //
                                   "color k 3 0 0", "right 182 1410 0",       //
                                   "color K 4 0 0", "line 230 850 195 850",   //
                                   "color k 3 0 0", "right 182 850 100",      //
                                   "color K 4 0 0", "line 230 290 195 290",   //
                                   "color k 3 0 0", "right 182 290 200"));
}

TEST_F(AmplitudeViewTest, OnASquareRootAxisTicksStandAtTheRootsOfTheirShares) {
  amplitude().SquareRootAxis = true;
  amplitude().YMaximum = 20.0;  // the root of 400 counts
  DrawYAxis();
  // 1410 less 1120 times the roots of 0, 1/4, 1/2, 3/4 and 1.
  EXPECT_THAT(LinesOf({"right"}),
              ElementsAre("right 182 1410 0", "right 182 850 100", "right 182 618.040405 200",
                          "right 182 440.051548 300", "right 182 290 400"));
}

TEST_F(AmplitudeViewTest, OnASquareRootAxisNoTickStandsAboveTheTallestBar) {
  amplitude().SquareRootAxis = true;
  amplitude().YMaximum = std::sqrt(250.0);
  DrawYAxis();
  EXPECT_THAT(LinesOf({"right"}), ElementsAre("right 182 1410 0", "right 182 701.649804 100",
                                              "right 182 408.241546 200"));
}

TEST_F(AmplitudeViewTest, TheTopTickIsNeverLostToRounding) {
  for (std::int32_t height = 50; height < 1000; ++height) {
    for (const std::int32_t intervals : {3, 7, 11}) {
      const IntRect rect{0, 17, 100, 17 + height};
      amplitude().YMaximum = 100.0 * intervals;
      LayoutAmplitude(workspace(), sink(), rect);
      recording::Clear();
      DrawAmplitudeYAxis(workspace(), sink(), rect);
      ASSERT_EQ(CountLines("right"), intervals + 1) << height << " high";
    }
  }
}

TEST_F(AmplitudeViewTest, TheTopTickOfASquareRootAxisIsNeverLostToRounding) {
  amplitude().SquareRootAxis = true;
  amplitude().CountsPerTick = 1;
  for (std::int32_t counts = 1; counts < 200; ++counts) {
    amplitude().YMaximum = std::sqrt(counts);
    LayoutAmplitude(workspace(), sink(), kRect);
    recording::Clear();
    DrawYAxis();
    ASSERT_EQ(CountLines("right"), counts + 1);
  }
}

TEST_F(AmplitudeViewTest, TheYAxisWithoutLabelsIsLines) {
  amplitude().ShowLabels = false;
  DrawYAxis();
  EXPECT_THAT(Lines(),
              ElementsAre("color K 4 0 0", "line 230 290 230 1410", "line 230 1410 195 1410",
                          "line 230 850 195 850", "line 230 290 195 290"));
}

TEST_F(AmplitudeViewTest, TheYAxisWithoutAxesIsTitleAndCounts) {
  amplitude().ShowAxes = false;
  DrawYAxis();
  EXPECT_THAT(Lines(), ElementsAre("color k 3 0 0", "left 115 174 Counts", "right 182 1410 0",
                                   "right 182 850 100", "right 182 290 200"));
}

TEST_F(AmplitudeViewTest, AnEmptyHistogramHasAxesWithTheFirstCountAloneAndNoBars) {
  amplitude().YMaximum = 0.0;
  SetHeights(amplitude(), {});
  DrawAll();
  EXPECT_THAT(LinesOf({"right"}), ElementsAre("right 182 1410 0"));
  EXPECT_TRUE(HasLine("line 230 290 230 1410"));
  EXPECT_FALSE(HasLine("line 230 1410 195 1410")) << "a tick";
  EXPECT_EQ(CountLines("left"), 5);  // both titles, three amplitudes
  EXPECT_THAT(LinesOf({"filled", "bar"}), IsEmpty());
}

// --- Bars ----------------------------------------------------------------------------------------

TEST_F(AmplitudeViewTest, BarsAreDrawnInTheirStyle) {
  const std::string plot = " 230 1410 1490 290: 10 bins, width 126 scale 5.6 peak 150 scaled";
  amplitude().HistogramStyle = HistogramStyle::Filled;
  DrawBars();
  EXPECT_THAT(Lines(), ElementsAre("color k 1 0 0", "filled bars" + plot));
  recording::Clear();
  amplitude().HistogramStyle = HistogramStyle::Outlined;
  DrawBars();
  EXPECT_THAT(Lines(), ElementsAre("color K 1 0 0", "bar outline" + plot));
  recording::Clear();
  amplitude().HistogramStyle = HistogramStyle::Rectangles;
  DrawBars();
  EXPECT_THAT(Lines(), ElementsAre("color K 1 0 0", "bar rectangles" + plot));
}

TEST_F(AmplitudeViewTest, OnASquareRootAxisTheTallestBarFillsThePlot) {
  amplitude().SquareRootAxis = true;
  amplitude().YMaximum = 20.0;
  DrawBars();
  EXPECT_THAT(Lines().back(), ::testing::EndsWith("peak 20 fitted"));
}

TEST_F(AmplitudeViewTest, WithoutBinsThereAreNoBars) {
  toolkit::FreeMemory(amplitude().Bins);
  amplitude().Bins = nullptr;
  DrawBars();
  EXPECT_THAT(Lines(), IsEmpty());
}

TEST_F(AmplitudeViewTest, WithoutCountsThereAreNoBars) {
  amplitude().YMaximum = 0.0;
  DrawBars();
  EXPECT_THAT(Lines(), IsEmpty());
}

// --- Fit -----------------------------------------------------------------------------------------

TEST_F(AmplitudeViewTest, ThereAreCurvesOnlyWhileTheFitViewIsOpen) {
  SetCurrents({1.0});
  DrawFit();
  EXPECT_THAT(Lines(), IsEmpty());
  EXPECT_EQ(workspace().Graphics.BinCount, 0);
  OpenInert(ViewKind::DurationFit);
  DrawFit();
  EXPECT_THAT(Lines(), IsEmpty()) << "of the other fit";
  OpenFitView();
  DrawFit();
  EXPECT_THAT(Lines(), Not(IsEmpty()));
}

TEST_F(AmplitudeViewTest, TheSumIsOneCurveOfAllTerms) {
  OpenFitView();
  SetCurrents({0.5, 1.5});
  amplitude().FitStyle = FitStyle::Sum;
  DrawFit();
  EXPECT_EQ(Lines().front(), "color K 2 0 0");
  EXPECT_THAT(LinesOf({"amplitude"}), ElementsAre("amplitude curve 230 290 1410 0 2"));
  EXPECT_THAT(FitSteps(), ElementsAre("curve 0 2", "marker", "marker"));
  EXPECT_EQ(CountLines("color"), 1);
}

TEST_F(AmplitudeViewTest, ComponentsAreCurvesOfEachTermAfterItsMarker) {
  OpenFitView();
  SetCurrents({0.5, 1.5});
  amplitude().FitStyle = FitStyle::Component;
  DrawFit();
  EXPECT_THAT(FitSteps(), ElementsAre("marker", "curve 0 1", "marker", "curve 1 2"));
}

TEST_F(AmplitudeViewTest, BothIsTheSumAndThenEachTerm) {
  OpenFitView();
  SetCurrents({0.5, 1.5});
  amplitude().FitStyle = FitStyle::Both;
  DrawFit();
  EXPECT_THAT(FitSteps(), ElementsAre("curve 0 2", "marker", "curve 0 1", "marker", "curve 1 2"));
}

TEST_F(AmplitudeViewTest, ATermOutsideTheAxisHasNoMarkerAndStillItsCurve) {
  OpenFitView();
  SetCurrents({-0.01, 1.5, 2.01});
  amplitude().FitStyle = FitStyle::Component;
  amplitude().MarkerCount = 3;
  DrawFit();
  EXPECT_THAT(FitSteps(), ElementsAre("curve 0 1", "marker", "curve 1 2", "curve 2 3"));
  EXPECT_EQ(amplitude().MarkerCount, 1);
  EXPECT_EQ(amplitude().PeakMarkers[0].TermIndex, 1);
  EXPECT_EQ(amplitude().WidthMarkers[0].TermIndex, 1);
}

TEST_F(AmplitudeViewTest, TermsAtBothEndsOfTheAxisLieOnIt) {
  OpenFitView();
  SetCurrents({0.0, 2.0});
  DrawFit();
  EXPECT_EQ(amplitude().MarkerCount, 2);
}

TEST_F(AmplitudeViewTest, ATermThatIsNoNumberHasNoMarker) {
  OpenFitView();
  SetCurrents({std::numeric_limits<double>::quiet_NaN()});
  DrawFit();
  EXPECT_EQ(amplitude().MarkerCount, 0);
}

TEST_F(AmplitudeViewTest, AFitIsDrawnWithoutBarsTooAndKnowsTheBins) {
  OpenFitView();
  amplitude().YMaximum = 0.0;
  SetCurrents({1.0});
  DrawAll();
  EXPECT_THAT(FitSteps(), Contains("curve 0 1"));
  EXPECT_EQ(workspace().Graphics.BinCount, 10);
  EXPECT_DOUBLE_EQ(workspace().Graphics.BinWidth, 126.0);
}

TEST_F(AmplitudeViewTest, MoreTermsThanSlotsAreNotDrawn) {
  OpenFitView();
  amplitude().TermCount = 1000;
  DrawFit();
  EXPECT_THAT(FitSteps(), Contains("curve 0 100"));
  amplitude().TermCount = -5;
  recording::Clear();
  DrawFit();
  EXPECT_THAT(FitSteps(), ElementsAre("curve 0 0"));
}

// --- The whole -----------------------------------------------------------------------------------

TEST_F(AmplitudeViewTest, TheViewIsXAxisThenYAxisThenBarsThenFit) {
  OpenFitView();
  SetCurrents({1.0});
  DrawAll();
  EXPECT_THAT(LinesOf({"left 650", "left 115", "filled", "amplitude"}),
              ElementsAre("left 650 1651 Amplitude (pA)", "left 115 174 Counts",
                          "filled bars 230 1410 1490 290: 10 bins, width 126 scale 5.6 peak 150 "
                          "scaled",
                          "amplitude curve 230 290 1410 0 1"));
}

TEST_F(AmplitudeViewTest, TheXAxisStandsOneUnitBelowTheBars) {
  DrawAll();
  EXPECT_TRUE(HasLine("line 230 1411 1490 1411"));
  EXPECT_TRUE(HasLine("line 230 1411 230 1446"));
  EXPECT_TRUE(HasLine("left 222.5 1523 0.0"));
  EXPECT_TRUE(HasLine("line 230 290 230 1410"));
  EXPECT_DOUBLE_EQ(View(ViewKind::Amplitude).Frame.PlotBottom, 1410.0);
}

TEST_F(AmplitudeViewTest, TheViewIsLaidOutForItsRectangleFirst) {
  DrawAmplitude(workspace(), sink(), {0, 0, 1680, 1680});
  EXPECT_TRUE(HasLine("line 210 1401 1470 1401"));
}

TEST_F(AmplitudeViewTest, WithAxesAndLabelsOffTheViewShowsItsDataAlone) {
  amplitude().ShowAxes = false;
  amplitude().ShowLabels = false;
  DrawAll();
  EXPECT_EQ(Lines().size(), std::size_t{2});
  EXPECT_EQ(Lines().front(), "color k 1 0 0");
}

TEST_F(AmplitudeViewTest, EveryElementHasItsColourInForce) {
  OpenFitView();
  SetCurrents({1.0});
  DrawAll();
  EXPECT_THAT(ColorsOf({"left", "right"}), ElementsAre("color k 3 0 0"));
  EXPECT_THAT(ColorsOf({"filled"}), ElementsAre("color k 1 0 0"));
  EXPECT_THAT(ColorsOf({"rect", "amplitude"}), ElementsAre("color K 2 0 0"));
  EXPECT_THAT(ColorsOf({"line"}), ElementsAre("color K 2 0 0", "color K 4 0 0"));
  amplitude().TermCount = 0;
  recording::Clear();
  DrawAll();
  EXPECT_THAT(ColorsOf({"line"}), ElementsAre("color K 4 0 0"));
}

// --- Failing sinks -------------------------------------------------------------------------------

class FailingAmplitudeViewTest : public AmplitudeViewTest {
 protected:
  FailingAmplitudeViewTest() {
    OpenFitView();
    SetCurrents({0.5, 1.5});
    amplitude().FitStyle = FitStyle::Both;
  }
  static constexpr const char* kFirstOfSteps[] = {"line 230 1411 1490", "line 230 290", "filled",
                                                  "amplitude"};

  /// How many of the four steps were begun when what begins with `start` fails.
  std::size_t StepsUntil(const std::string& start) {
    recording::FailLine(start);
    DrawAll();
    EXPECT_EQ(workspace().Graphics.Status, recording::kFullDisk);
    std::size_t steps = 0;
    for (const char* step : kFirstOfSteps) steps += CountLines(step) > 0 ? 1 : 0;
    return steps;
  }
};

TEST_F(FailingAmplitudeViewTest, AFailureInTheXAxisLeavesTheRestUndone) {
  EXPECT_EQ(StepsUntil("left 222.5"), std::size_t{1});
  EXPECT_DOUBLE_EQ(View(ViewKind::Amplitude).Frame.PlotBottom, 1410.0);
}

TEST_F(FailingAmplitudeViewTest, AFailureInTheYAxisLeavesBarsAndFitUndone) {
  EXPECT_EQ(StepsUntil("right 182 850"), std::size_t{2});
}

TEST_F(FailingAmplitudeViewTest, AFailureInTheBarsLeavesTheFitUndone) {
  EXPECT_EQ(StepsUntil("filled"), std::size_t{2});  // the failing line itself is not written down
  EXPECT_THAT(FitSteps(), Not(Contains(StartsWith("curve"))));
}

TEST_F(FailingAmplitudeViewTest, AFailureInTheSumLeavesTheTermsUndone) {
  LayoutAmplitude(workspace(), sink(), kRect);
  recording::FailLine("amplitude curve 230 290 1410 0 2");
  DrawFit();
  EXPECT_THAT(FitSteps(), IsEmpty());
}

TEST_F(FailingAmplitudeViewTest, AFailureInAMarkerLeavesItsCurveUndone) {
  recording::FailLine("rect 529.25 ");  // of the first peak, at 545 less 15.75
  DrawFit();
  EXPECT_THAT(FitSteps(), ElementsAre("curve 0 2", "marker"));
}

TEST_F(FailingAmplitudeViewTest, AFailureInATermLeavesTheNextOneUndone) {
  recording::FailLine("amplitude curve 230 290 1410 0 1");
  DrawFit();
  EXPECT_THAT(FitSteps(), ElementsAre("curve 0 2", "marker"));
}

// --- Settings at their limits --------------------------------------------------------------------

TEST_F(AmplitudeViewTest, NoSettingHangsTheView) {
  constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
  for (const std::int32_t extreme : {-kMost - 1, -1, 0, 1, kMost}) {
    for (std::int32_t AmplitudeHistogram::*field :
         {&AmplitudeHistogram::CountsPerTick, &AmplitudeHistogram::MinimumTicks,
          &AmplitudeHistogram::TickMarks}) {
      for (const bool root : {false, true}) {
        const std::int32_t kept = amplitude().*field;
        amplitude().*field = extreme;
        amplitude().SquareRootAxis = root;
        amplitude().YMaximum = 1e9;
        LayoutAmplitude(workspace(), sink(), kRect);
        EXPECT_LT(CountParts(DrawAmplitudeXAxis), 33000);
        EXPECT_LT(CountParts(DrawAmplitudeYAxis), 33000);
        amplitude().*field = kept;
      }
    }
  }
}

TEST_F(AmplitudeViewTest, AnAxisOfCountsHasNoMoreTicksThanAnyDeviceCanShow) {
  amplitude().CountsPerTick = 1;
  amplitude().YMaximum = 1e6;
  LayoutAmplitude(workspace(), sink(), kRect);
  DrawYAxis();
  EXPECT_EQ(CountLines("right"), 16384);
}

TEST_F(AmplitudeViewTest, NothingBetweenTicksOfCountsReadsAsOne) {
  amplitude().CountsPerTick = 0;
  amplitude().YMaximum = 3.0;
  LayoutAmplitude(workspace(), sink(), kRect);
  DrawYAxis();
  EXPECT_THAT(LinesOf({"right"}), ElementsAre("right 182 1410 0", "right 182 1036.66667 1",
                                              "right 182 663.333333 2", "right 182 290 3"));
}

TEST_F(AmplitudeViewTest, APlotWithoutHeightHasTheFirstCountAlone) {
  for (const bool root : {false, true}) {
    amplitude().SquareRootAxis = root;
    LayoutAmplitude(workspace(), sink(), {0, 0, 0, 0});
    recording::Clear();
    DrawAmplitudeYAxis(workspace(), sink(), {0, 0, 0, 0});
    EXPECT_THAT(LinesOf({"right"}), ElementsAre("right 0 0 0"));
  }
}

TEST_F(AmplitudeViewTest, CountsBeyondTheRangeOfIntegersAreCutToIt) {
  amplitude().CountsPerTick = std::numeric_limits<std::int32_t>::max();
  LayoutAmplitude(workspace(), sink(), kRect);
  DrawYAxis();
  EXPECT_THAT(LinesOf({"right"}), ElementsAre("right 182 1410 0", "right 182 850 2147483647",
                                              "right 182 290 2147483647"));
}

// --- In its window -------------------------------------------------------------------------------

TEST_F(AmplitudeViewTest, TheViewOpensAndPaints) {
  ASSERT_TRUE(CanOpen(ViewKind::Amplitude));
  EXPECT_FALSE(LinesWith(OpenAndPaint(ViewKind::Amplitude), "filled rect").empty());
}

TEST_F(AmplitudeViewTest, TheMouseGoesToTheEstimatesOfAmplitudes) {
  EXPECT_EQ(FactsOf(ViewKind::Amplitude).Routines->Mouse, &kAmplitudeMouse);
  EXPECT_EQ(FactsOf(ViewKind::Amplitude).Routines->Scrolled, nullptr);
}

}  // namespace
}  // namespace ondrel
