// Text files for other programs, one for each of the twelve views.
#pragma once

#include "views/view_state.h"
#include "workspace/workspace.h"

namespace ondrel {

/// The file name that the save dialog offers for the view's text.
const char* OfferedTextName(ViewKind kind, TextExportChoice form);

/// Writes the text of the view `kind` to `path`, in place of what stands there, in the form of the
/// settings. A failure is told. What was written until then stays, except that no file is left
/// when it could not be opened.
void ExportText(FrameWindow* frame, ViewKind kind, const char* path);

}  // namespace ondrel
