#include "scatter_cases.h"

#include <cmath>
#include <random>
#include <string>

#include "output/screen_sink.h"
#include "views/scatter_views.h"

namespace ondrel::bench {
namespace {

constexpr double kDpi = 96.0;

/// Stands for these levels in BenchData's `Loaded`.
const std::string kScatterLevels = "levels for scatter plots";

void LoadScatterLevels(BenchData& data) {
  if (data.Loaded == &kScatterLevels) return;
  FillScatterLevels(*data.Tables, kEventCount);
  data.Loaded = &kScatterLevels;
}

// --- Counting ------------------------------------------------------------------------------------

/// Counts the dots in a field that no drawing on a screen reads.
void CountDot(GraphicsContext& context, double, double, double) {
  ++context.BinCount;
}

GraphicsSink CountingSink() {
  GraphicsSink sink = kScreenSink;
  sink.DrawDot = CountDot;
  sink.SetColor = [](GraphicsContext&, const char*, std::size_t, const RgbColor&) {};
  return sink;
}

template <void (*kDraw)(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect)>
void CountDots(BenchData& data) {
  const GraphicsSink sink = CountingSink();
  data.Tables->Graphics.BinCount = 0;
  kDraw(*data.Tables, sink, kPlotRect);
}

/// The last run of the baseline left the number of points in the plot.
bool FindsTheSameDots(const BenchData& data) {
  const std::int32_t dots = data.Tables->Graphics.BinCount;
  return dots > kEventCount / 2 && dots < kEventCount && dots == data.Values.front();
}

// --- Amplitude against duration ------------------------------------------------------------------

void PrepareScatter(BenchData& data) {
  LoadScatterLevels(data);
  Workspace& workspace = *data.Tables;
  workspace.Scatter.ShowAxes = false;
  workspace.Scatter.ShowLabels = false;
  LayoutScatter(workspace, kPlotRect, kDpi);
}

/// The formulas in a plain loop.
void CountInScatterFrame(BenchData& data) {
  PrepareScatter(data);
  const Workspace& workspace = *data.Tables;
  const ScatterSettings& plot = workspace.Scatter;
  const ViewState& view = ViewOf(workspace, ViewKind::Scatter);
  const GraphFrame& frame = view.Frame;
  std::int32_t count = 0;
  for (std::int32_t i = 0; i < workspace.Levels.Count; ++i) {
    const LevelRecord& level = *workspace.Levels.Index[i];
    const double x =
        (std::log10(level.Duration) - plot.MinimumExponent) * view.Scatter.PixelsPerDecade +
        frame.PlotLeft;
    const double y =
        frame.PlotBottom - (level.Amplitude - plot.Minimum) * view.Scatter.YPixelsPerUnit / 1e-12;
    count +=
        x >= frame.PlotLeft && x <= frame.PlotRight && y >= frame.PlotTop && y <= frame.PlotBottom;
  }
  data.Values.assign(1, count);
}

// --- Amplitude against a tag ---------------------------------------------------------------------

void PrepareAmplitudeScatter(BenchData& data) {
  LoadScatterLevels(data);
  Workspace& workspace = *data.Tables;
  workspace.AmplitudeScatter.Value = ScatterValue::LevelTag;
  workspace.AmplitudeScatter.ShowAxes = false;
  workspace.AmplitudeScatter.ShowLabels = false;
  LayoutAmplitudeScatter(workspace, kPlotRect, kDpi);
}

void CountInAmplitudeFrame(BenchData& data) {
  PrepareAmplitudeScatter(data);
  const Workspace& workspace = *data.Tables;
  const AmplitudeScatterSettings& plot = workspace.AmplitudeScatter;
  const ViewState& view = ViewOf(workspace, ViewKind::AmplitudeScatter);
  const GraphFrame& frame = view.Frame;
  std::int32_t count = 0;
  for (std::int32_t i = 0; i < workspace.Levels.Count; ++i) {
    const LevelRecord& level = *workspace.Levels.Index[i];
    const double x = (level.TagValue - plot.Minimum) * view.Scatter.XPixelsPerTick / plot.PerTick +
                     frame.PlotLeft;
    const double y = frame.PlotBottom - (level.Amplitude - plot.AmplitudeMinimum) *
                                            view.Scatter.YPixelsPerUnit / 1e-12;
    count +=
        x >= frame.PlotLeft && x <= frame.PlotRight && y >= frame.PlotTop && y <= frame.PlotBottom;
  }
  data.Values.assign(1, count);
}

constexpr BenchCase kScatterCases[] = {
    {.Name = "scatter plot, counted",
     .Bytes = nullptr,
     .Prepare = PrepareScatter,
     .Baseline = CountInScatterFrame,
     .Product = CountDots<DrawScatter>,
     .Check = FindsTheSameDots},
    {.Name = "amplitude scatter, counted",
     .Bytes = nullptr,
     .Prepare = PrepareAmplitudeScatter,
     .Baseline = CountInAmplitudeFrame,
     .Product = CountDots<DrawAmplitudeScatter>,
     .Check = FindsTheSameDots},
};

}  // namespace

void FillScatterLevels(Workspace& workspace, std::int32_t count) {
  std::mt19937_64 random{25};
  std::normal_distribution<double> amplitude(2e-12, 0.7e-12);
  std::uniform_real_distribution<double> exponent(-5.5, 0.5);
  std::uniform_real_distribution<double> tag(-10.0, 50.0);
  for (std::int32_t i = 0; i < count; ++i) {
    LevelRecord& level = *workspace.Levels.Index[i];
    level = {};
    level.Sweep = 1;
    level.Amplitude = amplitude(random);
    level.Duration = std::pow(10.0, exponent(random));
    level.TagValue = tag(random);
  }
  workspace.Levels.Count = count;
}

std::span<const BenchCase> ScatterCases() {
  return kScatterCases;
}

}  // namespace ondrel::bench
