#include "shell/graph_export.h"

#include <cstdio>

#include "output/documents.h"
#include "output/placeable_metafile.h"
#include "output/truncated_rect.h"
#include "shell/copy_command.h"
#include "shell/export_dialogs.h"
#include "shell/export_sizes.h"
#include "shell/toolkit.h"
#include "views/view_destinations.h"
#include "views/view_kinds.h"
#include "views/view_window.h"
#include "workspace/output_file.h"
#include "workspace/truncate.h"
#include "workspace/units.h"
#include "workspace/workspace.h"
#include "workspace/writing_reports.h"

namespace ondrel {
namespace {

// --- Sizes ---------------------------------------------------------------------------------------

constexpr double kCentimetersPerPoint = 0.035277777777777776;
constexpr double kInchesPerPoint = 0.013888888888888888;

void SetPage(Workspace& workspace, const PictureSize& size) {
  GraphicsContext& context = workspace.Graphics;
  if (workspace.ExportType == ExportChoice::Eps) {
    context.PageHeight = size.Height / kCentimetersPerPoint;
    context.PointScale = kInchesPerPoint * workspace.ScreenDpi;
  } else {
    context.PageHeight = size.Height * workspace.ScreenDpi / kCentimetersPerInch;
  }
}

/// A metafile alone is drawn in its own dots per inch. All others are drawn in the screen's, with
/// points for device units: their letters come out smaller than those of the window.
void SetPicture(Workspace& workspace, const IntRect& client, const PictureSize& size) {
  IntRect& rect = workspace.ExportRect;
  rect = client;
  if (workspace.ExportType == ExportChoice::Metafile) {
    const double dpi = workspace.ExportDpi;
    rect.Bottom = TruncateToInteger(client.Top + size.Height * dpi / kCentimetersPerInch);
    rect.Right = TruncateToInteger(client.Left + size.Width * dpi / kCentimetersPerInch);
    ScaleExportSizes(workspace, dpi);
  } else {
    const double dpi = workspace.ScreenDpi;
    rect.Bottom = TruncateToInteger(client.Top + size.Height * dpi / kCentimetersPerInch);
    // From the top, unlike above; a client area begins at 0 on both sides.
    rect.Right = TruncateToInteger(client.Top + size.Width * dpi / kCentimetersPerInch);
    workspace.DeviceFontSize = LetterSize(workspace);
    workspace.DevicePenSize = workspace.PenSize;
  }
}

void SetUpContext(Workspace& workspace) {
  GraphicsContext& context = workspace.Graphics;
  context.FileName[0] = '\0';
  std::snprintf(context.FontName, sizeof context.FontName, "Helvetica");
  context.DocumentFontSize = workspace.DeviceFontSize;
  context.PenWidth = workspace.DevicePenSize;
}

// --- Documents -----------------------------------------------------------------------------------

/// What differs between the two forms. Each step leaves its failure in the context's Status.
struct DocumentForm {
  const char* DialogTitle;
  GraphicsSink Workspace::*Sink;
  void (*Open)(Workspace& workspace);
  void (*Close)(GraphicsContext& context, const ViewKindRecord& view);
};

void OpenIllustrator(Workspace& workspace) {
  OpenIllustratorDocument(workspace.Graphics, workspace.ExportRect, workspace.ExportRect);
}

void CloseIllustrator(GraphicsContext& context, const ViewKindRecord& view) {
  if (context.Status == 0 && view.ClipsInFiles) RestoreIllustratorClip(context);
  CloseIllustratorDocument(context);
}

void OpenEps(Workspace& workspace) {
  const IntRect& rect = workspace.ExportRect;
  const double scale = workspace.Graphics.PointScale;
  OpenEpsDocument(workspace.Graphics, TruncateRect(rect.Left / scale, rect.Top / scale,
                                                   rect.Right / scale, rect.Bottom / scale));
}

void CloseEps(GraphicsContext& context, const ViewKindRecord&) {
  CloseEpsDocument(context);
}

constexpr DocumentForm kIllustrator = {
    .DialogTitle = "Export window as:",
    .Sink = &Workspace::IllustratorSink,
    .Open = OpenIllustrator,
    .Close = CloseIllustrator,
};
constexpr DocumentForm kEps = {
    .DialogTitle = "Export EPS as:",
    .Sink = &Workspace::EpsSink,
    .Open = OpenEps,
    .Close = CloseEps,
};

bool WriteDocument(Workspace& workspace, ViewKind kind, const DocumentForm& form,
                   const char* path) {
  GraphicsContext& context = workspace.Graphics;
  OutputFile file;
  context.Status = CreateOutputFile(path, file);
  if (context.Status != 0) return false;
  context.File = &file;
  form.Open(workspace);
  DrawViewToFile(workspace, kind, workspace.*form.Sink, workspace.ExportRect);
  form.Close(context, FactsOf(kind));
  context.File = nullptr;
  return context.Status == 0;
}

void ExportDocument(FrameWindow* frame, ViewKind kind, const DocumentForm& form) {
  char path[kPathSize] = "";
  if (!toolkit::AskFile(frame, toolkit::FileDialogMode::Save, form.DialogTitle, "Untitled", path)) {
    return;
  }
  if (!WriteDocument(*frame->Owner, kind, form, path)) ReportWritingFailed(frame);
}

// --- Metafiles -----------------------------------------------------------------------------------

void ExportMetafile(FrameWindow* frame, ViewKind kind) {
  Workspace& workspace = *frame->Owner;
  // The title is that of a picture on another system, under which users know the command.
  if (!toolkit::AskFile(frame, toolkit::FileDialogMode::Save, "Export PICT as:", "Untitled.wmf",
                        workspace.Graphics.FileName)) {
    return;
  }
  MetafileRecord metafile;
  if (DrawViewToMetafile(workspace, kind, &metafile)) {
    WriteMetafile(frame, metafile);
  } else {
    ReportWritingFailed(frame);
  }
}

// --- The forms -----------------------------------------------------------------------------------

void ExportAs(ExportChoice form, FrameWindow* frame, ViewKind kind) {
  switch (form) {
    case ExportChoice::Illustrator:
      ExportDocument(frame, kind, kIllustrator);
      return;
    case ExportChoice::Clipboard:
      PutViewOnClipboard(frame, kind);
      return;
    case ExportChoice::Eps:
      ExportDocument(frame, kind, kEps);
      return;
    case ExportChoice::Metafile:
      ExportMetafile(frame, kind);
      return;
  }
}

}  // namespace

void ExportGraphCommand(FrameWindow* frame) {
  Workspace& workspace = *frame->Owner;
  ViewKind kind{};
  if (!FindActiveView(workspace, &kind)) return;
  const IntRect client = toolkit::ClientRect(ViewOf(workspace, kind).Window);
  PictureSize size;
  if (!AskGraphExport(frame, client, &size)) return;
  SetPage(workspace, size);
  SetPicture(workspace, client, size);
  SetUpContext(workspace);
  ExportAs(workspace.ExportType, frame, kind);
}

}  // namespace ondrel
