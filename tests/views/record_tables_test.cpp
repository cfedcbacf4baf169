#include "views/record_tables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/view_test.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A column by what stands for its width and over it.
struct ExpectedColumn {
  std::string Template;
  std::string Line1;  // empty: none
  std::string Line2;
};

const std::vector<ExpectedColumn> kEventColumns = {
    {"EESweep", "", "Sweep"},
    {"EEETransitionE", "", "Transition(s)"},
    {"EEEAmplitudeE(pA)", "Pre", "Amplitude(pA)"},
    {"EAmplitudeEEE(pA)", "Post", "Amplitude(pA)"},
    {"ELevelEE", "", "Level"},
    {"TagValueEEE", "Tag", "Value"},
};

const std::vector<ExpectedColumn> kLevelColumns = {
    {"SweepE", "", "Sweep"},
    {"TransitionEEE(s)", "", "Transition(s)"},
    {"EEEDurationEE", "", "Duration(s)"},
    {"PreAmplitude(pA)", "Pre", "Amplitude(pA)"},
    {"PostAmplitude(pA)", "Post", "Amplitude(pA)"},
    {"EEEAmplitudeE(pA)", "", "Amplitude(pA)"},
    {"ELevelEE", "", "Level"},
    {"TagValueEEE", "Tag", "Value"},
};

const std::vector<ExpectedColumn> kSweepColumns = {
    {"EIndexE", "", "Index"},
    {"EFileE", "", "File"},
    {"ESweep", "", "Sweep"},
    {"EEEStartTimeEs", "", "Start Time(s)"},
    {"EEEDurationEs", "", "Duration(s)"},
    {"RelevantStartEs", "Relevant", "Start(s)"},
    {"RelevantEndEEEs", "Relevant", "End(s)"},
    {"RelevantValue", "Relevant", "Value"},
    {"TagValueEEEE", "Tag", "Value"},
};

class RecordTablesTest : public ViewTest {
 protected:
  /// A client area of the given size, with room for `rows` rows.
  void GiveRoom(ViewKind kind, std::int32_t rows, std::int32_t left = 0) {
    WindowOf(kind).Client = {left, 0, left + 900, 3 * kLine - kAscent + rows * kLine + 5};
  }

  /// Opens the view with room for ten rows, and paints it.
  std::vector<std::string> OpenAndPaint(ViewKind kind) {
    Open(kind);
    GiveRoom(kind, 10);
    return Paint(kind);
  }

  /// The edges that the columns would have if column i were `widths[i]` letters wide.
  static std::vector<double> EdgesOf(const std::vector<std::size_t>& widths) {
    std::vector<double> edges;
    double edge = 0.0;
    for (const std::size_t width : widths) {
      edge += static_cast<double>(kLetter) * static_cast<double>(width);
      edges.push_back(edge);
    }
    return edges;
  }

  static std::vector<std::size_t> TemplateWidths(const std::vector<ExpectedColumn>& columns) {
    std::vector<std::size_t> widths;
    for (const ExpectedColumn& column : columns) widths.push_back(column.Template.size());
    return widths;
  }

  std::vector<double> EdgesOfView(ViewKind kind, std::size_t columns) {
    const auto& edges = View(kind).ColumnRight;
    return {edges.begin(), edges.begin() + static_cast<std::ptrdiff_t>(columns)};
  }

  /// The view's columns in letters, worked back from its edges.
  std::vector<std::size_t> WidthsOfView(ViewKind kind, std::size_t columns) {
    std::vector<std::size_t> widths;
    double left = 0.0;
    for (const double right : EdgesOfView(kind, columns)) {
      widths.push_back(static_cast<std::size_t>((right - left) / kLetter));
      left = right;
    }
    return widths;
  }

