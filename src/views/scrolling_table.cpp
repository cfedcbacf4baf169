#include "views/scrolling_table.h"

#include <algorithm>
#include <cstdlib>

#include "shell/toolkit.h"
#include "views/screen_drawing.h"
#include "views/view_window.h"
#include "workspace/truncate.h"

namespace ondrel {
namespace {

constexpr std::int32_t kHeaderLines = 3;  // two of text and one blank

void DrawRow(const Drawing& drawing, const Workspace& workspace, const RecordTable& table,
             std::int32_t row, double baseline) {
  if (row < 0 || row >= table.CountRows(workspace)) return;
  SetFillColor(drawing, table.RowColor(workspace, row));
  DrawCells(drawing, workspace, table.Columns, ViewOf(workspace, table.Kind).ColumnRight, row,
            baseline);
}

/// The lines that hold whole rows, from above the first row's letters.
IntRect RowArea(const IntRect& rect, const TextLine& line, std::int32_t visibleRows) {
  IntRect area = rect;
  area.Top = rect.Top + kHeaderLines * line.Height - line.Ascent;
  // Rows that fit a window can be too high, all together, for the numbers of another place.
  area.Bottom = TruncateToInteger(area.Top + static_cast<double>(line.Height) * visibleRows);
  return area;
}

/// A line of the font that is selected now, with the destination's leading below it.
TextLine LineAt(const Workspace& workspace, const Destination& destination) {
  TextLine line = MeasureLine(workspace);
  line.Height += TruncateToInteger(line.Height * destination.Leading);
  return line;
}

void MoveThumb(const ViewState& view) {
  toolkit::SetScrollPosition(view.Window, Axis::Vertical, view.TopRow);
}

// --- Moving the rows on the screen without painting all of them ----------------------------------

/// What a shift draws in: the rows' area and how it is cut into lines.
struct ShiftFrame {
  IntRect Area;
  TextLine Line;
  std::int32_t VisibleRows = 0;

