#include "shell/save_commands.h"

#include "shell/export_dialogs.h"
#include "shell/toolkit.h"
#include "workspace/event_table_writer.h"
#include "workspace/output_file.h"
#include "workspace/records.h"
#include "workspace/workspace.h"
#include "workspace/writing_reports.h"

namespace ondrel {
namespace {

using TableWriter = bool (*)(FrameWindow* frame, OutputFile& file);

/// The writer tells its own failures. A failed close counts as a failed write, since the last lines
/// may wait until then. Unlike CreateOutputFile this leaves a file that cannot be opened: whatever
/// a save has made stays, however far it came.
void SaveUnder(FrameWindow* frame, const char* path, TableWriter save) {
  OutputFile file;
  if (toolkit::CreateEmptyFile(path) != 0 || OpenOutputFile(path, file) != 0) {
    ReportWritingFailed(frame);
    return;
  }
  const bool saved = save(frame, file);
  const bool closed = CloseOutputFile(file) == 0;
  if (saved && !closed) ReportWritingFailed(frame);
}

void AskAndSave(FrameWindow* frame, const char* title, const char* defaultName, TableWriter save) {
  char path[kPathSize] = "";
  if (!toolkit::AskFile(frame, toolkit::FileDialogMode::Save, title, defaultName, path)) return;
  SaveUnder(frame, path, save);
}

}  // namespace

void SaveEventsCommand(FrameWindow* frame) {
  AskAndSave(frame, "Save event list as:", "Untitled", SaveEventFile);
}

void SaveLevelsCommand(FrameWindow* frame) {
  if (!AskLevelFile(frame)) return;
  const bool dwells = frame->Owner->LevelFileType == LevelFileChoice::Qub;
  AskAndSave(frame, "Save level list as:", dwells ? "Untitled.dwt" : "Untitled.evt", SaveLevelFile);
}

}  // namespace ondrel
