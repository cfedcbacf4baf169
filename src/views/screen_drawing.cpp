#include "views/screen_drawing.h"

#include <algorithm>
#include <cmath>

#include "shell/toolkit.h"
#include "workspace/truncate.h"
#include "workspace/units.h"

namespace ondrel {
namespace {

/// Far beyond any window, and small enough that a few lines add up. Settings take any size of font.
constexpr std::int32_t kTallestLine = 1 << 24;

}  // namespace

void BeginScreenDrawing(Workspace& workspace, const DeviceRecord& device,
                        const RgbColor& background) {
  GraphicsContext& context = workspace.Graphics;
  context.Device = device;
  context.Status = 0;
  toolkit::SetUpDevice(context.Device);
  toolkit::SetBackground(context.Device, background);
  const double dpi = toolkit::DeviceDpi(context.Device);
  // Multiplied first: a size that is a whole number of device units is to come out as one.
  const double penWidth = std::ceil(workspace.PenSize * dpi / kPointsPerInch);
  toolkit::SetPenWidth(context.Device, std::max(TruncateToInteger(penWidth), 0));
  const double fontHeight = std::max(workspace.FontSize, 1) * dpi / kPointsPerInch;
  toolkit::SetFontHeight(context.Device, TruncateToInteger(fontHeight));
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
  const std::int64_t height = std::int64_t{font.Ascent} + font.Descent;
  return {.Ascent = std::min(font.Ascent, kTallestLine),
          .Height = static_cast<std::int32_t>(std::clamp<std::int64_t>(height, 1, kTallestLine))};
}

}  // namespace ondrel
