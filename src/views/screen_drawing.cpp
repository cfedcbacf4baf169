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

void SetUp(DeviceRecord& device, const DrawingSetUp& setUp) {
  toolkit::SetUpDevice(device);
  if (setUp.Background != nullptr) toolkit::SetBackground(device, *setUp.Background);
  toolkit::SetPenWidth(device, std::max(TruncateToInteger(std::ceil(setUp.PenSize)), 0));
  toolkit::SetFontHeight(device, std::max(setUp.FontHeight, 1));
}

}  // namespace

void BeginDrawing(Workspace& workspace, const DeviceRecord& device, const DrawingSetUp& setUp) {
  GraphicsContext& context = workspace.Graphics;
  context.Device = device;
  context.Lent = {};
  context.Status = 0;
  SetUp(context.Device, setUp);
}

void BeginScreenDrawing(Workspace& workspace, const DeviceRecord& device,
                        const RgbColor& background) {
  const double dpi = toolkit::DeviceDpi(device);
  // Multiplied first: a size that is a whole number of device units is to come out as one.
  const double fontHeight = LetterSize(workspace) * dpi / kPointsPerInch;
  BeginDrawing(workspace, device,
               {.FontHeight = TruncateToInteger(fontHeight),
                .PenSize = workspace.PenSize * dpi / kPointsPerInch,
                .Background = &background});
}

void EndDrawing(Workspace& workspace) {
  toolkit::CleanUpDevice(workspace.Graphics.Device);
  workspace.Graphics.Device = {};
}

void LendDevice(Workspace& workspace, const DeviceRecord& device, const DrawingSetUp& setUp) {
  workspace.Graphics.Lent = device;
  SetUp(workspace.Graphics.Lent, setUp);
}

void TakeBackDevice(Workspace& workspace) {
  toolkit::CleanUpDevice(workspace.Graphics.Lent);
  workspace.Graphics.Lent = {};
}

Drawing OnScreen(Workspace& workspace) {
  return {workspace.ScreenSink, workspace.Graphics};
}

TextLine MeasureLine(const Workspace& workspace) {
  const toolkit::FontMetrics font = toolkit::MeasureFont(MeasuringDevice(workspace.Graphics));
  const std::int64_t height = std::int64_t{font.Ascent} + font.Descent;
  return {.Ascent = std::min(font.Ascent, kTallestLine),
          .Height = static_cast<std::int32_t>(std::clamp<std::int64_t>(height, 1, kTallestLine))};
}

}  // namespace ondrel
