#include "fit/estimates.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "fit/histogram_axis.h"

namespace ondrel {
namespace {

/// With the digits that the model's curve has, so that the curve passes through the peak's handle.
constexpr double kTwoPi = 6.283185307178;

template <typename Histogram>
auto& TermOf(Histogram& histogram, std::int32_t term) {
  return histogram.Terms[static_cast<std::size_t>(term)];
}

template <typename Histogram>
void ShareOutWeights(Histogram& histogram) {
  double sum = 0.0;
  for (std::int32_t i = 0; i < histogram.TermCount; ++i) sum += TermOf(histogram, i).Area;
  for (std::int32_t i = 0; i < histogram.TermCount; ++i) {
    auto& term = TermOf(histogram, i);
    term.Weight = sum == 0.0 ? 0.0 : term.Area / sum;
  }
}

// --- Places on the axis --------------------------------------------------------------------------

double CurrentAt(const AmplitudeHistogram& histogram, const GraphFrame& frame, double x) {
  return (x - frame.PlotLeft) / histogram.PixelsPerPa + histogram.Minimum;
}

double TimeConstantAt(const DurationHistogram& histogram, const GraphFrame& frame, double x) {
  const double exponent =
      (x - frame.PlotLeft) / histogram.PixelsPerDecade + histogram.MinimumExponent;
  return std::pow(10.0, exponent);
}

bool IsDuration(double timeConstant) {
  return timeConstant > 0.0 && std::isfinite(timeConstant);
}

// --- Heights above the axis ----------------------------------------------------------------------

double AreaAt(const AmplitudeHistogram& histogram, const GraphFrame& frame, double stdDev,
              double rise) {
  const double root = std::sqrt(kTwoPi);
  if (!histogram.SquareRootAxis) {
    return rise * root * stdDev * histogram.BinsPerTick /
           (histogram.PerTick * histogram.PixelsPerCount);
  }
  const double part = rise / (frame.PlotBottom - frame.PlotTop);
  const double tallest = histogram.YMaximum * histogram.YMaximum;
  return part * part * tallest * root * stdDev * histogram.BinsPerTick / histogram.PerTick;
}

/// Unlike an amplitude's, a duration's area may be negative.
double AreaAt(const DurationHistogram& histogram, const GraphFrame& frame, double rise) {
  const double perDecade = LogBinWidth(histogram) * std::numbers::ln10;
  if (!histogram.SquareRootAxis)
    return rise * std::numbers::e / (histogram.PixelsPerCount * perDecade);
  const double part = rise / (frame.PlotBottom - frame.PlotTop);
  const double tallest = histogram.YMaximum * histogram.YMaximum;
  return std::abs(part) * part * tallest * std::numbers::e / perDecade;
}

// --- Slots ---------------------------------------------------------------------------------------

/// A slot for the marker of a term that is about to be added. Markers of terms that went with the
/// view of the fit's parameters stay until the histogram is drawn; they give way.
template <typename Histogram>
std::size_t TakeMarker(Histogram& histogram) {
  const std::int32_t marker = std::min(histogram.MarkerCount, histogram.TermCount);
  histogram.MarkerCount = marker + 1;
  return static_cast<std::size_t>(marker);
}

/// Takes item `gone` out of the first `count`.
template <typename Item>
void CloseGap(TermArray<Item>& items, std::int32_t gone, std::int32_t count) {
  std::copy(items.begin() + gone + 1, items.begin() + count, items.begin() + gone);
}

void RemoveMarker(MarkerArray& markers, std::int32_t marker, std::int32_t count) {
  const std::int32_t term = markers[static_cast<std::size_t>(marker)].TermIndex;
  CloseGap(markers, marker, count);
  for (std::int32_t i = 0; i < count - 1; ++i) {
    std::int32_t& index = markers[static_cast<std::size_t>(i)].TermIndex;
    if (index > term) --index;
  }
}

}  // namespace

void NormaliseFromAreas(AmplitudeHistogram& histogram) {
  ShareOutWeights(histogram);
}

void NormaliseFromAreas(DurationHistogram& histogram) {
  ShareOutWeights(histogram);
}

void AddTerm(AmplitudeHistogram& histogram, const GraphFrame& frame, double x) {
  const double current = CurrentAt(histogram, frame, x);
  if (!std::isfinite(current)) return;
  const std::size_t marker = TakeMarker(histogram);
  const std::int32_t term = histogram.TermCount++;
  TermOf(histogram, term) = {
      .Weight = 0.0, .Current = current, .StdDev = histogram.PerTick, .Area = 0.0};
  histogram.PeakMarkers[marker] = {.TermIndex = term};
  histogram.WidthMarkers[marker] = {.TermIndex = term};
  NormaliseFromAreas(histogram);
}

void AddTerm(DurationHistogram& histogram, const GraphFrame& frame, double x) {
  const double timeConstant = TimeConstantAt(histogram, frame, x);
  if (!IsDuration(timeConstant)) return;
  const std::size_t marker = TakeMarker(histogram);
  const std::int32_t term = histogram.TermCount++;
  TermOf(histogram, term) = {.Weight = 0.0, .TimeConstant = timeConstant, .Area = 0.0};
  histogram.Markers[marker] = {.TermIndex = term};
  NormaliseFromAreas(histogram);
}

void RemoveTerm(AmplitudeHistogram& histogram, std::int32_t marker) {
  const std::int32_t term = histogram.PeakMarkers[static_cast<std::size_t>(marker)].TermIndex;
  CloseGap(histogram.Terms, term, histogram.TermCount--);
  RemoveMarker(histogram.PeakMarkers, marker, histogram.MarkerCount);
  RemoveMarker(histogram.WidthMarkers, marker, histogram.MarkerCount);
  --histogram.MarkerCount;
  NormaliseFromAreas(histogram);
}

void RemoveTerm(DurationHistogram& histogram, std::int32_t marker) {
  const std::int32_t term = histogram.Markers[static_cast<std::size_t>(marker)].TermIndex;
  CloseGap(histogram.Terms, term, histogram.TermCount--);
  RemoveMarker(histogram.Markers, marker, histogram.MarkerCount);
  --histogram.MarkerCount;
  NormaliseFromAreas(histogram);
}

void MovePeak(AmplitudeHistogram& histogram, const GraphFrame& frame, std::int32_t term, double x,
              double rise) {
  AmplitudeTerm& moved = TermOf(histogram, term);
  const double current = CurrentAt(histogram, frame, x);
  const double area = AreaAt(histogram, frame, moved.StdDev, rise);
  if (!std::isfinite(current) || !std::isfinite(area)) return;
  moved.Current = current;
  moved.Area = area;
  NormaliseFromAreas(histogram);
}

void MovePeak(DurationHistogram& histogram, const GraphFrame& frame, std::int32_t term, double x,
              double rise) {
  DurationTerm& moved = TermOf(histogram, term);
  const double timeConstant = TimeConstantAt(histogram, frame, x);
  const double area = AreaAt(histogram, frame, rise);
  if (!IsDuration(timeConstant) || !std::isfinite(area)) return;
  moved.TimeConstant = timeConstant;
  moved.Area = area;
  NormaliseFromAreas(histogram);
}

void MoveWidth(AmplitudeHistogram& histogram, const GraphFrame& frame, std::int32_t term,
               double x) {
  AmplitudeTerm& moved = TermOf(histogram, term);
  const double ratio = moved.Area / moved.StdDev;  // the height of the peak goes with it
  const double centre = (moved.Current - histogram.Minimum) * histogram.PixelsPerPa;
  const double stdDev =
      (x - frame.PlotLeft - centre) * 2.0 / (histogram.PixelsPerPa * histogram.CurveScale);
  const double area = ratio * stdDev;
  if (!(stdDev > 0.0) || !std::isfinite(stdDev) || !std::isfinite(area)) return;
  moved.StdDev = stdDev;
  moved.Area = area;
  NormaliseFromAreas(histogram);
}

void ResetFirstTerm(AmplitudeHistogram& histogram) {
  histogram.Terms[0] = {
      .Weight = 0.0, .Current = histogram.Minimum + 1.0, .StdDev = histogram.PerTick, .Area = 0.0};
}

void ResetFirstTerm(DurationHistogram& histogram) {
  histogram.Terms[0] = {
      .Weight = 0.0, .TimeConstant = std::pow(10.0, histogram.MinimumExponent + 1.0), .Area = 0.0};
}

}  // namespace ondrel
