// What a reset gives each setting, held against the values written out here.
#include <cstring>

#include "support/shell_test.h"

namespace ondrel {
namespace {

/// Fills every setting with something that no default is.
class ResetWorkspaceTest : public ShellTest, public ::testing::WithParamInterface<int> {
 protected:
  ResetWorkspaceTest() {
    Spoil(workspace().Events);
    Spoil(workspace().Levels);
    Spoil(workspace().Sweeps);
    Spoil(workspace().Files);
    Spoil(workspace().Amplitude);
    Spoil(workspace().Duration);
    Spoil(workspace().Scatter);
    Spoil(workspace().AmplitudeScatter);
    Spoil(workspace().DurationScatter);
    Spoil(workspace().Stationarity);
    workspace().Statistics.Reference = StatisticsReference::Sweep;
    SpoilGeneral();
    // Tables are not allocated when a reset is asked for.
    Empty(workspace().Events);
    Empty(workspace().Levels);
    Empty(workspace().Sweeps);
    Empty(workspace().Files);
    workspace().Amplitude.Bins = nullptr;
    workspace().Amplitude.Edges = nullptr;
    workspace().Duration.Bins = nullptr;
    workspace().Duration.Edges = nullptr;
    workspace().Stationarity.StationaritySamples = nullptr;
    workspace().Stationarity.SampleCount = 0;
    shell().Ticks = 4711;
    ResetWorkspace(workspace());
  }

 private:
  /// With 1: true flags, other places in lists and no sensible numbers; with 0: false flags.
  template <typename Record>
  static void Spoil(Record& record) {
    std::memset(static_cast<void*>(&record), GetParam(), sizeof record);
  }

  template <typename Table>
  static void Empty(Table& table) {
    table.Records = nullptr;
    table.Index = nullptr;
    table.Count = 0;
  }

