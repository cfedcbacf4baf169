// The settings and bins of the amplitude and of the duration histogram, and the terms of the
// mixtures that are fitted to them.
#pragma once

#include <array>
#include <cstddef>
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

/// Slots for terms and their markers. Estimates by mouse use at most `kMaxTerms` of them, and a
/// fit's vector has room for exactly that many.
inline constexpr std::size_t kTermSlots = 100;
inline constexpr std::int32_t kMaxTerms = 10;

/// A Gaussian of the amplitude mixture: one conductance level.
struct AmplitudeTerm {
  double Weight = 0.0;   // fraction of the events
  double Current = 0.0;  // mean, pA
  double StdDev = 0.0;   // pA
  double Area = 0.0;     // events; the term's curve is drawn from it
};

/// An exponential of the duration mixture: one kinetic component.
struct DurationTerm {
  double Weight = 0.0;        // fraction of the events
  double TimeConstant = 0.0;  // s
  double Area = 0.0;          // events; the term's curve is drawn from it, downward when negative
};

/// Where the handle of a term stands in the view, pixels, and the term that it moves.
struct TermMarker {
  std::int32_t Left = 0;
  std::int32_t Top = 0;
  std::int32_t Right = 0;
  std::int32_t Bottom = 0;
  std::int32_t TermIndex = 0;
};

template <typename Term>
using TermArray = std::array<Term, kTermSlots>;
using MarkerArray = std::array<TermMarker, kTermSlots>;

struct AmplitudeHistogram {
  double Minimum = 0.0;  // pA, left end of the axis
  std::int32_t TickMarks = 5;
  std::int32_t BinsPerTick = 20;
  double YMaximum = 0.0;  // tallest bar in axis units: a count, or its square root
  double PerTick = 1.0;   // pA
  // From the last layout of the view; nothing that is computed depends on them.
  double PixelsPerPa = 0.0;
  double PixelsPerTick = 0.0;
  double PixelsPerBin = 0.0;
  double PixelsPerCount = 0.0;
  double PixelsPerYTick = 0.0;
  std::int32_t MinimumTicks = 2;
  std::int32_t CountsPerTick = 100;
  bool SquareRootAxis = false;
  std::int32_t EventsInHistogram = 0;  // counts of all bins that are not excluded
  BinRecord* Bins = nullptr;           // owned; TickMarks * BinsPerTick + 2, or null
  // Owned, null without Bins; pA. Bin i goes from Edges[i - 1] to Edges[i].
  double* Edges = nullptr;
  double FitTolerance = 0.0001;
  std::int32_t FitIterations = 20;
  std::int32_t TermCount = 1;
  TermArray<AmplitudeTerm> Terms{{{.Weight = 0.0, .Current = 1.0, .StdDev = 1.0, .Area = 0.0}}};
  std::int32_t MarkerCount = 1;  // terms beside the axis have no marker
  MarkerArray PeakMarkers{};     // of the same term as the width marker in the same place
  MarkerArray WidthMarkers{};
  double CurveScale = 1.0;  // of the bar that shows a term's width
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
  // From the last layout of the view; nothing that is computed depends on them.
  double PixelsPerCount = 0.0;
  double PixelsPerYTick = 0.0;
  double PixelsPerDecade = 0.0;
  double PixelsPerBin = 0.0;
  std::int32_t EventsInHistogram = 0;  // counts of all bins that are not excluded
  BinRecord* Bins = nullptr;           // owned; Decades * BinsPerDecade + 2, or null
  // Owned, null without Bins; s. Bin i goes from Edges[i - 1] to Edges[i].
  double* Edges = nullptr;
  double FilterFrequency = 5000.0;  // Hz
  double FitTolerance = 0.0001;
  std::int32_t FitIterations = 20;
  std::int32_t TermCount = 1;
  TermArray<DurationTerm> Terms{{{.Weight = 0.0, .TimeConstant = 0.0001, .Area = 0.0}}};
  std::int32_t MarkerCount = 1;  // terms beside the axis have no marker
  MarkerArray Markers{};
  ondrel::FitStyle FitStyle = ondrel::FitStyle::Sum;
  ondrel::HistogramStyle HistogramStyle = ondrel::HistogramStyle::Filled;
  bool ConstrainPositive = false;
  bool ShowAxes = true;
  bool ShowLabels = true;
};

}  // namespace ondrel
