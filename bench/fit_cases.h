// Evaluations of the two objectives, and whole fits, against an objective that works out each bin's
// probability on its own.
#pragma once

#include <span>

#include "bench_data.h"

namespace ondrel::bench {

std::span<const BenchCase> FitCases();

}  // namespace ondrel::bench
