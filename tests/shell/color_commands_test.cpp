#include "shell/color_commands.h"

#include <gmock/gmock.h>

#include <array>
#include <cstddef>

#include "shell/menus.h"
#include "support/program_test.h"
#include "views/view_kinds.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;

class ColorCommandsTest : public ProgramTest {
 protected:
  void RunWithAllViews(const std::function<void()>& act) {
    const ScratchFile file("colors.evt", kTwoOpenings);
    Run([&] {
      OpenFile(file.Path());
      Choose(command::kSweepView);
      Choose(command::kStatisticsView);
      Choose(command::kAmplitudeView);
      Choose(command::kDurationView);
      act();
    });
  }

  std::size_t Repaints(ViewKind kind) {
    return scripted::WindowOf(ViewOf(workspace(), kind).Window).Invalidated.size();
  }
};

constexpr RgbColor kPurple{0x8000, 0, 0xFF00};

TEST_F(ColorCommandsTest, EventColoursAskWithTheirLabels) {
  RunWithAllViews([&] {
    Choose(25857);
    Choose(25858);
    Choose(25859);
    EXPECT_THAT(shell().ColorLabels,
                ElementsAre("Event color:", "Header color:", "Background color:"));
  });
}

TEST_F(ColorCommandsTest, AnAcceptedColourIsStoredAndRepaintsItsViewAlone) {
  RunWithAllViews([&] {
    const std::size_t events = Repaints(ViewKind::Event);
    const std::size_t levels = Repaints(ViewKind::Level);
    shell().ColorChoices.push_back(kPurple);
    Choose(26114);
    EXPECT_EQ(ColorOf(ViewOf(workspace(), ViewKind::Level), LevelColor::Other), kPurple);
    EXPECT_EQ(Repaints(ViewKind::Level), levels + 1);
    EXPECT_EQ(Repaints(ViewKind::Event), events);
  });
}

TEST_F(ColorCommandsTest, ACancelledColourStays) {
  RunWithAllViews([&] {
    const std::size_t sweeps = Repaints(ViewKind::Sweep);
    Choose(27393);
    EXPECT_EQ(ColorOf(ViewOf(workspace(), ViewKind::Sweep), SweepColor::Selected), kBlack);
    EXPECT_EQ(Repaints(ViewKind::Sweep), sweeps);
  });
}

TEST_F(ColorCommandsTest, EachHistogramColourIsStoredInItsPlaceAndRepaintsItsViewAlone) {
  struct Case {
    CommandId Command;
    ViewKind View;
    HistogramColor Place;
  };
  const Case cases[] = {
      {26369, ViewKind::Amplitude, HistogramColor::Histogram},
      {26370, ViewKind::Amplitude, HistogramColor::Fit},
      {26371, ViewKind::Amplitude, HistogramColor::Labels},
      {26372, ViewKind::Amplitude, HistogramColor::Axes},
      {26373, ViewKind::Amplitude, HistogramColor::Background},
      {26625, ViewKind::Duration, HistogramColor::Histogram},
      {26626, ViewKind::Duration, HistogramColor::Fit},
      {26627, ViewKind::Duration, HistogramColor::Labels},
      {26628, ViewKind::Duration, HistogramColor::Axes},
      {26629, ViewKind::Duration, HistogramColor::Background},
  };
  RunWithAllViews([&] {
    for (const Case& row : cases) {
      const RgbColor choice{0x1100, row.Command & 0xFF00, (row.Command & 0xFF) << 8};
      std::array<ViewState, kViewCount> expected = workspace().Views;
      expected[static_cast<std::size_t>(row.View)].Colors[static_cast<std::size_t>(row.Place)] =
          choice;
      for (const auto& child : shell().Children) child->Invalidated.clear();
      shell().ColorChoices.push_back(choice);
      Choose(row.Command);
      for (std::size_t i = 0; i < kViewCount; ++i) {
        EXPECT_EQ(workspace().Views[i].Colors, expected[i].Colors)
            << row.Command << " in view " << i;
        if (workspace().Views[i].Window == nullptr) continue;
        const auto kind = static_cast<ViewKind>(i);
        EXPECT_EQ(Repaints(kind), kind == row.View ? 1u : 0u) << row.Command << " in view " << i;
      }
    }
  });
}

struct Expected {
  CommandId Command;
  const char* Label;
};

TEST_F(ColorCommandsTest, EachEntryNamesItsColour) {
  const Expected rows[] = {
      {26113, "Selected level color:"},
      {26114, "Other level color:"},
      {26115, "Header color:"},
      {26116, "Background color:"},
      {27137, "Color of header:"},
      {27138, "Color of others:"},
      {27139, "Color of background:"},
      {27393, "Color of selected sweeps:"},
      {27394, "Color of sweeps:"},
      {27395, "Color of header:"},
      {27396, "Color of background:"},
      {26369, "Color of amplitude histogram:"},
      {26370, "Color of amplitude fitting:"},
      {26371, "Color of labels:"},
      {26372, "Color of axes:"},
      {26373, "Color of background:"},
      {26625, "Color of duration histogram:"},
      {26626, "Color of duration fitting:"},
      {26627, "Color of labels:"},
      {26628, "Color of axes:"},
      {26629, "Color of background:"},
  };
  RunWithAllViews([&] {
    for (const Expected& row : rows) {
      Choose(row.Command);
      EXPECT_EQ(shell().ColorLabels.back(), row.Label) << row.Command;
    }
  });
}

TEST_F(ColorCommandsTest, TheFourPlotsAskForTheSameFourColours) {
  constexpr CommandId kFirstColors[] = {26881, 27649, 27905, 28161};
  RunWithAllViews([&] {
    for (const CommandId first : kFirstColors) {
      shell().ColorLabels.clear();
      for (int i = 0; i < 4; ++i) Choose(static_cast<CommandId>(first + i));
      EXPECT_THAT(shell().ColorLabels, ElementsAre("Color of plot:", "Color of labels:",
                                                   "Color of axes:", "Color of background:"))
          << first;
    }
  });
}

TEST_F(ColorCommandsTest, WhatStandsBehindAMenusLastColourIsNoColour) {
  EXPECT_TRUE(IsColorCommand(25857));
  EXPECT_FALSE(IsColorCommand(25860));
  EXPECT_TRUE(IsColorCommand(26884));
  EXPECT_FALSE(IsColorCommand(26885));
}

/// No colour of a menu leads nowhere.
TEST_F(ColorCommandsTest, TheMenusHoldNoOtherColours) {
  RunWithAllViews([&] {
    for (const int resource : {206, 207, 208, 209, 210, 211, 212, 213, 214, 215}) {
      bool inColors = false;
      for (const MenuRow& row : RowsOfMenu(resource)) {
        if (row.RowKind == MenuRow::Kind::Popup) inColors = std::string(row.Text) == "&Colors";
        if (inColors && row.RowKind == MenuRow::Kind::Entry) {
          EXPECT_TRUE(IsColorCommand(static_cast<CommandId>(row.Id))) << row.Text;
        }
      }
    }
  });
}

}  // namespace
}  // namespace ondrel