  /// The header at the edges of the view, and a row of `cells` for each further line.
  std::vector<DrawnText> ExpectedTexts(ViewKind kind, const std::vector<ExpectedColumn>& columns,
                                       const std::vector<std::vector<std::string>>& rows) {
    const auto& edges = View(kind).ColumnRight;
    const auto edge = [&](std::size_t i) { return static_cast<std::int32_t>(edges[i]); };
    std::vector<DrawnText> texts;
    for (std::size_t i = 0; i < columns.size(); ++i) {
      if (!columns[i].Line1.empty()) texts.push_back(EndingAt(edge(i), kAscent, columns[i].Line1));
    }
    for (std::size_t i = 0; i < columns.size(); ++i) {
      texts.push_back(EndingAt(edge(i), kAscent + kLine, columns[i].Line2));
    }
    std::int32_t baseline = 3 * kLine;
    for (const auto& row : rows) {
      for (std::size_t i = 0; i < row.size(); ++i) {
        texts.push_back(EndingAt(edge(i), baseline, row[i]));
      }
      baseline += kLine;
    }
    return texts;
  }
};

// --- Events --------------------------------------------------------------------------------------

TEST_F(RecordTablesTest, WithoutEventsTheColumnsAreAsWideAsTheirTemplates) {
  OpenAndPaint(ViewKind::Event);
  EXPECT_EQ(EdgesOfView(ViewKind::Event, 6), EdgesOf(TemplateWidths(kEventColumns)));
}

TEST_F(RecordTablesTest, WithoutEventsOnlyTheHeaderIsDrawn) {
  const std::vector<std::string> drawing = OpenAndPaint(ViewKind::Event);
  EXPECT_EQ(TextsIn(drawing), ExpectedTexts(ViewKind::Event, kEventColumns, {}));
  EXPECT_THAT(LinesWith(drawing, "color "), ElementsAre("color 0 0 65535"));
}

TEST_F(RecordTablesTest, EventColumnsBeginAtTheLeftOfTheClientArea) {
  Open(ViewKind::Event);
  GiveRoom(ViewKind::Event, 10, 50);
  Paint(ViewKind::Event);
  EXPECT_EQ(View(ViewKind::Event).ColumnRight[0], 50 + WidthOf("EESweep"));
}

TEST_F(RecordTablesTest, AnEventShowsItsFieldsInTheirFormats) {
  FillEvents(2, [](EventRecord& event, std::int32_t row) {
    event = row == 0 ? EventRecord{7, 0.0123456, -1.5e-12, 2.347e-12, -2, 3.14159}
                     : EventRecord{12, 1.0, 0.0, 1e-9, 3, -0.5};
  });
  const std::vector<std::string> drawing = OpenAndPaint(ViewKind::Event);
  EXPECT_EQ(TextsIn(drawing),
            ExpectedTexts(ViewKind::Event, kEventColumns,
                          {{"7", "0.012346", "-1.50", "2.35", "-2", "3.1416"},
                           {"12", "1.000000", "0.00", "1000.00", "3", "-0.5000"}}));
}

TEST_F(RecordTablesTest, TheLastTransitionWithItsUnitWidensTheEventColumn) {
  FillEvents(2, [](EventRecord& event, std::int32_t row) {
    event.Transition = row == 0 ? 0.0 : 12345.5;  // 12345.500000sTE
  });
  OpenAndPaint(ViewKind::Event);
  std::vector<std::size_t> widths = TemplateWidths(kEventColumns);
  widths[1] = std::string("12345.500000sTE").size();
  ASSERT_EQ(widths[1], kEventColumns[1].Template.size() + 1);
  EXPECT_EQ(WidthsOfView(ViewKind::Event, 6), widths);
}

TEST_F(RecordTablesTest, AnEarlierLongTransitionDoesNotWidenTheEventColumn) {
  FillEvents(2, [](EventRecord& event, std::int32_t row) {
    event.Transition = row == 0 ? 1e12 : 1234.5;  // the last is as wide as the template
  });
  OpenAndPaint(ViewKind::Event);
  EXPECT_EQ(WidthsOfView(ViewKind::Event, 6), TemplateWidths(kEventColumns));
}

TEST_F(RecordTablesTest, ALargeTagDoesNotWidenTheEventColumn) {
  FillEvents(1, [](EventRecord& event, std::int32_t) {
    event.TagValue = 1e15;
    event.PreAmplitude = 1.0;
  });
  OpenAndPaint(ViewKind::Event);
  EXPECT_EQ(WidthsOfView(ViewKind::Event, 6), TemplateWidths(kEventColumns));
}

