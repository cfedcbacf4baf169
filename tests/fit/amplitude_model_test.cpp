#include "fit/amplitude_model.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <limits>
#include <random>
#include <vector>

#include "fit/amplitude_histogram.h"
#include "fit/elementary.h"
#include "fit/error_function.h"
#include "fit/fit_models.h"
#include "fit/histogram_axis.h"
#include "fit/histogram_fixture.h"
#include "support/random_seed.h"

namespace ondrel {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kTwoPiOfTheModel = 6.283185307178;

struct Term {
  double Weight, Current, StdDev;
};

double Gaussian(const Term& term, double x) {
  return term.Weight / (std::sqrt(kTwoPiOfTheModel) * term.StdDev) *
         std::exp(-std::pow(x - term.Current, 2) / (2.0 * std::pow(term.StdDev, 2)));
}

class AmplitudeModelTest : public HistogramTest {
 protected:
  /// `ticks` ticks of 1 pA from `minimum`, without levels.
  void Build(double minimum, int ticks, int binsPerTick) {
    histogram().Minimum = minimum;
    histogram().TickMarks = ticks;
    histogram().BinsPerTick = binsPerTick;
    BuildAmplitudeHistogram(workspace());
  }

  void Exclude(double low, double high) {
    LevelFilter& filter = workspace().Levels.LevelSelection;
    filter.AmplitudeChoice = Selection::Exclude;
    filter.AmplitudeLow = low * 1e-12;
    filter.AmplitudeHigh = high * 1e-12;
  }

  /// Counts of the bins from 1 on. `beside` more lie beside the axis.
  void SetCounts(const std::vector<int>& counts, int beside = 0) {
    histogram().EventsInHistogram = beside;
    for (std::size_t i = 0; i < counts.size(); ++i) {
      histogram().Bins[i + 1].Count = counts[i];
      histogram().EventsInHistogram += counts[i];
    }
  }

  ParameterVector Point(std::initializer_list<Term> terms) {
    histogram().TermCount = static_cast<int>(terms.size());
    ParameterVector point{};
    std::size_t i = 0;
    for (const Term& term : terms) {
      point[i++] = term.Weight;
      point[i++] = term.Current;
      point[i++] = term.StdDev;
    }
    return point;
  }

  void StoreTerm(std::size_t i, const Term& term, double area = 0.0) {
    histogram().Terms[i] = {term.Weight, term.Current, term.StdDev, area};
  }

