// The texts of whole recordings, opened by the program and read back as another program would.
#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "derived/scatter_points.h"
#include "fit/histogram_axis.h"
#include "shell/text_export_command.h"
#include "support/program_test.h"
#include "views/view_kinds.h"
#include "views/view_window.h"

namespace ondrel {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

using Fields = std::vector<std::string>;

constexpr CommandId kViewCommands[] = {
    command::kAmplitudeView,       command::kAmplitudeManualFit,
    command::kDurationView,        command::kDurationManualFit,
    command::kScatterView,         command::kAmplitudeScatterView,
    command::kDurationScatterView, command::kStationarityView,
    command::kStatisticsView,      command::kSweepView};

Fields Split(const std::string& text, const std::string& separator) {
  Fields parts;
  std::size_t start = 0;
  for (std::size_t end = text.find(separator); end != std::string::npos;
       end = text.find(separator, start)) {
    parts.push_back(text.substr(start, end - start));
    start = end + separator.size();
  }
  parts.push_back(text.substr(start));
  return parts;
}

/// A file's lines; the last one has its end too.
Fields LinesOf(const std::string& text) {
  Fields lines = Split(text, "\r\n");
  EXPECT_EQ(lines.back(), "");
  lines.pop_back();
  return lines;
}

/// The names in Igor's second line, which commas with a blank or a tab part.
Fields WaveNames(std::string line) {
  constexpr char kStart[] = "WAVES /D ";
  EXPECT_TRUE(line.starts_with(kStart)) << line;
  std::replace(line.begin(), line.end(), '\t', ' ');
  return Split(line.substr(sizeof kStart - 1), ", ");
}

class TextExportSamplesTest : public ProgramTest,
                              public ::testing::WithParamInterface<const char*> {
 protected:
  TextExportSamplesTest() {
    path_ = (std::filesystem::path(::testing::TempDir()) / "sample_text").string();
    shell().KeepsDrawing = false;
  }
  ~TextExportSamplesTest() override { std::filesystem::remove(path_); }

  /// Runs the program with the sample, all views open and painted.
  void RunWithSample(const std::function<void()>& act) {
    Run([&] {
      OpenFile(std::string(ONDREL_SOURCE_DIR) + "/samples/" + GetParam());
      ASSERT_GT(workspace().Events.Count, 0);
      for (const CommandId command : kViewCommands) Choose(command);
      ASSERT_THAT(shell().Children, SizeIs(kViewCount));
      PaintAll();
      shell().Boxes.clear();
      act();
      EXPECT_THAT(Messages(), IsEmpty());
    });
  }

  void PaintAll() {
    for (std::size_t i = 0; i < kViewCount; ++i) {
      PaintViewNow(workspace(), static_cast<ViewKind>(i));
    }
  }

  std::string Export(ViewKind kind, TextExportChoice form, bool limitToWindow = false) {
    toolkit::BringForward(ViewOf(workspace(), kind).Window);
    shell().DialogScripts.push_back([=](scripted::OpenDialog& dialog) {
      dialog.Choose(3, static_cast<int>(form));
      if (dialog.At(4).Checked != limitToWindow) dialog.Press(4);
      dialog.Press(1);
    });
    shell().FileChoices.push_back(path_);
    ExportTextCommand(Frame());
    std::ifstream stream(path_, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }

  /// The rows of the spreadsheet form.
  std::vector<Fields> Rows(ViewKind kind, bool limitToWindow = false) {
    std::vector<Fields> rows;
    for (const std::string& line : LinesOf(Export(kind, TextExportChoice::Excel, limitToWindow))) {
      rows.push_back(Split(line, "\t"));
    }
    return rows;
  }

  std::size_t CountPoints(ViewKind kind) {
    std::size_t count = 0;
    const auto visit = [&](const ScatterPoint&) {
      ++count;
      return true;
    };
    if (kind == ViewKind::AmplitudeScatter) ForEachAmplitudeScatterPoint(workspace(), visit);
    if (kind == ViewKind::DurationScatter) ForEachDurationScatterPoint(workspace(), visit);
    if (kind == ViewKind::Scatter) ForEachScatterPoint(workspace(), visit);
    return count;
  }

  std::map<ViewKind, std::size_t> ExpectedRows() {
    const Workspace& w = workspace();
    const auto rows = [](std::int64_t count) { return static_cast<std::size_t>(count); };
    return {{ViewKind::Event, rows(w.Events.Count)},
            {ViewKind::Level, rows(w.Levels.Count)},
            {ViewKind::Sweep, rows(w.Sweeps.Count)},
            {ViewKind::Statistics, rows(w.Statistics.RowCount)},
            {ViewKind::AmplitudeFit, rows(w.Amplitude.TermCount)},
            {ViewKind::DurationFit, rows(w.Duration.TermCount)},
            {ViewKind::Amplitude, rows(CountBins(w.Amplitude))},
            {ViewKind::Duration, rows(CountBins(w.Duration))},
            {ViewKind::AmplitudeScatter, CountPoints(ViewKind::AmplitudeScatter)},
            {ViewKind::DurationScatter, CountPoints(ViewKind::DurationScatter)},
            {ViewKind::Scatter, CountPoints(ViewKind::Scatter)},
            {ViewKind::Stationarity, rows(w.Stationarity.SampleCount)}};
  }

 private:
  std::string path_;
};

INSTANTIATE_TEST_SUITE_P(Samples, TextExportSamplesTest,
                         ::testing::Values("one_channel_bursts.evt", "two_channels.txt",
                                           "drifting.evt", "several_files.evt"),
                         [](const auto& info) {
                           const std::string name = info.param;
                           return name.substr(0, name.find('.'));
                         });

TEST_P(TextExportSamplesTest, EveryRowHasAFieldForEachWaveInBothForms) {
  RunWithSample([&] {
    workspace().Amplitude.FitStyle = FitStyle::Both;
    workspace().Duration.FitStyle = FitStyle::Both;
    for (const auto& [kind, count] : ExpectedRows()) {
      const Fields igor = LinesOf(Export(kind, TextExportChoice::Igor));
      const Fields excel = LinesOf(Export(kind, TextExportChoice::Excel));
      const char* title = FactsOf(kind).Title;
      ASSERT_EQ(excel.size(), count) << title;
      ASSERT_EQ(igor.size(), count + 4) << title;
      EXPECT_EQ(igor[0], "IGOR");
      EXPECT_EQ(igor[2], "BEGIN");
      EXPECT_EQ(igor.back(), "END");
      EXPECT_EQ(Fields(igor.begin() + 3, igor.end() - 1), excel) << title;
      const std::size_t columns = WaveNames(igor[1]).size();
      for (const std::string& row : excel) {
        ASSERT_THAT(Split(row, "\t"), SizeIs(columns)) << title << ": " << row;
      }
    }
  });
}

TEST_P(TextExportSamplesTest, AllViewsHaveSomethingToWrite) {
  RunWithSample([&] {
    for (const auto& [kind, count] : ExpectedRows()) {
      EXPECT_GT(count, 0u) << FactsOf(kind).Title;
    }
  });
}

TEST_P(TextExportSamplesTest, TheEventListReadsBack) {
  RunWithSample([&] {
    const std::vector<Fields> rows = Rows(ViewKind::Event);
    ASSERT_EQ(rows.size(), static_cast<std::size_t>(workspace().Events.Count));
    for (std::size_t i = 0; i < rows.size(); ++i) {
      const EventRecord& event = *workspace().Events.Index[i];
      ASSERT_EQ(std::stoul(rows[i][0]), event.Sweep);
      ASSERT_NEAR(std::stod(rows[i][1]), event.Transition, 0.51e-6);
      ASSERT_NEAR(std::stod(rows[i][2]), event.PreAmplitude, 1e-18);
      ASSERT_NEAR(std::stod(rows[i][3]), event.PostAmplitude, 1e-18);
      ASSERT_EQ(std::stoi(rows[i][4]), event.Level);
      ASSERT_NEAR(std::stod(rows[i][5]), event.TagValue, 1e-6 * std::max(event.TagValue, 1.0));
    }
  });
}

TEST_P(TextExportSamplesTest, TheHistogramsHoldTheCountsOfTheirBins) {
  RunWithSample([&] {
    double counts = 0.0;
    for (const Fields& row : Rows(ViewKind::Amplitude)) counts += std::stod(row[1]);
    double expected = 0.0;
    for (std::int64_t bin = 1; bin <= CountBins(workspace().Amplitude); ++bin) {
      expected += workspace().Amplitude.Bins[bin].Count;
    }
    EXPECT_EQ(counts, expected);
  });
}

/// The layout that the program itself made stands a bin's centre in the middle of its edges.
TEST_P(TextExportSamplesTest, BinCentresLieBetweenTheEdgesOfTheirBins) {
  RunWithSample([&] {
    const std::vector<Fields> amplitudes = Rows(ViewKind::Amplitude);
    for (std::size_t i = 0; i < amplitudes.size(); ++i) {
      const double* edges = workspace().Amplitude.Edges;
      const double current = std::stod(amplitudes[i][0]) / 1e-12;
      ASSERT_NEAR(current, (edges[i] + edges[i + 1]) / 2.0, 1e-3 * (edges[i + 1] - edges[i])) << i;
    }
    const std::vector<Fields> durations = Rows(ViewKind::Duration);
    for (std::size_t i = 0; i < durations.size(); ++i) {
      const double* edges = workspace().Duration.Edges;
      const double seconds = std::stod(durations[i][0]);
      ASSERT_NEAR(seconds, std::sqrt(edges[i] * edges[i + 1]), 0.51e-6 + 1e-9 * seconds) << i;
    }
  });
}

TEST_P(TextExportSamplesTest, LimitedToTheWindowTheTablesHaveTheRowsOfTheScreen) {
  RunWithSample([&] {
    for (const ViewKind kind : {ViewKind::Event, ViewKind::Level, ViewKind::Sweep}) {
      const std::vector<Fields> all = Rows(kind);
      ViewState& view = ViewOf(workspace(), kind);
      const auto visible = static_cast<std::size_t>(view.VisibleRows);
      ASSERT_GT(visible, 0u);
      view.TopRow = 2;
      const std::size_t end = std::min(all.size(), visible + 2);
      EXPECT_EQ(
          Rows(kind, true),
          std::vector<Fields>(all.begin() + 2, all.begin() + static_cast<std::ptrdiff_t>(end)));
    }
  });
}

TEST_P(TextExportSamplesTest, ExportsLeaveTheProgramAsItWas) {
  RunWithSample([&] {
    const auto before = ExpectedRows();
    for (const auto& [kind, count] : before) Export(kind, TextExportChoice::Igor);
    EXPECT_EQ(ExpectedRows(), before);
    for (std::size_t i = 0; i < kViewCount; ++i) EXPECT_FALSE(workspace().Views[i].NeedsRebuild);
  });
}

}  // namespace
}  // namespace ondrel
