// The oldest layout: rows of transitions and nothing else, as a tool writes that knows of events
// only. Its sweeps are made up from the sweep numbers of the rows.
#pragma once

#include "shell/window_record.h"
#include "workspace/text_scanner.h"

namespace ondrel {

/// Reads rows until the end of the data, makes their sweeps and refreshes the scroll ranges. False
/// when a row cannot be taken, which the user is told, or when there is none; the tables are then
/// as they were. True also when the rows were dropped because no sweeps could be made for them.
bool ReadBareList(FrameWindow* frame, TextScanner scanner);

}  // namespace ondrel
