#include "shell/color_commands.h"

#include <cstddef>

#include "shell/toolkit.h"
#include "views/view_window.h"
#include "workspace/workspace.h"

namespace ondrel {
namespace {

struct ColorCommandRecord {
  CommandId Command;
  ViewKind View;
  std::size_t Place;
};

template <typename Color>
constexpr ColorCommandRecord Row(CommandId command, ViewKind view, Color color) {
  return {command, view, static_cast<std::size_t>(color)};
}

constexpr ColorCommandRecord kColorCommands[] = {
    Row(25857, ViewKind::Event, EventColor::Events),
    Row(25858, ViewKind::Event, EventColor::Header),
    Row(25859, ViewKind::Event, EventColor::Background),
    Row(26113, ViewKind::Level, LevelColor::Selected),
    Row(26114, ViewKind::Level, LevelColor::Other),
    Row(26115, ViewKind::Level, LevelColor::Header),
    Row(26116, ViewKind::Level, LevelColor::Background),
    Row(26369, ViewKind::Amplitude, HistogramColor::Histogram),
    Row(26370, ViewKind::Amplitude, HistogramColor::Fit),
    Row(26371, ViewKind::Amplitude, HistogramColor::Labels),
    Row(26372, ViewKind::Amplitude, HistogramColor::Axes),
    Row(26373, ViewKind::Amplitude, HistogramColor::Background),
    Row(26625, ViewKind::Duration, HistogramColor::Histogram),
    Row(26626, ViewKind::Duration, HistogramColor::Fit),
    Row(26627, ViewKind::Duration, HistogramColor::Labels),
    Row(26628, ViewKind::Duration, HistogramColor::Axes),
    Row(26629, ViewKind::Duration, HistogramColor::Background),
    Row(26881, ViewKind::Scatter, PlotColor::Plot),
    Row(26882, ViewKind::Scatter, PlotColor::Labels),
    Row(26883, ViewKind::Scatter, PlotColor::Axes),
    Row(26884, ViewKind::Scatter, PlotColor::Background),
    Row(27137, ViewKind::Statistics, StatisticsColor::Header),
    Row(27138, ViewKind::Statistics, StatisticsColor::Others),
    Row(27139, ViewKind::Statistics, StatisticsColor::Background),
    Row(27393, ViewKind::Sweep, SweepColor::Selected),
    Row(27394, ViewKind::Sweep, SweepColor::Other),
    Row(27395, ViewKind::Sweep, SweepColor::Header),
    Row(27396, ViewKind::Sweep, SweepColor::Background),
    Row(27649, ViewKind::DurationScatter, PlotColor::Plot),
    Row(27650, ViewKind::DurationScatter, PlotColor::Labels),
    Row(27651, ViewKind::DurationScatter, PlotColor::Axes),
    Row(27652, ViewKind::DurationScatter, PlotColor::Background),
    Row(27905, ViewKind::AmplitudeScatter, PlotColor::Plot),
    Row(27906, ViewKind::AmplitudeScatter, PlotColor::Labels),
    Row(27907, ViewKind::AmplitudeScatter, PlotColor::Axes),
    Row(27908, ViewKind::AmplitudeScatter, PlotColor::Background),
    Row(28161, ViewKind::Stationarity, PlotColor::Plot),
    Row(28162, ViewKind::Stationarity, PlotColor::Labels),
    Row(28163, ViewKind::Stationarity, PlotColor::Axes),
    Row(28164, ViewKind::Stationarity, PlotColor::Background),
};

const ColorCommandRecord* FindColorCommand(CommandId command) {
  for (const ColorCommandRecord& row : kColorCommands) {
    if (row.Command == command) return &row;
  }
  return nullptr;
}

}  // namespace

void ChooseViewColor(FrameWindow* frame, CommandId command) {
  const ColorCommandRecord* row = FindColorCommand(command);
  if (row == nullptr) return;
  Workspace& workspace = *frame->Owner;
  RgbColor& color = ViewOf(workspace, row->View).Colors[row->Place];
  if (toolkit::AskColor(frame, FactsOf(row->View).Colors[row->Place].Label, &color)) {
    RepaintView(workspace, row->View);
  }
}

bool IsColorCommand(CommandId command) {
  return FindColorCommand(command) != nullptr;
}

}  // namespace ondrel