TEST_F(RecordTablesTest, EveryEventTakesTheEventColour) {
  FillEvents(3, [](EventRecord&, std::int32_t) {});
  View(ViewKind::Event).Colors = {kGrey, kRed, {1, 2, 3}};  // events, background, header
  const std::vector<std::string> drawing = OpenAndPaint(ViewKind::Event);
  EXPECT_THAT(LinesWith(drawing, "color "),
              ElementsAre("color 1 2 3", "color 49152 49152 49152", "color 49152 49152 49152",
                          "color 49152 49152 49152"));
  EXPECT_THAT(LinesWith(drawing, "background "), ElementsAre("background 65535 0 0"));
}

// --- Levels --------------------------------------------------------------------------------------

TEST_F(RecordTablesTest, WithoutLevelsTheColumnsAreAsWideAsTheirTemplates) {
  OpenAndPaint(ViewKind::Level);
  EXPECT_EQ(EdgesOfView(ViewKind::Level, 8), EdgesOf(TemplateWidths(kLevelColumns)));
}

TEST_F(RecordTablesTest, WithoutLevelsOnlyTheHeaderIsDrawn) {
  const std::vector<std::string> drawing = OpenAndPaint(ViewKind::Level);
  EXPECT_EQ(TextsIn(drawing), ExpectedTexts(ViewKind::Level, kLevelColumns, {}));
  EXPECT_THAT(LinesWith(drawing, "color "), ElementsAre("color 0 0 65535"));
}

TEST_F(RecordTablesTest, ALevelShowsItsFieldsInTheirFormats) {
  FillLevels(1, [](LevelRecord& level, std::int32_t) {
    level.Sweep = 4;
    level.Transition = 0.25;
    level.Duration = 0.0012346;
    level.PreAmplitude = 1.004e-12;
    level.PostAmplitude = -2.006e-12;
    level.Amplitude = 3.01e-12;
    level.Level = -1;
    level.TagValue = 2.00006;
    level.FirstEvent = 91;  // what follows is not shown
    level.LastEvent = 92;
  });
  const std::vector<std::string> drawing = OpenAndPaint(ViewKind::Level);
  EXPECT_EQ(
      TextsIn(drawing),
      ExpectedTexts(ViewKind::Level, kLevelColumns,
                    {{"4", "0.250000", "0.001235", "1.00", "-2.01", "3.01", "-1", "2.0001"}}));
}

TEST_F(RecordTablesTest, TheLastTransitionWithItsUnitWidensTheLevelColumn) {
  FillLevels(2, [](LevelRecord& level, std::int32_t row) {
    level.Transition = row == 0 ? 0.0 : 1234567.5;  // 1234567.500000sTE
  });
  OpenAndPaint(ViewKind::Level);
  std::vector<std::size_t> widths = TemplateWidths(kLevelColumns);
  widths[1] = std::string("1234567.500000sTE").size();
  ASSERT_EQ(widths[1], kLevelColumns[1].Template.size() + 1);
  EXPECT_EQ(WidthsOfView(ViewKind::Level, 8), widths);
}

TEST_F(RecordTablesTest, AnEarlierLongTransitionDoesNotWidenTheLevelColumn) {
  FillLevels(2, [](LevelRecord& level, std::int32_t row) {
    level.Transition = row == 0 ? 1e12 : 123456.5;  // the last is as wide as the template
  });
  OpenAndPaint(ViewKind::Level);
  EXPECT_EQ(WidthsOfView(ViewKind::Level, 8), TemplateWidths(kLevelColumns));
}

TEST_F(RecordTablesTest, ALongDurationDoesNotWidenTheLevelColumn) {
  FillLevels(1, [](LevelRecord& level, std::int32_t) { level.Duration = 1e12; });
  OpenAndPaint(ViewKind::Level);
  EXPECT_EQ(WidthsOfView(ViewKind::Level, 8), TemplateWidths(kLevelColumns));
}

