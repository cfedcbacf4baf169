// Formulas of the plots, from the sides of a view's client area.
#include "plot_places.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace ondrel::e2e {

const PlotKind kAmplitudeScatterPlot{
    .Name = "AmplitudeScatter",
    .Title = "Amplitude Scatter Plot",
    .View = 52482,
    .FirstColor = 27905,
    .AcrossTitle = "Sweep Relevant Value",
    .UpTitle = "Amplitude (pA)",
};

const PlotKind kDurationScatterPlot{
    .Name = "DurationScatter",
    .Title = "Duration Scatter Plot",
    .View = 52485,
    .FirstColor = 27649,
    .AcrossTitle = "Sweep Relevant Value",
    .UpTitle = "log Duration (s)",
};

const PlotKind kAmplitudeDurationPlot{
    .Name = "AmplitudeDuration",
    .Title = "Amplitude/Duration",
    .View = 52483,
    .FirstColor = 26881,
    .AcrossTitle = "log Duration (s)",
    .UpTitle = "Amplitude (pA)",
};

const PlotKind kStationarityPlot{
    .Name = "Stationarity",
    .Title = "Stationarity",
    .View = 52488,
    .FirstColor = 28161,
    .AcrossTitle = "Time (s)",
    .UpTitle = "Probability",
};

namespace {

// --- Settings of the start -----------------------------------------------------------------------

constexpr double kValueMinimum = -5.0;
constexpr int kValueIntervals = 5;
constexpr double kValuePerTick = 10.0;
constexpr int kAmplitudeTicks = 4;  // from 0, one for each pA
constexpr int kFirstDecade = -5;
constexpr double kSymbolCentimeters = 0.08;
constexpr double kTau = 0.1;  // s

struct Decades {
  int Count;
  int TicksEach;
};

/// The axis of durations lies across in one plot and goes up in the other.
constexpr Decades kDecadesUp{.Count = 4, .TicksEach = 5};
constexpr Decades kDecadesAcross{.Count = 5, .TicksEach = 10};

std::string Decimals(double value, int decimals) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%.*f", decimals, value);
  return text.data();
}

// --- Scales --------------------------------------------------------------------------------------

double PixelsPerInterval(const PlotFrame& frame) {
  return std::trunc((frame.Right - frame.Left) / kValueIntervals);
}

double PixelsPerPicoampere(const PlotFrame& frame) {
  return std::trunc((frame.Bottom - frame.Top) / kAmplitudeTicks);
}

double PixelsPerDecade(const PlotKind& kind, const PlotFrame& frame) {
  return &kind == &kDurationScatterPlot
             ? std::trunc((frame.Bottom - frame.Top) / kDecadesUp.Count)
             : std::trunc((frame.Right - frame.Left) / kDecadesAcross.Count);
}

AxisMarks ValueMarks(double pixelsPerInterval) {
  AxisMarks marks;
  for (int k = 0; k <= kValueIntervals; ++k) {
    marks.Numbers.push_back(
        {Decimals(kValueMinimum + k * kValuePerTick, 2), k * pixelsPerInterval});
    marks.Major.push_back(k * pixelsPerInterval);
  }
  return marks;
}

AxisMarks AmplitudeMarks(double pixelsPerPicoampere) {
  AxisMarks marks;
  for (int k = 0; k < kAmplitudeTicks; ++k) {
    marks.Numbers.push_back({Decimals(k, 1), k * pixelsPerPicoampere});
    marks.Major.push_back(k * pixelsPerPicoampere);
  }
  return marks;
}

/// The small ticks behind the last decade would stand beyond the axis: it ends without its number.
AxisMarks DecadeMarks(const Decades& decades, double pixelsPerDecade) {
  AxisMarks marks;
  for (int k = 0; k < decades.Count; ++k) {
    const double start = k * pixelsPerDecade;
    marks.Numbers.push_back({std::to_string(kFirstDecade + k), start});
    marks.Major.push_back(start);
    for (int m = 2; m <= decades.TicksEach + 1; ++m) {
      marks.Minor.push_back(start +
                            std::log(m) / std::log(decades.TicksEach + 1) * pixelsPerDecade);
    }
  }
  marks.Major.push_back(decades.Count * pixelsPerDecade);
  return marks;
}

