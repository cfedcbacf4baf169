#include "views/fit_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>

#include "fit/amplitude_histogram.h"
#include "fit/duration_histogram.h"
#include "support/recording_sink.h"
#include "support/view_test.h"
#include "views/screen_drawing.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

/// With the font of the screen selected: letters are 7 wide and 13 high.
class FitTableTest : public ViewTest {
 protected:
  static constexpr std::int32_t kLineHeight = 15;
  static constexpr IntRect kPlace = {100, 50, 900, 700};

  FitTableTest() : device_(toolkit::AcquireDevice(nullptr)) {
    BeginScreenDrawing(workspace(), device_, kWhite);
    Forget();
  }

  ~FitTableTest() override {
    EndDrawing(workspace());
    toolkit::ReleaseDevice(nullptr, device_);
  }

  std::vector<std::string> DrawAmplitude(double dpi = 96.0, const IntRect& rect = kPlace) {
    Forget();
    MeasureAmplitudeFitColumns(workspace(), rect);
    DrawAmplitudeFitTable(workspace(), recording::kRecordingSink, rect, dpi, kLineHeight);
    return recording::Lines();
  }

  std::vector<std::string> DrawDuration(double dpi = 96.0, const IntRect& rect = kPlace) {
    Forget();
    MeasureDurationFitColumns(workspace(), rect);
    DrawDurationFitTable(workspace(), recording::kRecordingSink, rect, dpi, kLineHeight);
    return recording::Lines();
  }

  AmplitudeHistogram& amplitude() { return workspace().Amplitude; }
  DurationHistogram& duration() { return workspace().Duration; }

  /// Currents in pA and durations in s, of one level each.
  void FillHistograms(const std::vector<std::pair<double, double>>& levels) {
    FillSweeps(1, [](SweepRecord&, std::int32_t) {});
    FillLevels(static_cast<std::int32_t>(levels.size()), [&](LevelRecord& level, std::int32_t row) {
      level.Sweep = 1;
      level.Amplitude = levels[static_cast<std::size_t>(row)].first * 1e-12;
      level.Duration = levels[static_cast<std::size_t>(row)].second;
    });
    BuildAmplitudeHistogram(workspace());
    BuildDurationHistogram(workspace());
  }

  /// Width over height of the picture that was drawn.
  double AspectDrawn() {
    int resource = 0;
    IntRect rect;
    const int read = std::sscanf(Drawn().at(0).c_str(), "image %d %d %d %d %d", &resource,
                                 &rect.Left, &rect.Top, &rect.Right, &rect.Bottom);
    EXPECT_EQ(read, 5);
    return static_cast<double>(Width(rect)) / Height(rect);
  }

  /// The first line that holds `text`, or an empty one.
  static std::string LineWith(const std::vector<std::string>& lines, const std::string& text) {
    for (const std::string& line : lines) {
      if (line.find(text) != std::string::npos) return line;
    }
    return "";
  }

 private:
  void Forget() {
    ForgetAll();
    recording::Clear();
  }

  DeviceRecord device_;
};

// --- Lines and columns ---------------------------------------------------------------------------

TEST_F(FitTableTest, TheLineHeightHasTheLeadingOfTheFont) {
  shell().ExternalLeading = 4;
  EXPECT_EQ(FitLineHeight(workspace()), 10 + 3 + 4);
}

TEST_F(FitTableTest, WithoutLeadingTheLineHeightIsAFifthLargerThanTheLetters) {
  shell().ExternalLeading = 0;
  EXPECT_EQ(FitLineHeight(workspace()), 13 + 2) << "2.6, without its fraction";
  toolkit::SetFontHeight(workspace().Graphics.Device, 24);
  EXPECT_EQ(FitLineHeight(workspace()), 24 + 4);
  toolkit::SetFontHeight(workspace().Graphics.Device, 25);
  EXPECT_EQ(FitLineHeight(workspace()), 25 + 5);
}

TEST_F(FitTableTest, TheAmplitudeColumnsAreAsWideAsTheirTemplates) {
  MeasureAmplitudeFitColumns(workspace(), kPlace);
  const auto& right = View(ViewKind::AmplitudeFit).ColumnRight;
  EXPECT_EQ(right[0], 100 + WidthOf("EETerm"));
  EXPECT_EQ(right[1], right[0] + WidthOf("CurrentEEE"));
  EXPECT_EQ(right[2], right[1] + WidthOf("WeightEEEEE"));
  EXPECT_EQ(right[3], right[2] + WidthOf("VarianceEEEE"));
  EXPECT_EQ(View(ViewKind::DurationFit).ColumnRight[0], 0.0);
}

