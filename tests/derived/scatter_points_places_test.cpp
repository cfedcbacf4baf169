#include "derived/scatter_points.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <utility>
#include <vector>

#include "derived/scatter_points_fixture.h"
#include "support/random_seed.h"

namespace ondrel {
namespace {

using ::testing::DoubleEq;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;
using ::testing::SizeIs;

// --- Where they stand ----------------------------------------------------------------------------

TEST_F(ScatterPointsTest, APlaceCountsFromTheStartsOfTheAxesInTheirSteps) {
  ViewOf(workspace(), ViewKind::AmplitudeScatter).Scatter = {2.0, 30.0, 40.0, 0.0};
  ViewOf(workspace(), ViewKind::DurationScatter).Scatter = {2.0, 30.0, 0.0, 50.0};
  ViewOf(workspace(), ViewKind::Scatter).Scatter = {2.0, 0.0, 40.0, 50.0};
  byAmplitude().Minimum = -2.0;
  byAmplitude().PerTick = 4.0;
  byAmplitude().AmplitudeMinimum = -1e-12;
  byDuration().Minimum = 3.0;
  byDuration().PerTick = 1.0;
  byDuration().MinimumExponent = -6;
  byBoth().Minimum = 0.5e-12;
  byBoth().MinimumExponent = -4;
  AddDwell(10.0, 1.5, 1e-2);
  // (10 + 2) / 4 ticks of 30, and 2.5 units of 40 up.
  EXPECT_THAT(PlacesOf(ViewKind::AmplitudeScatter), ElementsAre(Pair(190.0, DoubleEq(350.0))));
  // 7 ticks of 30, and 4 decades of 50 up.
  EXPECT_THAT(PlacesOf(ViewKind::DurationScatter), ElementsAre(Pair(310.0, DoubleEq(250.0))));
  // 2 decades of 50, and 1 unit of 40 up.
  EXPECT_THAT(PlacesOf(ViewKind::Scatter), ElementsAre(Pair(DoubleEq(200.0), DoubleEq(410.0))));
}

TEST_F(ScatterPointsTest, TheNumberOfPicoamperesPerTickDoesNotMovePoints) {
  AddDwell(5.0, 1.5, 1e-3);
  const Places before = PlacesOf(ViewKind::AmplitudeScatter);
  byAmplitude().PaPerTick = 7.0;
  byBoth().PaPerTick = 7.0;
  EXPECT_EQ(PlacesOf(ViewKind::AmplitudeScatter), before);
}

TEST_F(ScatterPointsTest, PointsOnTheFourEdgesCount) {
  AddDwell(-5.0, 2.0, 1e-2);  // left
  AddDwell(45.0, 2.0, 1e-2);  // right
  AddDwell(5.0, 4.0, 1e-2);   // top
  AddDwell(5.0, 0.0, 1e-2);   // bottom
  EXPECT_THAT(PlacesOf(ViewKind::AmplitudeScatter),
              ElementsAre(Pair(100.0, 250.0), Pair(600.0, 250.0), Pair(200.0, DoubleEq(50.0)),
                          Pair(200.0, 450.0)));
}

TEST_F(ScatterPointsTest, DurationsOnTheEdgesCount) {
  AddDwell(-5.0, 2.0, 1e-5);
  AddDwell(45.0, 2.0, 1e-1);
  EXPECT_THAT(PlacesOf(ViewKind::DurationScatter),
              ElementsAre(Pair(100.0, 450.0), Pair(600.0, 50.0)));
  AddDwell(0.0, 4.0, 1.0);
  EXPECT_THAT(PlacesOf(ViewKind::Scatter),
              ElementsAre(Pair(100.0, 250.0), Pair(500.0, 250.0), Pair(600.0, DoubleEq(50.0))));
}

/// By a thousandth of a unit, beyond each edge by itself.
TEST_F(ScatterPointsTest, PointsJustOutsideDoNotCount) {
  const double tick = 10.0 / 100.0 * 1e-3;
  AddDwell(-5.0 - tick, 2.0, 1e-2);
  AddDwell(45.0 + tick, 2.0, 1e-2);
  AddDwell(5.0, 4.00001, 1e-2);
  AddDwell(5.0, -0.00001, 1e-2);
  EXPECT_THAT(PointsOf(ViewKind::AmplitudeScatter), IsEmpty());
  FreeAllTables(workspace());
  Allocate(200, 50);
  AddDwell(5.0, 2.0, std::pow(10.0, -5.00001));
  AddDwell(5.0, 2.0, std::pow(10.0, -0.99999));
  EXPECT_THAT(PointsOf(ViewKind::DurationScatter), IsEmpty());
  EXPECT_THAT(PointsOf(ViewKind::Scatter), SizeIs(1)) << "the second";
  AddDwell(5.0, 2.0, std::pow(10.0, 0.00001));
  EXPECT_THAT(PointsOf(ViewKind::Scatter), SizeIs(1));
}

TEST_F(ScatterPointsTest, WhatRoundingPutsBesideAnEdgeStandsOnIt) {
  const GraphFrame frame{100.0, 600.0, 50.0, 450.0, 20.0};
  const double rounding = 0.9e-6;
  const double beyond = 1.1e-6;
  const auto lies = [&](double x, double y) { return LiesInFrame(frame, {.X = x, .Y = y}); };
  EXPECT_TRUE(lies(100.0 - rounding, 200.0));
  EXPECT_TRUE(lies(600.0 + rounding, 200.0));
  EXPECT_TRUE(lies(200.0, 50.0 - rounding));
  EXPECT_TRUE(lies(200.0, 450.0 + rounding));
  EXPECT_FALSE(lies(100.0 - beyond, 200.0));
  EXPECT_FALSE(lies(600.0 + beyond, 200.0));
  EXPECT_FALSE(lies(200.0, 50.0 - beyond));
  EXPECT_FALSE(lies(200.0, 450.0 + beyond));
  EXPECT_FALSE(lies(kNan, 200.0));
  EXPECT_FALSE(lies(200.0, kNan));
}

/// A tick of a third, on frames whose edges are eighths and sixths: what is exact on paper is not
/// in a computer.
TEST_F(ScatterPointsTest, EdgesThatComeOutOfDivisionsCountTheSame) {
  ViewState& view = ViewOf(workspace(), ViewKind::AmplitudeScatter);
  byAmplitude().Minimum = 0.1;
  byAmplitude().PerTick = 1.0 / 3.0;
  byAmplitude().AmplitudeMinimum = 0.3e-12;
  AddDwell(0.1, 0.3, 1e-3);
  AddDwell(0.1 + 7.0 / 3.0, 0.3, 1e-3);
  AddDwell(0.1, 0.3 + 2.1, 1e-3);
  AddDwell(0.1 + 7.0 / 3.0, 0.3 + 2.1, 1e-3);
  for (std::int32_t size = 1; size < 400; ++size) {
    // The plot is three quarters as wide and two thirds as high as the rectangle.
    const double width = size * 7.0 * 4.0 / 3.0;
    const double height = size * 21.0 * 3.0 / 2.0;
    view.Frame = {13.0 + width / 8.0, 13.0 + width / 1.1428571428571428, 17.0 + height / 6.0,
                  17.0 + height / 1.2, 0.0};
    view.Scatter.XPixelsPerTick = size;
    view.Scatter.YPixelsPerUnit = 10.0 * size;
    ASSERT_THAT(PointsOf(ViewKind::AmplitudeScatter), SizeIs(4)) << size;
  }
}

// --- What lies on no axis ------------------------------------------------------------------------

TEST_F(ScatterPointsTest, DurationsWithoutALogarithmGiveNoPointOnALogarithmicAxis) {
  for (const double duration : {0.0, -0.0, -1e-3, kNan, kInfinity, -kInfinity}) {
    AddDwell(5.0, 1.0, duration);
  }
  EXPECT_THAT(CountAll(), ElementsAre(6u, 0u, 0u));
  for (const ViewKind kind : kScatterPlots) ViewOf(workspace(), kind).Scatter.PixelsPerDecade = 0.0;
  EXPECT_THAT(CountAll(), ElementsAre(6u, 0u, 0u)) << "nor where all durations meet";
}

TEST_F(ScatterPointsTest, ValuesAndAmplitudesThatAreNoNumbersGiveNoPoint) {
  for (const double value : {kNan, kInfinity, -kInfinity}) {
    AddDwell(value, 1.0, 1e-3);
    AddDwell(5.0, value, 1e-3);
  }
  EXPECT_THAT(PointsOf(ViewKind::AmplitudeScatter), IsEmpty());
  EXPECT_THAT(PointsOf(ViewKind::DurationScatter), SizeIs(3)) << "it shows no amplitudes";
  EXPECT_THAT(PointsOf(ViewKind::Scatter), SizeIs(3)) << "it shows no values";
}

TEST_F(ScatterPointsTest, AnAxisThatHasNoScaleShowsNoPoints) {
  AddDwell(5.0, 1.0, 1e-3);
  AddDwell(-5.0, 1.0, 1e-3);
  for (const double nothing : {0.0, -0.0, kNan}) {
    byAmplitude().PerTick = nothing;
    byDuration().PerTick = nothing;
    EXPECT_THAT(CountAll(), ElementsAre(0u, 0u, 2u)) << nothing;
  }
  byAmplitude().PerTick = byDuration().PerTick = 10.0;
  byAmplitude().Minimum = byDuration().Minimum = kNan;
  EXPECT_THAT(CountAll(), ElementsAre(0u, 0u, 2u));
}

/// Toward smaller values when the step is negative: a preference file can hold one.
TEST_F(ScatterPointsTest, AStepBelowZeroTurnsTheAxisRound) {
  byAmplitude().PerTick = -10.0;
  AddDwell(-15.0, 1.0, 1e-3);
  AddDwell(5.0, 1.0, 1e-3);
  EXPECT_THAT(PlacesOf(ViewKind::AmplitudeScatter), ElementsAre(Pair(200.0, 350.0)));
}

TEST_F(ScatterPointsTest, ExponentsAtTheEndOfTheirRangeAreTakenAsTheyAre) {
  AddDwell(5.0, 1.0, 1e-3);
  for (const std::int32_t exponent :
       {std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()}) {
    byDuration().MinimumExponent = exponent;
    byBoth().MinimumExponent = exponent;
    EXPECT_THAT(CountAll(), ElementsAre(1u, 0u, 0u));
  }
}

// --- Against a second computation ----------------------------------------------------------------

/// By ticks, units and decades from the start of each axis, in wider numbers.
class RandomScatterPointsTest : public ScatterPointsTest {
 protected:
  struct Expected {
    long double X = 0.0;
    long double Y = 0.0;
  };

