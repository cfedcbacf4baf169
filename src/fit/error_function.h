// Two error functions: an accurate one for the likelihood, a cheaper one for the scale of a curve.
#pragma once

#include "fit/number_pair.h"

namespace ondrel {

/// 1 - erf(x), to 5e-16. Of a small value far out on the right the leading digits alone are true.
double ComplementaryErf(double x);
/// The same bits in each lane.
Pair ComplementaryErf(Pair x);

/// erf(x) to 2.5e-5 (Abramowitz and Stegun 7.1.25).
double CoarseErf(double x);

}  // namespace ondrel
