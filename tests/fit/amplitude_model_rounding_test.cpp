// The numbers of the amplitude model to the last bit: the order of their operations is part of it,
// since likelihoods are compared with those of earlier versions.
#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <random>

#include "fit/amplitude_histogram.h"
#include "fit/amplitude_model.h"
#include "fit/elementary.h"
#include "fit/error_function.h"
#include "fit/fit_models.h"
#include "fit/histogram_fixture.h"
#include "support/random_seed.h"

namespace ondrel {
namespace {

constexpr int kRounds = 300;
constexpr double kTwoPiOfTheModel = 6.283185307178;
constexpr std::size_t kTerms = 3;

class AmplitudeRoundingTest : public HistogramTest {
 protected:
  AmplitudeRoundingTest() {
    histogram().Minimum = -1.1;
    histogram().PerTick = 0.7;
    histogram().BinsPerTick = 3;
    histogram().TickMarks = 5;
    histogram().TermCount = kTerms;
    BuildAmplitudeHistogram(workspace());
  }

  double Between(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random_);
  }

  void DrawTerms() {
    for (std::size_t i = 0; i < kTerms; ++i) {
      histogram().Terms[i] = {Between(0.1, 1.0), Between(-1.0, 2.0), Between(0.2, 1.5),
                              Between(1.0, 500.0)};
    }
  }

  void DrawCounts() {
    histogram().EventsInHistogram = 7;  // beside the axis
    for (int i = 1; i <= kBins; ++i) {
      BinRecord& bin = histogram().Bins[i];
      bin.Flags = Between(0.0, 1.0) < 0.2 ? kExcludedBin : 0;
      bin.Count = bin.Flags != 0 ? 0 : static_cast<std::int32_t>(Between(0.0, 40.0));
      histogram().EventsInHistogram += bin.Count;
    }
  }

  /// The sum of `mass(from, to)` over the runs of bins that are not excluded.
  template <typename MassOf>
  double OverRuns(MassOf mass) {
    const double width = 0.7 / 3;
    double sum = 0.0;
    int first = 0;
    for (int i = 1; i <= kBins + 1; ++i) {
      const bool visible = i <= kBins && histogram().Bins[i].Flags == 0;
      if (visible && first == 0) first = i;
      if (visible || first == 0) continue;
      sum += mass(-1.1 + (first - 1) * width, -1.1 + (i - 1) * width);
      first = 0;
    }
    return sum;
  }

  static double Density(const AmplitudeTerm& term, double x) {
    const double s = term.StdDev;
    return term.Weight / (std::sqrt(kTwoPiOfTheModel) * s) *
           Exp(-((x - term.Current) * (x - term.Current)) / (2.0 * s * s));
  }

  double Simpson(double low, double high) {
    const double mid = (low + high) / 2.0;
    double sum = 0.0;
    for (std::size_t i = 0; i < kTerms; ++i) {
      const AmplitudeTerm& term = histogram().Terms[i];
      sum += Density(term, low) / 6.0 + Density(term, mid) * 2.0 / 3.0 + Density(term, high) / 6.0;
    }
    return sum * (high - low);
  }

  double Mass(double low, double high) {
    double sum = 0.0;
    for (std::size_t i = 0; i < kTerms; ++i) {
      const AmplitudeTerm& term = histogram().Terms[i];
      const double zLow = (low - term.Current) / (1.4142 * term.StdDev);
      const double zHigh = (high - term.Current) / (1.4142 * term.StdDev);
      sum += (ComplementaryErf(zLow) - ComplementaryErf(zHigh)) * term.Weight;
    }
    return sum / 2.0;
  }

  double Objective() {
    double sum = 0.0;
    double low = -1.1;
    const double width = 0.7 / 3;
    for (int i = 1; i <= kBins; ++i) {
      const double high = low + width;
      const BinRecord& bin = histogram().Bins[i];
      if (bin.Flags == 0) sum += bin.Count * Log(Simpson(low, high));
      low = high;
    }
    const double visible = OverRuns([this](double from, double to) { return Mass(from, to); });
    return histogram().EventsInHistogram * Log(visible) - sum;
  }

  double Saturated() {
    double sum = 0.0;
    for (int i = 1; i <= kBins; ++i) {
      const BinRecord& bin = histogram().Bins[i];
      const double count = bin.Count > 0 ? bin.Count : 1e-128;
      if (bin.Flags == 0) sum += count * Log(count);
    }
    const double total = histogram().EventsInHistogram;
    return total * Log(total) - sum;
  }

