#include "views/graph_frame.h"

#include <gtest/gtest.h>

#include <limits>

namespace ondrel {
namespace {

TEST(GraphFrameTest, ThePlotTakesFixedSharesOfTheRectangle) {
  const GraphFrame frame = FrameIn({20, 10, 20 + 1680, 10 + 840});
  EXPECT_DOUBLE_EQ(frame.PlotLeft, 230.0);    // 20 + 1680 / 8
  EXPECT_DOUBLE_EQ(frame.PlotRight, 1490.0);  // 20 + 1680 * 7 / 8
  EXPECT_DOUBLE_EQ(frame.PlotTop, 150.0);     // 10 + 840 / 6
  EXPECT_DOUBLE_EQ(frame.PlotBottom, 710.0);  // 10 + 840 * 5 / 6
  EXPECT_DOUBLE_EQ(frame.LabelOffset, 48.0);  // 1680 / 35
}

TEST(GraphFrameTest, AViewWithWiderNumbersMovesItsLeftEdgeAlone) {
  const IntRect rect{20, 10, 20 + 680, 10 + 600};
  const GraphFrame wide = FrameIn(rect, 6.8);
  const GraphFrame usual = FrameIn(rect);
  EXPECT_DOUBLE_EQ(wide.PlotLeft, 120.0);
  EXPECT_DOUBLE_EQ(usual.PlotLeft, 105.0);
  EXPECT_EQ(wide.PlotRight, usual.PlotRight);
  EXPECT_EQ(wide.PlotTop, usual.PlotTop);
  EXPECT_EQ(wide.PlotBottom, usual.PlotBottom);
  EXPECT_EQ(wide.LabelOffset, usual.LabelOffset);
}

TEST(GraphFrameTest, DistancesAreSharesOfTheirReference) {
  EXPECT_DOUBLE_EQ(MajorTickLength(480.0), 10.0);
  EXPECT_DOUBLE_EQ(MinorTickLength(750.0), 10.0);
  EXPECT_DOUBLE_EQ(NumberDistance(150.0), 10.0);
  EXPECT_DOUBLE_EQ(TitleDistance(70.0), 10.0);
}

TEST(GraphFrameTest, TheTitleBelowBeginsAThirdAlongThePlot) {
  const GraphFrame frame{
      .PlotLeft = 100.0, .PlotRight = 400.0, .PlotTop = 50.0, .PlotBottom = 300.0};
  const GraphPlace place = HorizontalTitlePlace(frame, 140.0);
  EXPECT_DOUBLE_EQ(place.X, 200.0);
  EXPECT_DOUBLE_EQ(place.Y, 320.0);
}

TEST(GraphFrameTest, TheTitleAboveStandsBeforeThePlotAndOverIt) {
  const GraphFrame frame{
      .PlotLeft = 100.0, .PlotRight = 400.0, .PlotTop = 50.0, .PlotBottom = 300.0};
  const GraphPlace place = VerticalTitlePlace(frame);
  EXPECT_DOUBLE_EQ(place.X, 50.0);
  EXPECT_DOUBLE_EQ(place.Y, 30.0);
}

TEST(GraphFrameTest, NumbersEndBeforeTheVerticalAxis) {
  EXPECT_DOUBLE_EQ(VerticalNumberEnd({.PlotLeft = 100.0, .LabelOffset = 24.5}), 75.5);
}

TEST(GraphFrameTest, SidesHaveRoomForAnyRectangle) {
  constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
  constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
  EXPECT_EQ(GraphWidth({kLeast, 0, kMost, 1}), 4294967295.0);
  EXPECT_EQ(GraphHeight({0, kLeast, 1, kMost}), 4294967295.0);
  EXPECT_EQ(GraphWidth({7, 1, 10, 6}), 3.0);
  EXPECT_EQ(GraphHeight({7, 1, 10, 6}), 5.0);
}

}  // namespace
}  // namespace ondrel
