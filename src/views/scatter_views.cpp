#include "views/scatter_views.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "derived/scatter_points.h"
#include "output/plot_primitives.h"
#include "views/graph_frame.h"
#include "views/graph_window.h"
#include "views/scatter_axes.h"
#include "workspace/units.h"

namespace ondrel {
namespace {

// --- Layout --------------------------------------------------------------------------------------

/// Even, so that half of it is whole: a dot then lies the same way about each place.
double SymbolPixels(double size, double dpi) {
  const double pixels = std::max(WholeUnits(size * dpi / kCentimetersPerInch), 0.0);
  return std::fmod(pixels, 2.0) == 0.0 ? pixels : pixels - 1.0;
}

double PixelsPerTick(const GraphFrame& frame, std::int32_t tickMarks) {
  return WholeUnits((frame.PlotRight - frame.PlotLeft) / AtLeastOne(tickMarks));
}

/// 0 without a step, which no dialog takes: then there are no places.
double PixelsPerUnit(const GraphFrame& frame, std::int32_t ticks, double paPerTick) {
  if (!(paPerTick > 0.0)) return 0.0;
  return WholeUnits((frame.PlotBottom - frame.PlotTop) / (AtLeastOne(ticks) * paPerTick));
}

double PixelsPerDecade(double length, std::int32_t decades) {
  return WholeUnits(length / AtLeastOne(decades));
}

ScatterLayout LayOut(const AmplitudeScatterSettings& plot, const GraphFrame& frame) {
  return {.XPixelsPerTick = PixelsPerTick(frame, plot.TickMarks),
          .YPixelsPerUnit = PixelsPerUnit(frame, AtLeastTwo(plot.AmplitudeTicks), plot.PaPerTick)};
}

ScatterLayout LayOut(const DurationScatterSettings& plot, const GraphFrame& frame) {
  return {.XPixelsPerTick = PixelsPerTick(frame, AtLeastTwo(plot.TickMarks)),
          .PixelsPerDecade = PixelsPerDecade(frame.PlotBottom - frame.PlotTop, plot.Decades)};
}

ScatterLayout LayOut(const ScatterSettings& plot, const GraphFrame& frame) {
  return {.YPixelsPerUnit = PixelsPerUnit(frame, plot.Ticks, plot.PaPerTick),
          .PixelsPerDecade = PixelsPerDecade(frame.PlotRight - frame.PlotLeft, plot.Decades)};
}

template <typename Settings>
void LayOutView(ViewState& view, const Settings& plot, const IntRect& rect, double dpi) {
  view.Frame = FrameIn(rect);
  view.Scatter = LayOut(plot, view.Frame);
  view.Scatter.SymbolPixels = SymbolPixels(plot.SymbolSize, dpi);
}

// --- Axes ----------------------------------------------------------------------------------------

template <typename Settings>
ValueAxis ValueAxisOf(const Settings& plot, const ScatterLayout& layout, std::int32_t tickMarks) {
  return {.Value = plot.Value,
          .Minimum = plot.Minimum,
          .TickMarks = tickMarks,
          .PerTick = plot.PerTick,
          .PixelsPerTick = layout.XPixelsPerTick};
}

template <typename Settings>
DurationAxis DurationAxisOf(const Settings& plot, const ScatterLayout& layout) {
  return {.MinimumExponent = plot.MinimumExponent,
          .Decades = plot.Decades,
          .TicksPerDecade = plot.TicksPerDecade,
          .PixelsPerDecade = layout.PixelsPerDecade};
}

// --- The plots -----------------------------------------------------------------------------------

struct AmplitudeScatterPlot {
  static constexpr ViewKind kView = ViewKind::AmplitudeScatter;
  static constexpr auto kSettings = &Workspace::AmplitudeScatter;

  static void DrawXAxis(const AxisDrawing& axis, double width, const AmplitudeScatterSettings& plot,
                        const ScatterLayout& layout) {
    DrawValueAxis(axis, width, ValueAxisOf(plot, layout, plot.TickMarks));
  }
  static void DrawYAxis(const AxisDrawing& axis, double width, const AmplitudeScatterSettings& plot,
                        const ScatterLayout& layout) {
    DrawAmplitudeAxis(axis, width,
                      {.Minimum = plot.AmplitudeMinimum,
                       .Ticks = AtLeastTwo(plot.AmplitudeTicks),
                       .PaPerTick = plot.PaPerTick,
                       .PixelsPerUnit = layout.YPixelsPerUnit});
  }
  template <typename Visit>
  static void ForEachPoint(const Workspace& workspace, Visit visit) {
    ForEachAmplitudeScatterPoint(workspace, visit);
  }
};

struct DurationScatterPlot {
  static constexpr ViewKind kView = ViewKind::DurationScatter;
  static constexpr auto kSettings = &Workspace::DurationScatter;

