// The amplitude histogram: axes, bars, and while a fit is worked on its curves and markers.
#pragma once

#include "output/graphics_sink.h"
#include "views/view_kinds.h"
#include "workspace/workspace.h"

namespace ondrel {

// All of these draw what the last layout computed, which must have been made for the same `rect`
// and sink.

/// Draws the whole view in the order X axis, Y axis, bars, fit. Stops between them when the sink
/// has failed.
void DrawAmplitude(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect);

/// The axis of currents at the frame's `PlotBottom` as it stands; the whole view has it one device
/// unit below the bars.
void DrawAmplitudeXAxis(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect);

/// The axis of counts; without a count above 0 it has the number 0 alone.
void DrawAmplitudeYAxis(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect);

/// Nothing without bins, or without a count above 0.
void DrawAmplitudeBars(Workspace& workspace, const GraphicsSink& sink);

/// The curves and handles of the fit; nothing while the view of its parameters is closed. Writes
/// `MarkerCount` and the markers anew, by which the mouse finds the terms. Stops between the terms
/// when the sink has failed.
void DrawAmplitudeFit(Workspace& workspace, const GraphicsSink& sink);

extern const ViewRoutines kAmplitudeViewRoutines;

}  // namespace ondrel
