// How large letters and pens are in a picture that leaves the program.
#pragma once

#include "shell/window_record.h"
#include "workspace/workspace.h"

namespace ondrel {

/// Dots per inch of the screen that the window is on.
double DpiOfWindow(ChildWindow* window);

/// Sets `DeviceFontSize` and `DevicePenSize` to the sizes of the settings at `dpi`.
void ScaleExportSizes(Workspace& workspace, double dpi);

}  // namespace ondrel
