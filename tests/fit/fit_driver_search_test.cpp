// Whole fits: to known minima, and evaluation by evaluation as the obvious implementation makes
// them.
#include <gmock/gmock.h>

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

#include "fit/driver_fixture.h"
#include "fit/reference_minimiser.h"
#include "support/random_seed.h"

namespace ondrel {
namespace {

using ::testing::DoubleNear;
using ::testing::Pointwise;

class FitDriverSearchTest : public DriverTest {
 protected:
  /// The least value is 1, so that the tolerance is reached by its size.
  void ExpectMinimum(const Function& function, const std::vector<double>& start,
                     const std::vector<double>& expected, double precision) {
    SetProblem(start, 1e-13, 100);
    SetObjective([&](const std::vector<double>& point) { return 1.0 + function(point); });
    Run();
    EXPECT_TRUE(Messages().empty());
    const std::vector<double> found(
        Problem().Parameters.begin(),
        Problem().Parameters.begin() + static_cast<std::ptrdiff_t>(start.size()));
    EXPECT_THAT(found, Pointwise(DoubleNear(precision), expected));
  }
};

double Square(double x) {
  return x * x;
}

double Rosenbrock(const std::vector<double>& x) {
  return 100.0 * Square(x[1] - Square(x[0])) + Square(1.0 - x[0]);
}

/// Powell 1962; the matrix of its second derivatives is singular at the minimum.
double PowellSingular(const std::vector<double>& x) {
  return Square(x[0] + 10.0 * x[1]) + 5.0 * Square(x[2] - x[3]) +
         Square(Square(x[1] - 2.0 * x[2])) + 10.0 * Square(Square(x[0] - x[3]));
}

double Wood(const std::vector<double>& x) {
  return Rosenbrock(x) + 90.0 * Square(x[3] - Square(x[2])) + Square(1.0 - x[2]) +
         10.1 * (Square(x[1] - 1.0) + Square(x[3] - 1.0)) + 19.8 * (x[1] - 1.0) * (x[3] - 1.0);
}

TEST_F(FitDriverSearchTest, FindsTheMinimumOfAQuadraticWithSkewAxes) {
  ExpectMinimum(
      [](const std::vector<double>& x) {
        return 3.0 * Square(x[0] - 4.0) + 2.0 * Square(x[1] + 1.0) + Square(x[2] - 0.5) +
               4.0 * (x[0] - 4.0) * (x[1] + 1.0) + (x[1] + 1.0) * (x[2] - 0.5);
      },
      {-5.0, 10.0, 3.0}, {4.0, -1.0, 0.5}, 1e-5);
}

TEST_F(FitDriverSearchTest, FindsTheEndOfRosenbrocksValley) {
  ExpectMinimum(Rosenbrock, {-1.2, 1.0}, {1.0, 1.0}, 1e-5);
}

TEST_F(FitDriverSearchTest, FindsTheMinimumOfPowellsSingularFunction) {
  // The value grows with the fourth power only.
  ExpectMinimum(PowellSingular, {3.0, -1.0, 0.0, 1.0}, {0.0, 0.0, 0.0, 0.0}, 3e-3);
}

TEST_F(FitDriverSearchTest, FindsTheMinimumOfWoodsFunction) {
  ExpectMinimum(Wood, {-3.0, -1.0, -3.0, -1.0}, {1.0, 1.0, 1.0, 1.0}, 1e-4);
}

TEST_F(FitDriverSearchTest, AQuadraticOfTwoParametersNeedsFewPasses) {
  // Powell's directions become conjugate: without their replacement each pass gains a fifth only.
  SetProblem({20.0, -7.0}, 1e-12, 100);
  SetObjective([](const std::vector<double>& x) {
    return 1.0 + Square(x[0] - x[1]) + 0.01 * Square(x[0] + x[1] - 2.0);
  });
  Run();
  EXPECT_LE(toy::TheModel().Shown.size(), 6u);
  EXPECT_NEAR(Problem().Parameters[0], 1.0, 1e-4);
}

std::vector<std::uint64_t> Bits(const std::vector<double>& values) {
  std::vector<std::uint64_t> bits;
  for (const double value : values) bits.push_back(std::bit_cast<std::uint64_t>(value));
  return bits;
}

/// Valleys, waves, creases and plateaus in some dimensions.
reference::Function DrawFunction(std::size_t count, std::mt19937_64& random) {
  std::uniform_real_distribution<double> unit(-1.0, 1.0);
  std::vector<std::vector<double>> axes(count, std::vector<double>(count));
  std::vector<double> center(count);
  for (std::size_t i = 0; i < count; ++i) {
    for (double& entry : axes[i]) entry = 3.0 * unit(random);
    center[i] = 10.0 * unit(random);
  }
  const auto kind = random() % 4;
  const double height = 5.0 * unit(random);
  return [=](const std::vector<double>& point) {
    double sum = 1.0;
    for (std::size_t i = 0; i < count; ++i) {
      double x = 0.0;
      for (std::size_t j = 0; j < count; ++j) x += axes[i][j] * (point[j] - center[j]);
      switch (kind) {
        case 0:
          sum += x * x;
          break;
        case 1:
          sum += x * x + height * std::sin(x);
          break;
        case 2:
          sum += std::fabs(x) * std::sqrt(std::fabs(x));
          break;
        default:
          sum += std::floor(x * x);
      }
    }
    return sum;
  };
}

TEST_F(FitDriverSearchTest, EveryEvaluationIsThatOfTheObviousImplementation) {
  reference::Ways ways;
  for (const std::uint64_t seed : {std::uint64_t{1}, RandomSeed()}) {
    std::mt19937_64 random(seed);
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    for (int trial = 0; trial < 150; ++trial) {
      const std::size_t count = 1 + random() % 5;
      const int limit = 2 + static_cast<int>(random() % 12);
      std::vector<double> start(count);
      for (double& entry : start) entry = 10.0 * unit(random);
      reference::Logged function{.F = DrawFunction(count, random), .Asked = {}};
      toy::TheModel() = {};
      SetProblem(start, 1e-6, limit);
      SetObjective(function.F);
      std::vector<std::vector<double>> directions(count, std::vector<double>(count, 0.0));
      for (std::size_t j = 0; j < count; ++j) {
        Problem().Directions[j][j] = directions[j][j] = std::exp(2.0 * unit(random));
      }
      Run();
      const reference::FitResult expected =
          reference::Fit(function, start, directions, 1e-6, limit, ways);
      ASSERT_EQ(toy::TheModel().Evaluated.size(), function.Asked.size()) << "seed " << seed;
      for (std::size_t i = 0; i < function.Asked.size(); ++i) {
        const ParameterVector& point = toy::TheModel().Evaluated[i];
        const std::vector<double> asked(point.begin(),
                                        point.begin() + static_cast<std::ptrdiff_t>(count));
        ASSERT_EQ(Bits(asked), Bits(function.Asked[i])) << "seed " << seed << ", evaluation " << i;
      }
      for (std::size_t i = 0; i < count; ++i) {
        ASSERT_EQ(Bits(Column(i)), Bits(expected.Directions[i])) << "seed " << seed;
      }
      ASSERT_EQ(toy::TheModel().Shown.size(), static_cast<std::size_t>(expected.Passes));
    }
  }
  for (const char* way : {"extrapolated higher", "direction kept", "direction replaced"}) {
    EXPECT_GT(ways[way], 0) << way;
  }
}

}  // namespace
}  // namespace ondrel
