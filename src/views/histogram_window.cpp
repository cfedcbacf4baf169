#include "views/histogram_window.h"

#include "shell/toolkit.h"
#include "views/amplitude_view.h"
#include "views/duration_view.h"
#include "views/screen_drawing.h"

namespace ondrel {
namespace {

void DrawNote(const Drawing& drawing, const ViewState& view, const IntRect& client,
              const char* note) {
  const std::int32_t x = Width(client) / 2;
  const std::int32_t y = (client.Top + Height(client) / 7) * 3 / 5;
  SetFillColor(drawing, ColorOf(view, HistogramColor::Labels));
  DrawTextFrom(drawing, x, y, note);
}

}  // namespace

void PaintHistogram(ChildWindow* window, ViewKind kind, const DeviceRecord& device,
                    const char* note) {
  Workspace& workspace = *window->Owner;
  const ViewState& view = ViewOf(workspace, kind);
  const RgbColor& background = ColorOf(view, HistogramColor::Background);
  const IntRect client = toolkit::ClientRect(window);
  toolkit::BufferRecord buffer = toolkit::BeginBuffer(device, client);
  BeginScreenDrawing(workspace, buffer.Device, background);
  toolkit::FillArea(workspace.Graphics.Device, client, background);

  const auto draw = kind == ViewKind::Amplitude ? DrawAmplitude : DrawDuration;
  draw(workspace, workspace.ScreenSink, client);
  if (note != nullptr) DrawNote(OnScreen(workspace), view, client, note);
  EndScreenDrawing(workspace);
  toolkit::EndBuffer(device, buffer, client);
}

void RedrawHistogram(Workspace& workspace, ViewKind kind, const char* note) {
  ChildWindow* window = ViewOf(workspace, kind).Window;
  if (window == nullptr) return;
  DeviceRecord device = toolkit::AcquireDevice(window);
  PaintHistogram(window, kind, device, note);
  toolkit::ReleaseDevice(window, device);
}

}  // namespace ondrel
