// A preference file of which every value differs from the default, with the field of the workspace
// that each line belongs to.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <map>
#include <string>

#include "support/preference_texts.h"
#include "workspace/workspace.h"

namespace ondrel {

/// For each line a text that no default gives, and whether the setting holds what it says. The
/// tests add line by line where a setting is to be found.
class OtherSettings {
 public:
  explicit OtherSettings(Workspace& workspace) : workspace_(workspace) {}

  const std::map<int, std::string>& Texts() const { return texts_; }
  std::string Bytes() const {
    PreferenceTexts lines{"8"};
    for (const auto& [line, text] : texts_) lines.push_back(text);
    return PreferenceBytes(lines);
  }

  void Number(int line, std::int32_t& field) {
    Add(line, std::to_string(1000 + line), field, 1000 + line);
  }
  void Show(int line, WindowPlacement& field) { Add(line, "1", field, WindowPlacement::Maximized); }
  void Flag(int line, bool& field) { Add(line, field ? "0" : "1", field, !field); }
  template <typename Choice>
  void List(int line, Choice& field) {
    const int place = 20 + line % 200;
    Add(line, std::to_string(place), field, static_cast<Choice>(place));
  }
  void Real(int line, double& field, double unit = 1.0) {
    char text[40];
    std::snprintf(text, sizeof text, "1.%03dE+03", line);
    Add(line, text, field, (1000.0 + line) * unit);
  }
  void Rect(int line, IntRect& rect) {
    Number(line, rect.Top);
    Number(line + 1, rect.Left);
    Number(line + 2, rect.Bottom);
    Number(line + 3, rect.Right);
  }
  void Place(int line, ViewKind view) { Rect(line, ViewOf(workspace_, view).ViewRect); }
  template <typename Color>
  void ColorLines(int line, ViewKind view, Color color) {
    RgbColor& field = ViewOf(workspace_, view).Colors[static_cast<std::size_t>(color)];
    Number(line, field.Red);
    Number(line + 1, field.Green);
    Number(line + 2, field.Blue);
  }
  void Filter(int line, LevelFilter& filter) {
    List(line, filter.AmplitudeChoice);
    Real(line + 1, filter.AmplitudeLow, 1e-12);
    Real(line + 2, filter.AmplitudeHigh, 1e-12);
    List(line + 3, filter.DurationChoice);
    Real(line + 4, filter.DurationLow, 0.001);
    Real(line + 5, filter.DurationHigh, 0.001);
    List(line + 6, filter.LevelChoice);
    Number(line + 7, filter.LevelLow);
    Number(line + 8, filter.LevelHigh);
    List(line + 9, filter.TagChoice);
    Real(line + 10, filter.TagLow);
    Real(line + 11, filter.TagHigh);
    List(line + 12, filter.Position);
  }
  void HistogramColors(int line, ViewKind view) {
    ColorLines(line, view, HistogramColor::Histogram);
    ColorLines(line + 3, view, HistogramColor::Fit);
    ColorLines(line + 6, view, HistogramColor::Labels);
    ColorLines(line + 9, view, HistogramColor::Axes);
    ColorLines(line + 12, view, HistogramColor::Background);
    Place(line + 15, view);
    Place(line + 19, FitViewOf(view));
  }
  void PlotColors(int line, ViewKind view) {
    ColorLines(line, view, PlotColor::Plot);
    ColorLines(line + 3, view, PlotColor::Labels);
    ColorLines(line + 6, view, PlotColor::Axes);
    ColorLines(line + 9, view, PlotColor::Background);
    Place(line + 12, view);
  }

  void ExpectDefaultsAreOthers() const {
    for (const auto& [line, holds] : checks_) EXPECT_FALSE(holds()) << "line " << line;
  }
  void ExpectHeld() const {
    for (const auto& [line, holds] : checks_) EXPECT_TRUE(holds()) << "line " << line;
  }

 private:
  template <typename Value>
  void Add(int line, const std::string& text, const Value& field, Value expected) {
    EXPECT_TRUE(texts_.emplace(line, text).second) << "line " << line << " twice";
    checks_[line] = [&field, expected] { return field == expected; };
  }

