// The cases with a stopwatch, for builds without Google Benchmark. Baseline and product take turns
// and the medians are compared. Returns 1 when a result is wrong. An argument limits the run to the
// cases whose name holds it.
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <memory>

#include "derive_cases.h"
#include "fit_cases.h"
#include "plot_cases.h"
#include "read_cases.h"
#include "scatter_cases.h"
#include "write_cases.h"

namespace ondrel::bench {
namespace {

constexpr std::size_t kTurns = 9;

using Times = std::array<double, kTurns>;

double Seconds(void (*run)(BenchData& data), BenchData& data) {
  const auto start = std::chrono::steady_clock::now();
  run(data);
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double Median(Times& times) {
  std::sort(times.begin(), times.end());
  return times[kTurns / 2];
}

bool RunCase(BenchData& data, const BenchCase& benchCase) {
  Times baseline;
  Times product;
  if (benchCase.Load != nullptr) benchCase.Load(data);
  for (std::size_t turn = 0; turn < kTurns; ++turn) {
    baseline[turn] = Seconds(benchCase.Baseline, data);
    benchCase.Prepare(data);
    product[turn] = Seconds(benchCase.Product, data);
  }
  const bool right = benchCase.Check(data);
  std::printf("%-34s %9.3f ms   baseline %9.3f ms   ratio %6.2f   ", benchCase.Name,
              1e3 * Median(product), 1e3 * Median(baseline), Median(baseline) / Median(product));
  if (benchCase.Bytes != nullptr) {
    const double megabytes = static_cast<double>(benchCase.Bytes(data)) / 1e6;
    std::printf("%8.1f MB/s   ", megabytes / Median(product));
  }
  std::printf("%s\n", right ? "right" : "WRONG");
  std::fflush(stdout);
  return right;
}

/// The cases whose name holds `part`.
bool RunAll(BenchData& data, std::span<const BenchCase> cases, const char* part) {
  bool right = true;
  for (const BenchCase& benchCase : cases) {
    if (std::strstr(benchCase.Name, part) != nullptr) right = RunCase(data, benchCase) && right;
  }
  return right;
}

}  // namespace
}  // namespace ondrel::bench

int main(int argc, char** argv) {
  using namespace ondrel::bench;
  const char* part = argc > 1 ? argv[1] : "";
  const auto data = std::make_unique<BenchData>();
  bool right = true;
  for (const auto cases :
       {ReadCases(), WriteCases(), DeriveCases(), PlotCases(), ScatterCases(), FitCases()}) {
    right = RunAll(*data, cases, part) && right;
  }
  return right ? 0 : 1;
}
