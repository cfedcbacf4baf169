// A fixture for text files: small tables for all twelve views, each with the rows that its text
// has, worked out by hand.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <map>
#include <string>
#include <vector>

#include "output/text_rows.h"
#include "support/view_test.h"
#include "workspace/number_text.h"
#include "workspace/output_file.h"

namespace ondrel {

inline std::string ReadBack(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

inline std::string Joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return text;
}

inline std::string Scientific(double value, int decimals = 7) {
  char text[kNumberTextSize] = "";
  RealText(value, decimals, 'E', text);
  return text;
}

inline std::string Fixed(double value, int decimals = 6) {
  char text[kNumberTextSize] = "";
  RealText(value, decimals, 'f', text);
  return text;
}

class TextTest : public ViewTest {
 protected:
  TextTest() { workspace().LimitToWindow = false; }

  void SetUp() override {
    std::string name = ::testing::UnitTest::GetInstance()->current_test_info()->name();
    for (char& letter : name) letter = letter == '/' ? '_' : letter;
    path_ = (std::filesystem::path(::testing::TempDir()) / ("text_" + name)).string();
  }
  void TearDown() override { std::filesystem::remove(path_); }

  const std::string& Path() const { return path_; }
  std::string OnDisk() const { return ReadBack(path_); }
  bool IsThere() const { return std::filesystem::exists(path_); }
  void LeaveOldFile() { std::ofstream(path_, std::ios::binary) << kOldFile; }

  static constexpr char kOldFile[] = "what stood there before, which is longer than a few rows\r\n";

  /// What the row routine of the view writes.
  std::string RowsOf(ViewKind kind) {
    OutputFile file;
    EXPECT_EQ(toolkit::CreateEmptyFile(path_.c_str()), 0);
    EXPECT_EQ(OpenOutputFile(path_.c_str(), file), 0);
    WriteTextRows(workspace(), kind, file);
    EXPECT_EQ(CloseOutputFile(file), 0);
    return OnDisk();
  }

  std::vector<std::string> LinesOf(ViewKind kind) {
    const std::string text = RowsOf(kind);
    std::vector<std::string> lines;
    std::size_t start = 0;
    for (std::size_t end = text.find("\r\n"); end != std::string::npos;
         end = text.find("\r\n", start)) {
      lines.push_back(text.substr(start, end - start));
      start = end + 2;
    }
    EXPECT_EQ(start, text.size()) << "the last line has its end too";
    return lines;
  }

  AmplitudeHistogram& amplitude() { return workspace().Amplitude; }
  DurationHistogram& duration() { return workspace().Duration; }
  StationaritySettings& stationarity() { return workspace().Stationarity; }

  /// The first and the last count stand beside the axis.
  template <typename Histogram>
  void FillBins(Histogram& histogram, const std::vector<int>& counts) {
    const auto bins = static_cast<std::int64_t>(counts.size());
    histogram.Bins = toolkit::AllocateRecords<BinRecord>(bins);
    histogram.Edges = toolkit::AllocateRecords<double>(bins - 1);
    for (std::size_t i = 0; i < counts.size(); ++i) histogram.Bins[i].Count = counts[i];
  }

  /// Four bins from -1 pA, an eighth of a picoampere to 5 device units.
  void FillAmplitudeBins() {
    AmplitudeHistogram& histogram = amplitude();
    histogram.Minimum = -1.0;
    histogram.TickMarks = 2;
    histogram.BinsPerTick = 2;
    histogram.PerTick = 0.5;
    histogram.PixelsPerBin = 10.0;
    histogram.PixelsPerPa = 40.0;
    FillBins(histogram, {9, 1, 0, 30, 4, 8});
    histogram.Bins[3].Flags = kExcludedBin;
  }

  /// Four bins of half a decade from 100 us.
  void FillDurationBins() {
    DurationHistogram& histogram = duration();
    histogram.MinimumExponent = -4;
    histogram.Decades = 2;
    histogram.BinsPerDecade = 2;
    histogram.PixelsPerBin = 25.0;
    histogram.PixelsPerDecade = 50.0;
    FillBins(histogram, {9, 1, 0, 30, 4, 8});
    histogram.Bins[2].Flags = kExcludedBin;
  }

  void FillSamples(const std::vector<double>& samples) {
    StationaritySettings& plot = stationarity();
    plot.SampleCount = static_cast<std::int32_t>(samples.size());
    plot.StationaritySamples = toolkit::AllocateRecords<double>(plot.SampleCount);
    for (std::size_t i = 0; i < samples.size(); ++i) plot.StationaritySamples[i] = samples[i];
  }

  /// Frames from 100 to 600 and from 50 down to 450, a tick, a picoampere and a decade 100 each.
  void LayOutScatterPlots() {
    for (const ViewKind kind :
         {ViewKind::AmplitudeScatter, ViewKind::DurationScatter, ViewKind::Scatter}) {
      View(kind).Frame = {100.0, 600.0, 50.0, 450.0, 20.0};
      View(kind).Scatter = {2.0, 100.0, 100.0, 100.0};
    }
    workspace().AmplitudeScatter.Value = ScatterValue::LevelTag;
    workspace().DurationScatter.Value = ScatterValue::LevelTag;
  }

