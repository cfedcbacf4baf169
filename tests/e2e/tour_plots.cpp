#include <cstdint>
#include <string>

#include "tour_steps.h"

namespace ondrel::e2e {
namespace {

constexpr int kClose = 51714;
constexpr int kReset = 52227;
constexpr int kFilterLevels = 52229;
constexpr int kAmplitudeScatterScaling = 54529;
constexpr std::uint32_t kRed = 0xFF0000;  // of what is plotted

/// Place of a plot in halves of the frame's client area. About square: the titles of the axes lie
/// outside of a window that is much wider than high.
struct PlotTile {
  const char* Title;
  int Command;
  int Column;
  int Row;
  const char* Picture;
};

constexpr PlotTile kPlots[] = {
    {"Amplitude Scatter Plot", 52482, 0, 0, "amplitude_scatter"},
    {"Duration Scatter Plot", 52485, 1, 0, "duration_scatter"},
    {"Amplitude/Duration", 52483, 0, 1, "amplitude_duration"},
    {"Stationarity", 52488, 1, 1, "stationarity"},
};

Rect PlaceOf(const PlotTile& tile, const Rect& client) {
  const int width = client.Width() / 2;
  const int height = client.Height() / 2;
  return {tile.Column * width, tile.Row * height, (tile.Column + 1) * width,
          (tile.Row + 1) * height};
}

void ArrangePlots(const Program& program) {
  const int height = GetSystemMetrics(SM_CYSCREEN);
  program.PlaceFrame({8, 8, height - 8, height - 8});
  const Rect client = program.Frame().ClientArea();
  for (const PlotTile& tile : kPlots) {
    PlaceView(program, tile.Title, tile.Command, PlaceOf(tile, client));
  }
}

void OpenPlots(Program& program, const std::string& samples, const std::string& sample,
               const std::string& shows) {
  Tell("Opening " + sample + ": " + shows + ".");
  program.Open(samples + "\\" + sample);
  program.WaitForViews({"Level", "Event"});
  ArrangePlots(program);
}

/// `name` begins the names of the pictures.
void KeepPlots(const Program& program, const std::string& output, const std::string& name) {
  for (const PlotTile& tile : kPlots) {
    const Window view = program.View(tile.Title);
    const Picture picture = program.ClientPicture(view);
    if (picture.Count(kRed) == 0) Fail(std::string("nothing is plotted in '") + tile.Title + "'");
    Keep(program, view, output, name + "_" + tile.Picture);
  }
  KeepFrame(program, output, name + "_plots");
}

/// Only openings are selected: the running average is then the open probability.
void SelectOpenings(const Program& program) {
  constexpr int kLevelChoice = 12;
  constexpr int kLevelLow = 13;
  constexpr int kLevelHigh = 14;
  program.Command(kFilterLevels);
  const Dialog dialog = program.WaitForDialog("Filter Levels");
  dialog.Choose(kLevelChoice, "Include");
  dialog.Type(kLevelLow, "1");
  dialog.Type(kLevelHigh, "1");
  dialog.Leave(kOkButton);
}

/// The axis up to the highest concentration, in uM, and to twice the current of an opening.
void WidenAxes(const Program& program) {
  constexpr int kMinimum = 6;
  constexpr int kPerTick = 10;
  constexpr int kPaPerTick = 17;
  program.WaitForTopView("Stationarity");
  program.Command(52482);
  program.WaitForTopView("Amplitude Scatter Plot");
  program.Command(kAmplitudeScatterScaling);
  const Dialog dialog = program.WaitForDialog("Amplitude Scatter Scaling");
  dialog.Type(kMinimum, "0");
  dialog.Type(kPerTick, "25");
  dialog.Type(kPaPerTick, "2");
  dialog.Leave(kOkButton);
}

void ShowDrift(Program& program, const std::string& samples, const std::string& output) {
  OpenPlots(program, samples, "drifting.evt",
            "a channel that runs down within each sweep and from sweep to sweep");
  KeepPlots(program, output, "drifting");
  SelectOpenings(program);
  Tell("Only openings selected, so that the running average is the open probability.");
  Keep(program, program.View("Stationarity"), output, "drifting_open_probability");
  program.CommandDone(kReset);
  program.CommandDone(kClose);
}

void ShowConcentrations(Program& program, const std::string& samples, const std::string& output) {
  OpenPlots(program, samples, "several_files.evt",
            "a rising concentration, which is the relevant value of the sweeps");
  WidenAxes(program);
  KeepPlots(program, output, "several_files");
  program.CommandDone(kClose);
}

}  // namespace

void ShowPlots(Program& program, const std::string& samples, const std::string& output) {
  ShowDrift(program, samples, output);
  ShowConcentrations(program, samples, output);
}

}  // namespace ondrel::e2e
