#include "output/screen_sink.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <numbers>

#include "support/shell_test.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ScreenSinkTest : public ShellTest {
 protected:
  ScreenSinkTest() { context_.Device = toolkit::AcquireDevice(nullptr); }
  ~ScreenSinkTest() override {
    EXPECT_EQ(context_.Status, 0) << "the screen never fails";
    toolkit::CleanUpDevice(context_.Device);
    toolkit::ReleaseDevice(nullptr, context_.Device);
  }

  const GraphicsSink& sink() { return kScreenSink; }
  GraphicsContext& context() { return context_; }
  const std::vector<std::string>& Drawn() { return shell().Drawing; }

  void DrawText(double x, double y, TextAlignment alignment, const char* text) {
    sink().DrawText(context(), x, y, alignment, text, 64);
  }

 private:
  GraphicsContext context_;
};

TEST_F(ScreenSinkTest, EveryOperationIsThere) {
  EXPECT_NE(sink().DrawLine, nullptr);
  EXPECT_NE(sink().MoveTo, nullptr);
  EXPECT_NE(sink().LineTo, nullptr);
  EXPECT_NE(sink().StrokePath, nullptr);
  EXPECT_NE(sink().DrawText, nullptr);
  EXPECT_NE(sink().DrawFilledBars, nullptr);
  EXPECT_NE(sink().DrawBarRectangles, nullptr);
  EXPECT_NE(sink().DrawBarOutline, nullptr);
  EXPECT_NE(sink().DrawRect, nullptr);
  EXPECT_NE(sink().DrawDurationCurve, nullptr);
  EXPECT_NE(sink().DrawAmplitudeCurve, nullptr);
  EXPECT_NE(sink().DrawDot, nullptr);
  EXPECT_NE(sink().SetColor, nullptr);
  EXPECT_NE(sink().SetClip, nullptr);
  EXPECT_NE(sink().GetPixelSnap, nullptr);
}

TEST_F(ScreenSinkTest, ALineConnectsItsTruncatedPoints) {
  sink().DrawLine(context(), 1.9, 2.2, -3.9, 4.999);
  EXPECT_THAT(Drawn(), ElementsAre("line 1 2 to -3 4"));
}

TEST_F(ScreenSinkTest, ASingleLineIsNotClamped) {
  sink().DrawLine(context(), -40000.0, 0.0, 40000.0, 33000.5);
  EXPECT_THAT(Drawn(), ElementsAre("line -40000 0 to 40000 33000"));
}

TEST_F(ScreenSinkTest, APathRunsFromPointToTruncatedPoint) {
  sink().MoveTo(context(), 0.9, -0.9);
  sink().LineTo(context(), 10.5, -20.5);
  sink().LineTo(context(), 11.0, 3.99);
  EXPECT_THAT(Drawn(), ElementsAre("line 0 0 to 10 -20", "line 10 -20 to 11 3"));
}

TEST_F(ScreenSinkTest, APathIsClampedTo32000EitherWay) {
  sink().MoveTo(context(), -32001.0, 32000.5);
  sink().LineTo(context(), 1e300, -1e300);
  sink().LineTo(context(), -31999.9, 31999.9);
  EXPECT_THAT(Drawn(), ElementsAre("line -32000 32000 to 32000 -32000",
                                   "line 32000 -32000 to -31999 31999"));
}

TEST_F(ScreenSinkTest, NotANumberStaysWithinTheBoundsOfAPath) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  sink().MoveTo(context(), nan, 1.0);
  sink().LineTo(context(), 2.0, nan);
  EXPECT_THAT(Drawn(), ElementsAre("line -32000 1 to 2 -32000"));
}

TEST_F(ScreenSinkTest, StrokingAPathDrawsNothingMore) {
  sink().MoveTo(context(), 1.0, 2.0);
  sink().LineTo(context(), 3.0, 4.0);
  shell().Drawing.clear();
  sink().StrokePath(context());
  EXPECT_THAT(Drawn(), IsEmpty());
}

