#include "fit/duration_histogram.h"

#include <gmock/gmock.h>

#include <cmath>

#include "fit/histogram_fixture.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// So high that no dwell of these tests is corrected and no bin excluded for its shortness.
constexpr double kNoFilter = 1e12;  // Hz

class DurationHistogramTest : public HistogramTest {
 protected:
  DurationHistogramTest() { histogram().FilterFrequency = kNoFilter; }

  void SetAxis(int exponent, int decades, int binsPerDecade) {
    histogram().MinimumExponent = exponent;
    histogram().Decades = decades;
    histogram().BinsPerDecade = binsPerDecade;
  }

  void Select(Selection choice, double low, double high) {
    LevelFilter& filter = workspace().Levels.LevelSelection;
    filter.DurationChoice = choice;
    filter.DurationLow = low;
    filter.DurationHigh = high;
  }

  DurationHistogram& histogram() { return workspace().Duration; }
};

TEST(CorrectDurationTest, ShortDwellsGrowByTheFormula) {
  for (const double duration : {1e-6, 2e-5, 5e-5, 9.9e-5}) {
    const long double fc = 5000.0L;
    const long double t = duration;
    const long double tau = 0.1787L / fc;
    const long double expected = t + tau * std::exp(-t / tau - 7.589L * fc * fc * t * t -
                                                    30.578L * fc * fc * fc * t * t * t);
    EXPECT_NEAR(CorrectDuration(duration, 5000.0) / static_cast<double>(expected), 1.0, 1e-14);
  }
}

TEST(CorrectDurationTest, TheLimitItselfIsCorrectedAndTheNextNumberIsNot) {
  const double limit = 1.0 / (2.0 * 5000.0);
  EXPECT_GT(CorrectDuration(limit, 5000.0), limit);
  const double next = std::nextafter(limit, 1.0);
  EXPECT_EQ(CorrectDuration(next, 5000.0), next);
  EXPECT_GT(CorrectDuration(limit, 5000.0), next) << "values are not held under the limit";
}

TEST_F(DurationHistogramTest, LevelsAreCountedByTheLogarithmOfTheirDuration) {
  SetAxis(-3, 3, 1);
  AddDurations({0.002, 0.005, 0.02, 0.3});
  BuildDurationHistogram(workspace());
  EXPECT_THAT(Counts(histogram(), 3), ElementsAre(0, 2, 1, 1, 0));
  EXPECT_EQ(histogram().YMaximum, 2.0);
  EXPECT_EQ(histogram().EventsInHistogram, 4);
}

TEST_F(DurationHistogramTest, ALevelOfDurationZeroIsNotEvenBelowTheAxis) {
  SetAxis(-3, 3, 1);
  AddDurations({0.0});
  BuildDurationHistogram(workspace());
  EXPECT_THAT(Counts(histogram(), 3), ElementsAre(0, 0, 0, 0, 0));
}

TEST_F(DurationHistogramTest, ALevelOfNegativeDurationCountsNowhere) {
  SetAxis(-3, 3, 1);
  AddDurations({-0.5, -1e-4});
  BuildDurationHistogram(workspace());
  EXPECT_THAT(Counts(histogram(), 3), ElementsAre(0, 0, 0, 0, 0));
}

TEST_F(DurationHistogramTest, ALevelOnTheUpperEndOfTheAxisLiesAboveIt) {
  SetAxis(-5, 5, 20);
  AddDurations({1.0});
  BuildDurationHistogram(workspace());
  EXPECT_EQ(histogram().Bins[101].Count, 1);
}

TEST_F(DurationHistogramTest, ALevelLessThanOneBinBelowTheAxisCountsInTheFirstBin) {
  SetAxis(-3, 3, 1);
  AddDurations({0.0005, 0.00005});
  BuildDurationHistogram(workspace());
  EXPECT_THAT(Counts(histogram(), 3), ElementsAre(1, 1, 0, 0, 0));
}

TEST_F(DurationHistogramTest, LevelsThatAreNotSelectedDoNotCount) {
  SetAxis(-3, 3, 1);
  AddLevel(1e-12, 0.002).LevelFlags = 8;
  BuildDurationHistogram(workspace());
  EXPECT_EQ(histogram().EventsInHistogram, 0);
}

TEST_F(DurationHistogramTest, BinsThatBeginBelowTheShortestTimeOfTheFilterAreExcluded) {
  SetAxis(-6, 4, 1);
  histogram().FilterFrequency = 5000.0;  // 33.3 us
  BuildDurationHistogram(workspace());
  EXPECT_THAT(Excluded(histogram(), 4), ElementsAre(1, 2));
}

