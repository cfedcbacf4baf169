#include "views/scatter_views.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/axis_parts.h"
#include "views/scatter_view_fixture.h"

namespace ondrel {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;

// --- Whole pictures ------------------------------------------------------------------------------

TEST_F(ScatterViewTest, AmplitudesAgainstValuesAreTwoLinearAxesAndDots) {
  byAmplitude().TickMarks = 1;
  byAmplitude().AmplitudeTicks = 2;
  byAmplitude().AmplitudeMinimum = -1e-12;
  SetDwells({{0.0, 0.5, 1e-3}});
  EXPECT_EQ(
      Draw(ViewKind::AmplitudeScatter),
      PlotParts({"left 650 1650 Level Tag Value", "line 230 1410 1490 1410",
                 "line 230 1410 230 1445", "left 230 1522 -5.00", "line 1490 1410 1490 1445",
                 "left 1490 1522 5.00", "left 115 174 Amplitude (pA)", "line 230 290 230 1410",
                 "line 230 1410 195 1410", "right 182 1410 -1.0", "line 230 850 195 850",
                 "right 182 850 0.0", "color k 1 0 0", "dot y 570 x 860 size 4"}));
}

TEST_F(ScatterViewTest, DurationsAgainstValuesAreALinearAndALogarithmicAxisAndDots) {
  byDuration().Value = ScatterValue::SweepRelevant;
  byDuration().TickMarks = 2;
  byDuration().Decades = 1;
  byDuration().TicksPerDecade = 3;
  FillSweeps(1, [](SweepRecord& sweep, std::int32_t) { sweep.RelevantValue = 2.5; });
  SetDwells({{-100.0, 0.0, 1e-4}});
  EXPECT_EQ(
      Draw(ViewKind::DurationScatter),
      PlotParts({"left 650 1650 Sweep Relevant Value", "line 230 1410 1490 1410",
                 "line 230 1410 230 1445", "left 230 1522 -5.00", "line 860 1410 860 1445",
                 "left 860 1522 5.00", "line 1490 1410 1490 1445", "left 1490 1522 15.00",
                 "left 115 174 log Duration (s)", "line 230 290 230 1410", "line 230 1410 195 1410",
                 "line 230 850 207.6 850", "line 230 522.421 207.6 522.421",
                 "line 230 290 207.6 290", "right 182 1410 -5", "line 230 290 195 290",
                 "color k 1 0 0", "dot y 290 x 702.5 size 4"}));
}

TEST_F(ScatterViewTest, AmplitudesAgainstDurationsAreALogarithmicAndALinearAxisAndDots) {
  byBoth().Decades = 1;
  byBoth().TicksPerDecade = 1;
  byBoth().Ticks = 1;
  byBoth().PaPerTick = 2.0;
  SetDwells({{-100.0, 1.0, 1e-5}});
  EXPECT_EQ(
      Draw(ViewKind::Scatter),
      PlotParts({"left 650 1650 log Duration (s)", "line 230 1410 1490 1410",
                 "line 230 1410 230 1445", "line 230 1410 230 1432.4", "left 230 1522 -5",
                 "line 1490 1410 1490 1445", "line 1490 1410 1490 1432.4", "left 1490 1522 -4",
                 "left 115 174 Amplitude (pA)", "line 230 290 230 1410", "line 230 1410 195 1410",
                 "right 182 1410 0.0", "color k 1 0 0", "dot y 850 x 230 size 4"}));
}

TEST_F(ScatterViewTest, EachPlotTakesItsOwnSettings) {
  byAmplitude().Value = ScatterValue::SweepTag;
  byAmplitude().Minimum = 1.0;
  byAmplitude().PerTick = 2.0;
  byDuration().Minimum = 3.0;
  byDuration().PerTick = 4.0;
  byDuration().MinimumExponent = -7;
  byBoth().MinimumExponent = -6;
  byBoth().Minimum = 5e-12;
  byAmplitude().AmplitudeMinimum = 6e-12;
  const auto texts = [&](ViewKind kind) {
    std::vector<std::string> found;
    Draw(kind);
    for (const std::string& line :
         LinesOf({"left 650 1650 ", "left 230 1522 ", "right 182 1410 "})) {
      found.push_back(line.substr(line.find(' ', 10) + 1));
    }
    return found;
  };
  EXPECT_THAT(texts(ViewKind::AmplitudeScatter), ElementsAre("Sweep Tag Value", "1.00", "6.0"));
  EXPECT_THAT(texts(ViewKind::DurationScatter), ElementsAre("Level Tag Value", "3.00", "-7"));
  EXPECT_THAT(texts(ViewKind::Scatter), ElementsAre("log Duration (s)", "-6", "5.0"));
}

TEST_F(ScatterViewTest, ByDefaultThePlotsAreThoseOfAFreshProgram) {
  byAmplitude() = {};
  byDuration() = {};
  byBoth() = {};
  Draw(ViewKind::AmplitudeScatter);
  EXPECT_EQ(LinesOf({"left"}).back(), "left 115 174 Amplitude (pA)");
  EXPECT_TRUE(HasLine("left 1490 1522 45.00"));
  EXPECT_EQ(LinesOf({"right"}).back(), "right 182 570 3.0");
  Draw(ViewKind::DurationScatter);
  EXPECT_TRUE(HasLine("left 1490 1522 45.00"));
  EXPECT_EQ(LinesOf({"right"}).back(), "right 182 570 -2") << "and -1 is missing";
  Draw(ViewKind::Scatter);
  EXPECT_TRUE(HasLine("left 1238 1522 -1"));
  EXPECT_FALSE(HasLine("left 1490 1522 0")) << "the last number";
}

// --- Dots ----------------------------------------------------------------------------------------

TEST_F(ScatterViewTest, ASelectedLevelIsADotInTheOrderOfTheTable) {
  SetDwells({{5.0, 3.0, 1e-2}, {15.0, 2.0, 1e-3}, {5.0, 1.0, 1e-4}, {5.0, 1.0, 1e-4}});
  workspace().Levels.Index[1]->LevelFlags = 0x40;
  Draw(ViewKind::AmplitudeScatter);
  EXPECT_THAT(LinesOf({"dot"}), ElementsAre("dot y 570 x 650 size 4", "dot y 1130 x 650 size 4",
                                            "dot y 1130 x 650 size 4"));
  Draw(ViewKind::DurationScatter);
  EXPECT_THAT(LinesOf({"dot"}), ElementsAre("dot y 570 x 650 size 4", "dot y 1130 x 650 size 4",
                                            "dot y 1130 x 650 size 4"));
  Draw(ViewKind::Scatter);
  EXPECT_THAT(LinesOf({"dot"}), ElementsAre("dot y 570 x 1490 size 4", "dot y 1130 x 650 size 4",
                                            "dot y 1130 x 650 size 4"));
}

TEST_F(ScatterViewTest, DotsKeepTheirFractions) {
  byAmplitude().SymbolSize = 0.1;
  SetDwells({{0.1, 0.123, 1e-3}});
  Draw(ViewKind::AmplitudeScatter);
  // 5.1 of 10 values of 420, and 0.123 of 280.
  EXPECT_THAT(LinesOf({"dot"}), ElementsAre("dot y 1375.56 x 444.2 size 10"));
}

TEST_F(ScatterViewTest, PointsOutsideAreLeftOutAndThoseOnTheEdgesAreWhole) {
  byAmplitude().SymbolSize = 1.0;
  SetDwells({{-5.0, 1.0, 1e-3},
             {25.0, 1.0, 1e-3},
             {5.0, 0.0, 1e-3},
             {5.0, 4.0, 1e-3},
             {-5.01, 1.0, 1e-3},
             {25.01, 1.0, 1e-3},
             {5.0, -0.01, 1e-3},
             {5.0, 4.01, 1e-3}});
  Draw(ViewKind::AmplitudeScatter);
  EXPECT_THAT(LinesOf({"dot"}),
              ElementsAre("dot y 1130 x 230 size 100", "dot y 1130 x 1490 size 100",
                          "dot y 1410 x 650 size 100", "dot y 290 x 650 size 100"));
  EXPECT_THAT(LinesOf({"clip"}), IsEmpty()) << "graphs are not clipped";
}

TEST_F(ScatterViewTest, ALevelWithoutDurationIsNoDotOnALogarithmicAxis) {
  SetDwells({{5.0, 1.0, 0.0}, {15.0, 1.0, 1e-3}});
  Draw(ViewKind::AmplitudeScatter);
  EXPECT_EQ(CountLines("dot"), 2);
  Draw(ViewKind::DurationScatter);
  EXPECT_THAT(LinesOf({"dot"}), ElementsAre("dot y 850 x 1070 size 4"));
  Draw(ViewKind::Scatter);
  EXPECT_THAT(LinesOf({"dot"}), ElementsAre("dot y 1130 x 1070 size 4"));
}

TEST_F(ScatterViewTest, SymbolsSmallerThanADeviceUnitHaveSizeZero) {
  byAmplitude().SymbolSize = 0.005;
  SetDwells({{5.0, 1.0, 1e-3}});
  Draw(ViewKind::AmplitudeScatter);
  EXPECT_THAT(LinesOf({"dot"}), ElementsAre("dot y 1130 x 650 size 0"));
}

TEST_F(ScatterViewTest, TheLastTickOfAnAxisIsWhereADotOfItsValueStands) {
  byAmplitude().TickMarks = 8;  // of 157 instead of 157.5
  byAmplitude().PerTick = 1.0;
  byAmplitude().AmplitudeTicks = 3;  // of 373 instead of 373.3
  SetDwells({{3.0, 2.0, 1e-3}, {3.02, 2.0, 1e-3}});
  Draw(ViewKind::AmplitudeScatter);
  EXPECT_TRUE(HasLine("line 1486 1410 1486 1445"));
  EXPECT_TRUE(HasLine("line 230 664 195 664"));
  EXPECT_THAT(LinesOf({"dot"}),
              ElementsAre("dot y 664 x 1486 size 4", "dot y 664 x 1489.14 size 4"))
      << "the frame goes on to its edge";
}

TEST_F(ScatterViewTest, AnEmptyTableLeavesTheAxesAlone) {
  SetDwells({{5.0, 1.0, 1e-3}});
  for (const ViewKind kind : kScatterPlots) {
    workspace().Levels.Count = 1;
    std::vector<std::string> axes = Draw(kind);
    ASSERT_THAT(axes.back(), StartsWith("dot"));
    axes.pop_back();
    workspace().Levels.Count = 0;
    EXPECT_EQ(Draw(kind), axes);
  }
}

TEST_F(ScatterViewTest, WithAllPointsOutsideThePlotIsEmpty) {
  SetDwells({{500.0, 100.0, 1e9}, {-500.0, -100.0, 1e-9}});
  for (const ViewKind kind : kScatterPlots) {
    Draw(kind);
    EXPECT_EQ(CountLines("dot"), 0);
    EXPECT_EQ(Lines().back(), "color k 1 0 0");
  }
}

TEST_F(ScatterViewTest, AxesAndLabelsAreShownApart) {
  SetDwells({{5.0, 1.0, 1e-3}});
  for (const ViewKind kind : kScatterPlots) {
    SetShown(false, false);
    EXPECT_THAT(Draw(kind), ElementsAre("color k 1 0 0", StartsWith("dot"))) << "only its data";
    SetShown(true, false);
    Draw(kind);
    EXPECT_THAT(LinesOf({"left", "right", "color k 2"}), IsEmpty());
    EXPECT_EQ(CountLines("color K 3"), CountLines("line"));
    EXPECT_EQ(CountLines("color"), CountLines("line") + 1);
    EXPECT_THAT(LinesOf({"dot"}), SizeIs(1));
    SetShown(false, true);
    Draw(kind);
    EXPECT_THAT(LinesOf({"line", "color K"}), IsEmpty());
    EXPECT_EQ(CountLines("color k 2"), CountLines("left") + CountLines("right"));
    EXPECT_EQ(CountLines("color"), CountLines("color k 2") + 1);
    EXPECT_GT(CountLines("right"), 2);
  }
}

TEST_F(ScatterViewTest, TheLastNumberOfALogarithmicAxisIsThereWithoutAxesAlone) {
  SetShown(true, true);
  Draw(ViewKind::Scatter);
  EXPECT_FALSE(HasLine("left 1490 1522 -2"));
  Draw(ViewKind::DurationScatter);
  EXPECT_FALSE(HasLine("right 182 290 -1"));
  SetShown(false, true);
  Draw(ViewKind::Scatter);
  EXPECT_TRUE(HasLine("left 1490 1522 -2"));
  Draw(ViewKind::DurationScatter);
  EXPECT_TRUE(HasLine("right 182 290 -1"));
}

TEST_F(ScatterViewTest, EachPlotHasItsOwnColours) {
  SetDwells({{5.0, 1.0, 1e-3}});
  for (const ViewKind kind : kScatterPlots) {
    const auto mark = static_cast<std::int32_t>(kind);
    View(kind).Colors = {RgbColor{1, mark, 0}, {2, mark, 0}, {3, mark, 0}, {4, mark, 0}};
  }
  for (const ViewKind kind : kScatterPlots) {
    Draw(kind);
    const std::string mark = " " + std::to_string(static_cast<int>(kind)) + " 0";
    EXPECT_THAT(ColorsOf({"dot"}), ElementsAre("color k 1" + mark));
    EXPECT_THAT(ColorsOf({"left", "right"}), ElementsAre("color k 2" + mark));
    EXPECT_THAT(ColorsOf({"line"}), ElementsAre("color K 3" + mark));
  }
}

// --- Failures ------------------------------------------------------------------------------------

TEST_F(ScatterViewTest, AFailedHorizontalAxisIsTheEndOfTheDrawing) {
  SetDwells({{5.0, 1.0, 1e-3}});
  Lay();
  for (const ViewKind kind : kScatterPlots) {
    recording::Clear();
    recording::FailLine("left 650 1650");
    DrawOn(sink(), kind);
    EXPECT_EQ(workspace().Graphics.Status, recording::kFullDisk);
    EXPECT_FALSE(Lines().empty());
    EXPECT_THAT(LinesOf({"left 115", "line 230 290", "dot", "color k 1"}), IsEmpty());
    workspace().Graphics.Status = 0;
  }
}

TEST_F(ScatterViewTest, AFailedVerticalAxisIsTheEndOfTheDrawing) {
  SetDwells({{5.0, 1.0, 1e-3}});
  Lay();
  for (const ViewKind kind : kScatterPlots) {
    recording::Clear();
    recording::FailLine("line 230 290");
    DrawOn(sink(), kind);
    EXPECT_EQ(workspace().Graphics.Status, recording::kFullDisk);
    EXPECT_THAT(Lines(), Contains(StartsWith("left 115")));
    EXPECT_THAT(LinesOf({"dot", "color k 1"}), IsEmpty());
    workspace().Graphics.Status = 0;
  }
}

TEST_F(ScatterViewTest, AFailedDotIsTheLast) {
  SetDwells({{5.0, 1.0, 1e-4}, {5.0, 2.0, 1e-3}, {5.0, 1.0, 1e-4}});
  Lay();
  for (const ViewKind kind : kScatterPlots) {
    recording::Clear();
    recording::FailLine("dot y 850");
    DrawOn(sink(), kind);
    EXPECT_EQ(workspace().Graphics.Status, recording::kFullDisk);
    EXPECT_THAT(LinesOf({"dot"}), ElementsAre("dot y 1130 x 650 size 4"));
    workspace().Graphics.Status = 0;
  }
}

}  // namespace
}  // namespace ondrel
