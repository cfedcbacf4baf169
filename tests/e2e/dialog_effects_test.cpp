// What the settings dialogs change in the pictures of views.
#include <gmock/gmock.h>

#include <cmath>

#include "fitting_gestures.h"
#include "plot_fixture.h"

namespace ondrel::e2e {
namespace {

constexpr int kFilterLevels = 52229;
constexpr int kLevelList = 12;
constexpr int kLevelLow = 13;
constexpr int kLevelHigh = 14;
constexpr int kPositionList = 20;

class DialogEffects : public PlotTest {
 protected:
  [[nodiscard]] Dialog OpenDialog(int command, const std::string& caption) const {
    program_.Command(command);
    return program_.WaitForDialog(caption);
  }

  /// Chooses in one list of a dialog and leaves it by its first button.
  void ChooseIn(int command, const std::string& caption, int list, const std::string& text) const {
    const Dialog dialog = OpenDialog(command, caption);
    dialog.Choose(list, text);
    dialog.Leave(kOkButton);
    program_.ToForeground();
  }

  void TakeEveryPosition() const { ChooseIn(kFilterLevels, "Filter Levels", kPositionList, "All"); }

  void TakeOnlyLevel(const std::string& level) const {
    const Dialog dialog = OpenDialog(kFilterLevels, "Filter Levels");
    dialog.Choose(kLevelList, "Include");
    dialog.Type(kLevelLow, level);
    dialog.Type(kLevelHigh, level);
    dialog.Leave(kOkButton);
    program_.ToForeground();
  }
};

// --- Filters -------------------------------------------------------------------------------------

TEST_F(DialogEffects, TheLevelFilterChoosesWhatTheStationarityPlotAverages) {
  Open(SteadySweeps());
  Show(kStationarityPlot);
  const Picture atStart = PictureOf(kStationarityPlot);
  const StationarityPlot expected =
      StationarityOf(FrameOf(kStationarityPlot, atStart), SteadySweeps());
  ASSERT_TRUE(ShowsCurve(atStart, expected.Curve));
  // With closings, every moment is in a selected level: a level curve.
  TakeEveryPosition();
  const Picture all = PictureOf(kStationarityPlot);
  EXPECT_FALSE(ShowsCurve(all, expected.Curve));
  EXPECT_TRUE(reader_.Shows(all, "1.000"));
  EXPECT_FALSE(reader_.Shows(all, "0.700"));
  // Without them it is the share of openings again, now chosen by their level.
  TakeOnlyLevel("1");
  const Picture openings = PictureOf(kStationarityPlot);
  Keep(kStationarityPlot, openings, "filtered");
  EXPECT_TRUE(ShowsCurve(openings, expected.Curve));
  EXPECT_TRUE(ShowsNumbers(kStationarityPlot, openings, reader_, expected.Marks));
}

TEST_F(DialogEffects, TheLevelFilterGreysTheLevelsThatGo) {
  const RowGrid grid;
  program_.PassStart();
  OpenTable(program_, VersionFive(2, 5));  // six levels a sweep, closed and open in turn
  const Window view = program_.View("Level");
  const Rect frame = program_.Frame().ClientArea();
  view.MoveTo({0, 0, frame.Width(), frame.Height()});
  const auto expectSelected = [&](const auto& isSelected) {
    const Picture picture = program_.ClientPicture(view);
    for (int row = 0; row < 12; ++row) {
      EXPECT_EQ(grid.Row(picture, row).Count(kBlack) > 0, isSelected(row)) << row;
      EXPECT_EQ(grid.Row(picture, row).Count(kGrey) > 0, !isSelected(row)) << row;
    }
  };
  expectSelected([](int row) { return row % 6 != 0 && row % 6 != 5; });
  TakeEveryPosition();
  expectSelected([](int) { return true; });
  TakeOnlyLevel("1");
  expectSelected([](int row) { return row % 2 == 1; });
  program_.CommandDone(command::kReset);
  expectSelected([](int row) { return row % 6 != 0 && row % 6 != 5; });
}

TEST_F(DialogEffects, TheSweepFilterGreysTheSweepsThatGo) {
  const RowGrid grid;
  program_.PassStart();
  OpenTable(program_, VersionFive(5, 4));
  program_.Command(command::kViewSweep);
  program_.WaitForTopView("Sweep");
  const Window view = program_.View("Sweep");
  const Rect frame = program_.Frame().ClientArea();
  view.MoveTo({0, 0, frame.Width(), frame.Height()});
  const Dialog dialog = OpenDialog(52228, "Filter Sweeps");
  dialog.Choose(16, "Exclude");
  dialog.Type(17, "2");
  dialog.Type(18, "4");
  dialog.Leave(kOkButton);
  program_.ToForeground();
  const Picture picture = program_.ClientPicture(view);
  for (int row = 0; row < 5; ++row) {
    const bool goes = row >= 1 && row <= 3;
    EXPECT_EQ(grid.Row(picture, row).Count(kBlack) > 0, !goes) << row;
    EXPECT_EQ(grid.Row(picture, row).Count(kGrey) > 0, goes) << row;
  }
}

// --- Histograms ----------------------------------------------------------------------------------

class HistogramStyles : public DialogEffects, public ::testing::WithParamInterface<const Twin*> {
 protected:
  [[nodiscard]] static bool IsAmplitude() { return GetParam() == &kAmplitudeTwin; }