  double Cdf(double x) {
    double sum = 0.0;
    for (std::size_t i = 0; i < kTerms; ++i) {
      const AmplitudeTerm& term = histogram().Terms[i];
      const double z = (x - term.Current) / (std::sqrt(2.0) * term.StdDev);
      sum += term.Weight * (1.0 + CoarseErf(z));
    }
    return sum / 2.0;
  }

  double CurveCount(double x) {
    double sum = 0.0;
    for (std::size_t i = 0; i < kTerms; ++i) {
      const AmplitudeTerm& term = histogram().Terms[i];
      const double s = term.StdDev;
      sum += Exp(-((x - term.Current) * (x - term.Current)) / (2.0 * s * s)) * term.Area /
             (std::sqrt(kTwoPiOfTheModel) * s);
    }
    return sum * histogram().PerTick / histogram().BinsPerTick;
  }

  AmplitudeHistogram& histogram() { return workspace().Amplitude; }

  static constexpr int kBins = 15;

 private:
  std::mt19937_64 random_{RandomSeed()};
};

TEST_F(AmplitudeRoundingTest, ABinHasTheBitsOfItsFormula) {
  for (int round = 0; round < kRounds; ++round) {
    DrawTerms();
    const double low = Between(-2.0, 3.0);
    const double high = low + Between(0.01, 4.0);
    EXPECT_EQ(BinProbability(histogram(), ParametersOf(histogram()), low, high),
              Simpson(low, high));
  }
}

TEST_F(AmplitudeRoundingTest, AStretchHasTheBitsOfItsFormula) {
  for (int round = 0; round < kRounds; ++round) {
    DrawTerms();
    const double low = Between(-2.0, 3.0);
    const double high = low + Between(0.01, 3.0);
    EXPECT_EQ(SegmentProbability(histogram(), ParametersOf(histogram()), low, high),
              Mass(low, high));
  }
}

TEST_F(AmplitudeRoundingTest, TheObjectiveHasTheBitsOfItsFormula) {
  for (int round = 0; round < kRounds; ++round) {
    DrawTerms();
    DrawCounts();
    EXPECT_EQ(NegativeLogLikelihood(histogram(), ParametersOf(histogram())), Objective());
  }
}

TEST_F(AmplitudeRoundingTest, ThePerfectFitHasTheBitsOfItsFormula) {
  for (int round = 0; round < kRounds; ++round) {
    DrawCounts();
    EXPECT_EQ(SaturatedLogLikelihood(histogram()), Saturated());
  }
}

TEST_F(AmplitudeRoundingTest, TheLikelihoodShownHasTheBitsOfItsFormula) {
  for (int round = 0; round < kRounds; ++round) {
    DrawTerms();
    DrawCounts();
    EXPECT_EQ(LogLikelihood(histogram()), -Objective() - -Saturated());
  }
}

TEST_F(AmplitudeRoundingTest, TheVisiblePartHasTheBitsOfItsFormula) {
  for (int round = 0; round < kRounds; ++round) {
    DrawTerms();
    DrawCounts();
    EXPECT_EQ(VisibleProbability(histogram()),
              OverRuns([this](double from, double to) { return Cdf(to) - Cdf(from); }));
  }
}

TEST_F(AmplitudeRoundingTest, ACountHasTheBitsOfItsFormula) {
  for (int round = 0; round < kRounds; ++round) {
    DrawTerms();
    const double x = Between(-2.0, 3.0);
    EXPECT_EQ(AmplitudeCurveCount(histogram(), x, 0, kTerms), CurveCount(x));
  }
}

TEST_F(AmplitudeRoundingTest, TheCurveHasTheBitsOfItsFormula) {
  for (int round = 0; round < kRounds; ++round) {
    DrawTerms();
    const double x = Between(-2.0, 3.0);
    const double top = Between(10.0, 50.0);
    const double bottom = Between(200.0, 900.0);
    const double pixels = Between(0.1, 9.0);
    histogram().SquareRootAxis = false;
    EXPECT_EQ(AmplitudeCurveY(histogram(), x, bottom, top, pixels, 0, kTerms),
              bottom - CurveCount(x) * pixels);
    histogram().SquareRootAxis = true;
    histogram().YMaximum = Between(2.0, 30.0);
    const double tallest = histogram().YMaximum * histogram().YMaximum;
    EXPECT_EQ(AmplitudeCurveY(histogram(), x, bottom, top, pixels, 0, kTerms),
              bottom - std::sqrt(CurveCount(x) / tallest) * (bottom - top));
  }
}

}  // namespace
}  // namespace ondrel
