// Ranges, first, following and last levels, bursts, capacity, and the way back of tags into events.
// Multiple openings are tested in level_builder_openings_test.cpp.
#include "derived/level_builder.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <utility>
#include <vector>

#include "derived/recording_fixture.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class LevelBuilderTest : public RecordingTest {
 protected:
  LevelBuilderTest() { workspace().Levels.MultipleOpenings = OpeningRule::Fragments; }

  std::vector<Dwell> Build() {
    BuildLevels(workspace());
    return Dwells();
  }
};

// --- Ranges ---------------------------------------------------------------------------------

TEST_F(LevelBuilderTest, AnEmptyEventTableGivesAnEmptyLevelTable) {
  AddSweep(10);
  AddLevel(1, 1);
  EXPECT_THAT(Build(), IsEmpty());
}

TEST_F(LevelBuilderTest, ThreeTransitionsGiveFourLevels) {
  AddSweep(10);
  AddSteps(1, 0, {{2, 1}, {3, 0}, {7, 1}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 0, 0, 2}, Dwell{1, 1, 2, 1}, Dwell{1, 0, 3, 4},
                                   Dwell{1, 1, 7, 3}));
}

TEST_F(LevelBuilderTest, LevelsNameTheEventsBetweenWhichTheyLie) {
  AddSweep(10);
  AddSteps(1, 0, {{2, 1}, {3, 0}});
  Build();
  EXPECT_EQ(Level(0).FirstEvent, 0);
  EXPECT_EQ(Level(0).LastEvent, 0);
  EXPECT_EQ(Level(1).FirstEvent, 0);
  EXPECT_EQ(Level(1).LastEvent, 1);
  EXPECT_EQ(Level(2).FirstEvent, 1);
  EXPECT_EQ(Level(2).LastEvent, 1);
}

TEST_F(LevelBuilderTest, ASweepWithoutAnEventInItsRangeGetsNoLevel) {
  AddSweep(10, 4, 6);
  AddSweep(10);
  AddSteps(1, 0, {{2, 1}, {7, 0}});
  AddSteps(2, 0, {{5, 1}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{2, 0, 0, 5}, Dwell{2, 1, 5, 5}));
}

TEST_F(LevelBuilderTest, EventsOutsideTheRangeArePassedOver) {
  AddSweep(10, 4, 8);
  AddSweep(10, 4, 8);
  for (std::uint32_t sweep : {1u, 2u}) {
    AddSteps(sweep, 0, {{1, 1}, {3, 0}, {5, 1}, {6, 0}, {9, 1}, {9.5, 0}});
  }
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 0, 4, 1}, Dwell{1, 1, 5, 1}, Dwell{1, 0, 6, 2},
                                   Dwell{2, 0, 4, 1}, Dwell{2, 1, 5, 1}, Dwell{2, 0, 6, 2}));
}

TEST_F(LevelBuilderTest, BehindAnEventPastTheRangeTheRestOfItsSweepIsPassedOver) {
  AddSweep(20, 0, 10);
  AddSweep(20);
  AddSteps(1, 0, {{2, 1}, {15, 0}, {5, 1}, {6, 0}});  // out of time order
  AddSteps(2, 0, {{4, 1}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 0, 0, 2}, Dwell{1, 1, 2, 8}, Dwell{2, 0, 0, 4},
                                   Dwell{2, 1, 4, 16}));
}

TEST_F(LevelBuilderTest, AnEventAtTheEndOfTheRelevantSegmentOpensNoSweep) {
  AddSweep(10, 4, 6);
  AddSteps(1, 0, {{6, 1}});
  EXPECT_THAT(Build(), IsEmpty());
}

TEST_F(LevelBuilderTest, AnEventAtTheEndOfTheRelevantSegmentEndsALevel) {
  AddSweep(10, 4, 6);
  AddSteps(1, 0, {{5, 1}, {6, 0}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 0, 4, 1}, Dwell{1, 1, 5, 1}));
  EXPECT_EQ(Level(1).LastEvent, 1) << "it ends at the event and not at the range's end";
}

