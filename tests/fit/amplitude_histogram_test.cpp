#include "fit/amplitude_histogram.h"

#include <gmock/gmock.h>

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

}  // namespace
}  // namespace ondrel
