// Columns of the views that are text tables. Their edges are no settings: they are measured again
// before every drawing, from templates that stand for the widest expected content.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "output/plot_primitives.h"
#include "views/view_state.h"
#include "workspace/number_text.h"
#include "workspace/units.h"
#include "workspace/workspace.h"

namespace ondrel {

/// Room for the text of a cell, which is a number.
inline constexpr std::size_t kCellSize = kNumberTextSize;

/// Width of `text` in the font of the device that measures.
std::int32_t MeasuredWidth(const Workspace& workspace, const char* text);

/// Widest of the values that a column shows, measured in the same way.
using ValueMeasure = std::int32_t (*)(const Workspace& workspace);

struct TableColumn {
  const char* Template;
  ValueMeasure Values;  // null: the template alone decides
  const char* HeaderLine1;
  const char* HeaderLine2;
  /// Writes the text of a row, which exists.
  void (*Cell)(const Workspace& workspace, std::int32_t row, char* text);
};

/// Sets the right edge of each column, side by side from `left`.
void MeasureColumns(const Workspace& workspace, std::span<const TableColumn> columns, double left,
                    std::array<double, kMaxColumns>& columnRight);

/// Both header lines, right-aligned; the second one line below `baseline`.
void DrawHeader(const Drawing& drawing, std::span<const TableColumn> columns,
                const std::array<double, kMaxColumns>& columnRight, double baseline,
                double lineHeight);

/// One row's cells from left to right, right-aligned.
void DrawCells(const Drawing& drawing, const Workspace& workspace,
               std::span<const TableColumn> columns,
               const std::array<double, kMaxColumns>& columnRight, std::int32_t row,
               double baseline);

/// Width of `value` with `decimals` and then `tail`.
std::int32_t RealWidth(const Workspace& workspace, double value, int decimals,
                       const char* tail = "");

// Cells of one field. `Row` gives the record of a row, `Field` is its member.

template <auto Row, auto Field>
void IntegerCell(const Workspace& workspace, std::int32_t row, char* text) {
  IntegerText(static_cast<std::int32_t>(Row(workspace, row).*Field), text);
}

template <auto Row, auto Field, int kDecimals>
void RealCell(const Workspace& workspace, std::int32_t row, char* text) {
  RealText(Row(workspace, row).*Field, kDecimals, 'f', text);
}

template <auto Row, auto Field>
void PicoampereCell(const Workspace& workspace, std::int32_t row, char* text) {
  RealText(Row(workspace, row).*Field / kPicoampere, 2, 'f', text);
}

}  // namespace ondrel