TEST_F(FitTableTest, TheDurationColumnsAreThreeAndAsWideAsTheirTemplates) {
  MeasureDurationFitColumns(workspace(), kPlace);
  const auto& right = View(ViewKind::DurationFit).ColumnRight;
  EXPECT_EQ(right[0], 100 + WidthOf("EETerm"));
  EXPECT_EQ(right[1], right[0] + WidthOf("WeightEE"));
  EXPECT_EQ(right[2], right[1] + WidthOf("TimeConstantEEE"));
  EXPECT_EQ(right[3], 0.0);
  EXPECT_EQ(View(ViewKind::AmplitudeFit).ColumnRight[0], 0.0);
}

// --- The whole table -----------------------------------------------------------------------------

TEST_F(FitTableTest, TheAmplitudeTableStandsBelowItsFormula) {
  // The formula ends at 129; half of a line of 15 is 7.
  EXPECT_THAT(
      DrawAmplitude(),
      ElementsAre("left 115 136 Events in histogram: 0", "left 115 151 Log likelihood: 0.0000E+00",
                  "right 142 173.5 Term", "right 212 173.5 Current", "right 289 173.5 Weight",
                  "right 373 173.5 StdDev", "right 142 188.5 1", "right 212 188.5 1.000pA",
                  "right 289 188.5 0.000", "right 373 188.5 1.000pA"));
  EXPECT_THAT(Drawn(), ElementsAre("image 600 100 50 476 129"));
}

TEST_F(FitTableTest, TheDurationTableStandsBelowItsFormula) {
  EXPECT_THAT(
      DrawDuration(),
      ElementsAre("left 115 124 Events in histogram: 0", "left 115 139 Log likelihood: 0.0000E+00",
                  "right 142 161.5 Term", "right 198 161.5 Weight", "right 303 161.5 TimeConstant",
                  "right 142 176.5 1", "right 198 176.5 0.000", "right 303 176.5 1.000E-04s"));
  EXPECT_THAT(Drawn(), ElementsAre("image 601 100 50 455 117"));
}

TEST_F(FitTableTest, NumbersAndUnitsStandSideBySideWithoutABlank) {
  amplitude().Terms[0] = {.Weight = 0.12345, .Current = -2.00051, .StdDev = 12.5, .Area = 7.0};
  EXPECT_THAT(LinesWith(DrawAmplitude(), "right "),
              ::testing::IsSupersetOf({"right 212 188.5 -2.001pA", "right 289 188.5 0.123",
                                       "right 373 188.5 12.500pA"}));
  duration().Terms[0] = {.Weight = -0.25, .TimeConstant = 0.0123456, .Area = 7.0};
  EXPECT_THAT(LinesWith(DrawDuration(), "right "),
              ::testing::IsSupersetOf({"right 198 176.5 -0.250", "right 303 176.5 1.235E-02s"}));
}

TEST_F(FitTableTest, WithNoHistogramEventsTheCountOnTheFirstLineIsZero) {
  FillHistograms({});
  EXPECT_EQ(LinesWith(DrawAmplitude(), "left ")[0], "left 115 136 Events in histogram: 0");
  EXPECT_EQ(LinesWith(DrawDuration(), "left ")[0], "left 115 124 Events in histogram: 0");
}

TEST_F(FitTableTest, TheFirstLineCountsTheEventsOfItsOwnHistogram) {
  amplitude().EventsInHistogram = 1234567;
  duration().EventsInHistogram = 89;
  EXPECT_EQ(LinesWith(DrawAmplitude(), "left ")[0], "left 115 136 Events in histogram: 1234567");
  EXPECT_EQ(LinesWith(DrawDuration(), "left ")[0], "left 115 124 Events in histogram: 89");
}

TEST_F(FitTableTest, WithTenTermsTheTableHasTenRows) {
  amplitude().TermCount = 10;
  duration().TermCount = 10;
  for (int i = 0; i < 10; ++i) {
    const auto place = static_cast<std::size_t>(i);
    amplitude().Terms[place] = {.Weight = 0.1, .Current = 1.0 * i, .StdDev = 0.5, .Area = 0.0};
    duration().Terms[place] = {.Weight = 0.1, .TimeConstant = 0.001 * (i + 1), .Area = 0.0};
  }
  std::vector<std::string> lines = DrawAmplitude();
  EXPECT_EQ(LinesWith(lines, "right ").size(), std::size_t{4 + 10 * 4});
  for (int i = 0; i < 10; ++i) {
    const std::string y = std::to_string(188 + 15 * i) + ".5 ";
    EXPECT_THAT(LinesWith(lines, "right 142 " + y),
                ElementsAre("right 142 " + y + std::to_string(i + 1)));
    EXPECT_THAT(LinesWith(lines, "right 212 " + y),
                ElementsAre("right 212 " + y + std::to_string(i) + ".000pA"));
  }
  lines = DrawDuration();
  EXPECT_EQ(LinesWith(lines, "right ").size(), std::size_t{3 + 10 * 3});
  EXPECT_EQ(lines.back(), "right 303 311.5 1.000E-02s");
}

