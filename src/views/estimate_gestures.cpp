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

using MouseHandler = void (*)(ChildWindow* window, int x, int y);

struct EstimateTwin {
  ViewKind Histogram;
  ViewKind Fit;
  void (*ManualFit)(FrameWindow* frame);
  Handles (*HandlesOf)(Workspace& workspace);
  void (*AddTerm)(Workspace& workspace, const GraphFrame& frame, double x);
  void (*RemoveTerm)(Workspace& workspace, std::int32_t marker);
  /// How far down a peak can be dragged.
  std::int32_t (*LowestPeak)(ChildWindow* window, const GraphFrame& frame);
  /// The term follows its handle.
  void (*FollowPeak)(Workspace& workspace, const GraphFrame& frame, const TermMarker& handle);
  MouseHandler DragPeak;
  MouseHandler DragWidth;  // null: the terms have no width
  MouseHandler CommitIfMoved;
  MouseHandler CommitAlways;
};

Handles AmplitudeHandles(Workspace& workspace) {
  AmplitudeHistogram& histogram = workspace.Amplitude;
  return {histogram.PeakMarkers, &histogram.WidthMarkers, histogram.MarkerCount,
          histogram.TermCount};
}

Handles DurationHandles(Workspace& workspace) {
  DurationHistogram& histogram = workspace.Duration;
  return {histogram.Markers, nullptr, histogram.MarkerCount, histogram.TermCount};
}

template <auto kHistogram>
void AddTermTo(Workspace& workspace, const GraphFrame& frame, double x) {
  AddTerm(workspace.*kHistogram, frame, x);
}

template <auto kHistogram>
void RemoveTermFrom(Workspace& workspace, std::int32_t marker) {
  RemoveTerm(workspace.*kHistogram, marker);
}

std::int32_t LowestAmplitudePeak(ChildWindow*, const GraphFrame& frame) {
  return TruncateToInteger(frame.PlotBottom);
}

/// A user may pull a duration below the line of count zero, unless the view shows nothing there.
std::int32_t LowestDurationPeak(ChildWindow* window, const GraphFrame& frame) {
  if (window->Owner->Duration.ConstrainPositive) return TruncateToInteger(frame.PlotBottom);
  return TruncateToInteger(toolkit::ClientRect(window).Bottom - MarkerHalf(frame));
}

void FollowAmplitudePeak(Workspace& workspace, const GraphFrame& frame, const TermMarker& handle) {
  const double half = MarkerHalf(frame);
  MovePeak(workspace.Amplitude, frame, handle.TermIndex, handle.Left + half,
           frame.PlotBottom - handle.Top - half);
}

void FollowDurationPeak(Workspace& workspace, const GraphFrame& frame, const TermMarker& handle) {
  const double half = MarkerHalf(frame);
  MovePeak(workspace.Duration, frame, handle.TermIndex, handle.Left + half,
           frame.PlotBottom - (handle.Top + half));
}

// --- Handles -------------------------------------------------------------------------------------

TermMarker& At(MarkerArray& markers, std::int32_t marker) {
  return markers[static_cast<std::size_t>(marker)];
}

bool Contains(const TermMarker& marker, int x, int y) {
  return x >= marker.Left && x <= marker.Right && y >= marker.Top && y <= marker.Bottom;
}

/// Handles outlive their terms until the histogram is drawn again.
bool HasTerm(const Handles& handles, std::int32_t marker) {
  return At(handles.Peaks, marker).TermIndex < handles.TermCount;
}

bool IsPeakHit(const Handles& handles, std::int32_t marker, int x, int y) {
  return HasTerm(handles, marker) && Contains(At(handles.Peaks, marker), x, y);
}

bool IsWidthHit(const Handles& handles, std::int32_t marker, int x, int y) {
  return handles.Widths != nullptr && HasTerm(handles, marker) &&
         Contains(At(*handles.Widths, marker), x, y);
}

/// The first marker whose peak is under the place; MarkerCount when there is none.
std::int32_t FindPeak(const Handles& handles, int x, int y) {
  std::int32_t marker = 0;
  while (marker < handles.MarkerCount && !IsPeakHit(handles, marker, x, y)) ++marker;
  return marker;
}

/// The marker of a term; the first slot behind the markers when the term has none.
std::int32_t FindMarkerOf(const Handles& handles, std::int32_t term) {
  const std::int32_t end = std::min(handles.MarkerCount, static_cast<std::int32_t>(kTermSlots) - 1);
  std::int32_t marker = 0;
  while (marker < end && At(handles.Peaks, marker).TermIndex != term) ++marker;
  return marker;
}

// --- Drags ---------------------------------------------------------------------------------------

enum class DraggedHandle : std::uint8_t { Peak, Width };

