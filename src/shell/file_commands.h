// The entries of the File menu that bring recordings in and let them go.
#pragma once

#include "shell/window_record.h"

namespace ondrel {

/// "&Open...": allocates the tables, asks for a file and reads it, and opens the event and the
/// level view. After a failure nothing is loaded.
void OpenCommand(FrameWindow* frame);

/// "&Add...": reads a further file into the tables as they stand and redraws the open views.
void AddCommand(FrameWindow* frame);

/// "&Import Events...": replaces the events by those of a six-column table.
void ImportCommand(FrameWindow* frame);

/// "&Close": back to no data. Settings, selections and colours stay.
void CloseCommand(FrameWindow* frame);

}  // namespace ondrel
