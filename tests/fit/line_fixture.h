// A line through 0 in the direction 1, whose points are its steps, and functions on it.
#pragma once

#include <gmock/gmock.h>

#include <cstdint>
#include <deque>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "fit/direction_set.h"
#include "fit/toy_model.h"
#include "support/shell_test.h"

namespace ondrel {

inline constexpr double kInfinity = std::numeric_limits<double>::infinity();
inline constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

class LineTest : public ShellTest {
 protected:
  LineTest() { toy::TheModel() = {}; }
  ~LineTest() override { EXPECT_TRUE(shell().Boxes.empty()); }

  void SetLine(const std::function<double(double)>& function) {
    toy::TheModel() = {};
    toy::TheModel().Objective = [function](const ParameterVector& point) {
      return function(point[0]);
    };
  }

  /// Each evaluation has the next value; more than these fail the test.
  void SetValues(std::deque<double> values) {
    SetLine([values](double) mutable {
      EXPECT_FALSE(values.empty()) << "an evaluation too many";
      if (values.empty()) return 0.0;
      const double value = values.front();
      values.pop_front();
      return value;
    });
  }

  const SearchLine& Line() { return line_; }

  static std::vector<double> Steps() {
    std::vector<double> steps;
    for (const ParameterVector& point : toy::TheModel().Evaluated) steps.push_back(point[0]);
    return steps;
  }

  Bracket BracketOf(const std::deque<double>& values) {
    SetValues(values);
    const Bracket bracket = BracketMinimum(line_, 0.0, 1.0);
    EXPECT_EQ(toy::TheModel().Evaluated.size(), values.size());
    return bracket;
  }

  static void ExpectBracket(const Bracket& bracket, const std::vector<double>& steps,
                            const std::vector<double>& values) {
    EXPECT_THAT((std::vector{bracket.A.Step, bracket.B.Step, bracket.C.Step}),
                ::testing::Pointwise(::testing::DoubleEq(), steps));
    EXPECT_THAT((std::vector{bracket.A.Value, bracket.B.Value, bracket.C.Value}),
                ::testing::Pointwise(::testing::DoubleEq(), values));
  }

  LinePoint BrentOf(const std::function<double(double)>& function, double a, double b, double c,
                    std::int32_t iterations) {
    SetLine(function);
    return BrentMinimise(line_,
                         {.A = {a, function(a)}, .B = {b, function(b)}, .C = {c, function(c)}},
                         1e-40, iterations);
  }

  ParameterVector point_{};
  ParameterVector direction_{1.0};
  SearchLine line_{workspace(), toy::kOperations, point_, direction_, 1};
};

}  // namespace ondrel
