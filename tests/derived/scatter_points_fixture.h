// A fixture for the points of the scatter plots: one layout for all three, with round numbers, and
// levels written down by what the plots show of them.
#pragma once

#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

#include "derived/recording_fixture.h"
#include "derived/scatter_points.h"

namespace ondrel {

inline constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
inline constexpr double kInfinity = std::numeric_limits<double>::infinity();

using Points = std::vector<ScatterPoint>;
using Places = std::vector<std::pair<double, double>>;

inline constexpr ViewKind kScatterPlots[] = {ViewKind::AmplitudeScatter, ViewKind::DurationScatter,
                                             ViewKind::Scatter};

/// The frame goes from 100 to 600 and from 50 down to 450, and a tick, a picoampere and a decade
/// are 100 each: values from -5 to 45 by tens, amplitudes from 0 to 4 pA, durations from 10 us to
/// 0.1 s upward and to 1 s across.
class ScatterPointsTest : public RecordingTest {
 protected:
  ScatterPointsTest() {
    for (const ViewKind kind : kScatterPlots) {
      ViewOf(workspace(), kind).Frame = {100.0, 600.0, 50.0, 450.0, 20.0};
      ViewOf(workspace(), kind).Scatter = {2.0, 100.0, 100.0, 100.0};
    }
    byAmplitude().Value = ScatterValue::LevelTag;
    byDuration().Value = ScatterValue::LevelTag;
  }

  AmplitudeScatterSettings& byAmplitude() { return workspace().AmplitudeScatter; }
  DurationScatterSettings& byDuration() { return workspace().DurationScatter; }
  ScatterSettings& byBoth() { return workspace().Scatter; }

  /// A selected level; amplitude in picoamperes.
  LevelRecord& AddDwell(double tag, double picoamperes, double duration, std::uint32_t sweep = 1) {
    return AddLevel(sweep, 1, picoamperes * 1e-12, duration, tag);
  }

  Points PointsOf(ViewKind kind) {
    Points points;
    const auto keep = [&](const ScatterPoint& point) {
      points.push_back(point);
      return true;
    };
    if (kind == ViewKind::AmplitudeScatter) ForEachAmplitudeScatterPoint(workspace(), keep);
    if (kind == ViewKind::DurationScatter) ForEachDurationScatterPoint(workspace(), keep);
    if (kind == ViewKind::Scatter) ForEachScatterPoint(workspace(), keep);
    return points;
  }

  Places PlacesOf(ViewKind kind) {
    Places places;
    for (const ScatterPoint& point : PointsOf(kind)) places.emplace_back(point.X, point.Y);
    return places;
  }

  /// What the horizontal axis shows of each point.
  std::vector<double> AcrossOf(ViewKind kind) {
    std::vector<double> values;
    for (const ScatterPoint& point : PointsOf(kind)) values.push_back(point.Horizontal);
    return values;
  }

  std::vector<std::size_t> CountAll() {
    std::vector<std::size_t> counts;
    for (const ViewKind kind : kScatterPlots) counts.push_back(PointsOf(kind).size());
    return counts;
  }
};

}  // namespace ondrel