TEST_F(RecordTablesTest, ALevelIsColouredByItsOwnFlagsAndNotByThoseForItsNeighbours) {
  FillLevels(4, [](LevelRecord& level, std::int32_t row) {
    if (row == 1) level.LevelFlags = 0x40;
    if (row == 2) level.PrecedingFlags = 0x2;
    if (row == 3) level.FollowingFlags = 0x2;
  });
  const std::vector<std::string> drawing = OpenAndPaint(ViewKind::Level);
  EXPECT_THAT(LinesWith(drawing, "color "),
              ElementsAre("color 0 0 65535", "color 0 0 0", "color 49152 49152 49152",
                          "color 0 0 0", "color 0 0 0"));
}

TEST_F(RecordTablesTest, LevelColoursStandInTheirOwnOrder) {
  FillLevels(2, [](LevelRecord& level, std::int32_t row) { level.LevelFlags = row == 0 ? 0 : 2; });
  // Selected, header, other, background.
  View(ViewKind::Level).Colors = {RgbColor{1, 1, 1}, {2, 2, 2}, {3, 3, 3}, {4, 4, 4}};
  const std::vector<std::string> drawing = OpenAndPaint(ViewKind::Level);
  EXPECT_THAT(LinesWith(drawing, "color "),
              ElementsAre("color 2 2 2", "color 1 1 1", "color 3 3 3"));
  EXPECT_THAT(LinesWith(drawing, "background "), ElementsAre("background 4 4 4"));
}

// --- Sweeps --------------------------------------------------------------------------------------

TEST_F(RecordTablesTest, WithoutSweepsTheColumnsAreAsWideAsTheirTemplates) {
  OpenAndPaint(ViewKind::Sweep);
  EXPECT_EQ(EdgesOfView(ViewKind::Sweep, 9), EdgesOf(TemplateWidths(kSweepColumns)));
}

TEST_F(RecordTablesTest, WithoutSweepsOnlyTheHeaderIsDrawn) {
  const std::vector<std::string> drawing = OpenAndPaint(ViewKind::Sweep);
  EXPECT_EQ(TextsIn(drawing), ExpectedTexts(ViewKind::Sweep, kSweepColumns, {}));
  EXPECT_THAT(LinesWith(drawing, "color "), ElementsAre("color 0 0 65535"));
}

TEST_F(RecordTablesTest, ASweepShowsItsRowFromOneAndItsFieldsInTheirFormats) {
  FillSweeps(2, [](SweepRecord& sweep, std::int32_t row) {
    sweep.File = 3;
    sweep.Index = 8 + static_cast<std::uint32_t>(row);
    sweep.StartTime = 1.5 * row;
    sweep.Duration = 0.1;
    sweep.RelevantStart = 0.0000005;
    sweep.RelevantEnd = 0.0999994;
    sweep.RelevantValue = -80.126;
    sweep.TagValue = 0.00005;
  });
  const std::vector<std::string> drawing = OpenAndPaint(ViewKind::Sweep);
  EXPECT_EQ(
      TextsIn(drawing),
      ExpectedTexts(
          ViewKind::Sweep, kSweepColumns,
          {{"1", "3", "8", "0.000000", "0.100000", "0.000000", "0.099999", "-80.13", "0.0001"},
           {"2", "3", "9", "1.500000", "0.100000", "0.000000", "0.099999", "-80.13", "0.0001"}}));
}

struct MeasuredField {
  std::size_t Column;
  double SweepRecord::*Field;
  double Value;
  std::size_t Letters;  // of the value as it is measured
};

const MeasuredField kMeasuredFields[] = {
    {3, &SweepRecord::StartTime, 12345678.5, sizeof "12345678.500000" - 1},
    {5, &SweepRecord::RelevantStart, 123456789.5, sizeof "123456789.500000" - 1},
    {6, &SweepRecord::RelevantEnd, 123456789.5, sizeof "123456789.500000" - 1},
    {7, &SweepRecord::RelevantValue, 1234567.5, sizeof "1234567.500000" - 1},
    {8, &SweepRecord::TagValue, 12345678.5, sizeof "12345678.5000" - 1},
};

