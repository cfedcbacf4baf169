#include "output/eps_sink.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>

#include "output/document_fixture.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A page of 300.25 points, and 96 units to an inch: a unit is three quarters of a point.
class EpsSinkTest : public DocumentTest {
 protected:
  EpsSinkTest() {
    context().PageHeight = 300.25;
    context().PointScale = 96.0 / 72.0;
  }

  const GraphicsSink& sink() { return kEpsSink; }

  std::vector<std::string> DrawText(double x, double y, TextAlignment alignment, const char* text) {
    sink().DrawText(context(), x, y, alignment, text, 64);
    return Lines();
  }
};

TEST_F(EpsSinkTest, ALineIsAPathWithThePenWidthBehindIt) {
  sink().DrawLine(context(), 10.0, 20.0, 110.5, 221.0);
  EXPECT_THAT(Lines(), ElementsAre("7.500 285.250 moveto", "82.875 134.500 lineto",
                                   "0.76 setlinewidth", "stroke"));
}

TEST_F(EpsSinkTest, APathGrowsUpwardFromTheFootOfThePage) {
  sink().MoveTo(context(), 0.0, 400.0);
  sink().LineTo(context(), -2.0, 500.0);
  sink().LineTo(context(), 40001.0, -40000.0);
  EXPECT_THAT(Lines(), ElementsAre("0.000 0.250 moveto", "-1.500 -74.750 lineto",
                                   "30000.750 30300.250 lineto"));
}

TEST_F(EpsSinkTest, DeviceUnitsBecomePointsByTheScale) {
  context().PointScale = 1.0;
  sink().MoveTo(context(), 30.0, 90.0);
  context().PointScale = 3.0;
  sink().MoveTo(context(), 30.0, 90.0);
  EXPECT_THAT(Lines(), ElementsAre("30.000 210.250 moveto", "10.000 270.250 moveto"));
}

TEST_F(EpsSinkTest, CoordinatesAreRoundedAtTheThirdDecimal) {
  sink().LineTo(context(), 12.3456, 12.3456);  // 9.2592, 290.9908
  sink().LineTo(context(), 1.3328, 0.0004);    // 0.9996, 300.2497
  EXPECT_THAT(Lines(), ElementsAre("9.259 290.991 lineto", "1.000 300.250 lineto"));
}

TEST_F(EpsSinkTest, APathIsStrokedWithThePensWidth) {
  sink().StrokePath(context());
  context().PenWidth = 12.0;
  sink().StrokePath(context());
  EXPECT_THAT(Lines(), ElementsAre("0.76 setlinewidth", "stroke", "12.00 setlinewidth", "stroke"));
}

TEST_F(EpsSinkTest, ATextIsItsFontItsPlaceAndItself) {
  EXPECT_THAT(DrawText(100.0, 200.0, TextAlignment::Left, "Amplitude (pA)"),
              ElementsAre("/Helvetica findfont", "12 scalefont setfont", "75.000 150.250 moveto",
                          "(Amplitude (pA)) show"));
}

TEST_F(EpsSinkTest, ATextThatEndsAtAPlaceHasItAsABarePairBeforeIt) {
  EXPECT_THAT(DrawText(100.0, 200.0, TextAlignment::Right, "0.1"),
              ElementsAre("/Helvetica findfont", "12 scalefont setfont", "75.000 150.250",
                          "(0.1) right_show"));
}

TEST_F(EpsSinkTest, ATextOfAnyOtherAlignmentBeginsAtItsPlace) {
  EXPECT_THAT(DrawText(100.0, 200.0, static_cast<TextAlignment>(1), "x"),
              ElementsAre("/Helvetica findfont", "12 scalefont setfont", "75.000 150.250 moveto",
                          "(x) show"));
}

TEST_F(EpsSinkTest, ATextIsInTheDocumentsFont) {
  std::snprintf(context().FontName, sizeof context().FontName, "Courier");
  context().DocumentFontSize = 9;
  const std::vector<std::string> lines = DrawText(1.0, 2.0, TextAlignment::Left, "x");
  EXPECT_EQ(lines[0], "/Courier findfont");
  EXPECT_EQ(lines[1], "9 scalefont setfont");
}

TEST_F(EpsSinkTest, ATextIsNotEscaped) {
  EXPECT_EQ(DrawText(1.0, 2.0, TextAlignment::Left, "a) \\(b")[3], "(a) \\(b) show");
  EXPECT_EQ(DrawText(1.0, 2.0, TextAlignment::Right, "a) \\(b")[3], "(a) \\(b) right_show");
}

TEST_F(EpsSinkTest, ATextOfAnyLengthIsWhole) {
  const std::string text(1000, 'x');
  EXPECT_EQ(DrawText(1.0, 2.0, TextAlignment::Left, text.c_str())[3], "(" + text + ") show");
  EXPECT_EQ(DrawText(1.0, 2.0, TextAlignment::Left, "")[3], "() show");
}

TEST_F(EpsSinkTest, ARectangleIsAPathOfFivePointsWithoutAPenWidth) {
  sink().DrawRect(context(), 10.0, 21.0, 110.0, 220.0);
  EXPECT_THAT(Lines(),
              ElementsAre("7.500 284.500 moveto", "7.500 135.250 lineto", "82.500 135.250 lineto",
                          "82.500 284.500 lineto", "7.500 284.500 lineto", "stroke"));
}

TEST_F(EpsSinkTest, TheFirstLineOfADotHasAnFRightBehindItsNumber) {
  sink().DrawDot(context(), 20.0, 10.0, 4.0);
  EXPECT_THAT(Lines(), ElementsAre("6.000 286.750F", "9.000 286.750 lineto", "9.000 283.750 lineto",
                                   "6.000 283.750 lineto", "6.000 286.750 lineto", "fill"));
}

TEST_F(EpsSinkTest, ADotOfSizeZeroIsASquareWithoutExtent) {
  sink().DrawDot(context(), 20.0, 10.0, 0.0);
  EXPECT_THAT(Lines(), ElementsAre("7.500 285.250F", "7.500 285.250 lineto", "7.500 285.250 lineto",
                                   "7.500 285.250 lineto", "7.500 285.250 lineto", "fill"));
}

TEST_F(EpsSinkTest, AColourIsWrittenAlikeForEveryUse) {
  sink().SetColor(context(), " K", 3, kRed);
  sink().SetColor(context(), " k", 3, kBlack);
  EXPECT_THAT(Lines(), ElementsAre("0.000 1.000 1.000 0.000 setcmykcolor",
                                   "0.000 0.000 0.000 1.000 setcmykcolor"));
}

TEST_F(EpsSinkTest, AClipHoldsToTheEndOfTheDocument) {
  sink().SetClip(context(), {10, 20, 110, 220});
  EXPECT_THAT(Lines(),
              ElementsAre("7.500 285.250 moveto", "82.500 285.250 lineto", "82.500 135.250 lineto",
                          "7.500 135.250 lineto", "7.500 285.250 lineto", "clip", "newpath"));
}

TEST_F(EpsSinkTest, BinsDoNotSnapToWholeUnits) {
  double snap = 0.5;
  sink().GetPixelSnap(context(), &snap);
  EXPECT_EQ(snap, 0.0);
  EXPECT_THAT(Lines(), IsEmpty());
}

}  // namespace
}  // namespace ondrel
