// The commands by which the picture of a view leaves the program: into a document, a metafile or
// the clipboard.
#pragma once

#include "shell/window_record.h"

namespace ondrel {

// Both are for the view in front, and do nothing without one. Failures are told; a document stays
// on disk as far as it came.

/// "Export Graph...": asks for form and size, and for a file unless the clipboard was chosen.
void ExportGraphCommand(FrameWindow* frame);

/// The copy command: the view goes to the clipboard, in proportion to its window. `ScreenDpi` is
/// read anew; `ExportDpi` stays what it was.
void CopyCommand(FrameWindow* frame);

}  // namespace ondrel
