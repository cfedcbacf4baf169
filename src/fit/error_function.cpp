#include "fit/error_function.h"

#include <array>
#include <cmath>

#include "fit/elementary.h"

namespace ondrel {
namespace {

constexpr std::array kNumerator{
    440.4137358247522,  625.686535769683,  448.3171659914834,  191.84014058796686,
    50.991697628253206, 7.923929828741545, 0.5641999455982575,
};
constexpr std::array kDenominator{
    440.4137358247522,  1122.6402201770466, 1274.6672667576622, 838.8103654784064,
    347.12292881178433, 90.87271120353704,  14.045337305461139, 1.0,
};

/// From the power 0 upward.
template <typename Real, std::size_t Count>
[[gnu::always_inline]] inline Real Polynomial(const std::array<double, Count>& coefficients,
                                              Real x) {
  Real sum = coefficients[Count - 1];
  for (std::size_t power = Count - 1; power-- > 0;) sum = sum * x + coefficients[power];
  return sum;
}

template <typename Real>
[[gnu::always_inline]] inline Real ComplementaryErfOf(Real x) {
  const Real a = Magnitude(x);
  const Real e = Exp(-(a * a)) * Polynomial(kNumerator, a) / Polynomial(kDenominator, a);
  return Choose(x < 0.0, 2.0 - e, e);
}

}  // namespace

double ComplementaryErf(double x) {
  return ComplementaryErfOf(x);
}

Pair ComplementaryErf(Pair x) {
  return ComplementaryErfOf(x);
}

double CoarseErf(double x) {
  const double t = 1.0 / (1.0 + 0.47047 * std::fabs(x));
  const double series = 0.3480242 * t + -0.0958798 * (t * t) + 0.7478556 * (t * t * t);
  const double e = 1.0 - Exp(-(x * x)) * series;
  return x < 0.0 ? -e : e;
}

}  // namespace ondrel
