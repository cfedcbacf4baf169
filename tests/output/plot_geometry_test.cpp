#include "output/plot_geometry.h"

#include <gtest/gtest.h>

#include <limits>

namespace ondrel {
namespace {

TEST(PlotGeometryTest, WhatRoundingHasMovedDoesNotLieBeyondAnEdge) {
  EXPECT_FALSE(LiesBeyond(100.0, 100.0));
  EXPECT_FALSE(LiesBeyond(99.0, 100.0));
  EXPECT_FALSE(LiesBeyond(100.0 + 1e-9, 100.0));
  EXPECT_FALSE(LiesBeyond(0.1 + 0.2, 0.3));
  EXPECT_TRUE(LiesBeyond(100.0 + 1e-5, 100.0));
  EXPECT_TRUE(LiesBeyond(-99.0, -100.0));
}

TEST(PlotGeometryTest, WhatIsNoNumberDoesNotLieBeyondAnEdge) {
  EXPECT_FALSE(LiesBeyond(std::numeric_limits<double>::quiet_NaN(), 100.0));
  EXPECT_TRUE(LiesBeyond(std::numeric_limits<double>::infinity(), 100.0));
}

}  // namespace
}  // namespace ondrel
