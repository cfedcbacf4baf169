// Puts the probe into the program's process and reads its answers.
#include "inside.h"

#include <array>
#include <cstdio>
#include <sstream>

#include "input.h"
#include "wait.h"

namespace ondrel::e2e {
namespace {

/// The probe lies beside the driver's own executable. Loaded once and kept.
HMODULE ProbeLibrary() {
  static const HMODULE library = [] {
    std::array<char, MAX_PATH> path{};
    GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size()));
    std::string folder = path.data();
    folder.resize(folder.find_last_of('\\') + 1);
    const std::string file = folder + "ondrel_e2e_probe.dll";
    const HMODULE loaded = LoadLibraryA(file.c_str());
    if (loaded == nullptr) Fail("the probe " + file + " could not be loaded");
    return loaded;
  }();
  return library;
}

HHOOK SetHook(int kind, const char* name, DWORD thread) {
  const auto procedure =
      reinterpret_cast<HOOKPROC>(reinterpret_cast<void*>(GetProcAddress(ProbeLibrary(), name)));
  const HHOOK hook = SetWindowsHookExA(kind, procedure, ProbeLibrary(), thread);
  if (hook == nullptr) Fail("the hook " + std::string(name) + " could not be set");
  return hook;
}

MenuEntry ParseEntry(const std::string& line, int* depth) {
  std::istringstream in(line);
  unsigned state = 0;
  unsigned type = 0;
  MenuEntry entry;
  in >> *depth >> state >> type >> entry.Id;
  in.get();
  std::getline(in, entry.Text);
  entry.Separator = (type & MFT_SEPARATOR) != 0;
  entry.Enabled = (state & (MFS_GRAYED | MFS_DISABLED)) == 0;
  if (entry.Separator) entry.Id = 0;
  return entry;
}

void AppendLines(const std::vector<MenuEntry>& menu, const std::string& indent,
                 std::vector<std::string>* lines) {
  for (const MenuEntry& entry : menu) {
    if (entry.Separator) {
      lines->push_back(indent + "-");
      continue;
    }
    const std::string number = entry.Id == 0 ? "" : std::to_string(entry.Id) + " ";
    lines->push_back(indent + number + (entry.Enabled ? "" : "(grey) ") + entry.Text);
    AppendLines(entry.Entries, indent + "  ", lines);
  }
}

}  // namespace

std::vector<std::string> MenuLines(const std::vector<MenuEntry>& menu) {
  std::vector<std::string> lines;
  AppendLines(menu, "", &lines);
  return lines;
}

const MenuEntry* FindEntry(const std::vector<MenuEntry>& menu, int id) {
  for (const MenuEntry& entry : menu) {
    if (entry.Id == id) return &entry;
    if (const MenuEntry* inner = FindEntry(entry.Entries, id)) return inner;
  }
  return nullptr;
}

Inside::Inside(Window window) : window_(window) {
  DWORD process = 0;
  const DWORD thread = GetWindowThreadProcessId(window.Handle(), &process);
  const std::string name = kBoardName + std::to_string(process);
  mapping_ = CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                sizeof(ProbeBoard), name.c_str());
  if (mapping_ == nullptr) Fail("no memory to share with the program");
  board_ = static_cast<ProbeBoard*>(MapViewOfFile(mapping_, FILE_MAP_ALL_ACCESS, 0, 0, 0));
  sentHook_ = SetHook(WH_CALLWNDPROC, "SentMessageHook", thread);
  queueHook_ = SetHook(WH_GETMESSAGE, "QueueHook", thread);
}

Inside::~Inside() {
  while (IsPaused()) Resume();
  UnhookWindowsHookEx(queueHook_);
  UnhookWindowsHookEx(sentHook_);
  UnmapViewOfFile(board_);
  CloseHandle(mapping_);
}

void Inside::Ask(Window window, ProbeQuery query) {
  static const UINT message = RegisterWindowMessageA(kProbeMessage);
  const LONG before = board_->Answers;
  window.Send(message, static_cast<WPARAM>(query));
  if (board_->Answers == before) Fail("the probe is not inside the program");
}

std::vector<MenuEntry> Inside::ReadMenu() const {
  std::vector<MenuEntry> top;
  std::vector<std::vector<MenuEntry>*> levels{&top};
  std::istringstream lines(board_->Lines);
  for (std::string line; std::getline(lines, line);) {
    int depth = 0;
    const MenuEntry entry = ParseEntry(line, &depth);
    levels.resize(static_cast<std::size_t>(depth) + 1);
    levels.back()->push_back(entry);
    levels.push_back(&levels.back()->back().Entries);
  }
  return top;
}

std::vector<MenuEntry> Inside::MenuBar(Window window) {
  Ask(window, ProbeQuery::MenuBar);
  return ReadMenu();
}

std::vector<MenuEntry> Inside::SystemMenu(Window window) {
  Ask(window, ProbeQuery::SystemMenu);
  return ReadMenu();
}

ScrollBar Inside::VerticalScroll(Window window) {
  Ask(window, ProbeQuery::VerticalScroll);
  const ScrollAnswer& answer = board_->Scroll;
  ScrollBar bar;
  bar.Minimum = answer.Minimum;
  bar.Maximum = answer.Maximum;
  bar.Position = answer.Position;
  const Rect place{static_cast<int>(answer.Bar.left), static_cast<int>(answer.Bar.top),
                   static_cast<int>(answer.Bar.right), static_cast<int>(answer.Bar.bottom)};
  bar.Place = place;
  bar.UpArrow = {place.Left, place.Top, place.Right, place.Top + answer.Arrow};
  bar.DownArrow = {place.Left, place.Bottom - answer.Arrow, place.Right, place.Bottom};
  bar.Thumb = {place.Left, place.Top + answer.ThumbTop, place.Right,
               place.Top + answer.ThumbBottom};
  return bar;
}

bool Inside::NeedsPaint(Window window) {
  Ask(window, ProbeQuery::NeedsPaint);
  return board_->NeedsPaint != 0;
}

void Inside::PassPosted() {
  static const UINT message = RegisterWindowMessageA(kBarrierMessage);
  ++barrier_;
  window_.Post(message, static_cast<WPARAM>(barrier_));
  WaitFor("the program to work off what was posted",
          [this] { return board_->LastBarrier == barrier_; });
}

void Inside::PassInput() {
  const LONG before = board_->BarrierKeys;
  PressKey(kBarrierKey);
  WaitFor("the program to work off keys and mouse",
          [this, before] { return board_->BarrierKeys > before; });
}

void Inside::PauseAtKey(Window window) {
  window.Post(WM_KEYDOWN, kPauseKey, 1);
}

}  // namespace ondrel::e2e