  AmplitudeHistogram& histogram() { return workspace().Amplitude; }
};

// --- Probabilities -------------------------------------------------------------------------------

TEST_F(AmplitudeModelTest, ABinIsIntegratedBySimpsonsRule) {
  const Term term{1.0, 0.0, 1.0};
  const double rule =
      (Gaussian(term, -1.0) / 6.0 + Gaussian(term, 0.0) * 2.0 / 3.0 + Gaussian(term, 1.0) / 6.0) *
      2.0;
  const ParameterVector point = Point({term});
  EXPECT_DOUBLE_EQ(BinProbability(histogram(), point, -1.0, 1.0), rule);
  EXPECT_GT(std::fabs(rule - std::erf(std::sqrt(0.5))), 1e-3) << "a wide bin shows the difference";
}

TEST_F(AmplitudeModelTest, TheSumOfTheRuleIsTimesTheWidthOfTheBin) {
  const Term terms[] = {{0.25, 1.0, 0.5}, {0.75, 2.0, 0.25}};
  const ParameterVector point = Point({terms[0], terms[1]});
  double sum = 0.0;
  for (const Term& term : terms) {
    sum += Gaussian(term, 1.5) / 6.0 + Gaussian(term, 1.75) * 2.0 / 3.0 + Gaussian(term, 2.0) / 6.0;
  }
  EXPECT_DOUBLE_EQ(BinProbability(histogram(), point, 1.5, 2.0), sum * 0.5);
}

TEST_F(AmplitudeModelTest, NarrowBinsHoldTheIntegralOfTheDensity) {
  const ParameterVector point = Point({{0.4, 1.0, 0.3}, {0.6, 2.5, 0.7}});
  for (double low = -1.0; low < 5.0; low += 0.05) {
    const auto cdf = [](const Term& term, double x) {
      return term.Weight * std::erfc((term.Current - x) / (term.StdDev * std::sqrt(2.0))) / 2.0;
    };
    const double high = low + 0.05;
    const double exact = cdf({0.4, 1.0, 0.3}, high) - cdf({0.4, 1.0, 0.3}, low) +
                         cdf({0.6, 2.5, 0.7}, high) - cdf({0.6, 2.5, 0.7}, low);
    EXPECT_NEAR(BinProbability(histogram(), point, low, high), exact, 1e-7) << low;
  }
}

TEST_F(AmplitudeModelTest, ASegmentIsMeasuredByTheErrorFunctionWithItsShortRootOfTwo) {
  const ParameterVector point = Point({{0.4, 1.0, 0.3}, {0.6, 2.5, 0.7}});
  const double expected =
      (0.4 * (std::erfc((0.5 - 1.0) / (1.4142 * 0.3)) - std::erfc((2.0 - 1.0) / (1.4142 * 0.3))) +
       0.6 * (std::erfc((0.5 - 2.5) / (1.4142 * 0.7)) - std::erfc((2.0 - 2.5) / (1.4142 * 0.7)))) /
      2.0;
  EXPECT_NEAR(SegmentProbability(histogram(), point, 0.5, 2.0), expected, 1e-15);
}

TEST_F(AmplitudeModelTest, ASegmentTakesAStdDevThatIsNotAboveZeroForAVerySmallOne) {
  for (const double stdDev : {0.0, -1.0, kNan, 1e-30}) {
    const ParameterVector point = Point({{0.5, 1.5, stdDev}});
    EXPECT_EQ(SegmentProbability(histogram(), point, 1.0, 2.0), 0.5) << stdDev;
    EXPECT_EQ(SegmentProbability(histogram(), point, 2.0, 3.0), 0.0) << stdDev;
  }
}

TEST_F(AmplitudeModelTest, ASegmentKeepsTheSmallestStdDevAboveZero) {
  const ParameterVector point = Point({{0.5, 0.0, 1e-40}});
  EXPECT_EQ(SegmentProbability(histogram(), point, 0.0, 1e-35), 0.25) << "half of the term";
}

TEST_F(AmplitudeModelTest, ABinDividesByAStdDevOfZero) {
  const ParameterVector point = Point({{1.0, 1.5, 0.0}});
  EXPECT_TRUE(std::isnan(BinProbability(histogram(), point, 2.0, 3.0)));
}

TEST_F(AmplitudeModelTest, MoreTermsThanAPointHasRoomForAreLeftOut) {
  ParameterVector point{};
  for (std::size_t i = 0; i < 10; ++i) point[3 * i] = 0.1, point[3 * i + 2] = 1.0;
  histogram().TermCount = 10;
  const double ten = BinProbability(histogram(), point, 0.0, 1.0);
  histogram().TermCount = 100;
  EXPECT_EQ(BinProbability(histogram(), point, 0.0, 1.0), ten);
  histogram().TermCount = -1;
  EXPECT_EQ(BinProbability(histogram(), point, 0.0, 1.0), 0.0);
}

// --- The objective -------------------------------------------------------------------------------

TEST_F(AmplitudeModelTest, TheObjectiveIsTheConditionedLikelihoodOfTheCounts) {
  Exclude(1.95, 2.45);
  Build(-0.5, 6, 10);
  std::vector<int> counts;
  for (int i = 1; i <= 60; ++i) counts.push_back(histogram().Bins[i].Flags != 0 ? 0 : i % 7);
  SetCounts(counts, 12);
  const Term terms[] = {{0.3, 0.2, 0.4}, {0.7, 3.1, 0.6}};
  const ParameterVector point = Point({terms[0], terms[1]});
  double sum = 0.0;
  for (int i = 1; i <= 60; ++i) {
    const double low = -0.5 + (i - 1) * 0.1;
    double p = 0.0;
    for (const Term& term : terms) {
      p += Gaussian(term, low) / 6 + Gaussian(term, low + 0.05) * 2 / 3 +
           Gaussian(term, low + 0.1) / 6;
    }
    sum += counts[static_cast<std::size_t>(i - 1)] * std::log(p * 0.1);
  }
  double visible = 0.0;
  for (const Term& term : terms) {
    const auto above = [&term](double x) {
      return term.Weight / 2.0 * std::erfc((x - term.Current) / (1.4142 * term.StdDev));
    };
    visible += above(-0.5) - above(1.9) + above(2.5) - above(5.5);
  }
  const double expected = histogram().EventsInHistogram * std::log(visible) - sum;
  EXPECT_NEAR(NegativeLogLikelihood(histogram(), point) / expected, 1.0, 1e-13);
}

TEST_F(AmplitudeModelTest, TheObjectiveTakesEachBinsProbabilityToTheLastBit) {
  Build(-3.0, 10, 20);
  std::mt19937_64 random(RandomSeed());
  for (int round = 0; round < 50; ++round) {
    std::vector<int> counts(200);
    for (int& count : counts) {
      count = std::uniform_int_distribution<>(0, 1)(random) *
              std::uniform_int_distribution<>(0, 90)(random);
      if (round < 25) ++count;  // long stretches without a gap
    }
    SetCounts(counts);
    std::uniform_real_distribution<double> any(0.01, 1.5);
    const ParameterVector point = Point({{any(random), 4.0 * any(random), any(random)},
                                         {any(random), -any(random), any(random)},
                                         {any(random), 0.5, 0.02 * any(random)}});
    double sum = 0.0;
    for (int i = 1; i <= 200; ++i) {
      const double* const edges = histogram().Edges;
      const int count = histogram().Bins[i].Count;
      const double p = BinProbability(histogram(), point, edges[i - 1], edges[i]);
      if (count != 0) sum += count * (p > 0.0 ? Log(p) : -12000.0);
    }
    const double end = histogram().Minimum + 200 * BinWidth(histogram());
    const double visible = SegmentProbability(histogram(), point, -3.0, end);
    EXPECT_EQ(NegativeLogLikelihood(histogram(), point),
              histogram().EventsInHistogram * Log(visible) - sum);
  }
}

TEST_F(AmplitudeModelTest, TheBinsHaveTheirOwnEdgesAndRunsTheirsByMultiplication) {
  Build(0.0, 1, 10);
  double edge = 0.0;
  for (int i = 0; i <= 10; ++i, edge += 0.1) EXPECT_EQ(histogram().Edges[i], edge);
  EXPECT_NE(histogram().Edges[10], 1.0) << "repeated addition shows";
  SetCounts({1});
  const ParameterVector point = Point({{1.0, 0.95, 0.1}});
  histogram().Edges[0] = 0.9;
  histogram().Edges[1] = 1.0;
  EXPECT_EQ(NegativeLogLikelihood(histogram(), point),
            Log(SegmentProbability(histogram(), point, 0.0, 10.0 * 0.1)) -
                Log(BinProbability(histogram(), point, 0.9, 1.0)));
}

TEST_F(AmplitudeModelTest, AHistogramWithNoExcludedBinHasOneRun) {
  Build(0.0, 5, 20);
  SetCounts({}, 1);
  const ParameterVector point = Point({{1.0, 0.5, 1.0}});
  EXPECT_EQ(NegativeLogLikelihood(histogram(), point),
            Log(SegmentProbability(histogram(), point, 0.0, 5.0)));
}

TEST_F(AmplitudeModelTest, EventsBesideTheAxisCountInTheNormaliserAlone) {
  Build(0.0, 2, 2);
  const ParameterVector point = Point({{1.0, 0.0, 1.0}});
  SetCounts({3, 2, 1, 0});
  const double without = NegativeLogLikelihood(histogram(), point);
  SetCounts({3, 2, 1, 0}, 10);
  histogram().Bins[0].Count = 4;
  histogram().Bins[5].Count = 6;
  const double visible = SegmentProbability(histogram(), point, 0.0, 2.0);
  EXPECT_NEAR(NegativeLogLikelihood(histogram(), point), without + 10.0 * std::log(visible), 1e-13);
}

TEST_F(AmplitudeModelTest, WhenEveryBinIsExcludedTheObjectiveIsAConstant) {
  Exclude(-9.0, 9.0);
  Build(0.0, 2, 2);
  SetCounts({}, 17);
  EXPECT_EQ(NegativeLogLikelihood(histogram(), Point({{1.0, 1.0, 1.0}})), -12000.0);
}

TEST_F(AmplitudeModelTest, ATermOfNoWeightAddsNothingWhereverItsCurrentIs) {
  Build(0.0, 5, 20);
  SetCounts({5, 0, 7, 1});
  const double alone = NegativeLogLikelihood(histogram(), Point({{1.0, 0.1, 0.3}}));
  for (const double current : {-1e6, 0.1, 2.0, 1e6}) {
    const ParameterVector point = Point({{1.0, 0.1, 0.3}, {0.0, current, 0.5}});
    EXPECT_EQ(NegativeLogLikelihood(histogram(), point), alone) << current;
  }
}

TEST_F(AmplitudeModelTest, AnEmptyBinContributesNothingWhateverItsProbability) {
  Build(0.0, 2, 2);
  SetCounts({4});
  const ParameterVector point = Point({{1.0, 0.25, 0.01}});
  ASSERT_EQ(BinProbability(histogram(), point, 1.0, 1.5), 0.0);
  EXPECT_EQ(NegativeLogLikelihood(histogram(), point),
            4.0 * Log(SegmentProbability(histogram(), point, 0.0, 2.0)) -
                4.0 * Log(BinProbability(histogram(), point, 0.0, 0.5)));
  const ParameterVector none = Point({{1.0, 0.25, 0.0}});
  SetCounts({0});
  EXPECT_EQ(NegativeLogLikelihood(histogram(), none), 0.0) << "not a number times none";
}

TEST_F(AmplitudeModelTest, AnEventWithoutProbabilityCostsTwelveThousand) {
  Build(0.0, 2, 2);
  SetCounts({1, 0, 2, 0});
  EXPECT_EQ(NegativeLogLikelihood(histogram(), Point({{1.0, 900.0, 0.5}})), -12000.0 + 36000.0)
      << "and nothing in sight costs the same, once";
  const ParameterVector thin = Point({{1.0, 1.2, 0.0}});
  const double visible = SegmentProbability(histogram(), thin, 0.0, 2.0);
  EXPECT_EQ(NegativeLogLikelihood(histogram(), thin), 3.0 * Log(visible) + 36000.0);
  EXPECT_EQ(NegativeLogLikelihood(histogram(), Point({{kNan, 1.0, 1.0}})), 24000.0);
  EXPECT_EQ(NegativeLogLikelihood(histogram(), Point({{-1.0, 1.0, 1.0}})), 24000.0);
}

TEST_F(AmplitudeModelTest, WithoutEventsTheObjectiveIsZero) {
  Build(0.0, 2, 2);
  SetCounts({});
  EXPECT_EQ(NegativeLogLikelihood(histogram(), Point({{1.0, 1.0, 1.0}})), 0.0);
  EXPECT_EQ(NegativeLogLikelihood(histogram(), Point({{1.0, 900.0, 1.0}})), -12000.0);
}

// --- The perfect fit -----------------------------------------------------------------------------

TEST_F(AmplitudeModelTest, ThePerfectFitHasTheSharesOfTheCounts) {
  Build(0.0, 1, 3);
  SetCounts({3, 1, 4});
  const double expected = 8.0 * std::log(8.0) - 3.0 * std::log(3.0) - 4.0 * std::log(4.0);
  EXPECT_NEAR(SaturatedLogLikelihood(histogram()), expected, 1e-14);
}

TEST_F(AmplitudeModelTest, ThePerfectFitCountsEventsBesideTheAxisInTheTotalAlone) {
  Build(0.0, 1, 3);
  SetCounts({3, 1, 4}, 2);
  const double expected = 10.0 * std::log(10.0) - 3.0 * std::log(3.0) - 4.0 * std::log(4.0);
  EXPECT_NEAR(SaturatedLogLikelihood(histogram()), expected, 1e-14);
}

TEST_F(AmplitudeModelTest, AnEmptyBinAddsATinyNumberToThePerfectFit) {
  Build(0.0, 1, 3);
  SetCounts({});
  const double tiny = -3.0 * 1e-128 * std::log(1e-128);
  EXPECT_NEAR(SaturatedLogLikelihood(histogram()) / tiny, 1.0, 1e-14);
  histogram().Bins[2].Flags = kExcludedBin;
  EXPECT_NEAR(SaturatedLogLikelihood(histogram()) / tiny, 2.0 / 3.0, 1e-14);
}

TEST_F(AmplitudeModelTest, WithoutEventsTheLikelihoodShownIsWhatTheEmptyBinsLeave) {
  Build(0.0, 1, 3);
  SetCounts({});
  StoreTerm(0, {1.0, 0.5, 0.5});
  EXPECT_EQ(LogLikelihood(histogram()), SaturatedLogLikelihood(histogram()));
  EXPECT_GT(LogLikelihood(histogram()), 0.0);
}

TEST_F(AmplitudeModelTest, TheLikelihoodShownIsThatOfTheStoredTermsBelowThePerfectOne) {
  Build(0.0, 5, 2);
  SetCounts({1, 5, 9, 4, 0, 0, 3, 6, 2, 0});
  StoreTerm(0, {0.6, 1.2, 0.4});
  StoreTerm(1, {0.4, 3.6, 0.3});
  const ParameterVector point = Point({{0.6, 1.2, 0.4}, {0.4, 3.6, 0.3}});
  const double shown = LogLikelihood(histogram());
  EXPECT_EQ(shown, SaturatedLogLikelihood(histogram()) - NegativeLogLikelihood(histogram(), point));
  EXPECT_LT(shown, 0.0);
}

TEST_F(AmplitudeModelTest, AHistogramThatCouldNotBeCountedHasNoBins) {
  EXPECT_EQ(histogram().Bins, nullptr);
  EXPECT_EQ(NegativeLogLikelihood(histogram(), Point({{1.0, 1.0, 1.0}})), -12000.0);
  EXPECT_EQ(SaturatedLogLikelihood(histogram()), 0.0);
  EXPECT_EQ(VisibleProbability(histogram()), 1e-30);
}

}  // namespace
}  // namespace ondrel
