#include "shell/plot_dialogs.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "support/dialog_rows_test.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::vector<std::string> kValues = {"Level Tag", "Sweep Relevant", "Sweep Tag"};

DialogRows AmplitudeScatterScaling() {
  return {
      .Name = "AmplitudeScatterScaling",
      .Command = 54529,
      .Resource = 133,
      .Edits =
          {
              {6, ONDREL_SETTING(AmplitudeScatter.Minimum), -1.23456, "-1.23", "7.125", 7.125,
               AnyNumber()},
              {8, ONDREL_SETTING(AmplitudeScatter.TickMarks), 3, "3", "4", 4, FromOne()},
              {10, ONDREL_SETTING(AmplitudeScatter.PerTick), 2.34567, "2.35", "0.004", 0.004,
               AboveZero()},
              {13, ONDREL_SETTING(AmplitudeScatter.AmplitudeMinimum), -3.45678e-12, "-3.46", "1.5",
               1.5 * 1e-12, AnyNumber()},
              {15, ONDREL_SETTING(AmplitudeScatter.AmplitudeTicks), 5, "5", "6", 6, FromTwo()},
              {17, ONDREL_SETTING(AmplitudeScatter.PaPerTick), 4.56789, "4.57", "8", 8,
               AboveZero()},
              {19, ONDREL_SETTING(AmplitudeScatter.SymbolSize), 0.12345, "0.12", "0.1", 0.1,
               AboveZero()},
          },
      .Lists = {{4, ONDREL_SETTING(AmplitudeScatter.Value), kValues}},
      .Repainted = {ViewKind::AmplitudeScatter},
  };
}

DialogRows DurationScatterScaling() {
  return {
      .Name = "DurationScatterScaling",
      .Command = 54785,
      .Resource = 135,
      .Edits =
          {
              {6, ONDREL_SETTING(DurationScatter.Minimum), -1.23456, "-1.23", "7.125", 7.125,
               AnyNumber()},
              {8, ONDREL_SETTING(DurationScatter.TickMarks), 3, "3", "4", 4, FromTwo()},
              {10, ONDREL_SETTING(DurationScatter.PerTick), 2.34567, "2.35", "0.004", 0.004,
               AboveZero()},
              {13, ONDREL_SETTING(DurationScatter.MinimumExponent), -6, "-6", "-3", -3, AnyWhole()},
              {15, ONDREL_SETTING(DurationScatter.Decades), 7, "7", "2", 2, FromOne()},
              {17, ONDREL_SETTING(DurationScatter.TicksPerDecade), 8, "8", "9", 9, FromOne()},
              {19, ONDREL_SETTING(DurationScatter.SymbolSize), 0.12345, "0.12", "0.1", 0.1,
               AboveZero()},
          },
      .Lists = {{4, ONDREL_SETTING(DurationScatter.Value), kValues}},
      .Repainted = {ViewKind::DurationScatter},
  };
}

DialogRows ScatterScaling() {
  return {
      .Name = "AmplitudeDurationScaling",
      .Command = 53761,
      .Resource = 130,
      .Edits =
          {
              {5, ONDREL_SETTING(Scatter.MinimumExponent), -6, "-6", "-3", -3, AnyWhole()},
              {7, ONDREL_SETTING(Scatter.Decades), 7, "7", "2", 2, FromOne()},
              {9, ONDREL_SETTING(Scatter.TicksPerDecade), 8, "8", "9", 9, FromOne()},
              {12, ONDREL_SETTING(Scatter.Minimum), -3.45678e-12, "-3.46", "1.5", 1.5 * 1e-12,
               AnyNumber()},
              {14, ONDREL_SETTING(Scatter.Ticks), 5, "5", "6", 6, FromOne()},
              {16, ONDREL_SETTING(Scatter.PaPerTick), 4.56789, "4.57", "8", 8, AboveZero()},
              {18, ONDREL_SETTING(Scatter.SymbolSize), 0.12345, "0.12", "0.1", 0.1, AboveZero()},
          },
      .Repainted = {ViewKind::Scatter},
  };
}

DialogRows AmplitudeScatterStyle() {
  return {.Name = "AmplitudeScatterStyle",
          .Command = 54530,
          .Resource = 137,
          .Checks = {{3, ONDREL_SETTING(AmplitudeScatter.ShowAxes)},
                     {4, ONDREL_SETTING(AmplitudeScatter.ShowLabels)}},
          .Repainted = {ViewKind::AmplitudeScatter}};
}

