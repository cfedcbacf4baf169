// A histogram in its window: painted, and drawn again at once while its terms move, in one go and
// without flicker.
#pragma once

#include "views/view_kinds.h"
#include "workspace/workspace.h"

namespace ondrel {

/// Lays out and draws the whole client area of the histogram `kind`, Amplitude or Duration, on
/// `device`. A `note` is written over it, in the colour of the labels.
void PaintHistogram(ChildWindow* window, ViewKind kind, const DeviceRecord& device,
                    const char* note = nullptr);

/// The same at once, outside of a paint message. Harmless on a closed view.
void RedrawHistogram(Workspace& workspace, ViewKind kind, const char* note = nullptr);

}  // namespace ondrel
