// What follows from an OK in the dialogs of levels and filters, and when nothing does.
#include <gmock/gmock.h>

#include <functional>
#include <initializer_list>
#include <vector>

#include "support/dialog_rows_test.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The selected levels are openings of 20 and 30 ms with a gap of 10 ms between, of 2 pA each; a
/// closed level before and one behind are cut short by the sweep.
class LevelSettingsTest : public AllViewsTest {
 protected:
  using Script = std::function<void(scripted::OpenDialog&)>;

  void RunDialog(CommandId command, const Script& script) {
    Forget();
    shell().DialogScripts.push_back(script);
    Choose(command);
  }

  std::vector<int> SelectedLevels() {
    std::vector<int> rows;
    for (int row = 0; row < workspace().Levels.Count; ++row) {
      if (workspace().Levels.Index[row]->LevelFlags == 0) rows.push_back(row);
    }
    return rows;
  }

  std::vector<double> EventTags() {
    std::vector<double> tags;
    for (int row = 0; row < workspace().Events.Count; ++row) {
      tags.push_back(workspace().Events.Index[row]->TagValue);
    }
    return tags;
  }

  void ExpectCounted(int selected) {
    EXPECT_EQ(workspace().Amplitude.EventsInHistogram, selected);
    EXPECT_EQ(workspace().Duration.EventsInHistogram, selected);
    EXPECT_EQ(workspace().Statistics.StatisticsEmpty, selected == 0);
    if (selected != 0) {
      EXPECT_EQ(workspace().Statistics.TotalEvents, selected);
    }
  }

  /// Leaves traces that any new derivation wipes out, and a view that any refresh would repaint.
  void ExpectNothingDone(CommandId command, const Script& script) {
    workspace().Levels.Index[1]->LevelFlags = 0x4000;
    workspace().Amplitude.EventsInHistogram = 777;
    workspace().Duration.EventsInHistogram = 778;
    workspace().Statistics.TotalEvents = 779;
    View(ViewKind::Event).NeedsRebuild = true;
    RunDialog(command, script);
    EXPECT_EQ(workspace().Levels.Index[1]->LevelFlags, 0x4000u);
    EXPECT_EQ(workspace().Amplitude.EventsInHistogram, 777);
    EXPECT_EQ(workspace().Duration.EventsInHistogram, 778);
    EXPECT_EQ(workspace().Statistics.TotalEvents, 779);
    EXPECT_TRUE(View(ViewKind::Event).NeedsRebuild) << "no view is refreshed";
    View(ViewKind::Event).NeedsRebuild = false;
    EXPECT_THAT(Repainted(), IsEmpty());
  }
};

TEST_F(LevelSettingsTest, WithoutAChangeNothingAtAllIsDone) {
  RunWithAllViews([&] {
    for (const CommandId id : std::initializer_list<CommandId>{52225, 52228, 52229, 52230, 52231}) {
      ExpectNothingDone(id, [](scripted::OpenDialog& dialog) { dialog.Press(kOk); });
    }
  });
}

TEST_F(LevelSettingsTest, AValueThatGoesAndComesBackIsNoChange) {
  RunWithAllViews([&] {
    ExpectNothingDone(52225, [](scripted::OpenDialog& dialog) {
      dialog.Choose(4, 0);
      dialog.Choose(4, 2);
      dialog.Type(8, "5");
      dialog.Type(8, "0");
      dialog.Press(kOk);
    });
    ExpectNothingDone(52229, [](scripted::OpenDialog& dialog) {
      dialog.Type(10, "4");
      dialog.Type(10, "5");
      dialog.Press(kOk);
    });
  });
}

TEST_F(LevelSettingsTest, ANewBurstResolutionBuildsTheLevelsAnew) {
  RunWithAllViews([&] {
    ASSERT_EQ(workspace().Levels.Count, 5);
    RunDialog(52225, [](scripted::OpenDialog& dialog) {
      dialog.Type(12, "10.1");
      dialog.Press(kOk);
    });
    EXPECT_EQ(workspace().Levels.Count, 3) << "one opening from 10 to 70 ms";
    EXPECT_NEAR(workspace().Levels.Index[1]->Duration, 0.06, 1e-12);
    EXPECT_THAT(SelectedLevels(), ElementsAre(1));
    ExpectCounted(1);
  });
}

