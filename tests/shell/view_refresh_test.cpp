// How a change reaches the views: the whole program with all twelve of them open.
#include <gmock/gmock.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "derived/derived_chain.h"
#include "shell/menus.h"
#include "support/all_views_test.h"
#include "views/all_views.h"
#include "views/view_kinds.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ViewRefreshTest : public AllViewsTest {};

// --- Commands ------------------------------------------------------------------------------------

TEST_F(ViewRefreshTest, ResetRepaintsAllViewsButThatOfTheEvents) {
  RunWithAllViews([&] {
    Choose(command::kResetFilters);
    EXPECT_EQ(Repainted(),
              TitlesOf({ViewKind::Level, ViewKind::Amplitude, ViewKind::Duration,
                        ViewKind::AmplitudeScatter, ViewKind::DurationScatter, ViewKind::Scatter,
                        ViewKind::Stationarity, ViewKind::Statistics, ViewKind::AmplitudeFit,
                        ViewKind::DurationFit, ViewKind::Sweep}));
  });
}

/// Each view by its own redraw, not by the order of a refresh.
const std::vector<ViewKind> kAfterNewData = {
    ViewKind::Event,           ViewKind::Level,
    ViewKind::Duration,        ViewKind::DurationFit,
    ViewKind::Amplitude,       ViewKind::AmplitudeFit,
    ViewKind::Scatter,         ViewKind::AmplitudeScatter,
    ViewKind::DurationScatter, ViewKind::Stationarity,
    ViewKind::Statistics,      ViewKind::Sweep,
};

TEST_F(ViewRefreshTest, AddingRepaintsAllViewsInItsOwnOrder) {
  RunWithAllViews([&] {
    shell().FileChoices.push_back(file_.Path());
    Choose(command::kAdd);
    EXPECT_EQ(workspace().Files.Count, 2);
    EXPECT_EQ(Repainted(), TitlesOf(kAfterNewData));
  });
}

TEST_F(ViewRefreshTest, ImportingRepaintsAllViewsInTheSameOrder) {
  RunWithAllViews([&] {
    shell().Answers.push_back(toolkit::BoxAnswer::Yes);
    shell().FileChoices.push_back(rows_.Path());
    Choose(command::kImportEvents);
    EXPECT_EQ(workspace().Events.Count, 2);
    EXPECT_EQ(Repainted(), TitlesOf(kAfterNewData));
  });
}

TEST_F(ViewRefreshTest, AFileThatIsNotChosenRepaintsNothing) {
  RunWithAllViews([&] {
    Choose(command::kAdd);
    Choose(command::kImportEvents);
    EXPECT_THAT(Repainted(), IsEmpty());
  });
}

TEST_F(ViewRefreshTest, AddingRepaintsWhatIsOpenAndOpensTheTwoTables) {
  RunWithAllViews([&] {
    for (const ViewKind kind : {ViewKind::Scatter, ViewKind::Stationarity, ViewKind::Event}) {
      View(kind).Window->Callbacks->Close(View(kind).Window);
    }
    Forget();
    shell().FileChoices.push_back(file_.Path());
    Choose(command::kAdd);
    EXPECT_EQ(Repainted(),
              TitlesOf({ViewKind::Event, ViewKind::Level, ViewKind::Duration, ViewKind::DurationFit,
                        ViewKind::Amplitude, ViewKind::AmplitudeFit, ViewKind::AmplitudeScatter,
                        ViewKind::DurationScatter, ViewKind::Statistics, ViewKind::Sweep}));
    EXPECT_NE(View(ViewKind::Event).Window, nullptr);
    EXPECT_EQ(View(ViewKind::Scatter).Window, nullptr);
    EXPECT_EQ(View(ViewKind::Stationarity).Window, nullptr);
  });
}

TEST_F(ViewRefreshTest, AutoscaleRepaintsTheHistogramAndThenItsFit) {
  RunWithAllViews([&] {
    Choose(command::kAmplitudeAutoscale);
    EXPECT_EQ(Repainted(), TitlesOf({ViewKind::Amplitude, ViewKind::AmplitudeFit}));
    Forget();
    Choose(command::kDurationAutoscale);
    EXPECT_EQ(Repainted(), TitlesOf({ViewKind::Duration, ViewKind::DurationFit}));
  });
}

/// Of each plot: its command for "&Data...", and its view.
struct PlotColors {
  CommandId First;
  ViewKind View;
};

