// The table of the views, for what leaves the program.
#include <ostream>

#include "export_fixture.h"

namespace ondrel::e2e {
namespace {

std::vector<ExportedView> MakeViews() {
  return {
      kEventExport,
      kLevelExport,
      kSweepExport,
      {.Name = "Statistics",
       .Title = "Statistics",
       .Command = 52489,
       .TextTitle = "Export statistics as:",
       .Report = "Statistics",
       .Plot = false},
      kAmplitudeExport,
      {.Name = "Duration",
       .Title = "Duration Histogram",
       .Command = 52484,
       .TextTitle = "Export duration histogram as:",
       .Report = "Duration"},
      {.Name = "AmplitudeFit",
       .Title = "Amplitude Fit Parameters",
       .Command = 52481,
       .FitCommand = 53254,
       .TextTitle = "Export parameters as:",
       .Report = "Amplitude Fit Parameters",
       .Plot = false},
      {.Name = "DurationFit",
       .Title = "Duration Fit Parameters",
       .Command = 52484,
       .FitCommand = 53511,
       .TextTitle = "Export parameters as:",
       .Report = "Duration Fit Parameters",
       .Plot = false},
      {.Name = "AmplitudeScatter",
       .Title = "Amplitude Scatter Plot",
       .Command = 52482,
       .TextTitle = "Export amplitude scatter as:",
       .Report = "Amplitude Scatter Plot"},
      {.Name = "DurationScatter",
       .Title = "Duration Scatter Plot",
       .Command = 52485,
       .TextTitle = "Export duration scatter as:",
       .Report = "Duration Scatter Plot"},
      {.Name = "AmplitudeDuration",
       .Title = "Amplitude/Duration",
       .Command = 52483,
       .TextTitle = "Export scatter plot as:",
       .Report = "Scatter Plot"},
      {.Name = "Stationarity",
       .Title = "Stationarity",
       .Command = 52488,
       .TextTitle = "Export stationarity as:",
       .Report = "Stationarity"},
  };
}

INSTANTIATE_TEST_SUITE_P(Views, EveryExport, ::testing::ValuesIn(ExportedViews()), NameOfView);

}  // namespace

const std::vector<ExportedView>& ExportedViews() {
  static const std::vector<ExportedView> views = MakeViews();
  return views;
}

void PrintTo(const ExportedView& view, std::ostream* out) {
  *out << view.Name;
}

std::string NameOfView(const ::testing::TestParamInfo<ExportedView>& info) {
  return info.param.Name;
}

}  // namespace ondrel::e2e
