// Settings by which levels are selected. Three records of this form stand beside the LevelTable:
// one for the level itself, one for the level before it, one for the level after it.
#pragma once

#include <cstdint>

namespace ondrel {

/// What a test does with the records inside its range, both ends of which are inclusive.
enum class Selection : std::uint8_t {
  SelectAll,  // the test is off
  Include,    // records inside the range stay, others go
  Exclude,    // records inside the range go
};

/// Picks levels by their place among the levels of their sweep.
enum class PositionChoice : std::uint8_t {
  All,
  AllButFirst,
  AllButFirstAndLast,
  AllButLast,
  First,
  FirstAndLast,
  Last,
};

struct LevelFilter {
  Selection AmplitudeChoice = Selection::SelectAll;
  double AmplitudeLow = 0.0;     // A
  double AmplitudeHigh = 5e-12;  // A
  Selection DurationChoice = Selection::SelectAll;
  double DurationLow = 0.0;     // s
  double DurationHigh = 0.005;  // s
  Selection LevelChoice = Selection::SelectAll;
  std::int32_t LevelLow = 1;
  std::int32_t LevelHigh = 3;
  Selection TagChoice = Selection::SelectAll;
  double TagLow = 0.0;
  double TagHigh = 1000.0;
  PositionChoice Position = PositionChoice::All;
};

}  // namespace ondrel
