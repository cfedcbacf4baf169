#include "shell/histogram_commands.h"

#include "fit/amplitude_histogram.h"
#include "fit/duration_histogram.h"
#include "views/all_views.h"
#include "workspace/workspace.h"

namespace ondrel {
namespace {

void ShowRescaled(Workspace& workspace, ViewKind histogram, ViewKind fit) {
  ViewOf(workspace, histogram).NeedsRebuild = true;
  ViewOf(workspace, fit).NeedsRebuild = true;
  RefreshViews(workspace);
}

}  // namespace

void AutoscaleAmplitudeCommand(FrameWindow* frame) {
  AutoscaleAmplitude(*frame->Owner);
  ShowRescaled(*frame->Owner, ViewKind::Amplitude, ViewKind::AmplitudeFit);
}

void AutoscaleDurationCommand(FrameWindow* frame) {
  AutoscaleDuration(*frame->Owner);
  ShowRescaled(*frame->Owner, ViewKind::Duration, ViewKind::DurationFit);
}

}  // namespace ondrel
