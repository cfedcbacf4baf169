#include "fit/amplitude_histogram.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <vector>

#include "fit/histogram_fixture.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class AmplitudeHistogramTest : public HistogramTest {
 protected:
  /// Four bins of 1 pA from `minimum`.
  void SetAxis(double minimum) {
    histogram().Minimum = minimum;
    histogram().TickMarks = 2;
    histogram().BinsPerTick = 2;
    histogram().PerTick = 2.0;
  }

  void Select(Selection choice, double low, double high) {
    LevelFilter& filter = workspace().Levels.LevelSelection;
    filter.AmplitudeChoice = choice;
    filter.AmplitudeLow = low * 1e-12;
    filter.AmplitudeHigh = high * 1e-12;
  }

  AmplitudeHistogram& histogram() { return workspace().Amplitude; }
};

TEST_F(AmplitudeHistogramTest, LevelsAreCountedByTheirAmplitude) {
  SetAxis(0.0);
  AddAmplitudes({0.5, 1.5, 1.6, 3.9});
  BuildAmplitudeHistogram(workspace());
  EXPECT_THAT(Counts(histogram(), 4), ElementsAre(0, 1, 2, 0, 1, 0));
  EXPECT_EQ(histogram().YMaximum, 2.0);
  EXPECT_EQ(histogram().EventsInHistogram, 4);
}

TEST_F(AmplitudeHistogramTest, LevelsThatAreNotSelectedDoNotCount) {
  SetAxis(0.0);
  AddLevel(0.5e-12, 0.001).LevelFlags = 2;
  AddLevel(0.5e-12, 0.001).PrecedingFlags = 2;
  BuildAmplitudeHistogram(workspace());
  EXPECT_THAT(Counts(histogram(), 4), ElementsAre(0, 1, 0, 0, 0, 0));
}

TEST_F(AmplitudeHistogramTest, ALevelOnTheUpperEndOfTheAxisLiesAboveIt) {
  SetAxis(0.0);
  AddAmplitudes({4.0});
  BuildAmplitudeHistogram(workspace());
  EXPECT_THAT(Counts(histogram(), 4), ElementsAre(0, 0, 0, 0, 0, 1));
}

TEST_F(AmplitudeHistogramTest, ALevelLessThanOneBinBelowTheAxisCountsInTheFirstBin) {
  SetAxis(2.0);
  AddAmplitudes({1.5, 0.5});
  BuildAmplitudeHistogram(workspace());
  EXPECT_THAT(Counts(histogram(), 4), ElementsAre(1, 1, 0, 0, 0, 0));
}

TEST_F(AmplitudeHistogramTest, BinsBesideTheAxisCountAsEventsButNotInTheMaximum) {
  SetAxis(10.0);
  AddAmplitudes({1.0, 2.0, 3.0, 10.5, 99.0, 98.0});
  BuildAmplitudeHistogram(workspace());
  EXPECT_THAT(Counts(histogram(), 4), ElementsAre(3, 1, 0, 0, 0, 2));
  EXPECT_EQ(histogram().EventsInHistogram, 6);
  EXPECT_EQ(histogram().YMaximum, 1.0);
}

TEST_F(AmplitudeHistogramTest, ASquareRootAxisHasRootsForHeights) {
  SetAxis(0.0);
  histogram().SquareRootAxis = true;
  AddAmplitudes({0.1, 0.2, 0.3, 0.4, 1.5});
  BuildAmplitudeHistogram(workspace());
  EXPECT_EQ(histogram().Bins[1].Height, 2.0);
  EXPECT_EQ(histogram().Bins[2].Height, 1.0);
  EXPECT_EQ(histogram().YMaximum, 2.0);
  EXPECT_EQ(histogram().EventsInHistogram, 5);
}

