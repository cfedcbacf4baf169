#include "output/screen_sink.h"

#include <algorithm>

#include "output/bar_geometry.h"
#include "output/curve_points.h"
#include "output/truncated_rect.h"
#include "shell/toolkit.h"
#include "workspace/truncate.h"

namespace ondrel {
namespace {

/// Devices of the platform's older lines take coordinates of 16 bits.
constexpr std::int32_t kFarthestCoordinate = 32000;

/// Where the skyline of a histogram ends, at the farthest.
constexpr double kFarthestOutline = 65535.0;

std::int32_t PathCoordinate(double value) {
  return std::clamp(TruncateToInteger(value), -kFarthestCoordinate, kFarthestCoordinate);
}

void MoveToPoint(GraphicsContext& context, double x, double y) {
  toolkit::MoveTo(context.Device, TruncateToInteger(x), TruncateToInteger(y));
}
void LineToPoint(GraphicsContext& context, double x, double y) {
  toolkit::LineTo(context.Device, TruncateToInteger(x), TruncateToInteger(y));
}

void ScreenDrawLine(GraphicsContext& context, double x1, double y1, double x2, double y2) {
  MoveToPoint(context, x1, y1);
  LineToPoint(context, x2, y2);
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
  MoveToPoint(context, x, y);
  toolkit::DrawTextHere(context.Device, text);
}

IntRect ScreenDrawRect(GraphicsContext& context, double x1, double y1, double x2, double y2) {
  const IntRect rect = TruncateRect(x1, y1, x2, y2);
  toolkit::HollowRect(context.Device, rect);
  return rect;
}

void ScreenDrawFilledBars(GraphicsContext& context, double left, double base, double right,
                          double top, const BinRecord* bins) {
  ForEachBar(context, {left, base, right, top}, bins, [&](const BarRecord& bar) {
    toolkit::FilledRect(context.Device, TruncateRect(bar.Left, bar.Top, bar.Right, base));
  });
}

void ScreenDrawBarRectangles(GraphicsContext& context, double left, double base, double right,
                             double top, const BinRecord* bins) {
  ForEachBar(context, {left, base, right, top}, bins, [&](const BarRecord& bar) {
    toolkit::HollowRect(context.Device, TruncateRect(bar.Left, bar.Top, bar.Right, base));
  });
}

void ScreenDrawBarOutline(GraphicsContext& context, double left, double base, double right,
                          double top, const BinRecord* bins) {
  base = std::min(base, kFarthestOutline);
  right = std::min(right, kFarthestOutline);
  MoveToPoint(context, left, base);
  const double end = ForEachBar(context, {left, base, right, top}, bins, [&](const BarRecord& bar) {
    LineToPoint(context, bar.Left, bar.Top);
    LineToPoint(context, bar.Right, bar.Top);
  });
  LineToPoint(context, end, base);
}

/// Only what follows the first point is limited in height.
void DrawCurvePoint(GraphicsContext& context, const CurvePoint& point) {
  if (point.Begins) {
    MoveToPoint(context, point.X, point.Y);
    return;
  }
  toolkit::LineTo(context.Device, TruncateToInteger(point.X), PathCoordinate(point.Y));
}

void ScreenDrawDurationCurve(GraphicsContext& context, const DurationHistogram& fit, double x0,
                             double top, double base, std::int32_t firstTerm,
                             std::int32_t endTerm) {
  ForEachCurvePoint(fit, {x0, top, base, firstTerm, endTerm}, context.BinCount,
                    [&](const CurvePoint& point) { DrawCurvePoint(context, point); });
}

// The twins count their points by themselves: this one's does not come from the context.
void ScreenDrawAmplitudeCurve(GraphicsContext& context, const AmplitudeHistogram& fit, double x0,
                              double top, double base, std::int32_t firstTerm,
                              std::int32_t endTerm) {
  ForEachCurvePoint(fit, {x0, top, base, firstTerm, endTerm}, CountBins(fit),
                    [&](const CurvePoint& point) { DrawCurvePoint(context, point); });
}

void ScreenDrawDot(GraphicsContext& context, double y, double x, double size) {
  const double half = size / 2;
  if (half == 0.0) {
    toolkit::DrawPoint(context.Device, TruncateToInteger(x), TruncateToInteger(y));
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
    .DrawFilledBars = ScreenDrawFilledBars,
    .DrawBarRectangles = ScreenDrawBarRectangles,
    .DrawBarOutline = ScreenDrawBarOutline,
    .DrawRect = ScreenDrawRect,
    .DrawDurationCurve = ScreenDrawDurationCurve,
    .DrawAmplitudeCurve = ScreenDrawAmplitudeCurve,
    .DrawDot = ScreenDrawDot,
    .SetColor = ScreenSetColor,
    .SetClip = ScreenSetClip,
    .GetPixelSnap = ScreenGetPixelSnap,
};

}  // namespace ondrel
