// What the four table views look like: header, colours of rows, nothing below the last row. The
// pictures are kept when ONDREL_PICTURES names a folder.
#include <gmock/gmock.h>

#include "fixtures.h"

namespace ondrel::e2e {
namespace {

class Pictures : public EndToEnd {
 protected:
  /// Opens a view if need be, gives it room, and returns its picture once it is drawn.
  [[nodiscard]] Picture Show(const Program& program, const std::string& title, int id) const {
    program.Command(id);
    program.WaitForTopView(title);
    const Window view = program.View(title);
    const Rect frame = program.Frame().ClientArea();
    view.MoveTo({0, 0, frame.Width(), frame.Height()});
    Picture picture = program.WaitForPicture(view, "a blue header", [this](const Picture& now) {
      return grid_.Header(now).Count(kBlue) > 100;
    });
    const std::string folder = Environment("ONDREL_PICTURES");
    if (!folder.empty()) SavePng(picture, NativePath(folder) + "\\view_" + title + ".png");
    return picture;
  }

  [[nodiscard]] bool IsBlank(const Picture& part) const {
    return part.Count(kWhite) == static_cast<int>(part.Pixels.size());
  }

  RowGrid grid_;
};

TEST_F(Pictures, TheEventViewHasABlueHeaderAndBlackRows) {
  Program program;
  program.PassStart();
  OpenTable(program, VersionFive(1, 7));
  const Picture view = Show(program, "Event", command::kViewEvent);
  EXPECT_EQ(grid_.Header(view).Count(kBlack), 0);
  for (int row = 0; row < 7; ++row) {
    EXPECT_GT(grid_.Row(view, row).Count(kBlack), 0) << row;
    EXPECT_EQ(grid_.Row(view, row).Count(kBlue), 0) << row;
  }
  EXPECT_TRUE(IsBlank(grid_.Below(view, 6)));
}

TEST_F(Pictures, TheLevelViewShowsTheFirstAndLastLevelOfEachSweepInGrey) {
  Program program;
  program.PassStart();
  OpenTable(program, VersionFive(2, 5));  // six levels a sweep
  const Picture view = Show(program, "Level", command::kViewLevel);
  for (int row = 0; row < 12; ++row) {
    const bool edge = row % 6 == 0 || row % 6 == 5;
    const Picture strip = grid_.Row(view, row);
    EXPECT_EQ(strip.Count(kBlack) > 0, !edge) << row;
    EXPECT_EQ(strip.Count(kGrey) > 0, edge) << row;
  }
  EXPECT_TRUE(IsBlank(grid_.Below(view, 11)));
}

TEST_F(Pictures, TheSweepViewShowsSelectedSweepsInBlack) {
  Program program;
  program.PassStart();
  OpenTable(program, VersionFive(4, 5));
  const Picture view = Show(program, "Sweep", command::kViewSweep);
  for (int row = 0; row < 4; ++row) {
    EXPECT_GT(grid_.Row(view, row).Count(kBlack), 0) << row;
    EXPECT_EQ(grid_.Row(view, row).Count(kGrey), 0) << row;
  }
  EXPECT_TRUE(IsBlank(grid_.Below(view, 3)));
}

TEST_F(Pictures, TheStatisticsViewShowsARowForEachLevelAndTheTotal) {
  Program program;
  program.PassStart();
  OpenTable(program, VersionFive(2, 9));  // levels 0 and 1 hold events
  const Picture view = Show(program, "Statistics", command::kViewStatistics);
  for (int row = 0; row < 3; ++row) {
    EXPECT_GT(grid_.Row(view, row).Count(kBlack), 0) << row;
  }
  EXPECT_TRUE(IsBlank(grid_.Below(view, 2)));
}

TEST_F(Pictures, AViewIsPaintedAgainWhereAnotherLayOnIt) {
  Program program;
  program.PassStart();
  OpenTable(program, VersionFive(1, 20));
  const Picture before = Show(program, "Event", command::kViewEvent);
  const Window events = program.View("Event");
  program.View("Level").MoveTo({100, 60, 500, 300});
  program.Command(command::kViewLevel);
  program.WaitForTopView("Level");
  ASSERT_NE(program.ClientPicture(events), before);
  program.Key(VK_F4, {VK_CONTROL});
  program.WaitForViews({"Event"});
  (void)program.WaitForPicture(events, "what it showed before",
                               [&](const Picture& now) { return now == before; });
}

}  // namespace
}  // namespace ondrel::e2e
