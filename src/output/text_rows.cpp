#include "output/text_rows.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "derived/scatter_points.h"
#include "derived/stationarity.h"
#include "fit/amplitude_model.h"
#include "fit/duration_model.h"
#include "fit/histogram_axis.h"
#include "workspace/power_of_ten.h"
#include "workspace/row_text.h"
#include "workspace/truncate.h"
#include "workspace/units.h"

namespace ondrel {
namespace {

// --- Columns -------------------------------------------------------------------------------------

/// Appends the field of one record, which stands in `row` of its table.
template <typename Record>
using TextColumn = void (*)(RowText& text, const Record& record, std::int32_t row);

template <auto kMember, typename Record>
void Integer(RowText& text, const Record& record, std::int32_t) {
  AppendInteger(text, static_cast<std::int32_t>(record.*kMember));
}

template <auto kMember, int kDecimals, typename Record>
void Fixed(RowText& text, const Record& record, std::int32_t) {
  AppendReal(text, record.*kMember, kDecimals, 'f');
}

template <auto kMember, int kDecimals, typename Record>
void Scientific(RowText& text, const Record& record, std::int32_t) {
  AppendReal(text, record.*kMember, kDecimals, 'E');
}

constexpr int kDecimals = 7;  // of the scientific notation nearly everywhere
constexpr int kTimeDecimals = 6;
constexpr int kWeightDecimals = 3;

/// Of a member in pA.
template <auto kMember, typename Record>
void Amperes(RowText& text, const Record& record, std::int32_t) {
  AppendReal(text, record.*kMember * kPicoampere, kDecimals, 'E');
}

void RowNumber(RowText& text, const SweepRecord&, std::int32_t row) {
  AppendInteger(text, row + 1);
}

struct StationaritySample {
  double Time;  // s
  double Value;
};

// Tags have 6 decimals here and 7 among levels; programs that read these lists count on it.
constexpr TextColumn<EventRecord> kEventColumns[] = {
    Integer<&EventRecord::Sweep>,
    Fixed<&EventRecord::Transition, kTimeDecimals>,
    Scientific<&EventRecord::PreAmplitude, kDecimals>,
    Scientific<&EventRecord::PostAmplitude, kDecimals>,
    Integer<&EventRecord::Level>,
    Scientific<&EventRecord::TagValue, 6>,
};
constexpr TextColumn<LevelRecord> kLevelColumns[] = {
    Integer<&LevelRecord::Sweep>,
    Fixed<&LevelRecord::Transition, kTimeDecimals>,
    Fixed<&LevelRecord::Duration, kTimeDecimals>,
    Scientific<&LevelRecord::PreAmplitude, kDecimals>,
    Scientific<&LevelRecord::PostAmplitude, kDecimals>,
    Scientific<&LevelRecord::Amplitude, kDecimals>,
    Integer<&LevelRecord::Level>,
    Scientific<&LevelRecord::TagValue, kDecimals>,
};
constexpr TextColumn<SweepRecord> kSweepColumns[] = {
    RowNumber,
    Integer<&SweepRecord::File>,
    Integer<&SweepRecord::Index>,
    Fixed<&SweepRecord::StartTime, kTimeDecimals>,
    Fixed<&SweepRecord::Duration, kTimeDecimals>,
    Scientific<&SweepRecord::RelevantStart, kDecimals>,
    Scientific<&SweepRecord::RelevantEnd, kDecimals>,
    Fixed<&SweepRecord::RelevantValue, 6>,
    Fixed<&SweepRecord::TagValue, 6>,
};
constexpr TextColumn<StatisticsRow> kStatisticsColumns[] = {
    Integer<&StatisticsRow::Level>,
    Integer<&StatisticsRow::Events>,
    Fixed<&StatisticsRow::Probability, 4>,
    Fixed<&StatisticsRow::DurationMean, kTimeDecimals>,
    Fixed<&StatisticsRow::DurationStd, kTimeDecimals>,
    Fixed<&StatisticsRow::DurationMin, kTimeDecimals>,
    Fixed<&StatisticsRow::DurationMax, kTimeDecimals>,
    Scientific<&StatisticsRow::AmplitudeMean, kDecimals>,
    Scientific<&StatisticsRow::AmplitudeStd, kDecimals>,
    Scientific<&StatisticsRow::AmplitudeMin, kDecimals>,
    Scientific<&StatisticsRow::AmplitudeMax, kDecimals>,
};
constexpr TextColumn<AmplitudeTerm> kAmplitudeFitColumns[] = {
    Fixed<&AmplitudeTerm::Weight, kWeightDecimals>,
    Amperes<&AmplitudeTerm::Current>,
    Amperes<&AmplitudeTerm::StdDev>,
};
constexpr TextColumn<DurationTerm> kDurationFitColumns[] = {
    Fixed<&DurationTerm::Weight, kWeightDecimals>,
    Fixed<&DurationTerm::TimeConstant, kTimeDecimals>,
};
constexpr TextColumn<ScatterPoint> kAmplitudeScatterColumns[] = {
    Scientific<&ScatterPoint::Horizontal, kDecimals>,
    Scientific<&ScatterPoint::Vertical, kDecimals>,
};
constexpr TextColumn<ScatterPoint> kDurationScatterColumns[] = {
    Scientific<&ScatterPoint::Horizontal, kDecimals>,
    Fixed<&ScatterPoint::Vertical, kTimeDecimals>,
};
constexpr TextColumn<ScatterPoint> kScatterColumns[] = {
    Fixed<&ScatterPoint::Horizontal, kTimeDecimals>,
    Scientific<&ScatterPoint::Vertical, kDecimals>,
};
constexpr TextColumn<StationaritySample> kStationarityColumns[] = {
    Scientific<&StationaritySample::Time, 2>,
    Scientific<&StationaritySample::Value, 2>,
};

// --- Rows ----------------------------------------------------------------------------------------

/// Writes a row for each record that `forEach` hands over, with its row in the table, to a function
/// that returns false when there is to be no more of them. Returns 0 or the failure.
template <typename Record, std::size_t kColumns, typename ForEach>
std::int32_t WriteRecords(OutputFile& file, const TextColumn<Record> (&columns)[kColumns],
                          ForEach forEach) {
  static_assert(kColumns <= kMostRowFields);
  RowText text;
  forEach([&](const Record& record, std::int32_t row = 0) {
    text.Length = 0;
    for (const TextColumn<Record> column : columns) column(text, record, row);
    return WriteLine(file, TextOf(text)) == 0;
  });
  return file.Status;
}

/// Rows of a table, from `First` up to but not including `End`; all of them exist.
struct RowRange {
  std::int32_t First = 0;
  std::int32_t End = 0;
};

/// All rows, or those that the window of the view shows.
RowRange RowsToWrite(const Workspace& workspace, ViewKind kind, std::int32_t count) {
  if (!workspace.LimitToWindow) return {0, count};
  const ViewState& view = ViewOf(workspace, kind);
  const std::int64_t end = std::int64_t{view.TopRow} + view.VisibleRows;
  return {std::max(view.TopRow, 0),
          static_cast<std::int32_t>(std::clamp<std::int64_t>(end, 0, count))};
}

template <ViewKind kKind, auto kTable, const auto& kColumns>
std::int32_t WriteTable(const Workspace& workspace, OutputFile& file) {
  const auto& table = workspace.*kTable;
  return WriteRecords(file, kColumns, [&](auto write) {
    const RowRange rows = RowsToWrite(workspace, kKind, table.Count);
    for (std::int32_t row = rows.First; row < rows.End; ++row) {
      if (!write(*table.Index[row], row)) return;
    }
  });
}

/// Without a selected level these are the rows of the last run that had one. Rows of no level,
/// which the view skips, are written too.
std::int32_t WriteStatistics(const Workspace& workspace, OutputFile& file) {
  const StatisticsTable& statistics = workspace.Statistics;
  return WriteRecords(file, kStatisticsColumns, [&](auto write) {
    for (std::int32_t i = 0; i < statistics.RowCount; ++i) {
      if (!write(statistics.Rows[i])) return;
    }
  });
}

template <auto kHistogram, const auto& kColumns>
std::int32_t WriteTerms(const Workspace& workspace, OutputFile& file) {
  const auto& histogram = workspace.*kHistogram;
  return WriteRecords(file, kColumns, [&](auto write) {
    for (std::size_t i = 0; i < CountTerms(histogram); ++i) {
      if (!write(histogram.Terms[i])) return;
    }
  });
}

// The dots that the view's last picture shows.

std::int32_t WriteAmplitudeScatter(const Workspace& workspace, OutputFile& file) {
  return WriteRecords(file, kAmplitudeScatterColumns,
                      [&](auto write) { ForEachAmplitudeScatterPoint(workspace, write); });
}

std::int32_t WriteDurationScatter(const Workspace& workspace, OutputFile& file) {
  return WriteRecords(file, kDurationScatterColumns,
                      [&](auto write) { ForEachDurationScatterPoint(workspace, write); });
}

std::int32_t WriteScatter(const Workspace& workspace, OutputFile& file) {
  return WriteRecords(file, kScatterColumns,
                      [&](auto write) { ForEachScatterPoint(workspace, write); });
}

/// Times begin at a whole number of steps, not at the middle of the first kernel.
std::int32_t WriteStationarity(const Workspace& workspace, OutputFile& file) {
  const StationaritySettings& plot = workspace.Stationarity;
  const double step = plot.TickSpacing / plot.TickPixels;
  double time = TruncateToInteger(kKernelReach * plot.Tau / step) * step;
  return WriteRecords(file, kStationarityColumns, [&](auto write) {
    for (std::int32_t k = 0; k < plot.SampleCount; ++k) {
      // A sample that sees no level is 0 divided by a negative weight. Nobody should read -0.
      const double value = plot.StationaritySamples[k] + 0.0;
      if (!write(StationaritySample{time, value})) return;
      time += step;
    }
  });
}

// --- Histograms ----------------------------------------------------------------------------------

static_assert(2 + 1 + kMaxTerms <= kMostRowFields, "centre, count, sum and terms");

/// The middle of a bin.
struct BinCentre {
  double X;      // where the curve of a fit is taken: pA, or log10 of seconds
  double Shown;  // A, or s
};

// `offset` is the distance from the left end of the axis in the view's last picture, device units.

BinCentre CentreAt(const AmplitudeHistogram& histogram, double offset) {
  const double x = offset / histogram.PixelsPerPa + histogram.Minimum;
  return {.X = x, .Shown = x * kPicoampere};
}

BinCentre CentreAt(const DurationHistogram& histogram, double offset) {
  const double decades = offset / histogram.PixelsPerDecade;
  return {.X = decades + histogram.MinimumExponent,
          .Shown = PowerOfTen(decades) * PowerOfTen(histogram.MinimumExponent)};
}

void AppendCentre(RowText& text, const AmplitudeHistogram&, const BinCentre& centre) {
  AppendReal(text, centre.Shown, kDecimals, 'E');
}

void AppendCentre(RowText& text, const DurationHistogram&, const BinCentre& centre) {
  AppendReal(text, centre.Shown, kTimeDecimals, 'f');
}

double CurveCount(const AmplitudeHistogram& histogram, double x, std::int32_t first,
                  std::int32_t last) {
  return AmplitudeCurveCount(histogram, x, first, last);
}

double CurveCount(const DurationHistogram& histogram, double x, std::int32_t first,
                  std::int32_t last) {
  return DurationCurveCount(histogram, x, first, last);
}

template <typename Histogram>
void AppendFit(RowText& text, const Histogram& histogram, const FitColumns& fit, double x) {
  const auto append = [&](std::int32_t first, std::int32_t last) {
    AppendReal(text, CurveCount(histogram, x, first, last), kDecimals, 'E');
  };
  if (fit.Sum) append(0, static_cast<std::int32_t>(CountTerms(histogram)));
  for (std::int32_t term = 0; term < fit.Terms; ++term) append(term, term + 1);
}

/// The bins on the axis, those too that take no part in the fit.
template <ViewKind kKind, auto kHistogram>
std::int32_t WriteBins(const Workspace& workspace, OutputFile& file) {
  const auto& histogram = workspace.*kHistogram;
  const std::int64_t binCount = histogram.Bins == nullptr ? 0 : CountBins(histogram);
  const FitColumns fit = FitColumnsOf(workspace, kKind);
  RowText text;
  double offset = histogram.PixelsPerBin / 2.0;
  for (std::int64_t bin = 1; bin <= binCount && file.Status == 0; ++bin) {
    const BinCentre centre = CentreAt(histogram, offset);
    text.Length = 0;
    AppendCentre(text, histogram, centre);
    AppendReal(text, histogram.Bins[bin].Count, kDecimals, 'E');
    AppendFit(text, histogram, fit, centre.X);
    WriteLine(file, TextOf(text));
    offset += histogram.PixelsPerBin;
  }
  return file.Status;
}

template <typename Histogram>
FitColumns FitColumnsOf(const Workspace& workspace, ViewKind kind, const Histogram& histogram) {
  if (ViewOf(workspace, FitViewOf(kind)).Window == nullptr) return {};
  const FitStyle style = histogram.FitStyle;
  const auto terms = static_cast<std::int32_t>(CountTerms(histogram));
  return {.Sum = style != FitStyle::Component, .Terms = style != FitStyle::Sum ? terms : 0};
}

// --- The twelve views ----------------------------------------------------------------------------

constexpr char kUntitled[] = "Untitled";
constexpr char kEvents[] = "Events";  // for the list of levels too

// "Probobility" keeps its spelling: procedures that users have written know the wave by this name.
constexpr TextExportRecord kTextExports[] = {
    {ViewKind::Event, "Export event list as:", kUntitled, kEvents,
     "WAVES /D Sweep, Transition, PreAmplitude, PostAmplitude, Level, TagValue",
     WriteTable<ViewKind::Event, &Workspace::Events, kEventColumns>, true},
    {ViewKind::Level, "Export level list as:", kUntitled, kEvents,
     "WAVES /D Sweep, Transition, Duration, PreAmplitude, PostAmplitude, Amplitude, Level, "
     "TagValue",
     WriteTable<ViewKind::Level, &Workspace::Levels, kLevelColumns>, false},
    {ViewKind::Sweep, "Export sweeps as:", kUntitled, kUntitled,
     "WAVES /D Index, File, Sweep, StartTime, Duration, RelevantStart, RelevantEnd, "
     "RelevantValue, TagValue",
     WriteTable<ViewKind::Sweep, &Workspace::Sweeps, kSweepColumns>, false},
    {ViewKind::Statistics, "Export statistics as:", kUntitled, kUntitled,
     "WAVES /D Level, Events, Probobility, DurationMean, DurationStd, DurationMin, DurationMax, "
     "AmplitudeMean, AmplitudeStd, AmplitudeMin, AmplitudeMax",
     WriteStatistics, false},
    {ViewKind::AmplitudeFit, "Export parameters as:", kUntitled, kUntitled,
     "WAVES /D Weight, Current, StdDev", WriteTerms<&Workspace::Amplitude, kAmplitudeFitColumns>,
     false},
    {ViewKind::DurationFit, "Export parameters as:", kUntitled, kUntitled,
     "WAVES /D Weight, TimeConstant", WriteTerms<&Workspace::Duration, kDurationFitColumns>, false},
    {ViewKind::Amplitude, "Export amplitude histogram as:", kUntitled, kUntitled,
     "WAVES /D Current, Count", WriteBins<ViewKind::Amplitude, &Workspace::Amplitude>, false},
    {ViewKind::Duration, "Export duration histogram as:", kUntitled, kUntitled,
     "WAVES /D Duration, Count", WriteBins<ViewKind::Duration, &Workspace::Duration>, false},
    {ViewKind::AmplitudeScatter, "Export amplitude scatter as:", kUntitled, kUntitled,
     "WAVES /D X, Current", WriteAmplitudeScatter, false},
    {ViewKind::DurationScatter, "Export duration scatter as:", kUntitled, kUntitled,
     "WAVES /D X, Duration", WriteDurationScatter, false},
    {ViewKind::Scatter, "Export scatter plot as:", kUntitled, kUntitled,
     "WAVES /D Duration, Current", WriteScatter, false},
    {ViewKind::Stationarity, "Export stationarity as:", kUntitled, kUntitled,
     "WAVES /D Duration, Probability", WriteStationarity, false},
};

constexpr bool StandInOrder() {
  for (std::size_t i = 0; i < kViewCount; ++i) {
    if (kTextExports[i].Kind != static_cast<ViewKind>(i)) return false;
  }
  return std::size(kTextExports) == kViewCount;
}
static_assert(StandInOrder());

}  // namespace

const TextExportRecord& TextExportOf(ViewKind kind) {
  return kTextExports[static_cast<std::size_t>(kind)];
}

FitColumns FitColumnsOf(const Workspace& workspace, ViewKind kind) {
  switch (kind) {
    case ViewKind::Amplitude:
      return FitColumnsOf(workspace, kind, workspace.Amplitude);
    case ViewKind::Duration:
      return FitColumnsOf(workspace, kind, workspace.Duration);
    default:
      return {};
  }
}

}  // namespace ondrel
