// What views call to draw. Only these helpers reach through the slots of a sink; what is composed
// of several slots is composed here, once.
#pragma once

#include "fit/histogram_records.h"
#include "output/graphics_sink.h"

namespace ondrel {

/// A sink and the context it draws in.
struct Drawing {
  const GraphicsSink& Sink;
  GraphicsContext& Context;
};

/// A failed write has ended the drawing; what follows is to be left undone.
inline bool HasFailed(const Drawing& drawing) {
  return drawing.Context.Status != 0;
}

/// Above 0 where bins are to be whole device units wide.
double GetPixelSnap(const Drawing& drawing);

/// Colour of what is filled: text and bars.
void SetFillColor(const Drawing& drawing, const RgbColor& color);
/// Colour of what is stroked: axes, outlines and curves.
void SetStrokeColor(const Drawing& drawing, const RgbColor& color);

/// Limits the drawing to `rect`.
void SetClip(const Drawing& drawing, const IntRect& rect);

/// Text on the baseline `y` that begins at `x`.
void DrawTextFrom(const Drawing& drawing, double x, double y, const char* text);
/// Text on the baseline `y` that ends at `x`.
void DrawTextUpTo(const Drawing& drawing, double x, double y, const char* text);
/// Text on the baseline `y` with its middle at `x`, by its width on the device that measures.
void DrawTextCentredAt(const Drawing& drawing, double x, double y, const char* text);

void DrawLine(const Drawing& drawing, double x1, double y1, double x2, double y2);
/// A hollow rectangle. Returns its edges truncated.
IntRect DrawRect(const Drawing& drawing, double x1, double y1, double x2, double y2);

// A path: it begins at one point, goes on to others, and is stroked.
void MoveTo(const Drawing& drawing, double x, double y);
void LineTo(const Drawing& drawing, double x, double y);
void StrokePath(const Drawing& drawing);

/// A filled square of side `size` with its middle at (x, y).
void DrawDot(const Drawing& drawing, double x, double y, double size);

/// The bars of a histogram in its style, in a plot with these edges. `bins` is indexed from 1, and
/// the bin fields of the context say how many there are and how wide and high they are drawn.
void DrawBars(const Drawing& drawing, HistogramStyle style, double left, double base, double right,
              double top, const BinRecord* bins);

/// The curve of the terms from `firstTerm` up to but not including `endTerm`, in a plot that begins
/// at `left`. The context says how many bins a duration histogram has.
void DrawAmplitudeCurve(const Drawing& drawing, const AmplitudeHistogram& fit, double left,
                        double top, double base, std::int32_t firstTerm, std::int32_t endTerm);
void DrawDurationCurve(const Drawing& drawing, const DurationHistogram& fit, double left,
                       double top, double base, std::int32_t firstTerm, std::int32_t endTerm);

}  // namespace ondrel
