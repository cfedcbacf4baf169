#include "output/text_rows.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>

#include "derived/statistics.h"
#include "output/text_fixture.h"

namespace ondrel {
namespace {

using ::testing::AnyOf;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr ViewKind kTables[] = {ViewKind::Event, ViewKind::Level, ViewKind::Sweep};

class TextRowsTest : public TextTest {
 protected:
  /// Three tables of `count` rows, whose first field is the row counted from 1.
  void FillTables(std::int32_t count) {
    FreeAllTables(workspace());
    FillEvents(count, [](EventRecord& event, std::int32_t row) {
      event.Sweep = static_cast<std::uint32_t>(row + 1);
    });
    FillLevels(count, [](LevelRecord& level, std::int32_t row) {
      level.Sweep = static_cast<std::uint32_t>(row + 1);
    });
    FillSweeps(count, [](SweepRecord&, std::int32_t) {});
  }

  /// The rows that the view writes, counted from 1.
  std::vector<int> NumbersOf(ViewKind kind) {
    std::vector<int> numbers;
    for (const std::string& line : LinesOf(kind)) numbers.push_back(std::stoi(line));
    return numbers;
  }

  /// What the window shows, in all three tables.
  void Show(std::int32_t topRow, std::int32_t visibleRows) {
    workspace().LimitToWindow = true;
    for (const ViewKind kind : kTables) {
      View(kind).TopRow = topRow;
      View(kind).VisibleRows = visibleRows;
    }
  }

