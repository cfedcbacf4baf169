#include "views/estimate_gestures.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "fit/estimates.h"
#include "shell/toolkit.h"
#include "views/fit_views.h"
#include "views/histogram_window.h"
#include "views/term_markers.h"
#include "views/view_window.h"
#include "workspace/truncate.h"
#include "workspace/workspace.h"

namespace ondrel {
namespace {

/// How far from the axis a double click still adds a term, pixels.
constexpr std::int32_t kAxisReach = 2;

// --- The two histograms --------------------------------------------------------------------------

/// The handles of a histogram's terms.
struct Handles {
  MarkerArray& Peaks;
  MarkerArray* Widths;  // null: the terms have no width
  const std::int32_t& MarkerCount;
  const std::int32_t& TermCount;
};

// What differs between the histograms. LowestPeak is how far down a peak can be dragged; with
// FollowPeak the term goes where its handle stands.

struct Amplitude {
  static constexpr ViewKind kView = ViewKind::Amplitude;
  static constexpr auto ManualFit = ManualAmplitudeFit;

  static AmplitudeHistogram& In(Workspace& workspace) { return workspace.Amplitude; }

  static Handles HandlesOf(AmplitudeHistogram& histogram) {
    return {histogram.PeakMarkers, &histogram.WidthMarkers, histogram.MarkerCount,
            histogram.TermCount};
  }

  static std::int32_t LowestPeak(ChildWindow*, const GraphFrame& frame) {
    return TruncateToInteger(frame.PlotBottom);
  }

  static void FollowPeak(AmplitudeHistogram& histogram, const GraphFrame& frame,
                         const TermMarker& handle) {
    const double half = MarkerHalf(frame);
    MovePeak(histogram, frame, handle.TermIndex, handle.Left + half,
             frame.PlotBottom - handle.Top - half);
  }
};

struct Duration {
  static constexpr ViewKind kView = ViewKind::Duration;
  static constexpr auto ManualFit = ManualDurationFit;

  static DurationHistogram& In(Workspace& workspace) { return workspace.Duration; }

  static Handles HandlesOf(DurationHistogram& histogram) {
    return {histogram.Markers, nullptr, histogram.MarkerCount, histogram.TermCount};
  }

  /// A user may pull a duration below the line of count zero, unless the view shows nothing there.
  static std::int32_t LowestPeak(ChildWindow* window, const GraphFrame& frame) {
    if (window->Owner->Duration.ConstrainPositive) return TruncateToInteger(frame.PlotBottom);
    return TruncateToInteger(toolkit::ClientRect(window).Bottom - MarkerHalf(frame));
  }

