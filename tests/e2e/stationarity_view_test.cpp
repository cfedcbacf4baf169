// The stationarity plot of recordings whose answer is known.
#include "fitting_gestures.h"
#include "plot_fixture.h"

namespace ondrel::e2e {
namespace {

class Stationarity : public PlotTest {
 protected:
  [[nodiscard]] Picture Plot() const { return PictureOf(kStationarityPlot); }
};

TEST_F(Stationarity, TheCurveIsTheShareOfTimeInTheSelectedLevels) {
  Open(SteadySweeps());
  Show(kStationarityPlot);
  const Picture view = Plot();
  Keep(kStationarityPlot, view, "steady");
  const StationarityPlot expected =
      StationarityOf(FrameOf(kStationarityPlot, view), SteadySweeps());
  EXPECT_GT(expected.Curve.size(), 300u);
  EXPECT_TRUE(ShowsCurve(view, expected.Curve));
  // Seven of nine sweeps, eight and the one that opens for a moment, and seven again.
  ASSERT_EQ(expected.Marks.Up.Numbers.size(), 4u);
  EXPECT_EQ(expected.Marks.Up.Numbers.front().Text, "0.700");
  EXPECT_EQ(expected.Marks.Up.Numbers.back().Text, "1.000");
  EXPECT_EQ(expected.Marks.Across.Numbers.back().Text, "4.000");
  EXPECT_TRUE(ShowsTicks(kStationarityPlot, view, expected.Marks));
  EXPECT_TRUE(ShowsNumbers(kStationarityPlot, view, reader_, expected.Marks));
  EXPECT_TRUE(ShowsAxisLines(kStationarityPlot, view));
  EXPECT_TRUE(ShowsTitles(kStationarityPlot, view, reader_));
}

TEST_F(Stationarity, TheShortestSweepEndsTheAxis) {
  std::vector<RecordedSweep> sweeps = SteadySweeps();
  sweeps.push_back({.Before = 0.4, .Openings = {{2.5, 1.1, 0.6}}});
  Open(sweeps);
  Show(kStationarityPlot);
  const Picture view = Plot();
  const StationarityPlot expected = StationarityOf(FrameOf(kStationarityPlot, view), sweeps);
  EXPECT_TRUE(ShowsCurve(view, expected.Curve));
  EXPECT_TRUE(ShowsTicks(kStationarityPlot, view, expected.Marks));
  EXPECT_TRUE(ShowsNumbers(kStationarityPlot, view, reader_, expected.Marks));
}

/// Nine seconds have a tick for each, but in a narrow window only for every second one.
TEST_F(Stationarity, TimesThatNeedMoreRoomThanTheirTicksStandTwiceAsFarApart) {
  const std::vector<RecordedSweep> sweeps{{.Before = 0.35, .Openings = {{2.5, 6.85, 1.8}}},
                                          {.Before = 2.0, .Openings = {{2.5, 3.3, 3.7}}},
                                          {.Before = 5.0, .Openings = {{2.5, 3.8, 0.2}}}};
  Open(sweeps);
  Show(kStationarityPlot);
  for (const auto& [width, numbers] : {std::pair{577, 10u}, std::pair{387, 6u}}) {
    PlaceView(program_, kStationarityPlot.Title, {10, 10, 10 + width, 490});
    const Picture view = Plot();
    const StationarityPlot expected = StationarityOf(FrameOf(kStationarityPlot, view), sweeps);
    EXPECT_EQ(expected.Marks.Across.Numbers.size(), numbers);
    EXPECT_TRUE(ShowsCurve(view, expected.Curve));
    EXPECT_TRUE(ShowsTicks(kStationarityPlot, view, expected.Marks));
    EXPECT_TRUE(ShowsNumbers(kStationarityPlot, view, reader_, expected.Marks));
  }
}

TEST_F(Stationarity, WhereNoLevelIsSelectedTheShareIsAPlainZero) {
  const std::vector<RecordedSweep> sweeps{{.Before = 1.5, .Openings = {{2.5, 1.3, 1.2}}},
                                          {.Before = 1.7, .Openings = {{2.5, 0.4, 2.4}}}};
  Open(sweeps);
  Show(kStationarityPlot);
  const Picture view = Plot();
  const StationarityPlot expected = StationarityOf(FrameOf(kStationarityPlot, view), sweeps);
  EXPECT_EQ(expected.Marks.Up.Numbers.front().Text, "0.000");
  EXPECT_TRUE(ShowsCurve(view, expected.Curve));
  EXPECT_TRUE(ShowsNumbers(kStationarityPlot, view, reader_, expected.Marks));
}

TEST_F(Stationarity, ASweepShorterThanTheAverageReachesLeavesTitlesAndAxesOnly) {
  Open({{.Before = 0.1, .Openings = {{2.5, 0.2, 0.29}}}});
  Show(kStationarityPlot);
  const Picture view = Plot();
  EXPECT_EQ(view.Count(kRed), 0);
  EXPECT_TRUE(ShowsTitles(kStationarityPlot, view, reader_));
  EXPECT_TRUE(ShowsAxisLines(kStationarityPlot, view));
  EXPECT_TRUE(ShowsTicks(kStationarityPlot, view, {}));
  // No numbers: between axis and title, and beside the axis, nothing is written.
  const PlotFrame frame = FrameOf(kStationarityPlot, view);
  const int bottom = static_cast<int>(frame.Bottom);
  const int left = static_cast<int>(frame.Left);
  const int numbers = static_cast<int>(frame.Bottom + frame.Reference / 15.0);
  EXPECT_EQ(view.Cut({0, bottom + 1, view.Width, numbers + 1}).Count(kBlack), 0);
  EXPECT_EQ(view.Cut({0, static_cast<int>(frame.Top), left, view.Height}).Count(kBlack), 0);
}

}  // namespace
}  // namespace ondrel::e2e
