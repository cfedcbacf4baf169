// The window of a view: opening, closing, repainting, and the callback table that the window layer
// calls. At most one window of each kind exists.
#pragma once

#include "views/view_kinds.h"

namespace ondrel {

/// Opens the view at its remembered place, at the next cascade
/// place when it has none, or brings its window forward when it is open. A failure is told, and the
/// view stays closed.
void OpenView(FrameWindow* frame, ViewKind kind);

/// The view whose window is in front. False when there is none.
[[nodiscard]] bool FindActiveView(const Workspace& workspace, ViewKind* kind);

/// Draws the window's content at once. Harmless on a closed view.
void PaintViewNow(Workspace& workspace, ViewKind kind);

/// Destroys window and table; the next window comes forward. The view's place stays remembered.
/// Harmless on a closed view.
void DestroyView(Workspace& workspace, ViewKind kind);

/// Clears the window to its background now and has the rest painted. Harmless on a closed view.
void RepaintView(Workspace& workspace, ViewKind kind);

/// Repaints the view if its picture is stale; it is not afterwards. A closed view draws from the
/// current state when it opens.
void RepaintViewIfStale(Workspace& workspace, ViewKind kind);

}  // namespace ondrel
