// A fit of a toy model in open windows, and objectives whose every answer a test gives.
#pragma once

#include <gmock/gmock.h>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "fit/fit_driver.h"
#include "fit/toy_model.h"
#include "support/view_test.h"

namespace ondrel {

class DriverTest : public ViewTest {
 protected:
  static constexpr char kTooManyIterations[] =
      "Exceeded the maximum iteration. The fit did not converge.";
  static constexpr char kOutOfRange[] =
      "The estimated term(s) is outside of the visible range. Please remove these terms or give "
      "Ondrel a better initial estimate.";
  static constexpr char kAborted[] = "The fit has been aborted!";

  using Function = std::function<double(const std::vector<double>&)>;

  DriverTest() {
    toy::TheModel() = {};
    workspace().LiveDisplay = toy::kDisplay;
    OpenInert(ViewKind::AmplitudeFit);
    OpenInert(ViewKind::Amplitude);
    shell().WhileBoxStands = [](FrameWindow*) { toy::Note("box"); };
  }

  /// A problem with the unit directions.
  void SetProblem(const std::vector<double>& start, double tolerance, std::int32_t iterations) {
    problem_ = {.Workspace = &workspace(),
                .Operations = &toy::kOperations,
                .ParameterCount = static_cast<std::int32_t>(start.size()),
                .FitTolerance = tolerance,
                .FitIterations = iterations};
    for (std::size_t j = 0; j < start.size(); ++j) {
      problem_.Parameters[j] = start[j];
      problem_.Directions[j][j] = 1.0;
    }
  }

  void SetObjective(const Function& function) {
    const auto count = static_cast<std::size_t>(problem_.ParameterCount);
    toy::TheModel().Objective = [=](const ParameterVector& point) {
      return function({point.begin(), point.begin() + static_cast<std::ptrdiff_t>(count)});
    };
  }

  /// The points of line searches have the values of `onLines`, all others those of `given`, one
  /// after the other.
  void SetValues(const std::deque<double>& given, const Function& onLines) {
    SetObjective([=, rest = given](const std::vector<double>& point) mutable {
      const std::vector<std::string>& log = toy::TheModel().Log;
      if (log.size() >= 3 && log[log.size() - 3].ends_with("trial")) return onLines(point);
      EXPECT_FALSE(rest.empty()) << "an evaluation too many";
      if (rest.empty()) return 0.0;
      const double value = rest.front();
      rest.pop_front();
      return value;
    });
  }

  /// One step down of 10, from 100 at the origin.
  static double OneStep(const std::vector<double>& point) { return point[0] < 0.5 ? 100.0 : 90.0; }

  FitProblem& Problem() { return problem_; }

  /// Key presses that wait for the view's window.
  std::deque<int>& Keys(ViewKind kind) { return WindowOf(kind).Keys; }

  double Run() {
    double result = 0.0;
    RunFit(Frame(), problem_, result);
    return result;
  }

  static std::vector<std::string> Log() { return toy::WithoutTrials(toy::TheModel().Log); }

  /// The log from the last line that begins with `word`.
  static std::vector<std::string> LogFrom(const std::string& word) {
    const std::vector<std::string> log = Log();
    std::size_t first = log.size();
    for (std::size_t i = 0; i < log.size(); ++i) {
      if (log[i].starts_with(word)) first = i;
    }
    EXPECT_LT(first, log.size()) << "no " << word;
    return {log.begin() + static_cast<std::ptrdiff_t>(first), log.end()};
  }

  std::vector<double> Column(std::size_t index) {
    std::vector<double> column;
    for (std::size_t j = 0; j < static_cast<std::size_t>(problem_.ParameterCount); ++j) {
      column.push_back(problem_.Directions[j][index]);
    }
    return column;
  }

  /// Every way out ends like this.
  void ExpectEndedWith(const std::vector<std::string>& messages) {
    EXPECT_EQ(Messages(), messages);
    for (const scripted::Box& box : shell().Boxes) EXPECT_EQ(box.Owner, Frame());
    EXPECT_FALSE(shell().Waiting);
    EXPECT_EQ(shell().WaitCursorChanges, 2);
    EXPECT_EQ(toy::TheModel().Log.back(), "repaint Amplitude Histogram");
  }

 private:
  FitProblem problem_;
};

}  // namespace ondrel
