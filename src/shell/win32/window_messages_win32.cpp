// The messages that the frame and its children answer alike.
#include "shell/win32/win32.h"
#include "shell/window_events.h"

namespace ondrel::win32 {

LRESULT OnCreate(HWND window, const CREATESTRUCTA& creation) {
  auto* record = static_cast<WindowRecord*>(creation.lpCreateParams);
  if (SetPropA(window, kRecordProperty, record) == FALSE) return -1;
  OnCreated(record, window);
  return 0;
}

void OnMove(WindowRecord* window) {
  WINDOWPLACEMENT placement{};
  placement.length = sizeof(placement);
  if (GetWindowPlacement(HandleOf(window), &placement) == FALSE) return;
  WindowPlacement state = WindowPlacement::Normal;
  if (placement.showCmd == SW_SHOWMINIMIZED) state = WindowPlacement::Minimized;
  if (placement.showCmd == SW_SHOWMAXIMIZED) state = WindowPlacement::Maximized;
  window->Callbacks->Moved(window, state);
}

bool PlacementOfSize(WPARAM kind, WindowPlacement* placement) {
  switch (kind) {
    case SIZE_RESTORED:
      *placement = WindowPlacement::Normal;
      return true;
    case SIZE_MINIMIZED:
      *placement = WindowPlacement::Minimized;
      return true;
    case SIZE_MAXIMIZED:
      *placement = WindowPlacement::Maximized;
      return true;
    default:
      return false;
  }
}

void OnDestroy(HWND window) {
  RemovePropA(window, kRecordProperty);
}

}  // namespace ondrel::win32