// --- Levels --------------------------------------------------------------------------------------

struct SelectedLevel {
  double Amplitude;  // A
  double Duration;   // s
  double Relevant;
};

/// The first and the last level of a sweep are left out: the closed ones at its two ends. A closed
/// level is as far from the opening before it as that was from it.
std::vector<SelectedLevel> SelectedLevels(const std::vector<RecordedSweep>& sweeps) {
  std::vector<SelectedLevel> levels;
  for (const RecordedSweep& sweep : sweeps) {
    for (const Opening& opening : sweep.Openings) {
      const double amplitude = opening.Current * 1e-12;
      levels.push_back({amplitude, opening.Open, sweep.Relevant});
      levels.push_back({amplitude, opening.Closed, sweep.Relevant});
    }
    if (!sweep.Openings.empty()) levels.pop_back();
  }
  return levels;
}

/// The side of a dot: even, so that half of it is whole.
double DotSize() {
  const HDC screen = GetDC(nullptr);
  const double dpi = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  const double size = std::trunc(kSymbolCentimeters * dpi / 2.54);
  return std::fmod(size, 2.0) == 0.0 ? size : size - 1.0;
}

}  // namespace

HFONT FirstFont() {
  const HDC screen = GetDC(nullptr);
  const int height = 10 * GetDeviceCaps(screen, LOGPIXELSY) / 72;
  ReleaseDC(nullptr, screen);
  return CreateFontA(-height, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, "Arial");
}

TextSize SizeOf(const std::string& text) {
  const HDC screen = GetDC(nullptr);
  const HGDIOBJ before = SelectObject(screen, FirstFont());
  SIZE size{};
  GetTextExtentPointA(screen, text.c_str(), static_cast<int>(text.size()), &size);
  TEXTMETRICA metrics{};
  GetTextMetricsA(screen, &metrics);
  DeleteObject(SelectObject(screen, before));
  ReleaseDC(nullptr, screen);
  return {static_cast<int>(size.cx), static_cast<int>(metrics.tmAscent),
          static_cast<int>(metrics.tmDescent)};
}

PlotFrame FrameOf(const PlotKind& kind, int width, int height) {
  const bool stationarity = &kind == &kStationarityPlot;
  PlotFrame frame;
  frame.Width = width;
  frame.Left = width / (stationarity ? 6.8 : 8.0);
  frame.Right = width / 1.1428571428571428;
  frame.Top = height / 6.0;
  frame.Bottom = height / 1.2;
  frame.Reference = stationarity ? height : width;
  return frame;
}

PlotMarks ScatterMarks(const PlotKind& kind, const PlotFrame& frame) {
  const AxisMarks values = ValueMarks(PixelsPerInterval(frame));
  const AxisMarks amplitudes = AmplitudeMarks(PixelsPerPicoampere(frame));
  const double perDecade = PixelsPerDecade(kind, frame);
  if (&kind == &kAmplitudeScatterPlot) return {values, amplitudes};
  if (&kind == &kDurationScatterPlot) return {values, DecadeMarks(kDecadesUp, perDecade)};
  return {DecadeMarks(kDecadesAcross, perDecade), amplitudes};
}

std::vector<Rect> DotsOf(const PlotKind& kind, const PlotFrame& frame,
                         const std::vector<RecordedSweep>& sweeps) {
  const double half = DotSize() / 2.0;
  std::vector<Rect> dots;
  for (const SelectedLevel& level : SelectedLevels(sweeps)) {
    const double fromStart =
        (std::log10(level.Duration) - kFirstDecade) * PixelsPerDecade(kind, frame);
    const double x =
        &kind == &kAmplitudeDurationPlot
            ? fromStart + frame.Left
            : (level.Relevant - kValueMinimum) * PixelsPerInterval(frame) / kValuePerTick +
                  frame.Left;
    const double y = &kind == &kDurationScatterPlot
                         ? frame.Bottom - fromStart
                         : frame.Bottom - level.Amplitude * PixelsPerPicoampere(frame) / 1e-12;
    if (x < frame.Left || x > frame.Right || y < frame.Top || y > frame.Bottom) continue;
    dots.push_back({static_cast<int>(x - half), static_cast<int>(y - half),
                    static_cast<int>(x + half), static_cast<int>(y + half)});
  }
  return dots;
}

