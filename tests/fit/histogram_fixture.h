// Levels of a histogram, given by what is counted alone.
#pragma once

#include <initializer_list>
#include <vector>

#include "support/shell_test.h"
#include "workspace/workspace.h"

namespace ondrel {

class HistogramTest : public ShellTest {
 protected:
  HistogramTest() {
    workspace().Levels.Capacity = 400;
    EXPECT_TRUE(AllocateAllTables(Frame()));
  }

  LevelRecord& AddLevel(double amplitude, double duration) {
    LevelTable& levels = workspace().Levels;
    LevelRecord& level = *levels.Index[levels.Count++];
    level = {};
    level.Sweep = 1;
    level.Amplitude = amplitude;
    level.Duration = duration;
    return level;
  }

  void AddAmplitudes(std::initializer_list<double> picoamperes) {
    for (const double value : picoamperes) AddLevel(value * 1e-12, 0.001);
  }

  void AddDurations(std::initializer_list<double> seconds) {
    for (const double value : seconds) AddLevel(1e-12, value);
  }

  void Clear() { workspace().Levels.Count = 0; }

  /// Counts of all bins, those beside the axis included.
  template <typename Histogram>
  static std::vector<int> Counts(const Histogram& histogram, int binCount) {
    std::vector<int> counts;
    for (int i = 0; i < binCount + 2; ++i) counts.push_back(histogram.Bins[i].Count);
    return counts;
  }

  /// The numbers of the bins that are excluded.
  template <typename Histogram>
  static std::vector<int> Excluded(const Histogram& histogram, int binCount) {
    std::vector<int> bins;
    for (int i = 0; i < binCount + 2; ++i) {
      if (histogram.Bins[i].Flags == kExcludedBin) bins.push_back(i);
    }
    return bins;
  }
};

}  // namespace ondrel
