#include "shell/menus.h"

#include <gmock/gmock.h>

#include <map>

#include "support/program_test.h"
#include "views/view_kinds.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;

/// The entries of the File menu by place.
constexpr int kFilePopup = 1;
constexpr int kSettingsPopup = 2;
constexpr int kViewPopup = 3;
enum FileEntry {
  kOpen = 1,
  kClose = 2,
  kAdd = 3,
  kImport = 5,
  kSaveEvents = 7,
  kSaveLevels = 8,
  kLoadPreferences = 10,
  kSavePreferences = 11,
  kFileSettings = 12,
  kExportGraph = 14,
  kExportText = 15,
  kPrint = 16,
  kExit = 18,
};

class MenusTest : public ProgramTest {
 protected:
  MenusTest() : file_("menus.evt", kTwoOpenings) {}

  bool IsEnabled(int popup, int entry) { return shell().Menu.Entries.at({popup, entry, 0}); }
  bool IsSubEnabled(int popup, int entry, int subEntry) {
    return shell().Menu.Entries.at({popup, entry, subEntry});
  }

  ScratchFile file_;
};

TEST_F(MenusTest, PlacesInTheMenusAreTheLowBytesOfTheIds) {
  for (const int resource : {200, 206, 207, 208, 209, 210, 211, 212, 213, 214, 215}) {
    int places[3] = {0, 0, 0};
    int depth = 0;
    for (const MenuRow& row : RowsOfMenu(resource)) {
      if (row.RowKind == MenuRow::Kind::End) {
        --depth;
        continue;
      }
      ++places[depth];
      if (row.RowKind == MenuRow::Kind::Popup) places[++depth] = 0;
      if (row.RowKind == MenuRow::Kind::Entry) {
        EXPECT_EQ(row.Id & 0xFF, places[depth]) << row.Text;
      }
    }
    EXPECT_EQ(depth, 0) << resource;
  }
}

TEST_F(MenusTest, TheBarHoldsFourPopupsInTheirOrder) {
  std::vector<std::string> titles;
  for (const MenuRow& row : RowsOfMenu(kMainMenu)) {
    if (row.RowKind == MenuRow::Kind::Popup) titles.emplace_back(row.Text);
  }
  EXPECT_THAT(titles, ElementsAre("&File", "&Settings", "&View", "&Help"));
  EXPECT_TRUE(RowsOfMenu(205).empty());
}

TEST_F(MenusTest, WithNoDataOnlyOpenSettingsAndExitAreThere) {
  Run([&] {
    EXPECT_EQ(CurrentMenuState(workspace()), MenuState::NoData);
    EXPECT_FALSE(shell().Menu.Popups.at(2));
    EXPECT_FALSE(shell().Menu.Popups.at(3));
    for (const int entry : {kOpen, kFileSettings, kExit}) {
      EXPECT_TRUE(IsEnabled(kFilePopup, entry)) << entry;
    }
    for (const int entry :
         {kClose, kAdd, kImport, kSaveEvents, kSaveLevels, kExportGraph, kExportText, kPrint}) {
      EXPECT_FALSE(IsEnabled(kFilePopup, entry)) << entry;
    }
  });
}

TEST_F(MenusTest, WithAnActiveViewItsPopupStandsAtPlaceFour) {
  Run([&] {
    OpenFile(file_.Path());
    EXPECT_EQ(CurrentMenuState(workspace()), MenuState::ActiveView);
    EXPECT_EQ(shell().Menu.Resource, 200);
    EXPECT_EQ(shell().Menu.InsertedResource, 207) << "the level view opened last";
    EXPECT_EQ(shell().Menu.InsertedPlace, 4);
    EXPECT_TRUE(shell().Menu.Popups.at(2));
    EXPECT_TRUE(shell().Menu.Popups.at(3));
    EXPECT_FALSE(IsEnabled(kFilePopup, kOpen));
    EXPECT_FALSE(IsEnabled(kFilePopup, kFileSettings));
    EXPECT_FALSE(IsEnabled(kFilePopup, kLoadPreferences));
    for (const int entry : {kClose, kAdd, kImport, kExit}) {
      EXPECT_TRUE(IsEnabled(kFilePopup, entry)) << entry;
    }
  });
}

