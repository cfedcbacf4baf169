#include "fit/fit_models.h"

#include "fit/amplitude_model.h"
#include "fit/bin_likelihood.h"
#include "fit/duration_model.h"
#include "fit/histogram_axis.h"
#include "workspace/power_of_ten.h"

namespace ondrel {
namespace {

/// No parameter but a Current may fall below it.
constexpr double kFloor = 1e-30;

/// A Gaussian that is narrower than this part of a bin cannot be told from a narrower one.
constexpr double kSmallestStdDevsPerBin = 10.0;

// What differs between the models in the steps of the search.

struct Amplitude {
  static constexpr std::size_t kPerTerm = kParametersPerAmplitudeTerm;
  static constexpr std::size_t kFirstWeight = kAmplitudeWeight;
  static bool MayBeNegative(std::size_t parameter) {
    return parameter % kPerTerm == kAmplitudeCurrent;
  }
};

struct Duration {
  static constexpr std::size_t kPerTerm = kParametersPerDurationTerm;
  static constexpr std::size_t kFirstWeight = kDurationWeight;
  static bool MayBeNegative(std::size_t) { return false; }
};

std::size_t Size(std::int32_t count) {
  return static_cast<std::size_t>(count);
}

template <typename Model>
void ApplyStep(ParameterVector& point, ParameterVector& direction, std::int32_t count,
               double step) {
  for (std::size_t j = 0; j < Size(count); ++j) {
    direction[j] *= step;
    point[j] += direction[j];
    if (point[j] < kFloor && !Model::MayBeNegative(j)) point[j] = kFloor;
  }
}

template <typename Model>
void NormaliseWeights(ParameterVector& point, std::int32_t count) {
  double sum = 0.0;
  for (std::size_t j = Model::kFirstWeight; j < Size(count); j += Model::kPerTerm) sum += point[j];
  if (sum == 0.0) sum = kFloor;
  for (std::size_t j = Model::kFirstWeight; j < Size(count); j += Model::kPerTerm) point[j] /= sum;
}

template <typename Model>
bool TrialPoint(double step, std::int32_t count, const ParameterVector& point,
                const ParameterVector& direction, ParameterVector& result) {
  bool forbidden = false;
  for (std::size_t j = 0; j < Size(count); ++j) {
    result[j] = step * direction[j] + point[j];
    if (result[j] < 0.0 && !Model::MayBeNegative(j)) forbidden = true;
  }
  return forbidden;
}

template <typename Model>
bool Extrapolate(ParameterVector& extrapolated, std::int32_t count, ParameterVector& saved,
                 const ParameterVector& point, ParameterVector& direction) {
  bool forbidden = false;
  for (std::size_t j = 0; j < Size(count); ++j) {
    extrapolated[j] = 2.0 * point[j] - saved[j] + kFloor;
    direction[j] = point[j] - saved[j];
    saved[j] = point[j];
    if (extrapolated[j] < kFloor && !Model::MayBeNegative(j)) forbidden = true;
  }
  return forbidden;
}

double AmplitudeObjective(const AmplitudeHistogram& amplitude, const DurationHistogram&,
                          const ParameterVector& point) {
  return NegativeLogLikelihood(amplitude, point);
}

double DurationObjective(const AmplitudeHistogram&, const DurationHistogram& duration,
                         const ParameterVector& point) {
  return NegativeLogLikelihood(duration, point);
}

bool Yes() {
  return true;
}
bool No() {
  return false;
}

/// Brings `value` to the ends of the axis. False when it was beside it.
bool BringToAxis(double& value, double low, double high) {
  if (value < low) {
    value = low;
    return false;
  }
  if (value > high) {
    value = high;
    return false;
  }
  return true;
}

/// Each term's events: its share of those in the histogram, over the share that can be seen.
template <typename Histogram>
void SetAreas(Histogram& histogram) {
  const double scale = histogram.EventsInHistogram / VisibleProbability(histogram);
  for (std::size_t i = 0; i < CountTerms(histogram); ++i) {
    histogram.Terms[i].Area = scale * histogram.Terms[i].Weight;
  }
}

}  // namespace

const FitOperations kAmplitudeModel{ApplyStep<Amplitude>,
                                    NormaliseWeights<Amplitude>,
                                    AmplitudeObjective,
                                    TrialPoint<Amplitude>,
                                    Extrapolate<Amplitude>,
                                    Yes,
                                    Yes};

const FitOperations kDurationModel{ApplyStep<Duration>,
                                   NormaliseWeights<Duration>,
                                   DurationObjective,
                                   TrialPoint<Duration>,
                                   Extrapolate<Duration>,
                                   No,
                                   No};

ParameterVector ParametersOf(const AmplitudeHistogram& histogram) {
  ParameterVector point{};
  for (std::size_t i = 0; i < CountTerms(histogram); ++i) {
    const AmplitudeTerm& term = histogram.Terms[i];
    double* const entries = &point[Amplitude::kPerTerm * i];
    entries[kAmplitudeWeight] = term.Weight;
    entries[kAmplitudeCurrent] = term.Current;
    entries[kAmplitudeStdDev] = term.StdDev;
  }
  return point;
}

ParameterVector ParametersOf(const DurationHistogram& histogram) {
  ParameterVector point{};
  for (std::size_t i = 0; i < CountTerms(histogram); ++i) {
    const DurationTerm& term = histogram.Terms[i];
    double* const entries = &point[Duration::kPerTerm * i];
    entries[kDurationTimeConstant] = term.TimeConstant;
    entries[kDurationWeight] = term.Weight;
  }
  return point;
}

std::int32_t CountParameters(const AmplitudeHistogram& histogram) {
  return static_cast<std::int32_t>(CountTerms(histogram)) * kParametersPerAmplitudeTerm;
}

std::int32_t CountParameters(const DurationHistogram& histogram) {
  return static_cast<std::int32_t>(CountTerms(histogram)) * kParametersPerDurationTerm;
}

std::int32_t StoreTerms(AmplitudeHistogram& histogram, ParameterVector& point) {
  const double smallest = histogram.PerTick / (BinsPerTickOf(histogram) * kSmallestStdDevsPerBin);
  std::int32_t status = 0;
  for (std::size_t i = 0; i < CountTerms(histogram); ++i) {
    AmplitudeTerm& term = histogram.Terms[i];
    double* const entries = &point[Amplitude::kPerTerm * i];
    double& current = entries[kAmplitudeCurrent];
    double& stdDev = entries[kAmplitudeStdDev];
    if (!BringToAxis(current, histogram.Minimum, MaximumOf(histogram))) status = -1;
    if (stdDev < smallest) stdDev = smallest;
    term.Weight = entries[kAmplitudeWeight];
    term.Current = current;
    term.StdDev = stdDev;
  }
  SetAreas(histogram);
  return status;
}

std::int32_t StoreTerms(DurationHistogram& histogram, ParameterVector& point) {
  const double shortest = PowerOfTen(histogram.MinimumExponent);
  // Slightly more than the axis, unlike the currents.
  const double longest = PowerOfTen(MaximumOf(histogram)) + shortest;
  std::int32_t status = 0;
  for (std::size_t i = 0; i < CountTerms(histogram); ++i) {
    DurationTerm& term = histogram.Terms[i];
    double* const entries = &point[Duration::kPerTerm * i];
    double& timeConstant = entries[kDurationTimeConstant];
    if (!BringToAxis(timeConstant, shortest, longest)) status = -1;
    term.TimeConstant = timeConstant;
    term.Weight = entries[kDurationWeight];
  }
  SetAreas(histogram);
  return status;
}

}  // namespace ondrel
