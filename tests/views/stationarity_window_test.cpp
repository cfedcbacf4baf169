// The stationarity plot where something is missing, and in its window.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "views/stationarity_view_fixture.h"

namespace ondrel {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// --- Failing sinks -------------------------------------------------------------------------------

class FailingStationarityViewTest : public StationarityViewTest {
 protected:
  FailingStationarityViewTest() { UseSamples({0.0, 1.0, 0.0}); }

  void DrawUntil(const std::string& start) {
    recording::Clear();
    recording::FailLine(start);
    DrawStationarity(workspace(), sink(), kWide);
    EXPECT_EQ(workspace().Graphics.Status, recording::kFullDisk);
  }
};

TEST_F(FailingStationarityViewTest, AFailureInTheTimeAxisLeavesTheRestUndone) {
  DrawUntil("left 720 1522");
  EXPECT_EQ(CountLines("left 360 174"), 0);
  EXPECT_EQ(CountLines("line 720 290"), 0);
  EXPECT_EQ(CountLines("move"), 0);
}

TEST_F(FailingStationarityViewTest, AFailureInTheValueAxisLeavesTheCurveUndone) {
  DrawUntil("right 584 1410");
  EXPECT_EQ(CountLines("left 360 174"), 1);
  EXPECT_EQ(CountLines("color K 1"), 0);
  EXPECT_EQ(CountLines("move"), 0);
}

TEST_F(FailingStationarityViewTest, AFailureInTheCurveLeavesItUnstroked) {
  DrawUntil("path 1321");
  EXPECT_EQ(CountLines("move"), 1);
  EXPECT_EQ(CountLines("path"), 0);
  EXPECT_EQ(CountLines("stroke"), 0);
  workspace().Graphics.Status = 0;
  DrawUntil("move");
  EXPECT_EQ(CountLines("path"), 0);
  EXPECT_EQ(CountLines("stroke"), 0);
}

// --- Memory --------------------------------------------------------------------------------------

constexpr char kNoMemory[] =
    "Insufficient memory for stationary plot. You can increase the amount of memory available "
    "either select \"Settings\" in \"File\" menu, reduce \"Event entries\" or \"Sweep entries\" or "
    "quit some other programs.";

TEST_F(StationarityViewTest, MissingMemoryIsToldOnceAndTheAxesAreDrawn) {
  AddWholeLevel();
  shell().Allocation = {.Next = 1};
  Compute();
  EXPECT_THAT(Messages(), ElementsAre(kNoMemory));
  EXPECT_EQ(shell().Boxes.at(0).Icon, toolkit::BoxIcon::Stop);
  Draw();
  EXPECT_EQ(Lines().size(), std::size_t{8});
  EXPECT_EQ(CountLines("line"), 2);
  EXPECT_THAT(Messages(), ElementsAre(kNoMemory));
  Compute();
  EXPECT_GT(plot().SampleCount, 0) << "the next drawing tries again";
  EXPECT_THAT(Messages(), ElementsAre(kNoMemory));
}

TEST_F(StationarityViewTest, WithoutRoomForTheKernelNoMemoryIsAskedFor) {
  plot().Tau = 5.0;
  shell().Allocation = {.Next = 1};
  Compute();
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_EQ(plot().SampleCount, 0);
}

// --- In its window -------------------------------------------------------------------------------

class StationarityWindowTest : public StationarityViewTest {
 protected:
  StationarityWindowTest() : device_(workspace().Graphics.Device) {
    AddWholeLevel();
    Open(ViewKind::Stationarity);
    WindowOf(ViewKind::Stationarity).Client = {0, 0, 680, 600};
    Open(ViewKind::Amplitude);
    WindowOf(ViewKind::Amplitude).Client = {0, 0, 300, 200};
    Paint(ViewKind::Amplitude);  // counted by now
    ForgetAll();
  }
  ~StationarityWindowTest() override { RestoreDevice(); }

  /// Painting takes the context's device.
  void RestoreDevice() { workspace().Graphics.Device = device_; }

  std::vector<std::string> PaintIt() {
    ForgetAll();
    return Paint(ViewKind::Stationarity);
  }

  /// What is drawn when there is no memory for samples, and `whileBoxStands` happens meanwhile.
  template <typename Happens>
  std::vector<std::string> PaintWithoutMemory(Happens whileBoxStands) {
    shell().WhileBoxStands = [&](FrameWindow*) { whileBoxStands(); };
    shell().Allocation = {.Next = 1};
    const std::vector<std::string> drawing = PaintIt();
    shell().WhileBoxStands = nullptr;
    shell().Allocation = {};
    return drawing;
  }

  std::vector<std::string> AxesAlone() {
    plot().ShortestSweep = 0.0;
    const std::vector<std::string> axes = PaintIt();
    plot().ShortestSweep = 10.0;
    return axes;
  }

