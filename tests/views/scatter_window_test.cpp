// The windows of the scatter plots, and settings that no dialog takes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "shell/keys.h"
#include "views/scatter_view_fixture.h"

namespace ondrel {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class ScatterWindowTest : public ScatterViewTest {
 protected:
  ScatterWindowTest() {
    shell().DeviceDpi = kDpi;
    const DeviceRecord kept = workspace().Graphics.Device;
    for (const ViewKind kind : kScatterPlots) {
      Open(kind);
      WindowOf(kind).Client = {0, 0, 480, 360};
    }
    workspace().Graphics.Device = kept;
    ForgetAll();
  }

  /// The context has a device of its own in this fixture, which comes back afterwards.
  std::vector<std::string> PaintWindow(ViewKind kind) {
    const DeviceRecord kept = workspace().Graphics.Device;
    workspace().Graphics.Device = {};  // no drawing is under way
    const std::vector<std::string> drawing = Paint(kind);
    lastDevice_ = workspace().Graphics.Device;
    workspace().Graphics.Device = kept;
    return drawing;
  }

  static std::vector<std::string> Words(const std::vector<std::string>& drawing) {
    std::vector<std::string> words;
    for (const DrawnText& text : TextsIn(drawing)) words.push_back(text.Text);
    return words;
  }