TEST_F(FitTableTest, EachTableHasAsManyRowsAsItsOwnModelHasTerms) {
  amplitude().TermCount = 2;
  duration().TermCount = 5;
  EXPECT_EQ(LinesWith(DrawAmplitude(), "right ").size(), std::size_t{4 + 2 * 4});
  EXPECT_EQ(LinesWith(DrawDuration(), "right ").size(), std::size_t{3 + 5 * 3});
}

TEST_F(FitTableTest, ATableHasNoMoreRowsThanAFitHasRoomFor) {
  for (const std::int32_t count : {-3, 0, 10, 11, 1000000}) {
    amplitude().TermCount = count;
    duration().TermCount = count;
    const auto rows = static_cast<std::size_t>(std::min(std::max(count, 0), 10));
    EXPECT_EQ(LinesWith(DrawAmplitude(), "right ").size(), 4 + rows * 4);
    EXPECT_EQ(LinesWith(DrawDuration(), "right ").size(), 3 + rows * 3);
  }
}

// --- The log likelihood --------------------------------------------------------------------------

std::string Formatted(double value) {
  char text[64] = "";
  std::snprintf(text, sizeof text, "%.4E", value);
  return text;
}

TEST_F(FitTableTest, TheLogLikelihoodOfDurationsIsThatOfTheirBins) {
  duration().MinimumExponent = -3;
  duration().Decades = 2;
  duration().BinsPerDecade = 1;
  duration().FilterFrequency = 1e12;  // corrects nothing
  FillHistograms({{1.0, 0.002}, {1.0, 0.003}, {1.0, 0.005}, {1.0, 0.02}});
  duration().Terms[0] = {.Weight = 1.0, .TimeConstant = 0.004, .Area = 0.0};
  const double tau = 0.004;
  const double low = std::exp(-0.001 / tau) - std::exp(-0.01 / tau);
  const double high = std::exp(-0.01 / tau) - std::exp(-0.1 / tau);
  const double visible = low + high;
  const double fitted = 3 * std::log(low / visible) + std::log(high / visible);
  const double perfect = 3 * std::log(3.0 / 4.0) + std::log(1.0 / 4.0);
  EXPECT_EQ(LineWith(DrawDuration(), "Log"),
            "left 115 139 Log likelihood: " + Formatted(fitted - perfect));
  EXPECT_LT(fitted - perfect, -1e-3) << "the case tells a value from none";
}

TEST_F(FitTableTest, TheLogLikelihoodOfAmplitudesIsThatOfTheirBins) {
  amplitude().Minimum = 0.0;
  amplitude().TickMarks = 2;
  amplitude().BinsPerTick = 1;
  FillHistograms({{0.5, 0.001}, {0.25, 0.001}, {1.5, 0.001}});
  amplitude().Terms[0] = {.Weight = 1.0, .Current = 0.5, .StdDev = 1.0, .Area = 0.0};
  const auto density = [](double x) {
    return std::exp(-(x - 0.5) * (x - 0.5) / 2.0) / std::sqrt(6.283185307178);
  };
  const auto simpson = [&](double x) {
    return density(x) / 6.0 + density(x + 0.5) * 2.0 / 3.0 + density(x + 1.0) / 6.0;
  };
  const double visible = (std::erfc(-0.5 / 1.4142) - std::erfc(1.5 / 1.4142)) / 2.0;
  const double fitted = 2 * std::log(simpson(0.0)) + std::log(simpson(1.0)) - 3 * std::log(visible);
  const double perfect = 2 * std::log(2.0 / 3.0) + std::log(1.0 / 3.0);
  EXPECT_EQ(LineWith(DrawAmplitude(), "Log"),
            "left 115 151 Log likelihood: " + Formatted(fitted - perfect));
  EXPECT_LT(fitted - perfect, -1e-3) << "the case tells a value from none";
}

TEST_F(FitTableTest, ALogLikelihoodOfManyEventsKeepsItsFourDecimals) {
  // With every bin excluded the objective is -12000, and nothing is left of the counts.
  FillHistograms({{1.0, 0.001}});
  for (int i = 0; i < amplitude().TickMarks * amplitude().BinsPerTick + 2; ++i) {
    amplitude().Bins[i].Flags = kExcludedBin;
  }
  for (int i = 0; i < duration().Decades * duration().BinsPerDecade + 2; ++i) {
    duration().Bins[i].Flags = kExcludedBin;
  }
  amplitude().EventsInHistogram = 0;
  duration().EventsInHistogram = 0;
  EXPECT_THAT(LineWith(DrawAmplitude(), "Log"), HasSubstr(": 1.2000E+04"));
  EXPECT_THAT(LineWith(DrawDuration(), "Log"), HasSubstr(": 1.2000E+04"));
}

