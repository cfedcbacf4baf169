// The six graphs at their destinations.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "views/destinations_fixture.h"
#include "views/graph_window.h"
#include "views/top_label.h"

namespace ondrel {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

class GraphDestinationsTest : public DestinationsTest {
 protected:
  static constexpr std::int32_t kPlotLeft = 230;
  static constexpr std::int32_t kPlotBottom = 1410;
  static constexpr std::int32_t kNumberEnd = 230 - 48;

  GraphDestinationsTest() {
    workspace().Amplitude.YMaximum = 150.0;  // ticks at 0, 100 and 200
    workspace().Amplitude.TickMarks = 2;
    workspace().Amplitude.BinsPerTick = 10;
    workspace().Duration.YMaximum = 1500.0;  // 0, 500, 1000 and 1500
    workspace().Duration.CountsPerTick = 500;
    workspace().AmplitudeScatter.AmplitudeMinimum = 8e-12;  // 8.0 and 9.0 to 11.0
    BuildAmplitudeHistogram(workspace());
    workspace().Amplitude.YMaximum = 150.0;
  }

  /// The texts whose baseline begins left of the plot, but for the title of the axis.
  std::vector<DrawnText> Numbers(const std::vector<std::string>& lines) {
    std::vector<DrawnText> numbers;
    for (const DrawnText& text : TextsIn(lines)) {
      if (text.X < kPlotLeft && text.Y > 290 - 5 && text.Y <= kPlotBottom) numbers.push_back(text);
    }
    return numbers;
  }

