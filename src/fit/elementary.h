// exp and log for the inner loops of a fit, most of whose time goes into them: those of the C
// runtime of Windows take about 4 times as long. They ask nothing of the library, so that the same
// argument gives the same bits on every build. A whole duration fit may still differ in the last
// ones, since the edges of bins inside a decade come from the library's pow.
//
// Both look the leading part of the result up in a table and correct it by a short polynomial (P.
// T. P. Tang, ACM Transactions on Mathematical Software 15, 1989, and 16, 1990). The largest errors
// seen against long double are 0.51 units in the last place for Exp and 0.52 for Log; 0.76 for a
// subnormal result and 0.55 for a subnormal argument.
#pragma once

#include <emmintrin.h>

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "fit/number_pair.h"

namespace ondrel {
namespace elementary {

/// The exponential takes steps of ln 2 / 128, the logarithm 128 unequal ones within a factor of 2.
inline constexpr int kStepBits = 7;
inline constexpr std::size_t kSteps = 1U << kStepBits;
inline constexpr int kFractionBits = 52;  // of a double

/// 2^(j / 128). `Bits` are those of the nearest double less j steps of the exponent's field, so
/// that adding a multiple of a step, j included, scales it by a power of 2. `Tail` is what the
/// double lacks, as a fraction of it.
struct PowerEntry {
  std::uint64_t Bits;
  double Tail;
};

/// A short number near the reciprocal of the middle of a step, and minus its logarithm in two
/// parts. It is 1 for the step about 1, so that results near 0 are as good as all others.
struct LogarithmEntry {
  double Reciprocal;
  double High;  // a multiple of 2^-42, as kLogTwoHigh is
  double Low;
};

extern const std::array<PowerEntry, kSteps> kPowers;
extern const std::array<LogarithmEntry, kSteps> kLogarithms;

/// ln 2 / 128, whose high part times any whole number of steps is exact.
inline constexpr double kStepHigh = 0x1.62e42fefp-8;
inline constexpr double kStepLow = 0x1.473de6af278edp-41;
inline constexpr double kStepsPerUnit = 0x1.71547652b82fep+7;

/// Adding it rounds to a whole number, which then stands in the last bits.
inline constexpr double kRounder = 0x1.8p52;

/// Between them neither the exponential nor its correction overflows or loses bits.
inline constexpr double kLowestPlain = -690.0;
inline constexpr double kHighestPlain = 709.0;

/// ln 2, whose high part is a multiple of 2^-42: times any exponent it is exact.
inline constexpr double kLogTwoHigh = 0x1.62e42fefa38p-1;
inline constexpr double kLogTwoLow = 0x1.ef35793c7673p-45;

/// Bits of the smallest number of the first step of the logarithm, about 0.705. The step about 1
/// begins half a step below it.
inline constexpr std::uint64_t kStepAboutOne = 75;
inline constexpr int kStepShift = kFractionBits - kStepBits;
inline constexpr std::uint64_t kFirstStep =
    0x3ff0000000000000 - (kStepAboutOne << kStepShift) - (std::uint64_t{1} << (kStepShift - 1));

/// The cases that the fast ways leave out.
double ExpBeyond(double x);
Pair ExpBeyond(Pair x);
double LogBeyond(double x);
Pair LogBeyond(Pair x);

/// An exponential in the making: the bits of a power of 2, and what is to be added to it as a
/// fraction of it.
struct SplitExp {
  std::uint64_t PowerBits;
  double Fraction;
};
struct SplitPairExp {
  __m128i PowerBits;
  Pair Fraction;
};

[[gnu::always_inline]] inline SplitExp LookUp(double rounded, double series) {
  const auto steps = std::bit_cast<std::uint64_t>(rounded);
  const PowerEntry& entry = kPowers[steps % kSteps];
  return {entry.Bits + (steps << kStepShift), entry.Tail + series};
}

[[gnu::always_inline]] inline SplitPairExp LookUp(Pair rounded, Pair series) {
  const __m128i steps = _mm_castpd_si128(rounded.Lanes);
  const auto first = static_cast<std::uint32_t>(_mm_cvtsi128_si32(steps)) % kSteps;
  const auto second = static_cast<std::uint32_t>(_mm_extract_epi16(steps, 4)) % kSteps;
  const __m128d firstEntry = _mm_loadu_pd(reinterpret_cast<const double*>(&kPowers[first]));
  const __m128d secondEntry = _mm_loadu_pd(reinterpret_cast<const double*>(&kPowers[second]));
  const __m128i bits = _mm_castpd_si128(_mm_unpacklo_pd(firstEntry, secondEntry));
  const Pair tails = _mm_unpackhi_pd(firstEntry, secondEntry);
  return {_mm_add_epi64(bits, _mm_slli_epi64(steps, kStepShift)), tails + series};
}

/// For an `x` between the two ends above, and with `PowerBits` that wrap around, beyond them.
template <typename Real>
[[gnu::always_inline]] inline auto Split(Real x) {
  const Real rounded = x * kStepsPerUnit + kRounder;
  const Real whole = rounded - kRounder;
  const Real r = (x - whole * kStepHigh) - whole * kStepLow;
  const Real square = r * r;
  const Real series =
      r + square * ((0.5 + r * (1.0 / 6.0)) + square * (1.0 / 24.0 + r * (1.0 / 120.0)));
  return LookUp(rounded, series);
}

}  // namespace elementary

/// e to the `x`. Results above the largest double are infinite, those below the smallest 0.
[[gnu::always_inline]] inline double Exp(double x) {
  if (!(x >= elementary::kLowestPlain && x <= elementary::kHighestPlain)) {
    return elementary::ExpBeyond(x);
  }
  const elementary::SplitExp parts = elementary::Split(x);
  const auto power = std::bit_cast<double>(parts.PowerBits);
  return power + power * parts.Fraction;
}

/// The same bits in each lane.
[[gnu::always_inline]] inline Pair Exp(Pair x) {
  if (!All((x >= elementary::kLowestPlain) & (x <= elementary::kHighestPlain))) {
    return elementary::ExpBeyond(x);
  }
  const elementary::SplitPairExp parts = elementary::Split(x);
  const Pair power = _mm_castsi128_pd(parts.PowerBits);
  return power + power * parts.Fraction;
}

namespace elementary {

/// Where the logarithm of a number begins: its step's entry, the number without its power of 2, and
/// that power.
struct LogStart {
  double Reciprocal;
  double High;
  double Low;
  double Number;
  double Leading;  // of `Number`, without the last 27 bits
  double Power;
};
struct PairLogStart {
  Pair Reciprocal;
  Pair High;
  Pair Low;
  Pair Number;
  Pair Leading;
  Pair Power;
};

inline constexpr std::uint64_t kExponentMask = ~std::uint64_t{0} << kFractionBits;
inline constexpr std::uint64_t kLeadingMask = ~std::uint64_t{0} << 27;

[[gnu::always_inline]] inline LogStart StartLog(double x) {
  const auto bits = std::bit_cast<std::uint64_t>(x);
  const std::uint64_t place = bits - kFirstStep;
  const LogarithmEntry& entry = kLogarithms[(place >> kStepShift) % kSteps];
  const auto power = static_cast<std::int32_t>(static_cast<std::int64_t>(place) >> kFractionBits);
  const std::uint64_t number = bits - (place & kExponentMask);
  return {entry.Reciprocal,
          entry.High,
          entry.Low,
          std::bit_cast<double>(number),
          std::bit_cast<double>(number & kLeadingMask),
          static_cast<double>(power)};
}

[[gnu::always_inline]] inline PairLogStart StartLog(Pair x) {
  const __m128i bits = _mm_castpd_si128(x.Lanes);
  const __m128i place = _mm_sub_epi64(bits, _mm_set1_epi64x(static_cast<long long>(kFirstStep)));
  const __m128i steps = _mm_srli_epi64(place, kStepShift);
  const auto first = static_cast<std::uint32_t>(_mm_cvtsi128_si32(steps)) % kSteps;
  const auto second = static_cast<std::uint32_t>(_mm_extract_epi16(steps, 4)) % kSteps;
  const LogarithmEntry& a = kLogarithms[first];
  const LogarithmEntry& b = kLogarithms[second];
  const __m128i highHalves = _mm_shuffle_epi32(place, _MM_SHUFFLE(3, 1, 3, 1));
  const __m128i powers = _mm_srai_epi32(highHalves, kFractionBits - 32);
  const __m128i exponents =
      _mm_and_si128(place, _mm_set1_epi64x(static_cast<long long>(kExponentMask)));
  const __m128i number = _mm_sub_epi64(bits, exponents);
  const __m128i leading =
      _mm_and_si128(number, _mm_set1_epi64x(static_cast<long long>(kLeadingMask)));
  return {{a.Reciprocal, b.Reciprocal}, {a.High, b.High},          {a.Low, b.Low},
          _mm_castsi128_pd(number),     _mm_castsi128_pd(leading), _mm_cvtepi32_pd(powers)};
}

template <typename Real>
[[gnu::always_inline]] inline Real PlainLog(Real x) {
  const auto start = StartLog(x);
  // Both halves of the number times the short reciprocal are exact: r + rest is, too.
  const Real rough = start.Leading * start.Reciprocal - 1.0;
  const Real fine = (start.Number - start.Leading) * start.Reciprocal;
  const Real r = rough + fine;
  const Real rest = fine - (r - rough);
  const Real base = start.Power * kLogTwoHigh + start.High;
  const Real sum = base + r;
  const Real low = ((base - sum) + r) + (rest + (start.Power * kLogTwoLow + start.Low));
  const Real square = r * r;
  const Real series = (-0.5 + r * (1.0 / 3.0)) +
                      square * ((-0.25 + r * 0.2) + square * (-1.0 / 6.0 + r * (1.0 / 7.0)));
  return sum + (low + square * series);
}

inline constexpr double kSmallestNormal = std::numeric_limits<double>::min();
inline constexpr double kLargest = std::numeric_limits<double>::max();

}  // namespace elementary

/// Natural logarithm: minus infinity for 0, not-a-number below it.
[[gnu::always_inline]] inline double Log(double x) {
  if (!(x >= elementary::kSmallestNormal && x <= elementary::kLargest)) {
    return elementary::LogBeyond(x);
  }
  return elementary::PlainLog(x);
}

/// The same bits in each lane.
[[gnu::always_inline]] inline Pair Log(Pair x) {
  if (!All((x >= elementary::kSmallestNormal) & (x <= elementary::kLargest))) {
    return elementary::LogBeyond(x);
  }
  return elementary::PlainLog(x);
}

}  // namespace ondrel
