// What the tests of the scatter plots and the stationarity plot share: recordings of which each
// plot shows a part, and the program with a plot as high as wide at least, so that its titles lie
// inside.
#pragma once

#include <string>
#include <vector>

#include "plot_pictures.h"

namespace ondrel::e2e {

/// Sweeps with values on and beyond the axes, levels longer and shorter and currents higher than
/// the axes reach, and long enough for the stationarity plot.
std::vector<RecordedSweep> MixedSweeps();
/// Nine sweeps of 4 s. Six are open all the time, one opens late, one closes early, and one opens
/// for a moment.
std::vector<RecordedSweep> SteadySweeps();

class PlotTest : public EndToEnd {
 protected:
  /// Starts, gives the frame the screen, and opens a recording.
  void Open(const std::vector<RecordedSweep>& sweeps);
  /// Opens a plot at a place with room for titles below, or brings it forward.
  void Show(const PlotKind& kind);
  [[nodiscard]] Window ViewOf(const PlotKind& kind) const { return program_.View(kind.Title); }
  [[nodiscard]] Picture PictureOf(const PlotKind& kind) const {
    return program_.ClientPicture(ViewOf(kind));
  }
  /// Keeps a picture when ONDREL_PICTURES names a folder.
  void Keep(const PlotKind& kind, const Picture& picture, const std::string& what) const;

  Program program_;
  TextReader reader_;
};

/// A test that runs for each plot.
class EveryPlot : public PlotTest, public ::testing::WithParamInterface<const PlotKind*> {
 protected:
  [[nodiscard]] const PlotKind& Kind() const { return *GetParam(); }
};

}  // namespace ondrel::e2e
