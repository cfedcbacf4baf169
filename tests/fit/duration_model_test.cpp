#include "fit/duration_model.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <limits>
#include <random>
#include <vector>

#include "fit/duration_histogram.h"
#include "fit/elementary.h"
#include "fit/fit_models.h"
#include "fit/histogram_axis.h"
#include "fit/histogram_fixture.h"
#include "support/random_seed.h"

namespace ondrel {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

struct Term {
  double TimeConstant, Weight;
};

/// By the definition, in more digits.
double Probability(const Term& term, long double low, long double high) {
  const long double s = term.TimeConstant;
  return static_cast<double>(-term.Weight * std::exp(-low / s) * std::expm1(-(high - low) / s));
}

class DurationModelTest : public HistogramTest {
 protected:
  DurationModelTest() { histogram().FilterFrequency = 1e9; }  // all bins take part

  /// `decades` from 10 to the power `exponent`, without levels.
  void Build(int exponent, int decades, int binsPerDecade) {
    histogram().MinimumExponent = exponent;
    histogram().Decades = decades;
    histogram().BinsPerDecade = binsPerDecade;
    BuildDurationHistogram(workspace());
  }

  void Exclude(double low, double high) {
    LevelFilter& filter = workspace().Levels.LevelSelection;
    filter.DurationChoice = Selection::Exclude;
    filter.DurationLow = low;
    filter.DurationHigh = high;
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
      point[i++] = term.TimeConstant;
      point[i++] = term.Weight;
    }
    return point;
  }

  DurationHistogram& histogram() { return workspace().Duration; }
};

// --- Probabilities -------------------------------------------------------------------------------

TEST_F(DurationModelTest, AStretchHoldsTheIntegralOfTheDensity) {
  const Term terms[] = {{0.001, 0.25}, {0.02, 0.75}};
  const ParameterVector point = Point({terms[0], terms[1]});
  for (double low = 1e-6; low < 0.2; low *= 1.3) {
    for (const double ratio : {1.001, 1.1, 2.0, 100.0}) {
      const double high = low * ratio;
      const double expected = Probability(terms[0], low, high) + Probability(terms[1], low, high);
      EXPECT_NEAR(SegmentProbability(histogram(), low, high, point) / expected, 1.0, 3e-14) << low;
    }
  }
}

TEST_F(DurationModelTest, AllTimesTogetherHoldTheWeights) {
  EXPECT_EQ(SegmentProbability(histogram(), 0.0, 1e9, Point({{0.5, 0.25}, {3.0, 0.5}})), 0.75);
}

TEST_F(DurationModelTest, AVeryLongTimeConstantIsNotLostInRounding) {
  for (const double timeConstant : {1e3, 1e9, 1e15}) {
    const ParameterVector point = Point({{timeConstant, 0.5}});
    const double x = 0.25 / timeConstant;
    EXPECT_NEAR(SegmentProbability(histogram(), 1.0, 1.25, point) / (0.5 * x), 1.0,
                1.2 / timeConstant + 1e-15);
  }
}

TEST_F(DurationModelTest, TheSmallFormIsTakenUpToATenth) {
  const auto small = [](double x) {
    const double y = x * x;
    const double c = 20.001114158996458 * y + 840.0668525364832;
    const double r = 2.0 * x * c / (y * y + 180.01337040739003 * y + 1680.1337050729664 - x * c);
    return Exp(-x) * r;
  };
  const auto large = [](double x) { return 1.0 - Exp(-x); };
  const ParameterVector point = Point({{1.0, 1.0}});
  int apart = 0;
  for (double x = 0.08; x < 0.12; x += 0.00001) {
    const double p = SegmentProbability(histogram(), 0.0, x, point);
    EXPECT_EQ(p, x > 0.1 ? large(x) : small(x)) << x;
    if (large(x) != small(x)) ++apart;
  }
  EXPECT_GT(apart, 1000) << "the forms can be told apart";
  EXPECT_EQ(SegmentProbability(histogram(), 0.0, 0.1, point), small(0.1));
  EXPECT_EQ(SegmentProbability(histogram(), 0.0, 0.10000000000000001 + 1e-16, point),
            large(0.10000000000000001 + 1e-16));
}

