// The points of the three scatter plots: which levels give one, what they show, and where their
// dots stand. There is no table of them: drawing and exporting walk the levels, and both take the
// points that lie inside the frame of the plot's last layout.
#pragma once

#include <cmath>
#include <cstdint>

#include "derived/plot_settings.h"
#include "views/view_state.h"
#include "workspace/geometry.h"
#include "workspace/units.h"
#include "workspace/workspace.h"

namespace ondrel {

struct ScatterPoint {
  double Horizontal = 0.0;  // the value on the axis; s for a duration
  double Vertical = 0.0;    // A, or s for a duration
  double X = 0.0;           // the middle of the dot, device units
  double Y = 0.0;
};

/// What `level` shows on an axis of values. Not-a-number, which lies on no axis, when the sweep's
/// values are asked for and the table has no row for its sweep.
double SourceValue(const SweepTable& sweeps, const LevelRecord& level, ScatterValue value);

/// Whether the dot belongs to the plot: its middle lies in the frame, edges included. A place that
/// is no number does not.
inline bool LiesInFrame(const GraphFrame& frame, const ScatterPoint& point) {
  return point.X - frame.PlotLeft >= -kLengthRounding &&
         frame.PlotRight - point.X >= -kLengthRounding &&
         point.Y - frame.PlotTop >= -kLengthRounding &&
         frame.PlotBottom - point.Y >= -kLengthRounding;
}

/// Places on the axes of a plot, device units.
struct ScatterPlaces {
  const GraphFrame& Frame;
  const ScatterLayout& Layout;

  double AcrossValue(double value, double minimum, double perTick) const {
    return (value - minimum) * Layout.XPixelsPerTick / perTick + Frame.PlotLeft;
  }
  double UpAmplitude(double amplitude, double minimum) const {
    return Frame.PlotBottom - (amplitude - minimum) * Layout.YPixelsPerUnit / kPicoampere;
  }
  /// From the start of the axis. The logarithm of a duration of 0 is infinite, which lies in no
  /// frame.
  double AlongDuration(double duration, std::int32_t minimumExponent) const {
    return (std::log10(duration) - minimumExponent) * Layout.PixelsPerDecade;
  }
};

/// Hands the points in the frame of the view `kind` to `visit`, in table order: those of the
/// selected levels for which `place` gives one.
template <typename Place, typename Visit>
void ForEachPointIn(const Workspace& workspace, ViewKind kind, Place place, Visit visit) {
  const ViewState& view = ViewOf(workspace, kind);
  const ScatterPlaces places{view.Frame, view.Scatter};
  for (std::int32_t index = 0; index < workspace.Levels.Count; ++index) {
    const LevelRecord& level = *workspace.Levels.Index[index];
    if (level.LevelFlags != 0) continue;
    const ScatterPoint point = place(level, places);
    if (LiesInFrame(view.Frame, point) && !visit(point)) return;
  }
}

// The plots. `visit` takes a ScatterPoint and returns false to have no more of them.

/// Amplitude against the source value.
template <typename Visit>
void ForEachAmplitudeScatterPoint(const Workspace& workspace, Visit visit) {
  const AmplitudeScatterSettings& plot = workspace.AmplitudeScatter;
  const auto place = [&](const LevelRecord& level, const ScatterPlaces& places) {
    const double value = SourceValue(workspace.Sweeps, level, plot.Value);
    return ScatterPoint{.Horizontal = value,
                        .Vertical = level.Amplitude,
                        .X = places.AcrossValue(value, plot.Minimum, plot.PerTick),
                        .Y = places.UpAmplitude(level.Amplitude, plot.AmplitudeMinimum)};
  };
  ForEachPointIn(workspace, ViewKind::AmplitudeScatter, place, visit);
}

/// Duration, on its logarithmic axis, against the source value.
template <typename Visit>
void ForEachDurationScatterPoint(const Workspace& workspace, Visit visit) {
  const DurationScatterSettings& plot = workspace.DurationScatter;
  const auto place = [&](const LevelRecord& level, const ScatterPlaces& places) {
    const double value = SourceValue(workspace.Sweeps, level, plot.Value);
    return ScatterPoint{
        .Horizontal = value,
        .Vertical = level.Duration,
        .X = places.AcrossValue(value, plot.Minimum, plot.PerTick),
        .Y = places.Frame.PlotBottom - places.AlongDuration(level.Duration, plot.MinimumExponent)};
  };
  ForEachPointIn(workspace, ViewKind::DurationScatter, place, visit);
}

/// Amplitude against duration, on its logarithmic axis.
template <typename Visit>
void ForEachScatterPoint(const Workspace& workspace, Visit visit) {
  const ScatterSettings& plot = workspace.Scatter;
  const auto place = [&](const LevelRecord& level, const ScatterPlaces& places) {
    return ScatterPoint{
        .Horizontal = level.Duration,
        .Vertical = level.Amplitude,
        .X = places.AlongDuration(level.Duration, plot.MinimumExponent) + places.Frame.PlotLeft,
        .Y = places.UpAmplitude(level.Amplitude, plot.Minimum)};
  };
  ForEachPointIn(workspace, ViewKind::Scatter, place, visit);
}

}  // namespace ondrel
