// What the sources of this folder share: the platform's header, which nothing outside of this
// folder may see, and the way from the program's opaque handles and plain values to the platform's.
#pragma once

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <algorithm>
#include <cstdint>

#include "shell/toolkit.h"
#include "shell/window_record.h"
#include "workspace/geometry.h"

namespace ondrel::win32 {

inline constexpr const char* kFrameClass = "Frame Window";
inline constexpr const char* kChildClass = "Child Window";
/// The window property under which a window keeps its record.
inline constexpr const char* kRecordProperty = "USER_DATA";

/// The program's own module, which holds its resources.
inline HINSTANCE Module() {
  return GetModuleHandleA(nullptr);
}

inline HWND HandleOf(const WindowRecord* window) {
  return static_cast<HWND>(window->Handle);
}
/// The owner of a dialog or box; none when there is no frame.
inline HWND OwnerHandle(const FrameWindow* frame) {
  return frame == nullptr ? nullptr : HandleOf(frame);
}

/// The record of a window, or null: of a window that is not ours, not yet created or destroyed.
inline WindowRecord* RecordOf(HWND window) {
  return static_cast<WindowRecord*>(GetPropA(window, kRecordProperty));
}

/// The top child of a frame, or null.
inline HWND TopChild(HWND frame) {
  return GetWindow(frame, GW_CHILD);
}

inline HDC DcOf(const DeviceRecord& device) {
  return static_cast<HDC>(device.Dc);
}

inline HWND HandleOf(const toolkit::DialogRecord& dialog) {
  return static_cast<HWND>(dialog.Handle);
}
inline HMETAFILE HandleOf(toolkit::MetafileHandle metafile) {
  return static_cast<HMETAFILE>(metafile.Handle);
}

inline RECT ToRect(const IntRect& rect) {
  return {rect.Left, rect.Top, rect.Right, rect.Bottom};
}
inline IntRect FromRect(const RECT& rect) {
  return {static_cast<std::int32_t>(rect.left), static_cast<std::int32_t>(rect.top),
          static_cast<std::int32_t>(rect.right), static_cast<std::int32_t>(rect.bottom)};
}

/// The platform shows the upper eight bits of a channel. A preference file can hold more than a
/// channel has.
inline BYTE ToChannel(std::int32_t channel) {
  return static_cast<BYTE>(std::clamp(channel, 0, 65535) >> 8);
}
inline COLORREF ToColor(const RgbColor& color) {
  return RGB(ToChannel(color.Red), ToChannel(color.Green), ToChannel(color.Blue));
}
inline RgbColor FromColor(COLORREF color) {
  return {GetRValue(color) << 8, GetGValue(color) << 8, GetBValue(color) << 8};
}

inline std::int32_t LastError() {
  return static_cast<std::int32_t>(GetLastError());
}

/// Registers the classes of the frame and of the children. False when one could not be had.
bool RegisterWindowClasses(HINSTANCE instance);

LRESULT CALLBACK FrameProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT CALLBACK ChildProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// What the messages of both kinds of windows share, in window_messages_win32.cpp.

/// Ties the window to the record that its creator handed over. -1, which takes the window back,
/// when that fails.
LRESULT OnCreate(HWND window, const CREATESTRUCTA& creation);
/// Tells where the window is, from its placement.
void OnMove(WindowRecord* window);
/// The placement that a size message tells. False for what concerns other windows.
bool PlacementOfSize(WPARAM kind, WindowPlacement* placement);
/// Unties window and record, whichever of the two goes first.
void OnDestroy(HWND window);

}  // namespace ondrel::win32
