// Commands of the histogram menus that are more than one call of a lower floor.
#pragma once

#include "shell/window_record.h"

namespace ondrel {

/// Each fits the axes to the selected levels and shows what that changed.
void AutoscaleAmplitudeCommand(FrameWindow* frame);
void AutoscaleDurationCommand(FrameWindow* frame);

}  // namespace ondrel
