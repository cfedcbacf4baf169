#include "workspace/sweep_maker.h"

#include "shell/toolkit.h"
#include "workspace/file_types.h"
#include "workspace/reading_reports.h"
#include "workspace/report.h"
#include "workspace/workspace.h"

namespace ondrel {
namespace {

/// The sweeps being made: rows of the SweepTable from `First` up to `Next`, which its count takes
/// in only when all is well.
struct NewSweeps {
  FrameWindow* Frame;
  SweepTable& Table;
  std::int32_t First;
  std::int32_t Next;
  std::uint32_t File;  // 1-based
};

/// False when there is no memory for the segment.
bool AppendSweep(NewSweeps& sweeps, double end) {
  SweepRecord& sweep = *sweeps.Table.Index[sweeps.Next];
  sweep = SweepRecord{};
  sweep.File = sweeps.File;
  sweep.Index = static_cast<std::uint32_t>(sweeps.Next - sweeps.First + 1);
  sweep.Duration = end;
  sweep.RelevantEnd = end;
  if (!SetOnlySegment(sweeps.Frame, sweep, 0.0, end)) return false;
  ++sweeps.Next;
  return true;
}

bool IsFull(const NewSweeps& sweeps) {
  return sweeps.Next >= RoomOf(sweeps.Table);
}

/// Empty sweeps up to the one before `number`, or until the table is full. Numbers are compared
/// with their sign, so that a negative one asks for none.
bool FillUpTo(NewSweeps& sweeps, std::uint32_t number) {
  while (!IsFull(sweeps) && std::int64_t{static_cast<std::int32_t>(number)} > sweeps.Next + 1) {
    if (!AppendSweep(sweeps, 0.0)) return false;
  }
  return true;
}

/// The last of the events from `event` on that stand together in one sweep.
std::int32_t EndOfGroup(const EventTable& events, std::int32_t event) {
  const std::uint32_t sweep = events.Index[event]->Sweep;
  while (event + 1 < events.Count && events.Index[event + 1]->Sweep == sweep) ++event;
  return event;
}

/// One sweep for each group of events, until the table is full. False when there is no memory.
bool AppendGroups(NewSweeps& sweeps, const EventTable& events, std::int32_t firstEvent) {
  for (std::int32_t event = firstEvent; event < events.Count && !IsFull(sweeps); ++event) {
    event = EndOfGroup(events, event);
    const EventRecord& last = *events.Index[event];
    if (!FillUpTo(sweeps, last.Sweep)) return false;
    if (!IsFull(sweeps) && !AppendSweep(sweeps, last.Transition)) return false;
  }
  return true;
}

/// True when the sweeps can stay; otherwise the user is told.
bool AcceptSweeps(const NewSweeps& sweeps, const FileTable& files, std::int32_t lastSweep) {
  if (IsFull(sweeps)) {
    ReportTableFull(sweeps.Frame, "Sweep");
    return false;
  }
  if (sweeps.Next - sweeps.First != lastSweep) {
    ReportNotConsistent(sweeps.Frame, "The number of sweep records is ambiguous.");
    return false;
  }
  if (files.Count >= RoomOf(files)) {
    ReportTableFull(sweeps.Frame, "Event");
    return false;
  }
  return true;
}

}  // namespace

bool SetOnlySegment(FrameWindow* frame, SweepRecord& sweep, double start, double end) {
  sweep.Segments = toolkit::AllocateRecords<SegmentRecord>(1);
  sweep.SegmentCount = sweep.Segments != nullptr ? 1 : 0;
  if (sweep.Segments == nullptr) {
    ReportFailure(frame, {TextId::InsufficientMemoryFor, "building segment array of a sweep",
                          TextId::QuitOtherPrograms});
    return false;
  }
  *sweep.Segments = {start, end};
  return true;
}

void MakeSweeps(FrameWindow* frame, std::int32_t firstEvent, std::int32_t lastSweep) {
  Workspace& workspace = *frame->Owner;
  FileTable& files = workspace.Files;
  const std::int32_t first = workspace.Sweeps.Count;
  NewSweeps sweeps{frame, workspace.Sweeps, first, first,
                   static_cast<std::uint32_t>(files.Count) + 1};
  if (!AppendGroups(sweeps, workspace.Events, firstEvent) ||
      !AcceptSweeps(sweeps, files, lastSweep)) {
    FreeSegments(workspace.Sweeps, first, sweeps.Next - first);
    workspace.Events.Count = firstEvent;
    return;
  }
  workspace.Sweeps.Count = sweeps.Next;
  *files.Index[files.Count++] = UndefinedFile(lastSweep);
}

}  // namespace ondrel
