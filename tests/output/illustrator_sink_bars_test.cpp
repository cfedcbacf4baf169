#include "output/illustrator_sink.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "output/document_fixture.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// On a page of 400.5 units: the base is at 300.5, the top at 380.5.
class IllustratorBarsTest : public DocumentBarsTest {
 protected:
  IllustratorBarsTest() { context().PageHeight = 400.5; }

  std::vector<std::string> Draw(BarOperation operation, double right = 40.0) {
    return DocumentBarsTest::Draw(kIllustratorSink, operation, right);
  }
};

TEST_F(IllustratorBarsTest, EachFilledBarIsAPathOfItsOwn) {
  EXPECT_THAT(Draw(&GraphicsSink::DrawFilledBars),
              ElementsAre("10.000 300.500 m", "10.000 330.500 l", "20.000 330.500 l",
                          "20.000 300.500 l", "10.000 300.500 l", "F",  //
                          "20.000 300.500 m", "20.000 300.500 l", "30.000 300.500 l",
                          "30.000 300.500 l", "20.000 300.500 l", "F",  //
                          "30.000 300.500 m", "30.000 315.500 l", "40.000 315.500 l",
                          "40.000 300.500 l", "30.000 300.500 l", "F"));
}

TEST_F(IllustratorBarsTest, EachBarRectangleIsAPathWithThePenWidthBehindIt) {
  EXPECT_THAT(Draw(&GraphicsSink::DrawBarRectangles),
              ElementsAre("10.000 300.500 m", "10.000 330.500 l", "20.000 330.500 l",
                          "20.000 300.500 l", "10.000 300.500 l", "0.76 w", "S",  //
                          "20.000 300.500 m", "20.000 300.500 l", "30.000 300.500 l",
                          "30.000 300.500 l", "20.000 300.500 l", "0.76 w", "S",  //
                          "30.000 300.500 m", "30.000 315.500 l", "40.000 315.500 l",
                          "40.000 300.500 l", "30.000 300.500 l", "0.76 w", "S"));
}

TEST_F(IllustratorBarsTest, TheOutlineIsOnePathThatEndsOnTheBase) {
  EXPECT_THAT(Draw(&GraphicsSink::DrawBarOutline),
              ElementsAre("10.000 300.500 m", "10.000 330.500 l", "20.000 330.500 l",
                          "20.000 300.500 l", "30.000 300.500 l", "30.000 315.500 l",
                          "40.000 315.500 l", "40.000 300.500 l", "0.76 w", "S"));
}

TEST_F(IllustratorBarsTest, HeightsAreScaled) {
  context().BinScale = 2.5;
  SetHeights({30.0, 15.15});
  EXPECT_THAT(
      Draw(&GraphicsSink::DrawBarOutline),
      ElementsAre("10.000 300.500 m", "10.000 375.500 l", "20.000 375.500 l", "20.000 338.375 l",
                  "30.000 338.375 l", "30.000 300.500 l", "0.76 w", "S"));
}

TEST_F(IllustratorBarsTest, FittedHeightsAreSharesOfThePlot) {
  context().BinFitHeight = 1;
  SetHeights({30.0, 15.0});  // three quarters and three eighths of 80
  EXPECT_THAT(
      Draw(&GraphicsSink::DrawBarOutline),
      ElementsAre("10.000 300.500 m", "10.000 360.500 l", "20.000 360.500 l", "20.000 330.500 l",
                  "30.000 330.500 l", "30.000 300.500 l", "0.76 w", "S"));
}

TEST_F(IllustratorBarsTest, ABinWhoseValueExceedsThePlotIsCutOffAtTheTopInEveryStyle) {
  SetHeights({1000.0});
  EXPECT_THAT(Draw(&GraphicsSink::DrawFilledBars),
              ElementsAre("10.000 300.500 m", "10.000 380.500 l", "20.000 380.500 l",
                          "20.000 300.500 l", "10.000 300.500 l", "F"));
  EXPECT_THAT(Draw(&GraphicsSink::DrawBarRectangles),
              ElementsAre("10.000 300.500 m", "10.000 380.500 l", "20.000 380.500 l",
                          "20.000 300.500 l", "10.000 300.500 l", "0.76 w", "S"));
  EXPECT_THAT(Draw(&GraphicsSink::DrawBarOutline),
              ElementsAre("10.000 300.500 m", "10.000 380.500 l", "20.000 380.500 l",
                          "20.000 300.500 l", "0.76 w", "S"));
}

TEST_F(IllustratorBarsTest, AHeightThatIsNoNumberIsCutOffAtTheTop) {
  SetHeights({0.0});
  context().BinFitHeight = 1;
  context().BinPeak = 0.0;
  EXPECT_EQ(Draw(&GraphicsSink::DrawFilledBars)[1], "10.000 380.500 l");
}

TEST_F(IllustratorBarsTest, ABarThatEndsBeyondTheRightIsNotDrawnNorAnyBehindIt) {
  SetHeights({30.0, 0.0, 15.0, 15.0});
  EXPECT_EQ(Draw(&GraphicsSink::DrawFilledBars, 39.9).size(), std::size_t{12});
  EXPECT_EQ(Draw(&GraphicsSink::DrawBarRectangles, 39.9).size(), std::size_t{14});
  EXPECT_THAT(
      Draw(&GraphicsSink::DrawBarOutline, 39.9),
      ElementsAre("10.000 300.500 m", "10.000 330.500 l", "20.000 330.500 l", "20.000 300.500 l",
                  "30.000 300.500 l", "30.000 300.500 l", "0.76 w", "S"));
}

TEST_F(IllustratorBarsTest, WithoutBinsOnlyTheOutlineIsAPathAndThatIsStrokedAllTheSame) {
  for (const std::int32_t count : {0, -3}) {
    context().BinCount = count;
    EXPECT_THAT(Draw(&GraphicsSink::DrawFilledBars), IsEmpty());
    EXPECT_THAT(Draw(&GraphicsSink::DrawBarRectangles), IsEmpty());
    EXPECT_THAT(Draw(&GraphicsSink::DrawBarOutline),
                ElementsAre("10.000 300.500 m", "10.000 300.500 l", "0.76 w", "S"));
  }
}

TEST_F(IllustratorBarsTest, RoundingLosesNoBar) {
  for (std::int32_t count = 1; count <= 300; ++count) {
    SetHeights(std::vector<double>(static_cast<std::size_t>(count), 1.0));
    context().BinWidth = (700.0 - 100.3) / count;
    const std::vector<std::string> lines = DocumentBarsTest::Draw(
        kIllustratorSink, &GraphicsSink::DrawFilledBars, 100.3, 100.0, 700.0, 20.0);
    ASSERT_EQ(std::count(lines.begin(), lines.end(), "F"), count);
  }
}

TEST_F(IllustratorBarsTest, TheOutlineIsNotLimitedInBaseOrRight) {
  SetHeights({35.0});
  context().BinWidth = 1000.0;
  EXPECT_THAT(DocumentBarsTest::Draw(kIllustratorSink, &GraphicsSink::DrawBarOutline, 69000.0,
                                     70000.0, 70000.0, 0.0),
              ElementsAre("69000.000 -69599.500 m", "69000.000 -69564.500 l",
                          "70000.000 -69564.500 l", "70000.000 -69599.500 l", "0.76 w", "S"));
}

}  // namespace
}  // namespace ondrel