  /// Tables for all views; `rows_` has what each writes.
  void FillAll() {
    FillEvents(2, [](EventRecord& event, std::int32_t row) {
      if (row == 0) event = {1, 0.01, 0.0, 2e-12, 1, 0.0};
      if (row == 1) event = {12, 1234.5678904, 2.25e-12, -1.5e-11, -3, 1.25};
    });
    rows_[ViewKind::Event] = {
        "1\t0.010000\t0.0000000E+00\t2.0000000E-12\t1\t0.000000E+00",
        "12\t1234.567890\t2.2500000E-12\t-1.5000000E-11\t-3\t1.250000E+00",
    };
    FillLevels(2, [](LevelRecord& level, std::int32_t row) {
      level = {};
      level.LevelFlags = row == 0 ? 0 : 4;
      level.Sweep = row == 0 ? 1 : 2;
      level.PreAmplitude = 1e-12;
      level.PostAmplitude = 3e-12;
      level.Amplitude = row == 0 ? 2e-12 : -2e-12;
      level.Transition = row == 0 ? 0.25 : 17.5;
      level.Duration = 0.01;
      level.Level = row == 0 ? 1 : -1;
      level.TagValue = 40.0 * (row + 1);
    });
    rows_[ViewKind::Level] = {
        "1\t0.250000\t0.010000\t1.0000000E-12\t3.0000000E-12\t2.0000000E-12\t1\t4.0000000E+01",
        "2\t17.500000\t0.010000\t1.0000000E-12\t3.0000000E-12\t-2.0000000E-12\t-1\t8.0000000E+01",
    };
    FillSweeps(2, [](SweepRecord& sweep, std::int32_t row) {
      sweep = {};
      sweep.SelectionFlags = row == 0 ? 1 : 0;
      sweep.File = row == 0 ? 1 : 3;
      sweep.Index = 7;
      sweep.StartTime = 0.5;
      sweep.Duration = 2.0 + row;
      sweep.RelevantStart = 0.125;
      sweep.RelevantEnd = 1.75;
      sweep.RelevantValue = 44.25;
      sweep.TagValue = -2655.0;
    });
    rows_[ViewKind::Sweep] = {
        "1\t1\t7\t0.500000\t2.000000\t1.2500000E-01\t1.7500000E+00\t44.250000\t-2655.000000",
        "2\t3\t7\t0.500000\t3.000000\t1.2500000E-01\t1.7500000E+00\t44.250000\t-2655.000000",
    };
    const double none = std::numeric_limits<double>::quiet_NaN();
    FillStatistics({{0, 3, 0.5, 0.25, 0.125, 1.0, 1e-12, 2e-13, 9e-13, 3e-12, 0.75},
                    {1, 0, none, 0.0, 0.0, 0.0, none, 0.0, 0.0, 0.0, 0.0}},
                   3);
    rows_[ViewKind::Statistics] = {
        "0\t3\t0.7500\t0.500000\t0.250000\t0.125000\t1.000000\t1.0000000E-12\t2.0000000E-13\t"
        "9.0000000E-13\t3.0000000E-12",
        "1\t0\t0.0000\t" + Fixed(none) + "\t0.000000\t0.000000\t0.000000\t" + Scientific(none) +
            "\t0.0000000E+00\t0.0000000E+00\t0.0000000E+00",
    };
    amplitude().TermCount = 2;
    amplitude().Terms[0] = {0.25, 1.5, 0.125, 100.0};
    amplitude().Terms[1] = {0.75, -3.0, 2.0, 300.0};
    rows_[ViewKind::AmplitudeFit] = {
        "0.250\t1.5000000E-12\t1.2500000E-13",
        "0.750\t-3.0000000E-12\t2.0000000E-12",
    };
    duration().TermCount = 2;
    duration().Terms[0] = {1.25, 0.0001, 100.0};
    duration().Terms[1] = {-0.25, 12.5, -20.0};
    rows_[ViewKind::DurationFit] = {"1.250\t0.000100", "-0.250\t12.500000"};
    FillAmplitudeBins();
    rows_[ViewKind::Amplitude] = {
        "-8.7500000E-13\t1.0000000E+00",
        "-6.2500000E-13\t0.0000000E+00",
        "-3.7500000E-13\t3.0000000E+01",
        "-1.2500000E-13\t4.0000000E+00",
    };
    FillDurationBins();
    rows_[ViewKind::Duration] = {
        "0.000178\t1.0000000E+00",
        "0.000562\t0.0000000E+00",
        "0.001778\t3.0000000E+01",
        "0.005623\t4.0000000E+00",
    };
    LayOutScatterPlots();
    rows_[ViewKind::AmplitudeScatter] = {"4.0000000E+01\t2.0000000E-12"};
    rows_[ViewKind::DurationScatter] = {"4.0000000E+01\t0.010000"};
    rows_[ViewKind::Scatter] = {"0.010000\t2.0000000E-12"};
    stationarity().Tau = 0.11;
    stationarity().TickSpacing = 0.5;
    stationarity().TickPixels = 4.0;
    FillSamples({1.0, -0.5, 123456.0});
    rows_[ViewKind::Stationarity] = {
        "2.50E-01\t1.00E+00",
        "3.75E-01\t-5.00E-01",
        "5.00E-01\t1.23E+05",
    };
  }

  /// Empty tables for all views, and no bins, terms, points and samples.
  void EmptyAll() {
    amplitude().TermCount = 0;
    duration().TermCount = 0;
  }

  std::map<ViewKind, std::vector<std::string>> rows_;

 private:
  std::string path_;
};

}  // namespace ondrel
