// The two histograms as pictures: bars, axes, labels, what an empty one shows, autoscale, colours,
// and painting again after all that can happen to a window.
#include <gmock/gmock.h>

#include "fitting_fixture.h"
#include "text_reader.h"

namespace ondrel::e2e {
namespace {

class HistogramViews : public FittingTest {
 protected:
  /// The axis line at the left edge and the one on the line of count zero.
  static void ExpectAxes(const Picture& view, const Plot& plot) {
    const int left = static_cast<int>(plot.Left);
    const int right = static_cast<int>(plot.Right);
    const int top = static_cast<int>(plot.Top);
    const int bottom = plot.BottomPixel();
    const Picture upright = view.Cut({left, top, left + 1, bottom});
    EXPECT_EQ(upright.Count(kBlack), upright.Height);
    // One twin draws it on the line of zero and the other a pixel below; handles may stand on it.
    const auto isAxis = [&](int y) {
      const Picture line = view.Cut({left, y, right, y + 1});
      return line.Count(kWhite) == 0 && line.Count(kBlack) > line.Width * 8 / 10;
    };
    EXPECT_TRUE(isAxis(bottom) || isAxis(bottom + 1));
  }

  /// The colour dialog of entry `place` of "&Colors"; 0 is that of the bars.
  void ChooseColor(int place, const std::string& title, std::uint32_t color) const {
    e2e::ChooseColor(program_, Kind().FirstColor + place, title, color);
  }

  void Minimize(Window view) const {
    view.Post(WM_SYSCOMMAND, SC_MINIMIZE);
    WaitFor("the view to be minimised", [&] { return view.Minimized(); });
  }
  void Restore(Window view) const {
    view.Post(WM_SYSCOMMAND, SC_RESTORE);
    WaitFor("the view to come back", [&] { return !view.Minimized() && !view.Maximized(); });
  }

