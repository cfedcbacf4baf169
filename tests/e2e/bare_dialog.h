// Dialogs and menus from the program's file, in the process of the tests and without anything
// behind them.
#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "program.h"

namespace ondrel::e2e {

/// The program's file, read for what is in it.
class Resources {
 public:
  Resources();
  ~Resources() { FreeLibrary(program_); }
  Resources(const Resources&) = delete;
  Resources& operator=(const Resources&) = delete;

  [[nodiscard]] HMODULE Module() const { return program_; }
  /// Numbers of all resources of a kind.
  [[nodiscard]] std::vector<int> Numbers(LPCSTR kind) const;

 private:
  HMODULE program_;
};

class BareDialog {
 public:
  BareDialog(const Resources& resources, int number);
  ~BareDialog() { DestroyWindow(handle_); }
  BareDialog(const BareDialog&) = delete;
  BareDialog& operator=(const BareDialog&) = delete;

  [[nodiscard]] Window Frame() const { return Window(handle_); }
  [[nodiscard]] std::string Title() const { return Frame().Title(); }

 private:
  HWND handle_;
};

}  // namespace ondrel::e2e
