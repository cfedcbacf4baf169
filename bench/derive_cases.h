// Levels, selections and statistics from a million events, against a baseline that only copies each
// event into a level record.
#pragma once

#include <span>

#include "bench_data.h"

namespace ondrel::bench {

std::span<const BenchCase> DeriveCases();

}  // namespace ondrel::bench
