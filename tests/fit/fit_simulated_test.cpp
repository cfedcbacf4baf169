// The way of a recording from the simulator's table to the constants of its channel: read, made
// into levels, selected, counted and fitted. The rates of the channel are known, and with them the
// distributions of its dwells.
#include <gmock/gmock.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "derived/derived_chain.h"
#include "fit/fit_truth_fixture.h"
#include "shell/toolkit.h"
#include "simulate/event_table_text.h"
#include "simulate/model.h"
#include "simulate/recording.h"
#include "workspace/event_table_reader.h"

namespace ondrel {
namespace {

// A channel that is long closed, briefly closed, or open. Rates in s^-1.
constexpr double kClosedToBrief = 20.0;
constexpr double kBriefToClosed = 400.0;
constexpr double kBriefToOpen = 800.0;
constexpr double kOpenToBrief = 200.0;
constexpr double kOpenCurrent = 5.0;  // pA
constexpr double kNoise = 0.4;        // pA, of a dwell's current

simulate::Model ChannelModel() {
  simulate::Model model;
  model.States = {{"closed", 0, 0.0}, {"brief", 0, 0.0}, {"open", 1, kOpenCurrent}};
  simulate::FilePlan plan;
  plan.Rates = simulate::RateMatrix(3);
  plan.Rates.At(0, 1) = kClosedToBrief;
  plan.Rates.At(1, 0) = kBriefToClosed;
  plan.Rates.At(1, 2) = kBriefToOpen;
  plan.Rates.At(2, 1) = kOpenToBrief;
  plan.Noise = kNoise;
  plan.Duration = 700.0;
  model.Files = {plan};
  return model;
}

/// A closing begins in the brief state. Its density is a mixture whose rates are the eigenvalues of
/// the closed states' rate matrix, and which at time 0 is the rate of opening.
Exponentials ClosedTimes() {
  const double trace = kClosedToBrief + kBriefToClosed + kBriefToOpen;
  const double root = std::sqrt(trace * trace - 4.0 * kClosedToBrief * kBriefToOpen);
  const double fast = 0.5 * (trace + root);
  const double slow = 0.5 * (trace - root);
  const double fastShare = (kBriefToOpen - slow) / (fast - slow);
  return {{1.0 / fast, 1.0 / slow}, {fastShare, 1.0 - fastShare}};
}

// Three closed states, each entered from the open one alone, so that the closed times are a mixture
// with the rates of leaving them, in the ratios of the rates of entering them.
const std::vector<double> kEntering = {90.0, 60.0, 50.0};
const std::vector<double> kLeaving = {4000.0, 200.0, 10.0};

simulate::Model ThreeClosedTimes() {
  simulate::Model model;
  model.States = {{"open", 1, kOpenCurrent}};
  simulate::FilePlan plan;
  plan.Rates = simulate::RateMatrix(kEntering.size() + 1);
  for (std::size_t i = 0; i < kEntering.size(); ++i) {
    model.States.push_back({"closed" + std::to_string(i), 0, 0.0});
    plan.Rates.At(0, i + 1) = kEntering[i];
    plan.Rates.At(i + 1, 0) = kLeaving[i];
  }
  plan.Duration = 800.0;
  model.Files = {plan};
  return model;
}

// Closed, half open, open: every second dwell is at the level between, and which of the others
// follows it is drawn anew each time.
constexpr double kHalfCurrent = 2.0;  // pA
constexpr double kToClosed = 300.0;
constexpr double kToOpen = 200.0;

simulate::Model ThreeLevels() {
  simulate::Model model;
  model.States = {{"closed", 0, 0.0}, {"half", 1, kHalfCurrent}, {"open", 2, kOpenCurrent}};
  simulate::FilePlan plan;
  plan.Rates = simulate::RateMatrix(3);
  plan.Rates.At(0, 1) = 400.0;
  plan.Rates.At(1, 0) = kToClosed;
  plan.Rates.At(1, 2) = kToOpen;
  plan.Rates.At(2, 1) = 500.0;
  plan.Noise = kNoise;
  plan.Duration = 150.0;
  model.Files = {plan};
  return model;
}

class FitSimulatedTest : public FitTruthTest {
 protected:
  FitSimulatedTest() {
    // Times in the table are rounded to 1 us, below which there is nothing to be counted.
    Duration().MinimumExponent = -7;
    Duration().Decades = 8;
    Duration().BinsPerDecade = 20;
    Duration().FilterFrequency = 1e7;
    workspace().Events.Capacity = 80000;
    workspace().Levels.Capacity = 80000;
    AllocateAllTables(Frame());
  }

