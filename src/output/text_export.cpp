#include "output/text_export.h"

#include <cstddef>
#include <cstdint>
#include <iterator>

#include "output/text_rows.h"
#include "workspace/number_text.h"
#include "workspace/output_file.h"
#include "workspace/writing_reports.h"

namespace ondrel {
namespace {

// --- The twelve views ----------------------------------------------------------------------------

constexpr char kUntitled[] = "Untitled";
constexpr char kEvents[] = "Events";  // for the list of levels too

// "Probobility" keeps its spelling: procedures that users have written know the wave by this name.
constexpr TextExportRecord kTextExports[] = {
    {.Kind = ViewKind::Event,
     .Title = "Export event list as:",
     .SpreadsheetName = kUntitled,
     .IgorName = kEvents,
     .Waves = "WAVES /D Sweep, Transition, PreAmplitude, PostAmplitude, Level, TagValue",
     .TellsFailedRows = true},
    {.Kind = ViewKind::Level,
     .Title = "Export level list as:",
     .SpreadsheetName = kUntitled,
     .IgorName = kEvents,
     .Waves = "WAVES /D Sweep, Transition, Duration, PreAmplitude, PostAmplitude, Amplitude, "
              "Level, TagValue"},
    {.Kind = ViewKind::Sweep,
     .Title = "Export sweeps as:",
     .SpreadsheetName = kUntitled,
     .IgorName = kUntitled,
     .Waves = "WAVES /D Index, File, Sweep, StartTime, Duration, RelevantStart, RelevantEnd, "
              "RelevantValue, TagValue"},
    {.Kind = ViewKind::Statistics,
     .Title = "Export statistics as:",
     .SpreadsheetName = kUntitled,
     .IgorName = kUntitled,
     .Waves = "WAVES /D Level, Events, Probobility, DurationMean, DurationStd, DurationMin, "
              "DurationMax, AmplitudeMean, AmplitudeStd, AmplitudeMin, AmplitudeMax"},
    {.Kind = ViewKind::AmplitudeFit,
     .Title = "Export parameters as:",
     .SpreadsheetName = kUntitled,
     .IgorName = kUntitled,
     .Waves = "WAVES /D Weight, Current, StdDev"},
    {.Kind = ViewKind::DurationFit,
     .Title = "Export parameters as:",
     .SpreadsheetName = kUntitled,
     .IgorName = kUntitled,
     .Waves = "WAVES /D Weight, TimeConstant"},
    {.Kind = ViewKind::Amplitude,
     .Title = "Export amplitude histogram as:",
     .SpreadsheetName = kUntitled,
     .IgorName = kUntitled,
     .Waves = "WAVES /D Current, Count"},
    {.Kind = ViewKind::Duration,
     .Title = "Export duration histogram as:",
     .SpreadsheetName = kUntitled,
     .IgorName = kUntitled,
     .Waves = "WAVES /D Duration, Count"},
    {.Kind = ViewKind::AmplitudeScatter,
     .Title = "Export amplitude scatter as:",
     .SpreadsheetName = kUntitled,
     .IgorName = kUntitled,
     .Waves = "WAVES /D X, Current"},
    {.Kind = ViewKind::DurationScatter,
     .Title = "Export duration scatter as:",
     .SpreadsheetName = kUntitled,
     .IgorName = kUntitled,
     .Waves = "WAVES /D X, Duration"},
    {.Kind = ViewKind::Scatter,
     .Title = "Export scatter plot as:",
     .SpreadsheetName = kUntitled,
     .IgorName = kUntitled,
     .Waves = "WAVES /D Duration, Current"},
    {.Kind = ViewKind::Stationarity,
     .Title = "Export stationarity as:",
     .SpreadsheetName = kUntitled,
     .IgorName = kUntitled,
     .Waves = "WAVES /D Duration, Probability"},
};

constexpr bool StandInOrder() {
  for (std::size_t i = 0; i < kViewCount; ++i) {
    if (kTextExports[i].Kind != static_cast<ViewKind>(i)) return false;
  }
  return std::size(kTextExports) == kViewCount;
}
static_assert(StandInOrder());

// --- What a file holds ---------------------------------------------------------------------------

bool IsForIgor(TextExportChoice form) {
  return form != TextExportChoice::Excel;
}

void WriteWaveNames(const Workspace& workspace, const TextExportRecord& text, OutputFile& file) {
  const FitColumns fit = FitColumnsOf(workspace, text.Kind);
  WriteText(file, text.Waves);
  if (fit.Sum) WriteText(file, ",\tFitSum");
  for (std::int32_t term = 0; term < fit.Terms; ++term) {
    char number[kNumberTextSize] = "";
    IntegerText(term, number);
    WriteText(file, ",\tFit");
    WriteText(file, number);
  }
  WriteLine(file, "");
}

// What stands before the rows, and the rows. Each returns 0 or the failure, after which the file is
// closed. What one step gathers reaches the disk before the next begins, so that a failure belongs
// to the step that wrote: a short list fails on its rows, not when the file is closed.

std::int32_t WriteHead(const Workspace& workspace, const TextExportRecord& text, OutputFile& file) {
  WriteLine(file, "IGOR");
  WriteWaveNames(workspace, text, file);
  WriteLine(file, "BEGIN");
  return FlushOutputFile(file);
}

/// Of the twelve views the event list alone tells at once that a row failed. The export tells it
/// again, as it tells every failure: the user of that list sees the message twice.
std::int32_t WriteBody(FrameWindow* frame, const TextExportRecord& text, OutputFile& file) {
  WriteTextRows(*frame->Owner, text.Kind, file);
  const std::int32_t code = FlushOutputFile(file);
  if (code != 0 && text.TellsFailedRows) ReportWritingFailed(frame);
  return code;
}

void WriteContent(FrameWindow* frame, const TextExportRecord& text, OutputFile& file) {
  const Workspace& workspace = *frame->Owner;
  const bool isForIgor = IsForIgor(workspace.TextExportType);
  if (isForIgor && WriteHead(workspace, text, file) != 0) return;
  if (WriteBody(frame, text, file) != 0) return;
  if (isForIgor) WriteLine(file, "END");
}

}  // namespace

const TextExportRecord& TextExportOf(ViewKind kind) {
  return kTextExports[static_cast<std::size_t>(kind)];
}

const char* OfferedTextName(ViewKind kind, TextExportChoice form) {
  const TextExportRecord& text = TextExportOf(kind);
  return IsForIgor(form) ? text.IgorName : text.SpreadsheetName;
}

void ExportText(FrameWindow* frame, ViewKind kind, const char* path) {
  OutputFile file;
  if (CreateOutputFile(path, file) != 0) {
    ReportWritingFailed(frame);
    return;
  }
  WriteContent(frame, TextExportOf(kind), file);
  if (CloseOutputFile(file) != 0) ReportWritingFailed(frame);
}

}  // namespace ondrel
