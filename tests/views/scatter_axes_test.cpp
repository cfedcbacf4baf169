#include "views/scatter_axes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <limits>
#include <string>
#include <vector>

#include "support/axis_parts.h"
#include "support/recording_sink.h"
#include "support/view_test.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();

/// A view 1680 wide: major ticks are 35 long and minor ones 22.4, and numbers stand 112 below the
/// axis and titles 240.
class ScatterAxesTest : public ViewTest {
 protected:
  ScatterAxesTest() { recording::Clear(); }
  ~ScatterAxesTest() override { recording::Clear(); }

  AxisDrawing Axis() {
    return {.Target = {recording::kRecordingSink, workspace().Graphics},
            .Frame = frame_,
            .LabelColor = {2, 0, 0},
            .AxisColor = {3, 0, 0},
            .ShowAxes = showAxes_,
            .ShowLabels = showLabels_};
  }

  const std::vector<std::string>& DrawValues(const ValueAxis& scale) {
    return Draw([&](AxisDrawing& axis) { DrawValueAxis(axis, kWidth, scale); });
  }
  const std::vector<std::string>& DrawAmplitudes(const AmplitudeAxis& scale) {
    return Draw([&](AxisDrawing& axis) { DrawAmplitudeAxis(axis, kWidth, scale); });
  }
  const std::vector<std::string>& DrawAcross(const DurationAxis& scale) {
    return Draw([&](AxisDrawing& axis) { DrawHorizontalDurationAxis(axis, kWidth, scale); });
  }
  const std::vector<std::string>& DrawUp(const DurationAxis& scale) {
    return Draw([&](AxisDrawing& axis) { DrawVerticalDurationAxis(axis, kWidth, scale); });
  }

  static std::vector<std::string> LinesOf(const std::string& start) {
    return LinesWith(recording::Lines(), start);
  }

  GraphFrame frame_{230.0, 1490.0, 290.0, 1410.0, 48.0};
  bool showAxes_ = true;
  bool showLabels_ = true;

 private:
  static constexpr double kWidth = 1680.0;

  template <typename DrawAxis>
  const std::vector<std::string>& Draw(DrawAxis draw) {
    recording::Clear();
    AxisDrawing axis = Axis();
    draw(axis);
    return recording::Lines();
  }
};

// --- Values --------------------------------------------------------------------------------------

TEST_F(ScatterAxesTest, TheAxisOfValuesIsTitleLineAndForEachTickItsNumber) {
  EXPECT_EQ(DrawValues({.Minimum = -5.0, .TickMarks = 3, .PerTick = 10.0, .PixelsPerTick = 420.0}),
            PlotParts({"left 650 1650 Sweep Relevant Value", "line 230 1410 1490 1410",
                       "line 230 1410 230 1445", "left 230 1522 -5.00", "line 650 1410 650 1445",
                       "left 650 1522 5.00", "line 1070 1410 1070 1445", "left 1070 1522 15.00",
                       "line 1490 1410 1490 1445", "left 1490 1522 25.00"}));
}

TEST_F(ScatterAxesTest, TheTitleTellsWhichValueTheAxisShows) {
  const auto titleOf = [&](ScatterValue value) {
    return DrawValues({.Value = value, .PerTick = 10.0, .PixelsPerTick = 420.0}).at(1);
  };
  EXPECT_EQ(titleOf(ScatterValue::LevelTag), "left 650 1650 Level Tag Value");
  EXPECT_EQ(titleOf(ScatterValue::SweepRelevant), "left 650 1650 Sweep Relevant Value");
  EXPECT_EQ(titleOf(ScatterValue::SweepTag), "left 650 1650 Sweep Tag Value");
  EXPECT_EQ(titleOf(static_cast<ScatterValue>(9)), "left 650 1650 Sweep Relevant Value");
}

TEST_F(ScatterAxesTest, TickMarksAreIntervalsOfWhichTheLastHasTwoEnds) {
  for (const std::int32_t marks : {1, 2, 7}) {
    DrawValues({.TickMarks = marks, .PerTick = 1.0, .PixelsPerTick = 10.0});
    const auto ticks = static_cast<std::size_t>(marks) + 1;
    EXPECT_THAT(LinesOf("line"), SizeIs(1 + ticks)) << marks;
    EXPECT_THAT(LinesOf("left"), SizeIs(1 + ticks)) << marks;
  }
}

