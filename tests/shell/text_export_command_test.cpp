#include "shell/text_export_command.h"

#include <gmock/gmock.h>

#include <functional>

#include "output/text_fixture.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr int kDialog = 129;
constexpr int kOk = 1;
constexpr int kCancel = 2;
constexpr int kForm = 3;
constexpr int kLimit = 4;
constexpr int kExcel = 0;
constexpr int kIgor = 1;

/// What a save dialog shows.
struct Offered {
  const char* Title;
  const char* ExcelName;
  const char* IgorName;
};

Offered OfferedFor(ViewKind kind) {
  switch (kind) {
    case ViewKind::Event:
      return {"Export event list as:", "Untitled", "Events"};
    case ViewKind::Level:
      return {"Export level list as:", "Untitled", "Events"};
    case ViewKind::Sweep:
      return {"Export sweeps as:", "Untitled", "Untitled"};
    case ViewKind::Statistics:
      return {"Export statistics as:", "Untitled", "Untitled"};
    case ViewKind::AmplitudeFit:
    case ViewKind::DurationFit:
      return {"Export parameters as:", "Untitled", "Untitled"};
    case ViewKind::Amplitude:
      return {"Export amplitude histogram as:", "Untitled", "Untitled"};
    case ViewKind::Duration:
      return {"Export duration histogram as:", "Untitled", "Untitled"};
    case ViewKind::AmplitudeScatter:
      return {"Export amplitude scatter as:", "Untitled", "Untitled"};
    case ViewKind::DurationScatter:
      return {"Export duration scatter as:", "Untitled", "Untitled"};
    case ViewKind::Scatter:
      return {"Export scatter plot as:", "Untitled", "Untitled"};
    case ViewKind::Stationarity:
      return {"Export stationarity as:", "Untitled", "Untitled"};
  }
  return {"", "", ""};
}

class TextExportCommandTest : public TextTest {
 protected:
  void Script(const std::function<void(scripted::OpenDialog&)>& script) {
    shell().DialogScripts.push_back(script);
  }

  /// Chooses a form in the dialog; the box for the limit stays as it is.
  void Choose(int form) {
    Script([=](scripted::OpenDialog& dialog) {
      dialog.Choose(kForm, form);
      dialog.Press(kOk);
    });
  }

  /// Runs the command to its end, with `form` and the test's path.
  void Export(int form) {
    Choose(form);
    shell().FileChoices.push_back(Path());
    ExportTextCommand(Frame());
  }
};

TEST_F(TextExportCommandTest, CancelInTheDialogDoesNothing) {
  FillAll();
  OpenInert(ViewKind::Event);
  Script([](scripted::OpenDialog& dialog) {
    dialog.Choose(kForm, kIgor);
    dialog.Press(kLimit);
    dialog.Press(kCancel);
  });
  shell().FileChoices.push_back(Path());
  ExportTextCommand(Frame());
  EXPECT_THAT(shell().Dialogs, ElementsAre(kDialog));
  EXPECT_EQ(workspace().TextExportType, TextExportChoice::Excel);
  EXPECT_FALSE(workspace().LimitToWindow);
  EXPECT_THAT(shell().FileDialogs, IsEmpty());
  EXPECT_FALSE(IsThere());
}

TEST_F(TextExportCommandTest, WithoutAnActiveViewTheSettingsAreStoredAndItEndsQuietly) {
  Script([](scripted::OpenDialog& dialog) {
    dialog.Choose(kForm, kIgor);
    dialog.Press(kLimit);
    dialog.Press(kOk);
  });
  shell().FileChoices.push_back(Path());
  ExportTextCommand(Frame());
  EXPECT_EQ(workspace().TextExportType, TextExportChoice::Igor);
  EXPECT_TRUE(workspace().LimitToWindow);
  EXPECT_THAT(shell().FileDialogs, IsEmpty());
  EXPECT_THAT(Messages(), IsEmpty());
  EXPECT_FALSE(IsThere());
}

