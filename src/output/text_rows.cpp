#include "output/text_rows.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

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

constexpr std::int32_t kNoRow = -1;  // of what stands in no table

/// Appends the field of one record, which stands in `row` of its table or is kNoRow.
template <typename Record>
using TextColumn = void (*)(RowText& text, const Record& record, std::int32_t row);

template <auto kMember, typename Record>
void Integer(RowText& text, const Record& record, std::int32_t) {
  AppendInteger(text, static_cast<std::int32_t>(record.*kMember));
}

template <auto kMember, int kDigits, typename Record>
void Fixed(RowText& text, const Record& record, std::int32_t) {
  AppendReal(text, record.*kMember, kDigits, 'f');
}

template <auto kMember, int kDigits, typename Record>
void Scientific(RowText& text, const Record& record, std::int32_t) {
  AppendReal(text, record.*kMember, kDigits, 'E');
}

constexpr int kScientificDecimals = 7;  // nearly everywhere
constexpr int kTimeDecimals = 6;
constexpr int kWeightDecimals = 3;

/// Of a member in pA.
template <auto kMember, typename Record>
void Amperes(RowText& text, const Record& record, std::int32_t) {
  AppendReal(text, record.*kMember * kPicoampere, kScientificDecimals, 'E');
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
    Scientific<&EventRecord::PreAmplitude, kScientificDecimals>,
    Scientific<&EventRecord::PostAmplitude, kScientificDecimals>,
    Integer<&EventRecord::Level>,
    Scientific<&EventRecord::TagValue, 6>,
};
constexpr TextColumn<LevelRecord> kLevelColumns[] = {
    Integer<&LevelRecord::Sweep>,
    Fixed<&LevelRecord::Transition, kTimeDecimals>,
    Fixed<&LevelRecord::Duration, kTimeDecimals>,
    Scientific<&LevelRecord::PreAmplitude, kScientificDecimals>,
    Scientific<&LevelRecord::PostAmplitude, kScientificDecimals>,
    Scientific<&LevelRecord::Amplitude, kScientificDecimals>,
    Integer<&LevelRecord::Level>,
    Scientific<&LevelRecord::TagValue, kScientificDecimals>,
};
constexpr TextColumn<SweepRecord> kSweepColumns[] = {
    RowNumber,
    Integer<&SweepRecord::File>,
    Integer<&SweepRecord::Index>,
    Fixed<&SweepRecord::StartTime, kTimeDecimals>,
    Fixed<&SweepRecord::Duration, kTimeDecimals>,
    Scientific<&SweepRecord::RelevantStart, kScientificDecimals>,
    Scientific<&SweepRecord::RelevantEnd, kScientificDecimals>,
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
    Scientific<&StatisticsRow::AmplitudeMean, kScientificDecimals>,
    Scientific<&StatisticsRow::AmplitudeStd, kScientificDecimals>,
    Scientific<&StatisticsRow::AmplitudeMin, kScientificDecimals>,
    Scientific<&StatisticsRow::AmplitudeMax, kScientificDecimals>,
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
    Scientific<&ScatterPoint::Horizontal, kScientificDecimals>,
    Scientific<&ScatterPoint::Vertical, kScientificDecimals>,
};
constexpr TextColumn<ScatterPoint> kDurationScatterColumns[] = {
    Scientific<&ScatterPoint::Horizontal, kScientificDecimals>,
    Fixed<&ScatterPoint::Vertical, kTimeDecimals>,
};
constexpr TextColumn<ScatterPoint> kScatterColumns[] = {
    Fixed<&ScatterPoint::Horizontal, kTimeDecimals>,
    Scientific<&ScatterPoint::Vertical, kScientificDecimals>,
};
constexpr TextColumn<StationaritySample> kStationarityColumns[] = {
    Scientific<&StationaritySample::Time, 2>,
    Scientific<&StationaritySample::Value, 2>,
};

// --- Rows ----------------------------------------------------------------------------------------

