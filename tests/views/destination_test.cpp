#include "views/destination.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/view_test.h"
#include "views/view_kinds.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;

class DestinationTest : public ViewTest {
 protected:
  DestinationTest() {
    shell().DeviceDpi = 144.0;
    device_ = toolkit::AcquireDevice(nullptr);
    workspace().Graphics.Device = device_;
  }
  ~DestinationTest() override {
    workspace().Graphics.Device = {};
    toolkit::ReleaseDevice(nullptr, device_);
  }

 private:
  DeviceRecord device_;
};

TEST_F(DestinationTest, InAWindowEverythingGoesByTheDotsOfItsDevice) {
  const Destination window = InWindow(workspace(), {1, 2, 300, 400});
  EXPECT_EQ(&window.Sink, &workspace().ScreenSink);
  EXPECT_EQ(window.Rect, (IntRect{1, 2, 300, 400}));
  EXPECT_EQ(window.Dpi, 144.0);
  EXPECT_EQ(window.PictureDpi, 144.0);
  EXPECT_EQ(window.Leading, 0.0);
}

TEST_F(DestinationTest, AClippedDrawingEndsItsClip) {
  const ViewRoutines view = {
      .Paint = nullptr,
      .LayOut = nullptr,
      .Draw =
          [](Workspace& workspace, const Destination& destination) {
            DrawTextFrom({destination.Sink, workspace.Graphics}, 5.0, 6.0, "drawn");
          },
  };
  ForgetAll();
  DrawClipped(workspace(), view, InWindow(workspace(), {1, 2, 300, 400}));
  EXPECT_THAT(Drawn(), ElementsAre("clip 1 2 300 400", "text 5 6 drawn", "clip off"));
}

}  // namespace
}  // namespace ondrel
