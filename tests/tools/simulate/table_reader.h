// A second, plain reading of event tables for the tests of the simulator: it goes by tokens, and
// throws on anything that the layout does not allow.
#pragma once

#include <string>
#include <vector>

namespace ondrel::simulate {

struct ReadEvent {
  int Sweep = 0;  // within its file in version 5, through the table in the others
  double Transition = 0.0;
  double PreAmplitude = 0.0;
  int PreLevel = 0;  // bare list and version 1 only
  double PostAmplitude = 0.0;
  int PostLevel = 0;  // likewise
  int Level = 0;
  double TagValue = 0.0;
};

struct ReadSweep {
  int Number = 0;
  double StartTime = 0.0;
  double Duration = 0.0;
  double RelevantStart = 0.0;
  double RelevantEnd = 0.0;
  double RelevantValue = 0.0;
  double TagValue = 0.0;
  std::vector<double> Segments;  // start, end, start, end ...
};

struct ReadFile {
  std::string Type;
  std::string Name;
  std::vector<std::string> Header;
  std::vector<ReadSweep> Sweeps;
  std::vector<ReadEvent> Events;
};

/// The bare list, with seven columns.
std::vector<ReadEvent> ReadBareTable(const std::string& text);

struct ReadSweepTable {
  int Version = 0;
  std::vector<int> Files;  // sweep counts of the "Files" block; empty when there is none
  std::vector<ReadSweep> Sweeps;
  std::vector<ReadEvent> Events;
};

/// Versions 1 and 2.
ReadSweepTable ReadOldTable(const std::string& text);
/// Version 5.
std::vector<ReadFile> ReadFileTable(const std::string& text);

/// The text cut at its CR LF line ends. Throws when a line ends otherwise.
std::vector<std::string> Lines(const std::string& text);
/// The line cut at its tabs; an empty last column is kept.
std::vector<std::string> Columns(const std::string& line);

}  // namespace ondrel::simulate
