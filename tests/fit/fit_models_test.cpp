#include "fit/fit_models.h"

#include <gmock/gmock.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include "fit/amplitude_histogram.h"
#include "fit/amplitude_model.h"
#include "fit/duration_histogram.h"
#include "fit/duration_model.h"
#include "fit/histogram_fixture.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

/// The first `count` entries.
std::vector<double> Head(const ParameterVector& point, std::ptrdiff_t count) {
  return {point.begin(), point.begin() + count};
}

// --- The steps of the search ---------------------------------------------------------------------

TEST(FitModelsTest, AStepScalesTheDirectionAndMovesThePointAlongIt) {
  for (const FitOperations* model : {&kAmplitudeModel, &kDurationModel}) {
    ParameterVector point{1.0, 2.0, 3.0, 4.0};
    ParameterVector direction{0.5, 0.25, -1.0, 8.0};
    model->ApplyStep(point, direction, 3, 2.0);
    EXPECT_THAT(Head(direction, 4), ElementsAre(1.0, 0.5, -2.0, 8.0));
    EXPECT_THAT(Head(point, 4), ElementsAre(2.0, 2.5, 1.0, 4.0));
  }
}

TEST(FitModelsTest, AStepLeavesNoParameterBelowItsFloorButACurrent) {
  ParameterVector point{};
  ParameterVector direction;
  direction.fill(-1.0);
  kAmplitudeModel.ApplyStep(point, direction, 6, 1.0);
  EXPECT_THAT(Head(point, 7), ElementsAre(1e-30, -1.0, 1e-30, 1e-30, -1.0, 1e-30, 0.0));
}

TEST(FitModelsTest, AStepLeavesNoDurationParameterBelowItsFloor) {
  ParameterVector point{};
  ParameterVector direction;
  direction.fill(-1.0);
  kDurationModel.ApplyStep(point, direction, 6, 1.0);
  EXPECT_THAT(Head(point, 7), ElementsAre(1e-30, 1e-30, 1e-30, 1e-30, 1e-30, 1e-30, 0.0));
}

TEST(FitModelsTest, AStepLiftsWhatIsAboveZeroButBelowTheFloor) {
  for (const FitOperations* model : {&kAmplitudeModel, &kDurationModel}) {
    ParameterVector point{5e-31};
    ParameterVector direction{};
    model->ApplyStep(point, direction, 1, 1.0);
    EXPECT_EQ(point[0], 1e-30);
  }
}

TEST(FitModelsTest, TheFloorItselfIsKept) {
  ParameterVector point{1e-30, 2e-30};
  ParameterVector direction{};
  kDurationModel.ApplyStep(point, direction, 2, 1.0);
  EXPECT_THAT(Head(point, 2), ElementsAre(1e-30, 2e-30));
}

TEST(FitModelsTest, WeightsComeFirstInAmplitudeTermsAndLastInDurationTerms) {
  ParameterVector point{1.0, 5.0, 6.0, 3.0, 7.0, 8.0, 9.0};
  kAmplitudeModel.NormaliseWeights(point, 6);
  EXPECT_THAT(Head(point, 7), ElementsAre(0.25, 5.0, 6.0, 0.75, 7.0, 8.0, 9.0));
  point = {5.0, 1.0, 6.0, 3.0, 7.0, 9.0};
  kDurationModel.NormaliseWeights(point, 4);
  EXPECT_THAT(Head(point, 6), ElementsAre(5.0, 0.25, 6.0, 0.75, 7.0, 9.0));
}

TEST(FitModelsTest, WeightsThatSumToNothingAreDividedByAVeryLittle) {
  ParameterVector point{0.5, 5.0, 6.0, -0.5, 7.0, 8.0};
  kAmplitudeModel.NormaliseWeights(point, 6);
  EXPECT_THAT(Head(point, 6), ElementsAre(0.5 / 1e-30, 5.0, 6.0, -0.5 / 1e-30, 7.0, 8.0));
  point = {5.0, 0.0, 6.0, 0.0};
  kDurationModel.NormaliseWeights(point, 4);
  EXPECT_THAT(Head(point, 4), ElementsAre(5.0, 0.0, 6.0, 0.0));
}

