// The rows that each of the twelve views leaves in a text file, with currents in amperes and times
// in seconds. Both forms of a file, for spreadsheets and for Igor, hold the same rows.
#pragma once

#include <cstdint>

#include "views/view_state.h"
#include "workspace/output_file.h"
#include "workspace/workspace.h"

namespace ondrel {

/// Writes the rows of the view `kind`. They end at a write that failed; the file, which is closed
/// then, knows of it.
void WriteTextRows(const Workspace& workspace, ViewKind kind, OutputFile& file);

/// The columns of a fit, which stand behind those of a histogram.
struct FitColumns {
  bool Sum = false;        // first a column for all terms together
  std::int32_t Terms = 0;  // then one for each of so many
};

/// Those that the rows of the view `kind` have now: as its picture shows the fit, and none while
/// the view with the parameters is closed.
FitColumns FitColumnsOf(const Workspace& workspace, ViewKind kind);

}  // namespace ondrel
