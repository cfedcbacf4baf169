#include "workspace/geometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace ondrel {
namespace {

TEST(GeometryTest, WhatRoundingHasMovedDoesNotLieBeyondAnEdge) {
  EXPECT_FALSE(LiesBeyond(100.0, 100.0));
  EXPECT_FALSE(LiesBeyond(99.0, 100.0));
  EXPECT_FALSE(LiesBeyond(100.0 + 1e-9, 100.0));
  EXPECT_FALSE(LiesBeyond(0.1 + 0.2, 0.3));
  EXPECT_TRUE(LiesBeyond(100.0 + 1e-5, 100.0));
  EXPECT_TRUE(LiesBeyond(-99.0, -100.0));
}

TEST(GeometryTest, WhatIsNoNumberDoesNotLieBeyondAnEdge) {
  EXPECT_FALSE(LiesBeyond(std::numeric_limits<double>::quiet_NaN(), 100.0));
  EXPECT_TRUE(LiesBeyond(std::numeric_limits<double>::infinity(), 100.0));
}

TEST(GeometryTest, ALengthIsCutToWholeUnits) {
  EXPECT_EQ(WholeUnits(0.0), 0.0);
  EXPECT_EQ(WholeUnits(0.999), 0.0);
  EXPECT_EQ(WholeUnits(31.5), 31.0);
  EXPECT_EQ(WholeUnits(32.0), 32.0);
  EXPECT_EQ(WholeUnits(-31.5), -31.0);
}

TEST(GeometryTest, ALengthThatIsWholeButForRoundingIsNotCut) {
  EXPECT_LT(0.7 / 0.1, 7.0);
  EXPECT_EQ(WholeUnits(0.7 / 0.1), 7.0);
  EXPECT_EQ(WholeUnits(240.0 - 1e-9), 240.0);
  EXPECT_EQ(WholeUnits(240.0 + 1e-9), 240.0);
  EXPECT_EQ(WholeUnits(240.0 - 1e-5), 239.0);
}

TEST(GeometryTest, WhatIsNoLengthStaysWhatItIs) {
  EXPECT_EQ(WholeUnits(std::numeric_limits<double>::infinity()),
            std::numeric_limits<double>::infinity());
  EXPECT_TRUE(std::isnan(WholeUnits(std::numeric_limits<double>::quiet_NaN())));
}

}  // namespace
}  // namespace ondrel
