// Writing an event table and the text of the level list, against a baseline that prints the same
// lines with the runtime's fprintf. Both files must be equal byte by byte.
#pragma once

#include <span>

#include "bench_data.h"

namespace ondrel::bench {

std::span<const BenchCase> WriteCases();

}  // namespace ondrel::bench
