#include "shell/file_commands.h"

#include "derived/derived_chain.h"
#include "shell/menus.h"
#include "views/all_views.h"
#include "views/view_window.h"
#include "workspace/event_table_reader.h"
#include "workspace/import_reader.h"
#include "workspace/workspace.h"

namespace ondrel {
namespace {

/// The views that new data redraws when they are open.
constexpr ViewKind kRedrawnViews[] = {
    ViewKind::Duration,        ViewKind::DurationFit,  ViewKind::Amplitude,
    ViewKind::AmplitudeFit,    ViewKind::Scatter,      ViewKind::AmplitudeScatter,
    ViewKind::DurationScatter, ViewKind::Stationarity, ViewKind::Statistics,
    ViewKind::Sweep,
};

void RedrawOrOpen(FrameWindow* frame, ViewKind kind) {
  if (ViewOf(*frame->Owner, kind).Window == nullptr) {
    OpenView(frame, kind);
  } else {
    RepaintView(*frame->Owner, kind);
  }
}

void ShowNewData(FrameWindow* frame) {
  DeriveAfterAdding(*frame->Owner);
  RedrawOrOpen(frame, ViewKind::Event);
  RedrawOrOpen(frame, ViewKind::Level);
  for (const ViewKind kind : kRedrawnViews) RepaintView(*frame->Owner, kind);
}

/// The views close on empty tables, so that nothing draws a record that is about to go.
void EmptyTables(Workspace& workspace) {
  FreeSegments(workspace.Sweeps, 0, workspace.Sweeps.Count);
  workspace.Files.Count = 0;
  workspace.Sweeps.Count = 0;
  workspace.Events.Count = 0;
  workspace.Levels.Count = 0;
  for (const ViewKind kind : {ViewKind::Event, ViewKind::Level, ViewKind::Sweep}) {
    ViewOf(workspace, kind).TopRow = 0;
  }
}

}  // namespace

void OpenCommand(FrameWindow* frame) {
  if (!AllocateAllTables(frame)) return;
  Workspace& workspace = *frame->Owner;
  if (ReadDataFile(frame) != 0) {
    FreeAllTables(workspace);
    return;
  }
  DeriveAfterOpening(workspace);
  InstallDataMenu(frame);  // stays when no view can be opened
  OpenView(frame, ViewKind::Event);
  OpenView(frame, ViewKind::Level);
}

void AddCommand(FrameWindow* frame) {
  if (ReadDataFile(frame) == 0) ShowNewData(frame);
}

void ImportCommand(FrameWindow* frame) {
  if (AskAndImportEvents(frame) == 0) ShowNewData(frame);
}

void CloseCommand(FrameWindow* frame) {
  Workspace& workspace = *frame->Owner;
  EmptyTables(workspace);
  CloseViews(workspace);
  InstallStartMenu(frame);
  FreeAllTables(workspace);
}

}  // namespace ondrel
