// Tables of random records: the bytes written are those of a plain printf, and what is read back is
// what was written, to the last digit.
#include <cmath>
#include <cstdarg>
#include <limits>

#include "support/random_seed.h"
#include "support/saving_test.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;

class RandomTablesTest : public SavingTest {
 protected:
  int Whole(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }
  double Part() { return std::uniform_real_distribution<double>(0.0, 1.0)(random_); }
  std::int32_t AnyInteger() {
    return Whole(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
  }
  /// Of either sign, over 24 decades, and 0 now and then.
  double AnyReal() {
    if (Whole(0, 9) == 0) return 0.0;
    const double size = std::pow(10.0, 24.0 * Part() - 14.0);
    return Whole(0, 1) == 0 ? size : -size;
  }
  double AnyTime() { return std::pow(10.0, 14.0 * Part() - 7.0); }
  std::uint8_t AnyByte() { return static_cast<std::uint8_t>(Whole(0, 255)); }

  FileRecord AnyFile() {
    const char* const keywords[] = {"pClamp6",  "Sampler",       "Exchange", "Pulse",
                                    "IgorWave", "RawContinuous", "Undefined"};
    FileRecord file = FileOfType(keywords[Whole(0, 6)], "C:\\some where\\file.dat");
    switch (file.Type) {
      case FileType::PClamp6:
        file.Header.PClamp6 = {AnyInteger(), AnyInteger(), AnyInteger(),
                               AnyByte(),    AnyByte(),    AnyReal()};
        break;
      case FileType::Sampler:
        file.Header.Sampler = {AnyInteger()};
        break;
      case FileType::Exchange:
        file.Header.Exchange = {AnyInteger()};
        break;
      case FileType::Pulse:
        file.Header.Pulse = {AnyInteger(), AnyInteger(), AnyInteger(),
                             AnyByte(),    AnyByte(),    AnyByte()};
        break;
      case FileType::RawContinuous:
        file.Header.RawContinuous = {AnyReal(),    AnyReal(), AnyReal(),
                                     AnyInteger(), AnyByte(), AnyByte()};
        break;
      case FileType::IgorWave:
        break;
      case FileType::Undefined:
        file.Name[0] = '\0';
        break;
    }
    return file;
  }

  void AddAnySweep(std::uint32_t index) {
    std::vector<SegmentRecord> segments(
        static_cast<std::size_t>(Whole(0, 3) == 0 ? Whole(20, 300) : Whole(0, 3)));
    for (SegmentRecord& segment : segments) segment = {AnyTime(), AnyTime()};
    AddSweep({.File = static_cast<std::uint32_t>(workspace().Files.Count),
              .Index = index,
              .Duration = AnyTime(),
              .RelevantStart = AnyTime(),
              .RelevantEnd = AnyTime(),
              .RelevantValue = AnyReal(),
              .TagValue = AnyReal()},
             segments);
  }

  /// In sweeps `first` to the last, in any order, as files give them.
  EventRecord AnyEvent(int first) {
    return {static_cast<std::uint32_t>(Whole(first, workspace().Sweeps.Count)),
            AnyTime(),
            AnyReal(),
            AnyReal(),
            AnyInteger(),
            AnyReal()};
  }

  void FillTables() {
    FreeAllTables(workspace());
    AllocateAllTables(Frame());
    const int files = Whole(1, 6);
    for (int file = 0; file < files; ++file) {
      const int first = workspace().Sweeps.Count + 1;
      AddFile(AnyFile());
      const int sweeps = Whole(0, 5);
      for (int i = 1; i <= sweeps; ++i) AddAnySweep(static_cast<std::uint32_t>(i));
      const int events = sweeps == 0 ? 0 : Whole(0, 40);
      for (int i = 0; i < events; ++i) AddEvent(AnyEvent(first));
      workspace().Files.Index[file]->SweepCount = sweeps;
    }
  }

  /// A level of random fields for every event.
  void FillLevels() {
    workspace().Levels.Count = 0;
    for (std::int32_t i = 0; i < workspace().Events.Count; ++i) {
      AddLevel({.LevelFlags = static_cast<std::uint32_t>(Whole(0, 3)),
                .Sweep = Event(i).Sweep,
                .PreAmplitude = AnyReal(),
                .PostAmplitude = AnyReal(),
                .Amplitude = AnyReal(),
                .Transition = AnyTime(),
                .Duration = AnyTime(),
                .Level = Whole(0, 1),
                .TagValue = AnyReal()});
    }
  }

  std::mt19937_64 random_{RandomSeed()};
};

// --- The plain way -------------------------------------------------------------------------------

__attribute__((format(printf, 2, 3))) void Print(std::string& text, const char* format, ...) {
  char line[2000];
  std::va_list values;
  va_start(values, format);
  text.append(line, static_cast<std::size_t>(std::vsnprintf(line, sizeof line, format, values)));
  va_end(values);
}

void PrintHeader(std::string& text, const FileRecord& file) {
  const FileHeader& h = file.Header;
  switch (file.Type) {
    case FileType::PClamp6:
      return Print(text, "pClamp6\t%s\t%d\t%d\t%d\t%d\t%d\t%.6E\r\n", file.Name, h.PClamp6.Int1,
                   h.PClamp6.Byte1 + 1, h.PClamp6.Byte2 + 1, h.PClamp6.Int2, h.PClamp6.Int3,
                   h.PClamp6.Real1);
    case FileType::Sampler:
      return Print(text, "Sampler\t%s\t%d\r\n", file.Name, h.Sampler.Int1);
    case FileType::Exchange:
      return Print(text, "Exchange\t%s\t%d\r\n", file.Name, h.Exchange.Int1);
    case FileType::Pulse:
      return Print(text, "Pulse\t%s\t%d\t%d\t%d\t%d\t%d\t%d\r\n", file.Name, h.Pulse.Byte1 + 1,
                   h.Pulse.Int1, h.Pulse.Byte2 + 1, h.Pulse.Int2, h.Pulse.Byte3 + 1, h.Pulse.Int3);
    case FileType::IgorWave:
      return Print(text, "IgorWave\t%s\r\n", file.Name);
    case FileType::RawContinuous:
      return Print(text, "RawContinuous\t%s\t%.2E\t%.2E\t%d\t%.2E\t%d\t%d\t\r\n", file.Name,
                   h.RawContinuous.Real1, h.RawContinuous.Real2, h.RawContinuous.Int1,
                   h.RawContinuous.Real3, h.RawContinuous.Byte1 + 1, h.RawContinuous.Byte2 + 1);
    case FileType::Undefined:
      return Print(text, "Undefined\r\n");
  }
}

/// `Transitions` are events or levels.
template <typename Transitions>
std::string PlainTable(const Workspace& workspace, const Transitions& transitions) {
  std::string text = "5\r\n";
  int base = 0;
  for (int file = 0; file < workspace.Files.Count; ++file) {
    const int count = workspace.Files.Index[file]->SweepCount;
    text += "File\r\n";
    PrintHeader(text, *workspace.Files.Index[file]);
    text += "Sweeps\r\n";
    for (int i = 0; i < count; ++i) {
      const SweepRecord& sweep = *workspace.Sweeps.Index[base + i];
      Print(text, "%d\t%.6f\t%.6f\t%.6f\t%.6E\t%.6E\r\n", i + 1, sweep.Duration,
            sweep.RelevantStart, sweep.RelevantEnd, sweep.RelevantValue, sweep.TagValue);
    }
    text += "Segments\r\n";
    for (int i = 0; i < count; ++i) {
      const SweepRecord& sweep = *workspace.Sweeps.Index[base + i];
      Print(text, "%d\t%d\t", i + 1, sweep.SegmentCount);
      for (int s = 0; s < sweep.SegmentCount; ++s) {
        Print(text, "%.6f\t%.6f\t", sweep.Segments[s].Start, sweep.Segments[s].End);
      }
      text += "\r\n";
    }
    text += "Events\r\n";
    for (int i = 0; i < transitions.Count; ++i) {
      const auto& row = *transitions.Index[i];
      const int number = static_cast<int>(row.Sweep) - base;
      if (number < 1 || number > count) continue;
      Print(text, "%d\t%.6f\t%.7E\t%.7E\t%d\t%.6E\r\n", number, row.Transition, row.PreAmplitude,
            row.PostAmplitude, row.Level, row.TagValue);
    }
    base += count;
  }
  return text;
}

std::string PlainDwells(const LevelTable& levels) {
  std::string text;
  int number = 0;
  for (int i = 0; i < levels.Count; ++i) {
    const LevelRecord& level = *levels.Index[i];
    if (level.LevelFlags != 0) continue;
    const bool goesOn =
        i > 0 && levels.Index[i - 1]->LevelFlags == 0 && levels.Index[i - 1]->Sweep == level.Sweep;
    if (!goesOn) {
      int dwells = 1;
      while (i + dwells < levels.Count && levels.Index[i + dwells]->LevelFlags == 0 &&
             levels.Index[i + dwells]->Sweep == level.Sweep) {
        ++dwells;
      }
      Print(text, "Segment: %d\tDwells: %d\r\n", ++number, dwells);
    }
    Print(text, "\t%d\t%.6f\r\n", level.Level, level.Duration);
  }
  return text;
}

constexpr int kTables = 40;

TEST_F(RandomTablesTest, AreWrittenAsPrintfWritesThem) {
  SCOPED_TRACE(RandomSeed());
  for (int table = 0; table < kTables; ++table) {
    FillTables();
    ASSERT_EQ(SavedEvents(), PlainTable(workspace(), workspace().Events));
    FillLevels();
    ASSERT_EQ(SavedLevels(LevelFileChoice::Ond), PlainTable(workspace(), workspace().Levels));
    ASSERT_EQ(SavedLevels(LevelFileChoice::Qub), PlainDwells(workspace().Levels));
  }
}

struct SavedSweep {
  SweepRecord Sweep;
  std::vector<SegmentRecord> Segments;
};

void ExpectSweepAsWritten(const SweepRecord& read, const SavedSweep& saved) {
  EXPECT_EQ(read.File, saved.Sweep.File);
  EXPECT_EQ(read.Index, saved.Sweep.Index);
  EXPECT_EQ(read.StartTime, 0.0);
  EXPECT_EQ(read.Duration, AsWritten(saved.Sweep.Duration, "%.6f"));
  EXPECT_EQ(read.RelevantStart, AsWritten(saved.Sweep.RelevantStart, "%.6f"));
  EXPECT_EQ(read.RelevantEnd, AsWritten(saved.Sweep.RelevantEnd, "%.6f"));
  EXPECT_EQ(read.RelevantValue, AsWritten(saved.Sweep.RelevantValue, "%.6E"));
  EXPECT_EQ(read.TagValue, AsWritten(saved.Sweep.TagValue, "%.6E"));
  ASSERT_EQ(read.SegmentCount, static_cast<std::int32_t>(saved.Segments.size()));
  EXPECT_EQ(read.Segments == nullptr, saved.Segments.empty());
  for (std::size_t i = 0; i < saved.Segments.size(); ++i) {
    EXPECT_EQ(read.Segments[i].Start, AsWritten(saved.Segments[i].Start, "%.6f"));
    EXPECT_EQ(read.Segments[i].End, AsWritten(saved.Segments[i].End, "%.6f"));
  }
}

template <typename Record>
void ExpectEventAsWritten(const EventRecord& read, const Record& saved) {
  EXPECT_EQ(read.Sweep, saved.Sweep);
  EXPECT_EQ(read.Transition, AsWritten(saved.Transition, "%.6f"));
  EXPECT_EQ(read.PreAmplitude, AsWritten(saved.PreAmplitude, "%.7E"));
  EXPECT_EQ(read.PostAmplitude, AsWritten(saved.PostAmplitude, "%.7E"));
  EXPECT_EQ(read.Level, saved.Level);
  EXPECT_EQ(read.TagValue, AsWritten(saved.TagValue, "%.6E"));
}

template <typename Record>
std::vector<Record> CopyOf(Record* const* index, std::int32_t count) {
  std::vector<Record> records;
  for (std::int32_t i = 0; i < count; ++i) records.push_back(*index[i]);
  return records;
}

std::vector<SavedSweep> CopyOf(const SweepTable& sweeps) {
  std::vector<SavedSweep> copies;
  for (std::int32_t i = 0; i < sweeps.Count; ++i) {
    const SweepRecord& sweep = *sweeps.Index[i];
    copies.push_back({sweep, {sweep.Segments, sweep.Segments + sweep.SegmentCount}});
  }
  return copies;
}

TEST_F(RandomTablesTest, ReadBackAsTheyWereWrittenAndSaveAlike) {
  SCOPED_TRACE(RandomSeed());
  for (int table = 0; table < kTables; ++table) {
    FillTables();
    const auto sweeps = CopyOf(workspace().Sweeps);
    const auto events = CopyOf(workspace().Events.Index, workspace().Events.Count);
    const std::int32_t files = workspace().Files.Count;
    const std::string saved = SavedEvents();
    ReadBack();
    ASSERT_THAT(Counts(), ElementsAre(files, sweeps.size(), events.size()));
    for (std::size_t i = 0; i < sweeps.size(); ++i) {
      ExpectSweepAsWritten(Sweep(static_cast<std::int32_t>(i)), sweeps[i]);
    }
    for (std::size_t i = 0; i < events.size(); ++i) {
      ExpectEventAsWritten(Event(static_cast<std::int32_t>(i)), events[i]);
    }
    ASSERT_EQ(SavedEvents(), saved);
  }
}

TEST_F(RandomTablesTest, LevelsReadBackAsEvents) {
  SCOPED_TRACE(RandomSeed());
  for (int table = 0; table < kTables; ++table) {
    FillTables();
    FillLevels();
    const auto levels = CopyOf(workspace().Levels.Index, workspace().Levels.Count);
    const std::string saved = SavedLevels(LevelFileChoice::Ond);
    ReadBack();
    ASSERT_EQ(workspace().Events.Count, static_cast<std::int32_t>(levels.size()));
    for (std::size_t i = 0; i < levels.size(); ++i) {
      ExpectEventAsWritten(Event(static_cast<std::int32_t>(i)), levels[i]);
    }
    ASSERT_EQ(SavedEvents(), saved);
  }
}

}  // namespace
}  // namespace ondrel