TEST_F(LevelSettingsTest, AnotherAmplitudeReachesTheHistogramAndTheStatistics) {
  RunWithAllViews([&] {
    ASSERT_EQ(workspace().Statistics.Rows[0].AmplitudeMean, 2e-12) << "of the gap, as a magnitude";
    RunDialog(52225, [](scripted::OpenDialog& dialog) {
      dialog.Choose(4, 0);
      dialog.Press(kOk);
    });
    EXPECT_EQ(workspace().Statistics.Rows[0].AmplitudeMean, 0.0);
    EXPECT_EQ(workspace().Amplitude.Bins[1].Count, 1) << "at 0 pA";
  });
}

TEST_F(LevelSettingsTest, TheThreeFiltersActOnTheirOwnNeighbour) {
  const auto twentyMilliseconds = [](scripted::OpenDialog& dialog) {
    dialog.Choose(8, 1);
    dialog.Type(9, "15");
    dialog.Type(10, "25");
    dialog.Press(kOk);
  };
  RunWithAllViews([&] {
    RunDialog(52229, twentyMilliseconds);
    EXPECT_THAT(SelectedLevels(), ElementsAre(1));
    // Bins that the range cuts through are out, and so are the amplitudes of other levels.
    EXPECT_EQ(workspace().Amplitude.EventsInHistogram, 1);
    EXPECT_EQ(workspace().Statistics.TotalEvents, 1);
    Choose(command::kResetFilters);
    RunDialog(52230, twentyMilliseconds);
    EXPECT_THAT(SelectedLevels(), ElementsAre(2)) << "behind the one of 20 ms";
    ExpectCounted(1);
    Choose(command::kResetFilters);
    RunDialog(52231, twentyMilliseconds);
    EXPECT_THAT(SelectedLevels(), IsEmpty()) << "the level before it is cut short";
    ExpectCounted(0);
  });
}

TEST_F(LevelSettingsTest, APositionAloneIsAChange) {
  RunWithAllViews([&] {
    RunDialog(52229, [](scripted::OpenDialog& dialog) {
      EXPECT_EQ(dialog.At(20).Shown, 2);
      dialog.Choose(20, 0);
      dialog.Press(kOk);
    });
    EXPECT_THAT(SelectedLevels(), ElementsAre(0, 1, 2, 3, 4));
    ExpectCounted(5);
  });
}

TEST_F(LevelSettingsTest, ExcludingTheSweepTakesOutItsLevelsAndTheShortestSweep) {
  RunWithAllViews([&] {
    ASSERT_EQ(workspace().Stationarity.ShortestSweep, 0.1);
    RunDialog(52228, [](scripted::OpenDialog& dialog) {
      dialog.Choose(16, 2);
      dialog.Press(kOk);
    });
    EXPECT_EQ(workspace().Sweeps.SelectedCount, 0);
    EXPECT_EQ(workspace().Stationarity.ShortestSweep, 0.0);
    EXPECT_THAT(SelectedLevels(), IsEmpty());
    ExpectCounted(0);
    RunDialog(52228, [](scripted::OpenDialog& dialog) {
      dialog.Choose(16, 1);
      dialog.Press(kOk);
    });
    EXPECT_EQ(workspace().Sweeps.SelectedCount, 1);
    EXPECT_EQ(workspace().Stationarity.ShortestSweep, 0.1);
    ExpectCounted(3);
  });
}