  DeviceRecord lastDevice_;
};

TEST_F(ScatterWindowTest, APictureIsMadeOutOfSightAndShownAtTheEnd) {
  for (const ViewKind kind : kScatterPlots) {
    const std::vector<std::string> drawing = PaintWindow(kind);
    ASSERT_GT(drawing.size(), std::size_t{5});
    EXPECT_EQ(drawing[0], "background 4 0 0");
    EXPECT_EQ(drawing[1], "pen width 1");
    EXPECT_EQ(drawing[2], "fill 0 0 480 360 with 4 0 0");
    EXPECT_EQ(*(drawing.end() - 2), "clean up");
    EXPECT_EQ(drawing.back(), "show 0 0 480 360");
    EXPECT_THAT(LinesWith(drawing, "show"), SizeIs(1));
    EXPECT_EQ(lastDevice_.Dc, nullptr) << "the context gave it back";
  }
}

TEST_F(ScatterWindowTest, WithoutRoomOutOfSightTheSamePictureIsDrawnInTheWindow) {
  for (const ViewKind kind : kScatterPlots) {
    shell().NoBuffers = false;
    std::vector<std::string> buffered = PaintWindow(kind);
    buffered.pop_back();
    shell().NoBuffers = true;
    EXPECT_EQ(PaintWindow(kind), buffered);
  }
}

TEST_F(ScatterWindowTest, EachWindowShowsItsOwnPlot) {
  EXPECT_THAT(Words(PaintWindow(ViewKind::AmplitudeScatter)), Contains("Level Tag Value"));
  EXPECT_THAT(Words(PaintWindow(ViewKind::AmplitudeScatter)), Contains("Amplitude (pA)"));
  EXPECT_THAT(Words(PaintWindow(ViewKind::DurationScatter)), Contains("Level Tag Value"));
  EXPECT_THAT(Words(PaintWindow(ViewKind::DurationScatter)), Contains("log Duration (s)"));
  EXPECT_THAT(Words(PaintWindow(ViewKind::Scatter)), Contains("log Duration (s)"));
  EXPECT_THAT(Words(PaintWindow(ViewKind::Scatter)), Contains("Amplitude (pA)"));
}

/// 480 by 360: the plot goes from 60 to 420 and from 60 down to 300.
TEST_F(ScatterWindowTest, ThePictureIsLaidOutForTheClientAreaAndItsDevice) {
  SetDwells({{5.0, 1.0, 1e-3}});
  const auto dotOf = [&](ViewKind kind) {
    return LinesWith(PaintWindow(kind), "filled rect").at(0);
  };
  EXPECT_EQ(dotOf(ViewKind::AmplitudeScatter), "filled rect 178 238 182 242");
  EXPECT_EQ(dotOf(ViewKind::DurationScatter), "filled rect 178 178 182 182");
  EXPECT_EQ(dotOf(ViewKind::Scatter), "filled rect 298 238 302 242");
  shell().DeviceDpi = 2.0 * kDpi;
  EXPECT_EQ(dotOf(ViewKind::AmplitudeScatter), "filled rect 176 236 184 244");
  WindowOf(ViewKind::AmplitudeScatter).Client = {0, 0, 960, 720};
  EXPECT_EQ(dotOf(ViewKind::AmplitudeScatter), "filled rect 356 476 364 484");
}

TEST_F(ScatterWindowTest, SymbolsSmallerThanADeviceUnitAreOnePoint) {
  byAmplitude().SymbolSize = 0.005;
  SetDwells({{5.0, 1.0, 1e-3}});
  const std::vector<std::string> drawing = PaintWindow(ViewKind::AmplitudeScatter);
  EXPECT_THAT(drawing, Contains("point 180 240"));
  EXPECT_THAT(LinesWith(drawing, "filled rect"), IsEmpty());
}

TEST_F(ScatterWindowTest, DotsFollowTheAxesOnTheScreen) {
  SetDwells({{5.0, 1.0, 1e-3}});
  for (const ViewKind kind : kScatterPlots) {
    const std::vector<std::string> drawing = PaintWindow(kind);
    // Then come the end of the drawing and its showing.
    EXPECT_EQ(*(drawing.end() - 4), "color 1 0 0");
    EXPECT_TRUE((drawing.end() - 3)->starts_with("filled rect"));
  }
}

TEST_F(ScatterWindowTest, AFormerFailureDoesNotStopThePicture) {
  for (const ViewKind kind : kScatterPlots) {
    const std::vector<std::string> whole = PaintWindow(kind);
    workspace().Graphics.Status = 5;
    EXPECT_EQ(PaintWindow(kind), whole);
  }
}

TEST_F(ScatterWindowTest, AnEmptyWindowIsPaintedWithoutHarm) {
  SetDwells({{5.0, 1.0, 1e-3}, {-5.0, 0.0, 1e-5}});
  for (const ViewKind kind : kScatterPlots) {
    for (const std::int32_t size : {0, 1, 2}) {
      WindowOf(kind).Client = {0, 0, size, size};
      const std::string side = std::to_string(size);
      EXPECT_EQ(PaintWindow(kind).back(), "show 0 0 " + side + " " + side);
    }
  }
}

TEST_F(ScatterWindowTest, TheMouseDoesNothing) {
  SetDwells({{5.0, 1.0, 1e-3}});
  for (const ViewKind kind : kScatterPlots) {
    PaintWindow(kind);
    ForgetAll();
    ChildWindow* window = View(kind).Window;
    const ScatterLayout before = LayoutOf(kind);
    window->Callbacks->MouseDown(window, 180, 240);  // on the dot of the first plot
    window->Callbacks->MouseMove(window, 300, 100);
    window->Callbacks->MouseUp(window, 300, 100);
    window->Callbacks->MouseDown(window, 300, 100);
    window->Callbacks->MouseUp(window, 300, 100);
    EXPECT_THAT(Drawn(), IsEmpty());
    EXPECT_THAT(Happened(), IsEmpty());
    EXPECT_THAT(WindowOf(kind).Invalidated, IsEmpty());
    EXPECT_EQ(workspace().LastClickTime, 0u);
    EXPECT_EQ(LayoutOf(kind).XPixelsPerTick, before.XPixelsPerTick);
    EXPECT_EQ(workspace().Levels.Index[0]->LevelFlags, 0u);
  }
}

TEST_F(ScatterWindowTest, ThereIsNothingToScroll) {
  for (const ViewKind kind : kScatterPlots) {
    ForgetAll();
    ChildWindow* window = View(kind).Window;
    for (const int key : {kKeyHome, kKeyEnd, kKeyDown, kKeyPageUp}) {
      window->Callbacks->KeyDown(window, key);
    }
    EXPECT_THAT(Drawn(), IsEmpty());
    EXPECT_THAT(WindowOf(kind).Invalidated, IsEmpty());
    for (const scripted::ScrollBar& bar : WindowOf(kind).Bars) EXPECT_FALSE(bar.Exists);
  }
}

TEST_F(ScatterWindowTest, ARepaintFillsTheBackgroundAndAsksForAPaintMessage) {
  for (const ViewKind kind : kScatterPlots) {
    ForgetAll();
    const DeviceRecord kept = workspace().Graphics.Device;
    RepaintView(workspace(), kind);
    workspace().Graphics.Device = kept;
    EXPECT_THAT(LinesWith(Drawn(), "fill "), ElementsAre("fill 0 0 480 360 with 4 0 0"));
    EXPECT_THAT(WindowOf(kind).Invalidated, ElementsAre(IntRect{0, 0, 480, 360}));
  }
}

// --- Settings that no dialog takes ---------------------------------------------------------------

constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

TEST_F(ScatterWindowTest, NoWholeSettingMakesAPictureOfManyParts) {
  SetDwells({{5.0, 1.0, 1e-3}});
  // Two axes of 16384 ticks and numbers, and as many minor ticks.
  constexpr int kMostParts = 2 * 2 * (16384 + 2) + 16384;
  const auto draw = [&](std::int32_t& field) {
    const std::int32_t kept = field;
    for (const std::int32_t extreme : {-kMost - 1, -1, 0, 1, 20000, kMost}) {
      field = extreme;
      Lay();
      EXPECT_LT(CountParts(DrawAmplitudeScatter), kMostParts);
      EXPECT_LT(CountParts(DrawDurationScatter), kMostParts);
      EXPECT_LT(CountParts(DrawScatter), kMostParts);
    }
    field = kept;
  };
  for (const bool axes : {true, false}) {
    SetShown(axes, true);
    draw(byAmplitude().TickMarks);
    draw(byAmplitude().AmplitudeTicks);
    draw(byDuration().TickMarks);
    draw(byDuration().MinimumExponent);
    draw(byDuration().Decades);
    draw(byDuration().TicksPerDecade);
    draw(byBoth().MinimumExponent);
    draw(byBoth().Decades);
    draw(byBoth().TicksPerDecade);
    draw(byBoth().Ticks);
  }
}

TEST_F(ScatterWindowTest, NoRealSettingStopsTheWindowFromBeingPainted) {
  constexpr double kReals[] = {0.0,
                               -0.0,
                               -1.0,
                               1e308,
                               -1e308,
                               5e-324,
                               1e-300,
                               -1e-300,
                               std::numeric_limits<double>::infinity(),
                               -std::numeric_limits<double>::infinity(),
                               std::numeric_limits<double>::quiet_NaN()};
  SetDwells({{5.0, 1.0, 1e-3}, {-5.0, 0.0, 1e-5}});
  const auto paint = [&](ViewKind kind, double& field) {
    const double kept = field;
    for (const double extreme : kReals) {
      field = extreme;
      const std::vector<std::string> drawing = PaintWindow(kind);
      EXPECT_EQ(drawing.back(), "show 0 0 480 360");
      EXPECT_LT(drawing.size(), std::size_t{200});
      EXPECT_GT(TextsIn(drawing).size(), std::size_t{5}) << "the axes are there";
    }
    field = kept;
  };
  paint(ViewKind::AmplitudeScatter, byAmplitude().Minimum);
  paint(ViewKind::AmplitudeScatter, byAmplitude().PerTick);
  paint(ViewKind::AmplitudeScatter, byAmplitude().AmplitudeMinimum);
  paint(ViewKind::AmplitudeScatter, byAmplitude().PaPerTick);
  paint(ViewKind::AmplitudeScatter, byAmplitude().SymbolSize);
  paint(ViewKind::DurationScatter, byDuration().Minimum);
  paint(ViewKind::DurationScatter, byDuration().PerTick);
  paint(ViewKind::DurationScatter, byDuration().SymbolSize);
  paint(ViewKind::Scatter, byBoth().Minimum);
  paint(ViewKind::Scatter, byBoth().PaPerTick);
  paint(ViewKind::Scatter, byBoth().SymbolSize);
}

TEST_F(ScatterWindowTest, ATitleOfAValueThatDoesNotExistIsThatOfTheRelevantOne) {
  byAmplitude().Value = static_cast<ScatterValue>(200);
  FillSweeps(1, [](SweepRecord& sweep, std::int32_t) { sweep.RelevantValue = 5.0; });
  SetDwells({{-1000.0, 1.0, 1e-3}});
  const std::vector<std::string> drawing = PaintWindow(ViewKind::AmplitudeScatter);
  EXPECT_THAT(Words(drawing), Contains("Sweep Relevant Value"));
  EXPECT_THAT(drawing, Contains("filled rect 178 238 182 242"));
}

}  // namespace
}  // namespace ondrel
