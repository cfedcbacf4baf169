// Minimisation along one direction after the other without derivatives (Powell 1964), each line by
// a bracket of golden-ratio steps and Brent's method (Brent 1973), with this program's departures
// from the textbook.
#pragma once

#include <cstdint>

#include "fit/fit_operations.h"
#include "workspace/workspace.h"

namespace ondrel {

/// The value of a point that breaks a sign constraint, and of an extrapolated one below the floor
/// of a parameter. It does not grow with the histogram: where the true objective lies above it,
/// such a point looks better than an allowed one.
inline constexpr double kPenalty = 1000000.0;

/// A line through `Point` along `Direction`, on which positions are steps in units of the
/// direction.
struct SearchLine {
  const ondrel::Workspace& Workspace;  // whose histograms are fitted
  const FitOperations& Operations;
  const ParameterVector& Point;
  const ParameterVector& Direction;
  std::int32_t Count;
};

/// A position on a line and the value there.
struct LinePoint {
  double Step = 0.0;
  double Value = 0.0;
};

/// Three points of a line. The outer ones need not be in order.
struct Bracket {
  LinePoint A;
  LinePoint B;
  LinePoint C;
};

/// The objective at a position of the line, with the weights normalised; kPenalty where a sign
/// constraint is broken.
double LineValue(const SearchLine& line, double step);

/// Goes downhill from the first two steps, in the direction in which the value falls between them,
/// until the value at C is not below that at B. It also ends when the objective falls for ever.
Bracket BracketMinimum(const SearchLine& line, double firstStep, double secondStep);

/// The lowest point found inside a bracket. `iterations` limits the search; running out of them is
/// no failure. Besides `relativeTolerance`, steps below 1e-10 are not resolved.
LinePoint BrentMinimise(const SearchLine& line, const Bracket& bracket, double relativeTolerance,
                        std::int32_t iterations);

/// Moves `point` along `direction` to the best step, at most `LineSearchLimit` iterations of the
/// workspace, scales `direction` by that step, and puts the value there into `value`.
void LineMinimise(const Workspace& workspace, const FitOperations& operations,
                  ParameterVector& point, ParameterVector& direction, std::int32_t count,
                  double& value);

}  // namespace ondrel
