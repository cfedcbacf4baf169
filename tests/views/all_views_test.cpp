#include "views/all_views.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "output/screen_sink.h"
#include "support/view_test.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class AllViewsTest : public ViewTest {
 protected:
  /// Opens a window for each kind, whose background tells which it is.
  void OpenAll() {
    for (const ViewKind kind : AllKinds()) {
      OpenInert(kind);
      View(kind).Colors[FactsOf(kind).Background] = MarkOf(kind);
    }
    ForgetAll();
  }

  static RgbColor MarkOf(ViewKind kind) { return {static_cast<std::int32_t>(kind) + 1, 0, 0}; }

  /// The kinds whose windows were filled, in that order.
  std::vector<std::string> Repainted() {
    std::vector<std::string> titles;
    for (const std::string& line : LinesWith(Drawn(), "background ")) {
      for (const ViewKind kind : AllKinds()) {
        if (line == "background " + std::to_string(MarkOf(kind).Red) + " 0 0") {
          titles.push_back(FactsOf(kind).Title);
        }
      }
    }
    return titles;
  }
};

// --- Reset ---------------------------------------------------------------------------------------

TEST_F(AllViewsTest, AResetGivesEveryViewItsDefaultColours) {
  for (const ViewKind kind : AllKinds()) View(kind).Colors.fill({9, 9, 9});
  ResetViews(workspace());
  for (const ViewKind kind : AllKinds()) {
    const auto& colors = FactsOf(kind).Colors;
    for (std::size_t i = 0; i < colors.size(); ++i) {
      EXPECT_EQ(View(kind).Colors[i], colors[i].Default) << FactsOf(kind).Title << ", colour " << i;
    }
  }
}

TEST_F(AllViewsTest, TheDefaultColoursAreReachedByTheirNames) {
  const ViewState& event = View(ViewKind::Event);
  EXPECT_EQ(ColorOf(event, EventColor::Events), kBlack);
  EXPECT_EQ(ColorOf(event, EventColor::Background), kWhite);
  EXPECT_EQ(ColorOf(event, EventColor::Header), (RgbColor{0, 0, 65535}));
  const ViewState& level = View(ViewKind::Level);
  EXPECT_EQ(ColorOf(level, LevelColor::Selected), kBlack);
  EXPECT_EQ(ColorOf(level, LevelColor::Header), kBlue);
  EXPECT_EQ(ColorOf(level, LevelColor::Other), (RgbColor{49152, 49152, 49152}));
  EXPECT_EQ(ColorOf(level, LevelColor::Background), kWhite);
  const ViewState& sweep = View(ViewKind::Sweep);
  EXPECT_EQ(ColorOf(sweep, SweepColor::Selected), kBlack);
  EXPECT_EQ(ColorOf(sweep, SweepColor::Other), kGrey);
  EXPECT_EQ(ColorOf(sweep, SweepColor::Background), kWhite);
  EXPECT_EQ(ColorOf(sweep, SweepColor::Header), kBlue);
  const ViewState& statistics = View(ViewKind::Statistics);
  EXPECT_EQ(ColorOf(statistics, StatisticsColor::Header), kBlue);
  EXPECT_EQ(ColorOf(statistics, StatisticsColor::Others), kBlack);
  EXPECT_EQ(ColorOf(statistics, StatisticsColor::Background), kWhite);
  for (const ViewKind kind : {ViewKind::AmplitudeFit, ViewKind::DurationFit}) {
    EXPECT_EQ(ColorOf(View(kind), FitColor::Background), kWhite);
  }
  for (const ViewKind kind : {ViewKind::Amplitude, ViewKind::Duration}) {
    EXPECT_EQ(ColorOf(View(kind), HistogramColor::Histogram), (RgbColor{65535, 0, 0}));
    EXPECT_EQ(ColorOf(View(kind), HistogramColor::Fit), kBlue);
    EXPECT_EQ(ColorOf(View(kind), HistogramColor::Labels), kBlack);
    EXPECT_EQ(ColorOf(View(kind), HistogramColor::Axes), kBlack);
    EXPECT_EQ(ColorOf(View(kind), HistogramColor::Background), kWhite);
  }
  for (const ViewKind kind : {ViewKind::Scatter, ViewKind::AmplitudeScatter,
                              ViewKind::DurationScatter, ViewKind::Stationarity}) {
    EXPECT_EQ(ColorOf(View(kind), PlotColor::Plot), kRed);
    EXPECT_EQ(ColorOf(View(kind), PlotColor::Labels), kBlack);
    EXPECT_EQ(ColorOf(View(kind), PlotColor::Axes), kBlack);
    EXPECT_EQ(ColorOf(View(kind), PlotColor::Background), kWhite);
  }
}

TEST_F(AllViewsTest, AResetForgetsPlacesAndScrollStates) {
  for (const ViewKind kind : AllKinds()) {
    ViewState& view = View(kind);
    view.ViewRect = {1, 2, 3, 4};
    view.NeedsRebuild = true;
    view.Placement = WindowPlacement::Maximized;
    view.TopRow = 7;
    view.VisibleRows = 8;
    view.Stepped = true;
  }
  ResetViews(workspace());
  for (const ViewKind kind : AllKinds()) {
    const ViewState& view = View(kind);
    EXPECT_EQ(view.ViewRect, IntRect{});
    EXPECT_FALSE(view.NeedsRebuild);
    EXPECT_EQ(view.Placement, WindowPlacement::Normal);
    EXPECT_EQ(view.TopRow, 0);
    EXPECT_EQ(view.VisibleRows, 0);
    EXPECT_FALSE(view.Stepped);
  }
}

