// The cases with a stopwatch, for builds without Google Benchmark. Baseline and product take turns
// and the medians are compared. Returns 1 when a result is wrong.
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <memory>

#include "derive_cases.h"
#include "read_cases.h"

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
  for (std::size_t turn = 0; turn < kTurns; ++turn) {
    baseline[turn] = Seconds(benchCase.Baseline, data);
    benchCase.Prepare(data);
    product[turn] = Seconds(benchCase.Product, data);
  }
  const bool right = benchCase.Check(data);
  const double megabytes = static_cast<double>(benchCase.Bytes(data)) / 1e6;
  std::printf("%-24s %8.2f ms %8.1f MB/s   baseline %8.1f MB/s   ratio %6.2f   %s\n",
              benchCase.Name, 1e3 * Median(product), megabytes / Median(product),
              megabytes / Median(baseline), Median(baseline) / Median(product),
              right ? "right" : "WRONG");
  std::fflush(stdout);
  return right;
}

bool RunAll(BenchData& data, std::span<const BenchCase> cases) {
  bool right = true;
  for (const BenchCase& benchCase : cases) right = RunCase(data, benchCase) && right;
  return right;
}

}  // namespace
}  // namespace ondrel::bench

int main() {
  using namespace ondrel::bench;
  const auto data = std::make_unique<BenchData>();
  const bool right = RunAll(*data, ReadCases());
  return RunAll(*data, DeriveCases()) && right ? 0 : 1;
}
