#include "views/top_label.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "support/view_test.h"

namespace ondrel {
namespace {

/// Measures in letters 5 wide.
class TopLabelTest : public ViewTest {
 protected:
  TopLabelTest() : device_(toolkit::AcquireDevice(nullptr)) {
    workspace().Graphics.Device = device_;
    ForgetAll();
  }
  ~TopLabelTest() override {
    workspace().Graphics.Device = {};
    toolkit::ReleaseDevice(nullptr, device_);
    TheDrawing() = nullptr;
  }

  using Draw = std::function<void(const Drawing&)>;

  std::int32_t WidthOfTop(const Draw& draw) {
    TheDrawing() = draw;
    const ViewRoutines view = {
        .Paint = nullptr,
        .LayOut = nullptr,
        .Draw =
            [](Workspace& workspace, const Destination& destination) {
              EXPECT_EQ(destination.Rect, (IntRect{1, 2, 3, 4}));
              TheDrawing()({destination.Sink, workspace.Graphics});
            },
    };
    return TopLabelWidth(workspace(), view, {.Sink = workspace().ScreenSink, .Rect = {1, 2, 3, 4}});
  }

 private:
  static Draw& TheDrawing() {
    static Draw drawing;
    return drawing;
  }

  DeviceRecord device_;
};

TEST_F(TopLabelTest, ItIsTheTextThatEndsAtAPlaceAndStandsHighest) {
  EXPECT_EQ(WidthOfTop([](const Drawing& drawing) {
              DrawTextUpTo(drawing, 50.0, 300.0, "12345");
              DrawTextUpTo(drawing, 50.0, 100.0, "123");
              DrawTextUpTo(drawing, 50.0, 200.0, "1234");
            }),
            15);
}

TEST_F(TopLabelTest, TextsThatBeginAtAPlaceDoNotCount) {
  EXPECT_EQ(WidthOfTop([](const Drawing& drawing) {
              DrawTextFrom(drawing, 50.0, 1.0, "a title");
              DrawTextCentredAt(drawing, 50.0, 2.0, "a number below");
              DrawTextUpTo(drawing, 50.0, 100.0, "12");
            }),
            10);
}

TEST_F(TopLabelTest, WithoutLabelsItsWidthIsZeroAlsoAfterALookThatFoundOne) {
  EXPECT_EQ(WidthOfTop([](const Drawing& drawing) { DrawTextUpTo(drawing, 0.0, -50.0, "1"); }), 5);
  EXPECT_EQ(WidthOfTop([](const Drawing&) {}), 0);
}

TEST_F(TopLabelTest, NoMarkIsMadeOnTheDevice) {
  WidthOfTop([](const Drawing& drawing) {
    SetFillColor(drawing, kRed);
    SetClip(drawing, {0, 0, 10, 10});
    DrawTextUpTo(drawing, 50.0, 100.0, "12");
    DrawLine(drawing, 0.0, 0.0, 1.0, 1.0);
    MoveTo(drawing, 0.0, 0.0);
    LineTo(drawing, 1.0, 1.0);
    StrokePath(drawing);
    DrawDot(drawing, 1.0, 1.0, 2.0);
    EXPECT_EQ(DrawRect(drawing, 1.9, 2.9, 3.9, 4.9), (IntRect{1, 2, 3, 4}));
    EXPECT_EQ(GetPixelSnap(drawing), 0.0);
    for (const HistogramStyle style :
         {HistogramStyle::Filled, HistogramStyle::Rectangles, HistogramStyle::Outlined}) {
      DrawBars(drawing, style, 0.0, 10.0, 10.0, 0.0, nullptr);
    }
    DrawAmplitudeCurve(drawing, {}, 0.0, 0.0, 10.0, 0, 1);
    DrawDurationCurve(drawing, {}, 0.0, 0.0, 10.0, 0, 1);
  });
  EXPECT_TRUE(Drawn().empty());
}

}  // namespace
}  // namespace ondrel
