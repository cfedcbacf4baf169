// The parts of the axes of a graph: lines and ticks, titles and numbers. All graph views draw
// theirs with these.
#pragma once

#include <algorithm>
#include <cstdint>

#include "output/plot_primitives.h"
#include "views/graph_frame.h"
#include "views/view_state.h"
#include "workspace/geometry.h"

namespace ondrel {

/// More ticks than any device can tell apart; settings ask for any number of them.
inline constexpr std::int32_t kMostTicks = 1 << 14;

/// A setting as a number of ticks that can be drawn.
constexpr std::int32_t CountTicks(std::int32_t setting) {
  return std::clamp(setting, 1, kMostTicks);
}

/// Where one tick alone would be no axis, the dialogs ask for two.
constexpr std::int32_t AtLeastTwo(std::int32_t setting) {
  return std::max(setting, 2);
}

/// A setting as a number that can be divided by.
constexpr double AtLeastOne(std::int32_t setting) {
  return std::max(setting, 1);
}

/// The axes while they are drawn, one after the other: what the user has switched off is left out.
/// Each line and each text has its colour set before it: labels are filled and axes stroked, but a
/// screen and an EPS document know one colour for both.
struct AxisDrawing {
  Drawing Target;
  const GraphFrame& Frame;
  RgbColor LabelColor;
  RgbColor AxisColor;
  bool ShowAxes = true;
  bool ShowLabels = true;
};

/// Any line of an axis.
void DrawAxisLine(const AxisDrawing& axis, double x1, double y1, double x2, double y2);
/// The axes themselves: the lower and the left edge of the plot.
void DrawHorizontalLine(const AxisDrawing& axis);
void DrawVerticalLine(const AxisDrawing& axis);
/// Ticks go outward from the plot.
void DrawTickBelow(const AxisDrawing& axis, double x, double length);
void DrawTickBeside(const AxisDrawing& axis, double y, double length);
/// A title that begins at `place`.
void DrawAxisTitle(const AxisDrawing& axis, const GraphPlace& place, const char* text);

// A number with its middle, its beginning, or its end at `x`.
void DrawNumberAt(const AxisDrawing& axis, double x, double y, const char* text);
void DrawNumberFrom(const AxisDrawing& axis, double x, double y, const char* text);
void DrawNumberUpTo(const AxisDrawing& axis, double x, double y, const char* text);

/// A number of an axis that was added up in steps from `start`. Where the numbers pass 0 it is 0,
/// not what rounding leaves of it, which would be shown as "-0.0" or as "1.11E-16".
double NumberOfAxis(double number, double start);

}  // namespace ondrel
