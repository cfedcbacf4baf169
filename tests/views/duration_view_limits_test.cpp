#include "views/duration_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "views/duration_view_fixture.h"

namespace ondrel {
namespace {

using ::testing::IsEmpty;

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

TEST_F(DurationViewTest, AnAxisHasNoMoreDecadesThanAnyDeviceCanShow) {
  duration().Decades = std::numeric_limits<std::int32_t>::max();
  duration().TicksPerDecade = 1;
  Lay();
  // Ticks and numbers, and as many minor ticks until no more of them are drawn.
  EXPECT_EQ(CountParts(DrawDurationXAxis), 2 + 2 * (16384 + 1) + 16384);
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

}  // namespace
}  // namespace ondrel