TEST_F(ScatterAxesTest, NumbersOfValuesHaveTwoDecimals) {
  DrawValues({.Minimum = 1234567.891, .TickMarks = 2, .PerTick = -0.002, .PixelsPerTick = 420.0});
  EXPECT_THAT(LinesOf("left"),
              ElementsAre("left 650 1650 Sweep Relevant Value", "left 230 1522 1234567.89",
                          "left 650 1522 1234567.89", "left 1070 1522 1234567.89"));
  DrawValues({.Minimum = 0.126, .TickMarks = 1, .PerTick = 0.25, .PixelsPerTick = 420.0});
  EXPECT_EQ(recording::Lines().back(), "left 650 1522 0.38");
}

TEST_F(ScatterAxesTest, WhereValuesPassZeroTheNumberIsZero) {
  ASSERT_LT(-0.9 + 3 * 0.3, 0.0) << "what rounding leaves";
  DrawValues({.Minimum = -0.9, .TickMarks = 3, .PerTick = 0.3, .PixelsPerTick = 420.0});
  EXPECT_EQ(recording::Lines().back(), "left 1490 1522 0.00");
}

TEST_F(ScatterAxesTest, TicksStandInWholeStepsAlsoWhereTheseStopShortOfTheEdge) {
  frame_.PlotRight = 1494.0;
  DrawValues({.TickMarks = 3, .PerTick = 1.0, .PixelsPerTick = 421.0});
  EXPECT_THAT(LinesOf("line"), ElementsAre("line 230 1410 1494 1410", "line 230 1410 230 1445",
                                           "line 651 1410 651 1445", "line 1072 1410 1072 1445",
                                           "line 1493 1410 1493 1445"));
}

TEST_F(ScatterAxesTest, TheAxisOfValuesShowsLinesAndLabelsApart) {
  const ValueAxis scale{.TickMarks = 1, .PerTick = 2.0, .PixelsPerTick = 1260.0};
  showLabels_ = false;
  EXPECT_EQ(DrawValues(scale), PlotParts({"line 230 1410 1490 1410", "line 230 1410 230 1445",
                                          "line 1490 1410 1490 1445"}));
  showLabels_ = true;
  showAxes_ = false;
  EXPECT_EQ(DrawValues(scale), PlotParts({"left 650 1650 Sweep Relevant Value",
                                          "left 230 1522 0.00", "left 1490 1522 2.00"}));
  showLabels_ = false;
  EXPECT_THAT(DrawValues(scale), IsEmpty());
}

// --- Amplitudes ----------------------------------------------------------------------------------

TEST_F(ScatterAxesTest, TheAxisOfAmplitudesIsTitleLineAndForEachTickItsNumber) {
  EXPECT_EQ(
      DrawAmplitudes({.Minimum = 1e-12, .Ticks = 4, .PaPerTick = 0.5, .PixelsPerUnit = 560.0}),
      PlotParts({"left 115 174 Amplitude (pA)", "line 230 290 230 1410", "line 230 1410 195 1410",
                 "right 182 1410 1.0", "line 230 1130 195 1130", "right 182 1130 1.5",
                 "line 230 850 195 850", "right 182 850 2.0", "line 230 570 195 570",
                 "right 182 570 2.5"}));
}

/// Unlike the tick marks of values, where there is one more.
TEST_F(ScatterAxesTest, TicksOfAmplitudesAreTicks) {
  for (const std::int32_t ticks : {1, 2, 7}) {
    DrawAmplitudes({.Ticks = ticks, .PaPerTick = 1.0, .PixelsPerUnit = 10.0});
    EXPECT_THAT(LinesOf("line"), SizeIs(1 + static_cast<std::size_t>(ticks)));
    EXPECT_THAT(LinesOf("right"), SizeIs(static_cast<std::size_t>(ticks)));
  }
}

TEST_F(ScatterAxesTest, NumbersOfAmplitudesHaveOneDecimalAndArePicoamperes) {
  DrawAmplitudes({.Minimum = -2.3e-12, .Ticks = 3, .PaPerTick = 12.34, .PixelsPerUnit = 10.0});
  EXPECT_THAT(LinesOf("right"),
              ElementsAre("right 182 1410 -2.3", "right 182 1286.6 10.0", "right 182 1163.2 22.4"));
}

