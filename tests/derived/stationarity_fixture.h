// A fixture for the stationarity plot: a time axis of a chosen step, levels in few words, and a
// device in which a letter is 5 wide.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "derived/recording_fixture.h"
#include "derived/stationarity.h"
#include "shell/toolkit.h"

namespace ondrel {

class StationarityTest : public RecordingTest {
 protected:
  StationarityTest() : device_(toolkit::AcquireDevice(nullptr)) {}
  ~StationarityTest() override { toolkit::ReleaseDevice(nullptr, device_); }

  StationaritySettings& plot() { return workspace().Stationarity; }
  DeviceRecord& device() { return device_; }

  /// An axis over `shortestSweep` seconds with a sample every `step` seconds.
  void UseTimeAxis(double shortestSweep, double tau, double step) {
    plot().ShortestSweep = shortestSweep;
    plot().Tau = tau;
    plot().TickSpacing = step;
    plot().TickPixels = 1.0;
    workspace().Sweeps.SelectedCount = 1;
  }

  LevelRecord& AddDwell(double start, double duration, std::int32_t number = 1,
                        double amplitude = 1.0) {
    LevelRecord& level = AddLevel(1, number, amplitude, duration);
    level.Transition = start;
    return level;
  }

  std::vector<double> Sample() {
    EXPECT_TRUE(SampleStationarity(workspace()));
    const double* const samples = plot().StationaritySamples;
    return {samples, samples + plot().SampleCount};
  }

 private:
  DeviceRecord device_;
};

}  // namespace ondrel