TEST_F(ViewRefreshTest, EachColourOfAPlotIsStoredInItsPlaceAndRepaintsItsViewAlone) {
  constexpr PlotColors kPlots[] = {{26881, ViewKind::Scatter},
                                   {27649, ViewKind::DurationScatter},
                                   {27905, ViewKind::AmplitudeScatter},
                                   {28161, ViewKind::Stationarity}};
  constexpr PlotColor kPlaces[] = {PlotColor::Plot, PlotColor::Labels, PlotColor::Axes,
                                   PlotColor::Background};
  RunWithAllViews([&] {
    for (const PlotColors& plot : kPlots) {
      for (std::size_t i = 0; i < std::size(kPlaces); ++i) {
        const auto command = static_cast<CommandId>(plot.First + i);
        // The background keeps telling which view it is.
        const RgbColor choice = kPlaces[i] == PlotColor::Background
                                    ? MarkOf(plot.View)
                                    : RgbColor{7, plot.First, static_cast<std::int32_t>(i)};
        if (kPlaces[i] == PlotColor::Background) View(plot.View).Colors[3] = kBlack;
        auto expected = workspace().Views;
        expected[static_cast<std::size_t>(plot.View)].Colors[static_cast<std::size_t>(kPlaces[i])] =
            choice;
        Forget();
        shell().ColorChoices.push_back(choice);
        Choose(command);
        EXPECT_EQ(Repainted(), TitlesOf({plot.View})) << command;
        for (const ViewKind kind : AllKinds()) {
          EXPECT_EQ(View(kind).Colors, expected[static_cast<std::size_t>(kind)].Colors)
              << command << " in " << FactsOf(kind).Title;
        }
      }
    }
  });
}

TEST_F(ViewRefreshTest, ACancelledColourRepaintsNothing) {
  RunWithAllViews([&] {
    for (const int id : {26881, 27650, 27907, 28164}) Choose(static_cast<CommandId>(id));
    EXPECT_EQ(shell().ColorLabels.size(), 4u);
    EXPECT_THAT(Repainted(), IsEmpty());
  });
}

// --- Chains --------------------------------------------------------------------------------------

TEST_F(ViewRefreshTest, NewLevelsLeaveTheValueScattersTheSweepsAndTheEventsAlone) {
  RunWithAllViews([&] {
    EXPECT_EQ(RepaintedAfter(DeriveAfterLevelSettings),
              TitlesOf({ViewKind::Level, ViewKind::Amplitude, ViewKind::Duration, ViewKind::Scatter,
                        ViewKind::Stationarity, ViewKind::Statistics, ViewKind::AmplitudeFit,
                        ViewKind::DurationFit}));
  });
}

TEST_F(ViewRefreshTest, TagsRepaintTheEventsToo) {
  RunWithAllViews([&] {
    EXPECT_EQ(RepaintedAfter(DeriveAfterLevelTags),
              TitlesOf({ViewKind::Event, ViewKind::Level, ViewKind::Amplitude, ViewKind::Duration,
                        ViewKind::Scatter, ViewKind::Stationarity, ViewKind::Statistics,
                        ViewKind::AmplitudeFit, ViewKind::DurationFit}));
  });
}

TEST_F(ViewRefreshTest, ALevelFilterLeavesTheEventsAndTheSweepsAlone) {
  RunWithAllViews([&] {
    EXPECT_EQ(RepaintedAfter(DeriveAfterLevelFilter),
              TitlesOf({ViewKind::Level, ViewKind::Amplitude, ViewKind::Duration,
                        ViewKind::AmplitudeScatter, ViewKind::DurationScatter, ViewKind::Scatter,
                        ViewKind::Stationarity, ViewKind::Statistics, ViewKind::AmplitudeFit,
                        ViewKind::DurationFit}));
  });
}

TEST_F(ViewRefreshTest, ASweepFilterLeavesTheValueScattersAndTheEventsAlone) {
  RunWithAllViews([&] {
    EXPECT_EQ(RepaintedAfter(DeriveAfterSweepFilter),
              TitlesOf({ViewKind::Level, ViewKind::Amplitude, ViewKind::Duration, ViewKind::Scatter,
                        ViewKind::Stationarity, ViewKind::Statistics, ViewKind::AmplitudeFit,
                        ViewKind::DurationFit, ViewKind::Sweep}));
  });
}

TEST_F(ViewRefreshTest, AClosedViewIsNotRepaintedAndItsMarkGoesAllTheSame) {
  RunWithAllViews([&] {
    for (const ViewKind kind : {ViewKind::Scatter, ViewKind::AmplitudeScatter}) {
      View(kind).Window->Callbacks->Close(View(kind).Window);
    }
    EXPECT_EQ(RepaintedAfter(DeriveAfterLevelFilter),
              TitlesOf({ViewKind::Level, ViewKind::Amplitude, ViewKind::Duration,
                        ViewKind::DurationScatter, ViewKind::Stationarity, ViewKind::Statistics,
                        ViewKind::AmplitudeFit, ViewKind::DurationFit}));
  });
}

// --- What the plots show then --------------------------------------------------------------------

TEST_F(ViewRefreshTest, TheNextPaintOfAPlotThatWasLeftOutShowsTheNewSelection) {
  RunWithAllViews([&] {
    workspace().AmplitudeScatter.SymbolSize = 1.0;
    ASSERT_EQ(Dots(ViewKind::AmplitudeScatter).size(), 3u) << "two openings and the gap between";
    SweepTable& sweeps = workspace().Sweeps;
    sweeps.IndexChoice = Selection::Exclude;
    sweeps.IndexLow = sweeps.IndexHigh = 1;
    RepaintedAfter(DeriveAfterSweepFilter);
    EXPECT_TRUE(scripted::WindowOf(View(ViewKind::AmplitudeScatter).Window).Invalidated.empty());
    EXPECT_THAT(Dots(ViewKind::AmplitudeScatter), IsEmpty());
    Choose(command::kResetFilters);
    EXPECT_EQ(Dots(ViewKind::AmplitudeScatter).size(), 3u);
  });
}

