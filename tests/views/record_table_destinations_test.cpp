// The three tables that scroll at their destinations.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "views/destinations_fixture.h"

namespace ondrel {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

constexpr ViewKind kRecordTables[] = {ViewKind::Event, ViewKind::Level, ViewKind::Sweep};

class RecordTableDestinationsTest : public DestinationsTest {
 protected:
  static constexpr std::int32_t kLeft = 20;
  static constexpr std::int32_t kTop = 10;

  RecordTableDestinationsTest() {
    FreeEventTable(workspace().Events);
    FillEvents(100, [](EventRecord& event, std::int32_t row) {
      event.Sweep = static_cast<std::uint32_t>(row + 1);
    });
  }

  /// Opens the view with room for `rows` rows, from row `top` on.
  void ShowRows(ViewKind kind, std::int32_t rows, std::int32_t top = 0) {
    if (View(kind).Window == nullptr) Open(kind);
    View(kind).TopRow = top;
    WindowOf(kind).Client = {0, 0, 900, 3 * kLine - kAscent + rows * kLine + 5};
    Paint(kind);
    ASSERT_EQ(View(kind).VisibleRows, rows);
    ForgetAll();
  }

  /// The numbers in the first column, below the header.
  static std::vector<std::string> FirstCells(const std::vector<DrawnText>& texts,
                                             std::size_t columns, std::size_t headerTexts) {
    std::vector<std::string> cells;
    for (std::size_t i = headerTexts; i < texts.size(); i += columns) {
      cells.push_back(texts[i].Text);
    }
    return cells;
  }

  static std::size_t ColumnsOf(ViewKind kind) {
    return kind == ViewKind::Event ? 6 : kind == ViewKind::Level ? 8 : 9;
  }

  // Widths of the columns of events, letters of the export.
  static constexpr std::int32_t kEventLetters[] = {7, 14, 17, 17, 8, 11};

  static std::int32_t EventEdge(std::size_t column) {
    std::int32_t edge = kLeft;
    for (std::size_t i = 0; i <= column; ++i) edge += kEventLetters[i] * kExportLetter;
    return edge;
  }

