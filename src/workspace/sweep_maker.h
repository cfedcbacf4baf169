// Makes sweeps for layouts that say little about them.
#pragma once

#include <cstdint>

#include "shell/window_record.h"
#include "workspace/records.h"

namespace ondrel {

/// Gives the sweep one segment. On failure it has none, and the user is told.
[[nodiscard]] bool SetOnlySegment(FrameWindow* frame, SweepRecord& sweep, double start, double end);

/// Makes the sweeps and the file of a bare list, whose events are those of the table from
/// `firstEvent` on, grouped by sweep; `lastSweep` is the sweep number of the last row. A sweep ends
/// at its last transition; numbers that no row has become empty sweeps. When the numbers do not run
/// up to `lastSweep` or something does not fit, the user is told and the events are dropped.
void MakeSweeps(FrameWindow* frame, std::int32_t firstEvent, std::int32_t lastSweep);

}  // namespace ondrel