TEST_F(FitTableTest, WithoutBinsTheLogLikelihoodIsZeroWhateverTheTerms) {
  amplitude().TermCount = 10;
  duration().TermCount = 10;
  EXPECT_THAT(LineWith(DrawAmplitude(), "Log"), HasSubstr(": 0.0000E+00"));
  EXPECT_THAT(LineWith(DrawDuration(), "Log"), HasSubstr(": 0.0000E+00"));
}

// --- The formula ---------------------------------------------------------------------------------

TEST_F(FitTableTest, AFormulaForAPrinterIsScaledAndTakenFromTheLargePicture) {
  DrawAmplitude(600.0, {0, 0, 4000, 4000});  // 376 and 79 times 6.25
  EXPECT_THAT(Drawn(), ElementsAre("image 610 0 0 2350 493"));
  DrawDuration(600.0, {0, 0, 4000, 4000});
  EXPECT_THAT(Drawn(), ElementsAre("image 611 0 0 2218 418"));
}

TEST_F(FitTableTest, AScaledFormulaKeepsItsAspectThroughTheTwoSeparateScalings) {
  workspace().ScreenDpi = 120.0;
  DrawAmplitude(300.0, {10, 20, 4000, 4000});  // 376 and 79 times 2.5
  EXPECT_THAT(Drawn(), ElementsAre("image 610 10 20 950 217"));
  EXPECT_NEAR(AspectDrawn(), 376.0 / 79.0, 0.02);
  DrawDuration(300.0, {10, 20, 4000, 4000});  // 355 and 67 times 2.5
  EXPECT_THAT(Drawn(), ElementsAre("image 611 10 20 897 187"));
  EXPECT_NEAR(AspectDrawn(), 355.0 / 67.0, 0.02);
}

TEST_F(FitTableTest, TheTextFollowsTheBottomOfTheScaledFormula) {
  EXPECT_EQ(LinesWith(DrawAmplitude(600.0, {0, 0, 4000, 4000}), "left ")[0],
            "left 15 500 Events in histogram: 0");
  EXPECT_EQ(LinesWith(DrawDuration(600.0, {0, 0, 4000, 4000}), "left ")[0],
            "left 15 425 Events in histogram: 0");
}

TEST_F(FitTableTest, ADestinationAsFineAsTheScreenHasTheScreensPicture) {
  workspace().ScreenDpi = 144.0;
  DrawAmplitude(144.0);
  EXPECT_THAT(Drawn(), ElementsAre("image 600 100 50 476 129"));
}

TEST_F(FitTableTest, AScreenWithoutAResolutionDoesNoHarm) {
  workspace().ScreenDpi = 0.0;
  DrawAmplitude(96.0);
  DrawDuration(0.0);
  EXPECT_THAT(Drawn(), ElementsAre("image 601 100 50 100 50"));
  DrawDuration(std::numeric_limits<double>::quiet_NaN());
  EXPECT_THAT(Drawn(), ElementsAre("image 601 100 50 100 50"));
}

TEST_F(FitTableTest, WithoutItsFormulaTheAmplitudeTableSaysSoInItsPlace) {
  for (const std::int32_t error : {-2, -1, 1, 8}) {
    shell().ImageError = error;
    EXPECT_THAT(DrawAmplitude(), ElementsAre("left 110 15 Fail in loading the resource bitmap! "
                                             "Error code " +
                                             std::to_string(error)));
  }
}

TEST_F(FitTableTest, WithoutItsFormulaTheDurationTableIsDrawnAsEver) {
  const std::vector<std::string> whole = DrawDuration();
  for (const std::int32_t error : {-2, -1, 2, 8}) {
    shell().ImageError = error;
    EXPECT_EQ(DrawDuration(), whole) << error;
    EXPECT_THAT(Drawn(), IsEmpty());
  }
}

TEST_F(FitTableTest, OnlyTheErrorOneKeepsTheDurationTableAwayAndNothingIsSaid) {
  shell().ImageError = 1;
  EXPECT_THAT(DrawDuration(), IsEmpty());
}

TEST_F(FitTableTest, NothingFollowsTheTwoLinesWhenAWriteHasFailed) {
  for (const bool isAmplitude : {true, false}) {
    recording::Clear();
    recording::FailText(1);
    workspace().Graphics.Status = 0;
    const auto draw = isAmplitude ? DrawAmplitudeFitTable : DrawDurationFitTable;
    draw(workspace(), recording::kRecordingSink, kPlace, 96.0, kLineHeight);
    EXPECT_THAT(LinesWith(recording::Lines(), "right"), IsEmpty());
    EXPECT_EQ(workspace().Graphics.Status, recording::kFullDisk);
  }
}

}  // namespace
}  // namespace ondrel
