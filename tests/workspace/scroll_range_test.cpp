#include "workspace/scroll_range.h"

#include "support/shell_test.h"

namespace ondrel {
namespace {

class ScrollRangeTest : public ShellTest {
 protected:
  ScrollRangeTest() {
    window_.Record.Handle = &window_;
    window_.Bars[0] = {.Exists = true, .Maximum = 77, .Position = 0};
    window_.Bars[1] = {.Exists = true, .Maximum = 33, .Position = 0};
    view_.Window = &window_.Record;
  }

  std::int32_t Maximum(Axis axis) { return window_.Bars[static_cast<std::size_t>(axis)].Maximum; }

  scripted::Window window_;
  ViewState view_;
};

TEST_F(ScrollRangeTest, TheRangeOfAnOpenViewEndsAtTheLastRow) {
  RefreshScrollRange(view_, 12);
  EXPECT_EQ(Maximum(Axis::Vertical), 11);
  EXPECT_EQ(Maximum(Axis::Horizontal), 33);
}

TEST_F(ScrollRangeTest, AnEmptyTableHasTheRangeOfOneRow) {
  RefreshScrollRange(view_, 0);
  EXPECT_EQ(Maximum(Axis::Vertical), 0);
}

TEST_F(ScrollRangeTest, AClosedViewsBarIsLeftAlone) {
  view_.Window = nullptr;
  RefreshScrollRange(view_, 12);
  EXPECT_EQ(Maximum(Axis::Vertical), 77);
}

TEST_F(ScrollRangeTest, ATopRowThatATableHasLostBecomesItsLast) {
  view_.TopRow = 3000;
  RefreshScrollRange(view_, 12);
  EXPECT_EQ(view_.TopRow, 11);
  view_.Window = nullptr;
  RefreshScrollRange(view_, 5);
  EXPECT_EQ(view_.TopRow, 4);
}

TEST_F(ScrollRangeTest, ATopRowThatIsStillThereStays) {
  view_.TopRow = 7;
  RefreshScrollRange(view_, 12);
  EXPECT_EQ(view_.TopRow, 7);
}

TEST_F(ScrollRangeTest, TheViewOfAnEmptyTableStandsAtItsBeginning) {
  view_.TopRow = -1;  // after End in an empty table
  RefreshScrollRange(view_, 0);
  EXPECT_EQ(view_.TopRow, 0);
}

}  // namespace
}  // namespace ondrel