 private:
  DeviceRecord device_;
};

TEST_F(StationarityWindowTest, APictureIsMadeOutOfSightAndShownAtTheEnd) {
  const std::vector<std::string> drawing = PaintIt();
  ASSERT_GT(drawing.size(), std::size_t{100});
  EXPECT_EQ(drawing[0], "background 4 0 0");
  EXPECT_EQ(drawing[1], "pen width 1");
  EXPECT_EQ(drawing[2], "fill 0 0 680 600 with 4 0 0");
  EXPECT_EQ(*(drawing.end() - 2), "clean up");
  EXPECT_EQ(drawing.back(), "show 0 0 680 600");
  EXPECT_EQ(workspace().Graphics.Device.Dc, nullptr);
}

TEST_F(StationarityWindowTest, WithoutRoomOutOfSightTheSamePictureIsDrawnInTheWindow) {
  std::vector<std::string> buffered = PaintIt();
  buffered.pop_back();
  shell().NoBuffers = true;
  EXPECT_EQ(PaintIt(), buffered);
}

TEST_F(StationarityWindowTest, ThePictureIsThatOfTheClientArea) {
  const std::vector<std::string> drawing = PaintIt();
  EXPECT_DOUBLE_EQ(State().Frame.PlotLeft, 100.0);
  EXPECT_THAT(TextsIn(drawing), Contains(DrawnText{265, 585, "Time (s)"}));  // 500 + 85.7
  WindowOf(ViewKind::Stationarity).Client = {0, 0, 1360, 600};
  PaintIt();
  EXPECT_DOUBLE_EQ(State().Frame.PlotLeft, 200.0);
}

TEST_F(StationarityWindowTest, SamplesAreWorkedOutAnewForEachPicture) {
  PaintIt();
  const std::int32_t count = plot().SampleCount;
  plot().Tau = 1.0;
  PaintIt();
  EXPECT_LT(plot().SampleCount, count);
  plot().Type = StationarityType::Level;
  PaintIt();
  EXPECT_EQ(plot().ValueMax, 0.0);
}

TEST_F(StationarityWindowTest, AFormerFailureDoesNotStopThePicture) {
  const std::vector<std::string> drawing = PaintIt();
  workspace().Graphics.Status = 5;
  EXPECT_EQ(PaintIt(), drawing);
}

TEST_F(StationarityWindowTest, AnEmptyWindowIsPaintedWithoutHarm) {
  WindowOf(ViewKind::Stationarity).Client = {0, 0, 0, 0};
  EXPECT_EQ(PaintIt().back(), "show 0 0 0 0");
  WindowOf(ViewKind::Stationarity).Client = {0, 0, 1, 1};
  EXPECT_EQ(PaintIt().back(), "show 0 0 1 1");
}

TEST_F(StationarityWindowTest, WithoutMemoryTheWindowShowsTheAxes) {
  const std::vector<std::string> axes = AxesAlone();
  EXPECT_EQ(PaintWithoutMemory([] {}), axes);
  EXPECT_THAT(Messages(), ElementsAre(kNoMemory));
}

/// A box lets paint messages through.
TEST_F(StationarityWindowTest, APaintOfAnotherViewWhileTheBoxStandsHarmsNeitherPicture) {
  const std::vector<std::string> other = Paint(ViewKind::Amplitude);
  const std::vector<std::string> axes = AxesAlone();
  std::vector<std::string> nested;
  const std::vector<std::string> all =
      PaintWithoutMemory([&] { nested = Paint(ViewKind::Amplitude); });
  EXPECT_THAT(Messages(), ElementsAre(kNoMemory));
  EXPECT_TRUE(std::equal(other.rbegin(), other.rend(), nested.rbegin()));
  ASSERT_GT(axes.size(), std::size_t{3});
  EXPECT_TRUE(std::equal(axes.rbegin(), axes.rend() - 3, all.rbegin()))
      << "what follows the filled background";
  EXPECT_EQ(workspace().Graphics.Device.Dc, nullptr);
}

TEST_F(StationarityWindowTest, APaintOfTheSameViewWhileTheBoxStandsHarmsNeitherPicture) {
  const std::vector<std::string> whole = PaintIt();
  std::vector<std::string> nested;
  shell().WhileBoxStands = [&](FrameWindow*) { nested = Paint(ViewKind::Stationarity); };
  RestoreDevice();
  shell().Allocation = {.Next = 1};
  Compute();  // of a picture in a rectangle of its own
  shell().WhileBoxStands = nullptr;
  EXPECT_THAT(Messages(), ElementsAre(kNoMemory));
  EXPECT_TRUE(std::equal(whole.rbegin(), whole.rend(), nested.rbegin()));
  Draw();
  EXPECT_THAT(LinesOf({"line", "left", "move"}),
              ElementsAre("left 1875 1650 Time (s)", "line 720 1410 4185 1410",
                          "left 360 174 Probability", "line 720 290 720 1410"));
}

}  // namespace
}  // namespace ondrel
