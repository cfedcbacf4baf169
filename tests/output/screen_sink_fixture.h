// A fixture for the screen's form of the drawing table: a device that writes down what is drawn.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "output/screen_sink.h"
#include "support/shell_test.h"

namespace ondrel {

class ScreenSinkTest : public ShellTest {
 protected:
  ScreenSinkTest() { context_.Device = toolkit::AcquireDevice(nullptr); }
  ~ScreenSinkTest() override {
    EXPECT_EQ(context_.Status, 0) << "the screen never fails";
    toolkit::CleanUpDevice(context_.Device);
    toolkit::ReleaseDevice(nullptr, context_.Device);
  }

  const GraphicsSink& sink() { return kScreenSink; }
  GraphicsContext& context() { return context_; }
  const std::vector<std::string>& Drawn() { return shell().Drawing; }

  void DrawText(double x, double y, TextAlignment alignment, const char* text) {
    sink().DrawText(context(), x, y, alignment, text, 64);
  }

 private:
  GraphicsContext context_;
};

}  // namespace ondrel
