// A fixture for the writers of tables: tables put together record by record, what a writer makes of
// them, and the way back through the reader of data files.
#pragma once

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "support/reading_test.h"
#include "workspace/event_table_writer.h"
#include "workspace/file_types.h"
#include "workspace/output_file.h"

namespace ondrel {

inline std::string BytesOf(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

/// The real that a reader finds where `value` was written in this format.
inline double AsWritten(double value, const char* format) {
  char text[400];
  std::snprintf(text, sizeof text, format, value);
  return std::strtod(text, nullptr);
}

inline FileRecord FileOfType(const char* keyword, const char* name) {
  const FileTypeRow& row = *FindFileType(keyword);
  FileRecord file{};
  std::snprintf(file.Name, sizeof file.Name, "%s", name);
  file.Type = row.Type;
  file.ReadHeader = row.ReadHeader;
  file.WriteHeader = row.WriteHeader;
  return file;
}

/// The fields of a sweep and of a level that a test may leave out.
struct SweepFields {
  std::uint32_t SelectionFlags = 0;
  std::uint32_t File = 1;
  std::uint32_t Index = 1;
  double StartTime = 0.0;
  double Duration = 0.0;
  double RelevantStart = 0.0;
  double RelevantEnd = 0.0;
  double RelevantValue = 0.0;
  double TagValue = 0.0;
};
struct LevelFields {
  std::uint32_t LevelFlags = 0;
  std::uint32_t PrecedingFlags = 0;
  std::uint32_t FollowingFlags = 0;
  std::uint32_t Sweep = 1;
  double PreAmplitude = 0.0;
  double PostAmplitude = 0.0;
  double Amplitude = 0.0;
  double Transition = 0.0;
  double Duration = 0.0;
  std::int32_t Level = 0;
  double TagValue = 0.0;
};

class SavingTest : public ReadingTest {
 protected:
  using TableWriter = bool (*)(FrameWindow* frame, OutputFile& file);

  ~SavingTest() override { std::filesystem::remove(Path()); }

  static std::string Path() {
    const auto* const test = ::testing::UnitTest::GetInstance()->current_test_info();
    std::string name = std::string(test->test_suite_name()) + "_" + test->name();
    std::replace(name.begin(), name.end(), '/', '_');  // of a test with parameters
    return (std::filesystem::path(::testing::TempDir()) / name).string();
  }

  void AddFile(const FileRecord& file) {
    FileTable& files = workspace().Files;
    *files.Index[files.Count++] = file;
  }

  void AddSweep(const SweepFields& fields, const std::vector<SegmentRecord>& segments) {
    SweepRecord sweep{fields.SelectionFlags,
                      fields.File,
                      fields.Index,
                      fields.StartTime,
                      fields.Duration,
                      fields.RelevantStart,
                      fields.RelevantEnd,
                      fields.RelevantValue,
                      fields.TagValue,
                      0,
                      nullptr};
    if (!segments.empty()) {
      sweep.SegmentCount = static_cast<std::int32_t>(segments.size());
      sweep.Segments = toolkit::AllocateRecords<SegmentRecord>(sweep.SegmentCount);
      std::copy(segments.begin(), segments.end(), sweep.Segments);
    }
    SweepTable& sweeps = workspace().Sweeps;
    *sweeps.Index[sweeps.Count++] = sweep;
  }

  /// A sweep of the file that was added last.
  void AddSweep(double duration, const std::vector<SegmentRecord>& segments = {}) {
    AddSweep(SweepFields{.File = static_cast<std::uint32_t>(workspace().Files.Count),
                         .Duration = duration,
                         .RelevantEnd = duration},
             segments);
  }

  void AddEvent(const EventRecord& event) {
    EventTable& events = workspace().Events;
    *events.Index[events.Count++] = event;
  }

  void AddLevel(const LevelFields& fields) {
    LevelTable& levels = workspace().Levels;
    constexpr std::int32_t kNowhere = 77777;  // must not show
    *levels.Index[levels.Count++] = {fields.LevelFlags,
                                     fields.PrecedingFlags,
                                     fields.FollowingFlags,
                                     fields.Sweep,
                                     kNowhere,
                                     kNowhere,
                                     fields.PreAmplitude,
                                     fields.PostAmplitude,
                                     fields.Amplitude,
                                     fields.Transition,
                                     fields.Duration,
                                     fields.Level,
                                     fields.TagValue};
  }

  /// The bytes that `write` leaves on the disk; `saved_` is what it returned.
  std::string Saved(TableWriter write) {
    OutputFile file;
    EXPECT_EQ(toolkit::CreateEmptyFile(Path().c_str()), 0);
    EXPECT_EQ(OpenOutputFile(Path().c_str(), file), 0);
    saved_ = write(Frame(), file);
    const std::int32_t closed = CloseOutputFile(file);
    EXPECT_TRUE(closed == 0 || !saved_);
    return BytesOf(Path());
  }
  std::string SavedEvents() { return Saved(SaveEventFile); }
  std::string SavedLevels(LevelFileChoice choice) {
    workspace().LevelFileType = choice;
    return Saved(SaveLevelFile);
  }

  /// Reads what was saved last into empty tables, as "&Open..." does.
  void ReadBack() {
    FreeAllTables(workspace());
    AllocateAllTables(Frame());
    shell().FileChoices.push_back(Path());
    EXPECT_EQ(ReadDataFile(Frame()), 0);
    EXPECT_THAT(Messages(), ::testing::IsEmpty());
  }

  bool saved_ = false;
};

/// What fails tells this.
inline const std::string kWritingFailed =
    "Ondrel encountered an error while writing to the file. Ondrel will not write any more data to "
    "the file.";
inline const std::string kNoMemoryForLine =
    "Insufficient memory for temperary string. You can increase the amount of memory available "
    "either select \"Settings\" in \"File\" menu, reduce \"Event entries\" or \"Sweep entries\" or "
    "quit some other programs.";
inline const std::string kJump =
    "Jump in level numbers. Unable to export levels as QUB event table.";

}  // namespace ondrel
