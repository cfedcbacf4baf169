#include "views/view_kinds.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "support/view_test.h"

namespace ondrel {
namespace {

struct ExpectedColor {
  std::string Label;
  RgbColor Default;
};

struct ExpectedKind {
  ViewKind Kind;
  std::string Title;
  std::string CreationText;
  bool VerticalBar;
  std::string MenuTitle;  // empty: no menu of its own
  std::vector<ExpectedColor> Colors;
};

const RgbColor kExpectedBlack{0, 0, 0};
const RgbColor kExpectedWhite{65535, 65535, 65535};
const RgbColor kExpectedGrey{49152, 49152, 49152};
const RgbColor kExpectedRed{65535, 0, 0};
const RgbColor kExpectedBlue{0, 0, 65535};

const std::vector<ExpectedColor> kExpectedPlotColors = {
    {"Color of plot:", kExpectedRed},
    {"Color of labels:", kExpectedBlack},
    {"Color of axes:", kExpectedBlack},
    {"Color of background:", kExpectedWhite},
};
const std::vector<ExpectedColor> kExpectedAmplitudeColors = {
    {"Color of amplitude histogram:", kExpectedRed},
    {"Color of amplitude fitting:", kExpectedBlue},
    {"Color of labels:", kExpectedBlack},
    {"Color of axes:", kExpectedBlack},
    {"Color of background:", kExpectedWhite},
};
const std::vector<ExpectedColor> kExpectedDurationColors = {
    {"Color of duration histogram:", kExpectedRed}, {"Color of duration fitting:", kExpectedBlue},
    {"Color of labels:", kExpectedBlack},           {"Color of axes:", kExpectedBlack},
    {"Color of background:", kExpectedWhite},
};

const std::vector<ExpectedKind> kExpectedKinds = {
    {ViewKind::Event,
     "Event",
     "creating <Event> window",
     true,
     "E&vent",
     {{"Event color:", kExpectedBlack},
      {"Background color:", kExpectedWhite},
      {"Header color:", kExpectedBlue}}},
    {ViewKind::Level,
     "Level",
     "creating <Level> window",
     true,
     "&Level",
     {{"Selected level color:", kExpectedBlack},
      {"Header color:", kExpectedBlue},
      {"Other level color:", kExpectedGrey},
      {"Background color:", kExpectedWhite}}},
    {ViewKind::Sweep,
     "Sweep",
     "creating <Sweep> window",
     true,
     "S&weep",
     {{"Color of selected sweeps:", kExpectedBlack},
      {"Color of sweeps:", kExpectedGrey},
      {"Color of background:", kExpectedWhite},
      {"Color of header:", kExpectedBlue}}},
    {ViewKind::Statistics,
     "Statistics",
     "creating <Statistics> window",
     false,
     "S&tatistics",
     {{"Color of header:", kExpectedBlue},
      {"Color of others:", kExpectedBlack},
      {"Color of background:", kExpectedWhite}}},
    {ViewKind::AmplitudeFit,
     "Amplitude Fit Parameters",
     "creating <Amplitude Fit Parameters> window",
     false,
     "",
     {{"Background", kExpectedWhite}}},
    {ViewKind::DurationFit,
     "Duration Fit Parameters",
     "creating <Duration Fit Parameters> window",
     false,
     "",
     {{"Background", kExpectedWhite}}},
    {ViewKind::Amplitude, "Amplitude Histogram", "creating <Amplitude> window", false, "&Amplitude",
     kExpectedAmplitudeColors},
    {ViewKind::Duration, "Duration Histogram", "creating <Duration> window", false, "&Duration",
     kExpectedDurationColors},
    {ViewKind::AmplitudeScatter, "Amplitude Scatter Plot",
     "creating <Amplitude Scatter Plot> window", false, "A&mplitudeScatter", kExpectedPlotColors},
    {ViewKind::DurationScatter, "Duration Scatter Plot", "creating <Duration Scatter Plot> window",
     false, "&DurationScatter", kExpectedPlotColors},
    {ViewKind::Scatter, "Amplitude/Duration", "creating <Amplitude/Duration> window", false,
     "S&catter", kExpectedPlotColors},
    {ViewKind::Stationarity, "Stationarity", "creating <Stationarity> window", false,
     "Statio&narity", kExpectedPlotColors},
};

/// The titles of all popups in the menus of the resources, by the menu in which they come first.
std::string MenuTitle(int resource) {
  struct Row {
    int Menu;
    const char* Popup;
  };
  constexpr Row rows[] = {
#define ONDREL_MENU(id) {id, nullptr},
#define ONDREL_POPUP(text) {0, text},
#define ONDREL_ENTRY(text, id)
#define ONDREL_SEPARATOR
#define ONDREL_POPUP_END
#define ONDREL_MENU_END
#include "resources/menus.inc"
#undef ONDREL_MENU
#undef ONDREL_POPUP
#undef ONDREL_ENTRY
#undef ONDREL_SEPARATOR
#undef ONDREL_POPUP_END
#undef ONDREL_MENU_END
  };
  const Row* menu = std::begin(rows);
  while (menu != std::end(rows) && menu->Menu != resource) ++menu;
  return menu == std::end(rows) ? "no such menu" : (menu + 1)->Popup;
}

TEST(ViewKinds, ThereAreTwelve) {
  EXPECT_EQ(kExpectedKinds.size(), std::size_t{12});
  EXPECT_EQ(kViewCount, std::size_t{12});
}

TEST(ViewKinds, EachIsFoundByItsKind) {
  for (const ExpectedKind& kind : kExpectedKinds) {
    EXPECT_EQ(FactsOf(kind.Kind).Kind, kind.Kind) << kind.Title;
  }
}

TEST(ViewKinds, EachHasItsTitle) {
  for (const ExpectedKind& kind : kExpectedKinds) {
    EXPECT_EQ(FactsOf(kind.Kind).Title, kind.Title);
  }
}

TEST(ViewKinds, TheHistogramsAreNamedShorterInTheFailureReportThanInTheirTitles) {
  for (const ExpectedKind& kind : kExpectedKinds) {
    EXPECT_EQ(FactsOf(kind.Kind).CreationText, kind.CreationText);
  }
}

TEST(ViewKinds, OnlyTheThreeRecordTablesHaveAScrollBar) {
  for (const ExpectedKind& kind : kExpectedKinds) {
    EXPECT_EQ(FactsOf(kind.Kind).VerticalBar, kind.VerticalBar) << kind.Title;
  }
}

TEST(ViewKinds, EachNamesItsOwnMenuOfTheResourcesAndTheFitViewsNone) {
  for (const ExpectedKind& kind : kExpectedKinds) {
    if (kind.MenuTitle.empty()) {
      EXPECT_EQ(FactsOf(kind.Kind).MenuResource, 0) << kind.Title;
    } else {
      EXPECT_EQ(MenuTitle(FactsOf(kind.Kind).MenuResource), kind.MenuTitle) << kind.Title;
    }
  }
}

TEST(ViewKinds, EachHasItsColoursInOrderWithTheirLabelsAndDefaults) {
  for (const ExpectedKind& kind : kExpectedKinds) {
    const ViewKindRecord& facts = FactsOf(kind.Kind);
    ASSERT_EQ(facts.Colors.size(), kind.Colors.size()) << kind.Title;
    for (std::size_t i = 0; i < kind.Colors.size(); ++i) {
      EXPECT_EQ(facts.Colors[i].Label, kind.Colors[i].Label) << kind.Title;
      EXPECT_EQ(facts.Colors[i].Default, kind.Colors[i].Default)
          << kind.Title << ", " << kind.Colors[i].Label;
    }
  }
}

TEST(ViewKinds, NoKindHasMoreColoursThanAStateHasRoomFor) {
  for (const ExpectedKind& kind : kExpectedKinds) {
    EXPECT_LE(FactsOf(kind.Kind).Colors.size(), kMaxViewColors) << kind.Title;
  }
}

TEST(ViewKinds, TheBackgroundIsTheColourThatIsLabelledSo) {
  for (const ExpectedKind& kind : kExpectedKinds) {
    const ViewKindRecord& facts = FactsOf(kind.Kind);
    ASSERT_LT(facts.Background, facts.Colors.size()) << kind.Title;
    const std::string label = facts.Colors[facts.Background].Label;
    EXPECT_NE(label.find("ackground"), std::string::npos) << kind.Title << ", " << label;
  }
}

template <typename Color>
std::string LabelOf(ViewKind kind, Color color) {
  return FactsOf(kind).Colors[static_cast<std::size_t>(color)].Label;
}

TEST(ViewKinds, ColoursAreReachedByTheirNames) {
  EXPECT_EQ(LabelOf(ViewKind::Event, EventColor::Events), "Event color:");
  EXPECT_EQ(LabelOf(ViewKind::Event, EventColor::Background), "Background color:");
  EXPECT_EQ(LabelOf(ViewKind::Event, EventColor::Header), "Header color:");
  EXPECT_EQ(LabelOf(ViewKind::Level, LevelColor::Selected), "Selected level color:");
  EXPECT_EQ(LabelOf(ViewKind::Level, LevelColor::Header), "Header color:");
  EXPECT_EQ(LabelOf(ViewKind::Level, LevelColor::Other), "Other level color:");
  EXPECT_EQ(LabelOf(ViewKind::Level, LevelColor::Background), "Background color:");
  EXPECT_EQ(LabelOf(ViewKind::Sweep, SweepColor::Selected), "Color of selected sweeps:");
  EXPECT_EQ(LabelOf(ViewKind::Sweep, SweepColor::Other), "Color of sweeps:");
  EXPECT_EQ(LabelOf(ViewKind::Sweep, SweepColor::Background), "Color of background:");
  EXPECT_EQ(LabelOf(ViewKind::Sweep, SweepColor::Header), "Color of header:");
  EXPECT_EQ(LabelOf(ViewKind::Statistics, StatisticsColor::Header), "Color of header:");
  EXPECT_EQ(LabelOf(ViewKind::Statistics, StatisticsColor::Others), "Color of others:");
  EXPECT_EQ(LabelOf(ViewKind::Statistics, StatisticsColor::Background), "Color of background:");
  EXPECT_EQ(LabelOf(ViewKind::AmplitudeFit, FitColor::Background), "Background");
  EXPECT_EQ(LabelOf(ViewKind::Amplitude, HistogramColor::Histogram),
            "Color of amplitude histogram:");
  EXPECT_EQ(LabelOf(ViewKind::Amplitude, HistogramColor::Fit), "Color of amplitude fitting:");
  EXPECT_EQ(LabelOf(ViewKind::Amplitude, HistogramColor::Labels), "Color of labels:");
  EXPECT_EQ(LabelOf(ViewKind::Amplitude, HistogramColor::Axes), "Color of axes:");
  EXPECT_EQ(LabelOf(ViewKind::Amplitude, HistogramColor::Background), "Color of background:");
  EXPECT_EQ(LabelOf(ViewKind::Scatter, PlotColor::Plot), "Color of plot:");
  EXPECT_EQ(LabelOf(ViewKind::Scatter, PlotColor::Labels), "Color of labels:");
  EXPECT_EQ(LabelOf(ViewKind::Scatter, PlotColor::Axes), "Color of axes:");
  EXPECT_EQ(LabelOf(ViewKind::Scatter, PlotColor::Background), "Color of background:");
}

TEST(ViewKinds, EveryViewCanBePainted) {
  for (const ViewKind kind : AllKinds()) {
    ASSERT_NE(FactsOf(kind).Routines, nullptr) << FactsOf(kind).Title;
    EXPECT_NE(FactsOf(kind).Routines->Paint, nullptr) << FactsOf(kind).Title;
  }
}

TEST(ViewKinds, WhatHasAScrollBarKnowsTheTableThatItScrolls) {
  for (const ExpectedKind& kind : kExpectedKinds) {
    EXPECT_EQ(FactsOf(kind.Kind).Routines->Scrolled != nullptr, kind.VerticalBar) << kind.Title;
  }
}

}  // namespace
}  // namespace ondrel
