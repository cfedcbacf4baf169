// The selected levels counted by their amplitude, on a linear axis in pA.
#pragma once

namespace ondrel {

struct Workspace;

/// Rebuilds `Bins`, `YMaximum` and `EventsInHistogram` from the selected levels. Bins that the
/// amplitude range of the level selection cuts are excluded. Without memory the user is told and
/// there are no bins.
void BuildAmplitudeHistogram(Workspace& workspace);

/// Chooses `Minimum`, `PerTick`, `TickMarks` and `CountsPerTick` so that all selected levels stand
/// on the axis, and rebuilds. Nothing happens without a selected level.
void AutoscaleAmplitude(Workspace& workspace);

}  // namespace ondrel
