// Levels under "Highest", which makes one level of an opening that reaches beyond the levels next
// to the base.
#include <gmock/gmock.h>

#include "derived/level_builder.h"
#include "derived/recording_fixture.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class OpeningsTest : public RecordingTest {
 protected:
  OpeningsTest() { AddSweep(20); }

  std::vector<Dwell> Build() {
    BuildLevels(workspace());
    return Dwells();
  }
};

TEST_F(OpeningsTest, AnOpeningToLevelTwoBecomesOneLevelUpToTheReturn) {
  AddSteps(1, 0, {{2, 1}, {4, 2}, {6, 1}, {9, 0}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 0, 0, 2}, Dwell{1, 2, 2, 7}, Dwell{1, 0, 9, 11}));
  EXPECT_EQ(Level(1).PreAmplitude, 0);
  EXPECT_EQ(Level(1).PostAmplitude, 2);
  EXPECT_EQ(Level(2).PreAmplitude, 2) << "the level after it came from its amplitude";
  EXPECT_EQ(Level(2).PostAmplitude, 0);
}

TEST_F(OpeningsTest, FragmentsGivesALevelForEachDwellOfTheSameOpening) {
  workspace().Levels.MultipleOpenings = OpeningRule::Fragments;
  AddSteps(1, 0, {{2, 1}, {4, 2}, {6, 1}, {9, 0}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 0, 0, 2}, Dwell{1, 1, 2, 2}, Dwell{1, 2, 4, 2},
                                   Dwell{1, 1, 6, 3}, Dwell{1, 0, 9, 11}));
  EXPECT_EQ(Level(4).PreAmplitude, 1);
}

TEST_F(OpeningsTest, OpeningsToTheLevelsNextToTheBaseStayAsTheyAre) {
  AddSteps(1, 0, {{2, 1}, {4, 0}, {6, -1}, {9, 0}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 0, 0, 2}, Dwell{1, 1, 2, 2}, Dwell{1, 0, 4, 2},
                                   Dwell{1, -1, 6, 3}, Dwell{1, 0, 9, 11}));
  EXPECT_EQ(Level(4).PreAmplitude, -1);
}

TEST_F(OpeningsTest, ACollapsedLevelCountsItsEventsFromTheStepOutOfBounds) {
  AddSteps(1, 0, {{2, 1}, {4, 2}, {6, 1}, {9, 0}, {11, 1}});
  Build();
  EXPECT_EQ(Level(1).FirstEvent, 1);
  EXPECT_EQ(Level(1).LastEvent, 3);
  EXPECT_EQ(Level(2).FirstEvent, 3);
  EXPECT_EQ(Level(2).LastEvent, 4);
}

TEST_F(OpeningsTest, AStepStraightToLevelTwoTakesTheDwellAtTheBaseIntoTheLevel) {
  AddSteps(1, 0, {{2, 1}, {4, 0}, {6, 2}, {9, 0}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 0, 0, 2}, Dwell{1, 1, 2, 2}, Dwell{1, 2, 4, 5},
                                   Dwell{1, 0, 9, 11}));
}

TEST_F(OpeningsTest, AmplitudesOfACollapsedLevelFollowTheMode) {
  AddEvent(1, 2, 3, 5, 1);
  AddEvent(1, 4, 5, -8, 2);
  AddEvent(1, 9, -8, 3, 0);
  Build();
  EXPECT_EQ(Level(1).Amplitude, 11);
  workspace().Events.AmplitudeMode = LevelAmplitude::Delta;
  Build();
  EXPECT_EQ(Level(1).Amplitude, -11);
  EXPECT_EQ(Level(2).Amplitude, 11) << "from the collapsed level's amplitude to the base's";
  workspace().Events.AmplitudeMode = LevelAmplitude::Absolute;
  Build();
  EXPECT_EQ(Level(1).Amplitude, -8);
}

