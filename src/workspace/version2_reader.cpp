#include "workspace/version2_reader.h"

#include <algorithm>
#include <cstring>

#include "workspace/file_types.h"
#include "workspace/number_text.h"
#include "workspace/reading_reports.h"
#include "workspace/report.h"
#include "workspace/row_scanner.h"
#include "workspace/sweep_maker.h"
#include "workspace/workspace.h"

namespace ondrel {
namespace {

/// The files and sweeps that this table has added so far.
struct Batch {
  std::int32_t FirstFile;
  std::int32_t FileCount = 0;
  std::int32_t FirstSweep;
  std::int32_t SweepCount = 0;
};

/// Takes everything out of the tables again.
bool UndoBatch(Workspace& workspace, const Batch& batch) {
  FreeSegments(workspace.Sweeps, batch.FirstSweep, batch.SweepCount);
  workspace.Sweeps.Count = batch.FirstSweep;
  workspace.Files.Count = batch.FirstFile;
  return false;
}

/// One integer a row up to "Sweeps", the sweep count of a data file. Files without any end quietly.
bool ReadFileRows(FrameWindow* frame, TextScanner& scanner, Batch& batch) {
  FileTable& files = frame->Owner->Files;
  std::int32_t next = batch.FirstFile;
  while (!TakeKeyword(scanner, "Sweeps")) {
    if (AtEndOfData(scanner)) return false;
    if (next >= RoomOf(files)) {
      ReportTooManyFiles(frame);
      return false;
    }
    std::int32_t sweepCount;
    const int status = ReadInteger(scanner, &sweepCount);
    if (ReportCorrupted(frame, status, next - batch.FirstFile + 1, "File")) return false;
    *files.Index[next++] = UndefinedFile(sweepCount);
  }
  batch.FileCount = next - batch.FirstFile;
  files.Count = next;
  return batch.FileCount > 0;
}

/// The one file of a table without a block of files. Its sweeps are counted when all is read.
bool AppendSingleFile(FrameWindow* frame, Batch& batch) {
  FileTable& files = frame->Owner->Files;
  if (files.Count >= RoomOf(files)) {
    ReportTableFull(frame, "Event");
    return false;
  }
  *files.Index[files.Count++] = UndefinedFile(0);
  batch.FileCount = 1;
  return true;
}

/// Deals sweeps to the files in order. A file that has its `SweepCount` gives way to the next; one
/// with a count of 0, or behind the last file, does so after every sweep. So the rows of a table
/// without a block of files all get `Index` 1 and rising `File` numbers, which is wanted.
struct SweepDealer {
  std::uint32_t File;       // 1-based
  std::uint32_t Index = 0;  // sweeps dealt to it

