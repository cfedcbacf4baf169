#include "shell/histogram_commands.h"

#include "fit/amplitude_histogram.h"
#include "fit/duration_histogram.h"
#include "views/all_views.h"
#include "workspace/workspace.h"

namespace ondrel {

void ShowRescaled(Workspace& workspace, ViewKind histogram) {
  ViewOf(workspace, histogram).NeedsRebuild = true;
  ViewOf(workspace, FitViewOf(histogram)).NeedsRebuild = true;
  RefreshViews(workspace);
}

void AutoscaleAmplitudeCommand(FrameWindow* frame) {
  AutoscaleAmplitude(*frame->Owner);
  ShowRescaled(*frame->Owner, ViewKind::Amplitude);
}

void AutoscaleDurationCommand(FrameWindow* frame) {
  AutoscaleDuration(*frame->Owner);
  ShowRescaled(*frame->Owner, ViewKind::Duration);
}

}  // namespace ondrel
