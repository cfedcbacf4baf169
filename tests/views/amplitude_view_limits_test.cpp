#include "views/amplitude_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "views/amplitude_view_fixture.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;

TEST_F(AmplitudeViewTest, NoSettingHangsTheView) {
  constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
  for (const std::int32_t extreme : {-kMost - 1, -1, 0, 1, kMost}) {
    for (std::int32_t AmplitudeHistogram::*field :
         {&AmplitudeHistogram::CountsPerTick, &AmplitudeHistogram::MinimumTicks,
          &AmplitudeHistogram::TickMarks}) {
      for (const bool root : {false, true}) {
        const std::int32_t kept = amplitude().*field;
        amplitude().*field = extreme;
        amplitude().SquareRootAxis = root;
        amplitude().YMaximum = 1e9;
        LayoutAmplitude(workspace(), sink(), kRect);
        EXPECT_LT(CountParts(DrawAmplitudeXAxis), 33000);
        EXPECT_LT(CountParts(DrawAmplitudeYAxis), 33000);
        amplitude().*field = kept;
      }
    }
  }
}

TEST_F(AmplitudeViewTest, AnAxisOfCountsHasNoMoreTicksThanAnyDeviceCanShow) {
  amplitude().CountsPerTick = 1;
  amplitude().YMaximum = 1e6;
  LayoutAmplitude(workspace(), sink(), kRect);
  DrawYAxis();
  EXPECT_EQ(CountLines("right"), 16384);
}

TEST_F(AmplitudeViewTest, NothingBetweenTicksOfCountsReadsAsOne) {
  amplitude().CountsPerTick = 0;
  amplitude().YMaximum = 3.0;
  LayoutAmplitude(workspace(), sink(), kRect);
  DrawYAxis();
  EXPECT_THAT(LinesOf({"right"}), ElementsAre("right 182 1410 0", "right 182 1036.66667 1",
                                              "right 182 663.333333 2", "right 182 290 3"));
}

TEST_F(AmplitudeViewTest, APlotWithoutHeightHasTheFirstCountAlone) {
  for (const bool root : {false, true}) {
    amplitude().SquareRootAxis = root;
    LayoutAmplitude(workspace(), sink(), {0, 0, 0, 0});
    recording::Clear();
    DrawAmplitudeYAxis(workspace(), sink(), {0, 0, 0, 0});
    EXPECT_THAT(LinesOf({"right"}), ElementsAre("right 0 0 0"));
  }
}

TEST_F(AmplitudeViewTest, CountsBeyondTheRangeOfIntegersAreCutToIt) {
  amplitude().CountsPerTick = std::numeric_limits<std::int32_t>::max();
  LayoutAmplitude(workspace(), sink(), kRect);
  DrawYAxis();
  EXPECT_THAT(LinesOf({"right"}), ElementsAre("right 182 1410 0", "right 182 850 2147483647",
                                              "right 182 290 2147483647"));
}

}  // namespace
}  // namespace ondrel
