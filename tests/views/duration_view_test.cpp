#include "views/duration_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "views/duration_view_fixture.h"
#include "views/estimate_gestures.h"
#include "views/view_window.h"

namespace ondrel {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

// --- Bars ----------------------------------------------------------------------------------------

TEST_F(DurationViewTest, BarsAreDrawnInTheirStyle) {
  const std::string plot = " 230 1410 1490 290: 10 bins, width 126 scale 56 peak 15 scaled";
  duration().HistogramStyle = HistogramStyle::Filled;
  DrawBars();
  EXPECT_THAT(Lines(), ElementsAre("color k 1 0 0", "filled bars" + plot));
  recording::Clear();
  duration().HistogramStyle = HistogramStyle::Outlined;
  DrawBars();
  EXPECT_THAT(Lines(), ElementsAre("color K 1 0 0", "bar outline" + plot));
  recording::Clear();
  duration().HistogramStyle = HistogramStyle::Rectangles;
  DrawBars();
  EXPECT_THAT(Lines(), ElementsAre("color K 1 0 0", "bar rectangles" + plot));
}

TEST_F(DurationViewTest, WithNegativeCountsBarsStandOnTheLineInTheMiddle) {
  AllowNegative();
  duration().SquareRootAxis = true;
  DrawBars();
  EXPECT_EQ(Lines().back(),
            "filled bars 230 850 1490 290: 10 bins, width 126 scale 28 peak 15 fitted");
}

TEST_F(DurationViewTest, BarsNeedATallestBarThatDiffersFromZero) {
  duration().YMaximum = -15.0;
  DrawBars();
  EXPECT_EQ(CountLines("filled bars"), 1);
}

TEST_F(DurationViewTest, WithoutBinsOrCountsThereAreNoBars) {
  duration().YMaximum = 0.0;
  DrawBars();
  EXPECT_THAT(Lines(), IsEmpty());
  duration().YMaximum = 15.0;
  toolkit::FreeMemory(duration().Bins);
  duration().Bins = nullptr;
  DrawBars();
  EXPECT_THAT(Lines(), IsEmpty());
}

TEST_F(DurationViewTest, AHistogramThatIsNotCountedYetIsCountedAndDrawn) {
  toolkit::FreeMemory(duration().Bins);
  duration().Bins = nullptr;
  FillLevels(3, [](LevelRecord& level, std::int32_t) { level.Duration = 5e-4; });
  DrawAll();
  EXPECT_THAT(LinesOf({"filled"}), ElementsAre(::testing::EndsWith("peak 3 scaled")));
}

// --- Fit -----------------------------------------------------------------------------------------

TEST_F(DurationViewTest, ThereAreCurvesOnlyWhileTheFitViewIsOpen) {
  SetTimeConstants({1e-4});
  DrawFit();
  EXPECT_THAT(Lines(), IsEmpty());
  OpenInert(ViewKind::AmplitudeFit);
  DrawFit();
  EXPECT_THAT(Lines(), IsEmpty()) << "of the other fit";
  OpenFitView();
  DrawFit();
  EXPECT_THAT(Lines(), Not(IsEmpty()));
}

TEST_F(DurationViewTest, TheSumIsOneCurveOfAllTerms) {
  OpenFitView();
  SetTimeConstants({2e-5, 2e-4});
  duration().FitStyle = FitStyle::Sum;
  DrawFit();
  EXPECT_EQ(Lines().front(), "color K 2 0 0");
  EXPECT_THAT(LinesOf({"duration"}), ElementsAre("duration curve 230 290 1410 0 2"));
  EXPECT_THAT(FitSteps(), ElementsAre("curve 0 2", "marker", "marker"));
  EXPECT_EQ(CountLines("color"), 1);
}

TEST_F(DurationViewTest, ComponentsAreCurvesOfEachTermAfterItsMarker) {
  OpenFitView();
  SetTimeConstants({2e-5, 2e-4});
  duration().FitStyle = FitStyle::Component;
  DrawFit();
  EXPECT_THAT(FitSteps(), ElementsAre("marker", "curve 0 1", "marker", "curve 1 2"));
}

TEST_F(DurationViewTest, BothIsTheSumAndThenEachTerm) {
  OpenFitView();
  SetTimeConstants({2e-5, 2e-4});
  duration().FitStyle = FitStyle::Both;
  DrawFit();
  EXPECT_THAT(FitSteps(), ElementsAre("curve 0 2", "marker", "curve 0 1", "marker", "curve 1 2"));
}

TEST_F(DurationViewTest, ATermOutsideTheAxisHasNoMarkerAndStillItsCurve) {
  OpenFitView();
  SetTimeConstants({9.9e-6, 2e-4, 1.01e-3});
  duration().FitStyle = FitStyle::Component;
  duration().MarkerCount = 3;
  DrawFit();
  EXPECT_THAT(FitSteps(), ElementsAre("curve 0 1", "marker", "curve 1 2", "curve 2 3"));
  EXPECT_EQ(duration().MarkerCount, 1);
  EXPECT_EQ(duration().Markers[0].TermIndex, 1);
}

TEST_F(DurationViewTest, TermsAtBothEndsOfTheAxisLieOnIt) {
  OpenFitView();
  SetTimeConstants({1e-5, 1e-3});
  DrawFit();
  EXPECT_EQ(duration().MarkerCount, 2);
}

TEST_F(DurationViewTest, TheEndOfTheAxisIsThePowerOfTheSumOfItsExponents) {
  OpenFitView();
  duration().MinimumExponent = -6;
  duration().Decades = 1;
  const double end = 1e-5;
  ASSERT_LT(1e-6 * 1e1, end);
  SetTimeConstants({end, std::nextafter(end, 1.0)});
  DrawFit();
  EXPECT_EQ(duration().MarkerCount, 1);
  EXPECT_EQ(duration().Markers[0].TermIndex, 0);
}

TEST_F(DurationViewTest, ATimeConstantThatIsNoNumberHasNoMarker) {
  OpenFitView();
  SetTimeConstants({std::numeric_limits<double>::quiet_NaN(), 0.0, -1.0});
  DrawFit();
  EXPECT_EQ(duration().MarkerCount, 0);
}

TEST_F(DurationViewTest, AFitIsDrawnWithoutBarsTooAndKnowsTheBins) {
  OpenFitView();
  duration().YMaximum = 0.0;
  SetTimeConstants({1e-4});
  DrawAll();
  EXPECT_THAT(FitSteps(), Contains("curve 0 1"));
  EXPECT_EQ(workspace().Graphics.BinCount, 10);
}

// --- The whole -----------------------------------------------------------------------------------

TEST_F(DurationViewTest, TheViewIsXAxisThenYAxisThenBarsThenFit) {
  OpenFitView();
  SetTimeConstants({1e-4});
  DrawAll();
  EXPECT_THAT(LinesOf({"left 650", "left 115", "filled", "duration"}),
              ElementsAre("left 650 1651 log Duration (s)", "left 115 174 Counts",
                          "filled bars 230 1410 1490 290: 10 bins, width 126 scale 56 peak 15 "
                          "scaled",
                          "duration curve 230 290 1410 0 1"));
}

TEST_F(DurationViewTest, TheXAxisStandsOneUnitBelowTheBars) {
  DrawAll();
  EXPECT_TRUE(HasLine("line 230 1411 1490 1411"));
  EXPECT_TRUE(HasLine("line 230 290 230 1410"));
  EXPECT_DOUBLE_EQ(View(ViewKind::Duration).Frame.PlotBottom, 1410.0);
}

TEST_F(DurationViewTest, WithNegativeCountsTheUnitCountsTwiceInTheTitle) {
  duration().ConstrainPositive = false;
  DrawAll();
  EXPECT_TRUE(HasLine("line 230 851 1490 851"));
  EXPECT_TRUE(HasLine("left 650 1652 log Duration (s)"));
}

TEST_F(DurationViewTest, WithAxesAndLabelsOffTheViewShowsItsDataAlone) {
  duration().ShowAxes = false;
  duration().ShowLabels = false;
  DrawAll();
  EXPECT_EQ(Lines().size(), std::size_t{2});
  EXPECT_EQ(Lines().front(), "color k 1 0 0");
}

TEST_F(DurationViewTest, AColourIsSetBeforeEachPartOfTheAxesAndOnceForBarsAndFit) {
  OpenFitView();
  SetTimeConstants({1e-4});
  duration().HistogramStyle = HistogramStyle::Outlined;
  DrawAll();
  EXPECT_THAT(LinesOf({"color"}),
              ElementsAre("color k 3 0 0",                   // the title of the X axis
                          "color K 4 0 0",                   // its line, and three times
                          "color K 4 0 0", "color k 3 0 0",  // a decade's tick and its number
                          "color K 4 0 0", "color K 4 0 0", "color K 4 0 0",  // and minor ticks
                          "color K 4 0 0", "color k 3 0 0",                   //
                          "color K 4 0 0", "color K 4 0 0", "color K 4 0 0",  //
                          "color K 4 0 0", "color k 3 0 0",  // which the last one lacks
                          "color k 3 0 0",                   // the title of the Y axis
                          "color K 4 0 0",                   // its line, and three times
                          "color K 4 0 0", "color k 3 0 0",  // a tick and its count
                          "color K 4 0 0", "color k 3 0 0",  //
                          "color K 4 0 0", "color k 3 0 0",  //
                          "color K 1 0 0", "color K 2 0 0"));
}

TEST_F(DurationViewTest, WithOneKindOfElementItsColourIsSetForEachAllTheSame) {
  duration().ShowLabels = false;
  DrawAll();
  std::vector<std::string> colors(14, "color K 4 0 0");  // two lines, nine ticks and three
  colors.push_back("color k 1 0 0");
  EXPECT_EQ(LinesOf({"color"}), colors);
  recording::Clear();
  duration().ShowLabels = true;
  duration().ShowAxes = false;
  DrawAll();
  colors.assign(8, "color k 3 0 0");  // two titles of three numbers each
  colors.push_back("color k 1 0 0");
  EXPECT_EQ(LinesOf({"color"}), colors);
}

TEST_F(DurationViewTest, NothingIsCountedWhileTheViewIsDrawn) {
  toolkit::FreeMemory(duration().Bins);
  duration().Bins = nullptr;
  FillLevels(3, [](LevelRecord& level, std::int32_t) { level.Duration = 5e-4; });
  DrawDuration(workspace(), sink(), kRect);
  EXPECT_EQ(duration().Bins, nullptr);
  EXPECT_THAT(LinesOf({"filled"}), IsEmpty());
}

TEST_F(DurationViewTest, EveryElementHasItsColourInForce) {
  OpenFitView();
  SetTimeConstants({1e-4});
  duration().HistogramStyle = HistogramStyle::Rectangles;
  DrawAll();
  EXPECT_THAT(ColorsOf({"left", "right"}), ElementsAre("color k 3 0 0"));
  EXPECT_THAT(ColorsOf({"line"}), ElementsAre("color K 4 0 0"));
  EXPECT_THAT(ColorsOf({"bar"}), ElementsAre("color K 1 0 0"));
  EXPECT_THAT(ColorsOf({"rect", "duration"}), ElementsAre("color K 2 0 0"));
}

TEST_F(DurationViewTest, AFailureLeavesTheStepsBehindItUndone) {
  struct Case {
    const char* Failing;
    std::size_t Lines;  // of the four that begin the steps
  };
  OpenFitView();
  SetTimeConstants({1e-4});
  for (const auto& [failing, steps] :
       {Case{"left 225", 1}, {"right 182 850", 2}, {"filled", 2}, {"no such line", 4}}) {
    recording::Clear();
    recording::FailLine(failing);
    workspace().Graphics.Status = 0;
    DrawAll();
    EXPECT_EQ(LinesOf({"line 230 1411 1490", "line 230 290 230", "filled", "duration"}).size(),
              steps)
        << failing;
    EXPECT_DOUBLE_EQ(View(ViewKind::Duration).Frame.PlotBottom, 1410.0) << failing;
  }
}

TEST_F(DurationViewTest, AFailureInTheFitLeavesTheTermsBehindItUndone) {
  OpenFitView();
  SetTimeConstants({1e-4, 2e-4});
  duration().FitStyle = FitStyle::Both;
  struct Case {
    const char* Failing;
    std::vector<std::string> Steps;
  };
  for (const auto& [failing, steps] :
       {Case{"duration curve 230 290 1410 0 2", {}},
        Case{"rect 844", {"curve 0 2"}},  // the first marker, at 860 less 15.75
        Case{"duration curve 230 290 1410 0 1", {"curve 0 2", "marker"}}}) {
    recording::Clear();
    recording::FailLine(failing);
    workspace().Graphics.Status = 0;
    DrawFit();
    EXPECT_EQ(FitSteps(), steps) << failing;
  }
}

// --- In its window -------------------------------------------------------------------------------

TEST_F(DurationViewTest, TheViewOpensAndPaints) {
  EXPECT_FALSE(LinesWith(OpenAndPaint(ViewKind::Duration), "filled rect").empty());
}

TEST_F(DurationViewTest, TheMouseGoesToTheEstimatesOfDurations) {
  EXPECT_EQ(FactsOf(ViewKind::Duration).Routines->Mouse, &kDurationMouse);
  EXPECT_EQ(FactsOf(ViewKind::Duration).Routines->Scrolled, nullptr);
}

}  // namespace
}  // namespace ondrel