TEST_F(OpeningsTest, ACollapsedLevelHasTheTagOfTheEventThatOpenedIt) {
  AddEvent(1, 2, 0, 1, 1, 10);
  AddEvent(1, 4, 1, 2, 2, 20);
  AddEvent(1, 9, 2, 0, 0, 30);
  Build();
  EXPECT_EQ(Level(1).TagValue, 10);
  EXPECT_EQ(Level(2).TagValue, 30);
}

TEST_F(OpeningsTest, ACollapsedLevelCountsNoClosings) {
  workspace().Levels.TagSource = LevelTag::ClosingCount;
  workspace().Events.BurstResolution = 1.5;
  AddSteps(1, 0, {{2, 1}, {4, 0}, {5, 1}, {7, 2}, {9, 0}, {12, 1}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 0, 0, 2}, Dwell{1, 2, 2, 7}, Dwell{1, 0, 9, 3},
                                   Dwell{1, 1, 12, 8}));
  EXPECT_EQ(Level(1).TagValue, 0);
  EXPECT_EQ(Level(1).FirstEvent, 3) << "the absorbed closing stands in front of its first event";
  EXPECT_EQ(Level(1).LastEvent, 4);
}

TEST_F(OpeningsTest, AFirstLevelThatIsCollapsedCountsNoClosingsEither) {
  workspace().Levels.TagSource = LevelTag::ClosingCount;
  workspace().Events.BurstResolution = 1.5;
  AddSteps(1, 2, {{2, 1}, {3, 2}, {7, 1}, {9, 0}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 2, 0, 9}, Dwell{1, 0, 9, 11}));
  EXPECT_EQ(Level(0).TagValue, 0);
  EXPECT_EQ(Level(0).FirstEvent, 2);
  EXPECT_EQ(Level(0).LastEvent, 3);
}

TEST_F(OpeningsTest, TheLevelAfterACollapsedFirstLevelKeepsItsOwnPreAmplitude) {
  AddSteps(1, 3, {{3, 2}, {5, 1}, {7, 0}, {12, 1}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 3, 0, 7}, Dwell{1, 0, 7, 5}, Dwell{1, 1, 12, 8}));
  EXPECT_EQ(Level(0).PreAmplitude, 2);
  EXPECT_EQ(Level(0).PostAmplitude, 3);
  EXPECT_EQ(Level(1).PreAmplitude, 1);
}

TEST_F(OpeningsTest, AFirstLevelInBoundsIsCollapsedWhenItsClosingLeavesThem) {
  AddSteps(1, 1, {{3, 2}, {5, 1}, {7, 0}, {12, 1}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 2, 0, 7}, Dwell{1, 0, 7, 5}, Dwell{1, 1, 12, 8}));
  EXPECT_EQ(Level(0).PreAmplitude, 2) << "the far side of its closing, as for any first level";
  EXPECT_EQ(Level(0).PostAmplitude, 2);
  EXPECT_EQ(Level(0).FirstEvent, 0);
  EXPECT_EQ(Level(0).LastEvent, 2);
  EXPECT_EQ(Level(1).PreAmplitude, 1);
}

TEST_F(OpeningsTest, AFirstLevelOutOfBoundsIsCollapsedThoughItsClosingIsInBounds) {
  AddSteps(1, 2, {{3, 1}, {7, 0}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 2, 0, 7}, Dwell{1, 0, 7, 13}));
}

TEST_F(OpeningsTest, TheReturnAfterAFirstLevelThatClosedToTheBaseIsTheNextOne) {
  workspace().Events.BurstResolution = 1.5;
  AddSteps(1, 2, {{2, 1}, {3, 2}, {6, 0}, {8, 1}, {10, 0}, {12, 1}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 2, 0, 6}, Dwell{1, 0, 10, 2}, Dwell{1, 1, 12, 8}));
}

