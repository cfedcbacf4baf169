#include "views/duration_view.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "fit/histogram_axis.h"
#include "views/estimate_gestures.h"
#include "views/graph_frame.h"
#include "views/graph_window.h"
#include "views/histogram_layout.h"
#include "views/histogram_parts.h"
#include "views/histogram_window.h"
#include "views/term_markers.h"
#include "workspace/geometry.h"
#include "workspace/number_text.h"
#include "workspace/power_of_ten.h"

namespace ondrel {
namespace {

/// Below the lower half, where there is one.
GraphPlace TitlePlace(const DurationHistogram& histogram, const GraphFrame& frame, double height) {
  GraphPlace place = HorizontalTitlePlace(frame, height);
  if (!histogram.ConstrainPositive) {
    place.Y = TitleDistance(height) + (frame.PlotBottom - frame.PlotTop) * 2.0 + frame.PlotTop;
  }
  return place;
}

/// Where minor tick `m`, counted from 2, stands in its decade, as a share of it. The last one is
/// the next decade for any number of ticks; only with 9 ticks do they fall on 2, 3 ... 10 times the
/// decade.
double OffsetOfMinor(std::int32_t m, std::int32_t ticksPerDecade) {
  if (ticksPerDecade == 1) return 0.0;
  return std::log10(m) / std::log10(ticksPerDecade + 1);
}

/// False when a tick lies beyond the plot, which ends the axis, and when none of the `ticksLeft` is
/// left.
bool DrawMinorTicks(const AxisDrawing& axis, const DurationHistogram& histogram, double start,
                    double length, std::int32_t& ticksLeft) {
  const GraphFrame& frame = axis.Frame;
  const std::int32_t ticks = CountTicks(histogram.TicksPerDecade);
  for (std::int32_t m = 2; m <= ticks + 1; ++m) {
    const double x = start + OffsetOfMinor(m, ticks) * histogram.PixelsPerDecade;
    if (LiesBeyond(x, frame.PlotRight) || ticksLeft <= 0) return false;
    --ticksLeft;
    DrawAxisLine(axis, x, frame.PlotBottom, x, frame.PlotBottom + length);
  }
  return true;
}

void DrawXAxis(const AxisDrawing& axis, const DurationHistogram& histogram, const IntRect& rect) {
  const GraphFrame& frame = axis.Frame;
  const double height = GraphHeight(rect);
  const double base = frame.PlotBottom;
  DrawAxisTitle(axis, TitlePlace(histogram, frame, height), "log Duration (s)");
  DrawAxisLine(axis, frame.PlotLeft, base, frame.PlotRight, base);
  std::int32_t ticksLeft = kMostTicks;
  for (std::int32_t k = 0; k <= CountTicks(histogram.Decades); ++k) {
    const double x = frame.PlotLeft + k * histogram.PixelsPerDecade;
    DrawAxisLine(axis, x, base, x, base + MajorTickLength(height));
    char text[kNumberTextSize] = "";
    IntegerText(TruncateToInteger(static_cast<double>(histogram.MinimumExponent) + k), text);
    DrawNumberAt(axis, x, base + NumberDistance(height), text);
    if (!DrawMinorTicks(axis, histogram, x, MinorTickLength(height), ticksLeft)) return;
  }
}

/// Unlike the twin, which asks for a count above 0.
bool HasTicks(const DurationHistogram& histogram) {
  return histogram.YMaximum != 0.0;
}

bool IsMirrored(const DurationHistogram& histogram) {
  return !histogram.ConstrainPositive;
}

/// The right end is one power of the sum: the product of two powers can come out below it.
bool LiesOnAxis(const DurationHistogram& histogram, std::size_t term) {
  const double time = histogram.Terms[term].TimeConstant;
  return time >= PowerOfTen(histogram.MinimumExponent) && time <= PowerOfTen(MaximumOf(histogram));
}

constexpr HistogramTwin<DurationHistogram> kTwin = {
    .View = ViewKind::Duration,
    .Shown = &Workspace::Duration,
    .DrawXAxis = DrawXAxis,
    .HasTicks = HasTicks,
    .IsMirrored = IsMirrored,
    .LiesOnAxis = LiesOnAxis,
    .PlaceMarker = PlaceDurationMarker,
    .DrawCurve = DrawDurationCurve,
};

void LayOut(Workspace& workspace, const Destination& destination) {
  LayoutDuration(workspace, destination.Sink, destination.Rect);
}

void Draw(Workspace& workspace, const Destination& destination) {
  DrawDuration(workspace, destination.Sink, destination.Rect);
}

}  // namespace

void DrawDuration(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect) {
  DrawSteps(kTwin, workspace, sink, rect);
}

void DrawDurationXAxis(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect) {
  const AxisDrawing axis = BeginAxes(kTwin, workspace, sink);
  DrawXAxis(axis, workspace.Duration, rect);
}

void DrawDurationYAxis(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect) {
  const AxisDrawing axis = BeginAxes(kTwin, workspace, sink);
  DrawYAxisOf(kTwin, axis, workspace.Duration, rect);
}

void DrawDurationBars(Workspace& workspace, const GraphicsSink& sink) {
  DrawBarsOf(kTwin, workspace, sink);
}

void DrawDurationFit(Workspace& workspace, const GraphicsSink& sink) {
  DrawFitOf(kTwin, workspace, sink);
}

const ViewRoutines kDurationViewRoutines = {
    .Paint = PaintHistogramView<ViewKind::Duration>,
    .LayOut = LayOut,
    .Draw = Draw,
    .MoveForMetafile = MoveLabelsOf<ViewKind::Duration>,
    .Mouse = &kDurationMouse,
};

}  // namespace ondrel
