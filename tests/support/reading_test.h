// A fixture for the readers of event tables: tables of a chosen capacity, tables given as text, and
// the messages a reader can show.
#pragma once

#include <gmock/gmock.h>

#include <array>
#include <cstring>
#include <string>
#include <string_view>

#include "shell/toolkit.h"
#include "support/shell_test.h"
#include "workspace/event_table_reader.h"
#include "workspace/import_reader.h"

namespace ondrel {

class ReadingTest : public ShellTest {
 protected:
  ReadingTest() { AllocateAllTables(Frame()); }

  void SetCapacities(std::int32_t events, std::int32_t sweeps) {
    FreeAllTables(workspace());
    workspace().Events.Capacity = events;
    workspace().Levels.Capacity = events;
    workspace().Sweeps.Capacity = sweeps;
    AllocateAllTables(Frame());
  }

  /// The text in a block of exactly its size, as a reader gets it.
  static char* Block(std::string_view text) {
    auto* block = static_cast<char*>(toolkit::AllocateZeroed(text.size(), 1));
    std::memcpy(block, text.data(), text.size());
    return block;
  }

  bool Parse(std::string_view text) {
    return ParseTable(Frame(), Block(text), "table.evt", text.size());
  }
  bool Import(std::string_view text) {
    return ParseImport(Frame(), Block(text), "events.txt", text.size());
  }

  // A row that is not there fails the test and reads as zeros.
  const EventRecord& Event(std::int32_t row) { return Found(GetEvent(workspace().Events, row)); }
  const SweepRecord& Sweep(std::int32_t row) { return Found(GetSweep(workspace().Sweeps, row)); }
  const FileRecord& File(std::int32_t row) { return Found(GetFile(workspace().Files, row)); }

  /// Counts of files, sweeps and events.
  std::array<std::int32_t, 3> Counts() {
    return {workspace().Files.Count, workspace().Sweeps.Count, workspace().Events.Count};
  }

  /// An open view, of which only the scroll range can be looked at.
  void OpenTableView(ViewKind kind) {
    scripted::Window& window = windows_[static_cast<std::size_t>(kind)];
    window.Record.Handle = &window;
    window.Bars[0] = {.Exists = true, .Maximum = kNoRange, .Position = 0};
    ViewOf(workspace(), kind).Window = &window.Record;
  }
  std::int32_t ScrollRange(ViewKind kind) {
    return windows_[static_cast<std::size_t>(kind)].Bars[0].Maximum;
  }
  static constexpr std::int32_t kNoRange = 12345;

 private:
  template <typename Record>
  static const Record& Found(const Record* record) {
    static const Record none{};
    EXPECT_NE(record, nullptr) << "no such row";
    return record != nullptr ? *record : none;
  }

  std::array<scripted::Window, kViewCount> windows_;
};

/// "1\t2\t3\r\n" and so on: `row` `count` times.
inline std::string Repeat(std::string_view row, int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += row;
  return text;
}

/// How messages name a file.
inline std::string ShortNameOf(const std::string& path) {
  return path.substr(path.rfind('\\') + 1).substr(0, 127);
}

inline std::string Corrupted(int number, const std::string& word) {
  return "The data file is corrupted. Error occurred at number " + std::to_string(number) + " of " +
         word + " record.";
}

inline std::string TableFull(const std::string& word) {
  return word +
         " table is full. File reading will be aborted. Select \"Settings\" in \"File\" menu."
         " Change " +
         word + " table entries.";
}

inline std::string CannotRead(const std::string& name) {
  return "Ondrel cannot read file " + name +
         ". Ondrel expects a tab-delimited text file with a specific layout. See the manual for "
         "more "
         "information.";
}

inline const std::string kTooManyFiles = "Ondrel cannot read more than 100 data files.";
inline const std::string kAmbiguous =
    "The data file is not consistant internally. The number of sweep records is ambiguous.";
inline const std::string kDifferent =
    "The data file is not consistant internally. The number of sweep records is different from "
    "those indicated in the file record.";
inline const std::string kSweepsMissing =
    "The data file is corrupted. Some of the sweep records are missing. Error occurred at number 1 "
    "of Event record.";
inline const std::string kNoMatch = "The imported event table does not match the existing file(s)!";
inline const std::string kNoMemoryForSweep =
    "Insufficient memory for building segment array of a sweep. You can increase the amount of "
    "memory by quiting some other programs.";
inline const std::string kNoMemoryForSegments =
    "Insufficient memory for segment array. You can increase the amount of memory available either "
    "select \"Settings\" in \"File\" menu, reduce \"Event entries\" or \"Sweep entries\" or quit "
    "some other programs.";

}  // namespace ondrel
