#include "derived/derived_chain.h"

#include <gmock/gmock.h>

#include <set>
#include <string>

#include "derived/recording_fixture.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Views = std::set<ViewKind>;

/// Two sweeps of four levels each: 0, 1, 0, 1, with durations 2, 1, 4, 3 and 2, 1, 4, 33.
class DerivedChainTest : public RecordingTest {
 protected:
  DerivedChainTest() {
    AddSweep(10).TagValue = 1;
    AddSweep(40).TagValue = 2;
    AddSteps(1, 0, {{2, 1}, {3, 0}, {7, 1}});
    AddSteps(2, 0, {{2, 1}, {3, 0}, {7, 1}});
  }

  Views Marked() {
    Views marked;
    for (std::size_t view = 0; view < kViewCount; ++view) {
      if (workspace().Views[view].NeedsRebuild) marked.insert(static_cast<ViewKind>(view));
    }
    return marked;
  }

  LevelFilter& Own() { return workspace().Levels.LevelSelection; }
  SweepTable& Sweeps() { return workspace().Sweeps; }
  StatisticsTable& Statistics() { return workspace().Statistics; }
  double ShortestSweep() { return workspace().Stationarity.ShortestSweep; }

  void KeepSweepsOfTag(double tag) {
    Sweeps().TagChoice = Selection::Include;
    Sweeps().TagLow = Sweeps().TagHigh = tag;
  }
};

const Views kAfterLevels = {ViewKind::Level,      ViewKind::Amplitude,   ViewKind::AmplitudeFit,
                            ViewKind::Duration,   ViewKind::DurationFit, ViewKind::Scatter,
                            ViewKind::Statistics, ViewKind::Stationarity};

Views With(Views views, std::initializer_list<ViewKind> more) {
  views.insert(more);
  return views;
}

// --- Reading --------------------------------------------------------------------------------

TEST_F(DerivedChainTest, AfterReadingLevelsStandWithTheFlagsOfAllFilters) {
  KeepSweepsOfTag(1);
  DeriveAfterReading(workspace());
  EXPECT_THAT(LevelFlags(), ElementsAre(0x40, 0, 0, 0x40, 0x242, 0x302, 0x302, 0x142));
  EXPECT_EQ(Sweeps().SelectedCount, 1);
  EXPECT_EQ(ShortestSweep(), 10);
}

TEST_F(DerivedChainTest, ReadingLeavesTheStatisticsAndTheViewsToTheFileCommand) {
  DeriveAfterReading(workspace());
  EXPECT_EQ(Statistics().Rows, nullptr);
  EXPECT_THAT(Marked(), IsEmpty());
}

TEST_F(DerivedChainTest, ReadingAnotherFileKeepsWhatTookEarlierSweepsOut) {
  Sweeps().Index[0]->SelectionFlags = 0x4;
  DeriveAfterReading(workspace());
  EXPECT_EQ(Sweeps().Index[0]->SelectionFlags, 0x4u);
  EXPECT_EQ(ShortestSweep(), 40);
}

TEST_F(DerivedChainTest, OpeningAddsTheStatistics) {
  DeriveAfterReading(workspace());
  DeriveAfterOpening(workspace());
  EXPECT_EQ(Statistics().TotalEvents, 4);
  EXPECT_THAT(Marked(), IsEmpty());
}

TEST_F(DerivedChainTest, AddingAddsTheStatistics) {
  DeriveAfterReading(workspace());
  DeriveAfterAdding(workspace());
  EXPECT_EQ(Statistics().TotalEvents, 4);
  EXPECT_THAT(Marked(), IsEmpty());
}

// --- Events settings and tags ---------------------------------------------------------------

