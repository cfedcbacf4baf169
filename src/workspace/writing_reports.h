// What the user is told when a file cannot be written.
#pragma once

#include <string_view>

#include "shell/window_record.h"
#include "workspace/output_file.h"

namespace ondrel {

/// Tells that a write failed and that nothing more goes to the file.
void ReportWritingFailed(FrameWindow* frame);

/// Writes `text` and a line end. False after a failed write, which the user has been told; the file
/// is closed then.
[[nodiscard]] bool WriteReportedLine(FrameWindow* frame, OutputFile& file, std::string_view text);

}  // namespace ondrel
