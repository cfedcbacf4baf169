// The one way from a real to an integer.
#pragma once

#include <cstdint>
#include <limits>

namespace ondrel {

/// `value` truncated toward zero. Defined for every value: what does not fit saturates, and
/// not-a-number counts as out of range below.
constexpr std::int32_t TruncateToInteger(double value) {
  constexpr std::int32_t lowest = std::numeric_limits<std::int32_t>::min();
  constexpr std::int32_t highest = std::numeric_limits<std::int32_t>::max();
  if (!(value > static_cast<double>(lowest))) return lowest;
  if (value >= static_cast<double>(highest)) return highest;
  return static_cast<std::int32_t>(value);
}

}  // namespace ondrel
