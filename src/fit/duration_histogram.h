// The selected levels counted by the logarithm of their duration: each decade of time has the same
// width, and each bin the same width in log time.
#pragma once

namespace ondrel {

struct Workspace;

/// The duration, in seconds, that a dwell of `duration` seconds had before the recording's filter
/// of `filterFrequency` Hz made it look shorter. Dwells above 1 / (2 `filterFrequency`) are taken
/// as they are (Colquhoun and Sigworth 1995); just below, the value is not held under that limit.
double CorrectDuration(double duration, double filterFrequency);

/// Rebuilds `Bins`, `YMaximum` and `EventsInHistogram` from the selected levels. Bins that the
/// duration range of the level selection cuts, and those that begin below 1 / (6 FilterFrequency),
/// are excluded. Without memory the user is told and there are no bins.
void BuildDurationHistogram(Workspace& workspace);

/// Chooses `MinimumExponent`, `Decades` and `CountsPerTick` by the selected levels and rebuilds.
/// Nothing happens without a selected level.
void AutoscaleDuration(Workspace& workspace);

}  // namespace ondrel
