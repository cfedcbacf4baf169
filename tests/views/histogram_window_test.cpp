#include "views/histogram_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "fit/histogram_axis.h"
#include "support/view_test.h"

namespace ondrel {
namespace {

using ::testing::Contains;
using ::testing::IsEmpty;
using ::testing::Not;

class HistogramWindowTest : public ViewTest {
 protected:
  HistogramWindowTest() {
    for (const ViewKind kind : kBoth) {
      Open(kind);
      WindowOf(kind).Client = {0, 0, 401, 307};
      View(kind).Colors = {RgbColor{1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {4, 0, 0}, {5, 0, 0}};
    }
    ForgetAll();
  }

  static constexpr ViewKind kBoth[] = {ViewKind::Amplitude, ViewKind::Duration};

  std::vector<std::string> Redraw(ViewKind kind, const char* note = nullptr) {
    ForgetAll();
    RedrawHistogram(workspace(), kind, note);
    return Drawn();
  }

  static std::vector<std::string> Words(const std::vector<std::string>& drawing) {
    std::vector<std::string> words;
    for (const DrawnText& text : TextsIn(drawing)) words.push_back(text.Text);
    return words;
  }
};

TEST_F(HistogramWindowTest, APictureIsMadeOutOfSightAndShownAtTheEnd) {
  for (const ViewKind kind : kBoth) {
    const std::vector<std::string> drawing = Redraw(kind);
    ASSERT_GT(drawing.size(), std::size_t{5});
    EXPECT_EQ(drawing[0], "background 5 0 0");
    EXPECT_EQ(drawing[1], "pen width 1");
    EXPECT_EQ(drawing[2], "fill 0 0 401 307 with 5 0 0");
    EXPECT_EQ(*(drawing.end() - 2), "clean up");
    EXPECT_EQ(drawing.back(), "show 0 0 401 307");
    EXPECT_EQ(LinesWith(drawing, "show").size(), std::size_t{1});
  }
}

TEST_F(HistogramWindowTest, WithoutRoomOutOfSightTheSamePictureIsDrawnInTheWindow) {
  for (const ViewKind kind : kBoth) {
    shell().NoBuffers = false;
    std::vector<std::string> buffered = Redraw(kind);
    ASSERT_EQ(buffered.back(), "show 0 0 401 307");
    buffered.pop_back();
    shell().NoBuffers = true;
    EXPECT_EQ(Redraw(kind), buffered);
  }
}

TEST_F(HistogramWindowTest, EachKindShowsItsOwnHistogram) {
  EXPECT_THAT(Words(Redraw(ViewKind::Amplitude)), Contains("Amplitude (pA)"));
  EXPECT_THAT(Words(Redraw(ViewKind::Amplitude)), Not(Contains("log Duration (s)")));
  EXPECT_THAT(Words(Redraw(ViewKind::Duration)), Contains("log Duration (s)"));
}

TEST_F(HistogramWindowTest, ThePictureIsLaidOutForTheClientArea) {
  Redraw(ViewKind::Amplitude);
  EXPECT_DOUBLE_EQ(View(ViewKind::Amplitude).Frame.PlotLeft, 401.0 / 8.0);
  WindowOf(ViewKind::Amplitude).Client = {0, 0, 800, 307};
  Redraw(ViewKind::Amplitude);
  EXPECT_DOUBLE_EQ(View(ViewKind::Amplitude).Frame.PlotLeft, 100.0);
}

TEST_F(HistogramWindowTest, APaintMessageDrawsTheSameOnItsDevice) {
  for (const ViewKind kind : kBoth) {
    const std::vector<std::string> redrawn = Redraw(kind);
    EXPECT_EQ(Paint(kind), redrawn);
  }
}

TEST_F(HistogramWindowTest, ANoteStandsInTheUpperMiddleInTheColourOfTheLabels) {
  for (const ViewKind kind : kBoth) {
    const std::vector<std::string> drawing = Redraw(kind, "Iteration:  1");
    // 401 / 2, and 307 / 7 = 43, of which three fifths are 25.
    const auto note = std::find(drawing.begin(), drawing.end(), "text 200 25 Iteration:  1");
    ASSERT_NE(note, drawing.end());
    EXPECT_EQ(*(note - 1), "color 3 0 0");
    EXPECT_EQ(*(note + 1), "clean up") << "over all the rest";
  }
}

TEST_F(HistogramWindowTest, WithoutANoteThereIsNone) {
  std::vector<std::string> with = Words(Redraw(ViewKind::Amplitude, "note"));
  with.pop_back();
  EXPECT_EQ(Words(Redraw(ViewKind::Amplitude)), with);
}

TEST_F(HistogramWindowTest, DrawingAtOnceAsksForNoPaintMessage) {
  Redraw(ViewKind::Amplitude);
  EXPECT_THAT(WindowOf(ViewKind::Amplitude).Invalidated, IsEmpty());
}

TEST_F(HistogramWindowTest, AClosedViewIsNotDrawn) {
  CloseViews(workspace());
  for (const ViewKind kind : kBoth) EXPECT_THAT(Redraw(kind, "note"), IsEmpty());
}

TEST_F(HistogramWindowTest, AFormerFailureDoesNotStopThePicture) {
  workspace().Graphics.Status = 5;
  EXPECT_THAT(Words(Redraw(ViewKind::Amplitude)), Contains("Counts"));
}

TEST_F(HistogramWindowTest, AfterwardsTheContextHasNoDevice) {
  Redraw(ViewKind::Duration);
  EXPECT_EQ(workspace().Graphics.Device.Dc, nullptr);
}

/// A box lets paint messages through. The second count succeeds, so that no other box stands.
TEST_F(HistogramWindowTest, APaintWhileABoxTellsThatCountingFailedIsCompleteInItself) {
  const std::vector<std::string> whole = [&] {
    Redraw(ViewKind::Duration);  // counted by now
    return Paint(ViewKind::Duration);
  }();
  toolkit::FreeMemory(workspace().Duration.Bins);
  toolkit::FreeMemory(workspace().Duration.Edges);
  workspace().Duration.Bins = nullptr;
  workspace().Duration.Edges = nullptr;
  std::vector<std::string> nested;
  shell().WhileBoxStands = [&](FrameWindow*) {
    EXPECT_THAT(Drawn(), IsEmpty()) << "nothing is half drawn";
    nested = Paint(ViewKind::Duration);
  };
  shell().Allocation = {.Next = 1};
  const std::vector<std::string> both = Redraw(ViewKind::Duration);
  shell().WhileBoxStands = nullptr;
  EXPECT_EQ(Messages().size(), std::size_t{1});
  EXPECT_EQ(nested, whole);
  ASSERT_GE(both.size(), whole.size());
  EXPECT_TRUE(std::equal(whole.rbegin(), whole.rend(), both.rbegin()))
      << "the drawing that had to wait is complete too";
  EXPECT_EQ(workspace().Graphics.Device.Dc, nullptr);
}

TEST_F(HistogramWindowTest, AnEmptyWindowIsPaintedWithoutHarm) {
  for (const ViewKind kind : kBoth) {
    WindowOf(kind).Client = {0, 0, 0, 0};
    EXPECT_EQ(Redraw(kind, "note").back(), "show 0 0 0 0");
    WindowOf(kind).Client = {0, 0, 1, 1};
    EXPECT_EQ(Redraw(kind, "note").back(), "show 0 0 1 1");
  }
}

TEST_F(HistogramWindowTest, ALevelIsABarOnTheScreen) {
  AmplitudeHistogram& histogram = workspace().Amplitude;
  WindowOf(ViewKind::Amplitude).Client = {0, 0, 800, 600};
  histogram.TickMarks = 1;
  histogram.BinsPerTick = 3;
  histogram.CountsPerTick = 1;
  histogram.Bins = toolkit::AllocateRecords<BinRecord>(CountBins(histogram) + 2);
  histogram.Bins[2].Height = 2.0;
  histogram.YMaximum = 2.0;
  const std::vector<std::string> drawing = Redraw(ViewKind::Amplitude);
  // 600 of width in three bins from 100 on; 400 of height from 500 up to 100, both truncated.
  EXPECT_THAT(LinesWith(drawing, "filled rect"),
              ::testing::ElementsAre("filled rect 100 500 300 500", "filled rect 300 100 500 500",
                                     "filled rect 500 500 700 500"));
}

}  // namespace
}  // namespace ondrel
