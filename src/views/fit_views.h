// The two views of fit parameters: the model's formula, the log likelihood and the table of terms.
// Their being open is what turns on estimates by mouse, the curves of the histogram views and
// "&Automatic Fit".
#pragma once

#include "output/graphics_sink.h"
#include "views/view_kinds.h"
#include "workspace/workspace.h"

namespace ondrel {

/// Each draws formula and table with their upper left corner at that of `rect`. `dpi` is the
/// destination's resolution and `lineHeight` that of its font.
void DrawAmplitudeFitTable(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect,
                           double dpi, std::int32_t lineHeight);
void DrawDurationFitTable(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect,
                          double dpi, std::int32_t lineHeight);

/// Draws the view `kind`, AmplitudeFit or DurationFit, again at once on white: its numbers follow
/// gestures and fits. Harmless on a closed view.
void RedrawFitView(Workspace& workspace, ViewKind kind);

/// Opens the view and sets the first term to a start, or brings it to the front when it is open.
/// A failure is told.
void ManualAmplitudeFit(FrameWindow* frame);
void ManualDurationFit(FrameWindow* frame);

extern const ViewRoutines kAmplitudeFitViewRoutines;
extern const ViewRoutines kDurationFitViewRoutines;

}  // namespace ondrel
