#include "views/histogram_window.h"

#include "shell/toolkit.h"
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

}  // namespace

void PaintHistogram(ChildWindow* window, ViewKind kind, const DeviceRecord& device,
                    const char* note) {
  Workspace& workspace = *window->Owner;
  const ViewState& view = ViewOf(workspace, kind);
  const RgbColor& background = ColorOf(view, HistogramColor::Background);
  const IntRect client = toolkit::ClientRect(window);
  const ViewRoutines& routines = *FactsOf(kind).Routines;
  const Destination destination{.Sink = workspace.ScreenSink, .Rect = client};
  // Counting can fail, and the box that says so lets other paint messages through: nothing of the
  // drawing may be under way by then.
  routines.LayOut(workspace, destination);

  DrawOutOfSight(workspace, device, client, background, [&](const Drawing& drawing) {
    routines.Draw(workspace, destination);
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
