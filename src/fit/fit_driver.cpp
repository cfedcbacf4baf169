#include "fit/fit_driver.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "fit/direction_set.h"
#include "fit/fit_models.h"
#include "shell/keys.h"
#include "shell/toolkit.h"
#include "workspace/report.h"

namespace ondrel {
namespace {

// Lengths of the directions with which a fit begins.
constexpr double kFirstWeightStep = 1.0;
constexpr double kFirstStdDevStep = 1.0;  // pA
constexpr double kTimeConstantParts = 3.0;

std::size_t CountOf(const FitProblem& problem) {
  return static_cast<std::size_t>(problem.ParameterCount);
}

double ValueAt(const FitProblem& problem, const ParameterVector& point) {
  return problem.Operations->NegativeLogLikelihood(problem.Workspace->Amplitude,
                                                   problem.Workspace->Duration, point);
}

ParameterVector DirectionAt(const FitProblem& problem, std::size_t index) {
  ParameterVector direction{};
  for (std::size_t j = 0; j < CountOf(problem); ++j) {
    direction[j] = problem.Directions[j][index];
  }
  return direction;
}

// --- What is shown ----------------------------------------------------------------------------

/// Takes the present point into the model's terms, which happens nowhere else: the terms stay as
/// they were shown at the beginning of the last pass.
std::int32_t ShowIteration(FitProblem& problem, std::int32_t pass) {
  Workspace& workspace = *problem.Workspace;
  const auto show = problem.Operations->IsAmplitude() ? workspace.LiveDisplay.ShowAmplitudeIteration
                                                      : workspace.LiveDisplay.ShowDurationIteration;
  return show(workspace, problem.Parameters, pass);
}

bool IsAborted(const FitProblem& problem) {
  const ViewKind view =
      problem.Operations->IsAmplitude() ? ViewKind::Amplitude : ViewKind::Duration;
  return PollAbortKey(*problem.Workspace, view);
}

ViewKind RepaintedHistogram(const FitProblem& problem) {
  return problem.Operations->RepaintsAmplitude() ? ViewKind::Amplitude : ViewKind::Duration;
}

void RepaintHistogram(const FitProblem& problem) {
  problem.Workspace->LiveDisplay.RepaintView(*problem.Workspace, RepaintedHistogram(problem));
}

void RepaintParameters(const FitProblem& problem) {
  problem.Workspace->LiveDisplay.RepaintView(*problem.Workspace,
                                             FitViewOf(RepaintedHistogram(problem)));
}

// --- A pass -----------------------------------------------------------------------------------

/// What a pass along all directions came to.
struct PassResult {
  double StartValue = 0.0;
  double LargestDecrease = 0.0;
  std::size_t LargestIndex = 0;  // of the direction with that decrease
};

/// Shows the point that has been reached. False when the fit is to end there; the user then knows
/// why.
bool BeginPass(FrameWindow* window, FitProblem& problem, std::int32_t pass) {
  if (pass >= problem.FitIterations) {
    ReportFailure(window, {TextId::TooManyIterations});
    return false;
  }
  if (ShowIteration(problem, pass) < 0) {
    ReportFailure(window, {TextId::TermsOutOfRange});
    return false;
  }
  if (IsAborted(problem)) {
    ReportFailure(window, {TextId::FitAborted});
    return false;
  }
  return true;
}

/// The value is taken anew before each line: the point may have been brought back to a floor, to
/// the axis or to weights that sum to 1 since the last one.
PassResult SearchAllDirections(FitProblem& problem, double& value) {
  value = ValueAt(problem, problem.Parameters);
  PassResult outcome{.StartValue = value};
  for (std::size_t i = 0; i < CountOf(problem); ++i) {
    ParameterVector direction = DirectionAt(problem, i);
    value = ValueAt(problem, problem.Parameters);
    const double before = value;
    LineMinimise(*problem.Workspace, *problem.Operations, problem.Parameters, direction,
                 problem.ParameterCount, value);
    const double decrease = std::fabs(before - value);
    if (decrease > outcome.LargestDecrease) {
      outcome.LargestDecrease = decrease;
      outcome.LargestIndex = i;
    }
  }
  return outcome;
}

bool HasConverged(const FitProblem& problem, double startValue, double value) {
  return !(2.0 * std::fabs(startValue - value) >
           problem.FitTolerance * (std::fabs(startValue) + std::fabs(value)));
}

double ExtrapolatedValue(const FitProblem& problem, ParameterVector& saved,
                         ParameterVector& direction) {
  ParameterVector extrapolated{};
  if (problem.Operations->Extrapolate(extrapolated, problem.ParameterCount, saved,
                                      problem.Parameters, direction)) {
    return kPenalty;
  }
  problem.Operations->NormaliseWeights(extrapolated, problem.ParameterCount);
  return ValueAt(problem, extrapolated);
}

/// The last direction takes the place of that of the largest decrease and makes room for a new one.
void ReplaceDirection(FitProblem& problem, std::size_t index, const ParameterVector& direction) {
  const std::size_t last = CountOf(problem) - 1;
  for (std::size_t j = 0; j < CountOf(problem); ++j) {
    problem.Directions[j][index] = problem.Directions[j][last];
    problem.Directions[j][last] = direction[j];
  }
}

/// Looks as far again along the average direction of the pass, from `saved`, where it began. If
/// that promises more (Powell 1964) the point goes to the minimum along it, and the direction,
/// scaled by the step that this took, joins the set. `saved` moves up to where the pass ended.
void TryAverageDirection(FitProblem& problem, const PassResult& outcome, ParameterVector& saved,
                         double& value) {
  ParameterVector direction{};
  const double extrapolated = ExtrapolatedValue(problem, saved, direction);
  if (!(outcome.StartValue > extrapolated)) return;
  const double reached = ValueAt(problem, problem.Parameters);
  const double rest = outcome.StartValue - reached - outcome.LargestDecrease;
  const double gain = outcome.StartValue - extrapolated;
  const double test = 2.0 * (outcome.StartValue - 2.0 * reached + extrapolated) * rest * rest -
                      gain * outcome.LargestDecrease * gain;
  if (!(test < 0.0)) return;
  LineMinimise(*problem.Workspace, *problem.Operations, problem.Parameters, direction,
               problem.ParameterCount, value);
  ReplaceDirection(problem, outcome.LargestIndex, direction);
}

// --- Setting up -------------------------------------------------------------------------------

bool CanFit(const Workspace& workspace, ViewKind histogramView, const BinRecord* bins) {
  return ViewOf(workspace, histogramView).Window != nullptr &&
         ViewOf(workspace, FitViewOf(histogramView)).Window != nullptr && bins != nullptr;
}

template <typename Histogram>
FitProblem SetUpProblem(Workspace& workspace, const Histogram& histogram,
                        const FitOperations& model) {
  return {.Workspace = &workspace,
          .Operations = &model,
          .Parameters = ParametersOf(histogram),
          .ParameterCount = CountParameters(histogram),
          .FitTolerance = histogram.FitTolerance,
          .FitIterations = std::max(histogram.FitIterations, 1)};
}

}  // namespace

void RunFit(FrameWindow* window, FitProblem& problem, double& result) {
  problem.Operations->NormaliseWeights(problem.Parameters, problem.ParameterCount);
  ParameterVector saved = problem.Parameters;
  toolkit::SetWaitCursor(true);
  problem.Workspace->LineSearchLimit = problem.FitIterations;
  for (std::int32_t pass = 0; BeginPass(window, problem, pass); ++pass) {
    const PassResult outcome = SearchAllDirections(problem, result);
    if (HasConverged(problem, outcome.StartValue, result)) {
      RepaintHistogram(problem);
      RepaintParameters(problem);
      break;
    }
    TryAverageDirection(problem, outcome, saved, result);
  }
  toolkit::SetWaitCursor(false);
  RepaintHistogram(problem);
}

bool PollAbortKey(Workspace& workspace, ViewKind view) {
  ChildWindow* const window = ViewOf(workspace, view).Window;
  if (window == nullptr) return false;
  int key = 0;
  while (toolkit::ActiveChild(workspace.Frame) == window && toolkit::TakeKeyDown(window, &key)) {
    if (key == kKeyBreak) return true;
  }
  return false;
}

void FitAmplitude(FrameWindow* frame) {
  Workspace& workspace = *frame->Owner;
  const AmplitudeHistogram& histogram = workspace.Amplitude;
  if (!CanFit(workspace, ViewKind::Amplitude, histogram.Bins)) return;
  FitProblem problem = SetUpProblem(workspace, histogram, workspace.AmplitudeModel);
  for (std::size_t k = 0; k < CountOf(problem); k += kParametersPerAmplitudeTerm) {
    problem.Directions[k][k] = kFirstWeightStep;
    problem.Directions[k + 1][k + 1] = histogram.PerTick;
    problem.Directions[k + 2][k + 2] = kFirstStdDevStep;
  }
  double value = 0.0;
  RunFit(frame, problem, value);
}

void FitDuration(FrameWindow* frame) {
  Workspace& workspace = *frame->Owner;
  const DurationHistogram& histogram = workspace.Duration;
  if (!CanFit(workspace, ViewKind::Duration, histogram.Bins)) return;
  FitProblem problem = SetUpProblem(workspace, histogram, workspace.DurationModel);
  for (std::size_t k = 0; k < CountOf(problem); k += kParametersPerDurationTerm) {
    problem.Directions[k][k] = problem.Parameters[k] / kTimeConstantParts;
    problem.Directions[k + 1][k + 1] = kFirstWeightStep;
  }
  double value = 0.0;
  RunFit(frame, problem, value);
}

}  // namespace ondrel
