// What is expected of the pictures of scatter plots and the stationarity plot, each as one
// assertion that tells where a picture fails.
#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "plot_places.h"
#include "text_reader.h"

namespace ondrel::e2e {

inline PlotFrame FrameOf(const PlotKind& kind, const Picture& view) {
  return FrameOf(kind, view.Width, view.Height);
}

/// These squares, and nothing else, have this colour.
::testing::AssertionResult ShowsOnly(const Picture& view, const std::vector<Rect>& squares,
                                     std::uint32_t color = kRed);
/// The pixels of this colour are a line through these places, give or take one pixel up and down.
::testing::AssertionResult ShowsCurve(const Picture& view, const std::vector<Point>& places,
                                      std::uint32_t color = kRed);
/// Dots or curve of the recording, whichever the plot has.
::testing::AssertionResult ShowsData(const PlotKind& kind, const Picture& view,
                                     const std::vector<RecordedSweep>& sweeps);
/// Both titles at their places.
::testing::AssertionResult ShowsTitles(const PlotKind& kind, const Picture& view,
                                       const TextReader& reader);
/// Both axis lines.
::testing::AssertionResult ShowsAxisLines(const PlotKind& kind, const Picture& view);
/// These ticks on both axes, and no others.
::testing::AssertionResult ShowsTicks(const PlotKind& kind, const Picture& view,
                                      const PlotMarks& marks);
/// The numbers of both axes, each by itself at its place.
::testing::AssertionResult ShowsNumbers(const PlotKind& kind, const Picture& view,
                                        const TextReader& reader, const PlotMarks& marks);

}  // namespace ondrel::e2e
