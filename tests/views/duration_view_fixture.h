// A fixture for the view of the duration histogram, with round numbers on both of its axes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "support/histogram_view_test.h"
#include "views/duration_view.h"
#include "views/histogram_layout.h"

namespace ondrel {

/// Two decades from 10 us on, of five bins of 126 each and three minor ticks, of which the last is
/// the next decade; counts up to 15, so that ticks stand at 0, 10 and 20.
class DurationViewTest : public HistogramViewTest {
 protected:
  DurationViewTest() {
    duration().Decades = 2;
    duration().BinsPerDecade = 5;
    duration().TicksPerDecade = 3;
    duration().YMaximum = 15.0;
    duration().ConstrainPositive = true;
    SetHeights(duration(), {0.0, 15.0, 2.0});
    auto& colors = View(ViewKind::Duration).Colors;
    colors = {RgbColor{1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {4, 0, 0}, {5, 0, 0}};
    Lay();
  }

  void Lay() { LayoutDuration(workspace(), sink(), kRect); }
  void AllowNegative() {
    duration().ConstrainPositive = false;
    Lay();
  }

  void DrawAll() {
    LayoutDuration(workspace(), sink(), kRect);
    DrawDuration(workspace(), sink(), kRect);
  }
  void DrawXAxis() { DrawDurationXAxis(workspace(), sink(), kRect); }
  void DrawYAxis() { DrawDurationYAxis(workspace(), sink(), kRect); }
  void DrawBars() { DrawDurationBars(workspace(), sink()); }
  void DrawFit() { DrawDurationFit(workspace(), sink()); }

  void OpenFitView() { OpenInert(ViewKind::DurationFit); }

  void SetTimeConstants(const std::vector<double>& seconds) {
    duration().TermCount = static_cast<std::int32_t>(seconds.size());
    for (std::size_t i = 0; i < seconds.size(); ++i) {
      duration().Terms[i] = {.Weight = 0.5, .TimeConstant = seconds[i], .Area = 10.0};
    }
  }

  /// The terms whose curve or handle was drawn, in order: "curve 0 2", "marker".
  std::vector<std::string> FitSteps() {
    std::vector<std::string> steps;
    for (const std::string& line : Lines()) {
      if (line.starts_with("duration curve ")) steps.push_back("curve " + line.substr(28));
      if (line.starts_with("rect ")) steps.push_back("marker");
    }
    return steps;
  }
};

}  // namespace ondrel
