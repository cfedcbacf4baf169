#include "views/graph_frame.h"

namespace ondrel {
namespace {

// What the sides of the rectangle are divided by. The edges of the plot lie that far from its left
// and top.
constexpr double kRightDivisor = 1.1428571428571428;  // 8/7: the plot ends at seven eighths
constexpr double kTopDivisor = 6.0;
constexpr double kBottomDivisor = 1.2;
constexpr double kLabelOffsetDivisor = 35.0;

// What the reference length is divided by.
constexpr double kMajorTickDivisor = 48.0;
constexpr double kMinorTickDivisor = 75.0;
constexpr double kNumberDivisor = 15.0;
constexpr double kTitleDivisor = 7.0;

// Where the titles stand: a third of the way along the plot, and above it to the left, half way to
// the plot and three fifths of the way down to it.
constexpr double kHorizontalTitleDivisor = 3.0;
constexpr double kVerticalTitleDivisor = 2.0;
constexpr double kVerticalTitleParts = 3.0;
constexpr double kVerticalTitleWhole = 5.0;

}  // namespace

double GraphWidth(const IntRect& rect) {
  return static_cast<double>(rect.Right) - rect.Left;
}

double GraphHeight(const IntRect& rect) {
  return static_cast<double>(rect.Bottom) - rect.Top;
}

GraphFrame FrameIn(const IntRect& rect, double leftGapDivisor) {
  const double width = GraphWidth(rect);
  const double height = GraphHeight(rect);
  return {.PlotLeft = rect.Left + width / leftGapDivisor,
          .PlotRight = rect.Left + width / kRightDivisor,
          .PlotTop = rect.Top + height / kTopDivisor,
          .PlotBottom = rect.Top + height / kBottomDivisor,
          .LabelOffset = width / kLabelOffsetDivisor};
}

double MajorTickLength(double reference) {
  return reference / kMajorTickDivisor;
}

double MinorTickLength(double reference) {
  return reference / kMinorTickDivisor;
}

double NumberDistance(double reference) {
  return reference / kNumberDivisor;
}

double TitleDistance(double reference) {
  return reference / kTitleDivisor;
}

double VerticalNumberEnd(const GraphFrame& frame) {
  return frame.PlotLeft - frame.LabelOffset;
}

GraphPlace HorizontalTitlePlace(const GraphFrame& frame, double reference) {
  return {.X = (frame.PlotRight - frame.PlotLeft) / kHorizontalTitleDivisor + frame.PlotLeft,
          .Y = frame.PlotBottom + TitleDistance(reference)};
}

GraphPlace VerticalTitlePlace(const GraphFrame& frame) {
  return {.X = frame.PlotLeft / kVerticalTitleDivisor,
          .Y = frame.PlotTop * kVerticalTitleParts / kVerticalTitleWhole};
}

}  // namespace ondrel
