#include "shell/print_command.h"

#include <gmock/gmock.h>

#include "shell/print_fixture.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

using PrintCommandTest = PrintTest;

// --- The way to a printer ------------------------------------------------------------------------

TEST_F(PrintCommandTest, WithoutAnActiveViewNothingIsDone) {
  EXPECT_THAT(Print(), IsEmpty());
  EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(PrintCommandTest, WithoutADefaultPrinterTheCodeIsMinusOne) {
  Open(ViewKind::Level);
  WatchBoxes();
  shell().Printer.Exists = false;
  EXPECT_THAT(Print(), ElementsAre("default printer"));
  ExpectOneReport("-1");
}

TEST_F(PrintCommandTest, CancelInTheSetupDialogEndsAll) {
  Open(ViewKind::Level);
  workspace().ScreenDpi = 1.0;
  shell().Printer.Answers = {false, true};
  EXPECT_THAT(Print(), ElementsAre("default printer", "print setup dialog", "printer freed"));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_EQ(workspace().ExportDpi, 0.0);
  EXPECT_EQ(workspace().ScreenDpi, 1.0);
}

TEST_F(PrintCommandTest, CancelInThePrintDialogEndsAll) {
  Open(ViewKind::Level);
  workspace().ScreenDpi = 1.0;
  View(ViewKind::Level).NeedsRebuild = true;
  shell().Printer.Answers = {true, false};
  EXPECT_THAT(Print(), ElementsAre("default printer", "print setup dialog", "print dialog",
                                   "printer freed"));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_EQ(workspace().ExportDpi, 0.0);
  EXPECT_EQ(workspace().ScreenDpi, 1.0);
  EXPECT_TRUE(FrameIsEnabled());
  EXPECT_TRUE(View(ViewKind::Level).NeedsRebuild) << "no repaint pass";
}

TEST_F(PrintCommandTest, TheDeviceOfThePrintDialogReplacesThatOfTheSetup) {
  Open(ViewKind::Level);
  shell().Printer.ChosenDpi = {150.0, 600.0};
  Print();
  EXPECT_EQ(workspace().ExportDpi, 600.0);
}

// --- A print that goes well ----------------------------------------------------------------------

TEST_F(PrintCommandTest, ThePrintGoesThroughItsStepsInTheirOrder) {
  Open(ViewKind::Scatter);
  EXPECT_THAT(Print(),
              ElementsAre("default printer", "print setup dialog", "print dialog", "frame disabled",
                          "dialog 101 opens", "abort procedure", "start document Ond Window",
                          "start page", "end page", "end document", "frame enabled",
                          "dialog 101 is gone", "printer freed"));
  EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(PrintCommandTest, TheActiveViewIsDrawnOnThePage) {
  FillLevels(1, [](LevelRecord& level, std::int32_t) { level.Amplitude = -7.25e-12; });
  Open(ViewKind::Event);
  Open(ViewKind::Level);
  Paint(ViewKind::Level);
  Print();
  const std::vector<DrawnText> texts = TextsIn(Paper());
  EXPECT_TRUE(std::any_of(texts.begin(), texts.end(), [](const DrawnText& text) {
    return text.Text.find("7.25") != std::string::npos;
  }));
}

TEST_F(PrintCommandTest, EveryKindOfViewHasAPage) {
  FillEvents(1, [](EventRecord&, std::int32_t) {});
  FillSweeps(1, [](SweepRecord&, std::int32_t) {});
  FillLevels(1, [](LevelRecord&, std::int32_t) {});
  for (const ViewKind kind : AllKinds()) {
    Open(kind);
    shell().Printer.Answers = {true, true};
    Print();
    EXPECT_THAT(Paper(), Not(IsEmpty())) << FactsOf(kind).Title;
    EXPECT_THAT(LinesWith(Paper(), "fill "), IsEmpty()) << FactsOf(kind).Title << ": a background";
  }
  EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(PrintCommandTest, AllThatIsDrawnOnPaperIsDrawnBetweenStartAndEndOfThePage) {
  Open(ViewKind::Scatter);
  std::size_t atStart = 1;
  std::size_t atEnd = 0;
  shell().Printer.WhileBusy = [&] { (Has("end page") ? atEnd : atStart) = Paper().size(); };
  Print();
  EXPECT_EQ(atStart, 0u);
  EXPECT_GT(atEnd, 0u);
  EXPECT_EQ(Paper().size(), atEnd);
}

TEST_F(PrintCommandTest, WhileItGoesOnTheFrameIsDisabledAndTheDialogIsThere) {
  Open(ViewKind::Level);
  int seen = 0;
  shell().Printer.WhileBusy = [&] {
    ++seen;
    EXPECT_FALSE(FrameIsEnabled());
    ASSERT_NE(scripted::DialogBeside(), nullptr);
    EXPECT_EQ(scripted::DialogBeside()->Resource(), kPrintingDialog);
  };
  Print();
  EXPECT_EQ(seen, 2) << "at the start of the document and at the end of the page";
  EXPECT_TRUE(FrameIsEnabled());
}

TEST_F(PrintCommandTest, WhileItGoesOnNoViewCloses) {
  ChildWindow* window = Open(ViewKind::Level);
  shell().Printer.WhileBusy = [&] {
    EXPECT_TRUE(workspace().Printing);
    window->Callbacks->Close(window);
  };
  Print();
  EXPECT_EQ(View(ViewKind::Level).Window, window);
  EXPECT_FALSE(workspace().Printing);
  EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(PrintCommandTest, OnlyTheButtonOfTheDialogStops) {
  Open(ViewKind::Level);
  shell().Printer.WhileBusy = [] { scripted::DialogBeside()->Press(1); };
  Print();
  EXPECT_TRUE(Has("end document"));
  EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(PrintCommandTest, AFailureOfTheEndOfTheDocumentIsNotTold) {
  Open(ViewKind::Level);
  shell().Printer.EndDocument = {.Next = 1};
  Print();
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_TRUE(FrameIsEnabled());
}

TEST_F(PrintCommandTest, AtTheEndStaleViewsAreRepainted) {
  Open(ViewKind::Statistics);
  Open(ViewKind::Scatter);
  View(ViewKind::Statistics).NeedsRebuild = true;
  Print();
  EXPECT_FALSE(View(ViewKind::Statistics).NeedsRebuild);
  EXPECT_THAT(WindowOf(ViewKind::Statistics).Invalidated, Not(IsEmpty()));
}

TEST_F(PrintCommandTest, TheTwoHistogramsAreStaleOnceTheyAreOnThePage) {
  for (const ViewKind kind : AllKinds()) {
    Open(kind);
    shell().Printer.Answers = {true, true};
    bool staleAtStart = true;
    bool staleAtEnd = false;
    shell().Printer.WhileBusy = [&] {
      (Has("end page") ? staleAtEnd : staleAtStart) = View(kind).NeedsRebuild;
    };
    Print();
    EXPECT_FALSE(staleAtStart) << FactsOf(kind).Title;
    EXPECT_EQ(staleAtEnd, kind == ViewKind::Amplitude || kind == ViewKind::Duration)
        << FactsOf(kind).Title;
    EXPECT_FALSE(View(kind).NeedsRebuild) << FactsOf(kind).Title;
  }
}

// --- The geometry of the page --------------------------------------------------------------------

class PageGeometryTest : public PrintTest {
 protected:
  /// A view with an inside of 400 by 301 on a screen of 96 dots per inch, unless a test says other.
  PageGeometryTest() {
    Open(ViewKind::Scatter);
    scripted::WindowOf(View(ViewKind::Scatter).Window).Client = {0, 0, 400, 301};
    workspace().FontSize = 11;
    workspace().PenSize = 0.25;
  }

  void PrintAt(double dpi) {
    shell().Printer.ChosenDpi = {dpi, dpi};
    Print();
  }
};

TEST_F(PageGeometryTest, OnThreeHundredDotsPerInchEverythingIsThreeTimesAndAnEighthAsLarge) {
  PrintAt(300.0);
  EXPECT_EQ(workspace().DeviceFontSize, 45);  // 11 * 300 / 72 = 45.83
  EXPECT_DOUBLE_EQ(workspace().DevicePenSize, 0.25 * 300.0 / 72.0);
  EXPECT_EQ(workspace().ExportDpi, 300.0);
  EXPECT_EQ(workspace().ExportRect, (IntRect{0, 0, 1250, 940}));  // 301 * 3.125 = 940.6
}

TEST_F(PageGeometryTest, LettersOfNoSizeCountAsTheSmallestOnes) {
  workspace().FontSize = 0;
  PrintAt(300.0);
  EXPECT_EQ(workspace().DeviceFontSize, 4);  // 1 * 300 / 72 = 4.17
}

TEST_F(PageGeometryTest, OnNinetySixDotsPerInchThePageIsTheWindow) {
  PrintAt(96.0);
  EXPECT_EQ(workspace().DeviceFontSize, 14);  // 11 * 96 / 72 = 14.67
  EXPECT_DOUBLE_EQ(workspace().DevicePenSize, 0.25 * 96.0 / 72.0);
  EXPECT_EQ(workspace().ExportDpi, 96.0);
  EXPECT_EQ(workspace().ExportRect, (IntRect{0, 0, 400, 301}));
}

TEST_F(PageGeometryTest, AScreenOfFinerDotsMakesASmallerPage) {
  shell().DeviceDpi = 120.0;
  PrintAt(300.0);
  EXPECT_EQ(workspace().ScreenDpi, 120.0);
  EXPECT_EQ(workspace().ExportRect, (IntRect{0, 0, 1000, 752}));  // 301 * 2.5 = 752.5
}

TEST_F(PageGeometryTest, TheGeometryStandsBeforeThePageIsDrawn) {
  PrintAt(300.0);
  EXPECT_THAT(Paper(), ::testing::Contains("clip 0 0 1250 940"));
}

TEST_F(PageGeometryTest, AWindowLargerThanAnyPageIsCutToWhatNumbersHold) {
  workspace().FontSize = 2147483647;
  PrintAt(1e9);
  EXPECT_EQ(workspace().DeviceFontSize, 2147483647);
  EXPECT_EQ(workspace().ExportRect, (IntRect{0, 0, 2147483647, 2147483647}));
}

}  // namespace
}  // namespace ondrel
