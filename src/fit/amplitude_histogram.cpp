#include "fit/amplitude_histogram.h"

#include <cmath>
#include <cstdint>

#include "fit/histogram_axis.h"
#include "fit/histogram_bins.h"
#include "workspace/truncate.h"
#include "workspace/units.h"
#include "workspace/workspace.h"

namespace ondrel {
namespace {

/// For the fit, whose likelihood takes the edges one bin after the other, by repeated addition.
void FillEdges(AmplitudeHistogram& histogram, double binWidth) {
  double edge = histogram.Minimum;
  for (std::int64_t i = 0; i <= CountBins(histogram); ++i) {
    histogram.Edges[i] = edge;
    edge += binWidth;
  }
}

/// In advance, so that no level is compared with the range.
void MarkExcludedBins(AmplitudeHistogram& histogram, const LevelFilter& filter) {
  const double low = filter.AmplitudeLow / kPicoampere;
  const double high = filter.AmplitudeHigh / kPicoampere;
  const std::int64_t binCount = CountBins(histogram);
  for (std::int64_t i = 1; i <= binCount; ++i) {
    const double lower = EdgeOf(histogram, i);
    const double upper = EdgeOf(histogram, i + 1);
    if (IsOutOfRange(filter.AmplitudeChoice, low, high, lower, upper)) {
      histogram.Bins[i].Flags |= kExcludedBin;
    }
  }
}

double AmplitudeOf(const LevelRecord& level) {
  return level.Amplitude / kPicoampere;
}

/// The exponent is lowered also where it is 0, so that ranges of 4 to 40 pA always have ticks of
/// 0.5 pA: a rule of the program that users know.
double TickFor(const ValueRange& range) {
  constexpr double kTicks = 4.0;
  const double width = range.High - range.Low;
  if (width > 0.0) {
    const double magnitude = std::log10(width / kTicks);
    std::int32_t exponent = TruncateToInteger(magnitude);
    if (exponent <= 0) --exponent;
    return ReadableStep(exponent, magnitude - exponent);
  }
  if (range.High == 0.0) return ReadableStep(0, 0.0);
  const double magnitude = std::log10(std::fabs(range.High));
  const std::int32_t exponent = TruncateToInteger(magnitude);
  return ReadableStep(exponent, magnitude - exponent);
}

double MinimumFor(double low, double perTick) {
  // As a real: far from 0 with a small spread there are more ticks than an integer counts.
  const double ticks = std::trunc(low / perTick);
  const double nearest = ticks * perTick;
  return nearest != low && low < 0.0 ? (ticks - 1.0) * perTick : nearest;
}

std::int32_t TicksFor(double span, double perTick) {
  const std::int32_t ticks = TruncateToInteger(span / perTick);
  return ticks * perTick == span ? ticks : TruncateToInteger(ticks + 1.0);
}

}  // namespace

void BuildAmplitudeHistogram(Workspace& workspace) {
  AmplitudeHistogram& histogram = workspace.Amplitude;
  const std::int64_t binCount = CountBins(histogram);
  const double binWidth = BinWidth(histogram);
  const double binsPerAmpere = 1.0 / (kPicoampere * binWidth);
  const double minimum = histogram.Minimum / binWidth;
  if (!ReplaceBins(workspace.Frame, binCount, "amplitude histogram", &histogram.Bins,
                   &histogram.Edges)) {
    return;
  }
  FillEdges(histogram, binWidth);
  MarkExcludedBins(histogram, workspace.Levels.LevelSelection);
  for (std::int32_t row = 0; row < workspace.Levels.Count; ++row) {
    const LevelRecord& level = *workspace.Levels.Index[row];
    if (level.LevelFlags != 0) continue;
    CountLevel(histogram.Bins, binCount, level.Amplitude * binsPerAmpere - minimum);
  }
  const BinTotals totals = FinishBins(histogram.Bins, binCount, histogram.SquareRootAxis);
  histogram.YMaximum = totals.YMaximum;
  histogram.EventsInHistogram = totals.EventsInHistogram;
}

void AutoscaleAmplitude(Workspace& workspace) {
  AmplitudeHistogram& histogram = workspace.Amplitude;
  const ValueRange range = RangeOfSelected(workspace.Levels, AmplitudeOf);
  if (!range.Any) return;
  histogram.PerTick = TickFor(range);
  const bool spread = range.High - range.Low > 0.0;
  histogram.Minimum =
      spread ? MinimumFor(range.Low, histogram.PerTick) : range.Low - histogram.PerTick;
  const double upper = spread ? range.High : range.High + histogram.PerTick;
  histogram.TickMarks = TicksFor(upper - histogram.Minimum, histogram.PerTick);
  BuildAmplitudeHistogram(workspace);
  histogram.CountsPerTick = ReadableCountsPerTick(histogram.YMaximum, histogram.SquareRootAxis);
}

}  // namespace ondrel
