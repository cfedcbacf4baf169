// The dialogs of the scatter plots, of the stationarity plot and of the statistics.
#pragma once

#include "shell/window_record.h"

namespace ondrel {

// Each shows a dialog on the settings of its plot. What was entered is stored and the plot drawn
// anew; a cancel changes nothing.

void AmplitudeScatterScalingCommand(FrameWindow* frame);
void DurationScatterScalingCommand(FrameWindow* frame);
void ScatterScalingCommand(FrameWindow* frame);

void AmplitudeScatterStyleCommand(FrameWindow* frame);
void DurationScatterStyleCommand(FrameWindow* frame);
void ScatterStyleCommand(FrameWindow* frame);

void StationaritySettingsCommand(FrameWindow* frame);
void StationarityStyleCommand(FrameWindow* frame);

/// Calculates the statistics anew when the choice has changed; otherwise nothing is done.
void StatisticsSettingsCommand(FrameWindow* frame);

}  // namespace ondrel
