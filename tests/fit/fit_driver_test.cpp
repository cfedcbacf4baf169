#include "fit/fit_driver.h"

#include <gmock/gmock.h>

#include <cmath>
#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "fit/driver_fixture.h"
#include "shell/keys.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using FitDriverTest = DriverTest;

/// Two steps down, each of 10, from 100 at the origin.
double TwoSteps(const std::vector<double>& point) {
  return 80.0 + (point[0] < 0.5 ? 10.0 : 0.0) + (point[1] < 0.5 ? 10.0 : 0.0);
}

// --- The order of steps -------------------------------------------------------------------------

TEST_F(FitDriverTest, APassThatConvergesTakesItsStepsInOrder) {
  SetProblem({1.0, 1.0}, 1e-4, 20);
  SetObjective([](const auto&) { return 10.0; });
  Run();
  EXPECT_THAT(Log(),
              ElementsAre("normalise", "*show amplitude 0", "*value",  //
                          "*value", "*line", "*apply", "*normalise",   //
                          "*value", "*line", "*apply", "*normalise",   //
                          "*repaint Amplitude Histogram", "*repaint Amplitude Fit Parameters",
                          "repaint Amplitude Histogram"));
  ExpectEndedWith({});
}

TEST_F(FitDriverTest, APassThatGoesOnExtrapolatesBeforeTheNext) {
  SetProblem({0.0}, 0.0, 1);
  SetValues({100, 100, 200}, OneStep);
  Run();
  EXPECT_THAT(Log(), ElementsAre("normalise", "*show amplitude 0", "*value",  //
                                 "*value", "*line", "*apply", "*normalise",   //
                                 "*extrapolate", "*normalise", "*value",      //
                                 "*box", "repaint Amplitude Histogram"));
}

TEST_F(FitDriverTest, ABetterExtrapolatedPointHasTheReachedOneEvaluatedAgain) {
  SetProblem({0.0}, 0.0, 1);
  SetValues({100, 100, 50, 90}, OneStep);
  Run();
  EXPECT_THAT(LogFrom("*extrapolate"),
              ElementsAre("*extrapolate", "*normalise", "*value", "*value",  //
                          "*line", "*apply", "*normalise",                   //
                          "*box", "repaint Amplitude Histogram"));
}

TEST_F(FitDriverTest, TheWeightsAreNormalisedBeforeTheStartIsSaved) {
  SetProblem({5.0}, 0.0, 60);
  SetObjective(
      [](const auto& point) { return point[0] < 3.0 ? 3.0 - point[0] : 5.0 * (point[0] - 3.0); });
  toy::TheModel().Normalise = [first = true](ParameterVector& point, std::int32_t) mutable {
    if (first) point[0] = 1.0;
    first = false;
  };
  toy::TheModel().Show = [](ParameterVector&, std::int32_t pass) { return pass == 1 ? -1 : 0; };
  Run();
  EXPECT_EQ(toy::TheModel().Shown[0][0], 1.0);
  // From 1 over 3 as far again: the last point that was evaluated.
  EXPECT_NEAR(toy::TheModel().Evaluated.back()[0], 5.0, 1e-6);
}

TEST_F(FitDriverTest, APassStartsFromWhatTheDisplayMadeOfThePoint) {
  SetProblem({5.0}, 1e-4, 20);
  SetObjective([](const auto&) { return 1.0; });
  toy::TheModel().Show = [](ParameterVector& point, std::int32_t) {
    point[0] = 4.0;
    return 0;
  };
  Run();
  EXPECT_EQ(toy::TheModel().Evaluated.front()[0], 4.0);
}

TEST_F(FitDriverTest, TheResultHoldsTheValueOfTheLastLineSearch) {
  SetProblem({0.0}, 1e9, 20);
  SetValues({100, 100}, OneStep);
  EXPECT_EQ(Run(), 90.0);
}

