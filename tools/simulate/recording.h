// From the visits of single channels to the transitions of a recording: superposing, joining
// visits of equal level to dwells, dead time, noise. Currents in pA, times in s.
#pragma once

#include <vector>

#include "simulate/model.h"
#include "simulate/random.h"

namespace ondrel::simulate {

/// A stretch of a sweep in which no channel changes its state.
struct Piece {
  double Start;
  double End;
  int Level;       // sum over the channels
  double Current;  // sum over the channels
};

/// A stay at one level. Its current is the mean over the time that counts: pieces too short to be
/// seen lengthen the dwell that they interrupt but leave its current alone.
struct Dwell {
  double Start;
  double End;
  int Level;
  double Charge;   // pA s, over the time that counts
  double Counted;  // s

  double Current() const { return Charge / Counted; }
};

/// One change of the level.
struct Transition {
  double Time;  // s, from the start of the sweep
  double PreAmplitude;
  double PostAmplitude;
  int PreLevel;
  int PostLevel;
};

/// The transitions of one sweep, in the order of their times. Each one's PreAmplitude and PreLevel
/// are the PostAmplitude and PostLevel of the one before.
struct SimulatedSweep {
  std::vector<Transition> Transitions;
};

struct SimulatedFile {
  const FilePlan* Plan;  // borrowed from the model
  std::vector<SimulatedSweep> Sweeps;
};

/// The sum of several channels over a sweep of that duration. Each list of visits is one channel's,
/// as SimulateVisits makes it. Pieces of no length are left out.
std::vector<Piece> Superpose(const std::vector<std::vector<Visit>>& channels,
                             const std::vector<ChannelState>& states, double duration);
/// Neighbouring pieces of equal level as one dwell.
std::vector<Dwell> JoinEqualLevels(const std::vector<Piece>& pieces);
/// The dwells without those shorter than `deadTime`. A dropped dwell's time goes to the dwell
/// before it, at the start of a sweep to the first dwell that is kept; dwells that then stand side
/// by side at one level become one. Empty when no dwell is long enough.
std::vector<Dwell> DropShortDwells(const std::vector<Dwell>& dwells, double deadTime);

/// One sweep of the file, `index` counted from 0.
SimulatedSweep SimulateSweep(const std::vector<ChannelState>& states, const FilePlan& plan,
                             int index, RandomState& random);
/// The recording, from `seed` alone; the model's own seed is not looked at. The model must have
/// been checked, and must outlive the result.
std::vector<SimulatedFile> SimulateRecording(const Model& model, std::uint64_t seed);

}  // namespace ondrel::simulate
