#include "views/table_columns.h"

#include <algorithm>
#include <cstdio>

#include "shell/toolkit.h"

namespace ondrel {

std::int32_t MeasuredWidth(const Workspace& workspace, const char* text) {
  return toolkit::TextWidth(MeasuringDevice(workspace.Graphics), text);
}

void MeasureColumns(const Workspace& workspace, std::span<const TableColumn> columns, double left,
                    std::array<double, kMaxColumns>& columnRight) {
  double edge = left;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    std::int32_t width = MeasuredWidth(workspace, columns[i].Template);
    if (columns[i].Values != nullptr) width = std::max(width, columns[i].Values(workspace));
    edge += width;
    columnRight[i] = edge;
  }
}

void DrawHeader(const Drawing& drawing, std::span<const TableColumn> columns,
                const std::array<double, kMaxColumns>& columnRight, double baseline,
                double lineHeight) {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (columns[i].HeaderLine1 == nullptr) continue;
    DrawTextUpTo(drawing, columnRight[i], baseline, columns[i].HeaderLine1);
  }
  for (std::size_t i = 0; i < columns.size(); ++i) {
    DrawTextUpTo(drawing, columnRight[i], baseline + lineHeight, columns[i].HeaderLine2);
  }
}

void DrawCells(const Drawing& drawing, const Workspace& workspace,
               std::span<const TableColumn> columns,
               const std::array<double, kMaxColumns>& columnRight, std::int32_t row,
               double baseline) {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    char text[kCellSize] = "";
    columns[i].Cell(workspace, row, text);
    DrawTextUpTo(drawing, columnRight[i], baseline, text);
  }
}

std::int32_t RealWidth(const Workspace& workspace, double value, int decimals, const char* tail) {
  char number[kCellSize] = "";
  char text[kCellSize + 8] = "";
  RealText(value, decimals, 'f', number);
  std::snprintf(text, sizeof text, "%s%s", number, tail);
  return MeasuredWidth(workspace, text);
}

}  // namespace ondrel
