#include "views/histogram_parts.h"

#include <algorithm>
#include <cmath>

#include "workspace/geometry.h"
#include "workspace/number_text.h"

namespace ondrel {
namespace {

void DrawCount(const AxisDrawing& axis, double y, double count) {
  char text[kNumberTextSize] = "";
  IntegerText(TruncateToInteger(count), text);
  DrawNumberUpTo(axis, VerticalNumberEnd(axis.Frame), y, text);
}

void DrawCountTick(const AxisDrawing& axis, double length, double y, double count) {
  const double left = axis.Frame.PlotLeft;
  DrawAxisLine(axis, left, y, left - length, y);
  DrawCount(axis, y, count);
}

/// How far from the line of count zero the tick number `tick` stands.
double OffsetOfTick(const GraphFrame& frame, const CountScale& scale, double tick, double count) {
  if (!scale.SquareRootAxis) return tick * scale.PixelsPerYTick;
  const double share = count / (scale.YMaximum * scale.YMaximum);
  return std::sqrt(share) * (frame.PlotBottom - frame.PlotTop);
}

void DrawCountTicks(const AxisDrawing& axis, double length, const CountScale& scale) {
  const GraphFrame& frame = axis.Frame;
  const double countsPerTick = AtLeastOne(scale.CountsPerTick);
  double former = 0.0;
  for (std::int32_t i = 0; i < kMostTicks; ++i) {
    const double count = i * countsPerTick;
    const double offset = OffsetOfTick(frame, scale, i, count);
    if (LiesBeyond(frame.PlotTop, frame.PlotBottom - offset)) return;
    if (i > 0 && !(offset > former)) return;  // a plot without height
    former = offset;
    DrawCountTick(axis, length, frame.PlotBottom - offset, count);
    if (scale.Mirrored) DrawCountTick(axis, length, frame.PlotBottom + offset, -count);
  }
}

}  // namespace

void DrawCountAxis(const AxisDrawing& axis, double width, const CountScale& scale) {
  const GraphFrame& frame = axis.Frame;
  const double height = frame.PlotBottom - frame.PlotTop;
  const double end = scale.Mirrored ? height * 2.0 + frame.PlotTop : frame.PlotBottom;
  DrawAxisTitle(axis, VerticalTitlePlace(frame), "Counts");
  DrawAxisLine(axis, frame.PlotLeft, frame.PlotTop, frame.PlotLeft, end);
  if (scale.HasTicks) {
    DrawCountTicks(axis, MajorTickLength(width), scale);
  } else {
    DrawCount(axis, frame.PlotBottom, 0.0);
  }
}

void DrawDescribedBars(const Drawing& drawing, const ViewState& view, HistogramStyle style,
                       const BinRecord* bins) {
  const RgbColor& color = ColorOf(view, HistogramColor::Histogram);
  if (style == HistogramStyle::Filled) {
    SetFillColor(drawing, color);
  } else {
    SetStrokeColor(drawing, color);
  }
  const GraphFrame& frame = view.Frame;
  DrawBars(drawing, style, frame.PlotLeft, frame.PlotBottom, frame.PlotRight, frame.PlotTop, bins);
}

}  // namespace ondrel
