#include "fit/amplitude_model.h"

#include <cmath>

#include "fit/bin_likelihood.h"
#include "fit/elementary.h"
#include "fit/error_function.h"
#include "fit/fit_models.h"
#include "fit/histogram_axis.h"

namespace ondrel {
namespace {

constexpr double kRootTwo = 1.4142;
constexpr double kSmallestDeviation = 1e-30;

/// One term, with what its density needs at every place.
struct Gaussian {
  double Peak;    // density at the mean
  double Mean;    // pA
  double Spread;  // twice the variance
};

Gaussian GaussianOf(double weight, double current, double stdDev) {
  return {weight / (std::sqrt(kTwoPi) * stdDev), current, 2.0 * stdDev * stdDev};
}

/// The terms of a point.
struct Mixture {
  std::array<Gaussian, kMaxTerms> Terms;
  std::size_t Count;
};

Mixture MixtureOf(const AmplitudeHistogram& histogram, const ParameterVector& point) {
  Mixture mixture;
  mixture.Count = CountTerms(histogram);
  for (std::size_t i = 0; i < mixture.Count; ++i) {
    const double* const term = &point[kParametersPerAmplitudeTerm * i];
    mixture.Terms[i] =
        GaussianOf(term[kAmplitudeWeight], term[kAmplitudeCurrent], term[kAmplitudeStdDev]);
  }
  return mixture;
}

/// Exponents of a term's density at `count` places. They are worked out in advance, so that their
/// divisions don't keep the exponentials waiting.
inline void FindExponents(const Gaussian& term, const double* places, std::size_t count,
                          double* exponents) {
  ForEachPair(count, [&]<typename Real>(std::size_t i) {
    const Real distance = Load<Real>(places + i) - term.Mean;
    Store(exponents + i, -(distance * distance) / term.Spread);
  });
}

template <typename Real>
[[gnu::always_inline]] inline Real Density(const Gaussian& term, const double* exponent) {
  return term.Peak * Exp(Load<Real>(exponent));
}

/// Simpson's sums of one term, added to those of the terms before. A bin shares its edges with its
/// neighbours.
void AddTerm(const Gaussian& term, const double* edges, const BinNumbers& centres,
             std::size_t count, BinNumbers& sums) {
  EdgeNumbers atEdges;
  BinNumbers atCentres;
  FindExponents(term, edges, count + 1, atEdges.data());
  FindExponents(term, centres.data(), count, atCentres.data());
  ForEachPair(count + 1, [&]<typename Real>(std::size_t i) {
    Store(&atEdges[i], Density<Real>(term, &atEdges[i]) / 6.0);
  });
  ForEachPair(count, [&]<typename Real>(std::size_t i) {
    const Real atCentre = Density<Real>(term, &atCentres[i]) * 2.0 / 3.0;
    const Real share = Load<Real>(&atEdges[i]) + atCentre + Load<Real>(&atEdges[i + 1]);
    Store(&sums[i], Load<Real>(&sums[i]) + share);
  });
}

/// Probabilities of `count` bins side by side.
void EvaluateBins(const Mixture& mixture, const double* edges, std::size_t count,
                  BinNumbers& probabilities) {
  BinNumbers centres;
  for (std::size_t i = 0; i < count; ++i) {
    centres[i] = (edges[i] + edges[i + 1]) / 2.0;
    probabilities[i] = 0.0;
  }
  for (std::size_t term = 0; term < mixture.Count; ++term) {
    AddTerm(mixture.Terms[term], edges, centres, count, probabilities);
  }
  for (std::size_t i = 0; i < count; ++i) probabilities[i] *= edges[i + 1] - edges[i];
}

/// Lifts the deviations of the terms themselves, unlike SegmentProbability.
double VisibleCdf(AmplitudeHistogram& histogram, double x) {
  double sum = 0.0;
  for (std::size_t i = 0; i < CountTerms(histogram); ++i) {
    AmplitudeTerm& term = histogram.Terms[i];
    if (!(term.StdDev > 0.0)) term.StdDev = kSmallestDeviation;
    const double z = (x - term.Current) / (std::sqrt(2.0) * term.StdDev);
    sum += term.Weight * (1.0 + CoarseErf(z));
  }
  return sum / 2.0;
}

}  // namespace

double BinProbability(const AmplitudeHistogram& histogram, const ParameterVector& point, double low,
                      double high) {
  const double edges[] = {low, high};
  BinNumbers probabilities;
  EvaluateBins(MixtureOf(histogram, point), edges, 1, probabilities);
  return probabilities[0];
}

double SegmentProbability(const AmplitudeHistogram& histogram, const ParameterVector& point,
                          double low, double high) {
  double sum = 0.0;
  for (std::size_t i = 0; i < CountTerms(histogram); ++i) {
    const double* const term = &point[kParametersPerAmplitudeTerm * i];
    const double current = term[kAmplitudeCurrent];
    const double stdDev =
        term[kAmplitudeStdDev] > 0.0 ? term[kAmplitudeStdDev] : kSmallestDeviation;
    const double zLow = (low - current) / (kRootTwo * stdDev);
    const double zHigh = (high - current) / (kRootTwo * stdDev);
    sum += (ComplementaryErf(zLow) - ComplementaryErf(zHigh)) * term[kAmplitudeWeight];
  }
  return sum / 2.0;
}

double NegativeLogLikelihood(const AmplitudeHistogram& histogram, const ParameterVector& point) {
  const BinsOnAxis axis = BinsOf(histogram);
  const Mixture mixture = MixtureOf(histogram, point);
  const double sum =
      SumOfLogs(axis, [&](const double* edges, std::size_t count, BinNumbers& probabilities) {
        EvaluateBins(mixture, edges, count, probabilities);
      });
  double visible = 0.0;
  ForEachVisibleRun(axis, [&](std::int64_t first, std::int64_t end) {
    visible +=
        SegmentProbability(histogram, point, EdgeOf(histogram, first), EdgeOf(histogram, end));
  });
  return ConditionedObjective(histogram.EventsInHistogram, visible, sum);
}

double SaturatedLogLikelihood(const AmplitudeHistogram& histogram) {
  return SaturatedObjective(BinsOf(histogram), histogram.EventsInHistogram);
}

double LogLikelihood(const AmplitudeHistogram& histogram) {
  const double objective = NegativeLogLikelihood(histogram, ParametersOf(histogram));
  return -objective - -SaturatedLogLikelihood(histogram);
}

double VisibleProbability(AmplitudeHistogram& histogram) {
  constexpr double kInPlaceOfNone = 1e-30;
  double visible = 0.0;
  ForEachVisibleRun(BinsOf(histogram), [&](std::int64_t first, std::int64_t end) {
    visible += VisibleCdf(histogram, EdgeOf(histogram, end)) -
               VisibleCdf(histogram, EdgeOf(histogram, first));
  });
  return visible == 0.0 ? kInPlaceOfNone : visible;
}

double AmplitudeCurveCount(const AmplitudeHistogram& histogram, double x, std::int32_t first,
                           std::int32_t last) {
  double sum = 0.0;
  for (std::int32_t i = first; i < last; ++i) {
    const AmplitudeTerm& term = histogram.Terms[static_cast<std::size_t>(i)];
    const double distance = x - term.Current;
    const double share = Exp(-(distance * distance) / (2.0 * term.StdDev * term.StdDev));
    sum += share * term.Area / (std::sqrt(kTwoPi) * term.StdDev);
  }
  return sum * histogram.PerTick / BinsPerTickOf(histogram);
}

double AmplitudeCurveY(const AmplitudeHistogram& histogram, double x, double bottom, double top,
                       double pixelsPerCount, std::int32_t first, std::int32_t last) {
  const double count = AmplitudeCurveCount(histogram, x, first, last);
  if (!histogram.SquareRootAxis) return bottom - count * pixelsPerCount;
  const double tallest = histogram.YMaximum * histogram.YMaximum;
  return bottom - std::sqrt(count / tallest) * (bottom - top);
}

}  // namespace ondrel
