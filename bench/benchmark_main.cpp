// The cases under Google Benchmark. Each iteration runs baseline and product in turn, so that both
// meet the same machine. The time shown is the product's mean; the rates are of the medians.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <vector>

#include "derive_cases.h"
#include "fit_cases.h"
#include "plot_cases.h"
#include "read_cases.h"
#include "scatter_cases.h"
#include "write_cases.h"

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

double Median(std::vector<double> times) {
  std::sort(times.begin(), times.end());
  return times.empty() ? 0.0 : times[times.size() / 2];
}

void RunCase(benchmark::State& state, const BenchCase& benchCase) {
  BenchData& data = SharedData();
  std::vector<double> baseline;
  std::vector<double> product;
  if (benchCase.Load != nullptr) benchCase.Load(data);
  for ([[maybe_unused]] auto iteration : state) {
    baseline.push_back(Seconds(benchCase.Baseline, data));
    benchCase.Prepare(data);
    product.push_back(Seconds(benchCase.Product, data));
    state.SetIterationTime(product.back());
  }
  if (!benchCase.Check(data)) state.SkipWithError("the result is wrong");
  if (benchCase.Bytes != nullptr) {
    const double megabytes = static_cast<double>(benchCase.Bytes(data)) / 1e6;
    state.counters["MB/s"] = megabytes / Median(product);
    state.counters["baseline MB/s"] = megabytes / Median(baseline);
  }
  state.counters["ratio"] = Median(baseline) / Median(product);
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
  ondrel::bench::RegisterAll(ondrel::bench::WriteCases());
  ondrel::bench::RegisterAll(ondrel::bench::DeriveCases());
  ondrel::bench::RegisterAll(ondrel::bench::PlotCases());
  ondrel::bench::RegisterAll(ondrel::bench::ScatterCases());
  ondrel::bench::RegisterAll(ondrel::bench::FitCases());
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
