// How the two commands set up a fit.
#include <gmock/gmock.h>

#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

#include "fit/amplitude_histogram.h"
#include "fit/driver_fixture.h"
#include "fit/duration_histogram.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FitCommandTest : public DriverTest {
 protected:
  FitCommandTest() {
    workspace().AmplitudeModel = toy::kOperations;
    workspace().DurationModel = toy::kOperations;
    OpenInert(ViewKind::DurationFit);
    OpenInert(ViewKind::Duration);
    BuildAmplitudeHistogram(workspace());
    BuildDurationHistogram(workspace());
    toy::TheModel().Objective = [](const ParameterVector&) { return 1.0; };
  }

  void SetAmplitudeTerms() {
    workspace().Amplitude.TermCount = 2;
    workspace().Amplitude.Terms[0] = {.Weight = 0.25, .Current = -2.0, .StdDev = 0.5};
    workspace().Amplitude.Terms[1] = {.Weight = 0.75, .Current = 3.0, .StdDev = 0.7};
  }
  void SetDurationTerms() {
    workspace().Duration.TermCount = 2;
    workspace().Duration.Terms[0] = {.Weight = 0.25, .TimeConstant = 0.003};
    workspace().Duration.Terms[1] = {.Weight = 0.75, .TimeConstant = 0.5};
  }

  /// As if the view were closed.
  void WithoutWindow(ViewKind kind, const std::function<void()>& act) {
    ChildWindow* const window = std::exchange(View(kind).Window, nullptr);
    act();
    View(kind).Window = window;
  }

  /// The directions of the first pass, in their order.
  static std::vector<ParameterVector> FirstDirections() {
    std::vector<ParameterVector> directions;
    for (const ParameterVector& direction : toy::TheModel().TrialDirections) {
      if (directions.empty() || direction != directions.back()) directions.push_back(direction);
    }
    return directions;
  }

  static void ExpectDiagonal(const std::vector<double>& lengths) {
    const std::vector<ParameterVector> directions = FirstDirections();
    ASSERT_EQ(directions.size(), lengths.size());
    for (std::size_t i = 0; i < lengths.size(); ++i) {
      ParameterVector expected{};
      expected[i] = lengths[i];
      EXPECT_EQ(directions[i], expected) << "direction " << i;
    }
  }

  static std::vector<double> FirstPoint(std::size_t count) {
    const ParameterVector& point = toy::TheModel().Shown.at(0);
    return {point.begin(), point.begin() + static_cast<std::ptrdiff_t>(count)};
  }
};

TEST_F(FitCommandTest, AmplitudesStartFromTheTermsAsWeightCurrentStdDev) {
  SetAmplitudeTerms();
  FitAmplitude(Frame());
  EXPECT_THAT(FirstPoint(7), ElementsAre(0.25, -2.0, 0.5, 0.75, 3.0, 0.7, 0.0));
}

TEST_F(FitCommandTest, DurationsStartFromTheTermsAsTimeConstantWeight) {
  toy::TheModel().Amplitude = false;
  SetDurationTerms();
  FitDuration(Frame());
  EXPECT_THAT(FirstPoint(5), ElementsAre(0.003, 0.25, 0.5, 0.75, 0.0));
  EXPECT_EQ(Log()[1], "*show duration 0");
}

TEST_F(FitCommandTest, EachAmplitudeParameterHasADirectionOfItsOwnLength) {
  workspace().Amplitude.PerTick = 2.5;
  SetAmplitudeTerms();
  FitAmplitude(Frame());
  ExpectDiagonal({1.0, 2.5, 1.0, 1.0, 2.5, 1.0});
}

TEST_F(FitCommandTest, EachDurationParameterHasADirectionOfItsOwnLength) {
  SetDurationTerms();
  FitDuration(Frame());
  ExpectDiagonal({0.003 / 3.0, 1.0, 0.5 / 3.0, 1.0});
}

TEST_F(FitCommandTest, TenTermsFit) {
  workspace().Amplitude.TermCount = 10;
  workspace().Duration.TermCount = 10;
  for (std::size_t i = 0; i < 10; ++i) {
    workspace().Amplitude.Terms[i] = {.Weight = 0.1, .Current = 1.0 * static_cast<double>(i)};
    workspace().Duration.Terms[i] = {.Weight = 0.1,
                                     .TimeConstant = 0.1 * static_cast<double>(i + 1)};
  }
  FitAmplitude(Frame());
  EXPECT_EQ(FirstDirections().size(), 30u);
  EXPECT_EQ(FirstDirections().back()[29], 1.0);
  toy::TheModel().TrialDirections.clear();
  FitDuration(Frame());
  EXPECT_EQ(FirstDirections().size(), 20u);
}

TEST_F(FitCommandTest, ToleranceAndIterationsAreThoseOfTheHistogram) {
  workspace().Amplitude.FitIterations = 7;
  workspace().Amplitude.FitTolerance = 1e9;
  workspace().Duration.FitIterations = 9;
  workspace().Duration.FitTolerance = -1.0;  // never reached
  FitAmplitude(Frame());
  EXPECT_EQ(workspace().LineSearchLimit, 7);
  EXPECT_THAT(Messages(), IsEmpty());
  FitDuration(Frame());
  EXPECT_EQ(workspace().LineSearchLimit, 9);
  EXPECT_THAT(Messages(), ElementsAre(kTooManyIterations));
  EXPECT_EQ(toy::TheModel().Shown.size(), 1u + 9u);
}

TEST_F(FitCommandTest, WithoutTheHistogramViewNothingHappens) {
  WithoutWindow(ViewKind::Amplitude, [&] { FitAmplitude(Frame()); });
  WithoutWindow(ViewKind::Duration, [&] { FitDuration(Frame()); });
  EXPECT_THAT(Log(), IsEmpty());
  EXPECT_EQ(shell().WaitCursorChanges, 0);
}

TEST_F(FitCommandTest, WithoutTheViewOfTheParametersNothingHappens) {
  WithoutWindow(ViewKind::AmplitudeFit, [&] { FitAmplitude(Frame()); });
  WithoutWindow(ViewKind::DurationFit, [&] { FitDuration(Frame()); });
  EXPECT_THAT(Log(), IsEmpty());
}

TEST_F(FitCommandTest, WithoutBinsNothingHappens) {
  FreeAllTables(workspace());
  ASSERT_EQ(workspace().Amplitude.Bins, nullptr);
  ASSERT_EQ(workspace().Duration.Bins, nullptr);
  FitAmplitude(Frame());
  FitDuration(Frame());
  EXPECT_THAT(Log(), IsEmpty());
}

TEST_F(FitCommandTest, EachCommandNeedsItsOwnViewsAlone) {
  WithoutWindow(ViewKind::Duration, [&] { FitAmplitude(Frame()); });
  WithoutWindow(ViewKind::DurationFit, [&] { FitAmplitude(Frame()); });
  WithoutWindow(ViewKind::Amplitude, [&] { FitDuration(Frame()); });
  WithoutWindow(ViewKind::AmplitudeFit, [&] { FitDuration(Frame()); });
  EXPECT_EQ(toy::TheModel().Shown.size(), 4u);
}

}  // namespace
}  // namespace ondrel
