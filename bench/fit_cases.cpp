#include "fit_cases.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <random>

#include "fit/fit_driver.h"
#include "fit/fit_models.h"
#include "fit/histogram_axis.h"
#include "fit/histogram_bins.h"
#include "plain_objectives.h"
#include "workspace/truncate.h"

namespace ondrel::bench {
namespace {

constexpr std::int32_t kDwells = 100000;
constexpr std::int32_t kEvaluations = 100;  // in one run of a case
constexpr std::uint64_t kSeed = 3;

// --- Recordings ----------------------------------------------------------------------------------
// Ten components each; a case uses the first so many. What falls beside the axis is drawn again.

constexpr std::array<double, kMaxTerms> kTimeConstants = {0.002, 0.02,    0.0003, 0.1,    0.007,
                                                          0.05,  0.00015, 0.004,  0.0006, 0.2};
constexpr std::array<double, kMaxTerms> kCurrents = {5.0, 2.0, 8.0, 3.5, 6.5,
                                                     1.0, 9.0, 4.2, 7.2, 2.8};
constexpr double kStdDev = 0.5;  // pA

/// Uniform in (0, 1], the same numbers with every library.
class Uniform {
 public:
  double Next() { return (static_cast<double>(source_() >> 11) + 1.0) * 0x1p-53; }

