#include "views/term_markers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "support/histogram_view_test.h"
#include "views/histogram_layout.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;

/// The base of both plots stands at 1410 and their tops at 290; half a handle is 15.75.
class TermMarkersTest : public HistogramViewTest {
 protected:
  TermMarkersTest() {
    amplitude().TickMarks = 2;
    amplitude().BinsPerTick = 5;
    amplitude().YMaximum = 150.0;  // 630 a pA, 5.6 a count
    LayoutAmplitude(workspace(), sink(), kRect);
    duration().Decades = 2;
    duration().BinsPerDecade = 5;
    duration().YMaximum = 15.0;  // 630 a decade, 56 a count
    duration().ConstrainPositive = true;
    SetHeights(duration(), {});
    LayoutDuration(workspace(), sink(), kRect);
  }

  /// The area of a term whose peak is `counts` high.
  static double AreaOfAmplitude(double counts, double deviation) {
    return counts * std::sqrt(2.0 * std::numbers::pi) * deviation / 0.2;
  }
  static double AreaOfDuration(double counts) {
    return counts * std::numbers::e / (0.2 * std::numbers::ln10);
  }

  void PlaceAmplitude(const AmplitudeTerm& term, std::int32_t place = 0, std::int32_t marker = 0) {
    amplitude().Terms[static_cast<std::size_t>(place)] = term;
    recording::Clear();
    PlaceAmplitudeMarker(workspace(), sink(), place, marker);
  }
  void PlaceDuration(const DurationTerm& term, std::int32_t place = 0, std::int32_t marker = 0) {
    duration().Terms[static_cast<std::size_t>(place)] = term;
    recording::Clear();
    PlaceDurationMarker(workspace(), sink(), place, marker);
  }

  static void ExpectMarker(const TermMarker& marker, const IntRect& rect, std::int32_t term) {
    EXPECT_EQ((IntRect{marker.Left, marker.Top, marker.Right, marker.Bottom}), rect);
    EXPECT_EQ(marker.TermIndex, term);
  }
};

TEST_F(TermMarkersTest, HalfAHandleIsAnEightiethOfThePlot) {
  EXPECT_DOUBLE_EQ(MarkerHalf(View(ViewKind::Amplitude).Frame), 15.75);
  EXPECT_DOUBLE_EQ(MarkerHalf({.PlotLeft = 100.0, .PlotRight = 180.0}), 1.0);
}

TEST_F(TermMarkersTest, AnAmplitudeHasAHandleAtItsPeakABarOfItsWidthAndAHandleAtItsEnd) {
  PlaceAmplitude(
      {.Weight = 1.0, .Current = 1.0, .StdDev = 0.1, .Area = AreaOfAmplitude(100.0, 0.1)});
  EXPECT_THAT(Lines(), ElementsAre("rect 844.25 834.25 875.75 865.75",  // around 860, 850
                                   "line 828.5 850 891.5 850",          // 31.5 to either side
                                   "rect 891.5 842.125 907.25 857.875"));
}

TEST_F(TermMarkersTest, TheHandlesOfAnAmplitudeAreKeptTruncatedWithTheirTerm) {
  PlaceAmplitude(
      {.Weight = 1.0, .Current = 1.0, .StdDev = 0.1, .Area = AreaOfAmplitude(100.0, 0.1)}, 4, 2);
  ExpectMarker(amplitude().PeakMarkers[2], {844, 834, 875, 865}, 4);
  ExpectMarker(amplitude().WidthMarkers[2], {891, 842, 907, 857}, 4);
  ExpectMarker(amplitude().PeakMarkers[4], {}, 0);
}

TEST_F(TermMarkersTest, AmplitudesStandFromTheMinimumOfTheAxisOn) {
  amplitude().Minimum = -1.5;
  PlaceAmplitude({.Weight = 1.0, .Current = -0.5, .StdDev = 0.1, .Area = 0.0});
  EXPECT_EQ(Lines().front(), "rect 844.25 1394.25 875.75 1425.75") << "on the axis";
}

