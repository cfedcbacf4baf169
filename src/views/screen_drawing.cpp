#include "views/screen_drawing.h"

#include <algorithm>
#include <cmath>

#include "shell/toolkit.h"
#include "workspace/truncate.h"
#include "workspace/units.h"

namespace ondrel {

void BeginScreenDrawing(Workspace& workspace, const DeviceRecord& device,
                        const RgbColor& background) {
  GraphicsContext& context = workspace.Graphics;
  context.Device = device;
  context.Status = 0;
  toolkit::SetUpDevice(context.Device);
  toolkit::SetBackground(context.Device, background);
  const double unitsPerPoint = toolkit::DeviceDpi(context.Device) / kPointsPerInch;
  toolkit::SetPenWidth(context.Device,
                       TruncateToInteger(std::ceil(workspace.PenSize * unitsPerPoint)));
  toolkit::SetFontHeight(context.Device, TruncateToInteger(workspace.FontSize * unitsPerPoint));
}

void EndScreenDrawing(Workspace& workspace) {
  toolkit::CleanUpDevice(workspace.Graphics.Device);
  workspace.Graphics.Device = {};
}

Drawing OnScreen(Workspace& workspace) {
  return {workspace.ScreenSink, workspace.Graphics};
}

TextLine MeasureLine(const Workspace& workspace) {
  const toolkit::FontMetrics font = toolkit::MeasureFont(workspace.Graphics.Device);
  return {.Ascent = font.Ascent, .Height = std::max(font.Ascent + font.Descent, 1)};
}

}  // namespace ondrel