TEST_F(DurationModelTest, TheConstantsOfTheSmallFormMakeItExactToRounding) {
  const ParameterVector point = Point({{1.0, 1.0}});
  for (double x = 1e-12; x <= 0.1; x *= 1.01) {
    const double p = SegmentProbability(histogram(), 0.0, x, point);
    EXPECT_NEAR(p / static_cast<double>(-std::expm1(-static_cast<long double>(x))), 1.0, 1e-15);
  }
}

TEST_F(DurationModelTest, ATimeConstantHasAFloor) {
  const double atFloor = SegmentProbability(histogram(), 2e-31, 1e-30, Point({{1e-30, 0.5}}));
  EXPECT_NEAR(atFloor, 0.5 * (std::exp(-0.2) - std::exp(-1.0)), 1e-15);
  for (const double timeConstant : {9e-31, 0.0, -1.0}) {
    EXPECT_EQ(SegmentProbability(histogram(), 2e-31, 1e-30, Point({{timeConstant, 0.5}})), atFloor);
  }
  EXPECT_NE(SegmentProbability(histogram(), 2e-31, 1e-30, Point({{1.1e-30, 0.5}})), atFloor);
}

TEST_F(DurationModelTest, ATimeConstantThatIsNoNumberIsNotBelowItsFloor) {
  EXPECT_TRUE(std::isnan(SegmentProbability(histogram(), 2e-31, 1e-30, Point({{kNan, 0.5}}))));
}

TEST_F(DurationModelTest, MoreTermsThanEstimatesMayHaveAreLeftOut) {
  ParameterVector point{};
  for (std::size_t i = 0; i < 15; ++i) point[2 * i] = 1.0, point[2 * i + 1] = 0.1;
  histogram().TermCount = 10;
  const double ten = SegmentProbability(histogram(), 0.0, 1.0, point);
  histogram().TermCount = 100;
  EXPECT_EQ(SegmentProbability(histogram(), 0.0, 1.0, point), ten);
  histogram().TermCount = -1;
  EXPECT_EQ(SegmentProbability(histogram(), 0.0, 1.0, point), 0.0);
}

// --- The objective -------------------------------------------------------------------------------

TEST_F(DurationModelTest, TheObjectiveIsTheConditionedLikelihoodOfTheCounts) {
  Exclude(1.5e-3, 3.9e-3);
  Build(-4, 4, 10);
  std::vector<int> counts;
  for (int i = 1; i <= 40; ++i) counts.push_back(histogram().Bins[i].Flags != 0 ? 0 : i % 7);
  SetCounts(counts, 12);
  const Term terms[] = {{5e-4, 0.3}, {2e-2, 0.7}};
  const auto mass = [&terms](double low, double high) {
    return Probability(terms[0], low, high) + Probability(terms[1], low, high);
  };
  double sum = 0.0;
  double visible = 0.0;
  int excluded = 0;
  for (int i = 1; i <= 40; ++i) {
    const double p = mass(std::pow(10.0, -4.0 + (i - 1) / 10.0), std::pow(10.0, -4.0 + i / 10.0));
    sum += counts[static_cast<std::size_t>(i - 1)] * std::log(p);
    histogram().Bins[i].Flags == 0 ? visible += p : ++excluded;
  }
  ASSERT_EQ(excluded, 5) << "two runs";
  const double expected = histogram().EventsInHistogram * std::log(visible) - sum;
  const ParameterVector point = Point({terms[0], terms[1]});
  EXPECT_NEAR(NegativeLogLikelihood(histogram(), point) / expected, 1.0, 1e-12);
}

