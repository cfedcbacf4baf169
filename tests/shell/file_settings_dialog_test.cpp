#include "shell/file_settings_dialog.h"

#include <gmock/gmock.h>

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
  const ScratchFile one("one.txt", "1 0.5 0 0 1e-12 0 1");
  RunDialog(
      [](scripted::OpenDialog& dialog) {
        dialog.Type(kEvents, "1");
        dialog.Type(kSweeps, "1");
        dialog.Press(kOkButton);
      },
      [&] {
        ASSERT_TRUE(AllocateAllTables(Frame()));
        EXPECT_EQ(workspace().Events.Capacity, 1);
        EXPECT_EQ(workspace().Levels.Capacity, 1);
        EXPECT_EQ(workspace().Sweeps.Capacity, 1);
        EXPECT_NE(workspace().Events.Index[0], nullptr);
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

TEST_F(FileSettingsTest, ANewFontSizeMarksAndRefreshesEveryViewButTheFitViews) {
  RunDialog(
      [](scripted::OpenDialog& dialog) {
        dialog.Type(kFont, "12");
        dialog.Press(kOkButton);
      },
      [&] {
        for (const ViewState& view : workspace().Views) EXPECT_FALSE(view.NeedsRebuild);
        EXPECT_EQ(workspace().FontSize, 12);
      });
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
