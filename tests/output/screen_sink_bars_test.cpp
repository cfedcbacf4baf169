#include "output/screen_sink.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "output/screen_sink_fixture.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Three bins of 10 from 10.5 to 40.5, on a base of 100.9 and up to 20.2.
class ScreenBarsTest : public ScreenSinkTest {
 protected:
  using BarOperation = void (*GraphicsSink::*)(GraphicsContext&, double, double, double, double,
                                               const BinRecord*);
  static constexpr BarOperation kOperations[] = {&GraphicsSink::DrawFilledBars,
                                                 &GraphicsSink::DrawBarRectangles,
                                                 &GraphicsSink::DrawBarOutline};

  ScreenBarsTest() {
    context().BinCount = 3;
    context().BinWidth = 10.0;
    context().BinScale = 1.0;
    context().BinPeak = 40.0;
    SetHeights({30.0, 0.0, 15.0});
  }

  /// From bin 1 on; what lies before it is never drawn.
  void SetHeights(const std::vector<double>& heights) {
    bins_.assign(heights.size() + 1, {0, 77.0, 0});
    for (std::size_t i = 0; i < heights.size(); ++i) bins_[i + 1].Height = heights[i];
    context().BinCount = static_cast<std::int32_t>(heights.size());
  }

  void Draw(BarOperation operation, double left = 10.5, double base = 100.9, double right = 40.5,
            double top = 20.2) {
    shell().Drawing.clear();
    (sink().*operation)(context(), left, base, right, top, bins_.data());
  }

 private:
  std::vector<BinRecord> bins_;
};

TEST_F(ScreenBarsTest, FilledBarsAreFilledRectanglesOfTruncatedEdges) {
  Draw(&GraphicsSink::DrawFilledBars);
  EXPECT_THAT(Drawn(), ElementsAre("filled rect 10 70 20 100", "filled rect 20 100 30 100",
                                   "filled rect 30 85 40 100"));
}

TEST_F(ScreenBarsTest, BarRectanglesAreHollowRectanglesOfTheSameEdges) {
  Draw(&GraphicsSink::DrawBarRectangles);
  EXPECT_THAT(Drawn(), ElementsAre("hollow rect 10 70 20 100", "hollow rect 20 100 30 100",
                                   "hollow rect 30 85 40 100"));
}

TEST_F(ScreenBarsTest, TheOutlineIsASkylineThatEndsOnTheBase) {
  Draw(&GraphicsSink::DrawBarOutline);
  EXPECT_THAT(Drawn(),
              ElementsAre("line 10 100 to 10 70", "line 10 70 to 20 70", "line 20 70 to 20 100",
                          "line 20 100 to 30 100", "line 30 100 to 30 85", "line 30 85 to 40 85",
                          "line 40 85 to 40 100"));
}

TEST_F(ScreenBarsTest, HeightsAreScaled) {
  context().BinScale = 2.5;
  Draw(&GraphicsSink::DrawFilledBars);
  EXPECT_THAT(Drawn(), ElementsAre("filled rect 10 25 20 100", "filled rect 20 100 30 100",
                                   "filled rect 30 63 40 100"));  // 100.9 - 37.5
}

TEST_F(ScreenBarsTest, FittedHeightsAreSharesOfThePlot) {
  context().BinFitHeight = 1;
  Draw(&GraphicsSink::DrawFilledBars);  // 80.7 high: three quarters, none, three eighths
  EXPECT_THAT(Drawn(), ElementsAre("filled rect 10 40 20 100", "filled rect 20 100 30 100",
                                   "filled rect 30 70 40 100"));
}

TEST_F(ScreenBarsTest, ABinWhoseValueExceedsThePlotIsCutOffAtTheTopInEveryStyle) {
  SetHeights({1000.0});
  Draw(&GraphicsSink::DrawFilledBars);
  EXPECT_THAT(Drawn(), ElementsAre("filled rect 10 20 20 100"));
  Draw(&GraphicsSink::DrawBarRectangles);
  EXPECT_THAT(Drawn(), ElementsAre("hollow rect 10 20 20 100"));
  Draw(&GraphicsSink::DrawBarOutline);
  EXPECT_THAT(Drawn(),
              ElementsAre("line 10 100 to 10 20", "line 10 20 to 20 20", "line 20 20 to 20 100"));
}

