#include "shell/commands.h"

#include "derived/derived_chain.h"
#include "fit/fit_driver.h"
#include "shell/application.h"
#include "shell/color_commands.h"
#include "shell/command_ids.h"
#include "shell/copy_command.h"
#include "shell/file_commands.h"
#include "shell/file_settings_dialog.h"
#include "shell/graph_export.h"
#include "shell/histogram_commands.h"
#include "shell/histogram_dialogs.h"
#include "shell/level_dialogs.h"
#include "shell/menus.h"
#include "shell/plot_dialogs.h"
#include "shell/preferences.h"
#include "shell/print_command.h"
#include "shell/save_commands.h"
#include "shell/text_export_command.h"
#include "views/all_views.h"
#include "views/fit_views.h"
#include "views/view_window.h"
#include "workspace/report.h"
#include "workspace/workspace.h"

namespace ondrel {
namespace {

void AboutCommand(FrameWindow* frame) {
  ReportInformation(frame, {"Ondrel for Windows X4.3.3"});
}

void ResetCommand(FrameWindow* frame) {
  ResetFilters(*frame->Owner);
  RefreshViews(*frame->Owner);
}

template <ViewKind kKind>
void ViewCommand(FrameWindow* frame) {
  OpenView(frame, kKind);
}

struct CommandRecord {
  CommandId Command;
  void (*Run)(FrameWindow* frame);
};

constexpr CommandRecord kCommands[] = {
    {command::kAboutKey, AboutCommand},
    {command::kOpen, OpenCommand},
    {command::kClose, CloseCommand},
    {command::kAdd, AddCommand},
    {command::kImportEvents, ImportCommand},
    {command::kSaveEvents, SaveEventsCommand},
    {command::kSaveLevels, SaveLevelsCommand},
    {command::kLoadPreferences, LoadPreferencesCommand},
    {command::kSavePreferences, SavePreferencesCommand},
    {command::kFileSettings, FileSettingsCommand},
    {command::kExportGraph, ExportGraphCommand},
    {command::kExportText, ExportTextCommand},
    {command::kPrint, PrintCommand},
    {command::kExit, ExitCommand},
    {command::kCopy, CopyCommand},
    {command::kEvents, EventsCommand},
    {command::kResetFilters, ResetCommand},
    {command::kSweepFilter, SweepFilterCommand},
    {command::kLevelFilter, LevelFilterCommand},
    {command::kPrecedingFilter, PrecedingFilterCommand},
    {command::kFollowingFilter, FollowingFilterCommand},
    {command::kAmplitudeView, ViewCommand<ViewKind::Amplitude>},
    {command::kAmplitudeScatterView, ViewCommand<ViewKind::AmplitudeScatter>},
    {command::kScatterView, ViewCommand<ViewKind::Scatter>},
    {command::kDurationView, ViewCommand<ViewKind::Duration>},
    {command::kDurationScatterView, ViewCommand<ViewKind::DurationScatter>},
    {command::kEventView, ViewCommand<ViewKind::Event>},
    {command::kLevelView, ViewCommand<ViewKind::Level>},
    {command::kStationarityView, ViewCommand<ViewKind::Stationarity>},
    {command::kStatisticsView, ViewCommand<ViewKind::Statistics>},
    {command::kSweepView, ViewCommand<ViewKind::Sweep>},
    {command::kLevelTag, LevelTagCommand},
    {command::kAmplitudeAutoscale, AutoscaleAmplitudeCommand},
    {command::kAmplitudeScaling, AmplitudeScalingCommand},
    {command::kAmplitudeStyle, AmplitudeStyleCommand},
    {command::kAmplitudeFitSettings, AmplitudeFitSettingsCommand},
    {command::kAmplitudeManualFit, ManualAmplitudeFit},
    {command::kAmplitudeAutomaticFit, FitAmplitude},
    {command::kDurationAutoscale, AutoscaleDurationCommand},
    {command::kDurationScaling, DurationScalingCommand},
    {command::kDurationStyle, DurationStyleCommand},
    {command::kDurationCorrection, DurationCorrectionCommand},
    {command::kDurationFitSettings, DurationFitSettingsCommand},
    {command::kDurationManualFit, ManualDurationFit},
    {command::kDurationAutomaticFit, FitDuration},
    {command::kScatterScaling, ScatterScalingCommand},
    {command::kScatterStyle, ScatterStyleCommand},
    {command::kStatisticsSettings, StatisticsSettingsCommand},
    {command::kAmplitudeScatterScaling, AmplitudeScatterScalingCommand},
    {command::kAmplitudeScatterStyle, AmplitudeScatterStyleCommand},
    {command::kDurationScatterScaling, DurationScatterScalingCommand},
    {command::kDurationScatterStyle, DurationScatterStyleCommand},
    {command::kStationaritySettings, StationaritySettingsCommand},
    {command::kStationarityStyle, StationarityStyleCommand},
    {command::kAbout, AboutCommand},
};

const CommandRecord* FindCommand(CommandId command) {
  for (const CommandRecord& row : kCommands) {
    if (row.Command == command) return &row;
  }
  return nullptr;
}

}  // namespace

void DispatchCommand(FrameWindow* frame, int high, int low) {
  if (frame->Owner->Printing) return;
  const auto command = static_cast<CommandId>((high & 0xFF) << 8 | (low & 0xFF));
  if (!IsAllowed(*frame->Owner, command, CurrentMenuState(*frame->Owner))) return;
  if (const CommandRecord* row = FindCommand(command)) {
    row->Run(frame);
    return;
  }
  ChooseViewColor(frame, command);
}

bool HasHandler(CommandId command) {
  return FindCommand(command) != nullptr || IsColorCommand(command);
}

}  // namespace ondrel
