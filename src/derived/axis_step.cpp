#include "derived/axis_step.h"

#include <cmath>

#include "workspace/power_of_ten.h"

namespace ondrel {
namespace {

/// Sizes are quotients and averages. Below 1 a bit more than a power of ten would make the step ten
/// times as large.
constexpr double kRounding = 1e-9;  // of an edge

bool IsBelow(double size, double edge) {
  return size < edge * (1.0 - kRounding);
}
bool IsAbove(double size, double edge) {
  return size > edge * (1.0 + kRounding);
}

/// log10(size) cut toward 0. The powers of ten decide, since a runtime's logarithm can miss a whole
/// number to either side.
double ExponentOf(double size) {
  const double exponent = std::trunc(std::log10(size));
  if (IsBelow(size, 1.0)) {
    if (IsAbove(size, PowerOfTen(exponent))) return exponent + 1.0;
    return IsAbove(size, PowerOfTen(exponent - 1.0)) ? exponent : exponent - 1.0;
  }
  if (IsBelow(size, PowerOfTen(exponent))) return exponent - 1.0;
  return IsBelow(size, PowerOfTen(exponent + 1.0)) ? exponent : exponent + 1.0;
}

}  // namespace

double AxisStep(double size) {
  const double power = PowerOfTen(ExponentOf(size));
  if (IsBelow(size, 2.0 * power)) return power;
  return IsBelow(size, 5.0 * power) ? 2.0 * power : 5.0 * power;
}

}  // namespace ondrel
