// A fixture for the stationarity plot: round numbers on both of its axes, and samples that are
// worked out or chosen.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "support/histogram_view_test.h"
#include "views/graph_frame.h"
#include "views/stationarity_view.h"

namespace ondrel {

/// A rectangle whose fractions are whole numbers, with width and height far apart: the plot goes
/// from 720 to 4185 and from 290 down to 1410. Ticks are 35 long, numbers stand 112 below the axis
/// and its title 240; numbers of the other axis end at 584.
class StationarityViewTest : public HistogramViewTest {
 protected:
  static constexpr IntRect kWide = {20, 10, 4780, 1690};

  StationarityViewTest() {
    State().Colors = {RgbColor{1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {4, 0, 0}};
    workspace().Sweeps.SelectedCount = 1;
    plot().ShortestSweep = 10.0;
  }

  StationaritySettings& plot() { return workspace().Stationarity; }
  ViewState& State() { return View(ViewKind::Stationarity); }

  void Compute(const IntRect& rect = kWide) { ComputeStationarity(workspace(), rect); }
  void Draw() {
    recording::Clear();
    DrawStationarity(workspace(), sink(), kWide);
  }

  /// A level that covers every kernel.
  void AddWholeLevel(double amplitude = 0.0, std::int32_t number = 0) {
    FillLevels(1, [&](LevelRecord& level, std::int32_t) {
      level.Duration = 1000.0;
      level.Amplitude = amplitude;
      level.Level = number;
    });
  }

  /// Samples as if they had been worked out for the rectangle, on axes of round numbers: 10 s in
  /// ticks of 4 s, values from -2 up in ticks of 2, each 500 high.
  void UseSamples(const std::vector<double>& samples) {
    State().Frame = FrameIn(kWide, 6.8);
    FreeSamples(plot());
    plot().Tau = 0.5;
    plot().TickSpacing = 4.0;
    plot().TickPixels = 1600.0;
    plot().TimeDecimals = 3;
    plot().ValueMin = -2.0;
    plot().ValueMax = 1.0;
    plot().ValueTick = 2.0;
    plot().ValueTickPixels = 500.0;
    plot().SampleCount = static_cast<std::int32_t>(samples.size());
    if (samples.empty()) return;
    plot().StationaritySamples = toolkit::AllocateRecords<double>(plot().SampleCount);
    std::copy(samples.begin(), samples.end(), plot().StationaritySamples);
  }

  std::vector<std::string> Titles() { return LinesOf({"left 1875 1650", "left 360 174"}); }
};

}  // namespace ondrel
