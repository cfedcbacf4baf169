// The stationarity plot: the running average across the selected sweeps against time. It scales
// itself.
#pragma once

#include "output/graphics_sink.h"
#include "views/view_kinds.h"
#include "workspace/workspace.h"

namespace ondrel {

/// Works out the view's `Frame`, both axes and the samples for `rect`. Every drawing begins with
/// this. Numbers are measured on the device that measures for the context. Samples for which there
/// is no memory are told and left out.
void ComputeStationarity(Workspace& workspace, const IntRect& rect);

/// Draws time axis, value axis and curve as ComputeStationarity left them for `rect`; without
/// samples only the titles and the lines of the axes. Stops between the three when the sink has
/// failed.
void DrawStationarity(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect);

extern const ViewRoutines kStationarityViewRoutines;

}  // namespace ondrel