TEST_F(ScreenSinkTest, LeftAlignedTextBeginsAtItsTruncatedPoint) {
  DrawText(100.9, 50.9, TextAlignment::Left, "abc");
  EXPECT_THAT(Drawn(), ElementsAre("text 100 50 abc"));
}

TEST_F(ScreenSinkTest, RightAlignedTextEndsAtItsPoint) {
  toolkit::SetFontHeight(context().Device, 10);  // 5 units a letter
  DrawText(100.0, 50.0, TextAlignment::Right, "abcd");
  EXPECT_THAT(Drawn(), ElementsAre("text 80 50 abcd"));
}

TEST_F(ScreenSinkTest, TheWidthOfATextIsSubtractedBeforeItsPlaceIsTruncated) {
  toolkit::SetFontHeight(context().Device, 10);
  DrawText(10.5, 50.0, TextAlignment::Right, "abc");  // -4.5, not 10 - 15
  EXPECT_THAT(Drawn(), ElementsAre("text -4 50 abc"));
}

TEST_F(ScreenSinkTest, EveryAlignmentButLeftEndsAtThePoint) {
  toolkit::SetFontHeight(context().Device, 10);
  DrawText(100.0, 50.0, static_cast<TextAlignment>(1), "ab");
  DrawText(100.0, 60.0, static_cast<TextAlignment>(-1), "ab");
  EXPECT_THAT(Drawn(), ElementsAre("text 90 50 ab", "text 90 60 ab"));
}

TEST_F(ScreenSinkTest, TextIsMeasuredInTheFontThatIsSelected) {
  toolkit::SetFontHeight(context().Device, 20);  // 10 units a letter
  DrawText(100.0, 50.0, TextAlignment::Right, "abcd");
  EXPECT_THAT(Drawn(), ElementsAre("text 60 50 abcd"));
}

TEST_F(ScreenSinkTest, TheCapacityOfATextIsIgnored) {
  sink().DrawText(context(), 1.0, 2.0, TextAlignment::Left, "longer than three", 3);
  EXPECT_THAT(Drawn(), ElementsAre("text 1 2 longer than three"));
}

TEST_F(ScreenSinkTest, ARectangleIsHollowAndItsTruncatedEdgesAreReturned) {
  const IntRect rect = sink().DrawRect(context(), -1.9, 2.9, 30.5, 40.1);
  EXPECT_EQ(rect, (IntRect{-1, 2, 30, 40}));
  EXPECT_THAT(Drawn(), ElementsAre("hollow rect -1 2 30 40"));
}

TEST_F(ScreenSinkTest, ADotOfSizeZeroSetsOnePoint) {
  sink().DrawDot(context(), 20.7, 10.7, 0.0);
  EXPECT_THAT(Drawn(), ElementsAre("line 10 20 to 10 20"));
}

TEST_F(ScreenSinkTest, ADotIsAFilledSquareAroundItsPointAndTakesYFirst) {
  // x from 8.7 to 11.7 and y from 19.2 to 22.2, each truncated by itself.
  sink().DrawDot(context(), 20.7, 10.2, 3.0);
  EXPECT_THAT(Drawn(), ElementsAre("filled rect 8 19 11 22"));
}

TEST_F(ScreenSinkTest, ADotAsSmallAsCanBeIsStillARectangle) {
  sink().DrawDot(context(), 20.7, 10.7, 1e-300);
  EXPECT_THAT(Drawn(), ElementsAre("filled rect 10 20 10 20"));
}

TEST_F(ScreenSinkTest, ADotIsTruncatedTowardZeroOnBothSidesOfTheOrigin) {
  sink().DrawDot(context(), 0.0, 0.0, 1.8);  // from -0.9 to 0.9
  EXPECT_THAT(Drawn(), ElementsAre("filled rect 0 0 0 0"));
}

TEST_F(ScreenSinkTest, TheColourGoesToTheDeviceAndTheSuffixIsIgnored) {
  sink().SetColor(context(), " K", 3, {65535, 256, 49152});
  sink().SetColor(context(), " k", 3, kBlue);
  EXPECT_THAT(Drawn(), ElementsAre("color 65535 256 49152", "color 0 0 65535"));
}