TEST_F(FitDriverTest, TheLimitOfLineSearchesIsThatOfTheFitAndStays) {
  EXPECT_EQ(workspace().LineSearchLimit, 20);
  SetProblem({0.0}, 1e9, 3);
  SetObjective([](const auto& point) { return std::fabs(point[0] - 1.3); });
  Run();
  EXPECT_EQ(workspace().LineSearchLimit, 3);
  EXPECT_EQ(toy::TheModel().TrialDirections.size(), 3u + 3u) << "three for the bracket";
}

TEST_F(FitDriverTest, TheDisplayAndTheWindowsAreChosenByTwoDifferentSlots) {
  OpenInert(ViewKind::Duration);
  for (const bool shown : {true, false}) {
    for (const bool repainted : {true, false}) {
      toy::TheModel() = {};
      toy::TheModel().Amplitude = shown;
      toy::TheModel().RepaintsAmplitude = repainted;
      SetProblem({0.0}, 1e9, 3);
      SetObjective([](const auto&) { return 1.0; });
      Run();
      const std::string model = repainted ? "Amplitude" : "Duration";
      EXPECT_EQ(Log()[1], shown ? "*show amplitude 0" : "*show duration 0");
      EXPECT_THAT(
          LogFrom("*repaint " + model + " Hist"),
          ElementsAre("*repaint " + model + " Histogram", "*repaint " + model + " Fit Parameters",
                      "repaint " + model + " Histogram"));
    }
  }
}

// --- Directions ---------------------------------------------------------------------------------

struct Promise {
  double Extrapolated;
  double Reached;
  bool Replaces;
};

TEST_F(FitDriverTest, ADirectionIsReplacedWhenTheAverageOnePromisesMore) {
  // From 100 a decrease of 10 on the line: replaced when
  // 2 (100 - 2 reached + extrapolated) (90 - reached)^2 is less than 10 (100 - extrapolated)^2.
  for (const Promise& promise : {Promise{80, 80, false},    // 4000 and 4000
                                 Promise{79, 80, true},     // 3800 and 4410
                                 Promise{81, 80, false},    // 4200 and 3610
                                 Promise{99, 90, true},     // 0 and 10
                                 Promise{99, 91, false},    // 34 and 10
                                 Promise{90, 70, false},    // 40000 and 1000
                                 Promise{40, 70, true}}) {  // 0 and 36000
    toy::TheModel() = {};
    SetProblem({0.0}, 0.0, 1);
    SetValues({100, 100, promise.Extrapolated, promise.Reached}, OneStep);
    Run();
    const bool searched = LogFrom("*extrapolate")[4] == "*line";
    EXPECT_EQ(searched, promise.Replaces) << promise.Extrapolated << ", " << promise.Reached;
  }
}

TEST_F(FitDriverTest, AnExtrapolatedPointAsHighAsTheStartIsNotLookedAtFurther) {
  SetProblem({0.0}, 0.0, 1);
  SetValues({100, 100, 100}, OneStep);
  Run();
  EXPECT_THAT(LogFrom("*extrapolate"), ElementsAre("*extrapolate", "*normalise", "*value", "*box",
                                                   "repaint Amplitude Histogram"));
}

TEST_F(FitDriverTest, WhenTheExtrapolatedPointIsHigherTheDirectionsStayForThisPass) {
  SetProblem({0.0, 0.0}, 0.0, 1);
  SetValues({100, 100, 90, 101}, TwoSteps);
  Run();
  EXPECT_THAT(Column(0), ElementsAre(1.0, 0.0));
  EXPECT_THAT(Column(1), ElementsAre(0.0, 1.0));
}

TEST_F(FitDriverTest, TheLastDirectionMovesAndTheScaledAverageOneTakesItsPlace) {
  SetProblem({0.0, 0.0, 0.0}, 0.0, 1);
  // The first line goes down by 20, the second by 10, the third stays.
  SetValues({100, 100, 80, 70, 40, 70}, [](const auto& point) {
    return 70.0 + (point[0] < 0.5 ? 20.0 : 0.0) + (point[1] < 0.5 ? 10.0 : 0.0);
  });
  Run();
  ASSERT_EQ(toy::TheModel().Applied.size(), 4u);
  const ParameterVector& average = toy::TheModel().Applied.back();
  EXPECT_THAT(Column(0), ElementsAre(0.0, 0.0, 1.0));
  EXPECT_THAT(Column(1), ElementsAre(0.0, 1.0, 0.0));
  EXPECT_THAT(Column(2), ElementsAre(average[0], average[1], average[2]));
  EXPECT_NE(average[0], 0.0);
}

