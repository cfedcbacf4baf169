// What the amplitude and the duration histogram share: their bins, how these are finished after
// counting, and how a scale is chosen that reads well.
#pragma once

#include <cstdint>

#include "fit/histogram_records.h"
#include "shell/window_record.h"

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
  std::int32_t EventsInHistogram =
      0;  // of all bins that are not excluded, those beside the axis too
};

/// Sets the heights and returns the totals.
BinTotals FinishBins(BinRecord* bins, std::int64_t binCount, bool squareRootAxis);

/// Whether a range of values leaves the bin from `lower` to `upper` in. A bin that "Include" covers
/// in part is out; one that contains the range of "Exclude" whole stays in.
bool IncludesBin(double low, double high, double lower, double upper);
bool ExcludesBin(double low, double high, double lower, double upper);

/// 1, 2 or 5 times ten to the `exponent`: the largest of them that is not above ten to the
/// `exponent` + `fraction`, for fractions from 0 to 1.
double ReadableStep(std::int32_t exponent, double fraction);

/// Counts between the ticks of an axis that reaches to `yMaximum`, about three of them.
std::int32_t ReadableCountsPerTick(double yMaximum, bool squareRootAxis);

}  // namespace ondrel
