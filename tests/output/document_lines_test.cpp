#include "output/document_lines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "output/document_fixture.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;

class DocumentLinesTest : public DocumentTest {
 protected:
  std::string ColorLine(const RgbColor& color, const char* suffix = " k") {
    PutColor(context(), color, suffix);
    const std::vector<std::string> lines = Lines();
    return lines.size() == 1 ? lines[0] : "not one line";
  }
};

TEST_F(DocumentLinesTest, ALineEndsInCarriageReturnAndLineFeed) {
  PutLine(context(), "one");
  PutLine(context(), "");
  ASSERT_EQ(CloseOutputFile(file()), 0);
  EXPECT_EQ(OnDisk(), "one\r\n\r\n");
}

TEST_F(DocumentLinesTest, PiecesMakeOneLine) {
  PutText(context(), "a ");
  PutInteger(context(), -12);
  PutText(context(), " ");
  PutReal(context(), 2.5, 1);
  PutLine(context(), " b");
  EXPECT_THAT(Lines(), ElementsAre("a -12 2.5 b"));
}

TEST_F(DocumentLinesTest, APlaceThatIsNoFiniteNumberIsZero) {
  const double infinity = std::numeric_limits<double>::infinity();
  PutPoint(context(), std::nan(""), 2.5, " m");
  PutPoint(context(), -infinity, infinity, " l");
  EXPECT_THAT(Lines(), ElementsAre("0.000 2.500 m", "0.000 0.000 l"));
}

TEST_F(DocumentLinesTest, ACoordinatePairHasThreeDecimalsAndTheSuffixBehindIt) {
  PutPoint(context(), 100.0, -20.5, " moveto");
  PutPoint(context(), 0.12349, 1234.9996, "");
  PutPoint(context(), 0.0, -0.25, "F");
  EXPECT_THAT(Lines(), ElementsAre("100.000 -20.500 moveto", "0.123 1235.000", "0.000 -0.250F"));
}

TEST_F(DocumentLinesTest, ALargeCoordinateHasNoExponent) {
  PutPoint(context(), 1e15, -1e-15, " l");
  EXPECT_THAT(Lines(), ElementsAre("1000000000000000.000 -0.000 l"));
}

TEST_F(DocumentLinesTest, TheLargestCoordinatesHaveRoom) {
  constexpr double largest = std::numeric_limits<double>::max();
  PutPoint(context(), -largest, largest, " l");
  const std::vector<std::string> lines = Lines();
  ASSERT_EQ(lines.size(), std::size_t{1});
  EXPECT_EQ(lines[0].size(), (1 + 309 + 4) + 1 + (309 + 4) + std::size_t{2});
}

TEST_F(DocumentLinesTest, APenWidthHasTwoDecimals) {
  for (const double width : {0.756, 2.0, 0.0}) {
    context().PenWidth = width;
    PutPenWidth(context(), " w");
  }
  EXPECT_THAT(Lines(), ElementsAre("0.76 w", "2.00 w", "0.00 w"));
}

TEST_F(DocumentLinesTest, BlackIsBlackInkAloneAndWhiteIsNone) {
  EXPECT_EQ(ColorLine(kBlack), "0.000 0.000 0.000 1.000 k");
  EXPECT_EQ(ColorLine(kWhite), "0.000 0.000 0.000 0.000 k");
}

TEST_F(DocumentLinesTest, TheBasicColoursAreOneInkOrTwo) {
  EXPECT_EQ(ColorLine(kRed), "0.000 1.000 1.000 0.000 k");
  EXPECT_EQ(ColorLine({0, 65535, 0}), "1.000 0.000 1.000 0.000 k");
  EXPECT_EQ(ColorLine(kBlue), "1.000 1.000 0.000 0.000 k");
  EXPECT_EQ(ColorLine({0, 65535, 65535}), "1.000 0.000 0.000 0.000 k");
  EXPECT_EQ(ColorLine({65535, 0, 65535}), "0.000 1.000 0.000 0.000 k");
  EXPECT_EQ(ColorLine({65535, 65535, 0}), "0.000 0.000 1.000 0.000 k");
}

