#include "views/live_fit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fit/amplitude_histogram.h"
#include "fit/duration_histogram.h"
#include "support/view_test.h"

namespace ondrel {
namespace {

using ::testing::Contains;
using ::testing::IsEmpty;

/// Both histograms have 10 events on axes from 0 to 5 pA and from 10 us to 1 s, and all four views
/// are open.
class LiveFitTest : public ViewTest {
 protected:
  LiveFitTest() {
    FillSweeps(1, [](SweepRecord&, std::int32_t) {});
    FillLevels(10, [](LevelRecord& level, std::int32_t row) {
      level.Sweep = 1;
      level.Amplitude = (0.25 + 0.5 * row) * 1e-12;
      level.Duration = 0.001 * (row + 1);
    });
    BuildAmplitudeHistogram(workspace());
    BuildDurationHistogram(workspace());
    for (const ViewKind kind :
         {ViewKind::Amplitude, ViewKind::Duration, ViewKind::AmplitudeFit, ViewKind::DurationFit}) {
      Open(kind);
    }
    ForgetAll();
  }

  std::int32_t ShowAmplitude(std::int32_t iteration) {
    ForgetAll();
    return kLiveDisplay.ShowAmplitudeIteration(workspace(), point_, iteration);
  }
  std::int32_t ShowDuration(std::int32_t iteration) {
    ForgetAll();
    return kLiveDisplay.ShowDurationIteration(workspace(), point_, iteration);
  }

  /// Where a text that begins with `start` stands among those drawn; -1 when none does.
  int PlaceOf(const std::string& start) {
    const std::vector<DrawnText> texts = TextsIn(Drawn());
    for (std::size_t i = 0; i < texts.size(); ++i) {
      if (texts[i].Text.starts_with(start)) return static_cast<int>(i);
    }
    return -1;
  }

  std::vector<std::string> TextsDrawn() {
    std::vector<std::string> texts;
    for (const DrawnText& text : TextsIn(Drawn())) texts.push_back(text.Text);
    return texts;
  }

