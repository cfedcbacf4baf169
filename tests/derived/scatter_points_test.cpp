#include "derived/scatter_points.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

#include "derived/level_builder.h"
#include "derived/scatter_points_fixture.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::Pair;

// --- Which levels --------------------------------------------------------------------------------

TEST_F(ScatterPointsTest, ALevelGivesAPointWhenItIsSelected) {
  AddDwell(5.0, 1.0, 1e-3);
  EXPECT_THAT(CountAll(), ElementsAre(1u, 1u, 1u));
}

TEST_F(ScatterPointsTest, AnyFlagTakesALevelOut) {
  for (int bit = 0; bit < 32; ++bit) AddDwell(5.0, 1.0, 1e-3).LevelFlags = 1u << bit;
  EXPECT_THAT(CountAll(), ElementsAre(0u, 0u, 0u));
}

TEST_F(ScatterPointsTest, WhatTheNeighboursFiltersSaidOfALevelDoesNotMatter) {
  LevelRecord& level = AddDwell(5.0, 1.0, 1e-3);
  level.PrecedingFlags = ~0u;
  level.FollowingFlags = ~0u;
  EXPECT_THAT(CountAll(), ElementsAre(1u, 1u, 1u));
}

TEST_F(ScatterPointsTest, AnEmptyTableGivesNoPoints) {
  EXPECT_THAT(CountAll(), ElementsAre(0u, 0u, 0u));
}

TEST_F(ScatterPointsTest, WithoutTablesThereAreNoPoints) {
  FreeAllTables(workspace());
  EXPECT_THAT(CountAll(), ElementsAre(0u, 0u, 0u));
}

TEST_F(ScatterPointsTest, WithNoSelectedLevelThereAreNoPoints) {
  for (int i = 0; i < 3; ++i) AddDwell(5.0, 1.0, 1e-3).LevelFlags = 0x40;
  EXPECT_THAT(CountAll(), ElementsAre(0u, 0u, 0u));
}

TEST_F(ScatterPointsTest, PointsComeInTheOrderOfTheTable) {
  for (const double tag : {30.0, 10.0, 20.0, 10.0}) AddDwell(tag, 1.0, 1e-3);
  EXPECT_THAT(AcrossOf(ViewKind::AmplitudeScatter), ElementsAre(30.0, 10.0, 20.0, 10.0));
  EXPECT_THAT(AcrossOf(ViewKind::DurationScatter), ElementsAre(30.0, 10.0, 20.0, 10.0));
}

TEST_F(ScatterPointsTest, LevelsAtOnePlaceAreAPointEach) {
  for (int i = 0; i < 5; ++i) AddDwell(5.0, 1.0, 1e-3);
  EXPECT_THAT(CountAll(), ElementsAre(5u, 5u, 5u));
}

TEST_F(ScatterPointsTest, AVisitThatReturnsFalseHasNoMorePoints) {
  for (const double tag : {10.0, 20.0, 30.0, 40.0}) AddDwell(tag, 1.0, 1e-3);
  std::vector<int> calls(3);
  ForEachAmplitudeScatterPoint(workspace(), [&](const ScatterPoint&) { return ++calls[0] < 1; });
  ForEachDurationScatterPoint(workspace(), [&](const ScatterPoint&) { return ++calls[1] < 2; });
  ForEachScatterPoint(workspace(), [&](const ScatterPoint&) { return ++calls[2] < 3; });
  EXPECT_THAT(calls, ElementsAre(1, 2, 3));
}

// --- What they show ------------------------------------------------------------------------------

TEST_F(ScatterPointsTest, TheSourceValueIsTheLevelsTagOrAValueOfItsSweep) {
  AddSweep(1.0);
  SweepRecord& second = AddSweep(1.0);
  second.RelevantValue = 12.0;
  second.TagValue = 13.0;
  const LevelRecord& level = AddDwell(11.0, 1.0, 1e-3, 2);
  const SweepTable& sweeps = workspace().Sweeps;
  EXPECT_EQ(SourceValue(sweeps, level, ScatterValue::LevelTag), 11.0);
  EXPECT_EQ(SourceValue(sweeps, level, ScatterValue::SweepRelevant), 12.0);
  EXPECT_EQ(SourceValue(sweeps, level, ScatterValue::SweepTag), 13.0);
}

TEST_F(ScatterPointsTest, EachPlotAsksForItsOwnSourceValue) {
  SweepRecord& sweep = AddSweep(1.0);
  sweep.RelevantValue = 12.0;
  sweep.TagValue = 13.0;
  AddDwell(11.0, 1.0, 1e-3);
  byAmplitude().Value = ScatterValue::SweepTag;
  byDuration().Value = ScatterValue::SweepRelevant;
  EXPECT_THAT(AcrossOf(ViewKind::AmplitudeScatter), ElementsAre(13.0));
  EXPECT_THAT(AcrossOf(ViewKind::DurationScatter), ElementsAre(12.0));
}