TEST_F(DerivedChainTest, ChangedEventsSettingsRebuildLevelsTheirFlagsAndTheStatistics) {
  DeriveAfterReading(workspace());
  workspace().Levels.Range = LevelRange::Sweep;
  workspace().Events.AmplitudeMode = LevelAmplitude::Absolute;
  DeriveAfterLevelSettings(workspace());
  EXPECT_THAT(LevelFlags(), ElementsAre(0x40, 0, 0, 0x40, 0x40, 0, 0, 0x40));
  ASSERT_EQ(Statistics().RowCount, 2);
  EXPECT_EQ(Statistics().Rows[0].Events, 2);
  EXPECT_EQ(Statistics().Rows[0].AmplitudeMean, 0);
  EXPECT_EQ(Statistics().Rows[1].AmplitudeMean, 1);
}

TEST_F(DerivedChainTest, ARebuildOfLevelsDoesNotRunTheSweepFilterAgain) {
  DeriveAfterReading(workspace());
  Sweeps().Index[0]->SelectionFlags = 0x4;
  KeepSweepsOfTag(1);
  DeriveAfterLevelSettings(workspace());
  EXPECT_EQ(Sweeps().Index[0]->SelectionFlags, 0x4u);
  EXPECT_EQ(Sweeps().Index[1]->SelectionFlags, 0u);
  EXPECT_EQ(Sweeps().SelectedCount, 2);
  EXPECT_EQ(ShortestSweep(), 10);
  EXPECT_THAT(LevelFlags(), ElementsAre(0x242, 0x302, 0x302, 0x142, 0x40, 0, 0, 0x40));
}

TEST_F(DerivedChainTest, ChangedEventsSettingsLeaveTheValueScattersAndTheSweepViewAlone) {
  DeriveAfterLevelSettings(workspace());
  EXPECT_EQ(Marked(), kAfterLevels);
}

TEST_F(DerivedChainTest, TagsSetInEventsReachTheLevelsWithTheTagsOfEvents) {
  workspace().Events.TagSetMode = EventTag::Manual;
  workspace().Events.TagSetValue = 7;
  DeriveAfterReading(workspace());
  DeriveAfterLevelTags(workspace());
  EXPECT_EQ(workspace().Events.Index[0]->TagValue, 7);
  EXPECT_EQ(Level(1).TagValue, 7);
  EXPECT_EQ(Level(2).TagValue, 7);
  EXPECT_EQ(Level(3).TagValue, 0) << "the last level of a sweep is out";
  EXPECT_EQ(Statistics().TotalEvents, 4);
}

TEST_F(DerivedChainTest, TagsSetInEventsDoNotReachLevelsThatCountClosings) {
  workspace().Events.TagSetMode = EventTag::Manual;
  workspace().Events.TagSetValue = 7;
  workspace().Levels.TagSource = LevelTag::ClosingCount;
  DeriveAfterReading(workspace());
  DeriveAfterLevelTags(workspace());
  EXPECT_EQ(workspace().Events.Index[0]->TagValue, 7);
  EXPECT_EQ(Level(1).TagValue, 0);
}

TEST_F(DerivedChainTest, SettingTagsMarksTheEventViewToo) {
  DeriveAfterLevelTags(workspace());
  EXPECT_EQ(Marked(), With(kAfterLevels, {ViewKind::Event}));
}

// --- Filters --------------------------------------------------------------------------------

TEST_F(DerivedChainTest, AChangedLevelFilterStartsFromCleanFlags) {
  DeriveAfterReading(workspace());
  Own().Position = PositionChoice::All;
  Own().LevelChoice = Selection::Include;
  Own().LevelLow = Own().LevelHigh = 1;
  DeriveAfterLevelFilter(workspace());
  EXPECT_THAT(LevelFlags(), ElementsAre(0x10, 0, 0x10, 0, 0x10, 0, 0x10, 0));
  EXPECT_EQ(Statistics().TotalEvents, 4);
  ASSERT_EQ(Statistics().RowCount, 1);
  EXPECT_EQ(Statistics().Rows[0].DurationMax, 33);
}

