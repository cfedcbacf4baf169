#include "workspace/dwell_table_writer.h"

#include <cstdint>
#include <cstdlib>

#include "workspace/number_text.h"
#include "workspace/report.h"
#include "workspace/row_text.h"
#include "workspace/workspace.h"
#include "workspace/writing_reports.h"

namespace ondrel {
namespace {

constexpr int kTimeDigits = 6;  // decimals

/// A run of levels: rows of the LevelTable.
struct DwellSegment {
  std::int32_t Start;
  std::int32_t End;  // behind the last level
};

bool IsSelected(const LevelTable& levels, std::int32_t index) {
  return levels.Index[index]->LevelFlags == 0;
}

/// The next segment from the row `start` on; one without levels behind the last.
DwellSegment FindSegment(const LevelTable& levels, std::int32_t start) {
  while (start < levels.Count && !IsSelected(levels, start)) ++start;
  std::int32_t end = start;
  while (end < levels.Count && IsSelected(levels, end) &&
         levels.Index[end]->Sweep == levels.Index[start]->Sweep) {
    ++end;
  }
  return {start, end};
}

bool WriteSegmentHead(FrameWindow* frame, OutputFile& file, std::int32_t number,
                      std::int32_t dwells) {
  char text[kNumberTextSize];
  WriteText(file, "Segment: ");
  WriteText(file, {text, IntegerText(number, text)});
  WriteText(file, "\tDwells: ");
  return WriteReportedLine(frame, file, {text, IntegerText(dwells, text)});
}

bool IsJump(const LevelRecord& first, const LevelRecord& level) {
  return std::abs(std::int64_t{first.Level} - level.Level) > 1;
}

bool WriteDwell(FrameWindow* frame, OutputFile& file, RowText& row, const LevelRecord& level) {
  row.Length = 0;
  AppendInteger(row, level.Level);
  AppendReal(row, level.Duration, kTimeDigits, 'f');
  WriteText(file, "\t");
  return WriteReportedLine(frame, file, TextOf(row));
}

bool WriteSegment(FrameWindow* frame, OutputFile& file, std::int32_t number, DwellSegment segment) {
  const LevelTable& levels = frame->Owner->Levels;
  if (!WriteSegmentHead(frame, file, number, segment.End - segment.Start)) return false;
  const LevelRecord& first = *levels.Index[segment.Start];
  RowText row;
  for (std::int32_t i = segment.Start; i < segment.End; ++i) {
    const LevelRecord& level = *levels.Index[i];
    if (IsJump(first, level)) {  // also when the level before lies between the two
      ReportFailure(frame, {TextId::JumpInLevels});
      return false;
    }
    if (!WriteDwell(frame, file, row, level)) return false;
  }
  return true;
}

}  // namespace

bool SaveDwellTable(FrameWindow* frame, OutputFile& file) {
  const LevelTable& levels = frame->Owner->Levels;
  DwellSegment segment = FindSegment(levels, 0);
  for (std::int32_t number = 1; segment.Start < segment.End; ++number) {
    if (!WriteSegment(frame, file, number, segment)) return false;
    segment = FindSegment(levels, segment.End);
  }
  return true;
}

}  // namespace ondrel
