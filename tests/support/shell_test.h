// A fixture with a workspace, a frame and a fresh scripted shell for each test.
#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "support/scripted_shell.h"
#include "workspace/workspace.h"

namespace ondrel {

class ShellTest : public ::testing::Test {
 protected:
  ShellTest() {
    scripted::ResetShell();
    frame_.Record.Handle = &frame_;
    frame_.Record.Owner = workspace_.get();
    frame_.Place = {22, 22, 822, 622};
    frame_.Client = {0, 0, 792, 554};
    workspace_->Frame = &frame_.Record;
    ResetWorkspace(*workspace_);
  }

  ~ShellTest() override {
    FreeAllTables(*workspace_);
    EXPECT_EQ(scripted::TheShell().LiveAllocations, 0) << "memory that nobody freed";
    EXPECT_EQ(scripted::TheShell().OpenFiles, 0) << "files that nobody closed";
    EXPECT_EQ(scripted::TheShell().OpenDevices, 0) << "devices that nobody gave back";
    EXPECT_EQ(scripted::TheShell().DeviceObjects, 0) << "pens and fonts that nobody deleted";
    EXPECT_EQ(scripted::TheShell().LiveMetafiles, 0) << "metafiles that nobody deleted";
    EXPECT_FALSE(scripted::TheShell().Clipboard.Open) << "a clipboard that nobody closed";
    EXPECT_EQ(scripted::TheShell().Printer.Live, 0) << "printers that nobody freed";
    EXPECT_EQ(scripted::DialogBeside(), nullptr) << "a dialog that nobody destroyed";
  }

  FrameWindow* Frame() { return &frame_.Record; }
  Workspace& workspace() { return *workspace_; }
  scripted::Shell& shell() { return scripted::TheShell(); }

  /// The texts of the boxes shown so far.
  std::vector<std::string> Messages() {
    std::vector<std::string> texts;
    for (const scripted::Box& box : shell().Boxes) texts.push_back(box.Text);
    return texts;
  }

 private:
  std::unique_ptr<Workspace> workspace_ = std::make_unique<Workspace>();
  scripted::Window frame_;
};

}  // namespace ondrel
