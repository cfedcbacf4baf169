// Plain values that every floor shares: rectangles, lengths in device units, colours.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace ondrel {

/// A rectangle in device units, y growing downward; `Right` and `Bottom` lie one past its inside.
struct IntRect {
  std::int32_t Left = 0;
  std::int32_t Top = 0;
  std::int32_t Right = 0;
  std::int32_t Bottom = 0;

  friend bool operator==(const IntRect&, const IntRect&) = default;
};

/// A length too large to be one, as that of a place in a preference file may be, is the largest.
constexpr std::int32_t LengthBetween(std::int32_t from, std::int32_t to) {
  const std::int64_t length = std::int64_t{to} - from;
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(length, INT32_MIN, INT32_MAX));
}

constexpr std::int32_t Width(const IntRect& rect) {
  return LengthBetween(rect.Left, rect.Right);
}
constexpr std::int32_t Height(const IntRect& rect) {
  return LengthBetween(rect.Top, rect.Bottom);
}

/// A view without a remembered place has such a rectangle.
constexpr bool IsDegenerate(const IntRect& rect) {
  return rect.Left == rect.Right || rect.Top == rect.Bottom;
}

/// What rounding may do to a length in device units. Edges of a plot are fractions of a rectangle:
/// what stands on an edge by its numbers must not fall beside it by the last bits of a division.
inline constexpr double kLengthRounding = 1e-6;

/// Whether `position` lies past `edge`, by more than rounding.
inline bool LiesBeyond(double position, double edge) {
  return position - edge > kLengthRounding;
}

/// How many whole device units `length` has. One that is whole but for rounding is whole.
inline double WholeUnits(double length) {
  const double nearest = std::round(length);
  return std::fabs(length - nearest) <= kLengthRounding ? nearest : std::trunc(length);
}

/// A colour of three channels, each 0 to 65535. The platform shows the upper eight of the sixteen
/// bits.
struct RgbColor {
  std::int32_t Red = 0;
  std::int32_t Green = 0;
  std::int32_t Blue = 0;

  friend bool operator==(const RgbColor&, const RgbColor&) = default;
};

inline constexpr RgbColor kBlack{0, 0, 0};
inline constexpr RgbColor kWhite{65535, 65535, 65535};
inline constexpr RgbColor kGrey{49152, 49152, 49152};
inline constexpr RgbColor kRed{65535, 0, 0};
inline constexpr RgbColor kBlue{0, 0, 65535};

}  // namespace ondrel