TEST_F(ScreenSinkTest, TheClipIsTheDevices) {
  sink().SetClip(context(), {1, 2, 30, 40});
  EXPECT_THAT(Drawn(), ElementsAre("clip 1 2 30 40"));
}

TEST_F(ScreenSinkTest, BinsSnapToWholePixelsOnTheScreen) {
  double snap = 0.5;
  sink().GetPixelSnap(context(), &snap);
  EXPECT_EQ(snap, 1.0);
}

// --- Bars ----------------------------------------------------------------------------------------

/// Three bins of 10 from 10.5 to 40.5, on a base of 100.9 and up to 20.2.
class ScreenBarsTest : public ScreenSinkTest {
 protected:
  using BarOperation = void (*GraphicsSink::*)(GraphicsContext&, double, double, double, double,
                                               const BinRecord*);
  static constexpr BarOperation kOperations[] = {&GraphicsSink::DrawFilledBars,
                                                 &GraphicsSink::DrawBarRectangles,
                                                 &GraphicsSink::DrawBarOutline};

  ScreenBarsTest() {
    context().BinCount = 3;
    context().BinWidth = 10.0;
    context().BinScale = 1.0;
    context().BinPeak = 40.0;
    SetHeights({30.0, 0.0, 15.0});
  }

  /// From bin 1 on; what lies before it is never drawn.
  void SetHeights(const std::vector<double>& heights) {
    bins_.assign(heights.size() + 1, {0, 77.0, 0});
    for (std::size_t i = 0; i < heights.size(); ++i) bins_[i + 1].Height = heights[i];
    context().BinCount = static_cast<std::int32_t>(heights.size());
  }

  void Draw(BarOperation operation, double left = 10.5, double base = 100.9, double right = 40.5,
            double top = 20.2) {
    shell().Drawing.clear();
    (sink().*operation)(context(), left, base, right, top, bins_.data());
  }

 private:
  std::vector<BinRecord> bins_;
};

TEST_F(ScreenBarsTest, FilledBarsAreFilledRectanglesOfTruncatedEdges) {
  Draw(&GraphicsSink::DrawFilledBars);
  EXPECT_THAT(Drawn(), ElementsAre("filled rect 10 70 20 100", "filled rect 20 100 30 100",
                                   "filled rect 30 85 40 100"));
}

TEST_F(ScreenBarsTest, BarRectanglesAreHollowRectanglesOfTheSameEdges) {
  Draw(&GraphicsSink::DrawBarRectangles);
  EXPECT_THAT(Drawn(), ElementsAre("hollow rect 10 70 20 100", "hollow rect 20 100 30 100",
                                   "hollow rect 30 85 40 100"));
}

TEST_F(ScreenBarsTest, TheOutlineIsASkylineThatEndsOnTheBase) {
  Draw(&GraphicsSink::DrawBarOutline);
  EXPECT_THAT(Drawn(),
              ElementsAre("line 10 100 to 10 70", "line 10 70 to 20 70", "line 20 70 to 20 100",
                          "line 20 100 to 30 100", "line 30 100 to 30 85", "line 30 85 to 40 85",
                          "line 40 85 to 40 100"));
}

TEST_F(ScreenBarsTest, HeightsAreScaled) {
  context().BinScale = 2.5;
  Draw(&GraphicsSink::DrawFilledBars);
  EXPECT_THAT(Drawn(), ElementsAre("filled rect 10 25 20 100", "filled rect 20 100 30 100",
                                   "filled rect 30 63 40 100"));  // 100.9 - 37.5
}

TEST_F(ScreenBarsTest, FittedHeightsAreSharesOfThePlot) {
  context().BinFitHeight = 1;
  Draw(&GraphicsSink::DrawFilledBars);  // 80.7 high: three quarters, none, three eighths
  EXPECT_THAT(Drawn(), ElementsAre("filled rect 10 40 20 100", "filled rect 20 100 30 100",
                                   "filled rect 30 70 40 100"));
}

