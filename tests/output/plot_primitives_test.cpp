#include "output/plot_primitives.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

}  // namespace
}  // namespace ondrel