TEST_F(DurationModelTest, TheObjectiveTakesEachBinsProbabilityToTheLastBit) {
  Build(-5, 5, 33);
  std::mt19937_64 random(RandomSeed());
  for (int round = 0; round < 50; ++round) {
    std::vector<int> counts(165);
    for (int& count : counts) {
      count = std::uniform_int_distribution<>(0, 1)(random) *
              std::uniform_int_distribution<>(0, 90)(random);
      if (round < 25) ++count;  // long stretches without a gap
    }
    SetCounts(counts);
    std::uniform_real_distribution<double> any(0.01, 1.5);
    const ParameterVector point =
        Point({{1e-4 * any(random), any(random)}, {any(random), any(random)}, {0.01, any(random)}});
    double sum = 0.0;
    const double* const edges = histogram().Edges;
    for (int i = 1; i <= 165; ++i) {
      const int count = histogram().Bins[i].Count;
      const double p = SegmentProbability(histogram(), edges[i - 1], edges[i], point);
      if (count != 0) sum += count * (p > 0.0 ? Log(p) : -12000.0);
    }
    const double visible = SegmentProbability(histogram(), edges[0], edges[165], point);
    EXPECT_EQ(NegativeLogLikelihood(histogram(), point),
              histogram().EventsInHistogram * Log(visible) - sum);
  }
}

TEST_F(DurationModelTest, ABinInTheSmallFormBesideOneThatIsNotKeepsItsBits) {
  Build(0, 2, 8);
  const double* const edges = histogram().Edges;
  int unlike = 0;
  for (int bin = 1; bin <= 15; ++bin) {
    std::vector<int> counts(16);
    counts[static_cast<std::size_t>(bin - 1)] = counts[static_cast<std::size_t>(bin)] = 1;
    SetCounts(counts);
    for (double x = 0.06; x < 0.16; x += 0.0007) {
      const double timeConstant = (edges[bin] - edges[bin - 1]) / x;
      const ParameterVector point = Point({{timeConstant, 1.0}});
      const auto p = [&](int first, int last) {
        return SegmentProbability(histogram(), edges[first], edges[last], point);
      };
      EXPECT_EQ(NegativeLogLikelihood(histogram(), point),
                2.0 * Log(p(0, 16)) - (Log(p(bin - 1, bin)) + Log(p(bin, bin + 1))));
      if (x <= 0.1 && edges[bin + 1] - edges[bin] > 0.1 * timeConstant) ++unlike;
    }
  }
  EXPECT_GT(unlike, 300);
}

TEST_F(DurationModelTest, OneTermHasItsClosedForm) {
  Build(0, 1, 1);
  SetCounts({6}, 4);
  const double p = std::exp(-0.5) - std::exp(-5.0);
  EXPECT_NEAR(NegativeLogLikelihood(histogram(), Point({{2.0, 1.0}})),
              10.0 * std::log(p) - 6.0 * std::log(p), 1e-14)
      << "events beside the axis count in the normaliser alone";
}

TEST_F(DurationModelTest, WhenEveryBinIsExcludedTheObjectiveIsAConstant) {
  histogram().FilterFrequency = 1e-3;
  Build(-5, 5, 20);
  SetCounts({}, 17);
  EXPECT_EQ(NegativeLogLikelihood(histogram(), Point({{0.01, 1.0}})), -12000.0);
}

TEST_F(DurationModelTest, ABinFarOutOnTheTailCostsTwelveThousandForEachOfItsEvents) {
  Build(-5, 5, 1);
  const ParameterVector point = Point({{1e-5, 1.0}});
  ASSERT_EQ(SegmentProbability(histogram(), 0.1, 1.0, point), 0.0);
  SetCounts({5, 0, 0, 0, 0});
  const double without = NegativeLogLikelihood(histogram(), point);
  EXPECT_NEAR(without, 0.0, 1e-3) << "with no events there nothing is added";
  SetCounts({5, 0, 0, 0, 2});
  const double visible = SegmentProbability(histogram(), 1e-5, 1.0, point);
  EXPECT_NEAR(NegativeLogLikelihood(histogram(), point),
              without + 2.0 * std::log(visible) + 24000.0, 1e-9);
}

