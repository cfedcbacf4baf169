#include <cstddef>
#include <cstdio>
#include <string>
#include <vector>

#include "fitting_gestures.h"
#include "tour_steps.h"

namespace ondrel::e2e {
namespace {

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

}  // namespace

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
  KeepFrame(program, output, "fits");
}

}  // namespace ondrel::e2e
