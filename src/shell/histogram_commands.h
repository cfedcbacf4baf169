// Commands of the histogram menus that are more than one call of a lower floor.
#pragma once

#include "shell/window_record.h"
#include "views/view_state.h"

namespace ondrel {

/// Each fits the axes to the selected levels and shows what that changed.
void AutoscaleAmplitudeCommand(FrameWindow* frame);
void AutoscaleDurationCommand(FrameWindow* frame);

/// Draws a histogram that was counted anew, Amplitude or Duration, and the parameters of its fit.
void ShowRescaled(Workspace& workspace, ViewKind histogram);

}  // namespace ondrel
