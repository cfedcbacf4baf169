// Whole documents of the histograms and of the plot over time, byte for byte.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "shell/amplitude_documents.h"
#include "shell/documents_fixture.h"
#include "shell/duration_documents.h"
#include "shell/mirrored_documents.h"
#include "shell/stationarity_documents.h"

namespace ondrel {
namespace {

/// All elements differ in colour: axes are red, labels green, fits cyan, and data blue.
class GraphExportGraphsTest : public DocumentsTest {
 protected:
  static constexpr RgbColor kRed = {65535, 0, 0};
  static constexpr RgbColor kGreen = {0, 65535, 0};
  static constexpr RgbColor kBlue = {0, 0, 65535};
  static constexpr RgbColor kCyan = {0, 65535, 65535};
  static constexpr RgbColor kWhite = {65535, 65535, 65535};

  // 576 and 288 by 384 device units.
  static constexpr Entries kWide = {.Height = "10.16", .Width = "15.24"};
  static constexpr Entries kNarrow = {.Height = "10.16", .Width = "7.62"};

  GraphExportGraphsTest() {
    for (const ViewKind kind : {ViewKind::Amplitude, ViewKind::Duration}) {
      View(kind).Colors = {kBlue, kCyan, kGreen, kRed, kWhite};
    }
    View(ViewKind::Stationarity).Colors = {kBlue, kGreen, kRed, kWhite};
  }

  /// One bin, four and two of them, and nothing above.
  void ShowAmplitude() {
    FreeLevelTable(workspace().Levels);
    FillLevels(7, [](LevelRecord& level, std::int32_t row) {
      constexpr double kCurrents[] = {-0.3, 0.4, 0.5, 0.6, 0.7, 1.2, 1.5};
      level.Amplitude = kCurrents[row] * 1e-12;
    });
    AmplitudeHistogram& histogram = workspace().Amplitude;
    histogram.Minimum = -0.5;
    histogram.TickMarks = 2;
    histogram.BinsPerTick = 2;
    histogram.PerTick = 1.5;
    histogram.MinimumTicks = 1;
    histogram.CountsPerTick = 3;
    histogram.SquareRootAxis = false;
    histogram.HistogramStyle = HistogramStyle::Filled;
    histogram.FitStyle = FitStyle::Both;
    histogram.CurveScale = 1.5;
    histogram.TermCount = 2;
    histogram.Terms[0] = {.Weight = 0.7, .Current = 0.4, .StdDev = 0.5, .Area = 5.0};
    histogram.Terms[1] = {.Weight = 0.3, .Current = 1.6, .StdDev = 0.3, .Area = 2.0};
    BuildAmplitudeHistogram(workspace());
    OpenInert(ViewKind::AmplitudeFit);
    Show(ViewKind::Amplitude);
  }

  /// One, four, none and two.
  void CountDurations() {
    FreeLevelTable(workspace().Levels);
    FillLevels(7, [](LevelRecord& level, std::int32_t row) {
      constexpr double kSeconds[] = {0.002, 0.004, 0.005, 0.006, 0.007, 0.05, 0.06};
      level.Duration = kSeconds[row];
    });
    DurationHistogram& histogram = workspace().Duration;
    histogram.MinimumExponent = -3;
    histogram.Decades = 2;
    histogram.BinsPerDecade = 2;
    histogram.MinimumTicks = 1;
    histogram.HistogramStyle = HistogramStyle::Outlined;
  }

  void ShowDuration() {
    CountDurations();
    DurationHistogram& histogram = workspace().Duration;
    histogram.TicksPerDecade = 3;
    histogram.CountsPerTick = 1;
    histogram.SquareRootAxis = true;
    histogram.ConstrainPositive = true;
    BuildDurationHistogram(workspace());
    Show(ViewKind::Duration);
  }

