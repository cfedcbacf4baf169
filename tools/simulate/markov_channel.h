// One ion channel as a Markov process: its rate matrix, where it is at equilibrium, and the states
// that it visits during a sweep. Rates in s^-1, times in s.
#pragma once

#include <cstddef>
#include <vector>

#include "simulate/random.h"

namespace ondrel::simulate {

/// Rates from each state to each other. The diagonal is unused and 0.
struct RateMatrix {
  std::size_t StateCount = 0;
  std::vector<double> Rates;  // row by row: from, to

  explicit RateMatrix(std::size_t stateCount = 0)
      : StateCount(stateCount), Rates(stateCount * stateCount, 0.0) {}
  double& At(std::size_t from, std::size_t to) { return Rates[from * StateCount + to]; }
  double At(std::size_t from, std::size_t to) const { return Rates[from * StateCount + to]; }
};

/// A factor that goes in a straight line from `First` to `Last`, both above 0.
struct Ramp {
  double First = 1.0;
  double Last = 1.0;
};

/// The factor at `fraction` of the way, 0 to 1.
double RampAt(const Ramp& ramp, double fraction);

/// What the rates do during one sweep: those of its start without ramps, and for each rate the
/// ramps that it follows from the sweep's start to its end. The factors of several ramps multiply.
struct SweepRates {
  RateMatrix Base;
  std::vector<std::vector<Ramp>> Ramps;  // one list per rate, in the order of the matrix

  explicit SweepRates(RateMatrix base = RateMatrix())
      : Base(std::move(base)), Ramps(Base.Rates.size()) {}
};

/// The rates at `fraction` of the sweep, 0 to 1.
RateMatrix RatesAt(const SweepRates& rates, double fraction);
/// Rates that none of the sweep's moments exceeds.
RateMatrix UpperRates(const SweepRates& rates);
/// The sum of the rates that lead out of a state.
double ExitRate(const RateMatrix& rates, std::size_t state);

/// Whether every state can be reached from every other, so that there is one equilibrium with all
/// states in it.
bool IsIrreducible(const RateMatrix& rates);
/// The probability of each state at equilibrium. The rates must be irreducible.
std::vector<double> EquilibriumOccupancy(const RateMatrix& rates);

/// A stay in one state, up to the next visit's start or the end of the sweep.
struct Visit {
  double Start;  // s, from the start of the sweep
  std::size_t State;
};

/// The index drawn with the given probabilities, which add up to 1.
std::size_t DrawState(const std::vector<double>& probabilities, RandomState& random);
/// What a channel visits that is in `initialState` at time 0, up to `duration`. Never empty; the
/// first visit starts at 0, and neighbours differ in state.
std::vector<Visit> SimulateVisits(const SweepRates& rates, std::size_t initialState,
                                  double duration, RandomState& random);

}  // namespace ondrel::simulate
