#include "views/histogram_parts.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "support/histogram_view_test.h"
#include "views/histogram_layout.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The plot goes from 230 to 1490 and from 290 down to 1410; numbers of counts end at 182, and a
/// tick of the vertical axis is 35 long.
class HistogramPartsTest : public HistogramViewTest {
 protected:
  HistogramPartsTest() {
    LayoutAmplitude(workspace(), sink(), kRect);
    auto& colors = View(ViewKind::Amplitude).Colors;
    colors = {RgbColor{1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {4, 0, 0}, {5, 0, 0}};
  }

  AxisDrawing Axis() {
    const ViewState& view = View(ViewKind::Amplitude);
    return {.Target = {sink(), workspace().Graphics},
            .Frame = view.Frame,
            .LabelColor = ColorOf(view, HistogramColor::Labels),
            .AxisColor = ColorOf(view, HistogramColor::Axes)};
  }

  std::vector<std::string> CountAxis(const CountScale& scale) {
    recording::Clear();
    AxisDrawing axis = Axis();
    DrawCountAxis(axis, 1680.0, scale);
    return LinesOf({"line ", "right "});
  }
};

TEST_F(HistogramPartsTest, CountsStandAtEqualDistancesUpToTheTop) {
  EXPECT_THAT(
      CountAxis(
          {.YMaximum = 150.0, .CountsPerTick = 100, .PixelsPerYTick = 560.0, .HasTicks = true}),
      ElementsAre("line 230 290 230 1410", "line 230 1410 195 1410", "right 182 1410 0",
                  "line 230 850 195 850", "right 182 850 100", "line 230 290 195 290",
                  "right 182 290 200"));
  EXPECT_EQ(LinesOf({"left "}), std::vector<std::string>{"left 115 174 Counts"});
}

TEST_F(HistogramPartsTest, OnASquareRootAxisCountsStandAtTheirRoots) {
  EXPECT_THAT(
      CountAxis({.YMaximum = 20.0,  // of 400 counts
                 .CountsPerTick = 100,
                 .PixelsPerYTick = 1.0,
                 .SquareRootAxis = true,
                 .HasTicks = true}),
      ElementsAre("line 230 290 230 1410", "line 230 1410 195 1410", "right 182 1410 0",
                  "line 230 850 195 850", "right 182 850 100", "line 230 618.040405 195 618.040405",
                  "right 182 618.040405 200", "line 230 440.051548 195 440.051548",
                  "right 182 440.051548 300", "line 230 290 195 290", "right 182 290 400"));
}

TEST_F(HistogramPartsTest, AMirroredAxisGoesAsFarDownWithNegativeCounts) {
  EXPECT_THAT(CountAxis({.YMaximum = 100.0,
                         .CountsPerTick = 100,
                         .PixelsPerYTick = 1120.0,
                         .HasTicks = true,
                         .Mirrored = true}),
              ElementsAre("line 230 290 230 2530", "line 230 1410 195 1410", "right 182 1410 0",
                          "line 230 1410 195 1410", "right 182 1410 0", "line 230 290 195 290",
                          "right 182 290 100", "line 230 2530 195 2530", "right 182 2530 -100"));
}

TEST_F(HistogramPartsTest, WithoutTicksThereIsTheNumberAtTheOriginAlone) {
  EXPECT_THAT(CountAxis({.YMaximum = 0.0, .CountsPerTick = 100, .PixelsPerYTick = 560.0}),
              ElementsAre("line 230 290 230 1410", "right 182 1410 0"));
}

TEST_F(HistogramPartsTest, NoCountsPerTickReadAsOne) {
  EXPECT_THAT(
      CountAxis({.YMaximum = 1.0, .CountsPerTick = 0, .PixelsPerYTick = 1120.0, .HasTicks = true}),
      ElementsAre("line 230 290 230 1410", "line 230 1410 195 1410", "right 182 1410 0",
                  "line 230 290 195 290", "right 182 290 1"));
}

TEST_F(HistogramPartsTest, TicksThatDoNotRiseEndTheAxis) {
  EXPECT_THAT(
      CountAxis({.YMaximum = 1.0, .CountsPerTick = 1, .PixelsPerYTick = 0.0, .HasTicks = true}),
      ElementsAre("line 230 290 230 1410", "line 230 1410 195 1410", "right 182 1410 0"));
}

TEST_F(HistogramPartsTest, FilledBarsAreFilledAndAllOthersStroked) {
  const Drawing drawing{sink(), workspace().Graphics};
  const BinRecord bins[3]{};
  for (const HistogramStyle style :
       {HistogramStyle::Filled, HistogramStyle::Outlined, HistogramStyle::Rectangles}) {
    DrawDescribedBars(drawing, View(ViewKind::Amplitude), style, bins);
  }
  EXPECT_THAT(LinesOf({"color "}), ElementsAre("color k 1 0 0", "color K 1 0 0", "color K 1 0 0"));
}

}  // namespace
}  // namespace ondrel