  void ExpectNumbers(const std::vector<int>& expected) {
    for (const ViewKind kind : kTables) {
      EXPECT_EQ(NumbersOf(kind), expected) << FactsOf(kind).Title;
    }
  }
};

// --- The twelve ----------------------------------------------------------------------------------

class EachViewsRowsTest : public TextRowsTest, public ::testing::WithParamInterface<ViewKind> {};

INSTANTIATE_TEST_SUITE_P(Views, EachViewsRowsTest, ::testing::ValuesIn(AllKinds()),
                         [](const auto& info) {
                           std::string name = FactsOf(info.param).Title;
                           std::erase_if(name, [](char c) { return c == ' ' || c == '/'; });
                           return name;
                         });

TEST_P(EachViewsRowsTest, AreWrittenByteForByte) {
  FillAll();
  EXPECT_EQ(RowsOf(GetParam()), Joined(rows_.at(GetParam())));
}

TEST_P(EachViewsRowsTest, AreNoneWhereThereIsNothing) {
  EmptyAll();
  EXPECT_EQ(RowsOf(GetParam()), "");
}

TEST_P(EachViewsRowsTest, StopAtTheFirstFailedWrite) {
  FillAll();
  OutputFile file;
  ASSERT_EQ(toolkit::CreateEmptyFile(Path().c_str()), 0);
  ASSERT_EQ(OpenOutputFile(Path().c_str(), file), 0);
  WriteText(file, std::string(file.Gathered.size() - 1, 'x'));
  shell().Write.Next = 1;
  WriteTextRows(workspace(), GetParam(), file);
  EXPECT_NE(file.Status, 0);
  EXPECT_EQ(shell().OpenFiles, 0);
  EXPECT_EQ(OnDisk(), "");
  EXPECT_THAT(Messages(), IsEmpty()) << "telling is the export's part";
}

TEST_P(EachViewsRowsTest, OnlyTheThreeTablesFollowTheWindow) {
  FillAll();
  workspace().LimitToWindow = true;
  View(GetParam()).TopRow = 1;
  View(GetParam()).VisibleRows = 0;
  const bool isTable = std::count(std::begin(kTables), std::end(kTables), GetParam()) > 0;
  EXPECT_EQ(RowsOf(GetParam()), isTable ? "" : Joined(rows_.at(GetParam())));
}

/// A disk that is full ends an export at once, however long the table.
TEST_F(TextRowsTest, NoRecordBehindAFailedWriteIsLookedAt) {
  FillEvents(3, [](EventRecord&, std::int32_t) {});
  for (std::int32_t row : {1, 2}) workspace().Events.Index[row] = nullptr;
  FillAmplitudeBins();
  amplitude().BinsPerTick = 1 << 30;  // far more bins than there are
  for (const ViewKind kind : {ViewKind::Event, ViewKind::Amplitude}) {
    OutputFile file;
    ASSERT_EQ(toolkit::CreateEmptyFile(Path().c_str()), 0);
    ASSERT_EQ(OpenOutputFile(Path().c_str(), file), 0);
    WriteText(file, std::string(file.Gathered.size() - 1, 'x'));
    shell().Write.Next = 1;
    WriteTextRows(workspace(), kind, file);
    EXPECT_NE(file.Status, 0);
  }
}

// --- The tables ----------------------------------------------------------------------------------

TEST_F(TextRowsTest, WithoutTheLimitAllRowsAreWrittenWhateverTheWindowShows) {
  FillTables(5);
  Show(2, 1);
  workspace().LimitToWindow = false;
  ExpectNumbers({1, 2, 3, 4, 5});
}

TEST_F(TextRowsTest, TheLastRowWrittenIsTheLastOneOfTheWindow) {
  FillTables(9);
  Show(3, 4);
  ExpectNumbers({4, 5, 6, 7});
}

TEST_F(TextRowsTest, TheLastRowWrittenIsTheTablesLastOneWhereTheWindowReachesBeyond) {
  FillTables(5);
  Show(3, 4);
  ExpectNumbers({4, 5});
  Show(4, 2147483647);
  ExpectNumbers({5});
  Show(0, 5);
  ExpectNumbers({1, 2, 3, 4, 5});
}

TEST_F(TextRowsTest, AWindowBehindTheTableShowsNoRow) {
  FillTables(5);
  Show(5, 3);
  ExpectNumbers({});
  Show(2147483647, 2147483647);
  ExpectNumbers({});
}

TEST_F(TextRowsTest, AWindowShorterThanItsHeaderShowsNoRow) {
  FillTables(5);
  for (const std::int32_t visible : {0, -1, -2, -2147483647 - 1}) {
    Show(1, visible);
    ExpectNumbers({});
  }
}

TEST_F(TextRowsTest, TheRowBeforeTheFirstIsNone) {
  FillTables(5);
  Show(-1, 3);
  ExpectNumbers({1, 2});
  Show(-1, 1);
  ExpectNumbers({});
  FillTables(0);
  Show(-1, 3);
  ExpectNumbers({});
}

TEST_F(TextRowsTest, EachTableFollowsItsOwnWindow) {
  FillTables(9);
  workspace().LimitToWindow = true;
  int top = 0;
  for (const ViewKind kind : kTables) {
    View(kind).TopRow = 2 * top++;
    View(kind).VisibleRows = 1;
  }
  EXPECT_THAT(NumbersOf(ViewKind::Event), ElementsAre(1));
  EXPECT_THAT(NumbersOf(ViewKind::Level), ElementsAre(3));
  EXPECT_THAT(NumbersOf(ViewKind::Sweep), ElementsAre(5)) << "rows keep their numbers";
}

TEST_F(TextRowsTest, SelectedOrNotARecordIsWritten) {
  FillLevels(3, [](LevelRecord& level, std::int32_t row) {
    level.Sweep = static_cast<std::uint32_t>(row + 1);
    level.LevelFlags = row == 1 ? 0 : 0xFFFFFFFF;
  });
  FillSweeps(3, [](SweepRecord& sweep, std::int32_t row) {
    sweep.SelectionFlags = row == 1 ? 0 : 0xFFFFFFFF;
  });
  EXPECT_THAT(NumbersOf(ViewKind::Level), ElementsAre(1, 2, 3));
  EXPECT_THAT(NumbersOf(ViewKind::Sweep), ElementsAre(1, 2, 3));
}

TEST_F(TextRowsTest, NumbersThatFitNoWindowOfTheProgramAreWrittenWhole) {
  FillEvents(1, [](EventRecord& event, std::int32_t) {
    event = {4294967295, -1e20, 1e-300, -1.7976931348623157e308, -2147483647 - 1, 1e100};
  });
  EXPECT_THAT(LinesOf(ViewKind::Event),
              ElementsAre("-1\t-100000000000000000000.000000\t1.0000000E-300\t"
                          "-1.7976931E+308\t-2147483648\t1.000000E+100"));
}

// --- Statistics ----------------------------------------------------------------------------------

TEST_F(TextRowsTest, AStatisticsRowWithoutEventsSaysNotANumberInItsMeans) {
  FillLevels(2, [](LevelRecord& level, std::int32_t row) {
    level = {};
    level.Amplitude = 2e-12 * (row + 1);
    level.Duration = 0.25 * (row + 1);
    level.Level = 2 * row;
  });
  workspace().Statistics.Reference = StatisticsReference::Levels;
  workspace().Statistics.Reference = StatisticsReference::Levels;
  CalculateStatistics(workspace());
  ASSERT_EQ(workspace().Statistics.RowCount, 3);
  const StatisticsRow& between = workspace().Statistics.Rows[1];
  ASSERT_TRUE(std::isnan(between.DurationMean));
  ASSERT_TRUE(std::isnan(between.AmplitudeMean));
  // A quotient of zeroes has a sign, and the text shows it.
  EXPECT_THAT(
      LinesOf(ViewKind::Statistics),
      ElementsAre("0\t1\t0.3333\t0.250000\t0.000000\t0.250000\t0.250000\t2.0000000E-12\t"
                  "0.0000000E+00\t2.0000000E-12\t2.0000000E-12",
                  "1\t0\t0.0000\t" + Fixed(between.DurationMean) +
                      "\t0.000000\t0.000000\t0.000000\t" + Scientific(between.AmplitudeMean) +
                      "\t0.0000000E+00\t0.0000000E+00\t0.0000000E+00",
                  "2\t1\t0.6667\t0.500000\t0.000000\t0.500000\t0.500000\t4.0000000E-12\t"
                  "0.0000000E+00\t4.0000000E-12\t4.0000000E-12"));
  EXPECT_THAT(Fixed(between.DurationMean), AnyOf("nan", "-nan"));
  EXPECT_THAT(Scientific(between.AmplitudeMean), AnyOf("NAN", "-NAN"));
}

TEST_F(TextRowsTest, WithoutSelectedLevelsTheStatisticsAreThoseOfTheLastRunThatHadSome) {
  FillAll();
  workspace().Statistics.StatisticsEmpty = true;
  EXPECT_EQ(LinesOf(ViewKind::Statistics), rows_[ViewKind::Statistics]);
}

// --- Terms ---------------------------------------------------------------------------------------

TEST_F(TextRowsTest, AFitHasARowForEachTermInUse) {
  for (std::size_t i = 0; i < kTermSlots; ++i) {
    amplitude().Terms[i].Weight = static_cast<double>(i);
    duration().Terms[i].Weight = static_cast<double>(i);
  }
  for (const std::int32_t terms : {0, 1, 3, 10}) {
    amplitude().TermCount = terms;
    duration().TermCount = terms;
    const auto rows = static_cast<std::size_t>(terms);
    EXPECT_EQ(LinesOf(ViewKind::AmplitudeFit).size(), rows);
    EXPECT_EQ(LinesOf(ViewKind::DurationFit).size(), rows);
  }
  EXPECT_EQ(LinesOf(ViewKind::DurationFit).back().substr(0, 6), "9.000\t");
}

TEST_F(TextRowsTest, ACountOfTermsThatNoFitCanHaveIsTheNearestOne) {
  for (const std::int32_t terms : {11, 2147483647}) {
    amplitude().TermCount = terms;
    duration().TermCount = terms;
    EXPECT_EQ(LinesOf(ViewKind::AmplitudeFit).size(), 10u);
    EXPECT_EQ(LinesOf(ViewKind::DurationFit).size(), 10u);
  }
  amplitude().TermCount = -1;
  duration().TermCount = -1;
  EXPECT_THAT(LinesOf(ViewKind::AmplitudeFit), IsEmpty());
  EXPECT_THAT(LinesOf(ViewKind::DurationFit), IsEmpty());
}

}  // namespace
}  // namespace ondrel
