#include "shell/plot_dialogs.h"

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
    ListField<&AmplitudeScatterSettings::Value>(4, kValues),
    RealField<&AmplitudeScatterSettings::Minimum>(6, kAnyReal),
    IntegerField<&AmplitudeScatterSettings::TickMarks>(8, 1),
    RealField<&AmplitudeScatterSettings::PerTick>(10, kPositive),
    RealField<&AmplitudeScatterSettings::AmplitudeMinimum>(13, kAnyReal, kPicoamperes),
    IntegerField<&AmplitudeScatterSettings::AmplitudeTicks>(15, 2),
    RealField<&AmplitudeScatterSettings::PaPerTick>(17, kPositive),
    RealField<&AmplitudeScatterSettings::SymbolSize>(19, kPositive),
};
constexpr DialogTable kAmplitudeScatterScaling{.Resource = 133, .Fields = kAmplitudeScatterFields};

constexpr DialogField kDurationScatterFields[] = {
    ListField<&DurationScatterSettings::Value>(4, kValues),
    RealField<&DurationScatterSettings::Minimum>(6, kAnyReal),
    IntegerField<&DurationScatterSettings::TickMarks>(8, 2),
    RealField<&DurationScatterSettings::PerTick>(10, kPositive),
    IntegerField<&DurationScatterSettings::MinimumExponent>(13),
    IntegerField<&DurationScatterSettings::Decades>(15, 1),
    IntegerField<&DurationScatterSettings::TicksPerDecade>(17, 1),
    RealField<&DurationScatterSettings::SymbolSize>(19, kPositive),
};
constexpr DialogTable kDurationScatterScaling{.Resource = 135, .Fields = kDurationScatterFields};

constexpr DialogField kScatterFields[] = {
    IntegerField<&ScatterSettings::MinimumExponent>(5),
    IntegerField<&ScatterSettings::Decades>(7, 1),
    IntegerField<&ScatterSettings::TicksPerDecade>(9, 1),
    RealField<&ScatterSettings::Minimum>(12, kAnyReal, kPicoamperes),
    IntegerField<&ScatterSettings::Ticks>(14, 1),
    RealField<&ScatterSettings::PaPerTick>(16, kPositive),
    RealField<&ScatterSettings::SymbolSize>(18, kPositive),
};
constexpr DialogTable kScatterScaling{.Resource = 130, .Fields = kScatterFields};

// --- Styles --------------------------------------------------------------------------------------

template <typename Settings>
constexpr DialogField kScatterStyleFields[] = {
    CheckField<&Settings::ShowAxes>(3),
    CheckField<&Settings::ShowLabels>(4),
};

/// One dialog on each plot's own fields.
template <typename Settings>
void EditScatterStyle(FrameWindow* frame, Settings& settings, ViewKind view) {
  constexpr DialogTable kTable{.Resource = 137, .Fields = kScatterStyleFields<Settings>};
  if (EditSettings(frame, kTable, settings)) RepaintView(*frame->Owner, view);
}

constexpr DialogField kStationarityStyleFields[] = {
    CheckField<&StationaritySettings::ShowAxes>(4),
    CheckField<&StationaritySettings::ShowLabels>(5),
};
constexpr DialogTable kStationarityStyle{.Resource = 141, .Fields = kStationarityStyleFields};

// --- Stationarity and statistics -----------------------------------------------------------------

constexpr const char* kTypes[] = {"1", "Amplitude", "Duration", "Level"};
constexpr DialogField kStationarityFields[] = {
    ListField<&StationaritySettings::Type>(3, kTypes),
    RealField<&StationaritySettings::Tau>(5, kPositive, {.Unit = kMillisecond}),
};
constexpr DialogTable kStationarity{.Resource = 142, .Fields = kStationarityFields};

constexpr const char* kReferences[] = {"Levels", "Relevant Segment", "Sweep"};
constexpr DialogField kStatisticsFields[] = {
    ListField<&StatisticsTable::Reference>(3, kReferences),
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
