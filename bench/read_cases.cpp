#include "read_cases.h"

#include <bit>
#include <cstdlib>
#include <cstring>

#include "shell/toolkit.h"
#include "workspace/event_table_reader.h"
#include "workspace/text_scanner.h"

namespace ondrel::bench {
namespace {

void ReadWithStrtod(const std::string& text, std::vector<double>& values) {
  values.clear();
  const char* cursor = text.c_str();
  const char* const end = cursor + text.size();
  while (cursor < end) {
    char* stop;
    values.push_back(std::strtod(cursor, &stop));
    cursor = stop;
    while (cursor < end && !IsSeparator(*cursor)) ++cursor;
    while (cursor < end && IsSeparator(*cursor)) ++cursor;
  }
}

void EmptyTables(BenchData& data) {
  FreeSegments(data.Tables->Sweeps, 0, data.Tables->Sweeps.Count);
  data.Tables->Events.Count = 0;
  data.Tables->Sweeps.Count = 0;
  data.Tables->Files.Count = 0;
}

void CopyToBlock(BenchData& data, const std::string& text) {
  toolkit::FreeMemory(data.Block);
  data.Block = static_cast<char*>(toolkit::AllocateZeroed(text.size(), 1));
  if (data.Block == nullptr) std::abort();
  std::memcpy(data.Block, text.data(), text.size());
}

void Read(BenchData& data, const std::string& text) {
  char* const block = data.Block;
  data.Block = nullptr;
  if (!ParseTable(&data.Frame, block, "bench", text.size())) std::abort();
  data.Loaded = &text;
}

void PrepareVersion5(BenchData& data) {
  EmptyTables(data);
  CopyToBlock(data, data.Version5);
}

void PrepareBareList(BenchData& data) {
  EmptyTables(data);
  CopyToBlock(data, data.BareList);
}

bool SameReal(double a, double b) {
  return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

/// Where the columns of an event row are among the tokens of a row.
struct Columns {
  std::size_t Count;
  std::size_t PostAmplitude;
  std::size_t Level;
};
constexpr Columns kVersion5Columns{6, 3, 4};
constexpr Columns kBareColumns{7, 4, 6};

/// The events are the last rows of both layouts.
bool SameValues(const BenchData& data, const Columns& columns) {
  const EventTable& events = data.Tables->Events;
  const std::size_t tokens = columns.Count * kEventCount;
  if (events.Count != kEventCount || data.Values.size() < tokens) return false;
  const double* row = data.Values.data() + (data.Values.size() - tokens);
  for (std::int32_t i = 0; i < kEventCount; ++i, row += columns.Count) {
    const EventRecord& event = *events.Index[i];
    const bool same = SameReal(event.Sweep, row[0]) && SameReal(event.Transition, row[1]) &&
                      SameReal(event.PreAmplitude, row[2]) &&
                      SameReal(event.PostAmplitude, row[columns.PostAmplitude]) &&
                      SameReal(event.Level, row[columns.Level]);
    if (!same) return false;
  }
  return true;
}

constexpr BenchCase kReadCases[] = {
    {.Name = "read version 5",
     .Bytes = [](const BenchData& data) { return data.Version5.size(); },
     .Prepare = PrepareVersion5,
     .Baseline = [](BenchData& data) { ReadWithStrtod(data.Version5, data.Values); },
     .Product = [](BenchData& data) { Read(data, data.Version5); },
     .Check = [](const BenchData& data) { return SameValues(data, kVersion5Columns); }},
    {.Name = "read bare list",
     .Bytes = [](const BenchData& data) { return data.BareList.size(); },
     .Prepare = PrepareBareList,
     .Baseline = [](BenchData& data) { ReadWithStrtod(data.BareList, data.Values); },
     .Product = [](BenchData& data) { Read(data, data.BareList); },
     .Check = [](const BenchData& data) { return SameValues(data, kBareColumns); }},
};

}  // namespace

std::span<const BenchCase> ReadCases() {
  return kReadCases;
}

void LoadVersion5(BenchData& data) {
  if (data.Loaded == &data.Version5) return;
  PrepareVersion5(data);
  Read(data, data.Version5);
}

}  // namespace ondrel::bench
