// The scatter plots and the stationarity plot as a user knows them: what tells them apart, and
// where their axes, numbers, dots and curve have to stand in a picture, worked out from a
// recording.
#pragma once

#include <string>
#include <vector>

#include "fixtures.h"

namespace ondrel::e2e {

struct PlotKind {
  const char* Name;
  const char* Title;  // of the window
  int View;           // commands
  int FirstColor;     // of the data; labels, axes and background follow
  const char* AcrossTitle;
  const char* UpTitle;
};

extern const PlotKind kAmplitudeScatterPlot;
extern const PlotKind kDurationScatterPlot;
extern const PlotKind kAmplitudeDurationPlot;
extern const PlotKind kStationarityPlot;

inline constexpr const PlotKind* kEveryPlot[] = {&kAmplitudeScatterPlot, &kDurationScatterPlot,
                                                 &kAmplitudeDurationPlot, &kStationarityPlot};

/// What the axes enclose in the picture of a view, pixels.
struct PlotFrame {
  double Width = 0.0;  // of the picture
  double Left = 0.0;
  double Right = 0.0;
  double Top = 0.0;
  double Bottom = 0.0;
  double Reference = 0.0;  // the side from which lengths of ticks and distances are taken
};

PlotFrame FrameOf(const PlotKind& kind, int width, int height);

/// A number on an axis, and how far from the axis's start it stands, pixels.
struct AxisNumber {
  std::string Text;
  double Offset = 0.0;
};

struct AxisMarks {
  std::vector<AxisNumber> Numbers;
  std::vector<double> Major;  // offsets of ticks, pixels
  std::vector<double> Minor;
};

struct PlotMarks {
  AxisMarks Across;
  AxisMarks Up;
};

struct TextSize {
  int Width = 0;
  int Ascent = 0;
  int Descent = 0;
};

// All at the settings of the start.

/// The font of views, for the caller to delete.
HFONT FirstFont();
TextSize SizeOf(const std::string& text);

PlotMarks ScatterMarks(const PlotKind& kind, const PlotFrame& frame);

/// Squares of the dots that lie in the frame, in the order of their levels.
std::vector<Rect> DotsOf(const PlotKind& kind, const PlotFrame& frame,
                         const std::vector<RecordedSweep>& sweeps);

struct StationarityPlot {
  PlotMarks Marks;
  std::vector<Point> Curve;  // one place for each column
};

/// For a recording whose shortest sweep is longer than the averaging reaches.
StationarityPlot StationarityOf(const PlotFrame& frame, const std::vector<RecordedSweep>& sweeps);

}  // namespace ondrel::e2e
