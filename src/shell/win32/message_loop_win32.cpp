// The one message loop of the program, and what a fit takes past it.
#include "resources/resource_ids.h"
#include "shell/toolkit.h"
#include "shell/win32/win32.h"

namespace ondrel::toolkit {
namespace {

/// True when an accelerator or the frame's filter took the message.
bool IsTaken(FrameWindow* frame, HACCEL accelerators, MSG& message) {
  if (TranslateAcceleratorA(win32::HandleOf(frame), accelerators, &message) != 0) return true;
  return frame->Callbacks->FilterMessage(frame, &message) != 0;
}

}  // namespace

bool TakeKeyDown(ChildWindow* window, int* key) {
  MSG message{};
  if (PeekMessageA(&message, win32::HandleOf(window), WM_KEYDOWN, WM_KEYDOWN, PM_REMOVE) == FALSE) {
    return false;
  }
  *key = static_cast<int>(message.wParam);
  return true;
}

void RunMessageLoop(FrameWindow* frame) {
  HWND window = win32::HandleOf(frame);
  HACCEL accelerators =
      LoadAcceleratorsA(win32::Module(), MAKEINTRESOURCEA(ONDREL_ACCELERATORS_MAIN));
  MSG message{};
  while (GetMessageA(&message, nullptr, 0, 0) > 0) {
    // Messages may still wait when the frame has gone, and its record with it: the quit message
    // comes when no other is left.
    if (IsWindow(window) != FALSE && IsTaken(frame, accelerators, message)) continue;
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
}

}  // namespace ondrel::toolkit
