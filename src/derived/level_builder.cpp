// One pass makes the levels of one sweep: the first, which the range cuts short, those between
// transitions, and the last, which the range cuts short again. On the way short closings are
// absorbed and multiple openings collapsed.

#include "derived/level_builder.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "workspace/scroll_range.h"
#include "workspace/workspace.h"

namespace ondrel {
namespace {

struct LevelBuild {
  const EventTable& Events;
  const SweepTable& Sweeps;
  const LevelTable& Levels;
  std::int32_t Next = 0;        // index of the event to which the build has come
  std::int32_t LevelCount = 0;  // levels made so far

  // The sweep of the pass under way.
  std::uint32_t Sweep = 0;
  double RangeStart = 0.0;      // s
  double RangeEnd = 0.0;        // s
  double LastTransition = 0.0;  // s, of the last event in range
  std::int32_t LastIndex = -1;  // of that event
};

bool HasRoom(const LevelBuild& build) {
  return build.LevelCount < RoomOf(build.Levels);
}

bool IsInRange(const LevelBuild& build, const EventRecord* event) {
  return event != nullptr && event->Sweep == build.Sweep &&
         !(event->Transition > build.LastTransition);
}

// --- The range of a sweep -------------------------------------------------------------------

/// The instrument delay moves no event, it only cuts off the beginning of the range.
void SetRange(LevelBuild& build, const SweepRecord& sweep) {
  if (build.Levels.Range != LevelRange::RelevantSegment) {
    build.RangeStart = build.Levels.InstrumentDelay;
    build.RangeEnd = sweep.Duration;
  } else {
    build.RangeStart = sweep.RelevantStart + build.Levels.InstrumentDelay;
    build.RangeEnd = sweep.RelevantEnd;
  }
}

/// Moves on to the next event that lies in the range of its sweep, start included, end excluded,
/// and makes that sweep the pass's. False when there is none.
bool FindFirstEvent(LevelBuild& build) {
  for (; build.Next < build.Events.Count; ++build.Next) {
    const EventRecord& event = *build.Events.Index[build.Next];
    const SweepRecord* sweep = GetSweepByNumber(build.Sweeps, event.Sweep);
    if (sweep == nullptr) continue;
    SetRange(build, *sweep);
    if (build.RangeStart <= event.Transition && event.Transition < build.RangeEnd) {
      build.Sweep = event.Sweep;
      return true;
    }
  }
  return false;
}

/// Here the end of the range is included. A pass that ends inside its sweep is followed by another
/// one, which finds the same last event and need not walk there again.
void FindLastInRange(LevelBuild& build) {
  if (build.Next <= build.LastIndex) return;
  build.LastIndex = build.Next;
  for (std::int32_t index = build.Next + 1; index < build.Events.Count; ++index) {
    const EventRecord& event = *build.Events.Index[index];
    if (event.Sweep != build.Sweep || !(event.Transition <= build.RangeEnd)) break;
    build.LastIndex = index;
  }
  build.LastTransition = build.Events.Index[build.LastIndex]->Transition;
}

void SkipRestOfSweep(LevelBuild& build) {
  while (build.Next < build.Events.Count && build.Events.Index[build.Next]->Sweep == build.Sweep) {
    ++build.Next;
  }
}

// --- One level ------------------------------------------------------------------------------

double LevelAmplitudeOf(const LevelBuild& build, const EventRecord& opening) {
  switch (build.Events.AmplitudeMode) {
    case LevelAmplitude::Absolute:
      return opening.PostAmplitude;
    case LevelAmplitude::Delta:
      return opening.PostAmplitude - opening.PreAmplitude;
    case LevelAmplitude::DeltaMagnitude:
      break;
  }
  return std::fabs(opening.PostAmplitude - opening.PreAmplitude);
}

/// An absorbed closing has two events, its own and the one that came back.
double LevelTagOf(const LevelBuild& build, const EventRecord& opening,
                  std::int32_t absorbedEvents) {
  if (build.Levels.TagSource != LevelTag::ClosingCount) return opening.TagValue;
  return static_cast<double>(absorbedEvents / 2);
}

/// Adds the level that `opening` began, unless it has no length. `firstEvent` and `lastEvent` are
/// indexes of the EventTable. Whoever calls has seen that there is room for one level.
void AppendLevel(LevelBuild& build, const EventRecord& opening, double duration,
                 std::int32_t firstEvent, std::int32_t lastEvent, double tagValue) {
  if (duration == 0.0) return;
  *build.Levels.Index[build.LevelCount] = {
      .LevelFlags = 0,
      .PrecedingFlags = 0,
      .FollowingFlags = 0,
      .Sweep = opening.Sweep,
      .FirstEvent = firstEvent,
      .LastEvent = lastEvent,
      .PreAmplitude = opening.PreAmplitude,
      .PostAmplitude = opening.PostAmplitude,
      .Amplitude = LevelAmplitudeOf(build, opening),
      .Transition = opening.Transition,
      .Duration = duration,
      .Level = opening.Level,
      .TagValue = tagValue,
  };
  ++build.LevelCount;
}

// --- Bursts ---------------------------------------------------------------------------------

bool StepsTowardBase(const LevelBuild& build, std::int32_t level, std::int32_t next) {
  const std::int32_t base = build.Levels.BaseLevel;
  return (level > base && level > next) || (level < base && level < next);
}

/// The transition that ends `level`, from the event at hand on: a visit toward the base that comes
/// back to `level` within less than the burst resolution doesn't end it. The build moves on to that
/// transition. Null when closings were absorbed up to the end of the range.
const EventRecord* SkipBurstClosings(LevelBuild& build, std::int32_t level) {
  const EventRecord* closing = build.Events.Index[build.Next];
  do {
    const EventRecord* reopening = GetEvent(build.Events, build.Next + 1);
    if (!IsInRange(build, reopening)) return closing;
    if (reopening->Level != level) return closing;
    if (reopening->Transition - closing->Transition >= build.Events.BurstResolution) return closing;
    if (!StepsTowardBase(build, level, closing->Level)) return closing;
    build.Next += 2;
    closing = GetEvent(build.Events, build.Next);
  } while (IsInRange(build, closing));
  return nullptr;
}

// --- Multiple openings ----------------------------------------------------------------------

std::int64_t DistanceFromBase(const LevelBuild& build, std::int32_t level) {
  return std::abs(std::int64_t{level} - build.Levels.BaseLevel);
}

bool IsMultipleOpening(const LevelBuild& build, std::int32_t level) {
  return build.Levels.MultipleOpenings != OpeningRule::Fragments &&
         DistanceFromBase(build, level) > 1;
}

/// Makes one level of everything from `opening` up to the return to the base, with the highest
/// level that was reached. "Highest" is meant numerically: below the base no step replaces a better
/// one.
///
/// Only times are compared with the end of the range, and the sweep is that of the last event
/// visited: where the range ends before the opening does, the walk goes on over earlier times of
/// the sweeps that follow.
void CollapseOpening(LevelBuild& build, const EventRecord& opening) {
  EventRecord group = opening;
  const EventRecord* visited = &opening;
  std::int32_t index = build.Next;
  while (index < build.Events.Count) {
    const EventRecord& event = *build.Events.Index[index];
    if (event.Transition > build.LastTransition) break;
    ++index;
    const bool stepsAway =
        DistanceFromBase(build, event.Level) > DistanceFromBase(build, visited->Level);
    const bool isHigher = event.Level > group.Level ||
                          (event.Level == group.Level && event.PostAmplitude > group.PostAmplitude);
    if (stepsAway && isHigher) {
      group.Level = event.Level;
      group.PostAmplitude = event.PostAmplitude;
    }
    visited = &event;
    if (event.Level == build.Levels.BaseLevel) break;
  }
  group.Sweep = visited->Sweep;
  AppendLevel(build, group, std::fabs(opening.Transition - visited->Transition), build.Next,
              index - 1, LevelTagOf(build, opening, 0));
}

/// Moves on to the event that opens the next dwell at the base, or to the last event in range. The
/// event at hand is left behind even if it stands at the base itself.
const EventRecord* ReturnToBase(LevelBuild& build) {
  const EventRecord* reached = build.Events.Index[build.Next];
  for (;;) {
    const EventRecord* event = GetEvent(build.Events, build.Next + 1);
    if (!IsInRange(build, event)) return reached;
    reached = event;
    ++build.Next;
    if (reached->Level == build.Levels.BaseLevel) return reached;
  }
}

// --- The levels of one sweep ----------------------------------------------------------------

/// No event opened a sweep's first dwell: its number follows from the step that ends it, as level
/// numbers rise with the amplitude.
std::int32_t LevelBefore(const EventRecord& event) {
  const std::int64_t step = event.PreAmplitude < event.PostAmplitude ? -1 : 1;
  return static_cast<std::int32_t>(event.Level + step);
}

/// Makes the level from the start of the range to the first transition. Returns the event that
/// opens the next dwell; null when nothing more of the sweep gives a level.
const EventRecord* MakeFirstLevel(LevelBuild& build) {
  const std::int32_t first = build.Next;
  const std::int32_t level = LevelBefore(*build.Events.Index[first]);
  const EventRecord* closing = SkipBurstClosings(build, level);
  if (closing == nullptr) return nullptr;

  // The amplitude beyond the closing stands in for the one before the level.
  const EventRecord opening = {
      .Sweep = closing->Sweep,
      .Transition = build.RangeStart,
      .PreAmplitude = closing->PostAmplitude,
      .PostAmplitude = closing->PreAmplitude,
      .Level = level,
      .TagValue = closing->TagValue,
  };
  if (IsMultipleOpening(build, level) || IsMultipleOpening(build, closing->Level)) {
    CollapseOpening(build, opening);
    return ReturnToBase(build);
  }
  const double duration = closing->Transition - build.RangeStart;
  if (duration > 0.0) {
    AppendLevel(build, opening, duration, first, build.Next,
                LevelTagOf(build, opening, build.Next - first));
  }
  return closing;
}

/// Adds the level from `opening`, the event at index `opened`, up to the end of the range. The
/// event to which the build has come lies past it.
void CloseAtEnd(LevelBuild& build, const EventRecord& opening, std::int32_t opened) {
  AppendLevel(build, opening, std::fabs(build.RangeEnd - opening.Transition), opened,
              build.Next - 1, LevelTagOf(build, opening, build.Next - opened - 1));
}

/// Makes the levels from `current`, the event that opens one, to the end of the range.
void MakeFollowingLevels(LevelBuild& build, const EventRecord* current) {
  EventRecord returned;
  std::int32_t opened = build.Next;
  while (current != nullptr && HasRoom(build)) {
    ++build.Next;
    if (!IsInRange(build, GetEvent(build.Events, build.Next))) {
      CloseAtEnd(build, *current, opened);
      SkipRestOfSweep(build);
      return;
    }
    const EventRecord* closing = SkipBurstClosings(build, current->Level);
    if (closing == nullptr) {
      CloseAtEnd(build, *current, opened);
      return;
    }
    if (IsMultipleOpening(build, closing->Level)) {
      CollapseOpening(build, *current);
      // After a collapsed level the dwell at the base has come from that level's amplitude. The
      // one after a sweep's first level keeps its own.
      returned = *ReturnToBase(build);
      if (build.LevelCount > 0) {
        returned.PreAmplitude = build.Levels.Index[build.LevelCount - 1]->PostAmplitude;
      }
      current = &returned;
    } else {
      AppendLevel(build, *current, std::fabs(closing->Transition - current->Transition), opened,
                  build.Next, LevelTagOf(build, *current, build.Next - opened - 1));
      current = closing;
    }
    opened = build.Next;
  }
}

}  // namespace

void BuildLevels(Workspace& workspace) {
  LevelBuild build{workspace.Events, workspace.Sweeps, workspace.Levels};
  while (HasRoom(build) && FindFirstEvent(build)) {
    FindLastInRange(build);
    MakeFollowingLevels(build, MakeFirstLevel(build));
  }
  workspace.Levels.Count = build.LevelCount;
  RefreshScrollRange(ViewOf(workspace, ViewKind::Level), build.LevelCount);
}

void WriteLevelTags(Workspace& workspace) {
  const EventTable& events = workspace.Events;
  const LevelTable& levels = workspace.Levels;
  for (std::int32_t row = 0; row < levels.Count; ++row) {
    const LevelRecord& level = *levels.Index[row];
    if (level.LevelFlags != 0) continue;
    const double tagValue =
        events.TagSetMode == EventTag::LevelTagValue ? level.TagValue : events.TagSetValue;
    for (std::int32_t index = level.FirstEvent; index < level.LastEvent; ++index) {
      EventRecord* event = GetEvent(events, index);
      if (event == nullptr) return;
      event->TagValue = tagValue;
    }
  }
}

}  // namespace ondrel
