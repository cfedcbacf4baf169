// Tables of the menus.
#include "menu_tables.h"

#include <algorithm>
#include <iterator>

namespace ondrel::e2e {
namespace {

/// States in which an entry can be chosen.
enum : unsigned { kNever = 0, kNoData = 1, kData = 2, kActive = 4, kLoaded = 6, kAlways = 7 };

struct Row {
  int Id;            // 0: a popup of the bar, -1: a separator
  const char* Text;  // null for a separator
  unsigned States;
};

// They start from estimates, which are there while the view of a fit's parameters is open.
constexpr int kAutomaticFits[] = {53255, 53512};

constexpr Row kSeparator{-1, nullptr, kAlways};

constexpr Row kBar[] = {
    {0, "&File", kAlways},
    {51713, "&Open...\tCtrl+O", kNoData},
    {51714, "&Close\tCtrl+W", kLoaded},
    {51715, "&Add...", kLoaded},
    kSeparator,
    {51717, "&Import Events...", kLoaded},
    kSeparator,
    {51719, "Save &Events...", kLoaded},
    {51720, "Save &Levels...", kLoaded},
    kSeparator,
    {51722, "Loa&d Preferences...", kNoData},
    {51723, "&Save Preferences...", kAlways},
    {51724, "Sett&ings...", kNoData},
    kSeparator,
    {51726, "Export &Graph..", kActive},
    {51727, "Export &Text...", kActive},
    {51728, "&Print...\tCtl+P", kActive},
    kSeparator,
    {51730, "E&xit", kAlways},
    {0, "&Settings", kLoaded},
    {52225, "&Events...", kLoaded},
    kSeparator,
    {52227, "&Reset", kLoaded},
    {52228, "S&weep...", kLoaded},
    {52229, "&Level...", kLoaded},
    {52230, "&Preceding...", kLoaded},
    {52231, "&Following...", kLoaded},
    {0, "&View", kLoaded},
    {52481, "&Amplitude Histogram", kLoaded},
    {52482, "A&mplitude Scatter", kLoaded},
    {52483, "Am&plitude/Duration", kLoaded},
    {52484, "&Duration Histogram", kLoaded},
    {52485, "D&uration Scatter ", kLoaded},
    {52486, "&Event", kLoaded},
    {52487, "&Level", kLoaded},
    {52488, "S&tationarity", kLoaded},
    {52489, "&Statistics", kLoaded},
    {52490, "S&weep", kLoaded},
    {0, "&Help", kAlways},
    {55297, "&About Ondrel...", kAlways},
};

struct ViewRow {
  const char* View;  // title of the window
  int Level;         // 0 the popup itself, 1 its entries, 2 those of "&Colors"
  int Id;            // 0 for a popup, -1 for a separator
  const char* Text;
};

constexpr ViewRow kViewPopups[] = {
    {"Event", 0, 0, "E&vent"},
    {"Event", 1, 0, "&Colors"},
    {"Event", 2, 25857, "&Events..."},
    {"Event", 2, 25858, "&Header..."},
    {"Event", 2, 25859, "&Background..."},
    {"Level", 0, 0, "&Level"},
    {"Level", 1, 52993, "&TagValue..."},
    {"Level", 1, 0, "&Colors"},
    {"Level", 2, 26113, "&Selected..."},
    {"Level", 2, 26114, "&Unselected..."},
    {"Level", 2, 26115, "&Header..."},
    {"Level", 2, 26116, "&Background..."},
    {"Amplitude Histogram", 0, 0, "&Amplitude"},
    {"Amplitude Histogram", 1, 53249, "A&utoscale"},
    {"Amplitude Histogram", 1, 53250, "S&caling..."},
    {"Amplitude Histogram", 1, 53251, "S&tyle..."},
    {"Amplitude Histogram", 1, -1, nullptr},
    {"Amplitude Histogram", 1, 53253, "&Settings..."},
    {"Amplitude Histogram", 1, 53254, "&Manual Fit\tCtrl+N"},
    {"Amplitude Histogram", 1, 53255, "&Automatic Fit\tCtrl+K"},
    {"Amplitude Histogram", 1, 0, "&Colors"},
    {"Amplitude Histogram", 2, 26369, "&Histogram..."},
    {"Amplitude Histogram", 2, 26370, "&Fit..."},
    {"Amplitude Histogram", 2, 26371, "&Labels..."},
    {"Amplitude Histogram", 2, 26372, "&Axes..."},
    {"Amplitude Histogram", 2, 26373, "&Background..."},
    {"Duration Histogram", 0, 0, "&Duration"},
    {"Duration Histogram", 1, 53505, "A&utoscale"},
    {"Duration Histogram", 1, 53506, "S&caling..."},
    {"Duration Histogram", 1, 53507, "S&tyle..."},
    {"Duration Histogram", 1, 53508, "&Correction..."},
    {"Duration Histogram", 1, -1, nullptr},
    {"Duration Histogram", 1, 53510, "&Settings..."},
    {"Duration Histogram", 1, 53511, "&Manual Fit\tCtrl+M"},
    {"Duration Histogram", 1, 53512, "&Automatic Fit\tCtrl+A"},
    {"Duration Histogram", 1, 0, "&Colors"},
    {"Duration Histogram", 2, 26625, "&Histogram..."},
    {"Duration Histogram", 2, 26626, "&Fit..."},
    {"Duration Histogram", 2, 26627, "&Labels..."},
    {"Duration Histogram", 2, 26628, "&Axes..."},
    {"Duration Histogram", 2, 26629, "&Background..."},
    {"Amplitude/Duration", 0, 0, "S&catter"},
    {"Amplitude/Duration", 1, 53761, "S&caling..."},
    {"Amplitude/Duration", 1, 53762, "S&tyle..."},
    {"Amplitude/Duration", 1, 0, "&Colors"},
    {"Amplitude/Duration", 2, 26881, "&Data..."},
    {"Amplitude/Duration", 2, 26882, "&Labels..."},
    {"Amplitude/Duration", 2, 26883, "&Axes..."},
    {"Amplitude/Duration", 2, 26884, "&Background..."},
    {"Statistics", 0, 0, "S&tatistics"},
    {"Statistics", 1, 54017, "&Settings..."},
    {"Statistics", 1, 0, "&Colors"},
    {"Statistics", 2, 27137, "&Header..."},
    {"Statistics", 2, 27138, "&Others..."},
    {"Statistics", 2, 27139, "&Background..."},
    {"Sweep", 0, 0, "S&weep"},
    {"Sweep", 1, 0, "&Colors"},
    {"Sweep", 2, 27393, "&Selected..."},
    {"Sweep", 2, 27394, "&Unselected..."},
    {"Sweep", 2, 27395, "&Header..."},
    {"Sweep", 2, 27396, "&Background..."},
    {"Amplitude Scatter Plot", 0, 0, "A&mplitudeScatter"},
    {"Amplitude Scatter Plot", 1, 54529, "S&caling..."},
    {"Amplitude Scatter Plot", 1, 54530, "S&tyle..."},
    {"Amplitude Scatter Plot", 1, 0, "&Colors"},
    {"Amplitude Scatter Plot", 2, 27905, "&Data..."},
    {"Amplitude Scatter Plot", 2, 27906, "&Labels..."},
    {"Amplitude Scatter Plot", 2, 27907, "&Axes..."},
    {"Amplitude Scatter Plot", 2, 27908, "&Background..."},
    {"Duration Scatter Plot", 0, 0, "&DurationScatter"},
    {"Duration Scatter Plot", 1, 54785, "S&caling..."},
    {"Duration Scatter Plot", 1, 54786, "S&tyle..."},
    {"Duration Scatter Plot", 1, 0, "&Colors"},
    {"Duration Scatter Plot", 2, 27649, "&Data..."},
    {"Duration Scatter Plot", 2, 27650, "&Labels..."},
    {"Duration Scatter Plot", 2, 27651, "&Axes..."},
    {"Duration Scatter Plot", 2, 27652, "&Background..."},
    {"Stationarity", 0, 0, "Statio&narity"},
    {"Stationarity", 1, 55041, "&Settings..."},
    {"Stationarity", 1, 55042, "S&tyle..."},
    {"Stationarity", 1, 0, "&Colors"},
    {"Stationarity", 2, 28161, "&Data..."},
    {"Stationarity", 2, 28162, "&Labels..."},
    {"Stationarity", 2, 28163, "&Axes..."},
    {"Stationarity", 2, 28164, "&Background..."},
};

unsigned Bit(MenuState state) {
  switch (state) {
    case MenuState::NoData:
      return kNoData;
    case MenuState::Data:
      return kData;
    case MenuState::ActiveView:
      return kActive;
  }
  return kNever;
}

template <std::size_t Count>
bool IsAmong(const int (&ids)[Count], int id) {
  return std::find(std::begin(ids), std::end(ids), id) != std::end(ids);
}

std::string Line(int level, int id, bool enabled, const char* text) {
  return std::string(static_cast<std::size_t>(2 * level), ' ') +
         (id > 0 ? std::to_string(id) + " " : "") + (enabled ? "" : "(grey) ") + text;
}

}  // namespace

std::vector<std::string> ExpectedBar(MenuState state, const std::vector<std::string>& viewLines) {
  std::vector<std::string> lines;
  bool popupEnabled = true;
  for (const Row& row : kBar) {
    const bool inState = (row.States & Bit(state)) != 0;
    if (row.Id == 0) {
      popupEnabled = inState;
      if (std::string(row.Text) == "&Help") {
        lines.insert(lines.end(), viewLines.begin(), viewLines.end());
      }
      lines.push_back(Line(0, 0, popupEnabled, row.Text));
    } else if (row.Id < 0) {
      lines.emplace_back("  -");
    } else {
      const bool enabled = inState || !popupEnabled;
      lines.push_back(Line(1, row.Id, enabled, row.Text));
    }
  }
  return lines;
}

std::vector<std::string> ExpectedViewPopup(const std::string& view, bool fitOpen) {
  std::vector<std::string> lines;
  for (const ViewRow& row : kViewPopups) {
    if (view != row.View) continue;
    const bool enabled = fitOpen || !IsAmong(kAutomaticFits, row.Id);
    lines.push_back(row.Id < 0 ? "  -" : Line(row.Level, row.Id, enabled, row.Text));
  }
  return lines;
}

}  // namespace ondrel::e2e