// --- Stationarity --------------------------------------------------------------------------------

namespace {

/// 1, 2 or 5 times the power of ten that is left when the logarithm's fraction is cut off.
double StepFor(double size) {
  const double exponent = std::trunc(std::log10(size));
  const double fraction = std::log10(size) - exponent;
  const double power = std::pow(10.0, exponent);
  if (fraction < std::log10(2.0)) return power;
  return fraction < std::log10(5.0) ? 2.0 * power : 5.0 * power;
}

/// How many steps cover a length.
double StepsIn(double length, double step) {
  const double steps = std::trunc(length / step);
  return steps * step == length ? steps : steps + 1.0;
}

/// The part of the kernel around `time` that lies between `start` and `end`.
double ShareOfKernel(double time, double start, double end) {
  constexpr double kReach = 3.0;  // in widths of the kernel
  const double lower = std::max((start - time) / kTau, -kReach);
  const double upper = std::min((end - time) / kTau, kReach);
  return upper <= lower ? 0.0 : (std::erf(upper) - std::erf(lower)) / (2.0 * std::erf(kReach));
}

double LengthOf(const RecordedSweep& sweep) {
  double length = sweep.Before;
  for (const Opening& opening : sweep.Openings) length += opening.Open + opening.Closed;
  return length;
}

/// The levels that are left in stand together, from the first opening to the last closing.
double AverageShare(const std::vector<RecordedSweep>& sweeps, double time) {
  double sum = 0.0;
  for (const RecordedSweep& sweep : sweeps) {
    const double lastClosing = LengthOf(sweep) - sweep.Openings.back().Closed;
    sum += ShareOfKernel(time, sweep.Before, lastClosing);
  }
  return sum / static_cast<double>(sweeps.size());
}

double StepOfValues(double lowest, double highest) {
  const double spread = highest - lowest;
  return StepFor(spread > 0.1 * highest ? spread / 3.0 : highest);
}

AxisMarks EvenMarks(double first, double step, double pixels, double length) {
  constexpr double kRounding = 1e-6;  // pixels
  AxisMarks marks;
  for (int k = 0; k * pixels <= length + kRounding; ++k) {
    marks.Numbers.push_back({Decimals(first + k * step, 3), k * pixels});
    marks.Major.push_back(k * pixels);
  }
  return marks;
}

}  // namespace

StationarityPlot StationarityOf(const PlotFrame& frame, const std::vector<RecordedSweep>& sweeps) {
  double shortest = LengthOf(sweeps.front());
  for (const RecordedSweep& sweep : sweeps) shortest = std::min(shortest, LengthOf(sweep));
  const double width = frame.Right - frame.Left;
  const double height = frame.Bottom - frame.Top;
  double timeStep = StepFor(shortest / 5.0);
  const double steps = StepsIn(shortest, timeStep);
  double tickPixels = width / steps;
  if (SizeOf(Decimals(steps * timeStep, 3)).Width >= tickPixels) {
    timeStep *= 2.0;
    tickPixels = width / std::ceil(steps / 2.0);
  }
  const double perSecond = tickPixels / timeStep;
  const int count = static_cast<int>((shortest - 6.0 * kTau) * perSecond);
  std::vector<double> shares;
  for (int k = 0; k < count; ++k)
    shares.push_back(AverageShare(sweeps, 3.0 * kTau + k / perSecond));

  const auto [lowest, highest] = std::minmax_element(shares.begin(), shares.end());
  const double step = StepOfValues(*lowest, *highest);
  const double start = std::trunc(*lowest / step) * step;
  const double stepPixels = std::trunc(height / std::max(StepsIn(*highest - start, step), 1.0));
  StationarityPlot plot{
      {EvenMarks(0.0, timeStep, tickPixels, width), EvenMarks(start, step, stepPixels, height)},
      {}};
  for (int k = 0; k < count; ++k) {
    const double y =
        frame.Bottom - (shares[static_cast<std::size_t>(k)] - start) * stepPixels / step;
    plot.Curve.push_back(
        {static_cast<int>(frame.Left + 3.0 * kTau * perSecond + k), static_cast<int>(y)});
  }
  return plot;
}

}  // namespace ondrel::e2e
