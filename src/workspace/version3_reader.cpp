#include "workspace/version3_reader.h"

#include <limits>

#include "shell/toolkit.h"
#include "workspace/file_types.h"
#include "workspace/reading_reports.h"
#include "workspace/report.h"
#include "workspace/row_scanner.h"
#include "workspace/workspace.h"

namespace ondrel {
namespace {

/// How the rows of a block came to an end. Damage after which the block counts as done is told and
/// ends it too.
enum class RowEnd { More, Done, Failed };

/// The type, the name and the type's own header. False for an unknown type and a bad header, which
/// nobody is told.
bool ReadFileHeader(TextScanner& scanner, std::int32_t version, FileRecord& file) {
  char keyword[kTokenLimit];
  NextToken(scanner, keyword, sizeof keyword);
  const FileTypeRow* const type = FindFileType(keyword);
  if (type == nullptr) return false;
  file = FileRecord{};
  file.Type = type->Type;
  file.ReadHeader = type->ReadHeader;
  file.WriteHeader = type->WriteHeader;
  if (type->NamesFile) {
    SkipSpace(scanner);
    ReadField(scanner, '\t', file.Name, sizeof file.Name);
  }
  return file.ReadHeader(file, scanner, version);
}

/// Six tokens. Returns 0, or -1 at a bad token.
int ReadSweepRow(TextScanner& scanner, SweepRecord& sweep) {
  std::int32_t index;
  sweep = SweepRecord{};
  const bool good =
      ReadInteger(scanner, &index) == 0 && ReadReal(scanner, &sweep.Duration) == 0 &&
      ReadReal(scanner, &sweep.RelevantStart) == 0 && ReadReal(scanner, &sweep.RelevantEnd) == 0 &&
      ReadReal(scanner, &sweep.RelevantValue) == 0 && ReadReal(scanner, &sweep.TagValue) == 0;
  sweep.Index = static_cast<std::uint32_t>(index);
  return good ? 0 : -1;
}

/// One row of the "Sweeps" block, of number `file.SweepCount` + 1. The table being full is seen
/// before the keyword, so that a last sweep that fits exactly is refused.
RowEnd ReadNextSweep(FrameWindow* frame, TextScanner& scanner, FileRecord& file) {
  Workspace& workspace = *frame->Owner;
  SweepTable& sweeps = workspace.Sweeps;
  const std::int32_t number = file.SweepCount + 1;
  if (AtEndOfData(scanner)) {
    ReportCorrupted(frame, -1, number, "Sweep");
    return RowEnd::Done;
  }
  const std::int32_t row = sweeps.Count + file.SweepCount;
  if (row >= RoomOf(sweeps)) {
    ReportTableFull(frame, "Sweep");
    return RowEnd::Failed;
  }
  if (TakeKeyword(scanner, "Segments")) return RowEnd::Done;
  SweepRecord& sweep = *sweeps.Index[row];
  if (ReportCorrupted(frame, ReadSweepRow(scanner, sweep), number, "Sweep")) return RowEnd::Failed;
  return RowEnd::More;
}

/// The sweeps of the file numbered `fileNumber`. They are in the table when true is returned.
bool ReadSweepBlock(FrameWindow* frame, TextScanner& scanner, std::int32_t fileNumber,
                    FileRecord& file) {
  SweepTable& sweeps = frame->Owner->Sweeps;
  if (!TakeKeyword(scanner, "Sweeps")) {
    char keyword[kTokenLimit];
    NextToken(scanner, keyword, sizeof keyword);
    ReportCorrupted(frame, -1, 0, "Sweep");
    return true;
  }
  RowEnd end;
  while ((end = ReadNextSweep(frame, scanner, file)) == RowEnd::More) {
    sweeps.Index[sweeps.Count + file.SweepCount]->File = static_cast<std::uint32_t>(fileNumber);
    ++file.SweepCount;
  }
  if (end == RowEnd::Failed) return false;
  sweeps.Count += file.SweepCount;
  return true;
}

/// A negative count, or one whose block would have 2 GiB or more, is damage. It is refused as too
/// large for the memory, alike on every machine.
constexpr std::int32_t kLargestSegmentCount =
    std::numeric_limits<std::int32_t>::max() / static_cast<std::int32_t>(sizeof(SegmentRecord));

/// Replaces the segments of a sweep by `count` empty ones. False when there is no memory, which the
/// user is told.
bool AllocateSegments(FrameWindow* frame, SweepRecord& sweep, std::int32_t count) {
  toolkit::FreeMemory(sweep.Segments);
  sweep.Segments = nullptr;
  sweep.SegmentCount = 0;
  if (count == 0) return true;
  if (count > 0 && count <= kLargestSegmentCount) {
    sweep.Segments = toolkit::AllocateRecords<SegmentRecord>(count);
  }
  if (sweep.Segments == nullptr) {
    ReportFailure(frame, {TextId::InsufficientMemoryFor, "segment array", TextId::ReduceEntries});
    return false;
  }
  sweep.SegmentCount = count;
  return true;
}

/// Segments beyond the end of the data stay 0, as empty tokens read.
int ReadSegments(TextScanner& scanner, SweepRecord& sweep) {
  for (std::int32_t i = 0; i < sweep.SegmentCount && !AtEndOfData(scanner); ++i) {
    SegmentRecord& segment = sweep.Segments[i];
    if (ReadReal(scanner, &segment.Start) != 0 || ReadReal(scanner, &segment.End) != 0) return -1;
  }
  return 0;
}

/// One row of the "Segments" block. Its sweep number is held against the upper end only: 0 and
/// below reach back to the sweeps of earlier files, where there are such.
RowEnd ReadNextSegments(FrameWindow* frame, TextScanner& scanner, std::int32_t row,
                        const FileRecord& file) {
  SweepTable& sweeps = frame->Owner->Sweeps;
  if (AtEndOfData(scanner)) {
    ReportCorrupted(frame, -1, row, "Event");
    return RowEnd::Done;
  }
  if (TakeKeyword(scanner, "Events")) return RowEnd::Done;
  std::int32_t number;
  if (ReportCorrupted(frame, ReadInteger(scanner, &number), row, "Event")) return RowEnd::Failed;
  const std::int32_t base = sweeps.Count - file.SweepCount;
  SweepRecord* const sweep = GetSweepByNumber(
      sweeps, static_cast<std::uint32_t>(base) + static_cast<std::uint32_t>(number));
  if (number > file.SweepCount || sweep == nullptr) {
    ReportCorrupted(frame, -1, row, "Event");
    return RowEnd::Done;
  }
  std::int32_t count;
  const int status = ReadInteger(scanner, &count);
  if (ReportCorrupted(frame, status, row, "Event")) return RowEnd::Failed;
  if (!AllocateSegments(frame, *sweep, count)) return RowEnd::Failed;
  if (ReportCorrupted(frame, ReadSegments(scanner, *sweep), row, "Event")) return RowEnd::Failed;
  return RowEnd::More;
}

bool ReadSegmentBlock(FrameWindow* frame, TextScanner& scanner, const FileRecord& file) {
  RowEnd end = RowEnd::More;
  for (std::int32_t row = 1; end == RowEnd::More; ++row) {
    end = ReadNextSegments(frame, scanner, row, file);
  }
  return end == RowEnd::Done;
}

/// What follows the sweep number in an event row. Returns 0, or -1 at a bad token.
int ReadEventFields(TextScanner& scanner, EventRecord& event) {
  const bool good =
      ReadReal(scanner, &event.Transition) == 0 && ReadReal(scanner, &event.PreAmplitude) == 0 &&
      ReadReal(scanner, &event.PostAmplitude) == 0 && ReadInteger(scanner, &event.Level) == 0 &&
      ReadReal(scanner, &event.TagValue) == 0;
  return good ? 0 : -1;
}

/// One row of the "Events" block, into the record at `next`. The table being full is seen before
/// the end of the data, so that a last event that fits exactly is refused.
RowEnd ReadNextEvent(FrameWindow* frame, TextScanner& scanner, std::int32_t next,
                     const FileRecord& file) {
  const EventTable& events = frame->Owner->Events;
  const std::int32_t row = next - events.Count + 1;
  if (next >= RoomOf(events)) {
    ReportTableFull(frame, "Event");
    return RowEnd::Failed;
  }
  if (AtEndOfData(scanner) || TakeKeyword(scanner, "File")) return RowEnd::Done;
  std::int32_t number;
  if (ReportCorrupted(frame, ReadInteger(scanner, &number), row, "Event")) return RowEnd::Failed;
  if (number > file.SweepCount) {
    ReportCorrupted(frame, -1, row, "Event");
    return RowEnd::Done;
  }
  EventRecord& event = *events.Index[next];
  event.Sweep = static_cast<std::uint32_t>(frame->Owner->Sweeps.Count - file.SweepCount + number);
  if (ReportCorrupted(frame, ReadEventFields(scanner, event), row, "Event")) return RowEnd::Failed;
  return RowEnd::More;
}

/// The events are in the table when true is returned.
bool ReadEventBlock(FrameWindow* frame, TextScanner& scanner, const FileRecord& file) {
  EventTable& events = frame->Owner->Events;
  std::int32_t next = events.Count;
  RowEnd end;
  while ((end = ReadNextEvent(frame, scanner, next, file)) == RowEnd::More) ++next;
  if (end == RowEnd::Failed) return false;
  events.Count = next;
  return true;
}

/// One data file, into the row `index` of the FileTable, whose count stays.
bool ReadGroup(FrameWindow* frame, TextScanner& scanner, std::int32_t version, std::int32_t index) {
  SweepTable& sweeps = frame->Owner->Sweeps;
  FileRecord& file = *frame->Owner->Files.Index[index];
  if (!ReadFileHeader(scanner, version, file)) return false;
  if (!ReadSweepBlock(frame, scanner, index + 1, file)) return false;
  if (ReadSegmentBlock(frame, scanner, file) && ReadEventBlock(frame, scanner, file)) return true;
  sweeps.Count -= file.SweepCount;
  FreeSegments(sweeps, sweeps.Count, file.SweepCount);
  return false;
}

}  // namespace

bool ReadVersion3Table(FrameWindow* frame, TextScanner scanner, std::int32_t version,
                       const char* name) {
  FileTable& files = frame->Owner->Files;
  std::int32_t next = files.Count;
  if (AtEndOfData(scanner)) return false;
  if (next >= RoomOf(files)) {
    ReportTooManyFiles(frame);
    return false;
  }
  if (!TakeKeyword(scanner, "File")) {
    ReportCannotRead(frame, name);
    return false;
  }
  bool good = true;
  while (good && !AtEndOfData(scanner)) {
    if (next >= RoomOf(files)) {
      ReportTooManyFiles(frame);
      break;
    }
    good = ReadGroup(frame, scanner, version, next);
    if (good) ++next;
  }
  if (next > files.Count) {
    files.Count = next;
    RefreshEventAndSweepRanges(frame);
  }
  return good;
}

}  // namespace ondrel
