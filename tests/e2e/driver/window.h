// A window of another process, seen through what any process may ask and send.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace ondrel::e2e {

struct Point {
  int X = 0;
  int Y = 0;
};

struct Rect {
  int Left = 0;
  int Top = 0;
  int Right = 0;
  int Bottom = 0;

  [[nodiscard]] int Width() const { return Right - Left; }
  [[nodiscard]] int Height() const { return Bottom - Top; }
  [[nodiscard]] Point Middle() const { return {(Left + Right) / 2, (Top + Bottom) / 2}; }
  bool operator==(const Rect&) const = default;
};

/// For messages of tests: "27,27 400x250".
std::string ToText(const Rect& rect);
void PrintTo(const Rect& rect, std::ostream* out);

class Window {
 public:
  Window() = default;
  explicit Window(HWND handle) : handle_(handle) {}

  [[nodiscard]] HWND Handle() const { return handle_; }
  [[nodiscard]] bool Exists() const { return handle_ != nullptr && IsWindow(handle_) != 0; }
  [[nodiscard]] bool Visible() const { return Exists() && IsWindowVisible(handle_) != 0; }
  [[nodiscard]] bool Enabled() const { return Exists() && IsWindowEnabled(handle_) != 0; }
  [[nodiscard]] bool Maximized() const { return IsZoomed(handle_) != 0; }
  [[nodiscard]] bool Minimized() const { return IsIconic(handle_) != 0; }
  bool operator==(const Window&) const = default;

  [[nodiscard]] std::string Title() const;
  /// What stands in a control; empty when it is gone.
  [[nodiscard]] std::string Text() const;
  [[nodiscard]] std::string ClassName() const;
  [[nodiscard]] Rect Place() const;          // whole window, on the screen
  [[nodiscard]] Rect PlaceInParent() const;  // whole window, in the parent's client coordinates
  [[nodiscard]] Rect ClientArea() const;     // on the screen
  /// The control with this id; a window that does not exist when there is none.
  [[nodiscard]] Window Control(int id) const { return Window(GetDlgItem(handle_, id)); }
  /// Direct children from the top of the stacking order down.
  [[nodiscard]] std::vector<Window> Children() const;

  /// A place on the screen that belongs to a part of the window's border as WM_NCHITTEST tells
  /// it, such as HTCLOSE or HTCAPTION. Fails when there is none.
  [[nodiscard]] Point PartOnScreen(LRESULT part) const;

  /// Waits for the answer; fails when none comes in time.
  LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
  /// For whatever may open a dialog. Fails when the queue does not take it.
  void Post(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;

  /// Moves and sizes the window, as any process may. A child's place is in its parent's client
  /// coordinates.
  void MoveTo(const Rect& place) const;

 private:
  HWND handle_ = nullptr;
};

/// Top-level windows of a process, visible or not, from the top down.
std::vector<Window> TopLevelWindows(DWORD process);

}  // namespace ondrel::e2e
