// Dialogs, message boxes and file dialogs of another process, worked through their controls.
#pragma once

#include <string>
#include <vector>

#include "window.h"

namespace ondrel::e2e {

class Dialog {
 public:
  Dialog() = default;
  explicit Dialog(Window window) : window_(window) {}

  [[nodiscard]] const Window& Frame() const { return window_; }
  [[nodiscard]] std::string Title() const { return window_.Title(); }
  /// What stands in a control.
  [[nodiscard]] std::string Text(int id) const { return Require(id).Text(); }
  [[nodiscard]] bool IsEnabled(int id) const { return Require(id).Enabled(); }
  [[nodiscard]] bool IsChecked(int id) const;

  /// One line for each control, in the order of the Tab key: a label's text, `4 "0.25"` for a
  /// field, "4 First, [Second]" for a list, "7 [x] Axes" for a check box, "7 (o) Linear" for a
  /// radio button, "1 &OK" for a button. Other mnemonics are left out, and so are boxes around
  /// groups.
  [[nodiscard]] std::vector<std::string> Lines() const;
  /// Id of the control that has the focus, 0 for none.
  [[nodiscard]] int Focused() const;

  /// Replaces the text of an edit field key by key, so that the dialog hears of every change.
  void Type(int id, const std::string& text) const;
  /// Walks through a list with the keys until `text` is chosen.
  void Choose(int id, const std::string& text) const;
  /// Presses a button or check box. Fails when it is greyed. Does not wait for what follows.
  void Press(int id) const;
  /// Presses a button and waits until the dialog is gone.
  void Leave(int id) const;
  void WaitUntilGone() const;

 private:
  [[nodiscard]] Window Require(int id) const;

  Window window_;
};

enum class BoxIcon { None, Stop, Exclamation, Information, Question };

inline constexpr int kOkButton = 1;
inline constexpr int kCancelButton = 2;
inline constexpr int kYesButton = 6;
inline constexpr int kNoButton = 7;

class Box {
 public:
  Box() = default;
  explicit Box(Window window) : dialog_(window) {}

  /// Whether a window is a message box: a dialog with the text of one.
  static bool Is(Window window);

  [[nodiscard]] std::string Caption() const { return dialog_.Title(); }
  [[nodiscard]] std::string Text() const;
  /// Ids of the buttons, in rising order.
  [[nodiscard]] std::vector<int> Buttons() const;
  /// The icon as it stands on the screen. Fails when it is none of the platform's.
  [[nodiscard]] BoxIcon Icon() const;
  /// Presses a button and waits until the box is gone.
  void Answer(int button) const { dialog_.Leave(button); }

 private:
  Dialog dialog_;
};

/// Visible dialogs and boxes of a process, from the top down.
std::vector<Window> VisibleDialogs(DWORD process);
/// The same in words, each behind a comma.
std::string DescribeDialogs(DWORD process);

inline constexpr int kFileNameField = 0x47C;

/// Puts a path into a file dialog and leaves it by its first button.
void ChooseFile(const Dialog& dialog, const std::string& path);

}  // namespace ondrel::e2e
