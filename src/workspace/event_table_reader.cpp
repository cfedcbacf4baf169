#include "workspace/event_table_reader.h"

#include <cstdint>
#include <cstring>

#include "derived/derived_chain.h"
#include "shell/toolkit.h"
#include "workspace/bare_list_reader.h"
#include "workspace/number_text.h"
#include "workspace/reading_reports.h"
#include "workspace/records.h"
#include "workspace/text_scanner.h"
#include "workspace/version2_reader.h"
#include "workspace/version3_reader.h"
#include "workspace/whole_file.h"
#include "workspace/workspace.h"

namespace ondrel {
namespace {

/// Of the two tokens that tell the layout.
constexpr std::size_t kLayoutTokenLimit = 32;  // bytes, the closing NUL included

/// A table that begins with a version has a keyword behind it.
bool BeginsWithVersion(TextScanner scanner) {
  char token[kLayoutTokenLimit];
  NextToken(scanner, token, sizeof token);
  NextToken(scanner, token, sizeof token);
  for (const char* keyword : {"Sweeps", "Files", "File"}) {
    if (std::strcmp(token, keyword) == 0) return true;
  }
  return false;
}

bool ParseVersionedTable(FrameWindow* frame, TextScanner scanner, const char* name) {
  char token[kLayoutTokenLimit];
  NextToken(scanner, token, sizeof token);
  std::int32_t version;
  if (ParseInteger(&version, token) == 0 && version >= 1) {
    if (version <= 2) return ReadVersion2Table(frame, scanner, version, name);
    return ReadVersion3Table(frame, scanner, version, name);
  }
  ReportCannotRead(frame, name);
  return false;
}

bool ParseLayout(FrameWindow* frame, const TextScanner& scanner, const char* name) {
  if (scanner.Cursor == scanner.End) {
    ReportCannotRead(frame, name);
    return false;
  }
  if (BeginsWithVersion(scanner)) return ParseVersionedTable(frame, scanner, name);
  return ReadBareList(frame, scanner);
}

}  // namespace

int ReadDataFile(FrameWindow* frame) {
  char path[kPathSize] = "";
  if (!toolkit::AskFile(frame, toolkit::FileDialogMode::Open, "Data file:", "", path)) return -1;
  WholeFile file;
  if (!ReadWholeFile(frame, path, &file)) return -1;
  toolkit::SetWaitCursor(true);
  const bool taken = ParseTable(frame, file.Bytes, file.Name, file.Size);
  if (taken) DeriveAfterReading(*frame->Owner);
  toolkit::SetWaitCursor(false);
  return taken ? 0 : -1;
}

bool ParseTable(FrameWindow* frame, char* buffer, const char* name, std::size_t size) {
  const bool taken = ParseLayout(frame, {buffer, buffer + size}, name);
  toolkit::FreeMemory(buffer);
  return taken;
}

}  // namespace ondrel
