// Operations on windows that the frame and its children share.
#include "shell/toolkit.h"
#include "shell/win32/win32.h"

namespace ondrel::toolkit {
namespace {

int BarOf(Axis axis) {
  return axis == Axis::Horizontal ? SB_HORZ : SB_VERT;
}

bool IsChildWindow(HWND window) {
  return (GetWindowLongA(window, GWL_STYLE) & WS_CHILD) != 0;
}

}  // namespace

void DestroyWindow(WindowRecord* window) {
  if (window == nullptr) return;
  HWND handle = win32::HandleOf(window);
  if (IsWindow(handle) != FALSE) {
    if (IsChildWindow(handle)) NextChild(window);
    ::DestroyWindow(handle);
  }
  FreeMemory(window);
}

void ShowWindow(WindowRecord* window) {
  ::ShowWindow(win32::HandleOf(window), SW_SHOW);
  UpdateWindow(win32::HandleOf(window));
}

void EnableWindow(WindowRecord* window, bool enabled) {
  ::EnableWindow(win32::HandleOf(window), enabled ? TRUE : FALSE);
}

void MaximizeWindow(WindowRecord* window) {
  ::ShowWindow(win32::HandleOf(window), SW_SHOWMAXIMIZED);
}

void MoveWindow(WindowRecord* window, std::int32_t left, std::int32_t top) {
  SetWindowPos(win32::HandleOf(window), nullptr, left, top, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void SizeWindow(WindowRecord* window, std::int32_t width, std::int32_t height) {
  SetWindowPos(win32::HandleOf(window), nullptr, 0, 0, width, height,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

IntRect ClientRect(WindowRecord* window) {
  RECT rect{};
  GetClientRect(win32::HandleOf(window), &rect);
  return win32::FromRect(rect);
}

IntRect WindowRect(WindowRecord* window) {
  HWND handle = win32::HandleOf(window);
  RECT rect{};
  GetWindowRect(handle, &rect);
  IntRect place = win32::FromRect(rect);
  if (!IsChildWindow(handle)) return place;
  POINT origin{};
  ClientToScreen(GetParent(handle), &origin);
  const auto x = static_cast<std::int32_t>(origin.x);
  const auto y = static_cast<std::int32_t>(origin.y);
  return {place.Left - x, place.Top - y, place.Right - x, place.Bottom - y};
}

void SetScrollRange(ChildWindow* window, Axis axis, std::int32_t maximum) {
  ::SetScrollRange(win32::HandleOf(window), BarOf(axis), 0, maximum, TRUE);
}

void SetScrollPosition(ChildWindow* window, Axis axis, std::int32_t position) {
  SetScrollPos(win32::HandleOf(window), BarOf(axis), position, TRUE);
}

void SetScrollPositionQuietly(ChildWindow* window, Axis axis, std::int32_t position) {
  SetScrollPos(win32::HandleOf(window), BarOf(axis), position, FALSE);
}

std::int32_t ReadScrollPosition(ChildWindow* window, Axis axis) {
  return GetScrollPos(win32::HandleOf(window), BarOf(axis));
}

void Invalidate(ChildWindow* window, const IntRect& rect) {
  const RECT area = win32::ToRect(rect);
  InvalidateRect(win32::HandleOf(window), &area, FALSE);
}

void SetWaitCursor(bool waiting) {
  SetCursor(LoadCursorA(nullptr, waiting ? IDC_WAIT : IDC_ARROW));
}

std::uint32_t TickCount() {
  return GetTickCount();
}

std::uint32_t DoubleClickTime() {
  return GetDoubleClickTime();
}

std::int32_t MinimumWindowHeight() {
  return GetSystemMetrics(SM_CYMINTRACK);
}

double ScreenDpi() {
  HDC screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  return dpi;
}

}  // namespace ondrel::toolkit
