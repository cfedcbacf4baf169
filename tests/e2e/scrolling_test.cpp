// The scrolling tables: arrows, pages, thumb and keys. The thumb stands at the top row, and the
// rows on the screen are compared with those seen before.
#include <gmock/gmock.h>

#include "fixtures.h"

namespace ondrel::e2e {
namespace {

constexpr int kRows = 60;

class Scrolling : public EndToEnd {
 protected:
  /// A table of kRows events in an Event view that shows about a third of them, on top.
  void OpenEvents(Program& program) {
    program.PassStart();
    OpenTable(program, VersionFive(1, kRows));
    program.Command(command::kViewEvent);
    program.WaitForTopView("Event");
    view_ = program.View("Event");
    Resize(program, 20);
  }

  /// Gives the view the height for so many rows.
  void Resize(Program& program, int rows) {
    const int border = view_.Place().Height() - view_.ClientArea().Height();
    const int height = border + grid_.LineHeight() * (rows + 2) + grid_.LineHeight() / 2;
    view_.MoveTo({10, 10, 610, 10 + height});
    WaitFor("the view to have " + std::to_string(rows) + " rows",
            [&] { return Visible() == rows; });
    program.Settle(view_);
  }

  [[nodiscard]] int Visible() const { return grid_.VisibleRows(view_.ClientArea().Height()); }

  /// Waits until the view shows row `first` of `all` and those that follow it, from the top. `all`
  /// is the picture with row 0 on top.
  void ExpectRowsFrom(const Program& program, const Picture& all, int first, int rows) const {
    (void)program.WaitForPicture(view_, "the rows from " + std::to_string(first) + " on",
                                 [&](const Picture& now) {
                                   for (int row = 0; row < rows; ++row) {
                                     if (grid_.Row(now, row) != grid_.Row(all, first + row))
                                       return false;
                                   }
                                   return true;
                                 });
  }

