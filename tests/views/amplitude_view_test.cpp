#include "views/amplitude_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

#include "views/amplitude_view_fixture.h"
#include "views/estimate_gestures.h"
#include "views/view_window.h"

namespace ondrel {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

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

TEST_F(AmplitudeViewTest, WithoutCountsAboveZeroThereAreNoBars) {
  for (const double tallest : {0.0, -15.0, std::numeric_limits<double>::quiet_NaN()}) {
    amplitude().YMaximum = tallest;
    DrawBars();
    EXPECT_THAT(Lines(), IsEmpty()) << tallest;
  }
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

TEST_F(AmplitudeViewTest, MoreTermsThanAFitHasRoomForAreNotDrawn) {
  OpenFitView();
  amplitude().TermCount = 1000;
  DrawFit();
  EXPECT_THAT(FitSteps(), Contains("curve 0 10"));
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

TEST_F(AmplitudeViewTest, TheViewIsDrawnAsItWasLaidOut) {
  LayoutAmplitude(workspace(), sink(), {0, 0, 1680, 1680});
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

TEST_F(AmplitudeViewTest, AColourIsSetBeforeEachPartOfTheAxesAndOnceForBarsAndFit) {
  OpenFitView();
  SetCurrents({1.0});
  DrawAll();
  EXPECT_THAT(LinesOf({"color"}),
              ElementsAre("color k 3 0 0",                   // the title of the X axis
                          "color K 4 0 0",                   // its line, and three times
                          "color K 4 0 0", "color k 3 0 0",  // a tick and its number
                          "color K 4 0 0", "color k 3 0 0",  //
                          "color K 4 0 0", "color k 3 0 0",  //
                          "color k 3 0 0",                   // the title of the Y axis
                          "color K 4 0 0",                   // its line, and three times
                          "color K 4 0 0", "color k 3 0 0",  // a tick and its count
                          "color K 4 0 0", "color k 3 0 0",  //
                          "color K 4 0 0", "color k 3 0 0",  //
                          "color k 1 0 0", "color K 2 0 0"));
}

TEST_F(AmplitudeViewTest, WithOneKindOfElementItsColourIsSetForEachAllTheSame) {
  amplitude().ShowLabels = false;
  DrawAll();
  std::vector<std::string> colors(8, "color K 4 0 0");  // two lines of three ticks each
  colors.push_back("color k 1 0 0");
  EXPECT_EQ(LinesOf({"color"}), colors);
  recording::Clear();
  amplitude().ShowLabels = true;
  amplitude().ShowAxes = false;
  DrawAll();
  std::fill_n(colors.begin(), 8, "color k 3 0 0");  // two titles of three numbers each
  EXPECT_EQ(LinesOf({"color"}), colors);
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

// --- In its window -------------------------------------------------------------------------------

TEST_F(AmplitudeViewTest, TheViewOpensAndPaints) {
  EXPECT_FALSE(LinesWith(OpenAndPaint(ViewKind::Amplitude), "filled rect").empty());
}

TEST_F(AmplitudeViewTest, TheMouseGoesToTheEstimatesOfAmplitudes) {
  EXPECT_EQ(FactsOf(ViewKind::Amplitude).Routines->Mouse, &kAmplitudeMouse);
  EXPECT_EQ(FactsOf(ViewKind::Amplitude).Routines->Scrolled, nullptr);
}

}  // namespace
}  // namespace ondrel
