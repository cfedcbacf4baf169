#include "output/illustrator_sink.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>

#include "output/document_fixture.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A page of 400.5 units.
class IllustratorSinkTest : public DocumentTest {
 protected:
  IllustratorSinkTest() {
    context().PageHeight = 400.5;
    context().PointScale = 96.0 / 72.0;
  }

  const GraphicsSink& sink() { return kIllustratorSink; }

  std::vector<std::string> DrawText(double x, double y, TextAlignment alignment, const char* text) {
    sink().DrawText(context(), x, y, alignment, text, 64);
    return Lines();
  }
};

TEST_F(IllustratorSinkTest, ALineIsAPathWithThePenWidthBehindIt) {
  sink().DrawLine(context(), 10.25, 20.5, 110.1234, 220.9876);
  EXPECT_THAT(Lines(), ElementsAre("10.250 380.000 m", "110.123 179.512 l", "0.76 w", "S"));
}

TEST_F(IllustratorSinkTest, APathGrowsUpwardFromTheFootOfThePage) {
  sink().MoveTo(context(), 0.0, 400.5);
  sink().LineTo(context(), -2.125, 500.0);
  sink().LineTo(context(), 40000.75, -40000.0);
  EXPECT_THAT(Lines(), ElementsAre("0.000 0.000 m", "-2.125 -99.500 l", "40000.750 40400.500 l"));
}

TEST_F(IllustratorSinkTest, DeviceUnitsStandAsPointsWhateverTheScale) {
  for (const double scale : {1.0, 3.0}) {
    context().PointScale = scale;
    sink().MoveTo(context(), 30.0, 90.0);
    EXPECT_THAT(Lines(), ElementsAre("30.000 310.500 m"));
  }
}

TEST_F(IllustratorSinkTest, CoordinatesAreRoundedAtTheThirdDecimal) {
  sink().LineTo(context(), 12.3456, 12.3456);  // 388.1544
  sink().LineTo(context(), 0.9996, 0.0004);
  EXPECT_THAT(Lines(), ElementsAre("12.346 388.154 l", "1.000 400.500 l"));
}

TEST_F(IllustratorSinkTest, APathIsStrokedWithThePensWidth) {
  sink().StrokePath(context());
  context().PenWidth = 12.0;
  sink().StrokePath(context());
  EXPECT_THAT(Lines(), ElementsAre("0.76 w", "S", "12.00 w", "S"));
}

TEST_F(IllustratorSinkTest, ATextIsFourLines) {
  context().PageHeight = 400.0;
  EXPECT_THAT(DrawText(100.0, 200.0, TextAlignment::Left, "Amplitude (pA)"),
              ElementsAre("/_Helvetica 12 10 0 0 z", "[1 0 0 1 100.000 200.000]e",
                          "14(Amplitude (pA))t", "T"));
}

TEST_F(IllustratorSinkTest, ATextThatEndsAtAPlaceHasTheNumberOfItsAlignment) {
  EXPECT_THAT(DrawText(100.0625, 200.25, TextAlignment::Right, "0.1"),
              ElementsAre("/_Helvetica 12 10 0 2 z", "[1 0 0 1 100.062 200.250]e", "3(0.1)t", "T"));
}

TEST_F(IllustratorSinkTest, ATextIsInTheDocumentsFont) {
  std::snprintf(context().FontName, sizeof context().FontName, "Courier");
  context().DocumentFontSize = 9;
  EXPECT_EQ(DrawText(1.0, 2.0, TextAlignment::Left, "x").front(), "/_Courier 9 10 0 0 z");
}

TEST_F(IllustratorSinkTest, ATextIsNotEscaped) {
  EXPECT_EQ(DrawText(1.0, 2.0, TextAlignment::Left, "a) \\(b")[2], "6(a) \\(b)t");
}

TEST_F(IllustratorSinkTest, ATextOfAnyLengthIsWhole) {
  const std::string text(1000, 'x');
  EXPECT_EQ(DrawText(1.0, 2.0, TextAlignment::Left, text.c_str())[2], "1000(" + text + ")t");
  EXPECT_EQ(DrawText(1.0, 2.0, TextAlignment::Left, "")[2], "0()t");
}

TEST_F(IllustratorSinkTest, ARectangleIsAPathOfFivePointsWithoutAPenWidth) {
  sink().DrawRect(context(), 10.5, 20.25, 110.75, 220.0);
  EXPECT_THAT(Lines(), ElementsAre("10.500 380.250 m", "10.500 180.500 l", "110.750 180.500 l",
                                   "110.750 380.250 l", "10.500 380.250 l", "S"));
}

TEST_F(IllustratorSinkTest, ADotIsAFilledSquareRoundItsPlace) {
  sink().DrawDot(context(), 20.0, 10.5, 3.0);
  EXPECT_THAT(Lines(), ElementsAre("9.000 382.000 m", "12.000 382.000 l", "12.000 379.000 l",
                                   "9.000 379.000 l", "9.000 382.000 l", "F"));
}

TEST_F(IllustratorSinkTest, ADotOfSizeZeroIsASquareWithoutExtent) {
  sink().DrawDot(context(), 20.0, 10.5, 0.0);
  EXPECT_THAT(Lines(), ElementsAre("10.500 380.500 m", "10.500 380.500 l", "10.500 380.500 l",
                                   "10.500 380.500 l", "10.500 380.500 l", "F"));
}

TEST_F(IllustratorSinkTest, AColourHasTheSuffixOfItsUse) {
  sink().SetColor(context(), " K", 3, kRed);
  sink().SetColor(context(), " k", 3, kBlack);
  EXPECT_THAT(Lines(), ElementsAre("0.000 1.000 1.000 0.000 K", "0.000 0.000 0.000 1.000 k"));
}

TEST_F(IllustratorSinkTest, AClipOpensAGroupAndThereIsNoUndo) {
  sink().SetClip(context(), {10, 20, 110, 220});
  EXPECT_THAT(Lines(),
              ElementsAre("q", "10.000 380.500 m", "110.000 380.500 l", "110.000 180.500 l",
                          "10.000 180.500 l", "10.000 380.500 l", "h", "W", "n"));
}

TEST_F(IllustratorSinkTest, BinsDoNotSnapToWholeUnits) {
  double snap = 0.5;
  sink().GetPixelSnap(context(), &snap);
  EXPECT_EQ(snap, 0.0);
  EXPECT_THAT(Lines(), IsEmpty());
}

}  // namespace
}  // namespace ondrel
