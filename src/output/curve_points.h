// The points through which the curve of a fit is drawn: the same in every form of the drawing
// table.
#pragma once

#include <algorithm>
#include <cstdint>

#include "fit/amplitude_model.h"
#include "fit/duration_model.h"
#include "fit/histogram_axis.h"

namespace ondrel {

/// What a curve operation is given: where the plot begins, its height, device units, and the terms
/// from `FirstTerm` up to but not including `EndTerm`.
struct CurvePlot {
  double Left = 0.0;
  double Top = 0.0;
  double Base = 0.0;
  std::int32_t FirstTerm = 0;
  std::int32_t EndTerm = 0;
};

struct CurvePoint {
  double X = 0.0;
  double Y = 0.0;
  bool Begins = false;  // the first one, to which the pen is moved
};

/// More points than any device can tell apart. An axis of more bins passes some of them over.
inline constexpr std::int64_t kMostCurvePoints = 1 << 18;

/// The curve `bins` bins behind the left end of the axis.
inline double CurveY(const AmplitudeHistogram& fit, const CurvePlot& plot, double bins) {
  const double current = fit.Minimum + bins * BinWidth(fit);
  return AmplitudeCurveY(fit, current, plot.Base, plot.Top, fit.PixelsPerCount, plot.FirstTerm,
                         plot.EndTerm);
}
inline double CurveY(const DurationHistogram& fit, const CurvePlot& plot, double bins) {
  const double logTime = fit.MinimumExponent + bins * LogBinWidth(fit);
  return DurationCurveY(fit, logTime, plot.Base, plot.Top, fit.PixelsPerCount, plot.FirstTerm,
                        plot.EndTerm);
}

/// Calls `draw` for the point at the centre of each of `binCount` bins, from left to right; at
/// least for the first. Places are added up step by step, as those of the bars are; the current or
/// time that a point stands for is worked out for each anew.
template <typename Histogram, typename Draw>
void ForEachCurvePoint(const Histogram& fit, const CurvePlot& plot, std::int64_t binCount,
                       Draw draw) {
  const std::int64_t count = std::max<std::int64_t>(binCount, 1);
  const std::int64_t stride = 1 + (count - 1) / kMostCurvePoints;
  double offset = fit.PixelsPerBin / 2.0;
  for (std::int64_t i = 0; i < count; i += stride) {
    const double bins = static_cast<double>(i) + 0.5;
    draw(CurvePoint{.X = plot.Left + offset, .Y = CurveY(fit, plot, bins), .Begins = i == 0});
    offset += static_cast<double>(stride) * fit.PixelsPerBin;
  }
}

}  // namespace ondrel