TEST_F(LevelBuilderTest, AFirstEventAtTheStartOfTheRangeGivesNoFirstLevel) {
  AddSweep(10, 4, 8);
  AddSteps(1, 0, {{4, 1}, {5, 0}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 1, 4, 1}, Dwell{1, 0, 5, 3}));
}

TEST_F(LevelBuilderTest, TwoEventsAtTheSameTimeGiveNoLevelBetweenThem) {
  AddSweep(10);
  AddSteps(1, 0, {{2, 1}, {3, 0}, {3, 1}, {6, 0}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 0, 0, 2}, Dwell{1, 1, 2, 1}, Dwell{1, 1, 3, 3},
                                   Dwell{1, 0, 6, 4}));
}

TEST_F(LevelBuilderTest, NoLastLevelAfterAnEventAtTheEndOfTheRange) {
  AddSweep(10);
  AddSteps(1, 0, {{2, 1}, {10, 0}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 0, 0, 2}, Dwell{1, 1, 2, 8}));
}

TEST_F(LevelBuilderTest, TheWholeSweepMayBeTheRange) {
  workspace().Levels.Range = LevelRange::Sweep;
  AddSweep(10, 4, 6);
  AddSteps(1, 0, {{2, 1}, {9, 0}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 0, 0, 2}, Dwell{1, 1, 2, 7}, Dwell{1, 0, 9, 1}));
}

TEST_F(LevelBuilderTest, TheInstrumentDelayCutsTheBeginningOffAndMovesNoEvent) {
  workspace().Levels.InstrumentDelay = 1;
  AddSweep(10, 4, 9);
  AddSteps(1, 0, {{4.5, 1}, {6, 0}, {8, 1}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 1, 5, 1}, Dwell{1, 0, 6, 2}, Dwell{1, 1, 8, 1}));
  workspace().Levels.Range = LevelRange::Sweep;
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 0, 1, 3.5}, Dwell{1, 1, 4.5, 1.5}, Dwell{1, 0, 6, 2},
                                   Dwell{1, 1, 8, 2}));
}

TEST_F(LevelBuilderTest, ANegativeInstrumentDelayLengthensTheFirstLevel) {
  workspace().Levels.InstrumentDelay = -2;
  AddSweep(10, 4, 8);
  AddSteps(1, 0, {{3, 1}, {5, 0}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 0, 2, 1}, Dwell{1, 1, 3, 2}, Dwell{1, 0, 5, 3}));
}

TEST_F(LevelBuilderTest, AnEventWhoseSweepHasNoRowIsPassedOver) {
  AddSweep(10);
  AddSweep(10);
  AddSteps(0, 0, {{2, 1}, {3, 0}});
  AddSteps(1, 0, {{5, 1}});
  AddSteps(3, 0, {{2, 1}, {3, 0}});
  AddSteps(4000000000u, 0, {{2, 1}});
  AddSteps(2, 0, {{7, 1}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 0, 0, 5}, Dwell{1, 1, 5, 5}, Dwell{2, 0, 0, 7},
                                   Dwell{2, 1, 7, 3}));
}

TEST_F(LevelBuilderTest, ARebuildReplacesLevelsAndLeavesTheirFlagsClear) {
  AddSweep(10);
  AddSteps(1, 0, {{2, 1}});
  Build();
  for (std::int32_t row = 0; row < 2; ++row) {
    LevelRecord& level = *workspace().Levels.Index[row];
    level.LevelFlags = level.PrecedingFlags = level.FollowingFlags = 0x2;
    level.TagValue = 17;
  }
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 0, 0, 2}, Dwell{1, 1, 2, 8}));
  for (std::int32_t row = 0; row < 2; ++row) {
    EXPECT_EQ(Level(row).LevelFlags, 0u);
    EXPECT_EQ(Level(row).PrecedingFlags, 0u);
    EXPECT_EQ(Level(row).FollowingFlags, 0u);
    EXPECT_EQ(Level(row).TagValue, 0);
  }
}