  void SpoilGeneral() {
    workspace().SkipStartupDialog = true;
    workspace().LineSearchLimit = 1;
    workspace().ClickKind = ClickChoice::SecondOfDouble;
    workspace().LimitToWindow = false;
    workspace().FontSize = 1;
    workspace().PenSize = 1.0;
    workspace().LevelFileType = LevelFileChoice::Qub;
    workspace().ExportType = ExportChoice::Metafile;
    workspace().TextExportType = TextExportChoice::Igor;
    workspace().FrameRect = {1, 2, 3, 4};
    workspace().FrameShow = WindowPlacement::Minimized;
    workspace().Closing = true;
    workspace().ExportDpi = 300.0;
  }
};

TEST_P(ResetWorkspaceTest, General) {
  EXPECT_FALSE(workspace().SkipStartupDialog);
  EXPECT_EQ(workspace().LastClickTime, 4711u);
  EXPECT_EQ(workspace().LineSearchLimit, 20);
  EXPECT_EQ(workspace().ClickKind, ClickChoice::Single);
  EXPECT_TRUE(workspace().LimitToWindow);
  EXPECT_EQ(workspace().FontSize, 10);
  EXPECT_EQ(workspace().PenSize, 0.25);
  EXPECT_EQ(workspace().LevelFileType, LevelFileChoice::Ond);
  EXPECT_EQ(workspace().ExportType, ExportChoice::Illustrator);
  EXPECT_EQ(workspace().TextExportType, TextExportChoice::Excel);
  EXPECT_EQ(workspace().FrameRect, IntRect());
  EXPECT_EQ(workspace().FrameShow, WindowPlacement::Normal);
  EXPECT_FALSE(workspace().Closing);
  EXPECT_EQ(workspace().ExportDpi, 0.0);
}

TEST_P(ResetWorkspaceTest, Events) {
  const EventTable& events = workspace().Events;
  EXPECT_EQ(events.AmplitudeMode, LevelAmplitude::DeltaMagnitude);
  EXPECT_EQ(events.BurstResolution, 0.0);
  EXPECT_EQ(events.TagSetMode, EventTag::LevelTagValue);
  EXPECT_EQ(events.TagSetValue, 0.0);
  EXPECT_EQ(events.Capacity, 8000);
}

void ExpectDefaults(const LevelFilter& filter, PositionChoice position) {
  EXPECT_EQ(filter.AmplitudeChoice, Selection::SelectAll);
  EXPECT_EQ(filter.AmplitudeLow, 0.0);
  EXPECT_EQ(filter.AmplitudeHigh, 5e-12);
  EXPECT_EQ(filter.DurationChoice, Selection::SelectAll);
  EXPECT_EQ(filter.DurationLow, 0.0);
  EXPECT_EQ(filter.DurationHigh, 0.005);
  EXPECT_EQ(filter.LevelChoice, Selection::SelectAll);
  EXPECT_EQ(filter.LevelLow, 1);
  EXPECT_EQ(filter.LevelHigh, 3);
  EXPECT_EQ(filter.TagChoice, Selection::SelectAll);
  EXPECT_EQ(filter.TagLow, 0.0);
  EXPECT_EQ(filter.TagHigh, 1000.0);
  EXPECT_EQ(filter.Position, position);
}

TEST_P(ResetWorkspaceTest, Levels) {
  const LevelTable& levels = workspace().Levels;
  EXPECT_EQ(levels.Capacity, 8000);
  EXPECT_EQ(levels.MultipleOpenings, OpeningRule::Highest);
  EXPECT_EQ(levels.BaseLevel, 0);
  EXPECT_EQ(levels.Range, LevelRange::RelevantSegment);
  EXPECT_EQ(levels.InstrumentDelay, 0.0);
  EXPECT_EQ(levels.TagSource, LevelTag::Event);
  ExpectDefaults(levels.LevelSelection, PositionChoice::AllButFirstAndLast);
  ExpectDefaults(levels.PrecedingSelection, PositionChoice::All);
  ExpectDefaults(levels.FollowingSelection, PositionChoice::All);
}

TEST_P(ResetWorkspaceTest, Sweeps) {
  const SweepTable& sweeps = workspace().Sweeps;
  EXPECT_EQ(sweeps.Capacity, 1000);
  EXPECT_EQ(sweeps.FileChoice, Selection::SelectAll);
  EXPECT_EQ(sweeps.FileLow, 1);
  EXPECT_EQ(sweeps.FileHigh, 3);
  EXPECT_EQ(sweeps.RelevantChoice, Selection::SelectAll);
  EXPECT_EQ(sweeps.RelevantLow, 0.0);
  EXPECT_EQ(sweeps.RelevantHigh, 1000.0);
  EXPECT_EQ(sweeps.TagChoice, Selection::SelectAll);
  EXPECT_EQ(sweeps.TagLow, 0.0);
  EXPECT_EQ(sweeps.TagHigh, 1000.0);
  EXPECT_EQ(sweeps.IndexChoice, Selection::SelectAll);
  EXPECT_EQ(sweeps.IndexLow, 1);
  EXPECT_EQ(sweeps.IndexHigh, 1000);
  EXPECT_EQ(workspace().Files.Capacity, 100);
}

TEST_P(ResetWorkspaceTest, TheAmplitudeHistogram) {
  const AmplitudeHistogram& histogram = workspace().Amplitude;
  EXPECT_EQ(histogram.Minimum, 0.0);
  EXPECT_EQ(histogram.TickMarks, 5);
  EXPECT_EQ(histogram.BinsPerTick, 20);
  EXPECT_EQ(histogram.PerTick, 1.0);
  EXPECT_EQ(histogram.MinimumTicks, 2);
  EXPECT_EQ(histogram.CountsPerTick, 100);
  EXPECT_FALSE(histogram.SquareRootAxis);
  EXPECT_EQ(histogram.FitTolerance, 0.0001);
  EXPECT_EQ(histogram.FitIterations, 20);
  EXPECT_EQ(histogram.TermCount, 1);
  EXPECT_EQ(histogram.Terms[0].Weight, 0.0);
  EXPECT_EQ(histogram.Terms[0].Current, 1.0);
  EXPECT_EQ(histogram.Terms[0].StdDev, 1.0);
  EXPECT_EQ(histogram.Terms[0].Area, 0.0);
  EXPECT_EQ(histogram.Terms.size(), 100u);
  EXPECT_EQ(histogram.MarkerCount, 1);
  EXPECT_EQ(histogram.CurveScale, 1.0);
  EXPECT_EQ(histogram.FitStyle, FitStyle::Sum);
  EXPECT_EQ(histogram.HistogramStyle, HistogramStyle::Filled);
  EXPECT_TRUE(histogram.ShowAxes);
  EXPECT_TRUE(histogram.ShowLabels);
}

TEST_P(ResetWorkspaceTest, TheDurationHistogram) {
  const DurationHistogram& histogram = workspace().Duration;
  EXPECT_EQ(histogram.MinimumExponent, -5);
  EXPECT_EQ(histogram.Decades, 5);
  EXPECT_EQ(histogram.BinsPerDecade, 20);
  EXPECT_EQ(histogram.TicksPerDecade, 5);
  EXPECT_EQ(histogram.MinimumTicks, 2);
  EXPECT_EQ(histogram.CountsPerTick, 10);
  EXPECT_FALSE(histogram.SquareRootAxis);
  EXPECT_EQ(histogram.FilterFrequency, 5000.0);
  EXPECT_EQ(histogram.FitTolerance, 0.0001);
  EXPECT_EQ(histogram.FitIterations, 20);
  EXPECT_EQ(histogram.TermCount, 1);
  EXPECT_EQ(histogram.Terms[0].Weight, 0.0);
  EXPECT_EQ(histogram.Terms[0].TimeConstant, 0.0001);
  EXPECT_EQ(histogram.Terms[0].Area, 0.0);
  EXPECT_EQ(histogram.Terms.size(), 100u);
  EXPECT_EQ(histogram.MarkerCount, 1);
  EXPECT_FALSE(histogram.ConstrainPositive);
  EXPECT_EQ(histogram.FitStyle, FitStyle::Sum);
  EXPECT_EQ(histogram.HistogramStyle, HistogramStyle::Filled);
  EXPECT_TRUE(histogram.ShowAxes);
  EXPECT_TRUE(histogram.ShowLabels);
}

TEST_P(ResetWorkspaceTest, TheScatterPlots) {
  const ScatterSettings& both = workspace().Scatter;
  EXPECT_EQ(both.MinimumExponent, -5);
  EXPECT_EQ(both.Decades, 5);
  EXPECT_EQ(both.TicksPerDecade, 10);
  EXPECT_EQ(both.Minimum, 0.0);
  EXPECT_EQ(both.Ticks, 4);
  EXPECT_EQ(both.PaPerTick, 1.0);
  EXPECT_EQ(both.SymbolSize, 0.08);
  EXPECT_TRUE(both.ShowAxes && both.ShowLabels);

  const AmplitudeScatterSettings& amplitude = workspace().AmplitudeScatter;
  EXPECT_EQ(amplitude.Value, ScatterValue::SweepRelevant);
  EXPECT_EQ(amplitude.Minimum, -5.0);
  EXPECT_EQ(amplitude.TickMarks, 5);
  EXPECT_EQ(amplitude.PerTick, 10.0);
  EXPECT_EQ(amplitude.AmplitudeMinimum, 0.0);
  EXPECT_EQ(amplitude.AmplitudeTicks, 4);
  EXPECT_EQ(amplitude.PaPerTick, 1.0);
  EXPECT_EQ(amplitude.SymbolSize, 0.08);
  EXPECT_TRUE(amplitude.ShowAxes && amplitude.ShowLabels);

  const DurationScatterSettings& duration = workspace().DurationScatter;
  EXPECT_EQ(duration.Value, ScatterValue::SweepRelevant);
  EXPECT_EQ(duration.MinimumExponent, -5);
  EXPECT_EQ(duration.Decades, 4);
  EXPECT_EQ(duration.TicksPerDecade, 5);
  EXPECT_EQ(duration.Minimum, -5.0);
  EXPECT_EQ(duration.TickMarks, 5);
  EXPECT_EQ(duration.PerTick, 10.0);
  EXPECT_EQ(duration.SymbolSize, 0.08);
  EXPECT_TRUE(duration.ShowAxes && duration.ShowLabels);
}

TEST_P(ResetWorkspaceTest, StationarityAndStatistics) {
  EXPECT_TRUE(workspace().Stationarity.ShowLabels && workspace().Stationarity.ShowAxes);
  EXPECT_EQ(workspace().Stationarity.Type, StationarityType::One);
  EXPECT_EQ(workspace().Stationarity.Tau, 0.1);
  EXPECT_EQ(workspace().Statistics.Reference, StatisticsReference::RelevantSegment);
}

INSTANTIATE_TEST_SUITE_P(From, ResetWorkspaceTest, ::testing::Values(0, 1));

}  // namespace
}  // namespace ondrel
