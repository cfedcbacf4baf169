// A view that shows a table far longer than its window. `TopRow` of its state is the first row on
// the screen, and the scroll bar's position is that row.
#pragma once

#include <cstdint>
#include <span>

#include "output/plot_primitives.h"
#include "views/table_columns.h"
#include "views/view_kinds.h"

namespace ondrel {

struct RecordTable {
  ViewKind Kind;
  std::span<const TableColumn> Columns;
  std::int32_t (*CountRows)(const Workspace& workspace);
  const RgbColor& (*HeaderColor)(const Workspace& workspace);
  const RgbColor& (*RowColor)(const Workspace& workspace, std::int32_t row);
  const RgbColor& (*Background)(const Workspace& workspace);
};

/// Where the lines of a table stand: baselines in device units and the height of a line.
struct TableLayout {
  double HeaderBaseline = 0.0;
  double FirstRowBaseline = 0.0;
  double LineHeight = 0.0;
};

/// Sets the columns side by side from the left of the destination.
void LayOutRecordTable(Workspace& workspace, const RecordTable& table,
                       const Destination& destination);

/// The header, and the rows from `TopRow` that the window has room for: no destination shows more.
void DrawRecordTable(const Drawing& drawing, const Workspace& workspace, const RecordTable& table,
                     const TableLayout& layout);
/// The same with the lines of the destination.
void DrawRecordTableAt(Workspace& workspace, const RecordTable& table,
                       const Destination& destination);

/// Moves each column to where the one before it was, and the first to the edge of the picture: the
/// layout of a table in a metafile, where texts begin at the edge at which they are to end.
void ShiftColumns(Workspace& workspace, const RecordTable& table);

/// Where the last of the rows ends at the destination.
std::int32_t BottomOfRows(const Workspace& workspace, const RecordTable& table,
                          const Destination& destination);

void PaintRecordTable(ChildWindow* window, const DeviceRecord& device, const RecordTable& table);

enum class ScrollStep { LineUp, LineDown, PageUp, PageDown, Home, End };

// The parts of a scroll gesture. A step moves `TopRow` at once; without one the gesture was a drag
// of the thumb, whose place is read at the end.
void BeginScroll(Workspace& workspace, const RecordTable& table);
void StepScroll(Workspace& workspace, const RecordTable& table, ScrollStep step);
void EndScroll(Workspace& workspace, const RecordTable& table);

}  // namespace ondrel