  double Baseline(std::int32_t line) const { return Area.Top + Line.Ascent + line * Line.Height; }
};

void FillLines(Workspace& workspace, const ShiftFrame& frame, std::int32_t first,
               std::int32_t count, const RgbColor& background) {
  IntRect lines = frame.Area;
  lines.Top = frame.Area.Top + first * frame.Line.Height;
  lines.Bottom = lines.Top + count * frame.Line.Height;
  toolkit::FillArea(workspace.Graphics.Device, lines, background);
}

void ShiftForward(Workspace& workspace, const RecordTable& table, const ShiftFrame& frame,
                  std::int32_t rows) {
  const ViewState& view = ViewOf(workspace, table.Kind);
  const Drawing drawing = OnScreen(workspace);
  const RgbColor& background = table.Background(workspace);
  toolkit::ScrollArea(view.Window, workspace.Graphics.Device, frame.Area, -rows * frame.Line.Height,
                      background);
  toolkit::ClipTo(workspace.Graphics.Device, frame.Area);
  FillLines(workspace, frame, frame.VisibleRows - rows, rows, background);
  for (std::int32_t i = rows; i >= 1; --i) {
    DrawRow(drawing, workspace, table, view.TopRow + frame.VisibleRows - i,
            frame.Baseline(frame.VisibleRows - i));
  }
  toolkit::RemoveClip(workspace.Graphics.Device);
}

/// All new lines show the top row until the next full paint, also when there are several of them.
/// Users know this from Page Up and Home a few rows below the top, and it stays.
void ShiftBackward(Workspace& workspace, const RecordTable& table, const ShiftFrame& frame,
                   std::int32_t rows) {
  const ViewState& view = ViewOf(workspace, table.Kind);
  const Drawing drawing = OnScreen(workspace);
  const RgbColor& background = table.Background(workspace);
  toolkit::ScrollArea(view.Window, workspace.Graphics.Device, frame.Area, rows * frame.Line.Height,
                      background);
  toolkit::ClipTo(workspace.Graphics.Device, frame.Area);
  FillLines(workspace, frame, 0, rows, background);
  for (std::int32_t i = rows; i >= 1; --i) {
    DrawRow(drawing, workspace, table, view.TopRow, frame.Baseline(i - 1));
  }
  toolkit::RemoveClip(workspace.Graphics.Device);
}

/// Brings the screen from the old to the new `TopRow`, `delta` rows further down. Columns keep the
/// edges of the last paint, by which the rows that stay were drawn.
void ShiftRows(Workspace& workspace, const RecordTable& table, std::int64_t delta) {
  if (delta == 0) return;
  ViewState& view = ViewOf(workspace, table.Kind);
  if (view.Window == nullptr) return;
  DeviceRecord device = toolkit::AcquireDevice(view.Window);
  BeginScreenDrawing(workspace, device, table.Background(workspace));
  const TextLine line = MeasureLine(workspace);
  const ShiftFrame frame{RowArea(toolkit::ClientRect(view.Window), line, view.VisibleRows), line,
                         view.VisibleRows};
  if (std::abs(delta) >= view.VisibleRows / 2) {
    toolkit::Invalidate(view.Window, frame.Area);
  } else if (delta > 0) {
    ShiftForward(workspace, table, frame, static_cast<std::int32_t>(delta));
  } else {
    ShiftBackward(workspace, table, frame, static_cast<std::int32_t>(-delta));
  }
  MoveThumb(view);
  EndDrawing(workspace);
  toolkit::ReleaseDevice(view.Window, device);
}

std::int64_t StepTarget(const ViewState& view, std::int32_t count, ScrollStep step) {
  const std::int64_t top = view.TopRow;
  const std::int64_t page = std::int64_t{view.VisibleRows} - 1;
  const std::int64_t last = std::int64_t{count} - 1;
  switch (step) {
    case ScrollStep::LineUp:
      return std::max<std::int64_t>(top - 1, 0);
    case ScrollStep::LineDown:
      return std::min(top + 1, last);
    case ScrollStep::PageUp:
      return std::max<std::int64_t>(top - page, 0);
    case ScrollStep::PageDown:
      return std::min(top + page, last);
    case ScrollStep::Home:
      return 0;
    case ScrollStep::End:
      return last;
  }
  return top;
}

}  // namespace

void LayOutRecordTable(Workspace& workspace, const RecordTable& table,
                       const Destination& destination) {
  MeasureColumns(workspace, table.Columns, destination.Rect.Left,
                 ViewOf(workspace, table.Kind).ColumnRight);
}

void DrawRecordTable(const Drawing& drawing, const Workspace& workspace, const RecordTable& table,
                     const TableLayout& layout) {
  const ViewState& view = ViewOf(workspace, table.Kind);
  SetFillColor(drawing, table.HeaderColor(workspace));
  DrawHeader(drawing, table.Columns, view.ColumnRight, layout.HeaderBaseline, layout.LineHeight);
  const std::int32_t count = table.CountRows(workspace);
  for (std::int32_t line = 0; line < view.VisibleRows && view.TopRow + line < count; ++line) {
    if (HasFailed(drawing)) return;
    DrawRow(drawing, workspace, table, view.TopRow + line,
            layout.FirstRowBaseline + line * layout.LineHeight);
  }
}

void DrawRecordTableAt(Workspace& workspace, const RecordTable& table,
                       const Destination& destination) {
  const TextLine line = LineAt(workspace, destination);
  const double top = destination.Rect.Top;
  const double lineHeight = line.Height;
  DrawRecordTable({destination.Sink, workspace.Graphics}, workspace, table,
                  {.HeaderBaseline = top + line.Ascent,
                   .FirstRowBaseline = top + kHeaderLines * lineHeight,
                   .LineHeight = lineHeight});
}

void ShiftColumns(Workspace& workspace, const RecordTable& table) {
  auto& right = ViewOf(workspace, table.Kind).ColumnRight;
  for (std::size_t i = table.Columns.size() - 1; i > 0; --i) right[i] = right[i - 1];
  right[0] = 0.0;
}

std::int32_t BottomOfRows(const Workspace& workspace, const RecordTable& table,
                          const Destination& destination) {
  return RowArea(destination.Rect, LineAt(workspace, destination),
                 ViewOf(workspace, table.Kind).VisibleRows)
      .Bottom;
}

void PaintRecordTable(ChildWindow* window, const DeviceRecord& device, const RecordTable& table) {
  Workspace& workspace = *window->Owner;
  ViewState& view = ViewOf(workspace, table.Kind);
  BeginScreenDrawing(workspace, device, table.Background(workspace));
  MoveThumb(view);
  const IntRect client = toolkit::ClientRect(window);
  toolkit::FillArea(workspace.Graphics.Device, client, table.Background(workspace));

  const Destination destination = InWindow(workspace, client);
  const TextLine line = LineAt(workspace, destination);
  const std::int32_t dataTop = client.Top + kHeaderLines * line.Height;
  view.VisibleRows = (client.Bottom - dataTop + line.Ascent) / line.Height;
  LayOutRecordTable(workspace, table, destination);

  IntRect wholeRows = client;  // a row that fits in part is not drawn
  wholeRows.Bottom = BottomOfRows(workspace, table, destination);
  SetClip(OnScreen(workspace), wholeRows);
  DrawRecordTableAt(workspace, table, destination);
  toolkit::RemoveClip(workspace.Graphics.Device);
  EndDrawing(workspace);
}

void BeginScroll(Workspace& workspace, const RecordTable& table) {
  ViewOf(workspace, table.Kind).Stepped = false;
}

void StepScroll(Workspace& workspace, const RecordTable& table, ScrollStep step) {
  ViewState& view = ViewOf(workspace, table.Kind);
  view.Stepped = true;
  const std::int64_t target = StepTarget(view, table.CountRows(workspace), step);
  const std::int64_t delta = target - view.TopRow;
  view.TopRow = static_cast<std::int32_t>(target);
  ShiftRows(workspace, table, delta);
}

void EndScroll(Workspace& workspace, const RecordTable& table) {
  ViewState& view = ViewOf(workspace, table.Kind);
  if (view.Stepped || view.Window == nullptr) return;
  view.TopRow = toolkit::ReadScrollPosition(view.Window, Axis::Vertical);
  RepaintView(workspace, table.Kind);
}

}  // namespace ondrel