  double Between(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random_);
  }

  void ScatterAxesAtRandom() {
    for (const ViewKind kind : kScatterPlots) {
      const double left = Between(-50, 200);
      const double top = Between(-50, 200);
      ViewOf(workspace(), kind).Frame = {left, left + Between(1, 900), top, top + Between(1, 700),
                                         0.0};
      ViewOf(workspace(), kind).Scatter = {2.0, std::floor(Between(1, 200)),
                                           std::floor(Between(1, 200)),
                                           std::floor(Between(1, 200))};
    }
    byAmplitude() = {.Value = static_cast<ScatterValue>(random_() % 3),
                     .Minimum = Between(-50, 50),
                     .PerTick = Between(0.1, 30),
                     .AmplitudeMinimum = Between(-3e-12, 3e-12)};
    byDuration() = {.Value = static_cast<ScatterValue>(random_() % 3),
                    .MinimumExponent = static_cast<std::int32_t>(random_() % 10) - 7,
                    .Minimum = Between(-50, 50),
                    .PerTick = Between(0.1, 30)};
    byBoth().MinimumExponent = static_cast<std::int32_t>(random_() % 10) - 7;
    byBoth().Minimum = Between(-3e-12, 3e-12);
  }

  void AddAtRandom() {
    for (int i = 0; i < 5; ++i) {
      SweepRecord& sweep = AddSweep(1.0);
      sweep.RelevantValue = Between(-60, 120);
      sweep.TagValue = Between(-60, 120);
    }
    for (int i = 0; i < 150; ++i) {
      const double duration = i % 20 == 0 ? 0.0 : std::pow(10.0, Between(-7, 3));
      LevelRecord& level = AddDwell(Between(-60, 120), Between(-4, 12), duration,
                                    static_cast<std::uint32_t>(random_() % 7));
      if (random_() % 4 == 0) level.LevelFlags = 0x40;
    }
  }