TEST_F(LevelBuilderTest, RecordsAreReachedThroughTheirPointers) {
  AddSweep(10);
  AddSteps(1, 1, {{5, 0}, {2, 1}});
  std::swap(workspace().Events.Index[0], workspace().Events.Index[1]);
  std::swap(workspace().Levels.Index[0], workspace().Levels.Index[1]);
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 0, 0, 2}, Dwell{1, 1, 2, 3}, Dwell{1, 0, 5, 5}));
  EXPECT_EQ(workspace().Levels.Records[1].Level, 0);
}

TEST_F(LevelBuilderTest, TheScrollRangeOfAnOpenLevelViewFollowsTheCount) {
  scripted::Window window;
  window.Record.Handle = &window;
  window.Bars[0].Maximum = 77;
  ViewOf(workspace(), ViewKind::Level).Window = &window.Record;
  AddSweep(10);
  Build();
  EXPECT_EQ(window.Bars[0].Maximum, 0);
  AddSteps(1, 0, {{2, 1}, {3, 0}, {7, 1}});
  Build();
  EXPECT_EQ(window.Bars[0].Maximum, 3);
  ViewOf(workspace(), ViewKind::Level).Window = nullptr;
}

// --- The first level ------------------------------------------------------------------------

TEST_F(LevelBuilderTest, TheNumberOfTheFirstLevelFollowsFromTheStepThatEndsIt) {
  AddSweep(10);
  AddSweep(10);
  AddSweep(10);
  AddEvent(1, 5, 1, 2, 7);
  AddEvent(2, 5, 2, 1, 7);
  AddEvent(3, 5, 1, 1, 7);
  Build();
  EXPECT_EQ(Level(0).Level, 6) << "a rising step came from the level below";
  EXPECT_EQ(Level(2).Level, 8) << "a falling step came from the level above";
  EXPECT_EQ(Level(4).Level, 8) << "no step counts as a falling one";
}

TEST_F(LevelBuilderTest, TheAmplitudeBeyondTheFirstClosingStandsInForTheOneBeforeTheLevel) {
  AddSweep(10);
  AddEvent(1, 5, 2, 7, 1);
  Build();
  EXPECT_EQ(Level(0).PreAmplitude, 7);
  EXPECT_EQ(Level(0).PostAmplitude, 2);
  EXPECT_EQ(Level(1).PreAmplitude, 2);
  EXPECT_EQ(Level(1).PostAmplitude, 7);
}

TEST_F(LevelBuilderTest, TheFirstLevelHasTheTagOfItsClosingAndOthersThatOfTheirOpening) {
  AddSweep(10);
  AddEvent(1, 5, 0, 1, 1, 50);
  AddEvent(1, 6, 1, 0, 0, 60);
  Build();
  EXPECT_EQ(Level(0).TagValue, 50);
  EXPECT_EQ(Level(1).TagValue, 50);
  EXPECT_EQ(Level(2).TagValue, 60);
}

TEST_F(LevelBuilderTest, AmplitudeModeAbsoluteIsTheCurrentOfTheLevel) {
  workspace().Events.AmplitudeMode = LevelAmplitude::Absolute;
  AddSweep(10);
  AddEvent(1, 5, 2, -7, 1);
  AddEvent(1, 6, -6, 3, 0);
  Build();
  EXPECT_EQ(Level(0).Amplitude, 2);
  EXPECT_EQ(Level(1).Amplitude, -7);
  EXPECT_EQ(Level(2).Amplitude, 3);
}

TEST_F(LevelBuilderTest, AmplitudeModeDeltaIsTheStepFromTheLevelBefore) {
  workspace().Events.AmplitudeMode = LevelAmplitude::Delta;
  AddSweep(10);
  AddEvent(1, 5, 2, -7, 1);
  AddEvent(1, 6, -6, 3, 0);
  Build();
  EXPECT_EQ(Level(0).Amplitude, 9) << "the first level's step is that of its closing, turned round";
  EXPECT_EQ(Level(1).Amplitude, -9);
  EXPECT_EQ(Level(2).Amplitude, 9);
}