TEST_F(ScatterAxesTest, WhereAmplitudesPassZeroTheNumberIsZero) {
  ASSERT_LT(-0.9e-12 / 1e-12 + 3 * 0.3, 0.0) << "what rounding leaves";
  DrawAmplitudes({.Minimum = -0.9e-12, .Ticks = 4, .PaPerTick = 0.3, .PixelsPerUnit = 100.0});
  EXPECT_EQ(recording::Lines().back(), "right 182 1320 0.0");
}

TEST_F(ScatterAxesTest, TheAxisOfAmplitudesShowsLinesAndLabelsApart) {
  const AmplitudeAxis scale{.Ticks = 2, .PaPerTick = 1.0, .PixelsPerUnit = 560.0};
  showLabels_ = false;
  EXPECT_EQ(DrawAmplitudes(scale),
            PlotParts({"line 230 290 230 1410", "line 230 1410 195 1410", "line 230 850 195 850"}));
  showLabels_ = true;
  showAxes_ = false;
  EXPECT_EQ(DrawAmplitudes(scale),
            PlotParts({"left 115 174 Amplitude (pA)", "right 182 1410 0.0", "right 182 850 1.0"}));
  showLabels_ = false;
  EXPECT_THAT(DrawAmplitudes(scale), IsEmpty());
}

// --- Durations -----------------------------------------------------------------------------------

/// Minor ticks stand at the logarithms of 2, 3 and 4 to the base of 4, and the last of them is the
/// next decade. The number of a decade follows its minor ticks.
TEST_F(ScatterAxesTest, AcrossDurationsAreTitleLineAndForEachDecadeTicksAndNumber) {
  EXPECT_EQ(
      DrawAcross(
          {.MinimumExponent = -5, .Decades = 2, .TicksPerDecade = 3, .PixelsPerDecade = 630.0}),
      PlotParts({"left 650 1650 log Duration (s)", "line 230 1410 1490 1410",
                 "line 230 1410 230 1445", "line 545 1410 545 1432.4",
                 "line 729.263188 1410 729.263188 1432.4", "line 860 1410 860 1432.4",
                 "left 230 1522 -5", "line 860 1410 860 1445", "line 1175 1410 1175 1432.4",
                 "line 1359.26319 1410 1359.26319 1432.4", "line 1490 1410 1490 1432.4",
                 "left 860 1522 -4", "line 1490 1410 1490 1445"}));
}

TEST_F(ScatterAxesTest, UpDurationsAreTitleLineAndForEachDecadeTicksAndNumber) {
  EXPECT_EQ(
      DrawUp({.MinimumExponent = -5, .Decades = 2, .TicksPerDecade = 3, .PixelsPerDecade = 560.0}),
      PlotParts({"left 115 174 log Duration (s)", "line 230 290 230 1410", "line 230 1410 195 1410",
                 "line 230 1130 207.6 1130", "line 230 966.2105 207.6 966.2105",
                 "line 230 850 207.6 850", "right 182 1410 -5", "line 230 850 195 850",
                 "line 230 570 207.6 570", "line 230 406.2105 207.6 406.2105",
                 "line 230 290 207.6 290", "right 182 850 -4", "line 230 290 195 290"}));
}

TEST_F(ScatterAxesTest, WithoutAxesTheNumberOfTheLastDecadeIsThere) {
  showAxes_ = false;
  const DurationAxis scale{
      .MinimumExponent = -1, .Decades = 2, .TicksPerDecade = 3, .PixelsPerDecade = 500.0};
  EXPECT_EQ(DrawAcross(scale), PlotParts({"left 650 1650 log Duration (s)", "left 230 1522 -1",
                                          "left 730 1522 0", "left 1230 1522 1"}));
  EXPECT_EQ(DrawUp(scale), PlotParts({"left 115 174 log Duration (s)", "right 182 1410 -1",
                                      "right 182 910 0", "right 182 410 1"}));
}

TEST_F(ScatterAxesTest, WithoutLabelsAnAxisOfDurationsIsLines) {
  showLabels_ = false;
  const DurationAxis scale{.Decades = 1, .TicksPerDecade = 3, .PixelsPerDecade = 1120.0};
  EXPECT_EQ(DrawUp(scale), PlotParts({"line 230 290 230 1410", "line 230 1410 195 1410",
                                      "line 230 850 207.6 850", "line 230 522.421 207.6 522.421",
                                      "line 230 290 207.6 290", "line 230 290 195 290"}));
  DrawAcross(scale);
  EXPECT_THAT(LinesOf("line"), SizeIs(6)) << "the first minor tick of the last decade is too far";
  showAxes_ = false;
  EXPECT_THAT(DrawUp(scale), IsEmpty());
  EXPECT_THAT(DrawAcross(scale), IsEmpty());
}

