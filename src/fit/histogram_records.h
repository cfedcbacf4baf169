// The settings and bins of the amplitude and of the duration histogram.
#pragma once

#include <cstdint>

namespace ondrel {

enum class FitStyle : std::uint8_t { Component, Sum, Both };
enum class HistogramStyle : std::uint8_t { Filled, Outlined, Rectangles };

/// One bin of a histogram. The bar operations of a GraphicsSink read `Height`.
struct BinRecord {
  std::int32_t Count;   // levels in the bin
  double Height;        // `Count`, or its square root on a square root axis
  std::uint32_t Flags;  // 0: the bin takes part in the fit
};

struct AmplitudeHistogram {
  double Minimum = 0.0;  // pA, left end of the axis
  std::int32_t TickMarks = 5;
  std::int32_t BinsPerTick = 20;
  double PerTick = 1.0;  // pA
  std::int32_t MinimumTicks = 2;
  std::int32_t CountsPerTick = 100;
  bool SquareRootAxis = false;
  BinRecord* Bins = nullptr;  // owned
  double FitTolerance = 0.0001;
  std::int32_t FitIterations = 20;
  double CurveScale = 1.0;
  ondrel::FitStyle FitStyle = ondrel::FitStyle::Sum;
  ondrel::HistogramStyle HistogramStyle = ondrel::HistogramStyle::Filled;
  bool ShowAxes = true;
  bool ShowLabels = true;
};

struct DurationHistogram {
  std::int32_t MinimumExponent = -5;  // left end of the axis, log10 of seconds
  std::int32_t Decades = 5;
  std::int32_t BinsPerDecade = 20;
  std::int32_t TicksPerDecade = 5;
  std::int32_t MinimumTicks = 2;
  std::int32_t CountsPerTick = 10;
  bool SquareRootAxis = false;
  double FilterFrequency = 5000.0;  // Hz
  BinRecord* Bins = nullptr;        // owned
  double FitTolerance = 0.0001;
  std::int32_t FitIterations = 20;
  bool ConstrainPositive = false;
  ondrel::FitStyle FitStyle = ondrel::FitStyle::Sum;
  ondrel::HistogramStyle HistogramStyle = ondrel::HistogramStyle::Filled;
  bool ShowAxes = true;
  bool ShowLabels = true;
};

}  // namespace ondrel
