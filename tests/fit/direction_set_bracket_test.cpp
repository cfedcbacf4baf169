// The bracket, by values that are given for one evaluation after the other.
#include <gmock/gmock.h>

#include <cmath>
#include <vector>

#include "fit/line_fixture.h"

namespace ondrel {
namespace {

using ::testing::DoubleNear;

using BracketTest = LineTest;

constexpr double kGolden = 1.618034;

// With the values fa, 0 and -fall at 0, 1 and 1 + golden ratio the vertex lies at
// 1 + (golden squared fa + fall) / (2 (fall - golden fa)).

constexpr double kC = 1.0 + kGolden;
double Vertex(double fa, double fall) {
  return 1.0 + (kGolden * kGolden * fa + fall) / (2.0 * (fall - kGolden * fa));
}
constexpr double kNextGolden = kC + kGolden * (kC - 1.0);

TEST_F(BracketTest, ARiseAtTheThirdPointCompletesTheBracket) {
  ExpectBracket(BracketOf({5, 1, 2}), {0, 1, kC}, {5, 1, 2});
}

TEST_F(BracketTest, ABracketStartsFromTheStepsThatAreGiven) {
  SetValues({5, 1, 2});
  ExpectBracket(BracketMinimum(Line(), 2.0, 5.0), {2, 5, 5 + 3 * kGolden}, {5, 1, 2});
}

TEST_F(BracketTest, EqualValuesCompleteTheBracketToo) {
  ExpectBracket(BracketOf({5, 1, 1}), {0, 1, kC}, {5, 1, 1});
}

TEST_F(BracketTest, TheSearchTurnsRoundToGoDownhill) {
  ExpectBracket(BracketOf({1, 5, 2}), {1, 0, -kGolden}, {5, 1, 2});
}

TEST_F(BracketTest, BetweenEqualValuesItKeepsItsWay) {
  ExpectBracket(BracketOf({3, 3, 4}), {0, 1, kC}, {3, 3, 4});
}

TEST_F(BracketTest, TheVertexIsMirroredSoThatABracketGrowsByTheGoldenRatio) {
  SetLine([](double x) { return (x - 30.0) * (x - 30.0); });
  BracketMinimum(Line(), 0.0, 1.0);
  std::vector<double> expected{0.0, 1.0};
  while (expected.back() < 30.0) {
    const double step = expected.back() - expected[expected.size() - 2];
    expected.push_back(expected.back() + kGolden * step);
  }
  // The parabola's true vertex at 30 is never asked for.
  EXPECT_THAT(Steps(), ::testing::Pointwise(DoubleNear(1e-12), expected));
}

TEST_F(BracketTest, ALowerPointInsideCompletesTheBracket) {
  EXPECT_EQ(Vertex(0, 1), 1.5);
  ExpectBracket(BracketOf({0, 0, -1, -2}), {1, 1.5, kC}, {0, -2, -1});
}

TEST_F(BracketTest, AHigherPointInsideCompletesTheBracket) {
  ExpectBracket(BracketOf({0, 0, -1, 0.5}), {0, 1, 1.5}, {0, 0, 0.5});
}

TEST_F(BracketTest, APointInsideThatIsNeitherGivesWayToAGoldenStep) {
  ExpectBracket(BracketOf({0, 0, -1, -0.5, 3}), {1, kC, kNextGolden}, {0, -1, 3});
  EXPECT_EQ(Steps()[3], 1.5);
}

TEST_F(BracketTest, APointInsideAsLowAsTheOuterOneIsNotLower) {
  ExpectBracket(BracketOf({0, 0, -1, -1, 3}), {1, kC, kNextGolden}, {0, -1, 3});
}

TEST_F(BracketTest, APointInsideAsHighAsTheInnerOneIsNotHigher) {
  ExpectBracket(BracketOf({0, 0, -1, 0, 3}), {1, kC, kNextGolden}, {0, -1, 3});
}

TEST_F(BracketTest, ALowerPointBeyondIsFollowedByAGoldenStepOfTheOldPoints) {
  const double vertex = Vertex(1, 2.25);
  ASSERT_GT(vertex, kC);
  // The step is told from the second and third point as they were: it falls short here of what the
  // new ones would give.
  ExpectBracket(BracketOf({1, 0, -2.25, -3, 4}), {kC, vertex, kNextGolden}, {-2.25, -3, 4});
}

TEST_F(BracketTest, AHigherPointBeyondCompletesTheBracketAtTheNextLook) {
  ExpectBracket(BracketOf({1, 0, -2.25, -1}), {1, kC, Vertex(1, 2.25)}, {0, -2.25, -1});
}

TEST_F(BracketTest, AnEqualPointBeyondIsNotLower) {
  ExpectBracket(BracketOf({1, 0, -2.25, -2.25}), {1, kC, Vertex(1, 2.25)}, {0, -2.25, -2.25});
}

TEST_F(BracketTest, AParabolicStepGoesAtMostAHundredTimesAsFar) {
  ASSERT_GT(Vertex(1, 1.63), 1.0 + 100.0 * kGolden);
  ExpectBracket(BracketOf({1, 0, -1.63, 5}), {1, kC, 1.0 + 100.0 * kGolden}, {0, -1.63, 5});
}

TEST_F(BracketTest, AVertexThatIsNotANumberLeadsToTheLimit) {
  ExpectBracket(BracketOf({1, 0, -kInfinity, 5}), {1, kC, 1.0 + 100.0 * kGolden},
                {0, -kInfinity, 5});
}

TEST_F(BracketTest, AVertexBehindGivesWayToAGoldenStep) {
  ASSERT_LT(Vertex(1, 1), 1.0);
  ExpectBracket(BracketOf({1, 0, -1, 5}), {1, kC, kNextGolden}, {0, -1, 5});
}

TEST_F(BracketTest, AVertexOnTheThirdPointIsNotInside) {
  // The fall that puts the vertex there is looked for among its neighbours, as the sums round.
  double fall = 3.0 * kGolden * kGolden / (2.0 * kGolden - 1.0) - 1e-12;
  const auto vertex = [](double drop) {
    const double c = 1.0 + kGolden * (1.0 - 0.0);
    const double q = (1.0 - c) * (0.0 - 1.0);
    return 1.0 - ((1.0 - c) * q - drop) / (2.0 * (drop - q));
  };
  for (int i = 0; i < 10000 && vertex(fall) != kC; ++i) fall = std::nextafter(fall, 100.0);
  ASSERT_EQ(vertex(fall), kC);
  ExpectBracket(BracketOf({1, 0, -fall, 5}), {1, kC, kNextGolden}, {0, -fall, 5});
}

TEST_F(BracketTest, ADenominatorNearZeroIsReplacedByTheSmallestOne) {
  // difference 1e-21, divisor 2e-20 in place of 2e-21
  const double vertex = 1.0 + 1e-21 / 2e-20;
  const Bracket bracket = BracketOf({0, 0, -1e-21, -1});
  EXPECT_NEAR(bracket.B.Step, vertex, 1e-12);
}

TEST_F(BracketTest, TheSmallestDenominatorKeepsItsSign) {
  // difference 1e-22 - golden 1e-21, divisor -2e-20: the vertex lies behind. With the other sign it
  // would lie inside.
  ExpectBracket(BracketOf({1e-21, 0, -1e-22, 1}), {1, kC, kNextGolden}, {0, -1e-22, 1});
}

TEST_F(BracketTest, AnObjectiveThatFallsForEverEndsTheBracket) {
  const std::vector<std::function<double(double)>> functions{
      [](double x) { return -x; },
      [](double x) { return -x * x; },
      [](double x) { return -std::log1p(std::fabs(x)); },
      [](double x) { return x > 100.0 ? kNaN : -x; },
      [](double x) { return x > 100.0 ? -kInfinity : -x; },
      [calls = 0](double) mutable { return -static_cast<double>(++calls); },
      [calls = 0](double) mutable { return -std::ldexp(1.0, ++calls); },
  };
  for (const auto& function : functions) {
    SetLine(function);
    const Bracket bracket = BracketMinimum(Line(), 0.0, 1.0);
    EXPECT_LT(Steps().size(), 1100u);
    EXPECT_TRUE(std::isfinite(bracket.A.Step + bracket.B.Step + bracket.C.Step));
    point_ = {};
    direction_ = {1.0};
    double value = 0.0;
    LineMinimise(workspace(), toy::kOperations, point_, direction_, 1, value);
    EXPECT_TRUE(std::isfinite(point_[0]));
    point_ = {};
    direction_ = {1.0};
  }
}

}  // namespace
}  // namespace ondrel
