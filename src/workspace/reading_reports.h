// What the user is told when an event table cannot be read, and the refresh that every reader ends
// with.
#pragma once

#include <cstdint>

#include "shell/window_record.h"

namespace ondrel {

/// When `status` is not 0, tells that the data is corrupted at row `number` of the records that
/// `word` names, and returns true. Every token that was read is followed by this test.
bool ReportCorrupted(FrameWindow* frame, int status, std::int32_t number, const char* word);

/// `word` is "Event" or "Sweep".
void ReportTableFull(FrameWindow* frame, const char* word);

void ReportCannotRead(FrameWindow* frame, const char* name);
void ReportTooManyFiles(FrameWindow* frame);

/// `what` says which records contradict each other, in a sentence.
void ReportNotConsistent(FrameWindow* frame, const char* what);

/// Tells the EventView and the SweepView, where open, how many rows there are now.
void RefreshEventAndSweepRanges(FrameWindow* frame);

}  // namespace ondrel
