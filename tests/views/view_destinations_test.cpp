// What holds for all twelve views at each destination.
#include "views/view_destinations.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "views/destination.h"
#include "views/destinations_fixture.h"

namespace ondrel {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

class ViewDestinationsTest : public DestinationsTest {
 protected:
  /// Opens all views; those of the fits last, so that the histograms show their curves.
  void ShowAll() {
    for (const ViewKind kind : AllKinds()) Open(kind);
    for (const ViewKind kind : AllKinds()) {
      WindowOf(kind).Client = kClient;
      Paint(kind);
    }
    ForgetAll();
  }

  /// All that layouts leave behind.
  std::vector<double> Layouts() {
    std::vector<double> numbers;
    for (const ViewKind kind : AllKinds()) {
      const ViewState& view = View(kind);
      const GraphFrame& frame = view.Frame;
      const ScatterLayout& scatter = view.Scatter;
      numbers.insert(numbers.end(),
                     {frame.PlotLeft, frame.PlotRight, frame.PlotTop, frame.PlotBottom,
                      frame.LabelOffset, scatter.SymbolPixels, scatter.XPixelsPerTick,
                      scatter.YPixelsPerUnit, scatter.PixelsPerDecade,
                      static_cast<double>(view.TopRow), static_cast<double>(view.VisibleRows)});
      numbers.insert(numbers.end(), view.ColumnRight.begin(), view.ColumnRight.end());
    }
    const AmplitudeHistogram& amplitude = workspace().Amplitude;
    const DurationHistogram& duration = workspace().Duration;
    numbers.insert(
        numbers.end(),
        {amplitude.PixelsPerPa, amplitude.PixelsPerTick, amplitude.PixelsPerBin,
         amplitude.PixelsPerCount, amplitude.PixelsPerYTick, duration.PixelsPerCount,
         duration.PixelsPerYTick, duration.PixelsPerDecade, duration.PixelsPerBin,
         static_cast<double>(amplitude.MarkerCount), static_cast<double>(duration.MarkerCount)});
    for (const MarkerArray* markers :
         {&amplitude.PeakMarkers, &amplitude.WidthMarkers, &duration.Markers}) {
      for (const TermMarker& marker : *markers) {
        for (const std::int32_t edge : {marker.Left, marker.Top, marker.Right, marker.Bottom}) {
          numbers.push_back(edge);
        }
      }
    }
    const StationaritySettings& plot = workspace().Stationarity;
    numbers.insert(numbers.end(), {plot.TickSpacing, plot.TickPixels, plot.ValueMin, plot.ValueMax,
                                   plot.ValueTick, plot.ValueTickPixels});
    numbers.insert(numbers.end(), plot.StationaritySamples,
                   plot.StationaritySamples + plot.SampleCount);
    return numbers;
  }
};

// --- What a view says of itself ------------------------------------------------------------------

TEST_F(ViewDestinationsTest, TheSixTablesClipInFilesAndTheSixGraphsDoNot) {
  for (const ViewKind kind : Tables()) {
    EXPECT_TRUE(FactsOf(kind).ClipsInFiles) << TitleOf(kind);
    EXPECT_THAT(ToFile(kind).front(), "clip 20 10 1700 1690") << TitleOf(kind);
  }
  for (const ViewKind kind : Graphs()) {
    EXPECT_FALSE(FactsOf(kind).ClipsInFiles) << TitleOf(kind);
    EXPECT_THAT(ToFile(kind), Not(Contains(StartsWith("clip")))) << TitleOf(kind);
  }
}

TEST_F(ViewDestinationsTest, ResettingTheViewsFillsAllThreeForms) {
  workspace().IllustratorSink = {};
  workspace().EpsSink = {};
  ResetViews(workspace());
  EXPECT_NE(workspace().IllustratorSink.DrawLine, nullptr);
  EXPECT_NE(workspace().EpsSink.DrawLine, nullptr);
  EXPECT_NE(workspace().IllustratorSink.DrawLine, workspace().EpsSink.DrawLine);
  EXPECT_NE(workspace().ScreenSink.DrawLine, workspace().EpsSink.DrawLine);
}

// --- The state in which a drawing starts ---------------------------------------------------------

TEST_F(ViewDestinationsTest, AMetafileBeginsWithThePenOfTheExport) {
  for (const ViewKind kind : AllKinds()) {
    Show(kind);
    const std::vector<std::string> lines = ToMetafile(kind);
    ASSERT_GT(lines.size(), std::size_t{4}) << TitleOf(kind);
    EXPECT_EQ(lines[0], "pen width 2") << "the smallest whole number not below 1.2";
    EXPECT_EQ(*(lines.end() - 2), "clip off") << TitleOf(kind);
    EXPECT_EQ(lines.back(), "clean up") << TitleOf(kind);
  }
}

TEST_F(ViewDestinationsTest, OnlyTheScreenHasABackground) {
  for (const ViewKind kind : AllKinds()) {
    for (const Way way : AllWays()) {
      const std::vector<std::string> lines = (this->*way)(kind);  // its window is closed
      EXPECT_THAT(lines, Not(Contains(StartsWith("background")))) << TitleOf(kind);
      EXPECT_THAT(lines, Not(Contains(StartsWith("fill ")))) << TitleOf(kind);
      EXPECT_THAT(Drawn(), Not(Contains(::testing::HasSubstr("background")))) << TitleOf(kind);
      EXPECT_THAT(Drawn(), Not(Contains(::testing::HasSubstr("fill ")))) << TitleOf(kind);
    }
  }
}

TEST_F(ViewDestinationsTest, APenOfAWholeNumberOfUnitsStaysThatWide) {
  workspace().DevicePenSize = 3.0;
  EXPECT_EQ(ToMetafile(ViewKind::Event)[0], "pen width 3");
  EXPECT_EQ(ToPaper(ViewKind::Event)[0], "pen width 3");
  workspace().DevicePenSize = 3.01;
  EXPECT_EQ(ToMetafile(ViewKind::Event)[0], "pen width 4");
  EXPECT_EQ(ToPaper(ViewKind::Event)[0], "pen width 4");
}

TEST_F(ViewDestinationsTest, APageBeginsWithThePenOfTheExport) {
  for (const ViewKind kind : AllKinds()) {
    Show(kind);
    const std::vector<std::string> lines = ToPaper(kind);
    ASSERT_GT(lines.size(), std::size_t{3}) << TitleOf(kind);
    EXPECT_EQ(lines[0], "pen width 2") << TitleOf(kind);
    EXPECT_EQ(lines.back(), "clean up") << TitleOf(kind);
  }
}

TEST_F(ViewDestinationsTest, APageIsClippedToThePictureButForEventsAndLevels) {
  for (const ViewKind kind : AllKinds()) {
    const std::vector<std::string> lines = ToPaper(kind);
    if (kind == ViewKind::Event || kind == ViewKind::Level) {
      EXPECT_THAT(lines, Not(Contains(StartsWith("clip")))) << TitleOf(kind);
    } else {
      EXPECT_THAT(lines[1], StartsWith("clip 20 10 1700 ")) << TitleOf(kind);
      EXPECT_EQ(*(lines.end() - 2), "clip off") << TitleOf(kind);
    }
    workspace().ExportRect = kPicture;
  }
}

TEST_F(ViewDestinationsTest, NothingThatGoesIntoADocumentIsSeenOnADevice) {
  for (const ViewKind kind : AllKinds()) {
    ToFile(kind);  // its window is closed
    for (const std::string& line : Drawn()) EXPECT_THAT(line, StartsWith("measuring: "));
    EXPECT_EQ(Drawn().front(), "measuring: pen width 2") << TitleOf(kind);
    EXPECT_EQ(Drawn().back(), "measuring: clean up") << TitleOf(kind);
  }
}

// --- Status --------------------------------------------------------------------------------------

TEST_F(ViewDestinationsTest, AFormerFailureStopsNoDestination) {
  for (const ViewKind kind : AllKinds()) {
    for (const Way way : AllWays()) {
      workspace().ExportRect = kPicture;
      const std::vector<std::string> lines = (this->*way)(kind);
      workspace().ExportRect = kPicture;
      workspace().Graphics.Status = 5;
      EXPECT_EQ((this->*way)(kind), lines) << TitleOf(kind);
      EXPECT_EQ(workspace().Graphics.Status, 0) << TitleOf(kind);
    }
  }
}

TEST_F(ViewDestinationsTest, TheCodeOfAFailedWriteIsReturnedAndStaysInTheContext) {
  for (const ViewKind kind : AllKinds()) {
    Show(kind);  // which is painted again, with a code of its own
    recording::Clear();
    recording::FailText(1);
    EXPECT_EQ(DrawViewToFile(workspace(), kind, recording::kRecordingSink, kPicture),
              recording::kFullDisk)
        << TitleOf(kind);
    EXPECT_EQ(workspace().Graphics.Status, recording::kFullDisk) << TitleOf(kind);
  }
}

TEST_F(ViewDestinationsTest, ADocumentWithoutFailureReturnsZero) {
  for (const ViewKind kind : AllKinds()) {
    recording::Clear();
    EXPECT_EQ(DrawViewToFile(workspace(), kind, recording::kRecordingSink, kPicture), 0);
  }
}

TEST_F(ViewDestinationsTest, AfterAClipThatCouldNotBeWrittenNothingIsDrawn) {
  for (const ViewKind kind : Tables()) {
    recording::Clear();
    recording::FailLine("clip");
    EXPECT_EQ(DrawViewToFile(workspace(), kind, recording::kRecordingSink, kPicture),
              recording::kFullDisk);
    EXPECT_THAT(recording::Lines(), IsEmpty()) << TitleOf(kind);
  }
}

// --- Metafiles that cannot be made ---------------------------------------------------------------

TEST_F(ViewDestinationsTest, AMetafileThatCannotBeBegunIsStatusMinusOne) {
  for (const ViewKind kind : AllKinds()) {
    Show(kind);
    shell().BeginMetafile = {.Next = 1};
    MetafileRecord record;
    EXPECT_FALSE(DrawViewToMetafile(workspace(), kind, &record)) << TitleOf(kind);
    EXPECT_EQ(workspace().Graphics.Status, -1) << TitleOf(kind);
    EXPECT_EQ(record.Picture.Handle, nullptr);
    EXPECT_THAT(Drawn(), IsEmpty()) << "not even the window";
  }
}

TEST_F(ViewDestinationsTest, AMetafileThatCannotBeKeptIsStatusMinusOneToo) {
  ShowAll();
  const std::vector<double> layouts = Layouts();
  for (const ViewKind kind : AllKinds()) {
    shell().EndMetafile = {.Next = 1};
    MetafileRecord record;
    EXPECT_FALSE(DrawViewToMetafile(workspace(), kind, &record)) << TitleOf(kind);
    EXPECT_EQ(workspace().Graphics.Status, -1) << TitleOf(kind);
    EXPECT_EQ(Layouts(), layouts) << TitleOf(kind);
  }
}

TEST_F(ViewDestinationsTest, AMetafileIsDescribedByThePictureAndTheNameOfItsFile) {
  std::snprintf(workspace().Graphics.FileName, sizeof workspace().Graphics.FileName, "a.wmf");
  MetafileRecord record;
  ASSERT_TRUE(DrawViewToMetafile(workspace(), ViewKind::Scatter, &record));
  EXPECT_EQ(record.Frame, kPicture);
  EXPECT_STREQ(record.FileName, "a.wmf");
  EXPECT_EQ(record.Header[0], 0xD7);
  EXPECT_EQ(record.Header[14] + 256 * record.Header[15], 300);
  toolkit::DeleteMetafile(record.Picture);
}

// --- No trace ------------------------------------------------------------------------------------

TEST_F(ViewDestinationsTest, EveryViewGoesEverywhereWithoutATrace) {
  ShowAll();
  const std::vector<double> layouts = Layouts();
  for (const ViewKind kind : AllKinds()) {
    const std::vector<std::string> screen = Paint(kind);
    for (const Way way : AllWays()) {
      EXPECT_FALSE((this->*way)(kind).empty());
      EXPECT_EQ(Layouts(), layouts) << TitleOf(kind);
      EXPECT_EQ(workspace().Graphics.Device.Dc, nullptr);
      EXPECT_EQ(workspace().Graphics.Lent.Dc, nullptr);
      EXPECT_EQ(shell().OpenDevices, 0) << TitleOf(kind);
      EXPECT_EQ(shell().DeviceObjects, 0) << TitleOf(kind);
      ASSERT_GE(Drawn().size(), screen.size());
      EXPECT_TRUE(std::equal(screen.rbegin(), screen.rend(), Drawn().rbegin()))
          << "the window is drawn again at the end: " << TitleOf(kind);
      EXPECT_EQ(Paint(kind), screen) << TitleOf(kind);
    }
  }
  EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(ViewDestinationsTest, AViewWithoutWindowGoesEverywhereToo) {
  for (const ViewKind kind : AllKinds()) {
    for (const Way way : AllWays()) EXPECT_GT((this->*way)(kind).size(), std::size_t{3});
  }
}

TEST_F(ViewDestinationsTest, OnlyThePrinterChangesThePicturesPlace) {
  for (const ViewKind kind : AllKinds()) {
    ToFile(kind);
    ToMetafile(kind);
    EXPECT_EQ(workspace().ExportRect, kPicture) << TitleOf(kind);
    EXPECT_EQ(workspace().ExportDpi, kExportDpi);
    EXPECT_EQ(workspace().DeviceFontSize, 20);
    EXPECT_EQ(workspace().DevicePenSize, 1.2);
  }
}

TEST_F(ViewDestinationsTest, ADocumentIsDrawnInTheRectangleThatItIsGiven) {
  recording::Clear();
  DrawViewToFile(workspace(), ViewKind::Statistics, recording::kRecordingSink, {5, 6, 70, 80});
  EXPECT_EQ(recording::Lines().front(), "clip 5 6 70 80");
  recording::Clear();
  DrawViewToFile(workspace(), ViewKind::Scatter, recording::kRecordingSink, {0, 0, 480, 240});
  EXPECT_THAT(recording::Lines(), Contains("line 60 200 420 200")) << "the horizontal axis";
}

TEST_F(ViewDestinationsTest, WithoutADeviceThatMeasuresNothingGoesOut) {
  Show(ViewKind::Scatter);
  shell().MeasuringDevice = {.Next = 1, .Lasting = true};
  recording::Clear();
  EXPECT_EQ(DrawViewToFile(workspace(), ViewKind::Scatter, recording::kRecordingSink, kPicture),
            -1);
  EXPECT_THAT(recording::Lines(), IsEmpty());
  EXPECT_EQ(workspace().Graphics.Status, -1);
  workspace().Graphics.Status = 0;
  MetafileRecord record;
  EXPECT_FALSE(DrawViewToMetafile(workspace(), ViewKind::Scatter, &record));
  EXPECT_EQ(workspace().Graphics.Status, -1);
  EXPECT_EQ(shell().LiveMetafiles, 0);
}

}  // namespace
}  // namespace ondrel
