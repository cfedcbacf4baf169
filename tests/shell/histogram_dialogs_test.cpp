#include "shell/histogram_dialogs.h"

#include <gmock/gmock.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "support/dialog_rows_test.h"

namespace ondrel {
namespace {

Edges AxisMinimum() {
  return {{"-8000", "8000", "8e3"}, {"-8000.01", "8000.01", "-8000.000001", "1e308", "", "-"}};
}

DialogRows AmplitudeScaling() {
  return {
      .Name = "AmplitudeScaling",
      .Command = 53250,
      .Resource = 125,
      .Edits =
          {
              {5, ONDREL_SETTING(Amplitude.Minimum), -1.23456, "-1.23", "0.125", 0.125,
               AxisMinimum()},
              {7, ONDREL_SETTING(Amplitude.PerTick), 2.34567, "2.35", "0.5", 0.5, AboveZero()},
              {9, ONDREL_SETTING(Amplitude.TickMarks), 3, "3", "4", 4, FromTwo()},
              {11, ONDREL_SETTING(Amplitude.BinsPerTick), 6, "6", "5", 5, FromOne()},
              {16, ONDREL_SETTING(Amplitude.CountsPerTick), 7, "7", "8", 8, FromOne()},
              {18, ONDREL_SETTING(Amplitude.MinimumTicks), 9, "9", "10", 10, FromTwo()},
          },
      .Radios = {{13, 14, ONDREL_SETTING(Amplitude.SquareRootAxis)}},
      .Repainted = {ViewKind::Amplitude, ViewKind::AmplitudeFit},
  };
}

DialogRows DurationScaling() {
  return {
      .Name = "DurationScaling",
      .Command = 53506,
      .Resource = 126,
      .Edits =
          {
              {5, ONDREL_SETTING(Duration.MinimumExponent), -4, "-4", "-2", -2, AnyWhole()},
              {7, ONDREL_SETTING(Duration.Decades), 3, "3", "4", 4, FromOne()},
              {9, ONDREL_SETTING(Duration.TicksPerDecade), 6, "6", "5", 5, FromOne()},
              {11, ONDREL_SETTING(Duration.BinsPerDecade), 12, "12", "11", 11, FromOne()},
              {17, ONDREL_SETTING(Duration.CountsPerTick), 7, "7", "8", 8, FromOne()},
              {19, ONDREL_SETTING(Duration.MinimumTicks), 9, "9", "10", 10, FromTwo()},
          },
      .Checks = {{15, ONDREL_SETTING(Duration.ConstrainPositive)}},
      .Radios = {{13, 14, ONDREL_SETTING(Duration.SquareRootAxis)}},
      .Repainted = {ViewKind::Duration, ViewKind::DurationFit},
  };
}

DialogRows Correction() {
  return {.Name = "Correction",
          .Command = 53508,
          .Resource = 132,
          .Edits = {{4, ONDREL_SETTING(Duration.FilterFrequency), 1234.5678, "1234.57", "2000.125",
                     2000.125, AboveZero()}},
          .Repainted = {ViewKind::Duration, ViewKind::DurationFit}};
}

const std::vector<std::string> kFits = {"Component", "Sum", "Both"};
const std::vector<std::string> kBars = {"Filled", "Outlined", "Rectangles"};

DialogRows AmplitudeStyle() {
  return {.Name = "AmplitudeStyle",
          .Command = 53251,
          .Resource = 136,
          .Lists = {{5, ONDREL_SETTING(Amplitude.FitStyle), kFits},
                    {4, ONDREL_SETTING(Amplitude.HistogramStyle), kBars}},
          .Checks = {{7, ONDREL_SETTING(Amplitude.ShowAxes)},
                     {8, ONDREL_SETTING(Amplitude.ShowLabels)}},
          .Repainted = {ViewKind::Amplitude}};
}

DialogRows DurationStyle() {
  return {
      .Name = "DurationStyle",
      .Command = 53507,
      .Resource = 136,
      .Lists = {{5, ONDREL_SETTING(Duration.FitStyle), kFits},
                {4, ONDREL_SETTING(Duration.HistogramStyle), kBars}},
      .Checks = {{7, ONDREL_SETTING(Duration.ShowAxes)}, {8, ONDREL_SETTING(Duration.ShowLabels)}},
      .Repainted = {ViewKind::Duration}};
}

DialogRows AmplitudeFitSettings() {
  return {.Name = "AmplitudeFitSettings",
          .Command = 53253,
          .Resource = 127,
          .Edits = {{4, ONDREL_SETTING(Amplitude.FitTolerance), 0.000123456789, "1.2346E-04",
                     "2.5e-7", 2.5e-7, AnyNumber()},
                    {6, ONDREL_SETTING(Amplitude.FitIterations), 30, "30", "1", 1, FromOne()}},
          .Repainted = {}};
}

DialogRows DurationFitSettings() {
  return {.Name = "DurationFitSettings",
          .Command = 53510,
          .Resource = 127,
          .Edits = {{4, ONDREL_SETTING(Duration.FitTolerance), 0.000123456789, "1.2346E-04",
                     "2.5e-7", 2.5e-7, AnyNumber()},
                    {6, ONDREL_SETTING(Duration.FitIterations), 30, "30", "1", 1, FromOne()}},
          .Repainted = {}};
}

std::vector<DialogRows> HistogramDialogs() {
  return {AmplitudeScaling(), DurationScaling(),      Correction(),         AmplitudeStyle(),
          DurationStyle(),    AmplitudeFitSettings(), DurationFitSettings()};
}

class HistogramDialogsTest : public DialogRowsTest {
 protected:
  HistogramDialogsTest() : DialogRowsTest(HistogramDialogs()) {}
};

TEST_P(HistogramDialogsTest, TheFieldsShowTheSettings) {
  ExpectShown();
}

TEST_P(HistogramDialogsTest, EachFieldIsStoredInItsOwnSetting) {
  ExpectEachStored();
}

TEST_P(HistogramDialogsTest, NumbersAreTakenUpToTheirEdges) {
  ExpectEdgesJudged();
}

TEST_P(HistogramDialogsTest, CancelAndEscapeChangeNothing) {
  ExpectCancelChangesNothing();
}

TEST_P(HistogramDialogsTest, OkRepaintsItsViewsAlone) {
  ExpectRepainted();
}

TEST_P(HistogramDialogsTest, OkWithoutAChangeKeepsEverySettingToTheLastDigit) {
  ExpectUnchangedKeepsAllDigits();
}

INSTANTIATE_TEST_SUITE_P(Of, HistogramDialogsTest, ::testing::ValuesIn(HistogramDialogs()), NameOf);

// --- What is counted anew ------------------------------------------------------------------------

/// The selected levels are openings of 20 and 30 ms with a gap of 10 ms between, of 2 pA each.
class HistogramSettingsTest : public AllViewsTest {
 protected:
  using Script = std::function<void(scripted::OpenDialog&)>;

