// Takes the real program along the road of a recording without anybody at the keyboard: opens a
// sample, lays its views out side by side, places estimates on its histograms with the mouse and
// has them fitted, keeps pictures of all that, and tells what it found.
//
//   ondrel_tour.exe samples-folder output-folder
#include <cstdio>
#include <exception>
#include <filesystem>
#include <vector>

#include "fitting_gestures.h"
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

// --- Fits ----------------------------------------------------------------------------------------

/// An estimate as a user places it: where it stands on the axis, and its height as a part of the
/// plot's.
struct Estimate {
  double Where;
  double Height;
};

/// What is done on one histogram, in the upper or the lower half of the frame.
struct FitTour {
  const Twin& Kind;
  Axis Scale;  // after "Autoscale" on the sample
  std::vector<Estimate> Estimates;
  int Top;  // of its room, in hundredths of the frame's height
  int Bottom;
  const char* Name;  // of its pictures
};

void Keep(const Program& program, const Window& view, const std::string& output,
          const std::string& name) {
  (void)program.ClientPicture(view);
  SavePng(TakeScreen(view.Place()), output + "\\" + name + ".png");
  Tell("  " + name + ".png");
}

/// The first term is there from the start, one unit from the left end of the axis.
void PlaceEstimates(const Program& program, const FitTour& tour) {
  Hand hand(program, tour.Kind);
  const Plot plot = hand.PlotNow(tour.Scale);
  const auto lift = [&](double from, const Estimate& to) {
    const double height = to.Height * (plot.Bottom - plot.Top);
    hand.Drag(plot.OnAxis(from), {plot.XOf(to.Where), static_cast<int>(plot.Bottom - height)});
  };
  lift(tour.Scale.Minimum + 1.0, tour.Estimates.front());
  for (std::size_t i = 1; i < tour.Estimates.size(); ++i) {
    hand.DoubleClick(plot.OnAxis(tour.Estimates[i].Where));
    lift(tour.Estimates[i].Where, tour.Estimates[i]);
  }
}

void TellFit(const Program& program, const Twin& twin) {
  const FitTable table = ReadFitTable(twin, program.ClientPicture(program.View(twin.Fit)));
  for (const TermRow& term : table.Terms) {
    char line[120] = "";
    if (twin.CountsFromMiddle) {
      std::snprintf(line, sizeof line, "  %4.1f %% of the dwells with a time constant of %.3g ms",
                    100.0 * term.Weight, 1000.0 * term.Where);
    } else {
      std::snprintf(line, sizeof line,
                    "  %4.1f %% of the levels at %.3f pA, standard deviation %.3f pA",
                    100.0 * term.Weight, term.Where, term.StdDev);
    }
    Tell(line);
  }
  Tell("  log likelihood, relative to a perfect fit: " + std::to_string(table.LogLikelihood));
}

/// Fails when the table does not have so many.
std::vector<TermRow> TermsOf(const Program& program, const Twin& twin, std::size_t count) {
  FitTable table = ReadFitTable(twin, program.ClientPicture(program.View(twin.Fit)));
  if (table.Terms.size() != count) Fail("the number of estimates is not that of the gestures");
  return table.Terms;
}

void FitOne(const Program& program, const FitTour& tour, const std::string& output) {
  const Twin& twin = tour.Kind;
  const Rect client = program.Frame().ClientArea();
  const Rect room = {0, client.Height() * tour.Top / 100, client.Width(),
                     client.Height() * tour.Bottom / 100};
  OpenHistogram(program, twin, room);
  program.CommandDone(twin.Autoscale);
  OpenHistogramWithFit(program, twin, room);
  PlaceEstimates(program, tour);
  for (const TermRow& term : TermsOf(program, twin, tour.Estimates.size())) {
    if (term.Weight <= 0.0) Fail("an estimate was not lifted from the axis");
  }
  Keep(program, program.View(twin.Histogram), output, std::string(tour.Name) + "_estimates");
  const std::string box = RunAutomaticFit(program, twin);
  Tell("Fitted the " + std::string(tour.Name) + "s; " +
       (box.empty() ? "the fit converged:" : "the program said: " + box));
  TellFit(program, twin);
  Keep(program, program.View(twin.Histogram), output, std::string(tour.Name) + "_histogram");
  Keep(program, program.View(twin.Fit), output, std::string(tour.Name) + "_fit");
}

void FitHistograms(const Program& program, const std::string& output) {
  const FitTour tours[] = {
      {kAmplitudeTwin,
       {.Minimum = 4.0, .Ticks = 5, .BinsPerTick = 20, .PerTick = 0.5},
       {{4.8, 0.8}},
       0,
       50,
       "amplitude"},
      {kDurationTwin,
       {.Minimum = -5.0},
       {{-3.6, 0.4}, {-2.6, 0.5}, {-0.9, 0.2}},
       50,
       100,
       "duration"},
  };
  for (const FitTour& tour : tours) FitOne(program, tour, output);
  SavePng(TakeScreen(program.Frame().Place()), output + "\\fits.png");
  Tell("  fits.png");
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
  Tell("Placing estimates on the histograms with the mouse, and fitting.");
  FitHistograms(program, output);
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
