// What both histograms do with their estimates.
#include "fit/estimates.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

#include "fit/estimates_fixture.h"

namespace ondrel::estimates {
namespace {

using ::testing::ElementsAre;

template <typename Histogram>
Histogram Some();
template <>
AmplitudeHistogram Some() {
  return SomeAmplitude();
}
template <>
DurationHistogram Some() {
  return SomeDuration();
}

template <typename Histogram>
class EstimatesTest : public ::testing::Test {
 protected:
  Histogram histogram_ = Some<Histogram>();
};

using Twins = ::testing::Types<AmplitudeHistogram, DurationHistogram>;
TYPED_TEST_SUITE(EstimatesTest, Twins);

TYPED_TEST(EstimatesTest, WeightsAreTheSharesOfTheAreas) {
  auto& histogram = this->histogram_;
  Fill(histogram, {30.0, 0.0, 90.0}, {});
  NormaliseFromAreas(histogram);
  EXPECT_THAT(Weights(histogram), ElementsAre(0.25, 0.0, 0.75));
}

TYPED_TEST(EstimatesTest, NegativeAreasGiveNegativeWeights) {
  auto& histogram = this->histogram_;
  Fill(histogram, {-30.0, 90.0}, {});
  NormaliseFromAreas(histogram);
  EXPECT_THAT(Weights(histogram), ElementsAre(-0.5, 1.5));
}

TYPED_TEST(EstimatesTest, WeightsAreZeroWhenTheAreasSumToZero) {
  auto& histogram = this->histogram_;
  Fill(histogram, {0.0, 0.0}, {});
  NormaliseFromAreas(histogram);
  EXPECT_THAT(Weights(histogram), ElementsAre(0.0, 0.0));
  Fill(histogram, {-8.0, 8.0}, {});
  NormaliseFromAreas(histogram);
  EXPECT_THAT(Weights(histogram), ElementsAre(0.0, 0.0));
}

TYPED_TEST(EstimatesTest, SlotsBehindTheTermsTakeNoPart) {
  auto& histogram = this->histogram_;
  Fill(histogram, {1.0, 3.0, 100.0}, {});
  histogram.TermCount = 2;
  NormaliseFromAreas(histogram);
  EXPECT_THAT(Weights(histogram), ElementsAre(0.25, 0.75));
  EXPECT_EQ(histogram.Terms[2].Weight, 99.0);
}

TYPED_TEST(EstimatesTest, ANewTermIsTheLastAndTakesTheNextMarker) {
  auto& histogram = this->histogram_;
  Fill(histogram, {1.0, 2.0, 5.0}, {0, 2});
  AddTerm(histogram, kFrame, 240.0);
  EXPECT_THAT(Areas(histogram), ElementsAre(1.0, 2.0, 5.0, 0.0));
  EXPECT_THAT(Weights(histogram), ElementsAre(0.125, 0.25, 0.625, 0.0));
  EXPECT_THAT(Places(PeaksOf(histogram), histogram.MarkerCount),
              ElementsAre(Mark(100, 0), Mark(102, 2), Mark(0, 3)));
}

TYPED_TEST(EstimatesTest, ARemovedTermTakesItsMarkerAndThoseBehindMoveDown) {
  auto& histogram = this->histogram_;
  Fill(histogram, {1.0, 2.0, 4.0, 8.0}, {0, 2, 3});
  RemoveTerm(histogram, 1);
  EXPECT_THAT(Areas(histogram), ElementsAre(1.0, 2.0, 8.0));
  EXPECT_THAT(Places(PeaksOf(histogram), histogram.MarkerCount),
              ElementsAre(Mark(100, 0), Mark(103, 2)));
  EXPECT_THAT(Weights(histogram), ElementsAre(1.0 / 11.0, 2.0 / 11.0, 8.0 / 11.0));
}

TYPED_TEST(EstimatesTest, TheFirstAndTheLastTermCanBeRemoved) {
  auto& histogram = this->histogram_;
  Fill(histogram, {1.0, 2.0, 4.0}, {0, 1, 2});
  RemoveTerm(histogram, 2);
  EXPECT_THAT(Areas(histogram), ElementsAre(1.0, 2.0));
  EXPECT_THAT(Places(PeaksOf(histogram), histogram.MarkerCount),
              ElementsAre(Mark(100, 0), Mark(101, 1)));
  RemoveTerm(histogram, 0);
  EXPECT_THAT(Areas(histogram), ElementsAre(2.0));
  EXPECT_THAT(Places(PeaksOf(histogram), histogram.MarkerCount), ElementsAre(Mark(101, 0)));
}

TYPED_TEST(EstimatesTest, AllSlotsCanBeUsed) {
  auto& histogram = this->histogram_;
  Fill(histogram, std::vector<double>(kTermSlots - 1, 1.0), {0});
  histogram.MarkerCount = kTermSlots - 1;
  AddTerm(histogram, kFrame, 240.0);
  ASSERT_EQ(histogram.TermCount, static_cast<std::int32_t>(kTermSlots));
  RemoveTerm(histogram, kTermSlots - 1);
  EXPECT_EQ(histogram.TermCount, static_cast<std::int32_t>(kTermSlots) - 1);
  EXPECT_EQ(histogram.MarkerCount, static_cast<std::int32_t>(kTermSlots) - 1);
}

TYPED_TEST(EstimatesTest, OnlyTheMovedPeakChangesAndAllWeightsFollow) {
  auto& histogram = this->histogram_;
  Fill(histogram, {0.0, 0.0}, {0, 1});
  if constexpr (requires { histogram.Terms[1].StdDev; }) histogram.Terms[1].StdDev = 1.0;
  MovePeak(histogram, kFrame, 1, 240.0, 50.0);
  EXPECT_THAT(Weights(histogram), ElementsAre(0.0, 1.0));
  EXPECT_EQ(histogram.Terms[0].Area, 0.0);
  MovePeak(histogram, kFrame, 1, 240.0, 0.0);
  EXPECT_THAT(Weights(histogram), ElementsAre(0.0, 0.0)) << "no area, no weight";
}

TYPED_TEST(EstimatesTest, OnlyTheFirstTermIsReset) {
  auto& histogram = this->histogram_;
  Fill(histogram, {3.0, 4.0}, {0, 1});
  ResetFirstTerm(histogram);
  EXPECT_THAT(Areas(histogram), ElementsAre(0.0, 4.0));
  EXPECT_THAT(Weights(histogram), ElementsAre(0.0, 99.0));
  EXPECT_EQ(histogram.MarkerCount, 2);
}

TYPED_TEST(EstimatesTest, APeakStandsWhereItsTermPutsItToTheLastBit) {
  auto& histogram = this->histogram_;
  std::mt19937_64 random(1);
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  auto term = histogram.Terms[0];
  for (int i = 0; i < 4000; ++i) {
    histogram.SquareRootAxis = i % 2 == 0;
    histogram.PixelsPerCount = 0.1 + 3.0 * unit(random);
    histogram.YMaximum = 40.0 * unit(random);
    const GraphFrame frame = {.PlotLeft = 90.0 * unit(random),
                              .PlotRight = 560.0,
                              .PlotTop = 70.0 * unit(random),
                              .PlotBottom = 200.0 + 300.0 * unit(random)};
    if constexpr (requires { term.StdDev; }) {
      histogram.PixelsPerPa = 30.0 + 300.0 * unit(random);
      histogram.PerTick = 2.0 * unit(random);
      term.Current = 4.0 * unit(random) - 1.5;
      term.StdDev = 2.0 * unit(random);
      term.Area = 900.0 * unit(random);
    } else {
      histogram.PixelsPerDecade = 30.0 + 300.0 * unit(random);
      histogram.BinsPerDecade = 5 + i % 30;
      term.TimeConstant = std::pow(10.0, 5.0 * unit(random) - 4.0);
      term.Area = 1800.0 * unit(random) - 900.0;
    }
    const Peak peak = PeakOf(histogram, frame, term);
    ASSERT_EQ(PeakX(histogram, frame, term), peak.X);
    ASSERT_EQ(PeakY(histogram, frame, term), peak.Y);

    const double rise = 300.0 * unit(random);
    histogram.Terms[0] = term;
    MovePeak(histogram, frame, 0, 240.0, rise);
    ASSERT_EQ(histogram.Terms[0].Area, AreaOf(histogram, frame, term, rise));
  }
}

TYPED_TEST(EstimatesTest, ATermWithoutAreaStandsOnTheAxis) {
  auto& histogram = this->histogram_;
  if constexpr (requires { histogram.Terms[0].StdDev; }) histogram.Terms[0].StdDev = 1.0;
  histogram.Terms[0].Area = 0.0;
  for (const bool root : {false, true}) {
    histogram.SquareRootAxis = root;
    EXPECT_EQ(PeakY(histogram, kFrame, histogram.Terms[0]), kFrame.PlotBottom);
  }
}

TYPED_TEST(EstimatesTest, TheHeightOfAPeakCannotBeToldWithoutCounts) {
  auto& histogram = this->histogram_;
  histogram.SquareRootAxis = true;
  histogram.YMaximum = 0.0;
  histogram.Terms[0].Area = 5.0;
  EXPECT_FALSE(std::isfinite(PeakY(histogram, kFrame, histogram.Terms[0])));
}

TYPED_TEST(EstimatesTest, ACountOfTermsBeyondTheSlotsDoesNoHarm) {
  auto& histogram = this->histogram_;
  Fill(histogram, {1.0, 3.0}, {});
  for (const std::int32_t count : {-1, 1000000}) {
    histogram.TermCount = count;
    NormaliseFromAreas(histogram);
    EXPECT_EQ(histogram.Terms[0].Weight, count < 0 ? 99.0 : 0.25);
  }
}

}  // namespace
}  // namespace ondrel::estimates