  void RunDialog(CommandId command, const Script& script) {
    Forget();
    shell().DialogScripts.push_back(script);
    Choose(command);
  }
};

TEST_F(HistogramSettingsTest, NewScalesCountTheAmplitudesAnew) {
  RunWithAllViews([&] {
    const AmplitudeHistogram& histogram = workspace().Amplitude;
    ASSERT_EQ(histogram.EventsInHistogram, 3);
    RunDialog(53250, [](scripted::OpenDialog& dialog) {
      dialog.Type(5, "1.25");
      dialog.Type(7, "0.5");
      dialog.Type(9, "3");
      dialog.Type(11, "1");
      dialog.Press(14);
      dialog.Press(kOk);
    });
    // From 1.25 by 0.5 pA: 2 pA lie in the second of three bins.
    EXPECT_EQ(histogram.Bins[1].Count, 0);
    EXPECT_EQ(histogram.Bins[2].Count, 3);
    EXPECT_EQ(histogram.Bins[3].Count, 0);
    EXPECT_DOUBLE_EQ(histogram.YMaximum * histogram.YMaximum, 3.0) << "a square root axis";
    EXPECT_DOUBLE_EQ(histogram.PixelsPerBin / histogram.PixelsPerPa, 0.5)
        << "laid out before any paint";
  });
}

TEST_F(HistogramSettingsTest, NewScalesCountTheDurationsAnew) {
  RunWithAllViews([&] {
    const DurationHistogram& histogram = workspace().Duration;
    RunDialog(53506, [](scripted::OpenDialog& dialog) {
      dialog.Type(5, "-3");
      dialog.Type(7, "2");
      dialog.Type(11, "4");
      dialog.Press(14);
      dialog.Press(kOk);
    });
    // Decades from 1 ms: 10 ms open bin 5, 20 ms lie in bin 6 above 17.8, 30 ms still below 31.6.
    const double counts[] = {histogram.Bins[4].Count + histogram.Bins[5].Count + 0.0,
                             histogram.Bins[6].Count + 0.0, histogram.Bins[7].Count + 0.0};
    EXPECT_EQ(counts[0], 1.0);
    EXPECT_EQ(counts[1], 2.0);
    EXPECT_EQ(counts[2], 0.0);
    EXPECT_DOUBLE_EQ(histogram.YMaximum * histogram.YMaximum, 2.0) << "a square root axis";
    EXPECT_DOUBLE_EQ(histogram.PixelsPerBin / histogram.PixelsPerDecade, 0.25)
        << "laid out before any paint";
  });
}

/// A filter of 10 Hz excludes bins that begin below 16.7 ms.
TEST_F(HistogramSettingsTest, ANewCorrectionCountsTheDurationsAnew) {
  RunWithAllViews([&] {
    DurationHistogram& histogram = workspace().Duration;
    histogram.MinimumExponent = -2;
    histogram.Decades = 1;
    histogram.BinsPerDecade = 1;
    RunDialog(53508, [](scripted::OpenDialog& dialog) { dialog.Press(kOk); });
    EXPECT_EQ(histogram.Bins[1].Count, 3);
    EXPECT_EQ(histogram.Bins[1].Flags, 0u);
    RunDialog(53508, [](scripted::OpenDialog& dialog) {
      dialog.Type(4, "10");
      dialog.Press(kOk);
    });
    EXPECT_EQ(histogram.Bins[1].Count, 0);
    EXPECT_EQ(histogram.Bins[1].Flags, kExcludedBin);
    EXPECT_EQ(histogram.EventsInHistogram, 0);
  });
}

TEST_F(HistogramSettingsTest, AClosedHistogramIsCountedWithoutALayout) {
  RunWithAllViews([&] {
    for (const ViewKind kind : {ViewKind::Amplitude, ViewKind::Duration}) {
      View(kind).Window->Callbacks->Close(View(kind).Window);
    }
    const double pixels = workspace().Amplitude.PixelsPerTick;
    RunDialog(53250, [](scripted::OpenDialog& dialog) {
      dialog.Type(9, "50");
      dialog.Press(kOk);
    });
    RunDialog(53506, [](scripted::OpenDialog& dialog) {
      dialog.Type(5, "3");
      dialog.Press(kOk);
    });
    EXPECT_EQ(workspace().Amplitude.TickMarks, 50);
    EXPECT_EQ(workspace().Amplitude.PixelsPerTick, pixels);
    EXPECT_EQ(workspace().Duration.Bins[0].Count, 3) << "all levels end before 1000 s";
  });
}

TEST_F(HistogramSettingsTest, StylesAndFitSettingsCountNothing) {
  RunWithAllViews([&] {
    workspace().Amplitude.EventsInHistogram = 777;
    workspace().Duration.EventsInHistogram = 778;
    for (const CommandId id : std::initializer_list<CommandId>{53251, 53253, 53507, 53510}) {
      RunDialog(id, [](scripted::OpenDialog& dialog) { dialog.Press(kOk); });
    }
    EXPECT_EQ(workspace().Amplitude.EventsInHistogram, 777);
    EXPECT_EQ(workspace().Duration.EventsInHistogram, 778);
  });
}

TEST_F(HistogramSettingsTest, AScalingCountsItsOwnHistogramOnly) {
  RunWithAllViews([&] {
    const auto ok = [](scripted::OpenDialog& dialog) { dialog.Press(kOk); };
    workspace().Amplitude.EventsInHistogram = 777;
    workspace().Duration.EventsInHistogram = 778;
    RunDialog(53250, ok);
    EXPECT_EQ(workspace().Amplitude.EventsInHistogram, 3);
    EXPECT_EQ(workspace().Duration.EventsInHistogram, 778);
    workspace().Amplitude.EventsInHistogram = 777;
    RunDialog(53506, ok);
    EXPECT_EQ(workspace().Amplitude.EventsInHistogram, 777);
    EXPECT_EQ(workspace().Duration.EventsInHistogram, 3);
  });
}

TEST_F(HistogramSettingsTest, OtherViewsAreRefreshedByScalesButNotByStyles) {
  struct Row {
    CommandId Command;
    bool RefreshesAll;
  };
  constexpr Row kRows[] = {{53250, true},  {53506, true},  {53508, true}, {53251, false},
                           {53507, false}, {53253, false}, {53510, false}};
  RunWithAllViews([&] {
    for (const Row& row : kRows) {
      View(ViewKind::Sweep).NeedsRebuild = true;
      RunDialog(row.Command, [](scripted::OpenDialog& dialog) { dialog.Press(kOk); });
      EXPECT_EQ(View(ViewKind::Sweep).NeedsRebuild, !row.RefreshesAll) << row.Command;
    }
  });
}

TEST_F(HistogramSettingsTest, AToleranceOfZeroIsAccepted) {
  RunWithAllViews([&] {
    for (const CommandId id : std::initializer_list<CommandId>{53253, 53510}) {
      RunDialog(id, [](scripted::OpenDialog& dialog) {
        dialog.Type(4, "0.0");
        EXPECT_TRUE(dialog.At(kOk).Enabled);
        dialog.Press(kOk);
      });
    }
    EXPECT_EQ(workspace().Amplitude.FitTolerance, 0.0);
    EXPECT_EQ(workspace().Duration.FitTolerance, 0.0);
    RunDialog(53253,
              [](scripted::OpenDialog& dialog) { EXPECT_EQ(dialog.At(4).Text, "0.0000E+00"); });
  });
}

TEST_F(HistogramSettingsTest, ADefaultToleranceIsShownInScientificNotation) {
  RunWithAllViews([&] {
    RunDialog(53510, [](scripted::OpenDialog& dialog) {
      EXPECT_EQ(dialog.At(4).Text, "1.0000E-04");
      EXPECT_EQ(dialog.At(6).Text, "20");
    });
  });
}

TEST_F(HistogramSettingsTest, TheScaleOfWidthBarsPassesThroughUnchanged) {
  RunWithAllViews([&] {
    workspace().Amplitude.CurveScale = 1.25;
    RunDialog(53250, [](scripted::OpenDialog& dialog) {
      dialog.Type(20, "3");
      EXPECT_TRUE(dialog.At(kOk).Enabled);
      dialog.Press(kOk);
    });
    EXPECT_EQ(workspace().Amplitude.CurveScale, 1.25);
  });
}

TEST_F(HistogramSettingsTest, ClosedFitViewsStayClosed) {
  RunWithAllViews([&] {
    for (const ViewKind kind : {ViewKind::AmplitudeFit, ViewKind::DurationFit}) {
      View(kind).Window->Callbacks->Close(View(kind).Window);
    }
    const auto ok = [](scripted::OpenDialog& dialog) { dialog.Press(kOk); };
    RunDialog(53250, ok);
    EXPECT_EQ(Repainted(), TitlesOf({ViewKind::Amplitude}));
    RunDialog(53508, ok);
    EXPECT_EQ(Repainted(), TitlesOf({ViewKind::Duration}));
    EXPECT_EQ(View(ViewKind::DurationFit).Window, nullptr);
  });
}

}  // namespace
}  // namespace ondrel
