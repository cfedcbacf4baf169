#include "views/stationarity_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "support/axis_parts.h"
#include "views/stationarity_view_fixture.h"

namespace ondrel {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// --- Layout --------------------------------------------------------------------------------------

TEST_F(StationarityViewTest, ThePlotBeginsFartherFromTheLeftThanThoseOfOtherViews) {
  Compute();
  EXPECT_DOUBLE_EQ(State().Frame.PlotLeft, 720.0);
  EXPECT_DOUBLE_EQ(State().Frame.PlotRight, 4185.0);
  EXPECT_DOUBLE_EQ(State().Frame.PlotTop, 290.0);
  EXPECT_DOUBLE_EQ(State().Frame.PlotBottom, 1410.0);
  EXPECT_DOUBLE_EQ(State().Frame.LabelOffset, 136.0);
}

TEST_F(StationarityViewTest, BothAxesAreScaledForTheRectangle) {
  plot().Tau = 0.5;
  AddWholeLevel(-4e-12);
  Compute();
  EXPECT_EQ(plot().TickSpacing, 2.0);
  EXPECT_DOUBLE_EQ(plot().TickPixels, 693.0);
  EXPECT_EQ(plot().TimeDecimals, 3);
  EXPECT_EQ(plot().SampleCount, 2425);  // 7 s of 346.5 device units each
  EXPECT_EQ(plot().ValueMin, 1.0);
  EXPECT_EQ(plot().ValueMax, 1.0);
  EXPECT_EQ(plot().ValueTick, 1.0);
  EXPECT_EQ(plot().ValueTickPixels, 1120.0);
  Compute({0, 0, 680, 600});
  EXPECT_DOUBLE_EQ(State().Frame.PlotLeft, 100.0);
  EXPECT_DOUBLE_EQ(plot().TickPixels, 99.0);
  EXPECT_EQ(plot().SampleCount, 346);
  EXPECT_EQ(plot().ValueTickPixels, 400.0);
}

TEST_F(StationarityViewTest, NumbersAreMeasuredInTheFontOfTheContext) {
  Compute({0, 0, 204, 100});  // ticks of 29.7, and "10.000" is 30 wide
  EXPECT_EQ(plot().TickSpacing, 4.0);
  toolkit::SetUpDevice(workspace().Graphics.Device);
  toolkit::SetFontHeight(workspace().Graphics.Device, 8);  // 24 wide
  Compute({0, 0, 204, 100});
  EXPECT_EQ(plot().TickSpacing, 2.0);
  toolkit::CleanUpDevice(workspace().Graphics.Device);
}

TEST_F(StationarityViewTest, WithoutASelectedSweepAnEmptyPlotIsLaidOut) {
  plot().ShortestSweep = 0.0;
  AddWholeLevel();
  Compute();
  EXPECT_EQ(plot().SampleCount, 0);
  EXPECT_DOUBLE_EQ(State().Frame.PlotLeft, 720.0);
  EXPECT_THAT(Messages(), IsEmpty());
}

// --- Drawing -------------------------------------------------------------------------------------

TEST_F(StationarityViewTest, ThePlotIsTimeAxisThenValueAxisThenCurve) {
  UseSamples({-1.0, 0.5, 0.0});
  Draw();
  EXPECT_EQ(Lines(), PlotParts({"left 1875 1650 Time (s)",
                                "line 720 1410 4185 1410",
                                "line 720 1410 720 1445",  // three ticks of 1600
                                "left 720 1522 0.000",
                                "line 2320 1410 2320 1445",
                                "left 2320 1522 4.000",
                                "line 3920 1410 3920 1445",
                                "left 3920 1522 8.000",
                                "left 360 174 Probability",
                                "line 720 290 720 1410",
                                "line 720 1410 685 1410",  // three ticks of 500
                                "right 584 1410 -2.000",
                                "line 720 910 685 910",
                                "right 584 910 0.000",
                                "line 720 410 685 410",
                                "right 584 410 2.000",
                                "color K 1 0 0",
                                "move 1320 1160",  // 1.5 s are 600
                                "path 1321 785",
                                "path 1322 910",
                                "stroke"}));
}

TEST_F(StationarityViewTest, TheNumbersThatComputingLeftAreDrawn) {
  plot().Tau = 1.6645;  // leaves 0.013 s for 4 samples
  AddWholeLevel();
  Compute();
  Draw();
  EXPECT_THAT(
      LinesOf({"left 720", "left 1413", "left 2106", "left 2799", "left 3492", "left 4185"}),
      ElementsAre("left 720 1522 0.000", "left 1413 1522 2.000", "left 2106 1522 4.000",
                  "left 2799 1522 6.000", "left 3492 1522 8.000", "left 4185 1522 10.000"));
  EXPECT_THAT(LinesOf({"right"}), ElementsAre("right 584 1410 1.000", "right 584 290 2.000"));
  EXPECT_THAT(LinesOf({"move", "path", "stroke"}),
              ElementsAre("move 2450.24775 1410", "path 2451.24775 1410", "path 2452.24775 1410",
                          "path 2453.24775 1410", "stroke"));
}

TEST_F(StationarityViewTest, TickLengthsAndDistancesComeFromTheHeight) {
  constexpr IntRect kNarrow = {0, 0, 680, 3360};  // from 100 to 595 and from 560 to 2800
  UseSamples({0.0});
  State().Frame = FrameIn(kNarrow, 6.8);
  recording::Clear();
  DrawStationarity(workspace(), sink(), kNarrow);
  EXPECT_TRUE(HasLine("line 100 2800 100 2870"));  // 3360 / 48
  EXPECT_TRUE(HasLine("left 100 3024 0.000"));     // 3360 / 15
  EXPECT_TRUE(HasLine("left 265 3280 Time (s)"));  // 3360 / 7
  EXPECT_TRUE(HasLine("line 100 2800 30 2800"));
}

TEST_F(StationarityViewTest, TitlesFollowTheType) {
  const std::vector<std::pair<StationarityType, std::string>> titles = {
      {StationarityType::One, "Probability"},
      {StationarityType::Amplitude, "Amplitude (A)"},
      {StationarityType::Duration, "Duration (s)"},
      {StationarityType::Level, "Level"},
      {static_cast<StationarityType>(9), "Level"}};
  UseSamples({0.0});
  for (const auto& [type, title] : titles) {
    plot().Type = type;
    Draw();
    EXPECT_THAT(Titles(), ElementsAre("left 1875 1650 Time (s)", "left 360 174 " + title));
  }
}

TEST_F(StationarityViewTest, ValuesHaveThreeDecimals) {
  UseSamples({0.0});
  plot().ValueMin = 0.0;
  plot().ValueTick = 0.01;
  for (const StationarityType type :
       {StationarityType::One, StationarityType::Duration, StationarityType::Level}) {
    plot().Type = type;
    Draw();
    EXPECT_THAT(LinesOf({"right"}),
                ElementsAre("right 584 1410 0.000", "right 584 910 0.010", "right 584 410 0.020"));
  }
}

TEST_F(StationarityViewTest, AmplitudesAreInAmperesAndHaveAnExponent) {
  UseSamples({0.0});
  plot().Type = StationarityType::Amplitude;
  plot().ValueMin = -2e-11;
  plot().ValueTick = 1e-11;
  Draw();
  EXPECT_THAT(LinesOf({"right"}), ElementsAre("right 584 1410 -2.00E-11", "right 584 910 -1.00E-11",
                                              "right 584 410 0.00E+00"));
}

TEST_F(StationarityViewTest, AValueAxisThatPassesZeroIsNumberedZero) {
  UseSamples({0.0});
  plot().Type = StationarityType::Amplitude;
  plot().ValueMin = -0.3;
  plot().ValueTick = 0.1;
  plot().ValueTickPixels = 300.0;
  ASSERT_NE(-0.3 + 0.1 + 0.1 + 0.1, 0.0);
  Draw();
  EXPECT_THAT(LinesOf({"right"}),
              ElementsAre("right 584 1410 -3.00E-01", "right 584 1110 -2.00E-01",
                          "right 584 810 -1.00E-01", "right 584 510 0.00E+00"));
}

TEST_F(StationarityViewTest, TimesHaveTheDecimalsOfTheAxis) {
  UseSamples({0.0});
  plot().TickSpacing = 10.0;
  plot().TimeDecimals = 0;
  Draw();
  EXPECT_THAT(LinesOf({"left 720", "left 2320", "left 3920"}),
              ElementsAre("left 720 1522 0", "left 2320 1522 10", "left 3920 1522 20"));
}

TEST_F(StationarityViewTest, TicksOnTheEndsOfTheAxesAreDrawnAndNoneBehindThem) {
  UseSamples({0.0});
  plot().TickPixels = 3465.0;
  plot().ValueTickPixels = 1120.0;
  Draw();
  EXPECT_TRUE(HasLine("line 4185 1410 4185 1445"));
  EXPECT_TRUE(HasLine("line 720 290 685 290"));
  EXPECT_EQ(CountLines("right"), 2);
  plot().TickPixels = 3465.1;
  plot().ValueTickPixels = 1120.1;
  Draw();
  EXPECT_EQ(CountLines("line"), 2 + 2) << "the axes, and a tick where they begin";
}

TEST_F(StationarityViewTest, TheCurveIsScaledByTheTickOfTheValues) {
  UseSamples({-2.0, 2.0, 5.0});
  plot().Tau = 0.25;
  plot().ValueMin = 1.0;
  plot().ValueTick = 0.5;
  plot().ValueTickPixels = 10.0;
  Draw();
  // 20 for each unit: 1410 + 20, less 20 for each unit of the sample; 0.75 s are 300.
  EXPECT_THAT(LinesOf({"move", "path"}),
              ElementsAre("move 1020 1470", "path 1021 1390", "path 1022 1330"));
}

TEST_F(StationarityViewTest, ASingleSampleIsStrokedToo) {
  UseSamples({0.0});
  Draw();
  EXPECT_THAT(LinesOf({"move", "path", "stroke"}), ElementsAre("move 1320 910", "stroke"));
}

TEST_F(StationarityViewTest, WithoutSamplesThereAreTitlesAndTheLinesOfTheAxes) {
  UseSamples({});
  Draw();
  EXPECT_EQ(Lines(), PlotParts({"left 1875 1650 Time (s)", "line 720 1410 4185 1410",
                                "left 360 174 Probability", "line 720 290 720 1410"}));
}

TEST_F(StationarityViewTest, WithoutASelectedSweepThereAreTitlesAndTheLinesOfTheAxes) {
  plot().ShortestSweep = 0.0;
  AddWholeLevel();
  Compute();
  Draw();
  EXPECT_EQ(CountLines("line"), 2);
  EXPECT_EQ(CountLines("left"), 2);
  EXPECT_EQ(Lines().size(), std::size_t{8});
}

TEST_F(StationarityViewTest, WithAxesAndLabelsOffThereIsTheCurveAlone) {
  UseSamples({-1.0, 0.5});
  plot().ShowAxes = false;
  plot().ShowLabels = false;
  Draw();
  EXPECT_THAT(Lines(), ElementsAre("color K 1 0 0", "move 1320 1160", "path 1321 785", "stroke"));
}

TEST_F(StationarityViewTest, WithoutAxesThereAreTitlesAndNumbers) {
  UseSamples({0.0});
  plot().ShowAxes = false;
  Draw();
  EXPECT_EQ(CountLines("line"), 0);
  EXPECT_EQ(CountLines("left") + CountLines("right"), 8);
  EXPECT_EQ(CountLines("color k 2"), 8);
  EXPECT_EQ(LinesOf({"color"}).back(), "color K 1 0 0");
  EXPECT_EQ(CountLines("color"), 9);
}

TEST_F(StationarityViewTest, WithoutLabelsThereAreLinesAndTicks) {
  UseSamples({0.0});
  plot().ShowLabels = false;
  Draw();
  EXPECT_EQ(CountLines("line"), 8);
  EXPECT_EQ(CountLines("left") + CountLines("right"), 0);
  EXPECT_EQ(CountLines("color K 3"), 8);
  EXPECT_EQ(LinesOf({"color"}).back(), "color K 1 0 0");
  EXPECT_EQ(CountLines("color"), 9);
}

TEST_F(StationarityViewTest, AValueTickOfNoHeightLeavesTicksAndCurveOut) {
  UseSamples({0.0, 1.0});
  plot().ValueTickPixels = 0.0;
  Draw();
  EXPECT_EQ(CountLines("right"), 0);
  EXPECT_EQ(CountLines("move"), 0);
  EXPECT_EQ(Lines().back(), "line 720 290 720 1410");
}

TEST_F(StationarityViewTest, AxesWithoutEndOrSizeStopAtSomeNumberOfTicks) {
  UseSamples({0.0});
  for (const double pixels : {0.0, -5.0, 1e-300}) {
    plot().TickPixels = pixels;
    EXPECT_LT(CountParts(DrawStationarity), 50000) << pixels;
  }
  plot().TickPixels = std::numeric_limits<double>::quiet_NaN();
  plot().ValueTickPixels = 1e-9;
  EXPECT_LT(CountParts(DrawStationarity), 100000);
}

}  // namespace
}  // namespace ondrel
