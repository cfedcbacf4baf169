#include "views/histogram_layout.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "fit/duration_histogram.h"
#include "fit/histogram_axis.h"
#include "output/plot_primitives.h"
#include "views/axis_drawing.h"
#include "views/graph_frame.h"

namespace ondrel {
namespace {

double WidthOfBin(const Drawing& drawing, const GraphFrame& frame, std::int64_t binCount) {
  const double width = (frame.PlotRight - frame.PlotLeft) / static_cast<double>(binCount);
  if (!(GetPixelSnap(drawing) > 0.0)) return width;
  const double whole = std::trunc(width);
  return whole != 0.0 ? whole : width;  // bins thinner than a pixel are not lost
}

/// The tallest bar ends within the last interval of the axis of counts.
template <typename Histogram>
void LayOutCounts(Histogram& histogram, const GraphFrame& frame, double intervals) {
  const double ticks = std::max(intervals, static_cast<double>(AtLeastTwo(histogram.MinimumTicks)));
  histogram.PixelsPerYTick = (frame.PlotBottom - frame.PlotTop) / ticks;
  histogram.PixelsPerCount = histogram.PixelsPerYTick / AtLeastOne(histogram.CountsPerTick);
}

}  // namespace

void LayoutAmplitude(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect) {
  AmplitudeHistogram& histogram = workspace.Amplitude;
  GraphFrame& frame = ViewOf(workspace, ViewKind::Amplitude).Frame;
  frame = FrameIn(rect);
  histogram.PixelsPerBin = WidthOfBin({sink, workspace.Graphics}, frame, CountBins(histogram));
  histogram.PixelsPerTick = BinsPerTickOf(histogram) * histogram.PixelsPerBin;
  histogram.PixelsPerPa = histogram.PixelsPerTick / histogram.PerTick;

  const double countsPerTick = AtLeastOne(histogram.CountsPerTick);
  double intervals = std::trunc(histogram.YMaximum / countsPerTick);
  if (intervals * countsPerTick < histogram.YMaximum) intervals += 1.0;
  LayOutCounts(histogram, frame, intervals);
}

void LayoutDuration(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect) {
  if (workspace.Duration.Bins == nullptr) BuildDurationHistogram(workspace);
  LayoutCountedDuration(workspace, sink, rect);
}

void LayoutCountedDuration(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect) {
  DurationHistogram& histogram = workspace.Duration;
  GraphFrame& frame = ViewOf(workspace, ViewKind::Duration).Frame;
  frame = FrameIn(rect);
  // The lower half is kept for terms of negative area.
  if (!histogram.ConstrainPositive) {
    frame.PlotBottom = (frame.PlotBottom - frame.PlotTop) / 2.0 + frame.PlotTop;
  }
  histogram.PixelsPerBin = WidthOfBin({sink, workspace.Graphics}, frame, CountBins(histogram));
  histogram.PixelsPerDecade = BinsPerDecadeOf(histogram) * histogram.PixelsPerBin;

  const double countsPerTick = AtLeastOne(histogram.CountsPerTick);
  double intervals = std::trunc(histogram.YMaximum / countsPerTick);
  if (intervals * countsPerTick != histogram.YMaximum) intervals += 1.0;
  LayOutCounts(histogram, frame, intervals);
}

}  // namespace ondrel
