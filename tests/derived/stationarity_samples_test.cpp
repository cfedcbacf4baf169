// The samples against a slow and obvious second computation: the integral of the kernel over the
// levels, and the formula of that integral.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

#include "derived/stationarity_fixture.h"
#include "fit/error_function.h"
#include "support/random_seed.h"
#include "workspace/truncate.h"

namespace ondrel {
namespace {

constexpr std::array kTypes = {StationarityType::One, StationarityType::Amplitude,
                               StationarityType::Duration, StationarityType::Level};

/// The integral of exp(-u^2) by a Gauss rule of three points in each of many panels.
double WeightByQuadrature(double lower, double upper) {
  constexpr int kPanels = 200;
  const double half = (upper - lower) / (2 * kPanels);
  const double offset = half * std::sqrt(0.6);
  double sum = 0.0;
  for (int i = 0; i < kPanels; ++i) {
    const double middle = lower + (2 * i + 1) * half;
    const double before = middle - offset;
    const double behind = middle + offset;
    sum += (5.0 * std::exp(-before * before) + 8.0 * std::exp(-middle * middle) +
            5.0 * std::exp(-behind * behind)) *
           half / 9.0;
  }
  return sum;
}

double WeightByFormula(double lower, double upper) {
  return std::erf(upper) - std::erf(lower);
}

class StationaritySamplesTest : public StationarityTest {
 protected:
  StationaritySamplesTest() { Allocate(kCapacity, 50); }

  double ContributionOf(const LevelRecord& level) {
    switch (plot().Type) {
      case StationarityType::One:
        return 1.0;
      case StationarityType::Amplitude:
        return level.Amplitude;
      case StationarityType::Duration:
        return level.Duration;
      default:
        return level.Level;
    }
  }

  /// What the kernel about `time` sees: the value of the selected levels as a function of time,
  /// weighted and cut off at three widths. Split where levels begin and end.
  template <typename Weight>
  double Average(double time, Weight weight) {
    const double tau = plot().Tau;
    double sum = 0.0;
    for (std::int32_t row = 0; row < workspace().Levels.Count; ++row) {
      const LevelRecord& level = *workspace().Levels.Index[row];
      const double lower = std::max((level.Transition - time) / tau, -3.0);
      const double upper = std::min((level.Transition + level.Duration - time) / tau, 3.0);
      if (level.LevelFlags != 0 || lower >= upper) continue;
      sum += ContributionOf(level) * weight(lower, upper);
    }
    return sum / (weight(-3.0, 3.0) * workspace().Sweeps.SelectedCount);
  }

  /// `tolerance` is a part of the largest sample, or of `leastSize` where that is larger.
  template <typename Weight>
  void ExpectSamplesFrom(Weight weight, double tolerance, double leastSize = 0.0) {
    const std::vector<double> samples = Sample();
    ASSERT_GT(samples.size(), std::size_t{0});
    const double step = plot().TickSpacing / plot().TickPixels;
    const double size =
        std::max({std::fabs(plot().ValueMin), std::fabs(plot().ValueMax), leastSize});
    for (std::size_t k = 0; k < samples.size(); ++k) {
      const double time = 3.0 * plot().Tau + static_cast<double>(k) * step;
      EXPECT_NEAR(samples[k], Average(time, weight), tolerance * size) << k;
    }
  }

  void ExpectSamplesAreTheIntegral() {
    for (const StationarityType type : kTypes) {
      plot().Type = type;
      ExpectSamplesFrom(WeightByQuadrature, 1e-10);
      ExpectSamplesFrom(WeightByFormula, 1e-12);
    }
  }

  /// Sweeps of dwells end to end, each from a wide range of durations, up to `duration` or a bit
  /// longer. Some levels are filtered out.
  void AddSweeps(std::int32_t count, double duration) {
    std::uniform_int_distribution<std::int32_t> numbers(-2, 5);
    std::uniform_real_distribution<double> magnitudes(-4.0, 0.5);
    for (std::int32_t sweep = 1; sweep <= count; ++sweep) {
      const double end = duration * (sweep == 1 ? 1.0 : 1.0 + 0.3 * sweep);
      double time = 0.0;
      while (time < end && workspace().Levels.Count < kCapacity) {
        const double dwell = std::min(std::pow(10.0, magnitudes(random_)), end - time);
        LevelRecord& level = AddDwell(time, dwell, numbers(random_), noise_(random_) * 1e-12);
        level.Sweep = static_cast<std::uint32_t>(sweep);
        level.LevelFlags = random_() % 3 == 0 ? 0x2 : 0x0;
        time += dwell;
      }
    }
    workspace().Sweeps.SelectedCount = count;
  }