TEST_F(AmplitudeHistogramTest, IncludeKeepsTheBinsThatTheRangeCoversWhole) {
  SetAxis(0.0);
  Select(Selection::Include, 0.5, 3.0);
  AddAmplitudes({0.5, 1.5, 2.5, 3.5});
  BuildAmplitudeHistogram(workspace());
  EXPECT_THAT(Excluded(histogram(), 4), ElementsAre(1, 4));
  EXPECT_THAT(Counts(histogram(), 4), ElementsAre(0, 0, 1, 1, 0, 0));
  EXPECT_EQ(histogram().EventsInHistogram, 2) << "a level in an excluded bin counts nowhere";
}

TEST_F(AmplitudeHistogramTest, IncludeNarrowerThanABinLeavesEveryBinExcluded) {
  SetAxis(0.0);
  Select(Selection::Include, 1.2, 1.8);
  AddAmplitudes({1.5, 9.0});
  BuildAmplitudeHistogram(workspace());
  EXPECT_THAT(Excluded(histogram(), 4), ElementsAre(1, 2, 3, 4));
  EXPECT_EQ(histogram().EventsInHistogram, 1);
}

TEST_F(AmplitudeHistogramTest, ExcludeTakesOutTheBinsThatItsEndsCutAndThoseBetween) {
  SetAxis(0.0);
  Select(Selection::Exclude, 0.5, 2.5);
  BuildAmplitudeHistogram(workspace());
  EXPECT_THAT(Excluded(histogram(), 4), ElementsAre(1, 2, 3));
}

TEST_F(AmplitudeHistogramTest, ABinThatContainsTheExcludedRangeWholeStays) {
  SetAxis(0.0);
  Select(Selection::Exclude, 1.2, 1.8);
  BuildAmplitudeHistogram(workspace());
  EXPECT_THAT(Excluded(histogram(), 4), IsEmpty());
}

TEST_F(AmplitudeHistogramTest, OnlyTheSelectionOfTheLevelItselfExcludesBins) {
  SetAxis(0.0);
  workspace().Levels.PrecedingSelection.AmplitudeChoice = Selection::Exclude;
  workspace().Levels.FollowingSelection.AmplitudeChoice = Selection::Exclude;
  BuildAmplitudeHistogram(workspace());
  EXPECT_THAT(Excluded(histogram(), 4), IsEmpty());
}

TEST_F(AmplitudeHistogramTest, WithoutMemoryThereAreNoBinsAndTheUserIsTold) {
  BuildAmplitudeHistogram(workspace());
  shell().Allocation.Next = 1;
  BuildAmplitudeHistogram(workspace());
  EXPECT_EQ(histogram().Bins, nullptr);
  EXPECT_EQ(histogram().Edges, nullptr);
  EXPECT_THAT(Messages(),
              ElementsAre("Insufficient memory for amplitude histogram. You can increase the "
                          "amount of memory by quiting some other programs."));
}

TEST_F(AmplitudeHistogramTest, WithoutMemoryForTheEdgesThereAreNoBinsEither) {
  shell().Allocation.Next = 2;
  BuildAmplitudeHistogram(workspace());
  EXPECT_EQ(histogram().Bins, nullptr);
  EXPECT_EQ(histogram().Edges, nullptr);
  EXPECT_THAT(Messages(),
              ElementsAre("Insufficient memory for amplitude histogram. You can increase the "
                          "amount of memory by quiting some other programs."));
}

TEST_F(AmplitudeHistogramTest, EdgesRunByRepeatedAddition) {
  histogram().Minimum = -0.3;
  histogram().PerTick = 0.7;
  histogram().BinsPerTick = 3;
  histogram().TickMarks = 4;
  BuildAmplitudeHistogram(workspace());
  double edge = -0.3;
  for (int i = 0; i <= 12; ++i) {
    EXPECT_EQ(histogram().Edges[i], edge) << i;
    edge += 0.7 / 3;
  }
}

// --- Rounding ------------------------------------------------------------------------------------

