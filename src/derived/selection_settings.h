// What the OK buttons of "Filter Levels", "Filter Sweeps" and "Events" do with the values entered.
// Each returns whether a stored setting changed; if none did nothing is to be derived anew.
#pragma once

#include <cstdint>

#include "derived/level_filter.h"
#include "workspace/tables.h"

namespace ondrel {

struct Workspace;

/// The values of "Filter Sweeps".
struct SweepFilter {
  Selection FileChoice;
  std::int32_t FileLow;
  std::int32_t FileHigh;
  Selection RelevantChoice;
  double RelevantLow;
  double RelevantHigh;
  Selection TagChoice;
  double TagLow;
  double TagHigh;
  Selection IndexChoice;
  std::int32_t IndexLow;  // number within the file
  std::int32_t IndexHigh;
};

/// The seven values of "Events".
struct LevelSettings {
  LevelAmplitude AmplitudeMode;
  LevelRange Range;
  LevelTag TagSource;
  double InstrumentDelay;  // s
  OpeningRule MultipleOpenings;
  double BurstResolution;  // s
  std::int32_t BaseLevel;
};

/// A group of a choice and two bounds that differs from the stored one replaces it, with the bounds
/// swapped when the high one lies below the low one.
bool StoreLevelFilter(LevelFilter& stored, const LevelFilter& entered);
bool StoreSweepFilter(SweepTable& stored, const SweepFilter& entered);

/// All seven are stored when one differs.
bool StoreLevelSettings(Workspace& workspace, const LevelSettings& entered);

}  // namespace ondrel
