#include "derived/selection_filters.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "derived/recording_fixture.h"
#include "support/random_seed.h"

namespace ondrel {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// --- Sweeps ---------------------------------------------------------------------------------

class SweepFilterTest : public RecordingTest {
 protected:
  SweepTable& Sweeps() { return workspace().Sweeps; }

  /// Five sweeps of the value 1 to 5 in the field under test.
  template <typename Value>
  void AddFive(Value SweepRecord::*field) {
    for (int value = 1; value <= 5; ++value) {
      SweepRecord& sweep = AddSweep(10);
      sweep.File = 2;
      sweep.Index = 2;
      sweep.*field = static_cast<Value>(value);
    }
  }

  std::vector<std::uint32_t> Filter() {
    ClearSweepFlags(Sweeps());
    ApplySweepFilter(workspace());
    std::vector<std::uint32_t> flags;
    for (std::int32_t row = 0; row < Sweeps().Count; ++row) {
      flags.push_back(Sweeps().Index[row]->SelectionFlags);
    }
    return flags;
  }
};

TEST_F(SweepFilterTest, SelectAllTakesNoSweepOut) {
  AddFive(&SweepRecord::File);
  Sweeps().FileLow = Sweeps().FileHigh = 3;
  EXPECT_THAT(Filter(), Each(0u));
  EXPECT_EQ(Sweeps().SelectedCount, 5);
}

TEST_F(SweepFilterTest, TheFileTestComparesTheFile) {
  AddFive(&SweepRecord::File);
  Sweeps().FileLow = 2;
  Sweeps().FileHigh = 3;
  Sweeps().FileChoice = Selection::Include;
  EXPECT_THAT(Filter(), ElementsAre(0x2, 0, 0, 0x2, 0x2));
  EXPECT_EQ(Sweeps().SelectedCount, 2);
  Sweeps().FileChoice = Selection::Exclude;
  EXPECT_THAT(Filter(), ElementsAre(0, 0x2, 0x2, 0, 0));
  EXPECT_EQ(Sweeps().SelectedCount, 3);
}

TEST_F(SweepFilterTest, TheIndexTestComparesTheNumberInTheFileAndNotTheRow) {
  AddFive(&SweepRecord::Index);
  Sweeps().Index[4]->Index = 1;
  Sweeps().IndexLow = 1;
  Sweeps().IndexHigh = 2;
  Sweeps().IndexChoice = Selection::Include;
  EXPECT_THAT(Filter(), ElementsAre(0, 0, 0x2, 0x2, 0));
  Sweeps().IndexChoice = Selection::Exclude;
  EXPECT_THAT(Filter(), ElementsAre(0x2, 0x2, 0, 0, 0x2));
}

TEST_F(SweepFilterTest, TheRelevantValueTestHasItsOwnBit) {
  AddFive(&SweepRecord::RelevantValue);
  Sweeps().RelevantLow = 2;
  Sweeps().RelevantHigh = 3.5;
  Sweeps().RelevantChoice = Selection::Include;
  EXPECT_THAT(Filter(), ElementsAre(0x4, 0, 0, 0x4, 0x4));
  Sweeps().RelevantChoice = Selection::Exclude;
  EXPECT_THAT(Filter(), ElementsAre(0, 0x4, 0x4, 0, 0));
}

TEST_F(SweepFilterTest, TheTagTestHasItsOwnBit) {
  AddFive(&SweepRecord::TagValue);
  Sweeps().TagLow = -1;
  Sweeps().TagHigh = 3;
  Sweeps().TagChoice = Selection::Include;
  EXPECT_THAT(Filter(), ElementsAre(0, 0, 0, 0x8, 0x8));
  Sweeps().TagChoice = Selection::Exclude;
  EXPECT_THAT(Filter(), ElementsAre(0x8, 0x8, 0x8, 0, 0));
}

TEST_F(SweepFilterTest, TestsAddUp) {
  AddFive(&SweepRecord::TagValue);
  Sweeps().FileChoice = Selection::Exclude;
  Sweeps().IndexChoice = Selection::Exclude;
  Sweeps().RelevantChoice = Selection::Exclude;
  Sweeps().TagChoice = Selection::Include;
  Sweeps().TagLow = Sweeps().TagHigh = 4;
  EXPECT_THAT(Filter(), ElementsAre(0xe, 0xe, 0xe, 0x6, 0xe));
  EXPECT_EQ(Sweeps().SelectedCount, 0);
}

TEST_F(SweepFilterTest, FileAndIndexNumbersBeyondSignedBoundsAreCompared) {
  AddSweep(10).File = 0xffffffff;
  Sweeps().FileChoice = Selection::Include;
  Sweeps().FileLow = 1;
  Sweeps().FileHigh = std::numeric_limits<std::int32_t>::max();
  EXPECT_THAT(Filter(), ElementsAre(0x2));
}

TEST_F(SweepFilterTest, FlagsThatNobodyClearedStayAndCountAsOut) {
  AddFive(&SweepRecord::File);
  Sweeps().Index[2]->SelectionFlags = 0x4;
  ApplySweepFilter(workspace());
  EXPECT_EQ(Sweeps().Index[2]->SelectionFlags, 0x4u);
  EXPECT_EQ(Sweeps().SelectedCount, 4);
}

TEST_F(SweepFilterTest, WithoutSweepsNoneIsSelected) {
  Sweeps().SelectedCount = 3;
  EXPECT_THAT(Filter(), IsEmpty());
  EXPECT_EQ(Sweeps().SelectedCount, 0);
}

// --- The shortest sweep ---------------------------------------------------------------------

class ShortestSweepTest : public SweepFilterTest {
 protected:
  double Shortest(std::initializer_list<double> durations) {
    Sweeps().Count = 0;
    for (const double duration : durations) AddSweep(duration);
    UpdateShortestSweep(workspace());
    return workspace().Stationarity.ShortestSweep;
  }
};

TEST_F(ShortestSweepTest, ItIsTheSmallestDuration) {
  EXPECT_EQ(Shortest({5, 3, 4}), 3);
  EXPECT_EQ(Shortest({3, 4, 5}), 3);
}

TEST_F(ShortestSweepTest, AZeroDurationInTheLastRowMakesItZero) {
  EXPECT_EQ(Shortest({5, 3, 0}), 0);
}

TEST_F(ShortestSweepTest, AnyLaterDurationReplacesAZero) {
  EXPECT_EQ(Shortest({5, 0, 7}), 7);
  EXPECT_EQ(Shortest({0, 7, 5}), 5);
}

TEST_F(ShortestSweepTest, SweepsThatAreOutDoNotCount) {
  Shortest({3, 5, 4});
  Sweeps().Index[0]->SelectionFlags = 0x8;
  UpdateShortestSweep(workspace());
  EXPECT_EQ(workspace().Stationarity.ShortestSweep, 4);
}

TEST_F(ShortestSweepTest, ItIsZeroWhenNoSweepIsSelected) {
  EXPECT_EQ(Shortest({}), 0);
  Shortest({3});
  Sweeps().Index[0]->SelectionFlags = 0x8;
  UpdateShortestSweep(workspace());
  EXPECT_EQ(workspace().Stationarity.ShortestSweep, 0);
}

// --- From sweeps to levels ------------------------------------------------------------------

class PropagateTest : public RecordingTest {};

TEST_F(PropagateTest, LevelsOfASweepThatIsOutAreOutInAllThreeWords) {
  AddSweep(10);
  AddSweep(10).SelectionFlags = 0x8;
  AddLevel(1, 1);
  AddLevel(2, 1).LevelFlags = 0x40;
  PropagateSweepFlags(workspace());
  EXPECT_EQ(Level(0).LevelFlags, 0u);
  EXPECT_EQ(Level(0).PrecedingFlags, 0u);
  EXPECT_EQ(Level(0).FollowingFlags, 0u);
  EXPECT_EQ(Level(1).LevelFlags, 0x42u);
  EXPECT_EQ(Level(1).PrecedingFlags, 0x2u);
  EXPECT_EQ(Level(1).FollowingFlags, 0x2u);
}

TEST_F(PropagateTest, ALevelWhoseSweepHasNoRowEndsIt) {
  AddSweep(10).SelectionFlags = 0x2;
  AddLevel(1, 1);
  AddLevel(2, 1);
  AddLevel(1, 1);
  PropagateSweepFlags(workspace());
  EXPECT_THAT(LevelFlags(), ElementsAre(0x2, 0, 0));
  AddLevel(0, 1);
  PropagateSweepFlags(workspace());
  EXPECT_THAT(LevelFlags(), ElementsAre(0x2, 0, 0, 0));
}

// --- One selection --------------------------------------------------------------------------

class LevelFilterTest : public RecordingTest {
 protected:
  LevelFilterTest() { Own().Position = PositionChoice::All; }