class RoundedAxisTest : public AmplitudeHistogramTest {
 protected:
  /// 30 bins of 0.7 / 3 pA from -0.3 pA.
  RoundedAxisTest() {
    histogram().Minimum = kMinimum;
    histogram().PerTick = 0.7;
    histogram().BinsPerTick = 3;
    histogram().TickMarks = 10;
  }

  static double Edge(int i) { return kMinimum + i * kWidth; }

  static constexpr int kBins = 30;
  static constexpr double kMinimum = -0.3;
  static constexpr double kWidth = 0.7 / 3;
};

TEST_F(RoundedAxisTest, ALevelOnAnEdgeIsPlacedByAMultiplicationAndASubtraction) {
  const double perAmpere = 1.0 / (1e-12 * kWidth);
  const double minimum = kMinimum / kWidth;
  std::vector<int> expected(kBins + 2);
  int byDivision = 0;
  int byDifference = 0;
  for (int i = 0; i <= kBins; ++i) {
    const double edge = Edge(i) * 1e-12;
    for (const double amplitude : {std::nextafter(edge, -1.0), edge, std::nextafter(edge, 1.0)}) {
      AddLevel(amplitude, 0.001);
      const double place = amplitude * perAmpere - minimum;
      const int bin = std::min(static_cast<int>(place) + 1, kBins + 1);
      ++expected[static_cast<std::size_t>(bin)];
      byDivision += std::trunc(amplitude / (1e-12 * kWidth) - minimum) != std::trunc(place);
      byDifference += std::trunc((amplitude / 1e-12 - kMinimum) / kWidth) != std::trunc(place);
    }
  }
  BuildAmplitudeHistogram(workspace());
  EXPECT_EQ(Counts(histogram(), kBins), expected);
  EXPECT_GT(byDivision, 0) << "other ways to the place can be told apart";
  EXPECT_GT(byDifference, 0);
}

TEST_F(RoundedAxisTest, BinsAreExcludedByEdgesThatAreProducts) {
  BuildAmplitudeHistogram(workspace());
  const std::vector<double> sums(histogram().Edges, histogram().Edges + kBins + 1);
  int apart = 0;
  for (int i = 1; i < kBins; ++i) {
    const double end = Edge(i) * 1e-12;
    if (end / 1e-12 != Edge(i)) continue;  // no range in amperes meets the edge
    LevelFilter& filter = workspace().Levels.LevelSelection;
    filter.AmplitudeChoice = Selection::Include;
    filter.AmplitudeLow = end;
    filter.AmplitudeHigh = 1.0;
    BuildAmplitudeHistogram(workspace());
    EXPECT_EQ(Excluded(histogram(), kBins).size(), static_cast<std::size_t>(i)) << "from " << i;
    filter.AmplitudeLow = -1.0;
    filter.AmplitudeHigh = end;
    BuildAmplitudeHistogram(workspace());
    EXPECT_EQ(Excluded(histogram(), kBins).size(), static_cast<std::size_t>(kBins - i)) << i;
    if (sums[static_cast<std::size_t>(i)] != Edge(i)) ++apart;
  }
  EXPECT_GT(apart, 5) << "repeated addition leads elsewhere";
}

TEST_F(AmplitudeHistogramTest, AMonstrousAxisHasNoMemory) {
  histogram().TickMarks = std::numeric_limits<std::int32_t>::max();
  BuildAmplitudeHistogram(workspace());
  EXPECT_EQ(histogram().Bins, nullptr);
  EXPECT_EQ(Messages().size(), 1u);
}

// --- Autoscale -----------------------------------------------------------------------------------

TEST_F(AmplitudeHistogramTest, AutoscaleWithNoSelectedLevelDoesNothing) {
  AddLevel(3e-12, 0.001).LevelFlags = 4;
  AutoscaleAmplitude(workspace());
  EXPECT_EQ(histogram().PerTick, 1.0);
  EXPECT_EQ(histogram().Bins, nullptr);
}