/// Drawn anew, all handles stand where the terms' numbers put them, cut to whole pixels. The
/// dragged one goes back to where the mouse has it, since a slow drag would drift otherwise. A term
/// that has just left the axis has no marker any more: its handle then waits in the slot behind the
/// markers, so that the same drag can bring the term back.
void RedrawWhileDragged(const EstimateTwin& twin, Workspace& workspace, DraggedHandle dragged) {
  std::int32_t& picked = ViewOf(workspace, twin.Histogram).Gesture.PickedMarker;
  const Handles handles = twin.HandlesOf(workspace);
  const TermMarker peak = At(handles.Peaks, picked);
  const TermMarker width =
      dragged == DraggedHandle::Width ? At(*handles.Widths, picked) : TermMarker{};
  RedrawHistogram(workspace, twin.Histogram);
  picked = FindMarkerOf(handles, peak.TermIndex);
  At(handles.Peaks, picked) = peak;
  if (dragged == DraggedHandle::Width) At(*handles.Widths, picked) = width;
}

void EndMove(const EstimateTwin& twin, Workspace& workspace, int x, int y) {
  MouseGesture& gesture = ViewOf(workspace, twin.Histogram).Gesture;
  gesture.LastX = x;
  gesture.LastY = y;
  RedrawFitView(workspace, twin.Fit);
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

void DragPeak(const EstimateTwin& twin, ChildWindow* window, int x, int y) {
  Workspace& workspace = *window->Owner;
  const ViewState& view = ViewOf(workspace, twin.Histogram);
  const MouseGesture& gesture = view.Gesture;
  const Handles handles = twin.HandlesOf(workspace);
  x = LimitToPlot(view.Frame, x);
  y = std::min(y, twin.LowestPeak(window, view.Frame));
  const bool moved = x != gesture.LastX || y != gesture.LastY;
  if (moved && HasTerm(handles, gesture.PickedMarker)) {
    TermMarker& peak = At(handles.Peaks, gesture.PickedMarker);
    CentreHandle(peak, view.Frame, x, y);
    twin.FollowPeak(workspace, view.Frame, peak);
    RedrawWhileDragged(twin, workspace, DraggedHandle::Peak);
  }
  EndMove(twin, workspace, x, y);
}

/// The handle of a width stays between that of its peak and the end of the plot.
bool MayStand(const TermMarker& width, const TermMarker& peak, const GraphFrame& frame, int dx) {
  const double half = MarkerHalf(frame);
  const double centre = width.Left + half / 2.0 + dx;
  return centre >= peak.Left + 2.0 * half && centre <= frame.PlotRight;
}

/// A move that is not taken is forgotten: the handle follows the next one from where it stands.
void DragWidth(const EstimateTwin& twin, ChildWindow* window, int x, int y) {
  Workspace& workspace = *window->Owner;
  const ViewState& view = ViewOf(workspace, twin.Histogram);
  const Handles handles = twin.HandlesOf(workspace);
  const std::int32_t picked = view.Gesture.PickedMarker;
  const int dx = x - view.Gesture.LastX;
  TermMarker& width = At(*handles.Widths, picked);
  if (dx != 0 && HasTerm(handles, picked) &&
      MayStand(width, At(handles.Peaks, picked), view.Frame, dx)) {
    width.Left += dx;
    width.Right += dx;
    MoveWidth(workspace.Amplitude, view.Frame, width.TermIndex, width.Left);
    RedrawWhileDragged(twin, workspace, DraggedHandle::Width);
  }
  EndMove(twin, workspace, x, y);
}

void CommitAlways(const EstimateTwin& twin, ChildWindow* window, int, int) {
  RedrawFitView(*window->Owner, twin.Fit);
  RepaintView(*window->Owner, twin.Histogram);
}

void CommitIfMoved(const EstimateTwin& twin, ChildWindow* window, int x, int y) {
  const MouseGesture& gesture = ViewOf(*window->Owner, twin.Histogram).Gesture;
  if (x == gesture.PressX && y == gesture.PressY) return;
  CommitAlways(twin, window, x, y);
}

// --- Presses -------------------------------------------------------------------------------------

bool IsNearAxis(const GraphFrame& frame, int x, int y) {
  return x >= TruncateToInteger(frame.PlotLeft) && x <= TruncateToInteger(frame.PlotRight) &&
         std::abs(y - TruncateToInteger(frame.PlotBottom)) <= kAxisReach;
}

/// The last term cannot be removed.
void AddOrRemoveTerm(const EstimateTwin& twin, Workspace& workspace, int x, int y) {
  ViewState& view = ViewOf(workspace, twin.Histogram);
  const Handles handles = twin.HandlesOf(workspace);
  const std::int32_t marker = FindPeak(handles, x, y);
  if (marker < handles.MarkerCount) {
    if (handles.TermCount == 1) return;
    twin.RemoveTerm(workspace, marker);
  } else {
    if (!IsNearAxis(view.Frame, x, y)) return;
    if (handles.TermCount >= kMaxTerms) return;
    twin.AddTerm(workspace, view.Frame, x);
  }
  view.Gesture.OnRelease = twin.CommitAlways;
}

/// Picks the first handle under the place. Where two of one term overlap it is the peak's.
void PickHandle(const EstimateTwin& twin, Workspace& workspace, int x, int y) {
  MouseGesture& gesture = ViewOf(workspace, twin.Histogram).Gesture;
  const Handles handles = twin.HandlesOf(workspace);
  for (std::int32_t i = 0; i < handles.MarkerCount; ++i) {
    const bool peak = IsPeakHit(handles, i, x, y);
    if (!peak && !IsWidthHit(handles, i, x, y)) continue;
    gesture.PickedMarker = i;
    gesture.OnMove = peak ? twin.DragPeak : twin.DragWidth;
    gesture.OnRelease = twin.CommitIfMoved;
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

void Press(const EstimateTwin& twin, ChildWindow* window, int x, int y) {
  Workspace& workspace = *window->Owner;
  MouseGesture& gesture = ViewOf(workspace, twin.Histogram).Gesture;
  gesture.OnMove = nullptr;
  gesture.OnRelease = nullptr;
  const bool second = IsSecondOfDouble(workspace);
  if (ViewOf(workspace, twin.Fit).Window == nullptr) {
    if (second) twin.ManualFit(workspace.Frame);
    return;
  }
  workspace.ClickKind = second ? ClickChoice::SecondOfDouble : ClickChoice::Single;
  gesture.PressX = gesture.LastX = x;
  gesture.PressY = gesture.LastY = y;
  if (second) {
    AddOrRemoveTerm(twin, workspace, x, y);
  } else {
    PickHandle(twin, workspace, x, y);
  }
}

void Move(const EstimateTwin& twin, ChildWindow* window, int x, int y) {
  const MouseGesture& gesture = ViewOf(*window->Owner, twin.Histogram).Gesture;
  if (gesture.OnMove != nullptr) gesture.OnMove(window, x, y);
}

void Release(const EstimateTwin& twin, ChildWindow* window, int x, int y) {
  const MouseGesture& gesture = ViewOf(*window->Owner, twin.Histogram).Gesture;
  if (gesture.OnRelease != nullptr) gesture.OnRelease(window, x, y);
}

// --- The tables ----------------------------------------------------------------------------------

using TwinHandler = void (*)(const EstimateTwin& twin, ChildWindow* window, int x, int y);

template <const EstimateTwin& kTwin, TwinHandler kHandler>
void Handle(ChildWindow* window, int x, int y) {
  kHandler(kTwin, window, x, y);
}

extern const EstimateTwin kAmplitudeTwin;
const EstimateTwin kAmplitudeTwin = {
    .Histogram = ViewKind::Amplitude,
    .Fit = ViewKind::AmplitudeFit,
    .ManualFit = ManualAmplitudeFit,
    .HandlesOf = AmplitudeHandles,
    .AddTerm = AddTermTo<&Workspace::Amplitude>,
    .RemoveTerm = RemoveTermFrom<&Workspace::Amplitude>,
    .LowestPeak = LowestAmplitudePeak,
    .FollowPeak = FollowAmplitudePeak,
    .DragPeak = Handle<kAmplitudeTwin, DragPeak>,
    .DragWidth = Handle<kAmplitudeTwin, DragWidth>,
    .CommitIfMoved = Handle<kAmplitudeTwin, CommitIfMoved>,
    .CommitAlways = Handle<kAmplitudeTwin, CommitAlways>,
};

extern const EstimateTwin kDurationTwin;
const EstimateTwin kDurationTwin = {
    .Histogram = ViewKind::Duration,
    .Fit = ViewKind::DurationFit,
    .ManualFit = ManualDurationFit,
    .HandlesOf = DurationHandles,
    .AddTerm = AddTermTo<&Workspace::Duration>,
    .RemoveTerm = RemoveTermFrom<&Workspace::Duration>,
    .LowestPeak = LowestDurationPeak,
    .FollowPeak = FollowDurationPeak,
    .DragPeak = Handle<kDurationTwin, DragPeak>,
    .DragWidth = nullptr,
    .CommitIfMoved = Handle<kDurationTwin, CommitIfMoved>,
    .CommitAlways = Handle<kDurationTwin, CommitAlways>,
};

}  // namespace

const MouseRoutines kAmplitudeMouse = {
    .Down = Handle<kAmplitudeTwin, Press>,
    .Move = Handle<kAmplitudeTwin, Move>,
    .Up = Handle<kAmplitudeTwin, Release>,
};

const MouseRoutines kDurationMouse = {
    .Down = Handle<kDurationTwin, Press>,
    .Move = Handle<kDurationTwin, Move>,
    .Up = Handle<kDurationTwin, Release>,
};

}  // namespace ondrel
