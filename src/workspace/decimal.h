// The exact case of turning decimal digits into a real: a whole number below 2^53 and a power of
// ten up to 10^22 are both reals without error, so that one multiplication or division, which
// rounds once, gives the nearest real (Clinger 1990). Nearly all numbers of tables are such.
#pragma once

#include <cstdint>

namespace ondrel {

constexpr bool IsDigit(char byte) {
  return byte >= '0' && byte <= '9';
}

inline constexpr std::uint64_t kLargestExactWhole = std::uint64_t{1} << 53;
inline constexpr int kLargestExactPower = 22;
inline constexpr double kPowersOfTen[kLargestExactPower + 1] = {
    1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
    1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

/// Most digits that a 64-bit whole number takes without a test for overflow.
inline constexpr int kMaxWholeDigits = 19;

constexpr bool IsExactDecimal(std::uint64_t whole, int power) {
  return whole <= kLargestExactWhole && power >= -kLargestExactPower && power <= kLargestExactPower;
}

/// `whole` times ten to the `power`, for which IsExactDecimal holds.
constexpr double ExactDecimal(std::uint64_t whole, int power) {
  const double real = static_cast<double>(static_cast<std::int64_t>(whole));
  return power < 0 ? real / kPowersOfTen[-power] : real * kPowersOfTen[power];
}

}  // namespace ondrel