DialogRows DurationScatterStyle() {
  return {.Name = "DurationScatterStyle",
          .Command = 54786,
          .Resource = 137,
          .Checks = {{3, ONDREL_SETTING(DurationScatter.ShowAxes)},
                     {4, ONDREL_SETTING(DurationScatter.ShowLabels)}},
          .Repainted = {ViewKind::DurationScatter}};
}

DialogRows ScatterStyle() {
  return {
      .Name = "AmplitudeDurationStyle",
      .Command = 53762,
      .Resource = 137,
      .Checks = {{3, ONDREL_SETTING(Scatter.ShowAxes)}, {4, ONDREL_SETTING(Scatter.ShowLabels)}},
      .Repainted = {ViewKind::Scatter}};
}

DialogRows StationarityStyle() {
  return {.Name = "StationarityStyle",
          .Command = 55042,
          .Resource = 141,
          .Checks = {{4, ONDREL_SETTING(Stationarity.ShowAxes)},
                     {5, ONDREL_SETTING(Stationarity.ShowLabels)}},
          .Repainted = {ViewKind::Stationarity}};
}

DialogRows StationaritySettings() {
  return {
      .Name = "StationaritySettings",
      .Command = 55041,
      .Resource = 142,
      .Edits = {{5, ONDREL_SETTING(Stationarity.Tau), 0.0123456, "12.35", "2.5", 2.5 * 0.001,
                 AboveZero()}},
      .Lists = {{3, ONDREL_SETTING(Stationarity.Type), {"1", "Amplitude", "Duration", "Level"}}},
      .Repainted = {ViewKind::Stationarity},
      .ActsUnchanged = false};
}

DialogRows StatisticsSettings() {
  return {
      .Name = "StatisticsSettings",
      .Command = 54017,
      .Resource = 138,
      .Lists = {{3, ONDREL_SETTING(Statistics.Reference), {"Levels", "Relevant Segment", "Sweep"}}},
      .Repainted = {ViewKind::Statistics},
      .ActsUnchanged = false};
}

std::vector<DialogRows> PlotDialogs() {
  return {AmplitudeScatterScaling(), DurationScatterScaling(), ScatterScaling(),
          AmplitudeScatterStyle(),   DurationScatterStyle(),   ScatterStyle(),
          StationarityStyle(),       StationaritySettings(),   StatisticsSettings()};
}

class PlotDialogsTest : public DialogRowsTest {
 protected:
  PlotDialogsTest() : DialogRowsTest(PlotDialogs()) {}
};

TEST_P(PlotDialogsTest, TheFieldsShowTheSettings) {
  ExpectShown();
}

TEST_P(PlotDialogsTest, EachFieldIsStoredInItsOwnSetting) {
  ExpectEachStored();
}

TEST_P(PlotDialogsTest, NumbersAreTakenUpToTheirEdges) {
  ExpectEdgesJudged();
}

TEST_P(PlotDialogsTest, CancelAndEscapeChangeNothing) {
  ExpectCancelChangesNothing();
}

TEST_P(PlotDialogsTest, OkRepaintsItsViewAlone) {
  ExpectRepainted();
}

TEST_P(PlotDialogsTest, OkWithoutAChangeKeepsEverySettingToTheLastDigit) {
  ExpectUnchangedKeepsAllDigits();
}

INSTANTIATE_TEST_SUITE_P(Of, PlotDialogsTest, ::testing::ValuesIn(PlotDialogs()), NameOf);

// --- What the views show then --------------------------------------------------------------------

class PlotSettingsTest : public AllViewsTest {
 protected:
  using Script = std::function<void(scripted::OpenDialog&)>;

  void RunDialog(CommandId command, const Script& script) {
    Forget();
    shell().DialogScripts.push_back(script);
    Choose(command);
  }
};

