// Windows, menus and the message loop of the scripted shell.
#include <algorithm>
#include <limits>

#include "support/scripted_shell.h"

namespace ondrel::scripted {
namespace {

constexpr std::int32_t kBorder = 4;
constexpr std::int32_t kCaption = 19;
constexpr std::int32_t kBarWidth = 16;
constexpr std::int32_t kMenuHeight = 19;
constexpr std::int32_t kLargestWindow = 1 << 20;

}  // namespace

Window& WindowOf(WindowRecord* record) {
  return *static_cast<Window*>(record->Handle);
}

std::vector<std::string> StackOfChildren() {
  std::vector<std::string> titles;
  for (const auto& child : TheShell().Children) titles.push_back(child->Title);
  return titles;
}

void Note(const std::string& line) {
  TheShell().Windows.push_back(line);
}

IntRect InsideOf(const Window& window) {
  const std::int32_t menu = window.Frame == nullptr ? kMenuHeight : 0;
  const std::int32_t bar =
      window.Bars[static_cast<std::size_t>(Axis::Vertical)].Exists ? kBarWidth : 0;
  // As a screen does, whatever a program asks for.
  const std::int32_t width = std::clamp(Width(window.Place), -kLargestWindow, kLargestWindow);
  const std::int32_t height = std::clamp(Height(window.Place), -kLargestWindow, kLargestWindow);
  return {0, 0, width - 2 * kBorder - bar, height - 2 * kBorder - kCaption - menu};
}

void SetPlace(Window& window, const IntRect& place) {
  window.Place = place;
  window.Client = InsideOf(window);
}

void TellPlace(Window& window) {
  window.Record.Callbacks->Moved(&window.Record, window.State);
  window.Record.Callbacks->Sized(&window.Record, window.State);
}

void PlaceChild(ChildWindow* child, const IntRect& place) {
  Window& window = WindowOf(child);
  window.State = WindowPlacement::Normal;
  SetPlace(window, place);
  TellPlace(window);
}

std::vector<std::string> PaintChild(ChildWindow* child) {
  TheShell().Drawing.clear();
  DeviceRecord device = toolkit::AcquireDevice(child);
  child->Callbacks->Paint(child, device);
  toolkit::ReleaseDevice(child, device);
  return TheShell().Drawing;
}

bool PaintInvalidChild(ChildWindow* child) {
  std::vector<IntRect>& invalid = WindowOf(child).Invalidated;
  const bool any = std::any_of(invalid.begin(), invalid.end(), [](const IntRect& rect) {
    return rect.Left < rect.Right && rect.Top < rect.Bottom;
  });
  if (!any) return false;
  invalid.clear();  // first: what the view invalidates while it paints is to be painted again
  PaintChild(child);
  return true;
}

}  // namespace ondrel::scripted

