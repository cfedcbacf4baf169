#include "derived/selection_filters.h"

#include "workspace/workspace.h"

namespace ondrel {
namespace {

/// True when a test takes a value out. Both ends belong to the range.
template <typename Value>
bool FallsOut(Selection choice, Value value, Value low, Value high) {
  switch (choice) {
    case Selection::SelectAll:
      return false;
    case Selection::Include:
      return value < low || value > high;
    case Selection::Exclude:
      break;
  }
  return low <= value && value <= high;
}

std::uint32_t FlagIf(bool out, std::uint32_t flag) {
  return out ? flag : 0;
}

std::uint32_t TestSweep(const SweepTable& filter, const SweepRecord& sweep) {
  const bool fileOut =
      FallsOut<std::int64_t>(filter.FileChoice, sweep.File, filter.FileLow, filter.FileHigh);
  const bool indexOut =
      FallsOut<std::int64_t>(filter.IndexChoice, sweep.Index, filter.IndexLow, filter.IndexHigh);
  const bool relevantOut =
      FallsOut(filter.RelevantChoice, sweep.RelevantValue, filter.RelevantLow, filter.RelevantHigh);
  const bool tagOut = FallsOut(filter.TagChoice, sweep.TagValue, filter.TagLow, filter.TagHigh);
  return FlagIf(fileOut || indexOut, kSweepOutByNumber) |
         FlagIf(relevantOut, kSweepOutByRelevantValue) | FlagIf(tagOut, kSweepOutByTag);
}

// --- One selection of levels ----------------------------------------------------------------

bool HasTest(const LevelFilter& filter) {
  return filter.AmplitudeChoice != Selection::SelectAll ||
         filter.DurationChoice != Selection::SelectAll ||
         filter.LevelChoice != Selection::SelectAll || filter.TagChoice != Selection::SelectAll;
}

bool IsActive(const LevelFilter& filter) {
  return HasTest(filter) || filter.Position != PositionChoice::All;
}

bool FallsOutByPosition(PositionChoice position, bool isFirst, bool isLast) {
  switch (position) {
    case PositionChoice::All:
      return false;
    case PositionChoice::AllButFirst:
      return isFirst;
    case PositionChoice::AllButFirstAndLast:
      return isFirst || isLast;
    case PositionChoice::AllButLast:
      return isLast;
    case PositionChoice::First:
      return !isFirst;
    case PositionChoice::FirstAndLast:
      return !isFirst && !isLast;
    case PositionChoice::Last:
      break;
  }
  return !isLast;
}

std::uint32_t TestLevel(const LevelFilter& filter, const LevelRecord& level) {
  return FlagIf(FallsOut(filter.AmplitudeChoice, level.Amplitude, filter.AmplitudeLow,
                         filter.AmplitudeHigh),
                kLevelOutByAmplitude) |
         FlagIf(FallsOut(filter.DurationChoice, level.Duration, filter.DurationLow,
                         filter.DurationHigh),
                kLevelOutByDuration) |
         FlagIf(FallsOut(filter.LevelChoice, level.Level, filter.LevelLow, filter.LevelHigh),
                kLevelOutByLevel) |
         FlagIf(FallsOut(filter.TagChoice, level.TagValue, filter.TagLow, filter.TagHigh),
                kLevelOutByTag);
}

void RunFilterPass(const LevelTable& table, const LevelFilter& filter,
                   std::uint32_t LevelRecord::*word) {
  if (!IsActive(filter)) return;
  const bool hasTest = HasTest(filter);
  const LevelRecord* before = nullptr;
  for (std::int32_t row = 0; row < table.Count; ++row) {
    LevelRecord& level = *table.Index[row];
    const LevelRecord* after = GetLevel(table, row + 1);
    const bool isFirst = before == nullptr || before->Sweep != level.Sweep;
    const bool isLast = after == nullptr || after->Sweep != level.Sweep;
    level.*word |=
        FlagIf(FallsOutByPosition(filter.Position, isFirst, isLast), kLevelOutByPosition);
    if (hasTest) level.*word |= TestLevel(filter, level);
    before = &level;
  }
}

// --- The neighbour rule ---------------------------------------------------------------------

/// A level at a sweep's edge goes when it passes the selection itself, and stays when it fails it.
void TestEdge(LevelRecord& level, bool isActive, std::uint32_t LevelRecord::*word,
              std::uint32_t flag) {
  if (isActive && level.*word == 0) level.LevelFlags |= flag;
}

void ApplyNeighbourRule(const LevelTable& table) {
  if (table.Count <= 0) return;
  const bool precedingActive = IsActive(table.PrecedingSelection);
  const bool followingActive = IsActive(table.FollowingSelection);
  constexpr auto preceding = &LevelRecord::PrecedingFlags;
  constexpr auto following = &LevelRecord::FollowingFlags;

  LevelRecord* before = table.Index[0];
  TestEdge(*before, precedingActive, preceding, kLevelOutByPreceding);
  for (std::int32_t row = 1; row < table.Count; ++row) {
    LevelRecord* level = table.Index[row];
    if (before->Sweep == level->Sweep) {
      if (level->FollowingFlags != 0) before->LevelFlags |= kLevelOutByFollowing;
      if (before->PrecedingFlags != 0) level->LevelFlags |= kLevelOutByPreceding;
    } else {
      TestEdge(*before, followingActive, following, kLevelOutByFollowing);
      TestEdge(*level, precedingActive, preceding, kLevelOutByPreceding);
    }
    before = level;
  }
  TestEdge(*before, followingActive, following, kLevelOutByFollowing);
}

}  // namespace

void ApplySweepFilter(Workspace& workspace) {
  SweepTable& sweeps = workspace.Sweeps;
  sweeps.SelectedCount = 0;
  for (std::int32_t row = 0; row < sweeps.Count; ++row) {
    SweepRecord& sweep = *sweeps.Index[row];
    sweep.SelectionFlags |= TestSweep(sweeps, sweep);
    if (sweep.SelectionFlags == 0) ++sweeps.SelectedCount;
  }
}

void UpdateShortestSweep(Workspace& workspace) {
  const SweepTable& sweeps = workspace.Sweeps;
  double shortest = 0.0;
  for (std::int32_t row = 0; row < sweeps.Count; ++row) {
    const SweepRecord& sweep = *sweeps.Index[row];
    if (sweep.SelectionFlags != 0) continue;
    if (sweep.Duration < shortest || shortest == 0.0) shortest = sweep.Duration;
  }
  workspace.Stationarity.ShortestSweep = shortest;
}

void PropagateSweepFlags(Workspace& workspace) {
  const LevelTable& levels = workspace.Levels;
  for (std::int32_t row = 0; row < levels.Count; ++row) {
    LevelRecord& level = *levels.Index[row];
    const SweepRecord* sweep = GetSweepByNumber(workspace.Sweeps, level.Sweep);
    if (sweep == nullptr) return;
    if (sweep->SelectionFlags == 0) continue;
    level.LevelFlags |= kLevelOutBySweep;
    level.PrecedingFlags |= kLevelOutBySweep;
    level.FollowingFlags |= kLevelOutBySweep;
  }
}

void ApplyLevelFilters(Workspace& workspace) {
  const LevelTable& levels = workspace.Levels;
  RunFilterPass(levels, levels.LevelSelection, &LevelRecord::LevelFlags);
  RunFilterPass(levels, levels.PrecedingSelection, &LevelRecord::PrecedingFlags);
  RunFilterPass(levels, levels.FollowingSelection, &LevelRecord::FollowingFlags);
  ApplyNeighbourRule(levels);
}

}  // namespace ondrel
