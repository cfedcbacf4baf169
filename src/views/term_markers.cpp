#include "views/term_markers.h"

#include <cmath>

#include "fit/estimates.h"
#include "output/plot_primitives.h"

namespace ondrel {
namespace {

TermMarker MarkerIn(const IntRect& rect, std::int32_t term) {
  return {.Left = rect.Left,
          .Top = rect.Top,
          .Right = rect.Right,
          .Bottom = rect.Bottom,
          .TermIndex = term};
}

/// A term whose height cannot be told, as on a square root axis without counts, keeps its handle on
/// the axis, where it can be picked.
double OnPlot(double y, const GraphFrame& frame) {
  return std::isfinite(y) ? y : frame.PlotBottom;
}

TermMarker DrawPeakMarker(const Drawing& drawing, const GraphFrame& frame, double x, double y,
                          std::int32_t term) {
  const double half = MarkerHalf(frame);
  return MarkerIn(DrawRect(drawing, x - half, y - half, x + half, y + half), term);
}

}  // namespace

double MarkerHalf(const GraphFrame& frame) {
  return (frame.PlotRight - frame.PlotLeft) / 80.0;
}

void PlaceAmplitudeMarker(Workspace& workspace, const GraphicsSink& sink, std::int32_t term,
                          std::int32_t marker) {
  AmplitudeHistogram& histogram = workspace.Amplitude;
  const GraphFrame& frame = ViewOf(workspace, ViewKind::Amplitude).Frame;
  const Drawing drawing{sink, workspace.Graphics};
  const auto slot = static_cast<std::size_t>(marker);
  const AmplitudeTerm& shown = histogram.Terms[static_cast<std::size_t>(term)];
  const double x = PeakX(histogram, frame, shown);
  const double y = OnPlot(PeakY(histogram, frame, shown), frame);
  histogram.PeakMarkers[slot] = DrawPeakMarker(drawing, frame, x, y, term);

  const double reach = shown.StdDev * histogram.CurveScale * histogram.PixelsPerPa / 2.0;
  DrawLine(drawing, x - reach, y, x + reach, y);
  const double half = MarkerHalf(frame);
  histogram.WidthMarkers[slot] = MarkerIn(
      DrawRect(drawing, x + reach, y - half / 2.0, x + reach + half, y + half / 2.0), term);
}

void PlaceDurationMarker(Workspace& workspace, const GraphicsSink& sink, std::int32_t term,
                         std::int32_t marker) {
  DurationHistogram& histogram = workspace.Duration;
  const GraphFrame& frame = ViewOf(workspace, ViewKind::Duration).Frame;
  const DurationTerm& shown = histogram.Terms[static_cast<std::size_t>(term)];
  const double x = PeakX(histogram, frame, shown);
  const double y = OnPlot(PeakY(histogram, frame, shown), frame);
  histogram.Markers[static_cast<std::size_t>(marker)] =
      DrawPeakMarker({sink, workspace.Graphics}, frame, x, y, term);
}

}  // namespace ondrel
