#include "plot_cases.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "derived/stationarity.h"
#include "workspace/truncate.h"

namespace ondrel::bench {
namespace {

// --- Levels --------------------------------------------------------------------------------------
// A channel that opens and closes by turns; the openings are selected.

constexpr std::int32_t kPlotSweeps = 1000;
constexpr std::int32_t kDwellsPerSweep = 1000;
constexpr double kMeanDwell = 0.003;         // s
constexpr double kCurrent = -5e-12;          // A, of an opening
constexpr std::uint32_t kNotSelected = 0x1;  // any flag will do
constexpr std::uint64_t kPlotSeed = 24;

/// Stands for these levels in BenchData's `Loaded`.
const std::string kPlotLevels = "levels for plots";

double EndOf(const LevelRecord& level) {
  return level.Transition + level.Duration;
}

/// Levels end to end from the start of a sweep. Returns where the last one ends.
double FillSweep(LevelTable& levels, std::int32_t sweep, std::mt19937_64& random) {
  double time = 0.0;
  for (std::int32_t i = 0; i < kDwellsPerSweep; ++i) {
    const double uniform = (static_cast<double>(random() >> 11) + 1.0) * 0x1p-53;  // in (0, 1]
    const std::int32_t number = i % 2;
    LevelRecord& level = *levels.Index[levels.Count++];
    level = {};
    level.LevelFlags = number == 0 ? kNotSelected : 0;
    level.Sweep = static_cast<std::uint32_t>(sweep + 1);
    level.Amplitude = kCurrent * number;
    level.Transition = time;
    level.Duration = -kMeanDwell * std::log(uniform);
    level.Level = number;
    time = EndOf(level);
  }
  return time;
}

void LoadPlotLevels(BenchData& data) {
  if (data.Loaded == &kPlotLevels) return;
  Workspace& workspace = *data.Tables;
  std::mt19937_64 random{kPlotSeed};
  workspace.Levels.Count = 0;
  double shortest = FillSweep(workspace.Levels, 0, random);
  for (std::int32_t sweep = 1; sweep < kPlotSweeps; ++sweep) {
    shortest = std::min(shortest, FillSweep(workspace.Levels, sweep, random));
  }
  workspace.Sweeps.SelectedCount = kPlotSweeps;
  workspace.Stationarity.ShortestSweep = shortest;
  data.Loaded = &kPlotLevels;
}

// --- Stationarity --------------------------------------------------------------------------------

constexpr double kTau = 0.1;  // s
constexpr std::int32_t kSamples = 500;
constexpr double kReach = 3.0 * kTau;

/// Of the baseline over a kernel. Its points are 0.6 ms apart.
constexpr std::size_t kPoints = 1000;
constexpr double kBaselineAccuracy = 1e-3;

/// A time axis of `kSamples` device units.
void PrepareStationarity(BenchData& data) {
  LoadPlotLevels(data);
  StationaritySettings& plot = data.Tables->Stationarity;
  plot.Type = StationarityType::One;
  plot.Tau = kTau;
  plot.TickSpacing = 1.0;
  plot.TickPixels = kSamples / (plot.ShortestSweep - 2.0 * kReach);
}

/// The Gaussian at the middles of `kPoints` equal parts of the kernel.
std::array<double, kPoints> WeightsOfPoints() {
  std::array<double, kPoints> weights;
  for (std::size_t i = 0; i < kPoints; ++i) {
    const double place = (static_cast<double>(i) + 0.5) / kPoints;  // in the kernel, from 0 to 1
    const double distance = (2.0 * place - 1.0) * 3.0;
    weights[i] = std::exp(-distance * distance);
  }
  return weights;
}

std::size_t PointsBefore(double time, double start) {
  constexpr double kPointWidth = 2.0 * kReach / kPoints;
  const std::int32_t points = TruncateToInteger((time - start) / kPointWidth + 0.5);
  return static_cast<std::size_t>(std::clamp<std::int32_t>(points, 0, kPoints));
}

/// Sum of the weights of the points in selected dwells, for a kernel that begins at `start`. Dwells
/// from `first` up to `end` are those of one sweep that do not lie before it.
double SumOverSweep(LevelRecord* const* first, LevelRecord* const* end, double start,
                    const std::array<double, kPoints>& weights) {
  double sum = 0.0;
  std::size_t point = 0;
  for (; first != end && point < kPoints; ++first) {
    const std::size_t last = PointsBefore(EndOf(**first), start);
    if ((*first)->LevelFlags == 0) {
      for (; point < last; ++point) sum += weights[point];
    }
    point = last;
  }
  return sum;
}

/// A midpoint rule over the kernel of each sample, sweep after sweep.
void IntegrateDirectly(BenchData& data) {
  PrepareStationarity(data);
  const StationaritySettings& plot = data.Tables->Stationarity;
  const std::array<double, kPoints> weights = WeightsOfPoints();
  double whole = 0.0;
  for (const double weight : weights) whole += weight;
  std::vector<LevelRecord* const*> firsts;
  LevelRecord* const* const index = data.Tables->Levels.Index;
  for (std::int32_t i = 0; i < kPlotSweeps; ++i) firsts.push_back(index + i * kDwellsPerSweep);
  data.Values.assign(kSamples, 0.0);
  for (std::int32_t k = 0; k < kSamples; ++k) {
    const double start = k * plot.TickSpacing / plot.TickPixels;
    double sum = 0.0;
    for (std::int32_t sweep = 0; sweep < kPlotSweeps; ++sweep) {
      LevelRecord* const*& first = firsts[static_cast<std::size_t>(sweep)];
      LevelRecord* const* const end = index + (sweep + 1) * kDwellsPerSweep;
      while (first != end && EndOf(**first) <= start) ++first;
      sum += SumOverSweep(first, end, start, weights);
    }
    data.Values[static_cast<std::size_t>(k)] = sum / (whole * kPlotSweeps);
  }
}

void Sample(BenchData& data) {
  if (!SampleStationarity(*data.Tables)) std::abort();
}

bool SamplesAreThoseOfTheBaseline(const BenchData& data) {
  const StationaritySettings& plot = data.Tables->Stationarity;
  if (plot.SampleCount != kSamples || data.Values.size() != kSamples) return false;
  double largest = 0.0;
  for (std::size_t i = 0; i < data.Values.size(); ++i) {
    largest = std::max(largest, std::fabs(plot.StationaritySamples[i] - data.Values[i]));
  }
  return largest < kBaselineAccuracy;
}

constexpr BenchCase kPlotCases[] = {
    {.Name = "stationarity, 500 samples",
     .Bytes = nullptr,
     .Prepare = PrepareStationarity,
     .Baseline = IntegrateDirectly,
     .Product = Sample,
     .Check = SamplesAreThoseOfTheBaseline},
};

}  // namespace

std::span<const BenchCase> PlotCases() {
  return kPlotCases;
}

}  // namespace ondrel::bench