TEST(FitModelsTest, WeightsThatSumBelowZeroAreDividedByThatSum) {
  ParameterVector point{-1.0, 5.0, 6.0, 0.5, 7.0, 8.0};
  kAmplitudeModel.NormaliseWeights(point, 6);
  EXPECT_THAT(Head(point, 6), ElementsAre(2.0, 5.0, 6.0, -1.0, 7.0, 8.0));
  point = {5.0, -1.0, 6.0, 0.5};
  kDurationModel.NormaliseWeights(point, 4);
  EXPECT_THAT(Head(point, 4), ElementsAre(5.0, 2.0, 6.0, -1.0));
}

TEST(FitModelsTest, ATrialPointLiesAStepAlongTheDirection) {
  const ParameterVector point{1.0, 2.0, 3.0, 9.0};
  const ParameterVector direction{0.5, 0.25, -1.0, 8.0};
  for (const FitOperations* model : {&kAmplitudeModel, &kDurationModel}) {
    ParameterVector result{};
    EXPECT_FALSE(model->TrialPoint(2.0, 3, point, direction, result));
    EXPECT_THAT(Head(result, 4), ElementsAre(2.0, 2.5, 1.0, 0.0));
  }
}

TEST(FitModelsTest, ATrialPointMayHaveANegativeCurrentAlone) {
  const ParameterVector direction{};
  ParameterVector result{};
  for (std::size_t j = 0; j < 6; ++j) {
    ParameterVector point{};
    point[j] = -1e-300;
    EXPECT_EQ(kAmplitudeModel.TrialPoint(1.0, 6, point, direction, result), j != 1 && j != 4) << j;
    EXPECT_TRUE(kDurationModel.TrialPoint(1.0, 6, point, direction, result)) << j;
    EXPECT_FALSE(kDurationModel.TrialPoint(1.0, static_cast<int>(j), point, direction, result));
  }
}

TEST(FitModelsTest, ATrialPointOfZerosIsAllowed) {
  const ParameterVector zero{};
  ParameterVector result{};
  EXPECT_FALSE(kAmplitudeModel.TrialPoint(1.0, 6, zero, zero, result));
  EXPECT_FALSE(kDurationModel.TrialPoint(1.0, 6, zero, zero, result));
}

TEST(FitModelsTest, ANegativeStoredWeightForbidsEveryTrialPoint) {
  DurationHistogram histogram;
  histogram.TermCount = 2;
  histogram.Terms[0] = {1.5, 0.001, 15.0};
  histogram.Terms[1] = {-0.5, 0.01, -5.0};
  ParameterVector point = ParametersOf(histogram);
  kDurationModel.NormaliseWeights(point, 4);
  const ParameterVector direction{1.0};
  ParameterVector result{};
  for (const double step : {-0.0005, 0.0, 0.1, 2.0}) {
    EXPECT_TRUE(kDurationModel.TrialPoint(step, 4, point, direction, result)) << step;
  }
}

TEST(FitModelsTest, AnExtrapolationGoesOnAsFarAgain) {
  for (const FitOperations* model : {&kAmplitudeModel, &kDurationModel}) {
    const ParameterVector point{2.0, 5.0, 3.0, 7.0};
    ParameterVector saved{1.0, 3.0, 2.5, 6.0};
    ParameterVector extrapolated{};
    ParameterVector direction{9.0, 9.0, 9.0, 9.0};
    EXPECT_FALSE(model->Extrapolate(extrapolated, 3, saved, point, direction));
    EXPECT_THAT(Head(extrapolated, 4), ElementsAre(3.0, 7.0, 3.5, 0.0));
    EXPECT_THAT(Head(direction, 4), ElementsAre(1.0, 2.0, 0.5, 9.0));
    EXPECT_THAT(Head(saved, 4), ElementsAre(2.0, 5.0, 3.0, 6.0));
  }
}

TEST(FitModelsTest, AnExtrapolationIsLiftedByTheFloor) {
  const ParameterVector point{1e-30, 0.0};
  ParameterVector saved{0.0, 0.0};
  ParameterVector extrapolated{};
  ParameterVector direction{};
  EXPECT_FALSE(kDurationModel.Extrapolate(extrapolated, 2, saved, point, direction));
  EXPECT_THAT(Head(extrapolated, 2), ElementsAre(2e-30 + 1e-30, 1e-30));
}

TEST(FitModelsTest, AnExtrapolationToTheFloorItselfIsAllowedAndNoneBelowIt) {
  for (const FitOperations* model : {&kAmplitudeModel, &kDurationModel}) {
    ParameterVector extrapolated{};
    ParameterVector direction{};
    ParameterVector saved{1.0};
    EXPECT_FALSE(model->Extrapolate(extrapolated, 1, saved, {0.5}, direction));
    EXPECT_EQ(extrapolated[0], 1e-30);
    saved = {1.5e-30};
    EXPECT_TRUE(model->Extrapolate(extrapolated, 1, saved, {0.5e-30}, direction));
    EXPECT_DOUBLE_EQ(extrapolated[0], 5e-31);
  }
}

