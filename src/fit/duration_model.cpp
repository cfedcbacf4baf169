#include "fit/duration_model.h"

#include <cmath>
#include <numbers>

#include "fit/bin_likelihood.h"
#include "fit/elementary.h"
#include "fit/fit_models.h"
#include "fit/histogram_axis.h"

namespace ondrel {
namespace {

/// One term.
struct Exponential {
  double TimeConstant;  // s
  double Weight;
};

/// The terms of a point.
struct Mixture {
  std::array<Exponential, kMaxTerms> Terms;
  std::size_t Count;
};

Mixture MixtureOf(const DurationHistogram& histogram, const ParameterVector& point) {
  constexpr double kShortest = 1e-30;
  Mixture mixture;
  mixture.Count = CountTerms(histogram);
  for (std::size_t i = 0; i < mixture.Count; ++i) {
    const double* const term = &point[kParametersPerDurationTerm * i];
    const double timeConstant = term[kDurationTimeConstant];
    mixture.Terms[i] = {timeConstant < kShortest ? kShortest : timeConstant, term[kDurationWeight]};
  }
  return mixture;
}

/// exp(x) - 1 as a rational function, for an x too small for the difference.
template <typename Real>
[[gnu::always_inline]] inline Real ExpLessOne(Real x) {
  const Real y = x * x;
  const Real c = 20.001114158996458 * y + 840.0668525364832;
  return 2.0 * x * c / (y * y + 180.01337040739003 * y + 1680.1337050729664 - x * c);
}

/// Probability that a term of `weight` gives to a stretch that begins at `low` and is `width` long,
/// both in time constants.
template <typename Real>
[[gnu::always_inline]] inline Real Share(double weight, Real low, Real width) {
  constexpr double kSmall = 0.1;
  const Real e = Exp(-width);
  const Real beyondLow = Exp(-low) * weight;
  const auto large = width > kSmall;
  if (All(large)) return beyondLow * (1.0 - e);
  const Real small = beyondLow * e * ExpLessOne(width);
  return None(large) ? small : Choose(large, beyondLow * (1.0 - e), small);
}

/// The shares of one term, added to those of the terms before. All divisions come first, so that
/// they don't keep the exponentials waiting.
void AddTerm(const Exponential& term, const double* edges, std::size_t count, BinNumbers& sums) {
  BinNumbers lows;
  BinNumbers widths;
  ForEachPair(count, [&]<typename Real>(std::size_t i) {
    const Real low = Load<Real>(edges + i);
    Store(&lows[i], low / term.TimeConstant);
    Store(&widths[i], (Load<Real>(edges + i + 1) - low) / term.TimeConstant);
  });
  ForEachPair(count, [&]<typename Real>(std::size_t i) {
    const Real share = Share(term.Weight, Load<Real>(&lows[i]), Load<Real>(&widths[i]));
    Store(&sums[i], Load<Real>(&sums[i]) + share);
  });
}

/// Probabilities of `count` stretches side by side.
void EvaluateBins(const Mixture& mixture, const double* edges, std::size_t count,
                  BinNumbers& probabilities) {
  for (std::size_t i = 0; i < count; ++i) probabilities[i] = 0.0;
  for (std::size_t i = 0; i < mixture.Count; ++i) {
    AddTerm(mixture.Terms[i], edges, count, probabilities);
  }
}

double ProbabilityOf(const Mixture& mixture, double low, double high) {
  const double edges[] = {low, high};
  BinNumbers probabilities;
  EvaluateBins(mixture, edges, 1, probabilities);
  return probabilities[0];
}

double VisibleCdf(const DurationHistogram& histogram, double time) {
  double sum = 0.0;
  for (std::size_t i = 0; i < CountTerms(histogram); ++i) {
    const DurationTerm& term = histogram.Terms[i];
    sum += term.Weight * Exp(-time / term.TimeConstant);
  }
  return 1.0 - sum;
}

}  // namespace

double SegmentProbability(const DurationHistogram& histogram, double low, double high,
                          const ParameterVector& point) {
  return ProbabilityOf(MixtureOf(histogram, point), low, high);
}

double NegativeLogLikelihood(const DurationHistogram& histogram, const ParameterVector& point) {
  const BinsOnAxis axis = BinsOf(histogram);
  const Mixture mixture = MixtureOf(histogram, point);
  const double sum =
      SumOfLogs(axis, [&](const double* edges, std::size_t count, BinNumbers& probabilities) {
        EvaluateBins(mixture, edges, count, probabilities);
      });
  double visible = 0.0;
  ForEachVisibleRun(axis, [&](std::int64_t first, std::int64_t end) {
    visible += ProbabilityOf(mixture, axis.Edges[first - 1], axis.Edges[end - 1]);
  });
  return ConditionedObjective(histogram.EventsInHistogram, visible, sum);
}

double SaturatedLogLikelihood(const DurationHistogram& histogram) {
  return SaturatedObjective(BinsOf(histogram), histogram.EventsInHistogram);
}

double LogLikelihood(const DurationHistogram& histogram) {
  const double objective = NegativeLogLikelihood(histogram, ParametersOf(histogram));
  return -objective - -SaturatedLogLikelihood(histogram);
}

double VisibleProbability(const DurationHistogram& histogram) {
  constexpr double kInPlaceOfNone = 1e-50;
  const BinsOnAxis axis = BinsOf(histogram);
  double visible = 0.0;
  ForEachVisibleRun(axis, [&](std::int64_t first, std::int64_t end) {
    visible +=
        VisibleCdf(histogram, axis.Edges[end - 1]) - VisibleCdf(histogram, axis.Edges[first - 1]);
  });
  return visible == 0.0 ? kInPlaceOfNone : visible;
}

double DurationCurveCount(const DurationHistogram& histogram, double x, std::int32_t first,
                          std::int32_t last) {
  double sum = 0.0;
  for (std::int32_t i = first; i < last; ++i) {
    const DurationTerm& term = histogram.Terms[static_cast<std::size_t>(i)];
    const double u = std::pow(10.0, x - Log(term.TimeConstant) / std::numbers::ln10);
    sum += Exp(-u) * term.Area * std::numbers::ln10 * u;
  }
  return sum * LogBinWidth(histogram);
}

double DurationCurveY(const DurationHistogram& histogram, double x, double bottom, double top,
                      double pixelsPerCount, std::int32_t first, std::int32_t last) {
  const double count = DurationCurveCount(histogram, x, first, last);
  if (!histogram.SquareRootAxis) return bottom - count * pixelsPerCount;
  if (count == 0.0) return bottom;
  const double magnitude = std::fabs(count);
  const double tallest = histogram.YMaximum * histogram.YMaximum;
  return bottom - std::sqrt(magnitude / tallest) * (bottom - top) * count / magnitude;
}

}  // namespace ondrel
