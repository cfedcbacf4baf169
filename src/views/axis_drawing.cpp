#include "views/axis_drawing.h"

#include <cmath>

namespace ondrel {
void DrawAxisLine(const AxisDrawing& axis, double x1, double y1, double x2, double y2) {
  if (!axis.ShowAxes) return;
  SetStrokeColor(axis.Target, axis.AxisColor);
  DrawLine(axis.Target, x1, y1, x2, y2);
}

void DrawHorizontalLine(const AxisDrawing& axis) {
  const GraphFrame& frame = axis.Frame;
  DrawAxisLine(axis, frame.PlotLeft, frame.PlotBottom, frame.PlotRight, frame.PlotBottom);
}

void DrawVerticalLine(const AxisDrawing& axis) {
  const GraphFrame& frame = axis.Frame;
  DrawAxisLine(axis, frame.PlotLeft, frame.PlotTop, frame.PlotLeft, frame.PlotBottom);
}

void DrawTickBelow(const AxisDrawing& axis, double x, double length) {
  const double bottom = axis.Frame.PlotBottom;
  DrawAxisLine(axis, x, bottom, x, bottom + length);
}

void DrawTickBeside(const AxisDrawing& axis, double y, double length) {
  const double left = axis.Frame.PlotLeft;
  DrawAxisLine(axis, left, y, left - length, y);
}

void DrawAxisTitle(const AxisDrawing& axis, const GraphPlace& place, const char* text) {
  if (!axis.ShowLabels) return;
  SetFillColor(axis.Target, axis.LabelColor);
  DrawTextFrom(axis.Target, place.X, place.Y, text);
}

void DrawNumberAt(const AxisDrawing& axis, double x, double y, const char* text) {
  if (!axis.ShowLabels) return;
  SetFillColor(axis.Target, axis.LabelColor);
  DrawTextCentredAt(axis.Target, x, y, text);
}

void DrawNumberFrom(const AxisDrawing& axis, double x, double y, const char* text) {
  if (!axis.ShowLabels) return;
  SetFillColor(axis.Target, axis.LabelColor);
  DrawTextFrom(axis.Target, x, y, text);
}

void DrawNumberUpTo(const AxisDrawing& axis, double x, double y, const char* text) {
  if (!axis.ShowLabels) return;
  SetFillColor(axis.Target, axis.LabelColor);
  DrawTextUpTo(axis.Target, x, y, text);
}

double NumberOfAxis(double number, double start) {
  constexpr double kRounding = 1e-12;  // of what has cancelled out
  return std::fabs(number) <= kRounding * std::fabs(start) ? 0.0 : number;
}

}  // namespace ondrel
