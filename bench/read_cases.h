// Reading event tables, against a baseline that cuts the same bytes into tokens and calls the
// runtime's strtod on each.
#pragma once

#include <span>

#include "bench_data.h"

namespace ondrel::bench {

std::span<const BenchCase> ReadCases();

/// Leaves the recording in the tables, unless it is there already.
void LoadVersion5(BenchData& data);

}  // namespace ondrel::bench
