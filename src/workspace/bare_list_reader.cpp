#include "workspace/bare_list_reader.h"

#include "workspace/reading_reports.h"
#include "workspace/row_scanner.h"
#include "workspace/sweep_maker.h"
#include "workspace/workspace.h"

namespace ondrel {
namespace {

/// Seven tokens, two of which are checked and dropped. Returns 0, or -1 at a bad token. `*sweep` is
/// the number as it stands in the row; the record counts on from the `base` sweeps of the table.
int ReadBareRow(TextScanner& scanner, std::uint32_t base, EventRecord& event, std::int32_t* sweep) {
  std::int32_t dropped;
  if (ReadInteger(scanner, sweep) != 0) return -1;
  event.Sweep = static_cast<std::uint32_t>(*sweep) + base;
  event.TagValue = 0.0;
  const bool good =
      ReadReal(scanner, &event.Transition) == 0 && ReadReal(scanner, &event.PreAmplitude) == 0 &&
      ReadInteger(scanner, &dropped) == 0 && ReadReal(scanner, &event.PostAmplitude) == 0 &&
      ReadInteger(scanner, &dropped) == 0 && ReadInteger(scanner, &event.Level) == 0;
  return good ? 0 : -1;
}

}  // namespace

bool ReadBareList(FrameWindow* frame, TextScanner scanner) {
  EventTable& events = frame->Owner->Events;
  const auto base = static_cast<std::uint32_t>(frame->Owner->Sweeps.Count);
  const std::int32_t first = events.Count;
  std::int32_t lastSweep = 0;
  std::int32_t next = first;
  for (; !AtEndOfData(scanner); ++next) {
    if (next >= RoomOf(events)) {
      ReportTableFull(frame, "Event");
      return false;
    }
    const int status = ReadBareRow(scanner, base, *events.Index[next], &lastSweep);
    if (ReportCorrupted(frame, status, next - first + 1, "Event")) return false;
  }
  if (next == first) return false;
  events.Count = next;
  MakeSweeps(frame, first, lastSweep);
  RefreshEventAndSweepRanges(frame);
  return true;
}

}  // namespace ondrel
