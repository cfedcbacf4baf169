#include <gtest/gtest.h>

#include <cmath>

#include "derived/stationarity_fixture.h"

namespace ondrel {
namespace {

class TimeAxisTest : public StationarityTest {
 protected:
  void Scale(double shortestSweep, double width) {
    plot().ShortestSweep = shortestSweep;
    ScaleTimeAxis(plot(), width, device());
  }

  void ExpectAxis(double spacing, double pixels, std::int32_t decimals) {
    EXPECT_EQ(plot().TickSpacing, spacing);
    EXPECT_DOUBLE_EQ(plot().TickPixels, pixels);
    EXPECT_EQ(plot().TimeDecimals, decimals);
  }
};

TEST_F(TimeAxisTest, AFifthOfTheShortestSweepGivesTheStep) {
  Scale(10.0, 1000.0);
  ExpectAxis(2.0, 200.0, 3);
  Scale(9.999, 1000.0);  // a fifth is just below 2
  ExpectAxis(1.0, 100.0, 3);
  Scale(25.0, 1000.0);
  ExpectAxis(5.0, 200.0, 3);
  Scale(5.0, 1000.0);
  ExpectAxis(1.0, 200.0, 3);
}

TEST_F(TimeAxisTest, ARestBehindTheLastWholeTickHasATickMore) {
  Scale(11.0, 1200.0);
  ExpectAxis(2.0, 200.0, 3);  // 5 and a half ticks
  Scale(12.0, 1200.0);
  ExpectAxis(2.0, 200.0, 3);
  Scale(12.000001, 1400.0);
  ExpectAxis(2.0, 200.0, 3);
}

TEST_F(TimeAxisTest, BelowFiveSecondsTheStepIsAPowerOfTenNotBelowTheFifth) {
  Scale(0.3, 300.0);  // 0.06; three tenths are 2.9999999999999996 tenths
  ExpectAxis(0.1, 100.0, 3);
  Scale(0.5, 500.0);
  ExpectAxis(0.1, 100.0, 3);
  Scale(0.05, 500.0);
  ExpectAxis(0.01, 100.0, 3);
  Scale(3.0, 300.0);
  ExpectAxis(1.0, 100.0, 3);
}

TEST_F(TimeAxisTest, RoundingAddsNoTick) {
  Scale(0.3, 300.0);
  ASSERT_GT(3 * plot().TickSpacing, 0.3);
  EXPECT_DOUBLE_EQ(plot().TickPixels, 100.0);
  Scale(std::nextafter(10.0, 11.0), 1000.0);
  ExpectAxis(2.0, 200.0, 3);
}

TEST_F(TimeAxisTest, ASweepShorterThanAStepHasOneTick) {
  Scale(0.6, 300.0);
  ExpectAxis(1.0, 300.0, 3);
}

TEST_F(TimeAxisTest, WithoutASelectedSweepTheStepIsOne) {
  Scale(0.0, 1000.0);
  EXPECT_EQ(plot().TickSpacing, 1.0);
  EXPECT_EQ(plot().TimeDecimals, 3);
  plot().Tau = 0.1;
  EXPECT_TRUE(SampleStationarity(workspace()));
  EXPECT_EQ(plot().SampleCount, 0);
}

TEST_F(TimeAxisTest, APlotOfNoWidthHasTicksOfNone) {
  Scale(10.0, 0.0);
  ExpectAxis(4.0, 0.0, 3);
  Scale(0.0, 0.0);
  ExpectAxis(2.0, 0.0, 3);
}

TEST_F(TimeAxisTest, StepsFromTenSecondsOnNeedNoDecimals) {
  Scale(50.0, 1000.0);
  ExpectAxis(10.0, 200.0, 0);
  Scale(49.9, 1000.0);
  ExpectAxis(5.0, 100.0, 3);
  Scale(100.0, 1000.0);
  ExpectAxis(20.0, 200.0, 0);
}

TEST_F(TimeAxisTest, ANumberNarrowerThanATickStays) {
  Scale(30.0, 180.6);  // "30.000" is 30 wide and a tick 30.1
  ExpectAxis(5.0, 30.1, 3);
}

TEST_F(TimeAxisTest, ANumberExactlyAsWideAsATickHalvesTheTicks) {
  Scale(20.0, 300.0);  // "20.000" is 30 wide, as each of the ten ticks
  ExpectAxis(4.0, 60.0, 3);
}

TEST_F(TimeAxisTest, TheDecimalsAreChosenBeforeTheStepDoubles) {
  Scale(30.0, 180.0);
  ExpectAxis(10.0, 60.0, 3);
}

TEST_F(TimeAxisTest, AnOddNumberOfTicksIsHalvedUpward) {
  Scale(9.0, 225.0);  // nine ticks, and "9.000" is 25 wide
  ExpectAxis(2.0, 45.0, 3);
}

TEST_F(TimeAxisTest, OneTickRemainsAtLeast) {
  Scale(0.6, 25.0);  // "1.000"
  ExpectAxis(2.0, 25.0, 3);
  Scale(0.6, 1.0);
  ExpectAxis(2.0, 1.0, 3);
}

TEST_F(TimeAxisTest, TicksAreHalvedOnceHoweverNarrowTheyAre) {
  Scale(30.0, 6.0);
  ExpectAxis(10.0, 2.0, 3);
}

TEST_F(TimeAxisTest, TheNumberIsMeasuredWithItsDecimals) {
  Scale(50.0, 55.0);  // "50" is 10 wide
  ExpectAxis(10.0, 11.0, 0);
  Scale(50.0, 50.0);
  ExpectAxis(20.0, 50.0 / 3.0, 0);
}

TEST_F(TimeAxisTest, TheNumberIsThatOfTheEndOfTheAxisNotOfTheSweep) {
  Scale(99.0, 140.0);  // ten ticks of 14, up to "100", which is 15 wide
  ExpectAxis(20.0, 28.0, 0);
}

TEST_F(TimeAxisTest, TheNumberIsMeasuredInTheFontOfTheDevice) {
  Scale(10.0, 200.0);  // "10.000" is 30 wide
  ExpectAxis(2.0, 40.0, 3);
  toolkit::SetUpDevice(device());
  toolkit::SetFontHeight(device(), 14);  // now it is 42 wide
  Scale(10.0, 200.0);
  ExpectAxis(4.0, 200.0 / 3.0, 3);
  toolkit::CleanUpDevice(device());
}

// --- Values --------------------------------------------------------------------------------------

class ValueAxisTest : public StationarityTest {
 protected:
  static constexpr double kHeight = 400.0;

