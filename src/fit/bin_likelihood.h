// What the two mixture models share: the multinomial likelihood of the counts of bins, given the
// part of the axis that is visible. A model gives the probabilities.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "fit/elementary.h"
#include "fit/fit_operations.h"
#include "fit/histogram_axis.h"
#include "fit/histogram_records.h"

namespace ondrel {

/// The bins 1 to `Count` on the axis of a histogram, with their edges. A histogram that could not
/// be counted has none.
struct BinsOnAxis {
  const BinRecord* Bins;
  const double* Edges;
  std::int64_t Count;
};

template <typename Histogram>
BinsOnAxis BinsOf(const Histogram& histogram) {
  const bool counted = histogram.Bins != nullptr;
  return {histogram.Bins, histogram.Edges, counted ? CountBins(histogram) : 0};
}

/// Bins whose probabilities are worked out together, and the numbers of their edges.
inline constexpr std::size_t kBinsAtOnce = 64;
using BinNumbers = std::array<double, kBinsAtOnce>;
using EdgeNumbers = std::array<double, kBinsAtOnce + 1>;

/// Log of a probability that is not above 0, so that the line search stays among numbers.
inline constexpr double kLogOfNothing = -12000.0;

/// `visit(first, end)` for each run of bins that are not excluded, from `first` up to but not
/// including `end`.
template <typename Visit>
void ForEachVisibleRun(const BinsOnAxis& axis, Visit visit) {
  const auto isVisible = [&axis](std::int64_t bin) { return axis.Bins[bin].Flags == 0; };
  std::int64_t bin = 1;
  while (bin <= axis.Count) {
    const std::int64_t first = bin;
    while (bin <= axis.Count && isVisible(bin)) ++bin;
    if (bin > first) visit(first, bin);
    ++bin;
  }
}

/// Sum over the bins on the axis of their counts times the logs of their probabilities.
/// `evaluate(edges, count, probabilities)` is asked for stretches of bins that hold events; the
/// others add nothing, whatever their probability.
template <typename Evaluate>
double SumOfLogs(const BinsOnAxis& axis, Evaluate evaluate) {
  const auto holdsEvents = [&axis](std::int64_t bin) {
    return bin <= axis.Count && axis.Bins[bin].Count != 0 && axis.Bins[bin].Flags == 0;
  };
  double sum = 0.0;
  std::int64_t bin = 1;
  while (bin <= axis.Count) {
    if (!holdsEvents(bin)) {
      ++bin;
      continue;
    }
    const BinRecord* const bins = axis.Bins + bin;
    const double* const edges = axis.Edges + bin - 1;
    std::size_t count = 0;
    while (count < kBinsAtOnce && holdsEvents(bin)) {
      ++count;
      ++bin;
    }
    BinNumbers probabilities;
    evaluate(edges, count, probabilities);
    BinNumbers logs;
    ForEachPair(count, [&]<typename Real>(std::size_t i) {
      Store(&logs[i], Log(Load<Real>(&probabilities[i])));
    });
    for (std::size_t i = 0; i < count; ++i) {
      sum += bins[i].Count * (probabilities[i] > 0.0 ? logs[i] : kLogOfNothing);
    }
  }
  return sum;
}

/// The objective from the sum over the bins and the probability of the visible part of the axis.
/// `events` also counts the bins beside the axis, which the sum does not.
double ConditionedObjective(std::int32_t events, double visible, double sumOfLogs);

/// The objective of probabilities that are the shares of the counts themselves.
double SaturatedObjective(const BinsOnAxis& axis, std::int32_t events);

}  // namespace ondrel