TEST_F(ScatterAxesTest, MinorTicksStandAtTheLogarithmsOfTheirNumbers) {
  // With nine, these are the multiples of the decade: 230 + 1260 times log 2, log 5 and log 10.
  DrawAcross({.Decades = 1, .TicksPerDecade = 9, .PixelsPerDecade = 1260.0});
  const std::vector<std::string> lines = LinesOf("line");
  ASSERT_THAT(lines, SizeIs(1 + 1 + 9 + 1));
  EXPECT_EQ(lines[2], "line 609.297795 1410 609.297795 1432.4");
  EXPECT_EQ(lines[5], "line 1110.70221 1410 1110.70221 1432.4");
  EXPECT_EQ(lines[10], "line 1490 1410 1490 1432.4");
}

TEST_F(ScatterAxesTest, WithOneTickPerDecadeTheMinorTickIsTheMajorOneAndNoNumberIsMissing) {
  const DurationAxis scale{
      .MinimumExponent = -1, .Decades = 1, .TicksPerDecade = 1, .PixelsPerDecade = 1120.0};
  EXPECT_EQ(DrawUp(scale),
            PlotParts({"left 115 174 log Duration (s)", "line 230 290 230 1410",
                       "line 230 1410 195 1410", "line 230 1410 207.6 1410", "right 182 1410 -1",
                       "line 230 290 195 290", "line 230 290 207.6 290", "right 182 290 0"}));
}

TEST_F(ScatterAxesTest, AMinorTickBeyondTheEndEndsTheWholeAxis) {
  // The second decade begins at 700 and has its minor ticks at 1050, at 1254.7 and at 1400.
  DrawAcross({.MinimumExponent = -5, .Decades = 5, .TicksPerDecade = 3, .PixelsPerDecade = 700.0});
  EXPECT_EQ(recording::Lines().back(), "line 1484.73688 1410 1484.73688 1432.4");
  EXPECT_THAT(LinesOf("left"), ElementsAre("left 650 1650 log Duration (s)", "left 230 1522 -5"));
  EXPECT_THAT(LinesOf("line 930"),
              ElementsAre("line 930 1410 930 1432.4", "line 930 1410 930 1445"))
      << "the major tick of the second decade stands where a minor one of the first does";
}

TEST_F(ScatterAxesTest, AMinorTickExactlyAtTheEndDoesNot) {
  const DurationAxis scale{.Decades = 1, .TicksPerDecade = 3, .PixelsPerDecade = 800.0};
  for (const double room : {800.0, 800.0 - 0.9e-6}) {
    frame_.PlotRight = frame_.PlotLeft + room;
    frame_.PlotTop = frame_.PlotBottom - room;
    DrawAcross(scale);
    EXPECT_THAT(LinesOf("left 230 1522 0"), SizeIs(1)) << room;
    DrawUp(scale);
    EXPECT_THAT(LinesOf("right 182 1410 0"), SizeIs(1)) << room;
  }
  frame_.PlotRight = frame_.PlotLeft + 800.0 - 1.1e-6;
  frame_.PlotTop = frame_.PlotBottom - (800.0 - 1.1e-6);
  DrawAcross(scale);
  EXPECT_THAT(LinesOf("left 230 1522 0"), IsEmpty());
  DrawUp(scale);
  EXPECT_THAT(LinesOf("right 182 1410 0"), IsEmpty());
}

TEST_F(ScatterAxesTest, AnAxisThatStopsShortHasMinorTicksInWhatIsLeft) {
  DrawAcross({.MinimumExponent = -5, .Decades = 2, .TicksPerDecade = 3, .PixelsPerDecade = 500.0});
  EXPECT_EQ(recording::Lines().back(), "line 1480 1410 1480 1432.4") << "half a decade further";
  EXPECT_THAT(LinesOf("left"), SizeIs(1 + 2)) << "the last number is missing all the same";
  DrawAcross({.MinimumExponent = -5, .Decades = 2, .TicksPerDecade = 3, .PixelsPerDecade = 400.0});
  EXPECT_EQ(recording::Lines().back(), "left 1030 1522 -3") << "there is room for a whole decade";
}

// --- Settings that no dialog takes ---------------------------------------------------------------

