// Commands, keys, mouse and pictures: what a user does with the program and sees of it.
#include "program.h"

namespace ondrel::e2e {

void Program::Command(int id) const {
  Await("the menu entry " + std::to_string(id) + " to be enabled", [&] {
    if (!frame_.Enabled()) return false;
    for (const MenuEntry& popup : Menu()) {
      const MenuEntry* entry = popup.Enabled ? FindEntry(popup.Entries, id) : nullptr;
      if (entry != nullptr && entry->Enabled) return true;
    }
    return false;
  });
  frame_.Post(WM_COMMAND, static_cast<WPARAM>(id));
}

void Program::CommandDone(int id) const {
  Command(id);
  inside_->PassPosted();
}

void Program::ToForeground() const {
  Await("a window of the program to be in the foreground", [this] {
    const HWND now = GetForegroundWindow();
    DWORD process = 0;
    GetWindowThreadProcessId(now, &process);
    if (process == process_.dwProcessId && (now != frame_.Handle() || frame_.Enabled()))
      return true;
    const std::vector<Window> dialogs = Dialogs();
    SetForegroundWindow(dialogs.empty() ? frame_.Handle() : dialogs.front().Handle());
    return false;
  });
}

void Program::Key(int key, std::initializer_list<int> modifiers) const {
  ToForeground();
  PressKey(key, modifiers);
  inside_->PassInput();
}

void Program::ClickAt(Point place) const {
  ToForeground();
  Click(place);
  inside_->PassInput();
}

void Program::DoubleClickAt(Point place) const {
  ToForeground();
  DoubleClick(place);
  inside_->PassInput();
}

void Program::Drag(Point from, Point to) const {
  constexpr int kSteps = 8;
  Press(from);
  for (int step = 1; step <= kSteps; ++step) {
    MoveHeld({from.X + (to.X - from.X) * step / kSteps, from.Y + (to.Y - from.Y) * step / kSteps});
  }
  Release();
}

void Program::Press(Point place) const {
  ToForeground();
  MovePointer(place);
  HoldButton();
  inside_->PassInput();
}

void Program::MoveHeld(Point place) const {
  // A display server may report an earlier place once more: the move counts when it stays.
  WaitFor("the pointer to stay where it was moved", [&] {
    MovePointer(place);
    inside_->PassInput();
    return PointerIsAt(place);
  });
}

void Program::Release() const {
  ReleaseButton();
  inside_->PassInput();
}

void Program::WaitForScroll(Window view, int position) const {
  int last = 0;
  WaitFor(
      "the scroll bar of '" + view.Title() + "' to stand at " + std::to_string(position),
      [&] {
        last = Scroll(view).Position;
        return last == position;
      },
      [&] { return "it stands at " + std::to_string(last); });
}

void Program::WaitForPause() const {
  Await("the program to stand still", [this] { return inside_->IsPaused(); });
}

void Program::Settle(Window view) const {
  inside_->PassPosted();
  Await("the view '" + view.Title() + "' to be painted",
        [&] { return !inside_->NeedsPaint(view); });
}

namespace {

constexpr std::uint32_t kSmear = static_cast<std::uint32_t>(GetRValue(kSmearColor)) << 16 |
                                 static_cast<std::uint32_t>(GetGValue(kSmearColor)) << 8 |
                                 static_cast<std::uint32_t>(GetBValue(kSmearColor));

}  // namespace

void Program::Smear(Window view) const {
  Settle(view);
  inside_->Smear(view);
  Await("the patch of paint to be seen",
        [&] { return TakeScreen(view.ClientArea()).Count(kSmear) == kSmearSide * kSmearSide; });
}

bool Program::IsSmeared(const Picture& picture) {
  return picture.Count(kSmear) > 0;
}

void Program::PlaceFrame(const Rect& place) const {
  constexpr int kLooks = 40;
  int looks = 0;
  Await("the frame to stay at " + ToText(place), [&] {
    const bool there = frame_.Place() == place;
    if (!there) frame_.MoveTo(place);
    looks = there ? looks + 1 : 0;
    return looks == kLooks;
  });
}

Picture Program::ClientPicture(Window view) const {
  MovePointer({0, GetSystemMetrics(SM_CYSCREEN) - 1});
  return HeldPicture(view);
}

Picture Program::HeldPicture(Window view) const {
  Settle(view);
  return PausedPicture(view);
}

Picture Program::PausedPicture(Window view) const {
  // What is drawn reaches the screen a little later; two pictures alike show that it has.
  Picture last;
  Await("the picture of '" + view.Title() + "' to stand still", [&] {
    Picture next = TakeScreen(view.ClientArea());
    const bool still = next == last;
    last = std::move(next);
    return still;
  });
  return last;
}

Picture Program::WaitForPicture(Window view, const std::string& what,
                                const std::function<bool(const Picture&)>& pleases) const {
  MovePointer({0, GetSystemMetrics(SM_CYSCREEN) - 1});
  Settle(view);
  Picture last;
  Await("the picture of '" + view.Title() + "' to show " + what, [&] {
    last = TakeScreen(view.ClientArea());
    return pleases(last);
  });
  return last;
}

}  // namespace ondrel::e2e
