#include "fit/direction_set.h"

#include <gmock/gmock.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

#include "fit/line_fixture.h"
#include "fit/reference_minimiser.h"
#include "support/random_seed.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;

using DirectionSetTest = LineTest;

// --- The value on a line ----------------------------------------------------------------------

TEST_F(DirectionSetTest, TheValueIsTakenWhereTheStepLeads) {
  toy::TheModel().Objective = [](const ParameterVector& point) {
    return 10.0 * point[0] + point[1];
  };
  point_ = {1.0, 2.0};
  direction_ = {0.5, -3.0};
  const SearchLine line{workspace(), toy::kOperations, point_, direction_, 2};
  EXPECT_EQ(LineValue(line, 4.0), 10.0 * 3.0 - 10.0);
  EXPECT_EQ(point_[0], 1.0);
  EXPECT_EQ(direction_[1], -3.0);
}

TEST_F(DirectionSetTest, WeightsAreNormalisedBeforeTheValueIsTaken) {
  toy::TheModel().Objective = [](const ParameterVector& point) { return point[0]; };
  toy::TheModel().Normalise = [](ParameterVector& point, std::int32_t count) {
    EXPECT_EQ(count, 1);
    point[0] = 7.0;
  };
  EXPECT_EQ(LineValue(Line(), 2.0), 7.0);
  EXPECT_THAT(toy::TheModel().Log, ElementsAre("trial", "normalise", "value"));
}

TEST_F(DirectionSetTest, AForbiddenPointHasTheValueOfAMillionAndIsNotEvaluated) {
  toy::TheModel().ForbidsNegative = true;
  EXPECT_EQ(LineValue(Line(), -1.0), 1000000.0);
  EXPECT_THAT(toy::TheModel().Log, ElementsAre("trial"));
}

TEST_F(DirectionSetTest, AForbiddenPointLooksBetterThanAnAllowedOneAboveAMillion) {
  SetLine([](double x) { return 2000000.0 + x; });
  toy::TheModel().ForbidsNegative = true;
  point_[0] = 0.25;
  double value = 0.0;
  LineMinimise(workspace(), toy::kOperations, point_, direction_, 1, value);
  EXPECT_EQ(value, 1000000.0);
  EXPECT_EQ(point_[0], 1e-30) << "brought back to the floor";
}

TEST_F(DirectionSetTest, BelowAMillionTheSearchStaysWithAllowedPoints) {
  SetLine([](double x) { return 900000.0 + x; });
  toy::TheModel().ForbidsNegative = true;
  point_[0] = 0.25;
  workspace().LineSearchLimit = 100;
  double value = 0.0;
  LineMinimise(workspace(), toy::kOperations, point_, direction_, 1, value);
  EXPECT_NEAR(value, 900000.0, 1e-8);
  EXPECT_NEAR(point_[0], 0.0, 1e-8);
}

// --- One line after the other --------------------------------------------------------------------

TEST_F(DirectionSetTest, ALineSearchMovesThePointAndScalesTheDirection) {
  toy::TheModel().Objective = [](const ParameterVector& point) {
    return std::pow(point[0] - 3.0, 2) + std::pow(point[1] - 5.0, 2) + 1.0;
  };
  point_ = {1.0, 1.0};
  direction_ = {0.5, 1.0};
  workspace().LineSearchLimit = 100;
  double value = 0.0;
  LineMinimise(workspace(), toy::kOperations, point_, direction_, 2, value);
  EXPECT_NEAR(point_[0], 3.0, 1e-6);
  EXPECT_NEAR(point_[1], 5.0, 1e-6);
  EXPECT_NEAR(direction_[0], 2.0, 1e-6);
  EXPECT_NEAR(direction_[1], 4.0, 1e-6);
  EXPECT_EQ(value, 1.0);
}

TEST_F(DirectionSetTest, TheWeightsAreNormalisedAfterTheMoveAndTheValueIsThatOfTheSearch) {
  SetLine([](double x) { return (x - 3.0) * (x - 3.0); });
  workspace().LineSearchLimit = 100;
  double value = -1.0;
  LineMinimise(workspace(), toy::kOperations, point_, direction_, 1, value);
  EXPECT_THAT(toy::WithoutTrials(toy::TheModel().Log), ElementsAre("line", "apply", "normalise"));
  toy::TheModel().Normalise = [](ParameterVector& point, std::int32_t) { point[0] = 0.5; };
  LineMinimise(workspace(), toy::kOperations, point_, direction_, 1, value);
  EXPECT_EQ(point_[0], 0.5);
  EXPECT_EQ(value, 6.25) << "flat, for all trials were normalised";
}

TEST_F(DirectionSetTest, ALineSearchTakesAtMostItsLimitOfIterations) {
  for (const std::int32_t limit : {0, 1, 7, 20}) {
    SetLine([](double x) { return std::fabs(x - 1.3); });
    point_ = {};
    direction_ = {1.0};
    workspace().LineSearchLimit = limit;
    double value = 0.0;
    LineMinimise(workspace(), toy::kOperations, point_, direction_, 1, value);
    EXPECT_EQ(Steps().size(), 3u + static_cast<unsigned>(limit));
    EXPECT_TRUE(shell().Boxes.empty());
  }
}

