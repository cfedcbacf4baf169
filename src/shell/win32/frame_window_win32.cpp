// The frame's window procedure. Stacking and activation of the children, which Windows offers as a
// service of its own for multiple documents, are done by this program; the frame's part of it is to
// hand size, focus and activation on to its top child.
#include "shell/toolkit.h"
#include "shell/win32/win32.h"
#include "shell/window_events.h"

namespace ondrel::win32 {
namespace {

void OnSize(FrameWindow* frame, WPARAM kind) {
  // A maximised child keeps the old size of the client area until it is maximised again.
  HWND top = TopChild(HandleOf(frame));
  if (top != nullptr && IsZoomed(top) != FALSE) {
    ShowWindow(top, SW_HIDE);
    ShowWindow(top, SW_SHOWMAXIMIZED);
  }
  WindowPlacement placement{};
  if (PlacementOfSize(kind, &placement)) frame->Callbacks->Sized(frame, placement);
}

/// A child that is being destroyed is still the top one but no longer in sight.
void OnSetFocus(HWND window) {
  HWND top = TopChild(window);
  if (top != nullptr && IsWindowVisible(top) != FALSE) SetFocus(top);
}

/// While one of its boxes or dialogs stands the frame is disabled, and what shows it is in the
/// middle of its work. Only messages that other programs post still arrive then.
bool IsBusy(HWND window) {
  return IsWindowEnabled(window) == FALSE;
}

void OnNonClientActivate(HWND window, WPARAM active) {
  if (HWND top = TopChild(window)) SendMessageA(top, WM_NCACTIVATE, active, 0);
}

void OnFrameDestroy(HWND window) {
  OnDestroy(window);
  PostQuitMessage(0);
}

}  // namespace

LRESULT CALLBACK FrameProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_CREATE) {
    return OnCreate(window, *reinterpret_cast<const CREATESTRUCTA*>(lParam));
  }
  FrameWindow* frame = RecordOf(window);
  if (frame == nullptr) return DefWindowProcA(window, message, wParam, lParam);
  switch (message) {
    case WM_DESTROY:
      OnFrameDestroy(window);
      break;
    case WM_MOVE:
      OnMove(frame);
      break;
    case WM_SIZE:
      OnSize(frame, wParam);
      break;
    case WM_SETFOCUS:
      OnSetFocus(window);
      return 0;
    case WM_ENABLE:
      frame->Callbacks->Enabled(frame, wParam != FALSE);
      break;
    case WM_CLOSE:
      if (!IsBusy(window)) frame->Callbacks->Closing(frame);  // the frame may be gone now
      return 0;
    case WM_NCACTIVATE:
      OnNonClientActivate(window, wParam);
      break;
    case WM_COMMAND:
      if (!IsBusy(window)) OnCommand(frame, LOWORD(wParam));
      return 0;
    default:
      break;
  }
  return DefWindowProcA(window, message, wParam, lParam);
}

}  // namespace ondrel::win32

namespace ondrel::toolkit {

FrameWindow* CreateFrame(void* instance, const char* title, const IntRect& place, Workspace* owner,
                         const FrameCallbacks* callbacks) {
  auto* frame = AllocateRecords<FrameWindow>(1);
  if (frame == nullptr) return nullptr;
  frame->Owner = owner;
  frame->Callbacks = callbacks;
  const bool placed = !IsDegenerate(place);
  HWND window =
      CreateWindowExA(0, win32::kFrameClass, title, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                      placed ? place.Left : CW_USEDEFAULT, placed ? place.Top : CW_USEDEFAULT,
                      placed ? Width(place) : CW_USEDEFAULT, placed ? Height(place) : CW_USEDEFAULT,
                      nullptr, nullptr, static_cast<HINSTANCE>(instance), frame);
  if (window != nullptr) return frame;
  FreeMemory(frame);
  return nullptr;
}

}  // namespace ondrel::toolkit