  static constexpr std::int32_t kCapacity = 400;
  std::mt19937_64 random_{RandomSeed()};
  std::normal_distribution<double> noise_;
};

TEST_F(StationaritySamplesTest, OneSweepOfRandomDwells) {
  UseTimeAxis(4.0, 0.1, 0.04);
  AddSweeps(1, 4.0);
  ExpectSamplesAreTheIntegral();
}

TEST_F(StationaritySamplesTest, SweepsLongerThanTheShortest) {
  UseTimeAxis(3.0, 0.15, 0.035);
  AddSweeps(5, 3.0);
  ExpectSamplesAreTheIntegral();
}

TEST_F(StationaritySamplesTest, StepsWiderThanTheKernel) {
  UseTimeAxis(10.0, 0.05, 0.77);
  AddSweeps(3, 10.0);
  ExpectSamplesAreTheIntegral();
}

TEST_F(StationaritySamplesTest, StepsMuchFinerThanTheDwells) {
  UseTimeAxis(3.0, 0.4, 0.0011);
  AddDwell(0.0, 0.7, 2);
  AddDwell(0.7, 1.1, 1).LevelFlags = 0x4;
  AddDwell(1.8, 1.4, 4);
  ExpectSamplesAreTheIntegral();
}

TEST_F(StationaritySamplesTest, LevelsThatOverlapAndStandInNoOrder) {
  UseTimeAxis(5.0, 0.3, 0.1);
  AddDwell(3.3, 0.4, 1);
  AddDwell(1.3, 2.4, 2);
  AddDwell(4.9, 0.4, 3);
  AddDwell(-1.0, 3.0, 4);
  ExpectSamplesAreTheIntegral();
}

/// Where the division that finds a level's first sample leaves no rest, or nearly none.
TEST_F(StationaritySamplesTest, LevelsThatBeginWhereAKernelEnds) {
  for (const double step : {0.25, 0.1, 0.3}) {
    UseTimeAxis(6.0, 0.5, step);
    for (int k = 0; k < 12; ++k) {
      const double edge = 3.0 + k * step;
      for (const double start : {std::nextafter(edge, 0.0), edge, std::nextafter(edge, 9.0)}) {
        workspace().Levels.Count = 0;
        AddDwell(start, 0.9);
        ExpectSamplesFrom(WeightByFormula, 1e-14, 1.0);
      }
    }
  }
}

TEST_F(StationaritySamplesTest, AFinerPictureHasTheSameCurve) {
  UseTimeAxis(4.0, 0.1, 0.04);
  AddSweeps(2, 4.0);
  const std::vector<double> coarse = Sample();
  plot().TickPixels = 4.0;
  const std::vector<double> fine = Sample();
  ASSERT_EQ(fine.size(), 4 * coarse.size());
  for (std::size_t k = 0; k < coarse.size(); ++k) EXPECT_NEAR(fine[4 * k], coarse[k], 1e-12);
}

// --- Rounding ------------------------------------------------------------------------------------

/// Step by step, one error function at a time.
std::vector<double> PlainSamples(const StationaritySettings& plot, const LevelTable& levels,
                                 std::int32_t sweeps, std::size_t count) {
  const double reach = 3.0 * plot.Tau;
  const double step = plot.TickSpacing / plot.TickPixels;
  const double limit = reach / plot.Tau;
  std::vector<double> samples(count, 0.0);
  for (std::int32_t row = 0; row < levels.Count; ++row) {
    const LevelRecord& level = *levels.Index[row];
    if (level.LevelFlags != 0 || level.Transition >= plot.ShortestSweep) continue;
    const double start = level.Transition;
    const double end = start + level.Duration;
    double time = std::max(start - reach, reach);
    auto place = static_cast<std::size_t>((time - reach) / step);
    if (static_cast<double>(place) * step != time - reach) {
      time = static_cast<double>(place) * step + reach;
      if (time + reach < start) {
        time += step;
        ++place;
      }
    }
    for (; end > time - reach && place < count; ++place, time += step) {
      const double lower = time - reach <= start ? (start - time) / plot.Tau : -limit;
      const double upper = end < time + reach ? (end - time) / plot.Tau : limit;
      samples[place] += (ComplementaryErf(upper) - ComplementaryErf(lower)) * level.Level;
    }
  }
  const double whole = (ComplementaryErf(limit) - ComplementaryErf(-limit)) * sweeps;
  for (double& sample : samples) sample /= whole;
  return samples;
}

TEST_F(StationaritySamplesTest, WhatMakesSamplesFastDoesNotChangeTheirBits) {
  UseTimeAxis(3.0, 0.1, 0.013);
  plot().Type = StationarityType::Level;
  AddSweeps(4, 3.0);
  const std::vector<double> samples = Sample();
  const std::vector<double> plain =
      PlainSamples(plot(), workspace().Levels, workspace().Sweeps.SelectedCount, samples.size());
  ASSERT_GT(samples.size(), std::size_t{100});
  for (std::size_t k = 0; k < samples.size(); ++k) {
    EXPECT_EQ(std::bit_cast<std::uint64_t>(samples[k]), std::bit_cast<std::uint64_t>(plain[k]))
        << k;
  }
}

TEST_F(StationaritySamplesTest, ATypeThatDoesNotExistAddsLevelNumbers) {
  UseTimeAxis(1.0, 0.1, 0.1);
  AddDwell(0.0, 1.0, 3);
  plot().Type = static_cast<StationarityType>(9);
  for (const double sample : Sample()) EXPECT_DOUBLE_EQ(sample, 3.0);
  EXPECT_GT(plot().SampleCount, 0);
}

TEST_F(StationaritySamplesTest, AnAmplitudeThatIsNoNumberSpoilsTheSamplesAndNothingElse) {
  UseTimeAxis(1.0, 0.1, 0.1);
  AddDwell(0.0, 1.0).Amplitude = std::numeric_limits<double>::quiet_NaN();
  plot().Type = StationarityType::Amplitude;
  for (const double sample : Sample()) EXPECT_TRUE(std::isnan(sample));
  ScaleValueAxis(plot(), 400.0);
  EXPECT_TRUE(std::isfinite(plot().ValueTick));
  EXPECT_TRUE(std::isfinite(plot().ValueTickPixels));
}

}  // namespace
}  // namespace ondrel
