#include "fit/estimates.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

namespace ondrel {
namespace {

using ::testing::ElementsAre;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// Device units. The zero line stands at a fraction of a pixel, as it does in most windows.
constexpr GraphFrame kFrame = {
    .PlotLeft = 80.0, .PlotRight = 560.0, .PlotTop = 40.0, .PlotBottom = 200.25};

AmplitudeHistogram SomeAmplitude() {
  AmplitudeHistogram histogram;
  histogram.Minimum = -1.5;
  histogram.PerTick = 0.5;
  histogram.BinsPerTick = 10;
  histogram.PixelsPerPa = 160.0;
  histogram.PixelsPerCount = 0.8;
  histogram.YMaximum = 12.0;
  histogram.CurveScale = 1.5;
  return histogram;
}

DurationHistogram SomeDuration() {
  DurationHistogram histogram;
  histogram.MinimumExponent = -4;
  histogram.BinsPerDecade = 8;
  histogram.PixelsPerDecade = 96.0;
  histogram.PixelsPerCount = 2.5;
  histogram.YMaximum = 7.0;
  return histogram;
}

MarkerArray& PeaksOf(AmplitudeHistogram& histogram) {
  return histogram.PeakMarkers;
}
MarkerArray& PeaksOf(DurationHistogram& histogram) {
  return histogram.Markers;
}

/// Gives the histogram terms of these areas, with weights that do not go with them, and a marker
/// for each term of `marked`. The left edge of a marker tells which it was.
template <typename Histogram>
void Fill(Histogram& histogram, const std::vector<double>& areas, const std::vector<int>& marked) {
  for (std::size_t i = 0; i < areas.size(); ++i) {
    histogram.Terms[i] = {};
    histogram.Terms[i].Area = areas[i];
    histogram.Terms[i].Weight = 99.0;
  }
  for (std::size_t i = 0; i < marked.size(); ++i) {
    PeaksOf(histogram)[i] = {.Left = 100 + marked[i], .TermIndex = marked[i]};
  }
  histogram.TermCount = static_cast<std::int32_t>(areas.size());
  histogram.MarkerCount = static_cast<std::int32_t>(marked.size());
  if constexpr (requires { histogram.WidthMarkers; }) {
    for (std::size_t i = 0; i < marked.size(); ++i) {
      histogram.WidthMarkers[i] = {.Left = 200 + marked[i], .TermIndex = marked[i]};
    }
  }
}

template <typename Histogram>
std::vector<double> Weights(const Histogram& histogram) {
  std::vector<double> weights;
  for (std::size_t i = 0; i < static_cast<std::size_t>(histogram.TermCount); ++i) {
    weights.push_back(histogram.Terms[i].Weight);
  }
  return weights;
}

template <typename Histogram>
std::vector<double> Areas(const Histogram& histogram) {
  std::vector<double> areas;
  for (std::size_t i = 0; i < static_cast<std::size_t>(histogram.TermCount); ++i) {
    areas.push_back(histogram.Terms[i].Area);
  }
  return areas;
}

/// Left edge and term of each marker.
std::vector<std::pair<int, int>> Places(const MarkerArray& markers, std::int32_t count) {
  std::vector<std::pair<int, int>> places;
  for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
    places.emplace_back(markers[i].Left, markers[i].TermIndex);
  }
  return places;
}

using Place = std::pair<int, int>;

/// Equal but for the last few bits.
void ExpectSame(double value, long double expected) {
  EXPECT_NEAR(value / static_cast<double>(expected), 1.0, 4e-15) << value;
}

// --- What both histograms do ---------------------------------------------------------------------

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
              ElementsAre(Place(100, 0), Place(102, 2), Place(0, 3)));
}

TYPED_TEST(EstimatesTest, MarkersWithoutTermsGiveWayToANewTerm) {
  auto& histogram = this->histogram_;
  Fill(histogram, {1.0, 2.0, 5.0}, {0, 1, 2});
  histogram.TermCount = 1;
  AddTerm(histogram, kFrame, 240.0);
  EXPECT_EQ(histogram.TermCount, 2);
  EXPECT_THAT(Places(PeaksOf(histogram), histogram.MarkerCount),
              ElementsAre(Place(100, 0), Place(0, 1)));
}

TYPED_TEST(EstimatesTest, ARemovedTermTakesItsMarkerAndThoseBehindMoveDown) {
  auto& histogram = this->histogram_;
  Fill(histogram, {1.0, 2.0, 4.0, 8.0}, {0, 2, 3});
  RemoveTerm(histogram, 1);
  EXPECT_THAT(Areas(histogram), ElementsAre(1.0, 2.0, 8.0));
  EXPECT_THAT(Places(PeaksOf(histogram), histogram.MarkerCount),
              ElementsAre(Place(100, 0), Place(103, 2)));
  EXPECT_THAT(Weights(histogram), ElementsAre(1.0 / 11.0, 2.0 / 11.0, 8.0 / 11.0));
}

