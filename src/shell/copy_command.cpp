#include "shell/copy_command.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>

#include "output/placeable_metafile.h"
#include "shell/export_sizes.h"
#include "shell/toolkit.h"
#include "views/view_destinations.h"
#include "views/view_window.h"
#include "workspace/report.h"
#include "workspace/truncate.h"
#include "workspace/units.h"
#include "workspace/workspace.h"

namespace ondrel {
namespace {

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

/// A picture larger than the window by its dots per inch over 72, as its letters are.
IntRect EnlargedBy(double dpi, const IntRect& client) {
  const double right = Width(client) * dpi / kPointsPerInch;
  const double bottom = Height(client) * dpi / kPointsPerInch;
  return {client.Left, client.Top, TruncateToInteger(client.Left + std::trunc(right)),
          TruncateToInteger(client.Top + std::trunc(bottom))};
}

}  // namespace

void PutViewOnClipboard(FrameWindow* frame, ViewKind kind) {
  Workspace& workspace = *frame->Owner;
  const double keptDpi = workspace.ExportDpi;
  workspace.ExportDpi = workspace.ScreenDpi;
  MetafileRecord metafile;
  const bool drawn = DrawViewToMetafile(workspace, kind, &metafile);
  workspace.ExportDpi = keptDpi;
  PutDrawnOnClipboard(frame, kind, drawn, metafile);
}

void CopyCommand(FrameWindow* frame) {
  Workspace& workspace = *frame->Owner;
  ViewKind kind{};
  if (!FindActiveView(workspace, &kind)) return;
  ChildWindow* window = ViewOf(workspace, kind).Window;
  workspace.ScreenDpi = DpiOfWindow(window);
  ScaleExportSizes(workspace, workspace.ScreenDpi);
  workspace.ExportRect = EnlargedBy(workspace.ScreenDpi, toolkit::ClientRect(window));
  workspace.Graphics.FileName[0] = '\0';
  PutViewOnClipboard(frame, kind);
}

}  // namespace ondrel
