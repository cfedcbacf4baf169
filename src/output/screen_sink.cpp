#include "output/screen_sink.h"

#include <algorithm>

#include "shell/toolkit.h"
#include "workspace/truncate.h"

namespace ondrel {
namespace {

/// Devices of the platform's older lines take coordinates of 16 bits.
constexpr std::int32_t kFarthestCoordinate = 32000;

std::int32_t PathCoordinate(double value) {
  return std::clamp(TruncateToInteger(value), -kFarthestCoordinate, kFarthestCoordinate);
}

IntRect TruncateRect(double left, double top, double right, double bottom) {
  return {TruncateToInteger(left), TruncateToInteger(top), TruncateToInteger(right),
          TruncateToInteger(bottom)};
}

void ScreenDrawLine(GraphicsContext& context, double x1, double y1, double x2, double y2) {
  toolkit::MoveTo(context.Device, TruncateToInteger(x1), TruncateToInteger(y1));
  toolkit::LineTo(context.Device, TruncateToInteger(x2), TruncateToInteger(y2));
}

void ScreenMoveTo(GraphicsContext& context, double x, double y) {
  toolkit::MoveTo(context.Device, PathCoordinate(x), PathCoordinate(y));
}

void ScreenLineTo(GraphicsContext& context, double x, double y) {
  toolkit::LineTo(context.Device, PathCoordinate(x), PathCoordinate(y));
}

void ScreenStrokePath(GraphicsContext&) {}

void ScreenDrawText(GraphicsContext& context, double x, double y, TextAlignment alignment,
                    const char* text, std::size_t) {
  if (alignment != TextAlignment::Left) x -= toolkit::TextWidth(context.Device, text);
  toolkit::MoveTo(context.Device, TruncateToInteger(x), TruncateToInteger(y));
  toolkit::DrawTextHere(context.Device, text);
}

// Bars and curves belong to the histogram views; no view that exists asks for them.
void ScreenDrawNoBars(GraphicsContext&, double, double, double, double, const BinRecord*) {}
void ScreenDrawNoDurationCurve(GraphicsContext&, const DurationHistogram&, double, double, double,
                               std::int32_t, std::int32_t) {}
void ScreenDrawNoAmplitudeCurve(GraphicsContext&, const AmplitudeHistogram&, double, double, double,
                                std::int32_t, std::int32_t) {}

IntRect ScreenDrawRect(GraphicsContext& context, double x1, double y1, double x2, double y2) {
  const IntRect rect = TruncateRect(x1, y1, x2, y2);
  toolkit::HollowRect(context.Device, rect);
  return rect;
}

void ScreenDrawDot(GraphicsContext& context, double y, double x, double size) {
  const double half = size / 2;
  if (half == 0.0) {
    ScreenDrawLine(context, x, y, x, y);
    return;
  }
  toolkit::FilledRect(context.Device, TruncateRect(x - half, y - half, x + half, y + half));
}

void ScreenSetColor(GraphicsContext& context, const char*, std::size_t, const RgbColor& color) {
  toolkit::SetDrawingColor(context.Device, color);
}

void ScreenSetClip(GraphicsContext& context, const IntRect& rect) {
  toolkit::ClipTo(context.Device, rect);
}

void ScreenGetPixelSnap(GraphicsContext&, double* snap) {
  *snap = 1.0;
}

}  // namespace

const GraphicsSink kScreenSink = {
    .DrawLine = ScreenDrawLine,
    .MoveTo = ScreenMoveTo,
    .LineTo = ScreenLineTo,
    .StrokePath = ScreenStrokePath,
    .DrawText = ScreenDrawText,
    .DrawFilledBars = ScreenDrawNoBars,
    .DrawBarRectangles = ScreenDrawNoBars,
    .DrawBarOutline = ScreenDrawNoBars,
    .DrawRect = ScreenDrawRect,
    .DrawDurationCurve = ScreenDrawNoDurationCurve,
    .DrawAmplitudeCurve = ScreenDrawNoAmplitudeCurve,
    .DrawDot = ScreenDrawDot,
    .SetColor = ScreenSetColor,
    .SetClip = ScreenSetClip,
    .GetPixelSnap = ScreenGetPixelSnap,
};

}  // namespace ondrel
