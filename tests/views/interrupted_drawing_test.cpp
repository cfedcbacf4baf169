// Paint messages that come while a view is drawn for another destination: boxes and printers let
// them through.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "support/view_test.h"
#include "views/destinations_fixture.h"

namespace ondrel {
namespace {

using ::testing::IsEmpty;
using ::testing::Not;

// --- Paint messages in the middle of a drawing ---------------------------------------------------

class InterruptedDrawingTest : public DestinationsTest {
 protected:
  InterruptedDrawingTest() {
    Show(ViewKind::Amplitude);
    Show(ViewKind::Duration);
    Show(ViewKind::Stationarity);
  }

  /// What comes of `way` when there is no memory, and these views are painted while the box stands.
  std::vector<std::string> Interrupt(Way way, ViewKind kind, const std::vector<ViewKind>& painted) {
    shell().WhileBoxStands = [&](FrameWindow*) {
      shell().KeepsDrawing = false;
      for (const ViewKind other : painted) PaintByMessage(View(other).Window);
      shell().KeepsDrawing = true;
    };
    shell().Allocation = {.Next = 1};
    const std::vector<std::string> lines = (this->*way)(kind);
    shell().WhileBoxStands = nullptr;
    EXPECT_EQ(shell().Boxes.size(), std::size_t{1});
    shell().Boxes.clear();
    shell().Allocation = {};
    return lines;
  }

  static void PaintByMessage(ChildWindow* window) {
    DeviceRecord device = toolkit::AcquireDevice(window);
    window->Callbacks->Paint(window, device);
    toolkit::ReleaseDevice(window, device);
  }

  void ForgetCounts() {
    DurationHistogram& histogram = workspace().Duration;
    toolkit::FreeMemory(histogram.Bins);
    toolkit::FreeMemory(histogram.Edges);
    histogram.Bins = nullptr;
    histogram.Edges = nullptr;
  }

  std::vector<std::string> AxesAlone(Way way) {
    workspace().Stationarity.ShortestSweep = 0.0;
    const std::vector<std::string> axes = (this->*way)(ViewKind::Stationarity);
    workspace().Stationarity.ShortestSweep = 10.0;
    return axes;
  }
};

TEST_F(InterruptedDrawingTest, AStationarityPlotWithoutMemoryStillComesOutWithItsAxes) {
  for (const Way way : AllWays()) {
    const std::vector<std::string> axes = AxesAlone(way);
    EXPECT_EQ(Interrupt(way, ViewKind::Stationarity, {}), axes);
    EXPECT_EQ(Interrupt(way, ViewKind::Stationarity, {ViewKind::Amplitude}), axes);
    EXPECT_EQ(Interrupt(way, ViewKind::Stationarity, {ViewKind::Stationarity}), axes);
    EXPECT_EQ(Interrupt(way, ViewKind::Stationarity,
                        {ViewKind::Stationarity, ViewKind::Duration, ViewKind::Amplitude}),
              axes);
  }
}

TEST_F(InterruptedDrawingTest, ADurationHistogramThatCannotBeCountedStillComesOut) {
  for (const Way way : AllWays()) {
    const std::vector<std::string> whole = (this->*way)(ViewKind::Duration);
    ForgetCounts();
    const std::vector<std::string> withoutBars = Interrupt(way, ViewKind::Duration, {});
    ASSERT_LT(withoutBars.size(), whole.size());
    ForgetCounts();
    EXPECT_EQ(Interrupt(way, ViewKind::Duration, {ViewKind::Amplitude}), withoutBars);
    ForgetCounts();
    EXPECT_EQ(Interrupt(way, ViewKind::Duration, {ViewKind::Stationarity}), withoutBars);
    ForgetCounts();
    EXPECT_EQ(Interrupt(way, ViewKind::Duration, {ViewKind::Duration}), withoutBars);
  }
}

// --- Paint messages between two marks ------------------------------------------------------------

/// Every text that is drawn with a screen's sink counts; the one that is chosen has a paint message
/// come, as a printer that is busy lets them through.
struct PaintAmongTexts {
  GraphicsSink Sink;
  ChildWindow* Painted = nullptr;
  int TextsLeft = 0;
};

PaintAmongTexts& TheInterruption() {
  static PaintAmongTexts interruption;
  return interruption;
}

void DrawTextAndPaint(GraphicsContext& context, double x, double y, TextAlignment alignment,
                      const char* text, std::size_t capacity) {
  PaintAmongTexts& interruption = TheInterruption();
  interruption.Sink.DrawText(context, x, y, alignment, text, capacity);
  if (--interruption.TextsLeft != 0) return;
  ChildWindow* window = interruption.Painted;
  DeviceRecord device = toolkit::AcquireDevice(window);
  scripted::TheShell().KeepsDrawing = false;
  window->Callbacks->Paint(window, device);
  scripted::TheShell().KeepsDrawing = true;
  toolkit::ReleaseDevice(window, device);
}

class PaintedWhileDrawnTest : public DestinationsTest {
 protected:
  PaintedWhileDrawnTest() {
    for (const ViewKind kind : AllKinds()) Show(kind);
    TheInterruption().Sink = workspace().ScreenSink;
  }

  std::vector<std::string> PaperInterruptedAfter(int texts, ViewKind kind, ViewKind painted) {
    TheInterruption().Painted = View(painted).Window;
    TheInterruption().TextsLeft = texts;
    workspace().ExportRect = kPicture;
    workspace().ScreenSink.DrawText = DrawTextAndPaint;
    const std::vector<std::string> paper = ToPaper(kind);
    workspace().ScreenSink.DrawText = TheInterruption().Sink.DrawText;
    EXPECT_LE(TheInterruption().TextsLeft, 0) << "nothing was interrupted";
    return paper;
  }
};

TEST_F(PaintedWhileDrawnTest, ThePageOfAViewComesOutWholeWhenItsOwnWindowIsPaintedMeanwhile) {
  for (const ViewKind kind : AllKinds()) {
    workspace().ExportRect = kPicture;
    const std::vector<std::string> whole = ToPaper(kind);
    for (const int texts : {1, 3, 5}) {
      EXPECT_EQ(PaperInterruptedAfter(texts, kind, kind), whole) << TitleOf(kind) << texts;
    }
  }
}

TEST_F(PaintedWhileDrawnTest, AndWhenAnyOtherWindowIs) {
  for (const ViewKind kind : AllKinds()) {
    workspace().ExportRect = kPicture;
    const std::vector<std::string> whole = ToPaper(kind);
    for (const ViewKind other : AllKinds()) {
      EXPECT_EQ(PaperInterruptedAfter(2, kind, other), whole) << TitleOf(kind) << TitleOf(other);
    }
  }
}

TEST_F(PaintedWhileDrawnTest, TheWindowOfAViewThatIsDrawnElsewhereShowsItsBackgroundAlone) {
  View(ViewKind::Scatter).DrawnElsewhere = true;
  const std::vector<std::string> drawn = Paint(ViewKind::Scatter);
  EXPECT_EQ(LinesWith(drawn, "fill ").size(), std::size_t{1});
  EXPECT_THAT(LinesWith(drawn, "text "), IsEmpty());
  View(ViewKind::Scatter).DrawnElsewhere = false;
  EXPECT_THAT(LinesWith(Paint(ViewKind::Scatter), "text "), Not(IsEmpty()));
}

}  // namespace
}  // namespace ondrel