TEST_F(ScatterAxesTest, NumbersOfTicksBelowOneCountAsOne) {
  for (const std::int32_t few : {0, -1, kLeast}) {
    DrawValues({.TickMarks = few, .PerTick = 1.0, .PixelsPerTick = 420.0});
    EXPECT_THAT(LinesOf("line"), SizeIs(1 + 2));
    DrawAmplitudes({.Ticks = few, .PaPerTick = 1.0, .PixelsPerUnit = 280.0});
    EXPECT_THAT(LinesOf("line"), SizeIs(1 + 1));
    DrawUp({.Decades = few, .TicksPerDecade = few, .PixelsPerDecade = 1120.0});
    EXPECT_THAT(LinesOf("line"), SizeIs(1 + 2 * 2))
        << "a decade, and minor ticks on the major ones";
    EXPECT_THAT(LinesOf("right"), SizeIs(2));
  }
}

TEST_F(ScatterAxesTest, NoAxisHasMoreTicksThanAnyDeviceCanShow) {
  constexpr std::size_t kTicks = 16384;
  showLabels_ = false;
  DrawValues({.TickMarks = kMost, .PerTick = 1.0, .PixelsPerTick = 1.0});
  EXPECT_THAT(LinesOf("line"), SizeIs(1 + kTicks + 1));
  DrawAmplitudes({.Ticks = kMost, .PaPerTick = 1.0, .PixelsPerUnit = 1.0});
  EXPECT_THAT(LinesOf("line"), SizeIs(1 + kTicks));
  DrawUp({.Decades = kMost, .TicksPerDecade = kMost, .PixelsPerDecade = 0.0});
  EXPECT_THAT(LinesOf("line"), SizeIs(1 + kTicks + 1)) << "no minor ticks";
  showAxes_ = false;
  showLabels_ = true;
  DrawAcross({.Decades = kMost, .TicksPerDecade = 1, .PixelsPerDecade = 1.0});
  EXPECT_THAT(LinesOf("left"), SizeIs(1 + kTicks + 1));
}

TEST_F(ScatterAxesTest, MinorTicksFinerThanAnyDeviceAreLeftOutAndTheNumbersAreNot) {
  DrawAcross({.Decades = 128, .TicksPerDecade = 128, .PixelsPerDecade = 1.0});
  EXPECT_THAT(LinesOf("line"), SizeIs(1 + 129 * (1 + 128)));
  DrawAcross({.Decades = 128, .TicksPerDecade = 129, .PixelsPerDecade = 1.0});
  EXPECT_THAT(LinesOf("line"), SizeIs(1 + 129));
  EXPECT_THAT(LinesOf("left"), SizeIs(1 + 129));
}

/// No comparison with it is true: it must not keep the axis going.
TEST_F(ScatterAxesTest, AStepThatIsNoNumberEndsSomewhere) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  DrawAcross({.Decades = kMost, .TicksPerDecade = kMost, .PixelsPerDecade = nan});
  EXPECT_THAT(LinesOf("line"), SizeIs(1 + 16384 + 1));
}

/// The sums, unlike products, lie just below 0.35 and 0.45.
TEST_F(ScatterAxesTest, NumbersOfAmplitudesAreAddedUp) {
  DrawAmplitudes({.Ticks = 12, .PaPerTick = 0.05, .PixelsPerUnit = 1000.0});
  const std::vector<std::string> numbers = LinesOf("right");
  ASSERT_EQ(numbers.size(), std::size_t{12});
  double sum = 0.0;
  bool differs = false;
  for (int k = 0; k < 12; ++k) {
    char added[20];
    char product[20];
    std::snprintf(added, sizeof added, " %.1f", sum);
    std::snprintf(product, sizeof product, " %.1f", k * 0.05);
    EXPECT_TRUE(numbers[static_cast<std::size_t>(k)].ends_with(added))
        << numbers[static_cast<std::size_t>(k)];
    differs = differs || std::string(added) != product;
    sum += 0.05;
  }
  EXPECT_TRUE(differs);
}

TEST_F(ScatterAxesTest, ExponentsBeyondTheRangeOfIntegersAreCutToIt) {
  showAxes_ = false;
  DrawAcross({.MinimumExponent = kMost, .Decades = 2, .PixelsPerDecade = 10.0});
  EXPECT_EQ(recording::Lines().back(), "left 250 1522 2147483647");
}

}  // namespace
}  // namespace ondrel