  void Scale(double lowest, double highest, double height = kHeight) {
    plot().ValueMin = lowest;
    plot().ValueMax = highest;
    ScaleValueAxis(plot(), height);
    EXPECT_EQ(plot().ValueMax, highest) << "stays";
  }

  void ExpectAxis(double start, double tick, double pixels) {
    EXPECT_EQ(plot().ValueMin, start);
    EXPECT_EQ(plot().ValueTick, tick);
    EXPECT_EQ(plot().ValueTickPixels, pixels);
  }
};

TEST_F(ValueAxisTest, AThirdOfTheSpreadGivesTheStep) {
  Scale(0.0, 6.0);
  ExpectAxis(0.0, 2.0, 133.0);
  Scale(0.0, 5.9);
  ExpectAxis(0.0, 1.0, 66.0);  // six ticks
  Scale(0.0, 15.0);
  ExpectAxis(0.0, 5.0, 133.0);
  Scale(0.0, 30.0);
  ExpectAxis(0.0, 10.0, 133.0);
}

TEST_F(ValueAxisTest, ALowestValueAboveZeroGoesDownToItsTick) {
  Scale(1.0, 10.0);  // a third of 9
  ExpectAxis(0.0, 2.0, 80.0);
  Scale(4.5, 12.0);  // a third of 7.5 is 2.5
  ExpectAxis(4.0, 2.0, 100.0);
  Scale(4.0, 10.0);
  ExpectAxis(4.0, 2.0, 133.0);
}

TEST_F(ValueAxisTest, ANegativeLowestValueOnATickStays) {
  Scale(-2.0, 4.0);
  ExpectAxis(-2.0, 2.0, 133.0);
  Scale(-6.0, 0.0);
  ExpectAxis(-6.0, 2.0, 133.0);
}

TEST_F(ValueAxisTest, ANegativeLowestValueBetweenTicksGoesDownToTheNext) {
  Scale(-1.5, 4.5);
  ExpectAxis(-2.0, 2.0, 100.0);  // 6.5 are three ticks and a quarter
  Scale(-7.0, -1.0);
  ExpectAxis(-8.0, 2.0, 100.0);
}

TEST_F(ValueAxisTest, ProbabilitiesHaveTheTickOne) {
  Scale(0.1, 1.0);
  ExpectAxis(0.0, 1.0, 400.0);
  Scale(0.55, 0.95);
  ExpectAxis(0.0, 1.0, 400.0);
  Scale(0.01, 0.3);  // a third is 0.097
  ExpectAxis(0.0, 0.1, 133.0);
}

TEST_F(ValueAxisTest, ASpreadOfATenthOfTheValuesIsLittle) {
  Scale(9.0, 10.0);
  ExpectAxis(0.0, 10.0, 400.0);
  Scale(8.9, 10.0);  // more than a tenth: a third is 0.37
  ExpectAxis(8.0, 1.0, 200.0);
}

TEST_F(ValueAxisTest, ASpreadOfATenthButForRoundingIsLittleToo) {
  ASSERT_GT(2e-9 - 1.8e-9, 0.1 * 2e-9);
  Scale(1.8e-9, 2e-9);
  ExpectAxis(0.0, 1e-8, 400.0);
}

TEST_F(ValueAxisTest, TheTenthIsOneOfTheLargerMagnitude) {
  Scale(-10.0, -9.0);
  ExpectAxis(-10.0, 5.0, 400.0);
  Scale(-10.0, -8.9);
  ExpectAxis(-10.0, 1.0, 200.0);
}

TEST_F(ValueAxisTest, LittleSpreadTakesTheStepFromTheHighestValue) {
  Scale(47.0, 50.5);
  ExpectAxis(0.0, 50.0, 200.0);  // one tick and a bit: two
  Scale(29.5, 30.0);
  ExpectAxis(20.0, 20.0, 400.0);
}

TEST_F(ValueAxisTest, ValuesThatAreAllTheSameHaveOneTick) {
  Scale(5.0, 5.0);
  ExpectAxis(5.0, 5.0, 400.0);
  Scale(1.0, 1.0);
  ExpectAxis(1.0, 1.0, 400.0);
  Scale(0.7, 0.7);
  ExpectAxis(0.0, 1.0, 400.0);
  Scale(7.0, 7.0);
  ExpectAxis(5.0, 5.0, 400.0);
}

TEST_F(ValueAxisTest, ValuesThatAreAllZeroHaveTheTickOne) {
  Scale(0.0, 0.0);
  ExpectAxis(0.0, 1.0, 400.0);
  Scale(-0.0, -0.0);
  ExpectAxis(0.0, 1.0, 400.0);
  EXPECT_FALSE(std::signbit(plot().ValueMin));
}

TEST_F(ValueAxisTest, AHighestValueOfZeroAboveNegativeOnesHasASpread) {
  Scale(-5.0, 0.0);
  ExpectAxis(-5.0, 1.0, 80.0);
}

TEST_F(ValueAxisTest, NegativeValuesOfLittleSpreadTakeTheStepFromTheMagnitude) {
  Scale(-10.0, -9.5);
  ExpectAxis(-10.0, 5.0, 400.0);
  Scale(-10.2, -9.8);
  ExpectAxis(-15.0, 5.0, 200.0);
  Scale(-25.0, -25.0);
  ExpectAxis(-40.0, 20.0, 400.0);
}

TEST_F(ValueAxisTest, CurrentsInAmperesHaveStepsOfTheirOwnSize) {
  Scale(-5e-12, 0.0);  // a third is below a power, so that the step is that power
  ExpectAxis(-1e-11, 1e-11, 400.0);
  Scale(1e-12, 1e-12);
  ExpectAxis(1e-12, 1e-12, 400.0);
}

TEST_F(ValueAxisTest, RoundingAddsNoTick) {
  Scale(std::nextafter(1.0, 0.0), std::nextafter(1.0, 2.0));
  ExpectAxis(1.0, 1.0, 400.0);
  Scale(0.0, std::nextafter(6.0, 7.0));
  ExpectAxis(0.0, 2.0, 133.0);
  Scale(std::nextafter(-2.0, -3.0), 4.0);
  ExpectAxis(-2.0, 2.0, 133.0);
  Scale(-2.001, 4.0);
  ExpectAxis(-4.0, 2.0, 100.0);
  Scale(0.0, 6.001);
  ExpectAxis(0.0, 2.0, 100.0);
}

TEST_F(ValueAxisTest, ATickIsAWholeNumberOfDeviceUnitsHigh) {
  Scale(0.0, 6.0, 401.9);
  ExpectAxis(0.0, 2.0, 133.0);
  Scale(0.0, 6.0, 402.0 - 1e-9);  // 134 but for rounding
  ExpectAxis(0.0, 2.0, 134.0);
  Scale(0.0, 6.0, 2.9);
  ExpectAxis(0.0, 2.0, 0.0);
}

}  // namespace
}  // namespace ondrel
