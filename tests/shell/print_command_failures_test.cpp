// Prints that fail or are stopped by the user: what is told, and in which state all is left.
#include <gmock/gmock.h>

#include "shell/print_command.h"
#include "shell/print_fixture.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

class FailingPrintTest : public PrintTest {
 protected:
  FailingPrintTest() {
    Open(ViewKind::Statistics);
    Open(ViewKind::Scatter);
    View(ViewKind::Statistics).NeedsRebuild = true;
    WatchBoxes();
  }

  /// The lines behind the two dialogs of the printer.
  std::vector<std::string> Steps() {
    const std::vector<std::string> all = Print();
    return {all.begin() + 3, all.end()};
  }

  bool RepaintPassWasDone() { return !View(ViewKind::Statistics).NeedsRebuild; }
};

// --- Failures ------------------------------------------------------------------------------------

TEST_F(FailingPrintTest, WithoutADialogTheCodeIsMinusElevenAndTheFrameStaysDisabled) {
  shell().OpenDialogBeside = {.Next = 1};
  EXPECT_THAT(Steps(), ElementsAre("frame disabled", "printer freed"));
  ExpectOneReport("-11", false);
  EXPECT_FALSE(FrameIsEnabled());
  EXPECT_THAT(Paper(), IsEmpty());
  EXPECT_FALSE(RepaintPassWasDone());
}

TEST_F(FailingPrintTest, ADocumentThatDoesNotStartIsCodeMinusElevenWhateverThePlatformSays) {
  shell().Printer.StartDocument = {.Next = 1};
  EXPECT_THAT(Steps(), ElementsAre("frame disabled", "dialog 101 opens", "abort procedure",
                                   "start document Ond Window", "frame enabled",
                                   "dialog 101 is gone", "printer freed"));
  ExpectOneReport("-11");
  EXPECT_TRUE(FrameIsEnabled());
  EXPECT_THAT(Paper(), IsEmpty());
  EXPECT_EQ(workspace().ExportDpi, 0.0) << "the page was laid out";
  EXPECT_FALSE(RepaintPassWasDone());
}

TEST_F(FailingPrintTest, APageThatDoesNotStartIsCodeMinusElevenAndEndsTheDocument) {
  shell().Printer.StartPage = {.Next = 1};
  EXPECT_THAT(Steps(), ElementsAre("frame disabled", "dialog 101 opens", "abort procedure",
                                   "start document Ond Window", "start page", "end document",
                                   "frame enabled", "dialog 101 is gone", "printer freed"));
  ExpectOneReport("-11");
  EXPECT_TRUE(FrameIsEnabled());
  EXPECT_EQ(workspace().ExportDpi, 0.0) << "the page was laid out";
  EXPECT_FALSE(RepaintPassWasDone());
}

TEST_F(FailingPrintTest, APageThatDoesNotEndIsThePlatformsCodeAndTheDocumentIsNotEnded) {
  shell().Printer.EndPage = {.Next = 1};
  shell().Printer.Error = 1722;
  EXPECT_THAT(Steps(), ElementsAre("frame disabled", "dialog 101 opens", "abort procedure",
                                   "start document Ond Window", "start page", "end page",
                                   "frame enabled", "dialog 101 is gone", "printer freed"));
  ExpectOneReport("1722");
  EXPECT_TRUE(FrameIsEnabled());
  EXPECT_THAT(Paper(), Not(IsEmpty()));
  EXPECT_FALSE(RepaintPassWasDone());
}

TEST_F(FailingPrintTest, AHistogramWhosePageDoesNotEndStaysStale) {
  Open(ViewKind::Amplitude);
  shell().Printer.EndPage = {.Next = 1};
  Print();
  EXPECT_TRUE(View(ViewKind::Amplitude).NeedsRebuild);
}

TEST_F(FailingPrintTest, TheNextPrintAfterAFailureIsWhole) {
  shell().Printer.StartPage = {.Next = 1};
  Print();
  shell().Printer.Answers = {true, true};
  Print();
  EXPECT_TRUE(Has("end document"));
  EXPECT_EQ(Messages().size(), 1u);
}

// --- The button of the dialog --------------------------------------------------------------------

TEST_F(FailingPrintTest, TheButtonEnablesTheFrameBeforeTheDialogGoes) {
  StopAfter("end page");
  EXPECT_THAT(Steps(),
              ElementsAre("frame disabled", "dialog 101 opens", "abort procedure",
                          "start document Ond Window", "start page", "end page", "frame enabled",
                          "dialog 101 is gone", "end document", "printer freed"));
}

TEST_F(FailingPrintTest, StoppedAtTheEndOfThePageNothingIsToldAndTheFlowGoesOn) {
  StopAfter("end page");
  Print();
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_TRUE(Has("end document"));
  EXPECT_TRUE(FrameIsEnabled());
  EXPECT_TRUE(RepaintPassWasDone());
}

TEST_F(FailingPrintTest, EscapeAndTheCloseBoxAreTheButton) {
  shell().Printer.WhileBusy = [this] {
    if (!Has("end page")) return;
    scripted::DialogBeside()->Escape();
    EXPECT_EQ(scripted::DialogBeside(), nullptr);
    EXPECT_TRUE(FrameIsEnabled());
  };
  Print();
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_TRUE(Has("dialog 101 is gone"));
}

TEST_F(FailingPrintTest, StoppedWhenThePageEndsWellTheFlowGoesOnToo) {
  shell().Printer.MindsAbort = false;
  StopAfter("end page");
  Print();
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_TRUE(Has("end document"));
  EXPECT_TRUE(RepaintPassWasDone());
}

TEST_F(FailingPrintTest, StoppedAtTheStartOfTheDocumentTheCodeIsMinusEleven) {
  StopAfter("start document Ond Window");
  Print();
  EXPECT_FALSE(Has("start page"));
  EXPECT_FALSE(Has("end document"));
  ExpectOneReport("-11");
  EXPECT_TRUE(FrameIsEnabled());
}

TEST_F(FailingPrintTest, StoppedBeforeAPageThatFailsThePrintEndsSilently) {
  shell().Printer.MindsAbort = false;
  shell().Printer.StartPage = {.Next = 1};
  StopAfter("start document Ond Window");
  EXPECT_THAT(Steps(),
              ElementsAre("frame disabled", "dialog 101 opens", "abort procedure",
                          "start document Ond Window", "frame enabled", "dialog 101 is gone",
                          "start page", "end document", "printer freed"));
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_FALSE(RepaintPassWasDone());
}

TEST_F(FailingPrintTest, StoppedBeforeThePageNothingIsDrawnEvenIfThePrinterWouldGoOn) {
  shell().Printer.MindsAbort = false;
  StopAfter("start document Ond Window");
  Print();
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_FALSE(Has("end page"));
  EXPECT_TRUE(Has("end document"));
  EXPECT_EQ(workspace().ExportDpi, 0.0) << "the page was laid out";
  EXPECT_TRUE(FrameIsEnabled());
}

}  // namespace
}  // namespace ondrel
