// What plots work out from a million levels before they draw.
#pragma once

#include <span>

#include "bench_data.h"

namespace ondrel::bench {

std::span<const BenchCase> PlotCases();

}  // namespace ondrel::bench
