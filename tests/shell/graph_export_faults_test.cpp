// Exports of graphs of which one step fails.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/graph_export_fixture.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class GraphExportFaultsTest : public PictureCommandTest {
 protected:
  static constexpr ExportChoice kDocuments[] = {ExportChoice::Illustrator, ExportChoice::Eps};
  static constexpr ExportChoice kFiles[] = {ExportChoice::Illustrator, ExportChoice::Eps,
                                            ExportChoice::Metafile};

  GraphExportFaultsTest() { Show(ViewKind::Event); }

  /// What the form comes to when nothing fails.
  std::string Whole(ExportChoice form) {
    Export(form);
    EXPECT_THAT(Messages(), IsEmpty());
    const std::string whole = OnDisk();
    std::filesystem::remove(path_);
    return whole;
  }

  /// Exports with a fault in place, and once more without it: the program goes on.
  void ExportAndTell(ExportChoice form, const std::string& message) {
    const std::int32_t events = workspace().Events.Count;
    Export(form);
    EXPECT_THAT(Messages(), ElementsAre(message));
    EXPECT_EQ(shell().OpenFiles, 0);
    EXPECT_EQ(shell().LiveMetafiles, 0);
    EXPECT_FALSE(shell().Clipboard.Open);
    EXPECT_EQ(shell().OpenDevices, 0);
    EXPECT_EQ(shell().DeviceObjects, 0);
    EXPECT_EQ(workspace().Graphics.File, nullptr);
    EXPECT_EQ(workspace().Events.Count, events);
    EXPECT_EQ(View(ViewKind::Event).VisibleRows, 20);
    shell().Boxes.clear();
  }

  /// A table of so many rows that its document takes many writes.
  void ShowManyRows() {
    FreeEventTable(workspace().Events);
    FillEvents(100, [](EventRecord& event, std::int32_t row) {
      event.Sweep = static_cast<std::uint32_t>(row);
    });
    Paint(ViewKind::Event);
  }
};

// --- Files ---------------------------------------------------------------------------------------

TEST_F(GraphExportFaultsTest, AnExportToAFileThatCannotBeCreatedIsToldAndWritesNothing) {
  for (const ExportChoice form : kFiles) {
    const std::string whole = Whole(form);
    shell().Create = {.Next = 1};
    const int writes = shell().Write.Calls;
    ExportAndTell(form, kWritingFailed);
    EXPECT_FALSE(Exists());
    EXPECT_EQ(shell().Write.Calls, writes);
    EXPECT_EQ(Whole(form), whole);
  }
}

TEST_F(GraphExportFaultsTest, AFileThatCannotBeOpenedIsToldAndDeleted) {
  for (const ExportChoice form : kFiles) {
    const std::string whole = Whole(form);
    shell().OpenForWriting = {.Next = 1};
    ExportAndTell(form, kWritingFailed);
    EXPECT_FALSE(Exists());
    EXPECT_EQ(Whole(form), whole);
  }
}

TEST_F(GraphExportFaultsTest, ADocumentThatCannotBeOpenedIsNotEvenDrawn) {
  for (const ExportChoice form : kDocuments) {
    shell().OpenForWriting = {.Next = 1};
    ForgetAll();
    ExportAndTell(form, kWritingFailed);
    EXPECT_THAT(Drawn(), IsEmpty());
  }
}

TEST_F(GraphExportFaultsTest, EveryWriteThatFailsIsToldOnceAndLeavesWhatCameBefore) {
  ShowManyRows();
  for (const ExportChoice form : kFiles) {
    const int before = shell().Write.Calls;
    const std::string whole = Whole(form);
    const int writes = shell().Write.Calls - before;
    EXPECT_GE(writes, form == ExportChoice::Metafile ? 1 : 2) << "in pieces of 8192 bytes";
    for (int i = 1; i <= writes; ++i) {
      shell().Write = {.Next = i};
      ExportAndTell(form, kWritingFailed);
      EXPECT_EQ(OnDisk(), whole.substr(0, 8192 * static_cast<std::size_t>(i - 1)));
    }
    shell().Write = {};
    EXPECT_EQ(Whole(form), whole);
  }
}

