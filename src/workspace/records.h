// The records of a data set: files, their sweeps, the sweeps' segments, events, and the levels
// (dwells) derived from the events. Currents in amperes, times in seconds. `File`, `Sweep` and
// `Level` numbers are 1-based as files and views show them; indexes into tables are 0-based.
#pragma once

#include <cstddef>
#include <cstdint>

namespace ondrel {

struct OutputFile;
struct TextScanner;

/// One transition of the channel's current.
struct EventRecord {
  std::uint32_t Sweep;   // 1-based row of the SweepTable across all files
  double Transition;     // s, from the start of the sweep
  double PreAmplitude;   // A, before the transition
  double PostAmplitude;  // A, after the transition
  std::int32_t Level;    // level number after the transition
  double TagValue;
};

/// One stretch of time inside a sweep.
struct SegmentRecord {
  double Start;  // s
  double End;    // s
};

/// One stretch of recording in one data file.
struct SweepRecord {
  std::uint32_t SelectionFlags;  // 0: selected; each sweep filter sets its own bit
  std::uint32_t File;            // 1-based number in the FileTable
  std::uint32_t Index;           // 1-based number within its file
  double StartTime;              // s
  double Duration;               // s
  double RelevantStart;          // s, from the start of the sweep
  double RelevantEnd;            // s, from the start of the sweep
  double RelevantValue;
  double TagValue;
  std::int32_t SegmentCount;
  SegmentRecord* Segments;  // owned by the sweep; null when SegmentCount is 0
};

/// One dwell at one level.
struct LevelRecord {
  std::uint32_t LevelFlags;      // 0: selected
  std::uint32_t PrecedingFlags;  // feeds the neighbour rule only
  std::uint32_t FollowingFlags;  // feeds the neighbour rule only
  std::uint32_t Sweep;           // 1-based row of the SweepTable
  std::int32_t FirstEvent;       // index of the first event that belongs to the level
  std::int32_t LastEvent;        // index of the event at which the level ends
  double PreAmplitude;           // A, before the level
  double PostAmplitude;          // A, of the level itself
  double Amplitude;              // A, what histograms, filters and statistics use
  double Transition;             // s, start of the level from the start of the sweep
  double Duration;               // s, never 0
  std::int32_t Level;
  double TagValue;
};

enum class FileType : std::uint8_t {
  PClamp6,
  Sampler,
  Exchange,
  Pulse,
  IgorWave,
  RawContinuous,
  Undefined,
};

struct PClamp6Header {
  std::int32_t Int1, Int2, Int3;
  std::uint8_t Byte1, Byte2;
  double Real1;
};
struct SamplerHeader {
  std::int32_t Int1;
};
struct ExchangeHeader {
  std::int32_t Int1;
};
struct PulseHeader {
  std::int32_t Int1, Int2, Int3;
  std::uint8_t Byte1, Byte2, Byte3;
};
struct RawContinuousHeader {
  double Real1, Real2, Real3;
  std::int32_t Int1;
  std::uint8_t Byte1, Byte2;
};

/// The header fields of a file's own type. They are read, kept and written back; no analysis looks
/// at them. The byte fields are 0-based here and 1-based in files.
union FileHeader {
  PClamp6Header PClamp6;
  SamplerHeader Sampler;
  ExchangeHeader Exchange;
  PulseHeader Pulse;
  RawContinuousHeader RawContinuous;
};

inline constexpr std::size_t kPathSize = 260;  // bytes, the closing NUL included

/// One data file named by an event table.
struct FileRecord {
  char Name[kPathSize];  // path as the table gives it; empty for the type Undefined
  FileType Type;
  std::int32_t SweepCount;  // sweeps of the SweepTable that belong to this file
  /// Reads the type's own header tokens of a table of the given version. False on a bad token.
  bool (*ReadHeader)(FileRecord& file, TextScanner& scanner, std::int32_t version);
  /// Writes the line with the type's keyword, the name and the type's own header. Returns 0 or the
  /// platform's code.
  std::int32_t (*WriteHeader)(const FileRecord& file, OutputFile& out);
  FileHeader Header;
};

}  // namespace ondrel
