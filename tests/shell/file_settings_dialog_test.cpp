#include "shell/file_settings_dialog.h"

#include <gmock/gmock.h>

#include <array>

#include "support/program_test.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;

constexpr int kOpenButton = 1;
constexpr int kOkButton = 2;
constexpr int kCancelButton = 3;
constexpr int kEvents = 6;
constexpr int kSweeps = 8;
constexpr int kFont = 10;
constexpr int kPen = 12;
constexpr int kSkip = 13;

class FileSettingsTest : public ProgramTest {
 protected:
  void RunDialog(const std::function<void(scripted::OpenDialog&)>& script,
                 const std::function<void()>& afterwards) {
    Run([&] {
      shell().DialogScripts.push_back(script);
      Choose(command::kFileSettings);
      afterwards();
    });
  }
};

TEST_F(FileSettingsTest, TheFieldsShowTheSettings) {
  RunDialog(
      [](scripted::OpenDialog& dialog) {
        EXPECT_EQ(dialog.Resource(), 122);
        EXPECT_EQ(dialog.At(kEvents).Text, "8000");
        EXPECT_EQ(dialog.At(kSweeps).Text, "1000");
        EXPECT_EQ(dialog.At(kFont).Text, "10");
        EXPECT_EQ(dialog.At(kPen).Text, "0.25");
        EXPECT_FALSE(dialog.At(kSkip).Checked);
      },
      [] {});
}

TEST_F(FileSettingsTest, OkStoresTheValuesAndTheEventEntriesServeTwoTables) {
  RunDialog(
      [](scripted::OpenDialog& dialog) {
        dialog.Type(kEvents, "123456");
        dialog.Type(kSweeps, "77");
        dialog.Type(kFont, "14");
        dialog.Type(kPen, "1.5");
        dialog.Press(kSkip);
        dialog.Press(kOkButton);
      },
      [&] {
        EXPECT_EQ(workspace().Events.Capacity, 123456);
        EXPECT_EQ(workspace().Levels.Capacity, 123456);
        EXPECT_EQ(workspace().Sweeps.Capacity, 77);
        EXPECT_EQ(workspace().FontSize, 14);
        EXPECT_EQ(workspace().PenSize, 1.5);
        EXPECT_TRUE(workspace().SkipStartupDialog);
      });
}

TEST_F(FileSettingsTest, CancelChangesNothing) {
  RunDialog(
      [](scripted::OpenDialog& dialog) {
        dialog.Type(kEvents, "5");
        dialog.Press(kSkip);
        dialog.Press(kCancelButton);
      },
      [&] {
        EXPECT_EQ(workspace().Events.Capacity, 8000);
        EXPECT_FALSE(workspace().SkipStartupDialog);
      });
}

TEST_F(FileSettingsTest, OpenStoresTheValuesAndAsksForAFile) {
  RunDialog(
      [](scripted::OpenDialog& dialog) {
        dialog.Type(kSweeps, "9");
        dialog.Press(kOpenButton);
      },
      [&] {
        EXPECT_EQ(workspace().Sweeps.Capacity, 9);
        ASSERT_EQ(shell().FileDialogs.size(), 1u);
        EXPECT_EQ(shell().FileDialogs[0].Title, "Data file:");
      });
}

TEST_F(FileSettingsTest, ACapacityOfOneIsAcceptedAndGivesTablesOfOneRecord) {
  const ScratchFile one("one.txt", "2 Sweeps 1 0 1 0 1 0 0 Events 1 0.5 0 1e-12 1 0");
  const ScratchFile two("two.txt", "2 Sweeps 1 0 1 0 1 0 0 Events 1 0.5 0 1e-12 1 0 1 0.6 0 0 0 0");
  RunDialog(
      [](scripted::OpenDialog& dialog) {
        dialog.Type(kEvents, "1");
        dialog.Type(kSweeps, "1");
        dialog.Press(kOkButton);
      },
      [&] {
        shell().Boxes.clear();
        OpenFile(two.Path());
        EXPECT_THAT(Messages(),
                    ElementsAre("Event table is full. File reading will be aborted. Select "
                                "\"Settings\" in \"File\" menu. Change Event table entries."));
        OpenFile(one.Path());
        EXPECT_EQ(workspace().Events.Count, 1);
        EXPECT_EQ(workspace().Sweeps.Count, 1);
        EXPECT_EQ(workspace().Levels.Count, 1) << "the level table holds no more";
      });
}