TEST_F(AmplitudeHistogramTest, AllLevelsAtOneAmplitudeStandBetweenTwoTicks) {
  AddAmplitudes({3.0, 3.0});
  AutoscaleAmplitude(workspace());
  EXPECT_EQ(histogram().PerTick, 2.0) << "from 3 pA itself";
  EXPECT_DOUBLE_EQ(histogram().Minimum, 1.0);
  EXPECT_EQ(histogram().TickMarks, 2);
}

TEST_F(AmplitudeHistogramTest, AllLevelsAtZeroHaveTicksOfOnePicoampere) {
  AddAmplitudes({0.0, 0.0});
  AutoscaleAmplitude(workspace());
  EXPECT_EQ(histogram().PerTick, 1.0);
  EXPECT_EQ(histogram().Minimum, -1.0);
  EXPECT_EQ(histogram().TickMarks, 2);
}

TEST_F(AmplitudeHistogramTest, RangesOfFourToFortyPicoamperesAlwaysHaveTicksOfAHalf) {
  for (const double high : {5.0, 15.0, 39.0}) {
    Clear();
    AddAmplitudes({0.0, high});
    AutoscaleAmplitude(workspace());
    EXPECT_EQ(histogram().PerTick, 0.5) << high;
  }
}

TEST_F(AmplitudeHistogramTest, TicksAreOneTwoOrFiveOfAPowerOfTen) {
  // A quarter of the range: 0.15, 0.3 and 0.7 (its exponent lowered to -1), and 15.
  const std::pair<double, double> cases[] = {{0.6, 0.1}, {1.2, 0.2}, {2.8, 0.5}, {60.0, 10.0}};
  for (const auto& [range, tick] : cases) {
    Clear();
    AddAmplitudes({0.0, range});
    AutoscaleAmplitude(workspace());
    EXPECT_DOUBLE_EQ(histogram().PerTick, tick) << range;
  }
}

TEST_F(AmplitudeHistogramTest, TicksComeFromAQuarterOfTheRange) {
  // 0.45 / 4 = 0.1125, but a fifth is below 0.1; 0.79 / 4 = 0.1975, but a third is above 0.2.
  for (const double range : {0.45, 0.79}) {
    Clear();
    AddAmplitudes({0.0, range});
    AutoscaleAmplitude(workspace());
    EXPECT_DOUBLE_EQ(histogram().PerTick, 0.1) << range;
  }
}

TEST_F(AmplitudeHistogramTest, TheExponentOfASmallRangeIsLoweredToo) {
  AddAmplitudes({0.0, 0.06});  // a quarter is 10 to the power -1.82, truncated -1
  AutoscaleAmplitude(workspace());
  EXPECT_DOUBLE_EQ(histogram().PerTick, 0.01);
}

TEST_F(AmplitudeHistogramTest, OneNegativeAmplitudeHasTheTicksOfItsSize) {
  AddAmplitudes({-3.0, -3.0});
  AutoscaleAmplitude(workspace());
  EXPECT_EQ(histogram().PerTick, 2.0);
  EXPECT_DOUBLE_EQ(histogram().Minimum, -5.0);
  EXPECT_EQ(histogram().TickMarks, 2);
}

TEST_F(AmplitudeHistogramTest, TheExponentOfOneSmallAmplitudeIsNotLowered) {
  AddAmplitudes({0.3});  // 10 to the power -0.52, truncated 0
  AutoscaleAmplitude(workspace());
  EXPECT_EQ(histogram().PerTick, 1.0);
  EXPECT_DOUBLE_EQ(histogram().Minimum, -0.7);
  EXPECT_EQ(histogram().TickMarks, 2);
}

TEST_F(AmplitudeHistogramTest, ANegativeLowEndOnATickStays) {
  AddAmplitudes({-1.0, 9.0});
  AutoscaleAmplitude(workspace());
  EXPECT_EQ(histogram().PerTick, 0.5);
  EXPECT_EQ(histogram().Minimum, -1.0);
  EXPECT_EQ(histogram().TickMarks, 20);
}