TEST_F(LevelBuilderTest, AmplitudeModeDeltaMagnitudeHasNoSign) {
  AddSweep(10);
  AddEvent(1, 5, 7, 2, 1);
  AddEvent(1, 6, 2, -6, 0);
  Build();
  EXPECT_EQ(Level(0).Amplitude, 5);
  EXPECT_EQ(Level(1).Amplitude, 5);
  EXPECT_EQ(Level(2).Amplitude, 8);
}

// --- Bursts ---------------------------------------------------------------------------------

class BurstTest : public LevelBuilderTest {
 protected:
  BurstTest() {
    workspace().Events.BurstResolution = 0.005;
    workspace().Levels.TagSource = LevelTag::ClosingCount;
    AddSweep(1);
  }
};

TEST_F(BurstTest, AClosingShorterThanTheResolutionIsAbsorbed) {
  AddSteps(1, 0, {{0.001, 1}, {0.005, 0}, {0.0099, 1}, {0.5, 0}});
  Build();
  ASSERT_EQ(workspace().Levels.Count, 3);
  EXPECT_EQ(Level(1).Level, 1);
  EXPECT_EQ(Level(1).Duration, 0.5 - 0.001);
  EXPECT_EQ(Level(1).FirstEvent, 0);
  EXPECT_EQ(Level(1).LastEvent, 3);
  EXPECT_EQ(Level(1).TagValue, 1);
}

TEST_F(BurstTest, AClosingOfExactlyTheResolutionIsKept) {
  AddSteps(1, 0, {{0.001, 1}, {0.005, 0}, {0.010, 1}, {0.5, 0}});
  Build();
  ASSERT_EQ(workspace().Levels.Count, 5);
  EXPECT_EQ(Level(1).Duration, 0.005 - 0.001);
  EXPECT_EQ(Level(1).TagValue, 0);
  EXPECT_EQ(Level(2).Level, 0);
}

TEST_F(BurstTest, AResolutionOfZeroAbsorbsNothing) {
  workspace().Events.BurstResolution = 0;
  AddSteps(1, 0, {{0.25, 1}, {0.5, 0}, {0.5, 1}, {0.75, 0}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 0, 0, 0.25}, Dwell{1, 1, 0.25, 0.25},
                                   Dwell{1, 1, 0.5, 0.25}, Dwell{1, 0, 0.75, 0.25}));
}

TEST_F(BurstTest, TheTagCountsTheAbsorbedClosings) {
  workspace().Events.BurstResolution = 2;
  AddSweep(20);
  AddSteps(2, 0, {{2, 1}, {3, 0}, {4, 1}, {6, 0}, {7, 1}, {8, 0}, {9, 1}, {12, 0}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{2, 0, 0, 2}, Dwell{2, 1, 2, 10}, Dwell{2, 0, 12, 8}));
  EXPECT_EQ(Level(0).TagValue, 0);
  EXPECT_EQ(Level(1).TagValue, 3);
  EXPECT_EQ(Level(2).TagValue, 0);
}

TEST_F(BurstTest, ClosingsOfTheFirstLevelAreAbsorbedAndCounted) {
  workspace().Events.BurstResolution = 2;
  AddSweep(20);
  AddSteps(2, 1, {{3, 0}, {4, 1}, {6, 0}, {7, 1}, {9, 0}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{2, 1, 0, 9}, Dwell{2, 0, 9, 11}));
  EXPECT_EQ(Level(0).TagValue, 2);
  EXPECT_EQ(Level(0).FirstEvent, 0);
  EXPECT_EQ(Level(0).LastEvent, 4);
}

