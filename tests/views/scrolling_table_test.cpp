#include "views/scrolling_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "shell/window_events.h"
#include "support/recording_sink.h"
#include "support/view_test.h"

namespace ondrel {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
using ::testing::StartsWith;

constexpr RgbColor kPaper{10, 20, 30};
const char kFillWithPaper[] = " with 10 20 30";

/// The event view with room for a number of rows. An event's `Sweep` is its row from 1, so that the
/// first cell tells which row is drawn.
class ScrollingTableTest : public ViewTest {
 protected:
  static constexpr std::int32_t kAreaTop = 3 * kLine - kAscent;
  static constexpr std::int32_t kWidth = 700;
  static constexpr std::int32_t kPartialRow = 5;

  void Show(std::int32_t events, std::int32_t rows, std::int32_t topRow = 0) {
    FillEvents(events, [](EventRecord& event, std::int32_t row) {
      event.Sweep = static_cast<std::uint32_t>(row + 1);
    });
    View(ViewKind::Event).Colors = {kBlack, kPaper, kBlue};
    Open(ViewKind::Event);
    GiveHeight(kAreaTop + rows * kLine + kPartialRow);
    state().TopRow = topRow;
    PaintAll();
    ForgetAll();
  }

  void GiveHeight(std::int32_t height) {
    WindowOf(ViewKind::Event).Client = {0, 0, kWidth, height};
  }

  std::vector<std::string> PaintAll() { return Paint(ViewKind::Event); }

  ViewState& state() { return View(ViewKind::Event); }
  const RecordTable& table() { return *FactsOf(ViewKind::Event).Routines->Scrolled; }
  std::int32_t Thumb() { return WindowOf(ViewKind::Event).Bars[0].Position; }
  std::vector<IntRect> Invalidated() { return WindowOf(ViewKind::Event).Invalidated; }

  void Begin() { BeginScroll(workspace(), table()); }
  void Step(ScrollStep step) { StepScroll(workspace(), table(), step); }
  void Done() { EndScroll(workspace(), table()); }

  /// The rows that were drawn, each as its baseline and its number from 1.
  std::vector<std::string> RowsIn(const std::vector<std::string>& drawing) {
    std::vector<std::string> rows;
    for (const DrawnText& text : TextsIn(drawing)) {
      const bool firstCell = text.X + WidthOf(text.Text) == state().ColumnRight[0];
      if (!firstCell || text.Text == "Sweep") continue;
      rows.push_back(std::to_string(text.Y) + ": " + text.Text);
    }
    return rows;
  }

  /// Rows `first` to `last` from the top of the row area on.
  static std::vector<std::string> RowsFromTop(std::int32_t first, std::int32_t last) {
    std::vector<std::string> rows;
    for (std::int32_t row = first; row <= last; ++row) {
      rows.push_back(std::to_string(3 * kLine + (row - first) * kLine) + ": " +
                     std::to_string(row));
    }
    return rows;
  }

