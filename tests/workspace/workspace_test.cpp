#include "workspace/workspace.h"

#include <gmock/gmock.h>

#include "support/shell_test.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;

constexpr char kReduceEntries[] =
    ". You can increase the amount of memory available either select \"Settings\" in \"File\" "
    "menu, "
    "reduce \"Event entries\" or \"Sweep entries\" or quit some other programs.";
constexpr char kQuitOtherPrograms[] =
    ". You can increase the amount of memory by quiting some other programs.";

class WorkspaceTest : public ShellTest {};

TEST_F(WorkspaceTest, TablesHaveTheirDefaultCapacities) {
  EXPECT_EQ(workspace().Events.Capacity, 8000);
  EXPECT_EQ(workspace().Levels.Capacity, 8000);
  EXPECT_EQ(workspace().Sweeps.Capacity, 1000);
  EXPECT_EQ(workspace().Files.Capacity, 100);
}

TEST_F(WorkspaceTest, AllocatedTablesAreEmptyZeroedAndReachedThroughTheirPointers) {
  ASSERT_TRUE(AllocateAllTables(Frame()));
  EXPECT_EQ(workspace().Events.Count, 0);
  for (std::int32_t row = 0; row < workspace().Events.Capacity; ++row) {
    ASSERT_EQ(workspace().Events.Index[row], workspace().Events.Records + row);
    ASSERT_EQ(workspace().Events.Records[row].TagValue, 0.0);
  }
  for (std::int32_t row = 0; row < workspace().Sweeps.Capacity; ++row) {
    ASSERT_EQ(workspace().Sweeps.Index[row], workspace().Sweeps.Records + row);
    ASSERT_EQ(workspace().Sweeps.Records[row].Segments, nullptr);
  }
}

TEST_F(WorkspaceTest, ACapacityOf1YieldsTablesOfOneRecord) {
  workspace().Events.Capacity = 1;
  workspace().Levels.Capacity = 1;
  workspace().Sweeps.Capacity = 1;
  ASSERT_TRUE(AllocateAllTables(Frame()));
  workspace().Events.Count = 1;
  EXPECT_NE(GetEvent(workspace().Events, 0), nullptr);
  EXPECT_EQ(GetEvent(workspace().Events, 1), nullptr);
}

TEST_F(WorkspaceTest, EachFailedTableIsToldWithItsWordAndStaysNull) {
  struct Row {
    void (*Allocate)(FrameWindow*);
    std::string Message;
  };
  const Row rows[] = {
      {AllocateEventTable, std::string("Insufficient memory for event table") + kReduceEntries},
      {AllocateLevelTable, std::string("Insufficient memory for level table") + kReduceEntries},
      {AllocateSweepTable, std::string("Insufficient memory for Sweep table") + kReduceEntries},
      {AllocateFileTable, std::string("Insufficient memory for File table") + kQuitOtherPrograms}};
  for (const Row& row : rows) {
    for (int fault = 1; fault <= 2; ++fault) {
      shell().Boxes.clear();
      shell().Allocation.Next = fault;
      row.Allocate(Frame());
      EXPECT_THAT(Messages(), ElementsAre(row.Message));
    }
  }
  EXPECT_EQ(shell().LiveAllocations, 0);
  EXPECT_EQ(workspace().Events.Index, nullptr);
  EXPECT_EQ(workspace().Files.Records, nullptr);
}

TEST_F(WorkspaceTest, OneFailedTableUnwindsTheOthers) {
  for (int fault = 1; fault <= 8; ++fault) {
    shell().Boxes.clear();
    shell().Allocation.Next = fault;
    EXPECT_FALSE(AllocateAllTables(Frame()));
    EXPECT_EQ(shell().Boxes.size(), 1u);
    EXPECT_EQ(shell().LiveAllocations, 0) << fault;
    EXPECT_EQ(workspace().Events.Index, nullptr);
    EXPECT_EQ(workspace().Levels.Index, nullptr);
    EXPECT_EQ(workspace().Sweeps.Index, nullptr);
    EXPECT_EQ(workspace().Files.Index, nullptr);
  }
}