  static void DrawXAxis(const AxisDrawing& axis, double width, const DurationScatterSettings& plot,
                        const ScatterLayout& layout) {
    DrawValueAxis(axis, width, ValueAxisOf(plot, layout, AtLeastTwo(plot.TickMarks)));
  }
  static void DrawYAxis(const AxisDrawing& axis, double width, const DurationScatterSettings& plot,
                        const ScatterLayout& layout) {
    DrawVerticalDurationAxis(axis, width, DurationAxisOf(plot, layout));
  }
  template <typename Visit>
  static void ForEachPoint(const Workspace& workspace, Visit visit) {
    ForEachDurationScatterPoint(workspace, visit);
  }
};

struct AmplitudeDurationPlot {
  static constexpr ViewKind kView = ViewKind::Scatter;
  static constexpr auto kSettings = &Workspace::Scatter;

  static void DrawXAxis(const AxisDrawing& axis, double width, const ScatterSettings& plot,
                        const ScatterLayout& layout) {
    DrawHorizontalDurationAxis(axis, width, DurationAxisOf(plot, layout));
  }
  static void DrawYAxis(const AxisDrawing& axis, double width, const ScatterSettings& plot,
                        const ScatterLayout& layout) {
    DrawAmplitudeAxis(axis, width,
                      {.Minimum = plot.Minimum,
                       .Ticks = plot.Ticks,
                       .PaPerTick = plot.PaPerTick,
                       .PixelsPerUnit = layout.YPixelsPerUnit});
  }
  template <typename Visit>
  static void ForEachPoint(const Workspace& workspace, Visit visit) {
    ForEachScatterPoint(workspace, visit);
  }
};

template <typename Plot>
void DrawDots(const Drawing& drawing, const Workspace& workspace) {
  const ViewState& view = ViewOf(workspace, Plot::kView);
  const double size = view.Scatter.SymbolPixels;
  SetFillColor(drawing, ColorOf(view, PlotColor::Plot));
  Plot::ForEachPoint(workspace, [&](const ScatterPoint& point) {
    DrawDot(drawing, point.X, point.Y, size);
    return !HasFailed(drawing);
  });
}

template <typename Plot>
void DrawPlot(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect) {
  const auto& plot = workspace.*Plot::kSettings;
  const ViewState& view = ViewOf(workspace, Plot::kView);
  const double width = GraphWidth(rect);
  const AxisDrawing axis{.Target = {sink, workspace.Graphics},
                         .Frame = view.Frame,
                         .LabelColor = ColorOf(view, PlotColor::Labels),
                         .AxisColor = ColorOf(view, PlotColor::Axes),
                         .ShowAxes = plot.ShowAxes,
                         .ShowLabels = plot.ShowLabels};
  Plot::DrawXAxis(axis, width, plot, view.Scatter);
  if (HasFailed(axis.Target)) return;
  Plot::DrawYAxis(axis, width, plot, view.Scatter);
  if (HasFailed(axis.Target)) return;
  DrawDots<Plot>(axis.Target, workspace);
}

template <typename Plot>
void LayOutPlot(Workspace& workspace, const Destination& destination) {
  LayOutView(ViewOf(workspace, Plot::kView), workspace.*Plot::kSettings, destination.Rect,
             destination.Dpi);
}

template <typename Plot>
void DrawAt(Workspace& workspace, const Destination& destination) {
  DrawPlot<Plot>(workspace, destination.Sink, destination.Rect);
}

template <typename Plot>
constexpr ViewRoutines kRoutinesOf = {
    .Paint = PaintGraphView<Plot::kView>,
    .LayOut = LayOutPlot<Plot>,
    .Draw = DrawAt<Plot>,
    .MoveForMetafile = MoveLabelsOf<Plot::kView>,
};

}  // namespace

void LayoutAmplitudeScatter(Workspace& workspace, const IntRect& rect, double dpi) {
  LayOutView(ViewOf(workspace, ViewKind::AmplitudeScatter), workspace.AmplitudeScatter, rect, dpi);
}

void LayoutDurationScatter(Workspace& workspace, const IntRect& rect, double dpi) {
  LayOutView(ViewOf(workspace, ViewKind::DurationScatter), workspace.DurationScatter, rect, dpi);
}

void LayoutScatter(Workspace& workspace, const IntRect& rect, double dpi) {
  LayOutView(ViewOf(workspace, ViewKind::Scatter), workspace.Scatter, rect, dpi);
}

void DrawAmplitudeScatter(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect) {
  DrawPlot<AmplitudeScatterPlot>(workspace, sink, rect);
}

void DrawDurationScatter(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect) {
  DrawPlot<DurationScatterPlot>(workspace, sink, rect);
}

void DrawScatter(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect) {
  DrawPlot<AmplitudeDurationPlot>(workspace, sink, rect);
}

const ViewRoutines kAmplitudeScatterViewRoutines = kRoutinesOf<AmplitudeScatterPlot>;
const ViewRoutines kDurationScatterViewRoutines = kRoutinesOf<DurationScatterPlot>;
const ViewRoutines kScatterViewRoutines = kRoutinesOf<AmplitudeDurationPlot>;

}  // namespace ondrel