TEST_F(ScreenBarsTest, ABinWhoseValueExceedsThePlotIsCutOffAtTheTopInEveryStyle) {
  SetHeights({1000.0});
  Draw(&GraphicsSink::DrawFilledBars);
  EXPECT_THAT(Drawn(), ElementsAre("filled rect 10 20 20 100"));
  Draw(&GraphicsSink::DrawBarRectangles);
  EXPECT_THAT(Drawn(), ElementsAre("hollow rect 10 20 20 100"));
  Draw(&GraphicsSink::DrawBarOutline);
  EXPECT_THAT(Drawn(),
              ElementsAre("line 10 100 to 10 20", "line 10 20 to 20 20", "line 20 20 to 20 100"));
}

TEST_F(ScreenBarsTest, AHeightThatIsNoNumberIsCutOffAtTheTop) {
  SetHeights({0.0});
  context().BinFitHeight = 1;
  context().BinPeak = 0.0;
  Draw(&GraphicsSink::DrawFilledBars);
  EXPECT_THAT(Drawn(), ElementsAre("filled rect 10 20 20 100"));
}

TEST_F(ScreenBarsTest, ABarThatEndsBeyondTheRightIsNotDrawnNorAnyBehindIt) {
  Draw(&GraphicsSink::DrawFilledBars, 10.5, 100.9, 40.4);
  EXPECT_EQ(Drawn().size(), std::size_t{2});
  Draw(&GraphicsSink::DrawBarRectangles, 10.5, 100.9, 40.4);
  EXPECT_EQ(Drawn().size(), std::size_t{2});
  Draw(&GraphicsSink::DrawBarOutline, 10.5, 100.9, 40.4);
  EXPECT_EQ(Drawn().back(), "line 30 100 to 30 100") << "behind the last bar drawn";
}

TEST_F(ScreenBarsTest, RoundingLosesNoBar) {
  for (std::int32_t count = 1; count <= 300; ++count) {
    SetHeights(std::vector<double>(static_cast<std::size_t>(count), 1.0));
    context().BinWidth = (700.0 - 100.3) / count;
    Draw(&GraphicsSink::DrawFilledBars, 100.3, 100.0, 700.0);
    ASSERT_EQ(Drawn().size(), static_cast<std::size_t>(count));
  }
}

TEST_F(ScreenBarsTest, WithoutBinsOnlyTheOutlineHasAPathAndThatHasNoBars) {
  context().BinCount = 0;
  Draw(&GraphicsSink::DrawFilledBars);
  EXPECT_THAT(Drawn(), IsEmpty());
  Draw(&GraphicsSink::DrawBarRectangles);
  EXPECT_THAT(Drawn(), IsEmpty());
  Draw(&GraphicsSink::DrawBarOutline);
  EXPECT_THAT(Drawn(), ElementsAre("line 10 100 to 10 100"));
}

TEST_F(ScreenBarsTest, ANegativeNumberOfBinsIsNone) {
  context().BinCount = -3;
  for (const BarOperation operation : kOperations) {
    Draw(operation);
    EXPECT_LE(Drawn().size(), std::size_t{1});
  }
}

TEST_F(ScreenBarsTest, TheOutlineAloneIsLimitedInBaseAndRight) {
  SetHeights({35.0, 35.0, 35.0});
  context().BinWidth = 20.0;
  Draw(&GraphicsSink::DrawBarOutline, 65500.0, 70000.0, 70000.0, 0.0);
  EXPECT_THAT(Drawn(),
              ElementsAre("line 65500 65535 to 65500 65500", "line 65500 65500 to 65520 65500",
                          "line 65520 65500 to 65520 65535"));
  Draw(&GraphicsSink::DrawFilledBars, 65500.0, 70000.0, 70000.0, 0.0);
  EXPECT_THAT(Drawn().back(), "filled rect 65540 69965 65560 70000");
}

// --- Curves --------------------------------------------------------------------------------------

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

}  // namespace
}  // namespace ondrel