TEST_F(PlotSettingsTest, ANewScaleMovesTheDots) {
  RunWithAllViews([&] {
    workspace().AmplitudeScatter.SymbolSize = 2.0 * 2.54 / 96.0;
    scripted::WindowOf(View(ViewKind::AmplitudeScatter).Window).Client = {0, 0, 480, 360};
    RunDialog(54529, [](scripted::OpenDialog& dialog) {
      dialog.Choose(4, 1);   // all values are 0
      dialog.Type(6, "-1");  // one tick from the left edge
      dialog.Type(8, "4");   // 90 each
      dialog.Type(10, "1");
      dialog.Type(13, "-2");  // the dots of 2 pA stand 4 pA above the edge
      dialog.Type(15, "6");   // 40 a tick
      dialog.Type(17, "1");
      dialog.Press(kOk);
    });
    // The frame goes from 60 to 420 and from 60 to 300.
    EXPECT_THAT(Dots(ViewKind::AmplitudeScatter),
                ElementsAre("filled rect 149 139 151 141", "filled rect 149 139 151 141",
                            "filled rect 149 139 151 141"));
  });
}

TEST_F(PlotSettingsTest, StationarityRefreshesTheViewsInAnyCase) {
  RunWithAllViews([&] {
    View(ViewKind::Sweep).NeedsRebuild = true;
    RunDialog(55041, [](scripted::OpenDialog& dialog) { dialog.Press(kOk); });
    EXPECT_EQ(Repainted(), TitlesOf({ViewKind::Sweep}));
  });
}

TEST_F(PlotSettingsTest, ACancelledStationarityRefreshesNothing) {
  RunWithAllViews([&] {
    View(ViewKind::Sweep).NeedsRebuild = true;
    RunDialog(55041, [](scripted::OpenDialog& dialog) { dialog.Press(kCancel); });
    EXPECT_TRUE(View(ViewKind::Sweep).NeedsRebuild);
    View(ViewKind::Sweep).NeedsRebuild = false;
    EXPECT_THAT(Repainted(), IsEmpty());
  });
}

TEST_F(PlotSettingsTest, AKernelWhoseWidthVanishesInSecondsIsRefused) {
  RunWithAllViews([&] {
    RunDialog(55041, [](scripted::OpenDialog& dialog) {
      dialog.Type(5, "1e-323");
      EXPECT_FALSE(dialog.At(kOk).Enabled);
      dialog.Type(5, "1e-320");
      EXPECT_TRUE(dialog.At(kOk).Enabled);
    });
  });
}

TEST_F(PlotSettingsTest, TheTypeChangesTheTitleOfTheAxis) {
  RunWithAllViews([&] {
    RunDialog(55041, [](scripted::OpenDialog& dialog) {
      dialog.Choose(3, 2);
      dialog.Press(kOk);
    });
    bool titled = false;
    for (const DrawnText& text :
         TextsIn(scripted::PaintChild(View(ViewKind::Stationarity).Window))) {
      titled |= text.Text == "Duration (s)";
    }
    EXPECT_TRUE(titled);
  });
}

/// Of the sweep of 100 ms the openings last 50 ms and the gap between them 10 ms.
TEST_F(PlotSettingsTest, AnotherReferenceCalculatesTheStatisticsAnew) {
  RunWithAllViews([&] {
    const StatisticsTable& statistics = workspace().Statistics;
    ASSERT_EQ(statistics.RowCount, 2);
    EXPECT_NEAR(statistics.Rows[1].Probability, 0.5, 1e-9) << "of the relevant segment";
    RunDialog(54017, [](scripted::OpenDialog& dialog) {
      EXPECT_EQ(dialog.At(3).Shown, 1);
      dialog.Choose(3, 0);
      dialog.Press(kOk);
    });
    EXPECT_NEAR(statistics.Rows[0].Probability, 1.0 / 6.0, 1e-9);
    EXPECT_NEAR(statistics.Rows[1].Probability, 5.0 / 6.0, 1e-9);
  });
}

TEST_F(PlotSettingsTest, TheSameReferenceDoesNothingAtAll) {
  RunWithAllViews([&] {
    workspace().Statistics.TotalEvents = 777;
    View(ViewKind::Sweep).NeedsRebuild = true;
    RunDialog(54017, [](scripted::OpenDialog& dialog) {
      dialog.Choose(3, 0);
      dialog.Choose(3, 1);
      dialog.Press(kOk);
    });
    EXPECT_EQ(workspace().Statistics.TotalEvents, 777);
    EXPECT_TRUE(View(ViewKind::Sweep).NeedsRebuild) << "no view is refreshed";
    View(ViewKind::Sweep).NeedsRebuild = false;
    EXPECT_THAT(Repainted(), IsEmpty());
  });
}

}  // namespace
}  // namespace ondrel
