// The window procedure of the children, and how they come to be, come forward and go.
#include "shell/toolkit.h"
#include "shell/win32/win32.h"
#include "shell/window_events.h"

namespace ondrel::win32 {
namespace {

static_assert(static_cast<int>(ScrollCode::ThumbPosition) == SB_THUMBPOSITION &&
              static_cast<int>(ScrollCode::EndScroll) == SB_ENDSCROLL);
static_assert(kKeyBreak == VK_CANCEL && kKeyPageUp == VK_PRIOR && kKeyPageDown == VK_NEXT &&
              kKeyEnd == VK_END && kKeyHome == VK_HOME && kKeyLeft == VK_LEFT && kKeyUp == VK_UP &&
              kKeyRight == VK_RIGHT && kKeyDown == VK_DOWN && kKeyF4 == VK_F4 && kKeyF6 == VK_F6);

/// A mouse position as views get it: x unsigned, y signed.
int MouseX(LPARAM position) {
  return LOWORD(position);
}
int MouseY(LPARAM position) {
  return static_cast<std::int16_t>(HIWORD(position));
}

PixelSize FrameSize(HWND child) {
  RECT frame{};
  GetWindowRect(GetParent(child), &frame);
  return {static_cast<std::int32_t>(frame.right - frame.left),
          static_cast<std::int32_t>(frame.bottom - frame.top)};
}

/// The 16-bit line of Windows, whose last member came out in 2000, limits a maximised child itself.
bool IsSixteenBitFamily() {
  OSVERSIONINFOA version{};
  version.dwOSVersionInfoSize = sizeof(version);
  return GetVersionExA(&version) != FALSE && version.dwPlatformId == VER_PLATFORM_WIN32_WINDOWS;
}

void OnGetMinMaxInfo(const ChildWindow* child, MINMAXINFO& info) {
  if (child->MinWidth != 0) info.ptMinTrackSize.x = child->MinWidth;
  if (child->MinHeight != 0) info.ptMinTrackSize.y = child->MinHeight;
  if (IsSixteenBitFamily()) return;
  const PixelSize maximum{static_cast<std::int32_t>(info.ptMaxSize.x),
                          static_cast<std::int32_t>(info.ptMaxSize.y)};
  const PixelSize limited =
      LimitMaximizedSize(maximum, FrameSize(HandleOf(child)), GetSystemMetrics(SM_CYMENU));
  info.ptMaxSize = {limited.Width, limited.Height};
}

void OnWindowPosChanging(const ChildWindow* child, WINDOWPOS& change) {
  if ((change.flags & SWP_NOMOVE) != 0) return;
  // A mere move says nothing of the size.
  RECT present{};
  GetWindowRect(HandleOf(child), &present);
  const bool moveOnly = (change.flags & SWP_NOSIZE) != 0;
  const std::int32_t width =
      moveOnly ? static_cast<std::int32_t>(present.right - present.left) : change.cx;
  const std::int32_t height =
      moveOnly ? static_cast<std::int32_t>(present.bottom - present.top) : change.cy;
  const IntRect place = KeepChildInFrame({change.x, change.y, change.x + width, change.y + height},
                                         FrameSize(HandleOf(child)), GetSystemMetrics(SM_CYMENU));
  change.x = place.Left;
  change.y = place.Top;
}

/// False when nothing is to be painted.
bool OnPaint(ChildWindow* child) {
  HWND window = HandleOf(child);
  if (GetUpdateRect(window, nullptr, FALSE) == FALSE) return false;
  PAINTSTRUCT paint{};
  DeviceRecord device;
  device.Dc = BeginPaint(window, &paint);
  child->Callbacks->Paint(child, device);
  EndPaint(window, &paint);
  return true;
}

void OnSize(ChildWindow* child, WPARAM kind) {
  WindowPlacement placement{};
  if (PlacementOfSize(kind, &placement)) OnChildSized(child, placement);
}

void OnMouseActivate(ChildWindow* child) {
  HWND window = HandleOf(child);
  if (window != TopChild(GetParent(window))) toolkit::BringForward(child);
}

void OnLeftButtonDown(ChildWindow* child, LPARAM position) {
  HWND window = HandleOf(child);
  OnMouseDown(child, MouseX(position), MouseY(position));
  SetCapture(window);
}

void OnLeftButtonUp(ChildWindow* child, LPARAM position) {
  OnMouseUp(child, MouseX(position), MouseY(position));
  ReleaseCapture();
}

/// While the frame is disabled what shows it is in the middle of its work, of which a child may be
/// the object. Only messages that other programs post still arrive then.
bool IsBusy(HWND child) {
  return IsWindowEnabled(GetParent(child)) == FALSE;
}

/// True when the command was the system menu's "Next".
bool OnSystemCommand(ChildWindow* child, WPARAM command) {
  if ((command & 0xFFF0) != SC_NEXTWINDOW) return false;  // the low bits are the platform's own
  toolkit::NextChild(child);
  return true;
}

/// A letter that the child's system menu does not know is meant for the menu bar.
LRESULT OnMenuCharacter(const ChildWindow* child, WPARAM character) {
  PostMessageA(GetParent(HandleOf(child)), WM_SYSCOMMAND, SC_KEYMENU, LOWORD(character));
  return MAKELRESULT(0, MNC_CLOSE);
}

}  // namespace

LRESULT CALLBACK ChildProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_CREATE) {
    return OnCreate(window, *reinterpret_cast<const CREATESTRUCTA*>(lParam));
  }
  ChildWindow* child = RecordOf(window);
  if (child == nullptr) return DefWindowProcA(window, message, wParam, lParam);
  switch (message) {
    case WM_DESTROY:
      OnDestroy(window);
      break;
    case WM_MOVE:
      OnMove(child);
      break;
    case WM_SIZE:
      OnSize(child, wParam);
      break;
    case WM_PAINT:
      if (OnPaint(child)) return 0;
      break;
    case WM_CLOSE:
      if (!IsBusy(window)) child->Callbacks->Close(child);  // the child may be gone now
      return 0;
    case WM_ERASEBKGND:
      return 0;
    case WM_MOUSEACTIVATE:
      OnMouseActivate(child);
      break;
    case WM_GETMINMAXINFO:
      OnGetMinMaxInfo(child, *reinterpret_cast<MINMAXINFO*>(lParam));
      break;
    case WM_WINDOWPOSCHANGING:
      OnWindowPosChanging(child, *reinterpret_cast<WINDOWPOS*>(lParam));
      break;
    case WM_NCACTIVATE:
      child->Callbacks->Activate(child, wParam != FALSE);
      break;
    case WM_KEYDOWN:
      if (OnChildKeyDown(child, static_cast<int>(wParam), GetKeyState(VK_CONTROL) < 0)) return 0;
      break;
    case WM_CHAR:
      child->Callbacks->Char(child, static_cast<int>(wParam));
      return 0;
    case WM_SYSCOMMAND:
      if (OnSystemCommand(child, wParam)) return 0;
      break;
    case WM_MENUCHAR:
      return OnMenuCharacter(child, wParam);
    case WM_HSCROLL:
      OnScroll(child, Axis::Horizontal, LOWORD(wParam), HIWORD(wParam));
      return 0;
    case WM_VSCROLL:
      OnScroll(child, Axis::Vertical, LOWORD(wParam), HIWORD(wParam));
      return 0;
    case WM_MOUSEMOVE:
      if (OnMouseMove(child, MouseX(lParam), MouseY(lParam))) return 0;
      break;
    case WM_LBUTTONDOWN:
      OnLeftButtonDown(child, lParam);
      return 0;
    case WM_CAPTURECHANGED:
      child->Captured = false;  // also when a dialog has taken the mouse away from a drag
      break;
    case WM_LBUTTONUP:
      OnLeftButtonUp(child, lParam);
      return 0;
    default:
      break;
  }
  return DefWindowProcA(window, message, wParam, lParam);
}