TEST_F(MenusTest, ViewMenusSwapWithTheActiveView) {
  Run([&] {
    OpenFile(file_.Path());
    const std::map<CommandId, int> resources = {{command::kEventView, 206},
                                                {command::kLevelView, 207},
                                                {command::kStatisticsView, 211},
                                                {command::kSweepView, 212}};
    for (const auto& [command, resource] : resources) {
      Choose(command);
      EXPECT_EQ(shell().Menu.InsertedResource, resource);
    }
  });
}

TEST_F(MenusTest, TheViewThatClosesLastLeavesTheDataMenu) {
  Run([&] {
    OpenFile(file_.Path());
    for (const ViewKind kind : {ViewKind::Level, ViewKind::Event}) {
      ChildWindow* window = ViewOf(workspace(), kind).Window;
      window->Callbacks->Close(window);
    }
    EXPECT_EQ(CurrentMenuState(workspace()), MenuState::Data);
    EXPECT_EQ(shell().Menu.InsertedResource, 0);
    EXPECT_TRUE(shell().Menu.Popups.at(2));
    EXPECT_TRUE(shell().Menu.Popups.at(3));
    EXPECT_FALSE(IsEnabled(kFilePopup, kOpen));
    EXPECT_TRUE(IsEnabled(kFilePopup, kClose));
    EXPECT_FALSE(IsEnabled(kFilePopup, kExportGraph));
  });
}

TEST_F(MenusTest, TablesAreSavedWhileThereAreDataAndPicturesNeedAViewInFront) {
  Run([&] {
    const auto expect = [&](bool saving, bool exporting) {
      for (const int entry : {kSaveEvents, kSaveLevels}) {
        EXPECT_EQ(IsEnabled(kFilePopup, entry), saving) << entry;
      }
      for (const int entry : {kExportGraph, kExportText, kPrint}) {
        EXPECT_EQ(IsEnabled(kFilePopup, entry), exporting) << entry;
      }
    };
    expect(false, false);
    OpenFile(file_.Path());
    expect(true, true);
    for (const ViewKind kind : {ViewKind::Level, ViewKind::Event}) {
      ChildWindow* window = ViewOf(workspace(), kind).Window;
      window->Callbacks->Close(window);
    }
    expect(true, false);
    Choose(command::kClose);
    expect(false, false);
  });
}

TEST_F(MenusTest, SettingsAndViewsAreEnabledOnceDataAreThere) {
  Run([&] {
    OpenFile(file_.Path());
    Choose(command::kLevelView);
    EXPECT_TRUE(IsEnabled(kViewMenuPlace, 1)) << "TagValue";
    EXPECT_TRUE(IsSubEnabled(kViewMenuPlace, 2, 1)) << "Colors, Selected";
    for (const int entry : {1, 3, 4, 5, 6, 7}) {
      EXPECT_TRUE(IsEnabled(kSettingsPopup, entry)) << entry;
    }
    for (int view = 1; view <= 10; ++view) EXPECT_TRUE(IsEnabled(kViewPopup, view)) << view;
  });
}

// --- "&Automatic Fit" ----------------------------------------------------------------------------

struct FitEntries {
  ViewKind Histogram;
  ViewKind Fit;
  CommandId Open;
  CommandId Manual;
  int ManualPlace;
  int AutomaticPlace;
};

class FitMenusTest : public MenusTest, public ::testing::WithParamInterface<FitEntries> {
 protected:
  void RunWithHistogram(const std::function<void()>& act) {
    Run([&] {
      OpenFile(file_.Path());
      Choose(GetParam().Open);
      act();
    });
  }

  ViewState& Fit() { return ViewOf(workspace(), GetParam().Fit); }
  ViewState& Histogram() { return ViewOf(workspace(), GetParam().Histogram); }
  bool AutomaticFitIsEnabled() { return IsEnabled(kViewMenuPlace, GetParam().AutomaticPlace); }
};

