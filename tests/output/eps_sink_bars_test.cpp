#include "output/eps_sink.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "output/document_fixture.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// On a page of 300.25 points, a unit being three quarters of a point: the base is at 225.25, the
/// top at 285.25, and a bin is 7.5 wide.
class EpsBarsTest : public DocumentBarsTest {
 protected:
  EpsBarsTest() {
    context().PageHeight = 300.25;
    context().PointScale = 96.0 / 72.0;
  }

  std::vector<std::string> Draw(BarOperation operation, double right = 40.0) {
    return DocumentBarsTest::Draw(kEpsSink, operation, right);
  }
};

TEST_F(EpsBarsTest, FilledBarsAreOnePolygon) {
  EXPECT_THAT(Draw(&GraphicsSink::DrawFilledBars),
              ElementsAre("7.500 225.250 moveto",                            //
                          "7.500 247.750 lineto", "15.000 247.750 lineto",   //
                          "15.000 225.250 lineto", "22.500 225.250 lineto",  //
                          "22.500 236.500 lineto", "30.000 236.500 lineto",  //
                          "30.000 225.250 lineto", "7.500 225.250 lineto", "fill"));
}

TEST_F(EpsBarsTest, ThePolygonReachesTheRightOfThePlotAlthoughTheBarsDoNot) {
  SetHeights({30.0});
  EXPECT_THAT(Draw(&GraphicsSink::DrawFilledBars),
              ElementsAre("7.500 225.250 moveto", "7.500 247.750 lineto", "15.000 247.750 lineto",
                          "30.000 225.250 lineto", "7.500 225.250 lineto", "fill"));
}

TEST_F(EpsBarsTest, EachBarRectangleIsAPathWithThePenWidthBehindIt) {
  EXPECT_THAT(
      Draw(&GraphicsSink::DrawBarRectangles),
      ElementsAre("7.500 225.250 moveto", "7.500 247.750 lineto", "15.000 247.750 lineto",
                  "15.000 225.250 lineto", "7.500 225.250 lineto", "0.76 setlinewidth", "stroke",
                  "15.000 225.250 moveto", "15.000 225.250 lineto", "22.500 225.250 lineto",
                  "22.500 225.250 lineto", "15.000 225.250 lineto", "0.76 setlinewidth", "stroke",
                  "22.500 225.250 moveto", "22.500 236.500 lineto", "30.000 236.500 lineto",
                  "30.000 225.250 lineto", "22.500 225.250 lineto", "0.76 setlinewidth", "stroke"));
}

TEST_F(EpsBarsTest, TheOutlineIsOnePathThatEndsOnTheBase) {
  EXPECT_THAT(Draw(&GraphicsSink::DrawBarOutline),
              ElementsAre("7.500 225.250 moveto",                            //
                          "7.500 247.750 lineto", "15.000 247.750 lineto",   //
                          "15.000 225.250 lineto", "22.500 225.250 lineto",  //
                          "22.500 236.500 lineto", "30.000 236.500 lineto",  //
                          "30.000 225.250 lineto", "0.76 setlinewidth", "stroke"));
}

TEST_F(EpsBarsTest, TheOutlineEndsBehindTheLastBarAndNotAtTheRightOfThePlot) {
  SetHeights({30.0});
  EXPECT_THAT(Draw(&GraphicsSink::DrawBarOutline),
              ElementsAre("7.500 225.250 moveto", "7.500 247.750 lineto", "15.000 247.750 lineto",
                          "15.000 225.250 lineto", "0.76 setlinewidth", "stroke"));
}

TEST_F(EpsBarsTest, HeightsAreScaled) {
  context().BinScale = 2.5;
  SetHeights({30.0, 15.2});  // 75 and 38 units
  EXPECT_THAT(Draw(&GraphicsSink::DrawBarOutline),
              ElementsAre("7.500 225.250 moveto", "7.500 281.500 lineto", "15.000 281.500 lineto",
                          "15.000 253.750 lineto", "22.500 253.750 lineto", "22.500 225.250 lineto",
                          "0.76 setlinewidth", "stroke"));
}

TEST_F(EpsBarsTest, FittedHeightsAreSharesOfThePlot) {
  context().BinFitHeight = 1;
  SetHeights({30.0, 15.0});  // three quarters and three eighths of 60
  EXPECT_THAT(Draw(&GraphicsSink::DrawBarOutline),
              ElementsAre("7.500 225.250 moveto", "7.500 270.250 lineto", "15.000 270.250 lineto",
                          "15.000 247.750 lineto", "22.500 247.750 lineto", "22.500 225.250 lineto",
                          "0.76 setlinewidth", "stroke"));
}

