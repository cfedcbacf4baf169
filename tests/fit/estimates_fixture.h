// Histograms with terms to be estimated, and where their peaks stand, worked out once more.
#pragma once

#include <gmock/gmock.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "fit/estimates.h"

namespace ondrel::estimates {

/// Device units. The zero line stands at a fraction of a pixel, as it does in most windows.
inline constexpr GraphFrame kFrame = {
    .PlotLeft = 80.0, .PlotRight = 560.0, .PlotTop = 40.0, .PlotBottom = 200.25};

inline AmplitudeHistogram SomeAmplitude() {
  AmplitudeHistogram histogram;
  histogram.Minimum = -1.5;
  histogram.PerTick = 0.5;
  histogram.BinsPerTick = 10;
  histogram.PixelsPerPa = 160.0;
  histogram.PixelsPerCount = 0.8;
  histogram.YMaximum = 12.0;
  histogram.CurveScale = 1.5;
  return histogram;
}

inline DurationHistogram SomeDuration() {
  DurationHistogram histogram;
  histogram.MinimumExponent = -4;
  histogram.BinsPerDecade = 8;
  histogram.PixelsPerDecade = 96.0;
  histogram.PixelsPerCount = 2.5;
  histogram.YMaximum = 7.0;
  return histogram;
}

inline MarkerArray& PeaksOf(AmplitudeHistogram& histogram) {
  return histogram.PeakMarkers;
}
inline MarkerArray& PeaksOf(DurationHistogram& histogram) {
  return histogram.Markers;
}

/// Gives the histogram terms of these areas, with weights that do not go with them, and a marker
/// for each term of `marked`. The left edge of a marker tells which it was.
template <typename Histogram>
void Fill(Histogram& histogram, const std::vector<double>& areas, const std::vector<int>& marked) {
  for (std::size_t i = 0; i < areas.size(); ++i) {
    histogram.Terms[i] = {};
    histogram.Terms[i].Area = areas[i];
    histogram.Terms[i].Weight = 99.0;
  }
  for (std::size_t i = 0; i < marked.size(); ++i) {
    PeaksOf(histogram)[i] = {.Left = 100 + marked[i], .TermIndex = marked[i]};
  }
  histogram.TermCount = static_cast<std::int32_t>(areas.size());
  histogram.MarkerCount = static_cast<std::int32_t>(marked.size());
  if constexpr (requires { histogram.WidthMarkers; }) {
    for (std::size_t i = 0; i < marked.size(); ++i) {
      histogram.WidthMarkers[i] = {.Left = 200 + marked[i], .TermIndex = marked[i]};
    }
  }
}

template <typename Histogram>
std::vector<double> Weights(const Histogram& histogram) {
  std::vector<double> weights;
  for (std::size_t i = 0; i < static_cast<std::size_t>(histogram.TermCount); ++i) {
    weights.push_back(histogram.Terms[i].Weight);
  }
  return weights;
}

template <typename Histogram>
std::vector<double> Areas(const Histogram& histogram) {
  std::vector<double> areas;
  for (std::size_t i = 0; i < static_cast<std::size_t>(histogram.TermCount); ++i) {
    areas.push_back(histogram.Terms[i].Area);
  }
  return areas;
}

/// Left edge and term of a marker.
using Mark = std::pair<int, int>;

inline std::vector<Mark> Places(const MarkerArray& markers, std::int32_t count) {
  std::vector<Mark> places;
  for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
    places.emplace_back(markers[i].Left, markers[i].TermIndex);
  }
  return places;
}

/// Equal but for the last few bits.
inline void ExpectSame(double value, long double expected) {
  EXPECT_NEAR(value / static_cast<double>(expected), 1.0, 4e-15) << value;
}

/// Where a term's peak is drawn.
struct Peak {
  double X;
  double Y;
};

// The last bit tells, since handles stand at whole pixels.

inline Peak PeakOf(const AmplitudeHistogram& histogram, const GraphFrame& frame,
                   const AmplitudeTerm& term) {
  const double count = term.Area * histogram.PerTick /
                       (std::sqrt(6.283185307178) * term.StdDev * histogram.BinsPerTick);
  const double share = count / (histogram.YMaximum * histogram.YMaximum);
  return {frame.PlotLeft + (term.Current - histogram.Minimum) * histogram.PixelsPerPa,
          histogram.SquareRootAxis
              ? frame.PlotBottom - std::sqrt(share) * (frame.PlotBottom - frame.PlotTop)
              : frame.PlotBottom - count * histogram.PixelsPerCount};
}

inline Peak PeakOf(const DurationHistogram& histogram, const GraphFrame& frame,
                   const DurationTerm& term) {
  const double x =
      frame.PlotLeft + (std::log(term.TimeConstant) / std::log(10.0) - histogram.MinimumExponent) *
                           histogram.PixelsPerDecade;
  const double count = term.Area * (1.0 / histogram.BinsPerDecade) * std::log(10.0) / std::exp(1.0);
  if (!histogram.SquareRootAxis) return {x, frame.PlotBottom - count * histogram.PixelsPerCount};
  if (term.Area == 0.0) return {x, frame.PlotBottom};
  const double share = std::fabs(count / (histogram.YMaximum * histogram.YMaximum));
  const double rise = std::sqrt(share) * (frame.PlotBottom - frame.PlotTop);
  return {x, term.Area > 0.0 ? frame.PlotBottom - rise : frame.PlotBottom + rise};
}

/// The area that puts an amplitude's peak `rise` above the axis.
inline double AreaOf(const AmplitudeHistogram& histogram, const GraphFrame& frame,
                     const AmplitudeTerm& term, double rise) {
  const double root = std::sqrt(6.283185307178);
  if (!histogram.SquareRootAxis) {
    return rise * root * term.StdDev * histogram.BinsPerTick /
           (histogram.PerTick * histogram.PixelsPerCount);
  }
  const double part = rise / (frame.PlotBottom - frame.PlotTop);
  return (part * part) * (histogram.YMaximum * histogram.YMaximum) * root * term.StdDev *
         histogram.BinsPerTick / histogram.PerTick;
}

inline double AreaOf(const DurationHistogram& histogram, const GraphFrame& frame,
                     const DurationTerm&, double rise) {
  const double binWidth = 1.0 / histogram.BinsPerDecade;
  if (!histogram.SquareRootAxis) {
    return rise * std::exp(1.0) / ((histogram.PixelsPerCount * binWidth) * std::log(10.0));
  }
  const double part = rise / (frame.PlotBottom - frame.PlotTop);
  return std::fabs(part) * part * (histogram.YMaximum * histogram.YMaximum) * std::exp(1.0) /
         (binWidth * std::log(10.0));
}

}  // namespace ondrel::estimates
