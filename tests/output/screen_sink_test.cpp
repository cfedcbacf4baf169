#include "output/screen_sink.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "output/screen_sink_fixture.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

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

TEST_F(ScreenSinkTest, APathReaches32000EitherWay) {
  sink().MoveTo(context(), -32000.0, 32000.0);
  sink().LineTo(context(), 32000.9, -32000.9);
  EXPECT_THAT(Drawn(), ElementsAre("line -32000 32000 to 32000 -32000"));
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
  EXPECT_THAT(Drawn(), ElementsAre("point 10 20"));
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

TEST_F(ScreenSinkTest, ADotOfAnEvenNumberOfUnitsHasItsPlaceInTheMiddle) {
  sink().DrawDot(context(), 20.0, 10.0, 4.0);
  sink().DrawDot(context(), 20.9, 10.9, 4.0);
  EXPECT_THAT(Drawn(), ElementsAre("filled rect 8 18 12 22", "filled rect 8 18 12 22"));
}

TEST_F(ScreenSinkTest, ADotBeyondTheDeviceIsNotClamped) {
  sink().DrawDot(context(), -40000.0, 40000.0, 2.0);
  EXPECT_THAT(Drawn(), ElementsAre("filled rect 39999 -40001 40001 -39999"));
}

TEST_F(ScreenSinkTest, HugeDotsAndPlacesThatAreNoNumbersSaturate) {
  sink().DrawDot(context(), 1.0, 2.0, 1e300);
  sink().DrawDot(context(), 1.0, 2.0, std::numeric_limits<double>::quiet_NaN());
  EXPECT_THAT(Drawn(), ElementsAre("filled rect -2147483648 -2147483648 2147483647 2147483647",
                                   "filled rect -2147483648 -2147483648 -2147483648 -2147483648"));
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

}  // namespace
}  // namespace ondrel
