#include "output/illustrator_sink.h"

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

/// On a page of 400.5 units.
class IllustratorCurvesTest : public DocumentCurvesTest {
 protected:
  static constexpr double kBase = 300.5;
  static constexpr double kPageHeight = 400.5;

  IllustratorCurvesTest() { context().PageHeight = kPageHeight; }

  std::vector<std::string> DrawAmplitude(double base, std::int32_t first, std::int32_t end) {
    return DocumentCurvesTest::DrawAmplitude(kIllustratorSink, base, first, end);
  }
  std::vector<std::string> DrawDuration(double base, std::int32_t first = 0, std::int32_t end = 1) {
    return DocumentCurvesTest::DrawDuration(kIllustratorSink, base, first, end);
  }

  /// The line of a point of a curve, that is `bin` bins behind the first.
  static std::string PointLine(int bin, double pixelsPerBin, double y) {
    char line[80];
    std::snprintf(line, sizeof line, "%.3f %.3f %s", kLeft + (bin + 0.5) * pixelsPerBin,
                  kPageHeight - y, bin == 0 ? "m" : "l");
    return line;
  }
};

TEST_F(IllustratorCurvesTest, AnAmplitudeCurveJoinsItsPointsAtTheCentresOfTheBins) {
  // 200 times e^-8, e^-2, 1 and e^-2 above 100.
  EXPECT_THAT(DrawAmplitude(kBase, 1, 2),
              ElementsAre("105.000 100.067 m", "115.000 127.067 l", "125.000 300.000 l",
                          "135.000 127.067 l", "S"));
}

TEST_F(IllustratorCurvesTest, ADurationCurveJoinsItsPointsAtTheCentresOfTheLogBins) {
  // 100 times u e^-u, u being ten to the -0.75 and to the -0.25, above 200.5.
  EXPECT_THAT(DrawDuration(200.0), ElementsAre("105.000 215.386 m", "115.000 232.546 l", "S"));
}

TEST_F(IllustratorCurvesTest, AnAmplitudeCurveIsThatOfTheModel) {
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
  expected.push_back("S");
  EXPECT_EQ(DrawAmplitude(kBase, 0, 2), expected);
}

TEST_F(IllustratorCurvesTest, ADurationCurveIsThatOfTheModel) {
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
  expected.push_back("S");
  EXPECT_EQ(DrawDuration(kBase, 0, 2), expected);
}

TEST_F(IllustratorCurvesTest, ACurveIsOfTheTermsThatWereAskedFor) {
  EXPECT_EQ(DrawAmplitude(kBase, 0, 0).front(), "105.000 100.000 m");
  EXPECT_NE(DrawAmplitude(kBase, 0, 2).front(), "105.000 100.067 m");
  EXPECT_EQ(DrawDuration(200.0, 1, 1).front(), "105.000 200.500 m");
}

TEST_F(IllustratorCurvesTest, AnAmplitudeCurveCountsTheBinsOfItsHistogram) {
  context().BinCount = 0;
  EXPECT_EQ(DrawAmplitude(kBase, 1, 2).size(), std::size_t{5});
}

TEST_F(IllustratorCurvesTest, ADurationCurveCountsTheBinsOfTheContext) {
  context().BinCount = 5;
  EXPECT_EQ(DrawDuration(200.0).size(), std::size_t{6});
}

TEST_F(IllustratorCurvesTest, ACurveIsNotLimitedInHeight) {
  EXPECT_THAT(DrawAmplitude(100000.5, 0, 0),
              ElementsAre("105.000 -99600.000 m", "115.000 -99600.000 l", "125.000 -99600.000 l",
                          "135.000 -99600.000 l", "S"));
  EXPECT_THAT(DrawDuration(-100000.5, 0, 0),
              ElementsAre("105.000 100401.000 m", "115.000 100401.000 l", "S"));
}

TEST_F(IllustratorCurvesTest, ACurveOverOneBinOrNoneIsAPointThatIsStrokedAllTheSame) {
  for (const std::int32_t bins : {1, 0, -5}) {
    context().BinCount = bins;
    EXPECT_THAT(DrawDuration(200.0), ElementsAre("105.000 215.386 m", "S"));
  }
}

TEST_F(IllustratorCurvesTest, ACurveThatIsNoNumberHasAsManyLinesAsAnyOther) {
  amplitude().Terms[0].Area = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(DrawAmplitude(kBase, 0, 1).size(), std::size_t{5});
}

}  // namespace
}  // namespace ondrel