  static constexpr std::size_t kEventHeaderTexts = 9;
};

// --- Which rows ----------------------------------------------------------------------------------

TEST_F(RecordTableDestinationsTest, EveryDestinationShowsTheRowsThatTheScreenShows) {
  ShowRows(ViewKind::Event, 3, 40);
  const auto expected = ElementsAre("41", "42", "43");
  EXPECT_THAT(FirstCells(TextsIn(ToPaper(ViewKind::Event)), 6, kEventHeaderTexts), expected);
  EXPECT_THAT(FirstCells(TextsIn(ToMetafile(ViewKind::Event)), 6, kEventHeaderTexts), expected);
  const std::vector<std::string> texts = LinesWith(ToFile(ViewKind::Event), "right");
  ASSERT_EQ(texts.size(), kEventHeaderTexts + 3 * 6);
  EXPECT_EQ(texts[kEventHeaderTexts], "right 90 70 41");
}

TEST_F(RecordTableDestinationsTest, RowsPastTheEndOfTheTableAreLeftOut) {
  ShowRows(ViewKind::Event, 5, 98);
  const auto expected = ElementsAre("99", "100");
  EXPECT_THAT(FirstCells(TextsIn(ToPaper(ViewKind::Event)), 6, kEventHeaderTexts), expected);
  EXPECT_THAT(FirstCells(TextsIn(ToMetafile(ViewKind::Event)), 6, kEventHeaderTexts), expected);
}

TEST_F(RecordTableDestinationsTest, AWindowWithoutRoomForRowsLeavesTheHeader) {
  ShowRows(ViewKind::Event, 0);
  EXPECT_EQ(TextsIn(ToPaper(ViewKind::Event)).size(), kEventHeaderTexts);
  EXPECT_EQ(TextsIn(ToMetafile(ViewKind::Event)).size(), kEventHeaderTexts);
  EXPECT_EQ(LinesWith(ToFile(ViewKind::Event), "right").size(), kEventHeaderTexts);
}

TEST_F(RecordTableDestinationsTest, ADrawingMovesNeitherTheRowsNorTheThumb) {
  ShowRows(ViewKind::Event, 3, 40);
  ToPaper(ViewKind::Event);
  ToMetafile(ViewKind::Event);
  ToFile(ViewKind::Event);
  EXPECT_EQ(View(ViewKind::Event).TopRow, 40);
  EXPECT_EQ(View(ViewKind::Event).VisibleRows, 3);
  EXPECT_EQ(WindowOf(ViewKind::Event).Bars[0].Position, 40);
}

// --- Paper ---------------------------------------------------------------------------------------

TEST_F(RecordTableDestinationsTest, LinesOnPaperHaveAFifthOfLeading) {
  for (const ViewKind kind : kRecordTables) {
    ShowRows(kind, 2);
    workspace().ExportRect = kPicture;
    const std::vector<DrawnText> texts = TextsIn(ToPaper(kind));
    EXPECT_EQ(texts.front().Y, kTop + kExportAscent) << TitleOf(kind);
    const std::size_t count = kind == ViewKind::Sweep ? 1 : 2;
    const DrawnText& cell = texts[texts.size() - count * ColumnsOf(kind)];
    EXPECT_EQ(cell.Y, kTop + 3 * kPaperLine) << TitleOf(kind);
    if (kind == ViewKind::Sweep) continue;
    EXPECT_EQ(texts.back().Y, kTop + 4 * kPaperLine) << TitleOf(kind);
  }
}

TEST_F(RecordTableDestinationsTest, TheLeadingOnPaperIsTruncated) {
  ShowRows(ViewKind::Event, 2);
  workspace().DeviceFontSize = 24;  // a fifth is 4.8
  const std::vector<DrawnText> texts = TextsIn(ToPaper(ViewKind::Event));
  EXPECT_EQ(texts.back().Y, kTop + 4 * 28);
}

TEST_F(RecordTableDestinationsTest, TheSecondLineOfTheHeaderHasTheLeadingToo) {
  ShowRows(ViewKind::Event, 2);
  const std::vector<DrawnText> texts = TextsIn(ToPaper(ViewKind::Event));
  EXPECT_EQ(texts[3].Text, "Sweep");
  EXPECT_EQ(texts[3].Y, kTop + kExportAscent + kPaperLine);
}

TEST_F(RecordTableDestinationsTest, ThePictureOnPaperEndsBelowTheRowsOfTheScreen) {
  for (const ViewKind kind : kRecordTables) {
    ShowRows(kind, 4);
    workspace().ExportRect = kPicture;
    ToPaper(kind);
    EXPECT_EQ(workspace().ExportRect,
              (IntRect{20, 10, 1700, kTop + 3 * kPaperLine - kExportAscent + 4 * kPaperLine}))
        << TitleOf(kind);
  }
}

TEST_F(RecordTableDestinationsTest, SweepsAreClippedAtTheEndOfThatPictureAndTheOthersNowhere) {
  ShowRows(ViewKind::Sweep, 4);
  EXPECT_EQ(ToPaper(ViewKind::Sweep)[1], "clip 20 10 1700 163");
  ShowRows(ViewKind::Event, 4);
  EXPECT_THAT(ToPaper(ViewKind::Event), Not(Contains(StartsWith("clip"))));
  ShowRows(ViewKind::Level, 4);
  EXPECT_THAT(ToPaper(ViewKind::Level), Not(Contains(StartsWith("clip"))));
}

TEST_F(RecordTableDestinationsTest, ColumnsOnPaperBeginAtThePictureInTheFontOfTheExport) {
  ShowRows(ViewKind::Event, 1);
  const std::vector<DrawnText> texts = TextsIn(ToPaper(ViewKind::Event));
  const DrawnText* cells = &texts[kEventHeaderTexts];
  const std::vector<std::string> row = {"1", "0.000000", "0.00", "0.00", "0", "0.0000"};
  for (std::size_t i = 0; i < row.size(); ++i) {
    EXPECT_EQ(cells[i],
              (DrawnText{EventEdge(i) - ExportWidth(row[i]), kTop + 3 * kPaperLine, row[i]}));
  }
}

// --- Metafiles -----------------------------------------------------------------------------------

TEST_F(RecordTableDestinationsTest, ColumnsInAMetafileStandOnePlaceToTheRightAndTheFirstAtZero) {
  ShowRows(ViewKind::Event, 1);
  const std::vector<DrawnText> texts = TextsIn(ToMetafile(ViewKind::Event));
  const DrawnText* cells = &texts[kEventHeaderTexts];
  const std::int32_t y = kTop + 3 * kExportLine;
  EXPECT_EQ(cells[0], (DrawnText{0, y, "1"})) << "left of the picture's edge at 20";
  EXPECT_EQ(cells[1], (DrawnText{EventEdge(0), y, "0.000000"}));
  EXPECT_EQ(cells[2], (DrawnText{EventEdge(1), y, "0.00"}));
  EXPECT_EQ(cells[3], (DrawnText{EventEdge(2), y, "0.00"}));
  EXPECT_EQ(cells[4], (DrawnText{EventEdge(3), y, "0"}));
  EXPECT_EQ(cells[5], (DrawnText{EventEdge(4), y, "0.0000"}));
}

TEST_F(RecordTableDestinationsTest, TheShiftHoldsForAllThreeTablesAndForTheirHeaders) {
  for (const ViewKind kind : kRecordTables) {
    ShowRows(kind, 1);
    const std::vector<DrawnText> shifted = TextsIn(ToMetafile(kind));
    workspace().ExportRect = kPicture;
    const std::vector<DrawnText> measured = TextsIn(ToPaper(kind));
    ASSERT_EQ(shifted.size(), measured.size());
    const std::size_t columns = ColumnsOf(kind);
    const std::size_t header = shifted.size() - 2 * columns;  // the second line of the header
    for (const std::size_t first : {header, header + columns}) {
      EXPECT_EQ(shifted[first].X, 0) << TitleOf(kind);
      for (std::size_t i = 1; i < columns; ++i) {
        const DrawnText& before = measured[first + i - 1];
        EXPECT_EQ(shifted[first + i].X, before.X + ExportWidth(before.Text)) << TitleOf(kind);
      }
    }
  }
}

TEST_F(RecordTableDestinationsTest, LinesInAMetafileHaveNoLeading) {
  for (const ViewKind kind : kRecordTables) {
    ShowRows(kind, 1);
    shell().ExternalLeading = 7;
    const std::vector<DrawnText> texts = TextsIn(ToMetafile(kind));
    EXPECT_EQ(texts.front().Y, kTop + kExportAscent) << TitleOf(kind);
    EXPECT_EQ(texts.back().Y, kTop + 3 * kExportLine) << TitleOf(kind);
    shell().ExternalLeading = 0;
  }
}

TEST_F(RecordTableDestinationsTest, TheNextPaintMeasuresTheColumnsAgain) {
  ShowRows(ViewKind::Level, 1);
  const auto onScreen = View(ViewKind::Level).ColumnRight;
  ToMetafile(ViewKind::Level);
  EXPECT_EQ(View(ViewKind::Level).ColumnRight, onScreen);
}

// --- Documents -----------------------------------------------------------------------------------

TEST_F(RecordTableDestinationsTest, ADocumentHasColumnsOfTheExportsFontAndNoLeading) {
  ShowRows(ViewKind::Event, 2);
  const std::vector<std::string> lines = ToFile(ViewKind::Event);
  EXPECT_EQ(lines[0], "clip 20 10 1700 1690");
  EXPECT_EQ(lines[1], "color k 0 0 65535");
  EXPECT_EQ(lines[2], "right 400 25 Pre");
  EXPECT_EQ(lines[5], "right 90 45 Sweep");
  EXPECT_EQ(lines[11], "color k 0 0 0");
  EXPECT_EQ(lines[12], "right 90 70 1");
  EXPECT_EQ(lines[13], "right 230 70 0.000000");
  EXPECT_EQ(lines[17], "right 760 70 0.0000");
  EXPECT_EQ(lines[19], "right 90 90 2");
  EXPECT_EQ(lines.size(), std::size_t{1 + 1 + 9 + 2 * 7});
}

TEST_F(RecordTableDestinationsTest, TheRowsStopAfterTheHeaderWhenAWriteHasFailed) {
  for (const ViewKind kind : kRecordTables) {
    ShowRows(kind, 2);
    recording::Clear();
    recording::FailText(2);
    DrawViewToFile(workspace(), kind, recording::kRecordingSink, kPicture);
    EXPECT_EQ(LinesWith(recording::Lines(), "color").size(), std::size_t{1}) << TitleOf(kind);
  }
}

TEST_F(RecordTableDestinationsTest, DurationsOfTheRowsOnTheScreenWidenTheirColumnEverywhere) {
  FreeSweepTable(workspace().Sweeps);
  FillSweeps(5, [](SweepRecord& sweep, std::int32_t row) {
    sweep.Duration = row == 1 ? 12345678901.0 : 1.0;  // 18 letters, 13 in the template
  });
  ShowRows(ViewKind::Sweep, 2, 1);
  ToFile(ViewKind::Sweep);
  const std::vector<std::string> wide = LinesWith(recording::Lines(), "right");
  ShowRows(ViewKind::Sweep, 2, 2);
  ToFile(ViewKind::Sweep);
  const std::vector<std::string> narrow = LinesWith(recording::Lines(), "right");
  EXPECT_THAT(wide, Contains("right 530 45 Duration(s)"));    // 7 6 6 14 18
  EXPECT_THAT(narrow, Contains("right 480 45 Duration(s)"));  // 7 6 6 14 13
}

TEST_F(RecordTableDestinationsTest, AnEmptyTableGoesEverywhereWithItsHeader) {
  FreeEventTable(workspace().Events);
  AllocateEventTable(Frame());
  ShowRows(ViewKind::Event, 2);
  EXPECT_EQ(TextsIn(ToPaper(ViewKind::Event)).size(), kEventHeaderTexts);
  EXPECT_EQ(TextsIn(ToMetafile(ViewKind::Event)).size(), kEventHeaderTexts);
  EXPECT_EQ(LinesWith(ToFile(ViewKind::Event), "right").size(), kEventHeaderTexts);
}

}  // namespace
}  // namespace ondrel
