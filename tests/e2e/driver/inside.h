// The driver's side of the probe: puts it into the program's process and asks it.
#pragma once

#include <string>
#include <vector>

#include "probe_board.h"
#include "window.h"

namespace ondrel::e2e {

struct MenuEntry {
  std::string Text;  // with the ampersand and, behind a tab, the accelerator
  int Id = 0;        // 0 for a popup and a separator
  bool Enabled = true;
  bool Separator = false;
  std::vector<MenuEntry> Entries;  // of a popup
};

/// One line per entry, indented by two blanks for each level: "51713 &Open...\tCtrl+O", a popup
/// without number, a separator as "-", and "(grey) " in front of the text of what is greyed.
std::vector<std::string> MenuLines(const std::vector<MenuEntry>& menu);

/// The entry with this id, at any depth; null when there is none.
const MenuEntry* FindEntry(const std::vector<MenuEntry>& menu, int id);

struct ScrollBar {
  int Minimum = 0;
  int Maximum = 0;
  int Position = 0;
  Rect Place;    // on the screen
  Rect UpArrow;  // parts of it, likewise
  Rect DownArrow;
  Rect Thumb;
};

class Inside {
 public:
  /// Goes into the process of `window`, for as long as this object lives. Fails when it cannot.
  explicit Inside(Window window);
  ~Inside();
  Inside(const Inside&) = delete;
  Inside& operator=(const Inside&) = delete;

  std::vector<MenuEntry> MenuBar(Window window);
  std::vector<MenuEntry> SystemMenu(Window window);
  ScrollBar VerticalScroll(Window window);
  bool NeedsPaint(Window window);
  /// Paints over the middle of the client area, unknown to the program.
  void Smear(Window window) { Ask(window, ProbeQuery::Smear); }

  /// Returns when the program has taken up all that was posted before this call: each handler has
  /// returned, or waits in a dialog.
  void PassPosted();
  /// The same for keys and mouse. A window of the program has to be in the foreground.
  void PassInput();

  /// Posts a key at which the program stops when it takes it from its queue, be it in its message
  /// loop or in the middle of a fit. While it stands still it answers no question.
  void PauseAtKey(Window window);
  [[nodiscard]] bool IsPaused() const { return board_->Resumes < board_->Pauses; }
  void Resume() { InterlockedIncrement(&board_->Resumes); }

 private:
  void Ask(Window window, ProbeQuery query);
  std::vector<MenuEntry> ReadMenu() const;

  Window window_;
  HANDLE mapping_ = nullptr;
  ProbeBoard* board_ = nullptr;
  HHOOK sentHook_ = nullptr;
  HHOOK queueHook_ = nullptr;
  LONG barrier_ = 0;
};

}  // namespace ondrel::e2e