TEST_F(FitDriverTest, AmongEqualDecreasesTheFirstCounts) {
  SetProblem({0.0, 0.0}, 0.0, 1);
  SetValues({100, 100, 90, 60, 80}, TwoSteps);
  Run();
  EXPECT_THAT(Column(0), ElementsAre(0.0, 1.0));
  EXPECT_THAT(Column(1), ::testing::Not(ElementsAre(0.0, 1.0)));
}

TEST_F(FitDriverTest, DecreasesAreTakenFromValuesMadeAnewAndWithoutSign) {
  SetProblem({0.0, 0.0}, 0.0, 1);
  // Before the second line the value is 40 only; the line search ends at 80.
  SetValues({100, 100, 40, 20, 80}, TwoSteps);
  Run();
  EXPECT_THAT(Column(0), ElementsAre(1.0, 0.0));
  EXPECT_THAT(Column(1), ::testing::Not(ElementsAre(0.0, 1.0)));
}

TEST_F(FitDriverTest, SearchingALineLeavesItsDirectionUnscaled) {
  SetProblem({0.0, 0.0}, 1e9, 20);
  SetObjective(
      [](const auto& point) { return std::fabs(point[0] - 5.0) + std::fabs(point[1] - 9.0); });
  Run();
  EXPECT_NEAR(toy::TheModel().Applied[1][1], 9.0, 1e-3);
  EXPECT_THAT(Column(1), ElementsAre(0.0, 1.0));
}

TEST_F(FitDriverTest, AnExtrapolatedPointBelowAFloorHasTheValueOfAMillion) {
  SetProblem({1.0}, 0.0, 1);
  toy::TheModel().ForbidsNegative = true;
  SetObjective([](const auto& point) { return 10.0 + point[0]; });
  Run();
  EXPECT_THAT(LogFrom("*extrapolate"),
              ElementsAre("*extrapolate", "*box", "repaint Amplitude Histogram"));
}

TEST_F(FitDriverTest, AboveAMillionAnExtrapolatedPointBelowAFloorLooksBetter) {
  SetProblem({1.0}, 0.0, 1);
  toy::TheModel().ForbidsNegative = true;
  SetObjective([](const auto& point) { return 1000000.0 + 10.0 + point[0]; });
  Run();
  EXPECT_EQ(LogFrom("*extrapolate")[1], "*value") << "of the point that was reached";
}

// --- Ways out -----------------------------------------------------------------------------------

TEST_F(FitDriverTest, AFitConvergesWhenTheValueHardlyChanges) {
  // 2 (100 - 90) is not greater than tolerance times 190
  for (const double tolerance : {20.0 / 190.0 + 1e-12, 20.0 / 190.0 - 1e-12}) {
    SetProblem({0.0}, tolerance, 1);
    SetValues({100, 100, 200}, OneStep);
    Run();
  }
  EXPECT_THAT(Messages(), ElementsAre(kTooManyIterations));
}

TEST_F(FitDriverTest, AFitConvergesOnNoChangeAtAll) {
  SetProblem({0.0}, 0.0, 20);
  SetObjective([](const auto&) { return -5.0; });
  Run();
  ExpectEndedWith({});
}

TEST_F(FitDriverTest, NegativeValuesConvergeLikePositiveOnes) {
  SetProblem({0.0}, 20.0 / 190.0 + 1e-12, 1);
  SetValues({-90, -90}, [](const auto& point) { return point[0] < 0.5 ? -90.0 : -100.0; });
  Run();
  ExpectEndedWith({});
}

