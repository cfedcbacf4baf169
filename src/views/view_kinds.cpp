#include "views/view_kinds.h"

#include "views/amplitude_view.h"
#include "views/duration_view.h"
#include "views/fit_views.h"
#include "views/record_tables.h"
#include "views/scatter_views.h"
#include "views/stationarity_view.h"
#include "views/statistics_view.h"

namespace ondrel {
namespace {

constexpr ViewColorRecord kEventColors[] = {
    {"Event color:", kBlack},
    {"Background color:", kWhite},
    {"Header color:", kBlue},
};
constexpr ViewColorRecord kLevelColors[] = {
    {"Selected level color:", kBlack},
    {"Header color:", kBlue},
    {"Other level color:", kGrey},
    {"Background color:", kWhite},
};
constexpr ViewColorRecord kSweepColors[] = {
    {"Color of selected sweeps:", kBlack},
    {"Color of sweeps:", kGrey},
    {"Color of background:", kWhite},
    {"Color of header:", kBlue},
};
constexpr ViewColorRecord kStatisticsColors[] = {
    {"Color of header:", kBlue},
    {"Color of others:", kBlack},
    {"Color of background:", kWhite},
};
constexpr ViewColorRecord kFitColors[] = {
    {"Background", kWhite},
};
constexpr ViewColorRecord kAmplitudeColors[] = {
    {"Color of amplitude histogram:", kRed},
    {"Color of amplitude fitting:", kBlue},
    {"Color of labels:", kBlack},
    {"Color of axes:", kBlack},
    {"Color of background:", kWhite},
};
constexpr ViewColorRecord kDurationColors[] = {
    {"Color of duration histogram:", kRed}, {"Color of duration fitting:", kBlue},
    {"Color of labels:", kBlack},           {"Color of axes:", kBlack},
    {"Color of background:", kWhite},
};
constexpr ViewColorRecord kPlotColors[] = {
    {"Color of plot:", kRed},
    {"Color of labels:", kBlack},
    {"Color of axes:", kBlack},
    {"Color of background:", kWhite},
};

template <typename Color>
constexpr std::size_t PlaceOf(Color color) {
  return static_cast<std::size_t>(color);
}

constexpr ViewKindRecord kViewKinds[] = {
    {ViewKind::Event, "Event", "creating <Event> window", true, true, kEventColors,
     PlaceOf(EventColor::Background), 206, &kEventViewRoutines},
    {ViewKind::Level, "Level", "creating <Level> window", true, true, kLevelColors,
     PlaceOf(LevelColor::Background), 207, &kLevelViewRoutines},
    {ViewKind::Sweep, "Sweep", "creating <Sweep> window", true, true, kSweepColors,
     PlaceOf(SweepColor::Background), 212, &kSweepViewRoutines},
    {ViewKind::Statistics, "Statistics", "creating <Statistics> window", false, true,
     kStatisticsColors, PlaceOf(StatisticsColor::Background), 211, &kStatisticsViewRoutines},
    {ViewKind::AmplitudeFit, "Amplitude Fit Parameters",
     "creating <Amplitude Fit Parameters> window", false, true, kFitColors,
     PlaceOf(FitColor::Background), 0, &kAmplitudeFitViewRoutines},
    {ViewKind::DurationFit, "Duration Fit Parameters", "creating <Duration Fit Parameters> window",
     false, true, kFitColors, PlaceOf(FitColor::Background), 0, &kDurationFitViewRoutines},
    {ViewKind::Amplitude, "Amplitude Histogram", "creating <Amplitude> window", false, false,
     kAmplitudeColors, PlaceOf(HistogramColor::Background), 208, &kAmplitudeViewRoutines},
    {ViewKind::Duration, "Duration Histogram", "creating <Duration> window", false, false,
     kDurationColors, PlaceOf(HistogramColor::Background), 209, &kDurationViewRoutines},
    {ViewKind::AmplitudeScatter, "Amplitude Scatter Plot",
     "creating <Amplitude Scatter Plot> window", false, false, kPlotColors,
     PlaceOf(PlotColor::Background), 213, &kAmplitudeScatterViewRoutines},
    {ViewKind::DurationScatter, "Duration Scatter Plot", "creating <Duration Scatter Plot> window",
     false, false, kPlotColors, PlaceOf(PlotColor::Background), 214, &kDurationScatterViewRoutines},
    {ViewKind::Scatter, "Amplitude/Duration", "creating <Amplitude/Duration> window", false, false,
     kPlotColors, PlaceOf(PlotColor::Background), 210, &kScatterViewRoutines},
    {ViewKind::Stationarity, "Stationarity", "creating <Stationarity> window", false, false,
     kPlotColors, PlaceOf(PlotColor::Background), 215, &kStationarityViewRoutines},
};

constexpr bool StandInOrder() {
  for (std::size_t i = 0; i < kViewCount; ++i) {
    if (PlaceOf(kViewKinds[i].Kind) != i) return false;
  }
  return true;
}
static_assert(std::size(kViewKinds) == kViewCount && StandInOrder());

}  // namespace

const ViewKindRecord& FactsOf(ViewKind kind) {
  return kViewKinds[PlaceOf(kind)];
}

}  // namespace ondrel
