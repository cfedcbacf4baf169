#include "workspace/reading_reports.h"

#include "support/reading_test.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ReadingReports : public ReadingTest {};

TEST_F(ReadingReports, AGoodStatusIsNotReported) {
  EXPECT_FALSE(ReportCorrupted(Frame(), 0, 3, "Event"));
  EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(ReadingReports, ABadStatusIsReportedWithItsRowAndWord) {
  EXPECT_TRUE(ReportCorrupted(Frame(), -1, 3, "Sweep"));
  EXPECT_THAT(Messages(), ElementsAre("The data file is corrupted. Error occurred at number 3 of "
                                      "Sweep record."));
}

TEST_F(ReadingReports, AFullTableIsNamedTwice) {
  ReportTableFull(Frame(), "Event");
  EXPECT_THAT(Messages(),
              ElementsAre("Event table is full. File reading will be aborted. Select \"Settings\" "
                          "in \"File\" menu. Change Event table entries."));
}

TEST_F(ReadingReports, TheOtherReportsSayWhatTheyAreFor) {
  ReportCannotRead(Frame(), "a.evt");
  ReportTooManyFiles(Frame());
  ReportNotConsistent(Frame(), "So.");
  EXPECT_THAT(Messages(), ElementsAre(CannotRead("a.evt"), kTooManyFiles,
                                      "The data file is not consistant internally. So."));
}

TEST_F(ReadingReports, EveryReportIsABoxWithOneOkButtonAndTheStopIcon) {
  ReportCorrupted(Frame(), -1, 1, "Event");
  ReportTableFull(Frame(), "Event");
  ReportCannotRead(Frame(), "a.evt");
  ReportTooManyFiles(Frame());
  ReportNotConsistent(Frame(), "So.");
  ASSERT_EQ(shell().Boxes.size(), 5u);
  for (const scripted::Box& box : shell().Boxes) {
    EXPECT_EQ(box.Buttons, toolkit::BoxButtons::Ok);
    EXPECT_EQ(box.Icon, toolkit::BoxIcon::Stop);
  }
}

TEST_F(ReadingReports, OpenViewsLearnTheCountsOfTheirTables) {
  OpenTableView(ViewKind::Event);
  OpenTableView(ViewKind::Sweep);
  workspace().Events.Count = 7;
  workspace().Sweeps.Count = 3;
  RefreshEventAndSweepRanges(Frame());
  EXPECT_EQ(ScrollRange(ViewKind::Event), 6);
  EXPECT_EQ(ScrollRange(ViewKind::Sweep), 2);
  workspace().Sweeps.Count = 0;
}

}  // namespace
}  // namespace ondrel
