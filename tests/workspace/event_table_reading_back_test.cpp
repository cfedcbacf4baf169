// What is written, read again: what stands, what is lost, and that a second save changes nothing.
#include <cstring>
#include <string>

#include "support/saving_test.h"
#include "support/version3_table.h"

namespace ondrel {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class ReadingBackTest : public SavingTest {
 protected:
  void AddOneSweepAndEvent() {
    AddSweep(2.0, {{0.0, 2.0}});
    AddEvent({static_cast<std::uint32_t>(workspace().Sweeps.Count), 0.5, 0.0, 1e-12, 1, 0.0});
  }

  FileRecord SaveAndReadBackFile(const FileRecord& file) {
    AddFile(file);
    AddOneSweepAndEvent();
    SavedEvents();
    ReadBack();
    return File(0);
  }
};

TEST_F(ReadingBackTest, TheVersionIs5) {
  ASSERT_TRUE(Parse(Table(Group(SweepRows(1), "1 0\r\n", EventRow(1)), 3)));
  EXPECT_THAT(SavedEvents(), StartsWith("5\r\nFile\r\n"));
}

TEST_F(ReadingBackTest, TheStartTimeOfASweepIsLostAndItsDurationStands) {
  AddFile(FileOfType("Undefined", ""));
  AddSweep({.File = 1, .Index = 1, .StartTime = 3.5, .Duration = 2.0}, {{3.5, 5.5}});
  AddEvent({1, 0.5, 0.0, 1e-12, 1, 0.0});
  SavedEvents();
  ReadBack();
  EXPECT_EQ(Sweep(0).StartTime, 0.0);
  EXPECT_EQ(Sweep(0).Duration, 2.0);
  ASSERT_EQ(Sweep(0).SegmentCount, 1);
  EXPECT_EQ(Sweep(0).Segments[0].Start, 3.5) << "segments are taken for what they say";
  EXPECT_EQ(Sweep(0).Segments[0].End, 5.5);
}

TEST_F(ReadingBackTest, SweepsAreNumberedAnewFrom1InEachFile) {
  AddFile(FileOfType("Undefined", ""));
  AddSweep({.File = 1, .Index = 17}, {});
  AddSweep({.File = 1, .Index = 4}, {});
  AddFile(FileOfType("Undefined", ""));
  AddSweep({.File = 2, .Index = 9}, {});
  SavedEvents();
  ReadBack();
  EXPECT_EQ(Sweep(0).Index, 1u);
  EXPECT_EQ(Sweep(1).Index, 2u);
  EXPECT_EQ(Sweep(2).Index, 1u);
  EXPECT_EQ(Sweep(2).File, 2u);
}

TEST_F(ReadingBackTest, AbfComesBackAsPClamp6) {
  ASSERT_TRUE(
      Parse("5 File ABF a.abf\t11 2 3 12 13 0.5 Sweeps 1 1 0 1 0 0 Segments 1 0 Events "
            "1 0.5 0 1 1 0"));
  const std::string saved = SavedEvents();
  EXPECT_THAT(saved, HasSubstr("File\r\npClamp6\ta.abf\t11\t2\t3\t12\t13\t5.000000E-01\r\n"));
  EXPECT_THAT(saved, Not(HasSubstr("ABF")));
  ReadBack();
  EXPECT_EQ(File(0).Type, FileType::PClamp6);
}

TEST_F(ReadingBackTest, FilesOfVersion2AreWrittenOneByOneAndTheWordFilesNever) {
  ASSERT_TRUE(
      Parse("2 Files 2 1 Sweeps 1 0 1 0 1 0 0 2 1 1 0 1 0 0 3 2 1 0 1 0 0 "
            "Events 1 0.5 0 1 1 0 3 0.5 0 1 1 0"));
  const std::string saved = SavedEvents();
  EXPECT_THAT(saved, Not(HasSubstr("Files")));
  ReadBack();
  EXPECT_THAT(Counts(), ElementsAre(2, 3, 2));
  EXPECT_EQ(File(0).SweepCount, 2);
  EXPECT_EQ(File(1).SweepCount, 1);
  EXPECT_EQ(Event(1).Sweep, 3u);
}

/// The reader of the older form gives every row a file of its own, and there is but one.
TEST_F(ReadingBackTest, OfVersion2WithoutFilesOnlyTheFirstSweepIsKept) {
  ASSERT_TRUE(Parse("2 Sweeps 1 0 1 0 1 0 0 2 1 3 0 1 0 0 Events 1 0.5 0 1 1 0 2 0.5 0 1 1 0"));
  SavedEvents();
  ReadBack();
  EXPECT_THAT(Counts(), ElementsAre(1, 1, 1));
}

TEST_F(ReadingBackTest, ABareListIsKeptWhole) {
  ASSERT_TRUE(Parse("1 0.5 0 0 1e-12 0 1\n1 0.75 1e-12 0 0 0 0\n3 0.25 0 0 1e-12 0 1\n"));
  SavedEvents();
  ReadBack();
  EXPECT_THAT(Counts(), ElementsAre(1, 3, 3));
  EXPECT_EQ(File(0).Type, FileType::Undefined);
  EXPECT_EQ(Sweep(0).Duration, 0.75);
  EXPECT_EQ(Sweep(0).Segments[0].End, 0.75);
  EXPECT_EQ(Event(2).Sweep, 3u);
}

TEST_F(ReadingBackTest, TimesKeepSixDecimals) {
  AddFile(FileOfType("Undefined", ""));
  AddSweep({.File = 1,
            .Duration = 1234.56789012,
            .RelevantStart = 0.0000004,
            .RelevantEnd = 1000.0000006},
           {{0.1234567, 7.6543214}});
  AddEvent({1, 0.98765432, 0.0, 0.0, 1, 0.0});
  SavedEvents();
  ReadBack();
  EXPECT_EQ(Sweep(0).Duration, 1234.567890);
  EXPECT_EQ(Sweep(0).RelevantStart, 0.0);
  EXPECT_EQ(Sweep(0).RelevantEnd, 1000.000001);
  EXPECT_EQ(Sweep(0).Segments[0].Start, 0.123457);
  EXPECT_EQ(Sweep(0).Segments[0].End, 7.654321);
  EXPECT_EQ(Event(0).Transition, 0.987654);
}

TEST_F(ReadingBackTest, AmplitudesKeepEightDigitsAndTagsSeven) {
  AddFile(FileOfType("Undefined", ""));
  AddSweep({.File = 1, .RelevantValue = 123.456789, .TagValue = -0.00123456789}, {});
  AddEvent({1, 0.5, 1.234567891e-12, -9.876543219e-12, 1, 98765.43219});
  SavedEvents();
  ReadBack();
  EXPECT_EQ(Event(0).PreAmplitude, 1.2345679e-12);
  EXPECT_EQ(Event(0).PostAmplitude, -9.8765432e-12);
  EXPECT_EQ(Event(0).TagValue, 98765.43);
  EXPECT_EQ(Sweep(0).RelevantValue, 123.4568);
  EXPECT_EQ(Sweep(0).TagValue, -0.001234568);
}

TEST_F(ReadingBackTest, SelectionFlagsAreNotSaved) {
  AddFile(FileOfType("Undefined", ""));
  AddSweep({.SelectionFlags = 0xFF, .File = 1, .Duration = 1.0, .RelevantEnd = 1.0}, {{0.0, 1.0}});
  AddEvent({1, 0.5, 0.0, 0.0, 1, 0.0});
  SavedEvents();
  ReadBack();
  EXPECT_EQ(Sweep(0).SelectionFlags, 0u) << "no filter is set";
}

// --- Headers -------------------------------------------------------------------------------------

TEST_F(ReadingBackTest, APClamp6HeaderComesBack) {
  FileRecord file = FileOfType("pClamp6", "C:\\data\\a b.abf");
  file.Header.PClamp6 = {
      .Int1 = 11, .Int2 = -12, .Int3 = 13, .Byte1 = 0, .Byte2 = 255, .Real1 = 1.23456789e-3};
  const FileRecord read = SaveAndReadBackFile(file);
  EXPECT_STREQ(read.Name, "C:\\data\\a b.abf");
  EXPECT_EQ(read.Type, FileType::PClamp6);
  EXPECT_EQ(read.Header.PClamp6.Int1, 11);
  EXPECT_EQ(read.Header.PClamp6.Int2, -12);
  EXPECT_EQ(read.Header.PClamp6.Int3, 13);
  EXPECT_EQ(read.Header.PClamp6.Byte1, 0);
  EXPECT_EQ(read.Header.PClamp6.Byte2, 255);
  EXPECT_EQ(read.Header.PClamp6.Real1, 1.234568e-3);
}

TEST_F(ReadingBackTest, ASamplerHeaderComesBack) {
  FileRecord file = FileOfType("Sampler", "one");
  file.Header.Sampler = {.Int1 = -2147483647};
  const FileRecord read = SaveAndReadBackFile(file);
  EXPECT_EQ(read.Type, FileType::Sampler);
  EXPECT_EQ(read.Header.Sampler.Int1, -2147483647);
}

TEST_F(ReadingBackTest, AnExchangeHeaderComesBack) {
  FileRecord file = FileOfType("Exchange", "one");
  file.Header.Exchange = {.Int1 = 2147483647};
  const FileRecord read = SaveAndReadBackFile(file);
  EXPECT_EQ(read.Type, FileType::Exchange);
  EXPECT_EQ(read.Header.Exchange.Int1, 2147483647);
}

TEST_F(ReadingBackTest, APulseHeaderComesBack) {
  FileRecord file = FileOfType("Pulse", "one");
  file.Header.Pulse = {.Int1 = 1, .Int2 = -2, .Int3 = 3, .Byte1 = 4, .Byte2 = 255, .Byte3 = 0};
  const FileRecord read = SaveAndReadBackFile(file);
  EXPECT_EQ(read.Type, FileType::Pulse);
  EXPECT_EQ(read.Header.Pulse.Int1, 1);
  EXPECT_EQ(read.Header.Pulse.Int2, -2);
  EXPECT_EQ(read.Header.Pulse.Int3, 3);
  EXPECT_EQ(read.Header.Pulse.Byte1, 4);
  EXPECT_EQ(read.Header.Pulse.Byte2, 255);
  EXPECT_EQ(read.Header.Pulse.Byte3, 0);
}

TEST_F(ReadingBackTest, AnIgorWaveKeepsItsName) {
  const FileRecord read = SaveAndReadBackFile(FileOfType("IgorWave", "wave 0"));
  EXPECT_EQ(read.Type, FileType::IgorWave);
  EXPECT_STREQ(read.Name, "wave 0");
}

TEST_F(ReadingBackTest, TheRealsOfARawContinuousFileKeepThreeDigits) {
  FileRecord file = FileOfType("RawContinuous", "raw.dat");
  file.Header.RawContinuous = {
      .Real1 = 1234.5, .Real2 = -0.00098765, .Real3 = 2e-12, .Int1 = 7, .Byte1 = 1, .Byte2 = 255};
  const FileRecord read = SaveAndReadBackFile(file);
  EXPECT_THAT(BytesOf(Path()), HasSubstr("RawContinuous\traw.dat\t1.23E+03\t-9.88E-04\t7\t2.00E-12"
                                         "\t2\t256\t\r\nSweeps\r\n"));
  EXPECT_EQ(read.Type, FileType::RawContinuous);
  EXPECT_EQ(read.Header.RawContinuous.Real1, 1230.0);
  EXPECT_EQ(read.Header.RawContinuous.Real2, -0.000988);
  EXPECT_EQ(read.Header.RawContinuous.Real3, 2e-12);
  EXPECT_EQ(read.Header.RawContinuous.Int1, 7);
  EXPECT_EQ(read.Header.RawContinuous.Byte1, 1);
  EXPECT_EQ(read.Header.RawContinuous.Byte2, 255);
}

TEST_F(ReadingBackTest, AnUndefinedFileHasNoName) {
  FileRecord file = FileOfType("Undefined", "left from elsewhere");
  const FileRecord read = SaveAndReadBackFile(file);
  EXPECT_EQ(read.Type, FileType::Undefined);
  EXPECT_STREQ(read.Name, "");
}

TEST_F(ReadingBackTest, TheLongestNameIsKeptWhole) {
  const std::string name = "C:\\" + std::string(256, 'n');
  const FileRecord read = SaveAndReadBackFile(FileOfType("IgorWave", name.c_str()));
  EXPECT_EQ(read.Name, name);
  EXPECT_EQ(std::strlen(read.Name), kPathSize - 1);
}

TEST_F(ReadingBackTest, FilesOfAllTypesStandInOneTable) {
  const char* const keywords[] = {"pClamp6",  "Sampler",       "Exchange", "Pulse",
                                  "IgorWave", "RawContinuous", "Undefined"};
  for (const char* keyword : keywords) {
    AddFile(FileOfType(keyword, keyword));
    AddOneSweepAndEvent();
  }
  const std::string saved = SavedEvents();
  ReadBack();
  EXPECT_THAT(Counts(), ElementsAre(7, 7, 7));
  for (std::int32_t i = 0; i < 7; ++i) {
    EXPECT_STREQ(FileTypeKeyword(File(i).Type), keywords[i]);
    EXPECT_EQ(Event(i).Sweep, static_cast<std::uint32_t>(i) + 1);
  }
  EXPECT_EQ(SavedEvents(), saved);
}

// --- Levels --------------------------------------------------------------------------------------

TEST_F(ReadingBackTest, ALevelFileReadsAsATableWhoseEventsAreTheLevels) {
  AddFile(FileOfType("IgorWave", "wave"));
  AddSweep(1.0, {{0.0, 1.0}});
  AddSweep(2.0, {{0.0, 2.0}});
  AddLevel({.LevelFlags = 1,
            .Sweep = 1,
            .PreAmplitude = 0.5e-12,
            .PostAmplitude = 1.234567891e-12,
            .Amplitude = 9.0,
            .Transition = 0.1234567,
            .Duration = 0.5,
            .Level = 1,
            .TagValue = 3.0});
  AddLevel({.Sweep = 2, .Transition = 0.25, .Duration = 0.5, .Level = -4, .TagValue = 0.0});
  const std::string saved = SavedLevels(LevelFileChoice::Ond);
  ReadBack();
  EXPECT_THAT(Counts(), ElementsAre(1, 2, 2));
  EXPECT_EQ(Event(0).Sweep, 1u);
  EXPECT_EQ(Event(0).Transition, 0.123457);
  EXPECT_EQ(Event(0).PreAmplitude, 0.5e-12);
  EXPECT_EQ(Event(0).PostAmplitude, 1.2345679e-12);
  EXPECT_EQ(Event(0).Level, 1);
  EXPECT_EQ(Event(0).TagValue, 3.0);
  EXPECT_EQ(Event(1).Sweep, 2u);
  EXPECT_EQ(Event(1).Level, -4);
  EXPECT_EQ(SavedEvents(), saved);
}

}  // namespace
}  // namespace ondrel
