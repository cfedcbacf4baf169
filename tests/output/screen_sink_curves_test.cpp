#include "output/screen_sink.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <numbers>

#include "output/screen_sink_fixture.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ScreenCurvesTest : public ScreenSinkTest {
 protected:
  /// Four bins of 0.5 pA from -1 pA on, 10 wide; 2 units a count. The second term peaks in the
  /// middle of the third bin, with 100 counts.
  ScreenCurvesTest() {
    amplitude_->Minimum = -1.0;
    amplitude_->TickMarks = 2;
    amplitude_->BinsPerTick = 2;
    amplitude_->PixelsPerBin = 10.0;
    amplitude_->PixelsPerCount = 2.0;
    const double area = 100.0 * std::sqrt(2.0 * std::numbers::pi) * 0.25 / 0.5;
    amplitude_->Terms[0] = {.Weight = 0.0, .Current = 1.0, .StdDev = 1.0, .Area = 1e6};
    amplitude_->Terms[1] = {.Weight = 1.0, .Current = 0.25, .StdDev = 0.25, .Area = area};

    duration_->MinimumExponent = -4;
    duration_->Decades = 1;
    duration_->BinsPerDecade = 2;
    duration_->PixelsPerBin = 10.0;
    duration_->PixelsPerCount = 1.0;
    duration_->Terms[0] = {
        .Weight = 1.0, .TimeConstant = 1e-3, .Area = 100.0 / (std::numbers::ln10 * 0.5)};
    context().BinCount = 2;
  }

  AmplitudeHistogram& amplitude() { return *amplitude_; }
  DurationHistogram& duration() { return *duration_; }

  void DrawAmplitude(double base, std::int32_t first, std::int32_t end) {
    shell().Drawing.clear();
    sink().DrawAmplitudeCurve(context(), *amplitude_, 100.0, 100.5, base, first, end);
  }
  void DrawDuration(double base, std::int32_t first = 0, std::int32_t end = 1) {
    shell().Drawing.clear();
    sink().DrawDurationCurve(context(), *duration_, 100.0, 100.5, base, first, end);
  }

 private:
  std::unique_ptr<AmplitudeHistogram> amplitude_ = std::make_unique<AmplitudeHistogram>();
  std::unique_ptr<DurationHistogram> duration_ = std::make_unique<DurationHistogram>();
};

TEST_F(ScreenCurvesTest, AnAmplitudeCurveJoinsItsPointsAtTheCentresOfTheBins) {
  DrawAmplitude(300.5, 1, 2);
  // 200 times e^-8, e^-2, 1 and e^-2 above the base.
  EXPECT_THAT(Drawn(), ElementsAre("line 105 300 to 115 273", "line 115 273 to 125 100",
                                   "line 125 100 to 135 273"));
}

TEST_F(ScreenCurvesTest, AnAmplitudeCurveIsOfTheTermsThatWereAskedFor) {
  DrawAmplitude(300.5, 0, 0);
  EXPECT_EQ(Drawn().front(), "line 105 300 to 115 300");
  DrawAmplitude(300.5, 0, 2);
  EXPECT_NE(Drawn().front(), "line 105 300 to 115 273");
}

TEST_F(ScreenCurvesTest, AnAmplitudeCurveCountsTheBinsOfItsHistogram) {
  context().BinCount = 0;
  DrawAmplitude(300.5, 1, 2);
  EXPECT_EQ(Drawn().size(), std::size_t{3});
}

TEST_F(ScreenCurvesTest, OnASquareRootAxisACurveGoesFromBaseToTop) {
  amplitude().SquareRootAxis = true;
  amplitude().YMaximum = 20.0;
  DrawAmplitude(300.5, 1, 2);
  EXPECT_EQ(Drawn()[1], "line 115 263 to 125 200");  // roots of e^-2 / 4 and of 1/4, times 200
}

TEST_F(ScreenCurvesTest, ADurationCurveJoinsItsPointsAtTheCentresOfTheLogBins) {
  DrawDuration(200.0);
  // 100 times u e^-u, u being ten to the -0.75 and to the -0.25, above the base.
  EXPECT_THAT(Drawn(), ElementsAre("line 105 185 to 115 167"));
}

TEST_F(ScreenCurvesTest, ADurationCurveCountsTheBinsOfTheContext) {
  context().BinCount = 5;
  DrawDuration(200.0);
  EXPECT_EQ(Drawn().size(), std::size_t{4});
}

TEST_F(ScreenCurvesTest, ACurveOfNegativeAreaGoesDownward) {
  duration().Terms[0].Area *= -1.0;
  DrawDuration(200.0);
  EXPECT_THAT(Drawn(), ElementsAre("line 105 214 to 115 232"));
}

TEST_F(ScreenCurvesTest, ACurveIsLimitedInHeightButAtItsFirstPoint) {
  DrawAmplitude(100000.5, 0, 0);
  EXPECT_THAT(Drawn(), ElementsAre("line 105 100000 to 115 32000", "line 115 32000 to 125 32000",
                                   "line 125 32000 to 135 32000"));
  DrawDuration(-100000.5, 0, 0);
  EXPECT_THAT(Drawn(), ElementsAre("line 105 -100000 to 115 -32000"));
}

TEST_F(ScreenCurvesTest, ACurveThatIsNoNumberStaysWithinTheLimits) {
  amplitude().Terms[0].Area = std::numeric_limits<double>::quiet_NaN();
  DrawAmplitude(300.5, 0, 1);
  EXPECT_EQ(Drawn().back(), "line 125 -32000 to 135 -32000");
}

TEST_F(ScreenCurvesTest, ACurveIsNotLimitedSideways) {
  amplitude().PixelsPerBin = 100000.0;
  DrawAmplitude(300.5, 0, 0);
  EXPECT_EQ(Drawn().front(), "line 50100 300 to 150100 300");
}

TEST_F(ScreenCurvesTest, ACurveOverOneBinOrNoneIsAPointThatLeavesNoMark) {
  for (const std::int32_t bins : {1, 0, -5}) {
    context().BinCount = bins;
    DrawDuration(200.0);
    EXPECT_THAT(Drawn(), IsEmpty());
  }
}

TEST_F(ScreenCurvesTest, ACurveOverMoreBinsThanAnyDeviceShowsStillReachesTheEnd) {
  amplitude().TickMarks = 30000;
  amplitude().BinsPerTick = 30000;
  amplitude().PixelsPerBin = 1000.0 / 9e8;
  DrawAmplitude(300.5, 0, 0);
  EXPECT_LE(Drawn().size(), std::size_t{1} << 18);
  EXPECT_THAT(Drawn().back(), ::testing::EndsWith("to 1099 300"));
}

TEST_F(ScreenCurvesTest, ThePlacesOfACurveAreAddedUpBinByBin) {
  context().BinCount = 8;
  duration().PixelsPerBin = 0.4;  // half of it, and it added seven times, is just below 3
  sink().DrawDurationCurve(context(), duration(), 0.0, 100.5, 200.0, 0, 0);
  EXPECT_EQ(Drawn().back(), "line 2 200 to 2 200");
  amplitude().TickMarks = 4;
  amplitude().PixelsPerBin = 0.4;
  sink().DrawAmplitudeCurve(context(), amplitude(), 0.0, 100.5, 200.0, 0, 0);
  EXPECT_EQ(Drawn().back(), "line 2 200 to 2 200");
}

}  // namespace
}  // namespace ondrel
