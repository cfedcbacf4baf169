#include "shell/histogram_commands.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "support/program_test.h"

namespace ondrel {
namespace {

class HistogramCommandsTest : public ProgramTest {
 protected:
  HistogramCommandsTest() : file_("histogram_commands.evt", kTwoOpenings) {}

  void RunWithHistograms(const std::function<void()>& act) {
    Run([&] {
      OpenFile(file_.Path());
      Choose(command::kAmplitudeView);
      Choose(command::kAmplitudeManualFit);
      Choose(command::kDurationView);
      Choose(command::kDurationManualFit);
      for (const auto& child : shell().Children) child->Invalidated.clear();
      act();
    });
  }

  bool HasDrawn(const std::string& text) {
    const auto& drawing = shell().Drawing;
    return std::any_of(drawing.begin(), drawing.end(), [&](const std::string& line) {
      return line.starts_with("text ") && line.ends_with(text);
    });
  }

  std::size_t Repaints(ViewKind kind) {
    return scripted::WindowOf(ViewOf(workspace(), kind).Window).Invalidated.size();
  }

 private:
  ScratchFile file_;
};

TEST_F(HistogramCommandsTest, AutoscaleOfAmplitudesFitsTheAxisAndRepaintsItsTwoViews) {
  RunWithHistograms([&] {
    workspace().Amplitude.Minimum = 1000.0;
    Choose(command::kAmplitudeAutoscale);
    EXPECT_LT(workspace().Amplitude.Minimum, 100.0);
    EXPECT_EQ(Repaints(ViewKind::Amplitude), 1u);
    EXPECT_EQ(Repaints(ViewKind::AmplitudeFit), 1u);
    EXPECT_EQ(Repaints(ViewKind::Duration), 0u);
    EXPECT_EQ(Repaints(ViewKind::DurationFit), 0u);
    EXPECT_EQ(Repaints(ViewKind::Level), 0u);
    EXPECT_FALSE(ViewOf(workspace(), ViewKind::Amplitude).NeedsRebuild);
  });
}

TEST_F(HistogramCommandsTest, AutoscaleOfDurationsFitsTheAxisAndRepaintsItsTwoViews) {
  RunWithHistograms([&] {
    workspace().Duration.MinimumExponent = 7;
    Choose(command::kDurationAutoscale);
    EXPECT_LT(workspace().Duration.MinimumExponent, 0);
    EXPECT_EQ(Repaints(ViewKind::Duration), 1u);
    EXPECT_EQ(Repaints(ViewKind::DurationFit), 1u);
    EXPECT_EQ(Repaints(ViewKind::Amplitude), 0u);
    EXPECT_EQ(Repaints(ViewKind::AmplitudeFit), 0u);
    EXPECT_FALSE(ViewOf(workspace(), ViewKind::Duration).NeedsRebuild);
  });
}

/// The whole program stands behind the command: its models and its display.
TEST_F(HistogramCommandsTest, AutomaticFitShowsItsPassesAndLeavesAFittedTerm) {
  RunWithHistograms([&] {
    Choose(command::kAmplitudeAutoscale);
    workspace().Amplitude.Terms[0] = {.Weight = 0.3, .Current = 2.1, .StdDev = 0.5, .Area = 0.0};
    shell().Drawing.clear();
    Choose(command::kAmplitudeAutomaticFit);
    EXPECT_TRUE(HasDrawn("Iteration:  1"));
    EXPECT_EQ(workspace().Amplitude.Terms[0].Weight, 1.0);
    EXPECT_NEAR(workspace().Amplitude.Terms[0].Current, 2.0, 0.1);

    Choose(command::kDurationAutoscale);
    workspace().Duration.Terms[0] = {.Weight = 0.3, .TimeConstant = 0.05, .Area = 0.0};
    shell().Drawing.clear();
    Choose(command::kDurationAutomaticFit);
    EXPECT_TRUE(HasDrawn("Iteration:  1"));
    EXPECT_EQ(workspace().Duration.Terms[0].Weight, 1.0);
    EXPECT_NE(workspace().Duration.Terms[0].TimeConstant, 0.05);
  });
}

}  // namespace
}  // namespace ondrel
