#include "fit/histogram_bins.h"

#include <algorithm>
#include <cmath>

#include "shell/toolkit.h"
#include "workspace/power_of_ten.h"
#include "workspace/report.h"
#include "workspace/truncate.h"

namespace ondrel {
namespace {

/// A bin that the range covers in part is out.
bool IncludesBin(double low, double high, double lower, double upper) {
  return !(low > lower) && !(high < upper);
}

/// A bin that contains the range whole is not met by it.
bool ExcludesBin(double low, double high, double lower, double upper) {
  return (!(low > lower) && high > lower) || (low < upper && !(high < upper));
}

}  // namespace

bool ReplaceBins(FrameWindow* frame, std::int64_t binCount, const char* word, BinRecord** bins,
                 double** edges) {
  toolkit::FreeMemory(*bins);
  toolkit::FreeMemory(*edges);
  *edges = nullptr;
  *bins = toolkit::AllocateRecords<BinRecord>(binCount + 2);
  if (*bins != nullptr) *edges = toolkit::AllocateRecords<double>(binCount + 1);
  if (*edges != nullptr) return true;
  toolkit::FreeMemory(*bins);
  *bins = nullptr;
  ReportFailure(frame, {TextId::InsufficientMemoryFor, word, TextId::QuitOtherPrograms});
  return false;
}

void CountLevel(BinRecord* bins, std::int64_t binCount, double x) {
  const std::int64_t place = TruncateToInteger(x);
  const std::int64_t bin = std::clamp<std::int64_t>(place + 1, 0, binCount + 1);
  if (bins[bin].Flags == 0) ++bins[bin].Count;
}

BinTotals FinishBins(BinRecord* bins, std::int64_t binCount, bool squareRootAxis) {
  BinTotals totals;
  for (std::int64_t i = 0; i < binCount + 2; ++i) {
    BinRecord& bin = bins[i];
    bin.Height = squareRootAxis ? std::sqrt(bin.Count) : bin.Count;
    if (bin.Flags == 0) totals.EventsInHistogram += bin.Count;
    const bool onAxis = i >= 1 && i <= binCount;
    if (onAxis) totals.YMaximum = std::max(totals.YMaximum, bin.Height);
  }
  return totals;
}

bool IsOutOfRange(Selection choice, double low, double high, double lower, double upper) {
  switch (choice) {
    case Selection::SelectAll:
      return false;
    case Selection::Include:
      return !IncludesBin(low, high, lower, upper);
    case Selection::Exclude:
      break;
  }
  return ExcludesBin(low, high, lower, upper);
}

double ReadableStep(std::int32_t exponent, double fraction) {
  const double power = PowerOfTen(exponent);
  if (fraction < std::log10(2.0)) return power;
  if (fraction < std::log10(5.0)) return 2.0 * power;
  return 5.0 * power;
}

std::int32_t ReadableCountsPerTick(double yMaximum, bool squareRootAxis) {
  constexpr double kTicks = 3.0;
  std::int32_t exponent = 0;
  double fraction = 0.0;
  if (yMaximum > 0.0) {
    const double counts = squareRootAxis ? yMaximum * yMaximum : yMaximum;
    const double magnitude = std::log10(counts / kTicks);
    exponent = TruncateToInteger(magnitude);
    fraction = magnitude - exponent;
  }
  return TruncateToInteger(ReadableStep(exponent, fraction) + 0.5);
}

}  // namespace ondrel
