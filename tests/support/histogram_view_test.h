// A fixture for the two histogram views: a rectangle whose fractions are whole numbers, bins of
// chosen heights, and a device in which numbers are measured.
#pragma once

#include <gmock/gmock.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "fit/histogram_axis.h"
#include "support/recording_sink.h"
#include "support/view_test.h"

namespace ondrel {

class HistogramViewTest : public ViewTest {
 protected:
  /// 1680 wide and high, so that all fractions are whole but the minor ticks of 22.4: the plot goes
  /// from 230 to 1490 and from 290 down to 1410, and a letter is 5 wide.
  static constexpr IntRect kRect = {20, 10, 1700, 1690};

  HistogramViewTest() {
    recording::Clear();
    workspace().Graphics.Device = toolkit::AcquireDevice(nullptr);
  }
  ~HistogramViewTest() override {
    toolkit::ReleaseDevice(nullptr, workspace().Graphics.Device);
    recording::Clear();
  }

  AmplitudeHistogram& amplitude() { return workspace().Amplitude; }
  DurationHistogram& duration() { return workspace().Duration; }
  const GraphicsSink& sink() { return recording::kRecordingSink; }
  const std::vector<std::string>& Lines() { return recording::Lines(); }

  /// The bars of the histogram from bin 1 on; those not named are empty.
  template <typename Histogram>
  void SetHeights(Histogram& histogram, const std::vector<double>& heights) {
    toolkit::FreeMemory(histogram.Bins);
    histogram.Bins = toolkit::AllocateRecords<BinRecord>(CountBins(histogram) + 2);
    for (std::size_t i = 0; i < heights.size(); ++i) histogram.Bins[i + 1].Height = heights[i];
  }

  /// What the window shows. Painting takes the context's device, which comes back afterwards.
  std::vector<std::string> OpenAndPaint(ViewKind kind) {
    const DeviceRecord kept = workspace().Graphics.Device;
    Open(kind);
    const std::vector<std::string> drawing = Paint(kind);
    workspace().Graphics.Device = kept;
    return drawing;
  }

  /// The lines that begin with one of `starts`, in their order.
  std::vector<std::string> LinesOf(const std::vector<std::string>& starts) {
    std::vector<std::string> found;
    for (const std::string& line : Lines()) {
      for (const std::string& start : starts) {
        if (line.starts_with(start)) found.push_back(line);
      }
    }
    return found;
  }

  /// The colours in force where such lines were drawn.
  std::set<std::string> ColorsOf(const std::vector<std::string>& starts) {
    std::set<std::string> colors;
    std::string color;
    for (const std::string& line : Lines()) {
      if (line.starts_with("color")) color = line;
      for (const std::string& start : starts) {
        if (line.starts_with(start)) colors.insert(color);
      }
    }
    return colors;
  }

  /// A sink that counts what it is asked to draw, for drawings of many parts.
  static GraphicsSink CountingSink() {
    GraphicsSink counting = recording::kRecordingSink;
    counting.DrawLine = [](GraphicsContext& context, double, double, double, double) {
      ++context.DocumentFontSize;
    };
    counting.DrawText = [](GraphicsContext& context, double, double, TextAlignment, const char*,
                           std::size_t) { ++context.DocumentFontSize; };
    counting.SetColor = [](GraphicsContext&, const char*, std::size_t, const RgbColor&) {};
    return counting;
  }

  /// What `draw` draws on such a sink: lines and texts.
  template <typename Draw>
  int CountParts(Draw draw) {
    workspace().Graphics.DocumentFontSize = 0;  // of no use here but to count in
    const GraphicsSink counting = CountingSink();
    draw(workspace(), counting, kRect);
    return workspace().Graphics.DocumentFontSize;
  }

  int CountLines(const std::string& start) { return static_cast<int>(LinesOf({start}).size()); }

  bool HasLine(const std::string& line) {
    return std::find(Lines().begin(), Lines().end(), line) != Lines().end();
  }
};

}  // namespace ondrel
