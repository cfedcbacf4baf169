#include "workspace/file_types.h"

#include <cstring>

#include "workspace/row_scanner.h"

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

bool ReadPClamp6Header(FileRecord& file, TextScanner& scanner, std::int32_t version) {
  SkipFillers(scanner, version, 2);
  PClamp6Header header{};
  const bool good = ReadWhole(scanner, &header.Int1) && ReadNumberLessOne(scanner, &header.Byte1) &&
                    ReadNumberLessOne(scanner, &header.Byte2) && ReadWhole(scanner, &header.Int2) &&
                    ReadWhole(scanner, &header.Int3) && ReadNumber(scanner, &header.Real1);
  file.Header.PClamp6 = header;
  return good;
}

bool ReadSamplerHeader(FileRecord& file, TextScanner& scanner, std::int32_t version) {
  SamplerHeader header{};
  const bool good = ReadWhole(scanner, &header.Int1);
  if (good) SkipFillers(scanner, version, 2);
  file.Header.Sampler = header;
  return good;
}

bool ReadExchangeHeader(FileRecord& file, TextScanner& scanner, std::int32_t) {
  ExchangeHeader header{};
  const bool good = ReadWhole(scanner, &header.Int1);
  file.Header.Exchange = header;
  return good;
}

bool ReadPulseHeader(FileRecord& file, TextScanner& scanner, std::int32_t) {
  PulseHeader header{};
  const bool good = ReadNumberLessOne(scanner, &header.Byte1) && ReadWhole(scanner, &header.Int1) &&
                    ReadNumberLessOne(scanner, &header.Byte2) && ReadWhole(scanner, &header.Int2) &&
                    ReadNumberLessOne(scanner, &header.Byte3) && ReadWhole(scanner, &header.Int3);
  file.Header.Pulse = header;
  return good;
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

bool ReadNoHeader(FileRecord&, TextScanner&, std::int32_t) {
  return true;
}

/// The first row of a type has the keyword that is written; "ABF" is only ever read.
constexpr FileTypeRow kFileTypes[] = {
    {"pClamp6", FileType::PClamp6, true, ReadPClamp6Header},
    {"ABF", FileType::PClamp6, true, ReadPClamp6Header},
    {"Sampler", FileType::Sampler, true, ReadSamplerHeader},
    {"Exchange", FileType::Exchange, true, ReadExchangeHeader},
    {"Pulse", FileType::Pulse, true, ReadPulseHeader},
    {"IgorWave", FileType::IgorWave, true, ReadNoHeader},
    {"RawContinuous", FileType::RawContinuous, true, ReadRawContinuousHeader},
    {"Undefined", FileType::Undefined, false, ReadNoHeader},
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
  return file;
}

}  // namespace ondrel
