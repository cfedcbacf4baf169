#include "derived/selection_settings.h"

#include "workspace/workspace.h"

namespace ondrel {
namespace {

template <typename Value>
struct RangeGroup {
  Selection Choice;
  Value Low;
  Value High;

  friend bool operator==(const RangeGroup&, const RangeGroup&) = default;
};

template <typename Value>
bool StoreGroup(Selection& choice, Value& low, Value& high, const RangeGroup<Value>& entered) {
  if (entered == RangeGroup<Value>{choice, low, high}) return false;
  const bool reversed = entered.High < entered.Low;
  choice = entered.Choice;
  low = reversed ? entered.High : entered.Low;
  high = reversed ? entered.Low : entered.High;
  return true;
}

bool StorePosition(PositionChoice& stored, PositionChoice entered) {
  const bool changed = entered != stored;
  stored = entered;
  return changed;
}

bool HoldsLevelSettings(const Workspace& workspace, const LevelSettings& settings) {
  const EventTable& events = workspace.Events;
  const LevelTable& levels = workspace.Levels;
  return events.AmplitudeMode == settings.AmplitudeMode && levels.Range == settings.Range &&
         levels.TagSource == settings.TagSource &&
         levels.InstrumentDelay == settings.InstrumentDelay &&
         levels.MultipleOpenings == settings.MultipleOpenings &&
         events.BurstResolution == settings.BurstResolution &&
         levels.BaseLevel == settings.BaseLevel;
}

}  // namespace

bool StoreLevelFilter(LevelFilter& stored, const LevelFilter& entered) {
  bool changed = StoreGroup(stored.AmplitudeChoice, stored.AmplitudeLow, stored.AmplitudeHigh,
                            {entered.AmplitudeChoice, entered.AmplitudeLow, entered.AmplitudeHigh});
  changed |= StoreGroup(stored.DurationChoice, stored.DurationLow, stored.DurationHigh,
                        {entered.DurationChoice, entered.DurationLow, entered.DurationHigh});
  changed |= StoreGroup(stored.LevelChoice, stored.LevelLow, stored.LevelHigh,
                        {entered.LevelChoice, entered.LevelLow, entered.LevelHigh});
  changed |= StoreGroup(stored.TagChoice, stored.TagLow, stored.TagHigh,
                        {entered.TagChoice, entered.TagLow, entered.TagHigh});
  changed |= StorePosition(stored.Position, entered.Position);
  return changed;
}

bool StoreSweepFilter(SweepTable& stored, const SweepFilter& entered) {
  bool changed = StoreGroup(stored.FileChoice, stored.FileLow, stored.FileHigh,
                            {entered.FileChoice, entered.FileLow, entered.FileHigh});
  changed |= StoreGroup(stored.RelevantChoice, stored.RelevantLow, stored.RelevantHigh,
                        {entered.RelevantChoice, entered.RelevantLow, entered.RelevantHigh});
  changed |= StoreGroup(stored.TagChoice, stored.TagLow, stored.TagHigh,
                        {entered.TagChoice, entered.TagLow, entered.TagHigh});
  changed |= StoreGroup(stored.IndexChoice, stored.IndexLow, stored.IndexHigh,
                        {entered.IndexChoice, entered.IndexLow, entered.IndexHigh});
  return changed;
}

bool StoreLevelSettings(Workspace& workspace, const LevelSettings& entered) {
  if (HoldsLevelSettings(workspace, entered)) return false;
  workspace.Events.AmplitudeMode = entered.AmplitudeMode;
  workspace.Events.BurstResolution = entered.BurstResolution;
  workspace.Levels.Range = entered.Range;
  workspace.Levels.TagSource = entered.TagSource;
  workspace.Levels.InstrumentDelay = entered.InstrumentDelay;
  workspace.Levels.MultipleOpenings = entered.MultipleOpenings;
  workspace.Levels.BaseLevel = entered.BaseLevel;
  return true;
}

}  // namespace ondrel