class MeasuredSweepColumns : public RecordTablesTest,
                             public ::testing::WithParamInterface<MeasuredField> {};

TEST_P(MeasuredSweepColumns, WidenForTheLastSweep) {
  const MeasuredField& field = GetParam();
  ASSERT_EQ(field.Letters, kSweepColumns[field.Column].Template.size() + 1);
  FillSweeps(2, [&](SweepRecord& sweep, std::int32_t row) {
    if (row == 1) sweep.*field.Field = field.Value;
  });
  OpenAndPaint(ViewKind::Sweep);
  std::vector<std::size_t> widths = TemplateWidths(kSweepColumns);
  widths[field.Column] = field.Letters;
  EXPECT_EQ(WidthsOfView(ViewKind::Sweep, 9), widths);
}

TEST_P(MeasuredSweepColumns, DoNotWidenForAnEarlierSweep) {
  const MeasuredField& field = GetParam();
  FillSweeps(2, [&](SweepRecord& sweep, std::int32_t row) {
    if (row == 0) sweep.*field.Field = field.Value;
  });
  OpenAndPaint(ViewKind::Sweep);
  EXPECT_EQ(WidthsOfView(ViewKind::Sweep, 9), TemplateWidths(kSweepColumns));
}

INSTANTIATE_TEST_SUITE_P(OfEachField, MeasuredSweepColumns, ::testing::ValuesIn(kMeasuredFields),
                         [](const auto& info) {
                           return "Column" + std::to_string(info.param.Column);
                         });

TEST_F(RecordTablesTest, TheRelevantValueIsMeasuredWithSixDecimalsAndShownWithTwo) {
  FillSweeps(1, [](SweepRecord& sweep, std::int32_t) { sweep.RelevantValue = 12345678.25; });
  const std::vector<std::string> drawing = OpenAndPaint(ViewKind::Sweep);
  EXPECT_EQ(WidthsOfView(ViewKind::Sweep, 9)[7], std::string("12345678.250000").size());
  const auto right = static_cast<std::int32_t>(View(ViewKind::Sweep).ColumnRight[7]);
  EXPECT_THAT(TextsIn(drawing), ::testing::Contains(EndingAt(right, 3 * kLine, "12345678.25")));
}

TEST_F(RecordTablesTest, ALongSweepOnTheScreenWidensTheDurationColumn) {
  FillSweeps(30, [](SweepRecord& sweep, std::int32_t row) {
    sweep.Duration = row == 9 ? 1234567.5 : 0.5;  // the last of ten rows on the screen
  });
  OpenAndPaint(ViewKind::Sweep);
  ASSERT_EQ(View(ViewKind::Sweep).VisibleRows, 10);
  std::vector<std::size_t> widths = TemplateWidths(kSweepColumns);
  widths[4] = std::string("1234567.500000").size();
  EXPECT_EQ(WidthsOfView(ViewKind::Sweep, 9), widths);
}

TEST_F(RecordTablesTest, TheWidestSweepOnTheScreenCountsWhereverItStands) {
  FillSweeps(3, [](SweepRecord& sweep, std::int32_t row) {
    constexpr double durations[] = {1e8, 1e10, 1e9};
    sweep.Duration = durations[row];
  });
  OpenAndPaint(ViewKind::Sweep);
  EXPECT_EQ(WidthsOfView(ViewKind::Sweep, 9)[4], std::string("10000000000.000000").size());
}

TEST_F(RecordTablesTest, ALongSweepBelowTheScreenWidensNothingUntilItIsScrolledIntoSight) {
  FillSweeps(30, [](SweepRecord& sweep, std::int32_t row) {
    sweep.Duration = row == 10 ? 1e12 : 0.5;  // the first row below the screen
  });
  OpenAndPaint(ViewKind::Sweep);
  EXPECT_EQ(WidthsOfView(ViewKind::Sweep, 9), TemplateWidths(kSweepColumns));
  View(ViewKind::Sweep).TopRow = 1;
  Paint(ViewKind::Sweep);
  EXPECT_EQ(WidthsOfView(ViewKind::Sweep, 9)[4], std::string("1000000000000.000000").size());
}

