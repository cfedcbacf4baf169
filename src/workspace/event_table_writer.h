// Writes the tables as an event table of version 5, which the reader of version 3 and above takes.
// What it does not keep: the start times of sweeps, their numbers (they count anew from 1 in each
// file), selection flags, and digits beyond those that are written.
#pragma once

#include "shell/window_record.h"
#include "workspace/output_file.h"

namespace ondrel {

// Both write to a file that was opened, and leave it to be closed. False when the save ended early;
// the user has been told and the file stays as far as it came.

/// Files, sweeps, segments and events.
[[nodiscard]] bool SaveEventFile(FrameWindow* frame, OutputFile& file);

/// The levels, selected or not, in the place of the events; or a dwell table, as LevelFileType
/// says.
[[nodiscard]] bool SaveLevelFile(FrameWindow* frame, OutputFile& file);

}  // namespace ondrel
