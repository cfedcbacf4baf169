#include "shell/graph_export.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/graph_export_fixture.h"

namespace ondrel {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

class GraphExportTest : public PictureCommandTest {
 protected:
  static constexpr ExportChoice kAllForms[] = {ExportChoice::Illustrator, ExportChoice::Clipboard,
                                               ExportChoice::Eps, ExportChoice::Metafile};
};

// --- Which view, and the dialog ------------------------------------------------------------------

TEST_F(GraphExportTest, WithoutAViewNothingHappens) {
  ExportGraphCommand(Frame());
  EXPECT_THAT(shell().Dialogs, IsEmpty());
  EXPECT_THAT(shell().FileDialogs, IsEmpty());
}

TEST_F(GraphExportTest, TheViewInFrontIsExported) {
  Show(ViewKind::Statistics);
  Show(ViewKind::Event);
  Export(ExportChoice::Eps);
  EXPECT_THAT(DocumentLines(), Contains("(Transition(s)) right_show"));
  toolkit::BringForward(View(ViewKind::Statistics).Window);
  Export(ExportChoice::Eps);
  EXPECT_THAT(DocumentLines(), Contains("(Total events: 3) show"));
}

TEST_F(GraphExportTest, TheDialogBeginsWithTheSizeOfTheViewOnTheScreen) {
  Show(ViewKind::Scatter);
  WindowOf(ViewKind::Scatter).Client = {0, 0, 756, 378};
  shell().DialogScripts.push_back([](scripted::OpenDialog& dialog) {
    EXPECT_EQ(dialog.At(kHeight).Text, "10.00");
    EXPECT_EQ(dialog.At(kWidth).Text, "20.00");
    EXPECT_EQ(dialog.At(kResolution).Text, "96.00");
  });
  ExportGraphCommand(Frame());
}

TEST_F(GraphExportTest, CancelInTheDialogEndsWithoutAnythingElse) {
  Show(ViewKind::Scatter);
  const GraphicsContext before = workspace().Graphics;
  ExportGraphCommand(Frame());
  EXPECT_THAT(shell().FileDialogs, IsEmpty());
  EXPECT_EQ(workspace().ExportRect, (IntRect{}));
  EXPECT_EQ(workspace().DeviceFontSize, 0);
  EXPECT_EQ(workspace().Graphics.PageHeight, before.PageHeight);
  EXPECT_THAT(Drawn(), IsEmpty());
}

TEST_F(GraphExportTest, HeightBelow3OrWidthBelow5DisablesOkUntilTheFieldIsMended) {
  Show(ViewKind::Scatter);
  shell().DialogScripts.push_back([](scripted::OpenDialog& dialog) {
    dialog.Type(kHeight, "2.99");
    EXPECT_FALSE(dialog.At(kOk).Enabled);
    dialog.Type(kWidth, "4.99");
    dialog.Type(kHeight, "3");
    EXPECT_FALSE(dialog.At(kOk).Enabled) << "the width is still out of range";
    dialog.Type(kWidth, "5");
    EXPECT_TRUE(dialog.At(kOk).Enabled);
    dialog.Choose(kForm, 1);
    dialog.Press(kOk);
  });
  ExportGraphCommand(Frame());
  EXPECT_TRUE(shell().Clipboard.HasPicture);
  EXPECT_EQ(workspace().ExportRect, (IntRect{0, 0, 188, 113}));  // 5 and 3 cm
}

TEST_F(GraphExportTest, TheChosenFormAndResolutionAreKept) {
  Show(ViewKind::Scatter);
  Export(ExportChoice::Metafile, {.Resolution = "600"});
  EXPECT_EQ(workspace().ExportType, ExportChoice::Metafile);
  EXPECT_EQ(workspace().ExportDpi, 600.0);
}

// --- Set-up --------------------------------------------------------------------------------------

TEST_F(GraphExportTest, APageOfAnEpsDocumentIsMeasuredInPoints) {
  Show(ViewKind::Scatter);
  workspace().ScreenDpi = 120.0;
  Export(ExportChoice::Eps, {.Height = "12.7"});
  EXPECT_DOUBLE_EQ(workspace().Graphics.PageHeight, 360.0);
  EXPECT_EQ(workspace().Graphics.PointScale, 0.013888888888888888 * 120.0);
}

TEST_F(GraphExportTest, PagesOfAllOthersAreMeasuredInDotsOfTheScreen) {
  Show(ViewKind::Scatter);
  workspace().ScreenDpi = 120.0;
  for (const ExportChoice form :
       {ExportChoice::Illustrator, ExportChoice::Clipboard, ExportChoice::Metafile}) {
    workspace().Graphics.PointScale = 7.0;
    Export(form, {.Height = "12.7", .Resolution = "300"});
    EXPECT_DOUBLE_EQ(workspace().Graphics.PageHeight, 600.0);
    EXPECT_EQ(workspace().Graphics.PointScale, 7.0) << "of EPS alone";
  }
}

TEST_F(GraphExportTest, AMetafileIsDrawnInItsOwnDotsPerInch) {
  Show(ViewKind::Scatter);
  workspace().FontSize = 11;
  workspace().PenSize = 0.6;
  Export(ExportChoice::Metafile, {.Height = "10", .Width = "20", .Resolution = "250"});
  EXPECT_EQ(workspace().ExportRect, (IntRect{0, 0, 1968, 984}));  // 1968.5 and 984.25
  EXPECT_EQ(workspace().DeviceFontSize, 38);                      // 11 * 250 / 72 = 38.19
  EXPECT_DOUBLE_EQ(workspace().DevicePenSize, 0.6 * 250.0 / 72.0);
}

TEST_F(GraphExportTest, AllOthersAreDrawnInDotsOfTheScreenWithPointsForSizes) {
  Show(ViewKind::Scatter);
  workspace().FontSize = 11;
  workspace().PenSize = 0.6;
  for (const ExportChoice form :
       {ExportChoice::Illustrator, ExportChoice::Clipboard, ExportChoice::Eps}) {
    workspace().ExportRect = {};
    Export(form, {.Height = "10", .Width = "20", .Resolution = "250"});
    EXPECT_EQ(workspace().ExportRect, (IntRect{0, 0, 755, 377}));  // 755.9 and 377.95
    EXPECT_EQ(workspace().DeviceFontSize, 11);
    EXPECT_EQ(workspace().DevicePenSize, 0.6);
  }
}

TEST_F(GraphExportTest, TheRightEdgeIsWorkedOutFromTheTopButInAMetafile) {
  Show(ViewKind::Scatter);
  WindowOf(ViewKind::Scatter).Client = {7, 1000, 400, 1300};
  Export(ExportChoice::Clipboard);
  EXPECT_EQ(workspace().ExportRect, (IntRect{7, 1000, 1576, 1576}));
  Export(ExportChoice::Metafile);
  EXPECT_EQ(workspace().ExportRect, (IntRect{7, 1000, 583, 1576}));
}

TEST_F(GraphExportTest, TheContextIsSetUpForTheForm) {
  Show(ViewKind::Scatter);
  workspace().FontSize = 12;
  workspace().PenSize = 0.5;
  for (const ExportChoice form : kAllForms) {
    std::snprintf(workspace().Graphics.FontName, sizeof workspace().Graphics.FontName, "Courier");
    workspace().Graphics.DocumentFontSize = 0;
    workspace().Graphics.PenWidth = 0.0;
    Export(form, {.Resolution = "144"});
    const bool metafile = form == ExportChoice::Metafile;
    EXPECT_STREQ(workspace().Graphics.FontName, "Helvetica");
    EXPECT_EQ(workspace().Graphics.DocumentFontSize, metafile ? 24 : 12);
    EXPECT_EQ(workspace().Graphics.PenWidth, metafile ? 1.0 : 0.5);
  }
}

TEST_F(GraphExportTest, TheLargestSizesThatTheDialogTakesDoNoHarm) {
  for (const ViewKind kind : AllKinds()) {
    Show(kind);
    for (const ExportChoice form : kAllForms) {
      shell().KeepsDrawing = false;
      shell().LargestAllocation = 1 << 20;
      Export(form, {.Height = "1e20", .Width = "1e20", .Resolution = "1e20"});
    }
  }
  EXPECT_EQ(workspace().ExportRect.Right, 2147483647);
}

// --- Forms ---------------------------------------------------------------------------------------

struct ExpectedDialog {
  ExportChoice Form;
  std::string Title;
  std::string DefaultName;
};

TEST_F(GraphExportTest, EachFormAsksForItsFileUnderItsTitle) {
  Show(ViewKind::Scatter);
  for (const ExpectedDialog& expected :
       {ExpectedDialog{ExportChoice::Illustrator, "Export window as:", "Untitled"},
        {ExportChoice::Eps, "Export EPS as:", "Untitled"},
        {ExportChoice::Metafile, "Export PICT as:", "Untitled.wmf"}}) {
    shell().FileDialogs.clear();
    Export(expected.Form);
    ASSERT_EQ(shell().FileDialogs.size(), std::size_t{1});
    EXPECT_EQ(shell().FileDialogs[0].Mode, toolkit::FileDialogMode::Save);
    EXPECT_EQ(shell().FileDialogs[0].Title, expected.Title);
    EXPECT_EQ(shell().FileDialogs[0].DefaultName, expected.DefaultName);
  }
  shell().FileDialogs.clear();
  Export(ExportChoice::Clipboard);
  EXPECT_THAT(shell().FileDialogs, IsEmpty());
}

TEST_F(GraphExportTest, CancelInTheSaveDialogEndsTheExportWithNoMessage) {
  Show(ViewKind::Scatter);
  path_ = "";
  for (const ExportChoice form :
       {ExportChoice::Illustrator, ExportChoice::Eps, ExportChoice::Metafile}) {
    ForgetAll();
    Export(form);
    EXPECT_EQ(shell().Create.Calls, 0);
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_THAT(Drawn(), IsEmpty());
  }
}

TEST_F(GraphExportTest, AnIllustratorDocumentEndsTheClipOfATableAndOfNoGraph) {
  for (const ViewKind kind : AllKinds()) {
    Show(kind);
    Export(ExportChoice::Illustrator);
    const std::vector<std::string> lines = DocumentLines();
    ASSERT_GT(lines.size(), std::size_t{8});
    EXPECT_EQ(lines[2], "%%BoundingBox: 0 0 576 576");
    EXPECT_EQ(lines[3], "%%TemplateBox: 0 0 576 576");
    EXPECT_EQ(lines.back(), "%%Trailer");
    const bool table = FactsOf(kind).ClipsInFiles;
    EXPECT_EQ(lines[6] == "q", table) << TitleOf(kind);
    EXPECT_EQ(lines[lines.size() - 2] == "Q", table) << TitleOf(kind);
    EXPECT_THAT(lines, Contains("Q").Times(table ? 1 : 0)) << TitleOf(kind);
  }
}

TEST_F(GraphExportTest, AnEpsDocumentNeverEndsItsClip) {
  for (const ViewKind kind : AllKinds()) {
    Show(kind);
    Export(ExportChoice::Eps);
    const std::vector<std::string> lines = DocumentLines();
    ASSERT_GT(lines.size(), std::size_t{20});
    EXPECT_EQ(lines[1], "%%BoundingBox: 0 0 432 432");
    EXPECT_EQ(lines[17] == "clip", FactsOf(kind).ClipsInFiles) << TitleOf(kind);
    EXPECT_EQ(lines[lines.size() - 2], "showpage");
    EXPECT_EQ(lines.back(), "%%EOF");
    EXPECT_THAT(lines, Not(Contains("Q"))) << TitleOf(kind);
  }
}

TEST_F(GraphExportTest, TheBoxOfAnEpsDocumentIsTruncatedToPoints) {
  Show(ViewKind::Scatter);
  Export(ExportChoice::Eps, {.Height = "10", .Width = "20"});  // 755 and 377 at 4/3
  EXPECT_THAT(DocumentLines(), Contains("%%BoundingBox: 0 0 566 282"));
}

TEST_F(GraphExportTest, AMetafileOnDiskIsItsHeaderAndTheDrawing) {
  for (const ViewKind kind : AllKinds()) {
    Show(kind);
    Export(ExportChoice::Metafile, {.Height = "10", .Width = "20", .Resolution = "250"});
    const std::string bytes = OnDisk();
    ASSERT_GT(bytes.size(), std::size_t{22}) << TitleOf(kind);
    EXPECT_EQ(bytes.substr(0, 4), "\xD7\xCD\xC6\x9A");
    EXPECT_EQ(bytes.substr(6, 10), (std::string{0, 0, 0, 0, '\xB0', 7, '\xD8', 3, '\xFA', 0}));
    EXPECT_THAT(bytes.substr(22), StartsWith("pen width 1\n")) << TitleOf(kind);
    EXPECT_STREQ(workspace().Graphics.FileName, path_.c_str());
  }
  EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(GraphExportTest, ThroughTheDialogTheClipboardGetsThePictureInDotsOfTheScreen) {
  for (const ViewKind kind : AllKinds()) {
    Show(kind);
    std::snprintf(workspace().Graphics.FileName, sizeof workspace().Graphics.FileName, "former");
    Export(ExportChoice::Clipboard, {.Height = "10", .Width = "20", .Resolution = "250"});
    ASSERT_TRUE(shell().Clipboard.HasPicture) << TitleOf(kind);
    EXPECT_EQ(shell().Clipboard.Width, 755);
    EXPECT_EQ(shell().Clipboard.Height, 377);
    EXPECT_STREQ(workspace().Graphics.FileName, "");
    EXPECT_FALSE(shell().Clipboard.Open);
  }
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_FALSE(Exists());
}

TEST_F(GraphExportTest, ThroughTheDialogTheFormulaIsInDotsOfTheScreenToo) {
  Show(ViewKind::AmplitudeFit);
  Export(ExportChoice::Clipboard, {.Height = "10", .Width = "20", .Resolution = "250"});
  EXPECT_THAT(shell().Clipboard.Picture, Contains("image 600 0 0 376 79"));
  EXPECT_EQ(workspace().ExportDpi, 250.0) << "as entered";
}

TEST_F(GraphExportTest, LettersOfNoSizeCountAsTheSmallestOnes) {
  Show(ViewKind::Scatter);
  workspace().FontSize = 0;
  Export(ExportChoice::Eps, {.Height = "10", .Width = "20"});
  EXPECT_EQ(workspace().Graphics.DocumentFontSize, 1);
  workspace().FontSize = -3;
  Export(ExportChoice::Metafile, {.Height = "10", .Width = "20", .Resolution = "144"});
  EXPECT_EQ(workspace().DeviceFontSize, 2);
}

TEST_F(GraphExportTest, TheWindowIsDrawnAgainAfterEveryForm) {
  for (const ViewKind kind : AllKinds()) {
    Show(kind);
    const std::vector<std::string> screen = Paint(kind);
    const GraphFrame frame = View(kind).Frame;
    const auto columns = View(kind).ColumnRight;
    for (const ExportChoice form : kAllForms) {
      ForgetAll();
      Export(form);
      ASSERT_GE(Drawn().size(), screen.size());
      EXPECT_TRUE(std::equal(screen.rbegin(), screen.rend(), Drawn().rbegin())) << TitleOf(kind);
      EXPECT_EQ(View(kind).Frame.LabelOffset, frame.LabelOffset) << TitleOf(kind);
      EXPECT_EQ(View(kind).ColumnRight, columns) << TitleOf(kind);
      EXPECT_EQ(workspace().Graphics.File, nullptr);
    }
  }
}

TEST_F(GraphExportTest, WhatTheFileHeldBeforeIsGone) {
  Show(ViewKind::Statistics);
  Export(ExportChoice::Eps);
  const std::string document = OnDisk();
  std::ofstream(path_) << std::string(100000, 'x');
  Export(ExportChoice::Eps);
  EXPECT_EQ(OnDisk(), document);
}

}  // namespace
}  // namespace ondrel
