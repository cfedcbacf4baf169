#include "shell/histogram_dialogs.h"

#include <cstddef>

#include "fit/amplitude_histogram.h"
#include "fit/duration_histogram.h"
#include "shell/dialog_fields.h"
#include "shell/histogram_commands.h"
#include "shell/toolkit.h"
#include "views/histogram_layout.h"
#include "views/view_window.h"
#include "workspace/workspace.h"

namespace ondrel {
namespace {

// --- Scaling -------------------------------------------------------------------------------------

/// pA; wide enough for any channel.
constexpr NumberRule kAmplitudeMinimum{.Low = -8000.0, .High = 8000.0};

constexpr DialogField kAmplitudeScalingFields[] = {
    RealField(5, offsetof(AmplitudeHistogram, Minimum), kAmplitudeMinimum),
    RealField(7, offsetof(AmplitudeHistogram, PerTick), kPositive),
    IntegerField(9, offsetof(AmplitudeHistogram, TickMarks), 2),
    IntegerField(11, offsetof(AmplitudeHistogram, BinsPerTick), 1),
    RadioField(13, 14, offsetof(AmplitudeHistogram, SquareRootAxis)),
    IntegerField(16, offsetof(AmplitudeHistogram, CountsPerTick), 1),
    IntegerField(18, offsetof(AmplitudeHistogram, MinimumTicks), 2),
};
constexpr DialogTable kAmplitudeScaling{.Resource = 125, .Fields = kAmplitudeScalingFields};

constexpr DialogField kDurationScalingFields[] = {
    IntegerField(5, offsetof(DurationHistogram, MinimumExponent)),
    IntegerField(7, offsetof(DurationHistogram, Decades), 1),
    IntegerField(9, offsetof(DurationHistogram, TicksPerDecade), 1),
    IntegerField(11, offsetof(DurationHistogram, BinsPerDecade), 1),
    RadioField(13, 14, offsetof(DurationHistogram, SquareRootAxis)),
    CheckField(15, offsetof(DurationHistogram, ConstrainPositive)),
    IntegerField(17, offsetof(DurationHistogram, CountsPerTick), 1),
    IntegerField(19, offsetof(DurationHistogram, MinimumTicks), 2),
};
constexpr DialogTable kDurationScaling{.Resource = 126, .Fields = kDurationScalingFields};

constexpr DialogField kCorrectionFields[] = {
    RealField(4, offsetof(DurationHistogram, FilterFrequency), kPositive),
};
constexpr DialogTable kCorrection{.Resource = 132, .Fields = kCorrectionFields};

// --- One dialog on each histogram's own fields ---------------------------------------------------

constexpr const char* kFitStyles[] = {"Component", "Sum", "Both"};
constexpr const char* kHistogramStyles[] = {"Filled", "Outlined", "Rectangles"};

template <typename Histogram>
constexpr DialogField kStyleFields[] = {
    ListField(5, offsetof(Histogram, FitStyle), kFitStyles),
    ListField(4, offsetof(Histogram, HistogramStyle), kHistogramStyles),
    CheckField(7, offsetof(Histogram, ShowAxes)),
    CheckField(8, offsetof(Histogram, ShowLabels)),
};

template <typename Histogram>
void EditStyle(FrameWindow* frame, Histogram& histogram, ViewKind view) {
  constexpr DialogTable kTable{.Resource = 136, .Fields = kStyleFields<Histogram>};
  if (EditSettings(frame, kTable, histogram)) RepaintView(*frame->Owner, view);
}

/// The tolerance need not be positive: with 0 a fit goes on until two passes give the same value.
template <typename Histogram>
constexpr DialogField kFitFields[] = {
    RealField(4, offsetof(Histogram, FitTolerance), kAnyReal, {.Decimals = 4, .Notation = 'E'}),
    IntegerField(6, offsetof(Histogram, FitIterations), 1),
};

template <typename Histogram>
void EditFitSettings(FrameWindow* frame, Histogram& histogram) {
  constexpr DialogTable kTable{.Resource = 127, .Fields = kFitFields<Histogram>};
  (void)EditSettings(frame, kTable, histogram);
}

/// A press of the mouse can come before the window is painted and finds the new axes in place.
void LayOutAgain(Workspace& workspace, ViewKind histogram) {
  ChildWindow* window = ViewOf(workspace, histogram).Window;
  if (window == nullptr) return;
  const IntRect client = toolkit::ClientRect(window);
  if (histogram == ViewKind::Amplitude) {
    LayoutAmplitude(workspace, workspace.ScreenSink, client);
  } else {
    LayoutCountedDuration(workspace, workspace.ScreenSink, client);
  }
}

void EditDuration(FrameWindow* frame, const DialogTable& table) {
  Workspace& workspace = *frame->Owner;
  if (!EditSettings(frame, table, workspace.Duration)) return;
  LayOutAgain(workspace, ViewKind::Duration);
  BuildDurationHistogram(workspace);
  ShowRescaled(workspace, ViewKind::Duration);
}

}  // namespace

void AmplitudeScalingCommand(FrameWindow* frame) {
  Workspace& workspace = *frame->Owner;
  if (!EditSettings(frame, kAmplitudeScaling, workspace.Amplitude)) return;
  LayOutAgain(workspace, ViewKind::Amplitude);
  BuildAmplitudeHistogram(workspace);
  ShowRescaled(workspace, ViewKind::Amplitude);
}

void AmplitudeStyleCommand(FrameWindow* frame) {
  EditStyle(frame, frame->Owner->Amplitude, ViewKind::Amplitude);
}

void AmplitudeFitSettingsCommand(FrameWindow* frame) {
  EditFitSettings(frame, frame->Owner->Amplitude);
}

void DurationScalingCommand(FrameWindow* frame) {
  EditDuration(frame, kDurationScaling);
}

void DurationStyleCommand(FrameWindow* frame) {
  EditStyle(frame, frame->Owner->Duration, ViewKind::Duration);
}

void DurationCorrectionCommand(FrameWindow* frame) {
  EditDuration(frame, kCorrection);
}

void DurationFitSettingsCommand(FrameWindow* frame) {
  EditFitSettings(frame, frame->Owner->Duration);
}

}  // namespace ondrel
