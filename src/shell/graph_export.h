// The command by which the picture of a view leaves the program: as a document, as a metafile, or
// to the clipboard.
#pragma once

#include "shell/window_record.h"

namespace ondrel {

/// "Export Graph...": asks for form and size, and for a file unless the clipboard was chosen. It is
/// for the view in front, and does nothing without one. Failures are told; a document stays on disk
/// as far as it came.
void ExportGraphCommand(FrameWindow* frame);

}  // namespace ondrel
