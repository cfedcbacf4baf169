// The frame of a graph: where a view that plots something puts its axes and what belongs to them.
// All graph views share it.
#pragma once

#include "views/view_state.h"
#include "workspace/geometry.h"

namespace ondrel {

/// What the width of the rectangle is divided by for the gap to the left of the plot. A view whose
/// numbers need more room takes less than this.
inline constexpr double kLeftGapDivisor = 8.0;

/// A place in a drawing, device units. Texts begin there, on their baseline.
struct GraphPlace {
  double X = 0.0;
  double Y = 0.0;
};

/// Sides of a rectangle, device units.
double GraphWidth(const IntRect& rect);
double GraphHeight(const IntRect& rect);

/// The frame of a graph that is drawn in `rect`.
GraphFrame FrameIn(const IntRect& rect, double leftGapDivisor = kLeftGapDivisor);

// The distances, device units. Each is a share of `reference`, the side of the rectangle from which
// a view takes the distances of this axis.
double MajorTickLength(double reference);
double MinorTickLength(double reference);
/// From the horizontal axis down to the baseline of its numbers, and of its title.
double NumberDistance(double reference);
double TitleDistance(double reference);

/// Where the numbers of the vertical axis end.
double VerticalNumberEnd(const GraphFrame& frame);

/// Where the titles of the two axes begin.
GraphPlace HorizontalTitlePlace(const GraphFrame& frame, double reference);
GraphPlace VerticalTitlePlace(const GraphFrame& frame);

}  // namespace ondrel
