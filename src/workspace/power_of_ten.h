// Powers of ten, for axes and ticks.
#pragma once

#include <cmath>

#include "workspace/decimal.h"

namespace ondrel {

/// Ten to the `exponent`. Whole powers from 1e-22 to 1e22 are the reals nearest to them, on every
/// build: the end of an axis at 1e-5 is what a text or a user calls 1e-5. The runtime's own can be
/// some units in the last place away from it.
inline double PowerOfTen(double exponent) {
  const bool isWhole = std::trunc(exponent) == exponent;
  if (!isWhole || std::fabs(exponent) > kLargestExactPower) return std::pow(10.0, exponent);
  return ExactDecimal(1, static_cast<int>(exponent));
}

}  // namespace ondrel