  std::string Fill(const IntRect& rect) {
    return "fill " + std::to_string(rect.Left) + " " + std::to_string(rect.Top) + " " +
           std::to_string(rect.Right) + " " + std::to_string(rect.Bottom) + kFillWithPaper;
  }
};

// --- Painting ------------------------------------------------------------------------------------

TEST_F(ScrollingTableTest, APaintSetsUpFillsClipsDrawsAndCleansUp) {
  Show(1, 10);
  const std::vector<std::string> drawing = PaintAll();
  std::vector<std::string> frame;
  for (const std::string& line : drawing) {
    if (!line.starts_with("text ")) frame.push_back(line);
  }
  EXPECT_THAT(frame, ElementsAre("background 10 20 30", "pen width 1", Fill({0, 0, kWidth, 164}),
                                 "clip 0 0 700 159", "color 0 0 65535", "color 0 0 0", "clip off",
                                 "clean up"));
}

TEST_F(ScrollingTableTest, TheFirstHeaderLineStandsAtTheAscentAndTheSecondALineBelow) {
  Show(0, 10);
  const std::vector<DrawnText> texts = TextsIn(PaintAll());
  ASSERT_EQ(texts.size(), std::size_t{9});
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(texts[i].Y, kAscent);
  for (std::size_t i = 3; i < 9; ++i) EXPECT_EQ(texts[i].Y, kAscent + kLine);
}

TEST_F(ScrollingTableTest, TheFirstRowStandsThreeLinesBelowTheTop) {
  Show(3, 10);
  EXPECT_THAT(RowsIn(PaintAll()), ElementsAre("39: 1", "52: 2", "65: 3"));
}

TEST_F(ScrollingTableTest, RowsBeginWithTheTopRowAndFillTheWindow) {
  Show(40, 10, 7);
  EXPECT_THAT(RowsIn(PaintAll()), ElementsAreArray(RowsFromTop(8, 17)));
}

TEST_F(ScrollingTableTest, EachRowSetsItsColourBeforeItsCells) {
  Show(2, 10);
  std::vector<std::string> rows = PaintAll();
  rows.erase(rows.begin(), std::find(rows.begin(), rows.end(), "color 0 0 0"));
  ASSERT_EQ(rows.size(), std::size_t{2 * 7 + 2});
  EXPECT_EQ(rows[0], "color 0 0 0");
  EXPECT_THAT((std::vector<std::string>{rows.begin() + 1, rows.begin() + 7}),
              Each(StartsWith("text ")));
  EXPECT_EQ(rows[7], "color 0 0 0");
}

TEST_F(ScrollingTableTest, AsManyRowsAreVisibleAsFitWhole) {
  Show(40, 10);
  for (const std::int32_t rows : {1, 2, 9, 10}) {
    GiveHeight(kAreaTop + rows * kLine);
    PaintAll();
    EXPECT_EQ(state().VisibleRows, rows);
    GiveHeight(kAreaTop + rows * kLine - 1);
    PaintAll();
    EXPECT_EQ(state().VisibleRows, rows - 1);
  }
}

TEST_F(ScrollingTableTest, ARowThatFitsInPartIsNeitherDrawnNorWithinTheClip) {
  Show(40, 10);
  GiveHeight(kAreaTop + 10 * kLine + kLine - 1);
  const std::vector<std::string> drawing = PaintAll();
  EXPECT_THAT(RowsIn(drawing), ElementsAreArray(RowsFromTop(1, 10)));
  EXPECT_THAT(LinesWith(drawing, "clip 0"), ElementsAre("clip 0 0 700 159"));
}

TEST_F(ScrollingTableTest, ALargerFontLeavesRoomForFewerRows) {
  Show(40, 10);
  workspace().FontSize = 20;  // 26 units high, 20 above the baseline
  const std::vector<std::string> drawing = PaintAll();
  EXPECT_EQ(state().VisibleRows, 4);  // 106 from above the first row's letters, 26 a line
  EXPECT_THAT(LinesWith(drawing, "clip 0"), ElementsAre("clip 0 0 700 162"));  // 78 - 20 + 4 * 26
}

TEST_F(ScrollingTableTest, AWindowThatBeginsLowerKeepsAllDistances) {
  Show(40, 10);
  WindowOf(ViewKind::Event).Client = {3, 100, 703, 264};
  const std::vector<std::string> drawing = PaintAll();
  EXPECT_EQ(state().VisibleRows, 10);
  EXPECT_EQ(TextsIn(drawing).front().Y, 100 + kAscent);
  EXPECT_EQ(RowsIn(drawing).front(), "139: 1");
  EXPECT_THAT(LinesWith(drawing, "clip 3"), ElementsAre("clip 3 100 703 259"));
}

TEST_F(ScrollingTableTest, TheThumbIsSetToTheTopRowByEveryPaint) {
  Show(40, 10);
  state().TopRow = 23;
  PaintAll();
  EXPECT_EQ(Thumb(), 23);
}

TEST_F(ScrollingTableTest, PastTheLastRowTheBackgroundShows) {
  Show(40, 10, 37);
  EXPECT_THAT(RowsIn(PaintAll()), ElementsAreArray(RowsFromTop(38, 40)));
}

TEST_F(ScrollingTableTest, AFailureOfAnEarlierDrawingDoesNotStopAPaint) {
  Show(3, 10);
  workspace().Graphics.Status = recording::kFullDisk;
  EXPECT_THAT(RowsIn(PaintAll()), ElementsAreArray(RowsFromTop(1, 3)));
  EXPECT_EQ(workspace().Graphics.Status, 0);
}

TEST_F(ScrollingTableTest, PaintingInTheLargestFontThatSettingsTakeShowsNoRows) {
  Show(3, 10);
  workspace().FontSize = 2147483647;
  EXPECT_EQ(TextsIn(PaintAll()).size(), std::size_t{9});  // the header
  EXPECT_LE(state().VisibleRows, 0);
}

// --- Any sink ------------------------------------------------------------------------------------

class DrawRecordTableTest : public ScrollingTableTest {
 protected:
  DrawRecordTableTest() {
    recording::Clear();
    Show(5, 3, 1);
    state().ColumnRight = {10.5, 20.5, 30.5, 40.5, 50.5, 60.5};
  }

