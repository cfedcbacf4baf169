#include "views/scatter_axes.h"

#include <cmath>

#include "workspace/number_text.h"
#include "workspace/truncate.h"
#include "workspace/units.h"

namespace ondrel {
namespace {

const char* TitleOf(ScatterValue value) {
  switch (value) {
    case ScatterValue::LevelTag:
      return "Level Tag Value";
    case ScatterValue::SweepTag:
      return "Sweep Tag Value";
    case ScatterValue::SweepRelevant:
      break;
  }
  return "Sweep Relevant Value";
}

// --- The logarithmic axis ------------------------------------------------------------------------

/// What a logarithmic axis does in its direction. Offsets count from its start.
struct AxisDirection {
  double (*Length)(const GraphFrame& frame);
  void (*DrawTick)(const AxisDrawing& axis, double offset, double length);
  void (*DrawNumber)(const AxisDrawing& axis, double width, double offset, const char* text);
};

constexpr AxisDirection kAcross = {
    .Length = [](const GraphFrame& frame) { return frame.PlotRight - frame.PlotLeft; },
    .DrawTick = [](const AxisDrawing& axis, double offset,
                   double length) { DrawTickBelow(axis, axis.Frame.PlotLeft + offset, length); },
    .DrawNumber =
        [](const AxisDrawing& axis, double width, double offset, const char* text) {
          DrawNumberFrom(axis, axis.Frame.PlotLeft + offset,
                         axis.Frame.PlotBottom + NumberDistance(width), text);
        },
};

constexpr AxisDirection kUp = {
    .Length = [](const GraphFrame& frame) { return frame.PlotBottom - frame.PlotTop; },
    .DrawTick = [](const AxisDrawing& axis, double offset,
                   double length) { DrawTickBeside(axis, axis.Frame.PlotBottom - offset, length); },
    .DrawNumber =
        [](const AxisDrawing& axis, double, double offset, const char* text) {
          DrawNumberUpTo(axis, VerticalNumberEnd(axis.Frame), axis.Frame.PlotBottom - offset, text);
        },
};

/// Where minor tick `m`, counted from 2, stands in its decade, as a share of it. The last one is
/// the next decade.
double ShareOfMinor(std::int32_t m, std::int32_t ticksPerDecade) {
  return ticksPerDecade == 1 ? 0.0 : std::log(m) / std::log(ticksPerDecade + 1);
}

/// False when a tick lies beyond the end of the axis.
bool DrawMinorTicks(const AxisDrawing& axis, const AxisDirection& direction, double width,
                    const DurationAxis& scale, double start) {
  const std::int32_t ticks = CountTicks(scale.TicksPerDecade);
  for (std::int32_t m = 2; m <= ticks + 1; ++m) {
    const double offset = start + ShareOfMinor(m, ticks) * scale.PixelsPerDecade;
    if (LiesBeyond(offset, direction.Length(axis.Frame))) return false;
    direction.DrawTick(axis, offset, MinorTickLength(width));
  }
  return true;
}

/// Whether minor ticks can be told apart at all; else the settings ask for any number of them.
bool CanHaveMinorTicks(const DurationAxis& scale) {
  return std::int64_t{CountTicks(scale.Decades)} * CountTicks(scale.TicksPerDecade) <= kMostTicks;
}

void DrawDecades(const AxisDrawing& axis, const AxisDirection& direction, double width,
                 const DurationAxis& scale) {
  const bool hasMinorTicks = axis.ShowAxes && CanHaveMinorTicks(scale);
  for (std::int32_t k = 0; k <= CountTicks(scale.Decades); ++k) {
    const double offset = k * scale.PixelsPerDecade;
    direction.DrawTick(axis, offset, MajorTickLength(width));
    if (hasMinorTicks && !DrawMinorTicks(axis, direction, width, scale, offset)) return;
    char text[kNumberTextSize] = "";
    IntegerText(TruncateToInteger(static_cast<double>(scale.MinimumExponent) + k), text);
    direction.DrawNumber(axis, width, offset, text);
  }
}

constexpr const char* kDurationTitle = "log Duration (s)";

}  // namespace

void DrawValueAxis(const AxisDrawing& axis, double width, const ValueAxis& scale) {
  const GraphFrame& frame = axis.Frame;
  DrawAxisTitle(axis, HorizontalTitlePlace(frame, width), TitleOf(scale.Value));
  DrawHorizontalLine(axis);
  for (std::int32_t k = 0; k <= CountTicks(scale.TickMarks); ++k) {
    const double x = frame.PlotLeft + k * scale.PixelsPerTick;
    DrawTickBelow(axis, x, MajorTickLength(width));
    char text[kNumberTextSize] = "";
    RealText(NumberOfAxis(scale.Minimum + k * scale.PerTick, scale.Minimum), 2, 'f', text);
    DrawNumberFrom(axis, x, frame.PlotBottom + NumberDistance(width), text);
  }
}

void DrawAmplitudeAxis(const AxisDrawing& axis, double width, const AmplitudeAxis& scale) {
  const GraphFrame& frame = axis.Frame;
  DrawAxisTitle(axis, VerticalTitlePlace(frame), "Amplitude (pA)");
  DrawVerticalLine(axis);
  const double first = scale.Minimum / kPicoampere;
  double number = first;
  for (std::int32_t k = 0; k < CountTicks(scale.Ticks); ++k) {
    const double y = frame.PlotBottom - k * scale.PixelsPerUnit * scale.PaPerTick;
    DrawTickBeside(axis, y, MajorTickLength(width));
    char text[kNumberTextSize] = "";
    RealText(NumberOfAxis(number, first), 1, 'f', text);
    DrawNumberUpTo(axis, VerticalNumberEnd(frame), y, text);
    number += scale.PaPerTick;  // added up, unlike the horizontal numbers
  }
}

void DrawHorizontalDurationAxis(const AxisDrawing& axis, double width, const DurationAxis& scale) {
  DrawAxisTitle(axis, HorizontalTitlePlace(axis.Frame, width), kDurationTitle);
  DrawHorizontalLine(axis);
  DrawDecades(axis, kAcross, width, scale);
}

void DrawVerticalDurationAxis(const AxisDrawing& axis, double width, const DurationAxis& scale) {
  DrawAxisTitle(axis, VerticalTitlePlace(axis.Frame), kDurationTitle);
  DrawVerticalLine(axis);
  DrawDecades(axis, kUp, width, scale);
}

}  // namespace ondrel
