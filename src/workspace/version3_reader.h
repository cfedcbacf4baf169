// The layout of version 3 and above, which is also the one that is written: for each data file a
// group of its type, name and header, its sweeps, their segments, and its events.
#pragma once

#include <cstdint>

#include "shell/window_record.h"
#include "workspace/text_scanner.h"

namespace ondrel {

/// Reads the rest of a table from behind its version; `name` is the short name of the file. Groups
/// read in full stay even when a later one fails. A group that fails leaves no file, sweep or
/// event; the user is told, but for an unknown type or a bad header, which end the reading quietly.
/// Some damage inside a group is told and what was read of it is kept. Segment rows numbered 0 or
/// below belong to sweeps of earlier files, whose segments they replace in any case. False when a
/// group failed or none could begin.
bool ReadVersion3Table(FrameWindow* frame, TextScanner scanner, std::int32_t version,
                       const char* name);

}  // namespace ondrel
