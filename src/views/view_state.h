// The state of the twelve views, which outlives their windows: a view opens again where it was.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "shell/window_record.h"
#include "workspace/geometry.h"

namespace ondrel {

enum class ViewKind : std::uint8_t {
  Event,
  Level,
  Sweep,
  Statistics,
  AmplitudeFit,
  DurationFit,
  Amplitude,
  Duration,
  AmplitudeScatter,
  DurationScatter,
  Scatter,
  Stationarity,
};
inline constexpr std::size_t kViewCount = 12;

/// The view of the parameters that are fitted to the histogram `histogramView`, Amplitude or
/// Duration.
constexpr ViewKind FitViewOf(ViewKind histogramView) {
  return histogramView == ViewKind::Amplitude ? ViewKind::AmplitudeFit : ViewKind::DurationFit;
}

// Places of a view's colours in its `Colors`, in the order in which settings keep them.
enum class EventColor : std::size_t { Events, Background, Header };
enum class LevelColor : std::size_t { Selected, Header, Other, Background };
enum class SweepColor : std::size_t { Selected, Other, Background, Header };
enum class StatisticsColor : std::size_t { Header, Others, Background };
enum class HistogramColor : std::size_t { Histogram, Fit, Labels, Axes, Background };
enum class FitColor : std::size_t { Background };
enum class PlotColor : std::size_t { Plot, Labels, Axes, Background };
inline constexpr std::size_t kMaxViewColors = 5;

/// The frame of a graph, in device units.
struct GraphFrame {
  double PlotLeft = 0.0;
  double PlotRight = 0.0;
  double PlotTop = 0.0;
  double PlotBottom = 0.0;
  double LabelOffset = 0.0;  // gap between the vertical axis and its numbers
};

/// How the data of a scatter plot lie in its frame, in device units. All are whole numbers, so that
/// the last tick of an axis can stop short of the edge of the frame.
struct ScatterLayout {
  double SymbolPixels = 0.0;     // side of a dot, even
  double XPixelsPerTick = 0.0;   // linear horizontal axis
  double YPixelsPerUnit = 0.0;   // linear vertical axis, per pA
  double PixelsPerDecade = 0.0;  // logarithmic axis
};

inline constexpr std::size_t kMaxColumns = 11;

/// The mouse on a histogram, from a press to its release. Places are client coordinates.
struct MouseGesture {
  std::int32_t PressX = 0;
  std::int32_t PressY = 0;
  std::int32_t LastX = 0;  // the last place that was handled
  std::int32_t LastY = 0;
  std::int32_t PickedMarker = 0;
  void (*OnMove)(ChildWindow* window, int x, int y) = nullptr;  // null: nothing to be done
  void (*OnRelease)(ChildWindow* window, int x, int y) = nullptr;
};

/// One record serves every kind of view; graphs use `Frame`, scatter plots `Scatter` and histograms
/// `Gesture` too, tables what follows.
struct ViewState {
  ChildWindow* Window = nullptr;  // owned while open; null while closed
  IntRect ViewRect;               // last normal place in the frame; degenerate: none yet
  bool NeedsRebuild = false;      // the picture is stale
  bool DrawnElsewhere = false;    // its layout is that of a page, a metafile or a document just now
  WindowPlacement Placement = WindowPlacement::Normal;
  std::array<RgbColor, kMaxViewColors> Colors{};
  GraphFrame Frame;
  ScatterLayout Scatter;
  MouseGesture Gesture;
  std::int32_t TopRow = 0;       // first row on the screen, from 0; -1 after End in an empty table
  std::int32_t VisibleRows = 0;  // whole rows that fit under the header; may be negative
  bool Stepped = false;          // the gesture under way moved TopRow by itself
  std::array<double, kMaxColumns> ColumnRight{};  // right edges of the columns, device units
};

template <typename Color>
const RgbColor& ColorOf(const ViewState& view, Color color) {
  return view.Colors[static_cast<std::size_t>(color)];
}

}  // namespace ondrel