TEST_F(BurstTest, AnAbsorbedLevelKeepsTheTagOfItsOpeningEvent) {
  workspace().Events.BurstResolution = 2;
  workspace().Levels.TagSource = LevelTag::Event;
  AddSweep(20);
  AddEvent(2, 2, 0, 1, 1, 10);
  AddEvent(2, 3, 1, 0, 0, 20);
  AddEvent(2, 4, 0, 1, 1, 30);
  AddEvent(2, 9, 1, 0, 0, 40);
  Build();
  EXPECT_EQ(Level(1).Duration, 7);
  EXPECT_EQ(Level(1).TagValue, 10);
}

TEST_F(BurstTest, AShortVisitAwayFromTheBaseIsNotAbsorbed) {
  workspace().Events.BurstResolution = 2;
  AddSweep(20);
  AddSteps(2, 0, {{2, 1}, {5, 2}, {6, 1}, {9, 0}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{2, 0, 0, 2}, Dwell{2, 1, 2, 3}, Dwell{2, 2, 5, 1},
                                   Dwell{2, 1, 6, 3}, Dwell{2, 0, 9, 11}));
}

TEST_F(BurstTest, AShortVisitPastTheBaseIsAbsorbed) {
  workspace().Events.BurstResolution = 2;
  AddSweep(20);
  AddSteps(2, 0, {{2, 1}, {5, -1}, {6, 1}, {9, 0}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{2, 0, 0, 2}, Dwell{2, 1, 2, 7}, Dwell{2, 0, 9, 11}));
}

TEST_F(BurstTest, BelowTheBaseAShortVisitUpwardIsAbsorbed) {
  workspace().Events.BurstResolution = 2;
  AddSweep(20);
  AddSteps(2, -1, {{2, -2}, {5, -1}, {6, -2}, {8, -3}, {9, -2}, {12, 0}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{2, -1, 0, 2}, Dwell{2, -2, 2, 6}, Dwell{2, -3, 8, 1},
                                   Dwell{2, -2, 9, 3}, Dwell{2, 0, 12, 8}));
}

TEST_F(BurstTest, ADwellAtTheBaseIsNeverLengthened) {
  workspace().Events.BurstResolution = 2;
  AddSweep(20);
  AddSteps(2, 0, {{5, 1}, {6, 0}, {9, -1}, {10, 0}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{2, 0, 0, 5}, Dwell{2, 1, 5, 1}, Dwell{2, 0, 6, 3},
                                   Dwell{2, -1, 9, 1}, Dwell{2, 0, 10, 10}));
}

TEST_F(BurstTest, TheBaseLevelDecidesWhichWayIsClosing) {
  workspace().Events.BurstResolution = 2;
  workspace().Levels.BaseLevel = 2;
  AddSweep(20);
  AddSteps(2, 0, {{2, 1}, {5, 2}, {6, 1}, {9, 0}, {10, 1}, {14, 2}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{2, 0, 0, 2}, Dwell{2, 1, 2, 7}, Dwell{2, 0, 9, 1},
                                   Dwell{2, 1, 10, 4}, Dwell{2, 2, 14, 6}));
}

TEST_F(BurstTest, AVisitThatGoesOnToAnotherLevelIsNotAbsorbed) {
  workspace().Events.BurstResolution = 2;
  AddSweep(20);
  AddSteps(2, 1, {{5, 0}, {6, 2}, {12, 1}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{2, 1, 0, 5}, Dwell{2, 0, 5, 1}, Dwell{2, 2, 6, 6},
                                   Dwell{2, 1, 12, 8}));
}

TEST_F(BurstTest, AShortClosingLastInRangeLetsTheLevelRunToTheEndOfTheRange) {
  workspace().Events.BurstResolution = 2;
  AddSweep(20, 0, 15);
  AddSteps(2, 0, {{2, 1}, {5, 0}, {6, 1}, {16, 0}, {17, 1}});
  AddSweep(20);
  AddSteps(3, 0, {{8, 1}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{2, 0, 0, 2}, Dwell{2, 1, 2, 13}, Dwell{3, 0, 0, 8},
                                   Dwell{3, 1, 8, 12}));
  EXPECT_EQ(Level(1).FirstEvent, 0);
  EXPECT_EQ(Level(1).LastEvent, 2);
  EXPECT_EQ(Level(1).TagValue, 1);
}