  /// The rise is taken in another order than an amplitude's, which can tell in its last bit.
  static void FollowPeak(DurationHistogram& histogram, const GraphFrame& frame,
                         const TermMarker& handle) {
    const double half = MarkerHalf(frame);
    MovePeak(histogram, frame, handle.TermIndex, handle.Left + half,
             frame.PlotBottom - (handle.Top + half));
  }
};

// --- Handles -------------------------------------------------------------------------------------

TermMarker& At(MarkerArray& markers, std::int32_t marker) {
  return markers[static_cast<std::size_t>(marker)];
}

bool Contains(const TermMarker& marker, int x, int y) {
  return x >= marker.Left && x <= marker.Right && y >= marker.Top && y <= marker.Bottom;
}

bool IsPeakHit(const Handles& handles, std::int32_t marker, int x, int y) {
  return Contains(At(handles.Peaks, marker), x, y);
}

bool IsWidthHit(const Handles& handles, std::int32_t marker, int x, int y) {
  return handles.Widths != nullptr && Contains(At(*handles.Widths, marker), x, y);
}

/// The first marker whose peak is under the place; MarkerCount when there is none.
std::int32_t FindPeak(const Handles& handles, int x, int y) {
  std::int32_t marker = 0;
  while (marker < handles.MarkerCount && !IsPeakHit(handles, marker, x, y)) ++marker;
  return marker;
}

/// The marker of a term; the first slot behind the markers when the term has none.
std::int32_t FindMarkerOf(const Handles& handles, std::int32_t term) {
  std::int32_t marker = 0;
  while (marker < handles.MarkerCount && At(handles.Peaks, marker).TermIndex != term) ++marker;
  return marker;
}

// --- Drags ---------------------------------------------------------------------------------------

enum class DraggedHandle : std::uint8_t { Peak, Width };

/// Drawn anew, all handles stand where the terms' numbers put them, cut to whole pixels. The
/// dragged one goes back to where the mouse has it, since a slow drag would drift otherwise. A term
/// that has just left the axis has no marker any more: its handle then waits in the slot behind the
/// markers, so that the same drag can bring the term back.
template <typename Twin>
void RedrawWhileDragged(Workspace& workspace, DraggedHandle dragged) {
  std::int32_t& picked = ViewOf(workspace, Twin::kView).Gesture.PickedMarker;
  const Handles handles = Twin::HandlesOf(Twin::In(workspace));
  const TermMarker peak = At(handles.Peaks, picked);
  const TermMarker width =
      dragged == DraggedHandle::Width ? At(*handles.Widths, picked) : TermMarker{};
  RedrawHistogram(workspace, Twin::kView);
  picked = FindMarkerOf(handles, peak.TermIndex);
  At(handles.Peaks, picked) = peak;
  if (dragged == DraggedHandle::Width) At(*handles.Widths, picked) = width;
}

template <typename Twin>
void EndMove(Workspace& workspace, int x, int y) {
  MouseGesture& gesture = ViewOf(workspace, Twin::kView).Gesture;
  gesture.LastX = x;
  gesture.LastY = y;
  RedrawFitView(workspace, FitViewOf(Twin::kView));
}

int LimitToPlot(const GraphFrame& frame, int x) {
  return std::max(TruncateToInteger(frame.PlotLeft),
                  std::min(x, TruncateToInteger(frame.PlotRight)));
}

void CentreHandle(TermMarker& handle, const GraphFrame& frame, int x, int y) {
  const double half = MarkerHalf(frame);
  handle.Left = TruncateToInteger(x - half);
  handle.Top = TruncateToInteger(y - half);
  handle.Right = TruncateToInteger(x + half);
  handle.Bottom = TruncateToInteger(y + half);
}

template <typename Twin>
void DragPeak(ChildWindow* window, int x, int y) {
  Workspace& workspace = *window->Owner;
  auto& histogram = Twin::In(workspace);
  const ViewState& view = ViewOf(workspace, Twin::kView);
  const MouseGesture& gesture = view.Gesture;
  x = LimitToPlot(view.Frame, x);
  y = std::min(y, Twin::LowestPeak(window, view.Frame));
  if (x != gesture.LastX || y != gesture.LastY) {
    TermMarker& peak = At(Twin::HandlesOf(histogram).Peaks, gesture.PickedMarker);
    CentreHandle(peak, view.Frame, x, y);
    Twin::FollowPeak(histogram, view.Frame, peak);
    RedrawWhileDragged<Twin>(workspace, DraggedHandle::Peak);
  }
  EndMove<Twin>(workspace, x, y);
}

/// The handle of a width stays between that of its peak and the end of the plot.
bool MayStand(const TermMarker& width, const TermMarker& peak, const GraphFrame& frame, int dx) {
  const double half = MarkerHalf(frame);
  const double centre = width.Left + half / 2.0 + dx;
  return centre >= peak.Left + 2.0 * half && centre <= frame.PlotRight;
}

/// A move that is not taken is forgotten: the handle follows the next one from where it stands.
void DragWidth(ChildWindow* window, int x, int y) {
  Workspace& workspace = *window->Owner;
  AmplitudeHistogram& histogram = workspace.Amplitude;
  const ViewState& view = ViewOf(workspace, ViewKind::Amplitude);
  const std::int32_t picked = view.Gesture.PickedMarker;
  const int dx = x - view.Gesture.LastX;
  TermMarker& width = At(histogram.WidthMarkers, picked);
  if (dx != 0 && MayStand(width, At(histogram.PeakMarkers, picked), view.Frame, dx)) {
    width.Left += dx;
    width.Right += dx;
    MoveWidth(histogram, view.Frame, width.TermIndex, width.Left);
    RedrawWhileDragged<Amplitude>(workspace, DraggedHandle::Width);
  }
  EndMove<Amplitude>(workspace, x, y);
}

template <typename Twin>
void CommitAlways(ChildWindow* window, int, int) {
  RedrawFitView(*window->Owner, FitViewOf(Twin::kView));
  RepaintView(*window->Owner, Twin::kView);
}

template <typename Twin>
void CommitIfMoved(ChildWindow* window, int x, int y) {
  const MouseGesture& gesture = ViewOf(*window->Owner, Twin::kView).Gesture;
  if (x == gesture.PressX && y == gesture.PressY) return;
  CommitAlways<Twin>(window, x, y);
}

// --- Presses -------------------------------------------------------------------------------------

bool IsNearAxis(const GraphFrame& frame, int x, int y) {
  return x >= TruncateToInteger(frame.PlotLeft) && x <= TruncateToInteger(frame.PlotRight) &&
         std::abs(y - TruncateToInteger(frame.PlotBottom)) <= kAxisReach;
}

/// The last term cannot be removed.
template <typename Twin>
void AddOrRemoveTerm(Workspace& workspace, int x, int y) {
  ViewState& view = ViewOf(workspace, Twin::kView);
  auto& histogram = Twin::In(workspace);
  const Handles handles = Twin::HandlesOf(histogram);
  const std::int32_t marker = FindPeak(handles, x, y);
  if (marker < handles.MarkerCount) {
    if (handles.TermCount == 1) return;
    RemoveTerm(histogram, marker);
  } else {
    if (!IsNearAxis(view.Frame, x, y)) return;
    if (handles.TermCount >= kMaxTerms) return;
    AddTerm(histogram, view.Frame, x);
  }
  view.Gesture.OnRelease = CommitAlways<Twin>;
}

/// Picks the first handle under the place. Where two of one term overlap it is the peak's.
template <typename Twin>
void PickHandle(Workspace& workspace, int x, int y) {
  MouseGesture& gesture = ViewOf(workspace, Twin::kView).Gesture;
  const Handles handles = Twin::HandlesOf(Twin::In(workspace));
  for (std::int32_t i = 0; i < handles.MarkerCount; ++i) {
    const bool peak = IsPeakHit(handles, i, x, y);
    if (!peak && !IsWidthHit(handles, i, x, y)) continue;
    gesture.PickedMarker = i;
    gesture.OnMove = peak ? DragPeak<Twin> : DragWidth;
    gesture.OnRelease = CommitIfMoved<Twin>;
    return;
  }
}

/// Notes the time of a press. The clock starts again at 0 after 49 days, which the difference of
/// unsigned numbers takes in its stride.
bool IsSecondOfDouble(Workspace& workspace) {
  const std::uint32_t now = toolkit::TickCount();
  const std::uint32_t since = now - workspace.LastClickTime;
  workspace.LastClickTime = now;
  return since <= toolkit::DoubleClickTime();
}

template <typename Twin>
void Press(ChildWindow* window, int x, int y) {
  Workspace& workspace = *window->Owner;
  MouseGesture& gesture = ViewOf(workspace, Twin::kView).Gesture;
  gesture.OnMove = nullptr;
  gesture.OnRelease = nullptr;
  const bool second = IsSecondOfDouble(workspace);
  if (ViewOf(workspace, FitViewOf(Twin::kView)).Window == nullptr) {
    if (second) Twin::ManualFit(workspace.Frame);
    return;
  }
  workspace.ClickKind = second ? ClickChoice::SecondOfDouble : ClickChoice::Single;
  gesture.PressX = gesture.LastX = x;
  gesture.PressY = gesture.LastY = y;
  if (second) {
    AddOrRemoveTerm<Twin>(workspace, x, y);
  } else {
    PickHandle<Twin>(workspace, x, y);
  }
}

template <typename Twin>
void Move(ChildWindow* window, int x, int y) {
  const MouseGesture& gesture = ViewOf(*window->Owner, Twin::kView).Gesture;
  if (gesture.OnMove != nullptr) gesture.OnMove(window, x, y);
}

template <typename Twin>
void Release(ChildWindow* window, int x, int y) {
  const MouseGesture& gesture = ViewOf(*window->Owner, Twin::kView).Gesture;
  if (gesture.OnRelease != nullptr) gesture.OnRelease(window, x, y);
}

}  // namespace

const MouseRoutines kAmplitudeMouse = {
    .Down = Press<Amplitude>, .Move = Move<Amplitude>, .Up = Release<Amplitude>};
const MouseRoutines kDurationMouse = {
    .Down = Press<Duration>, .Move = Move<Duration>, .Up = Release<Duration>};

}  // namespace ondrel
