// Exact simulation of one channel. Rates that change during a sweep are handled by thinning, which
// needs no time step.
#include "simulate/markov_channel.h"

#include <algorithm>
#include <numeric>

namespace ondrel::simulate {
namespace {

/// Marks `state` and all that can be reached from it; `forward` says along or against the rates.
void MarkReachable(const RateMatrix& rates, std::size_t state, bool forward,
                   std::vector<bool>& marks) {
  marks[state] = true;
  for (std::size_t other = 0; other < rates.StateCount; ++other) {
    const double rate = forward ? rates.At(state, other) : rates.At(other, state);
    if (rate > 0.0 && !marks[other]) MarkReachable(rates, other, forward, marks);
  }
}

bool AllReachable(const RateMatrix& rates, bool forward) {
  std::vector<bool> marks(rates.StateCount, false);
  MarkReachable(rates, 0, forward, marks);
  return std::find(marks.begin(), marks.end(), false) == marks.end();
}

/// The state that the channel leaves `from` for, drawn in proportion to the rates.
std::size_t DrawDestination(const RateMatrix& rates, std::size_t from, double exitRate,
                            RandomState& random) {
  double remaining = NextUniform(random) * exitRate;
  std::size_t chosen = from;
  for (std::size_t to = 0; to < rates.StateCount; ++to) {
    const double rate = rates.At(from, to);
    if (rate <= 0.0) continue;
    chosen = to;  // the last one also takes what rounding leaves over
    if (remaining < rate) break;
    remaining -= rate;
  }
  return chosen;
}

double RampProduct(const std::vector<Ramp>& ramps, double fraction) {
  double product = 1.0;
  for (const Ramp& ramp : ramps) product *= RampAt(ramp, fraction);
  return product;
}

double RampBound(const std::vector<Ramp>& ramps) {
  double bound = 1.0;
  for (const Ramp& ramp : ramps) bound *= std::max(ramp.First, ramp.Last);
  return bound;
}

/// Thinning (Lewis and Shedler 1979): transitions drawn at the upper rate are kept with the share
/// that the rate of the moment has in it. Rates without ramps use up no random number here.
bool IsKept(const std::vector<Ramp>& ramps, double fraction, RandomState& random) {
  if (ramps.empty()) return true;
  return NextUniform(random) * RampBound(ramps) < RampProduct(ramps, fraction);
}

}  // namespace

double RampAt(const Ramp& ramp, double fraction) {
  return ramp.First + (ramp.Last - ramp.First) * fraction;
}

RateMatrix RatesAt(const SweepRates& rates, double fraction) {
  RateMatrix result = rates.Base;
  for (std::size_t i = 0; i < result.Rates.size(); ++i) {
    result.Rates[i] *= RampProduct(rates.Ramps[i], fraction);
  }
  return result;
}

RateMatrix UpperRates(const SweepRates& rates) {
  RateMatrix result = rates.Base;
  for (std::size_t i = 0; i < result.Rates.size(); ++i) {
    result.Rates[i] *= RampBound(rates.Ramps[i]);
  }
  return result;
}

double ExitRate(const RateMatrix& rates, std::size_t state) {
  double sum = 0.0;
  for (std::size_t to = 0; to < rates.StateCount; ++to) sum += rates.At(state, to);
  return sum;
}

bool IsIrreducible(const RateMatrix& rates) {
  return rates.StateCount > 0 && AllReachable(rates, true) && AllReachable(rates, false);
}

std::vector<double> EquilibriumOccupancy(const RateMatrix& rates) {
  // Elimination of one state after the other without any subtraction (Grassmann, Taksar and Heyman
  // 1985), so that rates of very different size lose no digits.
  const std::size_t count = rates.StateCount;
  RateMatrix reduced = rates;
  for (std::size_t k = count; k-- > 1;) {
    double exit = 0.0;
    for (std::size_t to = 0; to < k; ++to) exit += reduced.At(k, to);
    for (std::size_t from = 0; from < k; ++from) {
      reduced.At(from, k) /= exit;
      // The diagonal takes sums as well, but is never looked at.
      for (std::size_t to = 0; to < k; ++to) {
        reduced.At(from, to) += reduced.At(from, k) * reduced.At(k, to);
      }
    }
  }
  std::vector<double> occupancy(count, 0.0);
  occupancy[0] = 1.0;
  for (std::size_t k = 1; k < count; ++k) {
    for (std::size_t from = 0; from < k; ++from) {
      occupancy[k] += occupancy[from] * reduced.At(from, k);
    }
  }
  const double total = std::accumulate(occupancy.begin(), occupancy.end(), 0.0);
  for (double& share : occupancy) share /= total;
  return occupancy;
}

std::size_t DrawState(const std::vector<double>& probabilities, RandomState& random) {
  double remaining = NextUniform(random);
  for (std::size_t state = 0; state + 1 < probabilities.size(); ++state) {
    if (remaining < probabilities[state]) return state;
    remaining -= probabilities[state];
  }
  return probabilities.size() - 1;
}

std::vector<Visit> SimulateVisits(const SweepRates& rates, std::size_t initialState,
                                  double duration, RandomState& random) {
  const RateMatrix upper = UpperRates(rates);
  std::vector<Visit> visits{{0.0, initialState}};
  std::size_t state = initialState;
  double time = 0.0;
  for (;;) {
    const double exitRate = ExitRate(upper, state);
    if (exitRate <= 0.0) return visits;
    time += NextExponential(random, exitRate);
    if (time >= duration) return visits;
    const std::size_t next = DrawDestination(upper, state, exitRate, random);
    if (!IsKept(rates.Ramps[state * upper.StateCount + next], time / duration, random)) continue;
    state = next;
    visits.push_back({time, state});
  }
}

}  // namespace ondrel::simulate