TEST_F(OpeningsTest, WhereTheRangeEndsAboveTheBaseALevelFromTheLastEventFollows) {
  workspace().Sweeps.Index[0]->RelevantEnd = 15;
  AddSteps(1, 0, {{2, 1}, {4, 2}, {12, 1}, {16, 0}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 0, 0, 2}, Dwell{1, 2, 2, 10}, Dwell{1, 1, 12, 3}));
  EXPECT_EQ(Level(1).LastEvent, 2);
  EXPECT_EQ(Level(2).PreAmplitude, 2);
  EXPECT_EQ(Level(2).PostAmplitude, 1);
}

TEST_F(OpeningsTest, TheWalkRunsOnIntoTheNextSweepsEarlierTimes) {
  AddSteps(1, 0, {{2, 1}, {12, 2}});
  AddSweep(20);
  AddSteps(2, 0, {{3, 1}, {5, 0}, {9, 1}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 0, 0, 2}, Dwell{2, 2, 2, 3}, Dwell{1, 2, 12, 8},
                                   Dwell{2, 0, 0, 3}, Dwell{2, 1, 3, 2}, Dwell{2, 0, 5, 4},
                                   Dwell{2, 1, 9, 11}));
  EXPECT_EQ(Level(1).FirstEvent, 1);
  EXPECT_EQ(Level(1).LastEvent, 3);
}

TEST_F(OpeningsTest, TheWalkEndsAtALaterTimeOfTheNextSweep) {
  AddSteps(1, 0, {{2, 1}, {12, 2}});
  AddSweep(20);
  AddSteps(2, 0, {{13, 1}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 0, 0, 2}, Dwell{1, 2, 2, 10}, Dwell{1, 2, 12, 8},
                                   Dwell{2, 0, 0, 13}, Dwell{2, 1, 13, 7}));
}

TEST_F(OpeningsTest, TheReturnIsLookedForInItsOwnSweepOnly) {
  AddSteps(1, 0, {{2, 1}, {12, 2}});
  AddSweep(20);
  AddSteps(2, 1, {{5, 0}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 0, 0, 2}, Dwell{2, 2, 2, 3}, Dwell{1, 2, 12, 8},
                                   Dwell{2, 1, 0, 5}, Dwell{2, 0, 5, 15}));
}

TEST_F(OpeningsTest, OfEqualLevelsTheLargerAmplitudeIsTaken) {
  AddEvent(1, 2, 0, 1, 1);
  AddEvent(1, 4, 1, 2.0, 2);
  AddEvent(1, 5, 2.0, 1, 1);
  AddEvent(1, 6, 1, 2.5, 2);
  AddEvent(1, 7, 2.5, 1, 1);
  AddEvent(1, 8, 1, 2.25, 2);
  AddEvent(1, 9, 2.25, 0, 0);
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 0, 0, 2}, Dwell{1, 2, 2, 7}, Dwell{1, 0, 9, 11}));
  EXPECT_EQ(Level(1).PostAmplitude, 2.5);
}

TEST_F(OpeningsTest, AHigherLevelIsTakenWithASmallerAmplitude) {
  AddEvent(1, 2, 0, 1, 1);
  AddEvent(1, 4, 1, 5, 2);
  AddEvent(1, 5, 5, 3, 3);
  AddEvent(1, 9, 3, 0, 0);
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 0, 0, 2}, Dwell{1, 3, 2, 7}, Dwell{1, 0, 9, 11}));
  EXPECT_EQ(Level(1).PostAmplitude, 3);
}

TEST_F(OpeningsTest, ALowerLevelIsNotTakenForItsLargerAmplitude) {
  AddEvent(1, 2, 0, 1, 1);
  AddEvent(1, 4, 1, 3, 3);
  AddEvent(1, 5, 3, 1, 1);
  AddEvent(1, 6, 1, 5, 2);
  AddEvent(1, 9, 5, 0, 0);
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 0, 0, 2}, Dwell{1, 3, 2, 7}, Dwell{1, 0, 9, 11}));
  EXPECT_EQ(Level(1).PostAmplitude, 3);
}

