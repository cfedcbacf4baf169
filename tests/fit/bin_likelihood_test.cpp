#include "fit/bin_likelihood.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

/// Bins from 1 on; the edges are their numbers.
class BinLikelihoodTest : public ::testing::Test {
 protected:
  void SetBins(const std::vector<int>& counts, const std::vector<int>& excluded = {}) {
    bins_.assign(counts.size() + 2, {99, 0.0, 0});
    edges_.clear();
    for (std::size_t i = 0; i < counts.size(); ++i) bins_[i + 1].Count = counts[i];
    for (std::size_t i = 0; i <= counts.size(); ++i) edges_.push_back(static_cast<double>(i + 1));
    for (const int bin : excluded) bins_[static_cast<std::size_t>(bin)].Flags = kExcludedBin;
  }

  BinsOnAxis Axis() const {
    return {bins_.data(), edges_.data(), static_cast<std::int64_t>(edges_.size()) - 1};
  }

  std::vector<std::pair<int, int>> Runs() const {
    std::vector<std::pair<int, int>> runs;
    ForEachVisibleRun(Axis(), [&runs](std::int64_t first, std::int64_t end) {
      runs.emplace_back(static_cast<int>(first), static_cast<int>(end));
    });
    return runs;
  }

  /// The sum when bin i has the probability `probabilities`[i - 1], and the bins asked for.
  double Sum(const std::vector<double>& probabilities) {
    asked_.clear();
    return SumOfLogs(Axis(), [&](const double* edges, std::size_t count, BinNumbers& result) {
      for (std::size_t i = 0; i < count; ++i) {
        const auto bin = static_cast<std::size_t>(edges[i]);
        EXPECT_EQ(edges[i + 1], edges[i] + 1.0);
        asked_.push_back(static_cast<int>(bin));
        result[i] = probabilities[bin - 1];
      }
    });
  }

  std::vector<int> asked_;

 private:
  std::vector<BinRecord> bins_;
  std::vector<double> edges_;
};

TEST_F(BinLikelihoodTest, RunsLieBetweenTheExcludedBins) {
  SetBins({1, 0, 1, 1, 1, 1, 1}, {2, 5, 6});
  EXPECT_THAT(Runs(), ElementsAre(Pair(1, 2), Pair(3, 5), Pair(7, 8)));
  SetBins({1, 0, 1}, {1, 3});
  EXPECT_THAT(Runs(), ElementsAre(Pair(2, 3)));
  SetBins({1, 0, 1});
  EXPECT_THAT(Runs(), ElementsAre(Pair(1, 4))) << "bins beside the axis belong to no run";
  SetBins({1, 0, 1}, {1, 2, 3});
  EXPECT_THAT(Runs(), IsEmpty());
}

TEST_F(BinLikelihoodTest, OnlyBinsThatHoldEventsAreAskedFor) {
  SetBins({2, 0, 1, 5, 0, 3, 0}, {4});
  const double sum = Sum({0.5, 0.1, 0.25, 0.1, 0.1, 0.125, 0.1});
  EXPECT_THAT(asked_, ElementsAre(1, 3, 6));
  EXPECT_DOUBLE_EQ(sum, -(2.0 + 2.0 + 9.0) * std::log(2.0));
}

TEST_F(BinLikelihoodTest, AProbabilityThatIsNotAboveZeroCostsTwelveThousand) {
  SetBins({1, 2, 3, 4});
  EXPECT_EQ(Sum({0.0, -0.5, kNan, 1.0}), -72000.0);
}

TEST_F(BinLikelihoodTest, NoBinIsLostBetweenOneStretchAndTheNext) {
  for (int bins = 1; bins <= 200; ++bins) {
    SetBins(std::vector<int>(static_cast<std::size_t>(bins), 1));
    EXPECT_NEAR(Sum(std::vector<double>(static_cast<std::size_t>(bins), 0.5)),
                -bins * std::log(2.0), 1e-12);
    ASSERT_EQ(asked_.size(), static_cast<std::size_t>(bins));
    for (int i = 0; i < bins; ++i) EXPECT_EQ(asked_[static_cast<std::size_t>(i)], i + 1);
  }
}

TEST_F(BinLikelihoodTest, TheObjectiveIsConditionedOnWhatIsVisible) {
  EXPECT_DOUBLE_EQ(ConditionedObjective(8, 0.5, -100.0), 100.0 - 8.0 * std::log(2.0));
  EXPECT_EQ(ConditionedObjective(8, 0.0, -100.0), -11900.0);
  EXPECT_EQ(ConditionedObjective(8, -0.5, -100.0), -11900.0);
  EXPECT_EQ(ConditionedObjective(8, kNan, -100.0), -11900.0);
}

TEST_F(BinLikelihoodTest, ASingleEventIsATotal) {
  SetBins({1});
  EXPECT_EQ(SaturatedObjective(Axis(), 1), 0.0);
  SetBins({4});
  EXPECT_DOUBLE_EQ(SaturatedObjective(Axis(), 0), -4.0 * std::log(4.0)) << "the total left out";
}

}  // namespace
}  // namespace ondrel
