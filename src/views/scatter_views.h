// The three scatter plots: amplitude and duration of each selected level against a value, and
// amplitude against duration. They are scaled by the user and never by the data.
#pragma once

#include "output/graphics_sink.h"
#include "views/view_kinds.h"
#include "workspace/workspace.h"

namespace ondrel {

/// Each computes the view's `Frame` and `Scatter` for `rect`. `dpi` is that of the device, by which
/// dots get their size in cm. Lengths are whole device units in every form of drawing, also in
/// files.
void LayoutAmplitudeScatter(Workspace& workspace, const IntRect& rect, double dpi);
void LayoutDurationScatter(Workspace& workspace, const IntRect& rect, double dpi);
void LayoutScatter(Workspace& workspace, const IntRect& rect, double dpi);

/// Each draws horizontal axis, vertical axis and dots as the last layout placed them, which must
/// have been made for the same `rect`. Stops between the three when the sink has failed.
void DrawAmplitudeScatter(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect);
void DrawDurationScatter(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect);
void DrawScatter(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect);

extern const ViewRoutines kAmplitudeScatterViewRoutines;
extern const ViewRoutines kDurationScatterViewRoutines;
extern const ViewRoutines kScatterViewRoutines;

}  // namespace ondrel
