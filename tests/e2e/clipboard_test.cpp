// Pictures on their way through the clipboard, pasted by another program: this one.
#include <gmock/gmock.h>

#include <algorithm>

#include "export_fixture.h"
#include "metafile_picture.h"

namespace ondrel::e2e {
namespace {

/// Part of a picture that has this colour.
double Share(const Picture& picture, std::uint32_t color) {
  return static_cast<double>(picture.Count(color)) / (picture.Width * picture.Height);
}

/// The smallest rectangle that holds all pixels of a colour.
Rect BoxOf(const Picture& picture, std::uint32_t color) {
  Rect box{picture.Width, picture.Height, 0, 0};
  for (int y = 0; y < picture.Height; ++y) {
    for (int x = 0; x < picture.Width; ++x) {
      if (picture.At(x, y) != color) continue;
      box = {std::min(box.Left, x), std::min(box.Top, y), std::max(box.Right, x + 1),
             std::max(box.Bottom, y + 1)};
    }
  }
  return box;
}

/// A copy is larger than the window by the dots of an inch over the points of one, and so are its
/// letters and what it shows.
TEST_P(EveryExport, IsCopiedInProportionToItsWindow) {
  Show(GetParam());
  const Picture screen = PictureOf(GetParam());
  ClearClipboard();
  It().Key('C', {VK_CONTROL});
  ExpectDoneQuietly(GetParam());
  const PastedPicture pasted = PasteMetafile();
  SavePng(pasted.Played, ExportPath(std::string(GetParam().Name) + "_pasted.png"));
  EXPECT_EQ(pasted.MappingMode, MM_TEXT);
  EXPECT_EQ(pasted.Width, screen.Width * 96 / 72);
  EXPECT_EQ(pasted.Height, screen.Height * 96 / 72);
  EXPECT_GT(pasted.Played.Count(kBlack), 100);
  if (!GetParam().Plot) return;
  const Rect seen = BoxOf(pasted.Played, kRed);
  const Rect expected = BoxOf(screen, kRed);
  ASSERT_GT(expected.Width(), 100);
  constexpr double kWholePixels = 0.15;  // bins are so wide, and dots so large
  const double enlarged = 96.0 / 72.0;
  EXPECT_NEAR(seen.Left / enlarged, expected.Left, kWholePixels * screen.Width);
  EXPECT_NEAR(seen.Top / enlarged, expected.Top, kWholePixels * screen.Height);
  EXPECT_NEAR(seen.Width() / enlarged / expected.Width(), 1.0, kWholePixels);
  EXPECT_NEAR(seen.Height() / enlarged / expected.Height(), 1.0, kWholePixels);
}

TEST_F(Exports, ExportGraphPutsThePictureUpInTheSizeThatWasEntered) {
  Show(kAmplitudeExport);
  const Picture screen = PictureOf(kAmplitudeExport);
  ClearClipboard();
  It().Command(command::kExportGraph);
  const Dialog dialog = It().WaitForDialog("Export Graph");
  dialog.Type(graph::kHeight, "10.16");
  dialog.Type(graph::kWidth, "15.24");
  dialog.Choose(graph::kForm, "Clipboard");
  dialog.Leave(kOkButton);
  ExpectDoneQuietly(kAmplitudeExport);
  const PastedPicture pasted = PasteMetafile();
  EXPECT_EQ(pasted.MappingMode, MM_TEXT);
  EXPECT_EQ(pasted.Width, 576);
  EXPECT_EQ(pasted.Height, 384);
  EXPECT_NEAR(Share(pasted.Played, kRed) / Share(screen, kRed), 1.0, 0.15);
}

TEST_F(Exports, ExportGraphInTheViewsSizePutsTheWindowUp) {
  Show(kAmplitudeExport);
  const Picture screen = PictureOf(kAmplitudeExport);
  ClearClipboard();
  AskForGraph("Clipboard");
  ExpectDoneQuietly(kAmplitudeExport);
  const PastedPicture pasted = PasteMetafile();
  ASSERT_EQ(pasted.Width, screen.Width);
  ASSERT_EQ(pasted.Height, screen.Height);
  EXPECT_EQ(pasted.Played.Count(kRed), screen.Count(kRed));
}

TEST_F(Exports, AClipboardInAnothersHandIsTold) {
  const struct {
    ExportedView View;
    bool ByKey;
  } rows[] = {{kAmplitudeExport, true}, {kEventExport, true}, {kSweepExport, false}};
  for (const auto& [view, byKey] : rows) {
    SCOPED_TRACE(view.Name);
    Show(view);
    {
      const HeldClipboard held;
      if (byKey) {
        It().Key('C', {VK_CONTROL});
      } else {
        AskForGraph("Clipboard");
      }
      const Box box = It().WaitForBox(std::string("Error occured while copying ") + view.Report +
                                      " window to Clipboard. Error code 0.");
      EXPECT_EQ(box.Icon(), BoxIcon::Stop);
      box.Answer(kOkButton);
    }
    ExpectDoneQuietly(view);
  }
}

}  // namespace
}  // namespace ondrel::e2e
