// A fixture for what leaves the program: tables with a few records, all twelve views, and the three
// ways out of their windows.
#pragma once

#include <gmock/gmock.h>

#include <cstdint>
#include <string>
#include <vector>

#include "fit/amplitude_histogram.h"
#include "fit/duration_histogram.h"
#include "support/recording_sink.h"
#include "support/scripted_device.h"
#include "support/view_test.h"
#include "views/view_destinations.h"

namespace ondrel {

/// Letters of an export are 10 wide, 15 above the baseline and 20 high; those of the screen are 7,
/// 10 and 13. The picture has 300 dots per inch, the screen 96.
class DestinationsTest : public ViewTest {
 protected:
  static constexpr std::int32_t kExportLetter = 10;
  static constexpr std::int32_t kExportAscent = 15;
  static constexpr std::int32_t kExportLine = 20;
  static constexpr std::int32_t kPaperLine = 24;  // with a fifth of leading
  static constexpr double kExportDpi = 300.0;
  /// 1680 wide and high: the plot goes from 230 to 1490 and from 290 down to 1410, and numbers of
  /// the vertical axis end 48 before it.
  static constexpr IntRect kPicture = {20, 10, 1700, 1690};
  static constexpr IntRect kClient = {0, 0, 400, 300};

  DestinationsTest() {
    recording::Clear();
    FillRecords();
    BuildAmplitudeHistogram(workspace());
    BuildDurationHistogram(workspace());
    workspace().DeviceFontSize = 20;
    workspace().DevicePenSize = 1.2;
    workspace().ExportDpi = kExportDpi;
    workspace().ExportRect = kPicture;
  }
  ~DestinationsTest() override { recording::Clear(); }

  /// Opens the view and paints it.
  void Show(ViewKind kind) {
    Open(kind);
    WindowOf(kind).Client = kClient;
    Paint(kind);
    ForgetAll();
  }

  // Each returns what the view came to at its destination, line by line.

  std::vector<std::string> ToFile(ViewKind kind) {
    ForgetAll();
    recording::Clear();
    DrawViewToFile(workspace(), kind, recording::kRecordingSink, workspace().ExportRect);
    return recording::Lines();
  }

  std::vector<std::string> ToMetafile(ViewKind kind) {
    ForgetAll();
    MetafileRecord record;
    EXPECT_TRUE(DrawViewToMetafile(workspace(), kind, &record));
    const std::vector<std::string> lines = LinesOf(record);
    toolkit::DeleteMetafile(record.Picture);
    return lines;
  }

  std::vector<std::string> ToPaper(ViewKind kind) {
    ForgetAll();
    DeviceRecord printer = scripted::MakeDevice(scripted::DeviceKind::Printer, kExportDpi);
    DrawViewToPrinter(workspace(), kind, printer);
    scripted::FreeDevice(printer);
    std::vector<std::string> lines;
    for (const std::string& line : Drawn()) {
      lines.push_back(line);
      if (line == "clean up") break;  // the window follows
    }
    return lines;
  }

  using Way = std::vector<std::string> (DestinationsTest::*)(ViewKind);

  /// All three.
  static std::vector<Way> AllWays() {
    return {&DestinationsTest::ToFile, &DestinationsTest::ToMetafile, &DestinationsTest::ToPaper};
  }

  static std::vector<std::string> LinesOf(const MetafileRecord& record) {
    std::string bytes(toolkit::MetafileSize(record.Picture), ' ');
    EXPECT_TRUE(toolkit::CopyMetafile(record.Picture, bytes.data(), bytes.size()));
    std::vector<std::string> lines;
    for (std::size_t start = 0; start < bytes.size();) {
      const std::size_t end = bytes.find('\n', start);
      lines.push_back(bytes.substr(start, end - start));
      start = end + 1;
    }
    return lines;
  }

  static std::int32_t ExportWidth(const std::string& text) {
    return kExportLetter * static_cast<std::int32_t>(text.size());
  }

  static std::vector<ViewKind> Graphs() {
    return {ViewKind::Amplitude,       ViewKind::Duration, ViewKind::AmplitudeScatter,
            ViewKind::DurationScatter, ViewKind::Scatter,  ViewKind::Stationarity};
  }
  static std::vector<ViewKind> Tables() {
    return {ViewKind::Event,      ViewKind::Level,        ViewKind::Sweep,
            ViewKind::Statistics, ViewKind::AmplitudeFit, ViewKind::DurationFit};
  }

  static std::string TitleOf(ViewKind kind) { return FactsOf(kind).Title; }

 private:
  void FillRecords() {
    FillEvents(3, [](EventRecord& event, std::int32_t row) {
      event.Sweep = 1;
      event.Transition = 0.01 * row;
    });
    FillLevels(3, [](LevelRecord& level, std::int32_t row) {
      level.Sweep = 1;
      level.Transition = 2.0 * row;
      level.Duration = row == 2 ? 6.0 : 0.01;
      level.Amplitude = 2e-12;
      level.TagValue = 5.0;
    });
    FillSweeps(1, [](SweepRecord& sweep, std::int32_t) {
      sweep.Index = 1;
      sweep.Duration = 10.0;
    });
    workspace().Sweeps.SelectedCount = 1;
    workspace().Stationarity.ShortestSweep = 10.0;
    StatisticsRow row{};
    row.Level = 1;
    row.Events = 3;
    FillStatistics({row}, 3);
  }
};

}  // namespace ondrel
