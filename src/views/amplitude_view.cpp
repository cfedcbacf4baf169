#include "views/amplitude_view.h"

#include <algorithm>
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
          .View = ViewOf(workspace, ViewKind::Amplitude),
          .ShowAxes = workspace.Amplitude.ShowAxes,
          .ShowLabels = workspace.Amplitude.ShowLabels};
}

bool LiesOnAxis(const AmplitudeHistogram& histogram, const AmplitudeTerm& term) {
  return term.Current >= histogram.Minimum && term.Current <= MaximumOf(histogram);
}

void DrawCurve(const Drawing& drawing, const Workspace& workspace, std::int32_t first,
               std::int32_t end) {
  const GraphFrame& frame = ViewOf(workspace, ViewKind::Amplitude).Frame;
  DrawAmplitudeCurve(drawing, workspace.Amplitude, frame.PlotLeft, frame.PlotTop, frame.PlotBottom,
                     first, end);
}

void PaintAmplitude(ChildWindow* window, const DeviceRecord& device) {
  PaintHistogram(window, ViewKind::Amplitude, device);
}

}  // namespace

void DrawAmplitude(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect) {
  const Drawing drawing{sink, workspace.Graphics};
  GraphFrame& frame = ViewOf(workspace, ViewKind::Amplitude).Frame;
  LayoutAmplitude(workspace, sink, rect);
  const double base = frame.PlotBottom;
  frame.PlotBottom += 1.0;  // the axis stands just below the bars
  DrawAmplitudeXAxis(workspace, sink, rect);
  frame.PlotBottom = base;
  if (HasFailed(drawing)) return;
  DrawAmplitudeYAxis(workspace, sink, rect);
  if (HasFailed(drawing)) return;
  DrawAmplitudeBars(workspace, sink);
  if (HasFailed(drawing)) return;
  DrawAmplitudeFit(workspace, sink);
}

void DrawAmplitudeXAxis(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect) {
  const AmplitudeHistogram& histogram = workspace.Amplitude;
  const GraphFrame& frame = ViewOf(workspace, ViewKind::Amplitude).Frame;
  const Drawing drawing{sink, workspace.Graphics};
  AxisDrawing axis = BeginAxis(drawing, workspace);
  const double height = static_cast<double>(rect.Bottom) - rect.Top;
  const double base = frame.PlotBottom;
  DrawAxisTitle(axis, (frame.PlotRight - frame.PlotLeft) / 3.0 + frame.PlotLeft,
                base + height / 7.0, "Amplitude (pA)");
  DrawAxisLine(axis, frame.PlotLeft, base, frame.PlotRight, base);
  double value = histogram.Minimum;
  for (std::int32_t k = 0; k <= std::min(histogram.TickMarks, kMostTicks); ++k) {
    const double x = frame.PlotLeft + k * histogram.PixelsPerTick;
    DrawAxisLine(axis, x, base, x, base + height / 48.0);
    char text[kNumberTextSize] = "";
    RealText(value, 1, 'f', text);
    DrawNumberAt(axis, x, base + height / 15.0, text);
    value += histogram.PerTick;
  }
}

void DrawAmplitudeYAxis(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect) {
  const AmplitudeHistogram& histogram = workspace.Amplitude;
  const Drawing drawing{sink, workspace.Graphics};
  AxisDrawing axis = BeginAxis(drawing, workspace);
  CountScale scale = ScaleOf(histogram);
  scale.HasTicks = histogram.YMaximum > 0.0;
  DrawCountAxis(axis, axis.View.Frame, static_cast<double>(rect.Right) - rect.Left, scale);
}

void DrawAmplitudeBars(Workspace& workspace, const GraphicsSink& sink) {
  const AmplitudeHistogram& histogram = workspace.Amplitude;
  if (histogram.Bins == nullptr || !(histogram.YMaximum > 0.0)) return;
  DescribeBins(workspace.Graphics, histogram);
  DrawBarsOf({sink, workspace.Graphics}, ViewOf(workspace, ViewKind::Amplitude),
             histogram.HistogramStyle, histogram.Bins);
}

void DrawAmplitudeFit(Workspace& workspace, const GraphicsSink& sink) {
  if (ViewOf(workspace, ViewKind::AmplitudeFit).Window == nullptr) return;
  AmplitudeHistogram& histogram = workspace.Amplitude;
  const Drawing drawing{sink, workspace.Graphics};
  const FitStyle style = histogram.FitStyle;
  const std::int32_t terms = UsedTerms(histogram.TermCount);
  DescribeBins(workspace.Graphics, histogram);
  SetStrokeColor(drawing, ColorOf(ViewOf(workspace, ViewKind::Amplitude), HistogramColor::Fit));
  if (style == FitStyle::Sum || style == FitStyle::Both) DrawCurve(drawing, workspace, 0, terms);
  histogram.MarkerCount = 0;
  for (std::int32_t term = 0; term < terms; ++term) {
    if (HasFailed(drawing)) return;
    if (LiesOnAxis(histogram, histogram.Terms[static_cast<std::size_t>(term)])) {
      PlaceAmplitudeMarker(workspace, sink, term, histogram.MarkerCount++);
    }
    if (HasFailed(drawing)) return;
    if (style == FitStyle::Component || style == FitStyle::Both) {
      DrawCurve(drawing, workspace, term, term + 1);
    }
  }
}

const ViewRoutines kAmplitudeViewRoutines = {.Paint = PaintAmplitude, .Mouse = &kAmplitudeMouse};

}  // namespace ondrel
