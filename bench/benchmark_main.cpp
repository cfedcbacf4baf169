// The cases under Google Benchmark. Each iteration runs baseline and product in turn, so that both
// meet the same machine; the time shown is the product's.
#include <benchmark/benchmark.h>

#include <chrono>
#include <memory>

#include "derive_cases.h"
#include "read_cases.h"

namespace ondrel::bench {
namespace {

BenchData& SharedData() {
  static const auto data = std::make_unique<BenchData>();
  return *data;
}

double Seconds(void (*run)(BenchData& data), BenchData& data) {
  const auto start = std::chrono::steady_clock::now();
  run(data);
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void RunCase(benchmark::State& state, const BenchCase& benchCase) {
  BenchData& data = SharedData();
  double baseline = 0.0;
  double product = 0.0;
  std::size_t bytes = 0;
  for ([[maybe_unused]] auto iteration : state) {
    baseline += Seconds(benchCase.Baseline, data);
    benchCase.Prepare(data);
    const double seconds = Seconds(benchCase.Product, data);
    product += seconds;
    state.SetIterationTime(seconds);
    bytes += benchCase.Bytes(data);
  }
  if (!benchCase.Check(data)) state.SkipWithError("the result is wrong");
  const auto megabytes = static_cast<double>(bytes) / 1e6;
  state.counters["MB/s"] = megabytes / product;
  state.counters["baseline MB/s"] = megabytes / baseline;
  state.counters["ratio"] = baseline / product;
}

void RegisterAll(std::span<const BenchCase> cases) {
  for (const BenchCase& benchCase : cases) {
    benchmark::RegisterBenchmark(benchCase.Name, RunCase, benchCase)
        ->UseManualTime()
        ->Iterations(9)
        ->Unit(benchmark::kMillisecond);
  }
}

}  // namespace
}  // namespace ondrel::bench

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  ondrel::bench::RegisterAll(ondrel::bench::ReadCases());
  ondrel::bench::RegisterAll(ondrel::bench::DeriveCases());
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