TEST_F(GraphExportFaultsTest, AFileThatCannotBeClosedIsToldThoughItIsWhole) {
  for (const ExportChoice form : kFiles) {
    const std::string whole = Whole(form);
    shell().Close = {.Next = 1};
    ExportAndTell(form, kWritingFailed);
    EXPECT_EQ(OnDisk(), whole);
    EXPECT_EQ(Whole(form), whole);
  }
}

// --- Metafiles -----------------------------------------------------------------------------------

TEST_F(GraphExportFaultsTest, AMetafileThatCannotBeMadeIsToldAndNoFileIsTouched) {
  const std::string whole = Whole(ExportChoice::Metafile);
  shell().BeginMetafile = {.Next = 1};
  const int created = shell().Create.Calls;
  ExportAndTell(ExportChoice::Metafile, kWritingFailed);
  shell().EndMetafile = {.Next = 1};
  ExportAndTell(ExportChoice::Metafile, kWritingFailed);
  EXPECT_EQ(shell().Create.Calls, created);
  EXPECT_FALSE(Exists());
  EXPECT_EQ(Whole(ExportChoice::Metafile), whole);
}

TEST_F(GraphExportFaultsTest, WithoutMemoryForTheBytesOfAMetafileThatIsTold) {
  const std::string whole = Whole(ExportChoice::Metafile);
  shell().Allocation = {.Next = 1};
  ExportAndTell(ExportChoice::Metafile, "Out of memory.");
  EXPECT_EQ(OnDisk(), whole.substr(0, 22));
  EXPECT_EQ(Whole(ExportChoice::Metafile), whole);
}

TEST_F(GraphExportFaultsTest, AMetafileThatGivesNoBytesOrCannotBeDeletedIsTold) {
  const std::string whole = Whole(ExportChoice::Metafile);
  shell().CopyMetafile = {.Next = 1};
  ExportAndTell(ExportChoice::Metafile, kWritingFailed);
  EXPECT_EQ(OnDisk(), whole.substr(0, 22));
  shell().DeleteMetafile = {.Next = 1};
  ExportAndTell(ExportChoice::Metafile, kWritingFailed);
  EXPECT_EQ(OnDisk(), whole);
}

// --- The clipboard, through the dialog -----------------------------------------------------------

constexpr char kNotCopied0[] =
    "Error occured while copying Events window to Clipboard. Error code 0.";

TEST_F(GraphExportFaultsTest, AClipboardThatCannotBeOpenedOrEmptiedIsToldWithTheCodeOfDeleting) {
  shell().OpenClipboard = {.Next = 1};
  ExportAndTell(ExportChoice::Clipboard, kNotCopied0);
  shell().EmptyClipboard = {.Next = 1};
  ExportAndTell(ExportChoice::Clipboard, kNotCopied0);
  shell().OpenClipboard = {.Next = 1};
  shell().DeleteMetafile = {.Next = 1};
  ExportAndTell(ExportChoice::Clipboard,
                "Error occured while copying Events window to Clipboard. Error code 6.");
  EXPECT_FALSE(shell().Clipboard.HasPicture);
  Export(ExportChoice::Clipboard);
  EXPECT_TRUE(shell().Clipboard.HasPicture);
  EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(GraphExportFaultsTest, AMetafileThatCannotBeMadeForTheClipboardIsToldWithItsStatus) {
  shell().BeginMetafile = {.Next = 1};
  ExportAndTell(ExportChoice::Clipboard,
                "Error occured while copying Events window to Clipboard. Error code -1.");
  EXPECT_THAT(LinesWith(Happened(), "clipboard"), IsEmpty());
}

}  // namespace
}  // namespace ondrel