TEST_F(FitDriverTest, AValueThatIsNotANumberEndsTheFitQuietly) {
  SetProblem({0.0}, 1e-4, 20);
  SetObjective([](const auto&) { return std::nan(""); });
  Run();
  ExpectEndedWith({});
  EXPECT_EQ(toy::TheModel().Shown.size(), 1u);
}

TEST_F(FitDriverTest, AfterAConvergedFitTheTermsAreThoseOfTheTopOfTheLastPass) {
  SetProblem({0.0}, 0.2, 20);
  SetValues({100, 100}, OneStep);
  Run();
  ASSERT_EQ(toy::TheModel().Shown.size(), 1u);
  EXPECT_EQ(toy::TheModel().Shown[0][0], 0.0);
  EXPECT_GE(Problem().Parameters[0], 0.5) << "the better point is not shown";
}

TEST_F(FitDriverTest, OneIterationRunsOnePassAndReportsTheLimit) {
  SetProblem({0.0}, 0.0, 1);
  SetValues({100, 100, 200}, OneStep);
  Run();
  ExpectEndedWith({kTooManyIterations});
  EXPECT_THAT(LogFrom("*box"), ElementsAre("*box", "repaint Amplitude Histogram"));
  EXPECT_EQ(toy::TheModel().Shown.size(), 1u);
  EXPECT_EQ(toy::TheModel().Shown[0][0], 0.0);
  EXPECT_EQ(shell().Boxes[0].Icon, toolkit::BoxIcon::Stop);
}

TEST_F(FitDriverTest, OneIterationThatConvergesReportsNothing) {
  SetProblem({0.0}, 1.0, 1);
  SetValues({100, 100}, OneStep);
  Run();
  ExpectEndedWith({});
}

TEST_F(FitDriverTest, WithoutIterationsTheLimitIsReportedAtOnce) {
  for (const std::int32_t iterations : {0, -5}) {
    toy::TheModel() = {};
    SetProblem({0.0}, 0.0, iterations);
    SetValues({}, OneStep);
    Run();
    EXPECT_THAT(Log(), ElementsAre("normalise", "*box", "repaint Amplitude Histogram"));
    EXPECT_EQ(workspace().LineSearchLimit, iterations);
  }
}

TEST_F(FitDriverTest, ATermThatLeftTheAxisEndsTheFitAtTheTopOfTheNextPass) {
  SetProblem({0.0}, 0.0, 20);
  SetObjective([](const auto& point) { return 100.0 + std::fabs(point[0] - 1000.0); });
  toy::TheModel().Show = [](ParameterVector& point, std::int32_t) {
    if (point[0] <= 50.0) return 0;
    point[0] = 50.0;
    return -1;
  };
  Run();
  ExpectEndedWith({kOutOfRange});
  EXPECT_THAT(LogFrom("*show"),
              ElementsAre("*show amplitude 1", "*box", "repaint Amplitude Histogram"));
  EXPECT_EQ(toy::TheModel().Shown.back()[0], 50.0);
}

TEST_F(FitDriverTest, ATermBesideTheAxisAtTheStartIsToldBeforeAnyEvaluation) {
  SetProblem({0.0}, 0.0, 20);
  toy::TheModel().Show = [](ParameterVector&, std::int32_t) { return -1; };
  Keys(ViewKind::Amplitude) = {kKeyBreak};
  Run();
  ExpectEndedWith({kOutOfRange});
  EXPECT_THAT(toy::TheModel().Evaluated, IsEmpty());
  EXPECT_EQ(Keys(ViewKind::Amplitude).size(), 1u) << "keys are read after the display has answered";
}

TEST_F(FitDriverTest, OnlyANegativeAnswerOfTheDisplayEndsTheFit) {
  SetProblem({0.0}, 1e9, 20);
  SetObjective([](const auto&) { return 1.0; });
  toy::TheModel().Show = [](ParameterVector&, std::int32_t) { return 1; };
  Run();
  ExpectEndedWith({});
}

}  // namespace
}  // namespace ondrel
