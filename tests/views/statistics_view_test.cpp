#include "views/statistics_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/recording_sink.h"
#include "support/view_test.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::vector<std::string> kTemplates = {"LevelI",         "NumEvents",     "PROBABLE",
                                             "DurationMean",   "DurationStdEI", "DurationMinEI",
                                             "DurationMaxEI",  "AmplitudeMean", "AmplitudeStdEI",
                                             "AmplitudeMinEI", "AmplitudeMaxEI"};

StatisticsRow RowOf(std::int32_t level, std::int32_t events) {
  StatisticsRow row{};
  row.Level = level;
  row.Events = events;
  return row;
}

class StatisticsViewTest : public ViewTest {
 protected:
  std::vector<std::string> OpenAndPaint() {
    Open(ViewKind::Statistics);
    WindowOf(ViewKind::Statistics).Client = {0, 0, 1000, 200};
    return Paint(ViewKind::Statistics);
  }

  std::int32_t Edge(std::size_t column) {
    return static_cast<std::int32_t>(View(ViewKind::Statistics).ColumnRight[column]);
  }

  /// The columns in letters, worked back from their edges.
  std::vector<std::size_t> Widths() {
    std::vector<std::size_t> widths;
    std::int32_t left = 0;
    for (std::size_t i = 0; i < 11; ++i) {
      widths.push_back(static_cast<std::size_t>((Edge(i) - left) / kLetter));
      left = Edge(i);
    }
    return widths;
  }

  static std::vector<std::size_t> TemplateWidths() {
    std::vector<std::size_t> widths;
    for (const std::string& text : kTemplates) widths.push_back(text.size());
    return widths;
  }

  std::vector<DrawnText> Header() {
    std::vector<DrawnText> texts = {EndingAt(Edge(3), kAscent, "Duration"),
                                    EndingAt(Edge(7), kAscent, "Amplitude")};
    const std::vector<std::string> second = {"Level",       "Events",      "P",
                                             "Mean(s)",     "Std.Dev.(s)", "Minimum(s)",
                                             "Maximum(s)",  "Mean(pA)",    "Std.Dev.(pA)",
                                             "Minimum(pA)", "Maximum(pA)"};
    for (std::size_t i = 0; i < second.size(); ++i) {
      texts.push_back(EndingAt(Edge(i), kAscent + kLine, second[i]));
    }
    return texts;
  }

  std::vector<DrawnText> Row(std::int32_t line, const std::vector<std::string>& cells) {
    std::vector<DrawnText> texts;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      texts.push_back(EndingAt(Edge(i), (3 + line) * kLine, cells[i]));
    }
    return texts;
  }

  DrawnText Total(std::int32_t line, const std::string& text) {
    return {Edge(0), (3 + line) * kLine, text};
  }
};

