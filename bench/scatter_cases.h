// Scatter plots of a million points: what it takes to find the places of the dots.
#pragma once

#include <span>

#include "bench_data.h"

namespace ondrel::bench {

/// A plot of this size in device units.
inline constexpr IntRect kPlotRect = {0, 0, 800, 700};

/// Fills the table, which must have room, with `count` selected levels of one sweep: amplitudes
/// about 2 pA, durations spread over six decades, so that most points lie in the plots and some do
/// not.
void FillScatterLevels(Workspace& workspace, std::int32_t count);

std::span<const BenchCase> ScatterCases();

}  // namespace ondrel::bench