namespace ondrel::toolkit {

using scripted::TheShell;
using scripted::Window;
using scripted::WindowOf;

namespace {

Window* TopChild() {
  return TheShell().Children.empty() ? nullptr : TheShell().Children.front().get();
}

void PutOnTop(ChildWindow* child) {
  auto& children = TheShell().Children;
  const auto found = std::find_if(children.begin(), children.end(),
                                  [&](const auto& window) { return &window->Record == child; });
  std::rotate(children.begin(), found, found + 1);
}

void FillRecord(Window& window, Workspace* owner, const WindowCallbacks* callbacks) {
  window.Record.Handle = &window;
  window.Record.Owner = owner;
  window.Record.Callbacks = callbacks;
}

}  // namespace

FrameWindow* CreateFrame(void*, const char* title, const IntRect& place, Workspace* owner,
                         const FrameCallbacks* callbacks) {
  if (TheShell().CreateFrame.Strikes()) return nullptr;
  TheShell().FrameHolder = std::make_unique<Window>();
  Window& window = *TheShell().FrameHolder;
  FillRecord(window, owner, callbacks);
  window.Title = title;
  SetPlace(window, IsDegenerate(place) ? IntRect{22, 22, 822, 622} : place);
  callbacks->Created(&window.Record);
  return &window.Record;
}

ChildWindow* CreateChild(FrameWindow* frame, const char* title, const IntRect& place,
                         bool horizontalBar, bool verticalBar, Workspace* owner,
                         const ChildCallbacks* callbacks) {
  if (TheShell().CreateChild.Strikes()) return nullptr;
  TheShell().Children.push_back(std::make_unique<Window>());
  Window& window = *TheShell().Children.back();
  FillRecord(window, owner, callbacks);
  window.Frame = frame;
  window.Title = title;
  window.Bars[static_cast<std::size_t>(Axis::Horizontal)].Exists = horizontalBar;
  window.Bars[static_cast<std::size_t>(Axis::Vertical)].Exists = verticalBar;
  SetPlace(window, IsDegenerate(place) ? IntRect{0, 0, 400, 300} : place);
  callbacks->Created(&window.Record);
  window.Shown = true;
  TellPlace(window);
  BringForward(&window.Record);
  return &window.Record;
}

void DestroyWindow(WindowRecord* record) {
  if (record == nullptr) return;
  Window& window = WindowOf(record);
  scripted::Note("destroy " + window.Title);
  if (window.Frame == nullptr) {
    TheShell().FrameHolder.reset();
    TheShell().Quit = true;
    return;
  }
  NextChild(record);
  auto& children = TheShell().Children;
  std::erase_if(children, [&](const auto& child) { return &child->Record == record; });
}

void ShowWindow(WindowRecord* window) {
  WindowOf(window).Shown = true;
  scripted::TellPlace(WindowOf(window));
}

void EnableWindow(WindowRecord* record, bool enabled) {
  Window& window = WindowOf(record);
  scripted::Note((window.Frame == nullptr ? "frame" : window.Title) +
                 (enabled ? " enabled" : " disabled"));
  const bool changes = window.Enabled != enabled;
  window.Enabled = enabled;
  if (changes && record->Callbacks != nullptr) record->Callbacks->Enabled(record, enabled);
}

void MaximizeWindow(WindowRecord* window) {
  WindowOf(window).State = WindowPlacement::Maximized;
  scripted::TellPlace(WindowOf(window));
}

namespace {

/// Places in preferences can be as far away as a number can say.
std::int32_t EndOf(std::int32_t start, std::int32_t length) {
  constexpr std::int64_t kFarthest = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(
      std::clamp<std::int64_t>(std::int64_t{start} + length, -kFarthest, kFarthest));
}

}  // namespace

void MoveWindow(WindowRecord* record, std::int32_t left, std::int32_t top) {
  Window& window = WindowOf(record);
  window.Place = {left, top, EndOf(left, Width(window.Place)), EndOf(top, Height(window.Place))};
  record->Callbacks->Moved(record, window.State);
}

void SizeWindow(WindowRecord* record, std::int32_t width, std::int32_t height) {
  Window& window = WindowOf(record);
  const IntRect& place = window.Place;
  scripted::SetPlace(window,
                     {place.Left, place.Top, EndOf(place.Left, width), EndOf(place.Top, height)});
  record->Callbacks->Sized(record, window.State);
}

ChildWindow* ActiveChild(FrameWindow*) {
  return TopChild() == nullptr ? nullptr : &TopChild()->Record;
}

void BringForward(ChildWindow* child) {
  scripted::Note("forward " + WindowOf(child).Title);
  WindowRecord& top = TopChild()->Record;
  top.Callbacks->Activate(&top, false);
  child->Callbacks->Activate(child, true);
  PutOnTop(child);
}

void NextChild(ChildWindow* child) {
  auto& children = TheShell().Children;
  for (auto lowest = children.rbegin(); lowest != children.rend(); ++lowest) {
    if (&(*lowest)->Record == child) continue;
    BringForward(&(*lowest)->Record);
    return;
  }
}

IntRect ClientRect(WindowRecord* window) {
  return WindowOf(window).Client;
}
IntRect WindowRect(WindowRecord* window) {
  return WindowOf(window).Place;
}

void SetScrollRange(ChildWindow* window, Axis axis, std::int32_t maximum) {
  scripted::ScrollBar& bar = WindowOf(window).Bars[static_cast<std::size_t>(axis)];
  bar.Maximum = maximum;
  bar.Position = std::clamp(bar.Position, 0, maximum);
}

void SetScrollPosition(ChildWindow* window, Axis axis, std::int32_t position) {
  scripted::ScrollBar& bar = WindowOf(window).Bars[static_cast<std::size_t>(axis)];
  bar.Position = std::clamp(position, 0, bar.Maximum);
}

void SetScrollPositionQuietly(ChildWindow* window, Axis axis, std::int32_t position) {
  scripted::Note("quiet thumb " + WindowOf(window).Title);
  SetScrollPosition(window, axis, position);
}

std::int32_t ReadScrollPosition(ChildWindow* window, Axis axis) {
  return WindowOf(window).Bars[static_cast<std::size_t>(axis)].Position;
}

void Invalidate(ChildWindow* window, const IntRect& rect) {
  WindowOf(window).Invalidated.push_back(rect);
}

bool TakeKeyDown(ChildWindow* window, int* key) {
  std::deque<int>& keys = WindowOf(window).Keys;
  if (keys.empty()) return false;
  *key = keys.front();
  keys.pop_front();
  return true;
}

void RunMessageLoop(FrameWindow* frame) {
  if (TheShell().Loop) TheShell().Loop(frame);
}

void ReplaceMenu(FrameWindow*, int resource) {
  TheShell().Menu = {};
  TheShell().Menu.Resource = resource;
}

void InsertPopup(FrameWindow*, int resource, int place) {
  TheShell().Menu.InsertedResource = resource;
  TheShell().Menu.InsertedPlace = place;
}

void EnablePopup(FrameWindow*, int popup, bool enabled) {
  TheShell().Menu.Popups[popup] = enabled;
}

void EnableEntry(FrameWindow*, int popup, int entry, bool enabled) {
  TheShell().Menu.Entries[{popup, entry, 0}] = enabled;
}

void EnableSubEntry(FrameWindow*, int popup, int entry, int subEntry, bool enabled) {
  TheShell().Menu.Entries[{popup, entry, subEntry}] = enabled;
}

void RedrawMenuBar(FrameWindow*) {
  ++TheShell().Menu.Redrawn;
}

}  // namespace ondrel::toolkit