  void Deal(const FileTable& files, SweepRecord& sweep) {
    sweep.File = File;
    sweep.Index = ++Index;
    const std::int64_t sweepCount =
        File <= static_cast<std::uint32_t>(files.Count) ? files.Index[File - 1]->SweepCount : 0;
    if (Index < sweepCount) return;
    ++File;
    Index = 0;
  }
};

/// Seven tokens, the first of which is checked and dropped. Returns 0, or -1 at a bad token.
int ReadSweepRow(TextScanner& scanner, SweepRecord& sweep) {
  std::int32_t dropped;
  sweep = SweepRecord{};
  const bool good =
      ReadInteger(scanner, &dropped) == 0 && ReadReal(scanner, &sweep.StartTime) == 0 &&
      ReadReal(scanner, &sweep.Duration) == 0 && ReadReal(scanner, &sweep.RelevantStart) == 0 &&
      ReadReal(scanner, &sweep.RelevantEnd) == 0 && ReadReal(scanner, &sweep.RelevantValue) == 0 &&
      ReadReal(scanner, &sweep.TagValue) == 0;
  return good ? 0 : -1;
}

/// False when one of the rows up to "Events" or the end of the data cannot be taken. The rows stand
/// behind the count of the table.
bool ReadSweepRows(FrameWindow* frame, TextScanner& scanner, Batch& batch) {
  Workspace& workspace = *frame->Owner;
  SweepTable& sweeps = workspace.Sweeps;
  SweepDealer dealer{static_cast<std::uint32_t>(batch.FirstFile) + 1};
  while (!TakeKeyword(scanner, "Events") && !AtEndOfData(scanner)) {
    if (batch.FirstSweep + batch.SweepCount >= RoomOf(sweeps)) {
      ReportTableFull(frame, "Sweep");
      return false;
    }
    SweepRecord& sweep = *sweeps.Index[batch.FirstSweep + batch.SweepCount];
    const int status = ReadSweepRow(scanner, sweep);
    if (ReportCorrupted(frame, status, batch.SweepCount + 1, "Sweep")) return false;
    dealer.Deal(workspace.Files, sweep);
    const double end = sweep.StartTime + sweep.Duration;
    if (!SetOnlySegment(frame, sweep, sweep.StartTime, end)) return false;
    ++batch.SweepCount;
  }
  return true;
}

/// Two or more files must account for every sweep; a single one is not held to its count.
bool CheckSweepCounts(FrameWindow* frame, const Batch& batch) {
  if (batch.FileCount < 2) return true;
  const FileTable& files = frame->Owner->Files;
  std::int64_t expected = 0;
  for (std::int32_t file = 0; file < batch.FileCount; ++file) {
    expected += files.Index[batch.FirstFile + file]->SweepCount;
  }
  if (expected == batch.SweepCount) return true;
  ReportNotConsistent(
      frame, "The number of sweep records is different from those indicated in the file record.");
  return false;
}

/// Version 1 has two more integers, which are checked and dropped. Returns 0, or -1 at a bad token.
/// `*sweep` is the number as it stands in the row.
int ReadEventRow(TextScanner& scanner, std::int32_t version, EventRecord& event,
                 std::int32_t* sweep) {
  std::int32_t dropped;
  const bool fillers = version == 1;
  const bool good = ReadInteger(scanner, sweep) == 0 && ReadReal(scanner, &event.Transition) == 0 &&
                    ReadReal(scanner, &event.PreAmplitude) == 0 &&
                    (!fillers || ReadInteger(scanner, &dropped) == 0) &&
                    ReadReal(scanner, &event.PostAmplitude) == 0 &&
                    (!fillers || ReadInteger(scanner, &dropped) == 0) &&
                    ReadInteger(scanner, &event.Level) == 0 &&
                    ReadReal(scanner, &event.TagValue) == 0;
  return good ? 0 : -1;
}

/// Reads rows to the end of the data and takes them in. False when none of them stays.
bool ReadEventRows(FrameWindow* frame, TextScanner& scanner, std::int32_t version,
                   const Batch& batch) {
  EventTable& events = frame->Owner->Events;
  const auto base = static_cast<std::uint32_t>(batch.FirstSweep);
  std::int32_t largest = 0;
  std::int32_t next = events.Count;
  for (; !AtEndOfData(scanner); ++next) {
    if (next >= RoomOf(events)) {
      ReportTableFull(frame, "Event");
      return false;
    }
    EventRecord& event = *events.Index[next];
    std::int32_t sweep;
    const int status = ReadEventRow(scanner, version, event, &sweep);
    if (ReportCorrupted(frame, status, next - events.Count + 1, "Event")) return false;
    event.Sweep = static_cast<std::uint32_t>(sweep) + base;
    largest = std::max(largest, sweep);
  }
  if (largest > batch.SweepCount) {
    ReportFailure(frame,
                  {TextId::TheDataFile, "is corrupted. Some of the sweep records are missing",
                   TextId::ErrorOccurredAtNumber, 1, " of Event record."});
    return false;
  }
  const bool anyRow = next > events.Count;
  events.Count = next;
  return anyRow;
}

/// The blocks behind the keyword. What a failed one leaves is for the caller to undo.
bool ReadBlocks(FrameWindow* frame, TextScanner& scanner, std::int32_t version, bool filesBlock,
                Batch& batch) {
  Workspace& workspace = *frame->Owner;
  const bool filesRead =
      filesBlock ? ReadFileRows(frame, scanner, batch) : AppendSingleFile(frame, batch);
  if (!filesRead || !ReadSweepRows(frame, scanner, batch)) return false;
  if (!CheckSweepCounts(frame, batch)) return false;
  workspace.Sweeps.Count = batch.FirstSweep + batch.SweepCount;
  if (!ReadEventRows(frame, scanner, version, batch)) return false;
  if (!filesBlock) workspace.Files.Index[batch.FirstFile]->SweepCount = batch.SweepCount;
  return true;
}

}  // namespace

bool ReadVersion2Table(FrameWindow* frame, TextScanner scanner, std::int32_t version,
                       const char* name) {
  Workspace& workspace = *frame->Owner;
  const bool filesBlock = TakeKeyword(scanner, "Files");
  if (!filesBlock && !TakeKeyword(scanner, "Sweeps")) {
    ReportCannotRead(frame, name);
    return false;
  }
  Batch batch{.FirstFile = workspace.Files.Count, .FirstSweep = workspace.Sweeps.Count};
  const bool good =
      ReadBlocks(frame, scanner, version, filesBlock, batch) || UndoBatch(workspace, batch);
  RefreshEventAndSweepRanges(frame);
  return good;
}

}  // namespace ondrel
