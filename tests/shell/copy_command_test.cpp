// The copy command.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/copy_command.h"
#include "shell/graph_export_fixture.h"

namespace ondrel {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class CopyCommandTest : public PictureCommandTest {
 protected:
  void Copy() { CopyCommand(Frame()); }

  static std::string NotCopied(const std::string& name, int code) {
    return "Error occured while copying " + name + " window to Clipboard. Error code " +
           std::to_string(code) + ".";
  }

  void CopyAndTell(const std::string& message) {
    ForgetAll();
    Copy();
    EXPECT_THAT(Messages(), ElementsAre(message));
    EXPECT_EQ(shell().LiveMetafiles, 0);
    EXPECT_FALSE(shell().Clipboard.Open);
    EXPECT_EQ(shell().OpenDevices, 0);
    EXPECT_EQ(shell().DeviceObjects, 0);
    shell().Boxes.clear();
  }
};

TEST_F(CopyCommandTest, WithoutAViewNothingHappens) {
  Copy();
  EXPECT_THAT(Happened(), IsEmpty());
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_EQ(shell().BeginMetafile.Calls, 0);
}

TEST_F(CopyCommandTest, EveryViewIsCopiedWithoutADialog) {
  for (const ViewKind kind : AllKinds()) {
    Show(kind);
    shell().Clipboard = {};
    Copy();
    EXPECT_TRUE(shell().Clipboard.HasPicture) << TitleOf(kind);
    EXPECT_THAT(shell().Dialogs, IsEmpty());
    EXPECT_THAT(shell().FileDialogs, IsEmpty());
    EXPECT_THAT(Messages(), IsEmpty());
  }
}

TEST_F(CopyCommandTest, ThePictureIsLargerThanTheWindowByDotsPerInchOver72) {
  Show(ViewKind::Scatter);
  WindowOf(ViewKind::Scatter).Client = {0, 0, 401, 302};
  Copy();
  EXPECT_EQ(shell().Clipboard.Width, 534);   // 401 * 96 / 72 = 534.67
  EXPECT_EQ(shell().Clipboard.Height, 402);  // 402.67
  EXPECT_EQ(workspace().ExportRect, (IntRect{0, 0, 534, 402}));
}

TEST_F(CopyCommandTest, ThePictureBeginsWhereTheClientAreaDoes) {
  Show(ViewKind::Scatter);
  WindowOf(ViewKind::Scatter).Client = {10, 20, 82, 164};
  Copy();
  EXPECT_EQ(workspace().ExportRect, (IntRect{10, 20, 106, 212}));
  EXPECT_EQ(shell().Clipboard.Width, 96);
  EXPECT_EQ(shell().Clipboard.Height, 192);
}

TEST_F(CopyCommandTest, FontsAndPensAreThoseOfTheScreen) {
  workspace().FontSize = 10;
  workspace().PenSize = 1.0;
  Show(ViewKind::Scatter);
  Copy();
  EXPECT_EQ(workspace().DeviceFontSize, 13);  // 10 * 96 / 72 = 13.3
  EXPECT_DOUBLE_EQ(workspace().DevicePenSize, 96.0 / 72.0);
  EXPECT_EQ(shell().Clipboard.Picture.front(), "pen width 2");
}

TEST_F(CopyCommandTest, TheScreensDotsPerInchAreReadFromTheWindow) {
  shell().DeviceDpi = 144.0;
  Show(ViewKind::Scatter);
  workspace().ScreenDpi = 50.0;
  Copy();
  EXPECT_EQ(workspace().ScreenDpi, 144.0);
  EXPECT_EQ(workspace().DeviceFontSize, 20);
  EXPECT_EQ(shell().Clipboard.Width, 800);  // twice 400
}

TEST_F(CopyCommandTest, TheExportsDotsPerInchComeBackAfterwards) {
  Show(ViewKind::AmplitudeFit);
  workspace().ExportDpi = 1200.0;
  Copy();
  EXPECT_EQ(workspace().ExportDpi, 1200.0);
  EXPECT_THAT(LinesWith(shell().Clipboard.Picture, "image"), ElementsAre("image 600 0 0 376 79"))
      << "by the screen's dots per inch, not by those of the last export";
  shell().BeginMetafile = {.Next = 1};
  Copy();
  EXPECT_EQ(workspace().ExportDpi, 1200.0) << "also after a failure";
}

TEST_F(CopyCommandTest, TheNameOfAFormerMetafileIsForgotten) {
  Show(ViewKind::Scatter);
  std::snprintf(workspace().Graphics.FileName, sizeof workspace().Graphics.FileName, "former.wmf");
  Copy();
  EXPECT_STREQ(workspace().Graphics.FileName, "");
  EXPECT_EQ(shell().Create.Calls, 0);
}

TEST_F(CopyCommandTest, TheClipboardIsOpenedEmptiedGivenThePictureAndClosed) {
  Show(ViewKind::Scatter);
  Copy();
  EXPECT_THAT(LinesWith(Happened(), "clipboard"),
              ElementsAre("clipboard opened", "clipboard emptied", "clipboard given a picture",
                          "clipboard closed"));
}

TEST_F(CopyCommandTest, TheWindowIsDrawnAgain) {
  Show(ViewKind::Level);
  const std::vector<std::string> screen = Paint(ViewKind::Level);
  const auto columns = View(ViewKind::Level).ColumnRight;
  ForgetAll();
  Copy();
  EXPECT_EQ(View(ViewKind::Level).ColumnRight, columns);
  ASSERT_GE(Drawn().size(), screen.size());
  EXPECT_TRUE(std::equal(screen.rbegin(), screen.rend(), Drawn().rbegin()));
}

// --- Failures ------------------------------------------------------------------------------------

TEST_F(CopyCommandTest, AClipboardThatCannotBeOpenedLeavesItsPictureThere) {
  Show(ViewKind::Scatter);
  Copy();
  shell().OpenClipboard = {.Next = 1};
  CopyAndTell(NotCopied("Scatter Plot", 0));
  EXPECT_TRUE(shell().Clipboard.HasPicture);
  EXPECT_THAT(LinesWith(Happened(), "clipboard"), IsEmpty());
}

TEST_F(CopyCommandTest, AClipboardThatCannotBeEmptiedIsClosedAgain) {
  Show(ViewKind::Scatter);
  shell().EmptyClipboard = {.Next = 1};
  CopyAndTell(NotCopied("Scatter Plot", 0));
  EXPECT_THAT(LinesWith(Happened(), "clipboard"),
              ElementsAre("clipboard opened", "clipboard closed"));
}

TEST_F(CopyCommandTest, TheCodeIsThatOfDeletingThePicture) {
  Show(ViewKind::Scatter);
  shell().MetafileError = 1234;
  shell().OpenClipboard = {.Next = 1};
  shell().DeleteMetafile = {.Next = 1};
  CopyAndTell(NotCopied("Scatter Plot", 1234));
  shell().EmptyClipboard = {.Next = 1};
  shell().DeleteMetafile = {.Next = 1};
  CopyAndTell(NotCopied("Scatter Plot", 1234));
}

TEST_F(CopyCommandTest, APictureThatTheClipboardDoesNotTakeIsDeletedAndTheCodeIsZero) {
  Show(ViewKind::Scatter);
  shell().GiveToClipboard = {.Next = 1};
  CopyAndTell(NotCopied("Scatter Plot", 0));
  shell().GiveToClipboard = {.Next = 1};
  shell().DeleteMetafile = {.Next = 1};
  CopyAndTell(NotCopied("Scatter Plot", 0));
  EXPECT_THAT(LinesWith(Happened(), "clipboard"),
              ElementsAre("clipboard opened", "clipboard emptied", "clipboard closed"));
}

TEST_F(CopyCommandTest, AClipboardThatCannotBeClosedIsToldWithCodeZero) {
  Show(ViewKind::Scatter);
  shell().CloseClipboard = {.Next = 1};
  CopyAndTell(NotCopied("Scatter Plot", 0));
}

TEST_F(CopyCommandTest, TwoFailuresOfTheClipboardAreToldAsOne) {
  Show(ViewKind::Scatter);
  shell().GiveToClipboard = {.Next = 1};
  shell().CloseClipboard = {.Next = 1};
  CopyAndTell(NotCopied("Scatter Plot", 0));
}

TEST_F(CopyCommandTest, AMetafileThatCannotBeMadeIsToldWithItsStatus) {
  Show(ViewKind::Scatter);
  shell().BeginMetafile = {.Next = 1};
  CopyAndTell(NotCopied("Scatter Plot", -1));
  shell().EndMetafile = {.Next = 1};
  CopyAndTell(NotCopied("Scatter Plot", -1));
  EXPECT_THAT(LinesWith(Happened(), "clipboard"), IsEmpty());
  Copy();
  EXPECT_TRUE(shell().Clipboard.HasPicture) << "the program goes on";
}

struct NamedView {
  ViewKind Kind;
  std::string Name;
};

TEST_F(CopyCommandTest, TheReportNamesTheView) {
  for (const NamedView& view : {NamedView{ViewKind::Event, "Events"},
                                {ViewKind::Level, "Levels"},
                                {ViewKind::Amplitude, "Amplitude"},
                                {ViewKind::AmplitudeScatter, "Amplitude Scatter Plot"},
                                {ViewKind::Duration, "Duration"},
                                {ViewKind::DurationScatter, "Duration Scatter Plot"},
                                {ViewKind::AmplitudeFit, "Amplitude Fit Parameters"},
                                {ViewKind::DurationFit, "Duration Fit Parameters"},
                                {ViewKind::Scatter, "Scatter Plot"},
                                {ViewKind::Stationarity, "Stationarity"},
                                {ViewKind::Statistics, "Statistics"},
                                {ViewKind::Sweep, "Sweeps"}}) {
    Show(view.Kind);
    shell().OpenClipboard = {.Next = 1};
    CopyAndTell(NotCopied(view.Name, 0));
  }
}

}  // namespace
}  // namespace ondrel
