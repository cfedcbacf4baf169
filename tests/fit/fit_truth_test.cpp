// What "&Automatic Fit" makes of samples with known constants, from estimates that are wrong by a
// factor of three.
#include <gmock/gmock.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "fit/fit_truth_fixture.h"

namespace ondrel {
namespace {

using ::testing::IsEmpty;

// --- Durations ---------------------------------------------------------------------------

TEST_F(FitTruthTest, OneExponentialIsFoundFromThreeTimesTooLongOrTooShort) {
  const Exponentials truth{{0.002}, {1.0}};
  Draw(truth, 20000, 1);
  for (const double factor : {3.0, 1.0 / 3.0}) {
    Estimate({0.002 * factor});
    FitDuration(Frame());
    ExpectTruth(truth);
  }
}

TEST_F(FitTruthTest, ForOneExponentialTheErrorIsThatOfTheMean) {
  // The bins lose little of what the mean of the dwells tells.
  const Exponentials truth{{0.002}, {1.0}};
  Draw(truth, 20000, 1);
  EXPECT_NEAR(std::sqrt(ErrorsOf(truth)[0][0]), 0.002 / std::sqrt(20000.0), 0.01 * 0.002 / 141.4);
}

TEST_F(FitTruthTest, TwoExponentialsAreFoundFromThreeTimesTooLongOrTooShort) {
  const Exponentials truth{{0.0005, 0.02}, {0.4, 0.6}};
  Draw(truth, 50000, 2);
  for (const double first : {3.0, 1.0 / 3.0}) {
    for (const double second : {3.0, 1.0 / 3.0}) {
      SCOPED_TRACE(first + 100 * second);
      Estimate({0.0005 * first, 0.02 * second});
      FitDuration(Frame());
      ExpectTruth(truth);
    }
  }
}

TEST_F(FitTruthTest, ThreeExponentialsAreFoundFromThreeTimesTooLongOrTooShort) {
  const Exponentials truth{{0.0003, 0.004, 0.06}, {0.3, 0.3, 0.4}};
  Draw(truth, 100000, 3);
  for (const double first : {3.0, 1.0 / 3.0}) {
    for (const double second : {3.0, 1.0 / 3.0}) {
      for (const double third : {3.0, 1.0 / 3.0}) {
        SCOPED_TRACE(first + 100 * second + 10000 * third);
        Estimate({0.0003 * first, 0.004 * second, 0.06 * third});
        FitDuration(Frame());
        ExpectTruth(truth);
      }
    }
  }
}

TEST_F(FitTruthTest, UnequalWeightsAreFoundFromEqualOnes) {
  const Exponentials truth{{0.001, 0.1}, {0.95, 0.05}};
  Draw(truth, 50000, 4);
  Estimate({0.003, 0.03});
  FitDuration(Frame());
  ExpectTruth(truth);
}

TEST_F(FitTruthTest, OverManySamplesTheErrorsAreThoseOfTheory) {
  // The distance from the truth in units of the theoretical errors is distributed as chi squared of
  // three degrees of freedom, with mean 3 and variance 6.
  constexpr int kSamples = 40;
  const Exponentials truth{{0.001, 0.02}, {0.4, 0.6}};
  Draw(truth, 5000, 99);
  const Matrix information = Inverse(ErrorsOf(truth));
  double sum = 0.0;
  for (int sample = 0; sample < kSamples; ++sample) {
    Draw(truth, 5000, 100 + static_cast<std::uint64_t>(sample));
    Estimate({0.003, 0.02});
    FitDuration(Frame());
    const std::vector<DurationTerm> terms = DurationTerms();
    const std::vector<double> errors{terms[0].TimeConstant - 0.001, terms[1].TimeConstant - 0.02,
                                     terms[0].Weight - 0.4};
    for (std::size_t i = 0; i < 3; ++i) {
      for (std::size_t j = 0; j < 3; ++j) sum += errors[i] * information[i][j] * errors[j];
    }
  }
  EXPECT_NEAR(sum / kSamples, 3.0, kStandardErrors * std::sqrt(6.0 / kSamples));
}

TEST_F(FitTruthTest, ATruncatedHistogramIsFittedWithoutBias) {
  // Only dwells above 2 ms are looked at. What is left of an exponential is one again, with the
  // same error for each event that is seen.
  const Exponentials truth{{0.004}, {1.0}};
  constexpr int kCount = 40000;
  Draw(truth, kCount, 5);
  LevelFilter& filter = workspace().Levels.LevelSelection;
  filter.DurationChoice = Selection::Include;
  filter.DurationLow = 0.002;
  filter.DurationHigh = 100.0;
  BuildDurationHistogram(workspace());
  double shortest = 1.0;
  for (std::int64_t bin = CountBins(Duration()); bin > 0; --bin) {
    if (Duration().Bins[bin].Flags == 0) shortest = Duration().Edges[bin - 1];
  }
  const double seen = std::exp(-shortest / 0.004);
  const double events = Duration().EventsInHistogram;
  EXPECT_NEAR(events, kCount * seen, kStandardErrors * std::sqrt(kCount * seen * (1.0 - seen)));
  Estimate({0.012});
  FitDuration(Frame());
  const double error = 0.004 / std::sqrt(events);
  EXPECT_NEAR(DurationTerms()[0].TimeConstant, 0.004, 4.5 * error);
  // The area counts those that are not seen, too.
  const double areaError = std::hypot(kCount * shortest / (0.004 * 0.004) * error,
                                      std::sqrt(kCount * (1.0 - seen) / seen));
  EXPECT_NEAR(DurationTerms()[0].Area, kCount, 4.5 * areaError);
}

TEST_F(FitTruthTest, WithTheDefaultToleranceAFitMayStopEarly) {
  const Exponentials truth{{0.0005, 0.02}, {0.4, 0.6}};
  Draw(truth, 50000, 2);
  Estimate({0.0015, 0.06});
  FitDuration(Frame());
  const double best = NegativeLogLikelihood(Duration(), ParametersOf(Duration()));
  const double found = DurationTerms()[0].TimeConstant;
  Duration().FitTolerance = DurationHistogram{}.FitTolerance;
  Duration().FitIterations = DurationHistogram{}.FitIterations;
  ASSERT_EQ(Duration().FitTolerance, 1e-4);
  Estimate({0.0015, 0.06});
  FitDuration(Frame());
  EXPECT_THAT(Messages(), IsEmpty());
  // 1e-4 of an objective of some 200,000 is 20 units; a standard error takes a half.
  const double early = NegativeLogLikelihood(Duration(), ParametersOf(Duration()));
  EXPECT_GT(early - best, 5.0);
  EXPECT_LT(early - best, 40.0);
  const double error = std::sqrt(ErrorsOf(truth)[0][0]);
  EXPECT_GT(std::fabs(DurationTerms()[0].TimeConstant - found), 3.0 * error);
}

// --- Amplitudes --------------------------------------------------------------------------

TEST_F(FitTruthTest, OneGaussianIsFoundFromThreeTimesTooLargeOrTooSmall) {
  const Gaussians truth{{2.0}, {0.5}, {1.0}};
  Draw(truth, 20000, 5);
  for (const double mean : {3.0, 1.0 / 3.0}) {
    for (const double deviation : {3.0, 1.0 / 3.0}) {
      SCOPED_TRACE(mean + 100 * deviation);
      Estimate(truth, mean, {0.0}, deviation, {1.0});
      FitAmplitude(Frame());
      ExpectTruth(truth);
    }
  }
}

TEST_F(FitTruthTest, TwoGaussiansAreFoundFromMeansThreeTimesTooSmall) {
  const Gaussians truth{{1.0, 5.0}, {0.5, 0.8}, {0.4, 0.6}};
  Draw(truth, 50000, 6);
  for (const double deviation : {3.0, 1.0 / 3.0}) {
    for (const double weight : {3.0, 1.0 / 3.0}) {
      SCOPED_TRACE(deviation + 100 * weight);
      Estimate(truth, 1.0 / 3.0, {0.0, 0.0}, deviation, {weight, 1.0});
      FitAmplitude(Frame());
      ExpectTruth(truth);
    }
  }
}

TEST_F(FitTruthTest, TwoMeansThreeTimesTooLargeEndAsOneBroadGaussian) {
  // The second one begins where there are no events, and nothing leads it back: its weight goes to
  // the first, which takes the mean and the deviation of all. Where it ends, and whether that is
  // told as outside of the range, says nothing.
  const Gaussians truth{{1.0, 5.0}, {0.5, 0.8}, {0.4, 0.6}};
  Draw(truth, 50000, 6);
  Estimate(truth, 3.0, {0.0, 0.0}, 3.0, {1.0, 1.0});
  FitAmplitude(Frame());
  const AmplitudeTerm broad = AmplitudeTerms()[0];
  const double variance = 0.4 * 0.25 + 0.6 * 0.64 + 0.24 * 16.0;
  EXPECT_NEAR(broad.Current, 3.4, 0.05);
  EXPECT_NEAR(broad.StdDev, std::sqrt(variance), 0.05);
  EXPECT_NEAR(broad.Weight, 1.0, 1e-6);
}

TEST_F(FitTruthTest, ThreeGaussiansAreFoundFromDeviationsAndWeightsWrongByThree) {
  // Means are seen in the histogram, and set there to half a pA.
  const Gaussians truth{{1.0, 4.0, 8.0}, {0.5, 0.6, 0.8}, {0.3, 0.3, 0.4}};
  Draw(truth, 100000, 6);
  for (const double deviation : {3.0, 1.0 / 3.0}) {
    for (const double weight : {3.0, 1.0 / 3.0}) {
      SCOPED_TRACE(deviation + 100 * weight);
      const double shift = deviation > weight ? 0.5 : -0.5;
      Estimate(truth, 1.0, {shift, -shift, shift}, deviation, {weight, 1.0 / weight, 1.0});
      FitAmplitude(Frame());
      ExpectTruth(truth);
    }
  }
}

TEST_F(FitTruthTest, ThreeMeansThreeTimesTooSmallCanEndInASpike) {
  // All terms begin at the first two peaks. Two of them share the mass, and one closes in on a
  // single bin, where only the limit of a tenth of a bin's width holds it: a minimum, but not the
  // lowest.
  const Gaussians truth{{1.0, 4.0, 8.0}, {0.5, 0.6, 0.8}, {0.3, 0.3, 0.4}};
  Draw(truth, 100000, 6);
  Estimate(truth, 1.0, {0.5, -0.5, 0.5}, 1.0, {1.0, 1.0, 1.0});
  FitAmplitude(Frame());
  const double best = NegativeLogLikelihood(Amplitude(), ParametersOf(Amplitude()));
  Estimate(truth, 1.0 / 3.0, {0.0, 0.0, 0.0}, 3.0, {3.0, 1.0 / 3.0, 1.0});
  FitAmplitude(Frame());
  EXPECT_THAT(Messages(), IsEmpty());
  std::vector<double> deviations;
  for (const AmplitudeTerm& term : AmplitudeTerms()) deviations.push_back(term.StdDev);
  EXPECT_THAT(deviations, ::testing::Contains(::testing::DoubleNear(1.0 / (10 * 10.0), 1e-9)));
  EXPECT_GT(NegativeLogLikelihood(Amplitude(), ParametersOf(Amplitude())), best + 10000.0);
}

}  // namespace
}  // namespace ondrel
