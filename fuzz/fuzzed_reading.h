// Any bytes as event tables, through the readers and the derived chain, with nothing shown and
// nothing kept. The fuzz targets and the test that replays their seeds share it.
//
// The first five bytes set the stage: the capacities of the event and the sweep table, a byte of
// settings, which allocation fails (none from 'a' on), and one that seeds use for a line end. A
// form feed ends a table; the next one is read into the same tables, as "&Add..." does.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>

#include "derived/derived_chain.h"
#include "shell/toolkit.h"
#include "support/scripted_shell.h"
#include "workspace/event_table_reader.h"
#include "workspace/import_reader.h"
#include "workspace/workspace.h"

namespace ondrel::fuzz {

inline constexpr std::size_t kStageBytes = 5;

inline void Require(bool condition, const char* what) {
  if (condition) return;
  std::fprintf(stderr, "broken: %s\n", what);
  std::abort();
}

/// A workspace with allocated tables, and the checks of what a reading left in them.
class Stage {
 public:
  explicit Stage(const std::uint8_t* bytes) {
    scripted::ResetShell();
    frame_.Owner = workspace_.get();
    workspace_->Frame = &frame_;
    ResetWorkspace(*workspace_);
    workspace_->Events.Capacity = 1 + bytes[0];
    workspace_->Levels.Capacity = 1 + bytes[0];
    workspace_->Sweeps.Capacity = 1 + bytes[1];
    Set(bytes[2]);
    AllocateAllTables(&frame_);
    if (bytes[3] < 'a') scripted::TheShell().Allocation.Next = 1 + bytes[3];
  }

  ~Stage() {
    FreeAllTables(*workspace_);
    Require(scripted::TheShell().LiveAllocations == 0, "all memory is freed");
  }

  void ReadTable(std::string_view text) {
    if (ParseTable(&frame_, Block(text), "fuzzed", text.size())) DeriveAfterReading(*workspace_);
    Check();
  }
  void ReadImport(std::string_view text) {
    if (ParseImport(&frame_, Block(text), "fuzzed", text.size())) DeriveAfterReading(*workspace_);
    Check();
  }

 private:
  void Set(std::uint8_t settings) {
    workspace_->Levels.MultipleOpenings =
        (settings & 1) != 0 ? OpeningRule::Highest : OpeningRule::Fragments;
    workspace_->Levels.Range =
        (settings & 2) != 0 ? LevelRange::Sweep : LevelRange::RelevantSegment;
    workspace_->Levels.TagSource = (settings & 4) != 0 ? LevelTag::Event : LevelTag::ClosingCount;
    workspace_->Events.BurstResolution = (settings & 8) != 0 ? 0.5 : 0.0;
    workspace_->Levels.BaseLevel = (settings & 16) != 0 ? 1 : 0;
  }

  /// Not one byte more than the text, so that the sanitizer sees every look beyond it.
  static char* Block(std::string_view text) {
    auto* block = static_cast<char*>(std::calloc(text.size() == 0 ? 1 : text.size(), 1));
    std::memcpy(block, text.data(), text.size());
    ++scripted::TheShell().LiveAllocations;
    return block;
  }

  void Check() const {
    const Workspace& w = *workspace_;
    Require(w.Events.Count >= 0 && w.Events.Count <= w.Events.Capacity, "the count of events");
    Require(w.Levels.Count >= 0 && w.Levels.Count <= w.Levels.Capacity, "the count of levels");
    Require(w.Sweeps.Count >= 0 && w.Sweeps.Count <= w.Sweeps.Capacity, "the count of sweeps");
    Require(w.Files.Count >= 0 && w.Files.Count <= w.Files.Capacity, "the count of files");
    for (std::int32_t row = 0; row < w.Sweeps.Capacity; ++row) {
      const SweepRecord& sweep = w.Sweeps.Records[row];
      const bool owns = sweep.Segments != nullptr;
      Require(row < w.Sweeps.Count ? owns == (sweep.SegmentCount > 0) : !owns, "the segments");
    }
  }

  std::unique_ptr<Workspace> workspace_ = std::make_unique<Workspace>();
  FrameWindow frame_;
};

/// Tables, read one after the other.
inline void FuzzTables(const std::uint8_t* data, std::size_t size) {
  if (size < kStageBytes) return;
  Stage stage(data);
  std::string_view text(reinterpret_cast<const char*>(data), size);
  text.remove_prefix(kStageBytes);
  for (;;) {
    const std::size_t end = text.find('\f');
    stage.ReadTable(text.substr(0, end));
    if (end == std::string_view::npos) return;
    text.remove_prefix(end + 1);
  }
}

/// Events, imported into two sweeps that are there already.
inline void FuzzImport(const std::uint8_t* data, std::size_t size) {
  if (size < kStageBytes) return;
  Stage stage(data);
  stage.ReadTable("2 Files 2 Sweeps 1 0 10 0 10 0 0 2 0 5 1 4 0 0 Events 1 0.5 0 1E-12 1 0");
  std::string_view text(reinterpret_cast<const char*>(data), size);
  stage.ReadImport(text.substr(kStageBytes));
}

}  // namespace ondrel::fuzz