  /// What the gap between axis and numbers comes to at a destination; the view's window is closed,
  /// so that the layout stays.
  double LabelOffsetIn(ViewKind kind) {
    ToMetafile(kind);
    return View(kind).Frame.LabelOffset;
  }
};

// --- The labels of the vertical axis -------------------------------------------------------------

TEST_F(GraphDestinationsTest, InAMetafileAllNumbersBeginWhereTheTopOneWouldIfItWereMeasured) {
  const std::vector<DrawnText> numbers = Numbers(ToMetafile(ViewKind::Amplitude));
  const std::int32_t start = kNumberEnd - ExportWidth("200");
  EXPECT_THAT(numbers, ElementsAre(DrawnText{start, 1410, "0"}, DrawnText{start, 850, "100"},
                                   DrawnText{start, 290, "200"}));
}

TEST_F(GraphDestinationsTest, OnPaperAllNumbersEndBesideTheAxis) {
  const std::vector<DrawnText> numbers = Numbers(ToPaper(ViewKind::Amplitude));
  EXPECT_THAT(numbers, ElementsAre(DrawnText{kNumberEnd - ExportWidth("0"), 1410, "0"},
                                   DrawnText{kNumberEnd - ExportWidth("100"), 850, "100"},
                                   DrawnText{kNumberEnd - ExportWidth("200"), 290, "200"}));
}

TEST_F(GraphDestinationsTest, InADocumentAllNumbersEndBesideTheAxis) {
  EXPECT_THAT(LinesWith(ToFile(ViewKind::Amplitude), "right"),
              ElementsAre("right 182 1410 0", "right 182 850 100", "right 182 290 200"));
}

TEST_F(GraphDestinationsTest, TheGapGrowsByTheTopLabelOfEachGraph) {
  EXPECT_DOUBLE_EQ(LabelOffsetIn(ViewKind::Amplitude), 48.0 + ExportWidth("200"));
  workspace().Duration.ConstrainPositive = true;
  EXPECT_DOUBLE_EQ(LabelOffsetIn(ViewKind::Duration), 48.0 + ExportWidth("1500"));
  EXPECT_DOUBLE_EQ(LabelOffsetIn(ViewKind::AmplitudeScatter), 48.0 + ExportWidth("11.0"));
  workspace().DurationScatter.ShowAxes = false;  // with ticks the number at the top is not shown
  EXPECT_DOUBLE_EQ(LabelOffsetIn(ViewKind::DurationScatter), 48.0 + ExportWidth("-1"));
  EXPECT_DOUBLE_EQ(LabelOffsetIn(ViewKind::Scatter), 48.0 + ExportWidth("3.0"));
  workspace().Stationarity.Type = StationarityType::Amplitude;
  const double gap = LabelOffsetIn(ViewKind::Stationarity);
  EXPECT_DOUBLE_EQ(gap, 48.0 + ExportWidth("2.00E-12"));
}

TEST_F(GraphDestinationsTest, TheTopLabelIsTheHighestAndNotTheWidestNorTheLast) {
  workspace().Duration.ConstrainPositive = false;  // "-1500" stands below, and comes last
  EXPECT_DOUBLE_EQ(LabelOffsetIn(ViewKind::Duration), 48.0 + ExportWidth("1500"));
  workspace().Scatter.Minimum = -100e-12;  // "-100.0" stands at the bottom
  workspace().Scatter.PaPerTick = 35.0;
  EXPECT_DOUBLE_EQ(LabelOffsetIn(ViewKind::Scatter), 48.0 + ExportWidth("5.0"));
}

TEST_F(GraphDestinationsTest, WithoutLabelsTheGapStaysAsItIs) {
  workspace().Amplitude.ShowLabels = false;
  workspace().Duration.ShowLabels = false;
  workspace().AmplitudeScatter.ShowLabels = false;
  workspace().DurationScatter.ShowLabels = false;
  workspace().Scatter.ShowLabels = false;
  workspace().Stationarity.ShowLabels = false;
  for (const ViewKind kind : Graphs()) {
    EXPECT_DOUBLE_EQ(LabelOffsetIn(kind), 48.0) << TitleOf(kind);
  }
}

TEST_F(GraphDestinationsTest, AnAxisOfCountsWithoutTicksHasTheNumberAtTheOriginForItsTop) {
  workspace().Amplitude.YMaximum = 0.0;
  EXPECT_DOUBLE_EQ(LabelOffsetIn(ViewKind::Amplitude), 48.0 + ExportWidth("0"));
}

TEST_F(GraphDestinationsTest, AStationarityPlotWithoutSamplesHasNoLabelBesideItsAxis) {
  workspace().Stationarity.ShortestSweep = 0.0;
  EXPECT_DOUBLE_EQ(LabelOffsetIn(ViewKind::Stationarity), 48.0);
}

TEST_F(GraphDestinationsTest, TheGapGrowsInAMetafileAlone) {
  for (const ViewKind kind : Graphs()) {
    ToPaper(kind);
    EXPECT_DOUBLE_EQ(View(kind).Frame.LabelOffset, 48.0) << TitleOf(kind);
    ToFile(kind);
    EXPECT_DOUBLE_EQ(View(kind).Frame.LabelOffset, 48.0) << TitleOf(kind);
  }
}

TEST_F(GraphDestinationsTest, LookingForTheTopLabelDrawsNothing) {
  for (const ViewKind kind : Graphs()) {
    const std::vector<std::string> metafile = ToMetafile(kind);
    const std::vector<std::string> paper = ToPaper(kind);
    EXPECT_EQ(metafile.size() + 1, paper.size()) << "but for the clip: " << TitleOf(kind);
  }
}

// --- Centred numbers -----------------------------------------------------------------------------

TEST_F(GraphDestinationsTest, CentredNumbersAreCentredEverywhereInTheFontOfTheExport) {
  const std::int32_t middle = kPlotLeft + 630;  // of the tick of 1.0, half way along 1260
  const std::int32_t start = middle - ExportWidth("1.0") / 2;
  EXPECT_THAT(TextsIn(ToMetafile(ViewKind::Amplitude)), Contains(DrawnText{start, 1523, "1.0"}));
  EXPECT_THAT(TextsIn(ToPaper(ViewKind::Amplitude)), Contains(DrawnText{start, 1523, "1.0"}));
  EXPECT_THAT(ToFile(ViewKind::Amplitude), Contains("left 845 1523 1.0"));
}

// --- Dots per inch -------------------------------------------------------------------------------

TEST_F(GraphDestinationsTest, DotsHaveTheirSizeByTheScreenInMetafilesAndFilesAndByThePrinter) {
  workspace().AmplitudeScatter.SymbolSize = 0.5;
  workspace().DurationScatter.SymbolSize = 0.5;
  workspace().Scatter.SymbolSize = 0.5;
  for (const ViewKind kind :
       {ViewKind::AmplitudeScatter, ViewKind::DurationScatter, ViewKind::Scatter}) {
    ToMetafile(kind);
    EXPECT_EQ(View(kind).Scatter.SymbolPixels, 18.0) << "0.5 * 96 / 2.54 = 18.9";
    ToFile(kind);
    EXPECT_EQ(View(kind).Scatter.SymbolPixels, 18.0) << TitleOf(kind);
    ToPaper(kind);
    EXPECT_EQ(View(kind).Scatter.SymbolPixels, 58.0) << "0.5 * 300 / 2.54 = 59.06, made even";
  }
}

TEST_F(GraphDestinationsTest, ThePrintersSizesFollowTheExportsDotsPerInch) {
  workspace().Scatter.SymbolSize = 0.5;
  workspace().ExportDpi = 150.0;  // whatever the device says
  ToPaper(ViewKind::Scatter);
  EXPECT_EQ(View(ViewKind::Scatter).Scatter.SymbolPixels, 28.0) << "29.5";
}

// --- Bins ----------------------------------------------------------------------------------------

TEST_F(GraphDestinationsTest, BinsAreWholeUnitsWideOnDevicesAndNotInDocuments) {
  workspace().ExportRect = {0, 0, 1000, 600};  // 750 wide, in bins of 37.5
  ToMetafile(ViewKind::Amplitude);
  EXPECT_EQ(workspace().Amplitude.PixelsPerBin, 37.0);
  ToFile(ViewKind::Amplitude);
  EXPECT_DOUBLE_EQ(workspace().Amplitude.PixelsPerBin, 37.5);
  ToPaper(ViewKind::Amplitude);
  EXPECT_EQ(workspace().Amplitude.PixelsPerBin, 37.0);
}

// --- The frame -----------------------------------------------------------------------------------

TEST_F(GraphDestinationsTest, EveryGraphIsLaidOutInThePicture) {
  for (const ViewKind kind : Graphs()) {
    Show(kind);
    const std::int32_t left = kind == ViewKind::Stationarity ? 267 : 230;  // 20 + 1680 / 6.8
    const std::int32_t base = kind == ViewKind::Amplitude  ? 1411
                              : kind == ViewKind::Duration ? 851
                                                           : 1410;
    const std::string axis = "line " + std::to_string(left) + " " + std::to_string(base) +
                             " to 1490 " + std::to_string(base);
    EXPECT_THAT(ToMetafile(kind), Contains(axis)) << TitleOf(kind);
    EXPECT_THAT(ToPaper(kind), Contains(axis)) << TitleOf(kind);
    EXPECT_THAT(ToFile(kind), Contains(StartsWith("line "))) << TitleOf(kind);
  }
  EXPECT_THAT(ToFile(ViewKind::Scatter), Contains("line 230 1410 1490 1410"));
  EXPECT_THAT(ToFile(ViewKind::Stationarity), Contains("line 267.058824 1410 1490 1410"));
}

TEST_F(GraphDestinationsTest, TheStationarityPlotHasASampleForEachUnitOfThePicture) {
  Show(ViewKind::Stationarity);
  const std::int32_t onScreen = workspace().Stationarity.SampleCount;
  const auto count = [](const std::vector<std::string>& lines, const std::string& start) {
    return LinesWith(lines, start).size();
  };
  const std::size_t inFile = count(ToFile(ViewKind::Stationarity), "path ") + 1;
  EXPECT_EQ(inFile, std::size_t{1149}) << "9.4 s of 10 in a plot 1222.9 wide";
  EXPECT_EQ(workspace().Stationarity.SampleCount, onScreen) << "those of the window are back";
}

TEST_F(GraphDestinationsTest, TheNumbersOfTheTimeAxisAreMeasuredInTheFontOfTheExport) {
  // 10 s in ticks of 2 s, each 66 wide in a plot 330 wide: "10.000" needs 42 on the screen.
  workspace().ExportRect = {0, 0, 453, 600};
  workspace().DeviceFontSize = 10;
  ToMetafile(ViewKind::Stationarity);
  EXPECT_EQ(workspace().Stationarity.TickSpacing, 2.0);
  workspace().DeviceFontSize = 30;  // 6 letters of 15
  ToMetafile(ViewKind::Stationarity);
  EXPECT_EQ(workspace().Stationarity.TickSpacing, 4.0);
  workspace().DeviceFontSize = 10;
  ToFile(ViewKind::Stationarity);
  EXPECT_EQ(workspace().Stationarity.TickSpacing, 2.0);
  workspace().DeviceFontSize = 30;
  ToFile(ViewKind::Stationarity);
  EXPECT_EQ(workspace().Stationarity.TickSpacing, 4.0);
  ToPaper(ViewKind::Stationarity);
  EXPECT_EQ(workspace().Stationarity.TickSpacing, 4.0);
}

TEST_F(GraphDestinationsTest, WithAxesAndLabelsOffAGraphShowsOnlyItsData) {
  workspace().Scatter.ShowAxes = workspace().Scatter.ShowLabels = false;
  const std::vector<std::string> file = ToFile(ViewKind::Scatter);
  ASSERT_EQ(file.size(), std::size_t{3});  // the level of 6 s lies beside the axis
  EXPECT_EQ(file[0], "color k 65535 0 0");
  EXPECT_THAT(file[1], StartsWith("dot "));
  const std::vector<std::string> metafile = ToMetafile(ViewKind::Scatter);
  EXPECT_THAT(TextsIn(metafile), IsEmpty());
  EXPECT_THAT(metafile, Not(Contains(StartsWith("line"))));
}

TEST_F(GraphDestinationsTest, AFitsCurvesGoEverywhereWhileItsViewIsOpen) {
  EXPECT_THAT(ToFile(ViewKind::Amplitude), Not(Contains(StartsWith("amplitude curve"))));
  OpenInert(ViewKind::AmplitudeFit);
  EXPECT_THAT(ToFile(ViewKind::Amplitude), Contains(StartsWith("amplitude curve")));
  const std::size_t without = ToPaper(ViewKind::Duration).size();
  OpenInert(ViewKind::DurationFit);
  EXPECT_GT(ToPaper(ViewKind::Duration).size(), without);
}

}  // namespace
}  // namespace ondrel
