// "Automatic Fit" in its four ways to an end, and a fit that is watched while it runs.
#include <gmock/gmock.h>

#include <cmath>
#include <set>

#include "fitting_fixture.h"
#include "text_reader.h"

namespace ondrel::e2e {
namespace {

constexpr const char* kConverged = "";
constexpr const char* kLimit = "Exceeded the maximum iteration. The fit did not converge.";
constexpr const char* kOutOfRange =
    "The estimated term(s) is outside of the visible range. Please remove these terms or give "
    "Ondrel a better initial estimate.";
constexpr const char* kAborted = "The fit has been aborted!";

class AutomaticFit : public FittingTest {
 protected:
  /// Gives the command to a program that stands still, and lets it run up to the first pass, which
  /// is then on the screen.
  void StartAndStopInFirstPass() const {
    ASSERT_TRUE(CanFit());
    const Window histogram = Histogram();
    program_.PostPause(histogram);
    program_.WaitForPause();
    program_.Frame().Post(WM_COMMAND, static_cast<WPARAM>(Kind().AutomaticFit));
    program_.PostPause(histogram);
    program_.Resume();
    program_.WaitForPause();
  }

  /// Estimates, freshly placed, from which a fit takes several passes: a far too wide Gaussian for
  /// a current without any spread, and twice as many exponentials as there are.
  void PlaceSlowEstimates() {
    if (program_.IsOpen(Kind().Fit)) {
      program_.Command(Kind().ManualFit);
      program_.WaitForTopView(Kind().Fit);
      program_.Key(VK_F4, {VK_CONTROL});
      program_.WaitForNoView(Kind().Fit);
      program_.Command(Kind().View);
      program_.WaitForTopView(Kind().Histogram);
    }
    ShowFitBesideHistogram();
    const Plot plot = hand_.PlotNow();
    if (IsAmplitude()) {
      LiftFirstTerm(2.5, 0.6);
      const Point handle = WidthHandle(plot, Above(plot, 2.5, 0.6), 1.0);
      hand_.Drag(handle, {handle.X - static_cast<int>(0.58 * plot.PerUnit / 2.0), handle.Y});
      return;
    }
    LiftFirstTerm(-3.4, 0.3);
    for (const double where : {-2.9, -2.4, -1.9}) {
      hand_.DoubleClick(plot.OnAxis(where));
      hand_.Drag(plot.OnAxis(where), Above(plot, where, 0.3));
    }
  }
  /// A recording for them.
  [[nodiscard]] std::string SlowRecording() const {
    return RecordingOf(IsAmplitude() ? Channel{.Current = 3.025, .StdDev = 0.0} : Channel{});
  }

  void LiftFirstTerm(double axisValue, double height) {
    const Plot plot = hand_.PlotNow();
    hand_.Drag(plot.OnAxis(Kind().FirstEstimate), Above(plot, axisValue, height));
  }

  /// The number in the note "Iteration:  n" over the plot; 0 when there is none.
  [[nodiscard]] int Iteration(const Picture& view) const {
    constexpr int kAscent = 14;
    constexpr int kDescent = 5;
    const int baseline = view.Height / 7 * 3 / 5;
    const Picture note = view.Cut(
        {view.Width / 2 - 1, baseline - kAscent, view.Width / 2 + 120, baseline + kDescent});
    for (const std::string& line : reader_.Lines(note)) {
      if (line.rfind("lteration: ", 0) == 0) return std::atoi(line.c_str() + 11);
    }
    return 0;
  }

  void ExpectStillUsable() {
    const std::size_t terms = Table().Terms.size();
    const Plot plot = hand_.PlotNow();
    const double beside = FirstAxis(Kind()).Minimum + 4.9;
    hand_.DoubleClick(plot.OnAxis(beside));
    EXPECT_NE(Table().Terms.size(), terms);
    EXPECT_TRUE(CanFit());
    EXPECT_EQ(Iteration(HistogramPicture()), 0);
  }

  /// What can be seen of a fit that stands still.
  struct Look {
    int Iteration = 0;
    Picture Plot;
    Picture Parameters;
  };
  [[nodiscard]] Look LookAtFit() const {
    Look look{.Plot = program_.PausedPicture(Histogram()),
              .Parameters = program_.PausedPicture(Fit())};
    look.Iteration = Iteration(look.Plot);
    return look;
  }