TEST_F(DurationHistogramTest, ABinThatBeginsAtTheShortestTimeItselfStays) {
  SetAxis(0, 2, 1);
  histogram().FilterFrequency = 1.0 / 6.0;  // exactly 1 s
  BuildDurationHistogram(workspace());
  EXPECT_THAT(Excluded(histogram(), 2), IsEmpty());
  histogram().FilterFrequency = std::nextafter(1.0 / 6.0, 0.0);
  BuildDurationHistogram(workspace());
  EXPECT_THAT(Excluded(histogram(), 2), ElementsAre(1));
}

TEST_F(DurationHistogramTest, TheShortestTimeHoldsForEachKindOfSelection) {
  SetAxis(-3, 3, 1);
  histogram().FilterFrequency = 5.0;  // 33.3 ms
  Select(Selection::Include, 1e-4, 2.0);
  BuildDurationHistogram(workspace());
  EXPECT_THAT(Excluded(histogram(), 3), ElementsAre(1, 2));
  Select(Selection::Exclude, 50.0, 60.0);
  BuildDurationHistogram(workspace());
  EXPECT_THAT(Excluded(histogram(), 3), ElementsAre(1, 2));
}

TEST_F(DurationHistogramTest, AChangeOfTheFrequencyAloneChangesTheShortBins) {
  SetAxis(-5, 5, 20);
  AddDurations({2.5e-5, 2.5e-5, 0.5});
  histogram().FilterFrequency = 100000.0;
  BuildDurationHistogram(workspace());
  const std::vector<int> before = Counts(histogram(), 100);
  histogram().FilterFrequency = 5000.0;
  BuildDurationHistogram(workspace());
  const std::vector<int> after = Counts(histogram(), 100);
  EXPECT_NE(before, after);
  EXPECT_EQ(before[94 + 1], after[94 + 1]);  // 0.5 s: 20 (log10 0.5 + 5) = 93.98
  EXPECT_EQ(before[93 + 1], 1);
  EXPECT_EQ(after[93 + 1], 1) << "long dwells stay";
}

TEST_F(DurationHistogramTest, AnAxisBelowTheShortestTimeHasOnlyWhatLiesBesideIt) {
  SetAxis(-9, 3, 5);
  histogram().FilterFrequency = 5000.0;
  AddDurations({1e-8, 0.5});
  BuildDurationHistogram(workspace());
  EXPECT_EQ(Excluded(histogram(), 15).size(), 15u);
  EXPECT_EQ(histogram().EventsInHistogram, 2)
      << "the filter lets even 10 ns count as 36 us, above the axis";
  EXPECT_EQ(histogram().YMaximum, 0.0);
}

TEST_F(DurationHistogramTest, IncludeKeepsTheBinsThatTheRangeCoversWhole) {
  SetAxis(-3, 3, 1);
  Select(Selection::Include, 0.005, 2.0);
  BuildDurationHistogram(workspace());
  EXPECT_THAT(Excluded(histogram(), 3), ElementsAre(1));
}

TEST_F(DurationHistogramTest, IncludeLeavesOutTheBinsThatItsHighEndCuts) {
  SetAxis(0, 3, 1);
  Select(Selection::Include, 1.0, 100.0);
  BuildDurationHistogram(workspace());
  EXPECT_THAT(Excluded(histogram(), 3), ElementsAre(3)) << "the high end itself is in";
  Select(Selection::Include, 1.0, 99.0);
  BuildDurationHistogram(workspace());
  EXPECT_THAT(Excluded(histogram(), 3), ElementsAre(2, 3));
}

TEST_F(DurationHistogramTest, ExcludeTakesOutTheBinsThatItsEndsCut) {
  SetAxis(-3, 3, 1);
  Select(Selection::Exclude, 0.005, 0.05);
  BuildDurationHistogram(workspace());
  EXPECT_THAT(Excluded(histogram(), 3), ElementsAre(1, 2));
  Select(Selection::Exclude, 0.02, 0.05);
  BuildDurationHistogram(workspace());
  EXPECT_THAT(Excluded(histogram(), 3), IsEmpty()) << "a bin that contains the range stays";
}

TEST_F(DurationHistogramTest, WithoutMemoryThereAreNoBinsAndTheUserIsTold) {
  shell().Allocation.Next = 1;
  BuildDurationHistogram(workspace());
  EXPECT_EQ(histogram().Bins, nullptr);
  EXPECT_EQ(histogram().Edges, nullptr);
  EXPECT_THAT(Messages(),
              ElementsAre("Insufficient memory for duration histogram. You can increase the "
                          "amount of memory by quiting some other programs."));
}

