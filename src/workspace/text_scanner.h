// Takes text apart that stands in memory as a file held it. Blanks, tabs and line ends all separate
// tokens, so that rows may be broken over lines at will. The text is not NUL-ended.
#pragma once

#include <cstddef>

namespace ondrel {

struct TextScanner {
  const char* Cursor;  // next unread byte
  const char* End;     // one past the last byte
};

/// Room for the tokens of tables and preferences. A longer run of bytes is cut: what is left of it
/// becomes the next token.
inline constexpr std::size_t kTokenLimit = 40;  // bytes, the closing NUL included

constexpr bool IsSeparator(char byte) {
  return byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n';
}

/// Moves the cursor to the next byte that is no separator, or to the end.
void SkipSpace(TextScanner& scanner);

/// Copies the bytes from the cursor up to a separator, the end, or `limit` - 1 bytes into `buffer`
/// and ends them with a NUL. The cursor is left on the byte that stopped it. Leading space is not
/// skipped: at a separator the token is empty and the cursor stays.
void ReadToken(TextScanner& scanner, char* buffer, std::size_t limit);

/// Copies the bytes from the cursor up to `delimiter`, a line end, the end, or `size` - 1 bytes
/// into `buffer` and ends them with a NUL. The delimiter is consumed, a line end is not; blanks are
/// kept.
void ReadField(TextScanner& scanner, char delimiter, char* buffer, std::size_t size);

/// Skips space and reads a token, which is empty at the end.
void NextToken(TextScanner& scanner, char* buffer, std::size_t limit);

/// Skips space and tells whether nothing else is left.
bool AtEndOfData(TextScanner& scanner);

/// Skips space and consumes the next token if it is `keyword`. The token is compared byte for byte,
/// with case, and ends at a NUL in it. False, with the token still to be read, if it is another.
bool TakeKeyword(TextScanner& scanner, const char* keyword);

}  // namespace ondrel