TEST(FitModelsTest, AnExtrapolationBelowTheFloorIsForbiddenButForACurrent) {
  for (std::size_t j = 0; j < 6; ++j) {
    const ParameterVector point{};
    ParameterVector saved{};
    saved[j] = 1.0;
    ParameterVector extrapolated{};
    ParameterVector direction{};
    EXPECT_EQ(kAmplitudeModel.Extrapolate(extrapolated, 6, saved, point, direction),
              j != 1 && j != 4);
    EXPECT_EQ(extrapolated[j], -1.0);
    EXPECT_EQ(saved[j], 0.0) << "moved all the same";
    EXPECT_EQ(direction[j], -1.0);
    saved[j] = 1.0;
    EXPECT_TRUE(kDurationModel.Extrapolate(extrapolated, 6, saved, point, direction));
  }
}

TEST(FitModelsTest, EachModelAnswersForItsViews) {
  EXPECT_TRUE(kAmplitudeModel.IsAmplitude());
  EXPECT_TRUE(kAmplitudeModel.RepaintsAmplitude());
  EXPECT_FALSE(kDurationModel.IsAmplitude());
  EXPECT_FALSE(kDurationModel.RepaintsAmplitude());
}

// --- Terms and points ----------------------------------------------------------------------------

class StoreTermsTest : public HistogramTest {
 protected:
  StoreTermsTest() {
    amplitude().TermCount = 2;
    duration().TermCount = 2;
    duration().FilterFrequency = 1e9;
    AddLevel(0.5e-12, 0.01);
    AddLevel(2.5e-12, 0.02);
    AddLevel(99e-12, 50.0);  // beside both axes
    BuildAmplitudeHistogram(workspace());
    BuildDurationHistogram(workspace());
  }

  AmplitudeHistogram& amplitude() { return workspace().Amplitude; }
  DurationHistogram& duration() { return workspace().Duration; }
};

TEST_F(StoreTermsTest, AModelIgnoresTheOtherOnesHistogram) {
  const ParameterVector point{0.5, 1.0, 0.5, 0.5, 2.0, 0.5};
  const AmplitudeHistogram noAmplitude;
  const DurationHistogram noDuration;
  EXPECT_EQ(kAmplitudeModel.NegativeLogLikelihood(amplitude(), noDuration, point),
            NegativeLogLikelihood(amplitude(), point));
  EXPECT_EQ(kDurationModel.NegativeLogLikelihood(noAmplitude, duration(), point),
            NegativeLogLikelihood(duration(), point));
}

TEST_F(StoreTermsTest, TermsStandInAPointInTheOrderOfTheirModel) {
  amplitude().Terms[0] = {0.25, 1.0, 0.5, 10.0};
  amplitude().Terms[1] = {0.75, 2.0, 0.6, 30.0};
  amplitude().Terms[2] = {9.0, 9.0, 9.0, 9.0};
  EXPECT_THAT(Head(ParametersOf(amplitude()), 6), ElementsAre(0.25, 1.0, 0.5, 0.75, 2.0, 0.6));
  EXPECT_EQ(ParametersOf(amplitude())[6], 0.0);
  duration().Terms[0] = {0.25, 0.01, 10.0};
  duration().Terms[1] = {0.75, 0.1, 30.0};
  duration().Terms[2] = {9.0, 9.0, 9.0};
  EXPECT_THAT(Head(ParametersOf(duration()), 5), ElementsAre(0.01, 0.25, 0.1, 0.75, 0.0));
}

TEST_F(StoreTermsTest, ParametersAreCountedForTheTermsInUse) {
  EXPECT_EQ(CountParameters(amplitude()), 6);
  EXPECT_EQ(CountParameters(duration()), 4);
  amplitude().TermCount = 100;
  duration().TermCount = 100;
  EXPECT_EQ(CountParameters(amplitude()), 30);
  EXPECT_EQ(CountParameters(duration()), 20);
  EXPECT_THAT(Head(ParametersOf(duration()), 30).back(), 0.0);
}