TEST_F(ScreenBarsTest, AHeightThatIsNoNumberIsCutOffAtTheTop) {
  SetHeights({0.0});
  context().BinFitHeight = 1;
  context().BinPeak = 0.0;
  Draw(&GraphicsSink::DrawFilledBars);
  EXPECT_THAT(Drawn(), ElementsAre("filled rect 10 20 20 100"));
}

TEST_F(ScreenBarsTest, ABarThatEndsBeyondTheRightIsNotDrawnNorAnyBehindIt) {
  Draw(&GraphicsSink::DrawFilledBars, 10.5, 100.9, 40.4);
  EXPECT_EQ(Drawn().size(), std::size_t{2});
  Draw(&GraphicsSink::DrawBarRectangles, 10.5, 100.9, 40.4);
  EXPECT_EQ(Drawn().size(), std::size_t{2});
  Draw(&GraphicsSink::DrawBarOutline, 10.5, 100.9, 40.4);
  EXPECT_EQ(Drawn().back(), "line 30 100 to 30 100") << "behind the last bar drawn";
}

TEST_F(ScreenBarsTest, RoundingLosesNoBar) {
  for (std::int32_t count = 1; count <= 300; ++count) {
    SetHeights(std::vector<double>(static_cast<std::size_t>(count), 1.0));
    context().BinWidth = (700.0 - 100.3) / count;
    Draw(&GraphicsSink::DrawFilledBars, 100.3, 100.0, 700.0);
    ASSERT_EQ(Drawn().size(), static_cast<std::size_t>(count));
  }
}

TEST_F(ScreenBarsTest, WithoutBinsOnlyTheOutlineHasAPathAndThatHasNoBars) {
  context().BinCount = 0;
  Draw(&GraphicsSink::DrawFilledBars);
  EXPECT_THAT(Drawn(), IsEmpty());
  Draw(&GraphicsSink::DrawBarRectangles);
  EXPECT_THAT(Drawn(), IsEmpty());
  Draw(&GraphicsSink::DrawBarOutline);
  EXPECT_THAT(Drawn(), ElementsAre("line 10 100 to 10 100"));
}

TEST_F(ScreenBarsTest, ANegativeNumberOfBinsIsNone) {
  context().BinCount = -3;
  for (const BarOperation operation : kOperations) {
    Draw(operation);
    EXPECT_LE(Drawn().size(), std::size_t{1});
  }
}

TEST_F(ScreenBarsTest, TheOutlineAloneIsLimitedInBaseAndRight) {
  SetHeights({35.0, 35.0, 35.0});
  context().BinWidth = 20.0;
  Draw(&GraphicsSink::DrawBarOutline, 65500.0, 70000.0, 70000.0, 0.0);
  EXPECT_THAT(Drawn(),
              ElementsAre("line 65500 65535 to 65500 65500", "line 65500 65500 to 65520 65500",
                          "line 65520 65500 to 65520 65535"));
  Draw(&GraphicsSink::DrawFilledBars, 65500.0, 70000.0, 70000.0, 0.0);
  EXPECT_THAT(Drawn().back(), "filled rect 65540 69965 65560 70000");
}

TEST_F(ScreenBarsTest, TheEdgeOfABarIsThatOfTheOneBeforeItAndABinsWidth) {
  SetHeights(std::vector<double>(20, 1.0));
  context().BinWidth = 0.7;  // twenty times added up that is just below 14
  Draw(&GraphicsSink::DrawFilledBars, 0.0, 100.0, 40.0);
  EXPECT_EQ(Drawn().back(), "filled rect 13 99 13 100");
  Draw(&GraphicsSink::DrawBarRectangles, 0.0, 100.0, 40.0);
  EXPECT_EQ(Drawn().back(), "hollow rect 13 99 13 100");
  Draw(&GraphicsSink::DrawBarOutline, 0.0, 100.0, 40.0);
  EXPECT_EQ(Drawn().back(), "line 13 99 to 13 100");
}

}  // namespace
}  // namespace ondrel
