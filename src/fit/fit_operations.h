// What differs between the two mixture models for the one minimiser that fits both, and how a fit,
// which knows no views, shows itself.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "views/view_state.h"

namespace ondrel {

struct AmplitudeHistogram;
struct DurationHistogram;
struct Workspace;

/// Ten amplitude terms of three parameters each; a fit uses the first so many of them.
inline constexpr std::size_t kParameterSlots = 30;

/// A point of the search. Amplitude fits hold Weight, Current (pA), StdDev (pA) of each term in
/// turn, duration fits TimeConstant (s), Weight.
using ParameterVector = std::array<double, kParameterSlots>;

inline constexpr std::int32_t kParametersPerAmplitudeTerm = 3;
inline constexpr std::int32_t kParametersPerDurationTerm = 2;

// Places of a term's parameters among its own.
inline constexpr std::size_t kAmplitudeWeight = 0;
inline constexpr std::size_t kAmplitudeCurrent = 1;
inline constexpr std::size_t kAmplitudeStdDev = 2;
inline constexpr std::size_t kDurationTimeConstant = 0;
inline constexpr std::size_t kDurationWeight = 1;

/// Direction i is column i: its entry j stands in [j][i].
using DirectionSet = std::array<ParameterVector, kParameterSlots>;

/// Seven functions. `count` is the number of parameters in use.
struct FitOperations {
  /// Scales `direction` by `step` and moves `point` along it. No parameter is left below its floor.
  void (*ApplyStep)(ParameterVector& point, ParameterVector& direction, std::int32_t count,
                    double step);
  /// Divides the weights by their sum.
  void (*NormaliseWeights)(ParameterVector& point, std::int32_t count);
  /// The objective. A model ignores the other one's histogram.
  double (*NegativeLogLikelihood)(const AmplitudeHistogram& amplitude,
                                  const DurationHistogram& duration, const ParameterVector& point);
  /// `result` = `point` + `step` times `direction`. True when that breaks a sign constraint.
  bool (*TrialPoint)(double step, std::int32_t count, const ParameterVector& point,
                     const ParameterVector& direction, ParameterVector& result);
  /// Goes on from `saved` over `point` as far again, leaves the way from `saved` to `point` in
  /// `direction`, and moves `saved` up to `point`. True when a parameter falls below its floor.
  bool (*Extrapolate)(ParameterVector& extrapolated, std::int32_t count, ParameterVector& saved,
                      const ParameterVector& point, ParameterVector& direction);
  /// Which model is shown while the fit runs, and in whose window the abort key is read.
  bool (*IsAmplitude)();
  /// Which model's views are repainted when the fit has ended.
  bool (*RepaintsAmplitude)();
};

/// How a fit is watched. The two Show functions take the point of a pass into the model's terms,
/// bring what lies outside of the axis back to its end, in `point` too, draw, and return 0, or -1
/// when a term had left the axis. `iteration` counts from 0.
struct FitDisplay {
  std::int32_t (*ShowAmplitudeIteration)(Workspace& workspace, ParameterVector& point,
                                         std::int32_t iteration);
  std::int32_t (*ShowDurationIteration)(Workspace& workspace, ParameterVector& point,
                                        std::int32_t iteration);
  void (*RepaintView)(Workspace& workspace, ViewKind view);
};

}  // namespace ondrel
