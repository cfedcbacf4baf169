// The search inside a bracket.
#include <gmock/gmock.h>

#include <cmath>
#include <vector>

#include "fit/line_fixture.h"

namespace ondrel {
namespace {

using ::testing::DoubleNear;
using ::testing::ElementsAre;

using BrentTest = LineTest;

TEST_F(BrentTest, TheMinimumOfAParabolaIsFound) {
  const LinePoint best = BrentOf([](double x) { return (x - 2) * (x - 2) + 5; }, -1, 0.5, 7, 100);
  EXPECT_NEAR(best.Step, 2.0, 1e-7);
  EXPECT_EQ(best.Value, 5.0);
}

TEST_F(BrentTest, OuterPointsMayComeInEitherOrder) {
  const auto function = [](double x) { return std::cosh(x - 1.0); };
  const LinePoint up = BrentOf(function, -2, 0.5, 7, 100);
  const std::vector<double> steps = Steps();
  const LinePoint down = BrentOf(function, 7, 0.5, -2, 100);
  EXPECT_EQ(up.Step, down.Step);
  EXPECT_EQ(steps, Steps());
}

TEST_F(BrentTest, StepsAreResolvedToTheAbsoluteTolerance) {
  const LinePoint best = BrentOf([](double x) { return std::fabs(x - 2.5); }, -1, 0.5, 7, 1000);
  EXPECT_NEAR(best.Step, 2.5, 2e-10);
  EXPECT_GT(Steps().size(), 20u);
  EXPECT_LT(Steps().size(), 200u) << "it ends by itself";
}

TEST_F(BrentTest, NearZeroStepsAreNotResolvedAnyFurther) {
  const LinePoint best = BrentOf([](double x) { return std::fabs(x); }, -1, 0.5, 7, 1000);
  EXPECT_NEAR(best.Step, 0.0, 2e-10);
  EXPECT_LT(Steps().size(), 200u);
}

TEST_F(BrentTest, TheRelativeToleranceIsInEffectZero) {
  SetLine([](double x) { return std::fabs(x - 54321.0); });
  workspace().LineSearchLimit = 1000;
  double value = 0.0;
  LineMinimise(workspace(), toy::kOperations, point_, direction_, 1, value);
  EXPECT_NEAR(point_[0], 54321.0, 3e-10);
}

TEST_F(BrentTest, ARelativeToleranceGivenToBrentIsHeeded) {
  SetLine([](double x) { return std::fabs(x - 54321.0); });
  const Bracket bracket{.A = {0, 54321}, .B = {40000, 14321}, .C = {90000, 35679}};
  const LinePoint best = BrentMinimise(Line(), bracket, 1e-3, 1000);
  EXPECT_NEAR(best.Step, 54321.0, 3.0 * 54.321);
  EXPECT_LT(Steps().size(), 25u);
}

TEST_F(BrentTest, RunningOutOfIterationsIsSilent) {
  const LinePoint best = BrentOf([](double x) { return std::cosh(x - 3.0); }, -1, 0.5, 7, 4);
  EXPECT_EQ(Steps().size(), 4u);
  EXPECT_NEAR(best.Step, 3.0, 1.0);
  EXPECT_EQ(best.Value, std::cosh(best.Step - 3.0));
  EXPECT_TRUE(shell().Boxes.empty());
}

TEST_F(BrentTest, WithoutIterationsTheMiddleOfTheBracketStands) {
  const LinePoint best = BrentOf([](double x) { return x * x; }, -1, 0.5, 7, 0);
  EXPECT_EQ(best.Step, 0.5);
  EXPECT_EQ(best.Value, 0.25);
  EXPECT_TRUE(Steps().empty());
}

TEST_F(BrentTest, ASearchEndsAsSoonAsItIsInsideTheToleranceWithItsEnds) {
  const auto function = [](double x) { return std::fabs(x); };
  BrentOf(function, -2e-10, 0.0, 2e-10, 100);
  EXPECT_THAT(Steps(), ::testing::IsEmpty());
  BrentOf(function, -2.1e-10, 0.0, 2.1e-10, 1);
  EXPECT_EQ(Steps().size(), 1u);
}

TEST_F(BrentTest, TheFirstStepIsAGoldenSectionOfTheLargerSide) {
  BrentOf([](double x) { return x * x; }, 0, 1, 10, 1);
  EXPECT_THAT(Steps(), ElementsAre(1.0 + 0.381966 * 9.0));
  BrentOf([](double x) { return x * x; }, 0, 9, 10, 1);
  EXPECT_THAT(Steps(), ElementsAre(9.0 - 0.381966 * 9.0));
}

TEST_F(BrentTest, FromTheMiddleTheFirstStepGoesDown) {
  BrentOf([](double x) { return x * x; }, 0, 5, 10, 1);
  EXPECT_THAT(Steps(), ElementsAre(5.0 - 0.381966 * 5.0));
}

TEST_F(BrentTest, AParabolicStepThatEndsAtTheLowerEndGoesToTheMiddleInstead) {
  // Two golden steps down give the parabola its three points; its vertex is the end itself.
  BrentOf([](double x) { return (x - 1e-10) * (x - 1e-10); }, 0, 1, 10, 3);
  const double first = 1.0 + 0.381966 * 9.0;
  const double second = 1.0 + 0.381966 * (first - 1.0);
  // The textbook would go from 1 by the tolerance alone.
  EXPECT_THAT(Steps(), ElementsAre(DoubleNear(first, 1e-12), DoubleNear(second, 1e-12),
                                   DoubleNear(0.5 * second, 1e-12)));
}

TEST_F(BrentTest, AParabolicStepThatEndsAtTheUpperEndGoesToTheMiddleInstead) {
  const double end = 10.0 - 1e-10;
  BrentOf([end](double x) { return (x - end) * (x - end); }, 10, 9, 0, 3);
  const double first = 9.0 - 0.381966 * 9.0;
  const double second = 9.0 - 0.381966 * (9.0 - first);
  EXPECT_THAT(Steps(), ElementsAre(DoubleNear(first, 1e-12), DoubleNear(second, 1e-12),
                                   DoubleNear(0.5 * (second + 10.0), 1e-12)));
}

TEST_F(BrentTest, NotANumberEndsASearch) {
  const LinePoint best = BrentOf([](double) { return kNaN; }, 0, 1, 10, 1000000);
  EXPECT_LT(Steps().size(), 1000u);
  EXPECT_TRUE(std::isfinite(best.Step));
}

}  // namespace
}  // namespace ondrel
