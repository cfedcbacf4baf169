#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <numbers>

#include "fit/duration_histogram.h"
#include "fit/duration_model.h"
#include "fit/histogram_axis.h"
#include "fit/histogram_fixture.h"

namespace ondrel {
namespace {

class DurationCurveTest : public HistogramTest {
 protected:
  /// The axis from 1e-5 to 1 s with two terms.
  DurationCurveTest() {
    histogram().FilterFrequency = 1e9;
    BuildDurationHistogram(workspace());
    histogram().TermCount = 2;
    histogram().Terms[0] = {0.25, 0.001, 50.0};
    histogram().Terms[1] = {0.75, 0.1, 150.0};
  }

  DurationHistogram& histogram() { return workspace().Duration; }
};

TEST_F(DurationCurveTest, TheVisiblePartIsThatOfTheStoredTerms) {
  const double expected =
      0.25 * (std::exp(-0.01) - std::exp(-1000.0)) + 0.75 * (std::exp(-1e-4) - std::exp(-10.0));
  EXPECT_NEAR(VisibleProbability(histogram()), expected, 1e-15);
}

TEST_F(DurationCurveTest, EachVisibleRunIsMeasured) {
  for (int bin = 1; bin <= 100; ++bin) {
    if (bin <= 20 || (bin > 40 && bin <= 60)) histogram().Bins[bin].Flags = kExcludedBin;
  }
  const auto above = [](double t) {
    return 0.25 * std::exp(-t / 0.001) + 0.75 * std::exp(-t / 0.1);
  };
  EXPECT_NEAR(VisibleProbability(histogram()), above(1e-4) - above(1e-3) + above(1e-2) - above(1.0),
              1e-15);
}

TEST_F(DurationCurveTest, NothingInSightCountsAsAVeryLittle) {
  histogram().TermCount = 1;
  histogram().Terms[0].TimeConstant = 1e-9;
  EXPECT_EQ(VisibleProbability(histogram()), 1e-50);
  for (int bin = 1; bin <= 100; ++bin) histogram().Bins[bin].Flags = kExcludedBin;
  histogram().Terms[0].TimeConstant = 0.001;
  EXPECT_EQ(VisibleProbability(histogram()), 1e-50);
}

TEST_F(DurationCurveTest, TheVisiblePartIsThatOfAsManyTermsAsAFitMayHave) {
  for (std::size_t i = 2; i < 11; ++i) histogram().Terms[i] = {0.0, 0.01, 0.0};
  histogram().TermCount = 10;
  const double ten = VisibleProbability(histogram());
  histogram().Terms[10] = {0.5, 0.01, 50.0};
  histogram().TermCount = 11;
  EXPECT_EQ(VisibleProbability(histogram()), ten);
}

TEST_F(DurationCurveTest, ANegativeWeightMakesANegativeProbability) {
  histogram().TermCount = 1;
  histogram().Terms[0].Weight = -0.25;
  EXPECT_NEAR(VisibleProbability(histogram()), -0.25 * (std::exp(-0.01) - std::exp(-1000.0)),
              1e-15);
}

TEST_F(DurationCurveTest, ATimeConstantHasNoFloorHere) {
  histogram().TermCount = 1;
  histogram().Terms[0].TimeConstant = -1.0;
  EXPECT_NEAR(VisibleProbability(histogram()), 0.25 * (std::exp(1e-5) - std::exp(1.0)), 1e-15);
}

TEST_F(DurationCurveTest, ACurveHasItsPeakAtTheTimeConstant) {
  const double peak = 50.0 * std::numbers::ln10 * std::exp(-1.0) / 20.0;
  EXPECT_NEAR(DurationCurveCount(histogram(), -3.0, 0, 1), peak, 1e-12);
  EXPECT_LT(DurationCurveCount(histogram(), -3.1, 0, 1), peak);
  EXPECT_LT(DurationCurveCount(histogram(), -2.9, 0, 1), peak);
}

TEST_F(DurationCurveTest, ACountIsTheDensityOfTheLogarithmTimesTheArea) {
  for (const double x : {-5.0, -3.7, -2.5, -2.0}) {
    const double u = std::pow(10.0, x) / 0.001;
    const double expected = 50.0 * std::numbers::ln10 * u * std::exp(-u) / 20.0;
    EXPECT_NEAR(DurationCurveCount(histogram(), x, 0, 1) / expected, 1.0, 1e-13) << x;
  }
}

TEST_F(DurationCurveTest, TheCountsOfAllBinsComeToTheArea) {
  double sum = 0.0;
  for (int k = -400; k < 400; ++k) sum += DurationCurveCount(histogram(), (k + 0.5) * 0.05, 0, 2);
  EXPECT_NEAR(sum, 200.0, 1e-6);
}

TEST_F(DurationCurveTest, ACountIsThatOfABinOfTheAxis) {
  const double before = DurationCurveCount(histogram(), -2.0, 0, 2);
  histogram().BinsPerDecade = 10;
  EXPECT_DOUBLE_EQ(DurationCurveCount(histogram(), -2.0, 0, 2), 2.0 * before);
}

TEST_F(DurationCurveTest, TheCurveIsThatOfTheTermsThatAreAskedFor) {
  const double first = DurationCurveCount(histogram(), -2.0, 0, 1);
  const double second = DurationCurveCount(histogram(), -2.0, 1, 2);
  EXPECT_DOUBLE_EQ(DurationCurveCount(histogram(), -2.0, 0, 2), first + second);
  histogram().Terms[0].Weight = 0.9;
  EXPECT_EQ(DurationCurveCount(histogram(), -2.0, 0, 1), first) << "areas alone count";
}

TEST_F(DurationCurveTest, OnALinearAxisCountsArePixelsFromTheBottom) {
  const double count = DurationCurveCount(histogram(), -3.0, 0, 1);
  EXPECT_EQ(DurationCurveY(histogram(), -3.0, 300.0, 20.0, 2.5, 0, 1), 300.0 - count * 2.5);
}

TEST_F(DurationCurveTest, OnASquareRootAxisTheTallestBarReachesTheTop) {
  histogram().SquareRootAxis = true;
  const double count = DurationCurveCount(histogram(), -3.0, 0, 1);
  histogram().YMaximum = std::sqrt(count);
  EXPECT_NEAR(DurationCurveY(histogram(), -3.0, 300.0, 20.0, 2.5, 0, 1), 20.0, 1e-10);
  histogram().YMaximum = 2.0 * std::sqrt(count);
  EXPECT_NEAR(DurationCurveY(histogram(), -3.0, 300.0, 20.0, 2.5, 0, 1), 160.0, 1e-10);
}

TEST_F(DurationCurveTest, ANegativeAreaIsDrawnDownwardOnEitherAxis) {
  const double count = DurationCurveCount(histogram(), -3.0, 0, 1);
  histogram().Terms[0].Area = -50.0;
  EXPECT_EQ(DurationCurveY(histogram(), -3.0, 300.0, 20.0, 2.5, 0, 1), 300.0 + count * 2.5);
  histogram().SquareRootAxis = true;
  histogram().YMaximum = 2.0 * std::sqrt(count);
  EXPECT_NEAR(DurationCurveY(histogram(), -3.0, 300.0, 20.0, 2.5, 0, 1), 440.0, 1e-10);
}

TEST_F(DurationCurveTest, ACountOfNothingLiesOnTheBottom) {
  histogram().SquareRootAxis = true;
  histogram().YMaximum = 2.0;
  EXPECT_EQ(DurationCurveY(histogram(), 2.0, 300.0, 20.0, 2.5, 0, 1), 300.0);
  histogram().Terms[0].Area = 0.0;
  EXPECT_EQ(DurationCurveY(histogram(), -3.0, 300.0, 20.0, 2.5, 0, 1), 300.0);
}

}  // namespace
}  // namespace ondrel