TEST_F(AmplitudeHistogramTest, ASmallSpreadFarFromZeroHasAnAxisOfItsOwn) {
  AddAmplitudes({100.0, 100.0000001});
  AutoscaleAmplitude(workspace());
  EXPECT_DOUBLE_EQ(histogram().PerTick, 2e-8) << "five thousand million of them from 0";
  EXPECT_NEAR(histogram().Minimum, 100.0, 3e-8);
  EXPECT_GE(histogram().TickMarks, 5);
  EXPECT_LE(histogram().TickMarks, 7);
  EXPECT_EQ(histogram().EventsInHistogram, 2);
}

TEST_F(AmplitudeHistogramTest, LevelsOneUnitInTheLastPlaceApartHaveAFewTicksAtMost) {
  for (const double low : {1e-12, 3.3e-12, 1e-10, -1e-10, -7.7e-12, 1e-15, 1e-3}) {
    Clear();
    AddLevel(low, 0.001);
    AddLevel(std::nextafter(low, 1.0), 0.001);
    AutoscaleAmplitude(workspace());
    EXPECT_NEAR(histogram().Minimum / (low / 1e-12), 1.0, 1e-14) << low;
    EXPECT_LT(std::abs(histogram().TickMarks), 200) << low << ": rounding may leave none";
    EXPECT_EQ(histogram().EventsInHistogram, 2) << low;
    EXPECT_THAT(Messages(), IsEmpty());
  }
}

TEST_F(AmplitudeHistogramTest, ANegativeLowEndGoesDownToTheNextTick) {
  AddAmplitudes({-0.7, 9.3});
  AutoscaleAmplitude(workspace());
  EXPECT_EQ(histogram().PerTick, 0.5);
  EXPECT_EQ(histogram().Minimum, -1.0);
  EXPECT_EQ(histogram().TickMarks, 21) << "10.3 pA take a tick more than 20";
}

TEST_F(AmplitudeHistogramTest, APositiveLowEndIsTruncatedToATick) {
  AddAmplitudes({0.7, 10.7});
  AutoscaleAmplitude(workspace());
  EXPECT_EQ(histogram().Minimum, 0.5);
  EXPECT_EQ(histogram().TickMarks, 21);
}

TEST_F(AmplitudeHistogramTest, AutoscaleRebuildsAndKeepsTheBinsOfATick) {
  histogram().BinsPerTick = 7;
  histogram().MinimumTicks = 9;
  AddAmplitudes({0.7, 10.7});
  AutoscaleAmplitude(workspace());
  EXPECT_EQ(histogram().BinsPerTick, 7);
  EXPECT_EQ(histogram().MinimumTicks, 9);
  EXPECT_EQ(histogram().EventsInHistogram, 2);
  EXPECT_EQ(histogram().YMaximum, 1.0);
  EXPECT_EQ(histogram().CountsPerTick, 1);
}

TEST_F(AmplitudeHistogramTest, AutoscaleLooksAtSelectedLevelsAlone) {
  AddAmplitudes({0.7, 10.7});
  AddLevel(-50e-12, 0.001).LevelFlags = 4;
  AddLevel(50e-12, 0.001).LevelFlags = 4;
  AutoscaleAmplitude(workspace());
  EXPECT_EQ(histogram().Minimum, 0.5);
  EXPECT_EQ(histogram().TickMarks, 21);
}

TEST_F(AmplitudeHistogramTest, AutoscaleChoosesCountsByTheKindOfAxis) {
  for (const bool squareRoot : {false, true}) {
    Clear();
    for (int i = 0; i < 250; ++i) AddAmplitudes({2.0});
    histogram().SquareRootAxis = squareRoot;
    AutoscaleAmplitude(workspace());
    EXPECT_EQ(histogram().CountsPerTick, 50) << "a third of 250, and not of its root";
    EXPECT_EQ(histogram().SquareRootAxis, squareRoot);
  }
}

}  // namespace
}  // namespace ondrel
