// "&Automatic Fit": the direction-set method from the user's estimates, watched pass by pass. It
// runs inside the command; nothing is dispatched before it ends.
#pragma once

#include <cstdint>

#include "fit/fit_operations.h"
#include "workspace/workspace.h"

namespace ondrel {

struct FitProblem {
  ondrel::Workspace* Workspace = nullptr;
  const FitOperations* Operations = nullptr;
  ParameterVector Parameters{};  // the present point
  DirectionSet Directions{};
  std::int32_t ParameterCount = 0;
  double FitTolerance = 0.0;
  std::int32_t FitIterations = 0;
};

/// Minimises from `Parameters`, in passes. A fit converges quietly; a limit, terms outside of the
/// axis and the abort key are told. The terms of the last pass that was shown stay, however the fit
/// ends. `window` owns the message boxes; `result` is where the present value is kept.
void RunFit(FrameWindow* window, FitProblem& problem, double& result);

/// True when Control-Break was pressed in the view. Its other key presses are thrown away. Nothing
/// is read while the view is not the top child.
bool PollAbortKey(Workspace& workspace, ViewKind view);

/// The commands. Nothing happens unless the histogram is counted and its view and the view of its
/// fit parameters are open.
void FitAmplitude(FrameWindow* frame);
void FitDuration(FrameWindow* frame);

}  // namespace ondrel
