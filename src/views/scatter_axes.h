// The axes of the scatter plots. All take their distances from `width`, the width of the view.
#pragma once

#include <cstdint>

#include "derived/plot_settings.h"
#include "views/axis_drawing.h"

namespace ondrel {

/// A linear horizontal axis of values of levels or of their sweeps.
struct ValueAxis {
  ScatterValue Value = ScatterValue::SweepRelevant;
  double Minimum = 0.0;  // at the left edge
  std::int32_t TickMarks = 1;
  double PerTick = 0.0;
  double PixelsPerTick = 0.0;
};

/// A linear vertical axis of amplitudes.
struct AmplitudeAxis {
  double Minimum = 0.0;  // A, at the bottom edge
  std::int32_t Ticks = 1;
  double PaPerTick = 0.0;
  double PixelsPerUnit = 0.0;  // a unit is 1 pA
};

/// A logarithmic axis of durations, of either direction.
struct DurationAxis {
  std::int32_t MinimumExponent = 0;
  std::int32_t Decades = 1;
  std::int32_t TicksPerDecade = 1;
  double PixelsPerDecade = 0.0;
};

/// `TickMarks` counts intervals: there is one more tick than that.
void DrawValueAxis(const AxisDrawing& axis, double width, const ValueAxis& scale);

/// `Ticks` counts ticks, the one at the bottom edge included.
void DrawAmplitudeAxis(const AxisDrawing& axis, double width, const AmplitudeAxis& scale);

// A minor tick beyond the end of the plot ends the axis before the number of its decade is written:
// with ticks the last number is missing where the axis fills the plot.
void DrawHorizontalDurationAxis(const AxisDrawing& axis, double width, const DurationAxis& scale);
void DrawVerticalDurationAxis(const AxisDrawing& axis, double width, const DurationAxis& scale);

}  // namespace ondrel