  bool PlaceOf(ViewKind kind, const LevelRecord& level, Expected& place) {
    const ViewState& view = ViewOf(workspace(), kind);
    if (kind != ViewKind::AmplitudeScatter && level.Duration == 0.0) return false;
    const long double decades = std::log10(static_cast<long double>(level.Duration));
    const auto ticks = [&](const auto& plot) {
      if (plot.Value == ScatterValue::LevelTag) {
        return (static_cast<long double>(level.TagValue) - plot.Minimum) / plot.PerTick;
      }
      if (level.Sweep < 1 || level.Sweep > 5) return std::numeric_limits<long double>::quiet_NaN();
      const SweepRecord& sweep = workspace().Sweeps.Records[level.Sweep - 1];
      const double value =
          plot.Value == ScatterValue::SweepTag ? sweep.TagValue : sweep.RelevantValue;
      return (static_cast<long double>(value) - plot.Minimum) / plot.PerTick;
    };
    const auto units = [&](double minimum) {
      return (static_cast<long double>(level.Amplitude) - minimum) * 1e12L;
    };
    const ScatterLayout& layout = view.Scatter;
    if (kind == ViewKind::AmplitudeScatter) {
      place = {ticks(byAmplitude()) * layout.XPixelsPerTick,
               units(byAmplitude().AmplitudeMinimum) * layout.YPixelsPerUnit};
    } else if (kind == ViewKind::DurationScatter) {
      place = {ticks(byDuration()) * layout.XPixelsPerTick,
               (decades - byDuration().MinimumExponent) * layout.PixelsPerDecade};
    } else {
      place = {(decades - byBoth().MinimumExponent) * layout.PixelsPerDecade,
               units(byBoth().Minimum) * layout.YPixelsPerUnit};
    }
    place = {view.Frame.PlotLeft + place.X, view.Frame.PlotBottom - place.Y};
    constexpr long double kRounding = 1e-6L;
    return place.X - view.Frame.PlotLeft >= -kRounding &&
           view.Frame.PlotRight - place.X >= -kRounding &&
           place.Y - view.Frame.PlotTop >= -kRounding &&
           view.Frame.PlotBottom - place.Y >= -kRounding;
  }