  /// The middle of the left one of two bars side by side, and the end of it, in axis units.
  [[nodiscard]] static double Middle() { return IsAmplitude() ? 2.525 : -2.975; }
  [[nodiscard]] static double Seam() { return IsAmplitude() ? 2.55 : -2.95; }

  /// Currents and lengths in two bins in turn, so that their bars are of nearly one height.
  [[nodiscard]] static std::vector<RecordedSweep> TwoBars() {
    RecordedSweep sweep;
    for (int index = 0; index < 60; ++index) {
      sweep.Openings.push_back({2.525, std::pow(10.0, -2.975), 0.05});
      sweep.Openings.push_back({2.575, std::pow(10.0, -2.925), 0.05});
    }
    return {sweep};
  }

  void ChooseStyle(const std::string& style) const {
    ChooseIn(IsAmplitude() ? 53251 : 53507, "Histogram Style", 4, style);
  }

  /// Whether a column within a pixel of the place is red all through the lower part of the bars.
  [[nodiscard]] bool IsRedAt(const Picture& view, double place, int reach) const {
    const Plot plot = PlotOf(*GetParam(), {0, 0, view.Width, view.Height}, FirstAxis(*GetParam()));
    const double height = plot.Bottom - plot.Top;
    const int top = static_cast<int>(plot.Bottom - 0.4 * height);
    const int bottom = static_cast<int>(plot.Bottom - 0.1 * height);
    const int middle = plot.XOf(place);
    for (int x = middle - reach; x <= middle + reach; ++x) {
      const Picture column = view.Cut({x, top, x + 1, bottom});
      if (column.Count(kRed) == column.Height) return true;
    }
    return false;
  }

