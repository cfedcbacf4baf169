// "Export Graph" of each view in each form, up to the file. Metafiles are played back here; what
// documents look like is for the readers to tell, for whom the files are kept.
#include <gmock/gmock.h>

#include "export_fixture.h"
#include "metafile_picture.h"

namespace ondrel::e2e {
namespace {

using ::testing::EndsWith;
using ::testing::StartsWith;

constexpr const char* kCannotWrite =
    "Ondrel encountered an error while writing to the file. Ondrel will not write any more data to "
    "the file.";

/// The data of a plot, red, stand where they stand on the screen, pixel by pixel.
void ExpectSameData(const Picture& played, const Picture& screen) {
  ASSERT_GT(screen.Count(kRed), 100);
  ASSERT_EQ(played.Pixels.size(), screen.Pixels.size());
  int differ = 0;
  for (std::size_t i = 0; i < screen.Pixels.size(); ++i) {
    if ((screen.Pixels[i] == kRed) != (played.Pixels[i] == kRed)) ++differ;
  }
  EXPECT_EQ(differ, 0);
}

/// Texts have no width for a metafile while it is made, so that none is drawn to the left of its
/// place. The tables that scroll have moved their columns to the right for it.
void ExpectSameText(const ExportedView& view, const Picture& played, const Picture& screen) {
  const std::vector<std::string> expected = ReadTop(view, screen);
  ASSERT_FALSE(expected.empty());
  EXPECT_THAT(ReadTop(view, played), ::testing::ElementsAreArray(expected));
}

/// Writes the view on top in the size of its window, and returns what came of it.
std::string Exported(const EveryExport& test, const ExportedView& view, const std::string& form,
                     const std::string& title, const std::string& offered,
                     const std::string& ending) {
  const std::string path = test.ExportPath(view.Name + ending);
  test.ExportGraph(view, form, title, offered, path);
  return ContentOf(path);
}

TEST_P(EveryExport, LeavesADocumentForIllustrator) {
  Show(GetParam());
  const Picture screen = KeepScreen(GetParam());
  const std::string document =
      Exported(*this, GetParam(), "Adobe Illustrator", "Export window as:", "Untitled", ".ai");
  EXPECT_THAT(document, StartsWith("%!PS-Adobe-2.0 EPSF-1.2\r\n"
                                   "%%DocumentProcSets: Adobe_Illustrator_1.1 0 0\r\n"
                                   "%%BoundingBox: 0 0 912 864\r\n"
                                   "%%TemplateBox: 0 0 912 864\r\n"
                                   "%%EndComments\r\n%%EndProlog\r\n"));
  EXPECT_THAT(document, EndsWith(GetParam().Plot ? "\r\n%%Trailer\r\n" : "\r\nQ\r\n%%Trailer\r\n"));
  EXPECT_EQ(PictureOf(GetParam()), screen);
}

TEST_P(EveryExport, LeavesAnEpsDocument) {
  Show(GetParam());
  const Picture screen = PictureOf(GetParam());
  const std::string document =
      Exported(*this, GetParam(), "EPS", "Export EPS as:", "Untitled", ".eps");
  EXPECT_THAT(document, StartsWith("%!PS-Adobe-3.0 EPSF-3.0\r\n"
                                   "%%BoundingBox: 0 0 684 648\r\n"
                                   "%%EndComments\r\n%%EndProlog\r\n30 30 translate\r\n"));
  EXPECT_THAT(document, EndsWith("\r\nshowpage\r\n%%EOF\r\n"));
  EXPECT_EQ(PictureOf(GetParam()), screen);
}

TEST_P(EveryExport, LeavesAMetafileThatPlaysAsTheWindow) {
  Show(GetParam());
  const Picture screen = PictureOf(GetParam());
  const std::string file =
      Exported(*this, GetParam(), "Metafile", "Export PICT as:", "Untitled.wmf", ".wmf");
  const PlaceableHeader header = ReadPlaceableHeader(file);
  EXPECT_EQ(header.Key, 0x9AC6CDD7U);
  EXPECT_EQ(header.Handle, 0);
  ASSERT_EQ(header.Frame, (Rect{0, 0, screen.Width, screen.Height}));
  EXPECT_EQ(header.UnitsPerInch, 96);
  EXPECT_EQ(header.Reserved, 0U);
  EXPECT_EQ(header.Checksum, ChecksumOf(file));
  const Picture played = PlayedFile(file);
  SavePng(played, ExportPath(std::string(GetParam().Name) + "_played.png"));
  if (GetParam().Plot) {
    ExpectSameData(played, screen);
  } else {
    ExpectSameText(GetParam(), played, screen);
  }
  EXPECT_EQ(PictureOf(GetParam()), screen);
}

// --- Sizes and resolutions -----------------------------------------------------------------------

TEST_F(Exports, AMetafileHasTheSizeAndTheResolutionThatWereEntered) {
  Show(kAmplitudeExport);
  It().Command(command::kExportGraph);
  const Dialog dialog = It().WaitForDialog("Export Graph");
  dialog.Type(graph::kHeight, "12.7");
  dialog.Type(graph::kWidth, "15.24");
  dialog.Type(graph::kResolution, "300");
  dialog.Choose(graph::kForm, "Metafile");
  dialog.Leave(kOkButton);
  const std::string path = ExportPath("Amplitude_300dpi.wmf");
  SaveAs(It().WaitForDialog("Export PICT as:"), "Untitled.wmf", path);
  ExpectDoneQuietly(kAmplitudeExport);
  const std::string file = ContentOf(path);
  const PlaceableHeader header = ReadPlaceableHeader(file);
  EXPECT_EQ(header.Frame, (Rect{0, 0, 1800, 1500}));
  EXPECT_EQ(header.UnitsPerInch, 300);
  const Picture played = PlayedFile(file);
  SavePng(played, ExportPath("Amplitude_300dpi_played.png"));
  // Bars fill about the same part of either picture: each is a whole number of pixels wide.
  const Picture screen = PictureOf(kAmplitudeExport);
  const auto share = [](const Picture& picture) {
    return static_cast<double>(picture.Count(kRed)) / (picture.Width * picture.Height);
  };
  EXPECT_NEAR(share(played) / share(screen), 1.0, 0.15);
  // The resolution is offered again; back to the screen's for the tests to come.
  It().Command(command::kExportGraph);
  const Dialog again = It().WaitForDialog("Export Graph");
  EXPECT_EQ(again.Text(graph::kResolution), "300.00");
  EXPECT_EQ(again.Text(graph::kWidth), "24.13");
  again.Type(graph::kResolution, "96");
  again.Leave(kOkButton);
  It().WaitForDialog("Export PICT as:").Leave(kCancelButton);
  ExpectDoneQuietly(kAmplitudeExport);
}

TEST_F(Exports, AnEpsDocumentHasTheSizeThatWasEntered) {
  Show(kAmplitudeExport);
  It().Command(command::kExportGraph);
  const Dialog dialog = It().WaitForDialog("Export Graph");
  dialog.Type(graph::kHeight, "10.16");
  dialog.Type(graph::kWidth, "15.24");
  dialog.Choose(graph::kForm, "EPS");
  dialog.Leave(kOkButton);
  const std::string path = ExportPath("Amplitude_small.eps");
  SaveAs(It().WaitForDialog("Export EPS as:"), "Untitled", path);
  ExpectDoneQuietly(kAmplitudeExport);
  EXPECT_THAT(ContentOf(path), ::testing::HasSubstr("%%BoundingBox: 0 0 432 288\r\n"));
}

// --- Files that are there ------------------------------------------------------------------------

TEST_F(Exports, CancellingTheFileDialogOfAGraphLeavesNoWord) {
  Show(kAmplitudeExport);
  for (const auto& [form, title] :
       {std::pair{"Adobe Illustrator", "Export window as:"}, std::pair{"EPS", "Export EPS as:"},
        std::pair{"Metafile", "Export PICT as:"}}) {
    AskForGraph(form);
    It().WaitForDialog(title).Leave(kCancelButton);
    ExpectDoneQuietly(kAmplitudeExport);
  }
}

TEST_F(Exports, AFileInAnothersHandIsToldAndTakesNoGraph) {
  Show(kAmplitudeExport);
  for (const auto& [form, title] :
       {std::pair{"Adobe Illustrator", "Export window as:"}, std::pair{"EPS", "Export EPS as:"},
        std::pair{"Metafile", "Export PICT as:"}}) {
    SCOPED_TRACE(form);
    const std::string path = File("held", "held");
    {
      const HeldFile held(path);
      AskForGraph(form);
      SaveOver(It(), It().WaitForDialog(title), path).Answer(kYesButton);
      const Box box = It().WaitForBox(kCannotWrite);
      EXPECT_EQ(box.Icon(), BoxIcon::Stop);
      box.Answer(kOkButton);
      ExpectDoneQuietly(kAmplitudeExport);
    }
    EXPECT_EQ(ContentOf(path), "held");
  }
}

}  // namespace
}  // namespace ondrel::e2e