TEST_F(ScatterPointsTest, ByDefaultItIsTheRelevantValueOfTheSweep) {
  EXPECT_EQ(AmplitudeScatterSettings{}.Value, ScatterValue::SweepRelevant);
  EXPECT_EQ(DurationScatterSettings{}.Value, ScatterValue::SweepRelevant);
  EXPECT_EQ(static_cast<int>(ScatterValue::LevelTag), 0);
  EXPECT_EQ(static_cast<int>(ScatterValue::SweepRelevant), 1);
  EXPECT_EQ(static_cast<int>(ScatterValue::SweepTag), 2);
}

TEST_F(ScatterPointsTest, WithoutARowForItsSweepALevelHasNoValueOfIt) {
  AddSweep(1.0);
  for (const std::uint32_t missing : {0u, 2u, 51u, 0x80000000u, 0xFFFFFFFFu}) {
    const LevelRecord& level = AddDwell(11.0, 1.0, 1e-3, missing);
    const SweepTable& sweeps = workspace().Sweeps;
    EXPECT_EQ(SourceValue(sweeps, level, ScatterValue::LevelTag), 11.0) << missing;
    EXPECT_TRUE(std::isnan(SourceValue(sweeps, level, ScatterValue::SweepRelevant))) << missing;
    EXPECT_TRUE(std::isnan(SourceValue(sweeps, level, ScatterValue::SweepTag))) << missing;
  }
  EXPECT_THAT(CountAll(), ElementsAre(5u, 5u, 5u)) << "no sweep is asked";
  for (const ScatterValue value : {ScatterValue::SweepRelevant, ScatterValue::SweepTag}) {
    byAmplitude().Value = value;
    byDuration().Value = value;
    EXPECT_THAT(CountAll(), ElementsAre(0u, 0u, 5u));
  }
}

TEST_F(ScatterPointsTest, OnFilesWithoutRelevantValuesAllPointsStandOnOneVerticalLine) {
  for (std::uint32_t sweep = 1; sweep <= 3; ++sweep) {
    AddSweep(1.0);
    AddDwell(10.0 * sweep, sweep, std::pow(10.0, -static_cast<double>(sweep)), sweep);
  }
  byAmplitude().Value = ScatterValue::SweepRelevant;
  byDuration().Value = ScatterValue::SweepRelevant;
  // 0 lies half a tick to the right of -5.
  EXPECT_THAT(PlacesOf(ViewKind::AmplitudeScatter),
              ElementsAre(Pair(150.0, 350.0), Pair(150.0, 250.0), Pair(150.0, 150.0)));
  EXPECT_THAT(PlacesOf(ViewKind::DurationScatter),
              ElementsAre(Pair(150.0, 50.0), Pair(150.0, 150.0), Pair(150.0, 250.0)));
  byAmplitude().Minimum = 1.0;
  byDuration().Minimum = 1.0;
  EXPECT_THAT(CountAll(), ElementsAre(0u, 0u, 3u)) << "0 does not lie on the axes any more";
}

/// Bursts of level 1 with none, one and two short closings, each opened by an event tagged 30.
TEST_F(ScatterPointsTest, CountingClosingsMovesThePointsToTheNumberOfThoseAbsorbed) {
  AddSweep(100.0);
  AddSteps(1, 0,
           {{10, 1},
            {20, 0},
            {30, 1},
            {33, 0},
            {34, 1},
            {38, 0},
            {50, 1},
            {53, 0},
            {54, 1},
            {57, 0},
            {58, 1},
            {60, 0}});
  for (std::int32_t i = 0; i < workspace().Events.Count; ++i) {
    workspace().Events.Index[i]->TagValue = 30.0;
  }
  workspace().Events.BurstResolution = 2.0;
  const auto placesOfOpenings = [&] {
    BuildLevels(workspace());
    for (std::int32_t i = 0; i < workspace().Levels.Count; ++i) {
      LevelRecord& level = *workspace().Levels.Index[i];
      level.LevelFlags = level.Level == 1 ? 0 : 0x10;
      level.Amplitude = 2e-12;
    }
    return PlacesOf(ViewKind::AmplitudeScatter);
  };
  EXPECT_THAT(placesOfOpenings(),
              ElementsAre(Pair(450.0, 250.0), Pair(450.0, 250.0), Pair(450.0, 250.0)));
  workspace().Levels.TagSource = LevelTag::ClosingCount;
  EXPECT_THAT(placesOfOpenings(),
              ElementsAre(Pair(150.0, 250.0), Pair(160.0, 250.0), Pair(170.0, 250.0)));
}

TEST_F(ScatterPointsTest, CoordinatesAreAmperesAndSecondsAsTheTableHoldsThem) {
  AddDwell(5.0, 1.25, 3e-3);
  const ScatterPoint amplitude = PointsOf(ViewKind::AmplitudeScatter).at(0);
  EXPECT_EQ(amplitude.Horizontal, 5.0);
  EXPECT_EQ(amplitude.Vertical, 1.25 * 1e-12);
  const ScatterPoint duration = PointsOf(ViewKind::DurationScatter).at(0);
  EXPECT_EQ(duration.Horizontal, 5.0);
  EXPECT_EQ(duration.Vertical, 3e-3);
  const ScatterPoint both = PointsOf(ViewKind::Scatter).at(0);
  EXPECT_EQ(both.Horizontal, 3e-3);
  EXPECT_EQ(both.Vertical, 1.25 * 1e-12);
}

}  // namespace
}  // namespace ondrel
