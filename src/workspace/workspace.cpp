#include "workspace/workspace.h"

#include "shell/toolkit.h"
#include "workspace/report.h"

namespace ondrel {
namespace {

/// Defaults for everything beside the storage, which a reset leaves alone.
template <typename Table>
void ResetTable(Table& table) {
  Table defaults;
  defaults.Records = table.Records;
  defaults.Index = table.Index;
  defaults.Count = table.Count;
  table = defaults;
}

/// The pointer array first, then the block. On failure neither is left.
template <typename Record, typename Table>
bool AllocateStorage(Table& table) {
  table.Count = 0;
  table.Index = toolkit::AllocateRecords<Record*>(RoomOf(table));
  if (table.Index == nullptr) return false;
  table.Records = toolkit::AllocateRecords<Record>(RoomOf(table));
  if (table.Records == nullptr) {
    toolkit::FreeMemory(table.Index);
    table.Index = nullptr;
    return false;
  }
  for (std::int32_t row = 0; row < RoomOf(table); ++row) table.Index[row] = table.Records + row;
  return true;
}

void ReportNoMemory(FrameWindow* frame, const char* table, TextId tail) {
  ReportFailure(frame, {TextId::InsufficientMemoryFor, table, tail});
}

void FreeStatistics(StatisticsTable& statistics) {
  toolkit::FreeMemory(statistics.Rows);
  statistics.Rows = nullptr;
  statistics.RowCount = 0;
  statistics.TotalEvents = 0;
}

template <typename Histogram>
void FreeBins(Histogram& histogram) {
  toolkit::FreeMemory(histogram.Bins);
  toolkit::FreeMemory(histogram.Edges);
  histogram.Bins = nullptr;
  histogram.Edges = nullptr;
}

template <typename Histogram>
void ResetHistogram(Histogram& histogram) {
  Histogram defaults;
  defaults.Bins = histogram.Bins;
  defaults.Edges = histogram.Edges;
  histogram = defaults;
}

void ResetStationarity(StationaritySettings& plot) {
  StationaritySettings defaults;
  defaults.SampleCount = plot.SampleCount;
  defaults.StationaritySamples = plot.StationaritySamples;
  plot = defaults;
}

void ResetStatistics(StatisticsTable& statistics) {
  statistics.Reference = StatisticsTable{}.Reference;
}

void ResetGeneral(Workspace& workspace) {
  const Workspace defaults;
  workspace.SkipStartupDialog = defaults.SkipStartupDialog;
  workspace.LastClickTime = toolkit::TickCount();
  workspace.ClickKind = defaults.ClickKind;
  workspace.LineSearchLimit = defaults.LineSearchLimit;
  workspace.LimitToWindow = defaults.LimitToWindow;
  workspace.FontSize = defaults.FontSize;
  workspace.PenSize = defaults.PenSize;
  workspace.LevelFileType = defaults.LevelFileType;
  workspace.ExportType = defaults.ExportType;
  workspace.TextExportType = defaults.TextExportType;
  workspace.FrameRect = defaults.FrameRect;
  workspace.FrameShow = defaults.FrameShow;
  workspace.Closing = defaults.Closing;
  workspace.ExportDpi = defaults.ExportDpi;
}

}  // namespace

void ResetWorkspace(Workspace& workspace) {
  ResetGeneral(workspace);
  ResetTable(workspace.Events);
  ResetTable(workspace.Levels);
  ResetTable(workspace.Sweeps);
  ResetTable(workspace.Files);
  ResetHistogram(workspace.Amplitude);
  ResetHistogram(workspace.Duration);
  workspace.Scatter = {};
  workspace.AmplitudeScatter = {};
  workspace.DurationScatter = {};
  ResetStationarity(workspace.Stationarity);
  ResetStatistics(workspace.Statistics);
}

void AllocateEventTable(FrameWindow* frame) {
  if (!AllocateStorage<EventRecord>(frame->Owner->Events)) {
    ReportNoMemory(frame, "event table", TextId::ReduceEntries);
  }
}

void AllocateLevelTable(FrameWindow* frame) {
  if (!AllocateStorage<LevelRecord>(frame->Owner->Levels)) {
    ReportNoMemory(frame, "level table", TextId::ReduceEntries);
  }
}

void AllocateSweepTable(FrameWindow* frame) {
  if (!AllocateStorage<SweepRecord>(frame->Owner->Sweeps)) {
    ReportNoMemory(frame, "Sweep table", TextId::ReduceEntries);
  }
}

void AllocateFileTable(FrameWindow* frame) {
  if (!AllocateStorage<FileRecord>(frame->Owner->Files)) {
    ReportNoMemory(frame, "File table", TextId::QuitOtherPrograms);
  }
}

bool AllocateAllTables(FrameWindow* frame) {
  Workspace& workspace = *frame->Owner;
  AllocateEventTable(frame);
  if (workspace.Events.Index != nullptr) AllocateLevelTable(frame);
  if (workspace.Levels.Index != nullptr) AllocateSweepTable(frame);
  if (workspace.Sweeps.Index != nullptr) AllocateFileTable(frame);
  if (workspace.Files.Index != nullptr) return true;
  FreeSweepTable(workspace.Sweeps);
  FreeLevelTable(workspace.Levels);
  FreeEventTable(workspace.Events);
  return false;
}

void FreeSamples(StationaritySettings& plot) {
  toolkit::FreeMemory(plot.StationaritySamples);
  plot.StationaritySamples = nullptr;
  plot.SampleCount = 0;
}

void FreeAllTables(Workspace& workspace) {
  FreeEventTable(workspace.Events);
  FreeLevelTable(workspace.Levels);
  FreeBins(workspace.Amplitude);
  FreeBins(workspace.Duration);
  FreeSamples(workspace.Stationarity);
  FreeStatistics(workspace.Statistics);
  FreeSweepTable(workspace.Sweeps);
  FreeFileTable(workspace.Files);
}

void ClearEvents(FrameWindow* frame, std::int32_t first, std::int32_t count) {
  EventTable& events = frame->Owner->Events;
  if (count <= 0 || first < 0 || first >= events.Count) return;
  if (count > events.Count - first) return;
  events.Count = 0;
}

}  // namespace ondrel