namespace {

/// Says in the system menu which keys do the same. Windows has had no task list there for long, so
/// that the second entry is missing as a rule; the key works all the same.
void NameKeysInSystemMenu(HWND window) {
  HMENU menu = GetSystemMenu(window, FALSE);
  ModifyMenuA(menu, SC_CLOSE, MF_BYCOMMAND | MF_STRING, SC_CLOSE, "&Close\tCtrl+F4");
  ModifyMenuA(menu, SC_TASKLIST, MF_BYCOMMAND | MF_STRING, SC_NEXTWINDOW, "Nex&t\tCtrl+F6");
}

DWORD ChildStyle(bool horizontalBar, bool verticalBar) {
  DWORD style = WS_CHILD | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX |
                WS_MAXIMIZEBOX | WS_CLIPSIBLINGS;
  if (horizontalBar) style |= WS_HSCROLL;
  if (verticalBar) style |= WS_VSCROLL;
  return style;
}

}  // namespace
}  // namespace ondrel::win32

namespace ondrel::toolkit {

ChildWindow* CreateChild(FrameWindow* frame, const char* title, const IntRect& place,
                         bool horizontalBar, bool verticalBar, Workspace* owner,
                         const ChildCallbacks* callbacks) {
  auto* child = AllocateRecords<ChildWindow>(1);
  if (child == nullptr) return nullptr;
  child->Owner = owner;
  child->Callbacks = callbacks;
  // Views that cascade in a small frame can come out with nothing left of them.
  const bool placed = Width(place) > 0 && Height(place) > 0;
  HWND window =
      CreateWindowExA(0, win32::kChildClass, title, win32::ChildStyle(horizontalBar, verticalBar),
                      placed ? place.Left : CW_USEDEFAULT, placed ? place.Top : CW_USEDEFAULT,
                      placed ? Width(place) : CW_USEDEFAULT, placed ? Height(place) : CW_USEDEFAULT,
                      win32::HandleOf(frame), nullptr, win32::Module(), child);
  if (window == nullptr) {
    FreeMemory(child);
    return nullptr;
  }
  win32::NameKeysInSystemMenu(window);
  BringForward(child);
  return child;
}

void BringForward(ChildWindow* child) {
  HWND window = win32::HandleOf(child);
  HWND frame = GetParent(window);
  if (HWND top = win32::TopChild(frame)) SendMessageA(top, WM_NCACTIVATE, FALSE, 0);
  if (GetActiveWindow() == frame) SendMessageA(window, WM_NCACTIVATE, TRUE, 0);
  ::ShowWindow(window, SW_SHOW);
  SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
  SetFocus(window);
}

void NextChild(ChildWindow* child) {
  HWND own = win32::HandleOf(child);
  for (HWND window = GetWindow(own, GW_HWNDLAST); window != nullptr;
       window = GetWindow(window, GW_HWNDPREV)) {
    WindowRecord* record = win32::RecordOf(window);
    if (record == nullptr || window == own) continue;
    BringForward(record);
    return;
  }
}

ChildWindow* ActiveChild(FrameWindow* frame) {
  HWND top = win32::TopChild(win32::HandleOf(frame));
  return top == nullptr ? nullptr : win32::RecordOf(top);
}

}  // namespace ondrel::toolkit
