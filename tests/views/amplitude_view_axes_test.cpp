#include "views/amplitude_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "output/screen_sink.h"
#include "support/axis_parts.h"
#include "views/amplitude_view_fixture.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// --- X axis --------------------------------------------------------------------------------------

TEST_F(AmplitudeViewTest, TheXAxisIsTitleLineAndForEachTickItsNumber) {
  DrawXAxis();
  EXPECT_EQ(Lines(), HistogramParts({"left 650 1650 Amplitude (pA)", "line 230 1410 1490 1410",
                                     "line 230 1410 230 1445", "left 222.5 1522 0.0",
                                     "line 860 1410 860 1445", "left 852.5 1522 1.0",
                                     "line 1490 1410 1490 1445", "left 1482.5 1522 2.0"}));
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

TEST_F(AmplitudeViewTest, TheXAxisWithoutLabelsIsLines) {
  amplitude().ShowLabels = false;
  DrawXAxis();
  EXPECT_EQ(Lines(), HistogramParts({"line 230 1410 1490 1410", "line 230 1410 230 1445",
                                     "line 860 1410 860 1445", "line 1490 1410 1490 1445"}));
}

TEST_F(AmplitudeViewTest, TheXAxisWithoutAxesIsTitleAndNumbers) {
  amplitude().ShowAxes = false;
  DrawXAxis();
  EXPECT_EQ(Lines(), HistogramParts({"left 650 1650 Amplitude (pA)", "left 222.5 1522 0.0",
                                     "left 852.5 1522 1.0", "left 1482.5 1522 2.0"}));
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
  EXPECT_EQ(Lines(),
            HistogramParts({"left 115 174 Counts", "line 230 290 230 1410",
                            "line 230 1410 195 1410", "right 182 1410 0", "line 230 850 195 850",
                            "right 182 850 100", "line 230 290 195 290", "right 182 290 200"}));
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
  EXPECT_EQ(Lines(), HistogramParts({"line 230 290 230 1410", "line 230 1410 195 1410",
                                     "line 230 850 195 850", "line 230 290 195 290"}));
}

TEST_F(AmplitudeViewTest, TheYAxisWithoutAxesIsTitleAndCounts) {
  amplitude().ShowAxes = false;
  DrawYAxis();
  EXPECT_EQ(Lines(), HistogramParts({"left 115 174 Counts", "right 182 1410 0", "right 182 850 100",
                                     "right 182 290 200"}));
}

TEST_F(AmplitudeViewTest, TicksNeedATallestBarAboveZero) {
  amplitude().YMaximum = -15.0;
  DrawYAxis();
  EXPECT_THAT(LinesOf({"line", "right"}), ElementsAre("line 230 290 230 1410", "right 182 1410 0"));
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

}  // namespace
}  // namespace ondrel