TEST_F(AllViewsTest, AResetLeavesWindowsAlone) {
  ChildWindow* window = Open(ViewKind::Event);
  ResetViews(workspace());
  EXPECT_EQ(View(ViewKind::Event).Window, window);
  EXPECT_EQ(View(ViewKind::Level).Window, nullptr);
  EXPECT_THAT(Happened(), IsEmpty());
}

TEST_F(AllViewsTest, AResetTakesTheWindowMetricsOfThePlatform) {
  workspace().CascadeOffset = 500;
  workspace().CascadeStep = 1;
  workspace().ScreenDpi = 0.0;
  ResetViews(workspace());
  EXPECT_EQ(workspace().CascadeOffset, toolkit::MinimumWindowHeight());
  EXPECT_EQ(workspace().CascadeStep, toolkit::MinimumWindowHeight());
  EXPECT_EQ(workspace().ScreenDpi, 96.0);
}

TEST_F(AllViewsTest, AResetFillsTheScreensDrawingTable) {
  workspace().ScreenSink = {};
  ResetViews(workspace());
  EXPECT_EQ(workspace().ScreenSink.DrawText, kScreenSink.DrawText);
  EXPECT_EQ(workspace().ScreenSink.GetPixelSnap, kScreenSink.GetPixelSnap);
}

// --- Refresh -------------------------------------------------------------------------------------

TEST_F(AllViewsTest, ARefreshRepaintsTheMarkedViewsInItsFixedOrder) {
  OpenAll();
  for (const ViewKind kind : AllKinds()) View(kind).NeedsRebuild = true;
  RefreshViews(workspace());
  EXPECT_THAT(Repainted(),
              ElementsAre("Event", "Level", "Amplitude Histogram", "Duration Histogram",
                          "Amplitude Scatter Plot", "Duration Scatter Plot", "Amplitude/Duration",
                          "Stationarity", "Statistics", "Amplitude Fit Parameters",
                          "Duration Fit Parameters", "Sweep"));
}

TEST_F(AllViewsTest, ARefreshRepaintsNoViewThatIsNotMarked) {
  OpenAll();
  View(ViewKind::Sweep).NeedsRebuild = true;
  View(ViewKind::Duration).NeedsRebuild = true;
  RefreshViews(workspace());
  EXPECT_THAT(Repainted(), ElementsAre("Duration Histogram", "Sweep"));
}

TEST_F(AllViewsTest, AfterARefreshNoViewIsMarkedWhetherOpenOrClosed) {
  Open(ViewKind::Event);
  for (const ViewKind kind : AllKinds()) View(kind).NeedsRebuild = true;
  RefreshViews(workspace());
  for (const ViewKind kind : AllKinds()) {
    EXPECT_FALSE(View(kind).NeedsRebuild) << FactsOf(kind).Title;
  }
}

TEST_F(AllViewsTest, ARefreshOpensNothing) {
  for (const ViewKind kind : AllKinds()) View(kind).NeedsRebuild = true;
  RefreshViews(workspace());
  EXPECT_THAT(scripted::StackOfChildren(), IsEmpty());
  EXPECT_THAT(Drawn(), IsEmpty());
}

// --- Close ---------------------------------------------------------------------------------------

TEST_F(AllViewsTest, AllViewsCloseInTheirFixedOrder) {
  OpenAll();
  CloseViews(workspace());
  EXPECT_THAT(LinesWith(Happened(), "destroy "),
              ElementsAre("destroy Amplitude Histogram", "destroy Duration Histogram",
                          "destroy Event", "destroy Level", "destroy Amplitude Fit Parameters",
                          "destroy Duration Fit Parameters", "destroy Amplitude Scatter Plot",
                          "destroy Duration Scatter Plot", "destroy Amplitude/Duration",
                          "destroy Stationarity", "destroy Statistics", "destroy Sweep"));
  EXPECT_THAT(scripted::StackOfChildren(), IsEmpty());
  for (const ViewKind kind : AllKinds()) EXPECT_EQ(View(kind).Window, nullptr);
}

TEST_F(AllViewsTest, ClosingAllKeepsTheirPlacesAndColours) {
  ChildWindow* window = Open(ViewKind::Event);
  scripted::PlaceChild(window, {5, 6, 205, 106});
  View(ViewKind::Event).Colors[0] = kGrey;
  CloseViews(workspace());
  EXPECT_EQ(View(ViewKind::Event).ViewRect, (IntRect{5, 6, 205, 106}));
  EXPECT_EQ(View(ViewKind::Event).Colors[0], kGrey);
}

TEST_F(AllViewsTest, ClosingWithNoViewOpenDoesNothing) {
  CloseViews(workspace());
  EXPECT_THAT(Happened(), IsEmpty());
}

}  // namespace
}  // namespace ondrel
