// What the two histogram views draw alike: their steps, the axis of counts, the bars and the fit.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "fit/histogram_axis.h"
#include "output/plot_primitives.h"
#include "views/axis_drawing.h"
#include "views/graph_frame.h"
#include "views/view_state.h"
#include "workspace/truncate.h"
#include "workspace/workspace.h"

namespace ondrel {

// --- The axis of counts --------------------------------------------------------------------------

/// How counts stand on the vertical axis.
struct CountScale {
  double YMaximum = 0.0;  // counts, or their square root
  std::int32_t CountsPerTick = 1;
  double PixelsPerYTick = 0.0;
  bool SquareRootAxis = false;
  bool HasTicks = false;  // without them there is the number at the origin alone
  bool Mirrored = false;  // negative counts stand below the line of count zero
};

/// The vertical axis at the left of the view's frame, from its title to its ticks. `width` is that
/// of the view.
void DrawCountAxis(const AxisDrawing& axis, double width, const CountScale& scale);

// --- The twins -----------------------------------------------------------------------------------

/// In what the views of the two histograms differ.
template <typename Histogram>
struct HistogramTwin {
  ViewKind View;
  Histogram Workspace::*Shown;
  void (*DrawXAxis)(const AxisDrawing& axis, const Histogram& histogram, const IntRect& rect);
  /// Whether there is a tallest bar: without it there are neither ticks of counts nor bars.
  bool (*HasTicks)(const Histogram& histogram);
  bool (*IsMirrored)(const Histogram& histogram);
  bool (*LiesOnAxis)(const Histogram& histogram, std::size_t term);
  void (*PlaceMarker)(Workspace& workspace, const GraphicsSink& sink, std::int32_t term,
                      std::int32_t marker);
  void (*DrawCurve)(const Drawing& drawing, const Histogram& histogram, double left, double top,
                    double base, std::int32_t firstTerm, std::int32_t endTerm);
};

/// Tells the sink of the histogram's bins, for bars and for curves.
template <typename Histogram>
void DescribeBins(GraphicsContext& context, const Histogram& histogram) {
  context.BinCount = TruncateToInteger(static_cast<double>(CountBins(histogram)));
  context.BinWidth = histogram.PixelsPerBin;
  context.BinScale = histogram.PixelsPerCount;
  context.BinPeak = histogram.YMaximum;
  context.BinFitHeight = histogram.SquareRootAxis ? 1 : 0;
}

/// Sets the colour of the bars for their style, and draws them in the view's plot. The bins must
/// have been described.
void DrawDescribedBars(const Drawing& drawing, const ViewState& view, HistogramStyle style,
                       const BinRecord* bins);

/// Axes of which nothing is drawn yet.
template <typename Histogram>
AxisDrawing BeginAxes(const HistogramTwin<Histogram>& twin, Workspace& workspace,
                      const GraphicsSink& sink) {
  const Histogram& histogram = workspace.*twin.Shown;
  const ViewState& view = ViewOf(workspace, twin.View);
  return {.Target = {sink, workspace.Graphics},
          .Frame = view.Frame,
          .LabelColor = ColorOf(view, HistogramColor::Labels),
          .AxisColor = ColorOf(view, HistogramColor::Axes),
          .ShowAxes = histogram.ShowAxes,
          .ShowLabels = histogram.ShowLabels};
}

template <typename Histogram>
void DrawYAxisOf(const HistogramTwin<Histogram>& twin, const AxisDrawing& axis,
                 const Histogram& histogram, const IntRect& rect) {
  DrawCountAxis(axis, GraphWidth(rect),
                {.YMaximum = histogram.YMaximum,
                 .CountsPerTick = histogram.CountsPerTick,
                 .PixelsPerYTick = histogram.PixelsPerYTick,
                 .SquareRootAxis = histogram.SquareRootAxis,
                 .HasTicks = twin.HasTicks(histogram),
                 .Mirrored = twin.IsMirrored(histogram)});
}

template <typename Histogram>
void DrawBarsOf(const HistogramTwin<Histogram>& twin, Workspace& workspace,
                const GraphicsSink& sink) {
  const Histogram& histogram = workspace.*twin.Shown;
  if (histogram.Bins == nullptr || !twin.HasTicks(histogram)) return;
  DescribeBins(workspace.Graphics, histogram);
  DrawDescribedBars({sink, workspace.Graphics}, ViewOf(workspace, twin.View),
                    histogram.HistogramStyle, histogram.Bins);
}

template <typename Histogram>
void DrawFitOf(const HistogramTwin<Histogram>& twin, Workspace& workspace,
               const GraphicsSink& sink) {
  if (ViewOf(workspace, FitViewOf(twin.View)).Window == nullptr) return;
  Histogram& histogram = workspace.*twin.Shown;
  const Drawing drawing{sink, workspace.Graphics};
  const ViewState& view = ViewOf(workspace, twin.View);
  const GraphFrame& frame = view.Frame;
  const auto drawCurve = [&](std::int32_t first, std::int32_t end) {
    twin.DrawCurve(drawing, histogram, frame.PlotLeft, frame.PlotTop, frame.PlotBottom, first, end);
  };
  const FitStyle style = histogram.FitStyle;
  const auto terms = static_cast<std::int32_t>(CountTerms(histogram));
  DescribeBins(workspace.Graphics, histogram);
  SetStrokeColor(drawing, ColorOf(view, HistogramColor::Fit));
  if (style != FitStyle::Component) drawCurve(0, terms);
  histogram.MarkerCount = 0;
  for (std::int32_t term = 0; term < terms; ++term) {
    if (HasFailed(drawing)) return;
    if (twin.LiesOnAxis(histogram, static_cast<std::size_t>(term))) {
      twin.PlaceMarker(workspace, sink, term, histogram.MarkerCount++);
    }
    if (HasFailed(drawing)) return;
    if (style != FitStyle::Sum) drawCurve(term, term + 1);
  }
}

/// X axis, Y axis, bars and fit. Stops between them when the sink has failed.
template <typename Histogram>
void DrawSteps(const HistogramTwin<Histogram>& twin, Workspace& workspace, const GraphicsSink& sink,
               const IntRect& rect) {
  constexpr double kGapToAxis = 1.0;  // device units; the axis stands just below the bars
  const Histogram& histogram = workspace.*twin.Shown;
  GraphFrame& frame = ViewOf(workspace, twin.View).Frame;
  const AxisDrawing axis = BeginAxes(twin, workspace, sink);
  const double base = frame.PlotBottom;
  frame.PlotBottom += kGapToAxis;
  twin.DrawXAxis(axis, histogram, rect);
  frame.PlotBottom = base;  // the gap is taken away without what adding it rounded off
  if (HasFailed(axis.Target)) return;
  DrawYAxisOf(twin, axis, histogram, rect);
  if (HasFailed(axis.Target)) return;
  DrawBarsOf(twin, workspace, sink);
  if (HasFailed(axis.Target)) return;
  DrawFitOf(twin, workspace, sink);
}

}  // namespace ondrel
