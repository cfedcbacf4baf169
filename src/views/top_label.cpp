#include "views/top_label.h"

#include "output/truncated_rect.h"
#include "shell/toolkit.h"

namespace ondrel {
namespace {

// --- A form that draws nothing -------------------------------------------------------------------

void IgnoreLine(GraphicsContext&, double, double, double, double) {}
void IgnorePoint(GraphicsContext&, double, double) {}
void IgnoreStroke(GraphicsContext&) {}
void IgnoreBars(GraphicsContext&, double, double, double, double, const BinRecord*) {}
void IgnoreDurationCurve(GraphicsContext&, const DurationHistogram&, double, double, double,
                         std::int32_t, std::int32_t) {}
void IgnoreAmplitudeCurve(GraphicsContext&, const AmplitudeHistogram&, double, double, double,
                          std::int32_t, std::int32_t) {}
void IgnoreDot(GraphicsContext&, double, double, double) {}
void IgnoreColor(GraphicsContext&, const char*, std::size_t, const RgbColor&) {}
void IgnoreClip(GraphicsContext&, const IntRect&) {}

IntRect PassRect(GraphicsContext&, double x1, double y1, double x2, double y2) {
  return TruncateRect(x1, y1, x2, y2);
}

void NoSnap(GraphicsContext&, double* snap) {
  *snap = 0.0;
}

/// Only the labels of the vertical axis end at a place.
void NoteLabel(GraphicsContext& context, double, double y, TextAlignment alignment,
               const char* text, std::size_t) {
  if (alignment == TextAlignment::Left) return;
  TopLabel& highest = context.Highest;
  if (highest.Found && !(y < highest.Y)) return;
  highest = {.Found = true, .Y = y, .Width = toolkit::TextWidth(MeasuringDevice(context), text)};
}

constexpr GraphicsSink kLabelSink = {
    .DrawLine = IgnoreLine,
    .MoveTo = IgnorePoint,
    .LineTo = IgnorePoint,
    .StrokePath = IgnoreStroke,
    .DrawText = NoteLabel,
    .DrawFilledBars = IgnoreBars,
    .DrawBarRectangles = IgnoreBars,
    .DrawBarOutline = IgnoreBars,
    .DrawRect = PassRect,
    .DrawDurationCurve = IgnoreDurationCurve,
    .DrawAmplitudeCurve = IgnoreAmplitudeCurve,
    .DrawDot = IgnoreDot,
    .SetColor = IgnoreColor,
    .SetClip = IgnoreClip,
    .GetPixelSnap = NoSnap,
};

}  // namespace

std::int32_t TopLabelWidth(Workspace& workspace, const ViewRoutines& view,
                           const Destination& destination) {
  workspace.Graphics.Highest = {};
  view.Draw(workspace, {.Sink = kLabelSink,
                        .Rect = destination.Rect,
                        .Dpi = destination.Dpi,
                        .PictureDpi = destination.PictureDpi});
  return workspace.Graphics.Highest.Width;
}

}  // namespace ondrel
