#include "views/destination.h"

#include "shell/toolkit.h"
#include "views/view_kinds.h"

namespace ondrel {

Destination InWindow(Workspace& workspace, const IntRect& client) {
  const double dpi = toolkit::DeviceDpi(workspace.Graphics.Device);
  return {.Sink = workspace.ScreenSink, .Rect = client, .Dpi = dpi, .PictureDpi = dpi};
}

void DrawClipped(Workspace& workspace, const ViewRoutines& view, const Destination& destination) {
  SetClip({destination.Sink, workspace.Graphics}, destination.Rect);
  view.Draw(workspace, destination);
  toolkit::RemoveClip(workspace.Graphics.Device);
}

}  // namespace ondrel
