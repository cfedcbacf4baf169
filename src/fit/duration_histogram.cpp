#include "fit/duration_histogram.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

#include "fit/histogram_axis.h"
#include "fit/histogram_bins.h"
#include "workspace/truncate.h"
#include "workspace/workspace.h"

namespace ondrel {
namespace {

/// Once for all: a fit would spend most of its time on these powers.
void FillEdges(DurationHistogram& histogram) {
  for (std::int64_t i = 0; i <= CountBins(histogram); ++i) {
    const double decades = static_cast<double>(i) / histogram.BinsPerDecade;
    histogram.Edges[i] = std::pow(10.0, histogram.MinimumExponent + decades);
  }
}

bool IsOutOfRange(const LevelFilter& filter, double lower, double upper) {
  switch (filter.DurationChoice) {
    case Selection::SelectAll:
      return false;
    case Selection::Include:
      return !IncludesBin(filter.DurationLow, filter.DurationHigh, lower, upper);
    case Selection::Exclude:
      return ExcludesBin(filter.DurationLow, filter.DurationHigh, lower, upper);
  }
  return false;
}

/// Dwells that short are seen too rarely to be fitted.
void MarkExcludedBins(DurationHistogram& histogram, const LevelFilter& filter) {
  const double shortest = 1.0 / (6.0 * histogram.FilterFrequency);
  const std::int64_t binCount = CountBins(histogram);
  for (std::int64_t i = 1; i <= binCount; ++i) {
    const double lower = histogram.Edges[i - 1];
    const double upper = histogram.Edges[i];
    if (shortest > lower || IsOutOfRange(filter, lower, upper)) {
      histogram.Bins[i].Flags |= kExcludedBin;
    }
  }
}

/// Shortest and longest selected level, seconds.
struct DurationRange {
  bool Any = false;
  double Low = 0.0;
  double High = 0.0;
};

DurationRange RangeOfSelected(const LevelTable& levels) {
  DurationRange range;
  for (std::int32_t row = 0; row < levels.Count; ++row) {
    const LevelRecord& level = *levels.Index[row];
    if (level.LevelFlags != 0) continue;
    range.Low = range.Any ? std::min(range.Low, level.Duration) : level.Duration;
    range.High = range.Any ? std::max(range.High, level.Duration) : level.Duration;
    range.Any = true;
  }
  return range;
}

std::int32_t Saturate(std::int64_t value) {
  return TruncateToInteger(static_cast<double>(value));
}

}  // namespace

double CorrectDuration(double duration, double filterFrequency) {
  if (duration > 1.0 / (2.0 * filterFrequency)) return duration;
  const double square = filterFrequency * filterFrequency;
  const double tau = 0.1787 / filterFrequency;
  const double b = 7.589 * square;
  const double c = 30.578 * (square * filterFrequency);
  const double exponent =
      -duration / tau - b * (duration * duration) - c * (duration * duration * duration);
  return duration + tau * std::exp(exponent);
}

void BuildDurationHistogram(Workspace& workspace) {
  DurationHistogram& histogram = workspace.Duration;
  const std::int64_t binCount = CountBins(histogram);
  const double binsPerUnit = histogram.BinsPerDecade / std::numbers::ln10;
  const auto minimum =
      static_cast<double>(std::int64_t{histogram.BinsPerDecade} * histogram.MinimumExponent);
  if (!ReplaceBins(workspace.Frame, binCount, "duration histogram", &histogram.Bins,
                   &histogram.Edges)) {
    return;
  }
  FillEdges(histogram);
  MarkExcludedBins(histogram, workspace.Levels.LevelSelection);
  for (std::int32_t row = 0; row < workspace.Levels.Count; ++row) {
    const LevelRecord& level = *workspace.Levels.Index[row];
    if (level.LevelFlags != 0 || !(level.Duration > 0.0)) continue;
    const double duration = CorrectDuration(level.Duration, histogram.FilterFrequency);
    CountLevel(histogram.Bins, binCount, std::log(duration) * binsPerUnit - minimum);
  }
  const BinTotals totals = FinishBins(histogram.Bins, binCount, histogram.SquareRootAxis);
  histogram.YMaximum = totals.YMaximum;
  histogram.EventsInHistogram = totals.EventsInHistogram;
}

void AutoscaleDuration(Workspace& workspace) {
  DurationHistogram& histogram = workspace.Duration;
  const DurationRange range = RangeOfSelected(workspace.Levels);
  if (!range.Any || !(range.Low > 0.0)) return;
  const std::int64_t lowest = TruncateToInteger(std::log10(range.Low));
  const std::int64_t highest = TruncateToInteger(std::log10(range.High));
  // With a shortest level below 1 s and a longest above it, the longest can lie above the axis: the
  // twin cases differ on purpose.
  const bool allLong = !(range.Low < 1.0);
  const std::int64_t minimum = allLong ? lowest : lowest - 1;
  histogram.MinimumExponent = Saturate(minimum);
  histogram.Decades = Saturate(allLong ? highest - minimum + 1 : highest - minimum);
  BuildDurationHistogram(workspace);
  histogram.CountsPerTick = ReadableCountsPerTick(histogram.YMaximum, histogram.SquareRootAxis);
}

}  // namespace ondrel
