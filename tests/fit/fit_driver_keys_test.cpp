// The keys that are read while a fit runs.
#include <gmock/gmock.h>

#include <vector>

#include "fit/driver_fixture.h"
#include "shell/keys.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using FitKeysTest = DriverTest;

TEST_F(FitKeysTest, TheAbortKeyEndsTheFitBeforeThePassIsMade) {
  SetProblem({0.0}, 0.0, 20);
  toy::TheModel().Show = [this](ParameterVector& point, std::int32_t pass) {
    point[0] = 7.0;
    if (pass == 1) Keys(ViewKind::Amplitude) = {kKeyUp, kKeyBreak, kKeyDown};
    return 0;
  };
  SetValues({100, 100, 200}, OneStep);
  Run();
  ExpectEndedWith({kAborted});
  EXPECT_THAT(LogFrom("*show"),
              ElementsAre("*show amplitude 1", "*box", "repaint Amplitude Histogram"));
  EXPECT_THAT(Keys(ViewKind::Amplitude), ElementsAre(kKeyDown))
      << "what was pressed later still waits";
  EXPECT_EQ(toy::TheModel().Shown.back()[0], 7.0);
}

TEST_F(FitKeysTest, OtherKeysAreThrownAwayAndTheFitGoesOn) {
  SetProblem({0.0}, 1e9, 20);
  SetObjective([](const auto&) { return 1.0; });
  Keys(ViewKind::Amplitude) = {kKeyUp, kKeyF4, 'A', 0x1B};
  Run();
  ExpectEndedWith({});
  EXPECT_THAT(Keys(ViewKind::Amplitude), IsEmpty());
}

TEST_F(FitKeysTest, TheAbortKeyHasNoEffectWhileAnotherChildIsOnTop) {
  toolkit::BringForward(View(ViewKind::AmplitudeFit).Window);
  SetProblem({0.0}, 1e9, 20);
  SetObjective([](const auto&) { return 1.0; });
  const std::vector<ViewKind> open{ViewKind::Amplitude, ViewKind::AmplitudeFit};
  for (const ViewKind kind : open) Keys(kind) = {kKeyBreak};
  Run();
  ExpectEndedWith({});
  for (const ViewKind kind : open) EXPECT_THAT(Keys(kind), ElementsAre(kKeyBreak));
}

TEST_F(FitKeysTest, TheKeysOfOtherWindowsAreLeftToThem) {
  SetProblem({0.0}, 1e9, 20);
  SetObjective([](const auto&) { return 1.0; });
  Keys(ViewKind::AmplitudeFit) = {kKeyBreak};
  Run();
  ExpectEndedWith({});
  EXPECT_THAT(Keys(ViewKind::AmplitudeFit), ElementsAre(kKeyBreak));
}

TEST_F(FitKeysTest, TheAbortKeyOfADurationFitIsReadInItsOwnWindow) {
  OpenInert(ViewKind::Duration);
  toy::TheModel().Amplitude = false;
  SetProblem({0.0}, 1e9, 20);
  SetObjective([](const auto&) { return 1.0; });
  for (const ViewKind kind : {ViewKind::Amplitude, ViewKind::Duration}) Keys(kind) = {kKeyBreak};
  Run();
  EXPECT_THAT(Messages(), ElementsAre(kAborted));
  EXPECT_THAT(Keys(ViewKind::Duration), IsEmpty());
  EXPECT_THAT(Keys(ViewKind::Amplitude), ElementsAre(kKeyBreak));
}

TEST_F(FitKeysTest, WithoutAWindowNoKeyIsRead) {
  Keys(ViewKind::Amplitude) = {kKeyBreak};
  EXPECT_FALSE(PollAbortKey(workspace(), ViewKind::Duration));
  EXPECT_TRUE(PollAbortKey(workspace(), ViewKind::Amplitude));
  EXPECT_FALSE(PollAbortKey(workspace(), ViewKind::Amplitude));
}

using FitWithoutWindowsTest = ViewTest;

TEST_F(FitWithoutWindowsTest, NoKeyIsRead) {
  EXPECT_FALSE(PollAbortKey(workspace(), ViewKind::Amplitude));
  OpenInert(ViewKind::Duration);
  WindowOf(ViewKind::Duration).Keys = {kKeyBreak};
  EXPECT_FALSE(PollAbortKey(workspace(), ViewKind::Amplitude));
  EXPECT_THAT(WindowOf(ViewKind::Duration).Keys, ElementsAre(kKeyBreak));
}

}  // namespace
}  // namespace ondrel
