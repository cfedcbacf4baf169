// Which sweeps and levels take part in the analysis. A filter removes nothing: it sets flags that
// say why a record is out, and whoever analyses takes the records whose word is 0. None of these
// operations clears a flag, that is the caller's part.
#pragma once

#include <cstdint>

namespace ondrel {

struct Workspace;

// Bits of a sweep's SelectionFlags.
inline constexpr std::uint32_t kSweepOutByNumber = 0x2;  // its file, or its index in the file
inline constexpr std::uint32_t kSweepOutByRelevantValue = 0x4;
inline constexpr std::uint32_t kSweepOutByTag = 0x8;

// Bits of the three words of a level. The neighbour rule writes into LevelFlags only.
inline constexpr std::uint32_t kLevelOutBySweep = 0x2;
inline constexpr std::uint32_t kLevelOutByAmplitude = 0x4;
inline constexpr std::uint32_t kLevelOutByDuration = 0x8;
inline constexpr std::uint32_t kLevelOutByLevel = 0x10;
inline constexpr std::uint32_t kLevelOutByTag = 0x20;
inline constexpr std::uint32_t kLevelOutByPosition = 0x40;
inline constexpr std::uint32_t kLevelOutByPreceding = 0x100;
inline constexpr std::uint32_t kLevelOutByFollowing = 0x200;

/// Flags the sweeps that the sweep filter takes out and counts the others in `SelectedCount`.
void ApplySweepFilter(Workspace& workspace);

/// Stores the duration of the shortest selected sweep, in s, for the stationarity plot. A duration
/// of 0 gives way to that of any later sweep; 0 when no sweep is selected.
void UpdateShortestSweep(Workspace& workspace);

/// Flags the levels of sweeps that are out, in all three words. Ends at the first level whose sweep
/// has no row.
void PropagateSweepFlags(Workspace& workspace);

/// Runs the three level selections, each into its own word, and then the neighbour rule: a level
/// goes when the level before it fails the preceding selection, or the one after it the following
/// selection. At the edge of a sweep, where there is no neighbour, a level goes when the selection
/// is active and the level itself passes it.
void ApplyLevelFilters(Workspace& workspace);

}  // namespace ondrel
