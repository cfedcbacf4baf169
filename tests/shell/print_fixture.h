// A fixture for printing: the active view, a printer whose dialogs are answered with OK, and a user
// who may press the button of the dialog "Printing".
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "shell/print_command.h"
#include "support/view_test.h"

namespace ondrel {

class PrintTest : public ViewTest {
 protected:
  static constexpr int kPrintingDialog = 101;
  static constexpr int kStopButton = 2;

  PrintTest() { shell().Printer.Answers = {true, true}; }

  /// What the command does, in its order, besides drawing.
  std::vector<std::string> Print() {
    ForgetAll();
    shell().Printer.Paper.clear();
    PrintCommand(Frame());
    return Happened();
  }

  bool Has(const std::string& line) {
    return std::find(Happened().begin(), Happened().end(), line) != Happened().end();
  }

  bool FrameIsEnabled() { return scripted::WindowOf(Frame()).Enabled; }

  void PressStop() {
    ASSERT_NE(scripted::DialogBeside(), nullptr);
    scripted::DialogBeside()->Press(kStopButton);
  }

  /// Presses the button at the first moment in which `line` has been done.
  void StopAfter(const std::string& line) {
    shell().Printer.WhileBusy = [this, line] {
      if (scripted::DialogBeside() != nullptr && Has(line)) PressStop();
    };
  }

  /// What was drawn on paper since the last print began.
  const std::vector<std::string>& Paper() { return shell().Printer.Paper; }

  /// A box that tells a failure, shown while the frame was `enabled` and no dialog stood there.
  void ExpectOneReport(const std::string& code, bool enabled = true) {
    ASSERT_EQ(Messages(), std::vector{"Error occurred in printing. Error code " + code + "."});
    EXPECT_EQ(shell().Boxes[0].Icon, toolkit::BoxIcon::Stop);
    EXPECT_EQ(shell().Boxes[0].Buttons, toolkit::BoxButtons::Ok);
    EXPECT_EQ(shell().Boxes[0].Owner, Frame());
    EXPECT_EQ(enabledAtBox_, enabled);
    EXPECT_FALSE(dialogAtBox_);
  }

  /// Looks at frame and dialog when a box comes up.
  void WatchBoxes() {
    shell().WhileBoxStands = [this](FrameWindow*) {
      enabledAtBox_ = FrameIsEnabled();
      dialogAtBox_ = scripted::DialogBeside() != nullptr;
    };
  }

 private:
  bool enabledAtBox_ = false;
  bool dialogAtBox_ = false;
};

}  // namespace ondrel
