// The import of events: a bare list of six columns that replaces the events of sweeps already read.
#pragma once

#include <cstddef>

#include "shell/window_record.h"

namespace ondrel {

/// The command: asks whether loaded events may go, then for a file, and imports it. Returns as
/// ImportEvents does, and -1 when the user cancels.
int AskAndImportEvents(FrameWindow* frame);

/// Imports the file and derives levels and selections. Returns 0, or -1 when the file cannot be
/// read or when there are no events now and were none before, in which case nothing is derived.
int ImportEvents(FrameWindow* frame, const char* path);

/// Replaces the events by the rows in the `size` bytes, which are freed with toolkit::FreeMemory in
/// any case. A row that is no row, or does not lie inside a sweep, is told and leaves no events; a
/// full table is told and keeps those that fit. True when there are events now or were before.
bool ParseImport(FrameWindow* frame, char* buffer, const char* name, std::size_t size);

}  // namespace ondrel
