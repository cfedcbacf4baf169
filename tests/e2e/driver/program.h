// The program under test as one running process: started with a fresh profile, worked through its
// windows, ended. What is not answered in time fails with a picture of the state in words.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "dialog.h"
#include "input.h"
#include "inside.h"
#include "picture.h"
#include "wait.h"
#include "window.h"

namespace ondrel::e2e {

/// A path as Windows takes it; one that begins with a slash is one of the host's under Wine.
std::string NativePath(const std::string& path);

/// The value of a variable of the environment, empty when there is none.
std::string Environment(const char* name);

/// Where the program keeps its settings from one run to the next.
std::string PreferencePath();

/// The program under test: the one that the variable ONDREL_EXE names, else the nearest Ondrel.exe
/// in the folder of the driver or one above it.
std::string ExecutablePath();

/// Removes what former runs have remembered, so that the next start is a first one.
void ForgetPreferences();

enum class FormerRuns { Forgotten, Remembered };

class Program {
 public:
  /// Starts the program and goes inside. With former runs forgotten it then stands at its first
  /// message box. The executable is the one that the variable ONDREL_EXE names, else the nearest
  /// Ondrel.exe in the folder of the driver or one above it.
  explicit Program(FormerRuns former = FormerRuns::Forgotten);
  /// Ends the process if it is still there.
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  /// Answers the welcome and leaves the "File Settings" dialog by "&OK": the state without data.
  void PassStart();
  /// The same of a start that has no welcome.
  void PassLaterStart();
  /// "&Open..." from the menu, then `path` in its dialog.
  void Open(const std::string& path);

  // --- What is there -------------------------------------------------------------------------
  [[nodiscard]] const Window& Frame() const { return frame_; }
  /// Titles of the open views from the top down.
  [[nodiscard]] std::vector<std::string> ViewTitles() const;
  /// Waits until a view with this title is open.
  [[nodiscard]] Window View(const std::string& title) const;
  void WaitForTopView(const std::string& title) const;
  void WaitForNoView(const std::string& title) const;
  /// Waits until the views are these, from the top down.
  void WaitForViews(const std::vector<std::string>& titles) const;
  [[nodiscard]] bool IsOpen(const std::string& title) const;
  [[nodiscard]] bool Running() const;
  /// Everything that can be seen from outside, in one line for messages.
  [[nodiscard]] std::string Describe() const;

  // --- Dialogs and boxes -----------------------------------------------------------------------
  [[nodiscard]] Dialog WaitForDialog(const std::string& title) const;
  /// Waits for a box with exactly this text.
  [[nodiscard]] Box WaitForBox(const std::string& text) const;
  /// Visible dialogs and boxes.
  [[nodiscard]] std::vector<Window> Dialogs() const;

  // --- Menus -----------------------------------------------------------------------------------
  [[nodiscard]] std::vector<MenuEntry> Menu() const { return inside_->MenuBar(frame_); }
  [[nodiscard]] std::vector<MenuEntry> SystemMenu(Window view) const {
    return inside_->SystemMenu(view);
  }
  /// Waits until the entry can be chosen, and gives its command. Does not wait for what follows.
  void Command(int id) const;
  /// The same, and waits until its handler has returned or waits in a dialog.
  void CommandDone(int id) const;

  // --- Keys, mouse, scrolling --------------------------------------------------------------------
  /// Brings the frame, or the dialog before it, to the foreground, gives the key to whatever has
  /// the focus, and waits until it has been taken up.
  void Key(int key, std::initializer_list<int> modifiers = {}) const;
  /// A click at a place on the screen, taken up likewise.
  void ClickAt(Point place) const;
  void DoubleClickAt(Point place) const;
  /// Presses at `from`, moves in several steps as a hand does, each taken up, releases at `to`.
  void Drag(Point from, Point to) const;
  /// The parts of a drag, each taken up, for a look at what stands there meanwhile.
  void Press(Point place) const;
  void MoveHeld(Point place) const;
  void Release() const;
  void ToForeground() const;
  [[nodiscard]] ScrollBar Scroll(Window view) const { return inside_->VerticalScroll(view); }
  void WaitForScroll(Window view, int position) const;
  /// Posts a key at which the program stops when it takes it for `view` from its queue: inside a
  /// fit that is between two passes.
  void PostPause(Window view) const { inside_->PauseAtKey(view); }
  /// Waits until it has stopped. Until Resume it answers nothing; only pictures can be taken.
  void WaitForPause() const;
  void Resume() const { inside_->Resume(); }
  /// Waits until what was posted is done and nothing of the window waits to be painted.
  void Settle(Window view) const;

  /// Leaves a patch of paint in the middle of a view, which stays there until the program draws the
  /// view anew. Waits until it can be seen.
  void Smear(Window view) const;
  /// Whether a picture of a view shows some of the patch.
  static bool IsSmeared(const Picture& picture);

  /// Moves and sizes the frame and waits until it stays there: a window manager may answer with
  /// sizes that are already past.
  void PlaceFrame(const Rect& place) const;

  // --- Pictures ----------------------------------------------------------------------------------
  /// The client area of a view that nothing covers, settled, with the pointer out of the way.
  [[nodiscard]] Picture ClientPicture(Window view) const;
  /// The same with the pointer left where it is, which may hold something.
  [[nodiscard]] Picture HeldPicture(Window view) const;
  /// The picture of a view of a program that stands still.
  [[nodiscard]] Picture PausedPicture(Window view) const;
  /// Takes pictures until one pleases, and returns it. Fails when none does in time.
  [[nodiscard]] Picture WaitForPicture(Window view, const std::string& what,
                                       const std::function<bool(const Picture&)>& pleases) const;

  // --- The end ---------------------------------------------------------------------------------
  /// Waits until the process has ended by itself and returns its exit code.
  int WaitForEnd();
  /// "E&xit" from the menu, then as above.
  int Exit();

 private:
  void Start(const std::string& executable);
  void Await(const std::string& what, const Condition& condition) const;

  PROCESS_INFORMATION process_{};
  Window frame_;
  std::unique_ptr<Inside> inside_;
};

}  // namespace ondrel::e2e