TEST_F(WorkspaceTest, FreeingAllTablesTwiceLeavesSettingsAsTheyWere) {
  ASSERT_TRUE(AllocateAllTables(Frame()));
  workspace().Events.Count = 5;
  workspace().Events.BurstResolution = 0.25;
  workspace().Levels.LevelSelection.DurationLow = 0.125;
  workspace().Sweeps.TagHigh = 17.0;
  ViewOf(workspace(), ViewKind::Event).Colors[0] = kRed;
  for (int time = 0; time < 2; ++time) {
    FreeAllTables(workspace());
    EXPECT_EQ(shell().LiveAllocations, 0);
    EXPECT_EQ(workspace().Events.Count, 0);
    EXPECT_EQ(workspace().Events.Capacity, 8000);
    EXPECT_EQ(workspace().Events.BurstResolution, 0.25);
    EXPECT_EQ(workspace().Levels.LevelSelection.DurationLow, 0.125);
    EXPECT_EQ(workspace().Sweeps.TagHigh, 17.0);
    EXPECT_EQ(ViewOf(workspace(), ViewKind::Event).Colors[0], kRed);
  }
}

TEST_F(WorkspaceTest, TablesAreFreedInTheirOrder) {
  ASSERT_TRUE(AllocateAllTables(Frame()));
  Workspace& w = workspace();
  w.Amplitude.Bins = toolkit::AllocateRecords<BinRecord>(1);
  w.Duration.Bins = toolkit::AllocateRecords<BinRecord>(1);
  w.Stationarity.StationaritySamples = toolkit::AllocateRecords<double>(1);
  w.Statistics.Rows = toolkit::AllocateRecords<StatisticsRow>(1);
  w.Sweeps.Count = 1;
  w.Sweeps.Index[0]->SegmentCount = 1;
  w.Sweeps.Index[0]->Segments = toolkit::AllocateRecords<SegmentRecord>(1);
  const std::vector<const void*> expected = {w.Events.Index,
                                             w.Events.Records,
                                             w.Levels.Index,
                                             w.Levels.Records,
                                             w.Amplitude.Bins,
                                             w.Duration.Bins,
                                             w.Stationarity.StationaritySamples,
                                             w.Statistics.Rows,
                                             w.Sweeps.Index[0]->Segments,
                                             w.Sweeps.Index,
                                             w.Sweeps.Records,
                                             w.Files.Index,
                                             w.Files.Records};
  std::vector<const void*> freed;
  shell().Freed = &freed;
  FreeAllTables(w);
  shell().Freed = nullptr;
  EXPECT_EQ(freed, expected);
}

TEST_F(WorkspaceTest, AResetGivesTheSettingsTheirDefaultsAndLeavesStorageAlone) {
  ASSERT_TRUE(AllocateAllTables(Frame()));
  const EventRecord* const records = workspace().Events.Records;
  workspace().Events.BurstResolution = 1.0;
  workspace().Levels.MultipleOpenings = OpeningRule::Fragments;
  workspace().FontSize = 3;
  workspace().Closing = true;
  shell().Ticks = 4711;
  ResetWorkspace(workspace());
  EXPECT_EQ(workspace().Events.Records, records);
  EXPECT_EQ(workspace().Events.BurstResolution, 0.0);
  EXPECT_EQ(workspace().Levels.MultipleOpenings, OpeningRule::Highest);
  EXPECT_EQ(workspace().FontSize, 10);
  EXPECT_FALSE(workspace().Closing);
  EXPECT_EQ(workspace().LastClickTime, 4711u);
  EXPECT_EQ(workspace().Frame, Frame());
}