  LevelFilter& Own() { return workspace().Levels.LevelSelection; }
  LevelFilter& Preceding() { return workspace().Levels.PrecedingSelection; }
  LevelFilter& Following() { return workspace().Levels.FollowingSelection; }

  std::vector<std::uint32_t> Filter() {
    ClearLevelFlags(workspace().Levels);
    ApplyLevelFilters(workspace());
    return LevelFlags();
  }
};

TEST_F(LevelFilterTest, BothBoundsOfTheAmplitudeAreInside) {
  for (const double amplitude : {0.9, 1.0, 1.5, 2.0, 2.1}) AddLevel(1, 1, amplitude);
  Own().AmplitudeLow = 1;
  Own().AmplitudeHigh = 2;
  Own().AmplitudeChoice = Selection::Include;
  EXPECT_THAT(Filter(), ElementsAre(0x4, 0, 0, 0, 0x4));
  Own().AmplitudeChoice = Selection::Exclude;
  EXPECT_THAT(Filter(), ElementsAre(0, 0x4, 0x4, 0x4, 0));
}

TEST_F(LevelFilterTest, ARangeOfOneExactValueKeepsThatValueOrDropsIt) {
  for (const double amplitude : {1.5, 1.25, 1.5}) AddLevel(1, 1, amplitude);
  Own().AmplitudeLow = 1.25;
  Own().AmplitudeHigh = 1.25;
  Own().AmplitudeChoice = Selection::Include;
  EXPECT_THAT(Filter(), ElementsAre(0x4, 0, 0x4));
  Own().AmplitudeChoice = Selection::Exclude;
  EXPECT_THAT(Filter(), ElementsAre(0, 0x4, 0));
}

TEST_F(LevelFilterTest, TheDurationTestHasItsOwnBit) {
  for (const double duration : {1.0, 2.0, 3.0, 4.0}) AddLevel(1, 1, 0, duration);
  Own().DurationLow = 2;
  Own().DurationHigh = 3;
  Own().DurationChoice = Selection::Include;
  EXPECT_THAT(Filter(), ElementsAre(0x8, 0, 0, 0x8));
  Own().DurationChoice = Selection::Exclude;
  EXPECT_THAT(Filter(), ElementsAre(0, 0x8, 0x8, 0));
}

TEST_F(LevelFilterTest, TheLevelTestComparesWholeNumbers) {
  for (const std::int32_t number : {-1, 0, 1, 2}) AddLevel(1, number);
  Own().LevelLow = 0;
  Own().LevelHigh = 1;
  Own().LevelChoice = Selection::Include;
  EXPECT_THAT(Filter(), ElementsAre(0x10, 0, 0, 0x10));
  Own().LevelChoice = Selection::Exclude;
  EXPECT_THAT(Filter(), ElementsAre(0, 0x10, 0x10, 0));
}

TEST_F(LevelFilterTest, TheTagTestHasItsOwnBit) {
  for (const double tag : {-2.0, -1.0, 0.0, 1.0}) AddLevel(1, 1, 0, 1, tag);
  Own().TagLow = -1;
  Own().TagHigh = 0;
  Own().TagChoice = Selection::Include;
  EXPECT_THAT(Filter(), ElementsAre(0x20, 0, 0, 0x20));
  Own().TagChoice = Selection::Exclude;
  EXPECT_THAT(Filter(), ElementsAre(0, 0x20, 0x20, 0));
}

TEST_F(LevelFilterTest, TestsAddUpAndKeepFlagsThatAreThere) {
  AddLevel(1, 9, 9, 9, 9);
  Own().AmplitudeChoice = Own().DurationChoice = Own().LevelChoice = Own().TagChoice =
      Selection::Include;
  Own().TagHigh = 5;
  Own().Position = PositionChoice::AllButFirst;
  workspace().Levels.Index[0]->LevelFlags = 0x2;
  ApplyLevelFilters(workspace());
  EXPECT_THAT(LevelFlags(), ElementsAre(0x2 | 0x4 | 0x8 | 0x10 | 0x20 | 0x40));
}

TEST_F(LevelFilterTest, NotANumberIsNeitherOutsideNorInsideARange) {
  AddLevel(1, 1, std::numeric_limits<double>::quiet_NaN());
  Own().AmplitudeChoice = Selection::Include;
  EXPECT_THAT(Filter(), ElementsAre(0));
  Own().AmplitudeChoice = Selection::Exclude;
  EXPECT_THAT(Filter(), ElementsAre(0));
}

TEST_F(LevelFilterTest, ByDefaultTheFirstAndTheLastLevelOfASweepAreOut) {
  workspace().Levels.LevelSelection = LevelTable{}.LevelSelection;
  for (const std::uint32_t sweep : {1u, 1u, 1u, 2u, 3u, 3u, 3u, 3u}) AddLevel(sweep, 1);
  EXPECT_THAT(Filter(), ElementsAre(0x40, 0, 0x40, 0x40, 0x40, 0, 0, 0x40));
}

struct PositionCase {
  PositionChoice Position;
  std::vector<std::uint32_t> Flags;  // of sweeps of three, one and two levels
};

TEST_F(LevelFilterTest, PositionPicksLevelsByTheirPlaceInTheirSweep) {
  for (const std::uint32_t sweep : {1u, 1u, 1u, 2u, 3u, 3u}) AddLevel(sweep, 1);
  const PositionCase cases[] = {
      {PositionChoice::All, {0, 0, 0, 0, 0, 0}},
      {PositionChoice::AllButFirst, {0x40, 0, 0, 0x40, 0x40, 0}},
      {PositionChoice::AllButFirstAndLast, {0x40, 0, 0x40, 0x40, 0x40, 0x40}},
      {PositionChoice::AllButLast, {0, 0, 0x40, 0x40, 0, 0x40}},
      {PositionChoice::First, {0, 0x40, 0x40, 0, 0, 0x40}},
      {PositionChoice::FirstAndLast, {0, 0x40, 0, 0, 0, 0}},
      {PositionChoice::Last, {0x40, 0x40, 0, 0, 0x40, 0}},
  };
  for (const PositionCase& each : cases) {
    Own().Position = each.Position;
    EXPECT_EQ(Filter(), each.Flags) << static_cast<int>(each.Position);
  }
}

TEST_F(LevelFilterTest, TheOnlyLevelOfATableIsTakenOutByAllThatLeaveAnEdgeOut) {
  AddLevel(1, 1);
  for (const PositionChoice position : {PositionChoice::AllButFirst, PositionChoice::AllButLast,
                                        PositionChoice::AllButFirstAndLast}) {
    Own().Position = position;
    EXPECT_THAT(Filter(), ElementsAre(0x40)) << static_cast<int>(position);
  }
}

TEST_F(LevelFilterTest, TheOnlyLevelOfASweepIsKeptAsItsFirstAndItsLast) {
  AddLevel(1, 1);
  for (const PositionChoice position :
       {PositionChoice::First, PositionChoice::Last, PositionChoice::FirstAndLast}) {
    Own().Position = position;
    EXPECT_THAT(Filter(), ElementsAre(0)) << static_cast<int>(position);
  }
}

TEST_F(LevelFilterTest, AnEmptyTableIsLeftAsItIs) {
  Preceding().LevelChoice = Following().LevelChoice = Selection::Include;
  LevelRecord& beyond = *workspace().Levels.Index[0];
  PropagateSweepFlags(workspace());
  ApplyLevelFilters(workspace());
  EXPECT_EQ(beyond.LevelFlags, 0u);
  FreeAllTables(workspace());
  PropagateSweepFlags(workspace());
  ApplyLevelFilters(workspace());
}

TEST_F(LevelFilterTest, EachSelectionHasItsOwnWord) {
  AddLevel(1, 1);
  Own().LevelChoice = Preceding().LevelChoice = Following().LevelChoice = Selection::Include;
  Own().LevelLow = Own().LevelHigh = 2;
  Preceding().Position = PositionChoice::AllButFirst;
  Following().AmplitudeChoice = Selection::Exclude;
  EXPECT_THAT(Filter(), ElementsAre(0x10));
  EXPECT_EQ(Level(0).PrecedingFlags, 0x40u);
  EXPECT_EQ(Level(0).FollowingFlags, 0x4u);
}

// --- The neighbour rule ---------------------------------------------------------------------

TEST_F(LevelFilterTest, ALevelGoesWhenTheOneBeforeItFailsThePrecedingSelection) {
  for (const std::int32_t number : {1, 0, 1, 2, 1}) AddLevel(1, number);
  Preceding().LevelChoice = Selection::Include;
  Preceding().LevelLow = Preceding().LevelHigh = 0;
  EXPECT_THAT(Filter(), ElementsAre(0, 0x100, 0, 0x100, 0x100));
}

TEST_F(LevelFilterTest, TheFirstLevelOfASweepGoesWhenItPassesThePrecedingSelectionItself) {
  for (const std::int32_t number : {0, 0}) AddLevel(1, number);
  for (const std::int32_t number : {0, 0}) AddLevel(2, number);
  for (const std::int32_t number : {1, 0}) AddLevel(3, number);
  Preceding().LevelChoice = Selection::Include;
  Preceding().LevelLow = Preceding().LevelHigh = 0;
  EXPECT_THAT(Filter(), ElementsAre(0x100, 0, 0x100, 0, 0, 0x100));
}

TEST_F(LevelFilterTest, ALevelGoesWhenTheOneAfterItFailsTheFollowingSelection) {
  for (const std::int32_t number : {1, 0, 1, 2, 1}) AddLevel(1, number);
  Following().LevelChoice = Selection::Include;
  Following().LevelLow = Following().LevelHigh = 0;
  EXPECT_THAT(Filter(), ElementsAre(0, 0x200, 0x200, 0x200, 0));
}

TEST_F(LevelFilterTest, TheLastLevelOfASweepGoesWhenItPassesTheFollowingSelectionItself) {
  for (const std::int32_t number : {0, 0}) AddLevel(1, number);
  for (const std::int32_t number : {0, 1}) AddLevel(2, number);
  for (const std::int32_t number : {0, 0}) AddLevel(3, number);
  Following().LevelChoice = Selection::Include;
  Following().LevelLow = Following().LevelHigh = 0;
  EXPECT_THAT(Filter(), ElementsAre(0, 0x200, 0x200, 0, 0, 0x200));
}

TEST_F(LevelFilterTest, APositionAloneMakesANeighbourSelectionActive) {
  for (int count = 0; count < 3; ++count) AddLevel(1, 1);
  Preceding().Position = PositionChoice::AllButLast;
  EXPECT_THAT(Filter(), ElementsAre(0x100, 0, 0));
  Preceding().Position = PositionChoice::All;
  Following().Position = PositionChoice::AllButFirst;
  EXPECT_THAT(Filter(), ElementsAre(0, 0, 0x200));
}

TEST_F(LevelFilterTest, InactiveNeighbourSelectionsChangeNoLevelsSelection) {
  AddSweep(10);
  AddSweep(10).SelectionFlags = 0x2;
  AddSweep(10);
  for (const std::uint32_t sweep : {1u, 1u, 2u, 2u, 2u, 3u, 3u}) AddLevel(sweep, 1);
  PropagateSweepFlags(workspace());
  ApplyLevelFilters(workspace());
  EXPECT_THAT(LevelFlags(), ElementsAre(0, 0, 0x202, 0x302, 0x102, 0, 0));
}

TEST_F(LevelFilterTest, ALevelOfAnExcludedSweepIsOutWhateverItsSelectionSays) {
  AddSweep(10).SelectionFlags = 0x8;
  AddLevel(1, 1);
  Own().LevelChoice = Selection::Include;
  PropagateSweepFlags(workspace());
  ApplyLevelFilters(workspace());
  EXPECT_THAT(LevelFlags(), ElementsAre(0x2));
}

TEST_F(LevelFilterTest, TheEdgeOfAnExcludedSweepDoesNotPassTheNeighbourSelection) {
  AddSweep(10).SelectionFlags = 0x8;
  AddLevel(1, 1);
  Preceding().LevelChoice = Following().LevelChoice = Selection::Include;
  PropagateSweepFlags(workspace());
  ApplyLevelFilters(workspace());
  EXPECT_THAT(LevelFlags(), ElementsAre(0x2));
}

/// The rule told level by level.
std::uint32_t NeighbourFlags(const LevelTable& levels, std::int32_t row, bool precedingActive,
                             bool followingActive) {
  const LevelRecord& level = *levels.Index[row];
  std::uint32_t flags = 0;
  const bool hasBefore = row > 0 && levels.Index[row - 1]->Sweep == level.Sweep;
  const bool hasAfter = row + 1 < levels.Count && levels.Index[row + 1]->Sweep == level.Sweep;
  if (hasBefore ? levels.Index[row - 1]->PrecedingFlags != 0
                : precedingActive && level.PrecedingFlags == 0) {
    flags |= 0x100;
  }
  if (hasAfter ? levels.Index[row + 1]->FollowingFlags != 0
               : followingActive && level.FollowingFlags == 0) {
    flags |= 0x200;
  }
  return flags;
}

TEST_F(LevelFilterTest, TheNeighbourRuleHoldsForEveryLevelOfRandomTables) {
  for (unsigned round = 0; round < 300; ++round) {
    SCOPED_TRACE("ONDREL_SEED=" + std::to_string(RandomSeed()) + ", round " +
                 std::to_string(round));
    std::mt19937_64 random(RandomSeed() + round);
    const auto pick = [&](int low, int high) {
      return std::uniform_int_distribution<int>(low, high)(random);
    };
    workspace().Levels.Count = 0;
    for (int count = pick(1, 40), sweep = 1; count > 0; --count) {
      sweep += pick(0, 3) == 0;
      AddLevel(static_cast<std::uint32_t>(sweep), pick(-1, 2));
    }
    Preceding().LevelChoice = static_cast<Selection>(pick(0, 2));
    Preceding().LevelLow = pick(-1, 2);
    Preceding().LevelHigh = pick(-1, 2);
    Following().LevelChoice = static_cast<Selection>(pick(0, 2));
    Following().Position = static_cast<PositionChoice>(pick(0, 6));
    const std::vector<std::uint32_t> flags = Filter();
    for (std::int32_t row = 0; row < workspace().Levels.Count; ++row) {
      ASSERT_EQ(
          flags[static_cast<std::size_t>(row)],
          NeighbourFlags(workspace().Levels, row, Preceding().LevelChoice != Selection::SelectAll,
                         Following().LevelChoice != Selection::SelectAll ||
                             Following().Position != PositionChoice::All))
          << row;
    }
  }
}

}  // namespace
}  // namespace ondrel
