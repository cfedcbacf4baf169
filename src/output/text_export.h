// Text files for other programs, one for each of the twelve views. The form, for spreadsheets or
// for Igor, decides only what stands around the rows and the name that is offered.
#pragma once

#include "views/view_state.h"
#include "workspace/workspace.h"

namespace ondrel {

struct TextExportRecord {
  ViewKind Kind;
  const char* Title;            // of the save dialog
  const char* SpreadsheetName;  // the file name that it offers
  const char* IgorName;
  const char* Waves;             // Igor's line of column names, without those of a fit
  bool TellsFailedRows = false;  // besides what is told of the export as a whole
};

const TextExportRecord& TextExportOf(ViewKind kind);

/// The file name that the save dialog offers for the view's text.
const char* OfferedTextName(ViewKind kind, TextExportChoice form);

/// Writes the text of the view `kind` to `path`, in place of what stands there, in the form of the
/// settings. A failure is told. What was written until then stays, except that no file is left
/// when it could not be opened.
void ExportText(FrameWindow* frame, ViewKind kind, const char* path);

}  // namespace ondrel
