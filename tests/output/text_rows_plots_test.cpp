#include <gmock/gmock.h>

#include "output/text_fixture.h"
#include "output/text_rows.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr ViewKind kScatterPlots[] = {ViewKind::AmplitudeScatter, ViewKind::DurationScatter,
                                      ViewKind::Scatter};

class TextRowsPlotsTest : public TextTest {
 protected:
  struct Dot {
    double Tag;
    double Picoamperes;
    double Duration;
    std::uint32_t Flags = 0;
  };

  void FillDots(const std::vector<Dot>& dots) {
    LayOutScatterPlots();
    FillLevels(static_cast<std::int32_t>(dots.size()), [&](LevelRecord& level, std::int32_t row) {
      const Dot& dot = dots[static_cast<std::size_t>(row)];
      level.Sweep = 1;
      level.TagValue = dot.Tag;
      level.Amplitude = dot.Picoamperes * 1e-12;
      level.Duration = dot.Duration;
      level.LevelFlags = dot.Flags;
    });
  }
};

// --- Scatter plots -------------------------------------------------------------------------------

TEST_F(TextRowsPlotsTest, OnlySelectedLevelsGiveARow) {
  FillDots({{5.0, 1.0, 0.001}, {6.0, 1.0, 0.001, 1}, {7.0, 1.0, 0.001, 0x80000000}});
  for (const ViewKind kind : kScatterPlots) EXPECT_THAT(LinesOf(kind), SizeIs(1)) << int(kind);
}

TEST_F(TextRowsPlotsTest, OnlyPointsInsideTheFrameGiveARow) {
  FillDots({{5.0, 1.0, 0.001},
            {46.0, 1.0, 2.0},     // to the right of all frames
            {-6.0, 1.0, 9e-6},    // to the left
            {5.0, 4.1, 0.11},     // above, but for the plot with durations across
            {5.0, -0.1, 9e-6}});  // below
  EXPECT_THAT(LinesOf(ViewKind::AmplitudeScatter), ElementsAre("5.0000000E+00\t1.0000000E-12"));
  EXPECT_THAT(LinesOf(ViewKind::DurationScatter), ElementsAre("5.0000000E+00\t0.001000"));
  EXPECT_THAT(LinesOf(ViewKind::Scatter), ElementsAre("0.001000\t1.0000000E-12"));
}

TEST_F(TextRowsPlotsTest, APointExactlyOnTheEdgeOfTheFrameIsExported) {
  FillDots({{-5.0, 0.0, 1e-5}, {45.0, 4.0, 0.1}});
  EXPECT_THAT(LinesOf(ViewKind::AmplitudeScatter),
              ElementsAre("-5.0000000E+00\t0.0000000E+00", "4.5000000E+01\t4.0000000E-12"));
  EXPECT_THAT(LinesOf(ViewKind::DurationScatter),
              ElementsAre("-5.0000000E+00\t0.000010", "4.5000000E+01\t0.100000"));
  EXPECT_THAT(LinesOf(ViewKind::Scatter),
              ElementsAre("0.000010\t0.0000000E+00", "0.100000\t4.0000000E-12"));
}

TEST_F(TextRowsPlotsTest, RowsStandInTheOrderOfTheTable) {
  FillDots({{30.0, 1.0, 0.001}, {10.0, 3.0, 0.01}, {20.0, 2.0, 0.0001}, {10.0, 3.0, 0.01}});
  EXPECT_THAT(LinesOf(ViewKind::Scatter),
              ElementsAre("0.001000\t1.0000000E-12", "0.010000\t3.0000000E-12",
                          "0.000100\t2.0000000E-12", "0.010000\t3.0000000E-12"));
}

TEST_F(TextRowsPlotsTest, XIsTheValueThatThePlotShows) {
  FillDots({{5.0, 1.0, 0.001}});
  FillSweeps(1, [](SweepRecord& sweep, std::int32_t) {
    sweep.RelevantValue = 12.5;
    sweep.TagValue = 25.0;
  });
  workspace().AmplitudeScatter.Value = ScatterValue::SweepRelevant;
  workspace().DurationScatter.Value = ScatterValue::SweepTag;
  EXPECT_THAT(LinesOf(ViewKind::AmplitudeScatter), ElementsAre("1.2500000E+01\t1.0000000E-12"));
  EXPECT_THAT(LinesOf(ViewKind::DurationScatter), ElementsAre("2.5000000E+01\t0.001000"));
}

