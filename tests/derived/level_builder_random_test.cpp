// Random tables against slow and obvious computations, and damaged tables that must do no harm.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <tuple>

#include "derived/level_builder.h"
#include "derived/recording_fixture.h"
#include "derived/selection_filters.h"
#include "derived/statistics.h"
#include "support/random_seed.h"

namespace ondrel {
namespace {

constexpr unsigned kRounds = 300;

class RandomLevelsTest : public RecordingTest {
 protected:
  /// Seeds the round and names it for the report of a failure.
  std::string BeginRound(unsigned round) {
    random_.seed(RandomSeed() + round);
    return "ONDREL_SEED=" + std::to_string(RandomSeed()) + ", round " + std::to_string(round);
  }

  int Pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }

  template <typename Value>
  Value PickOf(std::initializer_list<Value> values) {
    return values.begin()[Pick(0, static_cast<int>(values.size()) - 1)];
  }

  void Clear() {
    workspace().Events.Count = 0;
    workspace().Sweeps.Count = 0;
    workspace().Levels.Count = 0;
  }

  std::mt19937_64 random_;
};

auto Fields(const LevelRecord& level) {
  return std::make_tuple(level.LevelFlags, level.PrecedingFlags, level.FollowingFlags, level.Sweep,
                         level.FirstEvent, level.LastEvent, level.PreAmplitude, level.PostAmplitude,
                         level.Amplitude, level.Transition, level.Duration, level.Level,
                         level.TagValue);
}

// --- Fragments without bursts ---------------------------------------------------------------

/// Each sweep's events within its range cut the range into pieces; every piece with a length is a
/// level.
std::vector<LevelRecord> CutIntoPieces(const Workspace& workspace) {
  const EventTable& events = workspace.Events;
  std::vector<LevelRecord> levels;
  for (std::int32_t row = 0; row < workspace.Sweeps.Count; ++row) {
    const SweepRecord& sweep = *workspace.Sweeps.Index[row];
    const bool relevant = workspace.Levels.Range == LevelRange::RelevantSegment;
    const double delay = workspace.Levels.InstrumentDelay;
    const double start = relevant ? sweep.RelevantStart + delay : delay;
    const double end = relevant ? sweep.RelevantEnd : sweep.Duration;
    std::vector<std::int32_t> inside;
    for (std::int32_t index = 0; index < events.Count; ++index) {
      const EventRecord& event = *events.Index[index];
      if (event.Sweep != static_cast<std::uint32_t>(row + 1)) continue;
      if (event.Transition >= start && event.Transition <= end) inside.push_back(index);
    }
    if (inside.empty() || events.Index[inside[0]]->Transition == end) continue;

    for (std::size_t piece = 0; piece <= inside.size(); ++piece) {
      const bool isFirst = piece == 0;
      const bool isLast = piece == inside.size();
      const std::int32_t opens = isFirst ? inside[0] : inside[piece - 1];
      const std::int32_t closes = isLast ? opens : inside[piece];
      const EventRecord& opening = *events.Index[opens];
      const double from = isFirst ? start : opening.Transition;
      const double to = isLast ? end : events.Index[closes]->Transition;
      if (from == to) continue;
      LevelRecord level{};
      level.Sweep = static_cast<std::uint32_t>(row + 1);
      level.FirstEvent = opens;
      level.LastEvent = closes;
      level.Transition = from;
      level.Duration = to - from;
      level.PreAmplitude = isFirst ? opening.PostAmplitude : opening.PreAmplitude;
      level.PostAmplitude = isFirst ? opening.PreAmplitude : opening.PostAmplitude;
      level.Level = opening.Level;
      if (isFirst) level.Level += opening.PreAmplitude < opening.PostAmplitude ? -1 : 1;
      level.TagValue = workspace.Levels.TagSource == LevelTag::Event ? opening.TagValue : 0.0;
      const double step = level.PostAmplitude - level.PreAmplitude;
      switch (workspace.Events.AmplitudeMode) {
        case LevelAmplitude::Absolute:
          level.Amplitude = level.PostAmplitude;
          break;
        case LevelAmplitude::Delta:
          level.Amplitude = step;
          break;
        case LevelAmplitude::DeltaMagnitude:
          level.Amplitude = step < 0 ? -step : step;
          break;
      }
      levels.push_back(level);
    }
  }
  return levels;
}

TEST_F(RandomLevelsTest, FragmentsAreThePiecesBetweenTransitions) {
  workspace().Levels.MultipleOpenings = OpeningRule::Fragments;
  std::size_t made = 0;
  for (unsigned round = 0; round < kRounds; ++round) {
    SCOPED_TRACE(BeginRound(round));
    Clear();
    workspace().Levels.Range = PickOf({LevelRange::RelevantSegment, LevelRange::Sweep});
    workspace().Levels.InstrumentDelay = PickOf({0.0, 0.0, 2.0, -1.5});
    workspace().Levels.TagSource = PickOf({LevelTag::ClosingCount, LevelTag::Event});
    workspace().Events.AmplitudeMode =
        PickOf({LevelAmplitude::Absolute, LevelAmplitude::Delta, LevelAmplitude::DeltaMagnitude});
    const int sweeps = Pick(1, 8);
    for (int row = 1; row <= sweeps; ++row) {
      AddSweep(Pick(5, 20), Pick(0, 8), Pick(4, 20));
    }
    for (int row = 0; row <= sweeps + 1; ++row) {  // the first and the last have no row
      double time = Pick(0, 4);
      for (int left = Pick(0, 10); left > 0; --left) {
        AddEvent(static_cast<std::uint32_t>(row), time, Pick(-9, 9), Pick(-9, 9), Pick(-3, 3),
                 Pick(0, 99));
        time += Pick(0, 6) * 0.5;
      }
    }
    std::vector<LevelRecord> expected = CutIntoPieces(workspace());
    const std::size_t capacity = static_cast<std::size_t>(Pick(1, 60));
    if (expected.size() > capacity) expected.resize(capacity);
    workspace().Levels.Capacity = static_cast<std::int32_t>(capacity);
    BuildLevels(workspace());
    ASSERT_EQ(workspace().Levels.Count, static_cast<std::int32_t>(expected.size()));
    for (std::size_t row = 0; row < expected.size(); ++row) {
      ASSERT_EQ(Fields(Level(static_cast<std::int32_t>(row))), Fields(expected[row])) << row;
    }
    made += expected.size();
  }
  EXPECT_GT(made, 2000u) << "the tables are to give levels";
}

// --- Highest, in steps of one level ---------------------------------------------------------

/// With whole sweeps that begin and end at base 0 and steps of one level, an opening lasts from
/// one dwell at the base to the next; its level is its maximum.
TEST_F(RandomLevelsTest, OpeningsInStepsOfOneCollapseToTheirMaximum) {
  constexpr int longestClimb = 40;  // steps; from then on an opening closes step by step
  Allocate(1000, 3);
  int collapsed = 0;
  for (unsigned round = 0; round < kRounds; ++round) {
    SCOPED_TRACE(BeginRound(round));
    Clear();
    std::vector<std::tuple<Dwell, double, double>> expected;  // and both amplitudes
    for (std::uint32_t sweep = 1; sweep <= 3; ++sweep) {
      const double duration = 2000;
      AddSweep(duration);
      double time = 0;
      double amplitude = 0;
      double baseStart = 0;
      double before = 0;  // amplitude before the dwell at the base
      for (int opening = Pick(1, 4); opening > 0; --opening) {
        std::int32_t level = 0;
        Dwell longest{sweep, 0, 0, 0};
        double highest = 0;
        int steps = 0;
        do {
          time += Pick(1, 3) * 0.5;
          const double last = amplitude;
          ++steps;
          level += level == 0 ? 1 : steps > longestClimb ? -1 : PickOf({-1, -1, 1});
          amplitude = level == 0 ? 0 : level + Pick(-3, 3) / 16.0;
          AddEvent(sweep, time, last, amplitude, level);
          if (longest.Start == 0) {
            longest.Start = time;
            // The first dwell has the far side of its closing as its amplitude before.
            const double far = baseStart == 0 ? amplitude : before;
            expected.push_back({Dwell{sweep, 0, baseStart, time - baseStart}, far, 0});
          }
          if (level > longest.Level || (level == longest.Level && amplitude > highest)) {
            longest.Level = level;
            highest = amplitude;
          }
        } while (level != 0);
        longest.Duration = time - longest.Start;
        if (longest.Level > 1) ++collapsed;
        expected.push_back({longest, 0, highest});
        baseStart = time;
        before = highest;
      }
      expected.push_back({Dwell{sweep, 0, baseStart, duration - baseStart}, before, 0});
    }
    ASSERT_LE(workspace().Events.Count, workspace().Events.Capacity);
    BuildLevels(workspace());
    std::vector<std::tuple<Dwell, double, double>> built;
    const std::vector<Dwell> dwells = Dwells();
    for (std::int32_t row = 0; row < workspace().Levels.Count; ++row) {
      built.push_back({dwells[static_cast<std::size_t>(row)], Level(row).PreAmplitude,
                       Level(row).PostAmplitude});
    }
    ASSERT_EQ(built, expected);
  }
  EXPECT_GT(collapsed, 500) << "the tables are to have multiple openings";
}

// --- Damaged tables -------------------------------------------------------------------------

TEST_F(RandomLevelsTest, DamagedTablesGiveWholeLevelsWithinTheCapacity) {
  constexpr double nan = std::numeric_limits<double>::quiet_NaN();
  constexpr double infinite = std::numeric_limits<double>::infinity();
  constexpr std::int32_t lowest = std::numeric_limits<std::int32_t>::min();
  constexpr std::int32_t highest = std::numeric_limits<std::int32_t>::max();
  std::int64_t made = 0;
  for (unsigned round = 0; round < 20 * kRounds; ++round) {
    SCOPED_TRACE(BeginRound(round));
    const auto time = [&] {
      return Pick(0, 9) == 0 ? PickOf({nan, infinite, -infinite, -1e308}) : Pick(-2, 10) * 0.5;
    };
    const auto level = [&] {
      return Pick(0, 4) == 0 ? PickOf({lowest, lowest + 1, highest, highest - 1}) : Pick(-3, 3);
    };
    const std::int32_t entries = Pick(1, 25);
    Allocate(entries, 4);
    workspace().Levels.Range = PickOf({LevelRange::RelevantSegment, LevelRange::Sweep});
    workspace().Levels.InstrumentDelay = Pick(0, 3) == 0 ? time() : 0.0;
    workspace().Levels.TagSource = PickOf({LevelTag::ClosingCount, LevelTag::Event});
    workspace().Levels.MultipleOpenings = PickOf({OpeningRule::Fragments, OpeningRule::Highest});
    workspace().Levels.BaseLevel = level();
    workspace().Events.BurstResolution = PickOf({0.0, 0.0, 1.0, 1e308, nan});
    for (int row = Pick(0, 4); row > 0; --row) AddSweep(time() + 5, time(), time() + 5);
    std::uint32_t sweep = 1;
    for (std::int32_t index = 0; index < entries; ++index) {
      if (Pick(0, 4) == 0) sweep = PickOf({0u, 1u, 2u, 3u, 4u, 0x7fffffffu, 0x80000000u, ~0u});
      AddEvent(sweep, time(), time(), time(), level(), time());
    }
    BuildLevels(workspace());
    ASSERT_LE(workspace().Levels.Count, entries);
    for (std::int32_t row = 0; row < workspace().Levels.Count; ++row) {
      ASSERT_NE(Level(row).Duration, 0.0);
      ASSERT_GE(Level(row).FirstEvent, 0);
      ASSERT_LT(Level(row).FirstEvent, entries);
      ASSERT_GE(Level(row).LastEvent, -1);
      ASSERT_LT(Level(row).LastEvent, entries);
    }
    WriteLevelTags(workspace());
    PropagateSweepFlags(workspace());
    ApplyLevelFilters(workspace());
    CalculateStatistics(workspace());
    ASSERT_EQ(workspace().Statistics.RowCount == 0, workspace().Statistics.Rows == nullptr);
    made += workspace().Levels.Count;
  }
  EXPECT_GT(made, 1000) << "the tables are to give levels";
}

}  // namespace
}  // namespace ondrel
