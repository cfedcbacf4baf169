#include "shell/window_events.h"

#include "shell/toolkit.h"

namespace ondrel {
namespace {

using ScrollMove = void (*WindowCallbacks::*)(WindowRecord*, Axis);

struct ScrollKey {
  int Code;
  ScrollMove Move;
  Axis MoveAxis;
};

constexpr ScrollKey kScrollKeys[] = {
    {kKeyPageUp, &WindowCallbacks::ScrollPageUp, Axis::Vertical},
    {kKeyPageDown, &WindowCallbacks::ScrollPageDown, Axis::Vertical},
    {kKeyEnd, &WindowCallbacks::ScrollEnd, Axis::Vertical},
    {kKeyHome, &WindowCallbacks::ScrollHome, Axis::Vertical},
    {kKeyLeft, &WindowCallbacks::ScrollLineUp, Axis::Horizontal},
    {kKeyUp, &WindowCallbacks::ScrollLineUp, Axis::Vertical},
    {kKeyRight, &WindowCallbacks::ScrollLineDown, Axis::Horizontal},
    {kKeyDown, &WindowCallbacks::ScrollLineDown, Axis::Vertical},
};

/// The frame's borders, caption and menu together, above its client area.
constexpr std::int32_t FrameTrim(std::int32_t menuHeight) {
  return 2 * menuHeight + 2;
}

}  // namespace

void OnCreated(WindowRecord* window, void* handle) {
  window->Handle = handle;
  window->Captured = false;
  window->Scrolling = false;
  window->Callbacks->Created(window);
}

void OnCommand(FrameWindow* frame, std::uint32_t identifier) {
  frame->Callbacks->Command(frame, static_cast<int>((identifier >> 8) & 0xFF),
                            static_cast<int>(identifier & 0xFF));
}

void OnScroll(ChildWindow* child, Axis axis, std::int32_t code, std::uint16_t position) {
  const ChildCallbacks& view = *child->Callbacks;
  if (!child->Scrolling) {
    child->Scrolling = true;
    view.ScrollBegin(child, axis);
  }
  switch (static_cast<ScrollCode>(code)) {
    case ScrollCode::LineUp:
      view.ScrollLineUp(child, axis);
      break;
    case ScrollCode::LineDown:
      view.ScrollLineDown(child, axis);
      break;
    case ScrollCode::PageUp:
      view.ScrollPageUp(child, axis);
      break;
    case ScrollCode::PageDown:
      view.ScrollPageDown(child, axis);
      break;
    case ScrollCode::ThumbPosition:
      // The view reads it back when the gesture ends. Rows beyond 65535 cannot be told this way.
      toolkit::SetScrollPositionQuietly(child, axis, position);
      break;
    case ScrollCode::EndScroll:
      child->Scrolling = false;
      view.ScrollDone(child, axis);
      break;
    case ScrollCode::ThumbTrack:  // a drag shows its result when it ends
    case ScrollCode::Top:
    case ScrollCode::Bottom:
      break;
  }
}

int HandleScrollKey(ChildWindow* child, int key) {
  const ChildCallbacks& view = *child->Callbacks;
  for (const ScrollKey& scrollKey : kScrollKeys) {
    if (scrollKey.Code != key) continue;
    view.ScrollBegin(child, scrollKey.MoveAxis);
    (view.*scrollKey.Move)(child, scrollKey.MoveAxis);
    view.ScrollDone(child, scrollKey.MoveAxis);
    return 1;
  }
  return 0;
}

bool OnChildKeyDown(ChildWindow* child, int key, bool control) {
  if (child->Callbacks->KeyDown(child, key) != 0) return true;
  if (!control) return false;
  if (key == kKeyF4) {
    child->Callbacks->Close(child);
    return true;
  }
  if (key == kKeyF6) {
    toolkit::NextChild(child);
    return true;
  }
  return false;
}

void OnMouseDown(ChildWindow* child, int x, int y) {
  child->Callbacks->MouseDown(child, x, y);
  child->Captured = true;
}

void OnMouseUp(ChildWindow* child, int x, int y) {
  child->Callbacks->MouseUp(child, x, y);
  child->Captured = false;
}

bool OnMouseMove(ChildWindow* child, int x, int y) {
  if (!child->Captured) return false;
  child->Callbacks->MouseMove(child, x, y);
  return true;
}

void OnChildSized(ChildWindow* child, WindowPlacement placement) {
  child->Callbacks->Sized(child, placement);
  if (placement == WindowPlacement::Minimized) toolkit::NextChild(child);
}

IntRect KeepChildInFrame(const IntRect& place, const PixelSize& frame, std::int32_t menuHeight) {
  const std::int32_t width = Width(place);
  const std::int32_t rightmost = frame.Width - menuHeight;
  const std::int32_t lowest = frame.Height - FrameTrim(menuHeight) - menuHeight;
  std::int32_t left = place.Left;
  std::int32_t top = place.Top;
  // In this order: in a frame too small for the rules the right and the lower edge win.
  if (left + width < menuHeight) left = menuHeight - width;
  if (left >= rightmost) left = rightmost;
  if (top < 0) top = 0;
  if (top >= lowest) top = lowest;
  return {left, top, left + width, top + Height(place)};
}

PixelSize LimitMaximizedSize(const PixelSize& maximum, const PixelSize& frame,
                             std::int32_t menuHeight) {
  const std::int32_t trim = FrameTrim(menuHeight);
  if (frame.Width >= maximum.Width && frame.Height >= maximum.Height + trim) return maximum;
  return {frame.Width, frame.Height - trim};
}

}  // namespace ondrel
