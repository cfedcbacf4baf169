#include "derived/stationarity.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "derived/axis_step.h"
#include "fit/error_function.h"
#include "shell/toolkit.h"
#include "workspace/geometry.h"
#include "workspace/number_text.h"
#include "workspace/truncate.h"

namespace ondrel {
namespace {

// --- Samples -------------------------------------------------------------------------------------

/// The kernel reaches so many widths to either side.
constexpr double kReach = 3.0;

/// The weight of a Gaussian between `lower` and `upper`, in widths of the kernel from its middle.
/// It is negative for `lower` below `upper`, and twice what the Gaussian has; the whole weight of
/// the kernel is taken the same way, so that both cancel out.
double ErfcDifference(double lower, double upper) {
  return ComplementaryErf(upper) - ComplementaryErf(lower);
}

double Contribution(StationarityType type, const LevelRecord& level) {
  switch (type) {
    case StationarityType::One:
      return 1.0;
    case StationarityType::Amplitude:
      return level.Amplitude;
    case StationarityType::Duration:
      return level.Duration;
    case StationarityType::Level:
      break;
  }
  return level.Level;
}

/// Where a level begins to be seen by samples.
struct FirstSample {
  std::int64_t Place;
  double Time;  // s, the middle of the kernel
};

/// Worked out by division: a long recording has many more levels than a level has samples.
FirstSample FindFirstSample(double start, double reach, double step) {
  double time = std::max(start - reach, reach);
  std::int64_t place = TruncateToInteger((time - reach) / step);
  const double offset = static_cast<double>(place) * step;
  if (offset != time - reach) {
    time = offset + reach;
    if (time + reach < start) {
      time += step;
      ++place;
    }
  }
  return {place, time};
}

/// Adds `value` to every sample, by the part of the kernel's weight that the level covers.
void AddLevel(StationaritySettings& plot, const LevelRecord& level, double value) {
  const double reach = kReach * plot.Tau;
  const double step = plot.TickSpacing / plot.TickPixels;
  const double start = level.Transition;
  const double end = start + level.Duration;
  auto [place, time] = FindFirstSample(start, reach, step);
  for (; end > time - reach && place < plot.SampleCount; ++place, time += step) {
    const double lower = time - reach <= start ? (start - time) / plot.Tau : -(reach / plot.Tau);
    const double upper = end < time + reach ? (end - time) / plot.Tau : reach / plot.Tau;
    plot.StationaritySamples[place] += ErfcDifference(lower, upper) * value;
  }
}

void AddLevels(StationaritySettings& plot, const LevelTable& levels) {
  for (std::int32_t index = 0; index < levels.Count; ++index) {
    const LevelRecord& level = *levels.Index[index];
    if (level.LevelFlags != 0 || !(level.Transition < plot.ShortestSweep)) continue;
    AddLevel(plot, level, Contribution(plot.Type, level));
  }
}

/// Makes averages of the sums.
void Normalize(StationaritySettings& plot, std::int32_t sweepCount) {
  const double reach = kReach * plot.Tau / plot.Tau;
  double whole = ErfcDifference(-reach, reach);
  if (sweepCount != 0) whole *= sweepCount;
  plot.ValueMin = std::numeric_limits<double>::max();
  plot.ValueMax = std::numeric_limits<double>::lowest();
  for (std::int32_t i = 0; i < plot.SampleCount; ++i) {
    double& sample = plot.StationaritySamples[i];
    sample /= whole;
    plot.ValueMin = std::min(plot.ValueMin, sample);
    plot.ValueMax = std::max(plot.ValueMax, sample);
  }
}

/// How many device units of the time axis see the whole kernel; 0 when the shortest sweep is
/// shorter than it.
std::int32_t CountSamples(const StationaritySettings& plot) {
  const double span = plot.ShortestSweep - 2.0 * kReach * plot.Tau;
  if (!(plot.Tau > 0.0) || !(span >= 0.0)) return 0;
  return TruncateToInteger(WholeUnits(span * plot.TickPixels / plot.TickSpacing));
}

// --- Axes ----------------------------------------------------------------------------------------

/// Intervals of `step` that cover `span`.
double CountIntervals(double span, double step) {
  const double count = std::trunc(span / step);
  return count * step != span ? count + 1.0 : count;
}

std::int32_t WidthOfNumber(double number, int decimals, const DeviceRecord& device) {
  char text[kNumberTextSize] = "";
  RealText(number, decimals, 'f', text);
  return toolkit::TextWidth(device, text);
}

double TickOfValues(double lowest, double highest) {
  constexpr double kSmallSpread = 0.1;  // of the values
  constexpr double kLeastTicks = 3.0;
  const double spread = highest - lowest;
  const double size = std::max(std::fabs(highest), std::fabs(lowest));
  if (spread != 0.0 && kSmallSpread * size < spread) return AxisStep(spread / kLeastTicks);
  return highest == 0.0 ? 1.0 : AxisStep(std::fabs(highest));
}

}  // namespace

void ScaleTimeAxis(StationaritySettings& plot, double plotWidth, const DeviceRecord& device) {
  constexpr double kLeastTicks = 5.0;
  constexpr double kWholeSeconds = 10.0;  // s; ticks from here on need no decimals
  const double span = plot.ShortestSweep;
  plot.TickSpacing = span == 0.0 ? 1.0 : AxisStep(span / kLeastTicks);
  const double ticks = CountIntervals(span, plot.TickSpacing);
  plot.TickPixels = plotWidth / ticks;
  plot.TimeDecimals = plot.TickSpacing >= kWholeSeconds ? 0 : 3;
  const double last = ticks * plot.TickSpacing;
  if (WidthOfNumber(last, plot.TimeDecimals, device) < plot.TickPixels) return;
  plot.TickPixels = plotWidth / std::max(std::ceil(ticks / 2.0), 1.0);
  plot.TickSpacing *= 2.0;
}

bool SampleStationarity(Workspace& workspace) {
  StationaritySettings& plot = workspace.Stationarity;
  FreeSamples(plot);
  const std::int32_t count = CountSamples(plot);
  if (count <= 0) return true;
  plot.StationaritySamples = toolkit::AllocateRecords<double>(count);
  if (plot.StationaritySamples == nullptr) return false;
  plot.SampleCount = count;
  AddLevels(plot, workspace.Levels);
  Normalize(plot, workspace.Sweeps.SelectedCount);
  return true;
}

void ScaleValueAxis(StationaritySettings& plot, double plotHeight) {
  const double tick = TickOfValues(plot.ValueMin, plot.ValueMax);
  plot.ValueTick = tick;
  const double ticks = std::trunc(plot.ValueMin / tick);
  const bool roundsUp = ticks * tick != plot.ValueMin && plot.ValueMin < 0.0;
  plot.ValueMin = (roundsUp ? ticks - 1.0 : ticks) * tick;
  const double intervals = std::max(CountIntervals(plot.ValueMax - plot.ValueMin, tick), 1.0);
  plot.ValueTickPixels = WholeUnits(plotHeight / intervals);
}

}  // namespace ondrel
