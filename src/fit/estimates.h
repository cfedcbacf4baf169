// Terms as estimates: added, removed and changed by places in a view, in device units of its frame.
#pragma once

#include <cstdint>

#include "fit/histogram_records.h"
#include "views/view_state.h"

namespace ondrel {

/// Each weight becomes the term's share of all areas; all are 0 when the areas sum to 0.
void NormaliseFromAreas(AmplitudeHistogram& histogram);
void NormaliseFromAreas(DurationHistogram& histogram);

/// A new term of no height at `x`, with the next marker. There must be a free slot.
void AddTerm(AmplitudeHistogram& histogram, const GraphFrame& frame, double x);
void AddTerm(DurationHistogram& histogram, const GraphFrame& frame, double x);

/// Removes the marker number `marker` and its term; those behind move down.
void RemoveTerm(AmplitudeHistogram& histogram, std::int32_t marker);
void RemoveTerm(DurationHistogram& histogram, std::int32_t marker);

/// The terms' ways from a place in the view: `x` and `y` are the centre of the peak's handle.
void MovePeak(AmplitudeHistogram& histogram, const GraphFrame& frame, std::int32_t term, double x,
              double y);
void MovePeak(DurationHistogram& histogram, const GraphFrame& frame, std::int32_t term, double x,
              double y);

/// The width bar of the term ends at `x`. The height of the peak stays.
void MoveWidth(AmplitudeHistogram& histogram, const GraphFrame& frame, std::int32_t term, double x);

/// What a first estimate is set to when the user begins to work on a fit.
void ResetFirstTerm(AmplitudeHistogram& histogram);
void ResetFirstTerm(DurationHistogram& histogram);

}  // namespace ondrel