/// The openings of the file last 20 and 30 ms with a gap of 10 ms between, and the first is tagged.
TEST_F(ViewRefreshTest, CountingClosingsMovesTheDots) {
  RunWithAllViews([&] {
    workspace().AmplitudeScatter = {.Value = ScatterValue::LevelTag,
                                    .Minimum = 0.0,
                                    .TickMarks = 4,
                                    .PerTick = 1.0,
                                    .SymbolSize = 2.0 * 2.54 / 96.0};
    workspace().Events.Index[0]->TagValue = 3.0;
    workspace().Events.BurstResolution = 0.0101;
    RepaintedAfter(DeriveAfterLevelSettings);
    scripted::WindowOf(View(ViewKind::AmplitudeScatter).Window).Client = {0, 0, 480, 360};
    // 90 a tick from 60 on, and 60 a picoampere up from 300.
    EXPECT_THAT(Dots(ViewKind::AmplitudeScatter), ElementsAre("filled rect 329 179 331 181"));
    workspace().Levels.TagSource = LevelTag::ClosingCount;
    RepaintedAfter(DeriveAfterLevelSettings);
    EXPECT_THAT(Dots(ViewKind::AmplitudeScatter), ElementsAre("filled rect 149 179 151 181"));
  });
}

// --- Menus ---------------------------------------------------------------------------------------

struct PlotMenu {
  CommandId Open;
  ViewKind View;
  int Resource;
  const char* Title;
  const char* FirstEntry;
};

constexpr PlotMenu kPlotMenus[] = {
    {command::kScatterView, ViewKind::Scatter, 210, "S&catter", "S&caling..."},
    {command::kAmplitudeScatterView, ViewKind::AmplitudeScatter, 213, "A&mplitudeScatter",
     "S&caling..."},
    {command::kDurationScatterView, ViewKind::DurationScatter, 214, "&DurationScatter",
     "S&caling..."},
    {command::kStationarityView, ViewKind::Stationarity, 215, "Statio&narity", "&Settings..."},
};

TEST_F(ViewRefreshTest, APlotThatComesToTheFrontBringsItsMenuWithEveryEntryEnabled) {
  RunWithAllViews([&] {
    for (const PlotMenu& plot : kPlotMenus) {
      Choose(command::kEventView);
      ASSERT_EQ(shell().Menu.InsertedResource, 206);
      Choose(plot.Open);
      EXPECT_EQ(shell().Menu.InsertedResource, plot.Resource);
      EXPECT_EQ(shell().Menu.InsertedPlace, 4);
      const auto& entries = shell().Menu.Entries;
      EXPECT_TRUE(entries.at({4, 1, 0})) << plot.FirstEntry;
      EXPECT_TRUE(entries.at({4, 2, 0})) << "its style";
      for (int color = 1; color <= 4; ++color) EXPECT_TRUE(entries.at({4, 3, color})) << color;
      EXPECT_EQ(entries.count({4, 3, 5}), 0u);
    }
  });
}

TEST_F(ViewRefreshTest, TheMenusOfThePlotsHoldTheirEntries) {
  for (const PlotMenu& plot : kPlotMenus) {
    std::vector<std::string> entries;
    for (const MenuRow& row : RowsOfMenu(plot.Resource)) {
      if (row.Text != nullptr) entries.emplace_back(row.Text);
    }
    EXPECT_THAT(entries, ElementsAre(plot.Title, plot.FirstEntry, "S&tyle...", "&Colors",
                                     "&Data...", "&Labels...", "&Axes...", "&Background..."))
        << plot.Resource;
  }
}

TEST_F(ViewRefreshTest, TheEntriesOfThePlotsRunTheirDialogs) {
  constexpr std::pair<CommandId, int> kDialogs[] = {{53761, 130}, {53762, 137}, {54529, 133},
                                                    {54530, 137}, {54785, 135}, {54786, 137},
                                                    {55041, 142}, {55042, 141}};
  RunWithAllViews([&] {
    for (const auto& [id, resource] : kDialogs) {
      shell().Dialogs.clear();
      Choose(id);
      EXPECT_THAT(shell().Dialogs, ElementsAre(resource)) << id;
      EXPECT_THAT(Repainted(), IsEmpty()) << id << " was cancelled";
    }
  });
}

TEST_F(ViewRefreshTest, AGreyedEntryDoesNothing) {
  RunWithAllViews([&] {
    shell().Dialogs.clear();
    shell().FileDialogs.clear();
    shell().Boxes.clear();
    for (const CommandId id : {command::kOpen, command::kLoadPreferences, command::kFileSettings}) {
      Choose(id);
    }
    EXPECT_THAT(shell().Dialogs, IsEmpty());
    EXPECT_THAT(shell().FileDialogs, IsEmpty());
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_THAT(Repainted(), IsEmpty());
  });
}

}  // namespace
}  // namespace ondrel
