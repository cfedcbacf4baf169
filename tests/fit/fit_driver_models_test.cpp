// The driver with the two mixture models.
#include <gmock/gmock.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "fit/amplitude_model.h"
#include "fit/direction_set.h"
#include "fit/duration_model.h"
#include "fit/model_fit_fixture.h"

namespace ondrel {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class FitDriverModelsTest : public ModelFitTest {
 protected:
  /// From -5 to 5 pA.
  void SetAxis() {
    Amplitude().Minimum = -5.0;
    Amplitude().TickMarks = 10;
  }

  /// About 1000 amplitudes of a normal distribution: as many as expected in the middle of each bin.
  void CountNormal(double mean, double deviation) {
    std::vector<double> amplitudes;
    for (double x = -4.975; x < 5.0; x += 0.05) {
      const double density = std::exp(-0.5 * std::pow((x - mean) / deviation, 2)) / deviation;
      amplitudes.insert(amplitudes.end(), static_cast<std::size_t>(20.0 * density + 0.5), x);
    }
    CountAmplitudes(amplitudes);
  }

  double ValueAt(const FitOperations& model, const ParameterVector& point, std::int32_t count) {
    const ParameterVector direction{};
    return LineValue({workspace(), model, point, direction, count}, 0.0);
  }
};

TEST_F(FitDriverModelsTest, TheWeightOfASingleTermBecomesOneAndStaysOne) {
  SetAxis();
  CountNormal(1.0, 0.7);
  SetTerms(std::vector<AmplitudeTerm>{{.Weight = 0.4, .Current = 0.5, .StdDev = 1.0}});
  FitAmplitude(Frame());
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_EQ(Amplitude().Terms[0].Weight, 1.0);
  EXPECT_NEAR(Amplitude().Terms[0].Current, 1.0, 0.01);
  EXPECT_NEAR(Amplitude().Terms[0].StdDev, 0.7, 0.02);
  EXPECT_NEAR(Amplitude().Terms[0].Area, Amplitude().EventsInHistogram, 1.0);
}

TEST_F(FitDriverModelsTest, AlongTheWeightOfASingleTermTheObjectiveIsFlat) {
  SetAxis();
  CountNormal(1.0, 0.7);
  ParameterVector point{1.0, 0.5, 1.0};
  ParameterVector direction{1.0};
  const double before = NegativeLogLikelihood(Amplitude(), point);
  double value = 0.0;
  LineMinimise(workspace(), kAmplitudeModel, point, direction, 3, value);
  EXPECT_EQ(value, before);
  EXPECT_EQ(point, (ParameterVector{1.0, 0.5, 1.0}));
}

TEST_F(FitDriverModelsTest, ATermThatWasNeverDraggedHasNoWeightAndIsFittedAllTheSame) {
  SetAxis();
  CountNormal(1.0, 0.7);
  SetTerms(std::vector<AmplitudeTerm>{{.Weight = 0.0, .Current = 0.5, .StdDev = 1.0}});
  FitAmplitude(Frame());
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_EQ(Amplitude().Terms[0].Weight, 1.0);
  EXPECT_NEAR(Amplitude().Terms[0].Current, 1.0, 0.01);
}

TEST_F(FitDriverModelsTest, ACurrentThatLeavesTheRangeIsSetToItsEndAndToldAtTheNextPass) {
  SetAxis();
  // Ever more events up to the right end: the left flank of a peak beyond it.
  CountNormal(8.0, 2.0);
  SetTerms(std::vector<AmplitudeTerm>{{.Weight = 1.0, .Current = 4.0, .StdDev = 1.0}});
  FitAmplitude(Frame());
  EXPECT_THAT(Messages(), ElementsAre(HasSubstr("outside of the visible range")));
  EXPECT_EQ(Amplitude().Terms[0].Current, 5.0);
  EXPECT_GE(Passes(), 2) << "not before the pass has ended";
  EXPECT_EQ(Amplitude().Terms[0].Weight, 1.0);
}

TEST_F(FitDriverModelsTest, ATimeConstantThatLeavesTheRangeIsSetToItsEnd) {
  std::vector<double> dwells(1000, 0.9);
  CountDurations(dwells);
  SetTerms(std::vector<DurationTerm>{{.Weight = 1.0, .TimeConstant = 0.3}});
  FitDuration(Frame());
  EXPECT_THAT(Messages(), ElementsAre(HasSubstr("outside of the visible range")));
  EXPECT_EQ(Duration().Terms[0].TimeConstant, 1.0 + 1e-5);
}

TEST_F(FitDriverModelsTest, ADeviationBelowATenthOfABinIsLiftedSilentlyAndTheFitGoesOn) {
  SetAxis();
  // All in the middle of one bin of 0.05 pA: no deviation is small enough.
  CountAmplitudes(std::vector<double>(500, 1.025));
  SetTerms(std::vector<AmplitudeTerm>{{.Weight = 1.0, .Current = 1.025, .StdDev = 0.3}});
  FitAmplitude(Frame());
  EXPECT_GE(Passes(), 2);
  EXPECT_EQ(Amplitude().Terms[0].StdDev, 1.0 / (20 * 10.0));
  EXPECT_THAT(Messages(), Not(Contains(HasSubstr("outside of the visible range"))));
}

TEST_F(FitDriverModelsTest, ACurrentMayHaveEitherSign) {
  SetAxis();
  CountNormal(-1.0, 0.7);
  for (const double current : {-2.0, 0.0, 2.0}) {
    const ParameterVector point{1.0, current, 0.9};
    EXPECT_EQ(ValueAt(kAmplitudeModel, point, 3), NegativeLogLikelihood(Amplitude(), point));
  }
  SetTerms(std::vector<AmplitudeTerm>{{.Weight = 1.0, .Current = 0.5, .StdDev = 1.0}});
  FitAmplitude(Frame());
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_NEAR(Amplitude().Terms[0].Current, -1.0, 0.01);
}

TEST_F(FitDriverModelsTest, ANegativeWeightOrDeviationCostsAMillion) {
  SetAxis();
  CountNormal(1.0, 0.7);
  EXPECT_EQ(ValueAt(kAmplitudeModel, {-0.1, 1.0, 0.7, 1.1, 1.0, 0.7}, 6), 1000000.0);
  EXPECT_EQ(ValueAt(kAmplitudeModel, {1.0, 1.0, -0.7}, 3), 1000000.0);
}

TEST_F(FitDriverModelsTest, NoParameterOfADurationTermMayBeNegative) {
  CountDurations(std::vector<double>(100, 0.01));
  const ParameterVector point{0.01, 0.5, 0.1, 0.5};
  EXPECT_EQ(ValueAt(kDurationModel, point, 4), NegativeLogLikelihood(Duration(), point));
  EXPECT_EQ(ValueAt(kDurationModel, {0.01, 0.5, -0.1, 0.5}, 4), 1000000.0);
  EXPECT_EQ(ValueAt(kDurationModel, {0.01, 1.5, 0.1, -0.5}, 4), 1000000.0);
}

TEST_F(FitDriverModelsTest, NothingIsAllocatedInsideAFit) {
  CountAmplitudes({2.7, 2.9, 3.0, 3.1, 3.2, 3.4});
  int calls = shell().Allocation.Calls;
  FitAmplitude(Frame());
  EXPECT_EQ(shell().Allocation.Calls, calls);
  FreeAllTables(workspace());
  CountDurations({0.0004, 0.001, 0.002, 0.003});
  calls = shell().Allocation.Calls;
  FitDuration(Frame());
  EXPECT_EQ(shell().Allocation.Calls, calls);
  EXPECT_GT(Passes(), 2);
}

TEST_F(FitDriverModelsTest, AnEmptyHistogramConvergesAtOnce) {
  BuildAmplitudeHistogram(workspace());
  BuildDurationHistogram(workspace());
  Amplitude().Terms[0].Weight = 1.0;
  Duration().Terms[0].Weight = 1.0;
  FitAmplitude(Frame());
  FitDuration(Frame());
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_EQ(Passes(), 2);
}

TEST_F(FitDriverModelsTest, ALaterFitStartsFromTheTermsThatTheFirstOneLeft) {
  SetAxis();
  CountNormal(1.0, 0.7);
  SetTerms(std::vector<AmplitudeTerm>{{.Weight = 1.0, .Current = -2.0, .StdDev = 2.5}});
  Amplitude().FitIterations = 1;
  FitAmplitude(Frame());
  EXPECT_THAT(Messages(), ElementsAre(HasSubstr("Exceeded the maximum iteration")));
  EXPECT_EQ(Amplitude().Terms[0].Current, -2.0) << "of the top of the only pass";
  Amplitude().FitIterations = 20;
  FitAmplitude(Frame());
  const AmplitudeTerm found = Amplitude().Terms[0];
  const int before = Passes();
  FitAmplitude(Frame());
  EXPECT_EQ(Passes(), before + 1);
  EXPECT_EQ(Amplitude().Terms[0].Current, found.Current);
}

}  // namespace
}  // namespace ondrel
