// The dialog "File Settings": capacities of the tables, sizes of font and pen, and whether it is
// shown at the start.
#pragma once

#include "shell/window_record.h"

namespace ondrel {

/// Shows the dialog and stores what was entered. Left by "O&pen...", it goes on with the "&Open..."
/// command. Offered only while nothing is loaded, so that no capacity changes under a table.
void FileSettingsCommand(FrameWindow* frame);

}  // namespace ondrel
