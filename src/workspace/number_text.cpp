// The exact road for the usual number, the library's conversion, which knows no locale, for the
// rest.
#include "workspace/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "workspace/decimal.h"

namespace ondrel {
namespace {

/// The white space of the runtime's conversions, which is more than separates tokens.
const char* SkipWhite(const char* text) {
  while (*text == ' ' || (*text >= '\t' && *text <= '\r')) ++text;
  return text;
}

const char* SkipSign(const char* text, bool* negative) {
  *negative = *text == '-';
  return *text == '-' || *text == '+' ? text + 1 : text;
}

/// The decimal number that a text begins with: the first digits as a whole number, the power of ten
/// that belongs to it, and where the number stops.
struct DecimalNumber {
  std::uint64_t Whole = 0;
  int Power = 0;
  int WholeDigits = 0;  // digits from the first that is not 0
  const char* Stop = nullptr;
};

/// Far beyond every real, so that a larger exponent need not be kept; sums with it stay small.
constexpr int kExponentLimit = 100000;

const char* ScanDigits(const char* text, DecimalNumber* number) {
  for (; IsDigit(*text); ++text) {
    if (number->WholeDigits == 0 && *text == '0') continue;
    if (number->WholeDigits < kMaxWholeDigits) {
      number->Whole = number->Whole * 10 + static_cast<std::uint64_t>(*text - '0');
    }
    ++number->WholeDigits;
  }
  return text;
}

/// An exponent without digits is no part of the number.
const char* ScanExponent(const char* text, int* exponent) {
  if (*text != 'e' && *text != 'E') return text;
  bool negative;
  const char* digits = SkipSign(text + 1, &negative);
  if (!IsDigit(*digits)) return text;
  int value = 0;
  for (; IsDigit(*digits); ++digits) value = std::min(value * 10 + (*digits - '0'), kExponentLimit);
  *exponent = negative ? -value : value;
  return digits;
}

/// False when no number stands there.
bool ScanDecimal(const char* text, DecimalNumber* number) {
  const char* stop = ScanDigits(text, number);
  bool anyDigit = stop > text;
  if (*stop == '.') {
    const char* decimals = stop + 1;
    const char* end = ScanDigits(decimals, number);
    anyDigit = anyDigit || end > decimals;
    number->Power = static_cast<int>(decimals - end);
    stop = end;
  }
  if (!anyDigit) return false;
  int exponent = 0;
  number->Stop = ScanExponent(stop, &exponent);
  number->Power += exponent;
  return true;
}

/// The real nearest to the number from `text` to its stop. False when there is none.
bool ConvertDecimal(const char* text, const DecimalNumber& number, double* real) {
  if (number.WholeDigits <= kMaxWholeDigits && IsExactDecimal(number.Whole, number.Power)) {
    *real = ExactDecimal(number.Whole, number.Power);
    return true;
  }
  if (std::from_chars(text, number.Stop, *real).ec == std::errc{}) return true;
  const bool tooLarge = number.WholeDigits + number.Power > 0;
  *real = tooLarge ? HUGE_VAL : 0.0;
  return false;
}

int Finish(char* out, const std::to_chars_result& result) {
  *result.ptr = '\0';
  return static_cast<int>(result.ptr - out);
}

}  // namespace

std::size_t IntegerText(std::int32_t value, char* out) {
  return static_cast<std::size_t>(
      Finish(out, std::to_chars(out, out + kNumberTextSize - 1, value)));
}

std::size_t RealText(double value, int digits, char letter, char* out) {
  const auto format = letter == 'f' ? std::chars_format::fixed : std::chars_format::scientific;
  const int length =
      Finish(out, std::to_chars(out, out + kNumberTextSize - 1, value, format, digits));
  if (letter == 'E') {
    std::transform(out, out + length, out, [](char byte) {
      return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte;
    });
  }
  return static_cast<std::size_t>(length);
}

int ParseInteger(std::int32_t* dest, const char* text) {
  constexpr std::int64_t kLowest = std::numeric_limits<std::int32_t>::min();
  constexpr std::int64_t kHighest = std::numeric_limits<std::int32_t>::max();
  bool negative;
  const char* digits = SkipSign(SkipWhite(text), &negative);
  const char* stop = digits;
  std::int64_t value = 0;
  for (; IsDigit(*stop); ++stop) value = std::min(value * 10 + (*stop - '0'), kHighest + 2);
  if (stop == digits) {
    *dest = 0;
    return *text == '\0' ? 0 : -1;
  }
  if (negative) value = -value;
  *dest = static_cast<std::int32_t>(std::clamp(value, kLowest, kHighest));
  return *stop == '\0' && value >= kLowest && value <= kHighest ? 0 : -1;
}

int ParseReal(double* dest, const char* text) {
  bool negative;
  const char* start = SkipSign(SkipWhite(text), &negative);
  DecimalNumber number;
  if (!ScanDecimal(start, &number)) {
    *dest = 0.0;
    return *text == '\0' ? 0 : -1;
  }
  double real = 0.0;
  const bool inRange = ConvertDecimal(start, number, &real);
  *dest = negative ? -real : real;
  return inRange && *number.Stop == '\0' ? 0 : -1;
}

}  // namespace ondrel
