// A model for the minimiser whose objective is any function, and a display that only stores: both
// write down what they are asked.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "fit/fit_operations.h"
#include "support/scripted_shell.h"
#include "views/view_kinds.h"
#include "workspace/workspace.h"

namespace ondrel::toy {

struct Model {
  std::function<double(const ParameterVector&)> Objective;
  std::function<void(ParameterVector&, std::int32_t)> Normalise;     // none: nothing happens
  std::function<std::int32_t(ParameterVector&, std::int32_t)> Show;  // none: answers 0
  bool ForbidsNegative = false;  // as the models do for all but a Current
  bool Amplitude = true;
  bool RepaintsAmplitude = true;

  /// One line a call; a star in front while the wait cursor is shown.
  std::vector<std::string> Log;
  std::vector<ParameterVector> Evaluated;
  std::vector<ParameterVector> Applied;  // the direction after each ApplyStep
  std::vector<ParameterVector> Shown;
  std::vector<ParameterVector> TrialDirections;
};

inline Model& TheModel() {
  static Model model;
  return model;
}

inline void Note(const std::string& line) {
  TheModel().Log.push_back((scripted::TheShell().Waiting ? "*" : "") + line);
}

namespace slots {

inline constexpr double kFloor = 1e-30;

inline void ApplyStep(ParameterVector& point, ParameterVector& direction, std::int32_t count,
                      double step) {
  Note("apply");
  for (std::size_t j = 0; j < static_cast<std::size_t>(count); ++j) {
    direction[j] *= step;
    point[j] += direction[j];
    if (TheModel().ForbidsNegative && point[j] < kFloor) point[j] = kFloor;
  }
  TheModel().Applied.push_back(direction);
}

inline void NormaliseWeights(ParameterVector& point, std::int32_t count) {
  Note("normalise");
  if (TheModel().Normalise) TheModel().Normalise(point, count);
}

inline double NegativeLogLikelihood(const AmplitudeHistogram&, const DurationHistogram&,
                                    const ParameterVector& point) {
  Note("value");
  TheModel().Evaluated.push_back(point);
  return TheModel().Objective(point);
}

inline bool TrialPoint(double step, std::int32_t count, const ParameterVector& point,
                       const ParameterVector& direction, ParameterVector& result) {
  Note("trial");
  TheModel().TrialDirections.push_back(direction);
  bool broken = false;
  for (std::size_t j = 0; j < static_cast<std::size_t>(count); ++j) {
    result[j] = step * direction[j] + point[j];
    if (TheModel().ForbidsNegative && result[j] < 0.0) broken = true;
  }
  return broken;
}

inline bool Extrapolate(ParameterVector& extrapolated, std::int32_t count, ParameterVector& saved,
                        const ParameterVector& point, ParameterVector& direction) {
  Note("extrapolate");
  bool broken = false;
  for (std::size_t j = 0; j < static_cast<std::size_t>(count); ++j) {
    extrapolated[j] = 2.0 * point[j] - saved[j] + kFloor;
    direction[j] = point[j] - saved[j];
    saved[j] = point[j];
    if (TheModel().ForbidsNegative && extrapolated[j] < kFloor) broken = true;
  }
  return broken;
}

inline bool IsAmplitude() {
  return TheModel().Amplitude;
}
inline bool RepaintsAmplitude() {
  return TheModel().RepaintsAmplitude;
}

inline std::int32_t Show(const char* word, ParameterVector& point, std::int32_t iteration) {
  Note(std::string("show ") + word + " " + std::to_string(iteration));
  const std::int32_t answer = TheModel().Show ? TheModel().Show(point, iteration) : 0;
  TheModel().Shown.push_back(point);
  return answer;
}
inline std::int32_t ShowAmplitudeIteration(Workspace&, ParameterVector& point,
                                           std::int32_t iteration) {
  return Show("amplitude", point, iteration);
}
inline std::int32_t ShowDurationIteration(Workspace&, ParameterVector& point,
                                          std::int32_t iteration) {
  return Show("duration", point, iteration);
}
inline void RepaintView(Workspace&, ViewKind view) {
  Note(std::string("repaint ") + FactsOf(view).Title);
}

}  // namespace slots

inline constexpr FitOperations kOperations = {
    .ApplyStep = slots::ApplyStep,
    .NormaliseWeights = slots::NormaliseWeights,
    .NegativeLogLikelihood = slots::NegativeLogLikelihood,
    .TrialPoint = slots::TrialPoint,
    .Extrapolate = slots::Extrapolate,
    .IsAmplitude = slots::IsAmplitude,
    .RepaintsAmplitude = slots::RepaintsAmplitude,
};

inline constexpr FitDisplay kDisplay = {
    .ShowAmplitudeIteration = slots::ShowAmplitudeIteration,
    .ShowDurationIteration = slots::ShowDurationIteration,
    .RepaintView = slots::RepaintView,
};

/// The log with each run of trials of a line search as the one word "line".
inline std::vector<std::string> WithoutTrials(const std::vector<std::string>& log) {
  std::vector<std::string> lines;
  for (std::size_t i = 0; i < log.size(); ++i) {
    if (!log[i].ends_with("trial")) {
      lines.push_back(log[i]);
      continue;
    }
    const std::string word = (log[i].starts_with("*") ? "*" : "") + std::string("line");
    if (lines.empty() || lines.back() != word) lines.push_back(word);
    const bool evaluated =
        i + 2 < log.size() && log[i + 1].ends_with("normalise") && log[i + 2].ends_with("value");
    if (evaluated) i += 2;
  }
  return lines;
}

}  // namespace ondrel::toy
