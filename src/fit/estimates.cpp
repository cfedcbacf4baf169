#include "fit/estimates.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "fit/amplitude_model.h"
#include "fit/histogram_axis.h"
#include "workspace/power_of_ten.h"

namespace ondrel {
namespace {

template <typename Histogram>
auto& TermOf(Histogram& histogram, std::int32_t term) {
  return histogram.Terms[static_cast<std::size_t>(term)];
}

template <typename Histogram>
void ShareOutWeights(Histogram& histogram) {
  double sum = 0.0;
  for (std::size_t i = 0; i < CountTerms(histogram); ++i) sum += histogram.Terms[i].Area;
  for (std::size_t i = 0; i < CountTerms(histogram); ++i) {
    auto& term = histogram.Terms[i];
    term.Weight = sum == 0.0 ? 0.0 : term.Area / sum;
  }
}

// --- Places on the axis, and back ----------------------------------------------------------------

double CurrentAt(const AmplitudeHistogram& histogram, const GraphFrame& frame, double x) {
  return (x - frame.PlotLeft) / histogram.PixelsPerPa + histogram.Minimum;
}

double PlaceOf(const AmplitudeHistogram& histogram, const GraphFrame& frame, double current) {
  return frame.PlotLeft + (current - histogram.Minimum) * histogram.PixelsPerPa;
}

double TimeConstantAt(const DurationHistogram& histogram, const GraphFrame& frame, double x) {
  const double exponent =
      (x - frame.PlotLeft) / histogram.PixelsPerDecade + histogram.MinimumExponent;
  return PowerOfTen(exponent);
}

double PlaceOf(const DurationHistogram& histogram, const GraphFrame& frame, double timeConstant) {
  const double exponent = std::log(timeConstant) / std::numbers::ln10;
  return frame.PlotLeft + (exponent - histogram.MinimumExponent) * histogram.PixelsPerDecade;
}

bool IsDuration(double timeConstant) {
  return timeConstant > 0.0 && std::isfinite(timeConstant);
}

// --- Heights above the axis, and back ------------------------------------------------------------

// Handles stand at whole pixels, so that the last bit of a height can move them by one: the order
// of the factors is kept.

double AreaAt(const AmplitudeHistogram& histogram, const GraphFrame& frame, double stdDev,
              double rise) {
  const double root = std::sqrt(kTwoPi);
  if (!histogram.SquareRootAxis) {
    return rise * root * stdDev * BinsPerTickOf(histogram) /
           (histogram.PerTick * histogram.PixelsPerCount);
  }
  const double part = rise / (frame.PlotBottom - frame.PlotTop);
  const double tallest = histogram.YMaximum * histogram.YMaximum;
  return part * part * tallest * root * stdDev * BinsPerTickOf(histogram) / histogram.PerTick;
}

double RiseOf(const AmplitudeHistogram& histogram, const GraphFrame& frame,
              const AmplitudeTerm& term) {
  const double root = std::sqrt(kTwoPi);
  const double count =
      term.Area * histogram.PerTick / (root * term.StdDev * BinsPerTickOf(histogram));
  if (!histogram.SquareRootAxis) return count * histogram.PixelsPerCount;
  const double tallest = histogram.YMaximum * histogram.YMaximum;
  return std::sqrt(count / tallest) * (frame.PlotBottom - frame.PlotTop);
}

/// Unlike an amplitude's, a duration's area may be negative.
double AreaAt(const DurationHistogram& histogram, const GraphFrame& frame, double rise) {
  const double width = LogBinWidth(histogram);
  if (!histogram.SquareRootAxis) {
    return rise * std::numbers::e / (histogram.PixelsPerCount * width * std::numbers::ln10);
  }
  const double part = rise / (frame.PlotBottom - frame.PlotTop);
  const double tallest = histogram.YMaximum * histogram.YMaximum;
  return std::abs(part) * part * tallest * std::numbers::e / (width * std::numbers::ln10);
}

double RiseOf(const DurationHistogram& histogram, const GraphFrame& frame,
              const DurationTerm& term) {
  const double count = term.Area * LogBinWidth(histogram) * std::numbers::ln10 / std::numbers::e;
  if (!histogram.SquareRootAxis) return count * histogram.PixelsPerCount;
  if (term.Area == 0.0) return 0.0;
  const double tallest = histogram.YMaximum * histogram.YMaximum;
  const double rise = std::sqrt(std::abs(count / tallest)) * (frame.PlotBottom - frame.PlotTop);
  return term.Area < 0.0 ? -rise : rise;
}

// --- Slots ---------------------------------------------------------------------------------------

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

double PeakX(const AmplitudeHistogram& histogram, const GraphFrame& frame,
             const AmplitudeTerm& term) {
  return PlaceOf(histogram, frame, term.Current);
}

double PeakX(const DurationHistogram& histogram, const GraphFrame& frame,
             const DurationTerm& term) {
  return PlaceOf(histogram, frame, term.TimeConstant);
}

double PeakY(const AmplitudeHistogram& histogram, const GraphFrame& frame,
             const AmplitudeTerm& term) {
  return frame.PlotBottom - RiseOf(histogram, frame, term);
}

double PeakY(const DurationHistogram& histogram, const GraphFrame& frame,
             const DurationTerm& term) {
  return frame.PlotBottom - RiseOf(histogram, frame, term);
}

void AddTerm(AmplitudeHistogram& histogram, const GraphFrame& frame, double x) {
  const double current = CurrentAt(histogram, frame, x);
  if (!std::isfinite(current)) return;
  const std::int32_t term = histogram.TermCount++;
  const auto marker = static_cast<std::size_t>(histogram.MarkerCount++);
  TermOf(histogram, term) = {
      .Weight = 0.0, .Current = current, .StdDev = histogram.PerTick, .Area = 0.0};
  histogram.PeakMarkers[marker] = {.TermIndex = term};
  histogram.WidthMarkers[marker] = {.TermIndex = term};
  NormaliseFromAreas(histogram);
}

void AddTerm(DurationHistogram& histogram, const GraphFrame& frame, double x) {
  const double timeConstant = TimeConstantAt(histogram, frame, x);
  if (!IsDuration(timeConstant)) return;
  const std::int32_t term = histogram.TermCount++;
  const auto marker = static_cast<std::size_t>(histogram.MarkerCount++);
  TermOf(histogram, term) = {.Weight = 0.0, .TimeConstant = timeConstant, .Area = 0.0};
  histogram.Markers[marker] = {.TermIndex = term};
  NormaliseFromAreas(histogram);
}

void RemoveTerm(AmplitudeHistogram& histogram, std::int32_t marker) {
  const std::int32_t term = histogram.PeakMarkers[static_cast<std::size_t>(marker)].TermIndex;
  CloseGap(histogram.Terms, term, histogram.TermCount);
  --histogram.TermCount;
  RemoveMarker(histogram.PeakMarkers, marker, histogram.MarkerCount);
  RemoveMarker(histogram.WidthMarkers, marker, histogram.MarkerCount);
  --histogram.MarkerCount;
  NormaliseFromAreas(histogram);
}

void RemoveTerm(DurationHistogram& histogram, std::int32_t marker) {
  const std::int32_t term = histogram.Markers[static_cast<std::size_t>(marker)].TermIndex;
  CloseGap(histogram.Terms, term, histogram.TermCount);
  --histogram.TermCount;
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
      .Weight = 0.0, .TimeConstant = PowerOfTen(histogram.MinimumExponent + 1.0), .Area = 0.0};
}

}  // namespace ondrel
