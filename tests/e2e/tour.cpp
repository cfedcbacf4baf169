// Takes the real program along the road of a recording without anybody at the keyboard: opens a
// sample, lays its views out side by side, opens two more samples for the scatter plots and the
// stationarity plot, comes back to the first one, places estimates on its histograms with the
// mouse, has them fitted, and exports a fitted histogram. It keeps pictures of all that, and tells
// what it found and where it lies.
//
//   ondrel_tour.exe samples-folder output-folder
#include <cstdio>
#include <exception>
#include <filesystem>
#include <vector>

#include "program.h"
#include "tour_steps.h"

namespace {

using namespace ondrel::e2e;

constexpr const char* kSample = "one_channel_bursts.evt";
constexpr int kClose = 51714;
constexpr int kViewEvent = 52486;
constexpr int kViewLevel = 52487;
constexpr int kViewStatistics = 52489;
constexpr int kViewSweep = 52490;

/// Place of a view in hundredths of the frame's client area.
struct Tile {
  const char* Title;
  int Command;
  Rect Place;
  const char* Picture;
};

// From the bottom of the stack up: the last one is active at the end.
constexpr Tile kTiles[] = {
    {"Sweep", kViewSweep, {0, 46, 100, 78}, "sweep"},
    {"Statistics", kViewStatistics, {0, 78, 100, 100}, "statistics"},
    {"Level", kViewLevel, {43, 0, 100, 46}, "level"},
    {"Event", kViewEvent, {0, 0, 43, 46}, "event"},
};

Rect TilePlace(const Tile& tile, const Rect& client) {
  return {client.Width() * tile.Place.Left / 100, client.Height() * tile.Place.Top / 100,
          client.Width() * tile.Place.Right / 100, client.Height() * tile.Place.Bottom / 100};
}

void ArrangeViews(Program& program) {
  const int width = GetSystemMetrics(SM_CXSCREEN);
  const int height = GetSystemMetrics(SM_CYSCREEN);
  program.PlaceFrame({8, 8, width - 8, height - 8});
  const Rect client = program.Frame().ClientArea();
  for (const Tile& tile : kTiles) {
    PlaceView(program, tile.Title, tile.Command, TilePlace(tile, client));
  }
}

/// Dialogs that close as fast as they do here can leave a window manager without a window in focus;
/// one that is shown anew gets it, and the colours of its title.
void ShowFrameAnew(const Program& program) {
  const Rect place = program.Frame().Place();
  program.Frame().Post(WM_SYSCOMMAND, SC_MINIMIZE);
  WaitFor("the frame to be minimised", [&] { return program.Frame().Minimized(); });
  // A window manager that is slow to take the first note of it minimises the frame once more.
  constexpr int kLooks = 40;
  int looks = 0;
  WaitFor("the frame to come back and stay", [&] {
    const bool there = !program.Frame().Minimized();
    if (!there) program.Frame().Post(WM_SYSCOMMAND, SC_RESTORE);
    looks = there ? looks + 1 : 0;
    return looks == kLooks;
  });
  program.PlaceFrame(place);
  program.ToForeground();
}

void KeepPictures(const Program& program, const std::string& output) {
  for (const Tile& tile : kTiles) {
    const Window view = program.View(tile.Title);
    (void)program.WaitForPicture(view, "a header",
                                 [](const Picture& picture) { return picture.Count(kBlue) > 100; });
    Keep(program, view, output, tile.Picture);
  }
  KeepFrame(program, output, "frame");
}

void TellRows(const Program& program) {
  for (const char* title : {"Event", "Level", "Sweep"}) {
    const int rows = program.Scroll(program.View(title)).Maximum + 1;
    Tell(std::string("  ") + title + ": " + std::to_string(rows) + " rows");
  }
}

void OpenSample(Program& program, const std::string& samples) {
  Tell(std::string("Opening ") + kSample + ".");
  program.Open(samples + "\\" + kSample);
  program.WaitForViews({"Level", "Event"});
  Tell("Laying out the views.");
  ArrangeViews(program);
  ShowFrameAnew(program);
}

int Tour(const std::string& samples, const std::string& output) {
  std::filesystem::create_directories(output);
  Tell("Starting Ondrel.");
  Program program;
  program.PassStart();
  OpenSample(program, samples);
  std::string titles;
  for (const std::string& title : program.ViewTitles()) titles += " '" + title + "'";
  Tell("Open views, the active one first:" + titles);
  TellRows(program);
  Tell("Pictures:");
  KeepPictures(program, output);
  program.CommandDone(kClose);
  ShowPlots(program, samples, output);
  OpenSample(program, samples);
  Tell("Placing estimates on the histograms with the mouse, and fitting.");
  FitHistograms(program, output);
  Tell("Exporting the fitted durations to " + output + ":");
  ExportFit(program, output);
  const int code = program.Exit();
  Tell("Ondrel ended with exit code " + std::to_string(code) + ".");
  return code;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: ondrel_tour samples-folder output-folder\n");
    return 2;
  }
  try {
    return Tour(NativePath(argv[1]), NativePath(argv[2]));
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "The tour broke off: %s\n", failure.what());
    return 1;
  }
}
