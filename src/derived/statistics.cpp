#include "derived/statistics.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "shell/toolkit.h"
#include "workspace/report.h"
#include "workspace/workspace.h"

namespace ondrel {
namespace {

/// The selected levels as a whole.
struct SelectedLevels {
  std::int32_t Count = 0;
  std::int32_t Lowest = std::numeric_limits<std::int32_t>::max();   // level number
  std::int32_t Highest = std::numeric_limits<std::int32_t>::min();  // level number
};

SelectedLevels ScanSelectedLevels(const LevelTable& levels) {
  SelectedLevels selected;
  for (std::int32_t row = 0; row < levels.Count; ++row) {
    const LevelRecord& level = *levels.Index[row];
    if (level.LevelFlags != 0) continue;
    ++selected.Count;
    selected.Lowest = std::min(selected.Lowest, level.Level);
    selected.Highest = std::max(selected.Highest, level.Level);
  }
  return selected;
}

/// Replaces the rows by `count` zeroed ones. False, and none left, when they could not be had:
/// level numbers of a damaged file may lie so far apart that no table takes the rows between them.
bool ReplaceRows(StatisticsTable& statistics, std::int64_t count) {
  toolkit::FreeMemory(statistics.Rows);
  statistics.Rows = nullptr;
  statistics.RowCount = 0;
  if (count > std::numeric_limits<std::int32_t>::max()) return false;
  statistics.Rows = toolkit::AllocateRecords<StatisticsRow>(count);
  if (statistics.Rows == nullptr) return false;
  statistics.RowCount = static_cast<std::int32_t>(count);
  return true;
}

void AddValue(bool isFirst, double value, double& sum, double& squares, double& minimum,
              double& maximum) {
  if (isFirst) {
    sum = value;
    squares = value * value;
    minimum = value;
    maximum = value;
    return;
  }
  if (value < minimum) {
    minimum = value;
  } else if (value > maximum) {
    maximum = value;
  }
  sum += value;
  squares += value * value;
}

/// Means hold sums now, standard deviations sums of squares.
void FillRows(const StatisticsTable& statistics, const LevelTable& levels, std::int32_t lowest) {
  for (std::int32_t index = 0; index < levels.Count; ++index) {
    const LevelRecord& level = *levels.Index[index];
    if (level.LevelFlags != 0) continue;
    StatisticsRow& row = statistics.Rows[std::int64_t{level.Level} - lowest];
    const bool isFirst = row.Events == 0;
    AddValue(isFirst, level.Duration, row.DurationMean, row.DurationStd, row.DurationMin,
             row.DurationMax);
    AddValue(isFirst, level.Amplitude, row.AmplitudeMean, row.AmplitudeStd, row.AmplitudeMin,
             row.AmplitudeMax);
    ++row.Events;
  }
}

/// The time in s of which the rows have their shares, while the rows still hold sums.
double ReferenceTime(const StatisticsTable& statistics, const SweepTable& sweeps) {
  double time = 0.0;
  if (statistics.Reference == StatisticsReference::Levels) {
    for (std::int32_t index = 0; index < statistics.RowCount; ++index) {
      time += statistics.Rows[index].DurationMean;
    }
    return time;
  }
  for (std::int32_t index = 0; index < sweeps.Count; ++index) {
    const SweepRecord& sweep = *sweeps.Index[index];
    if (sweep.SelectionFlags != 0) continue;
    time += statistics.Reference == StatisticsReference::RelevantSegment
                ? sweep.RelevantEnd - sweep.RelevantStart
                : sweep.Duration;
  }
  return time;
}

/// The sample standard deviation of `count` values, two or more. Rounding can make the variance of
/// equal values slightly negative.
double SampleDeviation(double count, double sum, double squares) {
  const double variance = (squares - count * sum * sum / (count * count)) / (count - 1.0);
  return variance < 0.0 ? 0.0 : std::sqrt(variance);
}

void FinishRow(StatisticsRow& row, double referenceTime) {
  const double count = row.Events;
  if (row.Events < 2) {
    row.DurationStd = 0.0;
    row.AmplitudeStd = 0.0;
  } else {
    row.DurationStd = SampleDeviation(count, row.DurationMean, row.DurationStd);
    row.AmplitudeStd = SampleDeviation(count, row.AmplitudeMean, row.AmplitudeStd);
  }
  row.Probability = referenceTime != 0.0 ? row.DurationMean / referenceTime : 0.0;
  // Without a guard: 0 / 0 makes the means of a row without levels not-a-number, which is shown
  // nowhere on the screen and written as it is.
  row.DurationMean /= count;
  row.AmplitudeMean /= count;
}

}  // namespace

void CalculateStatistics(Workspace& workspace) {
  StatisticsTable& statistics = workspace.Statistics;
  const SelectedLevels selected = ScanSelectedLevels(workspace.Levels);
  statistics.StatisticsEmpty = selected.Count == 0;
  if (statistics.StatisticsEmpty) return;

  statistics.TotalEvents = selected.Count;
  if (!ReplaceRows(statistics, std::int64_t{selected.Highest} - selected.Lowest + 1)) {
    statistics.StatisticsEmpty = true;
    ReportFailure(workspace.Frame, {TextId::InsufficientMemoryFor, "calculating statistics",
                                    TextId::QuitOtherPrograms});
    return;
  }
  FillRows(statistics, workspace.Levels, selected.Lowest);
  const double referenceTime = ReferenceTime(statistics, workspace.Sweeps);
  for (std::int32_t index = 0; index < statistics.RowCount; ++index) {
    statistics.Rows[index].Level = static_cast<std::int32_t>(std::int64_t{selected.Lowest} + index);
    FinishRow(statistics.Rows[index], referenceTime);
  }
}

}  // namespace ondrel
