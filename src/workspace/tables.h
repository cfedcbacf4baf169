// The four record tables with the settings that stand beside them. All have one shape: a block of
// zero-filled storage for `Capacity` records, an array of pointers into it through which alone
// records are reached, and a count. A table is allocated at its capacity and never grows: a file
// that does not fit is refused, and the user raises the entries in "Settings".
#pragma once

#include <algorithm>
#include <cstdint>

#include "derived/level_filter.h"
#include "workspace/records.h"

namespace ondrel {

/// What the amplitude of a level is.
enum class LevelAmplitude : std::uint8_t { Absolute, Delta, DeltaMagnitude };
/// What becomes of an opening that reaches beyond the levels next to the base.
enum class OpeningRule : std::uint8_t { Fragments, Highest };
/// Which stretch of a sweep gives levels.
enum class LevelRange : std::uint8_t { RelevantSegment, Sweep };
/// What the tag of a level is: the closings absorbed into it, or the tag of its event.
enum class LevelTag : std::uint8_t { ClosingCount, Event };
/// What "&TagValue..." writes into events: the level's tag, or one value for all.
enum class EventTag : std::uint8_t { LevelTagValue, Manual };

inline constexpr std::int32_t kDefaultEventCapacity = 8000;
inline constexpr std::int32_t kDefaultSweepCapacity = 1000;
inline constexpr std::int32_t kFileCapacity = 100;

struct EventTable {
  LevelAmplitude AmplitudeMode = LevelAmplitude::DeltaMagnitude;
  double BurstResolution = 0.0;  // s
  EventTag TagSetMode = EventTag::LevelTagValue;
  double TagSetValue = 0.0;
  EventRecord* Records = nullptr;  // owned
  EventRecord** Index = nullptr;   // owned
  std::int32_t Count = 0;
  std::int32_t Capacity = kDefaultEventCapacity;
};

struct LevelTable {
  LevelRecord* Records = nullptr;  // owned
  LevelRecord** Index = nullptr;   // owned
  std::int32_t Count = 0;
  std::int32_t Capacity = kDefaultEventCapacity;
  OpeningRule MultipleOpenings = OpeningRule::Highest;
  std::int32_t BaseLevel = 0;
  LevelRange Range = LevelRange::RelevantSegment;
  double InstrumentDelay = 0.0;  // s
  LevelTag TagSource = LevelTag::Event;
  LevelFilter LevelSelection{.Position = PositionChoice::AllButFirstAndLast};
  LevelFilter PrecedingSelection;
  LevelFilter FollowingSelection;
};

struct SweepTable {
  SweepRecord* Records = nullptr;  // owned
  SweepRecord** Index = nullptr;   // owned
  std::int32_t Count = 0;
  std::int32_t Capacity = kDefaultSweepCapacity;
  std::int32_t SelectedCount = 0;  // sweeps whose SelectionFlags are 0
  Selection FileChoice = Selection::SelectAll;
  std::int32_t FileLow = 1;
  std::int32_t FileHigh = 3;
  Selection RelevantChoice = Selection::SelectAll;
  double RelevantLow = 0.0;
  double RelevantHigh = 1000.0;
  Selection TagChoice = Selection::SelectAll;
  double TagLow = 0.0;
  double TagHigh = 1000.0;
  Selection IndexChoice = Selection::SelectAll;
  std::int32_t IndexLow = 1;
  std::int32_t IndexHigh = 1000;
};

struct FileTable {
  FileRecord* Records = nullptr;  // owned
  FileRecord** Index = nullptr;   // owned
  std::int32_t Count = 0;
  std::int32_t Capacity = kFileCapacity;
};

/// How many records the table holds when it is allocated. A preference file may give any capacity;
/// what is below 1 counts as 1.
template <typename Table>
constexpr std::int32_t RoomOf(const Table& table) {
  return std::max(table.Capacity, 1);
}

/// The record at the 0-based `index`, or null when that is negative or not below `Count`.
inline EventRecord* GetEvent(const EventTable& table, std::int32_t index) {
  return index >= 0 && index < table.Count ? table.Index[index] : nullptr;
}
inline LevelRecord* GetLevel(const LevelTable& table, std::int32_t index) {
  return index >= 0 && index < table.Count ? table.Index[index] : nullptr;
}
inline SweepRecord* GetSweep(const SweepTable& table, std::int32_t index) {
  return index >= 0 && index < table.Count ? table.Index[index] : nullptr;
}
inline FileRecord* GetFile(const FileTable& table, std::int32_t index) {
  return index >= 0 && index < table.Count ? table.Index[index] : nullptr;
}

/// The sweep of an event or a level, whose `sweep` is a 1-based row of the table; null when the
/// table has no such row.
inline SweepRecord* GetSweepByNumber(const SweepTable& table, std::uint32_t sweep) {
  return sweep - 1 < static_cast<std::uint32_t>(table.Count) ? table.Index[sweep - 1] : nullptr;
}

/// Zeroes the three flag words of every level.
void ClearLevelFlags(LevelTable& table);
/// Zeroes `SelectionFlags` of every sweep.
void ClearSweepFlags(SweepTable& table);

/// Frees the segments of sweeps `first` up to `first` + `count` and clears their pointers;
/// `SegmentCount` stays as it is. Rows may lie beyond `Count`, as those of a failed read do, but
/// not beyond the capacity.
void FreeSegments(SweepTable& table, std::int32_t first, std::int32_t count);

/// Each frees the table's storage and leaves it empty. Harmless without storage. The sweeps'
/// segments go with the sweeps.
void FreeEventTable(EventTable& table);
void FreeLevelTable(LevelTable& table);
void FreeSweepTable(SweepTable& table);
void FreeFileTable(FileTable& table);

}  // namespace ondrel
