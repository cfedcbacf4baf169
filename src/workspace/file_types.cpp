#include "workspace/file_types.h"

#include <cstring>

#include "workspace/output_file.h"
#include "workspace/row_scanner.h"
#include "workspace/row_text.h"

namespace ondrel {
namespace {

/// Tables older than this carry tokens in the headers that nothing uses.
constexpr std::int32_t kVersionWithoutFillers = 4;

void SkipFillers(TextScanner& scanner, std::int32_t version, int count) {
  if (version >= kVersionWithoutFillers) return;
  char token[kTokenLimit];
  for (int filler = 0; filler < count; ++filler) NextToken(scanner, token, sizeof token);
}

/// A 1-based number in the table, kept 0-based in eight bits.
bool ReadNumberLessOne(TextScanner& scanner, std::uint8_t* dest) {
  std::int32_t number;
  if (ReadInteger(scanner, &number) != 0) return false;
  *dest = static_cast<std::uint8_t>(static_cast<std::uint32_t>(number) - 1);
  return true;
}

bool ReadWhole(TextScanner& scanner, std::int32_t* dest) {
  return ReadInteger(scanner, dest) == 0;
}

bool ReadNumber(TextScanner& scanner, double* dest) {
  return ReadReal(scanner, dest) == 0;
}

/// Keyword and name, with which the line of every type but Undefined begins.
RowText BeginHeader(const FileRecord& file) {
  static_assert(kPathSize <= kNumberTextSize, "a name has room in a field");
  RowText row;
  AppendText(row, FileTypeKeyword(file.Type));
  AppendText(row, file.Name);
  return row;
}

void AppendNumberPlusOne(RowText& row, std::uint8_t value) {
  AppendInteger(row, value + 1);
}

bool ReadPClamp6Header(FileRecord& file, TextScanner& scanner, std::int32_t version) {
  SkipFillers(scanner, version, 2);
  PClamp6Header header{};
  const bool good = ReadWhole(scanner, &header.Int1) && ReadNumberLessOne(scanner, &header.Byte1) &&
                    ReadNumberLessOne(scanner, &header.Byte2) && ReadWhole(scanner, &header.Int2) &&
                    ReadWhole(scanner, &header.Int3) && ReadNumber(scanner, &header.Real1);
  file.Header.PClamp6 = header;
  return good;
}

std::int32_t WritePClamp6Header(const FileRecord& file, OutputFile& out) {
  const PClamp6Header& header = file.Header.PClamp6;
  RowText row = BeginHeader(file);
  AppendInteger(row, header.Int1);
  AppendNumberPlusOne(row, header.Byte1);
  AppendNumberPlusOne(row, header.Byte2);
  AppendInteger(row, header.Int2);
  AppendInteger(row, header.Int3);
  AppendReal(row, header.Real1, 6, 'E');
  return WriteLine(out, TextOf(row));
}

bool ReadSamplerHeader(FileRecord& file, TextScanner& scanner, std::int32_t version) {
  SamplerHeader header{};
  const bool good = ReadWhole(scanner, &header.Int1);
  if (good) SkipFillers(scanner, version, 2);
  file.Header.Sampler = header;
  return good;
}

std::int32_t WriteSamplerHeader(const FileRecord& file, OutputFile& out) {
  RowText row = BeginHeader(file);
  AppendInteger(row, file.Header.Sampler.Int1);
  return WriteLine(out, TextOf(row));
}

bool ReadExchangeHeader(FileRecord& file, TextScanner& scanner, std::int32_t) {
  ExchangeHeader header{};
  const bool good = ReadWhole(scanner, &header.Int1);
  file.Header.Exchange = header;
  return good;
}

std::int32_t WriteExchangeHeader(const FileRecord& file, OutputFile& out) {
  RowText row = BeginHeader(file);
  AppendInteger(row, file.Header.Exchange.Int1);
  return WriteLine(out, TextOf(row));
}

bool ReadPulseHeader(FileRecord& file, TextScanner& scanner, std::int32_t) {
  PulseHeader header{};
  const bool good = ReadNumberLessOne(scanner, &header.Byte1) && ReadWhole(scanner, &header.Int1) &&
                    ReadNumberLessOne(scanner, &header.Byte2) && ReadWhole(scanner, &header.Int2) &&
                    ReadNumberLessOne(scanner, &header.Byte3) && ReadWhole(scanner, &header.Int3);
  file.Header.Pulse = header;
  return good;
}

std::int32_t WritePulseHeader(const FileRecord& file, OutputFile& out) {
  const PulseHeader& header = file.Header.Pulse;
  RowText row = BeginHeader(file);
  AppendNumberPlusOne(row, header.Byte1);
  AppendInteger(row, header.Int1);
  AppendNumberPlusOne(row, header.Byte2);
  AppendInteger(row, header.Int2);
  AppendNumberPlusOne(row, header.Byte3);
  AppendInteger(row, header.Int3);
  return WriteLine(out, TextOf(row));
}

bool ReadRawContinuousHeader(FileRecord& file, TextScanner& scanner, std::int32_t version) {
  SkipFillers(scanner, version, 1);
  RawContinuousHeader header{};
  const bool good = ReadNumber(scanner, &header.Real1) && ReadNumber(scanner, &header.Real2) &&
                    ReadWhole(scanner, &header.Int1) && ReadNumber(scanner, &header.Real3) &&
                    ReadNumberLessOne(scanner, &header.Byte1) &&
                    ReadNumberLessOne(scanner, &header.Byte2);
  file.Header.RawContinuous = header;
  return good;
}

/// A tab stands behind the last value, too.
std::int32_t WriteRawContinuousHeader(const FileRecord& file, OutputFile& out) {
  const RawContinuousHeader& header = file.Header.RawContinuous;
  RowText row = BeginHeader(file);
  AppendReal(row, header.Real1, 2, 'E');
  AppendReal(row, header.Real2, 2, 'E');
  AppendInteger(row, header.Int1);
  AppendReal(row, header.Real3, 2, 'E');
  AppendNumberPlusOne(row, header.Byte1);
  AppendNumberPlusOne(row, header.Byte2);
  AppendText(row, "");
  return WriteLine(out, TextOf(row));
}

bool ReadNoHeader(FileRecord&, TextScanner&, std::int32_t) {
  return true;
}

std::int32_t WriteNameOnly(const FileRecord& file, OutputFile& out) {
  return WriteLine(out, TextOf(BeginHeader(file)));
}

std::int32_t WriteKeywordOnly(const FileRecord& file, OutputFile& out) {
  return WriteLine(out, FileTypeKeyword(file.Type));
}

/// The first row of a type has the keyword that is written; "ABF" is only ever read.
constexpr FileTypeRow kFileTypes[] = {
    {"pClamp6", FileType::PClamp6, true, ReadPClamp6Header, WritePClamp6Header},
    {"ABF", FileType::PClamp6, true, ReadPClamp6Header, WritePClamp6Header},
    {"Sampler", FileType::Sampler, true, ReadSamplerHeader, WriteSamplerHeader},
    {"Exchange", FileType::Exchange, true, ReadExchangeHeader, WriteExchangeHeader},
    {"Pulse", FileType::Pulse, true, ReadPulseHeader, WritePulseHeader},
    {"IgorWave", FileType::IgorWave, true, ReadNoHeader, WriteNameOnly},
    {"RawContinuous", FileType::RawContinuous, true, ReadRawContinuousHeader,
     WriteRawContinuousHeader},
    {"Undefined", FileType::Undefined, false, ReadNoHeader, WriteKeywordOnly},
};

}  // namespace

const FileTypeRow* FindFileType(const char* keyword) {
  for (const FileTypeRow& row : kFileTypes) {
    if (std::strcmp(row.Keyword, keyword) == 0) return &row;
  }
  return nullptr;
}

const char* FileTypeKeyword(FileType type) {
  for (const FileTypeRow& row : kFileTypes) {
    if (row.Type == type) return row.Keyword;
  }
  return "";
}

FileRecord UndefinedFile(std::int32_t sweepCount) {
  FileRecord file{};
  file.Type = FileType::Undefined;
  file.SweepCount = sweepCount;
  file.ReadHeader = ReadNoHeader;
  file.WriteHeader = WriteKeywordOnly;
  return file;
}

}  // namespace ondrel