TEST_F(TextExportCommandTest, EachViewHasItsTitleAndNames) {
  for (const ViewKind kind : AllKinds()) {
    const Offered offered = OfferedFor(kind);
    OpenInert(kind);
    for (const int form : {kExcel, kIgor}) {
      shell().FileDialogs.clear();
      Choose(form);
      ExportTextCommand(Frame());
      ASSERT_THAT(shell().FileDialogs, SizeIs(1));
      const scripted::FileDialog& dialog = shell().FileDialogs[0];
      EXPECT_EQ(dialog.Mode, toolkit::FileDialogMode::Save);
      EXPECT_EQ(dialog.Title, offered.Title);
      EXPECT_EQ(dialog.DefaultName, form == kIgor ? offered.IgorName : offered.ExcelName);
    }
  }
  EXPECT_FALSE(IsThere()) << "the user cancelled every time";
}

TEST_F(TextExportCommandTest, CancelInTheSaveDialogLeavesAnExistingFileUntouched) {
  FillAll();
  LeaveOldFile();
  OpenInert(ViewKind::Level);
  Choose(kIgor);
  ExportTextCommand(Frame());
  EXPECT_THAT(shell().FileDialogs, SizeIs(1));
  EXPECT_EQ(OnDisk(), kOldFile);
  EXPECT_EQ(workspace().TextExportType, TextExportChoice::Igor) << "the form is stored before";
  EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(TextExportCommandTest, ConfirmingReplacesAFileAtOnceEvenWhereWritingThenFails) {
  FillAll();
  LeaveOldFile();
  OpenInert(ViewKind::Level);
  shell().Write.Next = 1;
  Export(kExcel);
  EXPECT_EQ(OnDisk(), "");
  EXPECT_THAT(Messages(), SizeIs(1));
}

TEST_F(TextExportCommandTest, TheViewInFrontIsExportedInTheChosenForm) {
  FillAll();
  for (const ViewKind kind : AllKinds()) OpenInert(kind);
  for (const ViewKind kind : AllKinds()) {
    if (kind == ViewKind::Amplitude || kind == ViewKind::Duration) continue;  // they have fits
    toolkit::BringForward(View(kind).Window);
    Export(kExcel);
    EXPECT_EQ(OnDisk(), Joined(rows_[kind])) << FactsOf(kind).Title;
    Export(kIgor);
    EXPECT_TRUE(OnDisk().starts_with("IGOR\r\nWAVES /D ")) << FactsOf(kind).Title;
    EXPECT_TRUE(OnDisk().ends_with("BEGIN\r\n" + Joined(rows_[kind]) + "END\r\n"));
  }
}

TEST_F(TextExportCommandTest, AHistogramIsWrittenWithTheFitWhoseViewIsOpen) {
  FillAll();
  amplitude().FitStyle = FitStyle::Component;
  OpenInert(ViewKind::Amplitude);
  Export(kIgor);
  EXPECT_TRUE(OnDisk().starts_with("IGOR\r\nWAVES /D Current, Count\r\nBEGIN\r\n"));
  OpenInert(ViewKind::AmplitudeFit);
  toolkit::BringForward(View(ViewKind::Amplitude).Window);
  Export(kIgor);
  EXPECT_TRUE(OnDisk().starts_with("IGOR\r\nWAVES /D Current, Count,\tFit0,\tFit1\r\nBEGIN\r\n"));
}

TEST_F(TextExportCommandTest, TheBoxOfTheDialogLimitsTheRows) {
  FillAll();
  OpenInert(ViewKind::Sweep);
  View(ViewKind::Sweep).TopRow = 1;
  View(ViewKind::Sweep).VisibleRows = 1;
  Script([](scripted::OpenDialog& dialog) {
    dialog.Press(kLimit);
    dialog.Press(kOk);
  });
  shell().FileChoices.push_back(Path());
  ExportTextCommand(Frame());
  EXPECT_EQ(OnDisk(), rows_[ViewKind::Sweep][1] + "\r\n");
}

TEST_F(TextExportCommandTest, AFailureIsToldAndTheNextExportSucceeds) {
  FillAll();
  OpenInert(ViewKind::Event);
  shell().Create.Next = 1;
  Export(kExcel);
  EXPECT_THAT(Messages(), SizeIs(1));
  Export(kExcel);
  EXPECT_THAT(Messages(), SizeIs(1));
  EXPECT_EQ(OnDisk(), Joined(rows_[ViewKind::Event]));
}

}  // namespace
}  // namespace ondrel