TEST_F(BurstTest, AFirstLevelAbsorbedToTheEndOfTheRangeLeavesItsSweepWithoutLevels) {
  workspace().Events.BurstResolution = 2;
  AddSweep(20, 0, 15);
  AddSteps(2, 1, {{5, 0}, {6, 1}, {8, 0}, {9, 1}, {16, 0}});
  AddSweep(20);
  AddSteps(3, 0, {{8, 1}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{3, 0, 0, 8}, Dwell{3, 1, 8, 12}));
}

TEST_F(BurstTest, AClosingWhoseReopeningLiesPastTheRangeIsKept) {
  workspace().Events.BurstResolution = 2;
  AddSweep(20, 0, 15);
  AddSteps(2, 0, {{2, 1}, {14, 0}, {15.5, 1}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{2, 0, 0, 2}, Dwell{2, 1, 2, 12}, Dwell{2, 0, 14, 1}));
}

TEST_F(BurstTest, AClosingIsNotAbsorbedIntoTheNextSweep) {
  workspace().Events.BurstResolution = 2;
  AddSweep(20);
  AddSteps(2, 0, {{2, 1}, {14, 0}});
  AddSweep(20);
  AddSteps(3, 0, {{15, 1}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{2, 0, 0, 2}, Dwell{2, 1, 2, 12}, Dwell{2, 0, 14, 6},
                                   Dwell{3, 0, 0, 15}, Dwell{3, 1, 15, 5}));
}

// --- Capacity -------------------------------------------------------------------------------

TEST_F(LevelBuilderTest, AFullTableEndsTheBuildWithAWholeLevelAndSaysNothing) {
  for (std::int32_t capacity = 1; capacity <= 6; ++capacity) {
    Allocate(capacity, 2);
    AddSweep(10);
    AddSweep(10);
    // The event table is as small as the level table; more events than levels need their own.
    std::vector<EventRecord> records(4);
    std::vector<EventRecord*> index;
    for (EventRecord& record : records) index.push_back(&record);
    EventRecord** const ownIndex = workspace().Events.Index;
    workspace().Events.Index = index.data();
    AddSteps(1, 0, {{2, 1}, {3, 0}});
    AddSteps(2, 0, {{4, 1}, {6, 0}});
    const std::vector<Dwell> all = {{1, 0, 0, 2}, {1, 1, 2, 1}, {1, 0, 3, 7},
                                    {2, 0, 0, 4}, {2, 1, 4, 2}, {2, 0, 6, 4}};
    EXPECT_EQ(Build(), std::vector<Dwell>(all.begin(), all.begin() + capacity));
    EXPECT_THAT(Messages(), IsEmpty());
    workspace().Events.Index = ownIndex;
  }
}

// --- Tags back into events ------------------------------------------------------------------

class LevelTagsTest : public LevelBuilderTest {
 protected:
  LevelTagsTest() {
    workspace().Events.BurstResolution = 2;
    workspace().Levels.TagSource = LevelTag::ClosingCount;
    AddSweep(20);
  }

  std::vector<double> Tags() {
    std::vector<double> tags;
    for (std::int32_t index = 0; index < workspace().Events.Count; ++index) {
      tags.push_back(workspace().Events.Index[index]->TagValue);
    }
    return tags;
  }

  void SetAllTags(double tag) {
    for (std::int32_t index = 0; index < workspace().Events.Count; ++index) {
      workspace().Events.Index[index]->TagValue = tag;
    }
  }
};

