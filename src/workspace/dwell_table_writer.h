// Writes the selected levels as the dwell table of QUB. Durations are in seconds, as they are held;
// other programs that read such tables expect milliseconds.
#pragma once

#include "shell/window_record.h"
#include "workspace/output_file.h"

namespace ondrel {

/// Writes to a file that was opened, and leaves it to be closed. Each unbroken run of selected
/// levels in one sweep is a segment, in which no level may be more than 1 away from the first.
/// False when the save ended early, at such a level or a failed write; the user has been told and
/// the file stays as far as it came.
[[nodiscard]] bool SaveDwellTable(FrameWindow* frame, OutputFile& file);

}  // namespace ondrel
