// The statistics of the selected levels, one row for each level number.
#pragma once

#include <cstdint>

namespace ondrel {

/// What the share of time of a row is taken of.
enum class StatisticsReference : std::uint8_t { Levels, RelevantSegment, Sweep };

struct StatisticsRow {
  std::int32_t Level;
  std::int32_t Events;   // selected levels with this number
  double DurationMean;   // s; running sum while the rows are filled
  double DurationStd;    // s; running sum of squares while the rows are filled
  double DurationMin;    // s
  double DurationMax;    // s
  double AmplitudeMean;  // A; running sum while the rows are filled
  double AmplitudeStd;   // A; running sum of squares while the rows are filled
  double AmplitudeMin;   // A
  double AmplitudeMax;   // A
  double Probability;    // share of the reference time, 0 to 1
};

struct StatisticsTable {
  bool StatisticsEmpty = false;   // the last run found no selected level, or no memory
  StatisticsRow* Rows = nullptr;  // owned; from the lowest to the highest selected level number
  std::int32_t TotalEvents = 0;   // selected levels
  std::int32_t RowCount = 0;
  StatisticsReference Reference = StatisticsReference::RelevantSegment;
};

}  // namespace ondrel
