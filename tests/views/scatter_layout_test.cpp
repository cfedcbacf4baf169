// How the scatter plots lie in their frames.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

#include "views/scatter_view_fixture.h"

namespace ondrel {
namespace {

class ScatterLayoutTest : public ScatterViewTest {
 protected:
  /// The dots of all plots, which are laid out alike.
  double DotsOf(double size, double dpi = kDpi) {
    byAmplitude().SymbolSize = byDuration().SymbolSize = byBoth().SymbolSize = size;
    LayoutAmplitudeScatter(workspace(), kRect, dpi);
    LayoutDurationScatter(workspace(), kRect, dpi);
    LayoutScatter(workspace(), kRect, dpi);
    const double pixels = LayoutOf(ViewKind::Scatter).SymbolPixels;
    EXPECT_EQ(LayoutOf(ViewKind::AmplitudeScatter).SymbolPixels, pixels) << size;
    EXPECT_EQ(LayoutOf(ViewKind::DurationScatter).SymbolPixels, pixels) << size;
    return pixels;
  }
};

TEST_F(ScatterLayoutTest, TheFrameIsThatOfAllGraphs) {
  Lay();
  for (const ViewKind kind : kScatterPlots) {
    const GraphFrame& frame = View(kind).Frame;
    EXPECT_DOUBLE_EQ(frame.PlotLeft, 230.0);
    EXPECT_DOUBLE_EQ(frame.PlotRight, 1490.0);
    EXPECT_DOUBLE_EQ(frame.PlotTop, 290.0);
    EXPECT_DOUBLE_EQ(frame.PlotBottom, 1410.0);
    EXPECT_DOUBLE_EQ(frame.LabelOffset, 48.0);
  }
}

// --- Dots ----------------------------------------------------------------------------------------

TEST_F(ScatterLayoutTest, DotsAreAnEvenNumberOfUnitsWide) {
  EXPECT_EQ(DotsOf(0.02), 2.0);
  EXPECT_EQ(DotsOf(0.039), 2.0) << "3.9 are 3, and one less when that is odd";
  EXPECT_EQ(DotsOf(0.04), 4.0);
  EXPECT_EQ(DotsOf(0.05), 4.0);
  EXPECT_EQ(DotsOf(0.0599), 4.0);
  EXPECT_EQ(DotsOf(0.06), 6.0);
  EXPECT_EQ(DotsOf(1.0), 100.0);
  EXPECT_EQ(DotsOf(1.01), 100.0);
}

TEST_F(ScatterLayoutTest, ADotSmallerThanADeviceUnitIsZeroWide) {
  EXPECT_EQ(DotsOf(0.0), 0.0);
  EXPECT_EQ(DotsOf(0.0099), 0.0);
  EXPECT_EQ(DotsOf(0.01), 0.0) << "one unit is odd";
  EXPECT_EQ(DotsOf(0.0199), 0.0);
}

TEST_F(ScatterLayoutTest, ASizeBelowZeroIsZero) {
  for (const double size : {-0.005, -0.01, -0.04, -1.0, -1e300}) {
    EXPECT_EQ(DotsOf(size), 0.0) << size;
  }
}

TEST_F(ScatterLayoutTest, TheSizeOfDotsFollowsTheDevice) {
  EXPECT_EQ(DotsOf(0.08, 96.0), 2.0) << "3.02";
  EXPECT_EQ(DotsOf(0.08, 600.0), 18.0) << "18.9";
  EXPECT_EQ(DotsOf(0.08, 72.0), 2.0) << "2.27";
}

TEST_F(ScatterLayoutTest, ASizeThatIsWholeButForRoundingIsWhole) {
  for (int pixels = 2; pixels < 2000; pixels += 2) {
    ASSERT_EQ(DotsOf(pixels / 100.0), pixels);
    ASSERT_EQ(DotsOf(pixels * 2.54 / 96.0, 96.0), pixels);
  }
}

TEST_F(ScatterLayoutTest, HugeDotsStayEven) {
  EXPECT_EQ(DotsOf(1e6), 1e8);
  EXPECT_EQ(DotsOf(10000.01), 1000000.0);
  EXPECT_EQ(std::fmod(DotsOf(1e12 + 0.01), 2.0), 0.0);
  EXPECT_GT(DotsOf(1e300), 1e301);
}

// --- Scales --------------------------------------------------------------------------------------

TEST_F(ScatterLayoutTest, EachPlotGetsTheScalesOfItsAxes) {
  byAmplitude().AmplitudeTicks = 4;
  byAmplitude().PaPerTick = 0.5;
  byBoth().Ticks = 7;
  byBoth().PaPerTick = 2.0;
  Lay();
  EXPECT_EQ(LayoutOf(ViewKind::AmplitudeScatter).XPixelsPerTick, 420.0);
  EXPECT_EQ(LayoutOf(ViewKind::AmplitudeScatter).YPixelsPerUnit, 560.0);
  EXPECT_EQ(LayoutOf(ViewKind::AmplitudeScatter).PixelsPerDecade, 0.0);
  EXPECT_EQ(LayoutOf(ViewKind::DurationScatter).XPixelsPerTick, 420.0);
  EXPECT_EQ(LayoutOf(ViewKind::DurationScatter).YPixelsPerUnit, 0.0);
  EXPECT_EQ(LayoutOf(ViewKind::DurationScatter).PixelsPerDecade, 280.0) << "of the height";
  EXPECT_EQ(LayoutOf(ViewKind::Scatter).XPixelsPerTick, 0.0);
  EXPECT_EQ(LayoutOf(ViewKind::Scatter).YPixelsPerUnit, 80.0);
  EXPECT_EQ(LayoutOf(ViewKind::Scatter).PixelsPerDecade, 420.0) << "of the width";
}

TEST_F(ScatterLayoutTest, ScalesAreCutToWholeDeviceUnits) {
  byAmplitude().TickMarks = byDuration().TickMarks = 8;  // of 157.5
  byAmplitude().AmplitudeTicks = 3;                      // of 373.3
  byBoth().Ticks = 9;                                    // of 124.4
  byDuration().Decades = 3;                              // of 373.3
  byBoth().Decades = 8;                                  // of 157.5
  Lay();
  EXPECT_EQ(LayoutOf(ViewKind::AmplitudeScatter).XPixelsPerTick, 157.0);
  EXPECT_EQ(LayoutOf(ViewKind::AmplitudeScatter).YPixelsPerUnit, 373.0);
  EXPECT_EQ(LayoutOf(ViewKind::DurationScatter).XPixelsPerTick, 157.0);
  EXPECT_EQ(LayoutOf(ViewKind::DurationScatter).PixelsPerDecade, 373.0);
  EXPECT_EQ(LayoutOf(ViewKind::Scatter).YPixelsPerUnit, 124.0);
  EXPECT_EQ(LayoutOf(ViewKind::Scatter).PixelsPerDecade, 157.0);
}

/// What `length * parts / wholes` has in whole units, in whole numbers.
std::int32_t WholeShare(std::int32_t length, std::int32_t parts, std::int32_t wholes) {
  return length * parts / wholes;
}

/// The plot has three quarters of the width and two thirds of the height.
TEST_F(ScatterLayoutTest, ScalesThatAreWholeButForRoundingAreWhole) {
  for (std::int32_t size = 1; size < 1500; ++size) {
    for (const std::int32_t count : {2, 3, 5, 7}) {
      byAmplitude().TickMarks = byAmplitude().AmplitudeTicks = count;
      byAmplitude().PaPerTick = 0.1;
      byDuration().TickMarks = byDuration().Decades = count;
      byBoth().Ticks = byBoth().Decades = count;
      byBoth().PaPerTick = 0.7;
      Lay({13, -17, 13 + size, -17 + size});
      const double across = WholeShare(size, 3, 4 * count);
      ASSERT_EQ(LayoutOf(ViewKind::AmplitudeScatter).XPixelsPerTick, across) << size;
      ASSERT_EQ(LayoutOf(ViewKind::DurationScatter).XPixelsPerTick, across) << size;
      ASSERT_EQ(LayoutOf(ViewKind::Scatter).PixelsPerDecade, across) << size;
      const ScatterLayout& amplitude = LayoutOf(ViewKind::AmplitudeScatter);
      ASSERT_EQ(amplitude.YPixelsPerUnit, WholeShare(size, 20, 3 * count)) << size;
      ASSERT_EQ(LayoutOf(ViewKind::DurationScatter).PixelsPerDecade, WholeShare(size, 2, 3 * count))
          << size;
      ASSERT_EQ(LayoutOf(ViewKind::Scatter).YPixelsPerUnit, WholeShare(size, 20, 21 * count))
          << size;
    }
  }
}

/// Two for what the dialogs want two of.
TEST_F(ScatterLayoutTest, CountsThatNoDialogTakesAreTheNearestThatItDoes) {
  for (const std::int32_t few : {0, -1, std::numeric_limits<std::int32_t>::min()}) {
    byAmplitude().TickMarks = byAmplitude().AmplitudeTicks = few;
    byDuration().TickMarks = byDuration().Decades = few;
    byBoth().Ticks = byBoth().Decades = few;
    Lay();
    EXPECT_EQ(LayoutOf(ViewKind::AmplitudeScatter).XPixelsPerTick, 1260.0);
    EXPECT_EQ(LayoutOf(ViewKind::AmplitudeScatter).YPixelsPerUnit, 560.0);
    EXPECT_EQ(LayoutOf(ViewKind::DurationScatter).XPixelsPerTick, 630.0);
    EXPECT_EQ(LayoutOf(ViewKind::DurationScatter).PixelsPerDecade, 1120.0);
    EXPECT_EQ(LayoutOf(ViewKind::Scatter).YPixelsPerUnit, 1120.0);
    EXPECT_EQ(LayoutOf(ViewKind::Scatter).PixelsPerDecade, 1260.0);
  }
}

TEST_F(ScatterLayoutTest, AnEmptyRectangleHasNoScales) {
  Lay({0, 0, 0, 0});
  for (const ViewKind kind : kScatterPlots) {
    EXPECT_EQ(LayoutOf(kind).XPixelsPerTick, 0.0);
    EXPECT_EQ(LayoutOf(kind).YPixelsPerUnit, 0.0);
    EXPECT_EQ(LayoutOf(kind).PixelsPerDecade, 0.0);
  }
}

}  // namespace
}  // namespace ondrel
