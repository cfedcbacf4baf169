#include "fit/bin_likelihood.h"

namespace ondrel {

double ConditionedObjective(std::int32_t events, double visible, double sumOfLogs) {
  const double normaliser = visible > 0.0 ? events * Log(visible) : kLogOfNothing;
  return normaliser - sumOfLogs;
}

double SaturatedObjective(const BinsOnAxis& axis, std::int32_t events) {
  constexpr double kInPlaceOfNone = 1e-128;
  double sum = 0.0;
  ForEachVisibleRun(axis, [&](std::int64_t first, std::int64_t end) {
    for (std::int64_t bin = first; bin < end; ++bin) {
      const double count = axis.Bins[bin].Count > 0 ? axis.Bins[bin].Count : kInPlaceOfNone;
      sum += count * Log(count);
    }
  });
  if (events < 1) return 0.0 - sum;
  const double total = events;
  return total * Log(total) - sum;
}

}  // namespace ondrel
