// The dialogs that say what levels are and which of them, and of the sweeps, are selected.
#pragma once

#include "shell/window_record.h"

namespace ondrel {

// Each shows a dialog. Where a setting has changed all that follows from it is derived anew and
// shown; otherwise nothing at all is done.

/// "Events".
void EventsCommand(FrameWindow* frame);

/// "Filter Sweeps".
void SweepFilterCommand(FrameWindow* frame);

// "Filter Levels", on the tests of a level itself, of the level before it and of the one after it.
void LevelFilterCommand(FrameWindow* frame);
void PrecedingFilterCommand(FrameWindow* frame);
void FollowingFilterCommand(FrameWindow* frame);

/// "Level Tag Value": writes the tags of the selected levels into their events, whether or not the
/// settings have changed.
void LevelTagCommand(FrameWindow* frame);

}  // namespace ondrel
