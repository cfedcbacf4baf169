#include "output/plot_primitives.h"

#include <cstring>

#include "shell/toolkit.h"

namespace ondrel {
namespace {

void SetColor(const Drawing& drawing, const char* suffix, const RgbColor& color) {
  drawing.Sink.SetColor(drawing.Context, suffix, std::strlen(suffix) + 1, color);
}

void DrawAligned(const Drawing& drawing, double x, double y, TextAlignment alignment,
                 const char* text) {
  drawing.Sink.DrawText(drawing.Context, x, y, alignment, text, std::strlen(text) + 1);
}

}  // namespace

double GetPixelSnap(const Drawing& drawing) {
  double snap = 0.0;
  drawing.Sink.GetPixelSnap(drawing.Context, &snap);
  return snap;
}

void SetFillColor(const Drawing& drawing, const RgbColor& color) {
  SetColor(drawing, " k", color);
}

void SetStrokeColor(const Drawing& drawing, const RgbColor& color) {
  SetColor(drawing, " K", color);
}

void SetClip(const Drawing& drawing, const IntRect& rect) {
  drawing.Sink.SetClip(drawing.Context, rect);
}

void DrawTextFrom(const Drawing& drawing, double x, double y, const char* text) {
  DrawAligned(drawing, x, y, TextAlignment::Left, text);
}

void DrawTextUpTo(const Drawing& drawing, double x, double y, const char* text) {
  DrawAligned(drawing, x, y, TextAlignment::Right, text);
}

void DrawTextCentredAt(const Drawing& drawing, double x, double y, const char* text) {
  const double half = toolkit::TextWidth(MeasuringDevice(drawing.Context), text) / 2.0;
  DrawAligned(drawing, x - half, y, TextAlignment::Left, text);
}

void DrawLine(const Drawing& drawing, double x1, double y1, double x2, double y2) {
  drawing.Sink.DrawLine(drawing.Context, x1, y1, x2, y2);
}

IntRect DrawRect(const Drawing& drawing, double x1, double y1, double x2, double y2) {
  return drawing.Sink.DrawRect(drawing.Context, x1, y1, x2, y2);
}

void MoveTo(const Drawing& drawing, double x, double y) {
  drawing.Sink.MoveTo(drawing.Context, x, y);
}

void LineTo(const Drawing& drawing, double x, double y) {
  drawing.Sink.LineTo(drawing.Context, x, y);
}

void StrokePath(const Drawing& drawing) {
  drawing.Sink.StrokePath(drawing.Context);
}

void DrawDot(const Drawing& drawing, double x, double y, double size) {
  drawing.Sink.DrawDot(drawing.Context, y, x, size);
}

void DrawBars(const Drawing& drawing, HistogramStyle style, double left, double base, double right,
              double top, const BinRecord* bins) {
  switch (style) {
    case HistogramStyle::Filled:
      drawing.Sink.DrawFilledBars(drawing.Context, left, base, right, top, bins);
      return;
    case HistogramStyle::Rectangles:
      drawing.Sink.DrawBarRectangles(drawing.Context, left, base, right, top, bins);
      return;
    case HistogramStyle::Outlined:
      break;
  }
  drawing.Sink.DrawBarOutline(drawing.Context, left, base, right, top, bins);
}

void DrawAmplitudeCurve(const Drawing& drawing, const AmplitudeHistogram& fit, double left,
                        double top, double base, std::int32_t firstTerm, std::int32_t endTerm) {
  drawing.Sink.DrawAmplitudeCurve(drawing.Context, fit, left, top, base, firstTerm, endTerm);
}

void DrawDurationCurve(const Drawing& drawing, const DurationHistogram& fit, double left,
                       double top, double base, std::int32_t firstTerm, std::int32_t endTerm) {
  drawing.Sink.DrawDurationCurve(drawing.Context, fit, left, top, base, firstTerm, endTerm);
}

}  // namespace ondrel
