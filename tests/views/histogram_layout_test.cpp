#include "views/histogram_layout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "output/screen_sink.h"
#include "support/histogram_view_test.h"

namespace ondrel {
namespace {

using ::testing::IsEmpty;

class HistogramLayoutTest : public HistogramViewTest {
 protected:
  HistogramLayoutTest() { SetHeights(duration(), {}); }

  const GraphFrame& AmplitudeFrame() { return View(ViewKind::Amplitude).Frame; }
  const GraphFrame& DurationFrame() { return View(ViewKind::Duration).Frame; }

  void LayAmplitude(const IntRect& rect = kRect) { LayoutAmplitude(workspace(), sink(), rect); }
  void LayDuration(const IntRect& rect = kRect) { LayoutDuration(workspace(), sink(), rect); }
  void LayAmplitudeOnScreen(const IntRect& rect) {
    LayoutAmplitude(workspace(), kScreenSink, rect);
  }
  void LayDurationOnScreen(const IntRect& rect) { LayoutDuration(workspace(), kScreenSink, rect); }

  /// Intervals on the axis of counts after a layout.
  double AmplitudeIntervals() {
    LayAmplitude();
    return 1120.0 / amplitude().PixelsPerYTick;
  }
  double DurationIntervals() {
    duration().ConstrainPositive = true;
    LayDuration();
    return 1120.0 / duration().PixelsPerYTick;
  }
};

TEST_F(HistogramLayoutTest, ThePlotTakesFixedSharesOfTheRectangle) {
  LayAmplitude();
  EXPECT_DOUBLE_EQ(AmplitudeFrame().PlotLeft, 230.0);     // 20 + 1680 / 8
  EXPECT_DOUBLE_EQ(AmplitudeFrame().PlotRight, 1490.0);   // 20 + 1680 * 7 / 8
  EXPECT_DOUBLE_EQ(AmplitudeFrame().PlotTop, 290.0);      // 10 + 1680 / 6
  EXPECT_DOUBLE_EQ(AmplitudeFrame().PlotBottom, 1410.0);  // 10 + 1680 * 5 / 6
  EXPECT_DOUBLE_EQ(AmplitudeFrame().LabelOffset, 48.0);   // 1680 / 35
}

TEST_F(HistogramLayoutTest, HeightAndWidthCountByThemselves) {
  LayAmplitude({0, 0, 800, 120});
  EXPECT_DOUBLE_EQ(AmplitudeFrame().PlotLeft, 100.0);
  EXPECT_DOUBLE_EQ(AmplitudeFrame().PlotRight, 700.0);
  EXPECT_DOUBLE_EQ(AmplitudeFrame().PlotTop, 20.0);
  EXPECT_DOUBLE_EQ(AmplitudeFrame().PlotBottom, 100.0);
  EXPECT_DOUBLE_EQ(AmplitudeFrame().LabelOffset, 800.0 / 35.0);
}

TEST_F(HistogramLayoutTest, ADurationPlotOfPositiveCountsIsThatOfAmplitudes) {
  duration().ConstrainPositive = true;
  LayAmplitude();
  LayDuration();
  EXPECT_EQ(DurationFrame().PlotLeft, AmplitudeFrame().PlotLeft);
  EXPECT_EQ(DurationFrame().PlotRight, AmplitudeFrame().PlotRight);
  EXPECT_EQ(DurationFrame().PlotTop, AmplitudeFrame().PlotTop);
  EXPECT_EQ(DurationFrame().PlotBottom, AmplitudeFrame().PlotBottom);
  EXPECT_EQ(DurationFrame().LabelOffset, AmplitudeFrame().LabelOffset);
}

TEST_F(HistogramLayoutTest, WithNegativeCountsTheLineOfZeroMovesToTheMiddle) {
  duration().ConstrainPositive = false;
  LayDuration();
  EXPECT_DOUBLE_EQ(DurationFrame().PlotBottom, 850.0);  // half way from 290 to 1410
  EXPECT_DOUBLE_EQ(DurationFrame().PlotTop, 290.0);
  EXPECT_DOUBLE_EQ(duration().PixelsPerYTick, 560.0 / 2.0);
}

TEST_F(HistogramLayoutTest, LayingOutAgainStartsFromTheRectangle) {
  LayDuration();
  LayDuration();
  EXPECT_DOUBLE_EQ(DurationFrame().PlotBottom, 850.0);
}

// --- Along the axis of values --------------------------------------------------------------------

TEST_F(HistogramLayoutTest, BinsShareTheWidthOfThePlot) {
  amplitude().TickMarks = 5;
  amplitude().BinsPerTick = 20;
  amplitude().PerTick = 0.5;
  LayAmplitude();
  EXPECT_DOUBLE_EQ(amplitude().PixelsPerBin, 12.6);    // 1260 / 100
  EXPECT_DOUBLE_EQ(amplitude().PixelsPerTick, 252.0);  // of 20 bins
  EXPECT_DOUBLE_EQ(amplitude().PixelsPerPa, 504.0);    // of 2 ticks
}

TEST_F(HistogramLayoutTest, DecadesShareTheWidthOfThePlot) {
  duration().Decades = 7;
  duration().BinsPerDecade = 20;
  LayDuration();
  EXPECT_DOUBLE_EQ(duration().PixelsPerBin, 9.0);  // 1260 / 140
  EXPECT_DOUBLE_EQ(duration().PixelsPerDecade, 180.0);
}

TEST_F(HistogramLayoutTest, OnTheScreenBinsAreWholePixelsWide) {
  amplitude().PerTick = 0.5;
  LayAmplitudeOnScreen(kRect);
  EXPECT_EQ(amplitude().PixelsPerBin, 12.0);
  EXPECT_EQ(amplitude().PixelsPerTick, 240.0);
  EXPECT_EQ(amplitude().PixelsPerPa, 480.0);
  LayDurationOnScreen(kRect);
  EXPECT_EQ(duration().PixelsPerBin, 12.0);
  EXPECT_EQ(duration().PixelsPerDecade, 240.0);
}

TEST_F(HistogramLayoutTest, ABinOfExactlyOnePixelStaysOnePixel) {
  amplitude().TickMarks = 63;
  LayAmplitudeOnScreen(kRect);  // 1260 bins
  EXPECT_EQ(amplitude().PixelsPerBin, 1.0);
}

TEST_F(HistogramLayoutTest, ABinBetweenOneAndTwoPixelsIsCutToOne) {
  amplitude().TickMarks = 40;
  LayAmplitudeOnScreen(kRect);  // 800 bins of 1.575
  EXPECT_EQ(amplitude().PixelsPerBin, 1.0);
  duration().Decades = 32;
  LayDurationOnScreen(kRect);  // 640 bins of 1.97
  EXPECT_EQ(duration().PixelsPerBin, 1.0);
}

TEST_F(HistogramLayoutTest, BinsThinnerThanAPixelKeepTheirWidth) {
  amplitude().TickMarks = 126;
  LayAmplitudeOnScreen(kRect);  // 2520 bins
  EXPECT_DOUBLE_EQ(amplitude().PixelsPerBin, 0.5);
  duration().Decades = 126;
  LayDurationOnScreen(kRect);
  EXPECT_DOUBLE_EQ(duration().PixelsPerBin, 0.5);
}

TEST_F(HistogramLayoutTest, AWidthThatTheBinsShareEvenlyLosesNoPixelToRounding) {
  for (std::int32_t bins = 1; bins <= 60; ++bins) {
    for (const std::int32_t left : {0, 3, 1001}) {
      amplitude().TickMarks = 1;
      amplitude().BinsPerTick = bins;
      LayAmplitudeOnScreen({left, 0, left + 4 * bins * 8, 100});  // three quarters: 24 a bin
      EXPECT_EQ(amplitude().PixelsPerBin, 24.0) << bins << " bins at " << left;
    }
  }
}

TEST_F(HistogramLayoutTest, NothingPerTickOrDecadeCountsAsOneBin) {
  amplitude().BinsPerTick = 0;
  duration().BinsPerDecade = 0;
  LayAmplitude();
  LayDuration();
  EXPECT_DOUBLE_EQ(amplitude().PixelsPerTick, amplitude().PixelsPerBin);
  EXPECT_DOUBLE_EQ(amplitude().PixelsPerBin, 252.0) << "one for each of the five ticks";
  EXPECT_DOUBLE_EQ(duration().PixelsPerDecade, duration().PixelsPerBin);
}

// --- Along the axis of counts --------------------------------------------------------------------

TEST_F(HistogramLayoutTest, TheTallestBarEndsWithinTheLastInterval) {
  amplitude().CountsPerTick = 100;
  for (const auto& [tallest, intervals] :
       {std::pair{299.0, 3.0}, {300.0, 3.0}, {301.0, 4.0}, {300.5, 4.0}}) {
    amplitude().YMaximum = tallest;
    EXPECT_DOUBLE_EQ(AmplitudeIntervals(), intervals) << tallest;
  }
  EXPECT_DOUBLE_EQ(amplitude().PixelsPerYTick, 280.0);
  EXPECT_DOUBLE_EQ(amplitude().PixelsPerCount, 2.8);
}

TEST_F(HistogramLayoutTest, TheTallestDurationBarEndsWithinTheLastIntervalToo) {
  duration().CountsPerTick = 10;
  for (const auto& [tallest, intervals] :
       {std::pair{29.0, 3.0}, {30.0, 3.0}, {31.0, 4.0}, {30.5, 4.0}}) {
    duration().YMaximum = tallest;
    EXPECT_DOUBLE_EQ(DurationIntervals(), intervals) << tallest;
  }
  EXPECT_DOUBLE_EQ(duration().PixelsPerYTick, 280.0);
  EXPECT_DOUBLE_EQ(duration().PixelsPerCount, 28.0);
}

TEST_F(HistogramLayoutTest, ThereAreAtLeastTheMinimumOfTicks) {
  amplitude().MinimumTicks = 7;
  amplitude().YMaximum = 150.0;
  EXPECT_DOUBLE_EQ(AmplitudeIntervals(), 7.0);
  amplitude().YMaximum = 0.0;
  EXPECT_DOUBLE_EQ(AmplitudeIntervals(), 7.0);
  duration().MinimumTicks = 7;
  duration().YMaximum = 15.0;
  EXPECT_DOUBLE_EQ(DurationIntervals(), 7.0);
}

TEST_F(HistogramLayoutTest, AMinimumBelowTwoCountsAsTwo) {
  for (const std::int32_t few : {1, 0, -3}) {
    amplitude().MinimumTicks = few;
    duration().MinimumTicks = few;
    EXPECT_DOUBLE_EQ(AmplitudeIntervals(), 2.0);
    EXPECT_DOUBLE_EQ(DurationIntervals(), 2.0);
  }
}

TEST_F(HistogramLayoutTest, ATallestBarBelowZeroHasTheMinimumOfTicks) {
  amplitude().CountsPerTick = 10;
  duration().CountsPerTick = 10;
  for (const double tallest : {-1.0, -10.0, -15.0, -1e9}) {
    amplitude().YMaximum = tallest;
    duration().YMaximum = tallest;
    EXPECT_DOUBLE_EQ(AmplitudeIntervals(), 2.0);
    EXPECT_DOUBLE_EQ(DurationIntervals(), 2.0);
  }
}

TEST_F(HistogramLayoutTest, NothingBetweenTicksCountsAsOneCount) {
  amplitude().YMaximum = 5.0;
  duration().YMaximum = 5.0;
  for (const std::int32_t counts : {0, -10}) {
    amplitude().CountsPerTick = counts;
    duration().CountsPerTick = counts;
    EXPECT_DOUBLE_EQ(AmplitudeIntervals(), 5.0);
    EXPECT_DOUBLE_EQ(amplitude().PixelsPerCount, amplitude().PixelsPerYTick);
    EXPECT_DOUBLE_EQ(DurationIntervals(), 5.0);
    EXPECT_DOUBLE_EQ(duration().PixelsPerCount, duration().PixelsPerYTick);
  }
}

TEST_F(HistogramLayoutTest, TheLargestSettingsGiveFiniteNumbers) {
  amplitude().MinimumTicks = std::numeric_limits<std::int32_t>::max();
  amplitude().CountsPerTick = std::numeric_limits<std::int32_t>::max();
  amplitude().TickMarks = std::numeric_limits<std::int32_t>::max();
  amplitude().BinsPerTick = std::numeric_limits<std::int32_t>::max();
  LayAmplitude();
  EXPECT_TRUE(std::isfinite(amplitude().PixelsPerPa));
  EXPECT_TRUE(std::isfinite(amplitude().PixelsPerCount));
}

TEST_F(HistogramLayoutTest, AnEmptyRectangleHasAPlotWithoutSize) {
  LayAmplitude({5, 6, 5, 6});
  LayDuration({5, 6, 5, 6});
  for (const GraphFrame& frame : {AmplitudeFrame(), DurationFrame()}) {
    EXPECT_EQ(frame.PlotLeft, 5.0);
    EXPECT_EQ(frame.PlotRight, 5.0);
    EXPECT_EQ(frame.PlotTop, 6.0);
    EXPECT_EQ(frame.PlotBottom, 6.0);
  }
  EXPECT_EQ(amplitude().PixelsPerBin, 0.0);
  EXPECT_EQ(duration().PixelsPerCount, 0.0);
}

// --- Bins ----------------------------------------------------------------------------------------

TEST_F(HistogramLayoutTest, ADurationHistogramThatIsNotCountedYetIsCounted) {
  toolkit::FreeMemory(duration().Bins);
  duration().Bins = nullptr;
  FillLevels(1, [](LevelRecord& level, std::int32_t) { level.Duration = 0.01; });
  LayDuration();
  ASSERT_NE(duration().Bins, nullptr);
  EXPECT_EQ(duration().EventsInHistogram, 1);
  EXPECT_EQ(duration().YMaximum, 1.0);
  EXPECT_DOUBLE_EQ(DurationIntervals(), 2.0);
}

TEST_F(HistogramLayoutTest, TheCountsOfAFreshCountAreLaidOutAtOnce) {
  toolkit::FreeMemory(duration().Bins);
  duration().Bins = nullptr;
  duration().ConstrainPositive = true;
  duration().CountsPerTick = 1;
  FillLevels(4, [](LevelRecord& level, std::int32_t) { level.Duration = 0.01; });
  LayDuration();
  EXPECT_DOUBLE_EQ(duration().PixelsPerYTick, 280.0);  // 4 intervals, not the minimum of 2
}

TEST_F(HistogramLayoutTest, CountedHistogramsAreLeftAlone) {
  BinRecord* const bins = duration().Bins;
  FillLevels(1, [](LevelRecord& level, std::int32_t) { level.Duration = 0.01; });
  LayDuration();
  EXPECT_EQ(duration().Bins, bins);
  EXPECT_EQ(duration().EventsInHistogram, 0);
}

TEST_F(HistogramLayoutTest, AnAmplitudeHistogramIsNeverCountedHere) {
  LayAmplitude();
  EXPECT_EQ(amplitude().Bins, nullptr);
}

TEST_F(HistogramLayoutTest, WithoutMemoryForBinsTheUserIsToldAndTheLayoutStands) {
  toolkit::FreeMemory(duration().Bins);
  duration().Bins = nullptr;
  shell().Allocation = {.Next = 1, .Lasting = true};
  LayDuration();
  shell().Allocation = {};
  EXPECT_EQ(Messages().size(), std::size_t{1});
  EXPECT_DOUBLE_EQ(duration().PixelsPerBin, 12.6);
  EXPECT_DOUBLE_EQ(duration().PixelsPerYTick, 280.0);
}

TEST_F(HistogramLayoutTest, NothingIsDrawn) {
  LayAmplitude();
  LayDuration();
  EXPECT_THAT(Lines(), IsEmpty());
}

}  // namespace
}  // namespace ondrel
