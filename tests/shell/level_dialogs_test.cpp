#include "shell/level_dialogs.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "support/dialog_rows_test.h"

namespace ondrel {
namespace {

const std::vector<ViewKind> kAfterEvents = {
    ViewKind::Level,        ViewKind::Amplitude,  ViewKind::Duration,     ViewKind::Scatter,
    ViewKind::Stationarity, ViewKind::Statistics, ViewKind::AmplitudeFit, ViewKind::DurationFit};
const std::vector<ViewKind> kAfterTags = {
    ViewKind::Event,      ViewKind::Level,        ViewKind::Amplitude,
    ViewKind::Duration,   ViewKind::Scatter,      ViewKind::Stationarity,
    ViewKind::Statistics, ViewKind::AmplitudeFit, ViewKind::DurationFit};
const std::vector<ViewKind> kAfterLevelFilter = {
    ViewKind::Level,           ViewKind::Amplitude,
    ViewKind::Duration,        ViewKind::AmplitudeScatter,
    ViewKind::DurationScatter, ViewKind::Scatter,
    ViewKind::Stationarity,    ViewKind::Statistics,
    ViewKind::AmplitudeFit,    ViewKind::DurationFit};
const std::vector<ViewKind> kAfterSweepFilter = {
    ViewKind::Level,        ViewKind::Amplitude,    ViewKind::Duration,
    ViewKind::Scatter,      ViewKind::Stationarity, ViewKind::Statistics,
    ViewKind::AmplitudeFit, ViewKind::DurationFit,  ViewKind::Sweep};

const std::vector<std::string> kChoices = {"Select All", "Include", "Exclude"};

const std::vector<std::string> kPositions = {
    "All", "All But First", "All But First And Last", "All But Last", "First", "First And Last",
    "Last"};

DialogRows Events() {
  return {
      .Name = "Events",
      .Command = 52225,
      .Resource = 123,
      .Edits =
          {
              {8, ONDREL_SETTING(Levels.InstrumentDelay), -0.00123456, "-1.235", "0.25",
               0.25 * 0.001, AnyNumber()},
              {12, ONDREL_SETTING(Events.BurstResolution), 0.0000123456, "0.012", "0.5",
               0.5 * 0.001, ZeroAndUp()},
              {14, ONDREL_SETTING(Levels.BaseLevel), -3, "-3", "1", 1, AnyWhole()},
          },
      .Lists =
          {
              {4, ONDREL_SETTING(Events.AmplitudeMode), {"Absolute", "Delta", "Delta Magnitude"}},
              {5, ONDREL_SETTING(Levels.Range), {"Relevant Segment", "Sweep"}},
              {6, ONDREL_SETTING(Levels.TagSource), {"Closing count", "Event"}},
              {10, ONDREL_SETTING(Levels.MultipleOpenings), {"Fragments", "Highest"}},
          },
      .Repainted = kAfterEvents,
      .ActsUnchanged = false,
  };
}

#define ONDREL_LEVEL_FILTER(title, command, filter)                                               \
  DialogRows {                                                                                    \
    .Name = title, .Command = command, .Resource = 124,                                           \
    .Edits =                                                                                      \
        {                                                                                         \
            {5, ONDREL_SETTING(filter.AmplitudeLow), -3.45678e-12, "-3.46", "-4.5", -4.5 * 1e-12, \
             AnyNumber()},                                                                        \
            {6, ONDREL_SETTING(filter.AmplitudeHigh), 5.67891e-12, "5.68", "6.5", 6.5 * 1e-12,    \
             AnyNumber()},                                                                        \
            {9, ONDREL_SETTING(filter.DurationLow), 0.00123456, "1.235", "0.5", 0.5 * 0.001,      \
             ZeroAndUp()},                                                                        \
            {10, ONDREL_SETTING(filter.DurationHigh), 0.0234567, "23.457", "25", 25 * 0.001,      \
             ZeroAndUp()},                                                                        \
            {13, ONDREL_SETTING(filter.LevelLow), -2, "-2", "-1", -1, AnyWhole()},                \
            {14, ONDREL_SETTING(filter.LevelHigh), 2, "2", "4", 4, AnyWhole()},                   \
            {17, ONDREL_SETTING(filter.TagLow), -1.23456, "-1.23", "-2.5", -2.5, AnyNumber()},    \
            {18, ONDREL_SETTING(filter.TagHigh), 9.87654, "9.88", "10.5", 10.5, AnyNumber()},     \
        },                                                                                        \
    .Lists =                                                                                      \
        {                                                                                         \
            {4, ONDREL_SETTING(filter.AmplitudeChoice), kChoices},                                \
            {8, ONDREL_SETTING(filter.DurationChoice), kChoices},                                 \
            {12, ONDREL_SETTING(filter.LevelChoice), kChoices},                                   \
            {16, ONDREL_SETTING(filter.TagChoice), kChoices},                                     \
            {20, ONDREL_SETTING(filter.Position), kPositions},                                    \
        },                                                                                        \
    .Repainted = kAfterLevelFilter, .ActsUnchanged = false                                        \
  }

DialogRows SweepFilter() {
  return {
      .Name = "Sweeps",
      .Command = 52228,
      .Resource = 134,
      .Edits =
          {
              {5, ONDREL_SETTING(Sweeps.FileLow), 2, "2", "1", 1, FromOne()},
              {6, ONDREL_SETTING(Sweeps.FileHigh), 5, "5", "6", 6, FromOne()},
              {9, ONDREL_SETTING(Sweeps.RelevantLow), -1.23456, "-1.23", "-2.5", -2.5, AnyNumber()},
              {10, ONDREL_SETTING(Sweeps.RelevantHigh), 9.87654, "9.88", "10.5", 10.5, AnyNumber()},
              {13, ONDREL_SETTING(Sweeps.TagLow), -2.34567, "-2.35", "-3.5", -3.5, AnyNumber()},
              {14, ONDREL_SETTING(Sweeps.TagHigh), 8.76543, "8.77", "11.5", 11.5, AnyNumber()},
              {17, ONDREL_SETTING(Sweeps.IndexLow), 3, "3", "2", 2, FromOne()},
              {18, ONDREL_SETTING(Sweeps.IndexHigh), 7, "7", "8", 8, FromOne()},
          },
      .Lists =
          {
              {4, ONDREL_SETTING(Sweeps.FileChoice), kChoices},
              {8, ONDREL_SETTING(Sweeps.RelevantChoice), kChoices},
              {12, ONDREL_SETTING(Sweeps.TagChoice), kChoices},
              {16, ONDREL_SETTING(Sweeps.IndexChoice), kChoices},
          },
      .Repainted = kAfterSweepFilter,
      .ActsUnchanged = false,
  };
}

DialogRows LevelTags() {
  return {.Name = "LevelTagValue",
          .Command = 52993,
          .Resource = 143,
          .Edits = {{6, ONDREL_SETTING(Events.TagSetValue), -1.23456, "-1.23", "4.5", 4.5,
                     AnyNumber()}},
          .Radios = {{4, 5, ONDREL_SETTING(Events.TagSetMode)}},
          .Repainted = kAfterTags};
}

std::vector<DialogRows> LevelDialogs() {
  return {Events(),
          ONDREL_LEVEL_FILTER("Level", 52229, Levels.LevelSelection),
          ONDREL_LEVEL_FILTER("Preceding", 52230, Levels.PrecedingSelection),
          ONDREL_LEVEL_FILTER("Following", 52231, Levels.FollowingSelection),
          SweepFilter(),
          LevelTags()};
}

class LevelDialogsTest : public DialogRowsTest {
 protected:
  LevelDialogsTest() : DialogRowsTest(LevelDialogs()) {}
};

TEST_P(LevelDialogsTest, TheFieldsShowTheSettings) {
  ExpectShown();
}

TEST_P(LevelDialogsTest, EachFieldIsStoredInItsOwnSetting) {
  ExpectEachStored();
}

TEST_P(LevelDialogsTest, NumbersAreTakenUpToTheirEdges) {
  ExpectEdgesJudged();
}

TEST_P(LevelDialogsTest, CancelAndEscapeChangeNothing) {
  ExpectCancelChangesNothing();
}

TEST_P(LevelDialogsTest, OkWithAChangeRepaintsWhatFollowsFromIt) {
  ExpectRepainted();
}

TEST_P(LevelDialogsTest, OkWithoutAChangeKeepsEverySettingToTheLastDigit) {
  ExpectUnchangedKeepsAllDigits();
}

INSTANTIATE_TEST_SUITE_P(Of, LevelDialogsTest, ::testing::ValuesIn(LevelDialogs()), NameOf);

}  // namespace
}  // namespace ondrel
