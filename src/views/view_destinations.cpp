#include "views/view_destinations.h"

#include "shell/toolkit.h"
#include "views/destination.h"
#include "views/screen_drawing.h"
#include "views/view_kinds.h"
#include "views/view_window.h"

namespace ondrel {
namespace {

/// What Status is without a metafile, or without a device that measures for what is drawn.
constexpr std::int32_t kNoDevice = -1;

/// Between the lines of the tables that scroll, on paper alone.
constexpr double kLeadingOnPaper = 0.2;

DrawingSetUp SizesOfExport(const Workspace& workspace) {
  return {.FontHeight = workspace.DeviceFontSize, .PenSize = workspace.DevicePenSize};
}

/// Has the view drawn by `draw`, with a layout that paint messages leave alone. Then the window's
/// layout is in force again: texts are exported by it, and the mouse finds the handles of terms by
/// it. What the context tells of the drawing stays.
template <typename DrawAll>
void DrawElsewhere(Workspace& workspace, ViewKind kind, DrawAll draw) {
  ViewState& view = ViewOf(workspace, kind);
  view.DrawnElsewhere = true;
  draw();
  view.DrawnElsewhere = false;
  const std::int32_t status = workspace.Graphics.Status;
  PaintViewNow(workspace, kind);
  workspace.Graphics.Status = status;
}

}  // namespace

// --- Documents -----------------------------------------------------------------------------------

namespace {

void DrawInDocument(Workspace& workspace, ViewKind kind, const GraphicsSink& sink,
                    const IntRect& rect, const DeviceRecord& lent) {
  const ViewKindRecord& facts = FactsOf(kind);
  const double dpi = toolkit::DeviceDpi(lent);
  const Destination destination{.Sink = sink, .Rect = rect, .Dpi = dpi, .PictureDpi = dpi};
  BeginDrawing(workspace, lent, SizesOfExport(workspace));
  facts.Routines->LayOut(workspace, destination);
  const Drawing drawing{sink, workspace.Graphics};
  if (facts.ClipsInFiles) SetClip(drawing, rect);
  if (!HasFailed(drawing)) facts.Routines->Draw(workspace, destination);
  EndDrawing(workspace);
}

}  // namespace

std::int32_t DrawViewToFile(Workspace& workspace, ViewKind kind, const GraphicsSink& sink,
                            const IntRect& rect) {
  DeviceRecord lent = toolkit::AcquireMeasuringDevice();
  if (lent.Dc == nullptr) return workspace.Graphics.Status = kNoDevice;
  DrawElsewhere(workspace, kind, [&] {
    DrawInDocument(workspace, kind, sink, rect, lent);
    toolkit::ReleaseMeasuringDevice(lent);
  });
  return workspace.Graphics.Status;
}

// --- Metafiles -----------------------------------------------------------------------------------

namespace {

/// Everything is measured by `lent`, since the metafile's own device measures nothing.
void DrawOnMetafile(Workspace& workspace, ViewKind kind, const DeviceRecord& metafile,
                    const DeviceRecord& lent) {
  const ViewRoutines& view = *FactsOf(kind).Routines;
  const Destination destination{.Sink = workspace.ScreenSink,
                                .Rect = workspace.ExportRect,
                                .Dpi = toolkit::DeviceDpi(lent),
                                .PictureDpi = workspace.ExportDpi};
  BeginDrawing(workspace, metafile, SizesOfExport(workspace));
  LendDevice(workspace, lent, SizesOfExport(workspace));
  view.LayOut(workspace, destination);
  if (view.MoveForMetafile != nullptr) view.MoveForMetafile(workspace, destination);
  DrawClipped(workspace, view, destination);
  TakeBackDevice(workspace);
  EndDrawing(workspace);
}

/// Null when it could not be made.
toolkit::MetafileHandle MakeMetafile(Workspace& workspace, ViewKind kind) {
  DeviceRecord lent = toolkit::AcquireMeasuringDevice();
  if (lent.Dc == nullptr) return {};
  DeviceRecord device = toolkit::BeginMetafile();
  if (device.Dc == nullptr) {
    toolkit::ReleaseMeasuringDevice(lent);
    return {};
  }
  toolkit::MetafileHandle metafile;
  DrawElsewhere(workspace, kind, [&] {
    DrawOnMetafile(workspace, kind, device, lent);
    metafile = toolkit::EndMetafile(device);
    toolkit::ReleaseMeasuringDevice(lent);
  });
  return metafile;
}

}  // namespace

bool DrawViewToMetafile(Workspace& workspace, ViewKind kind, MetafileRecord* record) {
  record->Picture = MakeMetafile(workspace, kind);
  if (record->Picture.Handle == nullptr) {
    workspace.Graphics.Status = kNoDevice;
    return false;
  }
  DescribeMetafile(*record, workspace.ExportRect, workspace.ExportDpi, workspace.Graphics.FileName);
  return true;
}

// --- Paper ---------------------------------------------------------------------------------------

namespace {

void DrawOnPaper(Workspace& workspace, ViewKind kind, const DeviceRecord& printer) {
  const ViewRoutines& view = *FactsOf(kind).Routines;
  Destination destination{.Sink = workspace.ScreenSink,
                          .Rect = workspace.ExportRect,
                          .Dpi = workspace.ExportDpi,
                          .PictureDpi = workspace.ExportDpi,
                          .Leading = kLeadingOnPaper};
  BeginDrawing(workspace, printer, SizesOfExport(workspace));
  view.LayOut(workspace, destination);
  if (view.BottomOnPaper != nullptr) {
    destination.Rect.Bottom = view.BottomOnPaper(workspace, destination);
    workspace.ExportRect = destination.Rect;
  }
  if (view.ClipsOnPaper) {
    DrawClipped(workspace, view, destination);
  } else {
    view.Draw(workspace, destination);
  }
  EndDrawing(workspace);
}

}  // namespace

void DrawViewToPrinter(Workspace& workspace, ViewKind kind, const DeviceRecord& printer) {
  DrawElsewhere(workspace, kind, [&] { DrawOnPaper(workspace, kind, printer); });
}

}  // namespace ondrel
