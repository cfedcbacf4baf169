// Estimates of durations.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "fit/estimates_fixture.h"

namespace ondrel::estimates {
namespace {

class DurationEstimatesTest : public ::testing::Test {
 protected:
  DurationEstimatesTest() {
    Fill(histogram_, {10.0, 20.0}, {0, 1});
    term() = {.Weight = 0.5, .TimeConstant = 0.003, .Area = 40.0};
  }

  DurationTerm& term() { return histogram_.Terms[1]; }

  void ExpectUntouched() {
    EXPECT_EQ(term().TimeConstant, 0.003);
    EXPECT_EQ(term().Area, 40.0);
    EXPECT_EQ(histogram_.TermCount, 2);
    EXPECT_EQ(histogram_.MarkerCount, 2);
    EXPECT_EQ(histogram_.Terms[0].Weight, 99.0);
  }

  DurationHistogram histogram_ = SomeDuration();
};

TEST_F(DurationEstimatesTest, ANewTermStandsWhereTheMouseIs) {
  AddTerm(histogram_, kFrame, 80.0 + 96.0 * 1.5);
  const DurationTerm& added = histogram_.Terms[2];
  EXPECT_EQ(added.Weight, 0.0);
  ExpectSame(added.TimeConstant, std::pow(10.0L, -2.5L));
  EXPECT_EQ(added.Area, 0.0);
}

TEST_F(DurationEstimatesTest, AMovedPeakOnALinearAxis) {
  MovePeak(histogram_, kFrame, 1, 80.0 + 96.0 * 2.25, 50.0);
  ExpectSame(term().TimeConstant, std::pow(10.0L, -1.75L));
  // 20 counts in bins of an eighth of a decade.
  ExpectSame(term().Area,
             20.0L * std::numbers::e_v<long double> * 8.0L / std::numbers::ln10_v<long double>);
}

TEST_F(DurationEstimatesTest, AMovedPeakOnASquareRootAxis) {
  histogram_.SquareRootAxis = true;
  MovePeak(histogram_, kFrame, 1, 80.0 + 96.0 * 2.25, 80.125);
  // Half the plot stands for a quarter of the 49 counts.
  const long double area =
      49.0L / 4.0L * std::numbers::e_v<long double> * 8.0L / std::numbers::ln10_v<long double>;
  ExpectSame(term().Area, area);
  MovePeak(histogram_, kFrame, 1, 80.0 + 96.0 * 2.25, -80.125);
  ExpectSame(term().Area, -area);
}

TEST_F(DurationEstimatesTest, APeakGoesWhereItIsDrawnAboveAndBelowTheAxis) {
  for (const bool root : {false, true}) {
    histogram_.SquareRootAxis = root;
    for (const double rise : {77.25, -33.5}) {
      MovePeak(histogram_, kFrame, 1, 333.0, rise);
      EXPECT_NEAR(PeakOf(histogram_, kFrame, term()).X, 333.0, 1e-9);
      EXPECT_NEAR(PeakOf(histogram_, kFrame, term()).Y, 200.25 - rise, 1e-9);
      EXPECT_EQ(std::signbit(term().Area), rise < 0.0);
    }
  }
}

TEST_F(DurationEstimatesTest, WithoutAreaAPeakStandsOnTheAxisEvenWithoutCounts) {
  histogram_.SquareRootAxis = true;
  histogram_.YMaximum = 0.0;
  term().Area = 0.0;
  EXPECT_EQ(PeakY(histogram_, kFrame, term()), kFrame.PlotBottom);
}

TEST_F(DurationEstimatesTest, AWindowWithoutWidthChangesNothing) {
  histogram_.PixelsPerDecade = 0.0;
  const GraphFrame narrow = {
      .PlotLeft = 80.0, .PlotRight = 80.0, .PlotTop = 40.0, .PlotBottom = 200.0};
  for (const double x : {80.0, 81.0, 79.0}) {
    AddTerm(histogram_, narrow, x);
    MovePeak(histogram_, narrow, 1, x, 10.0);
  }
  ExpectUntouched();
}

TEST_F(DurationEstimatesTest, AWindowWithoutHeightChangesNothing) {
  histogram_.PixelsPerCount = 0.0;
  const GraphFrame flat = {
      .PlotLeft = 80.0, .PlotRight = 560.0, .PlotTop = 40.0, .PlotBottom = 40.0};
  for (const bool root : {false, true}) {
    histogram_.SquareRootAxis = root;
    for (const double rise : {0.0, 5.0}) MovePeak(histogram_, flat, 1, 100.0, rise);
  }
  ExpectUntouched();
}

TEST_F(DurationEstimatesTest, AWorkBeginsOneDecadeAboveTheAxis) {
  ResetFirstTerm(histogram_);
  ExpectSame(histogram_.Terms[0].TimeConstant, 0.001L);
  EXPECT_EQ(histogram_.TermCount, 2);
}

}  // namespace
}  // namespace ondrel::estimates