  ParameterVector point_{};
};

TEST_F(LiveFitTest, AnAmplitudePassStandsInTheTermsAndInBothWindows) {
  point_ = {1.0, 2.5, 0.75};
  EXPECT_EQ(ShowAmplitude(0), 0);
  const AmplitudeTerm& term = workspace().Amplitude.Terms[0];
  EXPECT_EQ(term.Weight, 1.0);
  EXPECT_EQ(term.Current, 2.5);
  EXPECT_EQ(term.StdDev, 0.75);
  EXPECT_NEAR(term.Area, 10.0, 0.1) << "nearly all of the Gaussian is on the axis";
  EXPECT_THAT(TextsDrawn(), Contains("Iteration:  1"));
  EXPECT_THAT(TextsDrawn(), Contains("Events in histogram: 10"));
  EXPECT_THAT(TextsDrawn(), Contains("2.500pA"));
  EXPECT_THAT(TextsDrawn(), Contains("0.750pA"));
}

TEST_F(LiveFitTest, ADurationPassStandsInTheTermsAndInBothWindows) {
  point_ = {0.004, 1.0};
  EXPECT_EQ(ShowDuration(0), 0);
  const DurationTerm& term = workspace().Duration.Terms[0];
  EXPECT_EQ(term.Weight, 1.0);
  EXPECT_EQ(term.TimeConstant, 0.004);
  EXPECT_NEAR(term.Area, 10.0, 0.2) << "nearly all of the exponential is on the axis";
  EXPECT_THAT(TextsDrawn(), Contains("Iteration:  1"));
  EXPECT_THAT(TextsDrawn(), Contains("Events in histogram: 10"));
  EXPECT_THAT(TextsDrawn(), Contains("4.000E-03s"));
}

TEST_F(LiveFitTest, TheNoteCountsPassesFromOne) {
  point_ = {1.0, 2.5, 0.75};
  ShowAmplitude(1);
  EXPECT_THAT(TextsDrawn(), Contains("Iteration:  2"));
  ShowAmplitude(19);
  EXPECT_THAT(TextsDrawn(), Contains("Iteration:  20"));
  point_ = {0.004, 1.0};
  ShowDuration(99);
  EXPECT_THAT(TextsDrawn(), Contains("Iteration:  100"));
}

TEST_F(LiveFitTest, TheHistogramIsDrawnBeforeTheTable) {
  point_ = {1.0, 2.5, 0.75};
  ShowAmplitude(0);
  EXPECT_GE(PlaceOf("Iteration:"), 0);
  EXPECT_GT(PlaceOf("Events in histogram:"), PlaceOf("Iteration:"));
  point_ = {0.004, 1.0};
  ShowDuration(0);
  EXPECT_GE(PlaceOf("Iteration:"), 0);
  EXPECT_GT(PlaceOf("Events in histogram:"), PlaceOf("Iteration:"));
}

TEST_F(LiveFitTest, EachModelShowsItsOwnViewsAlone) {
  point_ = {1.0, 2.5, 0.75};
  ShowAmplitude(0);
  EXPECT_EQ(LinesWith(Drawn(), "show ").size(), std::size_t{2});
  EXPECT_EQ(LinesWith(Drawn(), "image 600").size(), std::size_t{1});
  EXPECT_THAT(LinesWith(Drawn(), "image 601"), IsEmpty());
  point_ = {0.004, 1.0};
  ShowDuration(0);
  EXPECT_EQ(LinesWith(Drawn(), "show ").size(), std::size_t{2});
  EXPECT_EQ(LinesWith(Drawn(), "image 601").size(), std::size_t{1});
  EXPECT_THAT(LinesWith(Drawn(), "image 600"), IsEmpty());
}

TEST_F(LiveFitTest, TheTableIsClearedToWhiteWhateverTheColourOfItsView) {
  View(ViewKind::AmplitudeFit).Colors[0] = {7, 8, 9};
  View(ViewKind::DurationFit).Colors[0] = {7, 8, 9};
  for (const bool isAmplitude : {true, false}) {
    point_ = isAmplitude ? ParameterVector{1.0, 2.5, 0.75} : ParameterVector{0.004, 1.0};
    isAmplitude ? ShowAmplitude(0) : ShowDuration(0);
    const std::vector<std::string> backgrounds = LinesWith(Drawn(), "background ");
    ASSERT_FALSE(backgrounds.empty());
    EXPECT_EQ(backgrounds.back(), "background 65535 65535 65535");
  }
}

TEST_F(LiveFitTest, ACurrentBesideTheAxisIsToldAndShownAtItsEnd) {
  point_ = {1.0, 7.0, 0.75};
  EXPECT_EQ(ShowAmplitude(3), -1);
  EXPECT_EQ(point_[1], 5.0);
  EXPECT_THAT(TextsDrawn(), Contains("5.000pA"));
  EXPECT_THAT(TextsDrawn(), Contains("Iteration:  4")) << "drawn all the same";
}

TEST_F(LiveFitTest, ATimeConstantBesideTheAxisIsToldAndShownAtItsEnd) {
  point_ = {1e-6, 1.0};
  EXPECT_EQ(ShowDuration(3), -1);
  EXPECT_DOUBLE_EQ(point_[0], 1e-5);
  EXPECT_THAT(TextsDrawn(), Contains("1.000E-05s"));
  EXPECT_THAT(TextsDrawn(), Contains("Iteration:  4")) << "drawn all the same";
}

TEST_F(LiveFitTest, NothingIsLeftToBePaintedLater) {
  point_ = {1.0, 2.5, 0.75};
  ShowAmplitude(0);
  EXPECT_THAT(WindowOf(ViewKind::Amplitude).Invalidated, IsEmpty());
  EXPECT_THAT(WindowOf(ViewKind::AmplitudeFit).Invalidated, IsEmpty());
}

TEST_F(LiveFitTest, WithTheViewsClosedTheTermsAreStoredAllTheSame) {
  CloseViews(workspace());
  point_ = {1.0, 2.5, 0.75};
  EXPECT_EQ(ShowAmplitude(0), 0);
  EXPECT_EQ(workspace().Amplitude.Terms[0].Current, 2.5);
  point_ = {1e-6, 1.0};
  EXPECT_EQ(ShowDuration(0), -1);
  EXPECT_THAT(Drawn(), IsEmpty());
}

TEST_F(LiveFitTest, ARepaintMarksTheWholeView) {
  for (const ViewKind kind : {ViewKind::Amplitude, ViewKind::DurationFit}) {
    kLiveDisplay.RepaintView(workspace(), kind);
    EXPECT_EQ(WindowOf(kind).Invalidated.size(), std::size_t{1});
  }
}

}  // namespace
}  // namespace ondrel
