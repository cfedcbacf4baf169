// What views call to draw. Only these helpers reach through the slots of a sink; what is composed
// of several slots is composed here, once.
#pragma once

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

}  // namespace ondrel
