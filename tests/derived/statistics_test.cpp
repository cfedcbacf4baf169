#include "derived/statistics.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "derived/recording_fixture.h"
#include "support/random_seed.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;

class StatisticsTest : public RecordingTest {
 protected:
  StatisticsTable& Statistics() { return workspace().Statistics; }

  const StatisticsRow& Row(std::int32_t index) {
    EXPECT_LT(index, Statistics().RowCount);
    return Statistics().Rows[index];
  }

  void ExpectRowWithoutLevels(const StatisticsRow& row) {
    EXPECT_EQ(row.Events, 0);
    EXPECT_TRUE(std::isnan(row.DurationMean));
    EXPECT_TRUE(std::isnan(row.AmplitudeMean));
    EXPECT_EQ(row.DurationStd, 0);
    EXPECT_EQ(row.AmplitudeStd, 0);
    EXPECT_EQ(row.Probability, 0);
  }
};

TEST_F(StatisticsTest, WithoutASelectedLevelTheRowsOfTheLastRunStay) {
  AddLevel(1, 3, 0, 2);
  AddLevel(1, 4, 0, 2);
  CalculateStatistics(workspace());
  EXPECT_FALSE(Statistics().StatisticsEmpty);
  const StatisticsRow* rows = Statistics().Rows;
  for (std::int32_t row = 0; row < 2; ++row) workspace().Levels.Index[row]->LevelFlags = 0x2;
  CalculateStatistics(workspace());
  EXPECT_TRUE(Statistics().StatisticsEmpty);
  EXPECT_EQ(Statistics().Rows, rows);
  EXPECT_EQ(Statistics().RowCount, 2);
  EXPECT_EQ(Statistics().TotalEvents, 2);
  EXPECT_EQ(Row(0).Level, 3);
  EXPECT_EQ(Row(0).DurationMean, 2);
}

TEST_F(StatisticsTest, AnEmptyLevelTableHasNoStatistics) {
  CalculateStatistics(workspace());
  EXPECT_TRUE(Statistics().StatisticsEmpty);
  EXPECT_EQ(Statistics().Rows, nullptr);
}

TEST_F(StatisticsTest, ALaterRunWithASelectedLevelIsNotEmptyAnyMore) {
  CalculateStatistics(workspace());
  AddLevel(1, 3);
  CalculateStatistics(workspace());
  EXPECT_FALSE(Statistics().StatisticsEmpty);
}

TEST_F(StatisticsTest, ANumberThatNoLevelHasGetsARowWithMeansThatAreNotNumbers) {
  Statistics().Reference = StatisticsReference::Levels;
  AddLevel(1, 2, 5, 3);
  AddLevel(1, 0, 1, 1);
  CalculateStatistics(workspace());
  ASSERT_EQ(Statistics().RowCount, 3);
  EXPECT_EQ(Row(0).Level, 0);
  EXPECT_EQ(Row(1).Level, 1);
  EXPECT_EQ(Row(2).Level, 2);
  ExpectRowWithoutLevels(Row(1));
  EXPECT_EQ(Row(0).Probability, 0.25);
  EXPECT_EQ(Row(2).Probability, 0.75);
}

TEST_F(StatisticsTest, OneLevelIsItsOwnMeanMinimumAndMaximum) {
  AddLevel(1, -2, -7, 3);
  CalculateStatistics(workspace());
  ASSERT_EQ(Statistics().RowCount, 1);
  EXPECT_EQ(Statistics().TotalEvents, 1);
  EXPECT_EQ(Row(0).Level, -2);
  EXPECT_EQ(Row(0).Events, 1);
  EXPECT_EQ(Row(0).DurationMean, 3);
  EXPECT_EQ(Row(0).DurationMin, 3);
  EXPECT_EQ(Row(0).DurationMax, 3);
  EXPECT_EQ(Row(0).DurationStd, 0);
  EXPECT_EQ(Row(0).AmplitudeMean, -7);
  EXPECT_EQ(Row(0).AmplitudeMin, -7);
  EXPECT_EQ(Row(0).AmplitudeMax, -7);
  EXPECT_EQ(Row(0).AmplitudeStd, 0);
}

TEST_F(StatisticsTest, TheDeviationIsThatOfASample) {
  for (const double value : {2.0, 4.0, 4.0, 4.0, 5.0, 5.0, 7.0, 9.0}) AddLevel(1, 1, -value, value);
  CalculateStatistics(workspace());
  // The squares of the deviations from the mean of 5 add up to 32.
  EXPECT_DOUBLE_EQ(Row(0).DurationStd, std::sqrt(32.0 / 7.0));
  EXPECT_DOUBLE_EQ(Row(0).AmplitudeStd, std::sqrt(32.0 / 7.0));
  EXPECT_EQ(Row(0).DurationMean, 5);
  EXPECT_EQ(Row(0).AmplitudeMean, -5);
  EXPECT_EQ(Row(0).DurationMin, 2);
  EXPECT_EQ(Row(0).DurationMax, 9);
  EXPECT_EQ(Row(0).AmplitudeMin, -9);
  EXPECT_EQ(Row(0).AmplitudeMax, -2);
}