TYPED_TEST(EstimatesTest, TheFirstAndTheLastTermCanBeRemoved) {
  auto& histogram = this->histogram_;
  Fill(histogram, {1.0, 2.0, 4.0}, {0, 1, 2});
  RemoveTerm(histogram, 2);
  EXPECT_THAT(Areas(histogram), ElementsAre(1.0, 2.0));
  EXPECT_THAT(Places(PeaksOf(histogram), histogram.MarkerCount),
              ElementsAre(Place(100, 0), Place(101, 1)));
  RemoveTerm(histogram, 0);
  EXPECT_THAT(Areas(histogram), ElementsAre(2.0));
  EXPECT_THAT(Places(PeaksOf(histogram), histogram.MarkerCount), ElementsAre(Place(101, 0)));
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

// --- Amplitudes ----------------------------------------------------------------------------------

/// Where a term's peak is drawn.
struct Point {
  double X;
  double Y;
};

Point PeakOf(const AmplitudeHistogram& histogram, const AmplitudeTerm& term) {
  const double count = term.Area * histogram.PerTick /
                       (std::sqrt(6.283185307178) * term.StdDev * histogram.BinsPerTick);
  const double rise = histogram.SquareRootAxis
                          ? std::sqrt(count / (histogram.YMaximum * histogram.YMaximum)) *
                                (kFrame.PlotBottom - kFrame.PlotTop)
                          : count * histogram.PixelsPerCount;
  return {kFrame.PlotLeft + (term.Current - histogram.Minimum) * histogram.PixelsPerPa,
          kFrame.PlotBottom - rise};
}

Point PeakOf(const DurationHistogram& histogram, const DurationTerm& term) {
  const double count = term.Area / histogram.BinsPerDecade * std::log(10.0) / std::exp(1.0);
  const double root = std::sqrt(std::abs(count) / (histogram.YMaximum * histogram.YMaximum)) *
                      (kFrame.PlotBottom - kFrame.PlotTop);
  const double rise =
      histogram.SquareRootAxis ? std::copysign(root, count) : count * histogram.PixelsPerCount;
  return {
      kFrame.PlotLeft + (std::log(term.TimeConstant) / std::log(10.0) - histogram.MinimumExponent) *
                            histogram.PixelsPerDecade,
      kFrame.PlotBottom - rise};
}

class AmplitudeEstimatesTest : public ::testing::Test {
 protected:
  AmplitudeEstimatesTest() {
    Fill(histogram_, {10.0, 20.0}, {0, 1});
    term() = {.Weight = 0.5, .Current = 0.3, .StdDev = 0.25, .Area = 40.0};
  }

  AmplitudeTerm& term() { return histogram_.Terms[1]; }

  void ExpectUntouched() {
    EXPECT_EQ(term().Current, 0.3);
    EXPECT_EQ(term().StdDev, 0.25);
    EXPECT_EQ(term().Area, 40.0);
    EXPECT_EQ(histogram_.TermCount, 2);
    EXPECT_EQ(histogram_.MarkerCount, 2);
    EXPECT_EQ(histogram_.Terms[0].Weight, 99.0);
  }

  AmplitudeHistogram histogram_ = SomeAmplitude();
};

TEST_F(AmplitudeEstimatesTest, ANewTermStandsWhereTheMouseIsAndIsOneTickWide) {
  AddTerm(histogram_, kFrame, 240.0);
  const AmplitudeTerm& added = histogram_.Terms[2];
  EXPECT_EQ(added.Weight, 0.0);
  EXPECT_EQ(added.Current, -0.5);
  EXPECT_EQ(added.StdDev, 0.5);
  EXPECT_EQ(added.Area, 0.0);
}

TEST_F(AmplitudeEstimatesTest, ANewTermsWidthHasTheSameMarkerAsItsPeak) {
  AddTerm(histogram_, kFrame, 240.0);
  EXPECT_THAT(Places(histogram_.WidthMarkers, histogram_.MarkerCount),
              ElementsAre(Place(200, 0), Place(201, 1), Place(0, 2)));
}

TEST_F(AmplitudeEstimatesTest, ARemovedTermTakesTheMarkerOfItsWidth) {
  Fill(histogram_, {1.0, 2.0, 4.0, 8.0}, {0, 2, 3});
  RemoveTerm(histogram_, 1);
  EXPECT_THAT(Places(histogram_.WidthMarkers, histogram_.MarkerCount),
              ElementsAre(Place(200, 0), Place(203, 2)));
}

TEST_F(AmplitudeEstimatesTest, AMovedPeakKeepsItsWidthOnALinearAxis) {
  MovePeak(histogram_, kFrame, 1, 400.5, 100.0);
  ExpectSame(term().Current, 320.5L / 160.0L - 1.5L);
  EXPECT_EQ(term().StdDev, 0.25);
  // 125 counts in bins of 0.05 pA.
  ExpectSame(term().Area, 125.0L * std::sqrt(6.283185307178L) * 0.25L / 0.05L);
}

TEST_F(AmplitudeEstimatesTest, AMovedPeakKeepsItsWidthOnASquareRootAxis) {
  histogram_.SquareRootAxis = true;
  MovePeak(histogram_, kFrame, 1, 400.5, 40.0625);
  ExpectSame(term().Current, 320.5L / 160.0L - 1.5L);
  EXPECT_EQ(term().StdDev, 0.25);
  // A quarter of the plot stands for a sixteenth of the 144 counts.
  ExpectSame(term().Area, 9.0L * std::sqrt(6.283185307178L) * 0.25L / 0.05L);
}

TEST_F(AmplitudeEstimatesTest, APeakGoesWhereItIsDrawn) {
  for (const bool root : {false, true}) {
    histogram_.SquareRootAxis = root;
    MovePeak(histogram_, kFrame, 1, 333.0, 77.25);
    EXPECT_NEAR(PeakOf(histogram_, term()).X, 333.0, 1e-9);
    EXPECT_NEAR(PeakOf(histogram_, term()).Y, 123.0, 1e-9);
  }
}

TEST_F(AmplitudeEstimatesTest, AWiderTermKeepsTheHeightOfItsPeak) {
  const Point before = PeakOf(histogram_, term());
  const double barEnd = before.X + 0.4 * 1.5 * 160.0 / 2.0;
  MoveWidth(histogram_, kFrame, 1, barEnd);
  ExpectSame(term().StdDev, 0.4L);
  ExpectSame(term().Area, 40.0L / 0.25L * 0.4L);
  EXPECT_EQ(term().Current, 0.3);
  EXPECT_NEAR(PeakOf(histogram_, term()).Y, before.Y, 1e-9);
  ExpectSame(histogram_.Terms[1].Weight, 64.0L / 74.0L);
}

TEST_F(AmplitudeEstimatesTest, AnEmptyHistogramOnASquareRootAxisGivesNoArea) {
  histogram_.SquareRootAxis = true;
  histogram_.YMaximum = 0.0;
  MovePeak(histogram_, kFrame, 1, 400.0, 50.0);
  EXPECT_EQ(term().Area, 0.0);
}

TEST_F(AmplitudeEstimatesTest, AWindowWithoutWidthChangesNothing) {
  histogram_.PixelsPerPa = 0.0;
  const GraphFrame narrow = {
      .PlotLeft = 80.0, .PlotRight = 80.0, .PlotTop = 40.0, .PlotBottom = 200.0};
  for (const double x : {80.0, 81.0, 79.0}) {
    AddTerm(histogram_, narrow, x);
    MovePeak(histogram_, narrow, 1, x, 10.0);
    MoveWidth(histogram_, narrow, 1, x);
  }
  ExpectUntouched();
}

TEST_F(AmplitudeEstimatesTest, AWindowWithoutHeightChangesNothing) {
  histogram_.PixelsPerCount = 0.0;
  const GraphFrame flat = {
      .PlotLeft = 80.0, .PlotRight = 560.0, .PlotTop = 40.0, .PlotBottom = 40.0};
  for (const bool root : {false, true}) {
    histogram_.SquareRootAxis = root;
    for (const double rise : {0.0, 5.0}) MovePeak(histogram_, flat, 1, 100.0, rise);
  }
  ExpectUntouched();
}

TEST_F(AmplitudeEstimatesTest, AWidthIsAboveZero) {
  const double x = PeakOf(histogram_, term()).X;
  for (const double end : {x - 1.0, x - 1e-9, kNaN}) MoveWidth(histogram_, kFrame, 1, end);
  ExpectUntouched();
}

TEST_F(AmplitudeEstimatesTest, TheHeightOfATermWithoutWidthCannotBeKept) {
  term().StdDev = 0.0;
  MoveWidth(histogram_, kFrame, 1, 500.0);
  EXPECT_EQ(term().StdDev, 0.0);
  EXPECT_EQ(term().Area, 40.0);
}

TEST_F(AmplitudeEstimatesTest, AWorkBeginsOnePicoampereAboveTheAxis) {
  ResetFirstTerm(histogram_);
  EXPECT_EQ(histogram_.Terms[0].Current, -0.5);
  EXPECT_EQ(histogram_.Terms[0].StdDev, 0.5);
  EXPECT_EQ(histogram_.TermCount, 2);
}

// --- Durations -----------------------------------------------------------------------------------

class DurationEstimatesTest : public ::testing::Test {
 protected:
  DurationEstimatesTest() {
    Fill(histogram_, {10.0, 20.0}, {0, 1});
    term() = {.Weight = 0.5, .TimeConstant = 0.003, .Area = 40.0};
  }

  DurationTerm& term() { return histogram_.Terms[1]; }

  void ExpectUntouched() {
    EXPECT_EQ(term().TimeConstant, 0.003);
    EXPECT_EQ(term().Area, 40.0);
    EXPECT_EQ(histogram_.TermCount, 2);
    EXPECT_EQ(histogram_.MarkerCount, 2);
    EXPECT_EQ(histogram_.Terms[0].Weight, 99.0);
  }

  DurationHistogram histogram_ = SomeDuration();
};

TEST_F(DurationEstimatesTest, ANewTermStandsWhereTheMouseIs) {
  AddTerm(histogram_, kFrame, 80.0 + 96.0 * 1.5);
  const DurationTerm& added = histogram_.Terms[2];
  EXPECT_EQ(added.Weight, 0.0);
  ExpectSame(added.TimeConstant, std::pow(10.0L, -2.5L));
  EXPECT_EQ(added.Area, 0.0);
}

TEST_F(DurationEstimatesTest, AMovedPeakOnALinearAxis) {
  MovePeak(histogram_, kFrame, 1, 80.0 + 96.0 * 2.25, 50.0);
  ExpectSame(term().TimeConstant, std::pow(10.0L, -1.75L));
  // 20 counts in bins of an eighth of a decade.
  ExpectSame(term().Area,
             20.0L * std::numbers::e_v<long double> * 8.0L / std::numbers::ln10_v<long double>);
}

TEST_F(DurationEstimatesTest, AMovedPeakOnASquareRootAxis) {
  histogram_.SquareRootAxis = true;
  MovePeak(histogram_, kFrame, 1, 80.0 + 96.0 * 2.25, 80.125);
  // Half the plot stands for a quarter of the 49 counts.
  const long double area =
      49.0L / 4.0L * std::numbers::e_v<long double> * 8.0L / std::numbers::ln10_v<long double>;
  ExpectSame(term().Area, area);
  MovePeak(histogram_, kFrame, 1, 80.0 + 96.0 * 2.25, -80.125);
  ExpectSame(term().Area, -area);
}

TEST_F(DurationEstimatesTest, APeakGoesWhereItIsDrawnAboveAndBelowTheAxis) {
  for (const bool root : {false, true}) {
    histogram_.SquareRootAxis = root;
    for (const double rise : {77.25, -33.5}) {
      MovePeak(histogram_, kFrame, 1, 333.0, rise);
      EXPECT_NEAR(PeakOf(histogram_, term()).X, 333.0, 1e-9);
      EXPECT_NEAR(PeakOf(histogram_, term()).Y, 200.25 - rise, 1e-9);
      EXPECT_EQ(std::signbit(term().Area), rise < 0.0);
    }
  }
}

TEST_F(DurationEstimatesTest, AWindowWithoutWidthChangesNothing) {
  histogram_.PixelsPerDecade = 0.0;
  const GraphFrame narrow = {
      .PlotLeft = 80.0, .PlotRight = 80.0, .PlotTop = 40.0, .PlotBottom = 200.0};
  for (const double x : {80.0, 81.0, 79.0}) {
    AddTerm(histogram_, narrow, x);
    MovePeak(histogram_, narrow, 1, x, 10.0);
  }
  ExpectUntouched();
}

TEST_F(DurationEstimatesTest, AWindowWithoutHeightChangesNothing) {
  histogram_.PixelsPerCount = 0.0;
  const GraphFrame flat = {
      .PlotLeft = 80.0, .PlotRight = 560.0, .PlotTop = 40.0, .PlotBottom = 40.0};
  for (const bool root : {false, true}) {
    histogram_.SquareRootAxis = root;
    for (const double rise : {0.0, 5.0}) MovePeak(histogram_, flat, 1, 100.0, rise);
  }
  ExpectUntouched();
}

TEST_F(DurationEstimatesTest, AWorkBeginsOneDecadeAboveTheAxis) {
  ResetFirstTerm(histogram_);
  ExpectSame(histogram_.Terms[0].TimeConstant, 0.001L);
  EXPECT_EQ(histogram_.TermCount, 2);
}

}  // namespace
}  // namespace ondrel
