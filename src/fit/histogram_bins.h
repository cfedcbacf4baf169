// What the amplitude and the duration histogram share: their bins, how these are finished after
// counting, and how a scale is chosen that reads well.
#pragma once

#include <algorithm>
#include <cstdint>

#include "derived/level_filter.h"
#include "fit/histogram_records.h"
#include "shell/window_record.h"
#include "workspace/tables.h"

namespace ondrel {

/// Replaces `*bins` by `binCount` + 2 records of zeros and `*edges` by `binCount` + 1 zeros. On
/// failure the user is told, with `word` for the histogram, and both are null.
bool ReplaceBins(FrameWindow* frame, std::int64_t binCount, const char* word, BinRecord** bins,
                 double** edges);

/// Counts a level whose place on the axis is `x` bins from its left end. The place is truncated
/// toward zero, so that a level less than one bin below the axis counts in bin 1.
void CountLevel(BinRecord* bins, std::int64_t binCount, double x);

/// What the counts come to.
struct BinTotals {
  double YMaximum = 0.0;  // largest Height of the bins on the axis
  /// Of all bins that are not excluded, those beside the axis too.
  std::int32_t EventsInHistogram = 0;
};

/// Sets the heights and returns the totals.
BinTotals FinishBins(BinRecord* bins, std::int64_t binCount, bool squareRootAxis);

/// Whether a selection of the values from `low` to `high` takes the bin from `lower` to `upper`
/// out. A bin that "Include" covers in part is out; one that contains the range of "Exclude" whole
/// stays.
bool IsOutOfRange(Selection choice, double low, double high, double lower, double upper);

/// Smallest and largest value of the selected levels.
struct ValueRange {
  bool Any = false;
  double Low = 0.0;
  double High = 0.0;
};

template <typename ValueOf>
ValueRange RangeOfSelected(const LevelTable& levels, ValueOf valueOf) {
  ValueRange range;
  for (std::int32_t row = 0; row < levels.Count; ++row) {
    const LevelRecord& level = *levels.Index[row];
    if (level.LevelFlags != 0) continue;
    const double value = valueOf(level);
    range.Low = range.Any ? std::min(range.Low, value) : value;
    range.High = range.Any ? std::max(range.High, value) : value;
    range.Any = true;
  }
  return range;
}

/// 1, 2 or 5 times ten to the `exponent`: the largest of them that is not above ten to the
/// `exponent` + `fraction`, for fractions from 0 to 1.
double ReadableStep(std::int32_t exponent, double fraction);

/// Counts between the ticks of an axis that reaches to `yMaximum`, about three of them.
std::int32_t ReadableCountsPerTick(double yMaximum, bool squareRootAxis);

}  // namespace ondrel
