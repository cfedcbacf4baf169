#include "views/fit_views.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fit/estimates.h"
#include "support/view_test.h"

namespace ondrel {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

class FitViewsTest : public ViewTest {
 protected:
  AmplitudeHistogram& amplitude() { return workspace().Amplitude; }
  DurationHistogram& duration() { return workspace().Duration; }

  /// Terms whose numbers name their places.
  void SetTerms(std::int32_t count) {
    amplitude().TermCount = count;
    duration().TermCount = count;
    for (std::int32_t i = 0; i < count; ++i) {
      const double number = i + 1;
      const auto place = static_cast<std::size_t>(i);
      amplitude().Terms[place] = {
          .Weight = 0.1 * number, .Current = 10 * number, .StdDev = number, .Area = 100 * number};
      duration().Terms[place] = {
          .Weight = 0.1 * number, .TimeConstant = 0.001 * number, .Area = 100 * number};
    }
  }

  /// Opens the view with a client area of 400 by 300 and forgets what that did.
  ChildWindow* OpenFit(ViewKind kind) {
    Open(kind);
    WindowOf(kind).Client = {0, 0, 400, 300};
    ForgetAll();
    return View(kind).Window;
  }

  /// What was drawn without the texts.
  static std::vector<std::string> Frame(const std::vector<std::string>& drawing) {
    std::vector<std::string> lines;
    for (const std::string& line : drawing) {
      if (!line.starts_with("text ")) lines.push_back(line);
    }
    return lines;
  }
  using ViewTest::Frame;
};

// --- Painting ------------------------------------------------------------------------------------

TEST_F(FitViewsTest, APaintDrawsOutOfSightAndShowsTheResultAtOnce) {
  OpenFit(ViewKind::AmplitudeFit);
  View(ViewKind::AmplitudeFit).Colors[0] = {7, 8, 9};
  EXPECT_THAT(Frame(Paint(ViewKind::AmplitudeFit)),
              ElementsAre("background 7 8 9", "pen width 1", "fill 0 0 400 300 with 7 8 9",
                          "clip 0 0 400 300", "image 600 0 0 376 79", "clip off", "clean up",
                          "show 0 0 400 300"));
  OpenFit(ViewKind::DurationFit);
  View(ViewKind::DurationFit).Colors[0] = {4, 5, 6};
  EXPECT_THAT(Frame(Paint(ViewKind::DurationFit)),
              ElementsAre("background 4 5 6", "pen width 1", "fill 0 0 400 300 with 4 5 6",
                          "clip 0 0 400 300", "image 601 0 0 355 67", "clip off", "clean up",
                          "show 0 0 400 300"));
}

TEST_F(FitViewsTest, APaintDrawsTheTableOfItsOwnModel) {
  SetTerms(1);
  OpenFit(ViewKind::AmplitudeFit);
  // A line is 15 high. The formula ends at 79; the columns at 42, 112, 189 and 273.
  EXPECT_THAT(TextsIn(Paint(ViewKind::AmplitudeFit)),
              ElementsAre(DrawnText{15, 86, "Events in histogram: 0"},
                          DrawnText{15, 101, "Log likelihood: 0.0000E+00"},
                          EndingAt(42, 123, "Term"), EndingAt(112, 123, "Current"),
                          EndingAt(189, 123, "Weight"), EndingAt(273, 123, "StdDev"),
                          EndingAt(42, 138, "1"), EndingAt(112, 138, "10.000pA"),
                          EndingAt(189, 138, "0.100"), EndingAt(273, 138, "1.000pA")));
  OpenFit(ViewKind::DurationFit);
  // Here the formula ends at 67, and the columns at 42, 98 and 203.
  EXPECT_THAT(TextsIn(Paint(ViewKind::DurationFit)),
              ElementsAre(DrawnText{15, 74, "Events in histogram: 0"},
                          DrawnText{15, 89, "Log likelihood: 0.0000E+00"},
                          EndingAt(42, 111, "Term"), EndingAt(98, 111, "Weight"),
                          EndingAt(203, 111, "TimeConstant"), EndingAt(42, 126, "1"),
                          EndingAt(98, 126, "0.100"), EndingAt(203, 126, "1.000E-03s")));
}

TEST_F(FitViewsTest, TheFontAndItsLeadingMoveLinesAndColumns) {
  workspace().FontSize = 20;  // 26 units high, 13 a letter
  shell().ExternalLeading = 3;
  OpenFit(ViewKind::AmplitudeFit);
  const std::vector<DrawnText> texts = TextsIn(Paint(ViewKind::AmplitudeFit));
  EXPECT_EQ(texts[0], (DrawnText{29, 79 + 14, "Events in histogram: 0"}));
  EXPECT_EQ(texts[1], (DrawnText{29, 79 + 14 + 29, "Log likelihood: 0.0000E+00"}));
  EXPECT_EQ(texts[2], (DrawnText{6 * 13 - 4 * 13, 79 + 14 + 29 + 43, "Term"}));
}

TEST_F(FitViewsTest, AnotherResolutionScalesTheFormula) {
  shell().DeviceDpi = 192.0;
  OpenFit(ViewKind::AmplitudeFit);
  EXPECT_THAT(LinesWith(Paint(ViewKind::AmplitudeFit), "image"),
              ElementsAre("image 610 0 0 752 158"));
}

TEST_F(FitViewsTest, AFormulaThatCannotBeLoadedIsToldInTheAmplitudeViewAlone) {
  shell().ImageError = -2;
  OpenFit(ViewKind::AmplitudeFit);
  EXPECT_THAT(TextsIn(Paint(ViewKind::AmplitudeFit)),
              ElementsAre(DrawnText{10, 15, "Fail in loading the resource bitmap! Error code -2"}));
  OpenFit(ViewKind::DurationFit);
  EXPECT_EQ(TextsIn(Paint(ViewKind::DurationFit)).front(),
            (DrawnText{15, 74, "Events in histogram: 0"}));
}

TEST_F(FitViewsTest, TenTermsAreCutOffByTheWindowAndDoNotScroll) {
  SetTerms(10);
  for (const ViewKind kind : {ViewKind::AmplitudeFit, ViewKind::DurationFit}) {
    ChildWindow* window = OpenFit(kind);
    EXPECT_FALSE(WindowOf(kind).Bars[0].Exists);
    EXPECT_FALSE(WindowOf(kind).Bars[1].Exists);
    WindowOf(kind).Client = {0, 0, 400, 160};
    const std::vector<std::string> drawing = Paint(kind);
    EXPECT_THAT(LinesWith(drawing, "clip 0"), ElementsAre("clip 0 0 400 160"));
    EXPECT_GT(TextsIn(drawing).back().Y, 160);
    window->Callbacks->ScrollLineDown(window, Axis::Vertical);
    EXPECT_EQ(Paint(kind), drawing);
  }
}

TEST_F(FitViewsTest, ATermThatAGestureJustAddedShowsNoWeight) {
  SetTerms(1);
  GraphFrame frame;
  frame.PlotRight = 100.0;
  amplitude().PixelsPerPa = 10.0;
  amplitude().Minimum = 2.0;
  AddTerm(amplitude(), frame, 35.0);
  duration().PixelsPerDecade = 10.0;
  duration().MinimumExponent = -4;
  AddTerm(duration(), frame, 20.0);
  OpenFit(ViewKind::AmplitudeFit);
  EXPECT_THAT(TextsIn(Paint(ViewKind::AmplitudeFit)), AllOf(Contains(EndingAt(112, 153, "5.500pA")),
                                                            Contains(EndingAt(189, 153, "0.000"))));
  OpenFit(ViewKind::DurationFit);
  EXPECT_THAT(
      TextsIn(Paint(ViewKind::DurationFit)),
      AllOf(Contains(EndingAt(98, 141, "0.000")), Contains(EndingAt(203, 141, "1.000E-02s"))));
}

TEST_F(FitViewsTest, ARedrawIsImmediateAndOnTheBackgroundOfTheView) {
  for (const ViewKind kind : {ViewKind::AmplitudeFit, ViewKind::DurationFit}) {
    OpenFit(kind);
    View(kind).Colors[0] = {7, 8, 9};
    const std::vector<std::string> painted = Paint(kind);
    ForgetAll();
    RedrawFitView(workspace(), kind);
    EXPECT_EQ(Drawn(), painted);
    EXPECT_THAT(Drawn(), Contains("fill 0 0 400 300 with 7 8 9"));
    EXPECT_THAT(WindowOf(kind).Invalidated, IsEmpty());
  }
}

TEST_F(FitViewsTest, ARedrawWhileAFitRunsIsOnWhiteWhateverTheBackground) {
  for (const ViewKind kind : {ViewKind::AmplitudeFit, ViewKind::DurationFit}) {
    OpenFit(kind);
    const std::vector<std::string> painted = Paint(kind);
    View(kind).Colors[0] = {7, 8, 9};
    ForgetAll();
    RedrawFitViewOnWhite(workspace(), kind);
    EXPECT_EQ(Drawn(), painted) << "which was on white";
    EXPECT_THAT(Drawn(), Contains("fill 0 0 400 300 with 65535 65535 65535"));
    EXPECT_THAT(WindowOf(kind).Invalidated, IsEmpty());
  }
}

TEST_F(FitViewsTest, ARedrawOfAClosedViewDoesNothing) {
  RedrawFitView(workspace(), ViewKind::AmplitudeFit);
  RedrawFitView(workspace(), ViewKind::DurationFit);
  RedrawFitViewOnWhite(workspace(), ViewKind::AmplitudeFit);
  RedrawFitViewOnWhite(workspace(), ViewKind::DurationFit);
  EXPECT_THAT(Drawn(), IsEmpty());
}

TEST_F(FitViewsTest, ARefreshRepaintsTheViewOnlyIfItIsMarked) {
  for (const ViewKind kind : {ViewKind::AmplitudeFit, ViewKind::DurationFit}) {
    OpenFit(kind);
    RefreshViews(workspace());
    EXPECT_THAT(WindowOf(kind).Invalidated, IsEmpty());
    View(kind).NeedsRebuild = true;
    RefreshViews(workspace());
    EXPECT_THAT(WindowOf(kind).Invalidated, ElementsAre(IntRect{0, 0, 400, 300}));
    EXPECT_FALSE(View(kind).NeedsRebuild);
  }
}

// --- Manual fit ----------------------------------------------------------------------------------

TEST_F(FitViewsTest, AManualFitOpensTheViewAndResetsTheFirstAmplitudeTermAlone) {
  SetTerms(3);
  amplitude().Minimum = -4.0;
  amplitude().PerTick = 2.5;
  ManualAmplitudeFit(Frame());
  EXPECT_THAT(scripted::StackOfChildren(), ElementsAre("Amplitude Fit Parameters"));
  const AmplitudeTerm& first = amplitude().Terms[0];
  EXPECT_EQ(first.Current, -3.0);
  EXPECT_EQ(first.Weight, 0.0);
  EXPECT_EQ(first.StdDev, 2.5);
  EXPECT_EQ(first.Area, 0.0);
  EXPECT_EQ(amplitude().TermCount, 3);
  EXPECT_EQ(amplitude().Terms[1].Current, 20.0);
  EXPECT_EQ(amplitude().Terms[2].Area, 300.0);
  EXPECT_EQ(duration().Terms[0].TimeConstant, 0.001);
  EXPECT_EQ(duration().Terms[0].Area, 100.0);
}

TEST_F(FitViewsTest, AManualFitOpensTheViewAndResetsTheFirstDurationTermAlone) {
  SetTerms(3);
  duration().MinimumExponent = -4;
  ManualDurationFit(Frame());
  EXPECT_THAT(scripted::StackOfChildren(), ElementsAre("Duration Fit Parameters"));
  const DurationTerm& first = duration().Terms[0];
  EXPECT_DOUBLE_EQ(first.TimeConstant, 1e-3);
  EXPECT_EQ(first.Weight, 0.0);
  EXPECT_EQ(first.Area, 0.0);
  EXPECT_EQ(duration().TermCount, 3);
  EXPECT_EQ(duration().Terms[1].TimeConstant, 0.002);
  EXPECT_EQ(duration().Terms[2].Area, 300.0);
  EXPECT_EQ(amplitude().Terms[0].Current, 10.0);
  EXPECT_EQ(amplitude().Terms[0].Area, 100.0);
}

TEST_F(FitViewsTest, AManualFitPaintsTheViewAndThenTheHistogram) {
  struct Twin {
    ViewKind Fit;
    ViewKind Histogram;
    void (*Open)(FrameWindow*);
  };
  for (const Twin& twin : {Twin{ViewKind::AmplitudeFit, ViewKind::Amplitude, ManualAmplitudeFit},
                           Twin{ViewKind::DurationFit, ViewKind::Duration, ManualDurationFit}}) {
    for (const ViewKind kind : {ViewKind::Amplitude, ViewKind::Duration}) {
      DestroyView(workspace(), kind);
      OpenInert(kind);
    }
    View(twin.Fit).Colors[0] = {7, 8, 9};
    View(twin.Histogram).Colors[FactsOf(twin.Histogram).Background] = {1, 2, 3};
    twin.Open(Frame());
    const std::vector<std::string> backgrounds = LinesWith(Drawn(), "background ");
    ASSERT_FALSE(backgrounds.empty());
    EXPECT_EQ(backgrounds.front(), "background 7 8 9");
    EXPECT_EQ(backgrounds.back(), "background 1 2 3");
    EXPECT_FALSE(WindowOf(twin.Fit).Invalidated.empty());
    EXPECT_EQ(WindowOf(twin.Histogram).Invalidated.size(), std::size_t{1});
    const ViewKind other =
        twin.Histogram == ViewKind::Amplitude ? ViewKind::Duration : ViewKind::Amplitude;
    EXPECT_THAT(WindowOf(other).Invalidated, IsEmpty());
  }
}

TEST_F(FitViewsTest, TheFirstPaintShowsTheTermThatWasReset) {
  SetTerms(1);
  ManualAmplitudeFit(Frame());
  ASSERT_TRUE(scripted::PaintInvalidChild(View(ViewKind::AmplitudeFit).Window));
  EXPECT_THAT(TextsIn(Drawn()), Contains(EndingAt(189, 138, "0.000")));
}

TEST_F(FitViewsTest, AManualFitBringsAnOpenViewToTheFrontAndThatIsAll) {
  Open(ViewKind::AmplitudeFit);
  Open(ViewKind::DurationFit);
  OpenInert(ViewKind::Amplitude);
  OpenInert(ViewKind::Duration);
  SetTerms(2);
  ForgetAll();
  ManualAmplitudeFit(Frame());
  ManualDurationFit(Frame());
  EXPECT_THAT(LinesWith(Happened(), "forward "),
              ElementsAre("forward Amplitude Fit Parameters", "forward Duration Fit Parameters"));
  EXPECT_THAT(Drawn(), IsEmpty());
  EXPECT_EQ(amplitude().Terms[0].Current, 10.0);
  EXPECT_EQ(duration().Terms[0].TimeConstant, 0.001);
}

TEST_F(FitViewsTest, WithoutAWindowTheFailureIsToldAndNothingIsReset) {
  SetTerms(2);
  OpenInert(ViewKind::Amplitude);
  OpenInert(ViewKind::Duration);
  shell().CreateChild = {.Next = 1, .Lasting = true};
  ManualAmplitudeFit(Frame());
  ManualDurationFit(Frame());
  EXPECT_THAT(Messages(),
              ElementsAre("Insufficient memory for creating <Amplitude Fit Parameters> window. You "
                          "can increase the amount of memory by quiting some other programs.",
                          "Insufficient memory for creating <Duration Fit Parameters> window. You "
                          "can increase the amount of memory by quiting some other programs."));
  EXPECT_EQ(amplitude().Terms[0].Current, 10.0);
  EXPECT_EQ(duration().Terms[0].TimeConstant, 0.001);
  EXPECT_THAT(Drawn(), IsEmpty());
  EXPECT_THAT(Happened(), Not(Contains("fit entries")));
}

// --- Opening and closing -------------------------------------------------------------------------

TEST_F(FitViewsTest, OpeningAViewRefreshesAutomaticFitWhenItsWindowExists) {
  static bool wasOpen;
  workspace().Menus.RefreshFitEntries = [](FrameWindow* frame) {
    scripted::TheShell().Windows.push_back("fit entries");
    wasOpen = ViewOf(*frame->Owner, ViewKind::AmplitudeFit).Window != nullptr;
  };
  wasOpen = false;
  OpenView(Frame(), ViewKind::AmplitudeFit);
  EXPECT_EQ(LinesWith(Happened(), "fit entries").size(), std::size_t{1});
  EXPECT_TRUE(wasOpen);
  DestroyView(workspace(), ViewKind::AmplitudeFit);
  EXPECT_EQ(LinesWith(Happened(), "fit entries").size(), std::size_t{2});
  EXPECT_FALSE(wasOpen) << "the window is gone when the entries are greyed";
}

TEST_F(FitViewsTest, TheDurationViewRefreshesAutomaticFitToo) {
  OpenView(Frame(), ViewKind::DurationFit);
  EXPECT_EQ(LinesWith(Happened(), "fit entries").size(), std::size_t{1});
  DestroyView(workspace(), ViewKind::DurationFit);
  EXPECT_EQ(LinesWith(Happened(), "fit entries").size(), std::size_t{2});
}

TEST_F(FitViewsTest, ClosingTheAmplitudeViewLeavesItsFirstTermAsItIs) {
  ChildWindow* window = OpenFit(ViewKind::AmplitudeFit);
  SetTerms(3);
  amplitude().MarkerCount = 3;
  duration().MarkerCount = 3;
  window->Callbacks->Close(window);
  EXPECT_EQ(View(ViewKind::AmplitudeFit).Window, nullptr);
  EXPECT_EQ(amplitude().TermCount, 1);
  EXPECT_EQ(amplitude().MarkerCount, 0) << "no marker stands any more";
  EXPECT_EQ(amplitude().Terms[0].Weight, 0.1);
  EXPECT_EQ(amplitude().Terms[0].Current, 10.0);
  EXPECT_EQ(amplitude().Terms[0].StdDev, 1.0);
  EXPECT_EQ(amplitude().Terms[0].Area, 100.0);
  EXPECT_EQ(duration().TermCount, 3);
  EXPECT_EQ(duration().MarkerCount, 3);
}

TEST_F(FitViewsTest, ClosingTheDurationViewLeavesItsFirstTermAsItIs) {
  ChildWindow* window = OpenFit(ViewKind::DurationFit);
  SetTerms(3);
  amplitude().MarkerCount = 3;
  duration().MarkerCount = 3;
  window->Callbacks->Close(window);
  EXPECT_EQ(View(ViewKind::DurationFit).Window, nullptr);
  EXPECT_EQ(duration().TermCount, 1);
  EXPECT_EQ(duration().MarkerCount, 0) << "no marker stands any more";
  EXPECT_EQ(duration().Terms[0].Weight, 0.1);
  EXPECT_EQ(duration().Terms[0].TimeConstant, 0.001);
  EXPECT_EQ(duration().Terms[0].Area, 100.0);
  EXPECT_EQ(amplitude().TermCount, 3);
  EXPECT_EQ(amplitude().MarkerCount, 3);
}

TEST_F(FitViewsTest, ClosingEndsTheGestureOnItsOwnHistogramAlone) {
  OpenFit(ViewKind::AmplitudeFit);
  OpenFit(ViewKind::DurationFit);
  const auto handler = [](ChildWindow*, int, int) {};
  for (const ViewKind kind : {ViewKind::Amplitude, ViewKind::Duration}) {
    View(kind).Gesture.OnMove = handler;
    View(kind).Gesture.OnRelease = handler;
  }
  DestroyView(workspace(), ViewKind::AmplitudeFit);
  EXPECT_EQ(View(ViewKind::Amplitude).Gesture.OnMove, nullptr);
  EXPECT_EQ(View(ViewKind::Amplitude).Gesture.OnRelease, nullptr);
  EXPECT_NE(View(ViewKind::Duration).Gesture.OnMove, nullptr);
  EXPECT_NE(View(ViewKind::Duration).Gesture.OnRelease, nullptr);
  DestroyView(workspace(), ViewKind::DurationFit);
  EXPECT_EQ(View(ViewKind::Duration).Gesture.OnMove, nullptr);
  EXPECT_EQ(View(ViewKind::Duration).Gesture.OnRelease, nullptr);
}

TEST_F(FitViewsTest, ClosingRepaintsTheHistogramThatLosesItsCurves) {
  OpenInert(ViewKind::Amplitude);
  OpenInert(ViewKind::Duration);
  OpenFit(ViewKind::AmplitudeFit);
  OpenFit(ViewKind::DurationFit);
  ForgetAll();
  DestroyView(workspace(), ViewKind::AmplitudeFit);
  EXPECT_EQ(WindowOf(ViewKind::Amplitude).Invalidated.size(), std::size_t{1});
  EXPECT_THAT(WindowOf(ViewKind::Duration).Invalidated, IsEmpty());
  DestroyView(workspace(), ViewKind::DurationFit);
  EXPECT_EQ(WindowOf(ViewKind::Amplitude).Invalidated.size(), std::size_t{1});
  EXPECT_EQ(WindowOf(ViewKind::Duration).Invalidated.size(), std::size_t{1});
}

}  // namespace
}  // namespace ondrel
