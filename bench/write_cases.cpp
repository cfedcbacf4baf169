#include "write_cases.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <system_error>

#include "derived/level_builder.h"
#include "output/text_export.h"
#include "read_cases.h"
#include "shell/toolkit.h"
#include "workspace/event_table_writer.h"
#include "workspace/output_file.h"

namespace ondrel::bench {
namespace {

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

/// Any million levels will do; those of other cases stay.
void LoadLevels(BenchData& data) {
  LoadVersion5(data);
  if (data.Tables->Levels.Count >= kEventCount) return;
  data.Tables->Levels.MultipleOpenings = OpeningRule::Fragments;
  data.Tables->Events.BurstResolution = 0.0;
  BuildLevels(*data.Tables);
}

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
     .Prepare = LoadVersion5,
     .Baseline =
         [](BenchData& data) {
           LoadVersion5(data);
           PrintEventTable(data);
         },
     .Product = SaveEvents,
     .Check = SameBytes},
    {.Name = "export levels as text",
     .Bytes = FileBytes,
     .Prepare = [](BenchData&) {},
     .Baseline =
         [](BenchData& data) {
           LoadLevels(data);
           PrintLevels(data);
         },
     .Product = ExportLevels,
     .Check = SameBytes},
};

}  // namespace

std::span<const BenchCase> WriteCases() {
  return kWriteCases;
}

}  // namespace ondrel::bench
