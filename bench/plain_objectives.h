// The objectives as one would write them down first: every bin on its own, with the runtime's exp,
// log and pow.
#pragma once

#include "fit/fit_operations.h"

namespace ondrel::bench {

double PlainAmplitudeObjective(const AmplitudeHistogram& histogram, const DurationHistogram& other,
                               const ParameterVector& point);
double PlainDurationObjective(const AmplitudeHistogram& other, const DurationHistogram& histogram,
                              const ParameterVector& point);

}  // namespace ondrel::bench
