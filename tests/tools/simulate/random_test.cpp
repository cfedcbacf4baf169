// The generators against their published numbers, the distributions against their moments.
#include "simulate/random.h"

#include <gmock/gmock.h>

#include <cmath>

namespace ondrel::simulate {
namespace {

using ::testing::ElementsAre;

constexpr int kDraws = 200000;

TEST(Random, SplitMixGivesItsPublishedNumbers) {
  std::uint64_t state = 1234567;
  EXPECT_EQ(NextSplitMix(state), 6457827717110365317u);
  EXPECT_EQ(NextSplitMix(state), 3203168211198807973u);
  EXPECT_EQ(NextSplitMix(state), 9817491932198370423u);
  EXPECT_EQ(NextSplitMix(state), 4593380528125082431u);
  EXPECT_EQ(NextSplitMix(state), 16408922859458223821u);
}

TEST(Random, TheGeneratorGivesItsPublishedNumbersFromOneTwoThreeFour) {
  RandomState random{{1, 2, 3, 4}};
  EXPECT_EQ(NextBits(random), 11520u);
  EXPECT_EQ(NextBits(random), 0u);
  EXPECT_EQ(NextBits(random), 1509978240u);
  EXPECT_EQ(NextBits(random), 1215971899390074240u);
  EXPECT_EQ(NextBits(random), 1216172134540287360u);
  EXPECT_EQ(NextBits(random), 607988272756665600u);
}

TEST(Random, ASeedIsSpreadOverAllWordsBySplitMix) {
  EXPECT_THAT(SeedRandom(1234567).Words, ElementsAre(6457827717110365317u, 3203168211198807973u,
                                                     9817491932198370423u, 4593380528125082431u));
}

TEST(Random, UniformNumbersLieInsideTheUnitIntervalAndAreEven) {
  RandomState random = SeedRandom(1);
  double sum = 0.0;
  int lowerQuarter = 0;
  for (int i = 0; i < kDraws; ++i) {
    const double u = NextUniform(random);
    ASSERT_GT(u, 0.0);
    ASSERT_LT(u, 1.0);
    sum += u;
    lowerQuarter += u < 0.25;
  }
  EXPECT_NEAR(sum / kDraws, 0.5, 4.0 * std::sqrt(1.0 / 12.0 / kDraws));
  EXPECT_NEAR(static_cast<double>(lowerQuarter) / kDraws, 0.25,
              4.0 * std::sqrt(0.25 * 0.75 / kDraws));
}

TEST(Random, BitsThatAreAllNoughtStayAboveNought) {
  RandomState random{{1, 0, 0, 0}};  // the bits come from the second word alone
  EXPECT_EQ(NextUniform(random), 0x1p-53);
}

TEST(Random, ExponentialNumbersHaveTheMeanAndTheTailOfTheirRate) {
  RandomState random = SeedRandom(2);
  constexpr double kRate = 40.0;
  double sum = 0.0;
  int beyondTwoMeans = 0;
  for (int i = 0; i < kDraws; ++i) {
    const double t = NextExponential(random, kRate);
    ASSERT_GT(t, 0.0);
    sum += t;
    beyondTwoMeans += t > 2.0 / kRate;
  }
  EXPECT_NEAR(sum / kDraws, 1.0 / kRate, 4.0 / kRate / std::sqrt(kDraws));
  const double tail = std::exp(-2.0);
  EXPECT_NEAR(static_cast<double>(beyondTwoMeans) / kDraws, tail,
              4.0 * std::sqrt(tail * (1.0 - tail) / kDraws));
}

TEST(Random, NormalNumbersHaveMeanNoughtVarianceOneAndTheNormalShareWithinOne) {
  RandomState random = SeedRandom(3);
  double sum = 0.0;
  double squares = 0.0;
  int within = 0;
  for (int i = 0; i < kDraws; ++i) {
    const double x = NextNormal(random);
    sum += x;
    squares += x * x;
    within += std::fabs(x) < 1.0;
  }
  EXPECT_NEAR(sum / kDraws, 0.0, 4.0 / std::sqrt(kDraws));
  EXPECT_NEAR(squares / kDraws, 1.0, 4.0 * std::sqrt(2.0 / kDraws));
  const double share = std::erf(1.0 / std::sqrt(2.0));
  EXPECT_NEAR(static_cast<double>(within) / kDraws, share,
              4.0 * std::sqrt(share * (1.0 - share) / kDraws));
}

}  // namespace
}  // namespace ondrel::simulate