  void Draw() {
    DrawRecordTable({recording::kRecordingSink, workspace().Graphics}, workspace(), table(),
                    {.HeaderBaseline = 1.25, .FirstRowBaseline = 8.5, .LineHeight = 2.25});
  }

  static std::vector<std::string> Row(const std::string& number, const std::string& baseline) {
    return {"color k 0 0 0",
            "right 10.5 " + baseline + " " + number,
            "right 20.5 " + baseline + " 0.000000",
            "right 30.5 " + baseline + " 0.00",
            "right 40.5 " + baseline + " 0.00",
            "right 50.5 " + baseline + " 0",
            "right 60.5 " + baseline + " 0.0000"};
  }

  static std::vector<std::string> HeaderAnd(const std::vector<std::vector<std::string>>& rows) {
    std::vector<std::string> lines = {"color k 0 0 65535",
                                      "right 30.5 1.25 Pre",
                                      "right 40.5 1.25 Post",
                                      "right 60.5 1.25 Tag",
                                      "right 10.5 3.5 Sweep",
                                      "right 20.5 3.5 Transition(s)",
                                      "right 30.5 3.5 Amplitude(pA)",
                                      "right 40.5 3.5 Amplitude(pA)",
                                      "right 50.5 3.5 Level",
                                      "right 60.5 3.5 Value"};
    for (const auto& row : rows) lines.insert(lines.end(), row.begin(), row.end());
    return lines;
  }
};

TEST_F(DrawRecordTableTest, TheSinkGetsTheHeaderAndTheVisibleRowsAtUnroundedPlaces) {
  Draw();
  EXPECT_THAT(recording::Lines(),
              ElementsAreArray(HeaderAnd({Row("2", "8.5"), Row("3", "10.75"), Row("4", "13")})));
}

TEST_F(DrawRecordTableTest, TheRowsStopAfterTheHeaderWhenAWriteHasFailed) {
  recording::FailText(1);
  Draw();
  std::vector<std::string> header = HeaderAnd({});
  header.erase(header.begin() + 1);  // the text that failed
  EXPECT_THAT(recording::Lines(), ElementsAreArray(header));
  EXPECT_EQ(workspace().Graphics.Status, recording::kFullDisk);
}

TEST_F(DrawRecordTableTest, NoRowFollowsOneThatCouldNotBeWritten) {
  recording::FailText(9 + 6 + 6);  // the last cell of the second row
  Draw();
  std::vector<std::string> second = Row("3", "10.75");
  second.pop_back();
  EXPECT_THAT(recording::Lines(), ElementsAreArray(HeaderAnd({Row("2", "8.5"), second})));
}

TEST_F(DrawRecordTableTest, EveryDestinationShowsTheRowsOfTheScreenAndNotTheWholeTable) {
  state().VisibleRows = 1;
  Draw();
  EXPECT_THAT(recording::Lines(), ElementsAreArray(HeaderAnd({Row("2", "8.5")})));
}

// --- An empty table ------------------------------------------------------------------------------

TEST_F(ScrollingTableTest, AnEmptyTableHasAScrollRangeOfNothingAndShowsOnlyTheHeader) {
  Show(0, 10);
  EXPECT_EQ(WindowOf(ViewKind::Event).Bars[0].Maximum, 0);
  EXPECT_THAT(RowsIn(PaintAll()), IsEmpty());
  EXPECT_EQ(TextsIn(PaintAll()).size(), std::size_t{9});
}

TEST_F(ScrollingTableTest, EndInAnEmptyTableSetsTheTopRowToMinusOneAndDrawsNoRow) {
  Show(0, 10);
  Begin();
  Step(ScrollStep::End);
  Done();
  EXPECT_EQ(state().TopRow, -1);
  EXPECT_EQ(Thumb(), 0);
  EXPECT_THAT(TextsIn(Drawn()), IsEmpty());
  EXPECT_THAT(RowsIn(PaintAll()), IsEmpty());
}

TEST_F(ScrollingTableTest, HomeLeadsBackFromMinusOne) {
  Show(0, 10);
  Step(ScrollStep::End);
  Step(ScrollStep::Home);
  EXPECT_EQ(state().TopRow, 0);
}

TEST_F(ScrollingTableTest, ASweepTableIsScrolledToMinusOneWithoutReadingARow) {
  FillSweeps(0, [](SweepRecord&, std::int32_t) {});
  Open(ViewKind::Sweep);
  WindowOf(ViewKind::Sweep).Client = {0, 0, kWidth, 164};
  Paint(ViewKind::Sweep);
  const RecordTable& sweeps = *FactsOf(ViewKind::Sweep).Routines->Scrolled;
  StepScroll(workspace(), sweeps, ScrollStep::End);
  EXPECT_EQ(View(ViewKind::Sweep).TopRow, -1);
  EXPECT_EQ(TextsIn(Paint(ViewKind::Sweep)).size(), std::size_t{13});  // the header
}

// --- A window shorter than the header ------------------------------------------------------------

TEST_F(ScrollingTableTest, AWindowShorterThanTheHeaderHasNoRowsAndEveryShiftInvalidates) {
  Show(40, 10);
  GiveHeight(20);  // (20 - 39 + 10) / 13
  EXPECT_THAT(RowsIn(PaintAll()), IsEmpty());
  EXPECT_EQ(state().VisibleRows, 0);
  ForgetAll();
  Step(ScrollStep::LineDown);
  EXPECT_EQ(state().TopRow, 1);
  EXPECT_THAT(Invalidated(), ElementsAre(IntRect{0, kAreaTop, kWidth, kAreaTop}));
  EXPECT_THAT(LinesWith(Drawn(), "scroll "), IsEmpty());
}

TEST_F(ScrollingTableTest, AWindowWithoutHeightHasFewerThanNoRowsAndStillScrolls) {
  Show(40, 10);
  GiveHeight(0);  // (0 - 39 + 10) / 13, truncated toward zero
  EXPECT_THAT(RowsIn(PaintAll()), IsEmpty());
  EXPECT_EQ(state().VisibleRows, -2);
  ForgetAll();
  Step(ScrollStep::LineDown);
  Step(ScrollStep::LineUp);
  EXPECT_EQ(state().TopRow, 0);
  EXPECT_EQ(Invalidated().size(), std::size_t{2});
  EXPECT_THAT(LinesWith(Drawn(), "scroll "), IsEmpty());
}

TEST_F(ScrollingTableTest, WithRoomForOneRowEveryShiftInvalidatesIt) {
  Show(40, 1);
  Step(ScrollStep::LineDown);
  EXPECT_THAT(Invalidated(), ElementsAre(IntRect{0, kAreaTop, kWidth, kAreaTop + kLine}));
  EXPECT_THAT(LinesWith(Drawn(), "scroll "), IsEmpty());
}

// --- Steps ---------------------------------------------------------------------------------------

TEST_F(ScrollingTableTest, ALineUpOrDownIsOneRow) {
  Show(40, 10, 20);
  Step(ScrollStep::LineDown);
  EXPECT_EQ(state().TopRow, 21);
  Step(ScrollStep::LineUp);
  Step(ScrollStep::LineUp);
  EXPECT_EQ(state().TopRow, 19);
}

TEST_F(ScrollingTableTest, APageIsOneRowLessThanIsVisible) {
  Show(40, 10, 20);
  Step(ScrollStep::PageDown);
  EXPECT_EQ(state().TopRow, 29);
  Step(ScrollStep::PageUp);
  Step(ScrollStep::PageUp);
  EXPECT_EQ(state().TopRow, 11);
}

TEST_F(ScrollingTableTest, StepsUpStopAtTheFirstRow) {
  Show(40, 10, 3);
  Step(ScrollStep::PageUp);
  EXPECT_EQ(state().TopRow, 0);
  Step(ScrollStep::LineUp);
  EXPECT_EQ(state().TopRow, 0);
}

TEST_F(ScrollingTableTest, StepsDownStopAtTheLastRowWhichThenStandsAlone) {
  Show(40, 10, 35);
  Step(ScrollStep::PageDown);
  EXPECT_EQ(state().TopRow, 39);
  Step(ScrollStep::LineDown);
  EXPECT_EQ(state().TopRow, 39);
  EXPECT_THAT(RowsIn(PaintAll()), ElementsAre("39: 40"));
}

TEST_F(ScrollingTableTest, EndShowsTheLastRowAloneAndHomeTheFirst) {
  Show(40, 10, 5);
  Step(ScrollStep::End);
  EXPECT_EQ(state().TopRow, 39);
  EXPECT_THAT(RowsIn(PaintAll()), ElementsAre("39: 40"));
  Step(ScrollStep::Home);
  EXPECT_EQ(state().TopRow, 0);
}

TEST_F(ScrollingTableTest, TheThumbFollowsEveryStep) {
  Show(40, 10);
  Step(ScrollStep::LineDown);
  EXPECT_EQ(Thumb(), 1);
  Step(ScrollStep::PageDown);
  EXPECT_EQ(Thumb(), 10);
  Step(ScrollStep::LineUp);
  EXPECT_EQ(Thumb(), 9);
  Step(ScrollStep::PageUp);
  EXPECT_EQ(Thumb(), 0);
  Step(ScrollStep::End);
  EXPECT_EQ(Thumb(), 39);
  Step(ScrollStep::Home);
  EXPECT_EQ(Thumb(), 0);
}

TEST_F(ScrollingTableTest, AStepThatMovesNothingDrawsNothing) {
  Show(40, 10);
  Step(ScrollStep::LineUp);
  Step(ScrollStep::PageUp);
  Step(ScrollStep::Home);
  EXPECT_THAT(Drawn(), IsEmpty());
  EXPECT_THAT(Invalidated(), IsEmpty());
}

// --- Shifts --------------------------------------------------------------------------------------

TEST_F(ScrollingTableTest, ALineDownMovesThePixelsUpAndDrawsOneRowAtTheBottom) {
  Show(40, 10);
  Step(ScrollStep::LineDown);
  const std::vector<std::string> drawing = Drawn();
  std::vector<std::string> frame;
  for (const std::string& line : drawing) {
    if (!line.starts_with("text ")) frame.push_back(line);
  }
  EXPECT_THAT(frame,
              ElementsAre("background 10 20 30", "pen width 1",
                          "scroll 0 29 700 159 by -13 with 10 20 30", "clip 0 29 700 159",
                          Fill({0, 146, kWidth, 159}), "color 0 0 0", "clip off", "clean up"));
  EXPECT_THAT(RowsIn(drawing), ElementsAre("156: 11"));
  EXPECT_EQ(TextsIn(drawing).size(), std::size_t{6});
  EXPECT_THAT(Invalidated(), IsEmpty());
}

TEST_F(ScrollingTableTest, AShiftToTheLastRowClearsTheLinesBehindIt) {
  Show(13, 10, 8);
  Step(ScrollStep::End);  // by four rows; the table ends before the window does
  EXPECT_THAT(LinesWith(Drawn(), "scroll "),
              ElementsAre("scroll 0 29 700 159 by -52 with 10 20 30"));
  EXPECT_THAT(LinesWith(Drawn(), "fill "), ElementsAre(Fill({0, 107, kWidth, 159})));
  EXPECT_THAT(RowsIn(Drawn()), IsEmpty());
}

TEST_F(ScrollingTableTest, AShiftForwardDrawsOnlyRowsThatExist) {
  Show(22, 30, 18);  // 30 rows of room, four of them in use
  Step(ScrollStep::LineDown);
  EXPECT_THAT(RowsIn(Drawn()), IsEmpty());
  EXPECT_EQ(state().TopRow, 19);
}

TEST_F(ScrollingTableTest, ALineUpMovesThePixelsDownAndDrawsOneRowAtTheTop) {
  Show(40, 10, 20);
  Step(ScrollStep::LineUp);
  const std::vector<std::string> drawing = Drawn();
  EXPECT_THAT(LinesWith(drawing, "scroll "),
              ElementsAre("scroll 0 29 700 159 by 13 with 10 20 30"));
  EXPECT_THAT(LinesWith(drawing, "fill "), ElementsAre(Fill({0, 29, kWidth, 42})));
  EXPECT_THAT(RowsIn(drawing), ElementsAre("39: 20"));
  EXPECT_THAT(Invalidated(), IsEmpty());
}

TEST_F(ScrollingTableTest, AShiftBackwardBySeveralRowsDrawsTheTopRowInAllNewLines) {
  Show(40, 10, 4);
  Step(ScrollStep::Home);
  EXPECT_THAT(LinesWith(Drawn(), "scroll "),
              ElementsAre("scroll 0 29 700 159 by 52 with 10 20 30"));
  EXPECT_THAT(LinesWith(Drawn(), "fill "), ElementsAre(Fill({0, 29, kWidth, 81})));
  EXPECT_THAT(RowsIn(Drawn()), ElementsAre("78: 1", "65: 1", "52: 1", "39: 1"));
  EXPECT_THAT(RowsIn(PaintAll()), ElementsAreArray(RowsFromTop(1, 10)));
}

TEST_F(ScrollingTableTest, APageUpStoppedAtTheTopRepeatsTheTopRowToo) {
  Show(40, 10, 2);
  Step(ScrollStep::PageUp);
  EXPECT_THAT(RowsIn(Drawn()), ElementsAre("52: 1", "39: 1"));
}

TEST_F(ScrollingTableTest, AShiftByHalfTheRowsInvalidatesTheRowAreaInstead) {
  Show(40, 10, 5);
  Step(ScrollStep::Home);
  EXPECT_THAT(Invalidated(), ElementsAre(IntRect{0, 29, kWidth, 159}));
  EXPECT_THAT(LinesWith(Drawn(), "scroll "), IsEmpty());
  EXPECT_THAT(RowsIn(Drawn()), IsEmpty());
  EXPECT_EQ(Thumb(), 0);
}

TEST_F(ScrollingTableTest, HalfOfAnOddNumberOfRowsIsRoundedDown) {
  Show(40, 5, 2);
  Step(ScrollStep::Home);  // two of five
  EXPECT_EQ(Invalidated().size(), std::size_t{1});
  Step(ScrollStep::LineDown);  // one of five
  EXPECT_EQ(Invalidated().size(), std::size_t{1});
  EXPECT_EQ(LinesWith(Drawn(), "scroll ").size(), std::size_t{1});
}

TEST_F(ScrollingTableTest, APageAwayFromTheEndsInvalidates) {
  Show(40, 10, 20);
  Step(ScrollStep::PageDown);
  Step(ScrollStep::PageUp);
  EXPECT_EQ(Invalidated().size(), std::size_t{2});
  EXPECT_THAT(LinesWith(Drawn(), "scroll "), IsEmpty());
}

TEST_F(ScrollingTableTest, AShiftGivesBackWhatItTook) {
  Show(40, 10);
  Step(ScrollStep::LineDown);
  Step(ScrollStep::End);
  EXPECT_EQ(shell().OpenDevices, 0);
  EXPECT_EQ(shell().DeviceObjects, 0);
  EXPECT_EQ(workspace().Graphics.Device.Dc, nullptr);
}

TEST_F(ScrollingTableTest, NewRowsKeepTheColumnsOfTheRowsThatStay) {
  Show(40, 10);
  const auto edges = state().ColumnRight;
  GetEvent(workspace().Events, 39)->Transition = 1e12;  // would widen the second column
  Step(ScrollStep::LineDown);
  EXPECT_EQ(state().ColumnRight, edges);
}

TEST_F(ScrollingTableTest, TheLevelViewRepeatsItsTopRowLikeTheOthers) {
  FillLevels(40, [](LevelRecord& level, std::int32_t row) {
    level.Sweep = static_cast<std::uint32_t>(row + 1);
    level.LevelFlags = row == 0 ? 4 : 0;
  });
  Open(ViewKind::Level);
  WindowOf(ViewKind::Level).Client = {0, 0, kWidth, 164};
  View(ViewKind::Level).TopRow = 2;
  Paint(ViewKind::Level);
  ForgetAll();
  StepScroll(workspace(), *FactsOf(ViewKind::Level).Routines->Scrolled, ScrollStep::Home);
  EXPECT_THAT(LinesWith(Drawn(), "color "),
              ElementsAre("color 49152 49152 49152", "color 49152 49152 49152"));
}

// --- Gestures ------------------------------------------------------------------------------------

TEST_F(ScrollingTableTest, ADragOfTheThumbIsReadAtItsEndAndRepaintsInFull) {
  Show(40, 10);
  Begin();
  EXPECT_FALSE(state().Stepped);
  toolkit::SetScrollPositionQuietly(state().Window, Axis::Vertical, 17);
  Done();
  EXPECT_EQ(state().TopRow, 17);
  EXPECT_THAT(LinesWith(Drawn(), "fill "), ElementsAre(Fill({0, 0, kWidth, 164})));
  EXPECT_THAT(Invalidated(), ElementsAre(IntRect{0, 0, kWidth, 164}));
}

TEST_F(ScrollingTableTest, AStepIsNotReadAgainAtTheEndOfItsGesture) {
  Show(40, 10);
  Begin();
  Step(ScrollStep::LineDown);
  EXPECT_TRUE(state().Stepped);
  toolkit::SetScrollPositionQuietly(state().Window, Axis::Vertical, 17);
  ForgetAll();
  Done();
  EXPECT_EQ(state().TopRow, 1);
  EXPECT_THAT(Drawn(), IsEmpty());
  EXPECT_THAT(Invalidated(), IsEmpty());
}

TEST_F(ScrollingTableTest, AStepThatMovedNothingCountsAsAStep) {
  Show(40, 10);
  Begin();
  Step(ScrollStep::LineUp);
  EXPECT_TRUE(state().Stepped);
}

TEST_F(ScrollingTableTest, EveryGestureBeginsWithoutAStep) {
  Show(40, 10);
  Begin();
  Step(ScrollStep::LineDown);
  Done();
  Begin();
  EXPECT_FALSE(state().Stepped);
}

TEST_F(ScrollingTableTest, AScrollBarsDragReachesTheRowsThroughTheWindow) {
  Show(40, 10);
  OnScroll(state().Window, Axis::Vertical, static_cast<std::int32_t>(ScrollCode::ThumbTrack), 9);
  OnScroll(state().Window, Axis::Vertical, static_cast<std::int32_t>(ScrollCode::ThumbPosition),
           12);
  EXPECT_EQ(state().TopRow, 0) << "the drag shows at its end";
  OnScroll(state().Window, Axis::Vertical, static_cast<std::int32_t>(ScrollCode::EndScroll), 0);
  EXPECT_EQ(state().TopRow, 12);
  EXPECT_THAT(RowsIn(PaintAll()), ElementsAreArray(RowsFromTop(13, 22)));
}

TEST_F(ScrollingTableTest, AScrollBarsArrowsAndPagesReachTheRowsThroughTheWindow) {
  Show(40, 10);
  const auto scroll = [&](ScrollCode code) {
    OnScroll(state().Window, Axis::Vertical, static_cast<std::int32_t>(code), 33);
    OnScroll(state().Window, Axis::Vertical, static_cast<std::int32_t>(ScrollCode::EndScroll), 33);
    return state().TopRow;
  };
  EXPECT_EQ(scroll(ScrollCode::LineDown), 1);
  EXPECT_EQ(scroll(ScrollCode::PageDown), 10);
  EXPECT_EQ(scroll(ScrollCode::LineUp), 9);
  EXPECT_EQ(scroll(ScrollCode::PageUp), 0);
}

TEST_F(ScrollingTableTest, RowsBeyondWhatADragCanTellAreReachedByLinesPagesAndEnd) {
  Show(70000, 10);
  OnScroll(state().Window, Axis::Vertical, static_cast<std::int32_t>(ScrollCode::ThumbPosition),
           65535);
  OnScroll(state().Window, Axis::Vertical, static_cast<std::int32_t>(ScrollCode::EndScroll), 0);
  EXPECT_EQ(state().TopRow, 65535);
  Step(ScrollStep::LineDown);
  EXPECT_EQ(state().TopRow, 65536);
  Step(ScrollStep::PageDown);
  EXPECT_EQ(state().TopRow, 65545);
  Step(ScrollStep::End);
  EXPECT_EQ(state().TopRow, 69999);
  EXPECT_EQ(Thumb(), 69999);
}

}  // namespace
}  // namespace ondrel
