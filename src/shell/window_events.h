// What the windows do with the messages of the platform, as far as no platform is needed for it:
// scroll gestures, keys, mouse, and the rules that keep a child within reach in its frame. The
// window procedures unpack a message and call one of these.
#pragma once

#include <cstdint>

#include "shell/keys.h"
#include "shell/window_record.h"
#include "workspace/geometry.h"

namespace ondrel {

/// Codes of a scroll message, as the platform numbers them.
enum class ScrollCode : std::int32_t {
  LineUp = 0,
  LineDown = 1,
  PageUp = 2,
  PageDown = 3,
  ThumbPosition = 4,  // the thumb was let go
  ThumbTrack = 5,     // the thumb is being dragged
  Top = 6,
  Bottom = 7,
  EndScroll = 8,
};

struct PixelSize {
  std::int32_t Width = 0;
  std::int32_t Height = 0;

  friend bool operator==(const PixelSize&, const PixelSize&) = default;
};

/// The window exists: gives the record its handle and calls Created.
void OnCreated(WindowRecord* window, void* handle);

/// Hands a menu identifier on as menu number (high byte) and item number (low byte).
void OnCommand(FrameWindow* frame, std::uint32_t identifier);

/// One message of a scroll bar. `position` is the thumb's, of which the platform tells 16 bits.
void OnScroll(ChildWindow* child, Axis axis, std::int32_t code, std::uint16_t position);

/// Page Up, Page Down, End, Home and the arrows each perform a complete gesture. Returns 1 for
/// these and 0 for every other key.
int HandleScrollKey(ChildWindow* child, int key);

/// A key goes to the view first; what it leaves alone may be Ctrl+F4 (close) or Ctrl+F6 (next
/// child). True when handled. The child may be gone afterwards.
bool OnChildKeyDown(ChildWindow* child, int key, bool control);

/// A press captures the mouse and a release gives it back; the caller does both on the platform,
/// right after the call.
void OnMouseDown(ChildWindow* child, int x, int y);
void OnMouseUp(ChildWindow* child, int x, int y);
/// False when the mouse is not captured; the view then does not hear of it.
bool OnMouseMove(ChildWindow* child, int x, int y);

/// Tells the view its new size. A child that is minimised gives way to the next one.
void OnChildSized(ChildWindow* child, WindowPlacement placement);

/// Where a child that is to stand at `place` may stand, in client coordinates of the frame: never
/// above the client area, and with at least a menu's height of it in sight left, right and below.
/// Its size stays. `frame` is the size of the frame's whole window, borders, caption and menu
/// included; the rule allows for these itself.
IntRect KeepChildInFrame(const IntRect& place, const PixelSize& frame, std::int32_t menuHeight);

/// The size of a maximised child, cut down to what the frame, again the whole window, has room for.
PixelSize LimitMaximizedSize(const PixelSize& maximum, const PixelSize& frame,
                             std::int32_t menuHeight);

}  // namespace ondrel
