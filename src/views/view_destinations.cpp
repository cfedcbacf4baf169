#include "views/view_destinations.h"

#include "shell/toolkit.h"
#include "views/destination.h"
#include "views/screen_drawing.h"
#include "views/view_kinds.h"
#include "views/view_window.h"

namespace ondrel {
namespace {

/// What Status is when a metafile could not be made.
constexpr std::int32_t kNoMetafile = -1;

/// Between the lines of the tables that scroll, on paper alone.
constexpr double kLeadingOnPaper = 0.2;

DrawingSetUp SizesOfExport(const Workspace& workspace) {
  return {.FontHeight = workspace.DeviceFontSize, .PenSize = workspace.DevicePenSize};
}

/// The window's layout is in force again: texts are exported by it, and the mouse finds the handles
/// of terms by it. What the context tells of the drawing that went before stays.
void PaintAgain(Workspace& workspace, ViewKind kind) {
  const std::int32_t status = workspace.Graphics.Status;
  PaintViewNow(workspace, kind);
  workspace.Graphics.Status = status;
}

}  // namespace

// --- Documents -----------------------------------------------------------------------------------

std::int32_t DrawViewToFile(Workspace& workspace, ViewKind kind, const GraphicsSink& sink,
                            const IntRect& rect) {
  const ViewKindRecord& facts = FactsOf(kind);
  DeviceRecord device = toolkit::AcquireMeasuringDevice();
  const double dpi = toolkit::DeviceDpi(device);
  const Destination destination{.Sink = sink, .Rect = rect, .Dpi = dpi, .PictureDpi = dpi};
  BeginDrawing(workspace, device, SizesOfExport(workspace));
  facts.Routines->LayOut(workspace, destination);
  const Drawing drawing{sink, workspace.Graphics};
  if (facts.ClipsInFiles) SetClip(drawing, rect);
  if (!HasFailed(drawing)) facts.Routines->Draw(workspace, destination);
  EndDrawing(workspace);
  toolkit::ReleaseMeasuringDevice(device);
  PaintAgain(workspace, kind);
  return workspace.Graphics.Status;
}

// --- Metafiles -----------------------------------------------------------------------------------

namespace {

/// Everything is measured before it is drawn on a device that can do that.
void DrawOnMetafile(Workspace& workspace, ViewKind kind, const DeviceRecord& metafile) {
  const ViewRoutines& view = *FactsOf(kind).Routines;
  DeviceRecord lent = toolkit::AcquireMeasuringDevice();
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
  toolkit::ReleaseMeasuringDevice(lent);
}

bool TellNoMetafile(Workspace& workspace) {
  workspace.Graphics.Status = kNoMetafile;
  return false;
}

}  // namespace

bool DrawViewToMetafile(Workspace& workspace, ViewKind kind, MetafileRecord* record) {
  DeviceRecord metafile = toolkit::BeginMetafile();
  if (metafile.Dc == nullptr) return TellNoMetafile(workspace);
  DrawOnMetafile(workspace, kind, metafile);
  record->Picture = toolkit::EndMetafile(metafile);
  PaintAgain(workspace, kind);
  if (record->Picture.Handle == nullptr) return TellNoMetafile(workspace);
  DescribeMetafile(*record, workspace.ExportRect, workspace.ExportDpi, workspace.Graphics.FileName);
  return true;
}

// --- Paper ---------------------------------------------------------------------------------------

void DrawViewToPrinter(Workspace& workspace, ViewKind kind, const DeviceRecord& printer) {
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
  PaintAgain(workspace, kind);
}

}  // namespace ondrel
