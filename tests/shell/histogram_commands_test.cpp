#include "shell/histogram_commands.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace ondrel
