#include "workspace/import_reader.h"

#include <cstdint>

#include "derived/derived_chain.h"
#include "shell/toolkit.h"
#include "workspace/reading_reports.h"
#include "workspace/report.h"
#include "workspace/row_scanner.h"
#include "workspace/scroll_range.h"
#include "workspace/whole_file.h"
#include "workspace/workspace.h"

namespace ondrel {
namespace {

/// Six tokens. Returns 0, or -1 at a bad token.
int ReadImportRow(TextScanner& scanner, EventRecord& event) {
  std::int32_t sweep;
  const bool good =
      ReadInteger(scanner, &sweep) == 0 && ReadReal(scanner, &event.Transition) == 0 &&
      ReadReal(scanner, &event.PreAmplitude) == 0 && ReadReal(scanner, &event.PostAmplitude) == 0 &&
      ReadInteger(scanner, &event.Level) == 0 && ReadReal(scanner, &event.TagValue) == 0;
  event.Sweep = static_cast<std::uint32_t>(sweep);
  return good ? 0 : -1;
}

bool LiesInSweep(const SweepTable& sweeps, const EventRecord& event) {
  const SweepRecord* const sweep = GetSweepByNumber(sweeps, event.Sweep);
  return sweep != nullptr && !(sweep->Duration < event.Transition);
}

void ClearAllEvents(FrameWindow* frame) {
  ClearEvents(frame, 0, frame->Owner->Events.Count);
}

/// Rows up to the end of the data, or to the first that cannot be taken.
void ReadImportRows(FrameWindow* frame, TextScanner scanner) {
  Workspace& workspace = *frame->Owner;
  EventTable& events = workspace.Events;
  while (!AtEndOfData(scanner)) {
    if (events.Count >= RoomOf(events)) {
      ReportTableFull(frame, "Event");
      return;
    }
    EventRecord& event = *events.Index[events.Count];
    const int status = ReadImportRow(scanner, event);
    ++events.Count;
    if (ReportCorrupted(frame, status, events.Count, "Event")) {
      ClearAllEvents(frame);
      return;
    }
    if (!LiesInSweep(workspace.Sweeps, event)) {
      ClearAllEvents(frame);
      ReportFailure(frame, {TextId::ImportDoesNotMatch});
      return;
    }
  }
}

}  // namespace

int AskAndImportEvents(FrameWindow* frame) {
  const bool anyEvents = frame->Owner->Events.Count > 0;
  if (anyEvents && !AskYesNo(frame, {TextId::ImportErasesEvents})) return -1;
  char path[kPathSize] = "";
  if (!toolkit::AskFile(frame, toolkit::FileDialogMode::Open, "Event file:", "", path)) return -1;
  return ImportEvents(frame, path);
}

int ImportEvents(FrameWindow* frame, const char* path) {
  WholeFile file;
  if (!ReadWholeFile(frame, path, &file)) return -1;
  toolkit::SetWaitCursor(true);
  const bool taken = ParseImport(frame, file.Bytes, file.Name, file.Size);
  if (taken) DeriveAfterReading(*frame->Owner);
  toolkit::SetWaitCursor(false);
  return taken ? 0 : -1;
}

bool ParseImport(FrameWindow* frame, char* buffer, const char* name, std::size_t size) {
  if (size == 0) {
    ReportCannotRead(frame, name);
    toolkit::FreeMemory(buffer);
    return false;
  }
  Workspace& workspace = *frame->Owner;
  const bool anyBefore = workspace.Events.Count > 0;
  ClearAllEvents(frame);
  ReadImportRows(frame, {buffer, buffer + size});
  toolkit::FreeMemory(buffer);
  RefreshScrollRange(ViewOf(workspace, ViewKind::Event), workspace.Events.Count);
  return workspace.Events.Count > 0 || anyBefore;
}

}  // namespace ondrel