TEST_F(DerivedChainTest, AChangedLevelFilterKeepsSweepsOut) {
  KeepSweepsOfTag(2);
  DeriveAfterReading(workspace());
  KeepSweepsOfTag(1);
  DeriveAfterLevelFilter(workspace());
  EXPECT_EQ(Sweeps().Index[0]->SelectionFlags, 0x8u);
  EXPECT_EQ(Sweeps().Index[1]->SelectionFlags, 0u);
  EXPECT_THAT(LevelFlags(), ElementsAre(0x242, 0x302, 0x302, 0x142, 0x40, 0, 0, 0x40));
}

TEST_F(DerivedChainTest, AChangedLevelFilterKeepsTheLevels) {
  DeriveAfterReading(workspace());
  workspace().Events.AmplitudeMode = LevelAmplitude::Absolute;
  workspace().Events.Index[0]->PostAmplitude = 99;
  DeriveAfterLevelFilter(workspace());
  EXPECT_EQ(Level(1).Amplitude, 1);
}

TEST_F(DerivedChainTest, AChangedLevelFilterMarksAllButEventsAndSweeps) {
  DeriveAfterLevelFilter(workspace());
  EXPECT_EQ(Marked(), With(kAfterLevels, {ViewKind::AmplitudeScatter, ViewKind::DurationScatter}));
}

TEST_F(DerivedChainTest, AChangedSweepFilterStartsFromCleanFlags) {
  KeepSweepsOfTag(1);
  DeriveAfterReading(workspace());
  KeepSweepsOfTag(2);
  DeriveAfterSweepFilter(workspace());
  EXPECT_EQ(Sweeps().Index[0]->SelectionFlags, 0x8u);
  EXPECT_EQ(Sweeps().Index[1]->SelectionFlags, 0u);
  EXPECT_EQ(Sweeps().SelectedCount, 1);
  EXPECT_EQ(ShortestSweep(), 40);
  EXPECT_THAT(LevelFlags(), ElementsAre(0x242, 0x302, 0x302, 0x142, 0x40, 0, 0, 0x40));
  EXPECT_EQ(Statistics().TotalEvents, 2);
}

TEST_F(DerivedChainTest, AChangedSweepFilterLeavesTheValueScattersAlone) {
  DeriveAfterSweepFilter(workspace());
  EXPECT_EQ(Marked(), With(kAfterLevels, {ViewKind::Sweep}));
}

// --- Reset ----------------------------------------------------------------------------------

void Restrict(LevelFilter& filter) {
  filter = {.AmplitudeChoice = Selection::Include,
            .AmplitudeLow = 11,
            .AmplitudeHigh = 12,
            .DurationChoice = Selection::Exclude,
            .DurationLow = 13,
            .DurationHigh = 14,
            .LevelChoice = Selection::Include,
            .LevelLow = 15,
            .LevelHigh = 16,
            .TagChoice = Selection::Include,
            .TagLow = 17,
            .TagHigh = 18,
            .Position = PositionChoice::Last};
}

void ExpectBoundsOnly(const LevelFilter& filter, PositionChoice position) {
  EXPECT_EQ(filter.AmplitudeChoice, Selection::SelectAll);
  EXPECT_EQ(filter.DurationChoice, Selection::SelectAll);
  EXPECT_EQ(filter.LevelChoice, Selection::SelectAll);
  EXPECT_EQ(filter.TagChoice, Selection::SelectAll);
  EXPECT_EQ(filter.Position, position);
  EXPECT_EQ(filter.AmplitudeLow, 11);
  EXPECT_EQ(filter.AmplitudeHigh, 12);
  EXPECT_EQ(filter.DurationLow, 13);
  EXPECT_EQ(filter.DurationHigh, 14);
  EXPECT_EQ(filter.LevelLow, 15);
  EXPECT_EQ(filter.LevelHigh, 16);
  EXPECT_EQ(filter.TagLow, 17);
  EXPECT_EQ(filter.TagHigh, 18);
}

TEST_F(DerivedChainTest, ResetTurnsAllTestsOfLevelsOffAndKeepsTheirBounds) {
  LevelTable& levels = workspace().Levels;
  Restrict(levels.LevelSelection);
  Restrict(levels.PrecedingSelection);
  Restrict(levels.FollowingSelection);
  ResetFilters(workspace());
  ExpectBoundsOnly(levels.LevelSelection, PositionChoice::AllButFirstAndLast);
  ExpectBoundsOnly(levels.PrecedingSelection, PositionChoice::All);
  ExpectBoundsOnly(levels.FollowingSelection, PositionChoice::All);
}