  Workspace& workspace_;
  std::map<int, std::string> texts_;
  std::map<int, std::function<bool()>> checks_;
};

inline void AddGeneral(OtherSettings& other, Workspace& w) {
  other.Flag(2, w.SkipStartupDialog);
  other.Number(3, w.FontSize);
  other.Real(4, w.PenSize);
  other.List(5, w.LevelFileType);
  other.Rect(6, w.FrameRect);
  other.Show(10, w.FrameShow);
  other.Number(11, w.LineSearchLimit);
  other.List(160, w.TextExportType);
  other.List(161, w.ExportType);
  other.Real(162, w.ExportDpi);
}

inline void AddEventsAndLevels(OtherSettings& other, Workspace& w) {
  other.List(12, w.Events.AmplitudeMode);
  other.Real(13, w.Events.BurstResolution, 0.001);
  other.Number(14, w.Events.Capacity);
  other.List(15, w.Events.TagSetMode);
  other.Real(16, w.Events.TagSetValue);
  other.ColorLines(17, ViewKind::Event, EventColor::Events);
  other.ColorLines(20, ViewKind::Event, EventColor::Background);
  other.Place(23, ViewKind::Event);
  other.Number(27, w.Levels.Capacity);
  other.Filter(28, w.Levels.LevelSelection);
  other.Filter(41, w.Levels.PrecedingSelection);
  other.Filter(54, w.Levels.FollowingSelection);
  other.List(67, w.Levels.Range);
  other.List(68, w.Levels.TagSource);
  other.List(69, w.Levels.MultipleOpenings);
  other.Number(70, w.Levels.BaseLevel);
  other.Real(71, w.Levels.InstrumentDelay);
  other.ColorLines(72, ViewKind::Level, LevelColor::Selected);
  other.ColorLines(75, ViewKind::Level, LevelColor::Other);
  other.ColorLines(78, ViewKind::Level, LevelColor::Background);
  other.Place(81, ViewKind::Level);
}

inline void AddAmplitude(OtherSettings& other, AmplitudeHistogram& histogram) {
  other.Real(85, histogram.Minimum);
  other.Number(86, histogram.TickMarks);
  other.Number(87, histogram.BinsPerTick);
  other.Real(88, histogram.PerTick);
  other.Flag(89, histogram.SquareRootAxis);
  other.Number(90, histogram.MinimumTicks);
  other.Number(91, histogram.CountsPerTick);
  other.Real(92, histogram.CurveScale);
  other.Real(93, histogram.FitTolerance);
  other.Number(94, histogram.FitIterations);
  other.List(95, histogram.FitStyle);
  other.List(96, histogram.HistogramStyle);
  other.Flag(97, histogram.ShowLabels);
  other.Flag(98, histogram.ShowAxes);
  other.HistogramColors(99, ViewKind::Amplitude);
}

inline void AddDuration(OtherSettings& other, DurationHistogram& histogram) {
  other.Number(122, histogram.MinimumExponent);
  other.Number(123, histogram.Decades);
  other.Number(124, histogram.BinsPerDecade);
  other.Number(125, histogram.TicksPerDecade);
  other.Flag(126, histogram.ConstrainPositive);
  other.Number(127, histogram.MinimumTicks);
  other.Number(128, histogram.CountsPerTick);
  other.Flag(129, histogram.SquareRootAxis);
  other.Real(130, histogram.FilterFrequency);
  other.Real(131, histogram.FitTolerance);
  other.Number(132, histogram.FitIterations);
  other.List(133, histogram.FitStyle);
  other.List(134, histogram.HistogramStyle);
  other.Flag(135, histogram.ShowLabels);
  other.Flag(136, histogram.ShowAxes);
  other.HistogramColors(137, ViewKind::Duration);
}

inline void AddPlots(OtherSettings& other, Workspace& w) {
  other.Number(163, w.Scatter.MinimumExponent);
  other.Number(164, w.Scatter.Decades);
  other.Number(165, w.Scatter.TicksPerDecade);
  other.Real(166, w.Scatter.Minimum, 1e-12);
  other.Number(167, w.Scatter.Ticks);
  other.Real(168, w.Scatter.PaPerTick);
  other.Real(169, w.Scatter.SymbolSize);
  other.Flag(170, w.Scatter.ShowLabels);
  other.Flag(171, w.Scatter.ShowAxes);
  other.PlotColors(172, ViewKind::Scatter);
  other.List(188, w.Stationarity.Type);
  other.Real(189, w.Stationarity.Tau);
  other.Flag(190, w.Stationarity.ShowLabels);
  other.Flag(191, w.Stationarity.ShowAxes);
  other.PlotColors(192, ViewKind::Stationarity);
}

inline void AddStatisticsAndSweeps(OtherSettings& other, Workspace& w) {
  other.List(208, w.Statistics.Reference);
  other.ColorLines(209, ViewKind::Statistics, StatisticsColor::Others);
  other.ColorLines(212, ViewKind::Statistics, StatisticsColor::Header);
  other.ColorLines(215, ViewKind::Statistics, StatisticsColor::Background);
  other.Place(218, ViewKind::Statistics);
  other.Number(222, w.Sweeps.Capacity);
  other.List(223, w.Sweeps.FileChoice);
  other.Number(224, w.Sweeps.FileLow);
  other.Number(225, w.Sweeps.FileHigh);
  other.List(226, w.Sweeps.IndexChoice);
  other.Number(227, w.Sweeps.IndexLow);
  other.Number(228, w.Sweeps.IndexHigh);
  other.List(229, w.Sweeps.RelevantChoice);
  other.Real(230, w.Sweeps.RelevantLow);
  other.Real(231, w.Sweeps.RelevantHigh);
  other.List(232, w.Sweeps.TagChoice);
  other.Real(233, w.Sweeps.TagLow);
  other.Real(234, w.Sweeps.TagHigh);
  other.ColorLines(235, ViewKind::Sweep, SweepColor::Selected);
  other.ColorLines(238, ViewKind::Sweep, SweepColor::Other);
  other.ColorLines(241, ViewKind::Sweep, SweepColor::Background);
  other.ColorLines(244, ViewKind::Sweep, SweepColor::Header);
  other.Place(247, ViewKind::Sweep);
}

inline void AddValuePlots(OtherSettings& other, Workspace& w) {
  AmplitudeScatterSettings& amplitude = w.AmplitudeScatter;
  other.List(251, amplitude.Value);
  other.Real(252, amplitude.Minimum);
  other.Real(253, amplitude.PerTick);
  other.Number(254, amplitude.TickMarks);
  other.Real(255, amplitude.AmplitudeMinimum);
  other.Number(256, amplitude.AmplitudeTicks);
  other.Real(257, amplitude.PaPerTick);
  other.Real(258, amplitude.SymbolSize);
  other.Flag(259, amplitude.ShowLabels);
  other.Flag(260, amplitude.ShowAxes);
  other.PlotColors(261, ViewKind::AmplitudeScatter);
  DurationScatterSettings& duration = w.DurationScatter;
  other.List(277, duration.Value);
  other.Real(278, duration.Minimum);
  other.Real(279, duration.PerTick);
  other.Number(280, duration.TickMarks);
  other.Number(281, duration.MinimumExponent);
  other.Number(282, duration.Decades);
  other.Number(283, duration.TicksPerDecade);
  other.Real(284, duration.SymbolSize);
  other.Flag(285, duration.ShowLabels);
  other.Flag(286, duration.ShowAxes);
  other.PlotColors(287, ViewKind::DurationScatter);
}

inline OtherSettings OtherSettingsOf(Workspace& workspace) {
  OtherSettings other(workspace);
  AddGeneral(other, workspace);
  AddEventsAndLevels(other, workspace);
  AddAmplitude(other, workspace.Amplitude);
  AddDuration(other, workspace.Duration);
  AddPlots(other, workspace);
  AddStatisticsAndSweeps(other, workspace);
  AddValuePlots(other, workspace);
  return other;
}

}  // namespace ondrel
