#include "shell/application.h"

#include <new>

#include "fit/fit_models.h"
#include "shell/commands.h"
#include "shell/file_commands.h"
#include "shell/file_settings_dialog.h"
#include "shell/menus.h"
#include "shell/preferences.h"
#include "shell/toolkit.h"
#include "views/all_views.h"
#include "views/live_fit.h"
#include "workspace/workspace.h"

namespace ondrel {
namespace {

constexpr char kTitle[] = "Ondrel";

void OnCreated(WindowRecord* frame) {
  frame->Owner->Frame = frame;
}

void RememberPlace(WindowRecord* frame, WindowPlacement placement) {
  if (placement == WindowPlacement::Normal) frame->Owner->FrameRect = toolkit::WindowRect(frame);
}

void OnMoved(WindowRecord* frame, WindowPlacement placement) {
  RememberPlace(frame, placement);
}

void OnSized(WindowRecord* frame, WindowPlacement placement) {
  frame->Owner->FrameShow = placement;
  RememberPlace(frame, placement);
}

void IgnoreMouse(WindowRecord*, int, int) {}
void IgnoreScroll(WindowRecord*, Axis) {}
void IgnoreSlot(WindowRecord*) {}
void IgnoreFlag(WindowRecord*, bool) {}
void IgnorePaint(WindowRecord*, const DeviceRecord&) {}
int IgnoreKey(WindowRecord*, int) {
  return 0;
}
int PassMessageOn(WindowRecord*, const void*) {
  return 0;
}

/// The frame's window calls the commands, its place, its state and its closing, the message loop
/// the filter. The other entries are there because frame and views share one form of table.
constexpr FrameCallbacks kFrameCallbacks = {
    .Created = OnCreated,
    .Command = DispatchCommand,
    .MouseDown = IgnoreMouse,
    .MouseMove = IgnoreMouse,
    .MouseUp = IgnoreMouse,
    .ScrollBegin = IgnoreScroll,
    .ScrollLineUp = IgnoreScroll,
    .ScrollPageUp = IgnoreScroll,
    .ScrollHome = IgnoreScroll,
    .ScrollEnd = IgnoreScroll,
    .ScrollPageDown = IgnoreScroll,
    .ScrollLineDown = IgnoreScroll,
    .ScrollDone = IgnoreScroll,
    .Moved = OnMoved,
    .Sized = OnSized,
    .Close = IgnoreSlot,
    .Activate = IgnoreFlag,
    .Paint = IgnorePaint,
    .Enabled = IgnoreFlag,
    .Unused19 = IgnoreSlot,
    .Unused20 = IgnoreSlot,
    .KeyDown = IgnoreKey,
    .Char = nullptr,
    .FilterMessage = PassMessageOn,
    .Closing = ExitCommand,
};

/// What the run owns; everything it reaches is freed with it.
struct Run {
  ondrel::Workspace* Workspace = nullptr;
  FrameCallbacks* Callbacks = nullptr;
};

void FreeRun(Run& run) {
  toolkit::FreeMemory(run.Callbacks);
  toolkit::FreeMemory(run.Workspace);
}

Run AllocateRun() {
  Run run;
  void* memory = toolkit::AllocateZeroed(1, sizeof(Workspace));
  if (memory == nullptr) return run;
  run.Workspace = new (memory) Workspace;
  run.Callbacks = toolkit::AllocateRecords<FrameCallbacks>(1);
  if (run.Callbacks != nullptr) *run.Callbacks = kFrameCallbacks;
  return run;
}

/// The tables of functions through which the floors below reach those above, and the two models.
void FillOperations(Workspace& workspace) {
  workspace.Menus = kMenuOperations;
  workspace.LiveDisplay = kLiveDisplay;
  workspace.AmplitudeModel = kAmplitudeModel;
  workspace.DurationModel = kDurationModel;
}

/// Moving and sizing report a normal state, which is not what the user left behind.
void PlaceFrame(FrameWindow* frame, const IntRect& place) {
  Workspace& workspace = *frame->Owner;
  const WindowPlacement remembered = workspace.FrameShow;
  toolkit::MoveWindow(frame, place.Left, place.Top);
  toolkit::SizeWindow(frame, Width(place), Height(place));
  workspace.FrameShow = remembered;
}

void ShowFrame(FrameWindow* frame) {
  Workspace& workspace = *frame->Owner;
  const WindowPlacement remembered = workspace.FrameShow;
  const IntRect place = workspace.FrameRect;
  if (Width(place) > 0 && Height(place) > 0) {
    PlaceFrame(frame, place);
    toolkit::ShowWindow(frame);
  } else {
    toolkit::ShowWindow(frame);
    workspace.FrameRect = toolkit::WindowRect(frame);
  }
  if (remembered == WindowPlacement::Maximized) toolkit::MaximizeWindow(frame);
}

void LetUserBegin(FrameWindow* frame) {
  if (frame->Owner->SkipStartupDialog) {
    OpenCommand(frame);
  } else {
    FileSettingsCommand(frame);
  }
}

int RunFrame(Workspace& workspace, const FrameCallbacks& callbacks) {
  FrameWindow* frame =
      toolkit::CreateFrame(workspace.Instance, kTitle, workspace.FrameRect, &workspace, &callbacks);
  if (frame == nullptr) return -1;
  RestorePreferences(frame);
  ShowFrame(frame);
  InstallStartMenu(frame);
  LetUserBegin(frame);
  toolkit::RunMessageLoop(frame);
  return 0;
}

}  // namespace

int RunApplication(void* instance) {
  Run run = AllocateRun();
  int result = -1;
  if (run.Workspace != nullptr && run.Callbacks != nullptr) {
    ResetWorkspace(*run.Workspace);
    ResetViews(*run.Workspace);
    FillOperations(*run.Workspace);
    run.Workspace->Instance = instance;
    result = RunFrame(*run.Workspace, *run.Callbacks);
  }
  FreeRun(run);
  return result;
}

void ExitCommand(FrameWindow* frame) {
  Workspace& workspace = *frame->Owner;
  if (workspace.Printing) return;
  workspace.Closing = true;
  SavePreferences(frame);
  CloseViews(workspace);
  FreeAllTables(workspace);
  toolkit::DestroyWindow(frame);
}

}  // namespace ondrel
