// A fixture for the view of the amplitude histogram, with round numbers on both of its axes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "support/histogram_view_test.h"
#include "views/amplitude_view.h"
#include "views/histogram_layout.h"

namespace ondrel {

/// Two ticks of 1 pA in ten bins of 126; counts up to 150, so that ticks stand at 0, 100 and 200.
class AmplitudeViewTest : public HistogramViewTest {
 protected:
  AmplitudeViewTest() {
    amplitude().TickMarks = 2;
    amplitude().BinsPerTick = 5;
    amplitude().YMaximum = 150.0;
    SetHeights(amplitude(), {0.0, 150.0, 20.0});
    auto& colors = View(ViewKind::Amplitude).Colors;
    colors = {RgbColor{1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {4, 0, 0}, {5, 0, 0}};
    LayoutAmplitude(workspace(), sink(), kRect);
  }

  void DrawAll() {
    LayoutAmplitude(workspace(), sink(), kRect);
    DrawAmplitude(workspace(), sink(), kRect);
  }
  void DrawXAxis() { DrawAmplitudeXAxis(workspace(), sink(), kRect); }
  void DrawYAxis() { DrawAmplitudeYAxis(workspace(), sink(), kRect); }
  void DrawBars() { DrawAmplitudeBars(workspace(), sink()); }
  void DrawFit() { DrawAmplitudeFit(workspace(), sink()); }

  void OpenFitView() { OpenInert(ViewKind::AmplitudeFit); }

  void SetCurrents(const std::vector<double>& currents) {
    amplitude().TermCount = static_cast<std::int32_t>(currents.size());
    for (std::size_t i = 0; i < currents.size(); ++i) {
      amplitude().Terms[i] = {.Weight = 0.5, .Current = currents[i], .StdDev = 0.1, .Area = 10.0};
    }
  }

  /// The terms whose curve or handle was drawn, in order: "curve 0 2", "marker".
  std::vector<std::string> FitSteps() {
    std::vector<std::string> steps;
    for (const std::string& line : Lines()) {
      if (line.starts_with("amplitude curve ")) steps.push_back("curve " + line.substr(29));
      if (line.starts_with("line ")) steps.push_back("marker");
    }
    return steps;
  }
};

}  // namespace ondrel
