// Event tables: text files that list, sweep by sweep, when the current stepped between levels.
// Three generations of layout are told apart by the first two tokens of the file.
#pragma once

#include <cstddef>

#include "shell/window_record.h"

namespace ondrel {

/// Asks for a file, reads it behind what the tables hold, and derives levels and selections.
/// Returns 0, or -1 when the user cancelled or was told of a failure, after which what the read has
/// committed stays in the tables.
int ReadDataFile(FrameWindow* frame);

/// Takes apart the `size` bytes of an event table, which are freed with toolkit::FreeMemory in any
/// case; `name` is the file's short name for messages. True when the data was taken.
bool ParseTable(FrameWindow* frame, char* buffer, const char* name, std::size_t size);

}  // namespace ondrel
