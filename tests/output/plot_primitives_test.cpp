#include "output/plot_primitives.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "output/screen_sink.h"
#include "shell/toolkit.h"
#include "support/recording_sink.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;

class PlotPrimitivesTest : public ::testing::Test {
 protected:
  PlotPrimitivesTest() { recording::Clear(); }

  GraphicsContext context_;
  const Drawing drawing_{recording::kRecordingSink, context_};
};

TEST_F(PlotPrimitivesTest, WhatIsFilledCarriesTheSmallLetter) {
  SetFillColor(drawing_, {1, 2, 3});
  EXPECT_THAT(recording::Lines(), ElementsAre("color k 1 2 3"));
}

TEST_F(PlotPrimitivesTest, WhatIsStrokedCarriesTheCapitalLetter) {
  SetStrokeColor(drawing_, {1, 2, 3});
  EXPECT_THAT(recording::Lines(), ElementsAre("color K 1 2 3"));
}

TEST_F(PlotPrimitivesTest, TextFromAPointIsLeftAlignedAtTheUnroundedPoint) {
  DrawTextFrom(drawing_, 1.25, -2.75, "Amplitude (pA)");
  EXPECT_THAT(recording::Lines(), ElementsAre("left 1.25 -2.75 Amplitude (pA)"));
}

TEST_F(PlotPrimitivesTest, TextUpToAPointIsRightAlignedAtTheUnroundedPoint) {
  DrawTextUpTo(drawing_, 1.25, -2.75, "100");
  EXPECT_THAT(recording::Lines(), ElementsAre("right 1.25 -2.75 100"));
}

TEST_F(PlotPrimitivesTest, TheClipReachesTheSink) {
  SetClip(drawing_, {1, 2, 30, 40});
  EXPECT_THAT(recording::Lines(), ElementsAre("clip 1 2 30 40"));
}

TEST_F(PlotPrimitivesTest, ADrawingHasFailedOnceItsStatusIsSet) {
  EXPECT_FALSE(HasFailed(drawing_));
  recording::FailText(2);
  DrawTextFrom(drawing_, 0.0, 0.0, "written");
  EXPECT_FALSE(HasFailed(drawing_));
  DrawTextFrom(drawing_, 0.0, 0.0, "not written");
  EXPECT_TRUE(HasFailed(drawing_));
  EXPECT_EQ(context_.Status, recording::kFullDisk);
}

TEST_F(PlotPrimitivesTest, ANegativeStatusIsAFailureToo) {
  context_.Status = -1;
  EXPECT_TRUE(HasFailed(drawing_));
}

/// What a sink is told of the room that its texts stand in.
struct Capacities {
  std::size_t OfText = 0;
  std::size_t OfSuffix = 0;
};
Capacities theCapacities;

TEST_F(PlotPrimitivesTest, TextsAreHandedOverWithRoomForTheirLastByte) {
  GraphicsSink sink = recording::kRecordingSink;
  sink.DrawText = [](GraphicsContext&, double, double, TextAlignment, const char*,
                     std::size_t capacity) { theCapacities.OfText = capacity; };
  sink.SetColor = [](GraphicsContext&, const char*, std::size_t capacity, const RgbColor&) {
    theCapacities.OfSuffix = capacity;
  };
  DrawTextFrom({sink, context_}, 0.0, 0.0, "12345");
  SetFillColor({sink, context_}, kBlack);
  EXPECT_EQ(theCapacities.OfText, std::size_t{6});
  EXPECT_EQ(theCapacities.OfSuffix, std::size_t{3});
}

TEST_F(PlotPrimitivesTest, TheSnapIsTheSinks) {
  GraphicsContext context;
  EXPECT_EQ(GetPixelSnap(drawing_), 0.0);
  EXPECT_EQ(GetPixelSnap({kScreenSink, context}), 1.0);
}

TEST_F(PlotPrimitivesTest, CentredTextBeginsHalfItsMeasuredWidthToTheLeft) {
  context_.Device = toolkit::AcquireDevice(nullptr);  // 5 a letter
  DrawTextCentredAt(drawing_, 100.25, 50.5, "2.0");
  DrawTextCentredAt(drawing_, 100.25, 50.5, "");
  EXPECT_THAT(recording::Lines(), ElementsAre("left 92.75 50.5 2.0", "left 100.25 50.5 "));
  toolkit::ReleaseDevice(nullptr, context_.Device);
}

TEST_F(PlotPrimitivesTest, LinesKeepTheirFractions) {
  DrawLine(drawing_, 1.25, 2.5, -3.75, 4.125);
  EXPECT_THAT(recording::Lines(), ElementsAre("line 1.25 2.5 -3.75 4.125"));
}

TEST_F(PlotPrimitivesTest, ARectangleGivesBackWhatTheSinkGivesBack) {
  EXPECT_EQ(DrawRect(drawing_, 1.75, 2.5, 30.9, 40.1), (IntRect{1, 2, 30, 40}));
  EXPECT_THAT(recording::Lines(), ElementsAre("rect 1.75 2.5 30.9 40.1"));
}

TEST_F(PlotPrimitivesTest, APathGoesFromPointToUnroundedPointAndIsStroked) {
  MoveTo(drawing_, 1.25, -2.75);
  LineTo(drawing_, 1e6, 0.1);
  LineTo(drawing_, -3.5, 4.0);
  StrokePath(drawing_);
  EXPECT_THAT(recording::Lines(),
              ElementsAre("move 1.25 -2.75", "path 1000000 0.1", "path -3.5 4", "stroke"));
}

/// Views give x first as everywhere, and the operation takes y first.
TEST_F(PlotPrimitivesTest, ADotTakesItsPlacesToTheOperationInThatOrder) {
  DrawDot(drawing_, 1.25, -2.75, 3.5);
  DrawDot(drawing_, 10.0, 20.0, 0.0);
  EXPECT_THAT(recording::Lines(),
              ElementsAre("dot y -2.75 x 1.25 size 3.5", "dot y 20 x 10 size 0"));
}

TEST_F(PlotPrimitivesTest, BarsGoToTheOperationOfTheirStyle) {
  context_.BinCount = 3;
  context_.BinWidth = 10.0;
  context_.BinScale = 0.5;
  context_.BinPeak = 7.0;
  for (const HistogramStyle style : {HistogramStyle::Filled, HistogramStyle::Outlined,
                                     HistogramStyle::Rectangles, static_cast<HistogramStyle>(9)}) {
    DrawBars(drawing_, style, 1.0, 40.0, 31.0, 2.0, nullptr);
  }
  const std::string rest = " 1 40 31 2: 3 bins, width 10 scale 0.5 peak 7 scaled";
  EXPECT_THAT(recording::Lines(), ElementsAre("filled bars" + rest, "bar outline" + rest,
                                              "bar rectangles" + rest, "bar outline" + rest));
}

TEST_F(PlotPrimitivesTest, CurvesGoToTheOperationOfTheirHistogram) {
  const auto amplitude = std::make_unique<AmplitudeHistogram>();
  const auto duration = std::make_unique<DurationHistogram>();
  DrawAmplitudeCurve(drawing_, *amplitude, 1.5, 2.0, 40.0, 3, 5);
  DrawDurationCurve(drawing_, *duration, 1.5, 2.0, 40.0, 0, 7);
  EXPECT_THAT(recording::Lines(),
              ElementsAre("amplitude curve 1.5 2 40 3 5", "duration curve 1.5 2 40 0 7"));
}

}  // namespace
}  // namespace ondrel
