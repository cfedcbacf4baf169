// The frame's menu bar. Places count from 1 in the program and from 0 on the platform.
#include "shell/toolkit.h"
#include "shell/win32/win32.h"

namespace ondrel::toolkit {
namespace {

HMENU BarOf(FrameWindow* frame) {
  return GetMenu(win32::HandleOf(frame));
}

HMENU LoadMenuResource(int resource) {
  return LoadMenuA(win32::Module(), MAKEINTRESOURCEA(resource));
}

void EnableAt(HMENU menu, int place, bool enabled) {
  EnableMenuItem(menu, static_cast<UINT>(place - 1),
                 MF_BYPOSITION | static_cast<UINT>(enabled ? MF_ENABLED : MF_GRAYED));
}

}  // namespace

void ReplaceMenu(FrameWindow* frame, int resource) {
  HMENU menu = LoadMenuResource(resource);
  if (menu == nullptr) return;
  HMENU old = BarOf(frame);
  SetMenu(win32::HandleOf(frame), menu);
  if (old != nullptr) DestroyMenu(old);
}

void InsertPopup(FrameWindow* frame, int resource, int place) {
  HMENU menu = LoadMenuResource(resource);
  HMENU popup = GetSubMenu(menu, 0);
  if (popup != nullptr) {
    char text[64] = "";
    GetMenuStringA(menu, 0, text, sizeof(text), MF_BYPOSITION);
    // Taken out of its menu first, the popup belongs to the bar alone.
    RemoveMenu(menu, 0, MF_BYPOSITION);
    InsertMenuA(BarOf(frame), static_cast<UINT>(place - 1), MF_BYPOSITION | MF_POPUP | MF_STRING,
                reinterpret_cast<UINT_PTR>(popup), text);
  }
  if (menu != nullptr) DestroyMenu(menu);
}

void EnablePopup(FrameWindow* frame, int popup, bool enabled) {
  EnableAt(BarOf(frame), popup, enabled);
}

void EnableEntry(FrameWindow* frame, int popup, int entry, bool enabled) {
  EnableAt(GetSubMenu(BarOf(frame), popup - 1), entry, enabled);
}

void EnableSubEntry(FrameWindow* frame, int popup, int entry, int subEntry, bool enabled) {
  EnableAt(GetSubMenu(GetSubMenu(BarOf(frame), popup - 1), entry - 1), subEntry, enabled);
}

void RedrawMenuBar(FrameWindow* frame) {
  DrawMenuBar(win32::HandleOf(frame));
}

}  // namespace ondrel::toolkit
