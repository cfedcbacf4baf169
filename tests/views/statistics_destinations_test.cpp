// The statistics at their destinations.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "views/destinations_fixture.h"

namespace ondrel {
namespace {

using ::testing::StartsWith;

class StatisticsDestinationsTest : public DestinationsTest {
 protected:
  static constexpr std::int32_t kLeft = 20;
  static constexpr std::int32_t kTop = 10;
  static constexpr std::size_t kHeaderTexts = 2 + 11;

  // LevelI, NumEvents, PROBABLE, DurationMean, DurationStdEI and so on, in letters.
  static constexpr std::int32_t kLetters[] = {6, 9, 8, 12, 13, 13, 13, 13, 14, 14, 14};

  static std::int32_t Edge(std::size_t column) {
    std::int32_t edge = kLeft;
    for (std::size_t i = 0; i <= column; ++i) edge += kLetters[i] * kExportLetter;
    return edge;
  }

  const std::vector<std::string> row_ = {"1",        "3",        "0.0000",   "0.000000",
                                         "0.000000", "0.000000", "0.000000", "0.00",
                                         "0.00",     "0.00",     "0.00"};
};

TEST_F(StatisticsDestinationsTest, LinesOnPaperHaveNoLeading) {
  const std::vector<DrawnText> texts = TextsIn(ToPaper(ViewKind::Statistics));
  ASSERT_EQ(texts.size(), kHeaderTexts + 11 + 1);
  EXPECT_EQ(texts[0],
            (DrawnText{Edge(3) - ExportWidth("Duration"), kTop + kExportAscent, "Duration"}));
  EXPECT_EQ(texts[2].Y, kTop + kExportAscent + kExportLine);
  EXPECT_EQ(texts[kHeaderTexts].Y, kTop + 3 * kExportLine);
  EXPECT_EQ(texts.back(), (DrawnText{Edge(0), kTop + 4 * kExportLine, "Total events: 3"}));
}

TEST_F(StatisticsDestinationsTest, OnPaperThePictureStaysWhatItIsAndClips) {
  EXPECT_EQ(ToPaper(ViewKind::Statistics)[1], "clip 20 10 1700 1690");
  EXPECT_EQ(workspace().ExportRect, kPicture);
}

TEST_F(StatisticsDestinationsTest, CellsOnPaperEndAtTheEdgesOfTheirColumns) {
  const std::vector<DrawnText> texts = TextsIn(ToPaper(ViewKind::Statistics));
  for (std::size_t i = 0; i < row_.size(); ++i) {
    EXPECT_EQ(texts[kHeaderTexts + i],
              (DrawnText{Edge(i) - ExportWidth(row_[i]), kTop + 3 * kExportLine, row_[i]}));
  }
}

TEST_F(StatisticsDestinationsTest, InAMetafileColumnsKeepTheirMeasuredPlaces) {
  const std::vector<DrawnText> texts = TextsIn(ToMetafile(ViewKind::Statistics));
  ASSERT_EQ(texts.size(), kHeaderTexts + 11 + 1);
  EXPECT_EQ(texts[0], (DrawnText{Edge(3), kTop + kExportAscent, "Duration"}));
  for (std::size_t i = 0; i < row_.size(); ++i) {
    EXPECT_EQ(texts[kHeaderTexts + i], (DrawnText{Edge(i), kTop + 3 * kExportLine, row_[i]}));
  }
  EXPECT_EQ(texts.back(), (DrawnText{Edge(0), kTop + 4 * kExportLine, "Total events: 3"}));
}

TEST_F(StatisticsDestinationsTest, ADocumentHasTheSamePlacesBehindItsClip) {
  const std::vector<std::string> lines = ToFile(ViewKind::Statistics);
  EXPECT_EQ(lines[0], "clip 20 10 1700 1690");
  EXPECT_EQ(lines[1], "color k 0 0 65535");
  EXPECT_EQ(lines[2], "right " + std::to_string(Edge(3)) + " 25 Duration");
  EXPECT_EQ(lines.back(), "left " + std::to_string(Edge(0)) + " 90 Total events: 3");
  EXPECT_EQ(LinesWith(lines, "right").size(), kHeaderTexts + 11);
}

TEST_F(StatisticsDestinationsTest, CountsWidenTheirColumnInTheFontOfTheExport) {
  workspace().Statistics.Rows[0].Events = 1234567890;  // ten letters, nine in the template
  EXPECT_EQ(TextsIn(ToMetafile(ViewKind::Statistics))[kHeaderTexts + 1].X, Edge(1) + kExportLetter);
}

TEST_F(StatisticsDestinationsTest, AFailureInTheHeaderLeavesTheRestUndone) {
  recording::Clear();
  recording::FailText(1);
  DrawViewToFile(workspace(), ViewKind::Statistics, recording::kRecordingSink, kPicture);
  EXPECT_EQ(LinesWith(recording::Lines(), "color").size(), std::size_t{1});
}

}  // namespace
}  // namespace ondrel