TEST_F(TextRowsPlotsTest, WithAllPointsOutOfTheFrameThereAreNoRows) {
  FillDots({{500.0, 9.0, 100.0}, {-500.0, -9.0, 1e-9}});
  for (const ViewKind kind : kScatterPlots) EXPECT_THAT(LinesOf(kind), IsEmpty()) << int(kind);
}

TEST_F(TextRowsPlotsTest, AScatterPlotThatWasNeverLaidOutIsWrittenWithoutHarm) {
  FillDots({{5.0, 1.0, 0.001}});
  for (const ViewKind kind : kScatterPlots) {
    View(kind).Frame = {};
    View(kind).Scatter = {};
    workspace().AmplitudeScatter.PerTick = 0.0;
    workspace().DurationScatter.PerTick = 0.0;
    EXPECT_LE(LinesOf(kind).size(), 1u) << int(kind);
  }
}

// --- Stationarity --------------------------------------------------------------------------------

TEST_F(TextRowsPlotsTest, TimesBeginAtTheLastWholeStepBeforeThreeTau) {
  stationarity().TickSpacing = 1.0;
  stationarity().TickPixels = 4.0;
  FillSamples({1.0, 1.0});
  stationarity().Tau = 0.166;  // 3 tau = 0.498
  EXPECT_THAT(LinesOf(ViewKind::Stationarity),
              ElementsAre("2.50E-01\t1.00E+00", "5.00E-01\t1.00E+00"));
  stationarity().Tau = 0.167;  // 3 tau = 0.501
  EXPECT_THAT(LinesOf(ViewKind::Stationarity),
              ElementsAre("5.00E-01\t1.00E+00", "7.50E-01\t1.00E+00"));
  stationarity().Tau = 0.08;  // less than a step
  EXPECT_THAT(LinesOf(ViewKind::Stationarity),
              ElementsAre("0.00E+00\t1.00E+00", "2.50E-01\t1.00E+00"));
}

TEST_F(TextRowsPlotsTest, TimesGrowByAddingTheStep) {
  constexpr double kStep = 0.005;
  constexpr int kSamples = 1000;
  stationarity().Tau = 0.002;  // 3 tau / step = 1.2
  stationarity().TickSpacing = kStep;
  stationarity().TickPixels = 1.0;
  FillSamples(std::vector<double>(kSamples, 2.0));
  std::vector<std::string> expected;
  int differing = 0;
  double time = kStep;
  for (int k = 0; k < kSamples; ++k) {
    expected.push_back(Scientific(time, 2) + "\t2.00E+00");
    if (Scientific(time, 2) != Scientific((1 + k) * kStep, 2)) ++differing;
    time += kStep;
  }
  EXPECT_GT(differing, 0) << "a product would do as well";
  EXPECT_EQ(LinesOf(ViewKind::Stationarity), expected);
}

TEST_F(TextRowsPlotsTest, ASampleThatSeesNoLevelIsWrittenWithoutASign) {
  stationarity().TickSpacing = 1.0;
  stationarity().TickPixels = 1.0;
  stationarity().Tau = 1.0;
  FillSamples({-0.0, 0.0, -1e-12});
  EXPECT_THAT(LinesOf(ViewKind::Stationarity),
              ElementsAre("3.00E+00\t0.00E+00", "4.00E+00\t0.00E+00", "5.00E+00\t-1.00E-12"));
}

TEST_F(TextRowsPlotsTest, SamplesOfEveryTypeAreWrittenAlike) {
  FillAll();
  for (const StationarityType type :
       {StationarityType::Amplitude, StationarityType::Duration, StationarityType::Level}) {
    stationarity().Type = type;
    EXPECT_EQ(LinesOf(ViewKind::Stationarity), rows_[ViewKind::Stationarity]);
  }
}

TEST_F(TextRowsPlotsTest, SamplesWithoutATimeAxisAreWrittenWithoutHarm) {
  FillSamples({1.0, 2.0});
  stationarity().TickSpacing = 0.0;
  stationarity().TickPixels = 0.0;
  EXPECT_THAT(LinesOf(ViewKind::Stationarity), SizeIs(2));
  stationarity().TickSpacing = 1.0;
  EXPECT_THAT(LinesOf(ViewKind::Stationarity), SizeIs(2));
  stationarity().TickSpacing = 1e-300;
  stationarity().TickPixels = 1.0;
  EXPECT_THAT(LinesOf(ViewKind::Stationarity), SizeIs(2));
}

}  // namespace
}  // namespace ondrel
