// The state of the context while something is drawn in a window.
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

/// Takes `device` into the context and brings it to the state in which every drawing starts: font
/// and pen at the sizes of the settings, `background` as the device's. `Status` is 0 afterwards.
void BeginScreenDrawing(Workspace& workspace, const DeviceRecord& device,
                        const RgbColor& background);
/// Gives up what the context selected into the device.
void EndScreenDrawing(Workspace& workspace);

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
  EndScreenDrawing(workspace);
  toolkit::EndBuffer(device, buffer, client);
}

/// Of the font that is selected now.
TextLine MeasureLine(const Workspace& workspace);

}  // namespace ondrel
