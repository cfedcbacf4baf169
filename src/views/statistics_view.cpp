#include "views/statistics_view.h"

#include <algorithm>
#include <cstdio>

#include "shell/toolkit.h"
#include "views/screen_drawing.h"
#include "views/table_columns.h"

namespace ondrel {
namespace {

constexpr int kTimeDecimals = 6;
constexpr int kShareDecimals = 4;
constexpr double kHeaderLines = 3;

const StatisticsRow& RowAt(const Workspace& workspace, std::int32_t row) {
  return workspace.Statistics.Rows[row];
}

/// Calls `measure` for each row that is shown, and returns the largest width.
template <typename Measure>
std::int32_t WidestOfRows(const Workspace& workspace, Measure measure) {
  std::int32_t widest = 0;
  for (std::int32_t row = 0; row < workspace.Statistics.RowCount; ++row) {
    const StatisticsRow& statistics = RowAt(workspace, row);
    if (statistics.Events != 0) widest = std::max(widest, measure(statistics));
  }
  return widest;
}

std::int32_t EventsWidth(const Workspace& workspace) {
  return WidestOfRows(workspace, [&](const StatisticsRow& row) {
    char text[kCellSize] = "";
    IntegerText(row.Events, text);
    return MeasuredWidth(workspace, text);
  });
}

std::int32_t LongestDurationWidth(const Workspace& workspace) {
  return WidestOfRows(workspace, [&](const StatisticsRow& row) {
    return RealWidth(workspace, row.DurationMax, kTimeDecimals);
  });
}

constexpr TableColumn kColumns[] = {
    {"LevelI", nullptr, nullptr, "Level", IntegerCell<RowAt, &StatisticsRow::Level>},
    {"NumEvents", EventsWidth, nullptr, "Events", IntegerCell<RowAt, &StatisticsRow::Events>},
    {"PROBABLE", nullptr, nullptr, "P",
     RealCell<RowAt, &StatisticsRow::Probability, kShareDecimals>},
    {"DurationMean", nullptr, "Duration", "Mean(s)",
     RealCell<RowAt, &StatisticsRow::DurationMean, kTimeDecimals>},
    {"DurationStdEI", nullptr, nullptr, "Std.Dev.(s)",
     RealCell<RowAt, &StatisticsRow::DurationStd, kTimeDecimals>},
    {"DurationMinEI", nullptr, nullptr, "Minimum(s)",
     RealCell<RowAt, &StatisticsRow::DurationMin, kTimeDecimals>},
    {"DurationMaxEI", LongestDurationWidth, nullptr, "Maximum(s)",
     RealCell<RowAt, &StatisticsRow::DurationMax, kTimeDecimals>},
    {"AmplitudeMean", nullptr, "Amplitude", "Mean(pA)",
     PicoampereCell<RowAt, &StatisticsRow::AmplitudeMean>},
    {"AmplitudeStdEI", nullptr, nullptr, "Std.Dev.(pA)",
     PicoampereCell<RowAt, &StatisticsRow::AmplitudeStd>},
    {"AmplitudeMinEI", nullptr, nullptr, "Minimum(pA)",
     PicoampereCell<RowAt, &StatisticsRow::AmplitudeMin>},
    {"AmplitudeMaxEI", nullptr, nullptr, "Maximum(pA)",
     PicoampereCell<RowAt, &StatisticsRow::AmplitudeMax>},
};

void DrawTotal(const Drawing& drawing, const Workspace& workspace, double baseline) {
  char text[64] = "";
  std::snprintf(text, sizeof text, "Total events: %d",
                static_cast<int>(workspace.Statistics.TotalEvents));
  DrawTextFrom(drawing, ViewOf(workspace, ViewKind::Statistics).ColumnRight[0], baseline, text);
}

/// Rows without events leave no gap. `headerBaseline` and `rowBaseline` are those of the first
/// lines.
void DrawStatistics(const Drawing& drawing, const Workspace& workspace, double headerBaseline,
                    double rowBaseline, double lineHeight) {
  const ViewState& view = ViewOf(workspace, ViewKind::Statistics);
  SetFillColor(drawing, ColorOf(view, StatisticsColor::Header));
  DrawHeader(drawing, kColumns, view.ColumnRight, headerBaseline, lineHeight);
  if (HasFailed(drawing)) return;
  SetFillColor(drawing, ColorOf(view, StatisticsColor::Others));
  double baseline = rowBaseline;
  for (std::int32_t row = 0; row < workspace.Statistics.RowCount; ++row) {
    if (RowAt(workspace, row).Events == 0) continue;
    DrawCells(drawing, workspace, kColumns, view.ColumnRight, row, baseline);
    baseline += lineHeight;
  }
  DrawTotal(drawing, workspace, baseline);
}

void LayOut(Workspace& workspace, const Destination& destination) {
  MeasureColumns(workspace, kColumns, destination.Rect.Left,
                 ViewOf(workspace, ViewKind::Statistics).ColumnRight);
}

/// Unlike the tables that scroll, this one has no leading anywhere.
void Draw(Workspace& workspace, const Destination& destination) {
  const TextLine line = MeasureLine(workspace);
  const double top = destination.Rect.Top;
  DrawStatistics({destination.Sink, workspace.Graphics}, workspace, top + line.Ascent,
                 top + kHeaderLines * line.Height, line.Height);
}

void Paint(ChildWindow* window, const DeviceRecord& device) {
  Workspace& workspace = *window->Owner;
  const RgbColor& background =
      ColorOf(ViewOf(workspace, ViewKind::Statistics), StatisticsColor::Background);
  BeginScreenDrawing(workspace, device, background);
  const IntRect client = toolkit::ClientRect(window);
  toolkit::FillArea(workspace.Graphics.Device, client, background);
  const Destination destination = InWindow(workspace, client);
  LayOut(workspace, destination);
  DrawClipped(workspace, kStatisticsViewRoutines, destination);
  EndDrawing(workspace);
}

}  // namespace

const ViewRoutines kStatisticsViewRoutines = {.Paint = Paint, .LayOut = LayOut, .Draw = Draw};

}  // namespace ondrel
