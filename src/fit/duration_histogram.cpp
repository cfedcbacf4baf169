#include "fit/duration_histogram.h"

#include <cmath>
#include <cstdint>
#include <numbers>

#include "fit/histogram_axis.h"
#include "fit/histogram_bins.h"
#include "workspace/power_of_ten.h"
#include "workspace/truncate.h"
#include "workspace/workspace.h"

namespace ondrel {
namespace {

// How long dwells were before a Gaussian filter of the frequency f rounded them off (Colquhoun and
// Sigworth 1995; there in units of the filter's rise time, 0.3321 / f).
constexpr double kLostTime = 0.1787;              // 1/f, what the shortest dwells of all have lost
constexpr double kSquareDecay = 7.589;            // f^2
constexpr double kCubeDecay = 30.578;             // f^3
constexpr double kLongestCorrectedDivisor = 2.0;  // longer dwells than 1 / (2 f) have lost nothing

/// Dwells shorter than 1 / (6 f) are seen too rarely to be fitted.
constexpr double kShortestFittedDivisor = 6.0;

/// Once for all: a fit would spend most of its time on these powers.
void FillEdges(DurationHistogram& histogram) {
  for (std::int64_t i = 0; i <= CountBins(histogram); ++i) {
    const double decades = static_cast<double>(i) / BinsPerDecadeOf(histogram);
    histogram.Edges[i] = PowerOfTen(histogram.MinimumExponent + decades);
  }
}

/// In advance, so that no level is compared with the range.
void MarkExcludedBins(DurationHistogram& histogram, const LevelFilter& filter) {
  const double low = filter.DurationLow;
  const double high = filter.DurationHigh;
  const double shortest = 1.0 / (kShortestFittedDivisor * histogram.FilterFrequency);
  const std::int64_t binCount = CountBins(histogram);
  for (std::int64_t i = 1; i <= binCount; ++i) {
    const double lower = histogram.Edges[i - 1];
    const double upper = histogram.Edges[i];
    if (shortest > lower || IsOutOfRange(filter.DurationChoice, low, high, lower, upper)) {
      histogram.Bins[i].Flags |= kExcludedBin;
    }
  }
}

double DurationOf(const LevelRecord& level) {
  return level.Duration;
}

std::int32_t Saturate(std::int64_t value) {
  return TruncateToInteger(static_cast<double>(value));
}

}  // namespace

double CorrectDuration(double duration, double filterFrequency) {
  if (duration > 1.0 / (kLongestCorrectedDivisor * filterFrequency)) return duration;
  const double square = filterFrequency * filterFrequency;
  const double tau = kLostTime / filterFrequency;
  const double b = kSquareDecay * square;
  const double c = kCubeDecay * (square * filterFrequency);
  const double exponent =
      -duration / tau - b * (duration * duration) - c * (duration * duration * duration);
  return duration + tau * std::exp(exponent);
}

void BuildDurationHistogram(Workspace& workspace) {
  DurationHistogram& histogram = workspace.Duration;
  const std::int64_t binCount = CountBins(histogram);
  const double binsPerUnit = BinsPerDecadeOf(histogram) / std::numbers::ln10;
  const auto minimum =
      static_cast<double>(std::int64_t{BinsPerDecadeOf(histogram)} * histogram.MinimumExponent);
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
  const ValueRange range = RangeOfSelected(workspace.Levels, DurationOf);
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
