// The handles of a fit's terms in a histogram. A user moves a term by its handle.
#pragma once

#include <cstdint>

#include "output/graphics_sink.h"
#include "workspace/workspace.h"

namespace ondrel {

/// Half the side of a peak's handle, device units.
double MarkerHalf(const GraphFrame& frame);

/// Draws the handles of term `term`, at the top of its peak and, for an amplitude, at the end of
/// the bar that shows its width, and keeps their places as markers number `marker`.
void PlaceAmplitudeMarker(Workspace& workspace, const GraphicsSink& sink, std::int32_t term,
                          std::int32_t marker);
void PlaceDurationMarker(Workspace& workspace, const GraphicsSink& sink, std::int32_t term,
                         std::int32_t marker);

}  // namespace ondrel
