// Fits of the two mixtures to counted levels, with a display that only stores the terms.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "fit/amplitude_histogram.h"
#include "fit/duration_histogram.h"
#include "fit/fit_driver.h"
#include "fit/fit_models.h"
#include "support/view_test.h"

namespace ondrel {

class ModelFitTest : public ViewTest {
 protected:
  ModelFitTest() {
    workspace().AmplitudeModel = kAmplitudeModel;
    workspace().DurationModel = kDurationModel;
    workspace().LiveDisplay = {.ShowAmplitudeIteration = StoreAmplitude,
                               .ShowDurationIteration = StoreDuration,
                               .RepaintView = RepaintNothing};
    for (const ViewKind kind :
         {ViewKind::AmplitudeFit, ViewKind::Amplitude, ViewKind::DurationFit, ViewKind::Duration}) {
      OpenInert(kind);
    }
    passes_ = 0;
  }

  AmplitudeHistogram& Amplitude() { return workspace().Amplitude; }
  DurationHistogram& Duration() { return workspace().Duration; }

  void CountAmplitudes(const std::vector<double>& picoamperes) {
    FillLevels(static_cast<std::int32_t>(picoamperes.size()),
               [&](LevelRecord& level, std::int32_t row) {
                 level.Amplitude = picoamperes[static_cast<std::size_t>(row)] * 1e-12;
               });
    BuildAmplitudeHistogram(workspace());
  }

  void CountDurations(const std::vector<double>& seconds) {
    FillLevels(static_cast<std::int32_t>(seconds.size()),
               [&](LevelRecord& level, std::int32_t row) {
                 level.Duration = seconds[static_cast<std::size_t>(row)];
               });
    BuildDurationHistogram(workspace());
  }

  void SetTerms(const std::vector<AmplitudeTerm>& terms) {
    Amplitude().TermCount = static_cast<std::int32_t>(terms.size());
    for (std::size_t i = 0; i < terms.size(); ++i) Amplitude().Terms[i] = terms[i];
  }
  void SetTerms(const std::vector<DurationTerm>& terms) {
    Duration().TermCount = static_cast<std::int32_t>(terms.size());
    for (std::size_t i = 0; i < terms.size(); ++i) Duration().Terms[i] = terms[i];
  }

  /// How often a pass was shown.
  static int Passes() { return passes_; }

 private:
  static std::int32_t StoreAmplitude(Workspace& workspace, ParameterVector& point, std::int32_t) {
    ++passes_;
    return StoreTerms(workspace.Amplitude, point);
  }
  static std::int32_t StoreDuration(Workspace& workspace, ParameterVector& point, std::int32_t) {
    ++passes_;
    return StoreTerms(workspace.Duration, point);
  }
  static void RepaintNothing(Workspace&, ViewKind) {}

  static inline int passes_ = 0;
};

}  // namespace ondrel
