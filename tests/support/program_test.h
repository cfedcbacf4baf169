// A fixture in which the whole program runs on the scripted shell, from its entry to its exit. What
// a test does stands in the function that it hands to `Run`: it plays the part of the message loop.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "shell/application.h"
#include "shell/command_ids.h"
#include "shell/commands.h"
#include "support/sample_tables.h"
#include "support/scripted_shell.h"
#include "workspace/workspace.h"

namespace ondrel {

class ProgramTest : public ::testing::Test {
 protected:
  ProgramTest() { scripted::ResetShell(); }

  ~ProgramTest() override {
    EXPECT_EQ(scripted::TheShell().LiveAllocations, 0) << "memory that nobody freed";
    EXPECT_EQ(scripted::TheShell().OpenFiles, 0) << "files that nobody closed";
    EXPECT_EQ(scripted::TheShell().OpenDevices, 0) << "devices that nobody gave back";
    EXPECT_EQ(scripted::TheShell().DeviceObjects, 0) << "pens and fonts that nobody deleted";
    EXPECT_EQ(scripted::TheShell().LiveMetafiles, 0) << "metafiles that nobody deleted";
    EXPECT_FALSE(scripted::TheShell().Clipboard.Open) << "a clipboard that nobody closed";
    EXPECT_EQ(scripted::TheShell().Printer.Live, 0) << "printers that nobody freed";
    EXPECT_EQ(scripted::DialogBeside(), nullptr) << "a dialog that nobody destroyed";
  }

  scripted::Shell& shell() { return scripted::TheShell(); }

  /// Runs the program; `act` does what its user does, and the frame's close box ends it.
  int Run(const std::function<void()>& act) {
    shell().Quit = false;
    shell().Loop = [&](FrameWindow* frame) {
      frame_ = frame;
      act();
      if (!shell().Quit) frame->Callbacks->Closing(frame);
    };
    return RunApplication(nullptr);
  }

  FrameWindow* Frame() { return frame_; }
  Workspace& workspace() { return *frame_->Owner; }

  void Choose(CommandId command) {
    frame_->Callbacks->Command(frame_, command >> 8, command & 0xFF);
  }

  void OpenFile(const std::string& path) {
    shell().FileChoices.push_back(path);
    Choose(command::kOpen);
  }

  std::vector<std::string> Messages() {
    std::vector<std::string> texts;
    for (const scripted::Box& box : shell().Boxes) texts.push_back(box.Text);
    return texts;
  }

 private:
  FrameWindow* frame_ = nullptr;
};

}  // namespace ondrel
