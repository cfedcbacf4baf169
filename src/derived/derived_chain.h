// The one chain of derived data: levels, sweep flags, level flags, what is counted from the
// selected levels. There is one function for each occasion on which it runs anew, entered at the
// step that the occasion needs. Each marks `NeedsRebuild` of the views that it made stale, no more,
// and leaves it to the caller to refresh them.
#pragma once

namespace ondrel {

struct Workspace;

/// After a file was read or events were imported, from the levels to the flags. The file commands
/// go on from there and draw their views themselves: nothing is marked.
void DeriveAfterReading(Workspace& workspace);

/// What "&Open..." adds to that.
void DeriveAfterOpening(Workspace& workspace);

/// What "&Add..." and "&Import Events..." add to that.
void DeriveAfterAdding(Workspace& workspace);

/// After one of the "Events" settings changed.
void DeriveAfterLevelSettings(Workspace& workspace);

/// Writes the tags of the selected levels into their events, as the stored settings of "Level Tag
/// Value" say, and derives everything from these events.
void DeriveAfterLevelTags(Workspace& workspace);

/// After one of the three level selections changed.
void DeriveAfterLevelFilter(Workspace& workspace);

/// After the sweep filter changed.
void DeriveAfterSweepFilter(Workspace& workspace);

/// "&Reset": all filters select everything again, only the levels that a range cuts short, the
/// first and the last of every sweep, stay out. Bounds stay as they are.
void ResetFilters(Workspace& workspace);

}  // namespace ondrel
