#include "shell/export_sizes.h"

#include "shell/toolkit.h"
#include "workspace/truncate.h"
#include "workspace/units.h"

namespace ondrel {

double DpiOfWindow(ChildWindow* window) {
  DeviceRecord device = toolkit::AcquireDevice(window);
  const double dpi = toolkit::DeviceDpi(device);
  toolkit::ReleaseDevice(window, device);
  return dpi;
}

void ScaleExportSizes(Workspace& workspace, double dpi) {
  workspace.DeviceFontSize = TruncateToInteger(LetterSize(workspace) * dpi / kPointsPerInch);
  workspace.DevicePenSize = workspace.PenSize * dpi / kPointsPerInch;
}

}  // namespace ondrel