  [[nodiscard]] Picture HistogramPicture() const {
    return program_.ClientPicture(program_.View(GetParam()->Histogram));
  }
};

TEST_P(HistogramStyles, AreFilledBarsAnOutlineOrRectangles) {
  Open(TwoBars());
  const Rect client = program_.Frame().ClientArea();
  OpenHistogram(program_, *GetParam(), {0, 0, client.Width(), client.Height() * 6 / 10});
  const Picture filled = HistogramPicture();
  EXPECT_TRUE(IsRedAt(filled, Middle(), 0));
  EXPECT_TRUE(IsRedAt(filled, Seam(), 0));
  ChooseStyle("Outlined");
  const Picture outlined = HistogramPicture();
  EXPECT_FALSE(IsRedAt(outlined, Middle(), 1));
  EXPECT_FALSE(IsRedAt(outlined, Seam(), 1));
  ChooseStyle("Rectangles");
  const Picture rectangles = HistogramPicture();
  EXPECT_FALSE(IsRedAt(rectangles, Middle(), 1));
  EXPECT_TRUE(IsRedAt(rectangles, Seam(), 1));
  EXPECT_GT(filled.Count(kRed), rectangles.Count(kRed));
  ChooseStyle("Filled");
  EXPECT_EQ(HistogramPicture(), filled);
}

TEST_P(HistogramStyles, AxesAndLabelsCanBeLeftOut) {
  Open(TwoBars());
  const Rect client = program_.Frame().ClientArea();
  OpenHistogram(program_, *GetParam(), {0, 0, client.Width(), client.Height() * 6 / 10});
  const int bars = HistogramPicture().Count(kRed);
  const Dialog dialog = OpenDialog(IsAmplitude() ? 53251 : 53507, "Histogram Style");
  for (const int box : {7, 8}) {
    dialog.Press(box);
    WaitFor("the check box to turn", [&] { return !dialog.IsChecked(box); });
  }
  dialog.Leave(kOkButton);
  program_.ToForeground();
  const Picture bare = HistogramPicture();
  EXPECT_EQ(bare.Count(kBlack), 0);
  EXPECT_EQ(bare.Count(kRed) > 0, bars > 0);
}

INSTANTIATE_TEST_SUITE_P(Both, HistogramStyles, ::testing::Values(&kAmplitudeTwin, &kDurationTwin),
                         [](const auto& info) { return std::string(info.param->Name); });

// --- Plots ---------------------------------------------------------------------------------------

TEST_F(DialogEffects, TheValueOfAScatterPlotNamesItsAxis) {
  struct Scaling {
    const PlotKind* Kind;
    int Command;
    const char* Caption;
  };
  constexpr int kValueList = 4;
  Open(MixedSweeps());
  for (const Scaling& scaling :
       {Scaling{&kAmplitudeScatterPlot, 54529, "Amplitude Scatter Scaling"},
        Scaling{&kDurationScatterPlot, 54785, "Duration Scatter Scaling"}}) {
    SCOPED_TRACE(scaling.Kind->Name);
    Show(*scaling.Kind);
    PlotKind kind = *scaling.Kind;
    EXPECT_TRUE(ShowsTitles(kind, PictureOf(*scaling.Kind), reader_));
    for (const auto& [value, title] :
         {std::pair{"Level Tag", "Level Tag Value"}, std::pair{"Sweep Tag", "Sweep Tag Value"},
          std::pair{"Sweep Relevant", "Sweep Relevant Value"}}) {
      SCOPED_TRACE(value);
      ChooseIn(scaling.Command, scaling.Caption, kValueList, value);
      kind.AcrossTitle = title;
      EXPECT_TRUE(ShowsTitles(kind, PictureOf(*scaling.Kind), reader_));
    }
    EXPECT_TRUE(ShowsData(*scaling.Kind, PictureOf(*scaling.Kind), MixedSweeps()));
  }
}

/// Smaller than a pixel: a line of no length would draw nothing.
TEST_F(DialogEffects, TheSmallestDotsArePixels) {
  constexpr int kSymbolSize = 19;
  Open(MixedSweeps());
  Show(kAmplitudeScatterPlot);
  const int before = PictureOf(kAmplitudeScatterPlot).Count(kRed);
  program_.Command(54529);
  const Dialog dialog = program_.WaitForDialog("Amplitude Scatter Scaling");
  dialog.Type(kSymbolSize, "0.01");
  dialog.Leave(kOkButton);
  const int after = PictureOf(kAmplitudeScatterPlot).Count(kRed);
  EXPECT_GT(after, 0);
  EXPECT_LT(after, before);
}

TEST_F(DialogEffects, TheTypeOfTheStationarityPlotNamesItsAxis) {
  constexpr std::pair<const char*, const char*> kTitles[] = {{"Amplitude", "Amplitude (A)"},
                                                             {"Duration", "Duration (s)"},
                                                             {"Level", "Level"},
                                                             {"1", "Probability"}};
  Open(SteadySweeps());
  Show(kStationarityPlot);
  for (const auto& [type, title] : kTitles) {
    SCOPED_TRACE(type);
    ChooseIn(55041, "Stationarity Settings", 3, type);
    const Picture view = PictureOf(kStationarityPlot);
    for (const auto& [other, otherTitle] : kTitles) {
      EXPECT_EQ(reader_.Shows(view, otherTitle), title == otherTitle) << otherTitle;
    }
  }
}

TEST_F(DialogEffects, ThePlotsStylesLeaveOutAxesAndLabels) {
  constexpr std::pair<const PlotKind*, int> kStyles[] = {{&kAmplitudeScatterPlot, 54530},
                                                         {&kDurationScatterPlot, 54786},
                                                         {&kAmplitudeDurationPlot, 53762},
                                                         {&kStationarityPlot, 55042}};
  Open(SteadySweeps());
  for (const auto& [kind, style] : kStyles) {
    SCOPED_TRACE(kind->Name);
    Show(*kind);
    const Picture before = PictureOf(*kind);
    const bool isScatter = kind != &kStationarityPlot;
    const Dialog dialog = OpenDialog(style, isScatter ? "Scatter Style" : "Stationarity Style");
    for (const int box : isScatter ? std::vector{3, 4} : std::vector{4, 5}) {
      dialog.Press(box);
      WaitFor("the check box to turn", [&] { return !dialog.IsChecked(box); });
    }
    dialog.Leave(kOkButton);
    program_.ToForeground();
    const Picture bare = PictureOf(*kind);
    EXPECT_EQ(bare.Count(kBlack), 0);
    EXPECT_GT(before.Count(kBlack), 0);
    EXPECT_GE(bare.Count(kRed), before.Count(kRed));
    EXPECT_GT(bare.Count(kRed), 0);
  }
}

}  // namespace
}  // namespace ondrel::e2e
