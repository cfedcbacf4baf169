#include "views/amplitude_view.h"

#include <cstdint>

#include "fit/histogram_axis.h"
#include "views/estimate_gestures.h"
#include "views/graph_frame.h"
#include "views/graph_window.h"
#include "views/histogram_layout.h"
#include "views/histogram_parts.h"
#include "views/histogram_window.h"
#include "views/term_markers.h"
#include "workspace/number_text.h"

namespace ondrel {
namespace {

void DrawXAxis(const AxisDrawing& axis, const AmplitudeHistogram& histogram, const IntRect& rect) {
  const GraphFrame& frame = axis.Frame;
  const double height = GraphHeight(rect);
  const double base = frame.PlotBottom;
  DrawAxisTitle(axis, HorizontalTitlePlace(frame, height), "Amplitude (pA)");
  DrawAxisLine(axis, frame.PlotLeft, base, frame.PlotRight, base);
  double value = histogram.Minimum;
  for (std::int32_t k = 0; k <= CountTicks(histogram.TickMarks); ++k) {
    const double x = frame.PlotLeft + k * histogram.PixelsPerTick;
    DrawAxisLine(axis, x, base, x, base + MajorTickLength(height));
    char text[kNumberTextSize] = "";
    RealText(value, 1, 'f', text);
    DrawNumberAt(axis, x, base + NumberDistance(height), text);
    value += histogram.PerTick;
  }
}

/// Unlike the twin, which asks for any count but 0.
bool HasTicks(const AmplitudeHistogram& histogram) {
  return histogram.YMaximum > 0.0;
}

bool IsMirrored(const AmplitudeHistogram&) {
  return false;
}

bool LiesOnAxis(const AmplitudeHistogram& histogram, std::size_t term) {
  const double current = histogram.Terms[term].Current;
  return current >= histogram.Minimum && current <= MaximumOf(histogram);
}

constexpr HistogramTwin<AmplitudeHistogram> kTwin = {
    .View = ViewKind::Amplitude,
    .Shown = &Workspace::Amplitude,
    .DrawXAxis = DrawXAxis,
    .HasTicks = HasTicks,
    .IsMirrored = IsMirrored,
    .LiesOnAxis = LiesOnAxis,
    .PlaceMarker = PlaceAmplitudeMarker,
    .DrawCurve = DrawAmplitudeCurve,
};

void LayOut(Workspace& workspace, const Destination& destination) {
  LayoutAmplitude(workspace, destination.Sink, destination.Rect);
}

void Draw(Workspace& workspace, const Destination& destination) {
  DrawAmplitude(workspace, destination.Sink, destination.Rect);
}

}  // namespace

void DrawAmplitude(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect) {
  DrawSteps(kTwin, workspace, sink, rect);
}

void DrawAmplitudeXAxis(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect) {
  const AxisDrawing axis = BeginAxes(kTwin, workspace, sink);
  DrawXAxis(axis, workspace.Amplitude, rect);
}

void DrawAmplitudeYAxis(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect) {
  const AxisDrawing axis = BeginAxes(kTwin, workspace, sink);
  DrawYAxisOf(kTwin, axis, workspace.Amplitude, rect);
}

void DrawAmplitudeBars(Workspace& workspace, const GraphicsSink& sink) {
  DrawBarsOf(kTwin, workspace, sink);
}

void DrawAmplitudeFit(Workspace& workspace, const GraphicsSink& sink) {
  DrawFitOf(kTwin, workspace, sink);
}

const ViewRoutines kAmplitudeViewRoutines = {
    .Paint = PaintHistogramView<ViewKind::Amplitude>,
    .LayOut = LayOut,
    .Draw = Draw,
    .MoveForMetafile = MoveLabelsOf<ViewKind::Amplitude>,
    .Mouse = &kAmplitudeMouse,
};

}  // namespace ondrel