/// Writes a row for each record that `forEach` hands over, with its row in the table or kNoRow, to
/// a function that returns false when there is to be no more of them.
template <typename Record, std::size_t kColumns, typename ForEach>
void WriteRecords(OutputFile& file, const TextColumn<Record> (&columns)[kColumns],
                  ForEach forEach) {
  static_assert(kColumns <= kMostRowFields);
  RowText text;
  forEach([&](const Record& record, std::int32_t row) {
    text.Length = 0;
    for (const TextColumn<Record> column : columns) column(text, record, row);
    return WriteLine(file, TextOf(text)) == 0;
  });
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
void WriteTable(const Workspace& workspace, OutputFile& file) {
  const auto& table = workspace.*kTable;
  WriteRecords(file, kColumns, [&](auto write) {
    const RowRange rows = RowsToWrite(workspace, kKind, table.Count);
    for (std::int32_t row = rows.First; row < rows.End; ++row) {
      if (!write(*table.Index[row], row)) return;
    }
  });
}

/// Without a selected level these are the rows of the last run that had one. Rows of no level,
/// which the view skips, are written too.
void WriteStatistics(const Workspace& workspace, OutputFile& file) {
  const StatisticsTable& statistics = workspace.Statistics;
  WriteRecords(file, kStatisticsColumns, [&](auto write) {
    for (std::int32_t i = 0; i < statistics.RowCount; ++i) {
      if (!write(statistics.Rows[i], i)) return;
    }
  });
}

template <auto kHistogram, const auto& kColumns>
void WriteTerms(const Workspace& workspace, OutputFile& file) {
  const auto& histogram = workspace.*kHistogram;
  WriteRecords(file, kColumns, [&](auto write) {
    for (std::size_t i = 0; i < CountTerms(histogram); ++i) {
      if (!write(histogram.Terms[i], static_cast<std::int32_t>(i))) return;
    }
  });
}

// The dots that the view's last picture shows. There is no table of them.

template <typename Write>
auto WithoutRow(Write write) {
  return [=](const ScatterPoint& point) { return write(point, kNoRow); };
}

void WriteAmplitudeScatter(const Workspace& workspace, OutputFile& file) {
  WriteRecords(file, kAmplitudeScatterColumns,
               [&](auto write) { ForEachAmplitudeScatterPoint(workspace, WithoutRow(write)); });
}

void WriteDurationScatter(const Workspace& workspace, OutputFile& file) {
  WriteRecords(file, kDurationScatterColumns,
               [&](auto write) { ForEachDurationScatterPoint(workspace, WithoutRow(write)); });
}

void WriteScatter(const Workspace& workspace, OutputFile& file) {
  WriteRecords(file, kScatterColumns,
               [&](auto write) { ForEachScatterPoint(workspace, WithoutRow(write)); });
}

/// Times begin at a whole number of steps, not at the middle of the first kernel.
void WriteStationarity(const Workspace& workspace, OutputFile& file) {
  const StationaritySettings& plot = workspace.Stationarity;
  const double step = plot.TickSpacing / plot.TickPixels;
  double time = TruncateToInteger(kKernelReach * plot.Tau / step) * step;
  WriteRecords(file, kStationarityColumns, [&](auto write) {
    for (std::int32_t k = 0; k < plot.SampleCount; ++k) {
      // A sample that sees no level is 0 divided by a negative weight. Nobody should read -0.
      const double value = plot.StationaritySamples[k] + 0.0;
      if (!write(StationaritySample{time, value}, k)) return;
      time += step;
    }
  });
}

// --- Histograms ----------------------------------------------------------------------------------

static_assert(2 + 1 + kMaxTerms <= kMostRowFields, "place, count, sum and terms");

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
  AppendReal(text, centre.Shown, kScientificDecimals, 'E');
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
    AppendReal(text, CurveCount(histogram, x, first, last), kScientificDecimals, 'E');
  };
  if (fit.Sum) append(0, static_cast<std::int32_t>(CountTerms(histogram)));
  for (std::int32_t term = 0; term < fit.Terms; ++term) append(term, term + 1);
}

/// The bins on the axis, those too that take no part in the fit.
template <ViewKind kKind, auto kHistogram>
void WriteBins(const Workspace& workspace, OutputFile& file) {
  const auto& histogram = workspace.*kHistogram;
  const std::int64_t binCount = histogram.Bins == nullptr ? 0 : CountBins(histogram);
  const FitColumns fit = FitColumnsOf(workspace, kKind);
  RowText text;
  double offset = histogram.PixelsPerBin / 2.0;
  for (std::int64_t bin = 1; bin <= binCount && file.Status == 0; ++bin) {
    const BinCentre centre = CentreAt(histogram, offset);
    text.Length = 0;
    AppendCentre(text, histogram, centre);
    AppendReal(text, histogram.Bins[bin].Count, kScientificDecimals, 'E');
    AppendFit(text, histogram, fit, centre.X);
    WriteLine(file, TextOf(text));
    offset += histogram.PixelsPerBin;
  }
}

template <typename Histogram>
FitColumns FitColumnsOf(const Workspace& workspace, ViewKind kind, const Histogram& histogram) {
  if (ViewOf(workspace, FitViewOf(kind)).Window == nullptr) return {};
  const FitStyle style = histogram.FitStyle;
  const auto terms = static_cast<std::int32_t>(CountTerms(histogram));
  return {.Sum = style != FitStyle::Component, .Terms = style != FitStyle::Sum ? terms : 0};
}

}  // namespace

void WriteTextRows(const Workspace& workspace, ViewKind kind, OutputFile& file) {
  switch (kind) {
    case ViewKind::Event:
      return WriteTable<ViewKind::Event, &Workspace::Events, kEventColumns>(workspace, file);
    case ViewKind::Level:
      return WriteTable<ViewKind::Level, &Workspace::Levels, kLevelColumns>(workspace, file);
    case ViewKind::Sweep:
      return WriteTable<ViewKind::Sweep, &Workspace::Sweeps, kSweepColumns>(workspace, file);
    case ViewKind::Statistics:
      return WriteStatistics(workspace, file);
    case ViewKind::AmplitudeFit:
      return WriteTerms<&Workspace::Amplitude, kAmplitudeFitColumns>(workspace, file);
    case ViewKind::DurationFit:
      return WriteTerms<&Workspace::Duration, kDurationFitColumns>(workspace, file);
    case ViewKind::Amplitude:
      return WriteBins<ViewKind::Amplitude, &Workspace::Amplitude>(workspace, file);
    case ViewKind::Duration:
      return WriteBins<ViewKind::Duration, &Workspace::Duration>(workspace, file);
    case ViewKind::AmplitudeScatter:
      return WriteAmplitudeScatter(workspace, file);
    case ViewKind::DurationScatter:
      return WriteDurationScatter(workspace, file);
    case ViewKind::Scatter:
      return WriteScatter(workspace, file);
    case ViewKind::Stationarity:
      return WriteStationarity(workspace, file);
  }
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
