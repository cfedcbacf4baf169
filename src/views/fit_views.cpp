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
  ViewKind Kind;
  ViewKind HistogramView;
  void (*MeasureColumns)(Workspace& workspace, const IntRect& rect);
  void (*DrawTable)(Workspace& workspace, const GraphicsSink& sink, const IntRect& rect, double dpi,
                    std::int32_t lineHeight);
};

constexpr FitView kAmplitudeFit = {
    .Kind = ViewKind::AmplitudeFit,
    .HistogramView = ViewKind::Amplitude,
    .MeasureColumns = MeasureAmplitudeFitColumns,
    .DrawTable = DrawAmplitudeFitTable,
};
constexpr FitView kDurationFit = {
    .Kind = ViewKind::DurationFit,
    .HistogramView = ViewKind::Duration,
    .MeasureColumns = MeasureDurationFitColumns,
    .DrawTable = DrawDurationFitTable,
};

// --- Drawing -------------------------------------------------------------------------------------

/// `device` is the context's.
void DrawClientArea(Workspace& workspace, const FitView& fit, const IntRect& client,
                    const RgbColor& background) {
  DeviceRecord& device = workspace.Graphics.Device;
  toolkit::FillArea(device, client, background);
  fit.MeasureColumns(workspace, client);
  SetClip(OnScreen(workspace), client);
  fit.DrawTable(workspace, workspace.ScreenSink, client, toolkit::DeviceDpi(device),
                FitLineHeight(workspace));
  toolkit::RemoveClip(device);
}

/// Out of sight first: the table is drawn again with every move of the mouse.
void DrawInWindow(ChildWindow* window, const FitView& fit, const DeviceRecord& device,
                  const RgbColor& background) {
  Workspace& workspace = *window->Owner;
  const IntRect client = toolkit::ClientRect(window);
  toolkit::BufferRecord buffer = toolkit::BeginBuffer(device, client);
  BeginScreenDrawing(workspace, buffer.Device, background);
  DrawClientArea(workspace, fit, client, background);
  EndScreenDrawing(workspace);
  toolkit::EndBuffer(device, buffer, client);
}

template <const FitView& kFit>
void Paint(ChildWindow* window, const DeviceRecord& device) {
  const ViewState& view = ViewOf(*window->Owner, kFit.Kind);
  DrawInWindow(window, kFit, device, ColorOf(view, FitColor::Background));
}

// --- Opening and closing -------------------------------------------------------------------------

void RefreshFitEntries(Workspace& workspace) {
  workspace.Menus.RefreshFitEntries(workspace.Frame);
}

/// What is left of the terms is the first one, as it is; no marker can be picked any more. The
/// histogram is painted without curves and markers.
template <typename Histogram>
void LeaveFit(Workspace& workspace, Histogram& histogram, const FitView& fit) {
  histogram.TermCount = 1;
  histogram.MarkerCount = 0;
  RefreshFitEntries(workspace);
  RepaintView(workspace, fit.HistogramView);
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
  const ViewState& view = ViewOf(workspace, fit.Kind);
  const bool wasOpen = view.Window != nullptr;
  OpenView(frame, fit.Kind);
  if (wasOpen || view.Window == nullptr) return;
  ResetFirstTerm(histogram);
  RepaintView(workspace, fit.Kind);
  RepaintView(workspace, fit.HistogramView);
}

}  // namespace

void RedrawFitView(Workspace& workspace, ViewKind kind) {
  ChildWindow* window = ViewOf(workspace, kind).Window;
  if (window == nullptr) return;
  const FitView& fit = kind == ViewKind::AmplitudeFit ? kAmplitudeFit : kDurationFit;
  DeviceRecord device = toolkit::AcquireDevice(window);
  DrawInWindow(window, fit, device, kWhite);
  toolkit::ReleaseDevice(window, device);
}

void ManualAmplitudeFit(FrameWindow* frame) {
  ManualFit(frame, frame->Owner->Amplitude, kAmplitudeFit);
}

void ManualDurationFit(FrameWindow* frame) {
  ManualFit(frame, frame->Owner->Duration, kDurationFit);
}

const ViewRoutines kAmplitudeFitViewRoutines = {.Paint = Paint<kAmplitudeFit>,
                                                .Scrolled = nullptr,
                                                .Mouse = nullptr,
                                                .Opened = RefreshFitEntries,
                                                .Closed = LeaveAmplitudeFit};
const ViewRoutines kDurationFitViewRoutines = {.Paint = Paint<kDurationFit>,
                                               .Scrolled = nullptr,
                                               .Mouse = nullptr,
                                               .Opened = RefreshFitEntries,
                                               .Closed = LeaveDurationFit};

}  // namespace ondrel