TEST_P(FitMenusTest, AutomaticFitIsGreyedUntilManualFitHasOpenedTheFitView) {
  RunWithHistogram([&] {
    EXPECT_FALSE(AutomaticFitIsEnabled());
    EXPECT_TRUE(IsEnabled(kViewMenuPlace, GetParam().ManualPlace));
    Choose(GetParam().Manual);
    ASSERT_NE(Fit().Window, nullptr);
    EXPECT_EQ(shell().Menu.InsertedResource, 0) << "fit views have no menu of their own";
    toolkit::BringForward(Histogram().Window);
    EXPECT_TRUE(AutomaticFitIsEnabled());
  });
}

TEST_P(FitMenusTest, AutomaticFitIsGreyedAgainWhenTheFitViewCloses) {
  RunWithHistogram([&] {
    Choose(GetParam().Manual);
    toolkit::BringForward(Histogram().Window);
    const int redrawn = shell().Menu.Redrawn;
    Fit().Window->Callbacks->Close(Fit().Window);
    toolkit::BringForward(Histogram().Window);
    EXPECT_FALSE(AutomaticFitIsEnabled());
    EXPECT_GE(shell().Menu.Redrawn, redrawn);
  });
}

TEST_P(FitMenusTest, TheEntryFollowsTheFitViewWhileItsMenuStands) {
  RunWithHistogram([&] {
    Choose(GetParam().Manual);
    toolkit::BringForward(Histogram().Window);
    ChildWindow* window = Fit().Window;
    Fit().Window = nullptr;
    RefreshFitEntries(Frame());
    EXPECT_FALSE(AutomaticFitIsEnabled());
    Fit().Window = window;
    RefreshFitEntries(Frame());
    EXPECT_TRUE(AutomaticFitIsEnabled());
  });
}

TEST_P(FitMenusTest, WithoutAViewsMenuNothingIsGreyedInItsPlace) {
  RunWithHistogram([&] {
    InstallDataMenu(Frame());
    const auto entries = shell().Menu.Entries;
    RefreshFitEntries(Frame());
    EXPECT_EQ(shell().Menu.Entries, entries);
  });
}

TEST_P(FitMenusTest, DialogsOfTheHistogramAreEnabled) {
  RunWithHistogram([&] {
    EXPECT_TRUE(IsEnabled(kViewMenuPlace, 1)) << "Autoscale";
    for (int entry = 2; entry < GetParam().ManualPlace; ++entry) {
      if (entry == GetParam().ManualPlace - 2) continue;  // a separator
      EXPECT_TRUE(IsEnabled(kViewMenuPlace, entry)) << entry;
    }
  });
}

INSTANTIATE_TEST_SUITE_P(
    Of, FitMenusTest,
    ::testing::Values(FitEntries{ViewKind::Amplitude, ViewKind::AmplitudeFit,
                                 command::kAmplitudeView, command::kAmplitudeManualFit, 6, 7},
                      FitEntries{ViewKind::Duration, ViewKind::DurationFit, command::kDurationView,
                                 command::kDurationManualFit, 7, 8}),
    [](const auto& info) {
      return info.param.Histogram == ViewKind::Amplitude ? "Amplitude" : "Duration";
    });

TEST_F(MenusTest, WhatNoStateRuleNamesIsAlwaysAllowed) {
  const auto workspace = std::make_unique<Workspace>();
  for (const MenuState state : {MenuState::NoData, MenuState::Data, MenuState::ActiveView}) {
    EXPECT_TRUE(IsAllowed(*workspace, command::kExit, state));
    EXPECT_TRUE(IsAllowed(*workspace, command::kAbout, state));
  }
}

TEST_F(MenusTest, ACommandThatDoesNotExistIsNeverAllowed) {
  const auto workspace = std::make_unique<Workspace>();
  for (const MenuState state : {MenuState::NoData, MenuState::Data, MenuState::ActiveView}) {
    EXPECT_FALSE(IsAllowed(*workspace, 51718, state));
  }
}

TEST_F(MenusTest, TheBarIsDrawnAgainAfterEachChange) {
  Run([&] {
    InstallStartMenu(Frame());
    EXPECT_EQ(shell().Menu.Redrawn, 1);
    InstallDataMenu(Frame());
    EXPECT_EQ(shell().Menu.Redrawn, 1);
    InstallViewMenu(Frame(), ViewKind::Event);
    EXPECT_EQ(shell().Menu.Redrawn, 1);
  });
}

}  // namespace
}  // namespace ondrel
