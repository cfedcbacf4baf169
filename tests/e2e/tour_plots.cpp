#include <cstdint>
#include <string>

#include "tour_steps.h"

namespace ondrel::e2e {
namespace {

constexpr int kClose = 51714;
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

struct PlotTour {
  const char* Sample;
  const char* Shows;
  const char* Name;  // of its pictures
};

constexpr PlotTour kTours[] = {
    {"drifting.evt", "a channel that runs down within each sweep and from sweep to sweep",
     "drifting"},
    {"several_files.evt", "a rising concentration, which is the relevant value of the sweeps",
     "several_files"},
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

void ShowSample(Program& program, const PlotTour& tour, const std::string& samples,
                const std::string& output) {
  Tell(std::string("Opening ") + tour.Sample + ": " + tour.Shows + ".");
  program.Open(samples + "\\" + tour.Sample);
  program.WaitForViews({"Level", "Event"});
  ArrangePlots(program);
  for (const PlotTile& tile : kPlots) {
    const Window view = program.View(tile.Title);
    const Picture picture = program.ClientPicture(view);
    if (picture.Count(kRed) == 0) Fail(std::string("nothing is plotted in '") + tile.Title + "'");
    Keep(program, view, output, std::string(tour.Name) + "_" + tile.Picture);
  }
  KeepFrame(program, output, std::string(tour.Name) + "_plots");
  program.CommandDone(kClose);
}

}  // namespace

void ShowPlots(Program& program, const std::string& samples, const std::string& output) {
  for (const PlotTour& tour : kTours) ShowSample(program, tour, samples, output);
}

}  // namespace ondrel::e2e
