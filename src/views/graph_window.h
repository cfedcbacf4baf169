// What the six graphs do alike besides being drawn: they are painted in their windows, and make
// room for their labels in a metafile.
#pragma once

#include "views/destination.h"
#include "views/view_kinds.h"

namespace ondrel {

/// Lays out and draws the whole client area of a scatter plot or the stationarity plot on `device`.
void PaintGraph(ChildWindow* window, ViewKind kind, const DeviceRecord& device);

/// The answer of a graph's view to a paint message.
template <ViewKind kKind>
void PaintGraphView(ChildWindow* window, const DeviceRecord& device) {
  PaintGraph(window, kKind, device);
}

/// Moves the labels of the vertical axis away from it by the width of the highest one, which then
/// ends where it would have ended if the device could measure it; the others begin where it does.
/// The view must have been laid out.
void WidenLabelOffset(Workspace& workspace, ViewKind kind, const Destination& destination);

/// What a graph moves for a metafile.
template <ViewKind kKind>
void MoveLabelsOf(Workspace& workspace, const Destination& destination) {
  WidenLabelOffset(workspace, kKind, destination);
}

}  // namespace ondrel