 private:
  std::mt19937_64 random_{RandomSeed()};
};

TEST_F(RandomScatterPointsTest, PointsAreThoseOfASlowerComputation) {
  std::size_t shown = 0;
  for (int round = 0; round < 200; ++round) {
    FreeAllTables(workspace());
    Allocate(200, 50);
    ScatterAxesAtRandom();
    AddAtRandom();
    for (const ViewKind kind : kScatterPlots) {
      std::vector<Expected> expected;
      for (std::int32_t i = 0; i < workspace().Levels.Count; ++i) {
        Expected place;
        const LevelRecord& level = Level(i);
        if (level.LevelFlags == 0 && PlaceOf(kind, level, place)) expected.push_back(place);
      }
      const Points points = PointsOf(kind);
      ASSERT_EQ(points.size(), expected.size()) << "ONDREL_SEED=" << RandomSeed();
      for (std::size_t i = 0; i < points.size(); ++i) {
        ASSERT_NEAR(points[i].X, static_cast<double>(expected[i].X), 1e-6);
        ASSERT_NEAR(points[i].Y, static_cast<double>(expected[i].Y), 1e-6);
      }
      shown += points.size();
    }
  }
  EXPECT_GT(shown, std::size_t{1000}) << "the axes show too little of what there is";
}

}  // namespace
}  // namespace ondrel
