#include "fit/error_function.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "fit/elementary.h"

namespace ondrel {
namespace {

TEST(ComplementaryErfTest, ItHasTheValuesOfTheTables) {
  EXPECT_NEAR(ComplementaryErf(0.5), 0.479500122186953462, 1e-15);
  EXPECT_NEAR(ComplementaryErf(1.0), 0.157299207050285131, 1e-15);
  EXPECT_NEAR(ComplementaryErf(2.0), 4.67773498104726584e-3, 5e-16);
  EXPECT_NEAR(ComplementaryErf(3.0), 2.20904969985854414e-5, 1e-16);
  EXPECT_NEAR(ComplementaryErf(5.0), 1.53745979442803485e-12, 1e-20);
  EXPECT_NEAR(ComplementaryErf(-1.0), 1.84270079294971487, 1e-15);
}

TEST(ComplementaryErfTest, ItIsOneAtZero) {
  EXPECT_EQ(ComplementaryErf(0.0), 1.0);
  EXPECT_EQ(ComplementaryErf(-0.0), 1.0);
}

TEST(ComplementaryErfTest, ItAgreesWithTheLibraryOnBothSides) {
  for (double x = -8.0; x < 8.0; x += 0.00173) {
    const auto expected = static_cast<double>(std::erfc(static_cast<long double>(x)));
    EXPECT_NEAR(ComplementaryErf(x), expected, 5e-16) << x;
  }
}

TEST(ComplementaryErfTest, FarOutItsLeadingDigitsAreTrue) {
  for (double x = 2.0; x < 26.0; x += 0.0173) {
    const auto expected = static_cast<double>(std::erfc(static_cast<long double>(x)));
    EXPECT_NEAR(ComplementaryErf(x) / expected, 1.0, 4e-6) << x;
  }
}

TEST(ComplementaryErfTest, EachConstantIsUsedAsItStands) {
  for (double a = 0.0; a < 9.0; a += 0.00173) {
    const double n =
        (((((0.5641999455982575 * a + 7.923929828741545) * a + 50.991697628253206) * a +
           191.84014058796686) *
              a +
          448.3171659914834) *
             a +
         625.686535769683) *
            a +
        440.4137358247522;
    const double d =
        ((((((a + 14.045337305461139) * a + 90.87271120353704) * a + 347.12292881178433) * a +
           838.8103654784064) *
              a +
          1274.6672667576622) *
             a +
         1122.6402201770466) *
            a +
        440.4137358247522;
    EXPECT_EQ(ComplementaryErf(a), Exp(-(a * a)) * n / d) << a;
  }
}

TEST(ComplementaryErfTest, TheLeftSideIsTwoLessTheRight) {
  for (double x = 0.01; x < 7.0; x += 0.137) {
    EXPECT_EQ(ComplementaryErf(-x), 2.0 - ComplementaryErf(x)) << x;
  }
}

TEST(ComplementaryErfTest, FarAwayItIsNoneOrTwo) {
  EXPECT_EQ(ComplementaryErf(30.0), 0.0);
  EXPECT_EQ(ComplementaryErf(-30.0), 2.0);
  EXPECT_EQ(ComplementaryErf(1e30), 0.0);
}

TEST(ComplementaryErfTest, NotANumberStaysOne) {
  EXPECT_TRUE(std::isnan(ComplementaryErf(std::numeric_limits<double>::quiet_NaN())));
}

TEST(ComplementaryErfTest, EachLaneHasTheBitsOfASingleNumber) {
  for (double x = -30.0; x < 30.0; x += 0.0173) {
    for (const double y : {-x, 0.3 - x, 700.0 * x}) {
      const Pair both = ComplementaryErf(Pair(x, y));
      EXPECT_EQ(both.First(), ComplementaryErf(x)) << x;
      EXPECT_EQ(both.Second(), ComplementaryErf(y)) << y;
    }
  }
  const double noNumber = std::numeric_limits<double>::quiet_NaN();
  const Pair both = ComplementaryErf(Pair(noNumber, 0.0));
  EXPECT_TRUE(std::isnan(both.First()));
  EXPECT_EQ(both.Second(), 1.0);
}

TEST(CoarseErfTest, ItsLargestErrorIsThatOfItsSource) {
  double largest = 0.0;
  for (double x = -6.0; x < 6.0; x += 0.00173) {
    largest = std::max(largest, std::fabs(CoarseErf(x) - std::erf(x)));
  }
  EXPECT_LT(largest, 2.5e-5);
  EXPECT_GT(largest, 2.0e-5) << "an exact error function scales curves otherwise";
}

TEST(CoarseErfTest, EachConstantIsUsedAsItStands) {
  for (const double x : {0.1, 0.4, 1.0, 1.7, 2.5, 4.0}) {
    const long double t = 1.0L / (1.0L + 0.47047L * x);
    const long double series = 0.3480242L * t - 0.0958798L * t * t + 0.7478556L * t * t * t;
    const auto expected =
        static_cast<double>(1.0L - std::exp(-static_cast<long double>(x) * x) * series);
    EXPECT_NEAR(CoarseErf(x), expected, 4e-16) << x;
  }
}

TEST(CoarseErfTest, ItHasTheSignOfItsArgument) {
  EXPECT_NEAR(CoarseErf(0.0), 0.0, 2e-16);
  EXPECT_EQ(CoarseErf(-0.7), -CoarseErf(0.7));
  EXPECT_EQ(CoarseErf(40.0), 1.0);
  EXPECT_EQ(CoarseErf(-40.0), -1.0);
  EXPECT_EQ(CoarseErf(-std::numeric_limits<double>::infinity()), -1.0);
}

}  // namespace
}  // namespace ondrel
