#include "shell/file_settings_dialog.h"

#include <cstddef>
#include <cstdint>

#include "shell/dialog_fields.h"
#include "shell/file_commands.h"
#include "views/all_views.h"
#include "workspace/workspace.h"

namespace ondrel {
namespace {

// Unlike other dialogs, this one begins with a button that goes on to a file.
constexpr int kOpenFileButton = 1;
constexpr int kStoreButton = 2;
constexpr int kLeaveButton = 3;

/// The private copy of the settings.
struct FileSettings {
  std::int32_t EventEntries;
  std::int32_t SweepEntries;
  std::int32_t FontSize;  // points
  double PenSize;         // points
  bool SkipStartupDialog;
};

constexpr DialogField kFields[] = {
    IntegerField<&FileSettings::EventEntries>(6, 1),
    IntegerField<&FileSettings::SweepEntries>(8, 1),
    IntegerField<&FileSettings::FontSize>(10, 1),
    RealField<&FileSettings::PenSize>(12, kPositive),
    CheckField<&FileSettings::SkipStartupDialog>(13),
};
constexpr int kStoringButtons[] = {kOpenFileButton, kStoreButton};

constexpr DialogTable kDialog = {
    .Resource = 122,
    .Fields = kFields,
    .StoringButtons = kStoringButtons,
    .CancelButton = kLeaveButton,
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
  for (std::size_t i = 0; i < kViewCount; ++i) {
    const auto kind = static_cast<ViewKind>(i);
    const bool isFit = kind == ViewKind::AmplitudeFit || kind == ViewKind::DurationFit;
    if (!isFit) ViewOf(workspace, kind).NeedsRebuild = true;
  }
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
  if (button != kOpenFileButton && button != kStoreButton) return;
  StoreSettings(workspace, settings);
  if (button == kOpenFileButton) OpenCommand(frame);
}

}  // namespace ondrel
