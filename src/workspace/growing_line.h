// A line of any number of fields while it is put together: a sweep has as many segments as its
// recording gives it.
#pragma once

#include <cstddef>
#include <string_view>

#include "shell/window_record.h"

namespace ondrel {

/// The line's first block, and what it grows by at least.
inline constexpr std::size_t kLineGrowth = 256;  // bytes

struct GrowingLine {
  char* Text = nullptr;  // owned
  std::size_t Used = 0;  // bytes; set to 0 for a new line
  std::size_t Capacity = 0;
};

inline std::string_view TextOf(const GrowingLine& line) {
  return {line.Text, line.Used};
}

/// Appends `text` and `separator`. A line that they would fill grows by kLineGrowth, or by their
/// length when that is more. False when there is no memory, which the user is told; the line then
/// is as it was.
[[nodiscard]] bool AppendField(FrameWindow* frame, GrowingLine& line, std::string_view text,
                               char separator);

/// Harmless on a line that never grew.
void FreeLine(GrowingLine& line);

}  // namespace ondrel