TEST_F(RecordTablesTest, ALongSweepScrolledOutAtTheTopGivesItsRoomBack) {
  FillSweeps(30,
             [](SweepRecord& sweep, std::int32_t row) { sweep.Duration = row == 0 ? 1e12 : 0.5; });
  OpenAndPaint(ViewKind::Sweep);
  EXPECT_EQ(WidthsOfView(ViewKind::Sweep, 9)[4], std::string("1000000000000.000000").size());
  View(ViewKind::Sweep).TopRow = 1;
  Paint(ViewKind::Sweep);
  EXPECT_EQ(WidthsOfView(ViewKind::Sweep, 9), TemplateWidths(kSweepColumns));
}

TEST_F(RecordTablesTest, TheRoomForRowsIsKnownBeforeTheDurationsOnTheScreenAreMeasured) {
  FillSweeps(30,
             [](SweepRecord& sweep, std::int32_t row) { sweep.Duration = row == 4 ? 1e12 : 0.5; });
  OpenAndPaint(ViewKind::Sweep);
  EXPECT_NE(WidthsOfView(ViewKind::Sweep, 9), TemplateWidths(kSweepColumns));
  GiveRoom(ViewKind::Sweep, 4);
  Paint(ViewKind::Sweep);
  EXPECT_EQ(WidthsOfView(ViewKind::Sweep, 9), TemplateWidths(kSweepColumns));
}

TEST_F(RecordTablesTest, ASweepIsColouredByItsSelectionFlags) {
  FillSweeps(
      3, [](SweepRecord& sweep, std::int32_t row) { sweep.SelectionFlags = row == 1 ? 0x8 : 0; });
  const std::vector<std::string> drawing = OpenAndPaint(ViewKind::Sweep);
  EXPECT_THAT(LinesWith(drawing, "color "), ElementsAre("color 0 0 65535", "color 0 0 0",
                                                        "color 49152 49152 49152", "color 0 0 0"));
}

TEST_F(RecordTablesTest, SweepColoursStandInTheirOwnOrder) {
  FillSweeps(2,
             [](SweepRecord& sweep, std::int32_t row) { sweep.SelectionFlags = row == 0 ? 0 : 2; });
  // Selected, other, background, header.
  View(ViewKind::Sweep).Colors = {RgbColor{1, 1, 1}, {2, 2, 2}, {3, 3, 3}, {4, 4, 4}};
  const std::vector<std::string> drawing = OpenAndPaint(ViewKind::Sweep);
  EXPECT_THAT(LinesWith(drawing, "color "),
              ElementsAre("color 4 4 4", "color 1 1 1", "color 2 2 2"));
  EXPECT_THAT(LinesWith(drawing, "background "), ElementsAre("background 3 3 3"));
}

// --- All three -----------------------------------------------------------------------------------

TEST_F(RecordTablesTest, ColumnsAreMeasuredAnewInTheFontOfEachPaint) {
  OpenAndPaint(ViewKind::Event);
  workspace().FontSize = 20;  // 26 units high, 13 a letter
  Paint(ViewKind::Event);
  EXPECT_EQ(View(ViewKind::Event).ColumnRight[0], 7 * 13);
}

TEST_F(RecordTablesTest, NoRowIsDrawnWhereNoneExists) {
  for (const ViewKind kind : {ViewKind::Event, ViewKind::Level, ViewKind::Sweep}) {
    Open(kind);
    GiveRoom(kind, 10);
    View(kind).TopRow = 5;
    const std::vector<std::string> drawing = Paint(kind);
    std::vector<DrawnText> rows = TextsIn(drawing);
    std::erase_if(rows, [](const DrawnText& text) { return text.Y < 3 * kLine; });
    EXPECT_THAT(rows, IsEmpty()) << FactsOf(kind).Title;
  }
}

}  // namespace
}  // namespace ondrel
