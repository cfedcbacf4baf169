#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "fit/amplitude_histogram.h"
#include "fit/amplitude_model.h"
#include "fit/error_function.h"
#include "fit/histogram_axis.h"
#include "fit/histogram_fixture.h"

namespace ondrel {
namespace {

class AmplitudeCurveTest : public HistogramTest {
 protected:
  /// The axis from 0 to 5 pA with two terms.
  AmplitudeCurveTest() {
    BuildAmplitudeHistogram(workspace());
    histogram().TermCount = 2;
    histogram().Terms[0] = {0.25, 0.5, 0.4, 50.0};
    histogram().Terms[1] = {0.75, 4.0, 0.8, 150.0};
  }

  AmplitudeHistogram& histogram() { return workspace().Amplitude; }

  static double Cdf(const AmplitudeTerm& term, double x) {
    return term.Weight * (1.0 + CoarseErf((x - term.Current) / (std::sqrt(2.0) * term.StdDev))) /
           2.0;
  }
};

TEST_F(AmplitudeCurveTest, TheVisiblePartIsMeasuredByTheCoarseErrorFunction) {
  const auto& terms = histogram().Terms;
  const double expected =
      Cdf(terms[0], 5.0) - Cdf(terms[0], 0.0) + Cdf(terms[1], 5.0) - Cdf(terms[1], 0.0);
  EXPECT_NEAR(VisibleProbability(histogram()), expected, 1e-15);
  const double exact = 0.25 * (1.0 - std::erfc(0.5 / 0.4 / std::sqrt(2.0)) / 2.0) +
                       0.75 * (1.0 - std::erfc(1.0 / 0.8 / std::sqrt(2.0)) / 2.0);
  EXPECT_NEAR(VisibleProbability(histogram()), exact, 5e-5);
  EXPECT_GT(std::fabs(VisibleProbability(histogram()) - exact), 1e-7);
}

TEST_F(AmplitudeCurveTest, EachVisibleRunIsMeasured) {
  for (int bin = 1; bin <= 100; ++bin) {
    if (bin <= 10 || (bin > 40 && bin <= 60)) histogram().Bins[bin].Flags = kExcludedBin;
  }
  double expected = 0.0;
  for (std::size_t i = 0; i < 2; ++i) {
    const AmplitudeTerm& term = histogram().Terms[i];
    expected += Cdf(term, 2.0) - Cdf(term, 0.5) + Cdf(term, 5.0) - Cdf(term, 3.0);
  }
  EXPECT_NEAR(VisibleProbability(histogram()), expected, 1e-15);
}

TEST_F(AmplitudeCurveTest, AStdDevThatIsNotAboveZeroIsSetInItsTerm) {
  histogram().Terms[0].StdDev = 0.0;
  histogram().Terms[1].StdDev = -2.0;
  histogram().Terms[2].StdDev = -3.0;
  EXPECT_EQ(VisibleProbability(histogram()), 1.0);
  EXPECT_EQ(histogram().Terms[0].StdDev, 1e-30);
  EXPECT_EQ(histogram().Terms[1].StdDev, 1e-30);
  EXPECT_EQ(histogram().Terms[2].StdDev, -3.0) << "no term in use";
  histogram().Terms[0].StdDev = std::numeric_limits<double>::quiet_NaN();
  VisibleProbability(histogram());
  EXPECT_EQ(histogram().Terms[0].StdDev, 1e-30);
}

TEST_F(AmplitudeCurveTest, AStdDevAboveZeroStaysHoweverSmall) {
  histogram().Terms[0].StdDev = 1e-40;
  VisibleProbability(histogram());
  EXPECT_EQ(histogram().Terms[0].StdDev, 1e-40);
}

TEST_F(AmplitudeCurveTest, WithNothingVisibleNoTermChanges) {
  for (int bin = 1; bin <= 100; ++bin) histogram().Bins[bin].Flags = kExcludedBin;
  histogram().Terms[0].StdDev = -2.0;
  EXPECT_EQ(VisibleProbability(histogram()), 1e-30);
  EXPECT_EQ(histogram().Terms[0].StdDev, -2.0);
}

TEST_F(AmplitudeCurveTest, ANegativeWeightMakesANegativeProbability) {
  histogram().TermCount = 1;
  const double positive = VisibleProbability(histogram());
  histogram().Terms[0].Weight = -0.25;
  EXPECT_EQ(VisibleProbability(histogram()), -positive);
  EXPECT_LT(-positive, -0.2);
}

TEST_F(AmplitudeCurveTest, TheVisiblePartIsThatOfAsManyTermsAsAFitMayHave) {
  histogram().TermCount = 10;
  const double ten = VisibleProbability(histogram());
  histogram().Terms[10] = {0.5, 2.0, 0.4, 50.0};
  histogram().TermCount = 11;
  EXPECT_EQ(VisibleProbability(histogram()), ten);
}

TEST_F(AmplitudeCurveTest, NothingInSightCountsAsAVeryLittle) {
  histogram().Terms[0].Weight = 0.0;
  histogram().Terms[1].Weight = 0.0;
  EXPECT_EQ(VisibleProbability(histogram()), 1e-30);
  for (int bin = 1; bin <= 100; ++bin) histogram().Bins[bin].Flags = kExcludedBin;
  histogram().Terms[0].Weight = 1.0;
  EXPECT_EQ(VisibleProbability(histogram()), 1e-30);
}

TEST_F(AmplitudeCurveTest, ACountIsTheDensityTimesTheArea) {
  const double atMean = 50.0 / (std::sqrt(6.283185307178) * 0.4) / 20.0;
  EXPECT_DOUBLE_EQ(AmplitudeCurveCount(histogram(), 0.5, 0, 1), atMean);
  EXPECT_DOUBLE_EQ(AmplitudeCurveCount(histogram(), 0.9, 0, 1), atMean * std::exp(-0.5));
  EXPECT_DOUBLE_EQ(AmplitudeCurveCount(histogram(), 0.1, 0, 1), atMean * std::exp(-0.5));
}

TEST_F(AmplitudeCurveTest, ACountIsThatOfABinOfTheAxis) {
  const double before = AmplitudeCurveCount(histogram(), 1.0, 0, 2);
  histogram().BinsPerTick = 10;
  EXPECT_DOUBLE_EQ(AmplitudeCurveCount(histogram(), 1.0, 0, 2), 2.0 * before);
  histogram().PerTick = 0.5;
  EXPECT_DOUBLE_EQ(AmplitudeCurveCount(histogram(), 1.0, 0, 2), before);
}

TEST_F(AmplitudeCurveTest, TheCountsOfAllBinsComeToTheArea) {
  double sum = 0.0;
  for (int k = -200; k < 300; ++k) sum += AmplitudeCurveCount(histogram(), (k + 0.5) * 0.05, 0, 2);
  EXPECT_NEAR(sum, 200.0, 1e-9);
}

TEST_F(AmplitudeCurveTest, TheCurveIsThatOfTheTermsThatAreAskedFor) {
  const double first = AmplitudeCurveCount(histogram(), 2.0, 0, 1);
  const double second = AmplitudeCurveCount(histogram(), 2.0, 1, 2);
  EXPECT_DOUBLE_EQ(AmplitudeCurveCount(histogram(), 2.0, 0, 2), first + second);
  EXPECT_EQ(AmplitudeCurveCount(histogram(), 2.0, 0, 0), 0.0);
}

TEST_F(AmplitudeCurveTest, TheCurveScalesByTheAreaAndNotByTheWeight) {
  const double before = AmplitudeCurveCount(histogram(), 2.0, 0, 1);
  histogram().Terms[0].Weight = 0.9;
  EXPECT_EQ(AmplitudeCurveCount(histogram(), 2.0, 0, 1), before);
  histogram().Terms[0].Area = -100.0;
  EXPECT_DOUBLE_EQ(AmplitudeCurveCount(histogram(), 2.0, 0, 1), -2.0 * before);
}

TEST_F(AmplitudeCurveTest, OnALinearAxisCountsArePixelsFromTheBottom) {
  const double count = AmplitudeCurveCount(histogram(), 0.6, 0, 2);
  EXPECT_EQ(AmplitudeCurveY(histogram(), 0.6, 300.0, 20.0, 2.5, 0, 2), 300.0 - count * 2.5);
  histogram().Terms[0].Area = -50.0;
  EXPECT_GT(AmplitudeCurveY(histogram(), 0.6, 300.0, 20.0, 2.5, 0, 1), 300.0) << "downward";
}

TEST_F(AmplitudeCurveTest, OnASquareRootAxisTheTallestBarReachesTheTop) {
  histogram().SquareRootAxis = true;
  const double count = AmplitudeCurveCount(histogram(), 0.6, 0, 2);
  histogram().YMaximum = std::sqrt(count);
  EXPECT_NEAR(AmplitudeCurveY(histogram(), 0.6, 300.0, 20.0, 2.5, 0, 2), 20.0, 1e-10);
  histogram().YMaximum = 2.0 * std::sqrt(count);
  EXPECT_NEAR(AmplitudeCurveY(histogram(), 0.6, 300.0, 20.0, 2.5, 0, 2), 160.0, 1e-10);
}

TEST_F(AmplitudeCurveTest, ANegativeCountHasNoPlaceOnASquareRootAxis) {
  histogram().SquareRootAxis = true;
  histogram().YMaximum = 3.0;
  histogram().Terms[0].Area = -50.0;
  EXPECT_TRUE(std::isnan(AmplitudeCurveY(histogram(), 0.6, 300.0, 20.0, 2.5, 0, 1)));
}

}  // namespace
}  // namespace ondrel