TEST_F(DerivedChainTest, ResetTurnsAllTestsOfSweepsOffAndKeepsTheirBounds) {
  Sweeps().FileChoice = Sweeps().IndexChoice = Selection::Exclude;
  Sweeps().RelevantChoice = Sweeps().TagChoice = Selection::Include;
  Sweeps().TagLow = 500;
  ResetFilters(workspace());
  EXPECT_EQ(Sweeps().FileChoice, Selection::SelectAll);
  EXPECT_EQ(Sweeps().IndexChoice, Selection::SelectAll);
  EXPECT_EQ(Sweeps().RelevantChoice, Selection::SelectAll);
  EXPECT_EQ(Sweeps().TagChoice, Selection::SelectAll);
  EXPECT_EQ(Sweeps().TagLow, 500);
}

TEST_F(DerivedChainTest, AfterResetOnlyTheFirstAndTheLastLevelOfEverySweepAreOut) {
  KeepSweepsOfTag(2);
  Restrict(workspace().Levels.LevelSelection);
  Restrict(workspace().Levels.PrecedingSelection);
  DeriveAfterReading(workspace());
  ResetFilters(workspace());
  EXPECT_THAT(LevelFlags(), ElementsAre(0x40, 0, 0, 0x40, 0x40, 0, 0, 0x40));
  EXPECT_EQ(Level(1).PrecedingFlags, 0u);
  EXPECT_EQ(Sweeps().SelectedCount, 2);
  EXPECT_EQ(ShortestSweep(), 10);
  EXPECT_EQ(Statistics().TotalEvents, 4);
}

TEST_F(DerivedChainTest, ResetKeepsTheLevels) {
  DeriveAfterReading(workspace());
  workspace().Events.Index[0]->PostAmplitude = 99;
  ResetFilters(workspace());
  EXPECT_EQ(Level(1).Amplitude, 1);
}

TEST_F(DerivedChainTest, ResetMarksAllViewsButThatOfTheEvents) {
  ResetFilters(workspace());
  EXPECT_EQ(Marked(), With(kAfterLevels, {ViewKind::Sweep, ViewKind::AmplitudeScatter,
                                          ViewKind::DurationScatter}));
}

TEST_F(DerivedChainTest, OpeningBuildsTheAmplitudeHistogramAlone) {
  DeriveAfterReading(workspace());
  DeriveAfterOpening(workspace());
  EXPECT_EQ(workspace().Amplitude.EventsInHistogram, Statistics().TotalEvents);
  EXPECT_NE(workspace().Amplitude.Bins, nullptr);
  EXPECT_EQ(workspace().Duration.Bins, nullptr);
}

TEST_F(DerivedChainTest, EveryOtherOccasionBuildsBothHistograms) {
  DeriveAfterReading(workspace());
  for (void (*derive)(Workspace&) :
       {DeriveAfterAdding, DeriveAfterLevelSettings, DeriveAfterLevelTags, DeriveAfterLevelFilter,
        DeriveAfterSweepFilter, ResetFilters}) {
    workspace().Amplitude.EventsInHistogram = -1;
    workspace().Duration.EventsInHistogram = -1;
    derive(workspace());
    EXPECT_EQ(workspace().Amplitude.EventsInHistogram, Statistics().TotalEvents);
    EXPECT_EQ(workspace().Duration.EventsInHistogram, Statistics().TotalEvents);
  }
}

TEST_F(DerivedChainTest, AMarkThatIsSetAlreadyStays) {
  ViewOf(workspace(), ViewKind::Event).NeedsRebuild = true;
  DeriveAfterSweepFilter(workspace());
  EXPECT_TRUE(ViewOf(workspace(), ViewKind::Event).NeedsRebuild);
}

}  // namespace
}  // namespace ondrel
