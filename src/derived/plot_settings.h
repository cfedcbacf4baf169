// Settings of the scatter plots and of the stationarity plot.
#pragma once

#include <cstdint>

namespace ondrel {

/// What the horizontal axis of the amplitude and the duration scatter plot shows.
enum class ScatterValue : std::uint8_t { LevelTag, SweepRelevant, SweepTag };

/// The amplitude/duration plot.
struct ScatterSettings {
  std::int32_t MinimumExponent = -5;
  std::int32_t Decades = 5;
  std::int32_t TicksPerDecade = 10;
  double Minimum = 0.0;  // A
  std::int32_t Ticks = 4;
  double PaPerTick = 1.0;    // pA
  double SymbolSize = 0.08;  // cm
  bool ShowAxes = true;
  bool ShowLabels = true;
};

struct AmplitudeScatterSettings {
  ScatterValue Value = ScatterValue::SweepRelevant;
  double Minimum = -5.0;
  std::int32_t TickMarks = 5;
  double PerTick = 10.0;
  double AmplitudeMinimum = 0.0;  // A
  std::int32_t AmplitudeTicks = 4;
  double PaPerTick = 1.0;    // pA
  double SymbolSize = 0.08;  // cm
  bool ShowAxes = true;
  bool ShowLabels = true;
};

struct DurationScatterSettings {
  ScatterValue Value = ScatterValue::SweepRelevant;
  std::int32_t MinimumExponent = -5;
  std::int32_t Decades = 4;
  std::int32_t TicksPerDecade = 5;
  double Minimum = -5.0;
  std::int32_t TickMarks = 5;
  double PerTick = 10.0;
  double SymbolSize = 0.08;  // cm
  bool ShowAxes = true;
  bool ShowLabels = true;
};

/// What each level adds to the running average of the stationarity plot.
enum class StationarityType : std::uint8_t { One, Amplitude, Duration, Level };

/// `ShowLabels` stands before `ShowAxes` here, the reverse of the other graphs. What follows
/// `ShortestSweep` is worked out anew for each rectangle that the plot is drawn in.
struct StationaritySettings {
  bool ShowLabels = true;
  bool ShowAxes = true;
  StationarityType Type = StationarityType::One;
  double Tau = 0.1;            // s; width of the averaging kernel
  double ShortestSweep = 0.0;  // s; duration of the shortest selected sweep

  double TickSpacing = 0.0;       // s; step of the time axis
  double TickPixels = 0.0;        // device units per step
  std::int32_t TimeDecimals = 0;  // of the numbers of the time axis
  double ValueMin = 0.0;          // the lowest sample rounded down to a tick, in its unit
  double ValueMax = 0.0;          // the highest sample
  double ValueTick = 0.0;         // step of the value axis
  double ValueTickPixels = 0.0;   // device units per step, a whole number
  std::int32_t SampleCount = 0;
  double* StationaritySamples = nullptr;  // owned; null without samples
};

}  // namespace ondrel
