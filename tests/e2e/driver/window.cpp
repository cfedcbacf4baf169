// Queries and messages to a window of another process.
#include "window.h"

#include <array>
#include <ostream>

#include "wait.h"

namespace ondrel::e2e {
namespace {

Rect FromNative(const RECT& rect) {
  return {static_cast<int>(rect.left), static_cast<int>(rect.top), static_cast<int>(rect.right),
          static_cast<int>(rect.bottom)};
}

Rect MapRect(const RECT& rect, HWND from, HWND to) {
  RECT mapped = rect;
  MapWindowPoints(from, to, reinterpret_cast<POINT*>(&mapped), 2);
  return FromNative(mapped);
}

struct Search {
  DWORD Process;
  std::vector<Window>* Found;
};

BOOL CALLBACK CollectWindow(HWND handle, LPARAM parameter) {
  const auto& search = *reinterpret_cast<const Search*>(parameter);
  DWORD process = 0;
  GetWindowThreadProcessId(handle, &process);
  if (process == search.Process) search.Found->emplace_back(handle);
  return TRUE;
}

}  // namespace

std::string ToText(const Rect& rect) {
  return std::to_string(rect.Left) + "," + std::to_string(rect.Top) + " " +
         std::to_string(rect.Width()) + "x" + std::to_string(rect.Height());
}

void PrintTo(const Rect& rect, std::ostream* out) {
  *out << ToText(rect);
}

std::string Window::Title() const {
  std::array<char, 256> title{};
  GetWindowTextA(handle_, title.data(), static_cast<int>(title.size()));
  return title.data();
}

std::string Window::Text() const {
  // A message to a window that goes away while it is under way may never be answered: asked in
  // short turns, for as long as the window is there.
  constexpr UINT kTurn = 250;  // ms
  std::array<char, 4096> text{};
  DWORD_PTR length = 0;
  const bool answered = HoldsWithin(kPatience, [&] {
    return SendMessageTimeoutA(handle_, WM_GETTEXT, text.size(),
                               reinterpret_cast<LPARAM>(text.data()), SMTO_NORMAL, kTurn,
                               &length) != 0 ||
           !Exists();
  });
  if (!answered) Fail("a control does not tell its text");
  return text.data();
}

std::string Window::ClassName() const {
  std::array<char, 128> name{};
  GetClassNameA(handle_, name.data(), static_cast<int>(name.size()));
  return name.data();
}

Rect Window::Place() const {
  RECT rect{};
  GetWindowRect(handle_, &rect);
  return FromNative(rect);
}

Rect Window::PlaceInParent() const {
  RECT rect{};
  GetWindowRect(handle_, &rect);
  return MapRect(rect, nullptr, GetAncestor(handle_, GA_PARENT));
}

Rect Window::ClientArea() const {
  RECT rect{};
  GetClientRect(handle_, &rect);
  return MapRect(rect, handle_, nullptr);
}

std::vector<Window> Window::Children() const {
  std::vector<Window> children;
  for (HWND child = GetWindow(handle_, GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    children.emplace_back(child);
  }
  return children;
}

Point Window::PartOnScreen(LRESULT part) const {
  // From the right, as the buttons of a title bar stand there; the first hits of a part are its
  // edge, so that the middle of its run in this line is taken.
  const Rect place = Place();
  for (int y = place.Top + 1; y < place.Bottom; y += 4) {
    int first = 0;
    int last = 0;
    for (int x = place.Right - 1; x > place.Left; --x) {
      if (Send(WM_NCHITTEST, 0, MAKELPARAM(x, y)) == part) {
        if (first == 0) first = x;
        last = x;
      } else if (first != 0) {
        break;
      }
    }
    if (first - last >= 6) return {(first + last) / 2, y + 4};
  }
  Fail("the window '" + Title() + "' has no part " + std::to_string(part) + " to point at");
}

LRESULT Window::Send(UINT message, WPARAM wParam, LPARAM lParam) const {
  DWORD_PTR result = 0;
  if (SendMessageTimeoutA(handle_, message, wParam, lParam, SMTO_NORMAL, kPatience, &result) == 0) {
    Fail("no answer to message " + std::to_string(message));
  }
  return static_cast<LRESULT>(result);
}

void Window::Post(UINT message, WPARAM wParam, LPARAM lParam) const {
  if (PostMessageA(handle_, message, wParam, lParam) == 0) {
    Fail("message " + std::to_string(message) + " could not be posted");
  }
}

void Window::MoveTo(const Rect& place) const {
  SetWindowPos(handle_, nullptr, place.Left, place.Top, place.Width(), place.Height(),
               SWP_NOZORDER | SWP_NOACTIVATE);
}

std::vector<Window> TopLevelWindows(DWORD process) {
  std::vector<Window> found;
  const Search search{process, &found};
  EnumWindows(CollectWindow, reinterpret_cast<LPARAM>(&search));
  return found;
}

}  // namespace ondrel::e2e
