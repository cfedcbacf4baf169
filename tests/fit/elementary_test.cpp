#include "fit/elementary.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include "support/random_seed.h"

namespace ondrel {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kSmallest = std::numeric_limits<double>::denorm_min();
constexpr double kSmallestNormal = std::numeric_limits<double>::min();
constexpr double kLargest = std::numeric_limits<double>::max();

/// Distance of `value` from the true one in units in the last place of the true one.
double Error(double value, long double truth) {
  const auto nearest = static_cast<double>(std::fabs(truth));
  const double unit = std::nextafter(nearest, kInfinity) - nearest;
  return static_cast<double>(std::fabs(value - truth) / unit);
}
double ExpError(double x) {
  return Error(Exp(x), std::exp(static_cast<long double>(x)));
}
double LogError(double x) {
  return Error(Log(x), std::log(static_cast<long double>(x)));
}

bool SameBits(double a, double b) {
  return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

class ElementaryTest : public ::testing::Test {
 protected:
  double Between(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random_);
  }
  double WithExponent(int lowest, int highest) {
    const int exponent = std::uniform_int_distribution<int>(lowest, highest)(random_);
    return std::ldexp(Between(1.0, 2.0), exponent);
  }

 private:
  std::mt19937_64 random_{RandomSeed()};
};

TEST_F(ElementaryTest, ExpIsWithinHalfAUnitAndALittle) {
  double largest = 0.0;
  for (int i = 0; i < 2000000; ++i) largest = std::max(largest, ExpError(Between(-708.3, 709.78)));
  for (int i = 0; i < 500000; ++i) largest = std::max(largest, ExpError(Between(-1.0, 1.0)));
  for (int i = 0; i < 500000; ++i) largest = std::max(largest, ExpError(-WithExponent(-60, 8)));
  EXPECT_LT(largest, 0.515);
}

TEST_F(ElementaryTest, ExpOfASubnormalResultIsWithinAUnit) {
  double largest = 0.0;
  for (int i = 0; i < 500000; ++i) largest = std::max(largest, ExpError(Between(-745.1, -708.3)));
  EXPECT_LT(largest, 0.77);
}

TEST_F(ElementaryTest, LogIsWithinHalfAUnitAndALittle) {
  double largest = 0.0;
  for (int i = 0; i < 2000000; ++i)
    largest = std::max(largest, LogError(WithExponent(-1022, 1023)));
  for (int i = 0; i < 1000000; ++i) largest = std::max(largest, LogError(Between(0.5, 2.0)));
  EXPECT_LT(largest, 0.525);
}

TEST_F(ElementaryTest, LogIsAsGoodNearOne) {
  double largest = 0.0;
  for (int i = 0; i < 1000000; ++i) {
    const double distance = WithExponent(-52, -2);
    largest = std::max({largest, LogError(1.0 + distance), LogError(1.0 - distance)});
  }
  EXPECT_LT(largest, 0.525);
}

TEST_F(ElementaryTest, LogOfASubnormalIsWithinAUnit) {
  double largest = 0.0;
  for (int i = 0; i < 300000; ++i)
    largest = std::max(largest, LogError(WithExponent(-1074, -1023)));
  EXPECT_LT(largest, 0.56);
}

TEST_F(ElementaryTest, NothingIsLostWhereOneStepMeetsTheNext) {
  double largest = 0.0;
  for (int n = -95000; n < 130000; ++n) {
    double x = (n + 0.5) * 0x1.62e42fefa39efp-8;
    for (int side = 0; side < 3; ++side, x = std::nextafter(x, kInfinity)) {
      largest = std::max(largest, ExpError(x));
    }
  }
  EXPECT_LT(largest, 0.515);
  largest = 0.0;
  for (int n = 0; n < 4096; ++n) {
    double x = 0.5 + n / 2048.0;
    for (int side = 0; side < 3; ++side, x = std::nextafter(x, 0.0)) {
      if (x != 1.0) largest = std::max(largest, LogError(x));
    }
  }
  EXPECT_LT(largest, 0.525);
}

TEST_F(ElementaryTest, ExpOfZeroIsOneAndLogOfOneIsZero) {
  EXPECT_EQ(Exp(0.0), 1.0);
  EXPECT_EQ(Exp(-0.0), 1.0);
  EXPECT_TRUE(SameBits(Log(1.0), 0.0));
}

TEST_F(ElementaryTest, ExpOverflowsBeyondTheLogOfTheLargest) {
  const double end = 709.782712893384;  // the last double below ln of the largest
  EXPECT_LT(ExpError(end), 0.6);
  EXPECT_LT(Exp(end), kInfinity);
  EXPECT_EQ(Exp(std::nextafter(end, kInfinity)), kInfinity);
  EXPECT_EQ(Exp(1e300), kInfinity);
  EXPECT_EQ(Exp(kInfinity), kInfinity);
}

TEST_F(ElementaryTest, ExpEndsInTheSmallestAndThenNothing) {
  const double end = -745.1332191019411;  // half of the smallest is just below it
  EXPECT_EQ(Exp(end), kSmallest);
  EXPECT_EQ(Exp(std::nextafter(end, -kInfinity)), 0.0);
  EXPECT_EQ(Exp(-1e300), 0.0);
  EXPECT_EQ(Exp(-kInfinity), 0.0);
  EXPECT_FALSE(std::signbit(Exp(-kInfinity)));
  EXPECT_EQ(Exp(-743.5), 3.0 * kSmallest) << "2.6 of them";
}

TEST_F(ElementaryTest, LogHasItsEnds) {
  EXPECT_EQ(Log(0.0), -kInfinity);
  EXPECT_EQ(Log(-0.0), -kInfinity);
  EXPECT_EQ(Log(kInfinity), kInfinity);
  EXPECT_TRUE(std::isnan(Log(-1.0)));
  EXPECT_TRUE(std::isnan(Log(-kSmallest)));
  EXPECT_TRUE(std::isnan(Log(-kInfinity)));
  for (const double x :
       {kSmallest, kSmallestNormal, kLargest, std::nextafter(kSmallestNormal, 0.0)}) {
    EXPECT_LT(LogError(x), 0.56) << x;
  }
}

TEST_F(ElementaryTest, NotANumberStaysOne) {
  EXPECT_TRUE(std::isnan(Exp(kNan)));
  EXPECT_TRUE(std::isnan(Log(kNan)));
}

TEST_F(ElementaryTest, NeitherEverFalls) {
  for (int i = 0; i < 300000; ++i) {
    const double x = Between(-746.0, 710.0);
    EXPECT_LE(Exp(x), Exp(std::nextafter(x, kInfinity)));
    const double y = WithExponent(-1074, 1023);
    EXPECT_LE(Log(y), Log(std::nextafter(y, kInfinity)));
  }
}

TEST_F(ElementaryTest, SomeValuesToTheLastBit) {
  // The nearest doubles to the true values, so that no build has others.
  EXPECT_EQ(Exp(1.0), 2.7182818284590452354);
  EXPECT_EQ(Exp(-1.0), 0.36787944117144232160);
  EXPECT_EQ(Exp(10.0), 22026.465794806716517);
  EXPECT_EQ(Exp(-100.0), 3.7200759760208359630e-44);
  EXPECT_EQ(Log(2.0), 0.69314718055994530942);
  EXPECT_EQ(Log(10.0), 2.3025850929940456840);
  EXPECT_EQ(Log(0.1), -2.3025850929940456285) << "of the double nearest to 0.1";
  EXPECT_EQ(Log(1e-128), -294.73089190323784755);
}

TEST_F(ElementaryTest, EachLaneOfAPairHasTheBitsOfItsOwn) {
  const double ends[] = {0.0,        -0.0, 1.0,   -690.0,    -690.1, -745.14,
                         -745.1,     709,  709.5, 710.0,     kNan,   kInfinity,
                         -kInfinity, -1,   -3e4,  kSmallest, 1e-310, kSmallestNormal,
                         kLargest};
  const auto expectSame = [](double a, double b) {
    const Pair exps = Exp(Pair(a, b));
    const Pair logs = Log(Pair(a, b));
    EXPECT_TRUE(SameBits(exps.First(), Exp(a)) && SameBits(exps.Second(), Exp(b))) << a << ' ' << b;
    EXPECT_TRUE(SameBits(logs.First(), Log(a)) && SameBits(logs.Second(), Log(b))) << a << ' ' << b;
  };
  for (const double a : ends) {
    for (const double b : ends) expectSame(a, b);
  }
  for (int i = 0; i < 300000; ++i) expectSame(Between(-760.0, 720.0), Between(-760.0, 720.0));
  for (int i = 0; i < 300000; ++i) expectSame(WithExponent(-1074, 1023), WithExponent(-3, 3));
}

}  // namespace
}  // namespace ondrel
