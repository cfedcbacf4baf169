#include "workspace/reading_reports.h"

#include "workspace/report.h"
#include "workspace/scroll_range.h"
#include "workspace/workspace.h"

namespace ondrel {

bool ReportCorrupted(FrameWindow* frame, int status, std::int32_t number, const char* word) {
  if (status == 0) return false;
  ReportFailure(frame, {TextId::TheDataFile, "is corrupted", TextId::ErrorOccurredAtNumber, number,
                        " of ", word, " record."});
  return true;
}

void ReportTableFull(FrameWindow* frame, const char* word) {
  ReportFailure(frame, {word, TextId::TableIsFull, word, TextId::TableEntries});
}

void ReportCannotRead(FrameWindow* frame, const char* name) {
  ReportFailure(frame, {TextId::CannotReadFile, name, TextId::ExpectsTabDelimited});
}

void ReportTooManyFiles(FrameWindow* frame) {
  ReportFailure(frame, {TextId::TooManyFiles});
}

void ReportNotConsistent(FrameWindow* frame, const char* what) {
  ReportFailure(frame, {TextId::NotConsistent, what});
}

void RefreshEventAndSweepRanges(FrameWindow* frame) {
  Workspace& workspace = *frame->Owner;
  RefreshScrollRange(ViewOf(workspace, ViewKind::Event), workspace.Events.Count);
  RefreshScrollRange(ViewOf(workspace, ViewKind::Sweep), workspace.Sweeps.Count);
}

}  // namespace ondrel