TEST_F(DirectionSetTest, ALineSearchStartsAtThePointAndOneDirectionFurther) {
  SetLine([](double x) { return (x - 4.0) * (x - 4.0); });
  point_ = {2.0};
  direction_ = {0.5};
  double value = 0.0;
  LineMinimise(workspace(), toy::kOperations, point_, direction_, 1, value);
  ASSERT_GE(Steps().size(), 2u);
  EXPECT_EQ(Steps()[0], 2.0);
  EXPECT_EQ(Steps()[1], 2.5);
}

TEST_F(DirectionSetTest, AlongAFlatLineTheValueStays) {
  SetLine([](double) { return 42.0; });
  double value = 0.0;
  LineMinimise(workspace(), toy::kOperations, point_, direction_, 1, value);
  EXPECT_EQ(value, 42.0);
}

// --- Against the second implementation -----------------------------------------------------------

/// Smooth and rough, with ties, cliffs, plateaus, and values that are none.
std::function<double(double)> DrawFunction(std::mt19937_64& random) {
  std::uniform_real_distribution<double> unit(-1.0, 1.0);
  const double place = 20.0 * unit(random);
  const double scale = std::pow(10.0, 3.0 * unit(random));
  const double wave = 8.0 * std::fabs(unit(random));
  const double height = 30.0 * unit(random);
  switch (random() % 12) {
    case 0:
      return [=](double x) { return scale * (x - place) * (x - place); };
    case 1:
      return [=](double x) { return scale * std::fabs(x - place); };
    case 2:
      return [=](double x) { return (x - place) * (x - place) + height * std::sin(wave * x); };
    case 3:
      return [=](double x) { return std::floor((x - place) * (x - place)); };
    case 4:
      return [=](double x) { return std::pow(x * x - place * place, 2) + height * x; };
    case 5:
      return [=](double x) { return x < place ? -x : height; };
    case 6:
      return [=](double x) { return 1e-21 * scale * std::cos(wave * x) + 1e-22 * x * x; };
    case 7:
      return [=](double x) { return std::fabs(x) > std::fabs(place) ? kNaN : std::cos(wave * x); };
    case 8:  // as smooth where steps become as small as the tolerance
      return [=](double x) { return 1e20 * (x - place) * (x - place); };
    case 9:
      return [=](double x) { return std::cosh(1e9 * (x - 1e-9 * place)); };
    case 10:  // where the tolerance no longer moves a step
      return [=](double x) { return std::fabs(x - 1e7 * place); };
    default:
      return [=](double x) { return x < place ? -std::exp(std::fabs(x)) : kInfinity; };
  }
}

std::vector<std::uint64_t> Bits(const std::vector<double>& values) {
  std::vector<std::uint64_t> bits;
  for (const double value : values) {
    bits.push_back(std::isnan(value) ? 0 : std::bit_cast<std::uint64_t>(value));
  }
  return bits;
}

TEST_F(DirectionSetTest, EveryEvaluationIsThatOfTheObviousImplementation) {
  reference::Ways ways;
  for (const std::uint64_t seed : {std::uint64_t{1}, RandomSeed()}) {
    std::mt19937_64 random(seed);
    for (int trial = 0; trial < 3000; ++trial) {
      const std::function<double(double)> function = DrawFunction(random);
      SetLine(function);
      const Bracket bracket = BracketMinimum(Line(), 0.0, 1.0);
      const LinePoint best = BrentMinimise(Line(), bracket, 1e-40, 60);
      std::vector<double> asked;
      const reference::Line logged = [&](double x) {
        asked.push_back(x);
        return function(x);
      };
      const reference::Triple triple = reference::Bracket(logged, 0.0, 1.0, ways);
      const reference::Best expected = reference::Brent(logged, triple, 1e-40, 60, ways);
      ASSERT_EQ(Bits(Steps()), Bits(asked)) << "seed " << seed << ", function " << trial;
      ASSERT_EQ(Bits({bracket.A.Value, bracket.B.Value, bracket.C.Value}),
                Bits({triple.FA, triple.FB, triple.FC}));
      ASSERT_EQ(Bits({best.Step, best.Value}), Bits({expected.Step, expected.Value}));
    }
  }
  for (const char* way :
       {"swapped", "small divisor", "small negative divisor", "inside, lower", "inside, higher",
        "inside, useless", "beyond", "beyond, lower", "at the limit", "golden", "converged",
        "parabola", "parabola rejected", "to the middle, down", "to the middle, up",
        "near the middle", "short step", "limit"}) {
    EXPECT_GT(ways[way], 0) << way;
  }
}

}  // namespace
}  // namespace ondrel
