#include "output/text_export.h"

#include <cstdint>

#include "output/text_rows.h"
#include "shell/toolkit.h"
#include "workspace/number_text.h"
#include "workspace/output_file.h"
#include "workspace/report.h"

namespace ondrel {
namespace {

bool IsForIgor(TextExportChoice form) {
  return form != TextExportChoice::Excel;
}

void TellFailure(FrameWindow* frame) {
  ReportFailure(frame, {TextId::ErrorWhileWriting});
}

/// Makes the file anew and opens it. Returns 0 or the failure.
std::int32_t OpenNewFile(const char* path, OutputFile& file) {
  std::int32_t code = toolkit::CreateEmptyFile(path);
  if (code != 0) return code;
  code = OpenOutputFile(path, file);
  if (code != 0) toolkit::RemoveFile(path);
  return code;
}

void WriteWaveNames(const Workspace& workspace, const TextExportRecord& text, OutputFile& file) {
  const FitColumns fit = FitColumnsOf(workspace, text.Kind);
  WriteText(file, text.Waves);
  if (fit.Sum) WriteText(file, ",\tFitSum");
  for (std::int32_t term = 0; term < fit.Terms; ++term) {
    char number[kNumberTextSize] = "";
    IntegerText(term, number);
    WriteText(file, ",\tFit");
    WriteText(file, number);
  }
  WriteLine(file, "");
}

// What stands before the rows, and the rows. Each returns 0 or the failure, after which the file is
// closed. What one step gathers reaches the disk before the next begins, so that a failure belongs
// to the step that wrote: a short list fails on its rows, not when the file is closed.

std::int32_t WriteHead(const Workspace& workspace, const TextExportRecord& text, OutputFile& file) {
  WriteLine(file, "IGOR");
  WriteWaveNames(workspace, text, file);
  WriteLine(file, "BEGIN");
  return FlushOutputFile(file);
}

/// Of the twelve views the event list alone tells at once that a row failed. The export tells it
/// again, as it tells every failure: the user of that list sees the message twice.
std::int32_t WriteBody(FrameWindow* frame, const TextExportRecord& text, OutputFile& file) {
  text.WriteRows(*frame->Owner, file);
  const std::int32_t code = FlushOutputFile(file);
  if (code != 0 && text.TellsFailedRows) TellFailure(frame);
  return code;
}

void WriteContent(FrameWindow* frame, const TextExportRecord& text, OutputFile& file) {
  const Workspace& workspace = *frame->Owner;
  const bool isForIgor = IsForIgor(workspace.TextExportType);
  if (isForIgor && WriteHead(workspace, text, file) != 0) return;
  if (WriteBody(frame, text, file) != 0) return;
  if (isForIgor) WriteLine(file, "END");
}

}  // namespace

const char* OfferedTextName(ViewKind kind, TextExportChoice form) {
  const TextExportRecord& text = TextExportOf(kind);
  return IsForIgor(form) ? text.IgorName : text.SpreadsheetName;
}

void ExportText(FrameWindow* frame, ViewKind kind, const char* path) {
  OutputFile file;
  if (OpenNewFile(path, file) != 0) {
    TellFailure(frame);
    return;
  }
  WriteContent(frame, TextExportOf(kind), file);
  if (CloseOutputFile(file) != 0) TellFailure(frame);
}

}  // namespace ondrel
