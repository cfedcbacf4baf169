// The state of the context while something is drawn on a device.
#pragma once

#include <cstdint>

#include "output/plot_primitives.h"
#include "shell/toolkit.h"
#include "workspace/workspace.h"

namespace ondrel {

/// Height of a line of text, without leading, and where its baseline lies in it.
struct TextLine {
  std::int32_t Ascent = 0;
  std::int32_t Height = 1;  // at least 1
};

/// How a drawing begins.
struct DrawingSetUp {
  std::int32_t FontHeight = 0;           // device units
  double PenSize = 0.0;                  // device units; the pen is as many whole ones as it takes
  const RgbColor* Background = nullptr;  // null: the device has none
};

/// Takes `device` into the context and brings it to the state in which every drawing starts.
/// `Status` is 0 afterwards.
void BeginDrawing(Workspace& workspace, const DeviceRecord& device, const DrawingSetUp& setUp);
/// The same for a window, with font and pen at the sizes of the settings.
void BeginScreenDrawing(Workspace& workspace, const DeviceRecord& device,
                        const RgbColor& background);
/// Gives up what the context selected into the device.
void EndDrawing(Workspace& workspace);

/// Brings a device that a drawing is lent to the drawing's state; the context takes it. What is
/// measured for the drawing is measured with it from now on.
void LendDevice(Workspace& workspace, const DeviceRecord& device, const DrawingSetUp& setUp);
/// Gives up what was selected into the device that was lent.
void TakeBackDevice(Workspace& workspace);

/// The screen's sink with the context of the workspace.
Drawing OnScreen(Workspace& workspace);

/// Draws the whole client area `client` of a window: fills it with `background` and hands the
/// drawing to `draw`. All of that happens out of sight and is shown at once, without flicker.
template <typename Draw>
void DrawOutOfSight(Workspace& workspace, const DeviceRecord& device, const IntRect& client,
                    const RgbColor& background, Draw draw) {
  toolkit::BufferRecord buffer = toolkit::BeginBuffer(device, client);
  BeginScreenDrawing(workspace, buffer.Device, background);
  toolkit::FillArea(workspace.Graphics.Device, client, background);
  draw(OnScreen(workspace));
  EndDrawing(workspace);
  toolkit::EndBuffer(device, buffer, client);
}

/// Of the font that is selected now.
TextLine MeasureLine(const Workspace& workspace);

}  // namespace ondrel
