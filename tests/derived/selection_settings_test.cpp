#include "derived/selection_settings.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <tuple>
#include <vector>

#include "support/shell_test.h"

namespace ondrel {
namespace {

// --- Filter Levels --------------------------------------------------------------------------

auto Fields(const LevelFilter& filter) {
  return std::tuple(filter.AmplitudeChoice, filter.AmplitudeLow, filter.AmplitudeHigh,
                    filter.DurationChoice, filter.DurationLow, filter.DurationHigh,
                    filter.LevelChoice, filter.LevelLow, filter.LevelHigh, filter.TagChoice,
                    filter.TagLow, filter.TagHigh, filter.Position);
}

TEST(StoreLevelFilterTest, WithoutAChangeNothingIsStored) {
  LevelFilter stored;
  EXPECT_FALSE(StoreLevelFilter(stored, LevelFilter{}));
  EXPECT_EQ(Fields(stored), Fields(LevelFilter{}));
}

TEST(StoreLevelFilterTest, EachFieldCountsAsAChangeAndIsStored) {
  const std::vector<std::function<void(LevelFilter&)>> changes = {
      [](LevelFilter& filter) { filter.AmplitudeChoice = Selection::Include; },
      [](LevelFilter& filter) { filter.AmplitudeLow = -1e-12; },
      [](LevelFilter& filter) { filter.AmplitudeHigh = 6e-12; },
      [](LevelFilter& filter) { filter.DurationChoice = Selection::Exclude; },
      [](LevelFilter& filter) { filter.DurationLow = 0.001; },
      [](LevelFilter& filter) { filter.DurationHigh = 0.006; },
      [](LevelFilter& filter) { filter.LevelChoice = Selection::Include; },
      [](LevelFilter& filter) { filter.LevelLow = 0; },
      [](LevelFilter& filter) { filter.LevelHigh = 4; },
      [](LevelFilter& filter) { filter.TagChoice = Selection::Include; },
      [](LevelFilter& filter) { filter.TagLow = 1; },
      [](LevelFilter& filter) { filter.TagHigh = 1001; },
      [](LevelFilter& filter) { filter.Position = PositionChoice::Last; },
  };
  for (std::size_t field = 0; field < changes.size(); ++field) {
    LevelFilter stored;
    LevelFilter entered;
    changes[field](entered);
    EXPECT_TRUE(StoreLevelFilter(stored, entered)) << field;
    EXPECT_EQ(Fields(stored), Fields(entered)) << field;
    EXPECT_FALSE(StoreLevelFilter(stored, entered)) << field;
  }
}

TEST(StoreLevelFilterTest, TypingFiveToOneStoresOneToFive) {
  LevelFilter stored;
  LevelFilter entered;
  entered.AmplitudeLow = entered.DurationLow = entered.TagLow = 5;
  entered.AmplitudeHigh = entered.DurationHigh = entered.TagHigh = 1;
  entered.LevelLow = 5;
  entered.LevelHigh = 1;
  EXPECT_TRUE(StoreLevelFilter(stored, entered));
  EXPECT_EQ(stored.AmplitudeLow, 1);
  EXPECT_EQ(stored.AmplitudeHigh, 5);
  EXPECT_EQ(stored.DurationLow, 1);
  EXPECT_EQ(stored.DurationHigh, 5);
  EXPECT_EQ(stored.LevelLow, 1);
  EXPECT_EQ(stored.LevelHigh, 5);
  EXPECT_EQ(stored.TagLow, 1);
  EXPECT_EQ(stored.TagHigh, 5);
}

TEST(StoreLevelFilterTest, BoundsEnteredInReverseOfTheStoredOnesAreAChange) {
  LevelFilter stored;
  LevelFilter entered;
  entered.LevelLow = stored.LevelHigh;
  entered.LevelHigh = stored.LevelLow;
  EXPECT_TRUE(StoreLevelFilter(stored, entered));
  EXPECT_EQ(Fields(stored), Fields(LevelFilter{}));
}

TEST(StoreLevelFilterTest, AGroupThatDidNotChangeKeepsReversedBounds) {
  LevelFilter stored;
  stored.LevelLow = 5;
  stored.LevelHigh = 1;
  LevelFilter entered = stored;
  EXPECT_FALSE(StoreLevelFilter(stored, entered));
  entered.TagHigh = 2000;
  EXPECT_TRUE(StoreLevelFilter(stored, entered));
  EXPECT_EQ(Fields(stored), Fields(entered));
}

// --- Filter Sweeps --------------------------------------------------------------------------

SweepFilter FilterOf(const SweepTable& table) {
  return {.FileChoice = table.FileChoice,
          .FileLow = table.FileLow,
          .FileHigh = table.FileHigh,
          .RelevantChoice = table.RelevantChoice,
          .RelevantLow = table.RelevantLow,
          .RelevantHigh = table.RelevantHigh,
          .TagChoice = table.TagChoice,
          .TagLow = table.TagLow,
          .TagHigh = table.TagHigh,
          .IndexChoice = table.IndexChoice,
          .IndexLow = table.IndexLow,
          .IndexHigh = table.IndexHigh};
}

auto Fields(const SweepFilter& filter) {
  return std::tuple(filter.FileChoice, filter.FileLow, filter.FileHigh, filter.RelevantChoice,
                    filter.RelevantLow, filter.RelevantHigh, filter.TagChoice, filter.TagLow,
                    filter.TagHigh, filter.IndexChoice, filter.IndexLow, filter.IndexHigh);
}

TEST(StoreSweepFilterTest, WithoutAChangeNothingIsStored) {
  SweepTable stored;
  EXPECT_FALSE(StoreSweepFilter(stored, FilterOf(stored)));
  EXPECT_EQ(Fields(FilterOf(stored)), Fields(FilterOf(SweepTable{})));
}

TEST(StoreSweepFilterTest, EachFieldCountsAsAChangeAndIsStored) {
  const std::vector<std::function<void(SweepFilter&)>> changes = {
      [](SweepFilter& filter) { filter.FileChoice = Selection::Include; },
      [](SweepFilter& filter) { filter.FileLow = 2; },
      [](SweepFilter& filter) { filter.FileHigh = 4; },
      [](SweepFilter& filter) { filter.RelevantChoice = Selection::Exclude; },
      [](SweepFilter& filter) { filter.RelevantLow = -1; },
      [](SweepFilter& filter) { filter.RelevantHigh = 1001; },
      [](SweepFilter& filter) { filter.TagChoice = Selection::Include; },
      [](SweepFilter& filter) { filter.TagLow = -1; },
      [](SweepFilter& filter) { filter.TagHigh = 1001; },
      [](SweepFilter& filter) { filter.IndexChoice = Selection::Include; },
      [](SweepFilter& filter) { filter.IndexLow = 2; },
      [](SweepFilter& filter) { filter.IndexHigh = 1001; },
  };
  for (std::size_t field = 0; field < changes.size(); ++field) {
    SweepTable stored;
    SweepFilter entered = FilterOf(stored);
    changes[field](entered);
    EXPECT_TRUE(StoreSweepFilter(stored, entered)) << field;
    EXPECT_EQ(Fields(FilterOf(stored)), Fields(entered)) << field;
    EXPECT_FALSE(StoreSweepFilter(stored, entered)) << field;
  }
}

TEST(StoreSweepFilterTest, TypingFiveToOneStoresOneToFive) {
  SweepTable stored;
  SweepFilter entered = FilterOf(stored);
  entered.FileLow = entered.IndexLow = 5;
  entered.FileHigh = entered.IndexHigh = 1;
  entered.RelevantLow = entered.TagLow = 5;
  entered.RelevantHigh = entered.TagHigh = 1;
  EXPECT_TRUE(StoreSweepFilter(stored, entered));
  EXPECT_EQ(stored.FileLow, 1);
  EXPECT_EQ(stored.FileHigh, 5);
  EXPECT_EQ(stored.RelevantLow, 1);
  EXPECT_EQ(stored.RelevantHigh, 5);
  EXPECT_EQ(stored.TagLow, 1);
  EXPECT_EQ(stored.TagHigh, 5);
  EXPECT_EQ(stored.IndexLow, 1);
  EXPECT_EQ(stored.IndexHigh, 5);
}

TEST(StoreSweepFilterTest, AGroupThatDidNotChangeKeepsReversedBounds) {
  SweepTable stored;
  stored.FileLow = 5;
  stored.FileHigh = 1;
  SweepFilter entered = FilterOf(stored);
  EXPECT_FALSE(StoreSweepFilter(stored, entered));
  entered.IndexHigh = 7;
  EXPECT_TRUE(StoreSweepFilter(stored, entered));
  EXPECT_EQ(Fields(FilterOf(stored)), Fields(entered));
}

// --- Events ---------------------------------------------------------------------------------

class StoreLevelSettingsTest : public ShellTest {
 protected:
  LevelSettings Stored() {
    return {.AmplitudeMode = workspace().Events.AmplitudeMode,
            .Range = workspace().Levels.Range,
            .TagSource = workspace().Levels.TagSource,
            .InstrumentDelay = workspace().Levels.InstrumentDelay,
            .MultipleOpenings = workspace().Levels.MultipleOpenings,
            .BurstResolution = workspace().Events.BurstResolution,
            .BaseLevel = workspace().Levels.BaseLevel};
  }
};

auto Fields(const LevelSettings& settings) {
  return std::tuple(settings.AmplitudeMode, settings.Range, settings.TagSource,
                    settings.InstrumentDelay, settings.MultipleOpenings, settings.BurstResolution,
                    settings.BaseLevel);
}

TEST_F(StoreLevelSettingsTest, EqualSettingsAreNoChange) {
  const LevelSettings before = Stored();
  EXPECT_FALSE(StoreLevelSettings(workspace(), before));
  EXPECT_EQ(Fields(Stored()), Fields(before));
}

TEST_F(StoreLevelSettingsTest, EachOfTheSevenCountsAsAChangeAndIsStored) {
  const std::vector<std::function<void(LevelSettings&)>> changes = {
      [](LevelSettings& settings) { settings.AmplitudeMode = LevelAmplitude::Absolute; },
      [](LevelSettings& settings) { settings.Range = LevelRange::Sweep; },
      [](LevelSettings& settings) { settings.TagSource = LevelTag::ClosingCount; },
      [](LevelSettings& settings) { settings.InstrumentDelay = -0.001; },
      [](LevelSettings& settings) { settings.MultipleOpenings = OpeningRule::Fragments; },
      [](LevelSettings& settings) { settings.BurstResolution = 0.002; },
      [](LevelSettings& settings) { settings.BaseLevel = 1; },
  };
  for (std::size_t field = 0; field < changes.size(); ++field) {
    ResetWorkspace(workspace());
    LevelSettings entered = Stored();
    changes[field](entered);
    EXPECT_TRUE(StoreLevelSettings(workspace(), entered)) << field;
    EXPECT_EQ(Fields(Stored()), Fields(entered)) << field;
    EXPECT_FALSE(StoreLevelSettings(workspace(), entered)) << field;
  }
}

}  // namespace
}  // namespace ondrel
