// Pictures of what stands on the screen. Windows of another process cannot be read by themselves,
// so that what is to be seen must not be covered.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "window.h"

namespace ondrel::e2e {

inline constexpr std::uint32_t kBlack = 0x000000;
inline constexpr std::uint32_t kWhite = 0xFFFFFF;
inline constexpr std::uint32_t kRed = 0xFF0000;
inline constexpr std::uint32_t kBlue = 0x0000FF;
inline constexpr std::uint32_t kGrey = 0xC0C0C0;  // 49152 in 65536ths

/// Rows from the top, 0xRRGGBB each.
struct Picture {
  int Width = 0;
  int Height = 0;
  std::vector<std::uint32_t> Pixels;

  [[nodiscard]] std::uint32_t At(int x, int y) const;
  /// `rect` is in pixels of this picture and cut to it.
  [[nodiscard]] Picture Cut(const Rect& rect) const;
  /// How many pixels have this colour.
  [[nodiscard]] int Count(std::uint32_t color) const;
  bool operator==(const Picture&) const = default;
};

/// The part of the screen in `place`, cut to the screen.
Picture TakeScreen(const Rect& place);

/// Writes a PNG file. Fails when the file cannot be written.
void SavePng(const Picture& picture, const std::string& path);

}  // namespace ondrel::e2e
