#include "views/graph_window.h"

#include "shell/toolkit.h"
#include "views/screen_drawing.h"
#include "views/top_label.h"

namespace ondrel {

void PaintGraph(ChildWindow* window, ViewKind kind, const DeviceRecord& device) {
  Workspace& workspace = *window->Owner;
  const ViewKindRecord& facts = FactsOf(kind);
  const IntRect client = toolkit::ClientRect(window);
  const RgbColor& background = ViewOf(workspace, kind).Colors[facts.Background];
  DrawOutOfSight(workspace, device, client, background, [&](const Drawing&) {
    const Destination destination = InWindow(workspace, client);
    facts.Routines->LayOut(workspace, destination);
    facts.Routines->Draw(workspace, destination);
  });
}

void WidenLabelOffset(Workspace& workspace, ViewKind kind, const Destination& destination) {
  const std::int32_t width = TopLabelWidth(workspace, *FactsOf(kind).Routines, destination);
  ViewOf(workspace, kind).Frame.LabelOffset += width;
}

}  // namespace ondrel
