#include "views/view_window.h"

#include <array>
#include <utility>

#include "shell/toolkit.h"
#include "shell/window_events.h"
#include "views/screen_drawing.h"
#include "views/scrolling_table.h"
#include "workspace/report.h"
#include "workspace/scroll_range.h"

namespace ondrel {
namespace {

void PaintBackground(Workspace& workspace, ViewKind kind, const DeviceRecord& device) {
  const ViewState& view = ViewOf(workspace, kind);
  const RgbColor& background = view.Colors[FactsOf(kind).Background];
  BeginScreenDrawing(workspace, device, background);
  toolkit::FillArea(workspace.Graphics.Device, toolkit::ClientRect(view.Window), background);
  EndDrawing(workspace);
}

// --- The callback table --------------------------------------------------------------------------
// Each kind has its own functions, since the window layer hands over nothing but the window.

template <ViewKind kKind>
ViewState& StateOf(WindowRecord* window) {
  return ViewOf(*window->Owner, kKind);
}

template <ViewKind kKind>
void OnCreated(WindowRecord* window) {
  StateOf<kKind>(window).Window = window;
}

/// Only the place of a normal window is remembered.
void RememberPlace(WindowRecord* window, ViewState& view, WindowPlacement placement) {
  if (placement == WindowPlacement::Normal) view.ViewRect = toolkit::WindowRect(window);
}

template <ViewKind kKind>
void OnMoved(WindowRecord* window, WindowPlacement placement) {
  StateOf<kKind>(window).Placement = placement;
  RememberPlace(window, StateOf<kKind>(window), placement);
}

template <ViewKind kKind>
void OnSized(WindowRecord* window, WindowPlacement placement) {
  RememberPlace(window, StateOf<kKind>(window), placement);
}

template <ViewKind kKind>
void OnActivate(WindowRecord* window, bool active) {
  Workspace& workspace = *window->Owner;
  if (active) {
    workspace.Menus.InstallViewMenu(workspace.Frame, kKind);
  } else {
    workspace.Menus.InstallDataMenu(workspace.Frame);
  }
}

template <ViewKind kKind>
void OnClose(WindowRecord* window) {
  Workspace& workspace = *window->Owner;
  if (workspace.Printing) return;
  workspace.Menus.InstallDataMenu(workspace.Frame);
  DestroyView(workspace, kKind);
}

/// A box, or a printer that is busy, lets paint messages through while another drawing is under
/// way. That one goes on afterwards as if nothing had been. A view that is itself drawn elsewhere
/// keeps the layout it has there: its window stays empty until that is done, and is then painted.
template <ViewKind kKind>
void OnPaint(WindowRecord* window, const DeviceRecord& device) {
  Workspace& workspace = *window->Owner;
  const GraphicsContext underWay = workspace.Graphics;
  if (StateOf<kKind>(window).DrawnElsewhere) {
    PaintBackground(workspace, kKind, device);
  } else {
    FactsOf(kKind).Routines->Paint(window, device);
  }
  if (underWay.Device.Dc != nullptr) workspace.Graphics = underWay;
}

/// The table to be scrolled along `axis`; null when this view does not answer.
template <ViewKind kKind>
const RecordTable* Scrolled(Axis axis) {
  return axis == Axis::Vertical ? FactsOf(kKind).Routines->Scrolled : nullptr;
}

template <ViewKind kKind>
void OnScrollBegin(WindowRecord* window, Axis axis) {
  if (const RecordTable* table = Scrolled<kKind>(axis)) BeginScroll(*window->Owner, *table);
}

template <ViewKind kKind, ScrollStep kStep>
void OnScrollStep(WindowRecord* window, Axis axis) {
  if (const RecordTable* table = Scrolled<kKind>(axis)) StepScroll(*window->Owner, *table, kStep);
}

template <ViewKind kKind>
void OnScrollDone(WindowRecord* window, Axis axis) {
  if (const RecordTable* table = Scrolled<kKind>(axis)) EndScroll(*window->Owner, *table);
}

using MouseRoutine = void (*MouseRoutines::*)(ChildWindow*, int, int);

template <ViewKind kKind, MouseRoutine kRoutine>
void OnMouse(WindowRecord* window, int x, int y) {
  if (const MouseRoutines* mouse = FactsOf(kKind).Routines->Mouse) (mouse->*kRoutine)(window, x, y);
}

int OnKeyDown(WindowRecord* window, int key) {
  return HandleScrollKey(window, key);
}

void IgnoreCommand(WindowRecord*, int, int) {}
void IgnoreEnabled(WindowRecord*, bool) {}
void IgnoreSlot(WindowRecord*) {}
void IgnoreChar(WindowRecord*, int) {}
int PassMessageOn(WindowRecord*, const void*) {
  return 0;
}

template <ViewKind kKind>
constexpr ChildCallbacks kCallbacks = {
    .Created = OnCreated<kKind>,
    .Command = IgnoreCommand,
    .MouseDown = OnMouse<kKind, &MouseRoutines::Down>,
    .MouseMove = OnMouse<kKind, &MouseRoutines::Move>,
    .MouseUp = OnMouse<kKind, &MouseRoutines::Up>,
    .ScrollBegin = OnScrollBegin<kKind>,
    .ScrollLineUp = OnScrollStep<kKind, ScrollStep::LineUp>,
    .ScrollPageUp = OnScrollStep<kKind, ScrollStep::PageUp>,
    .ScrollHome = OnScrollStep<kKind, ScrollStep::Home>,
    .ScrollEnd = OnScrollStep<kKind, ScrollStep::End>,
    .ScrollPageDown = OnScrollStep<kKind, ScrollStep::PageDown>,
    .ScrollLineDown = OnScrollStep<kKind, ScrollStep::LineDown>,
    .ScrollDone = OnScrollDone<kKind>,
    .Moved = OnMoved<kKind>,
    .Sized = OnSized<kKind>,
    .Close = OnClose<kKind>,
    .Activate = OnActivate<kKind>,
    .Paint = OnPaint<kKind>,
    .Enabled = IgnoreEnabled,
    .Unused19 = IgnoreSlot,
    .Unused20 = IgnoreSlot,
    .KeyDown = OnKeyDown,
    .Char = IgnoreChar,
    .FilterMessage = PassMessageOn,
    .Closing = IgnoreSlot,
};

template <std::size_t... kPlaces>
constexpr std::array<const ChildCallbacks*, kViewCount> AllCallbacks(
    std::index_sequence<kPlaces...>) {
  return {&kCallbacks<static_cast<ViewKind>(kPlaces)>...};
}
constexpr auto kAllCallbacks = AllCallbacks(std::make_index_sequence<kViewCount>());

ChildCallbacks* AllocateCallbacks(ViewKind kind) {
  auto* callbacks = toolkit::AllocateRecords<ChildCallbacks>(1);
  if (callbacks != nullptr) *callbacks = *kAllCallbacks[static_cast<std::size_t>(kind)];
  return callbacks;
}

void FreeCallbacks(const ChildCallbacks* callbacks) {
  toolkit::FreeMemory(const_cast<ChildCallbacks*>(callbacks));
}

// --- Opening -------------------------------------------------------------------------------------

/// The offset only grows while the run lasts, so that no two new views hide each other.
void CascadeInto(Workspace& workspace, FrameWindow* frame, ViewState& view) {
  view.ViewRect = toolkit::ClientRect(frame);
  view.ViewRect.Left = workspace.CascadeOffset;
  view.ViewRect.Top = workspace.CascadeOffset;
  view.ViewRect.Bottom -= workspace.CascadeStep;
  workspace.CascadeOffset += workspace.CascadeStep;
}

void ReportCreationFailure(FrameWindow* frame, ViewKind kind) {
  ReportFailure(frame, {TextId::InsufficientMemoryFor, FactsOf(kind).CreationText,
                        TextId::QuitOtherPrograms});
}

}  // namespace

void OpenView(FrameWindow* frame, ViewKind kind) {
  Workspace& workspace = *frame->Owner;
  ViewState& view = ViewOf(workspace, kind);
  if (view.Window != nullptr) {
    toolkit::BringForward(view.Window);
    return;
  }
  const ChildCallbacks* callbacks = AllocateCallbacks(kind);
  if (callbacks == nullptr) {
    ReportCreationFailure(frame, kind);
    return;
  }
  if (IsDegenerate(view.ViewRect)) CascadeInto(workspace, frame, view);
  const ViewKindRecord& facts = FactsOf(kind);
  ChildWindow* window = toolkit::CreateChild(frame, facts.Title, view.ViewRect, false,
                                             facts.VerticalBar, &workspace, callbacks);
  if (window == nullptr) {
    view.Window = nullptr;
    FreeCallbacks(callbacks);
    ReportCreationFailure(frame, kind);
    return;
  }
  if (const RecordTable* table = facts.Routines->Scrolled) {
    RefreshScrollRange(view, table->CountRows(workspace));
  }
  if (facts.Routines->Opened != nullptr) facts.Routines->Opened(workspace);
  RepaintView(workspace, kind);
}

bool FindActiveView(const Workspace& workspace, ViewKind* kind) {
  const ChildWindow* front = toolkit::ActiveChild(workspace.Frame);
  if (front == nullptr) return false;
  for (std::size_t i = 0; i < kViewCount; ++i) {
    if (workspace.Views[i].Window != front) continue;
    *kind = static_cast<ViewKind>(i);
    return true;
  }
  return false;
}

void PaintViewNow(Workspace& workspace, ViewKind kind) {
  ChildWindow* window = ViewOf(workspace, kind).Window;
  if (window == nullptr) return;
  DeviceRecord device = toolkit::AcquireDevice(window);
  FactsOf(kind).Routines->Paint(window, device);
  toolkit::ReleaseDevice(window, device);
}

void DestroyView(Workspace& workspace, ViewKind kind) {
  ViewState& view = ViewOf(workspace, kind);
  if (view.Window == nullptr) return;
  const ChildCallbacks* callbacks = view.Window->Callbacks;
  toolkit::DestroyWindow(view.Window);
  FreeCallbacks(callbacks);
  view.Window = nullptr;
  view.NeedsRebuild = false;
  const ViewRoutines& routines = *FactsOf(kind).Routines;
  if (routines.Closed != nullptr) routines.Closed(workspace);
}

void RepaintView(Workspace& workspace, ViewKind kind) {
  const ViewState& view = ViewOf(workspace, kind);
  if (view.Window == nullptr) return;
  DeviceRecord device = toolkit::AcquireDevice(view.Window);
  PaintBackground(workspace, kind, device);
  toolkit::ReleaseDevice(view.Window, device);
  toolkit::Invalidate(view.Window, toolkit::ClientRect(view.Window));
}

void RepaintViewIfStale(Workspace& workspace, ViewKind kind) {
  ViewState& view = ViewOf(workspace, kind);
  if (view.NeedsRebuild) RepaintView(workspace, kind);
  view.NeedsRebuild = false;
}

}  // namespace ondrel
