// Samples with known constants, and how near a fit must come to these: what the user reads in the
// table after "&Automatic Fit" is held against the truth.
//
// Sampling errors come from the Fisher information of the counts, for the true constants. Allowed
// are 4 of these standard errors, which one constant in 16,000 exceeds, and what the stop rule may
// leave: the terms are those of the top of the last pass, which gained at most tolerance times the
// objective. If no more than that is left behind it, the objective lies 2 tolerance objective above
// its least value, and where it is higher by x the constants are at most sqrt(2 x) errors away.
#pragma once

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <random>
#include <vector>

#include "fit/amplitude_model.h"
#include "fit/duration_model.h"
#include "fit/fisher_information.h"
#include "fit/histogram_axis.h"
#include "fit/model_fit_fixture.h"

namespace ondrel {

inline constexpr double kStandardErrors = 4.0;
// Finer than the program's own: what that leaves is shown below.
inline constexpr double kTolerance = 1e-7;
inline constexpr std::int32_t kIterations = 100;

struct Exponentials {
  std::vector<double> TimeConstants;  // s
  std::vector<double> Weights;
};

struct Gaussians {
  std::vector<double> Currents;  // pA
  std::vector<double> StdDevs;
  std::vector<double> Weights;
};

inline double AllowedErrors(double objective) {
  return kStandardErrors + std::sqrt(2.0 * 2.0 * kTolerance * objective);
}

/// All weights but the last are free.
inline std::vector<double> WeightsOf(const std::vector<double>& parameters, std::size_t first) {
  std::vector<double> weights(parameters.begin() + static_cast<std::ptrdiff_t>(first),
                              parameters.end());
  weights.push_back(1.0 - std::accumulate(weights.begin(), weights.end(), 0.0));
  return weights;
}

/// Standard errors of the weights that stand at `first` and behind, the last one included.
inline std::vector<double> WeightErrors(const Matrix& covariance, std::size_t first) {
  std::vector<double> errors;
  double sum = 0.0;
  for (std::size_t i = first; i < covariance.size(); ++i) {
    errors.push_back(std::sqrt(covariance[i][i]));
    for (std::size_t j = first; j < covariance.size(); ++j) sum += covariance[i][j];
  }
  errors.push_back(std::sqrt(sum));
  return errors;
}

class FitTruthTest : public ModelFitTest {
 protected:
  FitTruthTest() {
    // No dwell is too short to be seen, and none lies beside the axis.
    Duration().MinimumExponent = -10;
    Duration().Decades = 11;
    Duration().BinsPerDecade = 15;
    Duration().FilterFrequency = 1e9;
    Duration().FitTolerance = kTolerance;
    Duration().FitIterations = kIterations;
    Amplitude().Minimum = -5.0;
    Amplitude().TickMarks = 20;
    Amplitude().PerTick = 1.0;
    Amplitude().BinsPerTick = 10;
    Amplitude().FitTolerance = kTolerance;
    Amplitude().FitIterations = kIterations;
  }

  static std::size_t DrawTerm(const std::vector<double>& weights, std::mt19937_64& random) {
    double rest = std::uniform_real_distribution<double>(0.0, 1.0)(random);
    std::size_t term = 0;
    while (term + 1 < weights.size() && rest > weights[term]) rest -= weights[term++];
    return term;
  }

  void Draw(const Exponentials& truth, int count, std::uint64_t seed) {
    std::mt19937_64 random(seed);
    std::uniform_real_distribution<double> uniform(0.0, 1.0);
    std::vector<double> dwells(static_cast<std::size_t>(count));
    for (double& dwell : dwells) {
      const std::size_t term = DrawTerm(truth.Weights, random);
      dwell = -std::log(1.0 - uniform(random)) * truth.TimeConstants[term];
    }
    FreeAllTables(workspace());
    CountDurations(dwells);
    ExpectNothingBeside(Duration());
  }

  void Draw(const Gaussians& truth, int count, std::uint64_t seed) {
    std::mt19937_64 random(seed);
    std::normal_distribution<double> normal;
    std::vector<double> currents(static_cast<std::size_t>(count));
    for (double& current : currents) {
      const std::size_t term = DrawTerm(truth.Weights, random);
      current = truth.Currents[term] + truth.StdDevs[term] * normal(random);
    }
    FreeAllTables(workspace());
    CountAmplitudes(currents);
    ExpectNothingBeside(Amplitude());
  }

  template <typename Histogram>
  static void ExpectNothingBeside(const Histogram& histogram) {
    EXPECT_EQ(histogram.Bins[0].Count, 0);
    EXPECT_EQ(histogram.Bins[CountBins(histogram) + 1].Count, 0);
  }

  /// Terms of equal weight.
  void Estimate(const std::vector<double>& timeConstants) {
    std::vector<DurationTerm> terms;
    const double weight = 1.0 / static_cast<double>(timeConstants.size());
    for (const double s : timeConstants) terms.push_back({.Weight = weight, .TimeConstant = s});
    SetTerms(terms);
  }

  /// The true terms with means and deviations in the wrong size and the means shifted, pA. Of the
  /// weights only the ratios count.
  void Estimate(const Gaussians& truth, double mean, const std::vector<double>& shifts,
                double deviation, const std::vector<double>& weights) {
    std::vector<AmplitudeTerm> terms;
    for (std::size_t i = 0; i < shifts.size(); ++i) {
      terms.push_back({.Weight = truth.Weights[i] * weights[i],
                       .Current = truth.Currents[i] * mean + shifts[i],
                       .StdDev = truth.StdDevs[i] * deviation});
    }
    SetTerms(terms);
  }