TEST_F(StoreTermsTest, APointGoesIntoTheTermsWithTheirAreas) {
  ParameterVector point{0.25, 1.0, 0.5, 0.75, 2.0, 0.6};
  const ParameterVector given = point;
  EXPECT_EQ(StoreTerms(amplitude(), point), 0);
  EXPECT_EQ(point, given);
  EXPECT_EQ(ParametersOf(amplitude()), given);
  const double scale = 3.0 / VisibleProbability(amplitude());
  EXPECT_EQ(amplitude().Terms[0].Area, scale * 0.25);
  EXPECT_EQ(amplitude().Terms[1].Area, scale * 0.75);
}

TEST_F(StoreTermsTest, ADurationPointGoesIntoTheTermsWithTheirAreas) {
  ParameterVector point{0.01, 0.25, 0.1, 0.75};
  const ParameterVector given = point;
  EXPECT_EQ(StoreTerms(duration(), point), 0);
  EXPECT_EQ(point, given);
  EXPECT_EQ(ParametersOf(duration()), given);
  const double scale = 3.0 / VisibleProbability(duration());
  EXPECT_EQ(duration().Terms[0].Area, scale * 0.25);
  EXPECT_EQ(duration().Terms[1].Area, scale * 0.75);
}

TEST_F(StoreTermsTest, ACurrentBesideTheAxisIsSetToItsEnd) {
  amplitude().Minimum = -1.0;  // to 4 pA
  ParameterVector point{0.5, -1.5, 0.5, 0.5, 4.5, 0.5};
  EXPECT_EQ(StoreTerms(amplitude(), point), -1);
  EXPECT_EQ(point[1], -1.0);
  EXPECT_EQ(point[4], 4.0);
  EXPECT_EQ(ParametersOf(amplitude()), point);
  EXPECT_EQ(StoreTerms(amplitude(), point), 0) << "the ends belong to the axis";
  point[1] = -1.5;
  EXPECT_EQ(StoreTerms(amplitude(), point), -1) << "one of them is enough";
}

TEST_F(StoreTermsTest, ATimeConstantBesideTheAxisIsSetToItsEnd) {
  ParameterVector point{1e-6, 0.5, 3.0, 0.5};
  EXPECT_EQ(StoreTerms(duration(), point), -1);
  EXPECT_EQ(point[0], 1e-5);
  EXPECT_EQ(point[2], 1.0 + 1e-5) << "slightly more than the axis";
  EXPECT_EQ(ParametersOf(duration()), point);
  EXPECT_EQ(StoreTerms(duration(), point), 0);
}

TEST_F(StoreTermsTest, AStdDevIsLiftedToATenthOfABinWithoutAWord) {
  ParameterVector point{0.5, 1.0, 0.0049, 0.5, 2.0, 0.0051};
  EXPECT_EQ(StoreTerms(amplitude(), point), 0);
  EXPECT_EQ(point[2], 1.0 / 200.0);
  EXPECT_EQ(amplitude().Terms[0].StdDev, 1.0 / 200.0);
  EXPECT_EQ(point[5], 0.0051);
}

TEST_F(StoreTermsTest, ATimeConstantIsTheOnlyLimitOfADurationTerm) {
  ParameterVector point{0.01, -0.5, 0.1, 7.0};
  EXPECT_EQ(StoreTerms(duration(), point), 0);
  EXPECT_EQ(point[1], -0.5);
  EXPECT_LT(duration().Terms[0].Area, 0.0);
}

TEST_F(StoreTermsTest, AreasAreScaledByTheFloorWhenNothingIsVisible) {
  ParameterVector point{0.0, 1.0, 0.5, 0.0, 2.0, 0.5};
  EXPECT_EQ(StoreTerms(amplitude(), point), 0);
  EXPECT_EQ(amplitude().Terms[0].Area, 0.0);
  for (int bin = 1; bin <= 100; ++bin) duration().Bins[bin].Flags = kExcludedBin;
  ParameterVector durations{0.01, 0.25, 0.1, 0.75};
  StoreTerms(duration(), durations);
  EXPECT_EQ(duration().Terms[1].Area, 3.0 / 1e-50 * 0.75);
}

TEST_F(StoreTermsTest, NotANumberIsStoredAsItIs) {
  ParameterVector point{0.5, kNan, 0.5, 0.5, 2.0, 0.5};
  EXPECT_EQ(StoreTerms(amplitude(), point), 0);
  EXPECT_TRUE(std::isnan(amplitude().Terms[0].Current));
}

}  // namespace
}  // namespace ondrel