TEST_F(EpsBarsTest, ABinWhoseValueExceedsThePlotIsCutOffAtTheTopInEveryStyle) {
  SetHeights({1000.0});
  EXPECT_THAT(Draw(&GraphicsSink::DrawFilledBars),
              ElementsAre("7.500 225.250 moveto", "7.500 285.250 lineto", "15.000 285.250 lineto",
                          "30.000 225.250 lineto", "7.500 225.250 lineto", "fill"));
  EXPECT_THAT(
      Draw(&GraphicsSink::DrawBarRectangles),
      ElementsAre("7.500 225.250 moveto", "7.500 285.250 lineto", "15.000 285.250 lineto",
                  "15.000 225.250 lineto", "7.500 225.250 lineto", "0.76 setlinewidth", "stroke"));
  EXPECT_THAT(Draw(&GraphicsSink::DrawBarOutline),
              ElementsAre("7.500 225.250 moveto", "7.500 285.250 lineto", "15.000 285.250 lineto",
                          "15.000 225.250 lineto", "0.76 setlinewidth", "stroke"));
}

TEST_F(EpsBarsTest, AHeightThatIsNoNumberIsCutOffAtTheTop) {
  SetHeights({0.0});
  context().BinFitHeight = 1;
  context().BinPeak = 0.0;
  EXPECT_EQ(Draw(&GraphicsSink::DrawFilledBars)[1], "7.500 285.250 lineto");
}

TEST_F(EpsBarsTest, AFilledBarThatEndsBeyondTheRightHasItsLeftSideDrawn) {
  SetHeights({30.0, 0.0, 15.0, 45.0});
  EXPECT_THAT(Draw(&GraphicsSink::DrawFilledBars, 39.0),
              ElementsAre("7.500 225.250 moveto",                            //
                          "7.500 247.750 lineto", "15.000 247.750 lineto",   //
                          "15.000 225.250 lineto", "22.500 225.250 lineto",  //
                          "22.500 236.500 lineto",                           //
                          "29.250 225.250 lineto", "7.500 225.250 lineto", "fill"));
}

TEST_F(EpsBarsTest, ABarThatEndsBeyondTheRightHasNoRectangleAndNoOutline) {
  SetHeights({30.0, 0.0, 15.0, 45.0});
  EXPECT_EQ(Draw(&GraphicsSink::DrawBarRectangles, 39.0).size(), std::size_t{14});
  EXPECT_THAT(Draw(&GraphicsSink::DrawBarOutline, 39.0),
              ElementsAre("7.500 225.250 moveto",                            //
                          "7.500 247.750 lineto", "15.000 247.750 lineto",   //
                          "15.000 225.250 lineto", "22.500 225.250 lineto",  //
                          "22.500 225.250 lineto", "0.76 setlinewidth", "stroke"));
}

TEST_F(EpsBarsTest, WithoutBinsThePolygonAndTheOutlineAreWrittenAllTheSame) {
  for (const std::int32_t count : {0, -3}) {
    context().BinCount = count;
    EXPECT_THAT(Draw(&GraphicsSink::DrawFilledBars),
                ElementsAre("7.500 225.250 moveto", "30.000 225.250 lineto", "7.500 225.250 lineto",
                            "fill"));
    EXPECT_THAT(Draw(&GraphicsSink::DrawBarRectangles), IsEmpty());
    EXPECT_THAT(
        Draw(&GraphicsSink::DrawBarOutline),
        ElementsAre("7.500 225.250 moveto", "7.500 225.250 lineto", "0.76 setlinewidth", "stroke"));
  }
}

TEST_F(EpsBarsTest, RoundingLosesNoBar) {
  for (std::int32_t count = 1; count <= 300; ++count) {
    SetHeights(std::vector<double>(static_cast<std::size_t>(count), 1.0));
    context().BinWidth = (700.0 - 100.3) / count;
    const auto draw = [&](BarOperation operation) {
      return DocumentBarsTest::Draw(kEpsSink, operation, 100.3, 100.0, 700.0, 20.0);
    };
    const std::vector<std::string> lines = draw(&GraphicsSink::DrawBarRectangles);
    ASSERT_EQ(std::count(lines.begin(), lines.end(), "stroke"), count);
    ASSERT_EQ(draw(&GraphicsSink::DrawFilledBars).size(), static_cast<std::size_t>(4 + 2 * count));
  }
}

TEST_F(EpsBarsTest, TheOutlineIsNotLimitedInBaseOrRight) {
  SetHeights({40.0});
  context().BinWidth = 1000.0;
  EXPECT_THAT(DocumentBarsTest::Draw(kEpsSink, &GraphicsSink::DrawBarOutline, 79000.0, 80000.0,
                                     80000.0, 0.0),
              ElementsAre("59250.000 -59699.750 moveto", "59250.000 -59669.750 lineto",
                          "60000.000 -59669.750 lineto", "60000.000 -59699.750 lineto",
                          "0.76 setlinewidth", "stroke"));
}

}  // namespace
}  // namespace ondrel
