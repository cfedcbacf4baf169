// A histogram in its window: painted, and drawn again at once while its terms move, in one go and
// without flicker.
#pragma once

#include "views/view_kinds.h"
#include "workspace/workspace.h"

namespace ondrel {

/// Lays out and draws the whole client area of the histogram `kind`, Amplitude or Duration, on
/// `device`. A `note` is written over it, in the colour of the labels. The layout may tell the user
/// of a failure; a paint message that comes meanwhile finds nothing half drawn.
void PaintHistogram(ChildWindow* window, ViewKind kind, const DeviceRecord& device,
                    const char* note = nullptr);

/// The answer of a histogram's view to a paint message.
template <ViewKind kKind>
void PaintHistogramView(ChildWindow* window, const DeviceRecord& device) {
  PaintHistogram(window, kKind, device);
}

/// The same at once, outside of a paint message. Harmless on a closed view.
void RedrawHistogram(Workspace& workspace, ViewKind kind, const char* note = nullptr);

}  // namespace ondrel