TEST_F(LevelTagsTest, ATagGoesToTheEventsOfALevelButNotToTheOneThatEndsIt) {
  AddSteps(1, 0, {{2, 1}, {5, 0}, {6, 1}, {9, 0}, {12, 1}});
  SetAllTags(-1);
  Build();
  ASSERT_THAT(Dwells(), ElementsAre(Dwell{1, 0, 0, 2}, Dwell{1, 1, 2, 7}, Dwell{1, 0, 9, 3},
                                    Dwell{1, 1, 12, 8}));
  WriteLevelTags(workspace());
  EXPECT_THAT(Tags(), ElementsAre(1, 1, 1, 0, -1));
}

TEST_F(LevelTagsTest, AFirstLevelWithoutAbsorbedClosingsWritesNothing) {
  AddSteps(1, 0, {{2, 1}});
  SetAllTags(-1);
  Build();
  workspace().Levels.Index[1]->LevelFlags = 0x40;
  WriteLevelTags(workspace());
  EXPECT_THAT(Tags(), ElementsAre(-1));
}

TEST_F(LevelTagsTest, AFirstLevelWritesIntoItsAbsorbedClosings) {
  AddSteps(1, 1, {{2, 0}, {3, 1}, {9, 0}});
  SetAllTags(-1);
  Build();
  WriteLevelTags(workspace());
  EXPECT_THAT(Tags(), ElementsAre(1, 1, -1));
}

TEST_F(LevelTagsTest, TheLastLevelOfASweepWritesNothingForItsOpeningEvent) {
  AddSteps(1, 0, {{2, 1}, {9, 0}});
  SetAllTags(-1);
  Build();
  workspace().Levels.Index[1]->LevelFlags = 0x40;
  WriteLevelTags(workspace());
  EXPECT_THAT(Tags(), ElementsAre(-1, -1));
}

TEST_F(LevelTagsTest, LevelsThatAreOutWriteNothing) {
  AddSteps(1, 0, {{2, 1}, {5, 0}, {9, 1}, {12, 0}});
  SetAllTags(-1);
  Build();
  workspace().Levels.Index[2]->LevelFlags = 0x10;
  WriteLevelTags(workspace());
  EXPECT_THAT(Tags(), ElementsAre(0, -1, 0, -1));
}

TEST_F(LevelTagsTest, FlagsOfTheNeighbourSelectionsKeepNoLevelFromWriting) {
  AddSteps(1, 0, {{2, 1}, {5, 0}});
  SetAllTags(-1);
  Build();
  workspace().Levels.Index[1]->PrecedingFlags = 0x10;
  workspace().Levels.Index[1]->FollowingFlags = 0x10;
  WriteLevelTags(workspace());
  EXPECT_THAT(Tags(), ElementsAre(0, -1));
}

TEST_F(LevelTagsTest, ManualWritesOneValueForAll) {
  workspace().Events.TagSetMode = EventTag::Manual;
  workspace().Events.TagSetValue = 42.5;
  AddSteps(1, 0, {{2, 1}, {5, 0}, {6, 1}, {9, 0}, {12, 1}});
  SetAllTags(-1);
  Build();
  WriteLevelTags(workspace());
  EXPECT_THAT(Tags(), ElementsAre(42.5, 42.5, 42.5, 42.5, -1));
}

TEST_F(LevelTagsTest, AnIndexPastTheEventTableStopsTheWriting) {
  AddSteps(1, 0, {{2, 1}, {5, 0}, {9, 1}, {12, 0}});
  Build();
  SetAllTags(-1);
  workspace().Levels.Index[1]->LastEvent = 1000;
  WriteLevelTags(workspace());
  EXPECT_THAT(Tags(), ElementsAre(0, 0, 0, 0)) << "the level's events up to the end of the table";
  SetAllTags(-1);
  workspace().Levels.Index[1]->FirstEvent = 1000;
  workspace().Levels.Index[1]->LastEvent = 1001;
  WriteLevelTags(workspace());
  EXPECT_THAT(Tags(), ElementsAre(-1, -1, -1, -1)) << "later levels write nothing any more";
}

}  // namespace
}  // namespace ondrel