std::vector<DrawnText> Joined(const std::vector<std::vector<DrawnText>>& parts) {
  std::vector<DrawnText> all;
  for (const auto& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

TEST_F(StatisticsViewTest, WithNoEventsOnlyTheHeaderAndATotalOfZeroStand) {
  FillStatistics({RowOf(0, 0), RowOf(1, 0)}, 0);
  const std::vector<std::string> drawing = OpenAndPaint();
  EXPECT_EQ(TextsIn(drawing), Joined({Header(), {Total(0, "Total events: 0")}}));
}

TEST_F(StatisticsViewTest, WithoutStatisticsTheHeaderAndATotalOfZeroStandToo) {
  const std::vector<std::string> drawing = OpenAndPaint();
  EXPECT_EQ(TextsIn(drawing), Joined({Header(), {Total(0, "Total events: 0")}}));
}

TEST_F(StatisticsViewTest, ARowShowsItsFieldsInTheirFormats) {
  StatisticsRow row = RowOf(-1, 1234);
  row.Probability = 0.12345;
  row.DurationMean = 0.0123456;
  row.DurationStd = 0.002;
  row.DurationMin = 0.0001;
  row.DurationMax = 1.5;
  row.AmplitudeMean = 2.006e-12;
  row.AmplitudeStd = 0.3e-12;
  row.AmplitudeMin = -1e-12;
  row.AmplitudeMax = 1e-9;
  FillStatistics({row}, 1234);
  const std::vector<std::string> drawing = OpenAndPaint();
  EXPECT_EQ(TextsIn(drawing),
            Joined({Header(),
                    Row(0, {"-1", "1234", "0.1235", "0.012346", "0.002000", "0.000100", "1.500000",
                            "2.01", "0.30", "-1.00", "1000.00"}),
                    {Total(1, "Total events: 1234")}}));
}

TEST_F(StatisticsViewTest, RowsWithoutEventsAreSkippedAndLeaveNoGap) {
  FillStatistics({RowOf(0, 3), RowOf(1, 0), RowOf(2, 5), RowOf(3, 0)}, 8);
  const std::vector<std::string> drawing = OpenAndPaint();
  const std::vector<std::string> zeros = {"0.0000", "0.000000", "0.000000", "0.000000", "0.000000",
                                          "0.00",   "0.00",     "0.00",     "0.00"};
  std::vector<std::string> first = {"0", "3"};
  std::vector<std::string> second = {"2", "5"};
  first.insert(first.end(), zeros.begin(), zeros.end());
  second.insert(second.end(), zeros.begin(), zeros.end());
  EXPECT_EQ(TextsIn(drawing),
            Joined({Header(), Row(0, first), Row(1, second), {Total(2, "Total events: 8")}}));
}

TEST_F(StatisticsViewTest, TheTotalIsTheTablesAndNotTheSumOfTheRowsOnTheScreen) {
  FillStatistics({RowOf(0, 3)}, 1000000);
  const std::vector<std::string> drawing = OpenAndPaint();
  EXPECT_EQ(TextsIn(drawing).back(), Total(1, "Total events: 1000000"));
}

TEST_F(StatisticsViewTest, TheTotalBeginsAtTheRightEdgeOfTheFirstColumn) {
  OpenAndPaint();
  EXPECT_EQ(Edge(0), WidthOf("LevelI"));
  EXPECT_EQ(TextsIn(Paint(ViewKind::Statistics)).back().X, WidthOf("LevelI"));
}

TEST_F(StatisticsViewTest, ColumnsAreAsWideAsTheirTemplates) {
  FillStatistics({RowOf(0, 12345)}, 12345);
  OpenAndPaint();
  EXPECT_EQ(Widths(), TemplateWidths());
}

TEST_F(StatisticsViewTest, ColumnsBeginAtTheLeftOfTheClientArea) {
  Open(ViewKind::Statistics);
  WindowOf(ViewKind::Statistics).Client = {30, 0, 900, 200};
  Paint(ViewKind::Statistics);
  EXPECT_EQ(Edge(0), 30 + WidthOf("LevelI"));
}

TEST_F(StatisticsViewTest, AVeryLongDurationWidensItsColumnAlone) {
  StatisticsRow longest = RowOf(1, 1);
  longest.DurationMax = 12345678.5;  // 15 letters; the template has 13
  longest.DurationMean = 1e12;       // wider still, but nobody looks
  longest.DurationStd = 1e12;
  longest.DurationMin = 1e12;
  FillStatistics({RowOf(0, 1), longest, RowOf(2, 1)}, 3);
  OpenAndPaint();
  std::vector<std::size_t> widths = TemplateWidths();
  widths[6] = std::string("12345678.500000").size();
  EXPECT_EQ(Widths(), widths);
}

TEST_F(StatisticsViewTest, AsManyEventsAsTenDigitsTellWidenTheirColumn) {
  FillStatistics({RowOf(0, 1234567890), RowOf(1, 1)}, 1234567891);
  OpenAndPaint();
  std::vector<std::size_t> widths = TemplateWidths();
  widths[1] = 10;
  EXPECT_EQ(Widths(), widths);
}

TEST_F(StatisticsViewTest, ARowWithoutEventsDoesNotWidenAColumn) {
  StatisticsRow empty = RowOf(1, 0);
  empty.DurationMax = 1e12;
  FillStatistics({RowOf(0, 1), empty}, 1);
  OpenAndPaint();
  EXPECT_EQ(Widths(), TemplateWidths());
}

TEST_F(StatisticsViewTest, APaintSetsUpFillsClipsDrawsAndCleansUp) {
  FillStatistics({RowOf(0, 1)}, 1);
  // Header, others, background.
  View(ViewKind::Statistics).Colors = {RgbColor{1, 1, 1}, {2, 2, 2}, {3, 3, 3}};
  const std::vector<std::string> drawing = OpenAndPaint();
  std::vector<std::string> frame;
  for (const std::string& line : drawing) {
    if (!line.starts_with("text ")) frame.push_back(line);
  }
  EXPECT_THAT(frame, ElementsAre("background 3 3 3", "pen width 1", "fill 0 0 1000 200 with 3 3 3",
                                 "clip 0 0 1000 200", "color 1 1 1", "color 2 2 2", "clip off",
                                 "clean up"));
}

TEST_F(StatisticsViewTest, WhatDoesNotFitIsDrawnAllTheSameAndCutOffByTheClip) {
  FillStatistics({RowOf(0, 1), RowOf(1, 1), RowOf(2, 1)}, 3);
  Open(ViewKind::Statistics);
  WindowOf(ViewKind::Statistics).Client = {0, 0, 1000, 45};  // half of the first row
  const std::vector<std::string> drawing = Paint(ViewKind::Statistics);
  EXPECT_EQ(TextsIn(drawing).back(), Total(3, "Total events: 3"));
  EXPECT_THAT(LinesWith(drawing, "clip 0"), ElementsAre("clip 0 0 1000 45"));
}

TEST_F(StatisticsViewTest, ALargerFontMovesLinesAndColumns) {
  workspace().FontSize = 20;  // 26 units high, 20 above the baseline, 13 a letter
  const std::vector<DrawnText> texts = TextsIn(OpenAndPaint());
  EXPECT_EQ(texts.front().Y, 20);
  EXPECT_EQ(texts[2].Y, 20 + 26);
  EXPECT_EQ(texts.back(), (DrawnText{6 * 13, 3 * 26, "Total events: 0"}));
}

TEST_F(StatisticsViewTest, AWindowThatBeginsLowerKeepsAllDistances) {
  Open(ViewKind::Statistics);
  WindowOf(ViewKind::Statistics).Client = {0, 100, 1000, 300};
  const std::vector<DrawnText> texts = TextsIn(Paint(ViewKind::Statistics));
  EXPECT_EQ(texts.front().Y, 100 + kAscent);
  EXPECT_EQ(texts.back().Y, 100 + 3 * kLine);
}

TEST_F(StatisticsViewTest, NothingFollowsTheHeaderWhenAWriteHasFailed) {
  FillStatistics({RowOf(0, 1)}, 1);
  Open(ViewKind::Statistics);
  recording::Clear();
  workspace().ScreenSink = recording::kRecordingSink;
  recording::FailText(1);
  Paint(ViewKind::Statistics);
  EXPECT_EQ(LinesWith(recording::Lines(), "color").size(), std::size_t{1});
  EXPECT_EQ(LinesWith(recording::Lines(), "right").size(), std::size_t{2 + 11 - 1});
  EXPECT_THAT(LinesWith(recording::Lines(), "left"), IsEmpty());
  EXPECT_EQ(workspace().Graphics.Status, recording::kFullDisk);
}

TEST_F(StatisticsViewTest, AFailureOfAnEarlierDrawingDoesNotStopAPaint) {
  workspace().Graphics.Status = recording::kFullDisk;
  EXPECT_EQ(TextsIn(OpenAndPaint()).back().Text, "Total events: 0");
}

TEST_F(StatisticsViewTest, ColoursAreThoseOfFilledText) {
  Open(ViewKind::Statistics);
  recording::Clear();
  workspace().ScreenSink = recording::kRecordingSink;
  Paint(ViewKind::Statistics);
  EXPECT_THAT(LinesWith(recording::Lines(), "color"),
              ElementsAre("color k 0 0 65535", "color k 0 0 0"));
}

TEST_F(StatisticsViewTest, TheViewHasNoScrollBarAndTakesNoNoticeOfSteps) {
  ChildWindow* window = Open(ViewKind::Statistics);
  EXPECT_FALSE(WindowOf(ViewKind::Statistics).Bars[0].Exists);
  window->Callbacks->ScrollLineDown(window, Axis::Vertical);
  window->Callbacks->ScrollEnd(window, Axis::Vertical);
  EXPECT_EQ(View(ViewKind::Statistics).TopRow, 0);
  EXPECT_THAT(Drawn(), IsEmpty());
}

}  // namespace
}  // namespace ondrel
