// Every line of a preference file in its order. The order is the format: a line is never moved.
#include "workspace/preference_lines.h"

#include <array>
#include <cstddef>
#include <span>

#include "workspace/preference_rows.h"
#include "workspace/units.h"

namespace ondrel {
namespace {

// --- Groups that stand there more than once ------------------------------------------------------

template <auto kFilter>
constexpr auto FilterLines() {
  constexpr auto kLevels = &Workspace::Levels;
  return std::array{
      Setting<kLevels, kFilter, &LevelFilter::AmplitudeChoice>(),
      Setting<kLevels, kFilter, &LevelFilter::AmplitudeLow>(kPicoampere),
      Setting<kLevels, kFilter, &LevelFilter::AmplitudeHigh>(kPicoampere),
      Setting<kLevels, kFilter, &LevelFilter::DurationChoice>(),
      Setting<kLevels, kFilter, &LevelFilter::DurationLow>(kMillisecond),
      Setting<kLevels, kFilter, &LevelFilter::DurationHigh>(kMillisecond),
      Setting<kLevels, kFilter, &LevelFilter::LevelChoice>(),
      Setting<kLevels, kFilter, &LevelFilter::LevelLow>(),
      Setting<kLevels, kFilter, &LevelFilter::LevelHigh>(),
      Setting<kLevels, kFilter, &LevelFilter::TagChoice>(),
      Setting<kLevels, kFilter, &LevelFilter::TagLow>(),
      Setting<kLevels, kFilter, &LevelFilter::TagHigh>(),
      Setting<kLevels, kFilter, &LevelFilter::Position>(),
  };
}

template <ViewKind kHistogram>
constexpr auto HistogramViewLines() {
  return std::array{
      ViewColor<kHistogram, HistogramColor::Histogram>(),
      ViewColor<kHistogram, HistogramColor::Fit>(),
      ViewColor<kHistogram, HistogramColor::Labels>(),
      ViewColor<kHistogram, HistogramColor::Axes>(),
      ViewColor<kHistogram, HistogramColor::Background>(),
      RectLines<ViewPlace<kHistogram>>(),
      RectLines<ViewPlace<FitViewOf(kHistogram)>>(),
  };
}

template <ViewKind kPlot>
constexpr auto PlotViewLines() {
  return std::array{
      ViewColor<kPlot, PlotColor::Plot>(), ViewColor<kPlot, PlotColor::Labels>(),
      ViewColor<kPlot, PlotColor::Axes>(), ViewColor<kPlot, PlotColor::Background>(),
      ShortRectLines<ViewPlace<kPlot>>(),
  };
}

// --- The lines -----------------------------------------------------------------------------------

constexpr std::array kGeneral = {
    Setting<&Workspace::SkipStartupDialog>(),
    Setting<&Workspace::FontSize>(),
    Setting<&Workspace::PenSize>(),
    Setting<&Workspace::LevelFileType>(),
    RectLines<FramePlace>(),
    Setting<&Workspace::FrameShow>(),
    Setting<&Workspace::LineSearchLimit>(),
};

constexpr auto kOfEvents = &Workspace::Events;
constexpr std::array kEvents = {
    Setting<kOfEvents, &EventTable::AmplitudeMode>(),
    Setting<kOfEvents, &EventTable::BurstResolution>(kMillisecond),
    Setting<kOfEvents, &EventTable::Capacity>(),
    Setting<kOfEvents, &EventTable::TagSetMode>(),
    Setting<kOfEvents, &EventTable::TagSetValue>(),
    ViewColor<ViewKind::Event, EventColor::Events>(),
    ViewColor<ViewKind::Event, EventColor::Background>(),
    RectLines<ViewPlace<ViewKind::Event>>(),
};

// A file from elsewhere may give the levels another capacity than the events, though the dialog
// sets both to one number.
constexpr auto kOfLevels = &Workspace::Levels;
constexpr std::array kLevelCapacity = {Setting<kOfLevels, &LevelTable::Capacity>()};
constexpr auto kLevelSelection = FilterLines<&LevelTable::LevelSelection>();
constexpr auto kPrecedingSelection = FilterLines<&LevelTable::PrecedingSelection>();
constexpr auto kFollowingSelection = FilterLines<&LevelTable::FollowingSelection>();
constexpr std::array kLevels = {
    Setting<kOfLevels, &LevelTable::Range>(),
    Setting<kOfLevels, &LevelTable::TagSource>(),
    Setting<kOfLevels, &LevelTable::MultipleOpenings>(),
    Setting<kOfLevels, &LevelTable::BaseLevel>(),
    Setting<kOfLevels, &LevelTable::InstrumentDelay>(),
    ViewColor<ViewKind::Level, LevelColor::Selected>(),
    ViewColor<ViewKind::Level, LevelColor::Other>(),
    ViewColor<ViewKind::Level, LevelColor::Background>(),
    RectLines<ViewPlace<ViewKind::Level>>(),
};

constexpr auto kOfAmplitude = &Workspace::Amplitude;
constexpr std::array kAmplitude = {
    Setting<kOfAmplitude, &AmplitudeHistogram::Minimum>(),
    Setting<kOfAmplitude, &AmplitudeHistogram::TickMarks>(),
    Setting<kOfAmplitude, &AmplitudeHistogram::BinsPerTick>(),
    Setting<kOfAmplitude, &AmplitudeHistogram::PerTick>(),
    ChoiceOfTwo<kOfAmplitude, &AmplitudeHistogram::SquareRootAxis>(),
    Setting<kOfAmplitude, &AmplitudeHistogram::MinimumTicks>(),
    Setting<kOfAmplitude, &AmplitudeHistogram::CountsPerTick>(),
    Setting<kOfAmplitude, &AmplitudeHistogram::CurveScale>(),
    Setting<kOfAmplitude, &AmplitudeHistogram::FitTolerance>(),
    Setting<kOfAmplitude, &AmplitudeHistogram::FitIterations>(),
    Setting<kOfAmplitude, &AmplitudeHistogram::FitStyle>(),
    Setting<kOfAmplitude, &AmplitudeHistogram::HistogramStyle>(),
    Setting<kOfAmplitude, &AmplitudeHistogram::ShowLabels>(),
    Setting<kOfAmplitude, &AmplitudeHistogram::ShowAxes>(),
};
constexpr auto kAmplitudeView = HistogramViewLines<ViewKind::Amplitude>();

constexpr auto kOfDuration = &Workspace::Duration;
constexpr std::array kDuration = {
    Setting<kOfDuration, &DurationHistogram::MinimumExponent>(),
    Setting<kOfDuration, &DurationHistogram::Decades>(),
    Setting<kOfDuration, &DurationHistogram::BinsPerDecade>(),
    Setting<kOfDuration, &DurationHistogram::TicksPerDecade>(),
    Setting<kOfDuration, &DurationHistogram::ConstrainPositive>(),
    Setting<kOfDuration, &DurationHistogram::MinimumTicks>(),
    Setting<kOfDuration, &DurationHistogram::CountsPerTick>(),
    ChoiceOfTwo<kOfDuration, &DurationHistogram::SquareRootAxis>(),
    Setting<kOfDuration, &DurationHistogram::FilterFrequency>(),
    Setting<kOfDuration, &DurationHistogram::FitTolerance>(),
    Setting<kOfDuration, &DurationHistogram::FitIterations>(),
    Setting<kOfDuration, &DurationHistogram::FitStyle>(),
    Setting<kOfDuration, &DurationHistogram::HistogramStyle>(),
    Setting<kOfDuration, &DurationHistogram::ShowLabels>(),
    Setting<kOfDuration, &DurationHistogram::ShowAxes>(),
};
constexpr auto kDurationView = HistogramViewLines<ViewKind::Duration>();

constexpr std::array kExport = {
    Setting<&Workspace::TextExportType>(),
    Setting<&Workspace::ExportType>(),
    Setting<&Workspace::ExportDpi>(),
};

constexpr auto kOfScatter = &Workspace::Scatter;
constexpr std::array kScatter = {
    Setting<kOfScatter, &ScatterSettings::MinimumExponent>(),
    Setting<kOfScatter, &ScatterSettings::Decades>(),
    Setting<kOfScatter, &ScatterSettings::TicksPerDecade>(),
    Setting<kOfScatter, &ScatterSettings::Minimum>(kPicoampere),
    Setting<kOfScatter, &ScatterSettings::Ticks>(),
    Setting<kOfScatter, &ScatterSettings::PaPerTick>(),
    Setting<kOfScatter, &ScatterSettings::SymbolSize>(),
    Setting<kOfScatter, &ScatterSettings::ShowLabels>(),
    Setting<kOfScatter, &ScatterSettings::ShowAxes>(),
};
constexpr auto kScatterView = PlotViewLines<ViewKind::Scatter>();

constexpr auto kOfStationarity = &Workspace::Stationarity;
constexpr std::array kStationarity = {
    Setting<kOfStationarity, &StationaritySettings::Type>(),
    Setting<kOfStationarity, &StationaritySettings::Tau>(),
    Setting<kOfStationarity, &StationaritySettings::ShowLabels>(),
    Setting<kOfStationarity, &StationaritySettings::ShowAxes>(),
};
constexpr auto kStationarityView = PlotViewLines<ViewKind::Stationarity>();

constexpr std::array kStatistics = {
    Setting<&Workspace::Statistics, &StatisticsTable::Reference>(),
    ViewColor<ViewKind::Statistics, StatisticsColor::Others>(),
    ViewColor<ViewKind::Statistics, StatisticsColor::Header>(),
    ViewColor<ViewKind::Statistics, StatisticsColor::Background>(),
    ShortRectLines<ViewPlace<ViewKind::Statistics>>(),
};

constexpr auto kOfSweeps = &Workspace::Sweeps;
constexpr std::array kSweeps = {
    Setting<kOfSweeps, &SweepTable::Capacity>(),
    Setting<kOfSweeps, &SweepTable::FileChoice>(),
    Setting<kOfSweeps, &SweepTable::FileLow>(),
    Setting<kOfSweeps, &SweepTable::FileHigh>(),
    Setting<kOfSweeps, &SweepTable::IndexChoice>(),
    Setting<kOfSweeps, &SweepTable::IndexLow>(),
    Setting<kOfSweeps, &SweepTable::IndexHigh>(),
    Setting<kOfSweeps, &SweepTable::RelevantChoice>(),
    Setting<kOfSweeps, &SweepTable::RelevantLow>(),
    Setting<kOfSweeps, &SweepTable::RelevantHigh>(),
    Setting<kOfSweeps, &SweepTable::TagChoice>(),
    Setting<kOfSweeps, &SweepTable::TagLow>(),
    Setting<kOfSweeps, &SweepTable::TagHigh>(),
    ViewColor<ViewKind::Sweep, SweepColor::Selected>(),
    ViewColor<ViewKind::Sweep, SweepColor::Other>(),
    ViewColor<ViewKind::Sweep, SweepColor::Background>(),
    ViewColor<ViewKind::Sweep, SweepColor::Header>(),
    ShortRectLines<ViewPlace<ViewKind::Sweep>>(),
};

// The amplitude scatter plot keeps its least amplitude in amperes, which the plot above does not.
constexpr auto kOfAmplitudeScatter = &Workspace::AmplitudeScatter;
constexpr std::array kAmplitudeScatter = {
    Setting<kOfAmplitudeScatter, &AmplitudeScatterSettings::Value>(),
    Setting<kOfAmplitudeScatter, &AmplitudeScatterSettings::Minimum>(),
    Setting<kOfAmplitudeScatter, &AmplitudeScatterSettings::PerTick>(),
    Setting<kOfAmplitudeScatter, &AmplitudeScatterSettings::TickMarks>(),
    Setting<kOfAmplitudeScatter, &AmplitudeScatterSettings::AmplitudeMinimum>(),
    Setting<kOfAmplitudeScatter, &AmplitudeScatterSettings::AmplitudeTicks>(),
    Setting<kOfAmplitudeScatter, &AmplitudeScatterSettings::PaPerTick>(),
    Setting<kOfAmplitudeScatter, &AmplitudeScatterSettings::SymbolSize>(),
    Setting<kOfAmplitudeScatter, &AmplitudeScatterSettings::ShowLabels>(),
    Setting<kOfAmplitudeScatter, &AmplitudeScatterSettings::ShowAxes>(),
};
constexpr auto kAmplitudeScatterView = PlotViewLines<ViewKind::AmplitudeScatter>();

constexpr auto kOfDurationScatter = &Workspace::DurationScatter;
constexpr std::array kDurationScatter = {
    Setting<kOfDurationScatter, &DurationScatterSettings::Value>(),
    Setting<kOfDurationScatter, &DurationScatterSettings::Minimum>(),
    Setting<kOfDurationScatter, &DurationScatterSettings::PerTick>(),
    Setting<kOfDurationScatter, &DurationScatterSettings::TickMarks>(),
    Setting<kOfDurationScatter, &DurationScatterSettings::MinimumExponent>(),
    Setting<kOfDurationScatter, &DurationScatterSettings::Decades>(),
    Setting<kOfDurationScatter, &DurationScatterSettings::TicksPerDecade>(),
    Setting<kOfDurationScatter, &DurationScatterSettings::SymbolSize>(),
    Setting<kOfDurationScatter, &DurationScatterSettings::ShowLabels>(),
    Setting<kOfDurationScatter, &DurationScatterSettings::ShowAxes>(),
};
constexpr auto kDurationScatterView = PlotViewLines<ViewKind::DurationScatter>();

constexpr std::span<const PreferenceRow> kGroups[] = {
    kGeneral,
    kEvents,
    kLevelCapacity,
    kLevelSelection,
    kPrecedingSelection,
    kFollowingSelection,
    kLevels,
    kAmplitude,
    kAmplitudeView,
    kDuration,
    kDurationView,
    kExport,
    kScatter,
    kScatterView,
    kStationarity,
    kStationarityView,
    kStatistics,
    kSweeps,
    kAmplitudeScatter,
    kAmplitudeScatterView,
    kDurationScatter,
    kDurationScatterView,
};

// --- Finding a line ------------------------------------------------------------------------------

/// The row that a line stands in, and its place in it.
struct FoundLine {
  const PreferenceRow* Row = nullptr;  // null: there is no such line
  int Place = 0;
};

constexpr FoundLine FindLine(int line) {
  int place = line - kFirstPreferenceValue;
  if (place < 0) return {};
  for (const std::span<const PreferenceRow>& group : kGroups) {
    for (const PreferenceRow& row : group) {
      if (place < row.Lines) return {&row, place};
      place -= row.Lines;
    }
  }
  return {};
}
static_assert(FindLine(kPreferenceLines).Row != nullptr);
static_assert(FindLine(kPreferenceLines + 1).Row == nullptr);

}  // namespace

void PreferenceText(const Workspace& workspace, int line, char* text) {
  const FoundLine found = FindLine(line);
  found.Row->Write(workspace, found.Place, found.Row->Scale, text);
}

bool StorePreference(Workspace& workspace, int line, const char* text) {
  const FoundLine found = FindLine(line);
  return found.Row->Read(workspace, found.Place, found.Row->Scale, text);
}

}  // namespace ondrel
