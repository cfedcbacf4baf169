// What the program knows of a window: its record, the table of functions that the window layer
// turns the platform's messages into, and the device in which it draws. No type of the platform
// stands here; handles are opaque.
#pragma once

#include <cstdint>

namespace ondrel {

struct Workspace;
struct WindowRecord;

/// Four handles of the platform: a device context and what is selected into it and owned here.
struct DeviceRecord {
  void* Dc = nullptr;
  void* Font = nullptr;
  void* Pen = nullptr;
  void* Brush = nullptr;
};

enum class Axis : std::int32_t { Vertical = 0, Horizontal = 1 };

enum class WindowPlacement : std::int32_t { Normal = 0, Maximized = 1, Minimized = 2 };

/// The 25 functions through which a window speaks to the program; child windows and the frame have
/// the same shape. A window owns its table while it is open. Unless its line says otherwise a slot
/// must be filled, if need be with a function that does nothing.
struct WindowCallbacks {
  void (*Created)(WindowRecord* window);                            // 0: the window exists
  void (*Command)(WindowRecord* window, int high, int low);         // 1: frame only
  void (*MouseDown)(WindowRecord* window, int x, int y);            // 2: client coordinates
  void (*MouseMove)(WindowRecord* window, int x, int y);            // 3: only while captured
  void (*MouseUp)(WindowRecord* window, int x, int y);              // 4
  void (*ScrollBegin)(WindowRecord* window, Axis axis);             // 5: first message of a gesture
  void (*ScrollLineUp)(WindowRecord* window, Axis axis);            // 6: up or left
  void (*ScrollPageUp)(WindowRecord* window, Axis axis);            // 7
  void (*ScrollHome)(WindowRecord* window, Axis axis);              // 8
  void (*ScrollEnd)(WindowRecord* window, Axis axis);               // 9
  void (*ScrollPageDown)(WindowRecord* window, Axis axis);          // 10: down or right
  void (*ScrollLineDown)(WindowRecord* window, Axis axis);          // 11
  void (*ScrollDone)(WindowRecord* window, Axis axis);              // 12: end of a gesture
  void (*Moved)(WindowRecord* window, WindowPlacement place);       // 13
  void (*Sized)(WindowRecord* window, WindowPlacement place);       // 14
  void (*Close)(WindowRecord* window);                              // 15: children only
  void (*Activate)(WindowRecord* window, bool active);              // 16: children only
  void (*Paint)(WindowRecord* window, const DeviceRecord& device);  // 17: children only
  void (*Enabled)(WindowRecord* window, bool enabled);              // 18: frame only
  void (*Unused19)(WindowRecord* window);                           // 19: never called
  void (*Unused20)(WindowRecord* window);                           // 20: never called
  int (*KeyDown)(WindowRecord* window, int key);                    // 21: nonzero: handled
  void (*Char)(WindowRecord* window, int character);                // 22: null on the frame
  int (*FilterMessage)(WindowRecord* window,
                       const void* message);  // 23: frame only; nonzero: taken
  void (*Closing)(WindowRecord* window);      // 24: frame only
};

/// A window's record. The frame and its children share the form.
struct WindowRecord {
  void* Handle = nullptr;
  Workspace* Owner = nullptr;  // borrowed
  bool Captured = false;       // the mouse is captured
  bool Scrolling = false;      // a scroll gesture is under way
  std::int32_t MinWidth = 0;   // smallest size by dragging; 0: the platform's
  std::int32_t MinHeight = 0;
  const WindowCallbacks* Callbacks = nullptr;  // owned by whoever opened the window
};

using FrameWindow = WindowRecord;
using ChildWindow = WindowRecord;
using FrameCallbacks = WindowCallbacks;
using ChildCallbacks = WindowCallbacks;

}  // namespace ondrel
