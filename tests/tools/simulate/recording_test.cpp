// The steps from channels to transitions on hand-made visits, and the statistics of whole
// recordings against theory. Tolerances are four standard errors, worked out from the theory.
#include "simulate/recording.h"

#include <gmock/gmock.h>

#include <cmath>
#include <map>

#include "simulate/model_file.h"

namespace ondrel::simulate {
namespace {

const std::vector<ChannelState> kStates{
    {"closed", 0, 0.0}, {"open", 1, 4.0}, {"sub", 1, 3.0}, {"shut", 0, 0.0}};

void ExpectDwell(const Dwell& dwell, double start, double end, int level, double current) {
  EXPECT_DOUBLE_EQ(dwell.Start, start);
  EXPECT_DOUBLE_EQ(dwell.End, end);
  EXPECT_EQ(dwell.Level, level);
  EXPECT_DOUBLE_EQ(dwell.Current(), current);
}

Dwell MakeDwell(double start, double end, int level, double current) {
  return {start, end, level, current * (end - start), end - start};
}

std::vector<SimulatedFile> Simulate(const Model& model) {
  return SimulateRecording(model, model.Seed);
}

Model ModelOf(const std::string& text) {
  return ReadModel(text, "test");
}

/// The dwells of a level that begin and end inside their sweep.
std::vector<double> WholeDwells(const SimulatedFile& file, int level) {
  std::vector<double> lengths;
  for (const SimulatedSweep& sweep : file.Sweeps) {
    for (std::size_t i = 0; i + 1 < sweep.Transitions.size(); ++i) {
      if (sweep.Transitions[i].PostLevel != level) continue;
      lengths.push_back(sweep.Transitions[i + 1].Time - sweep.Transitions[i].Time);
    }
  }
  return lengths;
}

/// The share of time at each level, over sweeps that hold a transition each.
std::map<int, double> LevelShares(const SimulatedFile& file) {
  std::map<int, double> shares;
  const double duration = file.Plan->Duration;
  for (const SimulatedSweep& sweep : file.Sweeps) {
    double start = 0.0;
    for (const Transition& row : sweep.Transitions) {
      shares[row.PreLevel] += row.Time - start;
      start = row.Time;
    }
    shares[sweep.Transitions.back().PostLevel] += duration - start;
  }
  for (auto& [level, share] : shares) share /= duration * static_cast<double>(file.Sweeps.size());
  return shares;
}

double Mean(const std::vector<double>& values) {
  double sum = 0.0;
  for (const double value : values) sum += value;
  return sum / static_cast<double>(values.size());
}

double CountOf(const std::vector<double>& values) {
  return static_cast<double>(values.size());
}

TEST(Superpose, AddsLevelsAndCurrentsOfTheChannels) {
  const auto pieces =
      Superpose({{{0.0, 0}, {0.2, 1}, {0.6, 0}}, {{0.0, 0}, {0.4, 2}}}, kStates, 1.0);
  ASSERT_EQ(pieces.size(), 4u);
  const int levels[] = {0, 1, 2, 1};
  const double currents[] = {0.0, 4.0, 7.0, 3.0};
  const double starts[] = {0.0, 0.2, 0.4, 0.6};
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(pieces[i].Start, starts[i]);
    EXPECT_EQ(pieces[i].End, i < 3 ? starts[i + 1] : 1.0);
    EXPECT_EQ(pieces[i].Level, levels[i]);
    EXPECT_EQ(pieces[i].Current, currents[i]);
  }
}

TEST(Superpose, TakesTwoChangesAtOneTimeAsOneStep) {
  const auto pieces = Superpose({{{0.0, 0}, {0.5, 1}}, {{0.0, 0}, {0.5, 1}}}, kStates, 1.0);
  ASSERT_EQ(pieces.size(), 2u);
  EXPECT_EQ(pieces[1].Level, 2);
}

TEST(JoinEqualLevels, MakesOneDwellOfNeighboursWithTheMeanOfTheirCurrents) {
  const auto dwells = JoinEqualLevels({{0.0, 0.1, 0, 0.0},
                                       {0.1, 0.2, 0, 0.0},
                                       {0.2, 0.5, 1, 4.0},
                                       {0.5, 0.6, 1, 3.0},
                                       {0.6, 1.0, 0, 0.0}});
  ASSERT_EQ(dwells.size(), 3u);
  ExpectDwell(dwells[0], 0.0, 0.2, 0, 0.0);
  ExpectDwell(dwells[1], 0.2, 0.6, 1, 3.75);
  ExpectDwell(dwells[2], 0.6, 1.0, 0, 0.0);
}

TEST(JoinEqualLevels, LeavesOneDwellOfAChannelThatNeverChangesItsLevel) {
  EXPECT_EQ(JoinEqualLevels({{0.0, 0.4, 0, 0.0}, {0.4, 1.0, 0, 0.0}}).size(), 1u);
}

TEST(DropShortDwells, GivesTheTimeOfADroppedDwellToTheOneBefore) {
  const auto dwells = DropShortDwells({MakeDwell(0.0, 0.5, 0, 0.0), MakeDwell(0.5, 0.53125, 1, 4.0),
                                       MakeDwell(0.53125, 1.0, 2, 8.0)},
                                      0.125);
  ASSERT_EQ(dwells.size(), 2u);
  ExpectDwell(dwells[0], 0.0, 0.53125, 0, 0.0);
  ExpectDwell(dwells[1], 0.53125, 1.0, 2, 8.0);
}

TEST(DropShortDwells, JoinsWhatADroppedDwellHadParted) {
  const auto dwells = DropShortDwells(
      {MakeDwell(0.0, 0.25, 0, 0.0), MakeDwell(0.25, 0.5, 1, 4.0), MakeDwell(0.5, 0.53125, 0, 0.0),
       MakeDwell(0.53125, 0.78125, 1, 6.0), MakeDwell(0.78125, 1.0, 0, 0.0)},
      0.125);
  ASSERT_EQ(dwells.size(), 3u);
  // The gap lengthens the opening, whose current is the mean of the two parts without the gap.
  ExpectDwell(dwells[1], 0.25, 0.78125, 1, 5.0);
}

TEST(DropShortDwells, KeepsADwellOfExactlyTheDeadTime) {
  const std::vector<Dwell> dwells{MakeDwell(0.0, 0.5, 0, 0.0), MakeDwell(0.5, 0.625, 1, 4.0),
                                  MakeDwell(0.625, 1.0, 0, 0.0)};
  EXPECT_EQ(DropShortDwells(dwells, 0.125).size(), 3u);
  EXPECT_EQ(DropShortDwells(dwells, 0.126).size(), 1u);
}

TEST(DropShortDwells, GivesAShortBeginningOfTheSweepToTheDwellBehindIt) {
  const auto dwells = DropShortDwells(
      {MakeDwell(0.0, 0.0625, 1, 4.0), MakeDwell(0.0625, 0.5, 0, 0.0), MakeDwell(0.5, 1.0, 1, 4.0)},
      0.125);
  ASSERT_EQ(dwells.size(), 2u);
  ExpectDwell(dwells[0], 0.0, 0.5, 0, 0.0);
}

TEST(DropShortDwells, DropsAShortEndOfTheSweep) {
  const auto dwells =
      DropShortDwells({MakeDwell(0.0, 0.9375, 0, 0.0), MakeDwell(0.9375, 1.0, 1, 4.0)}, 0.125);
  ASSERT_EQ(dwells.size(), 1u);
  ExpectDwell(dwells[0], 0.0, 1.0, 0, 0.0);
}

TEST(DropShortDwells, LeavesNothingWhenNoDwellIsLongEnough) {
  EXPECT_TRUE(
      DropShortDwells({MakeDwell(0.0, 0.1, 0, 0.0), MakeDwell(0.1, 0.2, 1, 4.0)}, 0.5).empty());
}

TEST(DropShortDwells, KeepsEverythingWithoutADeadTime) {
  EXPECT_EQ(
      DropShortDwells({MakeDwell(0.0, 1e-9, 0, 0.0), MakeDwell(1e-9, 1.0, 1, 4.0)}, 0.0).size(),
      2u);
}

constexpr char kTwoStates[] =
    "state closed 0 0\nstate open 1 5\n"
    "rate closed open 50\nrate open closed 200\n";

TEST(Recording, StringsTransitionsTogetherByAmplitudeAndLevel) {
  const Model model =
      ModelOf(std::string(kTwoStates) + "channels 3\nnoise 0.3\nsweeps 5\nduration 2\nseed 3\n");
  const auto files = Simulate(model);
  ASSERT_EQ(files.size(), 1u);
  ASSERT_EQ(files[0].Sweeps.size(), 5u);
  for (const SimulatedSweep& sweep : files[0].Sweeps) {
    ASSERT_GT(sweep.Transitions.size(), 20u);
    for (std::size_t i = 1; i < sweep.Transitions.size(); ++i) {
      EXPECT_EQ(sweep.Transitions[i].PreAmplitude, sweep.Transitions[i - 1].PostAmplitude);
      EXPECT_EQ(sweep.Transitions[i].PreLevel, sweep.Transitions[i - 1].PostLevel);
      EXPECT_NE(sweep.Transitions[i].PostLevel, sweep.Transitions[i].PreLevel);
      EXPECT_GT(sweep.Transitions[i].Time, sweep.Transitions[i - 1].Time);
    }
  }
}

TEST(Recording, OfATwoStateChannelHasTheMeanOpenAndClosedTimesOfItsRates) {
  const Model model = ModelOf(std::string(kTwoStates) + "sweeps 20\nduration 50\nseed 4\n");
  const auto files = Simulate(model);
  const std::vector<double> open = WholeDwells(files[0], 1);
  const std::vector<double> closed = WholeDwells(files[0], 0);
  ASSERT_GT(open.size(), 35000u);
  EXPECT_NEAR(Mean(open), 0.005, 4.0 * 0.005 / std::sqrt(CountOf(open)));
  EXPECT_NEAR(Mean(closed), 0.02, 4.0 * 0.02 / std::sqrt(CountOf(closed)));
}

TEST(Recording, OfTwoChannelsSpendsBinomialSharesOfTimeAtEachLevel) {
  const Model model =
      ModelOf(std::string(kTwoStates) + "channels 2\nsweeps 20\nduration 50\nseed 5\n");
  auto shares = LevelShares(Simulate(model)[0]);
  // Variance of the share of time that both channels are in a state of probability p: the integral
  // of the autocovariance 2 p^3 q exp(-k t) + p^2 q^2 exp(-2 k t), times 2 / duration.
  const auto error = [](double p) {
    const double q = 1.0 - p;
    const double k = 250.0;
    const double integral = 2.0 * p * p * p * q / k + p * p * q * q / (2.0 * k);
    return std::sqrt(2.0 / 1000.0 * integral);
  };
  EXPECT_EQ(shares.size(), 3u);
  EXPECT_NEAR(shares[0], 0.8 * 0.8, 4.0 * error(0.8));
  EXPECT_NEAR(shares[2], 0.2 * 0.2, 4.0 * error(0.2));
  EXPECT_NEAR(shares[1], 2.0 * 0.2 * 0.8, 4.0 * (error(0.2) + error(0.8)));
}

TEST(Recording, BeginsEachSweepAtEquilibrium) {
  const Model model =
      ModelOf(std::string(kTwoStates) + "channels 2\nsweeps 20000\nduration 0.1\nseed 6\n");
  const auto files = Simulate(model);
  int counts[3] = {};
  int seen = 0;
  for (const SimulatedSweep& sweep : files[0].Sweeps) {
    if (sweep.Transitions.empty()) {
      // Only sweeps that stay closed throughout are likely to show no transition.
      ++counts[0];
    } else {
      ++counts[sweep.Transitions[0].PreLevel];
    }
    ++seen;
  }
  const double shares[3] = {0.64, 0.32, 0.04};
  for (int level = 0; level < 3; ++level) {
    EXPECT_NEAR(static_cast<double>(counts[level]) / seen, shares[level],
                4.0 * std::sqrt(shares[level] * (1.0 - shares[level]) / seen));
  }
}

TEST(Recording, BeginsAtTheEquilibriumOfTheRatesAtTheStartOfTheSweep) {
  // At the start 50 and 200 s^-1, at the end 50 and 20.
  const Model model = ModelOf(std::string(kTwoStates) +
                              "drift within-sweep rate open closed 1 0.1\n"
                              "sweeps 10000\nduration 0.2\nseed 14\n");
  const auto files = Simulate(model);
  int open = 0;
  for (const SimulatedSweep& sweep : files[0].Sweeps) {
    open += !sweep.Transitions.empty() && sweep.Transitions[0].PreLevel == 1;
  }
  EXPECT_NEAR(open / 10000.0, 0.2, 4.0 * std::sqrt(0.2 * 0.8 / 10000.0));
}

TEST(Recording, BeginsEachSweepInTheNamedState) {
  const Model model =
      ModelOf(std::string(kTwoStates) + "start open\nchannels 2\nsweeps 50\nduration 1\n");
  const auto files = Simulate(model);
  for (const SimulatedSweep& sweep : files[0].Sweeps) {
    ASSERT_FALSE(sweep.Transitions.empty());
    EXPECT_EQ(sweep.Transitions[0].PreLevel, 2);
  }
}

TEST(Recording, JoinsClosedStatesSoThatClosingsHaveTheMeanOfTheWholeShutSet) {
  // closed <-> brief <-> open, as in a bursting channel.
  constexpr double kToBrief = 8.0, kToClosed = 700.0, kToOpen = 3000.0;
  const Model model = ModelOf(
      "state closed 0 0\nstate brief 0 0\nstate open 1 5\n"
      "rate closed brief 8\nrate brief closed 700\nrate brief open 3000\nrate open brief 500\n"
      "sweeps 5\nduration 400\nseed 7\n");
  const std::vector<double> closed = WholeDwells(Simulate(model)[0], 0);
  // A shut time is a brief stay, after which, with the share q, a long one and another shut time
  // follow. First and second moment solve m = E[brief] + q (E[long] + m) and its square.
  const double exit = kToClosed + kToOpen;
  const double q = kToClosed / exit;
  const double mean = (1.0 / exit + q / kToBrief) / (1.0 - q);
  const double square = (2.0 / (exit * exit) + 2.0 / exit * q * (1.0 / kToBrief + mean) +
                         q * (2.0 / (kToBrief * kToBrief) + 2.0 * mean / kToBrief)) /
                        (1.0 - q);
  ASSERT_GT(closed.size(), 50000u);
  EXPECT_NEAR(Mean(closed), mean, 4.0 * std::sqrt((square - mean * mean) / CountOf(closed)));
}

TEST(Recording, AddsNoiseOfTheGivenDeviationToEachDwell) {
  const Model model =
      ModelOf(std::string(kTwoStates) + "noise 0.25\nsweeps 10\nduration 50\nseed 8\n");
  std::vector<double> open;
  std::vector<double> squares;
  const auto files = Simulate(model);
  for (const SimulatedSweep& sweep : files[0].Sweeps) {
    for (const Transition& row : sweep.Transitions) {
      if (row.PostLevel != 1) continue;
      open.push_back(row.PostAmplitude);
      squares.push_back((row.PostAmplitude - 5.0) * (row.PostAmplitude - 5.0));
    }
  }
  ASSERT_GT(open.size(), 15000u);
  EXPECT_NEAR(Mean(open), 5.0, 4.0 * 0.25 / std::sqrt(CountOf(open)));
  EXPECT_NEAR(Mean(squares), 0.0625, 4.0 * 0.0625 * std::sqrt(2.0 / CountOf(open)));
}

TEST(Recording, HasExactCurrentsWithoutNoise) {
  const Model model = ModelOf(std::string(kTwoStates) + "duration 2\n");
  const auto files = Simulate(model);
  for (const Transition& row : files[0].Sweeps[0].Transitions) {
    EXPECT_NEAR(row.PostAmplitude, row.PostLevel == 1 ? 5.0 : 0.0, 1e-14);
  }
}

TEST(Recording, ChangesARateInAStraightLineAcrossSweeps) {
  const Model model = ModelOf(std::string(kTwoStates) +
                              "drift across-sweeps rate open closed 1 3\n"
                              "sweeps 3\nduration 200\nseed 9\n");
  const auto files = Simulate(model);
  for (std::size_t sweep = 0; sweep < 3; ++sweep) {
    const SimulatedFile one{files[0].Plan, {files[0].Sweeps[sweep]}};
    const std::vector<double> open = WholeDwells(one, 1);
    const std::vector<double> closed = WholeDwells(one, 0);
    const double mean = 1.0 / (200.0 * (1.0 + static_cast<double>(sweep)));
    ASSERT_GT(open.size(), 5000u);
    EXPECT_NEAR(Mean(open), mean, 4.0 * mean / std::sqrt(CountOf(open)));
    EXPECT_NEAR(Mean(closed), 0.02, 4.0 * 0.02 / std::sqrt(CountOf(closed)));
  }
}

TEST(Recording, ChangesAllRatesTogether) {
  const Model model = ModelOf(std::string(kTwoStates) +
                              "drift across-sweeps rates 1 2\nsweeps 2\nduration 200\nseed 10\n");
  const auto files = Simulate(model);
  const SimulatedFile last{files[0].Plan, {files[0].Sweeps[1]}};
  const std::vector<double> open = WholeDwells(last, 1);
  const std::vector<double> closed = WholeDwells(last, 0);
  EXPECT_NEAR(Mean(open), 0.0025, 4.0 * 0.0025 / std::sqrt(CountOf(open)));
  EXPECT_NEAR(Mean(closed), 0.01, 4.0 * 0.01 / std::sqrt(CountOf(closed)));
}

TEST(Recording, ChangesTheCurrentAcrossSweeps) {
  const Model model = ModelOf(std::string(kTwoStates) +
                              "drift across-sweeps current 1 0.5\nsweeps 5\nduration 1\n");
  const auto files = Simulate(model);
  for (std::size_t sweep = 0; sweep < 5; ++sweep) {
    const double expected = 5.0 * (1.0 - 0.125 * static_cast<double>(sweep));
    for (const Transition& row : files[0].Sweeps[sweep].Transitions) {
      EXPECT_NEAR(row.PostAmplitude, row.PostLevel == 1 ? expected : 0.0, 1e-12);
    }
  }
}

TEST(Recording, ChangesTheCurrentWithinASweepByTheMiddleOfEachDwell) {
  const Model model =
      ModelOf(std::string(kTwoStates) + "drift within-sweep current 1 0.5\nduration 4\n");
  const auto files = Simulate(model);
  const auto& rows = files[0].Sweeps[0].Transitions;
  ASSERT_GT(rows.size(), 100u);
  for (std::size_t i = 0; i + 1 < rows.size(); ++i) {
    if (rows[i].PostLevel != 1) continue;
    const double middle = 0.5 * (rows[i].Time + rows[i + 1].Time);
    EXPECT_NEAR(rows[i].PostAmplitude, 5.0 * (1.0 - 0.5 * middle / 4.0), 1e-12);
  }
}

TEST(Recording, HoldsNoVisitShorterThanTheDeadTime) {
  const std::string text =
      std::string(kTwoStates) + "channels 2\nsweeps 10\nduration 10\nseed 11\n";
  const Model with = ModelOf(text + "dead-time 1ms\n");
  const Model without = ModelOf(text);
  const auto shortest = [](const SimulatedFile& file) {
    double length = 1.0;
    for (int level = 0; level < 3; ++level) {
      for (const double dwell : WholeDwells(file, level)) length = std::min(length, dwell);
    }
    return length;
  };
  EXPECT_GE(shortest(Simulate(with)[0]), 0.001);
  EXPECT_LT(shortest(Simulate(without)[0]), 0.0001);
}

TEST(Recording, FollowsTheSeedAndNothingElse) {
  const Model model = ModelOf(std::string(kTwoStates) + "noise 0.1\nduration 1\nseed 1\n");
  const auto first = SimulateRecording(model, 12);
  const auto again = SimulateRecording(model, 12);
  const auto other = SimulateRecording(model, 13);
  const auto& rows = first[0].Sweeps[0].Transitions;
  ASSERT_EQ(rows.size(), again[0].Sweeps[0].Transitions.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    EXPECT_EQ(rows[i].Time, again[0].Sweeps[0].Transitions[i].Time);
    EXPECT_EQ(rows[i].PostAmplitude, again[0].Sweeps[0].Transitions[i].PostAmplitude);
  }
  EXPECT_NE(rows[0].Time, other[0].Sweeps[0].Transitions[0].Time);
}

}  // namespace
}  // namespace ondrel::simulate
