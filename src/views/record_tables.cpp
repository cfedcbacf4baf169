#include "views/record_tables.h"

#include <algorithm>

namespace ondrel {
namespace {

constexpr int kTimeDecimals = 6;
constexpr int kTagDecimals = 4;

const EventRecord& EventAt(const Workspace& workspace, std::int32_t row) {
  return *GetEvent(workspace.Events, row);
}
const LevelRecord& LevelAt(const Workspace& workspace, std::int32_t row) {
  return *GetLevel(workspace.Levels, row);
}
const SweepRecord& SweepAt(const Workspace& workspace, std::int32_t row) {
  return *GetSweep(workspace.Sweeps, row);
}

std::int32_t CountEvents(const Workspace& workspace) {
  return workspace.Events.Count;
}
std::int32_t CountLevels(const Workspace& workspace) {
  return workspace.Levels.Count;
}
std::int32_t CountSweeps(const Workspace& workspace) {
  return workspace.Sweeps.Count;
}

/// Width of a real of the table's last record; 0 in an empty table.
template <auto Row, auto Count, auto Field, int kDecimals>
std::int32_t LastWidth(const Workspace& workspace) {
  const std::int32_t count = Count(workspace);
  if (count == 0) return 0;
  return RealWidth(workspace, Row(workspace, count - 1).*Field, kDecimals);
}

/// The last transition is the longest in a sweep; its unit and a letter's room go with it.
template <auto Row, auto Count, auto Field>
std::int32_t LastTimeWidth(const Workspace& workspace) {
  const std::int32_t count = Count(workspace);
  if (count == 0) return 0;
  return RealWidth(workspace, Row(workspace, count - 1).*Field, kTimeDecimals, "sTE");
}

/// Only rows on the screen count, so the column can change its width while the user scrolls.
std::int32_t VisibleDurationsWidth(const Workspace& workspace) {
  const ViewState& view = ViewOf(workspace, ViewKind::Sweep);
  const std::int64_t end =
      std::min<std::int64_t>(std::int64_t{view.TopRow} + view.VisibleRows, workspace.Sweeps.Count);
  std::int32_t widest = 0;
  for (std::int32_t row = std::max(view.TopRow, 0); row < end; ++row) {
    const double duration = SweepAt(workspace, row).Duration;
    widest = std::max(widest, RealWidth(workspace, duration, kTimeDecimals));
  }
  return widest;
}

void RowNumberCell(const Workspace&, std::int32_t row, char* text) {
  IntegerText(row + 1, text);
}

constexpr TableColumn kEventColumns[] = {
    {"EESweep", nullptr, nullptr, "Sweep", IntegerCell<EventAt, &EventRecord::Sweep>},
    {"EEETransitionE", LastTimeWidth<EventAt, CountEvents, &EventRecord::Transition>, nullptr,
     "Transition(s)", RealCell<EventAt, &EventRecord::Transition, kTimeDecimals>},
    {"EEEAmplitudeE(pA)", nullptr, "Pre", "Amplitude(pA)",
     PicoampereCell<EventAt, &EventRecord::PreAmplitude>},
    {"EAmplitudeEEE(pA)", nullptr, "Post", "Amplitude(pA)",
     PicoampereCell<EventAt, &EventRecord::PostAmplitude>},
    {"ELevelEE", nullptr, nullptr, "Level", IntegerCell<EventAt, &EventRecord::Level>},
    {"TagValueEEE", nullptr, "Tag", "Value",
     RealCell<EventAt, &EventRecord::TagValue, kTagDecimals>},
};

constexpr TableColumn kLevelColumns[] = {
    {"SweepE", nullptr, nullptr, "Sweep", IntegerCell<LevelAt, &LevelRecord::Sweep>},
    {"TransitionEEE(s)", LastTimeWidth<LevelAt, CountLevels, &LevelRecord::Transition>, nullptr,
     "Transition(s)", RealCell<LevelAt, &LevelRecord::Transition, kTimeDecimals>},
    {"EEEDurationEE", nullptr, nullptr, "Duration(s)",
     RealCell<LevelAt, &LevelRecord::Duration, kTimeDecimals>},
    {"PreAmplitude(pA)", nullptr, "Pre", "Amplitude(pA)",
     PicoampereCell<LevelAt, &LevelRecord::PreAmplitude>},
    {"PostAmplitude(pA)", nullptr, "Post", "Amplitude(pA)",
     PicoampereCell<LevelAt, &LevelRecord::PostAmplitude>},
    {"EEEAmplitudeE(pA)", nullptr, nullptr, "Amplitude(pA)",
     PicoampereCell<LevelAt, &LevelRecord::Amplitude>},
    {"ELevelEE", nullptr, nullptr, "Level", IntegerCell<LevelAt, &LevelRecord::Level>},
    {"TagValueEEE", nullptr, "Tag", "Value",
     RealCell<LevelAt, &LevelRecord::TagValue, kTagDecimals>},
};

// `RelevantValue` is measured with six decimals and shown with two.
constexpr TableColumn kSweepColumns[] = {
    {"EIndexE", nullptr, nullptr, "Index", RowNumberCell},
    {"EFileE", nullptr, nullptr, "File", IntegerCell<SweepAt, &SweepRecord::File>},
    {"ESweep", nullptr, nullptr, "Sweep", IntegerCell<SweepAt, &SweepRecord::Index>},
    {"EEEStartTimeEs", LastWidth<SweepAt, CountSweeps, &SweepRecord::StartTime, kTimeDecimals>,
     nullptr, "Start Time(s)", RealCell<SweepAt, &SweepRecord::StartTime, kTimeDecimals>},
    {"EEEDurationEs", VisibleDurationsWidth, nullptr, "Duration(s)",
     RealCell<SweepAt, &SweepRecord::Duration, kTimeDecimals>},
    {"RelevantStartEs", LastWidth<SweepAt, CountSweeps, &SweepRecord::RelevantStart, kTimeDecimals>,
     "Relevant", "Start(s)", RealCell<SweepAt, &SweepRecord::RelevantStart, kTimeDecimals>},
    {"RelevantEndEEEs", LastWidth<SweepAt, CountSweeps, &SweepRecord::RelevantEnd, kTimeDecimals>,
     "Relevant", "End(s)", RealCell<SweepAt, &SweepRecord::RelevantEnd, kTimeDecimals>},
    {"RelevantValue", LastWidth<SweepAt, CountSweeps, &SweepRecord::RelevantValue, kTimeDecimals>,
     "Relevant", "Value", RealCell<SweepAt, &SweepRecord::RelevantValue, 2>},
    {"TagValueEEEE", LastWidth<SweepAt, CountSweeps, &SweepRecord::TagValue, kTagDecimals>, "Tag",
     "Value", RealCell<SweepAt, &SweepRecord::TagValue, kTagDecimals>},
};

template <ViewKind kKind, auto kColor>
const RgbColor& ViewColor(const Workspace& workspace) {
  return ColorOf(ViewOf(workspace, kKind), kColor);
}

const RgbColor& EventRowColor(const Workspace& workspace, std::int32_t) {
  return ViewColor<ViewKind::Event, EventColor::Events>(workspace);
}

/// The words for the neighbours play no part here.
const RgbColor& LevelRowColor(const Workspace& workspace, std::int32_t row) {
  return LevelAt(workspace, row).LevelFlags == 0
             ? ViewColor<ViewKind::Level, LevelColor::Selected>(workspace)
             : ViewColor<ViewKind::Level, LevelColor::Other>(workspace);
}

const RgbColor& SweepRowColor(const Workspace& workspace, std::int32_t row) {
  return SweepAt(workspace, row).SelectionFlags == 0
             ? ViewColor<ViewKind::Sweep, SweepColor::Selected>(workspace)
             : ViewColor<ViewKind::Sweep, SweepColor::Other>(workspace);
}

constexpr RecordTable kEventTable = {
    .Kind = ViewKind::Event,
    .Columns = kEventColumns,
    .CountRows = CountEvents,
    .HeaderColor = ViewColor<ViewKind::Event, EventColor::Header>,
    .RowColor = EventRowColor,
    .Background = ViewColor<ViewKind::Event, EventColor::Background>,
};

constexpr RecordTable kLevelTable = {
    .Kind = ViewKind::Level,
    .Columns = kLevelColumns,
    .CountRows = CountLevels,
    .HeaderColor = ViewColor<ViewKind::Level, LevelColor::Header>,
    .RowColor = LevelRowColor,
    .Background = ViewColor<ViewKind::Level, LevelColor::Background>,
};

constexpr RecordTable kSweepTable = {
    .Kind = ViewKind::Sweep,
    .Columns = kSweepColumns,
    .CountRows = CountSweeps,
    .HeaderColor = ViewColor<ViewKind::Sweep, SweepColor::Header>,
    .RowColor = SweepRowColor,
    .Background = ViewColor<ViewKind::Sweep, SweepColor::Background>,
};

template <const RecordTable& kTable>
void Paint(ChildWindow* window, const DeviceRecord& device) {
  PaintRecordTable(window, device, kTable);
}
template <const RecordTable& kTable>
void LayOut(Workspace& workspace, const Destination& destination) {
  LayOutRecordTable(workspace, kTable, destination);
}
template <const RecordTable& kTable>
void Draw(Workspace& workspace, const Destination& destination) {
  DrawRecordTableAt(workspace, kTable, destination);
}
template <const RecordTable& kTable>
void MoveForMetafile(Workspace& workspace, const Destination&) {
  ShiftColumns(workspace, kTable);
}
template <const RecordTable& kTable>
std::int32_t BottomOnPaper(const Workspace& workspace, const Destination& destination) {
  return BottomOfRows(workspace, kTable, destination);
}

template <const RecordTable& kTable>
constexpr ViewRoutines RoutinesOf(bool clipsOnPaper) {
  return {.Paint = Paint<kTable>,
          .LayOut = LayOut<kTable>,
          .Draw = Draw<kTable>,
          .MoveForMetafile = MoveForMetafile<kTable>,
          .BottomOnPaper = BottomOnPaper<kTable>,
          .ClipsOnPaper = clipsOnPaper,
          .Scrolled = &kTable};
}

}  // namespace

// On paper the last row of events or levels is shown whole, however low its letters reach; that of
// sweeps ends with its line.
const ViewRoutines kEventViewRoutines = RoutinesOf<kEventTable>(false);
const ViewRoutines kLevelViewRoutines = RoutinesOf<kLevelTable>(false);
const ViewRoutines kSweepViewRoutines = RoutinesOf<kSweepTable>(true);

}  // namespace ondrel
