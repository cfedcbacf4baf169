// The stationarity plot: a running average over the time of a sweep, taken across all selected
// sweeps through a Gaussian kernel cut off at 3 `Tau` on either side. There is one sample for each
// device unit of the time axis, so the samples belong to one rectangle and are worked out anew for
// the next.
#pragma once

#include "shell/window_record.h"
#include "workspace/workspace.h"

namespace ondrel {

/// How far the kernel reaches to either side, in widths `Tau`.
inline constexpr double kKernelReach = 3.0;

// The three steps to a plot, in their order.

/// Divides the duration of the shortest selected sweep into ticks of a plot `plotWidth` device
/// units wide. Where the number at the end of the axis, in the font selected into `device`, is
/// wider than a tick, there are half as many ticks, rounded up; its decimals stay those of the
/// narrower ticks.
void ScaleTimeAxis(StationaritySettings& plot, double plotWidth, const DeviceRecord& device);

/// Replaces the samples by those for the time axis as it is scaled now, and `ValueMin` and
/// `ValueMax` by the lowest and the highest of them. The first lies 3 `Tau` behind the start of a
/// sweep and the last about 3 `Tau` before the end of the shortest: the kernel lies whole inside
/// every selected sweep. None are there when the kernel does not fit. False when there is no memory
/// for them; then none are there either.
[[nodiscard]] bool SampleStationarity(Workspace& workspace);

/// Rounds `ValueMin` down to a tick and divides the span up to `ValueMax` into ticks of a plot
/// `plotHeight` device units high.
void ScaleValueAxis(StationaritySettings& plot, double plotHeight);

}  // namespace ondrel
