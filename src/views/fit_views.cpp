#include "views/fit_views.h"

#include "fit/estimates.h"
#include "shell/toolkit.h"
#include "views/fit_table.h"
#include "views/screen_drawing.h"
#include "views/view_window.h"

namespace ondrel {
namespace {

/// What differs between the two views.
struct FitView {
  ViewKind Histogram;
  void (*MeasureColumns)(Workspace& workspace, const IntRect& rect);
  void (*DrawTable)(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect, double dpi,
                    std::int32_t lineHeight);
};

constexpr FitView kAmplitudeFit = {
    .Histogram = ViewKind::Amplitude,
    .MeasureColumns = MeasureAmplitudeFitColumns,
    .DrawTable = DrawAmplitudeFitTable,
};
constexpr FitView kDurationFit = {
    .Histogram = ViewKind::Duration,
    .MeasureColumns = MeasureDurationFitColumns,
    .DrawTable = DrawDurationFitTable,
};

const ViewState& StateOf(const Workspace& workspace, const FitView& fit) {
  return ViewOf(workspace, FitViewOf(fit.Histogram));
}

const RgbColor& BackgroundOf(const Workspace& workspace, const FitView& fit) {
  return ColorOf(StateOf(workspace, fit), FitColor::Background);
}

// --- Drawing -------------------------------------------------------------------------------------

template <const FitView& kFit>
void LayOut(Workspace& workspace, const Destination& destination) {
  kFit.MeasureColumns(workspace, destination.Rect);
}

template <const FitView& kFit>
void Draw(Workspace& workspace, const Destination& destination) {
  kFit.DrawTable(workspace, destination.Sink, destination.Rect, destination.PictureDpi,
                 FitLineHeight(workspace));
}

/// Out of sight first: the table is drawn again with every move of the mouse.
void DrawInWindow(ChildWindow* window, const FitView& fit, const DeviceRecord& device,
                  const RgbColor& background) {
  Workspace& workspace = *window->Owner;
  const ViewRoutines& routines = *FactsOf(FitViewOf(fit.Histogram)).Routines;
  const IntRect client = toolkit::ClientRect(window);
  DrawOutOfSight(workspace, device, client, background, [&](const Drawing&) {
    const Destination destination = InWindow(workspace, client);
    routines.LayOut(workspace, destination);
    DrawClipped(workspace, routines, destination);
  });
}

template <const FitView& kFit>
void Paint(ChildWindow* window, const DeviceRecord& device) {
  DrawInWindow(window, kFit, device, BackgroundOf(*window->Owner, kFit));
}

void RedrawOn(Workspace& workspace, const FitView& fit, const RgbColor& background) {
  ChildWindow* window = StateOf(workspace, fit).Window;
  if (window == nullptr) return;
  DeviceRecord device = toolkit::AcquireDevice(window);
  DrawInWindow(window, fit, device, background);
  toolkit::ReleaseDevice(window, device);
}

const FitView& FitOf(ViewKind kind) {
  return kind == FitViewOf(kAmplitudeFit.Histogram) ? kAmplitudeFit : kDurationFit;
}

// --- Opening and closing -------------------------------------------------------------------------

void RefreshFitEntries(Workspace& workspace) {
  workspace.Menus.RefreshFitEntries(workspace.Frame);
}

/// What is left of the terms is the first one, as it is. No marker can be picked any more, and a
/// drag that is under way ends. The histogram is painted without curves and markers.
template <typename Histogram>
void LeaveFit(Workspace& workspace, Histogram& histogram, const FitView& fit) {
  histogram.TermCount = 1;
  histogram.MarkerCount = 0;
  MouseGesture& gesture = ViewOf(workspace, fit.Histogram).Gesture;
  gesture.OnMove = nullptr;
  gesture.OnRelease = nullptr;
  RefreshFitEntries(workspace);
  RepaintView(workspace, fit.Histogram);
}

void LeaveAmplitudeFit(Workspace& workspace) {
  LeaveFit(workspace, workspace.Amplitude, kAmplitudeFit);
}

void LeaveDurationFit(Workspace& workspace) {
  LeaveFit(workspace, workspace.Duration, kDurationFit);
}

template <typename Histogram>
void ManualFit(FrameWindow* frame, Histogram& histogram, const FitView& fit) {
  Workspace& workspace = *frame->Owner;
  const ViewKind kind = FitViewOf(fit.Histogram);
  const ViewState& view = ViewOf(workspace, kind);
  const bool wasOpen = view.Window != nullptr;
  OpenView(frame, kind);
  if (wasOpen || view.Window == nullptr) return;
  ResetFirstTerm(histogram);
  RepaintView(workspace, kind);
  RepaintView(workspace, fit.Histogram);
}

}  // namespace

void RedrawFitView(Workspace& workspace, ViewKind kind) {
  const FitView& fit = FitOf(kind);
  RedrawOn(workspace, fit, BackgroundOf(workspace, fit));
}

void RedrawFitViewOnWhite(Workspace& workspace, ViewKind kind) {
  RedrawOn(workspace, FitOf(kind), kWhite);
}

void ManualAmplitudeFit(FrameWindow* frame) {
  ManualFit(frame, frame->Owner->Amplitude, kAmplitudeFit);
}

void ManualDurationFit(FrameWindow* frame) {
  ManualFit(frame, frame->Owner->Duration, kDurationFit);
}

const ViewRoutines kAmplitudeFitViewRoutines = {
    .Paint = Paint<kAmplitudeFit>,
    .LayOut = LayOut<kAmplitudeFit>,
    .Draw = Draw<kAmplitudeFit>,
    .Opened = RefreshFitEntries,
    .Closed = LeaveAmplitudeFit,
};
const ViewRoutines kDurationFitViewRoutines = {
    .Paint = Paint<kDurationFit>,
    .LayOut = LayOut<kDurationFit>,
    .Draw = Draw<kDurationFit>,
    .Opened = RefreshFitEntries,
    .Closed = LeaveDurationFit,
};

}  // namespace ondrel
