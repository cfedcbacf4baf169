// The mixture of exponentials behind the duration histogram: its likelihood over the bins of log
// time, and the curve that is drawn. Times are in seconds. Nothing here allocates.
//
// The likelihood is that of the amplitude model: over counts of bins, conditioned on the part of
// the axis that is left visible. The recording's filter is no part of the model; it is allowed for
// when the dwells are counted.
#pragma once

#include <cstdint>

#include "fit/fit_operations.h"
#include "fit/histogram_records.h"

namespace ondrel {

/// Probability that the mixture at `point` gives to the dwells from `low` to `high`. The point
/// comes last, unlike in the amplitude model.
double SegmentProbability(const DurationHistogram& histogram, double low, double high,
                          const ParameterVector& point);

/// What the fit minimises: the negative of the multinomial log likelihood of the counts. The bins
/// must have been built.
double NegativeLogLikelihood(const DurationHistogram& histogram, const ParameterVector& point);

/// The least value that NegativeLogLikelihood could have for these counts.
double SaturatedLogLikelihood(const DurationHistogram& histogram);

/// The log likelihood that is shown: that of the stored terms relative to a perfect fit, which
/// would have 0.
double LogLikelihood(const DurationHistogram& histogram);

/// Fraction of the events that the stored terms put on the visible part of the axis; never 0. It
/// scales the curve.
double VisibleProbability(const DurationHistogram& histogram);

/// Expected count of a bin centred at `x`, log10 of seconds, from the terms `first` up to but not
/// including `last` (Sigworth and Sine 1987).
double DurationCurveCount(const DurationHistogram& histogram, double x, std::int32_t first,
                          std::int32_t last);

/// The curve at `x` in device units of a plot from `bottom`, the line of count zero, up to `top`.
/// Negative counts go downward.
double DurationCurveY(const DurationHistogram& histogram, double x, double bottom, double top,
                      double pixelsPerCount, std::int32_t first, std::int32_t last);

}  // namespace ondrel
