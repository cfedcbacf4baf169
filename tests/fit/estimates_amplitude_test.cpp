// Estimates of amplitudes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "fit/estimates_fixture.h"

namespace ondrel::estimates {
namespace {

using ::testing::ElementsAre;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

class AmplitudeEstimatesTest : public ::testing::Test {
 protected:
  AmplitudeEstimatesTest() {
    Fill(histogram_, {10.0, 20.0}, {0, 1});
    term() = {.Weight = 0.5, .Current = 0.3, .StdDev = 0.25, .Area = 40.0};
  }

  AmplitudeTerm& term() { return histogram_.Terms[1]; }

  void ExpectUntouched() {
    EXPECT_EQ(term().Current, 0.3);
    EXPECT_EQ(term().StdDev, 0.25);
    EXPECT_EQ(term().Area, 40.0);
    EXPECT_EQ(histogram_.TermCount, 2);
    EXPECT_EQ(histogram_.MarkerCount, 2);
    EXPECT_EQ(histogram_.Terms[0].Weight, 99.0);
  }

  AmplitudeHistogram histogram_ = SomeAmplitude();
};

TEST_F(AmplitudeEstimatesTest, ANewTermStandsWhereTheMouseIsAndIsOneTickWide) {
  AddTerm(histogram_, kFrame, 240.0);
  const AmplitudeTerm& added = histogram_.Terms[2];
  EXPECT_EQ(added.Weight, 0.0);
  EXPECT_EQ(added.Current, -0.5);
  EXPECT_EQ(added.StdDev, 0.5);
  EXPECT_EQ(added.Area, 0.0);
}

TEST_F(AmplitudeEstimatesTest, ANewTermsWidthHasTheSameMarkerAsItsPeak) {
  AddTerm(histogram_, kFrame, 240.0);
  EXPECT_THAT(Places(histogram_.WidthMarkers, histogram_.MarkerCount),
              ElementsAre(Mark(200, 0), Mark(201, 1), Mark(0, 2)));
}

TEST_F(AmplitudeEstimatesTest, ARemovedTermTakesTheMarkerOfItsWidth) {
  Fill(histogram_, {1.0, 2.0, 4.0, 8.0}, {0, 2, 3});
  RemoveTerm(histogram_, 1);
  EXPECT_THAT(Places(histogram_.WidthMarkers, histogram_.MarkerCount),
              ElementsAre(Mark(200, 0), Mark(203, 2)));
}

TEST_F(AmplitudeEstimatesTest, AMovedPeakKeepsItsWidthOnALinearAxis) {
  MovePeak(histogram_, kFrame, 1, 400.5, 100.0);
  ExpectSame(term().Current, 320.5L / 160.0L - 1.5L);
  EXPECT_EQ(term().StdDev, 0.25);
  // 125 counts in bins of 0.05 pA.
  ExpectSame(term().Area, 125.0L * std::sqrt(6.283185307178L) * 0.25L / 0.05L);
}

TEST_F(AmplitudeEstimatesTest, AMovedPeakKeepsItsWidthOnASquareRootAxis) {
  histogram_.SquareRootAxis = true;
  MovePeak(histogram_, kFrame, 1, 400.5, 40.0625);
  ExpectSame(term().Current, 320.5L / 160.0L - 1.5L);
  EXPECT_EQ(term().StdDev, 0.25);
  // A quarter of the plot stands for a sixteenth of the 144 counts.
  ExpectSame(term().Area, 9.0L * std::sqrt(6.283185307178L) * 0.25L / 0.05L);
}

TEST_F(AmplitudeEstimatesTest, APeakGoesWhereItIsDrawn) {
  for (const bool root : {false, true}) {
    histogram_.SquareRootAxis = root;
    MovePeak(histogram_, kFrame, 1, 333.0, 77.25);
    EXPECT_NEAR(PeakOf(histogram_, kFrame, term()).X, 333.0, 1e-9);
    EXPECT_NEAR(PeakOf(histogram_, kFrame, term()).Y, 123.0, 1e-9);
  }
}

TEST_F(AmplitudeEstimatesTest, AWiderTermKeepsTheHeightOfItsPeak) {
  const Peak before = PeakOf(histogram_, kFrame, term());
  const double barEnd = before.X + 0.4 * 1.5 * 160.0 / 2.0;
  MoveWidth(histogram_, kFrame, 1, barEnd);
  ExpectSame(term().StdDev, 0.4L);
  ExpectSame(term().Area, 40.0L / 0.25L * 0.4L);
  EXPECT_EQ(term().Current, 0.3);
  EXPECT_NEAR(PeakOf(histogram_, kFrame, term()).Y, before.Y, 1e-9);
  ExpectSame(histogram_.Terms[1].Weight, 64.0L / 74.0L);
}

TEST_F(AmplitudeEstimatesTest, AnEmptyHistogramOnASquareRootAxisGivesNoArea) {
  histogram_.SquareRootAxis = true;
  histogram_.YMaximum = 0.0;
  MovePeak(histogram_, kFrame, 1, 400.0, 50.0);
  EXPECT_EQ(term().Area, 0.0);
}

TEST_F(AmplitudeEstimatesTest, AWindowWithoutWidthChangesNothing) {
  histogram_.PixelsPerPa = 0.0;
  const GraphFrame narrow = {
      .PlotLeft = 80.0, .PlotRight = 80.0, .PlotTop = 40.0, .PlotBottom = 200.0};
  for (const double x : {80.0, 81.0, 79.0}) {
    AddTerm(histogram_, narrow, x);
    MovePeak(histogram_, narrow, 1, x, 10.0);
    MoveWidth(histogram_, narrow, 1, x);
  }
  ExpectUntouched();
}

TEST_F(AmplitudeEstimatesTest, AWindowWithoutHeightChangesNothing) {
  histogram_.PixelsPerCount = 0.0;
  const GraphFrame flat = {
      .PlotLeft = 80.0, .PlotRight = 560.0, .PlotTop = 40.0, .PlotBottom = 40.0};
  for (const bool root : {false, true}) {
    histogram_.SquareRootAxis = root;
    for (const double rise : {0.0, 5.0}) MovePeak(histogram_, flat, 1, 100.0, rise);
  }
  ExpectUntouched();
}

TEST_F(AmplitudeEstimatesTest, AWidthIsAboveZero) {
  const double x = PeakOf(histogram_, kFrame, term()).X;
  for (const double end : {x - 1.0, x - 1e-9, kNaN}) MoveWidth(histogram_, kFrame, 1, end);
  ExpectUntouched();
}

TEST_F(AmplitudeEstimatesTest, TheHeightOfATermWithoutWidthCannotBeKept) {
  term().StdDev = 0.0;
  MoveWidth(histogram_, kFrame, 1, 500.0);
  EXPECT_EQ(term().StdDev, 0.0);
  EXPECT_EQ(term().Area, 40.0);
}

TEST_F(AmplitudeEstimatesTest, AWorkBeginsOnePicoampereAboveTheAxis) {
  ResetFirstTerm(histogram_);
  EXPECT_EQ(histogram_.Terms[0].Current, -0.5);
  EXPECT_EQ(histogram_.Terms[0].StdDev, 0.5);
  EXPECT_EQ(histogram_.TermCount, 2);
}

}  // namespace
}  // namespace ondrel::estimates
