// Where a view is drawn: what its routines know of the window, the page, the metafile or the
// document that they draw on.
#pragma once

#include "output/plot_primitives.h"
#include "workspace/geometry.h"
#include "workspace/workspace.h"

namespace ondrel {

struct ViewRoutines;

struct Destination {
  const GraphicsSink& Sink;
  IntRect Rect;             // that the view takes up
  double Dpi = 0.0;         // of the device that measures: symbols get their size in cm by it
  double PictureDpi = 0.0;  // of what comes out in the end: pictures get their size by it
  double Leading = 0.0;     // between the lines of the tables that scroll, in heights of a letter
};

/// The client area of a window, in which a drawing has begun.
Destination InWindow(Workspace& workspace, const IntRect& client);

/// Draws a view that was laid out, on a device, and nothing outside of the destination's rectangle.
void DrawClipped(Workspace& workspace, const ViewRoutines& view, const Destination& destination);

}  // namespace ondrel
