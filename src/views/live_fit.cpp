#include "views/live_fit.h"

#include <cstdio>

#include "fit/fit_models.h"
#include "views/fit_views.h"
#include "views/histogram_window.h"
#include "views/view_window.h"
#include "workspace/workspace.h"

namespace ondrel {
namespace {

/// Both windows are drawn at once: no message is dispatched while a fit runs.
template <typename Histogram>
std::int32_t ShowIteration(Workspace& workspace, Histogram& histogram, ViewKind histogramView,
                           ParameterVector& point, std::int32_t iteration) {
  const std::int32_t status = StoreTerms(histogram, point);
  char note[40] = "";
  std::snprintf(note, sizeof note, "Iteration:  %d", static_cast<int>(iteration) + 1);
  RedrawHistogram(workspace, histogramView, note);
  RedrawFitViewOnWhite(workspace, FitViewOf(histogramView));
  return status;
}

std::int32_t ShowAmplitudeIteration(Workspace& workspace, ParameterVector& point,
                                    std::int32_t iteration) {
  return ShowIteration(workspace, workspace.Amplitude, ViewKind::Amplitude, point, iteration);
}

std::int32_t ShowDurationIteration(Workspace& workspace, ParameterVector& point,
                                   std::int32_t iteration) {
  return ShowIteration(workspace, workspace.Duration, ViewKind::Duration, point, iteration);
}

}  // namespace

const FitDisplay kLiveDisplay = {
    .ShowAmplitudeIteration = ShowAmplitudeIteration,
    .ShowDurationIteration = ShowDurationIteration,
    .RepaintView = RepaintView,
};

}  // namespace ondrel