TEST_F(StatisticsTest, AVarianceBelowZeroByRoundingIsZero) {
  const double value = 0.1;
  const double sum = value + value + value;
  const double squares = value * value + value * value + value * value;
  ASSERT_LT(squares - 3.0 * sum * sum / 9.0, 0.0) << "a value that rounds in the wrong way";
  for (int count = 0; count < 3; ++count) AddLevel(1, 1, value, value);
  CalculateStatistics(workspace());
  EXPECT_EQ(Row(0).DurationStd, 0);
  EXPECT_EQ(Row(0).AmplitudeStd, 0);
}

TEST_F(StatisticsTest, LevelsThatAreOutCountNowhere) {
  AddLevel(1, 7, 100, 100).LevelFlags = 0x40;
  AddLevel(1, 1, 2, 3);
  AddLevel(1, 1, 100, 100).LevelFlags = 0x100;
  AddLevel(1, -7, 100, 100).LevelFlags = 0x2;
  AddLevel(1, 1, 4, 5).PrecedingFlags = 0x10;
  CalculateStatistics(workspace());
  EXPECT_EQ(Statistics().TotalEvents, 2);
  ASSERT_EQ(Statistics().RowCount, 1);
  EXPECT_EQ(Row(0).Events, 2);
  EXPECT_EQ(Row(0).AmplitudeMean, 3);
  EXPECT_EQ(Row(0).DurationMax, 5);
}

// --- Shares of time -------------------------------------------------------------------------

class ProbabilityTest : public StatisticsTest {
 protected:
  ProbabilityTest() {
    AddSweep(20, 5, 15);
    AddSweep(30, 0, 30).SelectionFlags = 0x4;
    AddSweep(20, 4, 10);
    AddLevel(1, 0, 0, 4);
    AddLevel(1, 1, 0, 1);
    AddLevel(2, 1, 0, 8).LevelFlags = 0x2;
    AddLevel(3, 0, 0, 3);
  }

  std::vector<double> Probabilities(StatisticsReference reference) {
    Statistics().Reference = reference;
    CalculateStatistics(workspace());
    return {Row(0).Probability, Row(1).Probability};
  }
};

TEST_F(ProbabilityTest, OfTheSelectedLevelsTheSharesAddUpToOne) {
  EXPECT_THAT(Probabilities(StatisticsReference::Levels), ElementsAre(7.0 / 8.0, 1.0 / 8.0));
}

TEST_F(ProbabilityTest, OfTheRelevantSegmentsOfSelectedSweepsTheyAddUpToLess) {
  EXPECT_THAT(Probabilities(StatisticsReference::RelevantSegment),
              ElementsAre(7.0 / 16.0, 1.0 / 16.0));
}

TEST_F(ProbabilityTest, OfTheWholeSelectedSweepsTheyAddUpToLess) {
  EXPECT_THAT(Probabilities(StatisticsReference::Sweep), ElementsAre(7.0 / 40.0, 1.0 / 40.0));
}

TEST_F(ProbabilityTest, TheShareIsOneOfTimeAndNotOfCounts) {
  AddLevel(3, 1, 0, 7);
  EXPECT_THAT(Probabilities(StatisticsReference::Levels), ElementsAre(7.0 / 15.0, 8.0 / 15.0));
}

TEST_F(ProbabilityTest, WithoutAReferenceTimeAllSharesAreZero) {
  workspace().Sweeps.Count = 0;
  EXPECT_THAT(Probabilities(StatisticsReference::Sweep), ElementsAre(0, 0));
  EXPECT_THAT(Probabilities(StatisticsReference::RelevantSegment), ElementsAre(0, 0));
}

// --- Memory ---------------------------------------------------------------------------------

constexpr char kNoMemory[] =
    "Insufficient memory for calculating statistics. You can increase the amount of memory by "
    "quiting some other programs.";

TEST_F(StatisticsTest, WithoutMemoryForTheRowsTheUserIsToldAndNoRowIsLeft) {
  AddLevel(1, 1);
  CalculateStatistics(workspace());
  shell().Allocation.Next = 1;
  CalculateStatistics(workspace());
  EXPECT_THAT(Messages(), ElementsAre(kNoMemory));
  EXPECT_EQ(shell().Boxes[0].Icon, toolkit::BoxIcon::Stop);
  EXPECT_TRUE(Statistics().StatisticsEmpty);
  EXPECT_EQ(Statistics().Rows, nullptr);
  EXPECT_EQ(Statistics().RowCount, 0);
  CalculateStatistics(workspace());
  EXPECT_FALSE(Statistics().StatisticsEmpty);
  EXPECT_EQ(Statistics().RowCount, 1);
}

TEST_F(StatisticsTest, LevelNumbersThatLieTooFarApartAreAFailureOfMemory) {
  AddLevel(1, 0);
  AddLevel(1, 2000000000);
  CalculateStatistics(workspace());
  EXPECT_THAT(Messages(), ElementsAre(kNoMemory));
  EXPECT_TRUE(Statistics().StatisticsEmpty);
  EXPECT_EQ(Statistics().RowCount, 0);
}

