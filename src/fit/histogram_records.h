// The settings and bins of the amplitude and of the duration histogram.
#pragma once

#include <cstdint>

namespace ondrel {

enum class FitStyle : std::uint8_t { Component, Sum, Both };
enum class HistogramStyle : std::uint8_t { Filled, Outlined, Rectangles };

/// One bin of a histogram. Bins 1 to B stand on the axis; bin 0 holds what lies below it and bin
/// B + 1 what lies above. The bar operations of a GraphicsSink read `Height`.
struct BinRecord {
  std::int32_t Count;   // levels in the bin
  double Height;        // `Count`, or its square root on a square root axis
  std::uint32_t Flags;  // 0: the bin takes part in the fit
};

/// Flag of a bin that neither counts levels nor takes part in the fit.
inline constexpr std::uint32_t kExcludedBin = 2;

struct AmplitudeHistogram {
  double Minimum = 0.0;  // pA, left end of the axis
  std::int32_t TickMarks = 5;
  std::int32_t BinsPerTick = 20;
  double YMaximum = 0.0;  // tallest bar in axis units: a count, or its square root
  double PerTick = 1.0;   // pA
  std::int32_t MinimumTicks = 2;
  std::int32_t CountsPerTick = 100;
  bool SquareRootAxis = false;
  std::int32_t EventsInHistogram = 0;  // counts of all bins that are not excluded
  BinRecord* Bins = nullptr;           // owned; TickMarks * BinsPerTick + 2, or null
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
  double YMaximum = 0.0;  // tallest bar in axis units: a count, or its square root
  bool SquareRootAxis = false;
  std::int32_t EventsInHistogram = 0;  // counts of all bins that are not excluded
  BinRecord* Bins = nullptr;           // owned; Decades * BinsPerDecade + 2, or null
  double FilterFrequency = 5000.0;     // Hz
  double FitTolerance = 0.0001;
  std::int32_t FitIterations = 20;
  bool ConstrainPositive = false;
  ondrel::FitStyle FitStyle = ondrel::FitStyle::Sum;
  ondrel::HistogramStyle HistogramStyle = ondrel::HistogramStyle::Filled;
  bool ShowAxes = true;
  bool ShowLabels = true;
};

}  // namespace ondrel
