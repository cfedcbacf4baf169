// The seven types of data files that an event table can name: their keywords and their own headers,
// as tokens to be read and as the line that is written. No analysis looks at a header; it is read
// to be written back.
#pragma once

#include <cstdint>

#include "workspace/records.h"
#include "workspace/text_scanner.h"

namespace ondrel {

struct FileTypeRow {
  const char* Keyword;
  FileType Type;
  bool NamesFile;  // a file name stands behind the keyword
  bool (*ReadHeader)(FileRecord& file, TextScanner& scanner, std::int32_t version);
  std::int32_t (*WriteHeader)(const FileRecord& file, OutputFile& out);
};

/// The row of a keyword in an event table, or null when there is no such type.
const FileTypeRow* FindFileType(const char* keyword);

/// The keyword that is written for a type.
const char* FileTypeKeyword(FileType type);

/// A file of the type Undefined, which has neither name nor header, with so many sweeps.
FileRecord UndefinedFile(std::int32_t sweepCount);

}  // namespace ondrel
