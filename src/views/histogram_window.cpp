#include "views/histogram_window.h"

#include "shell/toolkit.h"
#include "views/amplitude_view.h"
#include "views/duration_view.h"
#include "views/histogram_layout.h"
#include "views/screen_drawing.h"

namespace ondrel {
namespace {

// A note begins half way along the window, three fifths of the way down to a seventh of it. All of
// it is reckoned in whole pixels.
constexpr std::int32_t kNoteLeftDivisor = 2;
constexpr std::int32_t kNoteHeightDivisor = 7;
constexpr std::int32_t kNoteParts = 3;
constexpr std::int32_t kNoteWhole = 5;

void DrawNote(const Drawing& drawing, const ViewState& view, const IntRect& client,
              const char* note) {
  const std::int32_t x = Width(client) / kNoteLeftDivisor;
  const std::int32_t y =
      (client.Top + Height(client) / kNoteHeightDivisor) * kNoteParts / kNoteWhole;
  SetFillColor(drawing, ColorOf(view, HistogramColor::Labels));
  DrawTextFrom(drawing, x, y, note);
}

/// The two steps to a picture of a histogram.
struct HistogramSteps {
  void (*Layout)(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect);
  void (*Draw)(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect);
};

constexpr HistogramSteps kAmplitudeSteps = {.Layout = LayoutAmplitude, .Draw = DrawAmplitude};
constexpr HistogramSteps kDurationSteps = {.Layout = LayoutDuration, .Draw = DrawDuration};

}  // namespace

void PaintHistogram(ChildWindow* window, ViewKind kind, const DeviceRecord& device,
                    const char* note) {
  Workspace& workspace = *window->Owner;
  const ViewState& view = ViewOf(workspace, kind);
  const RgbColor& background = ColorOf(view, HistogramColor::Background);
  const IntRect client = toolkit::ClientRect(window);
  const HistogramSteps& steps = kind == ViewKind::Amplitude ? kAmplitudeSteps : kDurationSteps;
  // Counting can fail, and the box that says so lets other paint messages through: nothing of the
  // drawing may be under way by then.
  steps.Layout(workspace, workspace.ScreenSink, client);

  DrawOutOfSight(workspace, device, client, background, [&](const Drawing& drawing) {
    steps.Draw(workspace, drawing.Sink, client);
    if (note != nullptr) DrawNote(drawing, view, client, note);
  });
}

void RedrawHistogram(Workspace& workspace, ViewKind kind, const char* note) {
  ChildWindow* window = ViewOf(workspace, kind).Window;
  if (window == nullptr) return;
  DeviceRecord device = toolkit::AcquireDevice(window);
  PaintHistogram(window, kind, device, note);
  toolkit::ReleaseDevice(window, device);
}

}  // namespace ondrel