  TextReader reader_;
};

TEST_P(HistogramViews, BarsAreRedBetweenBlackAxesWithLabels) {
  OpenHistogram(RecordingOf({}));
  const Picture view = HistogramPicture();
  const Plot plot = hand_.PlotNow();
  ExpectAxes(view, plot);
  // The tallest bar stands near 3 pA and near 1 ms; nothing lies at 1 pA and at 1 us.
  const double tallest = IsAmplitude() ? 3.0 : -3.0;
  const Point inside = Above(plot, tallest, 0.2);
  EXPECT_GT(view.Cut({inside.X - 6, inside.Y, inside.X + 6, inside.Y + 1}).Count(kRed), 0);
  const int beyond = plot.XOf(IsAmplitude() ? 1.0 : -4.8);
  EXPECT_EQ(view.Cut({static_cast<int>(plot.Left), 0, beyond, view.Height}).Count(kRed), 0);
  EXPECT_EQ(view.Cut({0, plot.BottomPixel() + 2, view.Width, view.Height}).Count(kRed), 0);
  EXPECT_EQ(view.Count(kBlue), 0);
  EXPECT_TRUE(reader_.Shows(view, "Counts"));
  EXPECT_TRUE(reader_.Shows(view, Kind().AxisTitle));
  EXPECT_TRUE(reader_.Shows(view, IsAmplitude() ? "5.0" : "-4"));
  Keep(view, "histogram");
}

/// One transition a sweep leaves nothing but first and last levels.
TEST_P(HistogramViews, AHistogramOfNothingHasAxesAndNoBars) {
  OpenHistogram(VersionFive(1, 1));
  const Picture view = HistogramPicture();
  ExpectAxes(view, hand_.PlotNow());
  EXPECT_EQ(view.Count(kRed), 0);
  EXPECT_TRUE(reader_.Shows(view, "Counts"));
  EXPECT_TRUE(reader_.Shows(view, Kind().AxisTitle));
}

TEST_P(HistogramViews, TheViewMenuOpensAViewOnce) {
  OpenHistogram(RecordingOf({}));
  const Window first = Histogram();
  const Rect place = first.PlaceInParent();
  program_.Command(command::kViewLevel);
  program_.WaitForTopView("Level");
  program_.Command(Kind().View);
  program_.WaitForTopView(Kind().Histogram);
  EXPECT_EQ(Histogram(), first);
  EXPECT_EQ(program_.ViewTitles().size(), 3u) << program_.Describe();
  program_.Key(VK_F4, {VK_CONTROL});
  program_.WaitForNoView(Kind().Histogram);
  program_.Command(Kind().View);
  program_.WaitForTopView(Kind().Histogram);
  EXPECT_EQ(Histogram().PlaceInParent(), place);
}

TEST_P(HistogramViews, AutoscaleLetsTheAxisFollowTheData) {
  // 5 to 7 pA lie beyond the axis of the start; 1 us to 13 ms ask for one that begins earlier.
  OpenHistogram(RecordingOf({.Current = 6.0, .Open = 0.001, .Closed = 0.002}));
  const Picture before = HistogramPicture();
  program_.CommandDone(Kind().Autoscale);
  const Picture after = HistogramPicture();
  EXPECT_NE(after, before);
  EXPECT_GT(after.Count(kRed), 1000);
  // At the left end the label stands on the upright axis, where it cannot be read.
  const char* label = IsAmplitude() ? "6.0" : "-5";
  const int left = static_cast<int>(hand_.PlotNow().Left) - 20;
  const auto showsLabel = [&](const Picture& view) {
    return reader_.Shows(view.Cut({left, 0, view.Width, view.Height}), label);
  };
  EXPECT_FALSE(showsLabel(before));
  EXPECT_TRUE(showsLabel(after));
}

TEST_P(HistogramViews, EachColourEntryChangesItsPart) {
  OpenHistogramWithFit(RecordingOf({}));
  constexpr std::uint32_t kColors[] = {0x008000, 0xC800C8, 0x804000, 0x008080, 0xFFFFC8};
  const std::string titles[] = {std::string("Color of ") + Kind().ColorOf + " histogram:",
                                std::string("Color of ") + Kind().ColorOf + " fitting:",
                                "Color of labels:", "Color of axes:", "Color of background:"};
  constexpr std::uint32_t kBefore[] = {kRed, kBlue, kBlack, kBlack, kWhite};
  for (int place = 0; place < 5; ++place) {
    SCOPED_TRACE(titles[place]);
    const Picture before = HistogramPicture();
    EXPECT_GT(before.Count(kBefore[place]), 0);
    EXPECT_EQ(before.Count(kColors[place]), 0);
    ChooseColor(place, titles[place], kColors[place]);
    const Picture after = HistogramPicture();
    EXPECT_GT(after.Count(kColors[place]), 20);
    if (kBefore[place] != kBlack || place == 3) {
      EXPECT_EQ(after.Count(kBefore[place]), 0);
    }
  }
  const Picture view = HistogramPicture();
  EXPECT_TRUE(reader_.Shows(view, "Counts", kColors[2]));
  EXPECT_TRUE(
      ShowsHandle(view, hand_.PlotNow(), hand_.PlotNow().OnAxis(Kind().FirstEstimate), kColors[1]));
  Keep(view, "histogram_in_other_colours");
}

TEST_P(HistogramViews, TheOtherHistogramKeepsItsColours) {
  OpenHistogram(RecordingOf({}));
  ChooseColor(0, std::string("Color of ") + Kind().ColorOf + " histogram:", 0x008000);
  ChooseColor(4, "Color of background:", 0xFFFFC8);
  const Twin& other = IsAmplitude() ? kDurationTwin : kAmplitudeTwin;
  program_.Command(other.View);
  program_.WaitForTopView(other.Histogram);
  const Picture view = program_.ClientPicture(program_.View(other.Histogram));
  EXPECT_GT(view.Count(kRed), 0);
  EXPECT_EQ(view.Count(0x008000), 0);
  EXPECT_EQ(view.Count(0xFFFFC8), 0);
}

TEST_P(HistogramViews, AHistogramIsPaintedAgainWhereAnotherViewLayOnIt) {
  OpenHistogramWithFit(RecordingOf({}));
  const Picture before = HistogramPicture();
  const Rect place = Histogram().PlaceInParent();
  // Whichever comes forward when the other closes must not cover what is looked at.
  PlaceView(program_, "Event", {0, place.Bottom, place.Right, place.Bottom + 200});
  PlaceView(program_, "Level", {place.Left + 100, place.Top + 80, place.Right - 100, place.Bottom});
  program_.Command(command::kViewLevel);
  program_.WaitForTopView("Level");
  ASSERT_NE(HistogramPicture(), before);
  program_.Key(VK_F4, {VK_CONTROL});
  program_.WaitForNoView("Level");
  EXPECT_EQ(HistogramPicture(), before);
}

TEST_P(HistogramViews, APlotFollowsTheSizeOfItsWindow) {
  OpenHistogramWithFit(RecordingOf({}));
  const Rect place = Histogram().PlaceInParent();
  for (const Rect& smaller : {Rect{0, 0, 500, 400}, Rect{40, 60, 340, 300}}) {
    PlaceView(program_, Kind().Histogram, smaller);
    const Picture view = HistogramPicture();
    const Plot plot = hand_.PlotNow();
    ExpectAxes(view, plot);
    EXPECT_TRUE(ShowsHandle(view, plot, plot.OnAxis(Kind().FirstEstimate))) << ToText(smaller);
  }
  PlaceView(program_, Kind().Histogram, place);
  EXPECT_GT(HistogramPicture().Count(kRed), 0);
}

TEST_P(HistogramViews, TinyAndMinimisedViewsAreDrawnAndComeBack) {
  OpenHistogramWithFit(RecordingOf({}));
  const Rect place = Histogram().PlaceInParent();
  const Picture before = HistogramPicture();
  for (const int size : {200, 130, 40, 1}) {
    Histogram().MoveTo({0, 0, size, size});
    program_.Settle(Histogram());
    ASSERT_TRUE(program_.Running()) << size;
  }
  program_.CommandDone(Kind().Autoscale);
  PlaceView(program_, Kind().Histogram, place);
  Minimize(Histogram());
  program_.WaitForTopView("Event");  // the lowest comes forward
  Restore(Histogram());
  program_.Command(Kind().View);
  program_.WaitForTopView(Kind().Histogram);
  EXPECT_EQ(Histogram().PlaceInParent(), place);
  const Picture after = HistogramPicture();
  EXPECT_GT(after.Count(kRed), 0);
  EXPECT_GT(after.Count(kBlue), 0);
  EXPECT_EQ(after.Width, before.Width);
}

FOR_BOTH_HISTOGRAMS(HistogramViews);

}  // namespace
}  // namespace ondrel::e2e
