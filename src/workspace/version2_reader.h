// The layout of versions 1 and 2: a table of sweeps with their times, then the events, with a block
// in front that may say how many sweeps each data file had. It knows no names of data files.
#pragma once

#include <cstdint>

#include "shell/window_record.h"
#include "workspace/text_scanner.h"

namespace ondrel {

/// Reads the rest of a table from behind its version, which is 1 or 2; `name` is the short name of
/// the file. On failure, told to the user unless the table merely ends too early, nothing of the
/// file stays. The scroll ranges are refreshed in both cases, but for a file
/// that cannot be read.
bool ReadVersion2Table(FrameWindow* frame, TextScanner scanner, std::int32_t version,
                       const char* name);

}  // namespace ondrel
