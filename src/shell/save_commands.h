// The entries of the File menu that write the tables to files. Whatever goes wrong is told once and
// leaves the file as far as it came, and the tables as they were.
#pragma once

#include "shell/window_record.h"

namespace ondrel {

/// "Save &Events..."
void SaveEventsCommand(FrameWindow* frame);

/// "Save &Levels...": asks for the form of the file first, which is kept even when no file is
/// chosen.
void SaveLevelsCommand(FrameWindow* frame);

}  // namespace ondrel
