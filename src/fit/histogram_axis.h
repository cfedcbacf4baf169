// The axes of the two histograms: how many bins stand on them and how wide these are.
#pragma once

#include <algorithm>
#include <cstdint>

#include "fit/histogram_records.h"

namespace ondrel {

/// Bins on the axis, at least 1.
inline std::int64_t CountBins(const AmplitudeHistogram& histogram) {
  return std::max<std::int64_t>(std::int64_t{histogram.BinsPerTick} * histogram.TickMarks, 1);
}
inline std::int64_t CountBins(const DurationHistogram& histogram) {
  return std::max<std::int64_t>(std::int64_t{histogram.Decades} * histogram.BinsPerDecade, 1);
}

/// Width of a bin, pA. It comes from the settings and not from a layout, so that a fit gives the
/// same numbers in a window of any size.
inline double BinWidth(const AmplitudeHistogram& histogram) {
  return histogram.PerTick / histogram.BinsPerTick;
}

/// Width of a bin in decades.
inline double LogBinWidth(const DurationHistogram& histogram) {
  return 1.0 / histogram.BinsPerDecade;
}

/// Right end of the axis: pA, and log10 of seconds.
inline double MaximumOf(const AmplitudeHistogram& histogram) {
  return histogram.Minimum + histogram.TickMarks * histogram.PerTick;
}
inline double MaximumOf(const DurationHistogram& histogram) {
  return static_cast<double>(std::int64_t{histogram.MinimumExponent} + histogram.Decades);
}

}  // namespace ondrel
