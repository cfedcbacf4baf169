// A fixture for the three scatter plots, with round numbers on all axes.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/histogram_view_test.h"
#include "views/scatter_axes.h"
#include "views/scatter_views.h"

namespace ondrel {

inline constexpr ViewKind kScatterPlots[] = {ViewKind::AmplitudeScatter, ViewKind::DurationScatter,
                                             ViewKind::Scatter};

/// On a device of 254 dots per inch, where a centimetre is 100 device units. The plot is 1260 wide
/// and 1120 high. Dots are 4 wide, and stand by the tags of their levels.
class ScatterViewTest : public HistogramViewTest {
 protected:
  static constexpr double kDpi = 254.0;

  ScatterViewTest() {
    for (const ViewKind kind : kScatterPlots) {
      View(kind).Colors = {RgbColor{1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {4, 0, 0}};
    }
    byAmplitude() = {.Value = ScatterValue::LevelTag, .TickMarks = 3, .SymbolSize = 0.04};
    byDuration() = {
        .Value = ScatterValue::LevelTag, .Decades = 4, .TickMarks = 3, .SymbolSize = 0.04};
    byBoth() = {.Decades = 3, .SymbolSize = 0.04};
  }

  AmplitudeScatterSettings& byAmplitude() { return workspace().AmplitudeScatter; }
  DurationScatterSettings& byDuration() { return workspace().DurationScatter; }
  ScatterSettings& byBoth() { return workspace().Scatter; }
  const ScatterLayout& LayoutOf(ViewKind kind) { return View(kind).Scatter; }

  void Lay(const IntRect& rect = kRect) {
    LayoutAmplitudeScatter(workspace(), rect, kDpi);
    LayoutDurationScatter(workspace(), rect, kDpi);
    LayoutScatter(workspace(), rect, kDpi);
  }

  /// Draws as the last layout placed things, on an empty record.
  const std::vector<std::string>& DrawAsLaid(ViewKind kind) {
    recording::Clear();
    workspace().Graphics.Status = 0;
    DrawOn(sink(), kind);
    return Lines();
  }

  const std::vector<std::string>& Draw(ViewKind kind) {
    Lay();
    return DrawAsLaid(kind);
  }

  void DrawOn(const GraphicsSink& target, ViewKind kind) {
    if (kind == ViewKind::AmplitudeScatter) DrawAmplitudeScatter(workspace(), target, kRect);
    if (kind == ViewKind::DurationScatter) DrawDurationScatter(workspace(), target, kRect);
    if (kind == ViewKind::Scatter) DrawScatter(workspace(), target, kRect);
  }

  struct Dwell {
    double Tag;
    double Picoamperes;
    double Duration;  // s
  };

  /// Selected levels of sweep 1.
  void SetDwells(const std::vector<Dwell>& dwells) {
    FreeLevelTable(workspace().Levels);
    FillLevels(static_cast<std::int32_t>(dwells.size()), [&](LevelRecord& level, std::int32_t row) {
      const Dwell& dwell = dwells[static_cast<std::size_t>(row)];
      level.Sweep = 1;
      level.TagValue = dwell.Tag;
      level.Amplitude = dwell.Picoamperes * 1e-12;
      level.Duration = dwell.Duration;
    });
  }

  void SetShown(bool axes, bool labels) {
    byAmplitude().ShowAxes = byDuration().ShowAxes = byBoth().ShowAxes = axes;
    byAmplitude().ShowLabels = byDuration().ShowLabels = byBoth().ShowLabels = labels;
  }
};

}  // namespace ondrel
