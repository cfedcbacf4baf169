#include "write_cases.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <system_error>

#include "derived/level_builder.h"
#include "output/text_export.h"
#include "read_cases.h"
#include "shell/toolkit.h"
#include "support/scripted_shell.h"
#include "workspace/event_table_writer.h"
#include "workspace/output_file.h"

namespace ondrel::bench {
namespace {

// --- The tables ----------------------------------------------------------------------------------

/// Stands for these tables in BenchData's `Loaded`.
const std::string kTaggedRecording = "recording with tags and segments";

constexpr std::int32_t kSegmentsPerSweep = 1000;
constexpr std::uint64_t kTagSeed = 14;

/// As many pieces of equal length, with gaps of the same length between them.
void AddSegments(SweepRecord& sweep) {
  sweep.Segments = toolkit::AllocateRecords<SegmentRecord>(kSegmentsPerSweep);
  if (sweep.Segments == nullptr) std::abort();
  sweep.SegmentCount = kSegmentsPerSweep;
  const double length = sweep.Duration / (2 * kSegmentsPerSweep);
  for (std::int32_t i = 0; i < kSegmentsPerSweep; ++i) {
    sweep.Segments[i] = {2 * i * length, (2 * i + 1) * length};
  }
}

/// The recording, and all that has columns of its own in a file but is missing in it. Levels are
/// one for each dwell.
void LoadTaggedRecording(BenchData& data) {
  if (data.Loaded == &kTaggedRecording) return;
  LoadVersion5(data);
  Workspace& workspace = *data.Tables;
  std::mt19937_64 random{kTagSeed};
  std::normal_distribution<double> tag(-60.0, 20.0);
  for (std::int32_t i = 0; i < workspace.Sweeps.Count; ++i) {
    SweepRecord& sweep = *workspace.Sweeps.Index[i];
    AddSegments(sweep);
    sweep.RelevantValue = tag(random);
    sweep.TagValue = tag(random);
  }
  for (std::int32_t i = 0; i < workspace.Events.Count; ++i) {
    workspace.Events.Index[i]->TagValue = tag(random);
  }
  workspace.Levels.MultipleOpenings = OpeningRule::Fragments;
  workspace.Events.BurstResolution = 0.0;
  BuildLevels(workspace);
  data.Loaded = &kTaggedRecording;
}

/// Each turn makes the file anew, and none passes for another's.
void RemoveProductFile(BenchData& data) {
  std::error_code failure;
  std::filesystem::remove(data.ProductFile, failure);
  if (failure) std::abort();
}

// --- The product ---------------------------------------------------------------------------------

void SaveEvents(BenchData& data) {
  const std::string path = data.ProductFile.string();
  OutputFile file;
  if (toolkit::CreateEmptyFile(path.c_str()) != 0) std::abort();
  if (OpenOutputFile(path.c_str(), file) != 0) std::abort();
  if (!SaveEventFile(&data.Frame, file) || CloseOutputFile(file) != 0) std::abort();
}

void ExportLevels(BenchData& data) {
  data.Tables->TextExportType = TextExportChoice::Excel;
  data.Tables->LimitToWindow = false;
  ExportText(&data.Frame, ViewKind::Level, data.ProductFile.string().c_str());
  if (!scripted::TheShell().Boxes.empty()) std::abort();  // it tells of every failure
}

// --- The baseline --------------------------------------------------------------------------------

// One call for each field. Exponents have two digits in all builds: MinGW's own fprintf takes the
// place of the old runtime's.

void PrintSweeps(std::FILE* file, const SweepTable& sweeps) {
  std::fprintf(file, "Sweeps\r\n");
  for (std::int32_t i = 0; i < sweeps.Count; ++i) {
    const SweepRecord& sweep = *sweeps.Index[i];
    std::fprintf(file, "%d\t", i + 1);
    std::fprintf(file, "%.6f\t", sweep.Duration);
    std::fprintf(file, "%.6f\t", sweep.RelevantStart);
    std::fprintf(file, "%.6f\t", sweep.RelevantEnd);
    std::fprintf(file, "%.6E\t", sweep.RelevantValue);
    std::fprintf(file, "%.6E\r\n", sweep.TagValue);
  }
}

void PrintSegments(std::FILE* file, const SweepTable& sweeps) {
  std::fprintf(file, "Segments\r\n");
  for (std::int32_t i = 0; i < sweeps.Count; ++i) {
    const SweepRecord& sweep = *sweeps.Index[i];
    std::fprintf(file, "%d\t", i + 1);
    std::fprintf(file, "%d\t", sweep.SegmentCount);
    for (std::int32_t s = 0; s < sweep.SegmentCount; ++s) {
      std::fprintf(file, "%.6f\t", sweep.Segments[s].Start);
      std::fprintf(file, "%.6f\t", sweep.Segments[s].End);
    }
    std::fprintf(file, "\r\n");
  }
}

std::FILE* OpenBaseline(const BenchData& data) {
  std::FILE* const file = std::fopen(data.BaselineFile.string().c_str(), "wb");
  if (file == nullptr) std::abort();
  return file;
}

/// The recording is one file, whose sweeps are those of the whole table.
void PrintEventTable(BenchData& data) {
  const EventTable& events = data.Tables->Events;
  std::FILE* const file = OpenBaseline(data);
  std::fprintf(file, "5\r\nFile\r\nUndefined\r\n");
  PrintSweeps(file, data.Tables->Sweeps);
  PrintSegments(file, data.Tables->Sweeps);
  std::fprintf(file, "Events\r\n");
  for (std::int32_t i = 0; i < events.Count; ++i) {
    const EventRecord& event = *events.Index[i];
    std::fprintf(file, "%d\t", static_cast<int>(event.Sweep));
    std::fprintf(file, "%.6f\t", event.Transition);
    std::fprintf(file, "%.7E\t", event.PreAmplitude);
    std::fprintf(file, "%.7E\t", event.PostAmplitude);
    std::fprintf(file, "%d\t", event.Level);
    std::fprintf(file, "%.6E\r\n", event.TagValue);
  }
  if (std::fclose(file) != 0) std::abort();
}

void PrintLevels(BenchData& data) {
  const LevelTable& levels = data.Tables->Levels;
  std::FILE* const file = OpenBaseline(data);
  for (std::int32_t i = 0; i < levels.Count; ++i) {
    const LevelRecord& level = *levels.Index[i];
    std::fprintf(file, "%d\t", static_cast<int>(level.Sweep));
    std::fprintf(file, "%.6f\t", level.Transition);
    std::fprintf(file, "%.6f\t", level.Duration);
    std::fprintf(file, "%.7E\t", level.PreAmplitude);
    std::fprintf(file, "%.7E\t", level.PostAmplitude);
    std::fprintf(file, "%.7E\t", level.Amplitude);
    std::fprintf(file, "%d\t", level.Level);
    std::fprintf(file, "%.7E\r\n", level.TagValue);
  }
  if (std::fclose(file) != 0) std::abort();
}

// --- Cases ---------------------------------------------------------------------------------------

bool SameBytes(const BenchData& data) {
  std::ifstream product(data.ProductFile, std::ios::binary);
  std::ifstream baseline(data.BaselineFile, std::ios::binary);
  const std::string productBytes{std::istreambuf_iterator<char>(product), {}};
  const std::string baselineBytes{std::istreambuf_iterator<char>(baseline), {}};
  return !productBytes.empty() && productBytes == baselineBytes;
}

std::size_t FileBytes(const BenchData& data) {
  std::error_code failure;
  const auto size = std::filesystem::file_size(data.ProductFile, failure);
  return failure ? 0 : static_cast<std::size_t>(size);
}

constexpr BenchCase kWriteCases[] = {
    {.Name = "write events",
     .Bytes = FileBytes,
     .Load = LoadTaggedRecording,
     .Prepare = RemoveProductFile,
     .Baseline = PrintEventTable,
     .Product = SaveEvents,
     .Check = SameBytes},
    {.Name = "export levels as text",
     .Bytes = FileBytes,
     .Load = LoadTaggedRecording,
     .Prepare = RemoveProductFile,
     .Baseline = PrintLevels,
     .Product = ExportLevels,
     .Check = SameBytes},
};

}  // namespace

std::span<const BenchCase> WriteCases() {
  return kWriteCases;
}

}  // namespace ondrel::bench
