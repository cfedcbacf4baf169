#include "workspace/event_table_writer.h"

#include <cstdint>
#include <string_view>

#include "workspace/dwell_table_writer.h"
#include "workspace/growing_line.h"
#include "workspace/number_text.h"
#include "workspace/row_text.h"
#include "workspace/workspace.h"
#include "workspace/writing_reports.h"

namespace ondrel {
namespace {

constexpr std::string_view kVersion = "5";

constexpr int kTimeDigits = 6;       // decimals
constexpr int kAmplitudeDigits = 7;  // behind the first
constexpr int kValueDigits = 6;      // behind the first

/// What stands under "Events": the events, or the levels in their form.
struct TransitionRows {
  std::int32_t (*Count)(const Workspace& workspace);
  EventRecord (*At)(const Workspace& workspace, std::int32_t index);
};

constexpr TransitionRows kEventRows = {
    [](const Workspace& workspace) { return workspace.Events.Count; },
    [](const Workspace& workspace, std::int32_t index) { return *workspace.Events.Index[index]; }};

constexpr TransitionRows kLevelRows = {
    [](const Workspace& workspace) { return workspace.Levels.Count; },
    [](const Workspace& workspace, std::int32_t index) {
      const LevelRecord& level = *workspace.Levels.Index[index];
      return EventRecord{.Sweep = level.Sweep,
                         .Transition = level.Transition,
                         .PreAmplitude = level.PreAmplitude,
                         .PostAmplitude = level.PostAmplitude,
                         .Level = level.Level,
                         .TagValue = level.TagValue};
    }};

/// A save under way. Sweeps and transitions are dealt to the data files in the order of the tables.
struct Saving {
  FrameWindow* Frame;
  OutputFile& File;
  const TransitionRows& Rows;
  std::int32_t FirstSweep = 0;  // of the data file at hand, 0-based
  std::int32_t EndSweep = 0;    // behind its last sweep
  std::int32_t NextRow = 0;     // the first transition that is not written yet
};

const SweepRecord& SweepAt(const Saving& saving, std::int32_t index) {
  return *saving.Frame->Owner->Sweeps.Index[index];
}

bool WriteReportedLine(Saving& saving, std::string_view text) {
  return WriteReportedLine(saving.Frame, saving.File, text);
}

bool WriteHeader(Saving& saving, const FileRecord& file) {
  if (file.WriteHeader(file, saving.File) == 0) return true;
  ReportWritingFailed(saving.Frame);
  return false;
}

/// The run ends at the first sweep of another file, whether or not more of this one stand behind
/// it.
void TakeSweeps(Saving& saving, std::uint32_t fileNumber) {
  const SweepTable& sweeps = saving.Frame->Owner->Sweeps;
  std::int32_t end = saving.EndSweep;
  saving.FirstSweep = end;
  while (end < sweeps.Count && sweeps.Index[end]->File == fileNumber) ++end;
  saving.EndSweep = end;
}

bool WriteSweepBlock(Saving& saving) {
  if (!WriteReportedLine(saving, "Sweeps")) return false;
  RowText row;
  for (std::int32_t i = saving.FirstSweep; i < saving.EndSweep; ++i) {
    const SweepRecord& sweep = SweepAt(saving, i);
    row.Length = 0;
    AppendInteger(row, i - saving.FirstSweep + 1);
    AppendReal(row, sweep.Duration, kTimeDigits, 'f');
    AppendReal(row, sweep.RelevantStart, kTimeDigits, 'f');
    AppendReal(row, sweep.RelevantEnd, kTimeDigits, 'f');
    AppendReal(row, sweep.RelevantValue, kValueDigits, 'E');
    AppendReal(row, sweep.TagValue, kValueDigits, 'E');
    if (!WriteReportedLine(saving, TextOf(row))) return false;
  }
  return true;
}

bool AppendNumber(Saving& saving, GrowingLine& line, std::int32_t value) {
  char text[kNumberTextSize];
  return AppendField(saving.Frame, line, {text, IntegerText(value, text)}, '\t');
}

bool AppendTime(Saving& saving, GrowingLine& line, double value) {
  char text[kNumberTextSize];
  return AppendField(saving.Frame, line, {text, RealText(value, kTimeDigits, 'f', text)}, '\t');
}

/// The last value has a tab behind it, too.
bool WriteSegmentLine(Saving& saving, GrowingLine& line, std::int32_t number,
                      const SweepRecord& sweep) {
  line.Used = 0;
  bool good = AppendNumber(saving, line, number) && AppendNumber(saving, line, sweep.SegmentCount);
  for (std::int32_t i = 0; good && i < sweep.SegmentCount; ++i) {
    const SegmentRecord& segment = sweep.Segments[i];
    good = AppendTime(saving, line, segment.Start) && AppendTime(saving, line, segment.End);
  }
  return good && WriteReportedLine(saving, TextOf(line));
}

bool WriteSegmentBlock(Saving& saving) {
  if (!WriteReportedLine(saving, "Segments")) return false;
  GrowingLine line;
  bool good = true;
  for (std::int32_t i = saving.FirstSweep; good && i < saving.EndSweep; ++i) {
    good = WriteSegmentLine(saving, line, i - saving.FirstSweep + 1, SweepAt(saving, i));
  }
  FreeLine(line);
  return good;
}

/// Compared with the sign, since the reader takes sweep numbers of 0 and below. Without it such a
/// transition would belong to no file at all, and neither it nor what stands behind it would come
/// back.
bool BelongsToFile(const Saving& saving, const EventRecord& transition) {
  return std::int64_t{static_cast<std::int32_t>(transition.Sweep)} - 1 < saving.EndSweep;
}

bool WriteTransitionBlock(Saving& saving) {
  if (!WriteReportedLine(saving, "Events")) return false;
  const Workspace& workspace = *saving.Frame->Owner;
  const std::int32_t count = saving.Rows.Count(workspace);
  const auto base = static_cast<std::uint32_t>(saving.FirstSweep);
  RowText row;
  for (; saving.NextRow < count; ++saving.NextRow) {
    const EventRecord transition = saving.Rows.At(workspace, saving.NextRow);
    if (!BelongsToFile(saving, transition)) break;
    row.Length = 0;
    AppendInteger(row, static_cast<std::int32_t>(transition.Sweep - base));
    AppendReal(row, transition.Transition, kTimeDigits, 'f');
    AppendReal(row, transition.PreAmplitude, kAmplitudeDigits, 'E');
    AppendReal(row, transition.PostAmplitude, kAmplitudeDigits, 'E');
    AppendInteger(row, transition.Level);
    AppendReal(row, transition.TagValue, kValueDigits, 'E');
    if (!WriteReportedLine(saving, TextOf(row))) return false;
  }
  return true;
}

/// All that belongs to one data file.
bool WriteGroup(Saving& saving, std::int32_t fileIndex) {
  const FileRecord& file = *saving.Frame->Owner->Files.Index[fileIndex];
  TakeSweeps(saving, static_cast<std::uint32_t>(fileIndex) + 1);
  return WriteReportedLine(saving, "File") && WriteHeader(saving, file) &&
         WriteSweepBlock(saving) && WriteSegmentBlock(saving) && WriteTransitionBlock(saving);
}

bool SaveTable(FrameWindow* frame, OutputFile& file, const TransitionRows& rows) {
  Saving saving{.Frame = frame, .File = file, .Rows = rows};
  bool good = WriteReportedLine(saving, kVersion);
  for (std::int32_t i = 0; good && i < frame->Owner->Files.Count; ++i) {
    good = WriteGroup(saving, i);
  }
  return good;
}

}  // namespace

bool SaveEventFile(FrameWindow* frame, OutputFile& file) {
  return SaveTable(frame, file, kEventRows);
}

bool SaveLevelFile(FrameWindow* frame, OutputFile& file) {
  if (frame->Owner->LevelFileType == LevelFileChoice::Qub) return SaveDwellTable(frame, file);
  return SaveTable(frame, file, kLevelRows);
}

}  // namespace ondrel
