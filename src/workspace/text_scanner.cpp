#include "workspace/text_scanner.h"

#include <cstring>

namespace ondrel {

void SkipSpace(TextScanner& scanner) {
  while (scanner.Cursor < scanner.End && IsSeparator(*scanner.Cursor)) ++scanner.Cursor;
}

void ReadToken(TextScanner& scanner, char* buffer, std::size_t limit) {
  std::size_t length = 0;
  while (scanner.Cursor < scanner.End && length + 1 < limit && !IsSeparator(*scanner.Cursor)) {
    buffer[length++] = *scanner.Cursor++;
  }
  buffer[length] = '\0';
}

void ReadField(TextScanner& scanner, char delimiter, char* buffer, std::size_t size) {
  std::size_t length = 0;
  while (scanner.Cursor < scanner.End && length + 1 < size) {
    const char byte = *scanner.Cursor;
    if (byte == '\r' || byte == '\n') break;
    ++scanner.Cursor;
    if (byte == delimiter) break;
    buffer[length++] = byte;
  }
  buffer[length] = '\0';
}

void NextToken(TextScanner& scanner, char* buffer, std::size_t limit) {
  SkipSpace(scanner);
  ReadToken(scanner, buffer, limit);
}

bool AtEndOfData(TextScanner& scanner) {
  SkipSpace(scanner);
  return scanner.Cursor == scanner.End;
}

bool TakeKeyword(TextScanner& scanner, const char* keyword) {
  SkipSpace(scanner);
  if (scanner.Cursor == scanner.End || *scanner.Cursor != *keyword) return false;
  TextScanner behind = scanner;
  char token[kTokenLimit];
  ReadToken(behind, token, sizeof token);
  if (std::strcmp(token, keyword) != 0) return false;
  scanner = behind;
  return true;
}

}  // namespace ondrel
