#include "views/live_fit.h"

#include <cstdio>

#include "fit/fit_models.h"
#include "views/fit_views.h"
#include "views/histogram_window.h"
#include "views/view_window.h"
#include "workspace/workspace.h"

namespace ondrel {
namespace {

struct ShownModel {
  ViewKind HistogramView;
  ViewKind FitView;
};
constexpr ShownModel kAmplitude = {ViewKind::Amplitude, ViewKind::AmplitudeFit};
constexpr ShownModel kDuration = {ViewKind::Duration, ViewKind::DurationFit};

/// Both windows are drawn at once: no message is dispatched while a fit runs.
template <typename Histogram>
std::int32_t ShowIteration(Workspace& workspace, Histogram& histogram, const ShownModel& model,
                           ParameterVector& point, std::int32_t iteration) {
  const std::int32_t status = StoreTerms(histogram, point);
  char note[40] = "";
  std::snprintf(note, sizeof note, "Iteration:  %d", static_cast<int>(iteration) + 1);
  RedrawHistogram(workspace, model.HistogramView, note);
  RedrawFitView(workspace, model.FitView);
  return status;
}

std::int32_t ShowAmplitudeIteration(Workspace& workspace, ParameterVector& point,
                                    std::int32_t iteration) {
  return ShowIteration(workspace, workspace.Amplitude, kAmplitude, point, iteration);
}

std::int32_t ShowDurationIteration(Workspace& workspace, ParameterVector& point,
                                   std::int32_t iteration) {
  return ShowIteration(workspace, workspace.Duration, kDuration, point, iteration);
}

}  // namespace

const FitDisplay kLiveDisplay = {
    .ShowAmplitudeIteration = ShowAmplitudeIteration,
    .ShowDurationIteration = ShowDurationIteration,
    .RepaintView = RepaintView,
};

}  // namespace ondrel
