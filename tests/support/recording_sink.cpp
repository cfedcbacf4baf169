#include "support/recording_sink.h"

#include <cstdio>

namespace ondrel::recording {
namespace {

struct Record {
  std::vector<std::string> Lines;
  int TextsUntilFailure = 0;  // 0: none fails
};

Record& TheRecord() {
  static Record record;
  return record;
}

void Note(const std::string& line) {
  TheRecord().Lines.push_back(line);
}

std::string Text(double value) {
  char text[32] = "";
  std::snprintf(text, sizeof text, "%.9g", value);
  return text;
}

std::string Text(double a, double b) {
  return Text(a) + " " + Text(b);
}

std::string Text(double a, double b, double c, double d) {
  return Text(a, b) + " " + Text(c, d);
}

bool FailsNow() {
  int& left = TheRecord().TextsUntilFailure;
  return left != 0 && --left == 0;
}

void DrawLine(GraphicsContext&, double x1, double y1, double x2, double y2) {
  Note("line " + Text(x1, y1, x2, y2));
}
void MoveTo(GraphicsContext&, double x, double y) {
  Note("move " + Text(x, y));
}
void LineTo(GraphicsContext&, double x, double y) {
  Note("path " + Text(x, y));
}
void StrokePath(GraphicsContext&) {
  Note("stroke");
}

void DrawText(GraphicsContext& context, double x, double y, TextAlignment alignment,
              const char* text, std::size_t) {
  if (FailsNow()) {
    context.Status = kFullDisk;
    return;
  }
  const std::string side = alignment == TextAlignment::Left ? "left " : "right ";
  Note(side + Text(x, y) + " " + text);
}

void DrawFilledBars(GraphicsContext&, double left, double base, double right, double top,
                    const BinRecord*) {
  Note("filled bars " + Text(left, base, right, top));
}
void DrawBarRectangles(GraphicsContext&, double left, double base, double right, double top,
                       const BinRecord*) {
  Note("bar rectangles " + Text(left, base, right, top));
}
void DrawBarOutline(GraphicsContext&, double left, double base, double right, double top,
                    const BinRecord*) {
  Note("bar outline " + Text(left, base, right, top));
}

IntRect DrawRect(GraphicsContext&, double x1, double y1, double x2, double y2) {
  Note("rect " + Text(x1, y1, x2, y2));
  return {static_cast<std::int32_t>(x1), static_cast<std::int32_t>(y1),
          static_cast<std::int32_t>(x2), static_cast<std::int32_t>(y2)};
}

void DrawDurationCurve(GraphicsContext&, const DurationHistogram&, double x0, double top,
                       double base, std::int32_t firstTerm, std::int32_t endTerm) {
  Note("duration curve " + Text(x0, top, base, firstTerm) + " " + Text(endTerm));
}
void DrawAmplitudeCurve(GraphicsContext&, const AmplitudeHistogram&, double x0, double top,
                        double base, std::int32_t firstTerm, std::int32_t endTerm) {
  Note("amplitude curve " + Text(x0, top, base, firstTerm) + " " + Text(endTerm));
}

void DrawDot(GraphicsContext&, double y, double x, double size) {
  Note("dot y " + Text(y) + " x " + Text(x) + " size " + Text(size));
}

void SetColor(GraphicsContext&, const char* suffix, std::size_t, const RgbColor& color) {
  Note("color" + std::string(suffix) + " " + std::to_string(color.Red) + " " +
       std::to_string(color.Green) + " " + std::to_string(color.Blue));
}

void SetClip(GraphicsContext&, const IntRect& rect) {
  Note("clip " + Text(rect.Left, rect.Top, rect.Right, rect.Bottom));
}

void GetPixelSnap(GraphicsContext&, double* snap) {
  *snap = 0.0;
}

}  // namespace

const GraphicsSink kRecordingSink = {
    .DrawLine = DrawLine,
    .MoveTo = MoveTo,
    .LineTo = LineTo,
    .StrokePath = StrokePath,
    .DrawText = DrawText,
    .DrawFilledBars = DrawFilledBars,
    .DrawBarRectangles = DrawBarRectangles,
    .DrawBarOutline = DrawBarOutline,
    .DrawRect = DrawRect,
    .DrawDurationCurve = DrawDurationCurve,
    .DrawAmplitudeCurve = DrawAmplitudeCurve,
    .DrawDot = DrawDot,
    .SetColor = SetColor,
    .SetClip = SetClip,
    .GetPixelSnap = GetPixelSnap,
};

const std::vector<std::string>& Lines() {
  return TheRecord().Lines;
}

void Clear() {
  TheRecord() = {};
}

void FailText(int count) {
  TheRecord().TextsUntilFailure = count;
}

}  // namespace ondrel::recording
