#include "derived/axis_step.h"

#include <cmath>

#include "workspace/power_of_ten.h"

namespace ondrel {
namespace {

/// log10(size) cut toward 0. The powers of ten decide, since a logarithm that is a bit too small
/// would give a size of 1000 the step of 999.
double ExponentOf(double size) {
  const double exponent = std::trunc(std::log10(size));
  if (size < 1.0) {
    if (PowerOfTen(exponent) < size) return exponent + 1.0;
    return PowerOfTen(exponent - 1.0) >= size ? exponent - 1.0 : exponent;
  }
  if (PowerOfTen(exponent) > size) return exponent - 1.0;
  return PowerOfTen(exponent + 1.0) <= size ? exponent + 1.0 : exponent;
}

}  // namespace

double AxisStep(double size) {
  const double power = PowerOfTen(ExponentOf(size));
  if (size < 2.0 * power) return power;
  return size < 5.0 * power ? 2.0 * power : 5.0 * power;
}

}  // namespace ondrel
