// The run of the program from entry to exit.
#pragma once

#include "shell/window_record.h"

namespace ondrel {

/// Builds the workspace and the frame, restores the preferences, shows the frame at its remembered
/// place, lets the user begin, and runs the message loop. `instance` is the application's module.
/// Returns 0, or -1 when memory for the workspace, the callback table or the frame could not be
/// had.
int RunApplication(void* instance);

/// "E&xit" and the frame's close box: saves the preferences, closes the views, frees the tables and
/// destroys the frame, which ends the message loop. The frame's record is gone afterwards.
void ExitCommand(FrameWindow* frame);

}  // namespace ondrel
