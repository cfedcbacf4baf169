// "Print...": the active view on one page of paper, as large as its window.
#pragma once

#include "shell/window_record.h"

namespace ondrel {

/// Asks for printer and paper, then prints. While the page is on its way the frame is disabled and
/// a small dialog offers to stop. Nothing happens without an active view. A failure is told and
/// ends the command.
void PrintCommand(FrameWindow* frame);

}  // namespace ondrel
