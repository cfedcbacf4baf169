// The windows of the two tables of fit parameters. Their being open is what turns on estimates by
// mouse, the curves of the histogram views and "&Automatic Fit".
#pragma once

#include "views/view_kinds.h"
#include "workspace/workspace.h"

namespace ondrel {

/// Draws the view `kind`, AmplitudeFit or DurationFit, again at once: its numbers follow gestures.
/// Harmless on a closed view.
void RedrawFitView(Workspace& workspace, ViewKind kind);

/// The same while a fit runs, on white whatever the view's background.
void RedrawFitViewOnWhite(Workspace& workspace, ViewKind kind);

/// Opens the view and sets the first term to a start, or brings it to the front when it is open.
/// A failure is told.
void ManualAmplitudeFit(FrameWindow* frame);
void ManualDurationFit(FrameWindow* frame);

extern const ViewRoutines kAmplitudeFitViewRoutines;
extern const ViewRoutines kDurationFitViewRoutines;

}  // namespace ondrel
