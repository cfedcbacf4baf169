#include "views/axis_drawing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "support/recording_sink.h"
#include "support/view_test.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class AxisDrawingTest : public ViewTest {
 protected:
  AxisDrawingTest() {
    recording::Clear();
    workspace().Graphics.Device = toolkit::AcquireDevice(nullptr);
  }
  ~AxisDrawingTest() override {
    toolkit::ReleaseDevice(nullptr, workspace().Graphics.Device);
    recording::Clear();
  }

  AxisDrawing Axis() {
    return {.Target = {recording::kRecordingSink, workspace().Graphics},
            .Frame = View(ViewKind::Amplitude).Frame,
            .LabelColor = {3, 0, 0},
            .AxisColor = {4, 0, 0}};
  }
};

TEST_F(AxisDrawingTest, EachLineAndTextHasItsColourSetBeforeIt) {
  AxisDrawing axis = Axis();
  DrawAxisLine(axis, 1, 2, 3, 4);
  DrawAxisLine(axis, 5, 6, 7, 8);
  DrawNumberUpTo(axis, 10, 20, "7");
  DrawAxisTitle(axis, {30, 40}, "Counts");
  DrawAxisLine(axis, 9, 9, 9, 9);
  EXPECT_THAT(recording::Lines(),
              ElementsAre("color K 4 0 0", "line 1 2 3 4", "color K 4 0 0", "line 5 6 7 8",
                          "color k 3 0 0", "right 10 20 7", "color k 3 0 0", "left 30 40 Counts",
                          "color K 4 0 0", "line 9 9 9 9"));
}

TEST_F(AxisDrawingTest, ANumberBeginsEndsOrHasItsMiddleAtItsPlace) {
  AxisDrawing axis = Axis();
  DrawNumberFrom(axis, 10, 20, "12");
  DrawNumberUpTo(axis, 10, 20, "12");
  DrawNumberAt(axis, 10, 20, "12");  // a letter is 5 wide
  EXPECT_THAT(recording::Lines(), ElementsAre("color k 3 0 0", "left 10 20 12", "color k 3 0 0",
                                              "right 10 20 12", "color k 3 0 0", "left 5 20 12"));
}

TEST_F(AxisDrawingTest, WhatIsSwitchedOffIsNotDrawnAndSetsNoColour) {
  AxisDrawing axis = Axis();
  axis.ShowAxes = false;
  axis.ShowLabels = false;
  DrawAxisLine(axis, 1, 2, 3, 4);
  DrawAxisTitle(axis, {30, 40}, "Counts");
  DrawNumberAt(axis, 10, 20, "7");
  DrawNumberFrom(axis, 10, 20, "7");
  DrawNumberUpTo(axis, 10, 20, "7");
  EXPECT_THAT(recording::Lines(), IsEmpty());
}

TEST_F(AxisDrawingTest, WhereNumbersPassZeroTheirRoundingIsNotShown) {
  const double added = -0.3 + 0.1 + 0.1 + 0.1;
  EXPECT_NE(added, 0.0);
  EXPECT_EQ(NumberOfAxis(added, -0.3), 0.0);
  EXPECT_EQ(NumberOfAxis(-5.0 + 3 * 10.0, -5.0), 25.0);
  EXPECT_EQ(NumberOfAxis(1e-9, -0.3), 1e-9);
}

TEST_F(AxisDrawingTest, TheFirstNumberOfAnAxisIsItsOwnHoweverSmall) {
  EXPECT_EQ(NumberOfAxis(500.0, 500.0), 500.0);
  EXPECT_EQ(NumberOfAxis(1e-12, 1e-12), 1e-12);
  EXPECT_EQ(NumberOfAxis(0.0, 0.0), 0.0);
}

/// Samples that no level adds to are 0 divided by a negative weight.
TEST_F(AxisDrawingTest, AnAxisThatBeginsAtMinusZeroBeginsAtZero) {
  EXPECT_FALSE(std::signbit(NumberOfAxis(-0.0, -0.0)));
}

TEST_F(AxisDrawingTest, CountsThatCannotBeDrawnCountAsTheNearestThatCan) {
  EXPECT_EQ(CountTicks(-3), 1);
  EXPECT_EQ(CountTicks(7), 7);
  EXPECT_EQ(CountTicks(kMostTicks + 1), kMostTicks);
  EXPECT_EQ(AtLeastOne(0), 1.0);
  EXPECT_EQ(AtLeastOne(7), 7.0);
}

}  // namespace
}  // namespace ondrel
