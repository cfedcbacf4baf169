// "Export &Text..." of the menu "&File".
#pragma once

#include "shell/window_record.h"

namespace ondrel {

/// Asks for the form and for a file, and writes the text of the active view to it. Without an
/// active view the form is stored and nothing more is asked.
void ExportTextCommand(FrameWindow* frame);

}  // namespace ondrel
