#include "fit/histogram_bins.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

namespace ondrel {
namespace {

TEST(ReadableStep, IsTheLargestOneTwoOrFiveBelow) {
  EXPECT_DOUBLE_EQ(ReadableStep(2, 0.0), 100.0);
  EXPECT_DOUBLE_EQ(ReadableStep(2, 0.30), 100.0);
  EXPECT_DOUBLE_EQ(ReadableStep(2, 0.31), 200.0);
  EXPECT_DOUBLE_EQ(ReadableStep(2, 0.69), 200.0);
  EXPECT_DOUBLE_EQ(ReadableStep(2, 0.70), 500.0);
  EXPECT_DOUBLE_EQ(ReadableStep(-2, 1.5), 0.05) << "a fraction above 1 still gives a five";
  EXPECT_DOUBLE_EQ(ReadableStep(0, -0.5), 1.0);
}

TEST(ReadableStep, ChangesExactlyAtTheLogarithmsOfTwoAndFive) {
  EXPECT_EQ(ReadableStep(0, std::nextafter(std::log10(2.0), 0.0)), 1.0);
  EXPECT_EQ(ReadableStep(0, std::log10(2.0)), 2.0);
  EXPECT_EQ(ReadableStep(0, std::nextafter(std::log10(5.0), 0.0)), 2.0);
  EXPECT_EQ(ReadableStep(0, std::log10(5.0)), 5.0);
}

struct CountsCase {
  double YMaximum;
  bool SquareRoot;
  std::int32_t Expected;
};

TEST(ReadableCountsPerTick, GivesAboutThreeTicks) {
  const CountsCase cases[] = {
      {0.0, false, 1},     {1.0, false, 1},    {7.0, false, 2},      {29.0, false, 5},
      {301.0, false, 100}, {299.0, false, 50}, {1000.0, false, 200}, {10.0, true, 20},
  };
  for (const CountsCase& row : cases) {
    EXPECT_EQ(ReadableCountsPerTick(row.YMaximum, row.SquareRoot), row.Expected) << row.YMaximum;
  }
}

TEST(CountLevel, PlacesAreTruncatedTowardZero) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const std::pair<double, int> cases[] = {{0.0, 1},   {0.99, 1},       {-0.99, 1},
                                          {-1.0, 0},  {2.99, 3},       {3.0, 4},
                                          {1e300, 4}, {-kInfinity, 0}, {kInfinity, 4}};
  for (const auto& [place, bin] : cases) {
    std::array<BinRecord, 5> bins{};
    CountLevel(bins.data(), 3, place);
    EXPECT_EQ(bins[static_cast<std::size_t>(bin)].Count, 1) << place;
  }
}

TEST(CountLevel, APlaceThatIsNoNumberLiesBelow) {
  std::array<BinRecord, 5> bins{};
  CountLevel(bins.data(), 3, std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(bins[0].Count, 1);
}

TEST(CountLevel, AnExcludedBinCountsNothing) {
  std::array<BinRecord, 5> bins{};
  bins[2].Flags = kExcludedBin;
  CountLevel(bins.data(), 3, 1.5);
  EXPECT_EQ(bins[2].Count, 0);
}

// --- Bins that a selection takes out
// --------------------------------------------------------------

TEST(IsOutOfRange, IncludeTakesOutWhatItDoesNotCoverWhole) {
  EXPECT_FALSE(IsOutOfRange(Selection::Include, 1.0, 2.0, 1.0, 2.0)) << "ends may meet the edges";
  EXPECT_TRUE(IsOutOfRange(Selection::Include, 1.1, 2.0, 1.0, 2.0));
  EXPECT_TRUE(IsOutOfRange(Selection::Include, 1.0, 1.9, 1.0, 2.0));
}

TEST(IsOutOfRange, ExcludeThatEndsOnAnEdgeLeavesTheBinBehindIt) {
  EXPECT_FALSE(IsOutOfRange(Selection::Exclude, 0.0, 1.0, 1.0, 2.0));
  EXPECT_FALSE(IsOutOfRange(Selection::Exclude, 2.0, 3.0, 1.0, 2.0));
  EXPECT_TRUE(IsOutOfRange(Selection::Exclude, 0.0, 1.1, 1.0, 2.0));
  EXPECT_TRUE(IsOutOfRange(Selection::Exclude, 1.9, 3.0, 1.0, 2.0));
  EXPECT_TRUE(IsOutOfRange(Selection::Exclude, 1.0, 2.0, 1.0, 2.0));
  EXPECT_FALSE(IsOutOfRange(Selection::Exclude, 1.1, 1.9, 1.0, 2.0));
}

TEST(IsOutOfRange, SelectAllTakesNothingOut) {
  for (const double low : {0.0, 1.0, 1.1, 9.0}) {
    EXPECT_FALSE(IsOutOfRange(Selection::SelectAll, low, low + 0.5, 1.0, 2.0)) << low;
  }
}

}  // namespace
}  // namespace ondrel
