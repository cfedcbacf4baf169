// The table of the settings dialogs.
#include "fixtures.h"
#include "sheet_rows.h"

namespace ondrel::e2e {
namespace {

// --- Limits --------------------------------------------------------------------------------------

const Limits kAnyInteger{{"-", "-1"}, {"2147483648", "2147483647"}, {"-2147483649", "-2147483648"}};
const Limits kFromOne{{"0", "1"}, {"-", "2147483647"}};
const Limits kFromTwo{{"1", "2"}, {"2x", "2147483647"}};
const Limits kAnyReal{{"-", "-3.5"}, {"1 2", "1e3"}, {"", "0"}};
const Limits kNotNegative{{"-0.001", "0"}, {"-", "1e3"}};
const Limits kWithin8000{{"8000.01", "8000"}, {"-8000.01", "-8000"}};

// --- Levels and sweeps ---------------------------------------------------------------------------

Rows EventsRows() {
  return {
      Words("Amplitude:"),
      List(4, {"Absolute", "Delta", "Delta Magnitude"}, "Delta Magnitude", "Absolute"),
      Words("Range:"),
      List(5, {"Relevant Segment", "Sweep"}, "Relevant Segment", "Sweep"),
      Words("Tag value:"),
      List(6, {"Closing count", "Event"}, "Event", "Closing count"),
      Words("Instrument delay (ms):"),
      Number(8, "0.000", kAnyReal, "0.125"),
      Words("Multiple openings:"),
      List(10, {"Fragments", "Highest"}, "Highest", "Fragments"),
      Words("Burst resolution (ms):"),
      Number(12, "0.000", kNotNegative, "0.75", "0.750"),
      Words("Base level:"),
      Number(14, "0", kAnyInteger, "-2"),
  };
}

const std::vector<std::string> kSelections{"Select All", "Include", "Exclude"};
const std::vector<std::string> kPositions{"All",          "All But First", "All But First And Last",
                                          "All But Last", "First",         "First And Last",
                                          "Last"};

/// Three filters share the dialog: `amplitude` and `position` tell them apart.
Rows LevelFilterRows(const char* shownPosition, const char* amplitude, const char* position) {
  return {
      Words("Amplitude (pA):"),
      List(4, kSelections, "Select All", "Include"),
      Number(5, "0.00", kAnyReal, amplitude),
      Words("to"),
      Number(6, "5.00", kAnyReal, "12.5", "12.50"),
      Words("Duration (ms):"),
      List(8, kSelections, "Select All", "Exclude"),
      Number(9, "0.000", kNotNegative, "0.025"),
      Words("to"),
      Number(10, "5.000", kNotNegative, "7.125"),
      Words("Level:"),
      List(12, kSelections, "Select All", "Include"),
      Number(13, "1", kAnyInteger, "-4"),
      Words("to"),
      Number(14, "3", kAnyInteger, "6"),
      Words("Tag value:"),
      List(16, kSelections, "Select All", "Exclude"),
      Number(17, "0.00", kAnyReal, "-1.5", "-1.50"),
      Words("to"),
      Number(18, "1000.00", kAnyReal, "20", "20.00"),
      Words("Position:"),
      List(20, kPositions, shownPosition, position),
  };
}

Rows SweepFilterRows() {
  return {
      Words("File:"),
      List(4, kSelections, "Select All", "Include"),
      Number(5, "1", kFromOne, "2"),
      Words("to"),
      Number(6, "3", kFromOne, "9"),
      Words("Relevant value:"),
      List(8, kSelections, "Select All", "Exclude"),
      Number(9, "0.00", kAnyReal, "-7.25"),
      Words("to"),
      Number(10, "1000.00", kAnyReal, "41.5", "41.50"),
      Words("Tag value:"),
      List(12, kSelections, "Select All", "Include"),
      Number(13, "0.00", kAnyReal, "0.25"),
      Words("to"),
      Number(14, "1000.00", kAnyReal, "99", "99.00"),
      Words("Index:"),
      List(16, kSelections, "Select All", "Exclude"),
      Number(17, "1", kFromOne, "4"),
      Words("to"),
      Number(18, "1000", kFromOne, "77"),
  };
}

Rows LevelTagRows() {
  return {
      Words("Event tag value:"),
      Radio(4, "Level tag value", true),
      Radio(5, "Manual", false),
      Number(6, "0.00", kAnyReal, "-12.75"),
  };
}

// --- Histograms and fits -------------------------------------------------------------------------

Rows AmplitudeScalingRows() {
  return {
      Words("Minimum (pA):"),    Number(5, "0.00", kWithin8000, "-1.25"),
      Words("pA/tick:"),         Number(7, "1.00", kPositive, "0.5", "0.50"),
      Words("Tick marks:"),      Number(9, "5", kFromTwo, "7"),
      Words("Bins/tick:"),       Number(11, "20", kFromOne, "10"),
      Radio(13, "Linear", true), Radio(14, "Square root", false),
      Words("Counts/tick:"),     Number(16, "100", kFromOne, "3"),
      Words("Minimum ticks:"),   Number(18, "2", kFromTwo, "4"),
  };
}

Rows DurationScalingRows() {
  return {
      Words("Minimum (s): 1e"),
      Number(5, "-5", kAnyInteger, "-4"),
      Words("Decades:"),
      Number(7, "5", kFromOne, "3"),
      Words("Ticks/decade:"),
      Number(9, "5", kFromOne, "2"),
      Words("Bins/decade:"),
      Number(11, "20", kFromOne, "12"),
      Radio(13, "Linear", true),
      Radio(14, "Square root", false),
      Check(15, "Constrain to positive", false),
      Words("Counts/tick:"),
      Number(17, "10", kFromOne, "5"),
      Words("Minimum ticks:"),
      Number(19, "2", kFromTwo, "3"),
  };
}

Rows HistogramStyleRows(const char* fit, const char* histogram) {
  return {
      Words("Fit:"),          List(5, {"Component", "Sum", "Both"}, "Sum", fit),
      Words("Histogram:"),    List(4, {"Filled", "Outlined", "Rectangles"}, "Filled", histogram),
      Check(7, "Axes", true), Check(8, "Labels", true),
  };
}

/// Neither a tolerance of 0 nor one below it is bad.
Rows FitRows(const char* tolerance, const char* iterations) {
  return {
      Words("Fractional tolerance:"),
      Number(4, "1.0000E-04", kAnyReal, tolerance),
      Words("Maximum iterations:"),
      Number(6, "20", kFromOne, iterations),
  };
}

Rows CorrectionRows() {
  return {Words("Filter frequency (Hz):"), Number(4, "5000.00", kPositive, "2500", "2500.00")};
}

// --- Plots and statistics ------------------------------------------------------------------------

const std::vector<std::string> kValues{"Level Tag", "Sweep Relevant", "Sweep Tag"};

Rows AmplitudeScatterRows() {
  return {
      Words("Value:"),
      List(4, kValues, "Sweep Relevant", "Sweep Tag"),
      Words("Minimum:"),
      Number(6, "-5.00", kAnyReal, "-2.5", "-2.50"),
      Words("Tick marks:"),
      Number(8, "5", kFromOne, "6"),
      Words("Value/tick:"),
      Number(10, "10.00", kPositive, "4", "4.00"),
      Words("Minimum (pA):"),
      Number(13, "0.00", kAnyReal, "-0.75"),
      Words("Tick marks:"),
      Number(15, "4", kFromTwo, "3"),
      Words("pA/tick:"),
      Number(17, "1.00", kPositive, "1.75"),
      Words("Symbol size (cm):"),
      Number(19, "0.08", kPositive, "0.12"),
  };
}

Rows DurationScatterRows() {
  return {
      Words("Value:"),
      List(4, kValues, "Sweep Relevant", "Level Tag"),
      Words("Minimum:"),
      Number(6, "-5.00", kAnyReal, "-1.5", "-1.50"),
      Words("Tick marks:"),
      Number(8, "5", kFromTwo, "8"),
      Words("Value/tick:"),
      Number(10, "10.00", kPositive, "3", "3.00"),
      Words("Minimum (s): 1e"),
      Number(13, "-5", kAnyInteger, "-6"),
      Words("Decades:"),
      Number(15, "4", kFromOne, "5"),
      Words("Ticks/decade:"),
      Number(17, "5", kFromOne, "2"),
      Words("Symbol size (cm):"),
      Number(19, "0.08", kPositive, "0.14"),
  };
}

Rows AmplitudeDurationRows() {
  return {
      Words("Minimum (s): 1e"),
      Number(5, "-5", kAnyInteger, "-6"),
      Words("Decades:"),
      Number(7, "5", kFromOne, "4"),
      Words("Ticks/decade:"),
      Number(9, "10", kFromOne, "5"),
      Words("Minimum (pA):"),
      Number(12, "0.00", kAnyReal, "-0.25"),
      Words("Ticks:"),
      Number(14, "4", kFromOne, "5"),
      Words("pA/tick:"),
      Number(16, "1.00", kPositive, "2.25"),
      Words("Symbol size (cm):"),
      Number(18, "0.08", kPositive, "0.16"),
  };
}

Rows ScatterStyleRows() {
  return {Check(3, "Axes", true), Check(4, "Labels", true)};
}

Rows StationarityStyleRows() {
  return {Check(4, "Axes", true), Check(5, "Labels", true)};
}

Rows StationarityRows() {
  return {
      Words("Type:"),
      List(3, {"1", "Amplitude", "Duration", "Level"}, "1", "Duration"),
      Words("tau (ms):"),
      Number(5, "100.00", kPositive, "12.5", "12.50"),
  };
}

Rows StatisticsRows() {
  return {Words("Reference:"),
          List(3, {"Levels", "Relevant Segment", "Sweep"}, "Relevant Segment", "Levels")};
}

// --- Sheets --------------------------------------------------------------------------------------

constexpr int kAmplitude = 52481;
constexpr int kAmplitudeScatter = 52482;
constexpr int kScatter = 52483;
constexpr int kDuration = 52484;
constexpr int kDurationScatter = 52485;
constexpr int kStationarity = 52488;

std::vector<DialogSheet> MakeSheets() {
  return {
      {"Events", "Events", 52225, 0, "", EventsRows()},
      {"Sweep", "Filter Sweeps", 52228, 0, "", SweepFilterRows()},
      {"Level", "Filter Levels", 52229, 0, "",
       LevelFilterRows("All But First And Last", "1.25", "First")},
      {"Preceding", "Filter Levels", 52230, 0, "", LevelFilterRows("All", "2.25", "Last")},
      {"Following", "Filter Levels", 52231, 0, "",
       LevelFilterRows("All", "-3.25", "First And Last")},
      {"LevelTag", "Level Tag Value", 52993, command::kViewLevel, "Level", LevelTagRows(), "&Set"},
      {"AmplitudeScaling", "Amplitude Histogram Scaling", 53250, kAmplitude, "Amplitude Histogram",
       AmplitudeScalingRows()},
      {"AmplitudeStyle", "Histogram Style", 53251, kAmplitude, "Amplitude Histogram",
       HistogramStyleRows("Component", "Rectangles")},
      {"AmplitudeFit", "Fit Settings", 53253, kAmplitude, "Amplitude Histogram",
       FitRows("2.5000E-06", "30")},
      {"DurationScaling", "Duration Histogram Scaling", 53506, kDuration, "Duration Histogram",
       DurationScalingRows()},
      {"DurationStyle", "Histogram Style", 53507, kDuration, "Duration Histogram",
       HistogramStyleRows("Both", "Outlined")},
      {"DurationCorrection", "Correction", 53508, kDuration, "Duration Histogram",
       CorrectionRows()},
      {"DurationFit", "Fit Settings", 53510, kDuration, "Duration Histogram",
       FitRows("0.0000E+00", "40")},
      {"AmplitudeScatterScaling", "Amplitude Scatter Scaling", 54529, kAmplitudeScatter,
       "Amplitude Scatter Plot", AmplitudeScatterRows()},
      {"AmplitudeScatterStyle", "Scatter Style", 54530, kAmplitudeScatter, "Amplitude Scatter Plot",
       ScatterStyleRows()},
      {"DurationScatterScaling", "Duration Scatter Scaling", 54785, kDurationScatter,
       "Duration Scatter Plot", DurationScatterRows()},
      {"DurationScatterStyle", "Scatter Style", 54786, kDurationScatter, "Duration Scatter Plot",
       ScatterStyleRows()},
      {"ScatterScaling", "Amplitude/Duration Scaling", 53761, kScatter, "Amplitude/Duration",
       AmplitudeDurationRows()},
      {"ScatterStyle", "Scatter Style", 53762, kScatter, "Amplitude/Duration", ScatterStyleRows()},
      {"StationaritySettings", "Stationarity Settings", 55041, kStationarity, "Stationarity",
       StationarityRows()},
      {"StationarityStyle", "Stationarity Style", 55042, kStationarity, "Stationarity",
       StationarityStyleRows()},
      {"Statistics", "Statistics Settings", 54017, command::kViewStatistics, "Statistics",
       StatisticsRows()},
  };
}

}  // namespace

const std::vector<DialogSheet>& EverySheet() {
  static const std::vector<DialogSheet> sheets = MakeSheets();
  return sheets;
}

}  // namespace ondrel::e2e
