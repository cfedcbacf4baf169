// What a view of fit parameters shows: the formula of the model, how many events the histogram has,
// how likely the terms make them, and a row for each term.
#pragma once

#include <cstdint>

#include "output/graphics_sink.h"
#include "workspace/workspace.h"

namespace ondrel {

/// Height of a line in the font that is selected now, with some leading even if the font asks for
/// none.
std::int32_t FitLineHeight(const Workspace& workspace);

/// Each sets the columns of its view side by side from the left of `rect`, in the font that is
/// selected now.
void MeasureAmplitudeFitColumns(Workspace& workspace, const IntRect& rect);
void MeasureDurationFitColumns(Workspace& workspace, const IntRect& rect);

/// Each draws formula and table with their upper left corner at that of `rect`, in the columns that
/// were measured before. `dpi` is the destination's resolution and `lineHeight` that of its font.
/// When the formula cannot be shown, the amplitude table says so in its own place, and the duration
/// table stands without it.
void DrawAmplitudeFitTable(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect,
                           double dpi, std::int32_t lineHeight);
void DrawDurationFitTable(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect,
                          double dpi, std::int32_t lineHeight);

}  // namespace ondrel
