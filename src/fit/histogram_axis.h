// What follows from the settings of the two histograms: how many bins stand on their axes, how wide
// these are, and how many terms are in use.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "fit/histogram_records.h"

namespace ondrel {

/// The divisions of an axis. At least 1, whatever a preference file holds, so that there is a width
/// to divide a plot into.
inline std::int32_t TickMarksOf(const AmplitudeHistogram& histogram) {
  return std::max(histogram.TickMarks, 1);
}
inline std::int32_t BinsPerTickOf(const AmplitudeHistogram& histogram) {
  return std::max(histogram.BinsPerTick, 1);
}
inline std::int32_t DecadesOf(const DurationHistogram& histogram) {
  return std::max(histogram.Decades, 1);
}
inline std::int32_t BinsPerDecadeOf(const DurationHistogram& histogram) {
  return std::max(histogram.BinsPerDecade, 1);
}

/// Bins on the axis.
inline std::int64_t CountBins(const AmplitudeHistogram& histogram) {
  return std::int64_t{TickMarksOf(histogram)} * BinsPerTickOf(histogram);
}
inline std::int64_t CountBins(const DurationHistogram& histogram) {
  return std::int64_t{DecadesOf(histogram)} * BinsPerDecadeOf(histogram);
}

/// Width of a bin, pA. It comes from the settings and not from a layout, so that a fit gives the
/// same numbers in a window of any size.
inline double BinWidth(const AmplitudeHistogram& histogram) {
  return histogram.PerTick / BinsPerTickOf(histogram);
}

/// The left edge of a bin, and so the right one of the bin before, pA. What is told of whole
/// stretches of the axis goes by these; the fit's sum over the bins has its own, in `Edges`.
inline double EdgeOf(const AmplitudeHistogram& histogram, std::int64_t bin) {
  return histogram.Minimum + static_cast<double>(bin - 1) * BinWidth(histogram);
}

/// Width of a bin in decades.
inline double LogBinWidth(const DurationHistogram& histogram) {
  return 1.0 / BinsPerDecadeOf(histogram);
}

/// Right end of the axis: pA, and log10 of seconds.
inline double MaximumOf(const AmplitudeHistogram& histogram) {
  return histogram.Minimum + TickMarksOf(histogram) * histogram.PerTick;
}
inline double MaximumOf(const DurationHistogram& histogram) {
  return static_cast<double>(std::int64_t{histogram.MinimumExponent} + DecadesOf(histogram));
}

/// Terms in use, as many as a fit has room for, whatever `TermCount` says.
template <typename Histogram>
std::size_t CountTerms(const Histogram& histogram) {
  return static_cast<std::size_t>(std::clamp(histogram.TermCount, 0, kMaxTerms));
}

}  // namespace ondrel
