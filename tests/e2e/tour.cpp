// Takes the real program along the road of a recording without anybody at the keyboard: opens a
// sample, lays its views out side by side, keeps pictures of them, and tells what it found.
//
//   ondrel_tour.exe samples-folder output-folder
#include <cstdio>
#include <exception>
#include <filesystem>

#include "program.h"

namespace {

using namespace ondrel::e2e;

constexpr const char* kSample = "one_channel_bursts.evt";
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
    {"Sweep", kViewSweep, {0, 46, 100, 78}, "sweep.png"},
    {"Statistics", kViewStatistics, {0, 78, 100, 100}, "statistics.png"},
    {"Level", kViewLevel, {43, 0, 100, 46}, "level.png"},
    {"Event", kViewEvent, {0, 0, 43, 46}, "event.png"},
};

void Tell(const std::string& line) {
  std::printf("%s\n", line.c_str());
  std::fflush(stdout);
}

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
    program.Command(tile.Command);
    program.WaitForTopView(tile.Title);
    const Rect place = TilePlace(tile, client);
    program.View(tile.Title).MoveTo(place);
    WaitFor(std::string("the view '") + tile.Title + "' to take its place",
            [&] { return program.View(tile.Title).PlaceInParent() == place; });
  }
}

/// Dialogs that close as fast as they do here can leave a window manager without a window in focus;
/// one that is shown anew gets it, and the colours of its title.
void ShowFrameAnew(const Program& program) {
  const Rect place = program.Frame().Place();
  program.Frame().Post(WM_SYSCOMMAND, SC_MINIMIZE);
  WaitFor("the frame to be minimised", [&] { return program.Frame().Minimized(); });
  program.Frame().Post(WM_SYSCOMMAND, SC_RESTORE);
  WaitFor("the frame to come back", [&] { return !program.Frame().Minimized(); });
  program.PlaceFrame(place);
  program.ToForeground();
}

void KeepPictures(const Program& program, const std::string& output) {
  for (const Tile& tile : kTiles) {
    const Window view = program.View(tile.Title);
    (void)program.WaitForPicture(view, "a header",
                                 [](const Picture& picture) { return picture.Count(kBlue) > 100; });
    (void)program.ClientPicture(view);
    SavePng(TakeScreen(view.Place()), output + "\\" + tile.Picture);
    Tell(std::string("  ") + tile.Picture);
  }
  SavePng(TakeScreen(program.Frame().Place()), output + "\\frame.png");
  Tell("  frame.png");
}

void TellRows(const Program& program) {
  for (const char* title : {"Event", "Level", "Sweep"}) {
    const int rows = program.Scroll(program.View(title)).Maximum + 1;
    Tell(std::string("  ") + title + ": " + std::to_string(rows) + " rows");
  }
}

int Tour(const std::string& samples, const std::string& output) {
  std::filesystem::create_directories(output);
  Tell("Starting Ondrel.");
  Program program;
  program.PassStart();
  Tell(std::string("Opening ") + kSample + ".");
  program.Open(samples + "\\" + kSample);
  program.WaitForViews({"Level", "Event"});
  Tell("Laying out the views.");
  ArrangeViews(program);
  ShowFrameAnew(program);
  std::string titles;
  for (const std::string& title : program.ViewTitles()) titles += " '" + title + "'";
  Tell("Open views, the active one first:" + titles);
  TellRows(program);
  Tell("Pictures:");
  KeepPictures(program, output);
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
