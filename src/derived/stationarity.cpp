#include "derived/stationarity.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "derived/axis_step.h"
#include "fit/error_function.h"
#include "fit/number_pair.h"
#include "shell/toolkit.h"
#include "workspace/geometry.h"
#include "workspace/number_text.h"
#include "workspace/truncate.h"

namespace ondrel {
namespace {

// --- Samples -------------------------------------------------------------------------------------

/// The weight of a Gaussian between `lower` and `upper`, in widths of the kernel from its middle.
/// It is negative for `lower` below `upper`, and twice what the Gaussian has; the whole weight of
/// the kernel is taken the same way, so that both cancel out. Almost all of the time that samples
/// take goes into the two error functions, which are thus worked out together.
double ErfcDifference(double lower, double upper) {
  const Pair atEdges = ComplementaryErf(Pair(lower, upper));
  return atEdges.Second() - atEdges.First();
}

/// Where the kernel is cut off, in its widths. Not the bare constant: the same rounding here and
/// where times are compared is what makes a level that covers the whole kernel count exactly 1.
double CutOff(const StationaritySettings& plot) {
  return kKernelReach * plot.Tau / plot.Tau;
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
  const double reach = kKernelReach * plot.Tau;
  const double cutOff = CutOff(plot);
  const double step = plot.TickSpacing / plot.TickPixels;
  const double start = level.Transition;
  const double end = start + level.Duration;
  auto [place, time] = FindFirstSample(start, reach, step);
  for (; end > time - reach && place < plot.SampleCount; ++place, time += step) {
    const double lower = time - reach <= start ? (start - time) / plot.Tau : -cutOff;
    const double upper = end < time + reach ? (end - time) / plot.Tau : cutOff;
    plot.StationaritySamples[place] += ErfcDifference(lower, upper) * value;
  }
}

void AddLevels(StationaritySettings& plot, const LevelTable& levels) {
  for (std::int32_t index = 0; index < levels.Count; ++index) {
    const LevelRecord& level = *levels.Index[index];
    if (level.LevelFlags != 0 || !(level.Transition < plot.ShortestSweep)) continue;
    const double value = Contribution(plot.Type, level);
    if (value != 0.0) AddLevel(plot, level, value);  // half of all levels may be closings
  }
}

/// Makes averages of the sums.
void Normalize(StationaritySettings& plot, std::int32_t sweepCount) {
  const double cutOff = CutOff(plot);
  double whole = ErfcDifference(-cutOff, cutOff);
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
  const double span = plot.ShortestSweep - 2.0 * kKernelReach * plot.Tau;
  if (!(plot.Tau > 0.0) || !(span >= 0.0)) return 0;
  return TruncateToInteger(WholeUnits(span * plot.TickPixels / plot.TickSpacing));
}

// --- Axes ----------------------------------------------------------------------------------------

/// What rounding may do to a value, as a fraction of it: samples are sums over many levels.
constexpr double kRounding = 1e-9;

/// `value` in steps of an axis, a whole number also where rounding alone made it none: an average
/// that came out a bit above 1 is no reason for an axis up to 2.
double InSteps(double value, double step) {
  const double steps = value / step;
  const double nearest = std::round(steps);
  const double rounding = kRounding * std::max(std::fabs(steps), 1.0);
  return std::fabs(steps - nearest) <= rounding ? nearest : steps;
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
  const bool isWide = spread != 0.0 && kSmallSpread * size * (1.0 + kRounding) < spread;
  if (isWide) return AxisStep(spread / kLeastTicks);
  return highest == 0.0 ? 1.0 : AxisStep(std::fabs(highest));
}

}  // namespace

void ScaleTimeAxis(StationaritySettings& plot, double plotWidth, const DeviceRecord& device) {
  constexpr double kLeastTicks = 5.0;
  constexpr double kWholeSeconds = 10.0;  // s; ticks from here on need no decimals
  const double span = plot.ShortestSweep;
  plot.TickSpacing = span == 0.0 ? 1.0 : AxisStep(span / kLeastTicks);
  const double ticks = std::ceil(InSteps(span, plot.TickSpacing));
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
  plot.ValueMin = std::floor(InSteps(plot.ValueMin, tick)) * tick + 0.0;  // not minus zero
  const double span = plot.ValueMax - plot.ValueMin;
  const double intervals = std::max(std::ceil(InSteps(span, tick)), 1.0);
  plot.ValueTickPixels = WholeUnits(plotHeight / intervals);
}

}  // namespace ondrel
