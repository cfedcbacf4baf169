// The scatter plots and the stationarity plot: dots, curve, axes and texts where they belong, in
// the colours that were chosen, at every size of the window, and as windows among others.
#include <gmock/gmock.h>

#include "fitting_gestures.h"
#include "plot_fixture.h"

namespace ondrel::e2e {
namespace {

/// Sweeps of which no scatter plot shows a level.
std::vector<RecordedSweep> SweepsOutOfRange() {
  return {{.Relevant = 100.0, .Openings = {{20.0, 0.003, 0.002}, {20.0, 0.003, 1.0}}}};
}

class ScatterPlots : public EveryPlot {};

TEST_P(ScatterPlots, EachSelectedLevelInTheFrameIsARedDotAtItsPlace) {
  Open(MixedSweeps());
  Show(Kind());
  const Picture view = PictureOf(Kind());
  Keep(Kind(), view, "plot");
  // Each plot leaves some of the 24 levels out.
  const std::size_t dots = DotsOf(Kind(), FrameOf(Kind(), view), MixedSweeps()).size();
  EXPECT_GT(dots, 8u);
  EXPECT_LT(dots, 24u);
  EXPECT_TRUE(ShowsData(Kind(), view, MixedSweeps()));
}

TEST_P(ScatterPlots, AxesHaveTheirTicksNumbersAndTitles) {
  Open(MixedSweeps());
  Show(Kind());
  const Picture view = PictureOf(Kind());
  const PlotMarks marks = ScatterMarks(Kind(), FrameOf(Kind(), view));
  EXPECT_TRUE(ShowsAxisLines(Kind(), view));
  EXPECT_TRUE(ShowsTicks(Kind(), view, marks));
  EXPECT_TRUE(ShowsNumbers(Kind(), view, reader_, marks));
  EXPECT_TRUE(ShowsTitles(Kind(), view, reader_));
}

/// A small tick of the decade would stand beyond the axis before its number is written.
TEST_P(ScatterPlots, TheLastDecadeHasATickAndNoNumber) {
  Open(MixedSweeps());
  Show(Kind());
  const Picture view = PictureOf(Kind());
  const PlotFrame frame = FrameOf(Kind(), view);
  const PlotMarks marks = ScatterMarks(Kind(), frame);
  const int right = static_cast<int>(frame.Left + marks.Across.Major.back());
  const int top = static_cast<int>(frame.Bottom - marks.Up.Major.back());
  const Picture under =
      view.Cut({right - 1, static_cast<int>(frame.Bottom + frame.Width / 48.0) + 1, view.Width,
                static_cast<int>(frame.Bottom + frame.Width / 15.0)});
  const Picture beside =
      view.Cut({0, top - 15, static_cast<int>(frame.Left - frame.Width / 35.0), top + 3});
  EXPECT_EQ(under.Count(kBlack) == 0, &Kind() == &kAmplitudeDurationPlot);
  EXPECT_EQ(beside.Count(kBlack) == 0, &Kind() == &kDurationScatterPlot);
}

TEST_P(ScatterPlots, WithoutALevelInRangeThereAreAxesOnly) {
  Open(SweepsOutOfRange());
  Show(Kind());
  const Picture view = PictureOf(Kind());
  const PlotMarks marks = ScatterMarks(Kind(), FrameOf(Kind(), view));
  EXPECT_EQ(view.Count(kRed), 0);
  EXPECT_TRUE(ShowsAxisLines(Kind(), view));
  EXPECT_TRUE(ShowsNumbers(Kind(), view, reader_, marks));
  EXPECT_TRUE(ShowsTitles(Kind(), view, reader_));
}

TEST_P(ScatterPlots, TheMouseDoesNothing) {
  Open(MixedSweeps());
  Show(Kind());
  const Picture before = PictureOf(Kind());
  const Rect client = ViewOf(Kind()).ClientArea();
  const Rect dot = DotsOf(Kind(), FrameOf(Kind(), before), MixedSweeps()).front();
  const Point place{client.Left + dot.Left, client.Top + dot.Top};
  program_.DoubleClickAt(place);
  program_.Drag(place, {place.X + 60, place.Y + 40});
  EXPECT_TRUE(program_.Dialogs().empty());
  EXPECT_EQ(PictureOf(Kind()), before);
}

class PlotViews : public EveryPlot {};

TEST_P(PlotViews, TheViewMenuOpensAViewOnce) {
  Open(MixedSweeps());
  program_.Command(Kind().View);
  program_.WaitForViews({Kind().Title, "Level", "Event"});
  const Window first = ViewOf(Kind());
  const Rect place = first.PlaceInParent();
  program_.Command(command::kViewLevel);
  program_.WaitForTopView("Level");
  program_.Command(Kind().View);
  program_.WaitForViews({Kind().Title, "Level", "Event"});
  EXPECT_EQ(ViewOf(Kind()), first);
  EXPECT_EQ(first.PlaceInParent(), place);
}

TEST_P(PlotViews, AClosedViewOpensAgainAtItsPlace) {
  Open(MixedSweeps());
  Show(Kind());
  const Rect place{60, 40, 560, 440};
  PlaceView(program_, Kind().Title, place);
  program_.Settle(ViewOf(Kind()));
  program_.Key(VK_F4, {VK_CONTROL});
  program_.WaitForNoView(Kind().Title);
  program_.Command(Kind().View);
  program_.WaitForTopView(Kind().Title);
  EXPECT_EQ(ViewOf(Kind()).PlaceInParent(), place);
  EXPECT_TRUE(ShowsData(Kind(), PictureOf(Kind()), MixedSweeps()));
}

TEST_P(PlotViews, ResetDrawsAnew) {
  Open(MixedSweeps());
  Show(Kind());
  const Picture before = PictureOf(Kind());
  program_.Smear(ViewOf(Kind()));
  program_.Command(Kind().View);  // of an open view, and so no reason to draw
  ASSERT_TRUE(Program::IsSmeared(PictureOf(Kind())));
  program_.CommandDone(command::kReset);
  EXPECT_EQ(PictureOf(Kind()), before);
}

TEST_P(PlotViews, AFileThatIsAddedJoinsThePicture) {
  std::vector<RecordedSweep> added{
      {.Relevant = 21.7, .Openings = {{2.9, 0.0019, 0.00037}, {1.3, 0.0053, 0.9}}}};
  Open(MixedSweeps());
  Show(Kind());
  const Picture before = PictureOf(Kind());
  program_.Command(command::kAdd);
  ChooseFile(program_.WaitForDialog("Data file:"), File("added.evt", VersionFiveOfSweeps(added)));
  program_.ToForeground();
  std::vector<RecordedSweep> all = MixedSweeps();
  all.insert(all.end(), added.begin(), added.end());
  (void)program_.WaitForPicture(ViewOf(Kind()), "more than before",
                                [&](const Picture& now) { return now != before; });
  EXPECT_TRUE(ShowsData(Kind(), PictureOf(Kind()), all));
}

TEST_P(PlotViews, EachColourEntryChangesItsPart) {
  Open(MixedSweeps());
  Show(Kind());
  constexpr std::uint32_t kColors[] = {0x008000, 0xC800C8, 0x804000, 0xFFFFC8};
  constexpr std::uint32_t kBefore[] = {kRed, kBlack, kBlack, kWhite};
  constexpr const char* kParts[] = {"plot", "labels", "axes", "background"};
  for (int part = 0; part < 4; ++part) {
    SCOPED_TRACE(kParts[part]);
    const Picture before = PictureOf(Kind());
    EXPECT_EQ(before.Count(kColors[part]), 0);
    ChooseColor(program_, Kind().FirstColor + part, std::string("Color of ") + kParts[part] + ":",
                kColors[part]);
    const Picture after = PictureOf(Kind());
    // As many pixels as before, in another colour.
    EXPECT_GT(after.Count(kColors[part]), 20);
    EXPECT_EQ(before.Count(kBefore[part]), after.Count(kBefore[part]) + after.Count(kColors[part]));
    EXPECT_EQ(after.Count(kBefore[part]) == 0, part != 1);
  }
  const Picture view = PictureOf(Kind());
  Keep(Kind(), view, "plot_in_other_colours");
  EXPECT_TRUE(reader_.Shows(view, Kind().UpTitle, kColors[1]));
  EXPECT_TRUE(reader_.Shows(view, Kind().AcrossTitle, kColors[1]));
}

TEST_P(PlotViews, TheOtherPlotsKeepTheirColours) {
  Open(MixedSweeps());
  Show(Kind());
  ChooseColor(program_, Kind().FirstColor, "Color of plot:", 0x008000);
  ChooseColor(program_, Kind().FirstColor + 3, "Color of background:", 0xFFFFC8);
  for (const PlotKind* other : kEveryPlot) {
    if (other == &Kind()) continue;
    SCOPED_TRACE(other->Name);
    Show(*other);
    const Picture view = PictureOf(*other);
    EXPECT_EQ(view.Count(0x008000) + view.Count(0xFFFFC8), 0);
    EXPECT_TRUE(ShowsData(*other, view, MixedSweeps()));
  }
}

TEST_P(PlotViews, APlotIsDrawnAnewAtEachSizeOfItsWindow) {
  Open(MixedSweeps());
  Show(Kind());
  for (const Rect& place :
       {Rect{0, 0, 481, 377}, Rect{30, 20, 1139, 507}, Rect{30, 20, 433, 839}}) {
    PlaceView(program_, Kind().Title, place);
    EXPECT_TRUE(ShowsData(Kind(), PictureOf(Kind()), MixedSweeps())) << ToText(place);
  }
}

TEST_P(PlotViews, AMaximisedPlotFillsTheFrameAndComesBack) {
  Open(MixedSweeps());
  Show(Kind());
  const Picture before = PictureOf(Kind());
  const Window view = ViewOf(Kind());
  program_.ClickAt(view.PartOnScreen(HTMAXBUTTON));
  WaitFor("the plot to be maximised", [&] { return view.Maximized(); });
  const Picture large = PictureOf(Kind());
  Keep(Kind(), large, "plot_maximised");
  EXPECT_GT(large.Width, 2 * before.Width);
  EXPECT_TRUE(ShowsData(Kind(), large, MixedSweeps()));
  view.Post(WM_SYSCOMMAND, SC_RESTORE);
  WaitFor("the plot to come back", [&] { return !view.Maximized(); });
  (void)program_.WaitForPicture(view, "what it showed before",
                                [&](const Picture& now) { return now == before; });
}

TEST_P(PlotViews, APlotIsPaintedAgainWhereAnotherViewLayOnIt) {
  Open(MixedSweeps());
  Show(Kind());
  const Picture before = PictureOf(Kind());
  // Whichever comes forward when the other closes must not cover what is looked at.
  PlaceView(program_, "Event", {700, 10, 1100, 300});
  PlaceView(program_, "Level", {150, 120, 500, 500});
  program_.Command(command::kViewLevel);
  program_.WaitForTopView("Level");
  ASSERT_NE(PictureOf(Kind()), before);
  program_.Key(VK_F4, {VK_CONTROL});
  program_.WaitForNoView("Level");
  (void)program_.WaitForPicture(ViewOf(Kind()), "what it showed before",
                                [&](const Picture& now) { return now == before; });
}

TEST_P(PlotViews, TinyViewsAreDrawnAndComeBack) {
  Open(MixedSweeps());
  Show(Kind());
  const Picture before = PictureOf(Kind());
  for (const int size : {200, 130, 40, 1}) {
    ViewOf(Kind()).MoveTo({0, 0, size, size});
    program_.Settle(ViewOf(Kind()));
    ASSERT_TRUE(program_.Running()) << size;
  }
  Show(Kind());
  EXPECT_EQ(PictureOf(Kind()), before);
}

TEST_F(PlotTest, ClosingTheDataClosesThePlots) {
  Open(MixedSweeps());
  for (const PlotKind* kind : kEveryPlot) Show(*kind);
  EXPECT_EQ(program_.ViewTitles().size(), 6u);
  program_.Command(command::kClose);
  program_.WaitForViews({});
  ExpectNoData(program_);
  // With other data a plot shows these.
  OpenTable(program_, VersionFiveOfSweeps(SteadySweeps()));
  Show(kStationarityPlot);
  EXPECT_TRUE(ShowsData(kStationarityPlot, PictureOf(kStationarityPlot), SteadySweeps()));
}

std::string NameOf(const ::testing::TestParamInfo<const PlotKind*>& info) {
  return info.param->Name;
}

INSTANTIATE_TEST_SUITE_P(Each, ScatterPlots,
                         ::testing::Values(&kAmplitudeScatterPlot, &kDurationScatterPlot,
                                           &kAmplitudeDurationPlot),
                         NameOf);
INSTANTIATE_TEST_SUITE_P(Each, PlotViews, ::testing::ValuesIn(kEveryPlot), NameOf);

}  // namespace
}  // namespace ondrel::e2e
