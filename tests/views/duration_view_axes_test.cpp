#include "views/duration_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "output/screen_sink.h"
#include "support/axis_parts.h"
#include "views/duration_view_fixture.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

// --- X axis --------------------------------------------------------------------------------------

TEST_F(DurationViewTest, TheXAxisIsTitleLineAndForEachDecadeItsTickNumberAndMinorTicks) {
  DrawXAxis();
  // Minor ticks at the logarithms of 2, 3 and 4 to the base of 4.
  EXPECT_EQ(
      Lines(),
      HistogramParts({"left 650 1650 log Duration (s)", "line 230 1410 1490 1410",
                      "line 230 1410 230 1445", "left 225 1522 -5", "line 545 1410 545 1432.4",
                      "line 729.263188 1410 729.263188 1432.4", "line 860 1410 860 1432.4",
                      "line 860 1410 860 1445", "left 855 1522 -4", "line 1175 1410 1175 1432.4",
                      "line 1359.26319 1410 1359.26319 1432.4", "line 1490 1410 1490 1432.4",
                      "line 1490 1410 1490 1445", "left 1485 1522 -3"}));
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

TEST_F(DurationViewTest, FewerThanOneTickPerDecadeCountAsOne) {
  duration().TicksPerDecade = 1;
  DrawXAxis();
  const std::vector<std::string> one = Lines();
  for (const std::int32_t ticks : {0, -1, -3, std::numeric_limits<std::int32_t>::min()}) {
    duration().TicksPerDecade = ticks;
    recording::Clear();
    DrawXAxis();
    EXPECT_EQ(Lines(), one) << ticks;
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

TEST_F(DurationViewTest, TheXAxisWithoutLabelsIsLines) {
  duration().ShowLabels = false;
  DrawXAxis();
  const std::vector<std::string> parts = LinesOf({"line"});
  EXPECT_EQ(parts.size(), std::size_t{10});
  EXPECT_EQ(Lines(), HistogramParts(parts));
}

TEST_F(DurationViewTest, TheXAxisWithoutAxesIsTitleAndNumbers) {
  duration().ShowAxes = false;
  DrawXAxis();
  EXPECT_EQ(Lines(), HistogramParts({"left 650 1650 log Duration (s)", "left 225 1522 -5",
                                     "left 855 1522 -4", "left 1485 1522 -3"}));
}

// --- Y axis --------------------------------------------------------------------------------------

TEST_F(DurationViewTest, TheYAxisIsTitleLineAndForEachTickItsCount) {
  DrawYAxis();
  EXPECT_EQ(Lines(),
            HistogramParts({"left 115 174 Counts", "line 230 290 230 1410",
                            "line 230 1410 195 1410", "right 182 1410 0", "line 230 850 195 850",
                            "right 182 850 10", "line 230 290 195 290", "right 182 290 20"}));
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
  EXPECT_EQ(Lines(), HistogramParts({"line 230 290 230 1410", "line 230 1410 195 1410",
                                     "line 230 850 195 850", "line 230 290 195 290"}));
}

}  // namespace
}  // namespace ondrel
