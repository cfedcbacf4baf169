#include "shell/plot_dialogs.h"

#include <cstddef>

#include "derived/statistics.h"
#include "shell/dialog_fields.h"
#include "views/all_views.h"
#include "views/view_window.h"
#include "workspace/units.h"
#include "workspace/workspace.h"

namespace ondrel {
namespace {

void ShowChanged(Workspace& workspace, ViewKind view) {
  ViewOf(workspace, view).NeedsRebuild = true;
  RefreshViews(workspace);
}

/// Edits `settings` and draws `view` anew.
template <typename Settings>
void EditPlot(FrameWindow* frame, const DialogTable& table, Settings& settings, ViewKind view) {
  if (EditSettings(frame, table, settings)) ShowChanged(*frame->Owner, view);
}

// --- Scaling of the scatter plots ----------------------------------------------------------------

constexpr const char* kValues[] = {"Level Tag", "Sweep Relevant", "Sweep Tag"};

constexpr DialogField kAmplitudeScatterFields[] = {
    ListField(4, offsetof(AmplitudeScatterSettings, Value), kValues),
    RealField(6, offsetof(AmplitudeScatterSettings, Minimum), kAnyReal),
    IntegerField(8, offsetof(AmplitudeScatterSettings, TickMarks), 1),
    RealField(10, offsetof(AmplitudeScatterSettings, PerTick), kPositive),
    RealField(13, offsetof(AmplitudeScatterSettings, AmplitudeMinimum), kAnyReal, kPicoamperes),
    IntegerField(15, offsetof(AmplitudeScatterSettings, AmplitudeTicks), 2),
    RealField(17, offsetof(AmplitudeScatterSettings, PaPerTick), kPositive),
    RealField(19, offsetof(AmplitudeScatterSettings, SymbolSize), kPositive),
};
constexpr DialogTable kAmplitudeScatterScaling{.Resource = 133, .Fields = kAmplitudeScatterFields};

constexpr DialogField kDurationScatterFields[] = {
    ListField(4, offsetof(DurationScatterSettings, Value), kValues),
    RealField(6, offsetof(DurationScatterSettings, Minimum), kAnyReal),
    IntegerField(8, offsetof(DurationScatterSettings, TickMarks), 2),
    RealField(10, offsetof(DurationScatterSettings, PerTick), kPositive),
    IntegerField(13, offsetof(DurationScatterSettings, MinimumExponent)),
    IntegerField(15, offsetof(DurationScatterSettings, Decades), 1),
    IntegerField(17, offsetof(DurationScatterSettings, TicksPerDecade), 1),
    RealField(19, offsetof(DurationScatterSettings, SymbolSize), kPositive),
};
constexpr DialogTable kDurationScatterScaling{.Resource = 135, .Fields = kDurationScatterFields};

constexpr DialogField kScatterFields[] = {
    IntegerField(5, offsetof(ScatterSettings, MinimumExponent)),
    IntegerField(7, offsetof(ScatterSettings, Decades), 1),
    IntegerField(9, offsetof(ScatterSettings, TicksPerDecade), 1),
    RealField(12, offsetof(ScatterSettings, Minimum), kAnyReal, kPicoamperes),
    IntegerField(14, offsetof(ScatterSettings, Ticks), 1),
    RealField(16, offsetof(ScatterSettings, PaPerTick), kPositive),
    RealField(18, offsetof(ScatterSettings, SymbolSize), kPositive),
};
constexpr DialogTable kScatterScaling{.Resource = 130, .Fields = kScatterFields};

// --- Styles --------------------------------------------------------------------------------------

template <typename Settings>
constexpr DialogField kScatterStyleFields[] = {
    CheckField(3, offsetof(Settings, ShowAxes)),
    CheckField(4, offsetof(Settings, ShowLabels)),
};

/// One dialog on each plot's own fields.
template <typename Settings>
void EditScatterStyle(FrameWindow* frame, Settings& settings, ViewKind view) {
  constexpr DialogTable kTable{.Resource = 137, .Fields = kScatterStyleFields<Settings>};
  if (EditSettings(frame, kTable, settings)) RepaintView(*frame->Owner, view);
}

constexpr DialogField kStationarityStyleFields[] = {
    CheckField(4, offsetof(StationaritySettings, ShowAxes)),
    CheckField(5, offsetof(StationaritySettings, ShowLabels)),
};
constexpr DialogTable kStationarityStyle{.Resource = 141, .Fields = kStationarityStyleFields};

// --- Stationarity and statistics -----------------------------------------------------------------

constexpr const char* kTypes[] = {"1", "Amplitude", "Duration", "Level"};
constexpr DialogField kStationarityFields[] = {
    ListField(3, offsetof(StationaritySettings, Type), kTypes),
    RealField(5, offsetof(StationaritySettings, Tau), kPositive, {.Unit = kMillisecond}),
};
constexpr DialogTable kStationarity{.Resource = 142, .Fields = kStationarityFields};

constexpr const char* kReferences[] = {"Levels", "Relevant Segment", "Sweep"};
constexpr DialogField kStatisticsFields[] = {
    ListField(3, offsetof(StatisticsTable, Reference), kReferences),
};
constexpr DialogTable kStatistics{.Resource = 138, .Fields = kStatisticsFields};

}  // namespace

void AmplitudeScatterScalingCommand(FrameWindow* frame) {
  EditPlot(frame, kAmplitudeScatterScaling, frame->Owner->AmplitudeScatter,
           ViewKind::AmplitudeScatter);
}

void DurationScatterScalingCommand(FrameWindow* frame) {
  EditPlot(frame, kDurationScatterScaling, frame->Owner->DurationScatter,
           ViewKind::DurationScatter);
}

void ScatterScalingCommand(FrameWindow* frame) {
  EditPlot(frame, kScatterScaling, frame->Owner->Scatter, ViewKind::Scatter);
}

void AmplitudeScatterStyleCommand(FrameWindow* frame) {
  EditScatterStyle(frame, frame->Owner->AmplitudeScatter, ViewKind::AmplitudeScatter);
}

void DurationScatterStyleCommand(FrameWindow* frame) {
  EditScatterStyle(frame, frame->Owner->DurationScatter, ViewKind::DurationScatter);
}

void ScatterStyleCommand(FrameWindow* frame) {
  EditScatterStyle(frame, frame->Owner->Scatter, ViewKind::Scatter);
}

/// A plot whose settings are as before is not drawn anew; the views are refreshed in any case.
void StationaritySettingsCommand(FrameWindow* frame) {
  Workspace& workspace = *frame->Owner;
  StationaritySettings& stored = workspace.Stationarity;
  StationaritySettings entered = stored;
  if (!EditSettings(frame, kStationarity, entered)) return;
  if (entered.Tau != stored.Tau || entered.Type != stored.Type) {
    stored.Tau = entered.Tau;
    stored.Type = entered.Type;
    ViewOf(workspace, ViewKind::Stationarity).NeedsRebuild = true;
  }
  RefreshViews(workspace);
}

void StationarityStyleCommand(FrameWindow* frame) {
  Workspace& workspace = *frame->Owner;
  if (!EditSettings(frame, kStationarityStyle, workspace.Stationarity)) return;
  RepaintView(workspace, ViewKind::Stationarity);
}

void StatisticsSettingsCommand(FrameWindow* frame) {
  Workspace& workspace = *frame->Owner;
  const StatisticsReference former = workspace.Statistics.Reference;
  if (!EditSettings(frame, kStatistics, workspace.Statistics)) return;
  if (workspace.Statistics.Reference == former) return;
  CalculateStatistics(workspace);
  ShowChanged(workspace, ViewKind::Statistics);
}

}  // namespace ondrel
