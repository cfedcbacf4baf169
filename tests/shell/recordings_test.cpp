// The whole road from a real recording to its statistics. The numbers were worked out from the
// recordings with other software.
#include <gmock/gmock.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>

#include "support/program_test.h"

namespace ondrel {
namespace {

struct LevelSummary {
  std::int32_t Level;
  std::int32_t Events;
  double MeanDuration;  // ms, six digits
};

struct Recording {
  const char* Name;
  std::int32_t Levels;
  std::int32_t Selected;
  std::vector<LevelSummary> Rows;
};

class RecordingStatisticsTest : public ProgramTest,
                                public ::testing::WithParamInterface<Recording> {};

TEST_P(RecordingStatisticsTest, AreThoseWorkedOutElsewhere) {
  const char* const folder = std::getenv("ONDREL_RECORDINGS");
  if (folder == nullptr || !std::filesystem::is_directory(folder)) {
    GTEST_SKIP() << "ONDREL_RECORDINGS names no folder";
  }
  Run([&] {
    shell().Boxes.clear();
    workspace().Levels.MultipleOpenings = OpeningRule::Fragments;
    OpenFile((std::filesystem::path(folder) / GetParam().Name).string());
    EXPECT_THAT(Messages(), ::testing::IsEmpty());
    EXPECT_EQ(workspace().Levels.Count, GetParam().Levels);
    const StatisticsTable& statistics = workspace().Statistics;
    EXPECT_EQ(statistics.TotalEvents, GetParam().Selected);
    ASSERT_EQ(static_cast<std::size_t>(statistics.RowCount), GetParam().Rows.size());
    for (std::size_t i = 0; i < GetParam().Rows.size(); ++i) {
      const LevelSummary& expected = GetParam().Rows[i];
      EXPECT_EQ(statistics.Rows[i].Level, expected.Level);
      EXPECT_EQ(statistics.Rows[i].Events, expected.Events);
      EXPECT_NEAR(statistics.Rows[i].DurationMean / 0.001 / expected.MeanDuration, 1.0, 1e-5)
          << expected.Level;
    }
  });
}

INSTANTIATE_TEST_SUITE_P(
    Of, RecordingStatisticsTest,
    ::testing::Values(
        Recording{"achr-simulated.evt", 4312, 4310, {{0, 2155, 1103.13}, {1, 2155, 2.18991}}},
        Recording{"glyr-k276e-30mM.evt", 5813, 5805, {{0, 2901, 0.778938}, {1, 2904, 0.764943}}},
        Recording{"elic-propylamine-1mM.evt",
                  2996,
                  2954,
                  {{0, 1315, 3.07800}, {1, 173, 2.44789}, {2, 1450, 11.2869}, {3, 16, 0.122250}}},
        Recording{"inward-bare-list.txt", 3000, 2982, {{0, 1491, 0.312103}, {1, 1491, 1.87866}}},
        Recording{"inward-version2.txt",
                  3025,
                  2975,
                  {{-2, 1495, 2.65359}, {-1, 46, 0.198957}, {0, 1434, 0.175889}}}));

}  // namespace
}  // namespace ondrel
