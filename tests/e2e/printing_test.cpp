// "Print..." through the platform's dialogs. The printer is one that keeps its pages: the folder
// that ONDREL_PRINTER names holds the last one, and a note of each job.
#include <gmock/gmock.h>

#include <filesystem>

#include "export_fixture.h"

namespace ondrel::e2e {
namespace {

std::string PrinterFolder() {
  const std::string folder = Environment("ONDREL_PRINTER");
  if (folder.empty()) Fail("ONDREL_PRINTER names no folder: there is no printer");
  return NativePath(folder);
}

std::string PagePath() {
  return PrinterFolder() + "\\page.ps";
}

/// Of a view, pixels: fits the paper.
constexpr Point kOnPaper{720, 672};

/// Pages that the printer was given since it was set up.
int Jobs() {
  int count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(PrinterFolder() + "\\spool")) {
    const std::string name = entry.path().filename().string();
    // A note under way has a name of more parts.
    if (name[0] == 'c' && name.find('.') == std::string::npos) ++count;
  }
  return count;
}

class Printing : public Exports {
 protected:
  void SetUp() override {
    (void)PrinterFolder();
    Exports::SetUp();
  }

  /// Answers both dialogs and waits until the page lies in the tray.
  void Print(const ExportedView& view) const {
    std::filesystem::remove(PagePath());
    const int jobs = Jobs();
    It().Command(command::kPrint);
    It().WaitForDialog("Print Setup").Leave(kOkButton);
    It().WaitForDialog("Print").Leave(kOkButton);
    WaitFor("the page and the printer's note of it", [&] {
      return Jobs() > jobs && std::filesystem::exists(PagePath()) &&
             ContentOf(PagePath()).find("%%EOF") != std::string::npos;
    });
    ExpectDoneQuietly(view);
    EXPECT_TRUE(It().Frame().Enabled());
  }
};

class EveryPrint : public Printing, public ::testing::WithParamInterface<ExportedView> {};

TEST_P(EveryPrint, IsOnePageAndLeavesTheWindowAsItWas) {
  Show(GetParam(), kOnPaper);
  const Picture before = PictureOf(GetParam());
  const int jobs = Jobs();
  Print(GetParam());
  EXPECT_EQ(Jobs(), jobs + 1);
  EXPECT_EQ(PictureOf(GetParam()), before);
  const std::string name = GetParam().Name;
  std::filesystem::copy_file(PagePath(), ExportPath(name + "_page.ps"));
  SavePng(before, ExportPath(name + "_printed.png"));
}

INSTANTIATE_TEST_SUITE_P(Views, EveryPrint, ::testing::ValuesIn(ExportedViews()), NameOfView);

TEST_F(Printing, CancelInEitherDialogPrintsNothing) {
  Show(kAmplitudeExport);
  const int jobs = Jobs();
  It().Command(command::kPrint);
  It().WaitForDialog("Print Setup").Leave(kCancelButton);
  ExpectDoneQuietly(kAmplitudeExport);
  It().Command(command::kPrint);
  It().WaitForDialog("Print Setup").Leave(kOkButton);
  It().WaitForDialog("Print").Leave(kCancelButton);
  ExpectDoneQuietly(kAmplitudeExport);
  EXPECT_TRUE(It().Frame().Enabled());
  Print(kAmplitudeExport);
  EXPECT_EQ(Jobs(), jobs + 1);
}

TEST_F(Printing, ControlPPrints) {
  Show(kAmplitudeExport);
  It().Key('P', {VK_CONTROL});
  It().WaitForDialog("Print Setup").Leave(kCancelButton);
  ExpectDoneQuietly(kAmplitudeExport);
}

/// Where the machine has no printer at all.
class NoPrinter : public EndToEnd {};

TEST_F(NoPrinter, IsToldWithItsCode) {
  Program program;
  program.PassStart();
  OpenTable(program, VersionFive(1, 7));
  program.Command(command::kPrint);
  const Box box = program.WaitForBox("Error occurred in printing. Error code -1.");
  EXPECT_EQ(box.Icon(), BoxIcon::Stop);
  box.Answer(kOkButton);
  program.Settle(program.View("Level"));
  EXPECT_THAT(program.Dialogs(), ::testing::IsEmpty());
  EXPECT_TRUE(program.Frame().Enabled());
}

}  // namespace
}  // namespace ondrel::e2e
