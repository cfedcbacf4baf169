// What the benchmarks work on: a recording of a million events as text and as tables, and the form
// of a case.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "shell/window_record.h"
#include "workspace/workspace.h"

namespace ondrel::bench {

inline constexpr std::int32_t kEventCount = 1000000;
inline constexpr std::int32_t kEventsPerSweep = 5000;
inline constexpr std::int32_t kSweepCount = kEventCount / kEventsPerSweep;

struct BenchData {
  BenchData();
  ~BenchData();
  BenchData(const BenchData&) = delete;
  BenchData& operator=(const BenchData&) = delete;

  std::string Version5;                 // the recording as it is saved
  std::string BareList;                 // the same events without anything else
  std::vector<double> Values;           // what the baseline last read
  double BaselineSum = 0.0;             // of its evaluations of an objective
  const std::string* Loaded = nullptr;  // the text whose events are in the tables
  char* Block = nullptr;                // a copy of the text for the reader to take apart and free
  std::filesystem::path Folder;         // for what is written; goes with the data
  std::filesystem::path ProductFile;
  std::filesystem::path BaselineFile;
  std::unique_ptr<Workspace> Tables = std::make_unique<Workspace>();
  FrameWindow Frame;
};

/// One thing to measure, and the plainest way to do the like.
struct BenchCase {
  const char* Name;
  std::size_t (*Bytes)(const BenchData& data);  // that either goes through; null: not counted
  void (*Load)(BenchData& data) = nullptr;      // once, before the first turn, not timed
  void (*Prepare)(BenchData& data);             // before each product run, not timed
  void (*Baseline)(BenchData& data);
  void (*Product)(BenchData& data);
  bool (*Check)(const BenchData& data);  // that the product's last result is right
};

}  // namespace ondrel::bench
