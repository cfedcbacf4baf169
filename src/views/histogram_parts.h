// What the two histogram views draw alike: the parts of their axes, the axis of counts and the
// bars.
#pragma once

#include <algorithm>
#include <cstdint>

#include "fit/histogram_axis.h"
#include "output/plot_primitives.h"
#include "views/view_state.h"
#include "workspace/truncate.h"
#include "workspace/workspace.h"

namespace ondrel {

/// More ticks than any device can tell apart; settings ask for any number of them.
inline constexpr std::int32_t kMostTicks = 1 << 14;

enum class AxisPart : std::uint8_t { None, Labels, Axes };

/// One axis while it is drawn: what the user has switched off is left out, and the colour is set
/// where it changes.
struct AxisDrawing {
  const Drawing& Target;
  const ViewState& View;
  bool ShowAxes = true;
  bool ShowLabels = true;
  AxisPart InForce = AxisPart::None;  // whose colour is set
};

/// Lines and ticks.
void DrawAxisLine(AxisDrawing& axis, double x1, double y1, double x2, double y2);
/// A title that begins at `x`, on the baseline `y`.
void DrawAxisTitle(AxisDrawing& axis, double x, double y, const char* text);
/// A number with its middle at `x`.
void DrawNumberAt(AxisDrawing& axis, double x, double y, const char* text);
/// A number that ends at `x`.
void DrawNumberUpTo(AxisDrawing& axis, double x, double y, const char* text);

/// How counts stand on the vertical axis.
struct CountScale {
  double YMaximum = 0.0;  // counts, or their square root
  std::int32_t CountsPerTick = 1;
  double PixelsPerYTick = 0.0;
  bool SquareRootAxis = false;
  bool HasTicks = false;  // without them there is the number at the origin alone
  bool Mirrored = false;  // negative counts stand below the line of count zero
};

template <typename Histogram>
CountScale ScaleOf(const Histogram& histogram) {
  return {.YMaximum = histogram.YMaximum,
          .CountsPerTick = histogram.CountsPerTick,
          .PixelsPerYTick = histogram.PixelsPerYTick,
          .SquareRootAxis = histogram.SquareRootAxis};
}

/// The vertical axis at the left of `frame`, from its title to its ticks. `width` is that of the
/// view.
void DrawCountAxis(AxisDrawing& axis, const GraphFrame& frame, double width,
                   const CountScale& scale);

/// Terms that are in use, whatever `TermCount` says.
inline std::int32_t UsedTerms(std::int32_t termCount) {
  return std::clamp(termCount, 0, static_cast<std::int32_t>(kTermSlots));
}

/// Tells the sink of the histogram's bins, for bars and for curves.
template <typename Histogram>
void DescribeBins(GraphicsContext& context, const Histogram& histogram) {
  context.BinCount = TruncateToInteger(static_cast<double>(CountBins(histogram)));
  context.BinWidth = histogram.PixelsPerBin;
  context.BinScale = histogram.PixelsPerCount;
  context.BinPeak = histogram.YMaximum;
  context.BinFitHeight = histogram.SquareRootAxis ? 1 : 0;
}

/// The bars of the view in their style and colour. The bins must have been described.
void DrawBarsOf(const Drawing& drawing, const ViewState& view, HistogramStyle style,
                const BinRecord* bins);

}  // namespace ondrel
