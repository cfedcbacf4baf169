// "Export Text" of each view in both forms. The files are kept for readers of such tables.
#include <gmock/gmock.h>

#include "export_fixture.h"

namespace ondrel::e2e {
namespace {

using ::testing::EndsWith;
using ::testing::SizeIs;
using ::testing::StartsWith;

constexpr const char* kCannotWrite =
    "Ondrel encountered an error while writing to the file. Ondrel will not write any more data to "
    "the file.";

/// Writes the view on top, and returns what came of it.
std::string Exported(const Exports& test, const ExportedView& view, const std::string& form,
                     bool limited, const std::string& ending) {
  const std::string path = test.ExportPath(view.Name + ending);
  test.ExportText(view, form, limited, path);
  return ContentOf(path);
}

TEST_P(EveryExport, HasTheSameRowsInBothFormsOfText) {
  Show(GetParam());
  const std::string excel = Exported(*this, GetParam(), "Excel", false, "_excel.txt");
  EXPECT_THAT(excel, EndsWith("\r\n"));
  const std::string igor = Exported(*this, GetParam(), "Igor", false, "_igor.itx");
  const std::vector<std::string> lines = LinesOf(igor);
  ASSERT_GT(lines.size(), 3U);
  EXPECT_EQ(lines[0], "IGOR");
  EXPECT_THAT(lines[1], StartsWith("WAVES /D "));
  EXPECT_EQ(lines[2], "BEGIN");
  EXPECT_EQ(igor, "IGOR\r\n" + lines[1] + "\r\nBEGIN\r\n" + excel + "END\r\n");
}

TEST_F(Exports, LimitedToTheWindowATextHasTheRowsThatTheWindowShows) {
  constexpr int kScrolled = 7;
  for (const ExportedView& view : {kEventExport, kLevelExport}) {
    SCOPED_TRACE(view.Name);
    Show(view);
    const std::vector<std::string> all = LinesOf(Exported(*this, view, "Excel", false, "_all.txt"));
    for (int step = 0; step < kScrolled; ++step) It().Key(VK_DOWN);
    It().WaitForScroll(WindowOf(view), kScrolled);
    const std::vector<std::string> shown =
        LinesOf(Exported(*this, view, "Excel", true, "_limited.txt"));
    It().Key(VK_HOME);
    It().WaitForScroll(WindowOf(view), 0);
    const int visible = RowGrid().VisibleRows(WindowOf(view).ClientArea().Height());
    ASSERT_THAT(shown, SizeIs(static_cast<std::size_t>(visible)));
    EXPECT_EQ(shown.front(), all[kScrolled]);
    EXPECT_EQ(shown.back(), all[static_cast<std::size_t>(kScrolled + visible - 1)]);
  }
}

TEST_F(Exports, LimitedToTheWindowATextEndsWithTheTable) {
  Show(kEventExport);
  It().Key(VK_END);
  It().WaitForScroll(WindowOf(kEventExport), 599);
  const std::vector<std::string> shown =
      LinesOf(Exported(*this, kEventExport, "Excel", true, "_last.txt"));
  It().Key(VK_HOME);
  It().WaitForScroll(WindowOf(kEventExport), 0);
  EXPECT_THAT(shown, SizeIs(1));
}

TEST_F(Exports, CancellingTheFileDialogOfATextLeavesTheFileThatIsThere) {
  Show(kEventExport);
  const std::string path = File("there.txt", "there");
  It().Command(command::kExportText);
  It().WaitForDialog("Export Text").Leave(kOkButton);
  const Dialog dialog = It().WaitForDialog(kEventExport.TextTitle);
  SaveOver(It(), dialog, path).Answer(kNoButton);
  dialog.Leave(kCancelButton);
  ExpectDoneQuietly(kEventExport);
  EXPECT_EQ(ContentOf(path), "there");
}

TEST_F(Exports, AFileInAnothersHandIsToldAndTakesNoText) {
  Show(kSweepExport);
  const std::string path = File("held.txt", "held");
  {
    const HeldFile held(path);
    It().Command(command::kExportText);
    It().WaitForDialog("Export Text").Leave(kOkButton);
    SaveOver(It(), It().WaitForDialog(kSweepExport.TextTitle), path).Answer(kYesButton);
    const Box box = It().WaitForBox(kCannotWrite);
    EXPECT_EQ(box.Icon(), BoxIcon::Stop);
    box.Answer(kOkButton);
    ExpectDoneQuietly(kSweepExport);
  }
  EXPECT_EQ(ContentOf(path), "held");
}

}  // namespace
}  // namespace ondrel::e2e