TEST_F(OpeningsTest, ALargerAmplitudeCountsOnlyOnAStepAwayFromTheBase) {
  AddEvent(1, 2, 0, 1, 1);
  AddEvent(1, 4, 1, 2, 2);
  AddEvent(1, 5, 2, 4, 2);
  AddEvent(1, 9, 4, 0, 0);
  Build();
  EXPECT_EQ(Level(1).PostAmplitude, 2);
}

TEST_F(OpeningsTest, AHigherLevelOnTheOtherSideOfTheBaseIsTakenOnlyFartherFromIt) {
  AddSteps(1, 0, {{2, -1}, {4, -3}, {6, 2}, {9, 0}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 0, 0, 2}, Dwell{1, -1, 2, 7}, Dwell{1, 0, 9, 11}));
  workspace().Events.Index[2]->Level = 4;
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 0, 0, 2}, Dwell{1, 4, 2, 7}, Dwell{1, 0, 9, 11}));
}

TEST_F(OpeningsTest, BelowTheBaseALevelStaysAsItBegan) {
  AddSteps(1, 0, {{2, -1}, {4, -2}, {6, -3}, {9, 0}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 0, 0, 2}, Dwell{1, -1, 2, 7}, Dwell{1, 0, 9, 11}));
  EXPECT_EQ(Level(1).PostAmplitude, -1);
}

TEST_F(OpeningsTest, BoundsLieAroundTheBaseLevel) {
  workspace().Levels.BaseLevel = 3;
  AddSteps(1, 3, {{2, 4}, {4, 3}, {5, 2}, {6, 3}, {8, 4}, {9, 5}, {12, 3}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 3, 0, 2}, Dwell{1, 4, 2, 2}, Dwell{1, 3, 4, 1},
                                   Dwell{1, 2, 5, 1}, Dwell{1, 3, 6, 2}, Dwell{1, 5, 8, 4},
                                   Dwell{1, 3, 12, 8}));
}

TEST_F(OpeningsTest, AnOpeningWithoutLengthGivesNoLevel) {
  AddSteps(1, 0, {{2, 1}, {2, 2}, {2, 0}, {6, 1}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 0, 0, 2}, Dwell{1, 0, 2, 4}, Dwell{1, 1, 6, 14}));
  EXPECT_EQ(Level(1).PreAmplitude, 0) << "that of the newest level, which stands at the base";
}

TEST_F(OpeningsTest, TheNewestLevelMayBeOneOfTheSweepBefore) {
  AddEvent(1, 5, 0, 9, 1);
  AddSweep(20);
  AddSteps(2, 0, {{0, 1}, {0, 2}, {0, 0}, {6, 1}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 0, 0, 5}, Dwell{1, 1, 5, 15}, Dwell{2, 0, 0, 6},
                                   Dwell{2, 1, 6, 14}));
  EXPECT_EQ(Level(2).PreAmplitude, 9);
}

TEST_F(OpeningsTest, WithoutANewestLevelTheReturnKeepsItsOwnPreAmplitude) {
  AddSteps(1, 0, {{0, 1}, {0, 2}, {0, 0}, {6, 1}});
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 0, 0, 6}, Dwell{1, 1, 6, 14}));
  EXPECT_EQ(Level(0).PreAmplitude, 2);
}

TEST_F(OpeningsTest, EventsKeepTheirAmplitudes) {
  AddSteps(1, 0, {{2, 1}, {4, 2}, {6, 1}, {9, 0}});
  Build();
  EXPECT_EQ(workspace().Events.Index[3]->PreAmplitude, 1);
}

TEST_F(OpeningsTest, AFullTableEndsWithTheCollapsedLevel) {
  Allocate(5, 1);
  AddSweep(20);
  AddSteps(1, 0, {{2, 1}, {4, 2}, {9, 0}, {11, 1}});
  workspace().Levels.Capacity = 2;
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 0, 0, 2}, Dwell{1, 2, 2, 7}));
  workspace().Levels.Capacity = 1;
  EXPECT_THAT(Build(), ElementsAre(Dwell{1, 0, 0, 2}));
  EXPECT_THAT(Messages(), IsEmpty());
}

}  // namespace
}  // namespace ondrel
