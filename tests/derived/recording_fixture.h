// A recording written down in a few lines: sweeps, and the steps of the current in them. The
// amplitude of a level is its number in amperes unless a step says otherwise, and times are whole
// seconds where they can be, so that all results are exact.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <ostream>
#include <vector>

#include "support/shell_test.h"
#include "workspace/workspace.h"

namespace ondrel {

/// The place of a level in its sweep.
struct Dwell {
  std::uint32_t Sweep;
  std::int32_t Level;
  double Start;
  double Duration;

  friend bool operator==(const Dwell&, const Dwell&) = default;
  friend std::ostream& operator<<(std::ostream& out, const Dwell& dwell) {
    return out << "{sweep " << dwell.Sweep << ", level " << dwell.Level << ", from " << dwell.Start
               << ", for " << dwell.Duration << "}";
  }
};

class RecordingTest : public ShellTest {
 protected:
  RecordingTest() { Allocate(200, 50); }

  /// Empty tables of these capacities.
  void Allocate(std::int32_t entries, std::int32_t sweeps) {
    FreeAllTables(workspace());
    workspace().Events.Capacity = entries;
    workspace().Levels.Capacity = entries;
    workspace().Sweeps.Capacity = sweeps;
    EXPECT_TRUE(AllocateAllTables(Frame()));
  }

  /// A sweep that is relevant from its start to its end.
  SweepRecord& AddSweep(double duration) { return AddSweep(duration, 0.0, duration); }

  SweepRecord& AddSweep(double duration, double relevantStart, double relevantEnd) {
    SweepTable& sweeps = workspace().Sweeps;
    SweepRecord& sweep = *sweeps.Index[sweeps.Count++];
    sweep = {};
    sweep.File = 1;
    sweep.Index = static_cast<std::uint32_t>(sweeps.Count);
    sweep.Duration = duration;
    sweep.RelevantStart = relevantStart;
    sweep.RelevantEnd = relevantEnd;
    return sweep;
  }

  EventRecord& AddEvent(std::uint32_t sweep, double time, double pre, double post,
                        std::int32_t level, double tag = 0.0) {
    EventTable& events = workspace().Events;
    EventRecord& event = *events.Index[events.Count++];
    event = {sweep, time, pre, post, level, tag};
    return event;
  }

  struct Step {
    double Time;
    std::int32_t Level;
  };

  /// Steps of one sweep that begins at the level `from`.
  void AddSteps(std::uint32_t sweep, std::int32_t from, std::initializer_list<Step> steps) {
    for (const Step& step : steps) {
      AddEvent(sweep, step.Time, from, step.Level, step.Level);
      from = step.Level;
    }
  }

  const LevelRecord& Level(std::int32_t row) {
    const LevelRecord* level = GetLevel(workspace().Levels, row);
    static const LevelRecord none{};
    EXPECT_NE(level, nullptr) << "there is no level " << row;
    return level != nullptr ? *level : none;
  }

  std::vector<Dwell> Dwells() {
    std::vector<Dwell> dwells;
    for (std::int32_t row = 0; row < workspace().Levels.Count; ++row) {
      const LevelRecord& level = Level(row);
      dwells.push_back({level.Sweep, level.Level, level.Transition, level.Duration});
    }
    return dwells;
  }

  /// A level that no event made, in the LevelTable as it stands.
  LevelRecord& AddLevel(std::uint32_t sweep, std::int32_t number, double amplitude = 0.0,
                        double duration = 1.0, double tag = 0.0) {
    LevelTable& levels = workspace().Levels;
    LevelRecord& level = *levels.Index[levels.Count++];
    level = {};
    level.Sweep = sweep;
    level.Level = number;
    level.Amplitude = amplitude;
    level.Duration = duration;
    level.TagValue = tag;
    return level;
  }

  std::vector<std::uint32_t> LevelFlags() {
    std::vector<std::uint32_t> flags;
    for (std::int32_t row = 0; row < workspace().Levels.Count; ++row) {
      flags.push_back(Level(row).LevelFlags);
    }
    return flags;
  }
};

}  // namespace ondrel