TEST_F(StatisticsTest, MoreRowsThanACountCanHoldAreAFailureOfMemoryAndNotAskedFor) {
  AddLevel(1, 0);
  AddLevel(1, 0);
  const int allocations = shell().Allocation.Calls;
  workspace().Levels.Index[0]->Level = std::numeric_limits<std::int32_t>::min();
  workspace().Levels.Index[1]->Level = std::numeric_limits<std::int32_t>::max();
  CalculateStatistics(workspace());
  EXPECT_THAT(Messages(), ElementsAre(kNoMemory));
  workspace().Levels.Index[1]->Level = -1;  // one row more than a count can hold
  CalculateStatistics(workspace());
  EXPECT_THAT(Messages(), ElementsAre(kNoMemory, kNoMemory));
  EXPECT_EQ(shell().Allocation.Calls, allocations);
  EXPECT_TRUE(Statistics().StatisticsEmpty);
  EXPECT_EQ(Statistics().RowCount, 0);
}

TEST_F(StatisticsTest, TheLowestAndTheHighestNumberHaveTheirRows) {
  for (const std::int32_t number :
       {std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()}) {
    workspace().Levels.Count = 0;
    AddLevel(1, number);
    CalculateStatistics(workspace());
    ASSERT_EQ(Statistics().RowCount, 1);
    EXPECT_EQ(Row(0).Level, number);
  }
}

// --- Against a slow and obvious computation -------------------------------------------------

struct Summary {
  double Mean = 0.0;
  double Deviation = 0.0;
};

Summary Summarize(const std::vector<double>& values) {
  const double count = static_cast<double>(values.size());
  Summary summary;
  for (const double value : values) summary.Mean += value / count;
  if (values.size() == 1) return summary;
  for (const double value : values) {
    summary.Deviation += (value - summary.Mean) * (value - summary.Mean);
  }
  summary.Deviation = std::sqrt(summary.Deviation / (count - 1));
  return summary;
}

TEST_F(StatisticsTest, RowsAgreeWithTwoPassesOverTheValuesOfRandomLevels) {
  constexpr double tolerance = 1e-9;  // of values near 1
  for (unsigned round = 0; round < 100; ++round) {
    SCOPED_TRACE("ONDREL_SEED=" + std::to_string(RandomSeed()) + ", round " +
                 std::to_string(round));
    std::mt19937_64 random(RandomSeed() + round);
    std::uniform_real_distribution<double> real(0.5, 1.5);
    std::map<std::int32_t, std::vector<double>> durations;
    std::map<std::int32_t, std::vector<double>> amplitudes;
    double total = 0;
    workspace().Levels.Count = 0;
    const int count = 1 + static_cast<int>(random() % 150);
    for (int made = 0; made < count; ++made) {
      const std::int32_t number = static_cast<std::int32_t>(random() % 9) - 4;
      LevelRecord& level = AddLevel(1, number, real(random), real(random));
      level.LevelFlags = made > 0 && random() % 4 == 0 ? 0x40 : 0;
      if (level.LevelFlags != 0) continue;
      durations[number].push_back(level.Duration);
      amplitudes[number].push_back(level.Amplitude);
      total += level.Duration;
    }
    Statistics().Reference = StatisticsReference::Levels;
    CalculateStatistics(workspace());
    ASSERT_EQ(Statistics().RowCount, durations.rbegin()->first - durations.begin()->first + 1);
    for (std::int32_t index = 0; index < Statistics().RowCount; ++index) {
      const StatisticsRow& row = Row(index);
      ASSERT_EQ(row.Level, durations.begin()->first + index);
      if (durations.count(row.Level) == 0) {
        ExpectRowWithoutLevels(row);
        continue;
      }
      const std::vector<double>& times = durations[row.Level];
      const std::vector<double>& currents = amplitudes[row.Level];
      ASSERT_EQ(row.Events, static_cast<std::int32_t>(times.size()));
      ASSERT_NEAR(row.DurationMean, Summarize(times).Mean, tolerance);
      ASSERT_NEAR(row.DurationStd, Summarize(times).Deviation, 1e-7);
      ASSERT_NEAR(row.AmplitudeMean, Summarize(currents).Mean, tolerance);
      ASSERT_NEAR(row.AmplitudeStd, Summarize(currents).Deviation, 1e-7);
      ASSERT_EQ(row.DurationMin, *std::min_element(times.begin(), times.end()));
      ASSERT_EQ(row.DurationMax, *std::max_element(times.begin(), times.end()));
      ASSERT_EQ(row.AmplitudeMin, *std::min_element(currents.begin(), currents.end()));
      ASSERT_EQ(row.AmplitudeMax, *std::max_element(currents.begin(), currents.end()));
      ASSERT_NEAR(row.Probability,
                  Summarize(times).Mean * static_cast<double>(times.size()) / total, tolerance);
    }
  }
}

}  // namespace
}  // namespace ondrel