TEST_F(FileSettingsTest, NumbersOutsideTheirRangeGreyTheButtonsThatStore) {
  const std::pair<int, const char*> bad[] = {
      {kEvents, "0"},   {kEvents, "-1"}, {kEvents, "2147483648"},
      {kEvents, "1.5"}, {kSweeps, "0"},  {kSweeps, ""},
      {kFont, "0"},     {kFont, "x"},    {kPen, "0"},
      {kPen, "-0.25"},  {kPen, "1e"},    {kPen, "nan"},
      {kPen, "inf"},    {kPen, "0x10"},
  };
  for (const auto& [control, text] : bad) {
    scripted::ResetShell();
    RunDialog(
        [&, control = control, text = text](scripted::OpenDialog& dialog) {
          dialog.Type(control, text);
          EXPECT_FALSE(dialog.At(kOpenButton).Enabled) << text;
          EXPECT_FALSE(dialog.At(kOkButton).Enabled) << text;
          EXPECT_TRUE(dialog.At(kCancelButton).Enabled) << text;
        },
        [&] { EXPECT_EQ(workspace().Events.Capacity, 8000); });
  }
}

TEST_F(FileSettingsTest, TheLargestNumbersAreAccepted) {
  RunDialog(
      [](scripted::OpenDialog& dialog) {
        dialog.Type(kEvents, "2147483647");
        EXPECT_TRUE(dialog.At(kOkButton).Enabled);
        dialog.Press(kOkButton);
      },
      [&] { EXPECT_EQ(workspace().Events.Capacity, 2147483647); });
}

/// Stands in for a window of each view; a repaint of it is recorded.
struct InertWindows {
  std::array<scripted::Window, kViewCount> Windows;

  explicit InertWindows(Workspace& workspace) {
    for (std::size_t i = 0; i < kViewCount; ++i) {
      Windows[i].Record.Handle = &Windows[i];
      Windows[i].Client = {0, 0, 300, 200};
      workspace.Views[i].Window = &Windows[i].Record;
    }
  }
  void TakeFrom(Workspace& workspace) {
    for (ViewState& view : workspace.Views) view.Window = nullptr;
  }
  bool IsRepainted(ViewKind kind) const {
    return !Windows[static_cast<std::size_t>(kind)].Invalidated.empty();
  }
};

class FontAndPenTest : public FileSettingsTest {
 protected:
  void ExpectRepaint(int control, const char* text, bool expected) {
    Run([&] {
      InertWindows windows(workspace());
      shell().DialogScripts.push_back([&](scripted::OpenDialog& dialog) {
        dialog.Type(control, text);
        dialog.Press(kOkButton);
      });
      Choose(command::kFileSettings);
      for (std::size_t i = 0; i < kViewCount; ++i) {
        const auto kind = static_cast<ViewKind>(i);
        const bool isFit = kind == ViewKind::AmplitudeFit || kind == ViewKind::DurationFit;
        EXPECT_EQ(windows.IsRepainted(kind), expected && !isFit) << i;
        EXPECT_FALSE(workspace().Views[i].NeedsRebuild);
      }
      windows.TakeFrom(workspace());
    });
  }
};

TEST_F(FontAndPenTest, ANewFontSizeRepaintsEveryViewButTheFitViews) {
  ExpectRepaint(kFont, "12", true);
}

TEST_F(FontAndPenTest, ANewPenSizeRepaintsEveryViewButTheFitViews) {
  ExpectRepaint(kPen, "2", true);
}

TEST_F(FontAndPenTest, OtherSettingsRepaintNothing) {
  ExpectRepaint(kEvents, "100", false);
}

TEST_F(FileSettingsTest, ItIsOfferedOnlyWhileNothingIsLoaded) {
  const ScratchFile file("offered.evt", kTwoOpenings);
  Run([&] {
    OpenFile(file.Path());
    const auto dialogs = shell().Dialogs.size();
    Choose(command::kFileSettings);
    EXPECT_EQ(shell().Dialogs.size(), dialogs);
  });
}

TEST_F(FileSettingsTest, ATooSmallCapacityTellsTheUserWhereToRaiseIt) {
  const ScratchFile file("full.evt", kTwoOpenings);
  RunDialog(
      [](scripted::OpenDialog& dialog) {
        dialog.Type(kEvents, "3");
        dialog.Press(kOkButton);
      },
      [&] {
        shell().Boxes.clear();
        OpenFile(file.Path());
        EXPECT_THAT(Messages(),
                    ElementsAre("Event table is full. File reading will be aborted. Select "
                                "\"Settings\" in \"File\" menu. Change Event table entries."));
      });
}

}  // namespace
}  // namespace ondrel