  void ShowMirrored() {
    CountDurations();
    DurationHistogram& histogram = workspace().Duration;
    histogram.TicksPerDecade = 2;
    histogram.CountsPerTick = 3;
    histogram.SquareRootAxis = false;
    histogram.ConstrainPositive = false;
    histogram.FitStyle = FitStyle::Component;
    histogram.TermCount = 3;
    histogram.Terms[0] = {.Weight = 0.75, .TimeConstant = 0.005, .Area = 6.0};
    histogram.Terms[1] = {.Weight = -0.25, .TimeConstant = 0.03, .Area = -2.0};
    histogram.Terms[2] = {.Weight = 0.5, .TimeConstant = 0.2, .Area = 4.0};
    BuildDurationHistogram(workspace());
    OpenInert(ViewKind::DurationFit);
    Show(ViewKind::Duration);
  }

  /// The level between is not selected.
  void ShowStationarity() {
    FreeLevelTable(workspace().Levels);
    FillLevels(3, [](LevelRecord& level, std::int32_t row) {
      constexpr double kStarts[] = {0.0, 3.0, 6.5};
      constexpr double kDurations[] = {2.5, 4.0, 2.5};
      constexpr double kAmplitudes[] = {2e-12, 5e-12, 1e-12};
      level.LevelFlags = row == 1 ? 1 : 0;
      level.Transition = kStarts[row];
      level.Duration = kDurations[row];
      level.Amplitude = kAmplitudes[row];
    });
    workspace().Sweeps.SelectedCount = 2;
    StationaritySettings& plot = workspace().Stationarity;
    plot.Type = StationarityType::Amplitude;
    plot.Tau = 1.4;
    plot.ShortestSweep = 9.0;
    Show(ViewKind::Stationarity);
  }
};

TEST_F(GraphExportGraphsTest, AmplitudesWithAFitOfTwoTermsInIllustrator) {
  ShowAmplitude();
  Export(ExportChoice::Illustrator, kWide);
  EXPECT_EQ(OnDisk(), WithLineEnds(kAmplitudeInIllustrator));
}

TEST_F(GraphExportGraphsTest, AmplitudesWithAFitOfTwoTermsInEps) {
  ShowAmplitude();
  Export(ExportChoice::Eps, kWide);
  EXPECT_EQ(OnDisk(), WithLineEnds(kAmplitudeInEps));
}

TEST_F(GraphExportGraphsTest, OutlinedDurationsOnASquareRootAxisInIllustrator) {
  ShowDuration();
  Export(ExportChoice::Illustrator, kWide);
  EXPECT_EQ(OnDisk(), WithLineEnds(kDurationInIllustrator));
}

TEST_F(GraphExportGraphsTest, OutlinedDurationsOnASquareRootAxisInEps) {
  ShowDuration();
  Export(ExportChoice::Eps, kWide);
  EXPECT_EQ(OnDisk(), WithLineEnds(kDurationInEps));
}

TEST_F(GraphExportGraphsTest, DurationsWithRoomForNegativeCountsInIllustrator) {
  ShowMirrored();
  Export(ExportChoice::Illustrator, kWide);
  EXPECT_EQ(OnDisk(), WithLineEnds(kMirroredInIllustrator));
}

TEST_F(GraphExportGraphsTest, DurationsWithRoomForNegativeCountsInEps) {
  ShowMirrored();
  Export(ExportChoice::Eps, kWide);
  EXPECT_EQ(OnDisk(), WithLineEnds(kMirroredInEps));
}

TEST_F(GraphExportGraphsTest, MeanCurrentsOverTimeInIllustrator) {
  ShowStationarity();
  Export(ExportChoice::Illustrator, kNarrow);
  EXPECT_EQ(OnDisk(), WithLineEnds(kStationarityInIllustrator));
}

TEST_F(GraphExportGraphsTest, MeanCurrentsOverTimeInEps) {
  ShowStationarity();
  Export(ExportChoice::Eps, kNarrow);
  EXPECT_EQ(OnDisk(), WithLineEnds(kStationarityInEps));
}

}  // namespace
}  // namespace ondrel
