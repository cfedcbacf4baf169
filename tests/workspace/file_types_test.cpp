#include "workspace/file_types.h"

#include <string>
#include <string_view>

#include "support/saving_test.h"

namespace ondrel {
namespace {

/// Reads a header and tells what was left unread.
struct HeaderReading {
  FileRecord File{};
  bool Good = false;
  std::string Rest;
};

HeaderReading ReadHeaderOf(const char* keyword, std::string_view text, std::int32_t version) {
  HeaderReading reading;
  TextScanner scanner{text.data(), text.data() + text.size()};
  reading.Good = FindFileType(keyword)->ReadHeader(reading.File, scanner, version);
  reading.Rest = {scanner.Cursor, scanner.End};
  return reading;
}

TEST(FileTypes, EveryKeywordHasItsType) {
  EXPECT_EQ(FindFileType("pClamp6")->Type, FileType::PClamp6);
  EXPECT_EQ(FindFileType("ABF")->Type, FileType::PClamp6);
  EXPECT_EQ(FindFileType("Sampler")->Type, FileType::Sampler);
  EXPECT_EQ(FindFileType("Exchange")->Type, FileType::Exchange);
  EXPECT_EQ(FindFileType("Pulse")->Type, FileType::Pulse);
  EXPECT_EQ(FindFileType("IgorWave")->Type, FileType::IgorWave);
  EXPECT_EQ(FindFileType("RawContinuous")->Type, FileType::RawContinuous);
  EXPECT_EQ(FindFileType("Undefined")->Type, FileType::Undefined);
}

TEST(FileTypes, TypesHaveTheNumbersThatFilesKeep) {
  EXPECT_EQ(static_cast<int>(FileType::PClamp6), 0);
  EXPECT_EQ(static_cast<int>(FileType::Sampler), 1);
  EXPECT_EQ(static_cast<int>(FileType::Exchange), 2);
  EXPECT_EQ(static_cast<int>(FileType::Pulse), 3);
  EXPECT_EQ(static_cast<int>(FileType::IgorWave), 4);
  EXPECT_EQ(static_cast<int>(FileType::RawContinuous), 5);
  EXPECT_EQ(static_cast<int>(FileType::Undefined), 6);
}

TEST(FileTypes, KeywordsAreComparedWithCase) {
  for (const char* keyword : {"PClamp6", "pclamp6", "abf", "undefined", "", "pClamp60", "pClamp"}) {
    EXPECT_EQ(FindFileType(keyword), nullptr) << keyword;
  }
}

TEST(FileTypes, AbfIsWrittenAsPClamp6) {
  EXPECT_STREQ(FileTypeKeyword(FindFileType("ABF")->Type), "pClamp6");
  for (const char* keyword :
       {"pClamp6", "Sampler", "Exchange", "Pulse", "IgorWave", "RawContinuous", "Undefined"}) {
    EXPECT_STREQ(FileTypeKeyword(FindFileType(keyword)->Type), keyword);
  }
}

TEST(FileTypes, OnlyUndefinedNamesNoFile) {
  for (const char* keyword :
       {"pClamp6", "ABF", "Sampler", "Exchange", "Pulse", "IgorWave", "RawContinuous"}) {
    EXPECT_TRUE(FindFileType(keyword)->NamesFile) << keyword;
  }
  EXPECT_FALSE(FindFileType("Undefined")->NamesFile);
}

void ExpectPClamp6(const PClamp6Header& header) {
  EXPECT_EQ(header.Int1, 11);
  EXPECT_EQ(header.Byte1, 1);
  EXPECT_EQ(header.Byte2, 2);
  EXPECT_EQ(header.Int2, -12);
  EXPECT_EQ(header.Int3, 13);
  EXPECT_EQ(header.Real1, 1.5e-3);
}

TEST(FileTypes, PClamp6FromVersion4HasSixTokens) {
  for (const char* keyword : {"pClamp6", "ABF"}) {
    const HeaderReading reading = ReadHeaderOf(keyword, "11 2 3 -12 13 1.5E-3\tSweeps", 4);
    EXPECT_TRUE(reading.Good);
    ExpectPClamp6(reading.File.Header.PClamp6);
    EXPECT_EQ(reading.Rest, "\tSweeps");
  }
}

TEST(FileTypes, PClamp6BelowVersion4SkipsTwoTokensInFront) {
  const HeaderReading reading = ReadHeaderOf("pClamp6", "x y\t11 2 3 -12 13 1.5E-3\tSweeps", 3);
  EXPECT_TRUE(reading.Good);
  ExpectPClamp6(reading.File.Header.PClamp6);
  EXPECT_EQ(reading.Rest, "\tSweeps");
}

TEST(FileTypes, SamplerFromVersion4HasOneToken) {
  const HeaderReading reading = ReadHeaderOf("Sampler", "11 Sweeps", 5);
  EXPECT_TRUE(reading.Good);
  EXPECT_EQ(reading.File.Header.Sampler.Int1, 11);
  EXPECT_EQ(reading.Rest, " Sweeps");
}

TEST(FileTypes, SamplerBelowVersion4SkipsTwoTokensBehind) {
  const HeaderReading reading = ReadHeaderOf("Sampler", "11 x y Sweeps", 3);
  EXPECT_TRUE(reading.Good);
  EXPECT_EQ(reading.File.Header.Sampler.Int1, 11);
  EXPECT_EQ(reading.Rest, " Sweeps");
}

TEST(FileTypes, ExchangeHasOneTokenInEveryVersion) {
  for (const std::int32_t version : {3, 4, 99}) {
    const HeaderReading reading = ReadHeaderOf("Exchange", "-11 Sweeps", version);
    EXPECT_TRUE(reading.Good);
    EXPECT_EQ(reading.File.Header.Exchange.Int1, -11);
    EXPECT_EQ(reading.Rest, " Sweeps");
  }
}

TEST(FileTypes, PulseHasThreePairsInEveryVersion) {
  for (const std::int32_t version : {3, 4}) {
    const HeaderReading reading = ReadHeaderOf("Pulse", "1 11 2 12 256 13 Sweeps", version);
    EXPECT_TRUE(reading.Good);
    const PulseHeader& header = reading.File.Header.Pulse;
    EXPECT_EQ(header.Byte1, 0);
    EXPECT_EQ(header.Int1, 11);
    EXPECT_EQ(header.Byte2, 1);
    EXPECT_EQ(header.Int2, 12);
    EXPECT_EQ(header.Byte3, 255);
    EXPECT_EQ(header.Int3, 13);
    EXPECT_EQ(reading.Rest, " Sweeps");
  }
}

TEST(FileTypes, IgorWaveAndUndefinedHaveNoTokens) {
  for (const char* keyword : {"IgorWave", "Undefined"}) {
    for (const std::int32_t version : {3, 4}) {
      const HeaderReading reading = ReadHeaderOf(keyword, "Sweeps", version);
      EXPECT_TRUE(reading.Good);
      EXPECT_EQ(reading.Rest, "Sweeps");
    }
  }
}

void ExpectRawContinuous(const RawContinuousHeader& header) {
  EXPECT_EQ(header.Real1, 1.0);
  EXPECT_EQ(header.Real2, 2.5);
  EXPECT_EQ(header.Int1, 11);
  EXPECT_EQ(header.Real3, -3.0);
  EXPECT_EQ(header.Byte1, 3);
  EXPECT_EQ(header.Byte2, 4);
}

TEST(FileTypes, RawContinuousFromVersion4HasSixTokens) {
  const HeaderReading reading = ReadHeaderOf("RawContinuous", "1.0 2.5 11 -3 4 5\tSweeps", 4);
  EXPECT_TRUE(reading.Good);
  ExpectRawContinuous(reading.File.Header.RawContinuous);
  EXPECT_EQ(reading.Rest, "\tSweeps");
}

TEST(FileTypes, RawContinuousBelowVersion4SkipsOneTokenInFront) {
  const HeaderReading reading = ReadHeaderOf("RawContinuous", "x 1.0 2.5 11 -3 4 5\tSweeps", 3);
  EXPECT_TRUE(reading.Good);
  ExpectRawContinuous(reading.File.Header.RawContinuous);
  EXPECT_EQ(reading.Rest, "\tSweeps");
}

TEST(FileTypes, ABadTokenAnywhereInAHeaderFails) {
  struct Row {
    const char* Keyword;
    std::string_view Tokens;
  };
  for (const Row& row : {Row{"pClamp6", "1 1 1 1 1 1"}, Row{"Sampler", "1"}, Row{"Exchange", "1"},
                         Row{"Pulse", "1 1 1 1 1 1"}, Row{"RawContinuous", "1 1 1 1 1 1"}}) {
    EXPECT_TRUE(ReadHeaderOf(row.Keyword, row.Tokens, 4).Good);
    for (std::size_t at = 0; at < row.Tokens.size(); at += 2) {
      std::string tokens(row.Tokens);
      tokens[at] = 'x';
      EXPECT_FALSE(ReadHeaderOf(row.Keyword, tokens, 4).Good) << row.Keyword << " " << tokens;
    }
  }
}

TEST(FileTypes, ANumberLessOneKeepsItsLowestEightBits) {
  EXPECT_EQ(ReadHeaderOf("Pulse", "0 0 0 0 0 0", 4).File.Header.Pulse.Byte1, 255);
  EXPECT_EQ(ReadHeaderOf("Pulse", "258 0 0 0 0 0", 4).File.Header.Pulse.Byte1, 1);
  EXPECT_EQ(ReadHeaderOf("Pulse", "-2147483648 0 0 0 0 0", 4).File.Header.Pulse.Byte1, 255);
}

TEST(FileTypes, AHeaderCutShortReadsAsZeros) {
  const HeaderReading reading = ReadHeaderOf("pClamp6", "11", 4);
  EXPECT_TRUE(reading.Good);
  EXPECT_EQ(reading.File.Header.PClamp6.Int1, 11);
  EXPECT_EQ(reading.File.Header.PClamp6.Real1, 0.0);
}

TEST(FileTypes, AnUndefinedFileHasNoNameAndItsSweepCount) {
  const FileRecord file = UndefinedFile(7);
  EXPECT_EQ(file.Type, FileType::Undefined);
  EXPECT_STREQ(file.Name, "");
  EXPECT_EQ(file.SweepCount, 7);
  EXPECT_EQ(file.ReadHeader, FindFileType("Undefined")->ReadHeader);
  EXPECT_EQ(file.WriteHeader, FindFileType("Undefined")->WriteHeader);
}

class FileHeaderLineTest : public SavingTest {
 protected:
  /// The bytes that the type's writer makes of a file.
  std::string LineOf(const FileRecord& file) {
    OutputFile out;
    EXPECT_EQ(toolkit::CreateEmptyFile(Path().c_str()), 0);
    EXPECT_EQ(OpenOutputFile(Path().c_str(), out), 0);
    EXPECT_EQ(file.WriteHeader(file, out), 0);
    EXPECT_EQ(CloseOutputFile(out), 0);
    return BytesOf(Path());
  }
};

TEST_F(FileHeaderLineTest, PClamp6HasSixFieldsBehindTheName) {
  FileRecord file = FileOfType("pClamp6", "C:\\data\\a b.abf");
  file.Header.PClamp6 = {
      .Int1 = 11, .Int2 = -12, .Int3 = 13, .Byte1 = 1, .Byte2 = 2, .Real1 = 1.5e-3};
  EXPECT_EQ(LineOf(file), "pClamp6\tC:\\data\\a b.abf\t11\t2\t3\t-12\t13\t1.500000E-03\r\n");
  file.WriteHeader = FindFileType("ABF")->WriteHeader;
  EXPECT_EQ(LineOf(file).substr(0, 8), "pClamp6\t");
}

TEST_F(FileHeaderLineTest, SamplerAndExchangeHaveOneField) {
  FileRecord file = FileOfType("Sampler", "s");
  file.Header.Sampler = {.Int1 = -11};
  EXPECT_EQ(LineOf(file), "Sampler\ts\t-11\r\n");
  file = FileOfType("Exchange", "e");
  file.Header.Exchange = {.Int1 = 2147483647};
  EXPECT_EQ(LineOf(file), "Exchange\te\t2147483647\r\n");
}

TEST_F(FileHeaderLineTest, PulseHasThreePairsWithTheByteInFront) {
  FileRecord file = FileOfType("Pulse", "p");
  file.Header.Pulse = {.Int1 = 11, .Int2 = 12, .Int3 = 13, .Byte1 = 0, .Byte2 = 1, .Byte3 = 2};
  EXPECT_EQ(LineOf(file), "Pulse\tp\t1\t11\t2\t12\t3\t13\r\n");
}

TEST_F(FileHeaderLineTest, IgorWaveHasItsNameAndUndefinedNothing) {
  EXPECT_EQ(LineOf(FileOfType("IgorWave", "wave0")), "IgorWave\twave0\r\n");
  EXPECT_EQ(LineOf(FileOfType("Undefined", "not written")), "Undefined\r\n");
  EXPECT_EQ(LineOf(UndefinedFile(3)), "Undefined\r\n");
}

TEST_F(FileHeaderLineTest, RawContinuousHasATabBehindItsLastField) {
  FileRecord file = FileOfType("RawContinuous", "r");
  file.Header.RawContinuous = {
      .Real1 = 1234.5, .Real2 = 2.5, .Real3 = -3e-12, .Int1 = 11, .Byte1 = 3, .Byte2 = 4};
  EXPECT_EQ(LineOf(file), "RawContinuous\tr\t1.23E+03\t2.50E+00\t11\t-3.00E-12\t4\t5\t\r\n");
}

TEST_F(FileHeaderLineTest, AByteOf255IsWrittenAs256) {
  FileRecord file = FileOfType("Pulse", "p");
  file.Header.Pulse = {.Int1 = 0, .Int2 = 0, .Int3 = 0, .Byte1 = 255, .Byte2 = 255, .Byte3 = 255};
  EXPECT_EQ(LineOf(file), "Pulse\tp\t256\t0\t256\t0\t256\t0\r\n");
}

TEST_F(FileHeaderLineTest, AnEmptyNameKeepsItsPlace) {
  FileRecord file = FileOfType("Sampler", "");
  EXPECT_EQ(LineOf(file), "Sampler\t\t0\r\n");
}

TEST_F(FileHeaderLineTest, AFailedFileGivesThePlatformsCode) {
  for (const char* keyword :
       {"pClamp6", "Sampler", "Exchange", "Pulse", "IgorWave", "RawContinuous", "Undefined"}) {
    OutputFile out;
    const std::int32_t code = OpenOutputFile((Path() + "/none").c_str(), out);
    ASSERT_NE(code, 0);
    const FileRecord file = FileOfType(keyword, "n");
    EXPECT_EQ(file.WriteHeader(file, out), code) << keyword;
  }
}

}  // namespace
}  // namespace ondrel
