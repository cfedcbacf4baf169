// What each of the twelve views leaves in a text file: its rows, with currents in amperes and times
// in seconds, and what goes with them. Both forms of a file, for spreadsheets and for Igor, hold
// the same rows; the form decides only what stands around them.
#pragma once

#include <cstdint>

#include "views/view_state.h"
#include "workspace/output_file.h"
#include "workspace/workspace.h"

namespace ondrel {

struct TextExportRecord {
  ViewKind Kind;
  const char* Title;            // of the save dialog
  const char* SpreadsheetName;  // the file name that it offers
  const char* IgorName;
  const char* Waves;  // Igor's line of column names, without those of a fit
  /// Writes the rows. Returns 0, or the platform's code of a write that failed; the file is closed
  /// then.
  std::int32_t (*WriteRows)(const Workspace& workspace, OutputFile& file);
  bool TellsFailedRows;  // besides what is told of the export as a whole
};

const TextExportRecord& TextExportOf(ViewKind kind);

/// The columns of a fit, which stand behind those of a histogram.
struct FitColumns {
  bool Sum = false;        // first a column for all terms together
  std::int32_t Terms = 0;  // then one for each of so many
};

/// Those that the rows of the view `kind` have now: as its picture shows the fit, and none while
/// the view with the parameters is closed.
FitColumns FitColumnsOf(const Workspace& workspace, ViewKind kind);

}  // namespace ondrel
