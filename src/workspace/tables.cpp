#include "workspace/tables.h"

#include "shell/toolkit.h"

namespace ondrel {
namespace {

template <typename Table>
void FreeStorage(Table& table) {
  toolkit::FreeMemory(table.Index);
  toolkit::FreeMemory(table.Records);
  table.Index = nullptr;
  table.Records = nullptr;
  table.Count = 0;
}

}  // namespace

void ClearLevelFlags(LevelTable& table) {
  for (std::int32_t row = 0; row < table.Count; ++row) {
    LevelRecord& level = *table.Index[row];
    level.LevelFlags = 0;
    level.PrecedingFlags = 0;
    level.FollowingFlags = 0;
  }
}

void ClearSweepFlags(SweepTable& table) {
  for (std::int32_t row = 0; row < table.Count; ++row) table.Index[row]->SelectionFlags = 0;
}

void FreeSegments(SweepTable& table, std::int32_t first, std::int32_t count) {
  for (std::int32_t row = first; row < first + count; ++row) {
    toolkit::FreeMemory(table.Index[row]->Segments);
    table.Index[row]->Segments = nullptr;
  }
}

void FreeEventTable(EventTable& table) {
  FreeStorage(table);
}

void FreeLevelTable(LevelTable& table) {
  FreeStorage(table);
}

void FreeSweepTable(SweepTable& table) {
  if (table.Index != nullptr) FreeSegments(table, 0, table.Count);
  FreeStorage(table);
}

void FreeFileTable(FileTable& table) {
  FreeStorage(table);
}

}  // namespace ondrel
