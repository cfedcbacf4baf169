// The two tables through which the minimiser sees the mixture models, and the way of their terms
// into the minimiser's vector and back.
#pragma once

#include <cstdint>

#include "fit/fit_operations.h"
#include "fit/histogram_records.h"

namespace ondrel {

extern const FitOperations kAmplitudeModel;
extern const FitOperations kDurationModel;

/// The stored terms as a point; entries beyond them are 0.
ParameterVector ParametersOf(const AmplitudeHistogram& histogram);
ParameterVector ParametersOf(const DurationHistogram& histogram);

/// Number of parameters of the terms in use.
std::int32_t CountParameters(const AmplitudeHistogram& histogram);
std::int32_t CountParameters(const DurationHistogram& histogram);

/// Takes a point into the terms and sets their areas by the events in the histogram. A Current or
/// TimeConstant outside of the axis is set to its end, and a StdDev below a tenth of a bin is
/// lifted to that, in `point` too. Returns 0, or -1 when a Current or TimeConstant was outside.
std::int32_t StoreTerms(AmplitudeHistogram& histogram, ParameterVector& point);
std::int32_t StoreTerms(DurationHistogram& histogram, ParameterVector& point);

}  // namespace ondrel
