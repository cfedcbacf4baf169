#include "derive_cases.h"

#include <cmath>

#include "derived/level_builder.h"
#include "derived/selection_filters.h"
#include "derived/statistics.h"
#include "read_cases.h"

namespace ondrel::bench {
namespace {

constexpr double kBurstResolution = 0.0005;  // s; a sixth of the mean dwell

std::size_t EventBytes(const BenchData&) {
  return sizeof(EventRecord) * kEventCount;
}
std::size_t LevelBytes(const BenchData& data) {
  return sizeof(LevelRecord) * static_cast<std::size_t>(data.Tables->Levels.Count);
}

void CopyEvents(BenchData& data) {
  const EventTable& events = data.Tables->Events;
  LevelTable& levels = data.Tables->Levels;
  for (std::int32_t i = 0; i < events.Count; ++i) {
    const EventRecord& event = *events.Index[i];
    LevelRecord& level = *levels.Index[i];
    level.Sweep = event.Sweep;
    level.Transition = event.Transition;
    level.PreAmplitude = event.PreAmplitude;
    level.PostAmplitude = event.PostAmplitude;
    level.Level = event.Level;
    level.TagValue = event.TagValue;
  }
  levels.Count = events.Count;
}

/// Reads what a filter reads, and keeps the sum, so that it is not left out.
void ScanLevels(BenchData& data) {
  const LevelTable& levels = data.Tables->Levels;
  double sum = 0.0;
  for (std::int32_t i = 0; i < levels.Count; ++i) {
    const LevelRecord& level = *levels.Index[i];
    if (level.LevelFlags == 0) sum += level.Duration + level.Amplitude;
  }
  data.Values.assign(1, sum);
}

template <OpeningRule rule>
void UseRule(BenchData& data) {
  LoadVersion5(data);
  data.Tables->Levels.MultipleOpenings = rule;
  data.Tables->Events.BurstResolution = rule == OpeningRule::Highest ? kBurstResolution : 0.0;
}

void RebuildLevels(BenchData& data) {
  BuildLevels(*data.Tables);
}

/// Levels lie end to end over the whole of every sweep.
bool LevelsFillTheSweeps(const BenchData& data) {
  double sweeps = 0.0;
  for (std::int32_t i = 0; i < data.Tables->Sweeps.Count; ++i) {
    sweeps += data.Tables->Sweeps.Index[i]->Duration;
  }
  double levels = 0.0;
  for (std::int32_t i = 0; i < data.Tables->Levels.Count; ++i) {
    levels += data.Tables->Levels.Index[i]->Duration;
  }
  return std::abs(levels - sweeps) < 1e-9 * sweeps;
}

bool EveryDwellIsALevel(const BenchData& data) {
  return data.Tables->Levels.Count == kEventCount + kSweepCount && LevelsFillTheSweeps(data);
}

bool OpeningsAreJoined(const BenchData& data) {
  const std::int32_t count = data.Tables->Levels.Count;
  return count > kSweepCount && count < kEventCount && LevelsFillTheSweeps(data);
}

/// Clean levels, one for each dwell.
void BuildFragments(BenchData& data) {
  UseRule<OpeningRule::Fragments>(data);
  BuildLevels(*data.Tables);
}

void Filter(BenchData& data) {
  Workspace& workspace = *data.Tables;
  ClearSweepFlags(workspace.Sweeps);
  ApplySweepFilter(workspace);
  UpdateShortestSweep(workspace);
  PropagateSweepFlags(workspace);
  ApplyLevelFilters(workspace);
}

void BuildAndFilter(BenchData& data) {
  BuildFragments(data);
  Filter(data);
}

std::int32_t SelectedLevels(const BenchData& data) {
  std::int32_t selected = 0;
  for (std::int32_t i = 0; i < data.Tables->Levels.Count; ++i) {
    if (data.Tables->Levels.Index[i]->LevelFlags == 0) ++selected;
  }
  return selected;
}

/// The first and the last level of every sweep are out.
bool TwoOfEachSweepAreOut(const BenchData& data) {
  return SelectedLevels(data) == data.Tables->Levels.Count - 2 * kSweepCount;
}

constexpr BenchCase kDeriveCases[] = {
    {.Name = "levels, fragments",
     .Bytes = EventBytes,
     .Prepare = UseRule<OpeningRule::Fragments>,
     .Baseline = CopyEvents,
     .Product = RebuildLevels,
     .Check = EveryDwellIsALevel},
    {.Name = "levels, highest, bursts",
     .Bytes = EventBytes,
     .Prepare = UseRule<OpeningRule::Highest>,
     .Baseline = CopyEvents,
     .Product = RebuildLevels,
     .Check = OpeningsAreJoined},
    {.Name = "filters",
     .Bytes = LevelBytes,
     .Prepare = BuildFragments,
     .Baseline = ScanLevels,
     .Product = Filter,
     .Check = TwoOfEachSweepAreOut},
    {.Name = "statistics",
     .Bytes = LevelBytes,
     .Prepare = BuildAndFilter,
     .Baseline = ScanLevels,
     .Product = [](BenchData& data) { CalculateStatistics(*data.Tables); },
     .Check =
         [](const BenchData& data) {
           return data.Tables->Statistics.TotalEvents == SelectedLevels(data);
         }},
};

}  // namespace

std::span<const BenchCase> DeriveCases() {
  return kDeriveCases;
}

}  // namespace ondrel::bench
