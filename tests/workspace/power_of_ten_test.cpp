#include "workspace/power_of_ten.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "workspace/number_text.h"

namespace ondrel {
namespace {

TEST(PowerOfTen, WholePowersAreTheRealsNearestToThem) {
  for (int exponent = -22; exponent <= 22; ++exponent) {
    double expected = 0.0;
    ASSERT_EQ(ParseReal(&expected, ("1e" + std::to_string(exponent)).c_str()), 0);
    EXPECT_EQ(PowerOfTen(exponent), expected) << exponent;
  }
}

TEST(PowerOfTen, PowersBetweenAndBeyondAreNear) {
  for (const double exponent : {-300.0, -23.0, -4.95, -0.25, 0.5, 3.3, 23.0, 300.0}) {
    const double expected = std::exp(exponent * std::log(10.0));
    EXPECT_NEAR(PowerOfTen(exponent), expected, 1e-12 * expected) << exponent;
  }
}

TEST(PowerOfTen, EndsOfTheRangeAndNotANumberAreThoseOfThePower) {
  EXPECT_EQ(PowerOfTen(400.0), std::numeric_limits<double>::infinity());
  EXPECT_EQ(PowerOfTen(-400.0), 0.0);
  EXPECT_EQ(PowerOfTen(std::numeric_limits<double>::infinity()),
            std::numeric_limits<double>::infinity());
  EXPECT_TRUE(std::isnan(PowerOfTen(std::numeric_limits<double>::quiet_NaN())));
}

}  // namespace
}  // namespace ondrel
