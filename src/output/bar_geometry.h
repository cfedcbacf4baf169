// Where the bars of a histogram stand in a plot: the same in every form of the drawing table.
#pragma once

#include <algorithm>
#include <cstdint>

#include "fit/histogram_records.h"
#include "output/graphics_sink.h"
#include "workspace/geometry.h"

namespace ondrel {

/// The plot that a bar operation is given, device units.
struct BarPlot {
  double Left = 0.0;
  double Base = 0.0;
  double Right = 0.0;
  double Top = 0.0;
};

/// One bar, device units; it stands on the plot's base.
struct BarRecord {
  double Left = 0.0;
  double Right = 0.0;
  double Top = 0.0;
};

/// Top of a bar for a bin of this `value`. What would be higher than the plot, or is no number, is
/// cut off at its top.
inline double TopOfBar(const GraphicsContext& context, const BarPlot& plot, double value) {
  const double height = context.BinFitHeight != 0 ? (plot.Base - plot.Top) * value / context.BinPeak
                                                  : value * context.BinScale;
  return std::max(plot.Top, plot.Base - height);
}

/// Calls `draw` for each bar from left to right, up to the first one that does not end within the
/// plot, for which it calls `stop`. Each stands at the edge of the one before it. Returns the edge
/// behind the last one drawn.
template <typename Draw, typename Stop>
double ForEachBar(const GraphicsContext& context, const BarPlot& plot, const BinRecord* bins,
                  Draw draw, Stop stop) {
  double edge = plot.Left;
  for (std::int32_t i = 0; i < context.BinCount; ++i) {
    const BarRecord bar{.Left = edge,
                        .Right = edge + context.BinWidth,
                        .Top = TopOfBar(context, plot, bins[i + 1].Height)};
    if (LiesBeyond(bar.Right, plot.Right)) {
      stop(bar);
      break;
    }
    draw(bar);
    edge = bar.Right;
  }
  return edge;
}

/// The same for a form that does nothing with the bar at which it stops.
template <typename Draw>
double ForEachBar(const GraphicsContext& context, const BarPlot& plot, const BinRecord* bins,
                  Draw draw) {
  return ForEachBar(context, plot, bins, draw, [](const BarRecord&) {});
}

}  // namespace ondrel