TEST_F(DocumentLinesTest, GreyIsBlackInkInPart) {
  EXPECT_EQ(ColorLine(kGrey), "0.000 0.000 0.000 0.250 k");  // 1 - 49152 / 65535 is 0.24999
}

TEST_F(DocumentLinesTest, WhatTheInksShareIsBlack) {
  // 65535 is 5 times 13107: inks of 0.8, 0.4 and 0.2, of which 0.2 are black.
  EXPECT_EQ(ColorLine({13107, 39321, 52428}), "0.600 0.200 0.000 0.200 k");
  EXPECT_EQ(ColorLine({52428, 13107, 39321}), "0.000 0.600 0.200 0.200 k");
  EXPECT_EQ(ColorLine({39321, 52428, 13107}), "0.200 0.000 0.600 0.200 k");
}

TEST_F(DocumentLinesTest, InksStayBetweenZeroAndOne) {
  EXPECT_EQ(ColorLine({131070, 0, 0}), "0.000 1.000 1.000 0.000 k");  // inks of -1, 1 and 1
  EXPECT_EQ(ColorLine({-65535, 65535, 65535}), "1.000 0.000 0.000 0.000 k");
  EXPECT_EQ(ColorLine({-65535, -65535, -131070}), "0.000 0.000 1.000 1.000 k");
}

TEST_F(DocumentLinesTest, AChannelIsOfSixteenBits) {
  // 33 of 65535 are more than half a thousandth, 32 are less.
  EXPECT_EQ(ColorLine({65535, 65502, 65503}), "0.000 0.001 0.000 0.000 k");
  EXPECT_EQ(ColorLine({65502, 65535, 65535}, " setcmykcolor"),
            "0.001 0.000 0.000 0.000 setcmykcolor");
  EXPECT_EQ(ColorLine({65502, 65502, 65502}), "0.000 0.000 0.000 0.001 k");
  EXPECT_EQ(ColorLine({65503, 65503, 65503}), "0.000 0.000 0.000 0.000 k");
}

TEST_F(DocumentLinesTest, AFailureGoesIntoTheStatusAndEndsTheLine) {
  ExpectThatItStopsAtEachFailure([&] { PutLine(context(), "one"); });
  ExpectThatItStopsAtEachFailure([&] { PutText(context(), "one"); });
  ExpectThatItStopsAtEachFailure([&] { PutInteger(context(), 12345); });
  ExpectThatItStopsAtEachFailure([&] { PutReal(context(), 1.5, 3); });
  ExpectThatItStopsAtEachFailure([&] { PutPoint(context(), 1.5, -2.5, " l"); });
  ExpectThatItStopsAtEachFailure([&] { PutPenWidth(context(), " w"); });
  ExpectThatItStopsAtEachFailure([&] { PutColor(context(), kRed, " K"); });
}

TEST_F(DocumentLinesTest, NothingIsWrittenOnceSomethingFailed) {
  ExpectThatItWritesNothingAfterAFailure([&] { PutLine(context(), "one"); });
  ExpectThatItWritesNothingAfterAFailure([&] { PutText(context(), "one"); });
  ExpectThatItWritesNothingAfterAFailure([&] { PutInteger(context(), 12345); });
  ExpectThatItWritesNothingAfterAFailure([&] { PutReal(context(), 1.5, 3); });
  ExpectThatItWritesNothingAfterAFailure([&] { PutPoint(context(), 1.5, -2.5, " l"); });
  ExpectThatItWritesNothingAfterAFailure([&] { PutPenWidth(context(), " w"); });
  ExpectThatItWritesNothingAfterAFailure([&] { PutColor(context(), kRed, " K"); });
}

}  // namespace
}  // namespace ondrel
