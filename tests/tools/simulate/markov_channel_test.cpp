// Equilibria against closed forms, and the times that a simulated channel takes against theory.
// Tolerances are four standard errors, worked out from the theory as well.
#include "simulate/markov_channel.h"

#include <gmock/gmock.h>

#include <cmath>

namespace ondrel::simulate {
namespace {

using ::testing::DoubleNear;
using ::testing::ElementsAre;
using ::testing::Pointwise;

constexpr std::size_t kClosed = 0;
constexpr std::size_t kOpen = 1;

RateMatrix TwoStates(double opening, double closing) {
  RateMatrix rates(2);
  rates.At(kClosed, kOpen) = opening;
  rates.At(kOpen, kClosed) = closing;
  return rates;
}

/// The lengths of the visits to `state` that begin and end inside the sweep.
std::vector<double> WholeVisits(const std::vector<Visit>& visits, std::size_t state) {
  std::vector<double> lengths;
  for (std::size_t i = 1; i + 1 < visits.size(); ++i) {
    if (visits[i].State == state) lengths.push_back(visits[i + 1].Start - visits[i].Start);
  }
  return lengths;
}

double Mean(const std::vector<double>& values) {
  double sum = 0.0;
  for (const double value : values) sum += value;
  return sum / static_cast<double>(values.size());
}

double TimeIn(const std::vector<Visit>& visits, std::size_t state, double duration) {
  double time = 0.0;
  for (std::size_t i = 0; i < visits.size(); ++i) {
    const double end = i + 1 < visits.size() ? visits[i + 1].Start : duration;
    if (visits[i].State == state) time += end - visits[i].Start;
  }
  return time;
}

TEST(Equilibrium, OfTwoStatesIsTheShareOfTheRates) {
  EXPECT_THAT(EquilibriumOccupancy(TwoStates(30.0, 90.0)),
              Pointwise(DoubleNear(1e-15), std::vector<double>{0.75, 0.25}));
}

TEST(Equilibrium, OfARowOfStatesBalancesEachPairOfRates) {
  RateMatrix rates(3);
  rates.At(0, 1) = 8.0;
  rates.At(1, 0) = 700.0;
  rates.At(1, 2) = 3000.0;
  rates.At(2, 1) = 500.0;
  const std::vector<double> occupancy = EquilibriumOccupancy(rates);
  // 1 : 8/700 : 8/700 * 3000/500, divided by their sum.
  const double sum = 1.0 + 8.0 / 700.0 + 8.0 / 700.0 * 6.0;
  EXPECT_THAT(occupancy,
              Pointwise(DoubleNear(1e-14), std::vector<double>{1.0 / sum, 8.0 / 700.0 / sum,
                                                               8.0 / 700.0 * 6.0 / sum}));
}

TEST(Equilibrium, OfAOneWayRingIsTheShareOfTheMeanStays) {
  RateMatrix rates(3);
  rates.At(0, 1) = 10.0;
  rates.At(1, 2) = 20.0;
  rates.At(2, 0) = 50.0;
  // Mean stays 0.1, 0.05 and 0.02 s of a round of 0.17 s.
  EXPECT_THAT(
      EquilibriumOccupancy(rates),
      Pointwise(DoubleNear(1e-14), std::vector<double>{10.0 / 17.0, 5.0 / 17.0, 2.0 / 17.0}));
}

TEST(Equilibrium, OfASingleStateIsCertain) {
  EXPECT_THAT(EquilibriumOccupancy(RateMatrix(1)), ElementsAre(1.0));
}

TEST(Reachability, NeedsAWayThereAndAWayBack) {
  EXPECT_TRUE(IsIrreducible(RateMatrix(1)));
  EXPECT_TRUE(IsIrreducible(TwoStates(1.0, 1.0)));
  EXPECT_FALSE(IsIrreducible(TwoStates(1.0, 0.0)));
  EXPECT_FALSE(IsIrreducible(TwoStates(0.0, 1.0)));
  EXPECT_FALSE(IsIrreducible(RateMatrix(0)));
}

TEST(Visits, BeginAtNoughtRiseInTimeAndChangeTheState) {
  RandomState random = SeedRandom(5);
  const auto visits = SimulateVisits(SweepRates(TwoStates(50.0, 200.0)), kOpen, 2.0, random);
  ASSERT_GT(visits.size(), 50u);
  EXPECT_EQ(visits[0].Start, 0.0);
  EXPECT_EQ(visits[0].State, kOpen);
  for (std::size_t i = 1; i < visits.size(); ++i) {
    EXPECT_GT(visits[i].Start, visits[i - 1].Start);
    EXPECT_NE(visits[i].State, visits[i - 1].State);
  }
  EXPECT_LT(visits.back().Start, 2.0);
}

TEST(Visits, OfTwoStatesLastOneOverTheRateOnTheMean) {
  RandomState random = SeedRandom(6);
  const auto visits = SimulateVisits(SweepRates(TwoStates(50.0, 200.0)), kClosed, 2000.0, random);
  const std::vector<double> open = WholeVisits(visits, kOpen);
  const std::vector<double> closed = WholeVisits(visits, kClosed);
  // 40 openings a second are expected. An exponential's standard deviation is its mean.
  ASSERT_GT(open.size(), 75000u);
  EXPECT_NEAR(Mean(open), 1.0 / 200.0, 4.0 / 200.0 / std::sqrt(open.size()));
  EXPECT_NEAR(Mean(closed), 1.0 / 50.0, 4.0 / 50.0 / std::sqrt(closed.size()));
}

TEST(Visits, BranchInProportionToTheRates) {
  RateMatrix rates(3);
  rates.At(0, 1) = 300.0;
  rates.At(0, 2) = 100.0;
  rates.At(1, 0) = 1000.0;
  rates.At(2, 0) = 1000.0;
  RandomState random = SeedRandom(7);
  const auto visits = SimulateVisits(SweepRates(rates), 0, 100.0, random);
  const double first = static_cast<double>(WholeVisits(visits, 1).size());
  const double second = static_cast<double>(WholeVisits(visits, 2).size());
  const double count = first + second;
  ASSERT_GT(count, 20000.0);
  EXPECT_NEAR(first / count, 0.75, 4.0 * std::sqrt(0.75 * 0.25 / count));
}

TEST(Visits, SpendTheEquilibriumShareOfTimeInEachState) {
  RandomState random = SeedRandom(8);
  constexpr double kDuration = 2000.0;
  const auto visits =
      SimulateVisits(SweepRates(TwoStates(50.0, 200.0)), kClosed, kDuration, random);
  // The variance of a share of time is 2 p q / (decay rate * duration).
  const double error = std::sqrt(2.0 * 0.2 * 0.8 / (250.0 * kDuration));
  EXPECT_NEAR(TimeIn(visits, kOpen, kDuration) / kDuration, 0.2, 4.0 * error);
}

TEST(Visits, StayForEverInAStateThatNoRateLeaves) {
  RandomState random = SeedRandom(9);
  const auto visits = SimulateVisits(SweepRates(TwoStates(1000.0, 0.0)), kClosed, 100.0, random);
  ASSERT_EQ(visits.size(), 2u);
  EXPECT_EQ(visits[1].State, kOpen);
}

TEST(Visits, FollowARateThatFallsDuringTheSweep) {
  // The rate goes from 3 to 1 s^-1 over one second, so that its integral up to t is 3 t - t^2.
  SweepRates rates(TwoStates(1.0, 0.0));
  rates.Ramps[kClosed * 2 + kOpen] = {{3.0, 1.0}};
  RandomState random = SeedRandom(10);
  constexpr int kSweeps = 40000;
  int silent = 0;
  int early = 0;
  for (int i = 0; i < kSweeps; ++i) {
    const auto visits = SimulateVisits(rates, kClosed, 1.0, random);
    if (visits.size() == 1) {
      ++silent;
    } else if (visits[1].Start < 0.25) {
      ++early;
    }
  }
  const double silentShare = std::exp(-2.0);
  const double earlyShare = 1.0 - std::exp(-(3.0 * 0.25 - 0.0625));
  EXPECT_NEAR(static_cast<double>(silent) / kSweeps, silentShare,
              4.0 * std::sqrt(silentShare * (1.0 - silentShare) / kSweeps));
  EXPECT_NEAR(static_cast<double>(early) / kSweeps, earlyShare,
              4.0 * std::sqrt(earlyShare * (1.0 - earlyShare) / kSweeps));
}

TEST(SweepRates, OfSeveralRampsAreTheProductOfTheirFactors) {
  SweepRates rates(TwoStates(10.0, 20.0));
  rates.Ramps[kClosed * 2 + kOpen] = {{1.0, 3.0}, {2.0, 1.0}};
  EXPECT_DOUBLE_EQ(RatesAt(rates, 0.0).At(kClosed, kOpen), 20.0);
  EXPECT_DOUBLE_EQ(RatesAt(rates, 0.5).At(kClosed, kOpen), 10.0 * 2.0 * 1.5);
  EXPECT_DOUBLE_EQ(RatesAt(rates, 1.0).At(kClosed, kOpen), 30.0);
  EXPECT_DOUBLE_EQ(RatesAt(rates, 0.5).At(kOpen, kClosed), 20.0);
  EXPECT_DOUBLE_EQ(UpperRates(rates).At(kClosed, kOpen), 60.0);
}

TEST(DrawState, FollowsTheProbabilitiesAndNeverTakesAnImpossibleState) {
  RandomState random = SeedRandom(11);
  constexpr int kDraws = 100000;
  int counts[3] = {};
  for (int i = 0; i < kDraws; ++i) ++counts[DrawState({0.3, 0.0, 0.7}, random)];
  EXPECT_EQ(counts[1], 0);
  EXPECT_NEAR(counts[0] / static_cast<double>(kDraws), 0.3, 4.0 * std::sqrt(0.21 / kDraws));
  for (int i = 0; i < 1000; ++i) ASSERT_EQ(DrawState({0.0, 1.0, 0.0}, random), 1u);
}

}  // namespace
}  // namespace ondrel::simulate
