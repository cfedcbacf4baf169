// What the driver and its probe share. Menus and scroll bars of another process cannot be read
// everywhere, so a small library goes into the program's process as a message hook, asks the
// ordinary queries there and writes the answers on a board of shared memory.
#pragma once

#include <windows.h>

namespace ondrel::e2e {

inline constexpr const char* kProbeMessage = "OndrelE2eProbe";
inline constexpr const char* kBarrierMessage = "OndrelE2eBarrier";
inline constexpr const char* kBoardName = "OndrelE2eBoard.";  // and the process's id
// On no keyboard, and nothing answers to them.
inline constexpr int kBarrierKey = VK_F15;
inline constexpr int kPauseKey = VK_F16;  // holds the program where it takes it from its queue

/// Sent with kProbeMessage as the first parameter.
enum class ProbeQuery : WPARAM {
  MenuBar = 1,         // menu of the window, as lines
  SystemMenu = 2,      // its system menu, as lines
  VerticalScroll = 3,  // its vertical scroll bar
  NeedsPaint = 4,      // whether some of it waits to be painted
  Smear = 5,           // no question: paints over the middle of its client area
};

// A green that nothing of the program has, and the sides of what is smeared, pixels.
inline constexpr COLORREF kSmearColor = RGB(0, 0xA0, 0);
inline constexpr int kSmearSide = 40;

/// Of a vertical scroll bar; places are on the screen, the thumb's in pixels from the bar's top.
struct ScrollAnswer {
  int Minimum;
  int Maximum;
  int Position;
  RECT Bar;
  int Arrow;  // height of an arrow
  int ThumbTop;
  int ThumbBottom;
};

/// One line per menu entry: depth, state, type and id in decimal, each ended by a blank, then the
/// text up to the line feed.
struct ProbeBoard {
  volatile LONG Answers;      // questions answered so far
  volatile LONG LastBarrier;  // first parameter of the last barrier message taken from the queue
  volatile LONG BarrierKeys;  // barrier keys taken from the queue so far
  volatile LONG Pauses;       // pause keys taken from the queue so far
  volatile LONG Resumes;      // counted by the driver; the program goes on when it has caught up
  ScrollAnswer Scroll;
  int NeedsPaint;
  char Lines[32768];
};

}  // namespace ondrel::e2e
