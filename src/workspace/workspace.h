// The root record of a run: every setting, the tables of the loaded recordings, the state of the
// views, and the drawing context. Created at start, reached from every window, freed at the end.
#pragma once

#include <array>
#include <cstdint>

#include "derived/plot_settings.h"
#include "derived/statistics_table.h"
#include "fit/fit_operations.h"
#include "fit/histogram_records.h"
#include "output/graphics_sink.h"
#include "shell/window_record.h"
#include "views/view_state.h"
#include "workspace/geometry.h"
#include "workspace/tables.h"

namespace ondrel {

/// How a view asks the application, which stands above it, for its menu.
struct MenuOperations {
  void (*InstallViewMenu)(FrameWindow* frame, ViewKind view);
  void (*InstallDataMenu)(FrameWindow* frame);
  /// Greys and enables "&Automatic Fit" anew: a view with the parameters of a fit came or went.
  void (*RefreshFitEntries)(FrameWindow* frame);
};

/// What a press of the mouse on a histogram is.
enum class ClickChoice : std::uint8_t { SecondOfDouble = 0, Single = 1 };
enum class LevelFileChoice : std::uint8_t { Qub, Ond };
enum class ExportChoice : std::uint8_t { Illustrator, Clipboard, Eps, Metafile };
enum class TextExportChoice : std::uint8_t { Excel, Igor };

struct Workspace {
  double ScreenDpi = 0.0;
  bool SkipStartupDialog = false;
  std::uint32_t LastClickTime = 0;  // ms, of the last press on either histogram
  ClickChoice ClickKind = ClickChoice::Single;
  std::int32_t LineSearchLimit = 20;  // iterations; the last fit's limit
  bool LimitToWindow = true;
  std::int32_t FontSize = 10;       // points
  double PenSize = 0.25;            // points
  std::int32_t DeviceFontSize = 0;  // for the present printer or export
  double DevicePenSize = 0.0;
  LevelFileChoice LevelFileType = LevelFileChoice::Ond;
  ExportChoice ExportType = ExportChoice::Illustrator;
  TextExportChoice TextExportType = TextExportChoice::Excel;

  FitOperations DurationModel{};
  FitOperations AmplitudeModel{};
  FitDisplay LiveDisplay{};

  GraphicsSink ScreenSink{};
  GraphicsSink IllustratorSink{};
  GraphicsSink EpsSink{};
  GraphicsContext Graphics;
  std::int32_t CascadeOffset = 0;  // device units
  std::int32_t CascadeStep = 0;

  EventTable Events;
  LevelTable Levels;
  AmplitudeHistogram Amplitude;
  DurationHistogram Duration;
  ScatterSettings Scatter;
  AmplitudeScatterSettings AmplitudeScatter;
  DurationScatterSettings DurationScatter;
  StationaritySettings Stationarity;
  StatisticsTable Statistics;
  SweepTable Sweeps;
  FileTable Files;
  std::array<ViewState, kViewCount> Views;

  FrameWindow* Frame = nullptr;  // owned by the run
  void* Instance = nullptr;      // the application's module
  IntRect FrameRect;             // last normal place of the frame; degenerate: none yet
  WindowPlacement FrameShow = WindowPlacement::Normal;
  bool Closing = false;
  bool Printing = false;  // a page is under way: nothing may change what it shows, or close it
  MenuOperations Menus{};
  std::int32_t ViewMenu = 0;  // resource of the view's popup in the menu bar; 0: none stands there

  IntRect ExportRect;
  double ExportDpi = 0.0;
};

/// `FontSize` as a size that letters can have: a preference file holds any number.
inline std::int32_t LetterSize(const Workspace& workspace) {
  return workspace.FontSize > 0 ? workspace.FontSize : 1;
}

inline ViewState& ViewOf(Workspace& workspace, ViewKind kind) {
  return workspace.Views[static_cast<std::size_t>(kind)];
}
inline const ViewState& ViewOf(const Workspace& workspace, ViewKind kind) {
  return workspace.Views[static_cast<std::size_t>(kind)];
}

/// Gives every setting its default, capacities included: only while no table is allocated. Windows,
/// the views' states, the frame and the module handle stay as they are. Callers reset the views
/// right after.
void ResetWorkspace(Workspace& workspace);

/// Each allocates a table at its capacity, empty. On failure the user is told and the table's
/// pointers stay null.
void AllocateEventTable(FrameWindow* frame);
void AllocateLevelTable(FrameWindow* frame);
void AllocateSweepTable(FrameWindow* frame);
void AllocateFileTable(FrameWindow* frame);

/// Allocates all four tables. False when one could not be had; then none is.
bool AllocateAllTables(FrameWindow* frame);

/// Frees all tables and everything derived from them. Settings are untouched.
void FreeAllTables(Workspace& workspace);

/// Frees the samples of the stationarity plot; there are none afterwards.
void FreeSamples(StationaritySettings& plot);

/// Empties the event table, whatever part of it was asked for; nothing happens unless `first` and
/// `count` name a part of it.
void ClearEvents(FrameWindow* frame, std::int32_t first, std::int32_t count);

}  // namespace ondrel
