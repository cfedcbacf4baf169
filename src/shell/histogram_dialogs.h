// The dialogs of the two histograms and of their fits.
#pragma once

#include "shell/window_record.h"

namespace ondrel {

// Each shows a dialog on the settings of its histogram and stores what was entered; a cancel
// changes nothing. New scales and a new correction count the histogram anew; settings of a fit wait
// for the next fit.

void AmplitudeScalingCommand(FrameWindow* frame);
void AmplitudeStyleCommand(FrameWindow* frame);
void AmplitudeFitSettingsCommand(FrameWindow* frame);

void DurationScalingCommand(FrameWindow* frame);
void DurationStyleCommand(FrameWindow* frame);
void DurationCorrectionCommand(FrameWindow* frame);
void DurationFitSettingsCommand(FrameWindow* frame);

}  // namespace ondrel
