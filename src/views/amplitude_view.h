// The amplitude histogram: axes, bars, and while a fit is worked on its curves and markers.
#pragma once

#include "output/graphics_sink.h"
#include "views/view_kinds.h"
#include "workspace/workspace.h"

namespace ondrel {

/// Draws the whole view in the order X axis, Y axis, bars, fit, after a layout for `rect`. Stops
/// between them when the sink has failed.
void DrawAmplitude(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect);

void DrawAmplitudeXAxis(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect);
void DrawAmplitudeYAxis(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect);
void DrawAmplitudeBars(Workspace& workspace, const GraphicsSink& sink);
void DrawAmplitudeFit(Workspace& workspace, const GraphicsSink& sink);

extern const ViewRoutines kAmplitudeViewRoutines;

}  // namespace ondrel
