// Levels from events: what the channel did between its transitions, under the settings that stand
// beside the EventTable and the LevelTable.
#pragma once

namespace ondrel {

struct Workspace;

/// Replaces the contents of the LevelTable by the levels of all sweeps, flags clear, and refreshes
/// the scroll range of the LevelView. Events and sweeps are only read; an event whose sweep has no
/// row is passed over. A full table ends the build silently and keeps the levels made so far.
void BuildLevels(Workspace& workspace);

/// Writes into the events of every selected level, from its `FirstEvent` up to but not including
/// its `LastEvent`, the level's tag or the one value of `TagSetValue`, as `TagSetMode` says. Ends
/// at the first index that lies past the EventTable.
void WriteLevelTags(Workspace& workspace);

}  // namespace ondrel
