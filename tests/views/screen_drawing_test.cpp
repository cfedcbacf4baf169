#include "views/screen_drawing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "support/recording_sink.h"
#include "support/view_test.h"

namespace ondrel {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ScreenDrawingTest : public ViewTest {
 protected:
  ScreenDrawingTest() : device_(toolkit::AcquireDevice(nullptr)) {}
  ~ScreenDrawingTest() override { toolkit::ReleaseDevice(nullptr, device_); }

  void Begin(const RgbColor& background = kWhite) {
    BeginScreenDrawing(workspace(), device_, background);
  }
  void End() { EndDrawing(workspace()); }

  /// Another device in place of the one that the test began with.
  void UseDpi(double dpi) {
    toolkit::ReleaseDevice(nullptr, device_);
    shell().DeviceDpi = dpi;
    device_ = toolkit::AcquireDevice(nullptr);
  }

  std::string PenWidthFor(double points) {
    workspace().PenSize = points;
    ForgetAll();
    Begin();
    const std::vector<std::string> widths = LinesWith(Drawn(), "pen width ");
    End();
    return widths.empty() ? "none" : widths.back();
  }

  std::int32_t FontHeightFor(std::int32_t points) {
    workspace().FontSize = points;
    Begin();
    const toolkit::FontMetrics metrics = toolkit::MeasureFont(workspace().Graphics.Device);
    End();
    return metrics.Ascent + metrics.Descent;
  }