  /// The terms in use, shortest first: terms may change places in a fit.
  std::vector<DurationTerm> DurationTerms() {
    std::vector<DurationTerm> terms(Duration().Terms.begin(),
                                    Duration().Terms.begin() + Duration().TermCount);
    std::sort(terms.begin(), terms.end(), [](const DurationTerm& a, const DurationTerm& b) {
      return a.TimeConstant < b.TimeConstant;
    });
    return terms;
  }

  std::vector<AmplitudeTerm> AmplitudeTerms() {
    std::vector<AmplitudeTerm> terms(Amplitude().Terms.begin(),
                                     Amplitude().Terms.begin() + Amplitude().TermCount);
    std::sort(terms.begin(), terms.end(),
              [](const AmplitudeTerm& a, const AmplitudeTerm& b) { return a.Current < b.Current; });
    return terms;
  }

  Matrix ErrorsOf(const Exponentials& truth) {
    const std::size_t count = truth.TimeConstants.size();
    std::vector<double> parameters = truth.TimeConstants;
    parameters.insert(parameters.end(), truth.Weights.begin(), truth.Weights.end() - 1);
    const BinModel model = [&](const std::vector<double>& at) {
      const std::vector<double> weights = WeightsOf(at, count);
      std::vector<double> shares;
      for (std::int64_t bin = 1; bin <= CountBins(Duration()); ++bin) {
        double share = 0.0;
        for (std::size_t i = 0; i < count; ++i) {
          const double low = Duration().Edges[bin - 1];
          const double width = Duration().Edges[bin] - low;
          share += weights[i] * std::exp(-low / at[i]) * -std::expm1(-width / at[i]);
        }
        shares.push_back(share);
      }
      return shares;
    };
    return Covariance(model, parameters, Duration().EventsInHistogram);
  }

  Matrix ErrorsOf(const Gaussians& truth) {
    const std::size_t count = truth.Currents.size();
    std::vector<double> parameters = truth.Currents;
    parameters.insert(parameters.end(), truth.StdDevs.begin(), truth.StdDevs.end());
    parameters.insert(parameters.end(), truth.Weights.begin(), truth.Weights.end() - 1);
    const BinModel model = [&](const std::vector<double>& at) {
      const std::vector<double> weights = WeightsOf(at, 2 * count);
      std::vector<double> shares;
      for (std::int64_t bin = 1; bin <= CountBins(Amplitude()); ++bin) {
        double share = 0.0;
        for (std::size_t i = 0; i < count; ++i) {
          const double scale = 1.0 / (at[count + i] * std::sqrt(2.0));
          const double low = (Amplitude().Edges[bin - 1] - at[i]) * scale;
          const double high = (Amplitude().Edges[bin] - at[i]) * scale;
          // On the side where the difference keeps its digits.
          share +=
              0.5 * weights[i] *
              (low > 0.0 ? std::erfc(low) - std::erfc(high) : std::erfc(-high) - std::erfc(-low));
        }
        shares.push_back(share);
      }
      return shares;
    };
    return Covariance(model, parameters, Amplitude().EventsInHistogram);
  }

  void ExpectTruth(const Exponentials& truth) {
    EXPECT_THAT(Messages(), ::testing::IsEmpty());
    const std::size_t count = truth.TimeConstants.size();
    const double events = Duration().EventsInHistogram;
    const double allowed =
        AllowedErrors(NegativeLogLikelihood(Duration(), ParametersOf(Duration())));
    const Matrix covariance = ErrorsOf(truth);
    const std::vector<double> weightErrors = WeightErrors(covariance, count);
    const std::vector<DurationTerm> terms = DurationTerms();
    for (std::size_t i = 0; i < count; ++i) {
      EXPECT_NEAR(terms[i].TimeConstant, truth.TimeConstants[i],
                  allowed * std::sqrt(covariance[i][i]));
      EXPECT_NEAR(terms[i].Weight, truth.Weights[i], allowed * weightErrors[i] + 1e-12);
      // Less than this share of the dwells is shorter than what is counted.
      constexpr double kHidden = 2e-4;
      EXPECT_NEAR(terms[i].Area, events * truth.Weights[i],
                  allowed * events * weightErrors[i] + kHidden * events);
    }
  }

  void ExpectTruth(const Gaussians& truth) {
    EXPECT_THAT(Messages(), ::testing::IsEmpty());
    const std::size_t count = truth.Currents.size();
    const double events = Amplitude().EventsInHistogram;
    const double allowed =
        AllowedErrors(NegativeLogLikelihood(Amplitude(), ParametersOf(Amplitude())));
    const Matrix covariance = ErrorsOf(truth);
    const std::vector<double> weightErrors = WeightErrors(covariance, 2 * count);
    const std::vector<AmplitudeTerm> terms = AmplitudeTerms();
    for (std::size_t i = 0; i < count; ++i) {
      EXPECT_NEAR(terms[i].Current, truth.Currents[i], allowed * std::sqrt(covariance[i][i]));
      EXPECT_NEAR(terms[i].StdDev, truth.StdDevs[i],
                  allowed * std::sqrt(covariance[count + i][count + i]));
      EXPECT_NEAR(terms[i].Weight, truth.Weights[i], allowed * weightErrors[i] + 1e-12);
      // The scale of the curve comes from an error function with errors up to 2.5e-5.
      EXPECT_NEAR(terms[i].Area, events * truth.Weights[i],
                  allowed * events * weightErrors[i] + 5e-5 * events);
    }
  }
};

}  // namespace ondrel