  TextReader reader_;
};

TEST_P(AutomaticFit, ConvergesQuietlyOnWhatTheRecordingWasMadeOf) {
  const Channel channel;
  OpenHistogramWithFit(RecordingOf(channel));
  if (IsAmplitude()) {
    LiftFirstTerm(2.6, 0.6);
  } else {
    LiftFirstTerm(-3.3, 0.5);
    const Plot plot = hand_.PlotNow();
    hand_.DoubleClick(plot.OnAxis(-1.0));
    hand_.Drag(plot.OnAxis(-1.0), Above(plot, -1.0, 0.4));
  }
  const Picture before = HistogramPicture();
  const FitTable estimate = Table();
  Keep(before, "histogram_with_estimates");
  EXPECT_EQ(RunAutomaticFit(program_, Kind()), kConverged);
  const FitTable fitted = Table();
  EXPECT_GT(fitted.LogLikelihood, estimate.LogLikelihood);
  ASSERT_EQ(fitted.Terms.size(), IsAmplitude() ? 1u : 2u);
  if (IsAmplitude()) {
    EXPECT_NEAR(fitted.Terms[0].Where, channel.Current, 0.02);
    EXPECT_NEAR(fitted.Terms[0].StdDev, channel.StdDev, 0.02);
    EXPECT_EQ(fitted.Terms[0].Weight, 1.0);
  } else {
    EXPECT_NEAR(fitted.Terms[0].Where / channel.Open, 1.0, 0.08);
    EXPECT_NEAR(fitted.Terms[1].Where / channel.Closed, 1.0, 0.08);
    EXPECT_NEAR(fitted.Terms[0].Weight, 0.5, 0.03);
    EXPECT_NEAR(fitted.Terms[1].Weight, 0.5, 0.03);
  }
  const Picture after = HistogramPicture();
  EXPECT_NE(after, before);
  EXPECT_GT(after.Count(kBlue), 100);
  Keep(after, "histogram_with_fit");
  Keep(FitPicture(), "fit_parameters_of_fit");
  ExpectStillUsable();
}

TEST_P(AutomaticFit, ARestartedFitBeginsWhereTheLastOneEnded) {
  OpenHistogramWithFit(RecordingOf({}));
  LiftFirstTerm(IsAmplitude() ? 2.6 : -3.3, 0.6);
  EXPECT_EQ(RunAutomaticFit(program_, Kind()), kConverged);
  const FitTable first = Table();
  program_.Key(Kind().AutomaticFitKey, {VK_CONTROL});
  EXPECT_EQ(WaitForEndOfFit(program_), kConverged);
  const FitTable second = Table();
  EXPECT_GE(second.LogLikelihood, first.LogLikelihood);
  EXPECT_NEAR(second.Terms.at(0).Where / first.Terms.at(0).Where, 1.0, 0.01);
}

TEST_P(AutomaticFit, ATermThatLeavesTheAxisIsToldAndHeldAtItsEnd) {
  // Most of the channel lies beyond the axis, which ends at 5 pA and at 1 s.
  OpenHistogramWithFit(
      RecordingOf({.Current = 5.8, .StdDev = 0.5, .Open = 8.0, .Closed = 8.0, .Openings = 400}));
  LiftFirstTerm(IsAmplitude() ? 4.5 : -0.5, 0.5);
  EXPECT_EQ(RunAutomaticFit(program_, Kind()), kOutOfRange);
  const FitTable table = Table();
  ASSERT_EQ(table.Terms.size(), 1u);
  EXPECT_NEAR(table.Terms[0].Where, IsAmplitude() ? 5.0 : 1.0, 0.001);
  EXPECT_TRUE(CanFit());
}

TEST_P(AutomaticFit, ControlBreakAbortsItAndTheTermsStayAsShown) {
  OpenHistogramWithFit(RecordingOf({}));
  LiftFirstTerm(IsAmplitude() ? 2.6 : -3.3, 0.6);
  const FitTable estimate = Table();
  StartAndStopInFirstPass();
  Histogram().Post(WM_KEYDOWN, 'X', 1);  // thrown away
  Histogram().Post(WM_KEYDOWN, VK_CANCEL, 1);
  program_.Resume();
  const Box box = program_.WaitForBox(kAborted);
  EXPECT_EQ(box.Caption(), "");
  box.Answer(kOkButton);
  program_.ToForeground();
  const FitTable aborted = Table();
  ASSERT_EQ(aborted.Terms.size(), 1u);
  EXPECT_EQ(aborted.Terms[0].Where, estimate.Terms[0].Where);
  EXPECT_EQ(aborted.LogLikelihood, estimate.LogLikelihood);
  EXPECT_EQ(RunAutomaticFit(program_, Kind()), kConverged);
  ExpectStillUsable();
}

TEST_P(AutomaticFit, TheRealKeyAbortsARunningFit) {
  OpenHistogramWithFit(RecordingOf({}));
  LiftFirstTerm(IsAmplitude() ? 2.6 : -3.3, 0.6);
  program_.ToForeground();
  StartAndStopInFirstPass();
  PressKey(VK_CANCEL, {VK_CONTROL});
  program_.Resume();
  program_.WaitForBox(kAborted).Answer(kOkButton);
  program_.ToForeground();
  EXPECT_TRUE(CanFit());
}

TEST_P(AutomaticFit, ControlBreakIsNothingToAFitBelowAnotherView) {
  OpenHistogramWithFit(RecordingOf({}));
  LiftFirstTerm(IsAmplitude() ? 2.6 : -3.3, 0.6);
  const FitTable estimate = Table();
  program_.Command(Kind().ManualFit);
  program_.WaitForTopView(Kind().Fit);
  // Its entry is not in the bar now, its key is at work all the same.
  program_.Frame().Post(WM_COMMAND, static_cast<WPARAM>(Kind().AutomaticFit));
  Histogram().Post(WM_KEYDOWN, VK_CANCEL, 1);
  program_.Settle(program_.Frame());
  EXPECT_TRUE(program_.Dialogs().empty()) << program_.Describe();
  EXPECT_TRUE(program_.Frame().Enabled());
  EXPECT_GT(Table().LogLikelihood, estimate.LogLikelihood);
}

TEST_P(AutomaticFit, EachPassIsShownInBothViewsWhileTheFitRuns) {
  constexpr int kAttempts = 5;
  OpenHistogram(SlowRecording());
  const Plot plot = hand_.PlotNow();
  bool seen = false;
  for (int attempt = 0; attempt < kAttempts && !seen; ++attempt) {
    PlaceSlowEstimates();
    const Picture before = FitPicture();
    StartAndStopInFirstPass();
    const Window histogram = Histogram();
    const Look first = LookAtFit();
    EXPECT_EQ(first.Iteration, 1);
    EXPECT_EQ(first.Parameters, before);
    // The next key must come when this pass has taken all of its own, and before the fit ends: it
    // is given a little later each time.
    Look later = first;
    for (DWORD stop = 0; stop < 20 && later.Iteration == 1; ++stop) {
      program_.Resume();
      Sleep(stop);
      program_.PostPause(histogram);
      program_.WaitForPause();
      later = LookAtFit();
    }
    histogram.Post(WM_KEYDOWN, VK_CANCEL, 1);
    program_.Resume();
    seen = WaitForEndOfFit(program_) == kAborted;
    if (!seen) continue;
    EXPECT_GE(later.Iteration, 2);
    EXPECT_LE(later.Iteration, 20);
    EXPECT_NE(later.Parameters, first.Parameters);
    const Rect below{0, static_cast<int>(plot.Top), first.Plot.Width, first.Plot.Height};
    EXPECT_NE(later.Plot.Cut(below), first.Plot.Cut(below));
    EXPECT_GT(ReadFitTable(Kind(), later.Parameters).LogLikelihood,
              ReadFitTable(Kind(), first.Parameters).LogLikelihood);
    EXPECT_EQ(FitPicture(), later.Parameters);
    EXPECT_EQ(Iteration(HistogramPicture()), 0);
  }
  EXPECT_TRUE(seen);
}

FOR_BOTH_HISTOGRAMS(AutomaticFit);

class AmplitudeFit : public AutomaticFit {};

/// A current without any spread asks for a Gaussian of no width at all, and each pass goes on from
/// the least width that the last one was brought back to. No such recording is known for durations.
TEST_P(AmplitudeFit, AFitThatDoesNotConvergeTellsItsLimitAndKeepsItsTerms) {
  OpenHistogram(SlowRecording());
  PlaceSlowEstimates();
  EXPECT_NEAR(Table().Terms.at(0).StdDev, 0.42, 0.03);
  EXPECT_EQ(RunAutomaticFit(program_, Kind()), kLimit);
  const FitTable table = Table();
  ASSERT_EQ(table.Terms.size(), 1u);
  EXPECT_NEAR(table.Terms[0].Where, 3.025, 0.002);
  EXPECT_EQ(table.Terms[0].StdDev, 0.005);  // a tenth of a bin
  ExpectStillUsable();
}

INSTANTIATE_TEST_SUITE_P(Only, AmplitudeFit, ::testing::Values(&kAmplitudeTwin),
                         [](const auto& info) { return std::string(info.param->Name); });

// --- The whole road ------------------------------------------------------------------------------

class RoadToAFit : public FittingTest {};

/// From "&Open..." to a fit of a sample recording, with nothing but the mouse behind the menu.
TEST_P(RoadToAFit, ASampleIsFittedFromOpeningOnWithTheMouse) {
  const std::string samples = Environment("ONDREL_SAMPLES");
  if (samples.empty()) GTEST_SKIP() << "ONDREL_SAMPLES names no folder";
  program_.PassStart();
  program_.PlaceFrame({8, 8, GetSystemMetrics(SM_CXSCREEN) - 8, GetSystemMetrics(SM_CYSCREEN) - 8});
  program_.Open(NativePath(samples) + "\\one_channel_bursts.evt");
  program_.WaitForViews({"Level", "Event"});
  program_.ToForeground();
  const Rect client = program_.Frame().ClientArea();
  e2e::OpenHistogram(program_, Kind(), {0, 0, client.Width(), client.Height() * 6 / 10});
  program_.CommandDone(Kind().Autoscale);
  hand_.DoubleClick({100, 100});
  program_.WaitForTopView(Kind().Fit);
  PlaceView(program_, Kind().Fit,
            {client.Width() * 6 / 10, 0, client.Width(), client.Height() * 6 / 10});
  // 4 to 6.2 pA, and 25 us to 1.5 s.
  const Axis axis = IsAmplitude()
                        ? Axis{.Minimum = 4.0, .Ticks = 5, .BinsPerTick = 20, .PerTick = 0.5}
                        : Axis{.Minimum = -5.0, .Ticks = 5};
  const Plot plot = hand_.PlotNow(axis);
  const double first = axis.Minimum + 1.0;
  if (IsAmplitude()) {
    hand_.Drag(plot.OnAxis(first), Above(plot, 4.8, 0.8));
  } else {
    hand_.Drag(plot.OnAxis(first), Above(plot, -3.6, 0.4));
    for (const double where : {-2.6, -0.9}) {
      hand_.DoubleClick(plot.OnAxis(where));
      hand_.Drag(plot.OnAxis(where), Above(plot, where, 0.5));
    }
  }
  EXPECT_EQ(RunAutomaticFit(program_, Kind()), kConverged);
  const FitTable table = Table();
  if (IsAmplitude()) {
    ASSERT_EQ(table.Terms.size(), 1u);
    EXPECT_NEAR(table.Terms[0].Where, 5.0, 0.05);
    EXPECT_NEAR(table.Terms[0].StdDev, 0.28, 0.02);
  } else {
    ASSERT_EQ(table.Terms.size(), 3u);
    EXPECT_NEAR(table.Terms[0].Where, 0.27e-3, 0.06e-3);
    EXPECT_NEAR(table.Terms[1].Where, 2.1e-3, 0.4e-3);
    EXPECT_NEAR(table.Terms[2].Where, 0.15, 0.04);
  }
  Keep(HistogramPicture(), "sample_with_fit");
  Keep(FitPicture(), "sample_fit_parameters");
}

FOR_BOTH_HISTOGRAMS(RoadToAFit);

}  // namespace
}  // namespace ondrel::e2e
