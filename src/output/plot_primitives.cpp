#include "output/plot_primitives.h"

#include <cstring>

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

}  // namespace ondrel