  Window view_;
  RowGrid grid_;
};

/// A paint puts the thumb to the top row, so that a thumb which stays elsewhere tells of none.
TEST_F(Scrolling, AnEmptyUpdateRectangleIsNotPainted) {
  Program program;
  OpenEvents(program);
  view_.Send(WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 5));
  EXPECT_EQ(program.Scroll(view_).Position, 5);
  view_.Send(WM_PAINT);
  EXPECT_EQ(program.Scroll(view_).Position, 5);
  InvalidateRect(view_.Handle(), nullptr, FALSE);
  program.WaitForScroll(view_, 0);
}

TEST_F(Scrolling, TheRangeIsTheTableAndTheThumbBeginsAtItsFirstRow) {
  Program program;
  OpenEvents(program);
  const ScrollBar bar = program.Scroll(view_);
  EXPECT_EQ(bar.Minimum, 0);
  EXPECT_EQ(bar.Maximum, kRows - 1);
  EXPECT_EQ(bar.Position, 0);
  EXPECT_EQ(program.Scroll(program.View("Level")).Maximum, kRows);
}

TEST_F(Scrolling, TheArrowsMoveByOneRow) {
  Program program;
  OpenEvents(program);
  const Picture start = program.ClientPicture(view_);
  for (int click = 1; click <= 3; ++click) {
    program.ClickAt(program.Scroll(view_).DownArrow.Middle());
    program.WaitForScroll(view_, click);
  }
  ExpectRowsFrom(program, start, 3, 17);
  program.ClickAt(program.Scroll(view_).UpArrow.Middle());
  program.WaitForScroll(view_, 2);
  ExpectRowsFrom(program, start, 2, 18);
}

TEST_F(Scrolling, TheArrowUpStopsAtTheFirstRow) {
  Program program;
  OpenEvents(program);
  const Picture start = program.ClientPicture(view_);
  program.ClickAt(program.Scroll(view_).UpArrow.Middle());
  EXPECT_EQ(program.Scroll(view_).Position, 0);
  EXPECT_EQ(program.ClientPicture(view_), start);
}

TEST_F(Scrolling, APageIsOneRowLessThanIsSeen) {
  Program program;
  OpenEvents(program);
  const Picture start = program.ClientPicture(view_);
  const ScrollBar bar = program.Scroll(view_);
  const Point below{bar.Thumb.Middle().X, (bar.Thumb.Bottom + bar.DownArrow.Top) / 2};
  program.ClickAt(below);
  program.WaitForScroll(view_, Visible() - 1);
  ExpectRowsFrom(program, start, Visible() - 1, 1);

  const ScrollBar moved = program.Scroll(view_);
  program.ClickAt({moved.Thumb.Middle().X, moved.UpArrow.Bottom + 2});
  program.WaitForScroll(view_, 0);
  (void)program.WaitForPicture(view_, "the start",
                               [&](const Picture& now) { return now == start; });
}

TEST_F(Scrolling, ADraggedThumbTakesTheTopRowWithIt) {
  Program program;
  OpenEvents(program);
  const Picture start = program.ClientPicture(view_);
  const ScrollBar bar = program.Scroll(view_);
  const Point from = bar.Thumb.Middle();
  const int track = bar.DownArrow.Top - bar.UpArrow.Bottom - bar.Thumb.Height();
  program.Drag(from, {from.X, from.Y + track / 5});
  const int position = program.Scroll(view_).Position;
  EXPECT_GT(position, kRows / 5 - 4);
  EXPECT_LT(position, kRows / 5 + 4);
  ExpectRowsFrom(program, start, position, 20 - position);
}

TEST_F(Scrolling, AThumbDraggedPastTheEndShowsTheLastRowAlone) {
  Program program;
  OpenEvents(program);
  const ScrollBar bar = program.Scroll(view_);
  program.Drag(bar.Thumb.Middle(), {bar.Thumb.Middle().X, bar.Place.Bottom + 5});
  program.WaitForScroll(view_, kRows - 1);
  (void)program.WaitForPicture(view_, "one row alone", [&](const Picture& now) {
    const Picture below = grid_.Below(now, 0);
    return grid_.Row(now, 0).Count(kBlack) > 0 &&
           below.Count(kWhite) == static_cast<int>(below.Pixels.size());
  });
}

TEST_F(Scrolling, KeysMoveTheTopRow) {
  Program program;
  OpenEvents(program);
  const Picture start = program.ClientPicture(view_);
  const int page = Visible() - 1;
  program.Key(VK_DOWN);
  program.WaitForScroll(view_, 1);
  ExpectRowsFrom(program, start, 1, 19);
  program.Key(VK_UP);
  program.WaitForScroll(view_, 0);
  program.Key(VK_NEXT);
  program.WaitForScroll(view_, page);
  ExpectRowsFrom(program, start, page, 1);
  program.Key(VK_PRIOR);
  program.WaitForScroll(view_, 0);
  program.Key(VK_END);
  program.WaitForScroll(view_, kRows - 1);
  program.Key(VK_HOME);
  program.WaitForScroll(view_, 0);
  (void)program.WaitForPicture(view_, "the start",
                               [&](const Picture& now) { return now == start; });
}

TEST_F(Scrolling, KeysLeftAndRightDoNothingInATable) {
  Program program;
  OpenEvents(program);
  const Picture start = program.ClientPicture(view_);
  program.Key(VK_RIGHT);
  program.Key(VK_LEFT);
  EXPECT_EQ(program.Scroll(view_).Position, 0);
  EXPECT_EQ(program.ClientPicture(view_), start);
}

TEST_F(Scrolling, PageDownStopsAtTheLastRow) {
  Program program;
  OpenEvents(program);
  for (int page = 0; page < 5; ++page) program.Key(VK_NEXT);
  program.WaitForScroll(view_, kRows - 1);
}

TEST_F(Scrolling, EndShowsTheLastRowAlone) {
  Program program;
  OpenEvents(program);
  // The last row as it looks in the last place but one of the table's end.
  program.Key(VK_END);
  program.WaitForScroll(view_, kRows - 1);
  const Picture end = program.WaitForPicture(view_, "one row alone", [&](const Picture& now) {
    const Picture below = grid_.Below(now, 0);
    return grid_.Row(now, 0).Count(kBlack) > 0 &&
           below.Count(kWhite) == static_cast<int>(below.Pixels.size());
  });
  program.Key(VK_UP);
  program.WaitForScroll(view_, kRows - 2);
  (void)program.WaitForPicture(view_, "the last row in the second place", [&](const Picture& now) {
    return grid_.Row(now, 1) == grid_.Row(end, 0) && grid_.Row(now, 0) != grid_.Row(end, 0);
  });
}

TEST_F(Scrolling, LinesAndPagesLeadToTheSamePicture) {
  Program program;
  OpenEvents(program);
  const int page = Visible() - 1;
  program.Key(VK_NEXT);
  program.WaitForScroll(view_, page);
  const Picture byPage = program.ClientPicture(view_);
  program.Key(VK_HOME);
  program.WaitForScroll(view_, 0);
  for (int line = 0; line < page; ++line) program.Key(VK_DOWN);
  program.WaitForScroll(view_, page);
  (void)program.WaitForPicture(view_, "what a page leads to",
                               [&](const Picture& now) { return now == byPage; });
}

// A short step back draws the new top row into every line that it frees, until the next full
// painting; users know it and scroll on.
TEST_F(Scrolling, AStepBackOfAFewRowsRepeatsTheTopRowUntilTheNextPainting) {
  Program program;
  program.PassStart();
  OpenTable(program, VersionFive(1, 5));
  program.Command(command::kViewEvent);
  program.WaitForTopView("Event");
  view_ = program.View("Event");
  Resize(program, 20);
  const Picture start = program.ClientPicture(view_);
  program.Key(VK_END);
  program.WaitForScroll(view_, 4);
  program.Key(VK_HOME);
  program.WaitForScroll(view_, 0);
  (void)program.WaitForPicture(view_, "the first row four times, then the last",
                               [&](const Picture& now) {
                                 for (int row = 0; row < 4; ++row) {
                                   if (grid_.Row(now, row) != grid_.Row(start, 0)) return false;
                                 }
                                 return grid_.Row(now, 4) == grid_.Row(start, 4);
                               });
  Resize(program, 19);
  (void)program.WaitForPicture(view_, "every row again", [&](const Picture& now) {
    return grid_.Row(now, 1) == grid_.Row(start, 1) && grid_.Row(now, 3) == grid_.Row(start, 3);
  });
}

// "&Reset" repaints the Level view, and leaves the Event view alone.
TEST_F(Scrolling, ResetRepaintsTheLevelViewAndNotTheEventView) {
  Program program;
  program.PassStart();
  OpenTable(program, VersionFive(1, 5));
  const Window events = program.View("Event");
  const Window levels = program.View("Level");
  events.MoveTo({0, 0, 450, 350});
  levels.MoveTo({0, 360, 800, 710});
  program.Settle(levels);
  const Picture levelStart = program.ClientPicture(levels);
  const Picture eventStart = program.ClientPicture(events);

  program.Key(VK_END);
  program.WaitForScroll(levels, 5);
  program.Key(VK_HOME);
  program.WaitForScroll(levels, 0);
  program.Command(command::kViewEvent);
  program.WaitForTopView("Event");
  program.Key(VK_END);
  program.WaitForScroll(events, 4);
  program.Key(VK_HOME);
  program.WaitForScroll(events, 0);
  const Picture eventsRepeated = program.ClientPicture(events);
  const Picture levelsRepeated = program.ClientPicture(levels);
  ASSERT_NE(eventsRepeated, eventStart);
  ASSERT_NE(levelsRepeated, levelStart);

  program.CommandDone(command::kReset);
  (void)program.WaitForPicture(levels, "every row again",
                               [&](const Picture& now) { return now == levelStart; });
  EXPECT_EQ(program.ClientPicture(events), eventsRepeated);
}

TEST_F(Scrolling, AnEmptyTableHasARangeOfZeroAndShowsOnlyTheHeader) {
  Program program;
  program.PassStart();
  OpenTable(program, "3\tFile");
  program.Command(command::kViewEvent);
  program.WaitForTopView("Event");
  view_ = program.View("Event");
  EXPECT_EQ(program.Scroll(view_).Minimum, 0);
  EXPECT_EQ(program.Scroll(view_).Maximum, 0);
  const Picture picture = program.ClientPicture(view_);
  EXPECT_GT(grid_.Header(picture).Count(kBlue), 0);
  const Picture rows = grid_.Below(picture, -1);
  EXPECT_EQ(rows.Count(kWhite), static_cast<int>(rows.Pixels.size()));
  program.Key(VK_END);
  EXPECT_EQ(program.ClientPicture(view_), picture);
}

}  // namespace
}  // namespace ondrel::e2e
