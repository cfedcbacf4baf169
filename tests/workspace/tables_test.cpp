#include "workspace/tables.h"

#include <gtest/gtest.h>

#include "support/shell_test.h"

namespace ondrel {
namespace {

class TablesTest : public ShellTest {};

TEST_F(TablesTest, ARecordAtTheCountIsNoneEvenWhereStorageExists) {
  ASSERT_TRUE(AllocateAllTables(Frame()));
  workspace().Events.Count = 3;
  workspace().Levels.Count = 3;
  workspace().Sweeps.Count = 3;
  workspace().Files.Count = 3;
  for (const std::int32_t index : {3, 4, -1, 2147483647, -2147483647 - 1}) {
    EXPECT_EQ(GetEvent(workspace().Events, index), nullptr) << index;
    EXPECT_EQ(GetLevel(workspace().Levels, index), nullptr) << index;
    EXPECT_EQ(GetSweep(workspace().Sweeps, index), nullptr) << index;
    EXPECT_EQ(GetFile(workspace().Files, index), nullptr) << index;
  }
  EXPECT_EQ(GetEvent(workspace().Events, 2), workspace().Events.Records + 2);
  EXPECT_EQ(GetLevel(workspace().Levels, 2), workspace().Levels.Records + 2);
  EXPECT_EQ(GetSweep(workspace().Sweeps, 2), workspace().Sweeps.Records + 2);
  EXPECT_EQ(GetFile(workspace().Files, 2), workspace().Files.Records + 2);
}

TEST_F(TablesTest, ASweepNumberIsARowFrom1) {
  ASSERT_TRUE(AllocateAllTables(Frame()));
  workspace().Sweeps.Count = 2;
  EXPECT_EQ(GetSweepByNumber(workspace().Sweeps, 0), nullptr);
  EXPECT_EQ(GetSweepByNumber(workspace().Sweeps, 1), workspace().Sweeps.Records);
  EXPECT_EQ(GetSweepByNumber(workspace().Sweeps, 2), workspace().Sweeps.Records + 1);
  EXPECT_EQ(GetSweepByNumber(workspace().Sweeps, 3), nullptr);
  EXPECT_EQ(GetSweepByNumber(workspace().Sweeps, 0xFFFFFFFF), nullptr);
}

TEST_F(TablesTest, ClearingFlagsReachesEveryRow) {
  ASSERT_TRUE(AllocateAllTables(Frame()));
  workspace().Levels.Count = 2;
  workspace().Sweeps.Count = 2;
  for (int row = 0; row < 3; ++row) {
    workspace().Levels.Records[row].LevelFlags = 1;
    workspace().Levels.Records[row].PrecedingFlags = 2;
    workspace().Levels.Records[row].FollowingFlags = 4;
    workspace().Sweeps.Records[row].SelectionFlags = 8;
  }
  ClearLevelFlags(workspace().Levels);
  ClearSweepFlags(workspace().Sweeps);
  for (int row = 0; row < 2; ++row) {
    EXPECT_EQ(workspace().Levels.Records[row].LevelFlags, 0u);
    EXPECT_EQ(workspace().Levels.Records[row].PrecedingFlags, 0u);
    EXPECT_EQ(workspace().Levels.Records[row].FollowingFlags, 0u);
    EXPECT_EQ(workspace().Sweeps.Records[row].SelectionFlags, 0u);
  }
  EXPECT_EQ(workspace().Levels.Records[2].LevelFlags, 1u);
  EXPECT_EQ(workspace().Sweeps.Records[2].SelectionFlags, 8u);
}

TEST_F(TablesTest, FreeingSegmentsKeepsTheirCountAndTheOtherSweeps) {
  ASSERT_TRUE(AllocateAllTables(Frame()));
  workspace().Sweeps.Count = 3;
  for (int row = 0; row < 3; ++row) {
    workspace().Sweeps.Records[row].Segments = toolkit::AllocateRecords<SegmentRecord>(2);
    workspace().Sweeps.Records[row].SegmentCount = 2;
  }
  FreeSegments(workspace().Sweeps, 1, 1);
  EXPECT_NE(workspace().Sweeps.Records[0].Segments, nullptr);
  EXPECT_EQ(workspace().Sweeps.Records[1].Segments, nullptr);
  EXPECT_EQ(workspace().Sweeps.Records[1].SegmentCount, 2);
  EXPECT_NE(workspace().Sweeps.Records[2].Segments, nullptr);
}

TEST_F(TablesTest, FreeingATableTwiceDoesNothingTheSecondTime) {
  ASSERT_TRUE(AllocateAllTables(Frame()));
  const int before = shell().LiveAllocations;
  for (int time = 0; time < 2; ++time) {
    FreeEventTable(workspace().Events);
    FreeLevelTable(workspace().Levels);
    FreeSweepTable(workspace().Sweeps);
    FreeFileTable(workspace().Files);
    EXPECT_EQ(shell().LiveAllocations, before - 8);
    EXPECT_EQ(workspace().Events.Index, nullptr);
    EXPECT_EQ(workspace().Events.Records, nullptr);
    EXPECT_EQ(workspace().Sweeps.Index, nullptr);
    EXPECT_EQ(workspace().Files.Records, nullptr);
  }
}

TEST_F(TablesTest, TheSegmentsGoWithTheirSweeps) {
  ASSERT_TRUE(AllocateAllTables(Frame()));
  workspace().Sweeps.Count = 1;
  workspace().Sweeps.Records[0].Segments = toolkit::AllocateRecords<SegmentRecord>(2);
  const int before = shell().LiveAllocations;
  FreeSweepTable(workspace().Sweeps);
  EXPECT_EQ(shell().LiveAllocations, before - 3);
}

}  // namespace
}  // namespace ondrel
