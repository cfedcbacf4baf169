// What a preference file says, line by line. The meaning of such a file lies wholly in the order of
// its lines, so one table of them is both its writer and its reader.
#pragma once

#include "workspace/workspace.h"

namespace ondrel {

/// The first line of a file that this program reads and writes; every further line holds a value.
inline constexpr char kPreferenceVersion = '8';
inline constexpr int kFirstPreferenceValue = 2;  // lines count from 1
inline constexpr int kPreferenceLines = 302;

/// Writes the value of line `line`, 2 to 302, into `text` of kNumberTextSize bytes, NUL-ended.
/// Reals keep four significant digits.
void PreferenceText(const Workspace& workspace, int line, char* text);

/// Stores what the text of line `line` says, also when that is no number or is followed by
/// something else; false then. Whether or not a dialog would accept a value is not asked.
bool StorePreference(Workspace& workspace, int line, const char* text);

}  // namespace ondrel
