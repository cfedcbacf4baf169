#include "shell/graph_export.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <iterator>

#include "output/documents.h"
#include "output/placeable_metafile.h"
#include "output/truncated_rect.h"
#include "shell/export_dialogs.h"
#include "shell/toolkit.h"
#include "views/view_destinations.h"
#include "views/view_kinds.h"
#include "views/view_window.h"
#include "workspace/output_file.h"
#include "workspace/report.h"
#include "workspace/truncate.h"
#include "workspace/units.h"
#include "workspace/workspace.h"

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

/// Letters and pens as large in the picture as the settings say, in its own dots per inch.
void ScaleSizes(Workspace& workspace) {
  const double dpi = workspace.ExportDpi;
  workspace.DeviceFontSize = TruncateToInteger(workspace.FontSize * dpi / kPointsPerInch);
  workspace.DevicePenSize = workspace.PenSize * dpi / kPointsPerInch;
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
    ScaleSizes(workspace);
  } else {
    const double dpi = workspace.ScreenDpi;
    rect.Bottom = TruncateToInteger(client.Top + size.Height * dpi / kCentimetersPerInch);
    // From the top, unlike above; a client area begins at 0 on both sides.
    rect.Right = TruncateToInteger(client.Top + size.Width * dpi / kCentimetersPerInch);
    workspace.DeviceFontSize = workspace.FontSize;
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

void ReportWritingFailed(FrameWindow* frame) {
  ReportFailure(frame, {TextId::ErrorWhileWriting});
}

bool WriteDocument(Workspace& workspace, ViewKind kind, const DocumentForm& form,
                   const char* path) {
  GraphicsContext& context = workspace.Graphics;
  OutputFile file;
  context.Status = CreateOutputFile(path, file);
  if (context.Status != 0) return false;
  context.File = &file;
  form.Open(workspace);
  if (context.Status == 0) {
    DrawViewToFile(workspace, kind, workspace.*form.Sink, workspace.ExportRect);
  }
  form.Close(context, FactsOf(kind));
  context.File = nullptr;
  return context.Status == 0;
}

template <const DocumentForm& kForm>
void ExportDocument(FrameWindow* frame, ViewKind kind) {
  char path[kPathSize] = "";
  if (!toolkit::AskFile(frame, toolkit::FileDialogMode::Save, kForm.DialogTitle, "Untitled",
                        path)) {
    return;
  }
  if (!WriteDocument(*frame->Owner, kind, kForm, path)) ReportWritingFailed(frame);
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

// --- The clipboard -------------------------------------------------------------------------------

struct CopiedView {
  ViewKind Kind;
  const char* Name;
};

/// What the views are called when they could not be copied: not all of them by their titles.
constexpr CopiedView kCopiedViews[] = {
    {ViewKind::Event, "Events"},
    {ViewKind::Level, "Levels"},
    {ViewKind::Sweep, "Sweeps"},
    {ViewKind::Statistics, "Statistics"},
    {ViewKind::AmplitudeFit, "Amplitude Fit Parameters"},
    {ViewKind::DurationFit, "Duration Fit Parameters"},
    {ViewKind::Amplitude, "Amplitude"},
    {ViewKind::Duration, "Duration"},
    {ViewKind::AmplitudeScatter, "Amplitude Scatter Plot"},
    {ViewKind::DurationScatter, "Duration Scatter Plot"},
    {ViewKind::Scatter, "Scatter Plot"},
    {ViewKind::Stationarity, "Stationarity"},
};

constexpr bool StandInOrder() {
  for (std::size_t i = 0; i < kViewCount; ++i) {
    if (static_cast<std::size_t>(kCopiedViews[i].Kind) != i) return false;
  }
  return true;
}
static_assert(std::size(kCopiedViews) == kViewCount && StandInOrder());

void ReportCopyingFailed(FrameWindow* frame, ViewKind kind, std::int32_t code) {
  const char* name = kCopiedViews[static_cast<std::size_t>(kind)].Name;
  ReportFailure(frame, {TextId::ErrorWhileCopying, name, TextId::WindowToClipboard, code, "."});
}

/// The clipboard takes the picture, or it is deleted. The code of a failure is what came of
/// deleting it where the clipboard could not be made ready, and 0 for later ones.
void PutOnClipboard(FrameWindow* frame, ViewKind kind, const MetafileRecord& metafile) {
  const bool opened = toolkit::OpenClipboard(frame);
  if (!opened || !toolkit::EmptyClipboard()) {
    if (opened) static_cast<void>(toolkit::CloseClipboard());
    ReportCopyingFailed(frame, kind, toolkit::DeleteMetafile(metafile.Picture));
    return;
  }
  const bool given =
      toolkit::GiveToClipboard(metafile.Picture, Width(metafile.Frame), Height(metafile.Frame));
  if (!given) toolkit::DeleteMetafile(metafile.Picture);
  const bool closed = toolkit::CloseClipboard();
  if (!given || !closed) ReportCopyingFailed(frame, kind, 0);
}

/// `drawn` tells whether there is a metafile; if not the context's Status says why.
void PutDrawnOnClipboard(FrameWindow* frame, ViewKind kind, bool drawn,
                         const MetafileRecord& metafile) {
  if (drawn) {
    PutOnClipboard(frame, kind, metafile);
  } else {
    ReportCopyingFailed(frame, kind, frame->Owner->Graphics.Status);
  }
}

void ExportToClipboard(FrameWindow* frame, ViewKind kind) {
  MetafileRecord metafile;
  const bool drawn = DrawViewToMetafile(*frame->Owner, kind, &metafile);
  PutDrawnOnClipboard(frame, kind, drawn, metafile);
}

double DpiOfWindow(ChildWindow* window) {
  DeviceRecord device = toolkit::AcquireDevice(window);
  const double dpi = toolkit::DeviceDpi(device);
  toolkit::ReleaseDevice(window, device);
  return dpi;
}

/// A picture larger than the window by its dots per inch over 72, as its letters are.
IntRect EnlargedBy(double dpi, const IntRect& client) {
  const double right = Width(client) * dpi / kPointsPerInch;
  const double bottom = Height(client) * dpi / kPointsPerInch;
  return {client.Left, client.Top, TruncateToInteger(client.Left + std::trunc(right)),
          TruncateToInteger(client.Top + std::trunc(bottom))};
}

// --- The forms -----------------------------------------------------------------------------------

void ExportAs(ExportChoice form, FrameWindow* frame, ViewKind kind) {
  switch (form) {
    case ExportChoice::Illustrator:
      ExportDocument<kIllustrator>(frame, kind);
      return;
    case ExportChoice::Clipboard:
      ExportToClipboard(frame, kind);
      return;
    case ExportChoice::Eps:
      ExportDocument<kEps>(frame, kind);
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

void CopyCommand(FrameWindow* frame) {
  Workspace& workspace = *frame->Owner;
  ViewKind kind{};
  if (!FindActiveView(workspace, &kind)) return;
  ChildWindow* window = ViewOf(workspace, kind).Window;
  const double keptDpi = workspace.ExportDpi;
  workspace.ScreenDpi = DpiOfWindow(window);
  workspace.ExportDpi = workspace.ScreenDpi;
  ScaleSizes(workspace);
  workspace.ExportRect = EnlargedBy(workspace.ExportDpi, toolkit::ClientRect(window));
  workspace.Graphics.FileName[0] = '\0';
  MetafileRecord metafile;
  const bool drawn = DrawViewToMetafile(workspace, kind, &metafile);
  workspace.ExportDpi = keptDpi;
  PutDrawnOnClipboard(frame, kind, drawn, metafile);
}

}  // namespace ondrel
