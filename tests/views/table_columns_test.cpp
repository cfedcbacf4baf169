#include "views/table_columns.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/recording_sink.h"
#include "support/view_test.h"

namespace ondrel {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;

// A table made up for these tests: its rows are the events.

const EventRecord& EventAt(const Workspace& workspace, std::int32_t row) {
  return *GetEvent(workspace.Events, row);
}

std::int32_t Seventeen(const Workspace&) {
  return 17;
}
std::int32_t Fifteen(const Workspace&) {
  return 15;
}

constexpr TableColumn kColumns[] = {
    {"1234", nullptr, nullptr, "Sweep", IntegerCell<EventAt, &EventRecord::Sweep>},
    {"123", Seventeen, "Long", "Time", RealCell<EventAt, &EventRecord::Transition, 3>},
    {"1234", Fifteen, "Pre", "Amp", PicoampereCell<EventAt, &EventRecord::PreAmplitude>},
};

class TableColumnsTest : public ViewTest {
 protected:
  TableColumnsTest() {
    recording::Clear();
    workspace().Graphics.Device = toolkit::AcquireDevice(nullptr);
    toolkit::SetFontHeight(workspace().Graphics.Device, 10);  // 5 units a letter
  }
  ~TableColumnsTest() override {
    toolkit::CleanUpDevice(workspace().Graphics.Device);
    toolkit::ReleaseDevice(nullptr, workspace().Graphics.Device);
  }

  Drawing OnPaper() { return {recording::kRecordingSink, workspace().Graphics}; }

  std::string CellText(const TableColumn& column, std::int32_t row) {
    char text[kCellSize] = "";
    column.Cell(workspace(), row, text);
    return text;
  }

  std::array<double, kMaxColumns> edges_{};
};

TEST_F(TableColumnsTest, ColumnsStandSideBySideFromTheLeftAndTakeTheWiderOfTemplateAndValues) {
  MeasureColumns(workspace(), kColumns, 2.5, edges_);
  EXPECT_EQ(edges_[0], 2.5 + 20);            // the template alone
  EXPECT_EQ(edges_[1], 2.5 + 20 + 17);       // values of 17 beat a template of 15
  EXPECT_EQ(edges_[2], 2.5 + 20 + 17 + 20);  // a template of 20 beats values of 15
}

TEST_F(TableColumnsTest, EdgesBeyondTheLastColumnAreLeftAlone) {
  edges_.fill(-1.0);
  MeasureColumns(workspace(), kColumns, 0.0, edges_);
  const std::vector<double> rest(edges_.begin() + 3, edges_.end());
  EXPECT_THAT(rest, Each(-1.0));
}

TEST_F(TableColumnsTest, ColumnsAreMeasuredInTheFontThatIsSelected) {
  toolkit::SetFontHeight(workspace().Graphics.Device, 20);
  MeasureColumns(workspace(), kColumns, 0.0, edges_);
  EXPECT_EQ(edges_[0], 40);
}

TEST_F(TableColumnsTest, TheFirstHeaderLineComesBeforeTheSecondWhichStandsALineBelow) {
  edges_ = {10.5, 20.5, 30.5};
  DrawHeader(OnPaper(), kColumns, edges_, 7.25, 13.5);
  EXPECT_THAT(recording::Lines(),
              ElementsAre("right 20.5 7.25 Long", "right 30.5 7.25 Pre", "right 10.5 20.75 Sweep",
                          "right 20.5 20.75 Time", "right 30.5 20.75 Amp"));
}

TEST_F(TableColumnsTest, CellsAreWrittenFromLeftToRightEachEndingAtItsEdge) {
  FillEvents(2, [](EventRecord& event, std::int32_t row) {
    event.Sweep = static_cast<std::uint32_t>(row + 3);
    event.Transition = 0.5 + row;
    event.PreAmplitude = 1.25e-12 * (row + 1);
  });
  edges_ = {10.5, 20.5, 30.5};
  DrawCells(OnPaper(), workspace(), kColumns, edges_, 1, 99.75);
  EXPECT_THAT(recording::Lines(),
              ElementsAre("right 10.5 99.75 4", "right 20.5 99.75 1.500", "right 30.5 99.75 2.50"));
}

TEST_F(TableColumnsTest, CurrentsAreShownInPicoamperesWithTwoDecimals) {
  FillEvents(5, [](EventRecord& event, std::int32_t row) {
    constexpr double currents[] = {0.0, 1e-12, -2.347e-12, 1.234567e-9, 4e-15};
    event.PreAmplitude = currents[row];
  });
  EXPECT_EQ(CellText(kColumns[2], 0), "0.00");
  EXPECT_EQ(CellText(kColumns[2], 1), "1.00");
  EXPECT_EQ(CellText(kColumns[2], 2), "-2.35");
  EXPECT_EQ(CellText(kColumns[2], 3), "1234.57");
  EXPECT_EQ(CellText(kColumns[2], 4), "0.00");
}

TEST_F(TableColumnsTest, TheLargestNumbersFitIntoACell) {
  FillEvents(1, [](EventRecord& event, std::int32_t) {
    event.Sweep = 2147483647;
    event.Transition = -1.7e308;
    event.PreAmplitude = 1.7e296;
  });
  EXPECT_EQ(CellText(kColumns[0], 0), "2147483647");
  const std::string transition = CellText(kColumns[1], 0);
  EXPECT_EQ(transition.size(), std::size_t{1 + 309 + 1 + 3});
  EXPECT_EQ(transition.front(), '-');
  EXPECT_EQ(CellText(kColumns[2], 0).size(), std::size_t{309 + 1 + 2});
}

TEST_F(TableColumnsTest, ARealIsMeasuredWithItsDecimals) {
  EXPECT_EQ(RealWidth(workspace(), 12.5, 6), 5 * 9);   // 12.500000
  EXPECT_EQ(RealWidth(workspace(), -12.5, 2), 5 * 6);  // -12.50
  EXPECT_EQ(RealWidth(workspace(), 0.0, 0), 5 * 1);    // 0
}

TEST_F(TableColumnsTest, WhatFollowsARealIsMeasuredWithIt) {
  EXPECT_EQ(RealWidth(workspace(), 12.5, 6, "sTE"), 5 * 12);
}

TEST_F(TableColumnsTest, TheWidestRealIsMeasuredWhole) {
  EXPECT_EQ(RealWidth(workspace(), -1e308, 6, "sTE"), 5 * (1 + 309 + 1 + 6 + 3));
}

}  // namespace
}  // namespace ondrel
