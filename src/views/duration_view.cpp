#include "views/duration_view.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "fit/histogram_axis.h"
#include "views/estimate_gestures.h"
#include "views/histogram_layout.h"
#include "views/histogram_parts.h"
#include "views/histogram_window.h"
#include "views/term_markers.h"
#include "workspace/number_text.h"

namespace ondrel {
namespace {

AxisDrawing BeginAxis(const Drawing& drawing, const Workspace& workspace) {
  return {.Target = drawing,
          .View = ViewOf(workspace, ViewKind::Duration),
          .ShowAxes = workspace.Duration.ShowAxes,
          .ShowLabels = workspace.Duration.ShowLabels};
}

bool LiesOnAxis(const DurationHistogram& histogram, const DurationTerm& term) {
  return term.TimeConstant >= std::pow(10.0, histogram.MinimumExponent) &&
         term.TimeConstant <= std::pow(10.0, MaximumOf(histogram));
}

void DrawCurve(const Drawing& drawing, const Workspace& workspace, std::int32_t first,
               std::int32_t end) {
  const GraphFrame& frame = ViewOf(workspace, ViewKind::Duration).Frame;
  DrawDurationCurve(drawing, workspace.Duration, frame.PlotLeft, frame.PlotTop, frame.PlotBottom,
                    first, end);
}

/// Below the lower half, where there is one.
double TitleBaseline(const DurationHistogram& histogram, const GraphFrame& frame, double height) {
  if (histogram.ConstrainPositive) return frame.PlotBottom + height / 7.0;
  return height / 7.0 + (frame.PlotBottom - frame.PlotTop) * 2.0 + frame.PlotTop;
}

/// Where minor tick `m`, counted from 2, stands in its decade, as a share of it. The last one is
/// the next decade for any number of ticks, so only nine of them stand at whole multiples of a
/// time.
double OffsetOfMinor(std::int32_t m, std::int32_t ticksPerDecade) {
  if (ticksPerDecade == 1) return 0.0;
  return std::log10(m) / std::log10(ticksPerDecade + 1);
}

/// False when a tick lies beyond the plot, which ends the axis, and when none of the `ticksLeft` is
/// left.
bool DrawMinorTicks(AxisDrawing& axis, const DurationHistogram& histogram, double start,
                    double length, std::int32_t& ticksLeft) {
  const GraphFrame& frame = axis.View.Frame;
  const std::int32_t ticks = std::clamp(histogram.TicksPerDecade, 1, kMostTicks);
  for (std::int32_t m = 2; m <= ticks + 1; ++m) {
    const double x = start + OffsetOfMinor(m, ticks) * histogram.PixelsPerDecade;
    if (LiesBeyond(x, frame.PlotRight) || ticksLeft <= 0) return false;
    --ticksLeft;
    DrawAxisLine(axis, x, frame.PlotBottom, x, frame.PlotBottom + length);
  }
  return true;
}

void PaintDuration(ChildWindow* window, const DeviceRecord& device) {
  PaintHistogram(window, ViewKind::Duration, device);
}

}  // namespace

void DrawDuration(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect) {
  const Drawing drawing{sink, workspace.Graphics};
  GraphFrame& frame = ViewOf(workspace, ViewKind::Duration).Frame;
  LayoutDuration(workspace, sink, rect);
  const double base = frame.PlotBottom;
  frame.PlotBottom += 1.0;  // the axis stands just below the bars
  DrawDurationXAxis(workspace, sink, rect);
  frame.PlotBottom = base;
  if (HasFailed(drawing)) return;
  DrawDurationYAxis(workspace, sink, rect);
  if (HasFailed(drawing)) return;
  DrawDurationBars(workspace, sink);
  if (HasFailed(drawing)) return;
  DrawDurationFit(workspace, sink);
}

void DrawDurationXAxis(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect) {
  const DurationHistogram& histogram = workspace.Duration;
  const GraphFrame& frame = ViewOf(workspace, ViewKind::Duration).Frame;
  const Drawing drawing{sink, workspace.Graphics};
  AxisDrawing axis = BeginAxis(drawing, workspace);
  const double height = static_cast<double>(rect.Bottom) - rect.Top;
  const double base = frame.PlotBottom;
  DrawAxisTitle(axis, (frame.PlotRight - frame.PlotLeft) / 3.0 + frame.PlotLeft,
                TitleBaseline(histogram, frame, height), "log Duration (s)");
  DrawAxisLine(axis, frame.PlotLeft, base, frame.PlotRight, base);
  std::int32_t ticksLeft = kMostTicks;
  for (std::int32_t k = 0; k <= std::min(histogram.Decades, kMostTicks); ++k) {
    const double x = frame.PlotLeft + k * histogram.PixelsPerDecade;
    DrawAxisLine(axis, x, base, x, base + height / 48.0);
    char text[kNumberTextSize] = "";
    IntegerText(TruncateToInteger(static_cast<double>(histogram.MinimumExponent) + k), text);
    DrawNumberAt(axis, x, base + height / 15.0, text);
    if (!DrawMinorTicks(axis, histogram, x, height / 75.0, ticksLeft)) return;
  }
}

void DrawDurationYAxis(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect) {
  const DurationHistogram& histogram = workspace.Duration;
  const Drawing drawing{sink, workspace.Graphics};
  AxisDrawing axis = BeginAxis(drawing, workspace);
  CountScale scale = ScaleOf(histogram);
  scale.HasTicks = histogram.YMaximum != 0.0;
  scale.Mirrored = !histogram.ConstrainPositive;
  DrawCountAxis(axis, axis.View.Frame, static_cast<double>(rect.Right) - rect.Left, scale);
}

void DrawDurationBars(Workspace& workspace, const GraphicsSink& sink) {
  const DurationHistogram& histogram = workspace.Duration;
  if (histogram.Bins == nullptr || histogram.YMaximum == 0.0) return;
  DescribeBins(workspace.Graphics, histogram);
  DrawBarsOf({sink, workspace.Graphics}, ViewOf(workspace, ViewKind::Duration),
             histogram.HistogramStyle, histogram.Bins);
}

void DrawDurationFit(Workspace& workspace, const GraphicsSink& sink) {
  if (ViewOf(workspace, ViewKind::DurationFit).Window == nullptr) return;
  DurationHistogram& histogram = workspace.Duration;
  const Drawing drawing{sink, workspace.Graphics};
  const FitStyle style = histogram.FitStyle;
  const std::int32_t terms = UsedTerms(histogram.TermCount);
  DescribeBins(workspace.Graphics, histogram);
  SetStrokeColor(drawing, ColorOf(ViewOf(workspace, ViewKind::Duration), HistogramColor::Fit));
  if (style == FitStyle::Sum || style == FitStyle::Both) DrawCurve(drawing, workspace, 0, terms);
  histogram.MarkerCount = 0;
  for (std::int32_t term = 0; term < terms; ++term) {
    if (HasFailed(drawing)) return;
    if (LiesOnAxis(histogram, histogram.Terms[static_cast<std::size_t>(term)])) {
      PlaceDurationMarker(workspace, sink, term, histogram.MarkerCount++);
    }
    if (HasFailed(drawing)) return;
    if (style == FitStyle::Component || style == FitStyle::Both) {
      DrawCurve(drawing, workspace, term, term + 1);
    }
  }
}

const ViewRoutines kDurationViewRoutines = {.Paint = PaintDuration, .Mouse = &kDurationMouse};

}  // namespace ondrel