TEST_F(LevelSettingsTest, FiveToOneIsStoredAsOneToFive) {
  RunWithAllViews([&] {
    RunDialog(52229, [](scripted::OpenDialog& dialog) {
      for (const int low : {5, 9, 13, 17}) {
        dialog.Type(low, "5");
        dialog.Type(low + 1, "1");
      }
      dialog.Press(kOk);
    });
    const LevelFilter& filter = workspace().Levels.LevelSelection;
    EXPECT_EQ(filter.AmplitudeLow, 1e-12);
    EXPECT_EQ(filter.AmplitudeHigh, 5 * 1e-12);
    EXPECT_EQ(filter.DurationLow, 0.001);
    EXPECT_EQ(filter.DurationHigh, 5 * 0.001);
    EXPECT_EQ(filter.LevelLow, 1);
    EXPECT_EQ(filter.LevelHigh, 5);
    EXPECT_EQ(filter.TagLow, 1.0);
    EXPECT_EQ(filter.TagHigh, 5.0);
    RunDialog(52228, [](scripted::OpenDialog& dialog) {
      for (const int low : {5, 9, 13, 17}) {
        dialog.Type(low, "5");
        dialog.Type(low + 1, "1");
      }
      dialog.Press(kOk);
    });
    const SweepTable& sweeps = workspace().Sweeps;
    EXPECT_EQ(sweeps.FileLow, 1);
    EXPECT_EQ(sweeps.FileHigh, 5);
    EXPECT_EQ(sweeps.RelevantLow, 1.0);
    EXPECT_EQ(sweeps.RelevantHigh, 5.0);
    EXPECT_EQ(sweeps.TagLow, 1.0);
    EXPECT_EQ(sweeps.TagHigh, 5.0);
    EXPECT_EQ(sweeps.IndexLow, 1);
    EXPECT_EQ(sweeps.IndexHigh, 5);
  });
}

// --- Tags ----------------------------------------------------------------------------------------

TEST_F(LevelSettingsTest, AManualTagGoesIntoTheEventsOfTheSelectedLevels) {
  RunWithAllViews([&] {
    RunDialog(52993, [](scripted::OpenDialog& dialog) {
      EXPECT_TRUE(dialog.At(4).Checked);
      dialog.Press(5);
      dialog.Type(6, "7.5");
      dialog.Press(kOk);
    });
    EXPECT_THAT(EventTags(), ElementsAre(7.5, 7.5, 7.5, 0.0)) << "the last level is not selected";
    EXPECT_EQ(workspace().Levels.Index[1]->TagValue, 7.5) << "and back into the levels";
  });
}

TEST_F(LevelSettingsTest, SetActsEachTimeWhetherOrNotTheSettingsChanged) {
  RunWithAllViews([&] {
    workspace().Events.TagSetMode = EventTag::Manual;
    workspace().Events.TagSetValue = 2.0;
    for (int time = 0; time < 2; ++time) {
      workspace().Events.Index[0]->TagValue = 99.0;
      RunDialog(52993, [](scripted::OpenDialog& dialog) { dialog.Press(kOk); });
      EXPECT_THAT(EventTags(), ElementsAre(2.0, 2.0, 2.0, 0.0));
      EXPECT_EQ(Repainted(),
                TitlesOf({ViewKind::Event, ViewKind::Level, ViewKind::Amplitude, ViewKind::Duration,
                          ViewKind::Scatter, ViewKind::Stationarity, ViewKind::Statistics,
                          ViewKind::AmplitudeFit, ViewKind::DurationFit}));
    }
  });
}

TEST_F(LevelSettingsTest, TagsOfLevelsGoIntoTheirEvents) {
  RunWithAllViews([&] {
    workspace().Events.TagSetMode = EventTag::Manual;
    workspace().Events.TagSetValue = 2.0;
    for (int row = 1; row <= 3; ++row) workspace().Levels.Index[row]->TagValue = 10.0 * row;
    RunDialog(52993, [](scripted::OpenDialog& dialog) {
      dialog.Press(4);
      dialog.Press(kOk);
    });
    EXPECT_THAT(EventTags(), ElementsAre(10.0, 20.0, 30.0, 0.0));
  });
}

TEST_F(LevelSettingsTest, ACancelledTagIsNotWritten) {
  RunWithAllViews([&] {
    ExpectNothingDone(52993, [](scripted::OpenDialog& dialog) {
      dialog.Press(5);
      dialog.Type(6, "7.5");
      dialog.Press(kCancel);
    });
    EXPECT_THAT(EventTags(), ElementsAre(0.0, 0.0, 0.0, 0.0));
  });
}

}  // namespace
}  // namespace ondrel
