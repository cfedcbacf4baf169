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

/// `ShowLabels` stands before `ShowAxes` here, the reverse of the other graphs.
struct StationaritySettings {
  bool ShowLabels = true;
  bool ShowAxes = true;
  std::uint8_t Type = 0;
  double Tau = 0.1;            // s
  double ShortestSweep = 0.0;  // s; duration of the shortest selected sweep
};

}  // namespace ondrel
