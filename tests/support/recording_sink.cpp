#include "support/recording_sink.h"

#include <cstdio>

namespace ondrel::recording {
namespace {

struct Record {
  std::vector<std::string> Lines;
  int TextsUntilFailure = 0;  // 0: none fails
  std::string FailingStart;   // empty: none fails
};

Record& TheRecord() {
  static Record record;
  return record;
}

void Note(GraphicsContext& context, const std::string& line) {
  const std::string& failing = TheRecord().FailingStart;
  if (!failing.empty() && line.starts_with(failing)) {
    context.Status = kFullDisk;
    return;
  }
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

void DrawLine(GraphicsContext& context, double x1, double y1, double x2, double y2) {
  Note(context, "line " + Text(x1, y1, x2, y2));
}
void MoveTo(GraphicsContext& context, double x, double y) {
  Note(context, "move " + Text(x, y));
}
void LineTo(GraphicsContext& context, double x, double y) {
  Note(context, "path " + Text(x, y));
}
void StrokePath(GraphicsContext& context) {
  Note(context, "stroke");
}

void DrawText(GraphicsContext& context, double x, double y, TextAlignment alignment,
              const char* text, std::size_t) {
  if (FailsNow()) {
    context.Status = kFullDisk;
    return;
  }
  const std::string side = alignment == TextAlignment::Left ? "left " : "right ";
  Note(context, side + Text(x, y) + " " + text);
}

std::string BinsOf(const GraphicsContext& context) {
  return std::to_string(context.BinCount) + " bins, width " + Text(context.BinWidth) + " scale " +
         Text(context.BinScale) + " peak " + Text(context.BinPeak) +
         (context.BinFitHeight != 0 ? " fitted" : " scaled");
}

void DrawFilledBars(GraphicsContext& context, double left, double base, double right, double top,
                    const BinRecord*) {
  Note(context, "filled bars " + Text(left, base, right, top) + ": " + BinsOf(context));
}
void DrawBarRectangles(GraphicsContext& context, double left, double base, double right, double top,
                       const BinRecord*) {
  Note(context, "bar rectangles " + Text(left, base, right, top) + ": " + BinsOf(context));
}
void DrawBarOutline(GraphicsContext& context, double left, double base, double right, double top,
                    const BinRecord*) {
  Note(context, "bar outline " + Text(left, base, right, top) + ": " + BinsOf(context));
}

IntRect DrawRect(GraphicsContext& context, double x1, double y1, double x2, double y2) {
  Note(context, "rect " + Text(x1, y1, x2, y2));
  return {static_cast<std::int32_t>(x1), static_cast<std::int32_t>(y1),
          static_cast<std::int32_t>(x2), static_cast<std::int32_t>(y2)};
}

void DrawDurationCurve(GraphicsContext& context, const DurationHistogram&, double x0, double top,
                       double base, std::int32_t firstTerm, std::int32_t endTerm) {
  Note(context, "duration curve " + Text(x0, top, base, firstTerm) + " " + Text(endTerm));
}
void DrawAmplitudeCurve(GraphicsContext& context, const AmplitudeHistogram&, double x0, double top,
                        double base, std::int32_t firstTerm, std::int32_t endTerm) {
  Note(context, "amplitude curve " + Text(x0, top, base, firstTerm) + " " + Text(endTerm));
}

void DrawDot(GraphicsContext& context, double y, double x, double size) {
  Note(context, "dot y " + Text(y) + " x " + Text(x) + " size " + Text(size));
}

void SetColor(GraphicsContext& context, const char* suffix, std::size_t, const RgbColor& color) {
  Note(context, "color" + std::string(suffix) + " " + std::to_string(color.Red) + " " +
                    std::to_string(color.Green) + " " + std::to_string(color.Blue));
}

void SetClip(GraphicsContext& context, const IntRect& rect) {
  Note(context, "clip " + Text(rect.Left, rect.Top, rect.Right, rect.Bottom));
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

void FailLine(const std::string& start) {
  TheRecord().FailingStart = start;
}

void FailText(int count) {
  TheRecord().TextsUntilFailure = count;
}

}  // namespace ondrel::recording
