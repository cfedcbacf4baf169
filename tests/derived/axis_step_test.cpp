#include "derived/axis_step.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

#include "support/random_seed.h"

namespace ondrel {
namespace {

/// Up to here, either way, powers are the reals nearest to them with every runtime.
constexpr int kLastExactPower = 22;

/// `digit` times a power of ten, as the text says it.
double Decimal(int digit, int exponent) {
  return std::strtod((std::to_string(digit) + "e" + std::to_string(exponent)).c_str(), nullptr);
}

double JustBelow(double value) {
  return value * (1.0 - 1e-6);
}
double JustAbove(double value) {
  return value * (1.0 + 1e-6);
}

TEST(AxisStepTest, FromOneOnItIsTheLargestOfOneTwoAndFiveThatIsNotAbove) {
  EXPECT_EQ(AxisStep(1.0), 1.0);
  EXPECT_EQ(AxisStep(1.99), 1.0);
  EXPECT_EQ(AxisStep(2.0), 2.0);
  EXPECT_EQ(AxisStep(4.99), 2.0);
  EXPECT_EQ(AxisStep(5.0), 5.0);
  EXPECT_EQ(AxisStep(9.99), 5.0);
  EXPECT_EQ(AxisStep(10.0), 10.0);
  EXPECT_EQ(AxisStep(17.0), 10.0);
  EXPECT_EQ(AxisStep(20.0), 20.0);
  EXPECT_EQ(AxisStep(100.0 / 5.0), 20.0);
  EXPECT_EQ(AxisStep(49.0), 20.0);
  EXPECT_EQ(AxisStep(50.0), 50.0);
  EXPECT_EQ(AxisStep(99.9), 50.0);
  EXPECT_EQ(AxisStep(100.0), 100.0);
  EXPECT_EQ(AxisStep(999.9), 500.0);
  EXPECT_EQ(AxisStep(1000.0), 1000.0);
  EXPECT_EQ(AxisStep(123456.0), 100000.0);
}

TEST(AxisStepTest, BelowOneTheExponentIsCutTowardZeroSoThatItIsThePowerNotBelow) {
  EXPECT_EQ(AxisStep(0.999), 1.0);
  EXPECT_EQ(AxisStep(0.5), 1.0);
  EXPECT_EQ(AxisStep(0.2), 1.0);
  EXPECT_EQ(AxisStep(0.11), 1.0);
  EXPECT_EQ(AxisStep(0.1), 0.1);
  EXPECT_EQ(AxisStep(0.06), 0.1);
  EXPECT_EQ(AxisStep(0.011), 0.1);
  EXPECT_EQ(AxisStep(0.01), 0.01);
  EXPECT_EQ(AxisStep(0.005), 0.01);
  EXPECT_EQ(AxisStep(0.0002), 0.001);
  EXPECT_EQ(AxisStep(1e-12), 1e-12);
  EXPECT_EQ(AxisStep(2e-12), 1e-11);
  EXPECT_EQ(AxisStep(5e-12), 1e-11);
  EXPECT_EQ(AxisStep(9.99e-13), 1e-12);
}

TEST(AxisStepTest, APowerIsItsOwnStepWhateverTheRuntimesLogarithmSays) {
  for (int e = -kLastExactPower; e <= kLastExactPower; ++e) {
    EXPECT_EQ(AxisStep(Decimal(1, e)), Decimal(1, e)) << e;
  }
}

TEST(AxisStepTest, FromOneOnAStepBeginsAtItsNumber) {
  for (int e = 0; e <= kLastExactPower; ++e) {
    const double one = Decimal(1, e);
    const double two = Decimal(2, e);
    const double five = Decimal(5, e);
    EXPECT_EQ(AxisStep(JustBelow(one)), e == 0 ? 1.0 : Decimal(5, e - 1)) << e;
    EXPECT_EQ(AxisStep(JustAbove(one)), one) << e;
    EXPECT_EQ(AxisStep(JustBelow(two)), one) << e;
    EXPECT_EQ(AxisStep(two), two) << e;
    EXPECT_EQ(AxisStep(JustAbove(two)), two) << e;
    EXPECT_EQ(AxisStep(JustBelow(five)), two) << e;
    EXPECT_EQ(AxisStep(five), five) << e;
    EXPECT_EQ(AxisStep(JustAbove(five)), five) << e;
  }
}

TEST(AxisStepTest, BelowOneAStepEndsAtItsPower) {
  for (int e = -kLastExactPower; e < 0; ++e) {
    const double power = Decimal(1, e);
    const double next = Decimal(1, e + 1);
    EXPECT_EQ(AxisStep(JustBelow(power)), power) << e;
    EXPECT_EQ(AxisStep(JustAbove(power)), next) << e;
    EXPECT_EQ(AxisStep(Decimal(2, e)), next) << e;
    EXPECT_EQ(AxisStep(Decimal(5, e)), next) << e;
    EXPECT_EQ(AxisStep(JustBelow(next)), next) << e;
  }
}

TEST(AxisStepTest, WhatRoundingMovedOffAStepStillStandsOnIt) {
  EXPECT_GT(5e-6 / 5.0, 1e-6);
  EXPECT_EQ(AxisStep(5e-6 / 5.0), 1e-6);
  EXPECT_GT(0.3 / 3.0 + 1e-16, 0.1);
  EXPECT_EQ(AxisStep((0.4 - 0.1) / 3.0 + 1e-16), 0.1);
  for (const double sign : {-1.0, 1.0}) {
    for (int e = -kLastExactPower; e <= kLastExactPower; ++e) {
      EXPECT_EQ(AxisStep(Decimal(1, e) * (1.0 + sign * 1e-10)), Decimal(1, e)) << e;
    }
    for (int e = 0; e <= kLastExactPower; ++e) {
      EXPECT_EQ(AxisStep(Decimal(2, e) * (1.0 + sign * 1e-10)), Decimal(2, e)) << e;
      EXPECT_EQ(AxisStep(Decimal(5, e) * (1.0 + sign * 1e-10)), Decimal(5, e)) << e;
    }
  }
}

/// The step read off the digits of `size`.
double StepFromDigits(double size) {
  char text[40] = "";
  std::snprintf(text, sizeof text, "%.17e", size);
  const int exponent = std::atoi(std::string(text).substr(std::string(text).find('e') + 1).c_str());
  if (size < 1.0) return Decimal(1, size == Decimal(1, exponent) ? exponent : exponent + 1);
  const int digit = text[0] - '0';
  return Decimal(digit >= 5 ? 5 : (digit >= 2 ? 2 : 1), exponent);
}

TEST(AxisStepTest, AnySizeHasTheStepThatItsDigitsTell) {
  std::mt19937_64 random(RandomSeed());
  std::uniform_real_distribution<double> exponents(-20.0, 20.0);
  for (int i = 0; i < 20000; ++i) {
    const double size = std::pow(10.0, exponents(random));
    EXPECT_EQ(AxisStep(size), StepFromDigits(size)) << size;
  }
}

TEST(AxisStepTest, SizesBeyondExactPowersHaveTheirStepTooButForRounding) {
  for (const int e : {23, 100, 300, 307}) {
    for (const int digit : {1, 2, 5}) {
      const double step = Decimal(digit, e);
      EXPECT_NEAR(AxisStep(1.3 * step) / step, 1.0, 1e-12) << step;
    }
  }
  for (const int e : {-23, -100, -300}) {
    const double step = Decimal(1, e);
    EXPECT_NEAR(AxisStep(0.3 * step) / step, 1.0, 1e-12) << step;
  }
}

TEST(AxisStepTest, TheEndsOfTheRangeHaveFiniteSteps) {
  EXPECT_NEAR(AxisStep(std::numeric_limits<double>::max()) / 1e308, 1.0, 1e-12);
  const double smallest = AxisStep(std::numeric_limits<double>::denorm_min());
  EXPECT_GT(smallest, 0.0);
  EXPECT_LT(smallest, 1e-322);
}

}  // namespace
}  // namespace ondrel
