#include "output/curve_points.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace ondrel {
namespace {

class CurvePointsTest : public ::testing::Test {
 protected:
  CurvePointsTest() { fit_->TermCount = 0; }

  std::vector<CurvePoint> Points(double pixelsPerBin, std::int64_t binCount) {
    fit_->PixelsPerBin = pixelsPerBin;
    const CurvePlot plot{.Left = 100.0, .Top = 10.0, .Base = 200.0, .FirstTerm = 0, .EndTerm = 0};
    std::vector<CurvePoint> points;
    ForEachCurvePoint(*fit_, plot, binCount, [&](const CurvePoint& p) { points.push_back(p); });
    return points;
  }

 private:
  std::unique_ptr<AmplitudeHistogram> fit_ = std::make_unique<AmplitudeHistogram>();
};

TEST_F(CurvePointsTest, PointsStandAtTheCentresOfTheBinsAndOnlyTheFirstBegins) {
  const std::vector<CurvePoint> points = Points(10.0, 3);
  ASSERT_EQ(points.size(), std::size_t{3});
  for (std::size_t i = 0; i < points.size(); ++i) {
    EXPECT_EQ(points[i].X, 105.0 + 10.0 * static_cast<double>(i));
    EXPECT_EQ(points[i].Y, 200.0) << "without terms";
    EXPECT_EQ(points[i].Begins, i == 0);
  }
}

TEST_F(CurvePointsTest, WithoutBinsThereIsStillTheFirstPoint) {
  for (const std::int64_t bins : {0, -5}) {
    const std::vector<CurvePoint> points = Points(10.0, bins);
    ASSERT_EQ(points.size(), std::size_t{1});
    EXPECT_EQ(points[0].X, 105.0);
    EXPECT_TRUE(points[0].Begins);
  }
}

TEST_F(CurvePointsTest, TooManyBinsArePassedOverInEqualSteps) {
  const std::vector<CurvePoint> points = Points(0.25, 2 * kMostCurvePoints);
  ASSERT_EQ(points.size(), static_cast<std::size_t>(kMostCurvePoints));
  EXPECT_EQ(points[0].X, 100.125);
  EXPECT_EQ(points[1].X, 100.625);
  EXPECT_EQ(points.back().X, 100.125 + 0.5 * static_cast<double>(kMostCurvePoints - 1));
}

}  // namespace
}  // namespace ondrel
