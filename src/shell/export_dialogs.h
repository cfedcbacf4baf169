// The dialogs that come before something leaves the program: each asks in which form it should.
#pragma once

#include "shell/window_record.h"
#include "workspace/geometry.h"

namespace ondrel {

/// How large a picture leaves the program.
struct PictureSize {
  double Height = 0.0;  // cm
  double Width = 0.0;   // cm
};

// Each stores in the settings what was entered and returns true, or returns false when the user
// cancelled and nothing changed.

/// "Export Graph". It begins with the size that `client`, the inside of the view to be exported,
/// has on the screen; `size` receives the one that was entered.
bool AskGraphExport(FrameWindow* frame, const IntRect& client, PictureSize* size);

/// "Export Text".
bool AskTextExport(FrameWindow* frame);

/// "Save Levels".
bool AskLevelFile(FrameWindow* frame);

}  // namespace ondrel