 private:
  std::mt19937_64 source_{kSeed};
};

double DrawAmplitude(Uniform& uniform, std::int32_t terms) {
  const auto component = static_cast<std::size_t>(uniform.Next() * terms * 0.999999);
  const double radius = std::sqrt(-2.0 * std::log(uniform.Next()));
  return kCurrents[component] +
         kStdDev * radius * std::cos(2.0 * std::numbers::pi * uniform.Next());
}

double DrawDuration(Uniform& uniform, std::int32_t terms) {
  const auto component = static_cast<std::size_t>(uniform.Next() * terms * 0.999999);
  return -kTimeConstants[component] * std::log(uniform.Next());
}

/// Puts kDwells values into the bins; `placeOf` gives a value's place in bins from the left end.
template <typename Draw, typename PlaceOf>
void CountDraws(BinRecord* bins, std::int64_t binCount, Draw draw, PlaceOf placeOf) {
  for (std::int32_t left = kDwells; left > 0;) {
    const double place = placeOf(draw());
    if (!(place >= 0.0) || place >= static_cast<double>(binCount)) continue;
    ++bins[TruncateToInteger(place) + 1].Count;
    --left;
  }
}

void FillAmplitudes(AmplitudeHistogram& histogram, std::int32_t terms, std::int32_t bins) {
  histogram.Minimum = 0.0;
  histogram.PerTick = 1.0;
  histogram.TickMarks = 10;
  histogram.BinsPerTick = bins / 10;
  if (!ReplaceBins(nullptr, bins, "", &histogram.Bins, &histogram.Edges)) return;
  double edge = histogram.Minimum;
  for (std::int32_t i = 0; i <= bins; ++i, edge += BinWidth(histogram)) histogram.Edges[i] = edge;
  Uniform uniform;
  CountDraws(
      histogram.Bins, bins, [&] { return DrawAmplitude(uniform, terms); },
      [&](double x) { return (x - histogram.Minimum) / BinWidth(histogram); });
  histogram.EventsInHistogram = kDwells;
}

void FillDurations(DurationHistogram& histogram, std::int32_t terms, std::int32_t bins) {
  histogram.MinimumExponent = -5;
  histogram.Decades = 5;
  histogram.BinsPerDecade = bins / 5;
  if (!ReplaceBins(nullptr, bins, "", &histogram.Bins, &histogram.Edges)) return;
  for (std::int32_t i = 0; i <= bins; ++i) {
    histogram.Edges[i] = std::pow(10.0, histogram.MinimumExponent + i * LogBinWidth(histogram));
  }
  Uniform uniform;
  CountDraws(
      histogram.Bins, bins, [&] { return DrawDuration(uniform, terms); },
      [&](double x) {
        return (std::log10(x) - histogram.MinimumExponent) * histogram.BinsPerDecade;
      });
  histogram.EventsInHistogram = kDwells;
}

// --- Estimates, off by as much as a hasty user's -------------------------------------------------

void EstimateAmplitudes(AmplitudeHistogram& histogram, std::int32_t terms) {
  histogram.TermCount = terms;
  for (std::int32_t i = 0; i < terms; ++i) {
    const auto place = static_cast<std::size_t>(i);
    histogram.Terms[place] = {.Weight = 1.0,
                              .Current = kCurrents[place] + (i % 2 == 0 ? 0.5 : -0.5),
                              .StdDev = 1.0,
                              .Area = 0.0};
  }
}

void EstimateDurations(DurationHistogram& histogram, std::int32_t terms) {
  histogram.TermCount = terms;
  for (std::int32_t i = 0; i < terms; ++i) {
    const auto place = static_cast<std::size_t>(i);
    histogram.Terms[place] = {.Weight = 1.0,
                              .TimeConstant = kTimeConstants[place] * (i % 2 == 0 ? 2.0 : 0.5),
                              .Area = 0.0};
  }
}

// --- The two models in one form ------------------------------------------------------------------

struct Amplitudes {
  static constexpr ViewKind kHistogramView = ViewKind::Amplitude;
  static constexpr ViewKind kFitView = ViewKind::AmplitudeFit;
  static AmplitudeHistogram& Histogram(Workspace& workspace) { return workspace.Amplitude; }
  static FitOperations& Operations(Workspace& workspace) { return workspace.AmplitudeModel; }
  static void Fill(Workspace& workspace, std::int32_t terms, std::int32_t bins) {
    FillAmplitudes(workspace.Amplitude, terms, bins);
  }
  static void Estimate(Workspace& workspace, std::int32_t terms) {
    EstimateAmplitudes(workspace.Amplitude, terms);
  }
  static constexpr auto kFit = FitAmplitude;
  static constexpr auto kPlain = PlainAmplitudeObjective;
  static constexpr const FitOperations& kModel = kAmplitudeModel;
};

struct Durations {
  static constexpr ViewKind kHistogramView = ViewKind::Duration;
  static constexpr ViewKind kFitView = ViewKind::DurationFit;
  static DurationHistogram& Histogram(Workspace& workspace) { return workspace.Duration; }
  static FitOperations& Operations(Workspace& workspace) { return workspace.DurationModel; }
  static void Fill(Workspace& workspace, std::int32_t terms, std::int32_t bins) {
    FillDurations(workspace.Duration, terms, bins);
  }
  static void Estimate(Workspace& workspace, std::int32_t terms) {
    EstimateDurations(workspace.Duration, terms);
  }
  static constexpr auto kFit = FitDuration;
  static constexpr auto kPlain = PlainDurationObjective;
  static constexpr const FitOperations& kModel = kDurationModel;
};

// --- Evaluations ---------------------------------------------------------------------------------

template <typename Model, std::int32_t kTerms, std::int32_t kBins>
void Prepare(BenchData& data) {
  Workspace& workspace = *data.Tables;
  const auto& histogram = Model::Histogram(workspace);
  const bool filled = histogram.EventsInHistogram == kDwells && CountBins(histogram) == kBins &&
                      histogram.TermCount == kTerms;
  if (!filled) Model::Fill(workspace, kTerms, kBins);
  Model::Estimate(workspace, kTerms);
}

/// Each evaluation at a point of its own, as a search along a line would.
template <typename Model>
double Evaluate(BenchData& data, decltype(FitOperations::NegativeLogLikelihood) objective) {
  Workspace& workspace = *data.Tables;
  ParameterVector point = ParametersOf(Model::Histogram(workspace));
  Model::kModel.NormaliseWeights(point, CountParameters(Model::Histogram(workspace)));
  double sum = 0.0;
  for (std::int32_t i = 0; i < kEvaluations; ++i) {
    for (double& parameter : point) parameter *= 1.0001;
    sum += objective(workspace.Amplitude, workspace.Duration, point);
  }
  return sum;
}

template <typename Model, std::int32_t kTerms, std::int32_t kBins>
void EvaluatePlain(BenchData& data) {
  Prepare<Model, kTerms, kBins>(data);
  data.BaselineSum = Evaluate<Model>(data, Model::kPlain);
}

template <typename Model>
void EvaluateProduct(BenchData& data) {
  data.Values.assign(1, Evaluate<Model>(data, Model::kModel.NegativeLogLikelihood));
}

bool SumsAgree(const BenchData& data) {
  return std::abs(data.Values[0] - data.BaselineSum) < 1e-9 * std::abs(data.BaselineSum);
}

template <typename Model, std::int32_t kTerms, std::int32_t kBins>
constexpr BenchCase ObjectiveCase(const char* name) {
  return {.Name = name,
          .Bytes = nullptr,
          .Prepare = Prepare<Model, kTerms, kBins>,
          .Baseline = EvaluatePlain<Model, kTerms, kBins>,
          .Product = EvaluateProduct<Model>,
          .Check = SumsAgree};
}

// --- Whole fits ----------------------------------------------------------------------------------

const FitDisplay kStoringDisplay = {
    .ShowAmplitudeIteration = [](Workspace& workspace, ParameterVector& point,
                                 std::int32_t) { return StoreTerms(workspace.Amplitude, point); },
    .ShowDurationIteration = [](Workspace& workspace, ParameterVector& point,
                                std::int32_t) { return StoreTerms(workspace.Duration, point); },
    .RepaintView = [](Workspace&, ViewKind) {},
};

template <typename Model>
void FitWith(BenchData& data, decltype(FitOperations::NegativeLogLikelihood) objective) {
  Workspace& workspace = *data.Tables;
  Model::Operations(workspace) = Model::kModel;
  Model::Operations(workspace).NegativeLogLikelihood = objective;
  workspace.LiveDisplay = kStoringDisplay;
  workspace.Frame = &data.Frame;
  data.Frame.Owner = &workspace;
  ChildWindow window;
  ViewOf(workspace, Model::kHistogramView).Window = &window;
  ViewOf(workspace, Model::kFitView).Window = &window;
  Model::kFit(&data.Frame);
  ViewOf(workspace, Model::kHistogramView).Window = nullptr;
  ViewOf(workspace, Model::kFitView).Window = nullptr;
}

template <typename Model, std::int32_t kTerms, std::int32_t kBins>
void FitPlain(BenchData& data) {
  Prepare<Model, kTerms, kBins>(data);
  FitWith<Model>(data, Model::kPlain);
}

template <typename Model>
void FitProduct(BenchData& data) {
  FitWith<Model>(data, Model::kModel.NegativeLogLikelihood);
}

/// The places of the terms, whatever their order, sum up to those of the components.
template <std::int32_t kTerms>
bool CurrentsAreFound(const BenchData& data) {
  double sum = 0.0;
  for (std::size_t i = 0; i < kTerms; ++i) {
    sum += data.Tables->Amplitude.Terms[i].Current - kCurrents[i];
  }
  return std::abs(sum) < 0.1;
}

template <std::int32_t kTerms>
bool TimeConstantsAreFound(const BenchData& data) {
  double sum = 0.0;
  for (std::size_t i = 0; i < kTerms; ++i) {
    sum += std::log(data.Tables->Duration.Terms[i].TimeConstant / kTimeConstants[i]);
  }
  return std::abs(sum) < 0.3;
}

template <typename Model, std::int32_t kTerms, std::int32_t kBins>
constexpr BenchCase FitCase(const char* name, bool (*check)(const BenchData& data)) {
  return {.Name = name,
          .Bytes = nullptr,
          .Prepare = Prepare<Model, kTerms, kBins>,
          .Baseline = FitPlain<Model, kTerms, kBins>,
          .Product = FitProduct<Model>,
          .Check = check};
}

constexpr BenchCase kFitCases[] = {
    ObjectiveCase<Amplitudes, 1, 100>("100 x 1 Gaussian, 100 bins"),
    ObjectiveCase<Amplitudes, 3, 100>("100 x 3 Gaussians, 100 bins"),
    ObjectiveCase<Amplitudes, 10, 100>("100 x 10 Gaussians, 100 bins"),
    ObjectiveCase<Amplitudes, 1, 1000>("100 x 1 Gaussian, 1000 bins"),
    ObjectiveCase<Amplitudes, 3, 1000>("100 x 3 Gaussians, 1000 bins"),
    ObjectiveCase<Amplitudes, 10, 1000>("100 x 10 Gaussians, 1000 bins"),
    ObjectiveCase<Durations, 1, 100>("100 x 1 exponential, 100 bins"),
    ObjectiveCase<Durations, 3, 100>("100 x 3 exponentials, 100 bins"),
    ObjectiveCase<Durations, 10, 100>("100 x 10 exponentials, 100 bins"),
    ObjectiveCase<Durations, 1, 1000>("100 x 1 exponential, 1000 bins"),
    ObjectiveCase<Durations, 3, 1000>("100 x 3 exponentials, 1000 bins"),
    ObjectiveCase<Durations, 10, 1000>("100 x 10 exponentials, 1000 bins"),
    FitCase<Amplitudes, 1, 200>("fit 1 Gaussian, 200 bins", CurrentsAreFound<1>),
    FitCase<Amplitudes, 3, 200>("fit 3 Gaussians, 200 bins", CurrentsAreFound<3>),
    FitCase<Durations, 1, 160>("fit 1 exponential, 160 bins", TimeConstantsAreFound<1>),
    FitCase<Durations, 3, 160>("fit 3 exponentials, 160 bins", TimeConstantsAreFound<3>),
};

}  // namespace

std::span<const BenchCase> FitCases() {
  return kFitCases;
}

}  // namespace ondrel::bench
