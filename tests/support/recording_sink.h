// A form of the drawing table that writes down what it is asked to draw, one line of text a call.
// Coordinates keep their fractions, so that rounding done too early shows.
#pragma once

#include <string>
#include <vector>

#include "output/graphics_sink.h"

namespace ondrel::recording {

extern const GraphicsSink kRecordingSink;

/// What was drawn since the last Clear.
const std::vector<std::string>& Lines();

/// Forgets the lines, and has nothing fail.
void Clear();

/// The `count`-th text from now fails as a write to a full disk does: the context's Status becomes
/// `kFullDisk`. Its line is not written down.
void FailText(int count);
/// The same for what would be written down as a line that begins with `start`.
void FailLine(const std::string& start);
inline constexpr std::int32_t kFullDisk = 112;

}  // namespace ondrel::recording
