// Recordings for the plots, and the program ready for a look at one.
#include "plot_fixture.h"

#include "fitting_gestures.h"

namespace ondrel::e2e {
namespace {

constexpr double kRest = 1.1;  // s, closed behind the last opening

/// Open from `start` to `end`, then closed up to 4 s.
RecordedSweep OpenBetween(double start, double end) {
  return {.Before = start, .Openings = {{2.5, end - start, 4.0 - end}}};
}

}  // namespace

std::vector<RecordedSweep> MixedSweeps() {
  return {
      {.Relevant = 0.0,
       .Tag = 30.0,
       .Openings = {{1.37, 0.00013, 0.0071}, {2.05, 0.0000171, 0.31}, {0.61, 0.05, kRest}}},
      {.Relevant = 12.5,
       .Tag = 3.0,
       .Openings = {{3.33, 0.0029, 0.000057}, {3.9, 0.0237, 0.0031}, {1.1, 0.0008, kRest}}},
      // At the edge of the axis of values.
      {.Relevant = -5.0, .Tag = 7.0, .Openings = {{0.83, 0.00041, 0.0119}, {2.6, 0.17, kRest}}},
      // Beyond it on either side.
      {.Relevant = -5.4, .Tag = 8.0, .Openings = {{1.7, 0.0013, 0.00083}, {1.9, 0.0017, kRest}}},
      {.Relevant = 51.0, .Tag = 9.0, .Openings = {{1.6, 0.0061, 0.00023}, {1.8, 0.0007, kRest}}},
      // Above the axis of currents, and below and above those of durations.
      {.Relevant = 33.3,
       .Tag = -2.0,
       .Openings = {{4.7, 0.0047, 0.0021}, {2.2, 0.000006, 0.29}, {1.23, 0.0035, kRest}}},
  };
}

std::vector<RecordedSweep> SteadySweeps() {
  std::vector<RecordedSweep> sweeps(6, OpenBetween(0.000001, 3.999));
  sweeps.push_back(OpenBetween(0.9, 3.999));
  sweeps.push_back(OpenBetween(0.000001, 2.2));
  sweeps.push_back(OpenBetween(1.2, 1.25));
  return sweeps;
}

void PlotTest::Open(const std::vector<RecordedSweep>& sweeps) {
  program_.PassStart();
  program_.PlaceFrame({8, 8, GetSystemMetrics(SM_CXSCREEN) - 8, GetSystemMetrics(SM_CYSCREEN) - 8});
  OpenTable(program_, VersionFiveOfSweeps(sweeps));
}

void PlotTest::Show(const PlotKind& kind) {
  program_.Command(kind.View);
  program_.WaitForTopView(kind.Title);
  PlaceView(program_, kind.Title, {10, 10, 577, 690});
}

void PlotTest::Keep(const PlotKind& kind, const Picture& picture, const std::string& what) const {
  const std::string folder = Environment("ONDREL_PICTURES");
  if (folder.empty()) return;
  SavePng(picture, NativePath(folder) + "\\" + what + "_" + kind.Name + ".png");
}

}  // namespace ondrel::e2e