TEST_F(WorkspaceTest, EveryPlainSettingHasItsDefault) {
  const Workspace& w = workspace();
  EXPECT_FALSE(w.SkipStartupDialog);
  EXPECT_EQ(w.LineSearchLimit, 20);
  EXPECT_TRUE(w.LimitToWindow);
  EXPECT_EQ(w.FontSize, 10);
  EXPECT_EQ(w.PenSize, 0.25);
  EXPECT_EQ(static_cast<int>(w.LevelFileType), 1);
  EXPECT_EQ(static_cast<int>(w.ExportType), 0);
  EXPECT_EQ(static_cast<int>(w.TextExportType), 0);
  EXPECT_EQ(static_cast<int>(w.Events.AmplitudeMode), 2);
  EXPECT_EQ(w.Events.BurstResolution, 0.0);
  EXPECT_EQ(static_cast<int>(w.Events.TagSetMode), 0);
  EXPECT_EQ(w.Events.TagSetValue, 0.0);
  EXPECT_EQ(static_cast<int>(w.Levels.MultipleOpenings), 1);
  EXPECT_EQ(w.Levels.BaseLevel, 0);
  EXPECT_EQ(static_cast<int>(w.Levels.Range), 0);
  EXPECT_EQ(w.Levels.InstrumentDelay, 0.0);
  EXPECT_EQ(static_cast<int>(w.Levels.TagSource), 1);
  EXPECT_EQ(w.Amplitude.Minimum, 0.0);
  EXPECT_EQ(w.Amplitude.TickMarks, 5);
  EXPECT_EQ(w.Amplitude.BinsPerTick, 20);
  EXPECT_EQ(w.Amplitude.PerTick, 1.0);
  EXPECT_EQ(w.Amplitude.MinimumTicks, 2);
  EXPECT_EQ(w.Amplitude.CountsPerTick, 100);
  EXPECT_EQ(w.Amplitude.FitTolerance, 0.0001);
  EXPECT_EQ(w.Amplitude.FitIterations, 20);
  EXPECT_EQ(w.Amplitude.CurveScale, 1.0);
  EXPECT_EQ(w.Duration.MinimumExponent, -5);
  EXPECT_EQ(w.Duration.Decades, 5);
  EXPECT_EQ(w.Duration.BinsPerDecade, 20);
  EXPECT_EQ(w.Duration.TicksPerDecade, 5);
  EXPECT_EQ(w.Duration.MinimumTicks, 2);
  EXPECT_EQ(w.Duration.CountsPerTick, 10);
  EXPECT_EQ(w.Duration.FilterFrequency, 5000.0);
  EXPECT_EQ(w.Scatter.MinimumExponent, -5);
  EXPECT_EQ(w.Scatter.Decades, 5);
  EXPECT_EQ(w.Scatter.TicksPerDecade, 10);
  EXPECT_EQ(w.Scatter.Minimum, 0.0);
  EXPECT_EQ(w.Scatter.Ticks, 4);
  EXPECT_EQ(w.Scatter.PaPerTick, 1.0);
  EXPECT_EQ(w.Scatter.SymbolSize, 0.08);
  EXPECT_EQ(static_cast<int>(w.AmplitudeScatter.Value), 1);
  EXPECT_EQ(w.AmplitudeScatter.Minimum, -5.0);
  EXPECT_EQ(w.AmplitudeScatter.TickMarks, 5);
  EXPECT_EQ(w.AmplitudeScatter.PerTick, 10.0);
  EXPECT_EQ(w.AmplitudeScatter.AmplitudeTicks, 4);
  EXPECT_EQ(static_cast<int>(w.DurationScatter.Value), 1);
  EXPECT_EQ(w.DurationScatter.MinimumExponent, -5);
  EXPECT_EQ(w.DurationScatter.Decades, 4);
  EXPECT_EQ(w.DurationScatter.TicksPerDecade, 5);
  EXPECT_EQ(w.DurationScatter.Minimum, -5.0);
  EXPECT_EQ(w.Stationarity.Type, StationarityType::One);
  EXPECT_EQ(w.Stationarity.Tau, 0.1);
  EXPECT_EQ(static_cast<int>(w.Statistics.Reference), 1);
  EXPECT_TRUE(IsDegenerate(w.FrameRect));
  EXPECT_EQ(w.ExportDpi, 0.0);
}

TEST_F(WorkspaceTest, ClearingEventsDropsTheWholeTableForAnyPartOfIt) {
  ASSERT_TRUE(AllocateAllTables(Frame()));
  for (const auto& [first, count] : {std::pair{0, 5}, std::pair{2, 1}, std::pair{4, 1}}) {
    workspace().Events.Count = 5;
    ClearEvents(Frame(), first, count);
    EXPECT_EQ(workspace().Events.Count, 0) << first << ", " << count;
  }
}

TEST_F(WorkspaceTest, ClearingWhatIsNoPartOfTheEventsDoesNothing) {
  ASSERT_TRUE(AllocateAllTables(Frame()));
  workspace().Events.Count = 5;
  for (const auto& [first, count] :
       {std::pair{0, 0}, std::pair{0, -1}, std::pair{-1, 2}, std::pair{5, 1}, std::pair{0, 6},
        std::pair{4, 2}, std::pair{1, 2147483647}}) {
    ClearEvents(Frame(), first, count);
    EXPECT_EQ(workspace().Events.Count, 5) << first << ", " << count;
  }
}

}  // namespace
}  // namespace ondrel