  /// As if the model's recording had been opened from a file.
  void Open(const simulate::Model& model) {
    simulate::CheckModel(model);
    const std::string text = simulate::WriteEventTable(simulate::SimulateRecording(model, 11),
                                                       simulate::TableLayout::Version5);
    auto* block = static_cast<char*>(toolkit::AllocateZeroed(text.size(), 1));
    std::memcpy(block, text.data(), text.size());
    EXPECT_TRUE(ParseTable(Frame(), block, "simulated.evt", text.size()));
    DeriveAfterReading(workspace());
  }

  void SelectLevel(std::int32_t level) {
    LevelFilter& filter = workspace().Levels.LevelSelection;
    filter.LevelChoice = Selection::Include;
    filter.LevelLow = filter.LevelHigh = level;
    DeriveAfterLevelFilter(workspace());
    BuildDurationHistogram(workspace());
    EXPECT_GT(Duration().EventsInHistogram, 15000);
  }

  void CountCurrentsThemselves() {
    workspace().Events.AmplitudeMode = LevelAmplitude::Absolute;
    DeriveAfterLevelSettings(workspace());
    EXPECT_GT(Amplitude().EventsInHistogram, 15000);
  }
};

TEST_F(FitSimulatedTest, OpenTimesAreThoseOfTheRateOfClosing) {
  Open(ChannelModel());
  SelectLevel(1);
  Estimate({3.0 / kOpenToBrief});
  FitDuration(Frame());
  ExpectTruth(Exponentials{{1.0 / kOpenToBrief}, {1.0}});
}

TEST_F(FitSimulatedTest, ClosedTimesAreTheMixtureOfTheRateMatrix) {
  Open(ChannelModel());
  SelectLevel(0);
  const Exponentials truth = ClosedTimes();
  Estimate({truth.TimeConstants[0] * 3.0, truth.TimeConstants[1] / 3.0});
  FitDuration(Frame());
  ExpectTruth(truth);
}

TEST_F(FitSimulatedTest, StepsHaveTheNoiseOfBothTheirSides) {
  Open(ChannelModel());
  SelectLevel(1);
  BuildAmplitudeHistogram(workspace());
  const Gaussians truth{{kOpenCurrent}, {kNoise * std::sqrt(2.0)}, {1.0}};
  Estimate(truth, 1.0 / 3.0, {0.0}, 3.0, {1.0});
  FitAmplitude(Frame());
  ExpectTruth(truth);
}

TEST_F(FitSimulatedTest, CurrentsAreThoseOfTheStatesWithTheNoise) {
  Open(ChannelModel());
  CountCurrentsThemselves();
  const Gaussians truth{{0.0, kOpenCurrent}, {kNoise, kNoise}, {0.5, 0.5}};
  Estimate(truth, 1.0, {1.0, -1.0}, 3.0, {1.0, 3.0});
  FitAmplitude(Frame());
  ExpectTruth(truth);
}

TEST_F(FitSimulatedTest, ThreeClosedStatesGiveThreeClosedTimes) {
  Open(ThreeClosedTimes());
  SelectLevel(0);
  const double entering = kEntering[0] + kEntering[1] + kEntering[2];
  Exponentials truth;
  for (std::size_t i = 0; i < kLeaving.size(); ++i) {
    truth.TimeConstants.push_back(1.0 / kLeaving[i]);
    truth.Weights.push_back(kEntering[i] / entering);
  }
  Estimate(
      {3.0 * truth.TimeConstants[0], truth.TimeConstants[1] / 3.0, 3.0 * truth.TimeConstants[2]});
  FitDuration(Frame());
  ExpectTruth(truth);
}

TEST_F(FitSimulatedTest, ThreeLevelsGiveThreeCurrents) {
  workspace().Levels.MultipleOpenings = OpeningRule::Fragments;  // or openings would be joined
  Open(ThreeLevels());
  CountCurrentsThemselves();
  const double toClosed = kToClosed / (kToClosed + kToOpen);
  const Gaussians truth{{0.0, kHalfCurrent, kOpenCurrent},
                        {kNoise, kNoise, kNoise},
                        {0.5 * toClosed, 0.5, 0.5 * (1.0 - toClosed)}};
  Estimate(truth, 1.0, {0.5, -0.5, 0.5}, 1.0 / 3.0, {1.0, 3.0, 1.0 / 3.0});
  FitAmplitude(Frame());
  ExpectTruth(truth);
}

}  // namespace
}  // namespace ondrel
