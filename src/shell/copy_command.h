// Pictures of views on the clipboard.
#pragma once

#include "shell/window_record.h"
#include "views/view_state.h"

namespace ondrel {

/// Draws the view into `ExportRect`, in the dots per inch of the screen, and puts the picture up. A
/// failure is told. `ExportDpi` stays what it was.
void PutViewOnClipboard(FrameWindow* frame, ViewKind kind);

/// The copy command: the view in front goes to the clipboard, in proportion to its window. Nothing
/// happens without one. `ScreenDpi` is read anew.
void CopyCommand(FrameWindow* frame);

}  // namespace ondrel
