#include "shell/histogram_dialogs.h"

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
    RealField<&AmplitudeHistogram::Minimum>(5, kAmplitudeMinimum),
    RealField<&AmplitudeHistogram::PerTick>(7, kPositive),
    IntegerField<&AmplitudeHistogram::TickMarks>(9, 2),
    IntegerField<&AmplitudeHistogram::BinsPerTick>(11, 1),
    RadioField<&AmplitudeHistogram::SquareRootAxis>(13, 14),
    IntegerField<&AmplitudeHistogram::CountsPerTick>(16, 1),
    IntegerField<&AmplitudeHistogram::MinimumTicks>(18, 2),
};
constexpr DialogTable kAmplitudeScaling{.Resource = 125, .Fields = kAmplitudeScalingFields};

constexpr DialogField kDurationScalingFields[] = {
    IntegerField<&DurationHistogram::MinimumExponent>(5),
    IntegerField<&DurationHistogram::Decades>(7, 1),
    IntegerField<&DurationHistogram::TicksPerDecade>(9, 1),
    IntegerField<&DurationHistogram::BinsPerDecade>(11, 1),
    RadioField<&DurationHistogram::SquareRootAxis>(13, 14),
    CheckField<&DurationHistogram::ConstrainPositive>(15),
    IntegerField<&DurationHistogram::CountsPerTick>(17, 1),
    IntegerField<&DurationHistogram::MinimumTicks>(19, 2),
};
constexpr DialogTable kDurationScaling{.Resource = 126, .Fields = kDurationScalingFields};

constexpr DialogField kCorrectionFields[] = {
    RealField<&DurationHistogram::FilterFrequency>(4, kPositive),
};
constexpr DialogTable kCorrection{.Resource = 132, .Fields = kCorrectionFields};

// --- One dialog on each histogram's own fields ---------------------------------------------------

constexpr const char* kFitStyles[] = {"Component", "Sum", "Both"};
constexpr const char* kHistogramStyles[] = {"Filled", "Outlined", "Rectangles"};

template <typename Histogram>
constexpr DialogField kStyleFields[] = {
    ListField<&Histogram::FitStyle>(5, kFitStyles),
    ListField<&Histogram::HistogramStyle>(4, kHistogramStyles),
    CheckField<&Histogram::ShowAxes>(7),
    CheckField<&Histogram::ShowLabels>(8),
};

template <typename Histogram>
void EditStyle(FrameWindow* frame, Histogram& histogram, ViewKind view) {
  constexpr DialogTable kTable{.Resource = 136, .Fields = kStyleFields<Histogram>};
  if (EditSettings(frame, kTable, histogram)) RepaintView(*frame->Owner, view);
}

/// The tolerance need not be positive: with 0 a fit goes on until two passes give the same value.
template <typename Histogram>
constexpr DialogField kFitFields[] = {
    RealField<&Histogram::FitTolerance>(4, kAnyReal, {.Decimals = 4, .Notation = 'E'}),
    IntegerField<&Histogram::FitIterations>(6, 1),
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