TEST_F(DurationHistogramTest, WithoutMemoryForTheEdgesThereAreNoBinsEither) {
  shell().Allocation.Next = 2;
  BuildDurationHistogram(workspace());
  EXPECT_EQ(histogram().Bins, nullptr);
  EXPECT_EQ(histogram().Edges, nullptr);
  EXPECT_THAT(Messages(),
              ElementsAre("Insufficient memory for duration histogram. You can increase the "
                          "amount of memory by quiting some other programs."));
}

TEST_F(DurationHistogramTest, EdgesArePowersOfTenInSeconds) {
  histogram().MinimumExponent = -3;
  histogram().Decades = 2;
  histogram().BinsPerDecade = 4;
  BuildDurationHistogram(workspace());
  for (int i = 0; i <= 8; ++i) {
    EXPECT_DOUBLE_EQ(histogram().Edges[i], std::pow(10.0, -3 + i / 4.0)) << i;
  }
}

// --- Autoscale -----------------------------------------------------------------------------------

TEST_F(DurationHistogramTest, AutoscaleWithNothingToScaleByDoesNothing) {
  AutoscaleDuration(workspace());
  EXPECT_EQ(histogram().Bins, nullptr);
  AddDurations({0.0, 0.5});
  AutoscaleDuration(workspace());
  EXPECT_EQ(histogram().Bins, nullptr);
  EXPECT_EQ(histogram().MinimumExponent, -5);
}

TEST_F(DurationHistogramTest, ShortLevelsBeginADecadeBelowTheShortest) {
  AddDurations({0.003, 0.05});
  AutoscaleDuration(workspace());
  EXPECT_EQ(histogram().MinimumExponent, -3);
  EXPECT_EQ(histogram().Decades, 2);
  EXPECT_EQ(histogram().EventsInHistogram, 2);
}

TEST_F(DurationHistogramTest, WithShortAndLongLevelsTheLongestCanLieAboveTheAxis) {
  AddDurations({0.003, 30.0});
  AutoscaleDuration(workspace());
  EXPECT_EQ(histogram().MinimumExponent, -3);
  EXPECT_EQ(histogram().Decades, 4) << "up to 10 s";
  EXPECT_EQ(histogram().Bins[81].Count, 1);
}

TEST_F(DurationHistogramTest, LongLevelsAloneHaveADecadeForTheLongest) {
  AddDurations({2.0, 30.0});
  AutoscaleDuration(workspace());
  EXPECT_EQ(histogram().MinimumExponent, 0);
  EXPECT_EQ(histogram().Decades, 2);
}

TEST_F(DurationHistogramTest, AShortestLevelOfExactlyOneSecondIsLong) {
  AddDurations({1.0, 30.0});
  AutoscaleDuration(workspace());
  EXPECT_EQ(histogram().MinimumExponent, 0);
  EXPECT_EQ(histogram().Decades, 2);
}

TEST_F(DurationHistogramTest, AutoscaleLooksAtSelectedLevelsAlone) {
  AddDurations({0.003, 0.05});
  AddLevel(1e-12, 1e-7).LevelFlags = 4;
  AddLevel(1e-12, 5000.0).LevelFlags = 4;
  AutoscaleDuration(workspace());
  EXPECT_EQ(histogram().MinimumExponent, -3);
  EXPECT_EQ(histogram().Decades, 2);
}

TEST_F(DurationHistogramTest, AutoscaleChoosesCountsByTheKindOfAxis) {
  for (const bool squareRoot : {false, true}) {
    Clear();
    for (int i = 0; i < 250; ++i) AddDurations({0.02});
    histogram().SquareRootAxis = squareRoot;
    AutoscaleDuration(workspace());
    EXPECT_EQ(histogram().CountsPerTick, 50) << "a third of 250, and not of its root";
    EXPECT_EQ(histogram().SquareRootAxis, squareRoot);
  }
}

TEST_F(DurationHistogramTest, AutoscaleKeepsTheBinsAndTicksOfADecade) {
  histogram().BinsPerDecade = 7;
  histogram().TicksPerDecade = 3;
  histogram().MinimumTicks = 9;
  AddDurations({0.003, 0.05});
  AutoscaleDuration(workspace());
  EXPECT_EQ(histogram().BinsPerDecade, 7);
  EXPECT_EQ(histogram().TicksPerDecade, 3);
  EXPECT_EQ(histogram().MinimumTicks, 9);
}

}  // namespace
}  // namespace ondrel
