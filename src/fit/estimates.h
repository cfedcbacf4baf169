// Terms as estimates: added, removed and changed by places in a view, in device units of its frame.
// A place that gives no number, as in a window without room for a plot, changes nothing.
#pragma once

#include <cstdint>

#include "fit/histogram_records.h"
#include "views/view_state.h"

namespace ondrel {

/// Each weight becomes the term's share of all areas; all are 0 when the areas sum to 0.
void NormaliseFromAreas(AmplitudeHistogram& histogram);
void NormaliseFromAreas(DurationHistogram& histogram);

/// Where the peak of a term stands, in device units of the frame. Not finite for a place or height
/// that cannot be told, as the height on a square root axis without counts.
double PeakX(const AmplitudeHistogram& histogram, const GraphFrame& frame,
             const AmplitudeTerm& term);
double PeakX(const DurationHistogram& histogram, const GraphFrame& frame, const DurationTerm& term);
double PeakY(const AmplitudeHistogram& histogram, const GraphFrame& frame,
             const AmplitudeTerm& term);
double PeakY(const DurationHistogram& histogram, const GraphFrame& frame, const DurationTerm& term);

// With every change of terms below, up to MoveWidth, the weights follow the areas.

/// A new term of no height at `x`, with the next marker, which has no place before the histogram is
/// drawn. There must be a free slot for each.
void AddTerm(AmplitudeHistogram& histogram, const GraphFrame& frame, double x);
void AddTerm(DurationHistogram& histogram, const GraphFrame& frame, double x);

/// Removes the marker number `marker` and its term; those behind move down.
void RemoveTerm(AmplitudeHistogram& histogram, std::int32_t marker);
void RemoveTerm(DurationHistogram& histogram, std::int32_t marker);

/// Puts the peak of the term to `x`, `rise` above the axis; below it when negative.
void MovePeak(AmplitudeHistogram& histogram, const GraphFrame& frame, std::int32_t term, double x,
              double rise);
void MovePeak(DurationHistogram& histogram, const GraphFrame& frame, std::int32_t term, double x,
              double rise);

/// Has the bar that shows the term's width end at `x`, to the right of the peak. The height of the
/// peak stays.
void MoveWidth(AmplitudeHistogram& histogram, const GraphFrame& frame, std::int32_t term, double x);

/// What the first estimate is set to when the user begins to work on a fit. The other terms stay.
void ResetFirstTerm(AmplitudeHistogram& histogram);
void ResetFirstTerm(DurationHistogram& histogram);

}  // namespace ondrel
