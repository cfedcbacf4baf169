// The preference file: the settings, the colours and the window places from one run to the next,
// and under a name of the user's choice.
#pragma once

#include "shell/toolkit.h"
#include "shell/window_record.h"

namespace ondrel {

/// Writes all lines to an open file, from where it stands. False at the first write that fails; the
/// user is then told and the file is closed.
[[nodiscard]] bool WritePreferences(FrameWindow* frame, toolkit::FileHandle file);

/// Reads an open file from its start into the settings and closes it. A file that cannot be read
/// leaves the settings as they are, without a word. So does one of another version, but the user is
/// told its `name`; after a corrupted one the user is told and all settings and views are at their
/// defaults. When `quiet` nothing is told.
void ReadPreferences(FrameWindow* frame, const char* name, toolkit::FileHandle file, bool quiet);

/// At exit: writes the user's own file. A failure is told; after a failed
/// write no file is left, the old one included.
void SavePreferences(FrameWindow* frame);

/// At start: takes the settings from the user's own file, with the first terms of both fits set to
/// the axes, or welcomes the user when there is none. Both histograms are laid out for the places
/// of their views.
void RestorePreferences(FrameWindow* frame);

/// "Loa&d Preferences...": only while no data is loaded, for capacities change with it. Nothing is
/// derived anew.
void LoadPreferencesCommand(FrameWindow* frame);

/// "&Save Preferences..."
void SavePreferencesCommand(FrameWindow* frame);

}  // namespace ondrel
