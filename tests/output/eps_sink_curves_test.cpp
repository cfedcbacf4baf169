#include "output/eps_sink.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <limits>

#include "fit/amplitude_model.h"
#include "fit/duration_model.h"
#include "output/document_fixture.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;

/// On a page of 300.25 points, a unit being three quarters of a point.
class EpsCurvesTest : public DocumentCurvesTest {
 protected:
  static constexpr double kBase = 300.5;
  static constexpr double kPageHeight = 300.25;

  EpsCurvesTest() {
    context().PageHeight = kPageHeight;
    context().PointScale = 96.0 / 72.0;
  }

  std::vector<std::string> DrawAmplitude(double base, std::int32_t first, std::int32_t end) {
    return DocumentCurvesTest::DrawAmplitude(kEpsSink, base, first, end);
  }
  std::vector<std::string> DrawDuration(double base, std::int32_t first = 0, std::int32_t end = 1) {
    return DocumentCurvesTest::DrawDuration(kEpsSink, base, first, end);
  }

  /// The line of a point of a curve, that is `bin` bins behind the first.
  static std::string PointLine(int bin, double pixelsPerBin, double y) {
    char line[80];
    std::snprintf(line, sizeof line, "%.3f %.3f %s", 0.75 * (kLeft + (bin + 0.5) * pixelsPerBin),
                  kPageHeight - 0.75 * y, bin == 0 ? "moveto" : "lineto");
    return line;
  }
};

TEST_F(EpsCurvesTest, AnAmplitudeCurveJoinsItsPointsAtTheCentresOfTheBins) {
  // 150 times e^-8, e^-2, 1 and e^-2 above 74.875.
  EXPECT_THAT(DrawAmplitude(kBase, 1, 2),
              ElementsAre("78.750 74.925 moveto", "86.250 95.175 lineto", "93.750 224.875 lineto",
                          "101.250 95.175 lineto", "stroke"));
}

TEST_F(EpsCurvesTest, ADurationCurveJoinsItsPointsAtTheCentresOfTheLogBins) {
  // 75 times u e^-u, u being ten to the -0.75 and to the -0.25, above 150.25.
  EXPECT_THAT(DrawDuration(200.0),
              ElementsAre("78.750 161.414 moveto", "86.250 174.285 lineto", "stroke"));
}

TEST_F(EpsCurvesTest, AnAmplitudeCurveIsThatOfTheModel) {
  amplitude().TickMarks = 7;
  amplitude().BinsPerTick = 5;
  amplitude().PerTick = 0.7;
  amplitude().PixelsPerBin = 3.2;
  amplitude().SquareRootAxis = true;
  amplitude().YMaximum = 20.0;
  std::vector<std::string> expected;
  for (int bin = 0; bin < 35; ++bin) {
    const double current = -1.0 + (bin + 0.5) * 0.7 / 5.0;
    const double y = AmplitudeCurveY(amplitude(), current, kBase, kTop, 2.0, 0, 2);
    expected.push_back(PointLine(bin, 3.2, y));
  }
  expected.push_back("stroke");
  EXPECT_EQ(DrawAmplitude(kBase, 0, 2), expected);
}

TEST_F(EpsCurvesTest, ADurationCurveIsThatOfTheModel) {
  duration().Decades = 4;
  duration().BinsPerDecade = 8;
  duration().PixelsPerBin = 3.2;
  duration().Terms[1] = {.Weight = 0.5, .TimeConstant = 0.02, .Area = 250.0};
  context().BinCount = 32;
  std::vector<std::string> expected;
  for (int bin = 0; bin < 32; ++bin) {
    const double logTime = -4.0 + (bin + 0.5) / 8.0;
    const double y = DurationCurveY(duration(), logTime, kBase, kTop, 1.0, 0, 2);
    expected.push_back(PointLine(bin, 3.2, y));
  }
  expected.push_back("stroke");
  EXPECT_EQ(DrawDuration(kBase, 0, 2), expected);
}

TEST_F(EpsCurvesTest, ACurveIsOfTheTermsThatWereAskedFor) {
  EXPECT_EQ(DrawAmplitude(kBase, 0, 0).front(), "78.750 74.875 moveto");
  EXPECT_NE(DrawAmplitude(kBase, 0, 2).front(), "78.750 74.925 moveto");
  EXPECT_EQ(DrawDuration(200.0, 1, 1).front(), "78.750 150.250 moveto");
}

TEST_F(EpsCurvesTest, AnAmplitudeCurveCountsTheBinsOfItsHistogram) {
  context().BinCount = 0;
  EXPECT_EQ(DrawAmplitude(kBase, 1, 2).size(), std::size_t{5});
}

TEST_F(EpsCurvesTest, ADurationCurveCountsTheBinsOfTheContext) {
  context().BinCount = 5;
  EXPECT_EQ(DrawDuration(200.0).size(), std::size_t{6});
}

TEST_F(EpsCurvesTest, ACurveIsNotLimitedInHeight) {
  EXPECT_THAT(DrawAmplitude(100000.5, 0, 0),
              ElementsAre("78.750 -74700.125 moveto", "86.250 -74700.125 lineto",
                          "93.750 -74700.125 lineto", "101.250 -74700.125 lineto", "stroke"));
  EXPECT_THAT(DrawDuration(-100000.5, 0, 0),
              ElementsAre("78.750 75300.625 moveto", "86.250 75300.625 lineto", "stroke"));
}

TEST_F(EpsCurvesTest, ACurveOverOneBinOrNoneIsAPointThatIsStrokedAllTheSame) {
  for (const std::int32_t bins : {1, 0, -5}) {
    context().BinCount = bins;
    EXPECT_THAT(DrawDuration(200.0), ElementsAre("78.750 161.414 moveto", "stroke"));
  }
}

TEST_F(EpsCurvesTest, ACurveThatIsNoNumberHasAsManyLinesAsAnyOther) {
  amplitude().Terms[0].Area = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(DrawAmplitude(kBase, 0, 1).size(), std::size_t{5});
}

}  // namespace
}  // namespace ondrel