  DeviceRecord device_;
};

TEST_F(ScreenDrawingTest, ADrawingTakesTheDeviceIntoTheContext) {
  Begin();
  EXPECT_EQ(workspace().Graphics.Device.Dc, device_.Dc);
  End();
}

TEST_F(ScreenDrawingTest, ADrawingStartsWithoutFailure) {
  workspace().Graphics.Status = recording::kFullDisk;
  Begin();
  EXPECT_EQ(workspace().Graphics.Status, 0);
  End();
}

TEST_F(ScreenDrawingTest, TheViewsBackgroundBecomesTheDevices) {
  Begin({1, 2, 3});
  EXPECT_THAT(Drawn(), Contains("background 1 2 3"));
  End();
}

TEST_F(ScreenDrawingTest, NothingIsFilledYet) {
  Begin();
  EXPECT_THAT(LinesWith(Drawn(), "fill "), IsEmpty());
  End();
}

TEST_F(ScreenDrawingTest, ThePenIsTheSmallestWholeWidthNotBelowItsSize) {
  EXPECT_EQ(PenWidthFor(0.25), "pen width 1");  // 0.33
  EXPECT_EQ(PenWidthFor(0.75), "pen width 1");  // 1 exactly
  EXPECT_EQ(PenWidthFor(0.76), "pen width 2");  // 1.01
  EXPECT_EQ(PenWidthFor(1.5), "pen width 2");   // 2 exactly
  EXPECT_EQ(PenWidthFor(2.0), "pen width 3");   // 2.67
}

TEST_F(ScreenDrawingTest, AZeroPenStaysZero) {
  EXPECT_EQ(PenWidthFor(0.0), "pen width 0");
}

TEST_F(ScreenDrawingTest, APenOfAWholeNumberOfPixelsIsNotMadeWiderByRounding) {
  UseDpi(120);
  EXPECT_EQ(PenWidthFor(4.2), "pen width 7");  // 4.2 * 120 = 504 = 7 * 72
}

TEST_F(ScreenDrawingTest, TheFontHeightIsTruncated) {
  EXPECT_EQ(FontHeightFor(10), 13);  // 13.33
  EXPECT_EQ(FontHeightFor(11), 14);  // 14.67
  EXPECT_EQ(FontHeightFor(12), 16);  // 16 exactly
  EXPECT_EQ(FontHeightFor(1), 1);    // 1.33
}

TEST_F(ScreenDrawingTest, AFontOfAWholeNumberOfPixelsLosesNoneByRounding) {
  UseDpi(110);
  EXPECT_EQ(FontHeightFor(324), 495);  // 324 * 110 = 495 * 72
}

TEST_F(ScreenDrawingTest, SizesFollowTheDotsPerInchOfTheDeviceNotOfTheWorkspace) {
  workspace().ScreenDpi = 300.0;
  UseDpi(144);
  EXPECT_EQ(PenWidthFor(0.75), "pen width 2");  // 1.5
  EXPECT_EQ(FontHeightFor(10), 20);
}

TEST_F(ScreenDrawingTest, AtTheEndNothingIsLeftSelectedAndTheContextHasNoDevice) {
  Begin();
  toolkit::SetDrawingColor(workspace().Graphics.Device, kRed);
  EXPECT_GT(shell().DeviceObjects, 0);
  ForgetAll();
  End();
  EXPECT_THAT(Drawn(), ElementsAre("clean up"));
  EXPECT_EQ(shell().DeviceObjects, 0);
  const DeviceRecord& left = workspace().Graphics.Device;
  EXPECT_EQ(left.Dc, nullptr);
  EXPECT_EQ(left.Font, nullptr);
  EXPECT_EQ(left.Pen, nullptr);
  EXPECT_EQ(left.Brush, nullptr);
}

// --- Elsewhere than on the screen ----------------------------------------------------------------

TEST_F(ScreenDrawingTest, ElsewhereSizesAreTakenAsTheyAreAndThereIsNoBackground) {
  workspace().Graphics.Status = recording::kFullDisk;
  BeginDrawing(workspace(), device_, {.FontHeight = 40, .PenSize = 2.5});
  EXPECT_THAT(Drawn(), ElementsAre("pen width 3"));
  EXPECT_EQ(MeasureLine(workspace()).Height, 40);
  EXPECT_EQ(workspace().Graphics.Device.Dc, device_.Dc);
  EXPECT_EQ(workspace().Graphics.Status, 0);
  End();
}

TEST_F(ScreenDrawingTest, WhatIsMeasuredIsMeasuredOnTheDeviceThatIsLent) {
  BeginDrawing(workspace(), device_, {.FontHeight = 40});
  EXPECT_EQ(MeasuringDevice(workspace().Graphics).Dc, device_.Dc);
  DeviceRecord lent = toolkit::AcquireMeasuringDevice();
  LendDevice(workspace(), lent, {.FontHeight = 20});
  EXPECT_EQ(MeasuringDevice(workspace().Graphics).Dc, lent.Dc);
  EXPECT_EQ(workspace().Graphics.Device.Dc, device_.Dc) << "on which is drawn";
  EXPECT_EQ(MeasureLine(workspace()).Height, 20);
  TakeBackDevice(workspace());
  EXPECT_EQ(MeasuringDevice(workspace().Graphics).Dc, device_.Dc);
  EXPECT_EQ(MeasureLine(workspace()).Height, 40);
  End();
  toolkit::ReleaseMeasuringDevice(lent);
}

TEST_F(ScreenDrawingTest, ADrawingThatBeginsHasNoDeviceLentYet) {
  workspace().Graphics.Lent.Dc = &device_;  // of a drawing that this one interrupts
  Begin();
  EXPECT_EQ(MeasuringDevice(workspace().Graphics).Dc, device_.Dc);
  End();
}

TEST_F(ScreenDrawingTest, OnTheScreenMeansTheScreensSinkAndTheContextOfTheWorkspace) {
  const Drawing drawing = OnScreen(workspace());
  EXPECT_EQ(&drawing.Sink, &workspace().ScreenSink);
  EXPECT_EQ(&drawing.Context, &workspace().Graphics);
}

TEST_F(ScreenDrawingTest, ALineIsAscentAndDescentWithoutLeading) {
  workspace().FontSize = 30;  // 40 pixels, of which the double's font has a quarter below
  Begin();
  const TextLine line = MeasureLine(workspace());
  EXPECT_EQ(line.Ascent, 30);
  EXPECT_EQ(line.Height, 40);
  End();
}

TEST_F(ScreenDrawingTest, AFontWithoutHeightStillHasLinesOfOnePixel) {
  workspace().FontSize = 0;
  Begin();
  EXPECT_EQ(MeasureLine(workspace()).Height, 1);
  End();
}

TEST_F(ScreenDrawingTest, TheLargestFontThatSettingsTakeGivesLinesThatStillAddUp) {
  workspace().FontSize = std::numeric_limits<std::int32_t>::max();
  Begin();
  const TextLine line = MeasureLine(workspace());
  EXPECT_GT(line.Height, 1000000);
  EXPECT_LT(line.Height, std::numeric_limits<std::int32_t>::max() / 8);
  EXPECT_LE(line.Ascent, line.Height);
  End();
}

}  // namespace
}  // namespace ondrel
