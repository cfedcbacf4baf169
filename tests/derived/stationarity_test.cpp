#include "derived/stationarity.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "derived/stationarity_fixture.h"

namespace ondrel {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The part of a kernel's weight between two places, in widths of the kernel from its middle.
double Share(double lower, double upper) {
  return (std::erf(upper) - std::erf(lower)) / (std::erf(3.0) - std::erf(-3.0));
}

// --- How many ------------------------------------------------------------------------------------

TEST_F(StationarityTest, WithoutASelectedSweepThereAreNoSamples) {
  UseTimeAxis(0.0, 0.1, 1.0);
  AddDwell(0.0, 1.0);
  EXPECT_THAT(Sample(), IsEmpty());
  EXPECT_EQ(plot().StationaritySamples, nullptr);
}

TEST_F(StationarityTest, AKernelAsLongAsTheShortestSweepHasNoSample) {
  UseTimeAxis(6.0, 1.0, 0.5);
  AddDwell(0.0, 10.0);
  EXPECT_THAT(Sample(), IsEmpty());
  plot().ShortestSweep = 6.5;
  EXPECT_EQ(Sample().size(), std::size_t{1});
}

TEST_F(StationarityTest, AKernelLongerThanTheShortestSweepHasNoSample) {
  UseTimeAxis(6.0, 1.0625, 0.5);
  EXPECT_THAT(Sample(), IsEmpty());
  EXPECT_EQ(plot().StationaritySamples, nullptr);
}

TEST_F(StationarityTest, ThereIsASampleForEachWholeDeviceUnitBetweenTheEnds) {
  UseTimeAxis(10.0, 1.0, 2.0);
  plot().TickPixels = 5.0;
  EXPECT_EQ(Sample().size(), std::size_t{10});
  plot().TickPixels = 5.4;  // 10.8
  EXPECT_EQ(Sample().size(), std::size_t{10});
  plot().TickPixels = 5.5;
  EXPECT_EQ(Sample().size(), std::size_t{11});
}

TEST_F(StationarityTest, RoundingTakesNoSampleAway) {
  UseTimeAxis(1.0, 0.1, 0.1);
  EXPECT_LT((1.0 - 6.0 * 0.1) / 0.1, 4.0);
  EXPECT_EQ(Sample().size(), std::size_t{4});
}

TEST_F(StationarityTest, WidthsThatNoDialogTakesHaveNoSamples) {
  for (const double tau : {0.0, -1.0, std::numeric_limits<double>::quiet_NaN(),
                           std::numeric_limits<double>::infinity()}) {
    UseTimeAxis(10.0, tau, 0.1);
    AddDwell(0.0, 10.0);
    EXPECT_THAT(Sample(), IsEmpty()) << tau;
  }
}

// --- What a sample is ----------------------------------------------------------------------------

TEST_F(StationarityTest, ALevelThatCoversTheWholeKernelMakesExactlyOne) {
  for (const double tau : {1.0, 0.1, 0.7, 1.0 / 3.0}) {
    UseTimeAxis(12.0, tau, 0.25);
    workspace().Levels.Count = 0;
    AddDwell(0.0, 12.0);
    const std::vector<double> samples = Sample();
    EXPECT_GT(samples.size(), std::size_t{20});
    EXPECT_THAT(samples, Each(1.0)) << tau;
    EXPECT_EQ(plot().ValueMin, 1.0);
    EXPECT_EQ(plot().ValueMax, 1.0);
  }
}

TEST_F(StationarityTest, TheFirstSampleLiesThreeWidthsBehindTheStart) {
  UseTimeAxis(8.0, 1.0, 1.0);
  AddDwell(0.0, 3.5);
  EXPECT_THAT(Sample(), ElementsAre(::testing::DoubleNear(Share(-3.0, 0.5), 1e-15),
                                    ::testing::DoubleNear(Share(-3.0, -0.5), 1e-15)));
}

TEST_F(StationarityTest, ALevelCountsByThePartOfTheWeightThatItCovers) {
  UseTimeAxis(8.0, 0.5, 1.0);
  AddDwell(3.0, 1.0);
  const std::vector<double> samples = Sample();
  ASSERT_EQ(samples.size(), std::size_t{5});  // at 1.5, 2.5, 3.5, 4.5 and 5.5
  EXPECT_NEAR(samples[0], 0.0, 1e-15) << "its kernel ends where the level begins";
  EXPECT_NEAR(samples[1], Share(1.0, 3.0), 1e-15);
  EXPECT_NEAR(samples[2], Share(-1.0, 1.0), 1e-15);
  EXPECT_NEAR(samples[3], Share(-3.0, -1.0), 1e-15);
  EXPECT_NEAR(samples[4], 0.0, 1e-15);
}

TEST_F(StationarityTest, ALevelShorterThanAStepCountsForEachKernelThatItOverlaps) {
  UseTimeAxis(2.0, 0.1, 0.05);
  constexpr double kStart = 1.011;
  constexpr double kDuration = 1e-4;
  AddDwell(kStart, kDuration);
  const std::vector<double> samples = Sample();
  ASSERT_EQ(samples.size(), std::size_t{28});
  int seen = 0;
  for (std::size_t k = 0; k < samples.size(); ++k) {
    const double distance = (kStart - (0.3 + 0.05 * static_cast<double>(k))) / 0.1;
    if (std::fabs(distance) > 3.0) {
      EXPECT_EQ(samples[k], 0.0) << k;
      continue;
    }
    ++seen;
    const double share = Share(distance, distance + kDuration / 0.1);
    EXPECT_NEAR(samples[k], share, 1e-15) << k;
    EXPECT_GT(samples[k], 0.0) << k;
  }
  EXPECT_EQ(seen, 12);
}

TEST_F(StationarityTest, ALevelFromBeforeTheEndToFarBehindItIsClippedByTheNumberOfSamples) {
  UseTimeAxis(10.0, 0.5, 0.5);
  AddDwell(2.0, 1e9);
  const std::vector<double> samples = Sample();
  ASSERT_EQ(samples.size(), std::size_t{14});
  EXPECT_NEAR(samples[0], Share(1.0, 3.0), 1e-15);
  EXPECT_EQ(samples.back(), 1.0);
}

TEST_F(StationarityTest, ALevelThatNeverEndsIsClippedToo) {
  UseTimeAxis(10.0, 0.5, 0.5);
  AddDwell(0.0, std::numeric_limits<double>::infinity());
  EXPECT_THAT(Sample(), Each(1.0));
}

TEST_F(StationarityTest, ALevelThatStartsAtTheEndOfTheShortestSweepOrLaterIsSkipped) {
  UseTimeAxis(10.0, 0.5, 0.5);
  AddDwell(10.0, 5.0);
  AddDwell(11.0, 5.0);
  AddDwell(std::numeric_limits<double>::quiet_NaN(), 5.0);
  EXPECT_THAT(Sample(), Each(0.0));
}

TEST_F(StationarityTest, ALevelThatStartsBeforeTheEndCountsWithWhatReachesIn) {
  UseTimeAxis(10.0, 1.0, 0.25);
  AddDwell(9.0, 5.0);
  const std::vector<double> samples = Sample();
  ASSERT_EQ(samples.size(), std::size_t{16});  // the last at 6.75, with a kernel up to 9.75
  EXPECT_NEAR(samples[15], Share(2.25, 3.0), 1e-15);
  EXPECT_NEAR(samples[11], 0.0, 1e-15);
}

TEST_F(StationarityTest, LevelsThatAreFilteredOutAddNothing) {
  UseTimeAxis(10.0, 0.5, 0.5);
  AddDwell(0.0, 10.0).LevelFlags = 0x10;
  EXPECT_THAT(Sample(), Each(0.0));
  AddDwell(0.0, 10.0).PrecedingFlags = 0x10;
  EXPECT_THAT(Sample(), Each(1.0)) << "the other two words do not matter";
}

TEST_F(StationarityTest, SamplesAreTheMeanOfTheSelectedSweeps) {
  UseTimeAxis(10.0, 0.5, 0.5);
  workspace().Sweeps.SelectedCount = 4;
  AddDwell(0.0, 10.0);
  EXPECT_THAT(Sample(), Each(0.25));
  AddDwell(0.0, 10.0).Sweep = 2;
  EXPECT_THAT(Sample(), Each(0.5));
  workspace().Sweeps.SelectedCount = 0;
  EXPECT_THAT(Sample(), Each(2.0)) << "nothing to divide by";
}

TEST_F(StationarityTest, TheTypeSaysWhatALevelContributes) {
  UseTimeAxis(10.0, 0.5, 0.5);
  AddDwell(0.0, 16.0, 3, -4e-12);
  plot().Type = StationarityType::One;
  EXPECT_THAT(Sample(), Each(1.0));
  plot().Type = StationarityType::Amplitude;
  EXPECT_THAT(Sample(), Each(::testing::DoubleNear(-4e-12, 1e-26)));
  plot().Type = StationarityType::Duration;
  EXPECT_THAT(Sample(), Each(16.0));
  plot().Type = StationarityType::Level;
  EXPECT_THAT(Sample(), Each(::testing::DoubleNear(3.0, 1e-14)));
}

TEST_F(StationarityTest, OfLevelNumbersASampleIsTheMeanWithUnselectedTimeAsZero) {
  UseTimeAxis(10.0, 0.5, 3.5);
  plot().Type = StationarityType::Level;
  AddDwell(0.0, 1.5, 2);
  AddDwell(1.5, 3.0, 0);
  AddDwell(4.5, 0.5, -1);
  AddDwell(5.0, 5.0, 7).LevelFlags = 0x1;
  EXPECT_THAT(Sample(), ElementsAre(::testing::DoubleNear(2.0 * 0.5, 1e-15),
                                    ::testing::DoubleNear(-Share(-1.0, 0.0), 1e-15)));
}

TEST_F(StationarityTest, LowestAndHighestSampleAreKept) {
  UseTimeAxis(8.0, 0.5, 1.0);
  plot().Type = StationarityType::Level;
  AddDwell(0.0, 4.0, -3);
  AddDwell(4.0, 4.0, 5);
  const std::vector<double> samples = Sample();
  ASSERT_EQ(samples.size(), std::size_t{5});
  EXPECT_EQ(plot().ValueMin, samples.front());
  EXPECT_EQ(plot().ValueMax, samples.back());
  EXPECT_NEAR(plot().ValueMin, -3.0, 1e-14);
  EXPECT_NEAR(plot().ValueMax, 5.0, 1e-14);
}

TEST_F(StationarityTest, ValuesBelowZeroHaveAHighestSampleBelowZero) {
  UseTimeAxis(8.0, 0.5, 1.0);
  plot().Type = StationarityType::Level;
  AddDwell(0.0, 8.0, -2);
  Sample();
  EXPECT_NEAR(plot().ValueMin, -2.0, 1e-15);
  EXPECT_NEAR(plot().ValueMax, -2.0, 1e-15);
}

// --- Memory --------------------------------------------------------------------------------------

TEST_F(StationarityTest, SamplesOfALaterRunReplaceThoseOfTheFormer) {
  UseTimeAxis(10.0, 0.5, 0.5);
  AddDwell(0.0, 10.0);
  const int before = shell().LiveAllocations;
  EXPECT_EQ(Sample().size(), std::size_t{14});
  plot().TickPixels = 2.0;
  EXPECT_THAT(Sample(), Each(1.0)) << "they start from 0 again";
  EXPECT_EQ(plot().SampleCount, 28);
  EXPECT_EQ(shell().LiveAllocations, before + 1);
}

TEST_F(StationarityTest, SamplesAreFreedWhenTheKernelDoesNotFitAnyMore) {
  UseTimeAxis(10.0, 0.5, 0.5);
  const int before = shell().LiveAllocations;
  Sample();
  plot().Tau = 2.0;
  EXPECT_THAT(Sample(), IsEmpty());
  EXPECT_EQ(plot().StationaritySamples, nullptr);
  EXPECT_EQ(shell().LiveAllocations, before);
}

TEST_F(StationarityTest, WithoutMemoryThereAreNoSamplesAndTheFormerAreGone) {
  UseTimeAxis(10.0, 0.5, 0.5);
  const int before = shell().LiveAllocations;
  Sample();
  shell().Allocation = {.Next = 1};
  EXPECT_FALSE(SampleStationarity(workspace()));
  EXPECT_EQ(plot().SampleCount, 0);
  EXPECT_EQ(plot().StationaritySamples, nullptr);
  EXPECT_EQ(shell().LiveAllocations, before);
  EXPECT_THAT(Messages(), IsEmpty()) << "whoever draws tells it";
  EXPECT_EQ(Sample().size(), std::size_t{14}) << "the next try may succeed";
}

TEST_F(StationarityTest, SamplesEndWithTheWorkspace) {
  UseTimeAxis(10.0, 0.5, 0.5);
  Sample();
  FreeAllTables(workspace());
  EXPECT_EQ(plot().StationaritySamples, nullptr);
  EXPECT_EQ(plot().SampleCount, 0);
}

}  // namespace
}  // namespace ondrel
