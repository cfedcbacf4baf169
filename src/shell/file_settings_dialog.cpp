#include "shell/file_settings_dialog.h"

#include <cstddef>
#include <cstdint>
#include <limits>

#include "shell/dialog_fields.h"
#include "shell/file_commands.h"
#include "views/all_views.h"
#include "workspace/workspace.h"

namespace ondrel {
namespace {

constexpr int kOpenButton = 1;
constexpr int kOkButton = 2;
constexpr int kCancelButton = 3;

/// The private copy of the settings.
struct FileSettings {
  std::int32_t EventEntries;
  std::int32_t SweepEntries;
  std::int32_t FontSize;  // points
  double PenSize;         // points
  bool SkipStartupDialog;
};

constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();

constexpr DialogField kFields[] = {
    {6, FieldKind::Integer, offsetof(FileSettings, EventEntries), 1, kHighest},
    {8, FieldKind::Integer, offsetof(FileSettings, SweepEntries), 1, kHighest},
    {10, FieldKind::Integer, offsetof(FileSettings, FontSize), 1, kHighest},
    {12, FieldKind::Positive, offsetof(FileSettings, PenSize)},
    {13, FieldKind::Check, offsetof(FileSettings, SkipStartupDialog)},
};
constexpr int kStoringButtons[] = {kOpenButton, kOkButton};

constexpr DialogTable kDialog = {
    .Resource = 122,
    .Fields = kFields,
    .StoringButtons = kStoringButtons,
    .CancelButton = kCancelButton,
};

FileSettings CopySettings(const Workspace& workspace) {
  return {.EventEntries = workspace.Events.Capacity,
          .SweepEntries = workspace.Sweeps.Capacity,
          .FontSize = workspace.FontSize,
          .PenSize = workspace.PenSize,
          .SkipStartupDialog = workspace.SkipStartupDialog};
}

/// The fit parameter views keep their picture on this path.
void MarkViewsOfNewSizes(Workspace& workspace) {
  for (ViewState& view : workspace.Views) view.NeedsRebuild = true;
  ViewOf(workspace, ViewKind::AmplitudeFit).NeedsRebuild = false;
  ViewOf(workspace, ViewKind::DurationFit).NeedsRebuild = false;
}

void StoreSettings(Workspace& workspace, const FileSettings& settings) {
  const bool newSizes =
      workspace.FontSize != settings.FontSize || workspace.PenSize != settings.PenSize;
  workspace.Events.Capacity = settings.EventEntries;
  workspace.Levels.Capacity = settings.EventEntries;
  workspace.Sweeps.Capacity = settings.SweepEntries;
  workspace.FontSize = settings.FontSize;
  workspace.PenSize = settings.PenSize;
  workspace.SkipStartupDialog = settings.SkipStartupDialog;
  if (newSizes) MarkViewsOfNewSizes(workspace);
  RefreshViews(workspace);
}

}  // namespace

void FileSettingsCommand(FrameWindow* frame) {
  Workspace& workspace = *frame->Owner;
  FileSettings settings = CopySettings(workspace);
  const int button = RunFieldDialog(frame, kDialog, &settings);
  if (button != kOpenButton && button != kOkButton) return;
  StoreSettings(workspace, settings);
  if (button == kOpenButton) OpenCommand(frame);
}

}  // namespace ondrel
