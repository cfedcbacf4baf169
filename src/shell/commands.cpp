#include "shell/commands.h"

#include "derived/derived_chain.h"
#include "fit/fit_driver.h"
#include "shell/application.h"
#include "shell/color_commands.h"
#include "shell/command_ids.h"
#include "shell/file_commands.h"
#include "shell/file_settings_dialog.h"
#include "shell/histogram_commands.h"
#include "shell/menus.h"
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
    {command::kFileSettings, FileSettingsCommand},
    {command::kExit, ExitCommand},
    {command::kResetFilters, ResetCommand},
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
    {command::kAmplitudeAutoscale, AutoscaleAmplitudeCommand},
    {command::kAmplitudeManualFit, ManualAmplitudeFit},
    {command::kAmplitudeAutomaticFit, FitAmplitude},
    {command::kDurationAutoscale, AutoscaleDurationCommand},
    {command::kDurationManualFit, ManualDurationFit},
    {command::kDurationAutomaticFit, FitDuration},
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
