// Reads the numbers of a table's rows. A table of a million events is some sixty megabytes of
// digits, so the usual number is read where it stands, eight decimals at a time. Whatever is
// unusual (a '+', a long or an empty token, a number that runs into something else, the last bytes
// of the data) goes through a token and the conversions of number_text, whose rules hold for both.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "workspace/decimal.h"
#include "workspace/text_scanner.h"

namespace ondrel {

/// Each skips space and reads the next token as a number, as NextToken with kTokenLimit and
/// ParseInteger or ParseReal do, which also say what `*dest` gets. Returns 0, or -1 when the token
/// is no such number.
int ReadInteger(TextScanner& scanner, std::int32_t* dest);
int ReadReal(TextScanner& scanner, double* dest);

/// The same without the short cut.
int ReadIntegerToken(TextScanner& scanner, std::int32_t* dest);
int ReadRealToken(TextScanner& scanner, double* dest);

/// A usual number with the separator behind it is shorter, and every look ahead stays inside.
inline constexpr std::ptrdiff_t kUsualNumberRoom = 40;

/// Eight bytes of text; the first is the lowest.
inline std::uint64_t LoadEight(const char* text) {
  static_assert(std::endian::native == std::endian::little);
  std::uint64_t bytes;
  std::memcpy(&bytes, text, sizeof bytes);
  return bytes;
}

/// How many of eight bytes, from the first, are digits. A digit is a byte whose high half is 3 and
/// stays 3 when 6 is added. Only a byte that is no digit can carry, and only into bytes behind it.
inline int CountDigits(std::uint64_t bytes) {
  constexpr std::uint64_t kHighHalves = 0xF0F0F0F0F0F0F0F0;
  constexpr std::uint64_t kThrees = 0x3030303030303030;
  constexpr std::uint64_t kSixes = 0x0606060606060606;
  const std::uint64_t others =
      ((bytes & kHighHalves) ^ kThrees) | (((bytes + kSixes) & kHighHalves) ^ kThrees);
  return std::countr_zero(others) / 8;
}

/// The number that the first `count` of eight bytes spell, 1 to 8 digits. They are moved to the end
/// of the eight, zeros in front; then neighbours are joined to pairs, to fours and to eight.
inline std::uint64_t DigitsToWhole(std::uint64_t bytes, int count) {
  constexpr std::uint64_t kJoinPairs = 1 + (std::uint64_t{10} << 8);
  constexpr std::uint64_t kJoinFours = 1 + (std::uint64_t{100} << 16);
  constexpr std::uint64_t kJoinEight = 1 + (std::uint64_t{10000} << 32);
  std::uint64_t digits = (bytes << (64 - 8 * count)) & 0x0F0F0F0F0F0F0F0F;
  digits = ((digits * kJoinPairs) >> 8) & 0x00FF00FF00FF00FF;
  digits = ((digits * kJoinFours) >> 16) & 0x0000FFFF0000FFFF;
  return (digits * kJoinEight) >> 32;
}

/// The scans below return the byte behind what they took, or null when the number is none of the
/// usual ones. They look no further than kUsualNumberRoom bytes.

/// At most nine digits, which fit 32 bits. These runs are short and mostly of one length, so that a
/// loop over bytes beats the eight at a time.
inline const char* ScanUsualWhole(const char* text, std::uint32_t* whole) {
  constexpr int kMostDigits = 9;
  const char* const limit = text + kMostDigits;
  const char* cursor = text;
  std::uint32_t value = 0;
  for (; IsDigit(*cursor) && cursor < limit; ++cursor) {
    value = value * 10 + static_cast<std::uint32_t>(*cursor - '0');
  }
  *whole = value;
  return cursor > text ? cursor : nullptr;
}

/// At most ten decimals behind the point, appended to `*whole`, which has at most nine digits.
inline const char* ScanUsualDecimals(const char* text, std::uint64_t* whole) {
  constexpr std::uint64_t kShifts[] = {1,      10,      100,      1000,     10000,
                                       100000, 1000000, 10000000, 100000000};
  const std::uint64_t bytes = LoadEight(text);
  const int count = CountDigits(bytes);
  if (count == 0) return nullptr;
  *whole = *whole * kShifts[count] + DigitsToWhole(bytes, count);
  text += count;
  if (count < 8) return text;
  for (int more = 0; IsDigit(*text); ++more, ++text) {
    if (more == 2) return nullptr;
    *whole = *whole * 10 + static_cast<std::uint64_t>(*text - '0');
  }
  return text;
}

/// Sign and two or three digits behind the 'E', added to `*power`.
inline const char* ScanUsualExponent(const char* text, int* power) {
  const bool negative = *text == '-';
  if (!negative && *text != '+') return nullptr;
  if (!IsDigit(text[1]) || !IsDigit(text[2])) return nullptr;
  int exponent = (text[1] - '0') * 10 + (text[2] - '0');
  text += 3;
  if (IsDigit(*text)) exponent = exponent * 10 + (*text++ - '0');
  *power += negative ? -exponent : exponent;
  return text;
}

/// Stores nothing unless the whole token is a usual number.
inline const char* ScanUsualReal(const char* text, double* dest) {
  const bool negative = *text == '-';
  std::uint32_t units;
  const char* cursor = ScanUsualWhole(text + negative, &units);
  if (cursor == nullptr) return nullptr;
  std::uint64_t whole = units;
  int power = 0;
  if (*cursor == '.') {
    const char* const decimals = cursor + 1;
    cursor = ScanUsualDecimals(decimals, &whole);
    if (cursor == nullptr) return nullptr;
    power = static_cast<int>(decimals - cursor);
  }
  if (*cursor == 'E' || *cursor == 'e') {
    cursor = ScanUsualExponent(cursor + 1, &power);
    if (cursor == nullptr) return nullptr;
  }
  if (!IsSeparator(*cursor) || !IsExactDecimal(whole, power)) return nullptr;
  const double real = ExactDecimal(whole, power);
  *dest = negative ? -real : real;
  return cursor;
}

inline const char* ScanUsualInteger(const char* text, std::int32_t* dest) {
  const bool negative = *text == '-';
  std::uint32_t whole;
  const char* const cursor = ScanUsualWhole(text + negative, &whole);
  if (cursor == nullptr || !IsSeparator(*cursor)) return nullptr;
  *dest = negative ? -static_cast<std::int32_t>(whole) : static_cast<std::int32_t>(whole);
  return cursor;
}

inline bool HasUsualRoom(const TextScanner& scanner) {
  return scanner.End - scanner.Cursor >= kUsualNumberRoom;
}

inline int ReadInteger(TextScanner& scanner, std::int32_t* dest) {
  SkipSpace(scanner);
  if (HasUsualRoom(scanner)) {
    if (const char* const behind = ScanUsualInteger(scanner.Cursor, dest)) {
      scanner.Cursor = behind;
      return 0;
    }
  }
  return ReadIntegerToken(scanner, dest);
}

inline int ReadReal(TextScanner& scanner, double* dest) {
  SkipSpace(scanner);
  if (HasUsualRoom(scanner)) {
    if (const char* const behind = ScanUsualReal(scanner.Cursor, dest)) {
      scanner.Cursor = behind;
      return 0;
    }
  }
  return ReadRealToken(scanner, dest);
}

}  // namespace ondrel
