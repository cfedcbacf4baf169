#include "views/axis_drawing.h"

#include <cmath>

namespace ondrel {
namespace {

void UseAxisColor(AxisDrawing& axis) {
  if (axis.InForce == AxisPart::Axes) return;
  SetStrokeColor(axis.Target, axis.AxisColor);
  axis.InForce = AxisPart::Axes;
}

void UseLabelColor(AxisDrawing& axis) {
  if (axis.InForce == AxisPart::Labels) return;
  SetFillColor(axis.Target, axis.LabelColor);
  axis.InForce = AxisPart::Labels;
}

}  // namespace

void DrawAxisLine(AxisDrawing& axis, double x1, double y1, double x2, double y2) {
  if (!axis.ShowAxes) return;
  UseAxisColor(axis);
  DrawLine(axis.Target, x1, y1, x2, y2);
}

void DrawHorizontalLine(AxisDrawing& axis) {
  const GraphFrame& frame = axis.Frame;
  DrawAxisLine(axis, frame.PlotLeft, frame.PlotBottom, frame.PlotRight, frame.PlotBottom);
}

void DrawVerticalLine(AxisDrawing& axis) {
  const GraphFrame& frame = axis.Frame;
  DrawAxisLine(axis, frame.PlotLeft, frame.PlotTop, frame.PlotLeft, frame.PlotBottom);
}

void DrawTickBelow(AxisDrawing& axis, double x, double length) {
  const double bottom = axis.Frame.PlotBottom;
  DrawAxisLine(axis, x, bottom, x, bottom + length);
}

void DrawTickBeside(AxisDrawing& axis, double y, double length) {
  const double left = axis.Frame.PlotLeft;
  DrawAxisLine(axis, left, y, left - length, y);
}

void DrawAxisTitle(AxisDrawing& axis, const GraphPlace& place, const char* text) {
  if (!axis.ShowLabels) return;
  UseLabelColor(axis);
  DrawTextFrom(axis.Target, place.X, place.Y, text);
}

void DrawNumberAt(AxisDrawing& axis, double x, double y, const char* text) {
  if (!axis.ShowLabels) return;
  UseLabelColor(axis);
  DrawTextCentredAt(axis.Target, x, y, text);
}

void DrawNumberFrom(AxisDrawing& axis, double x, double y, const char* text) {
  if (!axis.ShowLabels) return;
  UseLabelColor(axis);
  DrawTextFrom(axis.Target, x, y, text);
}

void DrawNumberUpTo(AxisDrawing& axis, double x, double y, const char* text) {
  if (!axis.ShowLabels) return;
  UseLabelColor(axis);
  DrawTextUpTo(axis.Target, x, y, text);
}

double NumberOfAxis(double number, double start) {
  constexpr double kRounding = 1e-12;  // of what has cancelled out
  return std::fabs(number) <= kRounding * std::fabs(start) ? 0.0 : number;
}

}  // namespace ondrel
