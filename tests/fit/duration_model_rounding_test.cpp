// The numbers of the duration model to the last bit: the order of their operations is part of it,
// since likelihoods are compared with those of earlier versions.
#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <random>

#include "fit/duration_histogram.h"
#include "fit/duration_model.h"
#include "fit/elementary.h"
#include "fit/fit_models.h"
#include "fit/histogram_fixture.h"
#include "support/random_seed.h"
#include "workspace/power_of_ten.h"

namespace ondrel {
namespace {

constexpr int kRounds = 300;
constexpr std::size_t kTerms = 3;

class DurationRoundingTest : public HistogramTest {
 protected:
  DurationRoundingTest() {
    histogram().MinimumExponent = -4;
    histogram().Decades = 3;
    histogram().BinsPerDecade = 7;
    histogram().FilterFrequency = 1e9;
    histogram().TermCount = kTerms;
    BuildDurationHistogram(workspace());
  }

  double Between(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random_);
  }

  void DrawTerms() {
    for (std::size_t i = 0; i < kTerms; ++i) {
      histogram().Terms[i] = {Between(0.1, 1.0), std::pow(10.0, Between(-4.0, 0.0)),
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
    double sum = 0.0;
    int first = 0;
    for (int i = 1; i <= kBins + 1; ++i) {
      const bool visible = i <= kBins && histogram().Bins[i].Flags == 0;
      if (visible && first == 0) first = i;
      if (visible || first == 0) continue;
      sum += mass(Edge(first - 1), Edge(i - 1));
      first = 0;
    }
    return sum;
  }

  static double Edge(int i) { return PowerOfTen(-4 + i / 7.0); }

  double Mass(double low, double high) {
    double sum = 0.0;
    for (std::size_t i = 0; i < kTerms; ++i) {
      const auto& [w, s, area] = histogram().Terms[i];
      const double x = (high - low) / s;
      const double e = Exp(-x);
      if (x > 0.1) {
        sum += Exp(-low / s) * w * (1.0 - e);
        continue;
      }
      const double y = x * x;
      const double c = 20.001114158996458 * y + 840.0668525364832;
      const double r = 2.0 * x * c / (y * y + 180.01337040739003 * y + 1680.1337050729664 - x * c);
      sum += Exp(-low / s) * w * e * r;
    }
    return sum;
  }

  double Objective() {
    double sum = 0.0;
    for (int i = 1; i <= kBins; ++i) {
      const BinRecord& bin = histogram().Bins[i];
      const double p = Mass(Edge(i - 1), Edge(i));
      if (bin.Flags == 0) sum += bin.Count * (p > 0.0 ? Log(p) : -12000.0);
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

  double Cdf(double time) {
    double sum = 0.0;
    for (std::size_t i = 0; i < kTerms; ++i) {
      const DurationTerm& term = histogram().Terms[i];
      sum += term.Weight * Exp(-time / term.TimeConstant);
    }
    return 1.0 - sum;
  }

  double CurveCount(double x) {
    double sum = 0.0;
    for (std::size_t i = 0; i < kTerms; ++i) {
      const DurationTerm& term = histogram().Terms[i];
      const double u = std::pow(10.0, x - Log(term.TimeConstant) / std::numbers::ln10);
      sum += Exp(-u) * term.Area * std::numbers::ln10 * u;
    }
    return sum * (1.0 / 7);
  }

  DurationHistogram& histogram() { return workspace().Duration; }

  static constexpr int kBins = 21;

 private:
  std::mt19937_64 random_{RandomSeed()};
};

TEST_F(DurationRoundingTest, AStretchHasTheBitsOfItsFormula) {
  for (int round = 0; round < kRounds; ++round) {
    DrawTerms();
    const double low = std::pow(10.0, Between(-5.0, 0.0));
    const double high = low * (1.0 + Between(0.01, 1.0));
    EXPECT_EQ(SegmentProbability(histogram(), low, high, ParametersOf(histogram())),
              Mass(low, high));
  }
}

TEST_F(DurationRoundingTest, TheObjectiveHasTheBitsOfItsFormula) {
  for (int round = 0; round < kRounds; ++round) {
    DrawTerms();
    DrawCounts();
    EXPECT_EQ(NegativeLogLikelihood(histogram(), ParametersOf(histogram())), Objective());
  }
}

TEST_F(DurationRoundingTest, ThePerfectFitHasTheBitsOfItsFormula) {
  for (int round = 0; round < kRounds; ++round) {
    DrawCounts();
    EXPECT_EQ(SaturatedLogLikelihood(histogram()), Saturated());
  }
}

TEST_F(DurationRoundingTest, TheLikelihoodShownHasTheBitsOfItsFormula) {
  for (int round = 0; round < kRounds; ++round) {
    DrawTerms();
    DrawCounts();
    EXPECT_EQ(LogLikelihood(histogram()), -Objective() - -Saturated());
  }
}

TEST_F(DurationRoundingTest, TheVisiblePartHasTheBitsOfItsFormula) {
  for (int round = 0; round < kRounds; ++round) {
    DrawTerms();
    DrawCounts();
    EXPECT_EQ(VisibleProbability(histogram()),
              OverRuns([this](double from, double to) { return Cdf(to) - Cdf(from); }));
  }
}

TEST_F(DurationRoundingTest, ACountHasTheBitsOfItsFormula) {
  for (int round = 0; round < kRounds; ++round) {
    DrawTerms();
    const double x = Between(-5.0, 0.5);
    EXPECT_EQ(DurationCurveCount(histogram(), x, 0, kTerms), CurveCount(x));
  }
}

TEST_F(DurationRoundingTest, TheCurveHasTheBitsOfItsFormula) {
  for (int round = 0; round < kRounds; ++round) {
    DrawTerms();
    histogram().Terms[0].Area *= -1.0;
    const double x = Between(-5.0, 0.5);
    const double top = Between(10.0, 50.0);
    const double bottom = Between(200.0, 900.0);
    const double pixels = Between(0.1, 9.0);
    const double count = CurveCount(x);
    const double size = std::fabs(count);
    if (count == 0.0) continue;
    histogram().SquareRootAxis = false;
    EXPECT_EQ(DurationCurveY(histogram(), x, bottom, top, pixels, 0, kTerms),
              bottom - count * pixels);
    histogram().SquareRootAxis = true;
    histogram().YMaximum = Between(2.0, 30.0);
    const double tallest = histogram().YMaximum * histogram().YMaximum;
    EXPECT_EQ(DurationCurveY(histogram(), x, bottom, top, pixels, 0, kTerms),
              bottom - std::sqrt(size / tallest) * (bottom - top) * count / size);
  }
}

}  // namespace
}  // namespace ondrel
