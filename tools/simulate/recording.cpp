// The steps from channels to transitions, in the order in which they are taken.
#include "simulate/recording.h"

#include <algorithm>

namespace ondrel::simulate {
namespace {

/// The change of one channel's state.
struct Step {
  double Time;
  std::size_t Channel;
  std::size_t State;
};

/// All changes of all channels behind the start of the sweep, in the order of their times.
std::vector<Step> MergeSteps(const std::vector<std::vector<Visit>>& channels) {
  std::vector<Step> steps;
  for (std::size_t channel = 0; channel < channels.size(); ++channel) {
    for (std::size_t i = 1; i < channels[channel].size(); ++i) {
      steps.push_back({channels[channel][i].Start, channel, channels[channel][i].State});
    }
  }
  std::stable_sort(steps.begin(), steps.end(),
                   [](const Step& a, const Step& b) { return a.Time < b.Time; });
  return steps;
}

Piece SumOfStates(const std::vector<std::size_t>& present, const std::vector<ChannelState>& states,
                  double start, double end) {
  Piece piece{start, end, 0, 0.0};
  for (const std::size_t state : present) {
    piece.Level += states[state].Level;
    piece.Current += states[state].Current;
  }
  return piece;
}

/// `next` follows `dwell` at the same level, perhaps behind dropped dwells.
void Prolong(Dwell& dwell, const Dwell& next) {
  dwell.End = next.End;
  dwell.Charge += next.Charge;
  dwell.Counted += next.Counted;
}

std::vector<double> InitialOccupancy(const FilePlan& plan, const SweepRates& rates) {
  if (plan.StartState == kEquilibriumStart) return EquilibriumOccupancy(RatesAt(rates, 0.0));
  std::vector<double> occupancy(plan.Rates.StateCount, 0.0);
  occupancy[plan.StartState] = 1.0;
  return occupancy;
}

std::vector<std::vector<Visit>> SimulateChannels(const FilePlan& plan, int index,
                                                 RandomState& random) {
  const SweepRates rates = RatesOfSweep(plan, index);
  const std::vector<double> occupancy = InitialOccupancy(plan, rates);
  std::vector<std::vector<Visit>> channels;
  for (int channel = 0; channel < plan.Channels; ++channel) {
    const std::size_t initial = DrawState(occupancy, random);
    channels.push_back(SimulateVisits(rates, initial, plan.Duration, random));
  }
  return channels;
}

/// A current that changes during the sweep is taken at the middle of each piece.
void ApplyCurrentDrift(const FilePlan& plan, int index, std::vector<Piece>& pieces) {
  for (Piece& piece : pieces) {
    const double middle = 0.5 * (piece.Start + piece.End);
    piece.Current *= CurrentFactor(plan, index, middle / plan.Duration);
  }
}

double NoisyCurrent(const Dwell& dwell, double noise, RandomState& random) {
  return noise > 0.0 ? dwell.Current() + noise * NextNormal(random) : dwell.Current();
}

SimulatedSweep TransitionsBetween(const std::vector<Dwell>& dwells, double noise,
                                  RandomState& random) {
  SimulatedSweep sweep;
  if (dwells.empty()) return sweep;
  double amplitude = NoisyCurrent(dwells[0], noise, random);
  for (std::size_t i = 1; i < dwells.size(); ++i) {
    const double next = NoisyCurrent(dwells[i], noise, random);
    sweep.Transitions.push_back(
        {dwells[i].Start, amplitude, next, dwells[i - 1].Level, dwells[i].Level});
    amplitude = next;
  }
  return sweep;
}

}  // namespace

std::vector<Piece> Superpose(const std::vector<std::vector<Visit>>& channels,
                             const std::vector<ChannelState>& states, double duration) {
  std::vector<std::size_t> present;
  for (const auto& visits : channels) present.push_back(visits[0].State);
  std::vector<Piece> pieces;
  double start = 0.0;
  const auto closePiece = [&](double end) {
    if (end > start) pieces.push_back(SumOfStates(present, states, start, end));
    start = end;
  };
  for (const Step& step : MergeSteps(channels)) {
    closePiece(step.Time);
    present[step.Channel] = step.State;
  }
  closePiece(duration);
  return pieces;
}

std::vector<Dwell> JoinEqualLevels(const std::vector<Piece>& pieces) {
  std::vector<Dwell> dwells;
  for (const Piece& piece : pieces) {
    const double length = piece.End - piece.Start;
    const Dwell dwell{piece.Start, piece.End, piece.Level, piece.Current * length, length};
    if (!dwells.empty() && dwells.back().Level == dwell.Level) {
      Prolong(dwells.back(), dwell);
    } else {
      dwells.push_back(dwell);
    }
  }
  return dwells;
}

std::vector<Dwell> DropShortDwells(const std::vector<Dwell>& dwells, double deadTime) {
  std::vector<Dwell> kept;
  for (const Dwell& dwell : dwells) {
    if (dwell.End - dwell.Start < deadTime) {
      if (!kept.empty()) kept.back().End = dwell.End;
    } else if (!kept.empty() && kept.back().Level == dwell.Level) {
      Prolong(kept.back(), dwell);
    } else {
      kept.push_back(dwell);
    }
  }
  if (!kept.empty()) kept.front().Start = dwells.front().Start;
  return kept;
}

SimulatedSweep SimulateSweep(const std::vector<ChannelState>& states, const FilePlan& plan,
                             int index, RandomState& random) {
  std::vector<Piece> pieces =
      Superpose(SimulateChannels(plan, index, random), states, plan.Duration);
  ApplyCurrentDrift(plan, index, pieces);
  return TransitionsBetween(DropShortDwells(JoinEqualLevels(pieces), plan.DeadTime), plan.Noise,
                            random);
}

std::vector<SimulatedFile> SimulateRecording(const Model& model, std::uint64_t seed) {
  RandomState random = SeedRandom(seed);
  std::vector<SimulatedFile> files;
  for (const FilePlan& plan : model.Files) {
    files.push_back({&plan, {}});
    for (int index = 0; index < plan.Sweeps; ++index) {
      files.back().Sweeps.push_back(SimulateSweep(model.States, plan, index, random));
    }
  }
  return files;
}

}  // namespace ondrel::simulate
