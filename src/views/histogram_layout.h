// Where the axes of a histogram stand in a rectangle, and how wide its bins and counts are there.
#pragma once

#include "output/graphics_sink.h"
#include "workspace/workspace.h"

namespace ondrel {

/// Each computes the view's `Frame` and the pixel fields of its histogram for `rect`, in the device
/// units of `sink`. In the duration view without ConstrainPositive the line of count zero moves to
/// the middle. A duration histogram that is not counted yet is counted here.
void LayoutAmplitude(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect);
void LayoutDuration(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect);
/// The same from the counts as they stand; nothing is counted.
void LayoutCountedDuration(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect);

}  // namespace ondrel