TEST_F(DurationModelTest, NothingInSightCostsTwelveThousandLessOnce) {
  Build(0, 2, 1);
  SetCounts({2, 1});
  EXPECT_EQ(NegativeLogLikelihood(histogram(), Point({{1e-5, 1.0}})), -12000.0 + 36000.0);
  EXPECT_EQ(NegativeLogLikelihood(histogram(), Point({{kNan, 1.0}})), 24000.0);
  EXPECT_EQ(NegativeLogLikelihood(histogram(), Point({{1.0, -1.0}})), 24000.0);
}

TEST_F(DurationModelTest, TheFilterFrequencyChangesWhatIsVisibleAndNoTerm) {
  for (const double duration : {2e-5, 3e-5, 8e-5, 5e-4}) AddLevel(1e-12, duration);
  const ParameterVector point = Point({{1e-4, 1.0}});
  Build(-5, 2, 1);
  EXPECT_EQ(histogram().EventsInHistogram, 4);
  const double all = NegativeLogLikelihood(histogram(), point);
  histogram().FilterFrequency = 10000.0;  // bins below 17 microseconds
  histogram().Terms[0].TimeConstant = 0.125;
  BuildDurationHistogram(workspace());
  EXPECT_EQ(histogram().Bins[1].Flags, kExcludedBin);
  EXPECT_EQ(histogram().EventsInHistogram, histogram().Bins[2].Count);
  EXPECT_NE(NegativeLogLikelihood(histogram(), point), all);
  EXPECT_NEAR(NegativeLogLikelihood(histogram(), point), 0.0, 1e-14) << "one bin is all there is";
  EXPECT_EQ(histogram().Terms[0].TimeConstant, 0.125);
}

// --- The perfect fit -----------------------------------------------------------------------------

TEST_F(DurationModelTest, ThePerfectFitHasTheSharesOfTheCounts) {
  Build(-3, 3, 1);
  SetCounts({3, 1, 4}, 2);
  const double expected = 10.0 * std::log(10.0) - 3.0 * std::log(3.0) - 4.0 * std::log(4.0);
  EXPECT_NEAR(SaturatedLogLikelihood(histogram()), expected, 1e-14);
}

TEST_F(DurationModelTest, AnEmptyBinAddsATinyNumberToThePerfectFit) {
  Build(-3, 3, 1);
  SetCounts({});
  const double tiny = -3.0 * 1e-128 * std::log(1e-128);
  EXPECT_NEAR(SaturatedLogLikelihood(histogram()) / tiny, 1.0, 1e-14);
  histogram().Terms[0] = {1.0, 0.01, 0.0};
  EXPECT_EQ(LogLikelihood(histogram()), SaturatedLogLikelihood(histogram()));
}

TEST_F(DurationModelTest, APerfectFitIsShownAsZero) {
  Build(-3, 1, 1);
  SetCounts({8});
  histogram().Terms[0] = {1.0, 0.01, 0.0};
  EXPECT_NEAR(LogLikelihood(histogram()), 0.0, 1e-13);
}

TEST_F(DurationModelTest, TheLikelihoodShownIsThatOfTheStoredTermsBelowThePerfectOne) {
  Build(-4, 2, 3);
  SetCounts({3, 9, 0, 6, 2, 1});
  const ParameterVector point = Point({{3e-4, 0.625}, {2e-3, 0.375}});
  histogram().Terms[0] = {0.625, 3e-4, 0.0};
  histogram().Terms[1] = {0.375, 2e-3, 0.0};
  const double shown = LogLikelihood(histogram());
  EXPECT_EQ(shown, SaturatedLogLikelihood(histogram()) - NegativeLogLikelihood(histogram(), point));
  EXPECT_LT(shown, 0.0);
}

TEST_F(DurationModelTest, AHistogramThatCouldNotBeCountedHasNoBins) {
  EXPECT_EQ(histogram().Bins, nullptr);
  EXPECT_EQ(NegativeLogLikelihood(histogram(), Point({{1.0, 1.0}})), -12000.0);
  EXPECT_EQ(SaturatedLogLikelihood(histogram()), 0.0);
  EXPECT_EQ(VisibleProbability(histogram()), 1e-50);
}

}  // namespace
}  // namespace ondrel
