#include "views/duration_view.h"

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

/// Two decades from 10 us on, of five bins of 126 each and three minor ticks, of which the last is
/// the next decade; counts up to 15, so that ticks stand at 0, 10 and 20.
class DurationViewTest : public HistogramViewTest {
 protected:
  DurationViewTest() {
    duration().Decades = 2;
    duration().BinsPerDecade = 5;
    duration().TicksPerDecade = 3;
    duration().YMaximum = 15.0;
    duration().ConstrainPositive = true;
    SetHeights(duration(), {0.0, 15.0, 2.0});
    auto& colors = View(ViewKind::Duration).Colors;
    colors = {RgbColor{1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {4, 0, 0}, {5, 0, 0}};
    Lay();
  }

  void Lay() { LayoutDuration(workspace(), sink(), kRect); }
  void AllowNegative() {
    duration().ConstrainPositive = false;
    Lay();
  }

  void DrawAll() { DrawDuration(workspace(), sink(), kRect); }
  void DrawXAxis() { DrawDurationXAxis(workspace(), sink(), kRect); }
  void DrawYAxis() { DrawDurationYAxis(workspace(), sink(), kRect); }
  void DrawBars() { DrawDurationBars(workspace(), sink()); }
  void DrawFit() { DrawDurationFit(workspace(), sink()); }

  void OpenFitView() { OpenInert(ViewKind::DurationFit); }

  void SetTimeConstants(const std::vector<double>& seconds) {
    duration().TermCount = static_cast<std::int32_t>(seconds.size());
    for (std::size_t i = 0; i < seconds.size(); ++i) {
      duration().Terms[i] = {.Weight = 0.5, .TimeConstant = seconds[i], .Area = 10.0};
    }
  }

  /// The terms whose curve or handle was drawn, in order: "curve 0 2", "marker".
  std::vector<std::string> FitSteps() {
    std::vector<std::string> steps;
    for (const std::string& line : Lines()) {
      if (line.starts_with("duration curve ")) steps.push_back("curve " + line.substr(28));
      if (line.starts_with("rect ")) steps.push_back("marker");
    }
    return steps;
  }
};

// --- X axis --------------------------------------------------------------------------------------

TEST_F(DurationViewTest, TheXAxisIsTitleLineAndForEachDecadeItsTickNumberAndMinorTicks) {
  DrawXAxis();
  // Minor ticks at the logarithms of 2, 3 and 4 to the base of 4.
  EXPECT_THAT(Lines(),
              ElementsAre("color k 3 0 0", "left 650 1650 log Duration (s)",                     //
                          "color K 4 0 0", "line 230 1410 1490 1410",                            //
                          "line 230 1410 230 1445", "color k 3 0 0", "left 225 1522 -5",         //
                          "color K 4 0 0", "line 545 1410 545 1432.4",                           //
                          "line 729.263188 1410 729.263188 1432.4", "line 860 1410 860 1432.4",  //
                          "line 860 1410 860 1445", "color k 3 0 0", "left 855 1522 -4",         //
                          "color K 4 0 0", "line 1175 1410 1175 1432.4",                         //
                          "line 1359.26319 1410 1359.26319 1432.4",                              //
                          "line 1490 1410 1490 1432.4",                                          //
                          "line 1490 1410 1490 1445", "color k 3 0 0", "left 1485 1522 -3"));
}

TEST_F(DurationViewTest, TheLastDecadeStandsAtTheRightEdgeWhateverRounding) {
  for (std::int32_t width = 80; width < 700; ++width) {
    for (const std::int32_t decades : {1, 3, 7}) {
      const IntRect rect{13, 0, 13 + width, 100};
      duration().Decades = decades;
      LayoutDuration(workspace(), sink(), rect);
      recording::Clear();
      DrawDurationXAxis(workspace(), sink(), rect);
      ASSERT_EQ(CountLines("left"), 1 + decades + 1) << width << " wide";
      ASSERT_EQ(CountLines("line"), 1 + decades + 1 + 3 * decades) << width << " wide";
    }
  }
}

TEST_F(DurationViewTest, AMinorTickBeyondTheRightEdgeEndsTheAxis) {
  View(ViewKind::Duration).Frame.PlotRight = 1359.0;  // just before the second decade's 3
  DrawXAxis();
  EXPECT_EQ(Lines().back(), "line 1175 1410 1175 1432.4");
  EXPECT_THAT(LinesOf({"left"}),
              ElementsAre(StartsWith("left 606"), "left 225 1522 -5", "left 855 1522 -4"));
}

TEST_F(DurationViewTest, AMinorTickExactlyAtTheRightEdgeDoesNot) {
  View(ViewKind::Duration).Frame.PlotRight = 1175.0;
  DrawXAxis();
  EXPECT_EQ(Lines().back(), "line 1175 1410 1175 1432.4");
}

TEST_F(DurationViewTest, AMinorTickBeyondTheRightEdgeEndsTheNumbersAlsoWithoutAxes) {
  duration().ShowAxes = false;
  View(ViewKind::Duration).Frame.PlotRight = 800.0;  // before the next decade
  DrawXAxis();
  EXPECT_EQ(CountLines("left"), 2);
}

TEST_F(DurationViewTest, OnTheScreenMinorTicksGoOnBehindTheLastDecade) {
  duration().Decades = 8;
  LayoutDuration(workspace(), kScreenSink, kRect);  // 40 bins of 31.5, cut to 31
  DrawXAxis();
  EXPECT_TRUE(HasLine("line 1470 1410 1470 1445"));  // 230 + 8 * 5 * 31
  EXPECT_TRUE(HasLine("left 1467.5 1522 3"));
  EXPECT_EQ(Lines().back(), "left 1467.5 1522 3") << "the next minor tick would be at 1547";
  View(ViewKind::Duration).Frame.PlotRight = 1550.0;
  recording::Clear();
  DrawXAxis();
  EXPECT_EQ(Lines().back(), "line 1547.5 1410 1547.5 1432.4");
}

TEST_F(DurationViewTest, WithOneTickPerDecadeAllMinorTicksFallOnTheMajorTick) {
  duration().TicksPerDecade = 1;
  DrawXAxis();
  EXPECT_THAT(LinesOf({"line"}), ElementsAre("line 230 1410 1490 1410", "line 230 1410 230 1445",
                                             "line 230 1410 230 1432.4", "line 860 1410 860 1445",
                                             "line 860 1410 860 1432.4", "line 1490 1410 1490 1445",
                                             "line 1490 1410 1490 1432.4"));
}

TEST_F(DurationViewTest, WithNineTicksPerDecadeMinorTicksStandAtMultiplesOfTheDecade) {
  duration().Decades = 1;
  duration().TicksPerDecade = 9;
  Lay();
  DrawXAxis();
  const std::vector<std::string> lines = LinesOf({"line"});
  ASSERT_EQ(lines.size(), std::size_t{12});                       // axis, decade, 2 to 10, decade
  EXPECT_EQ(lines[2], "line 609.297795 1410 609.297795 1432.4");  // 230 + 1260 log 2
  EXPECT_EQ(lines[5], "line 1110.70221 1410 1110.70221 1432.4");  // log 5
  EXPECT_EQ(lines[10], "line 1490 1410 1490 1432.4");             // log 10
}

TEST_F(DurationViewTest, FewerThanOneTickPerDecadeReadsAsOne) {
  for (const std::int32_t ticks : {0, -3}) {
    duration().TicksPerDecade = ticks;
    recording::Clear();
    DrawXAxis();
    EXPECT_EQ(CountLines("line"), 7);
  }
}

TEST_F(DurationViewTest, WithNegativeCountsTheTitleStandsBelowTheLowerHalf) {
  AllowNegative();
  DrawXAxis();
  EXPECT_TRUE(HasLine("left 650 1650 log Duration (s)"));
  EXPECT_TRUE(HasLine("line 230 850 1490 850")) << "the axis itself stands at zero";
  EXPECT_TRUE(HasLine("left 225 962 -5"));
}

TEST_F(DurationViewTest, DecadesFromZeroUpAreNumberedSo) {
  duration().MinimumExponent = -1;
  DrawXAxis();
  EXPECT_THAT(LinesOf({"left"}), ElementsAre("left 650 1650 log Duration (s)", "left 225 1522 -1",
                                             "left 857.5 1522 0", "left 1487.5 1522 1"));
}

TEST_F(DurationViewTest, TheXAxisWithoutLabelsHasOneColour) {
  duration().ShowLabels = false;
  DrawXAxis();
  EXPECT_EQ(Lines().front(), "color K 4 0 0");
  EXPECT_EQ(CountLines("color"), 1);
  EXPECT_EQ(CountLines("line"), 10);
  EXPECT_EQ(Lines().size(), std::size_t{11});
}

TEST_F(DurationViewTest, TheXAxisWithoutAxesIsTitleAndNumbers) {
  duration().ShowAxes = false;
  DrawXAxis();
  EXPECT_THAT(Lines(), ElementsAre("color k 3 0 0", "left 650 1650 log Duration (s)",
                                   "left 225 1522 -5", "left 855 1522 -4", "left 1485 1522 -3"));
}

// --- Y axis --------------------------------------------------------------------------------------

TEST_F(DurationViewTest, TheYAxisIsTitleLineAndForEachTickItsCount) {
  DrawYAxis();
  EXPECT_THAT(Lines(), ElementsAre("color k 3 0 0", "left 115 174 Counts",    //
                                   "color K 4 0 0", "line 230 290 230 1410",  //
                                   "line 230 1410 195 1410",                  //
                                   "color k 3 0 0", "right 182 1410 0",       //
                                   "color K 4 0 0", "line 230 850 195 850",   //
                                   "color k 3 0 0", "right 182 850 10",       //
                                   "color K 4 0 0", "line 230 290 195 290",   //
                                   "color k 3 0 0", "right 182 290 20"));
}

TEST_F(DurationViewTest, WithNegativeCountsEveryTickIsMirroredWithTheNegatedCount) {
  AllowNegative();
  DrawYAxis();
  EXPECT_TRUE(HasLine("line 230 290 230 1410")) << "through both halves";
  EXPECT_THAT(LinesOf({"right"}),
              ElementsAre("right 182 850 0", "right 182 850 0", "right 182 570 10",
                          "right 182 1130 -10", "right 182 290 20", "right 182 1410 -20"));
  EXPECT_THAT(LinesOf({"line 230"}),
              ElementsAre("line 230 290 230 1410", "line 230 850 195 850", "line 230 850 195 850",
                          "line 230 570 195 570", "line 230 1130 195 1130", "line 230 290 195 290",
                          "line 230 1410 195 1410"));
}

TEST_F(DurationViewTest, OnASquareRootAxisTheMirroredTicksStandAtTheSameRoots) {
  duration().SquareRootAxis = true;
  duration().YMaximum = std::sqrt(40.0);
  AllowNegative();
  DrawYAxis();
  // 560 times the roots of 0, 1/4, 1/2, 3/4 and 1 to either side of 850.
  EXPECT_THAT(
      LinesOf({"right"}),
      ElementsAre("right 182 850 0", "right 182 850 0", "right 182 570 10", "right 182 1130 -10",
                  "right 182 454.020203 20", "right 182 1245.9798 -20", "right 182 365.025774 30",
                  "right 182 1334.97423 -30", "right 182 290 40", "right 182 1410 -40"));
}

TEST_F(DurationViewTest, AnEmptyHistogramHasAxesWithTheFirstCountAloneAndNoBars) {
  for (const bool positive : {true, false}) {
    duration().ConstrainPositive = positive;
    duration().YMaximum = 0.0;
    SetHeights(duration(), {});
    recording::Clear();
    DrawAll();
    EXPECT_THAT(LinesOf({"right"}), ElementsAre(positive ? "right 182 1410 0" : "right 182 850 0"));
    EXPECT_TRUE(HasLine("line 230 290 230 1410"));
    EXPECT_EQ(CountLines("line 230 850 195"), 0) << "a tick";
    EXPECT_THAT(LinesOf({"filled", "bar"}), IsEmpty());
  }
}

TEST_F(DurationViewTest, TicksNeedATallestBarThatDiffersFromZero) {
  duration().YMaximum = -15.0;
  DrawYAxis();
  EXPECT_GT(CountLines("line 230"), 1);
}

TEST_F(DurationViewTest, TheTopTickIsNeverLostToRounding) {
  for (std::int32_t height = 50; height < 1000; ++height) {
    for (const std::int32_t intervals : {3, 7, 11}) {
      const IntRect rect{0, 17, 100, 17 + height};
      duration().YMaximum = 10.0 * intervals;
      duration().ConstrainPositive = height % 2 == 0;
      LayoutDuration(workspace(), sink(), rect);
      recording::Clear();
      DrawDurationYAxis(workspace(), sink(), rect);
      const int labels = (intervals + 1) * (duration().ConstrainPositive ? 1 : 2);
      ASSERT_EQ(CountLines("right"), labels) << height << " high";
    }
  }
}

TEST_F(DurationViewTest, TheYAxisWithoutLabelsIsLines) {
  duration().ShowLabels = false;
  DrawYAxis();
  EXPECT_THAT(Lines(),
              ElementsAre("color K 4 0 0", "line 230 290 230 1410", "line 230 1410 195 1410",
                          "line 230 850 195 850", "line 230 290 195 290"));
}

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
  SetTimeConstants({std::pow(10.0, -5.0), std::pow(10.0, -3.0)});
  DrawFit();
  EXPECT_EQ(duration().MarkerCount, 2);
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

// --- Settings at their limits --------------------------------------------------------------------

TEST_F(DurationViewTest, NoSettingHangsTheView) {
  constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
  for (const std::int32_t extreme : {-kMost - 1, -1, 0, 1, kMost}) {
    for (std::int32_t DurationHistogram::*field :
         {&DurationHistogram::CountsPerTick, &DurationHistogram::MinimumTicks,
          &DurationHistogram::MinimumExponent, &DurationHistogram::Decades,
          &DurationHistogram::TicksPerDecade}) {
      const std::int32_t kept = duration().*field;
      duration().*field = extreme;
      duration().YMaximum = 1e9;
      duration().SquareRootAxis = extreme % 2 == 0;
      Lay();
      EXPECT_LT(CountParts(DrawDurationXAxis), 50000);
      EXPECT_LT(CountParts(DrawDurationYAxis), 66000);  // to either side
      duration().*field = kept;
    }
  }
}

TEST_F(DurationViewTest, AnAxisHasNoMoreMinorTicksThanAnyDeviceCanShow) {
  duration().Decades = 30000;
  duration().TicksPerDecade = 30000;
  duration().ShowLabels = false;
  Lay();
  EXPECT_EQ(CountParts(DrawDurationXAxis), 1 + 2 + 16384);  // the axis, two decades
}

TEST_F(DurationViewTest, ExponentsBeyondTheRangeOfIntegersAreCutToIt) {
  duration().MinimumExponent = std::numeric_limits<std::int32_t>::max();
  DrawXAxis();
  EXPECT_THAT(Lines().back(), ::testing::EndsWith(" 2147483647"));
}

TEST_F(DurationViewTest, ManyDecadesInAnEmptyWindowEndSomewhere) {
  duration().Decades = std::numeric_limits<std::int32_t>::max();
  duration().TicksPerDecade = std::numeric_limits<std::int32_t>::max();
  LayoutDuration(workspace(), sink(), {0, 0, 0, 0});
  duration().ShowAxes = false;
  duration().ShowLabels = false;
  DrawDurationXAxis(workspace(), sink(), {0, 0, 0, 0});
  EXPECT_THAT(Lines(), IsEmpty());
}

// --- In its window -------------------------------------------------------------------------------

TEST_F(DurationViewTest, TheViewOpensAndPaints) {
  ASSERT_TRUE(CanOpen(ViewKind::Duration));
  EXPECT_FALSE(LinesWith(OpenAndPaint(ViewKind::Duration), "filled rect").empty());
}

TEST_F(DurationViewTest, TheMouseGoesToTheEstimatesOfDurations) {
  EXPECT_EQ(FactsOf(ViewKind::Duration).Routines->Mouse, &kDurationMouse);
  EXPECT_EQ(FactsOf(ViewKind::Duration).Routines->Scrolled, nullptr);
}

}  // namespace
}  // namespace ondrel
