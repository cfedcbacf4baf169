// The mixture of Gaussians behind the amplitude histogram: its likelihood over the bins, and the
// curve that is drawn. Currents and deviations are in pA. Nothing here allocates.
//
// The counts of the bins are the data. Each bin's probability is conditioned on the part of the
// axis that the selection leaves visible, so that a truncated histogram is fitted without bias.
#pragma once

#include <cstdint>

#include "fit/fit_operations.h"
#include "fit/histogram_records.h"

namespace ondrel {

/// With the digits that belong to the model: likelihoods are compared with those of earlier
/// versions, and the handles of terms stand where its curve does.
inline constexpr double kTwoPi = 6.283185307178;

/// Probability that the mixture at `point` gives to one bin from `low` to `high`, by Simpson's
/// rule.
double BinProbability(const AmplitudeHistogram& histogram, const ParameterVector& point, double low,
                      double high);

/// The same for a stretch of any width, by the error function.
double SegmentProbability(const AmplitudeHistogram& histogram, const ParameterVector& point,
                          double low, double high);

/// What the fit minimises: the negative of the multinomial log likelihood of the counts. The bins
/// must have been built.
double NegativeLogLikelihood(const AmplitudeHistogram& histogram, const ParameterVector& point);

/// The least value that NegativeLogLikelihood could have for these counts.
double SaturatedLogLikelihood(const AmplitudeHistogram& histogram);

/// The log likelihood that is shown: that of the stored terms relative to a perfect fit, which
/// would have 0.
double LogLikelihood(const AmplitudeHistogram& histogram);

/// Fraction of the events that the stored terms put on the visible part of the axis; never 0. It
/// scales the curve. When any of the axis is visible, a deviation that is not above 0 is set to
/// 1e-30 in its term.
double VisibleProbability(AmplitudeHistogram& histogram);

/// Expected count of a bin centred at `x`, from the terms `first` up to but not including `last`.
double AmplitudeCurveCount(const AmplitudeHistogram& histogram, double x, std::int32_t first,
                           std::int32_t last);

/// The curve at `x` in device units of a plot from `bottom` up to `top`.
double AmplitudeCurveY(const AmplitudeHistogram& histogram, double x, double bottom, double top,
                       double pixelsPerCount, std::int32_t first, std::int32_t last);

}  // namespace ondrel