TEST_F(TermMarkersTest, TheBarOfTheWidthFollowsItsScale) {
  amplitude().CurveScale = 2.0;
  PlaceAmplitude({.Weight = 1.0, .Current = 1.0, .StdDev = 0.1, .Area = 0.0});
  EXPECT_EQ(Lines()[1], "line 797 1410 923 1410");
}

TEST_F(TermMarkersTest, OnASquareRootAxisAnAmplitudeStandsAtTheRootOfItsShare) {
  amplitude().SquareRootAxis = true;
  amplitude().YMaximum = 20.0;
  PlaceAmplitude(
      {.Weight = 1.0, .Current = 1.0, .StdDev = 0.1, .Area = AreaOfAmplitude(100.0, 0.1)});
  EXPECT_EQ(Lines().front(), "rect 844.25 834.25 875.75 865.75");  // half of 1120 above the base
}

TEST_F(TermMarkersTest, AHeightThatCannotBeToldLeavesTheHandlesOnTheAxis) {
  amplitude().SquareRootAxis = true;
  amplitude().YMaximum = 0.0;
  for (const double area : {0.0, 5.0}) {
    PlaceAmplitude({.Weight = 1.0, .Current = 1.0, .StdDev = 0.1, .Area = area});
    EXPECT_THAT(Lines(),
                ElementsAre("rect 844.25 1394.25 875.75 1425.75", "line 828.5 1410 891.5 1410",
                            "rect 891.5 1402.125 907.25 1417.875"));
  }
  duration().SquareRootAxis = true;
  duration().YMaximum = 0.0;
  PlaceDuration({.Weight = 1.0, .TimeConstant = 1e-4, .Area = 5.0});
  EXPECT_THAT(Lines(), ElementsAre("rect 844.25 1394.25 875.75 1425.75"));
}

TEST_F(TermMarkersTest, ADurationHasAHandleAtItsPeakAlone) {
  PlaceDuration({.Weight = 1.0, .TimeConstant = 1e-4, .Area = AreaOfDuration(10.0)}, 3, 1);
  EXPECT_THAT(Lines(), ElementsAre("rect 844.25 834.25 875.75 865.75"));
  ExpectMarker(duration().Markers[1], {844, 834, 875, 865}, 3);
}

TEST_F(TermMarkersTest, ADurationOfNegativeAreaHasItsHandleBelowTheLineOfZero) {
  PlaceDuration({.Weight = 1.0, .TimeConstant = 1e-4, .Area = AreaOfDuration(-10.0)});
  EXPECT_THAT(Lines(), ElementsAre("rect 844.25 1954.25 875.75 1985.75"));
}

TEST_F(TermMarkersTest, OnASquareRootAxisADurationKeepsItsSign) {
  duration().SquareRootAxis = true;
  duration().YMaximum = std::sqrt(40.0);
  PlaceDuration({.Weight = 1.0, .TimeConstant = 1e-4, .Area = AreaOfDuration(10.0)});
  EXPECT_THAT(Lines(), ElementsAre("rect 844.25 834.25 875.75 865.75"));
  PlaceDuration({.Weight = 1.0, .TimeConstant = 1e-4, .Area = AreaOfDuration(-10.0)});
  EXPECT_THAT(Lines(), ElementsAre("rect 844.25 1954.25 875.75 1985.75"));
  PlaceDuration({.Weight = 1.0, .TimeConstant = 1e-4, .Area = 0.0});
  EXPECT_THAT(Lines(), ElementsAre("rect 844.25 1394.25 875.75 1425.75"));
}

TEST_F(TermMarkersTest, DurationsStandAtTheirLogarithms) {
  duration().MinimumExponent = 0;
  PlaceDuration({.Weight = 1.0, .TimeConstant = std::pow(10.0, 0.5), .Area = 0.0});
  EXPECT_EQ(Lines().front(), "rect 529.25 1394.25 560.75 1425.75");  // half a decade: 545
}

}  // namespace
}  // namespace ondrel
