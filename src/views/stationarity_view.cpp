#include "views/stationarity_view.h"

#include <cstdint>

#include "derived/stationarity.h"
#include "output/plot_primitives.h"
#include "views/axis_drawing.h"
#include "views/graph_window.h"
#include "workspace/number_text.h"
#include "workspace/report.h"

namespace ondrel {
namespace {

/// Numbers in exponent notation need more room beside the axis than those of other graphs.
constexpr double kLeftGapOfStationarity = 6.8;

/// The box lets paint messages through: this view may be laid out for another rectangle and find
/// the memory that is missing here.
void ReportNoMemory(Workspace& workspace) {
  GraphFrame& frame = ViewOf(workspace, ViewKind::Stationarity).Frame;
  const GraphFrame keptFrame = frame;
  ReportFailure(workspace.Frame,
                {TextId::InsufficientMemoryFor, "stationary plot", TextId::ReduceEntries});
  frame = keptFrame;
  FreeSamples(workspace.Stationarity);
}

bool HasSamples(const StationaritySettings& plot) {
  return plot.SampleCount > 0;
}

/// A plot that is very low has no room for a step of the axis.
bool HasValueScale(const StationaritySettings& plot) {
  return HasSamples(plot) && plot.ValueTickPixels > 0.0;
}

// --- Axes ----------------------------------------------------------------------------------------

/// The distances of this view come from its height, `height`, on both axes.
void DrawTimeAxis(const AxisDrawing& axis, double height, const StationaritySettings& plot) {
  const GraphFrame& frame = axis.Frame;
  DrawAxisTitle(axis, HorizontalTitlePlace(frame, height), "Time (s)");
  DrawHorizontalLine(axis);
  if (!HasSamples(plot) || !(plot.TickPixels > 0.0)) return;
  double time = 0.0;
  for (std::int32_t k = 0; k < kMostTicks; ++k) {
    const double x = frame.PlotLeft + k * plot.TickPixels;
    if (LiesBeyond(x, frame.PlotRight)) return;
    DrawTickBelow(axis, x, MajorTickLength(height));
    char text[kNumberTextSize] = "";
    RealText(time, plot.TimeDecimals, 'f', text);
    DrawNumberFrom(axis, x, frame.PlotBottom + NumberDistance(height), text);
    time += plot.TickSpacing;
  }
}

const char* TitleOf(StationarityType type) {
  switch (type) {
    case StationarityType::One:
      return "Probability";
    case StationarityType::Amplitude:
      return "Amplitude (A)";
    case StationarityType::Duration:
      return "Duration (s)";
    case StationarityType::Level:
      break;
  }
  return "Level";
}

/// Currents are shown in amperes, and in decimals they would all be 0.
void ValueText(StationarityType type, double value, char* text) {
  if (type == StationarityType::Amplitude) {
    RealText(value, 2, 'E', text);
  } else {
    RealText(value, 3, 'f', text);
  }
}

void DrawSampleTicks(const AxisDrawing& axis, double height, const StationaritySettings& plot) {
  const GraphFrame& frame = axis.Frame;
  double value = plot.ValueMin;
  for (std::int32_t k = 0; k < kMostTicks; ++k) {
    const double y = frame.PlotBottom - k * plot.ValueTickPixels;
    if (LiesBeyond(frame.PlotTop, y)) return;
    DrawTickBeside(axis, y, MajorTickLength(height));
    char text[kNumberTextSize] = "";
    ValueText(plot.Type, NumberOfAxis(value, plot.ValueMin), text);
    DrawNumberUpTo(axis, VerticalNumberEnd(frame), y, text);
    value += plot.ValueTick;
  }
}

void DrawSampleAxis(const AxisDrawing& axis, double height, const StationaritySettings& plot) {
  DrawAxisTitle(axis, VerticalTitlePlace(axis.Frame), TitleOf(plot.Type));
  DrawVerticalLine(axis);
  if (HasValueScale(plot)) DrawSampleTicks(axis, height, plot);
}

// --- Curve ---------------------------------------------------------------------------------------

/// One sample for each device unit.
void DrawCurve(const Drawing& drawing, const ViewState& view, const StationaritySettings& plot) {
  if (!HasValueScale(plot)) return;
  const GraphFrame& frame = view.Frame;
  const double scale = plot.ValueTickPixels / plot.ValueTick;
  const double start =
      frame.PlotLeft + kKernelReach * plot.Tau * plot.TickPixels / plot.TickSpacing;
  const auto yOf = [&](std::int32_t place) {
    return plot.ValueMin * scale + frame.PlotBottom - scale * plot.StationaritySamples[place];
  };
  SetStrokeColor(drawing, ColorOf(view, PlotColor::Plot));
  MoveTo(drawing, start, yOf(0));
  for (std::int32_t place = 1; place < plot.SampleCount && !HasFailed(drawing); ++place) {
    LineTo(drawing, start + place, yOf(place));
  }
  if (!HasFailed(drawing)) StrokePath(drawing);
}

void LayOut(Workspace& workspace, const Destination& destination) {
  ComputeStationarity(workspace, destination.Rect);
}

void Draw(Workspace& workspace, const Destination& destination) {
  DrawStationarity(workspace, destination.Sink, destination.Rect);
}

}  // namespace

void ComputeStationarity(Workspace& workspace, const IntRect& rect) {
  StationaritySettings& plot = workspace.Stationarity;
  GraphFrame& frame = ViewOf(workspace, ViewKind::Stationarity).Frame;
  frame = FrameIn(rect, kLeftGapOfStationarity);
  ScaleTimeAxis(plot, frame.PlotRight - frame.PlotLeft, MeasuringDevice(workspace.Graphics));
  if (!SampleStationarity(workspace)) {
    ReportNoMemory(workspace);
    return;
  }
  if (HasSamples(plot)) ScaleValueAxis(plot, frame.PlotBottom - frame.PlotTop);
}

void DrawStationarity(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect) {
  const StationaritySettings& plot = workspace.Stationarity;
  const ViewState& view = ViewOf(workspace, ViewKind::Stationarity);
  const double height = GraphHeight(rect);
  const AxisDrawing axis{.Target = {sink, workspace.Graphics},
                         .Frame = view.Frame,
                         .LabelColor = ColorOf(view, PlotColor::Labels),
                         .AxisColor = ColorOf(view, PlotColor::Axes),
                         .ShowAxes = plot.ShowAxes,
                         .ShowLabels = plot.ShowLabels};
  DrawTimeAxis(axis, height, plot);
  if (HasFailed(axis.Target)) return;
  DrawSampleAxis(axis, height, plot);
  if (HasFailed(axis.Target)) return;
  DrawCurve(axis.Target, view, plot);
}

const ViewRoutines kStationarityViewRoutines = {
    .Paint = PaintGraphView<ViewKind::Stationarity>,
    .LayOut = LayOut,
    .Draw = Draw,
    .MoveForMetafile = MoveLabelsOf<ViewKind::Stationarity>,
};

}  // namespace ondrel
