// Numbers as text, in files and in dialogs: decimal, with a point as the decimal mark whatever the
// locale. Apart from the readers' short cut for plain numbers, which gives the same
// values, nobody else converts text to reals, and nobody else writes one.
#pragma once

#include <cstddef>
#include <cstdint>

namespace ondrel {

inline constexpr int kMaxRealDigits = 17;
/// Room for any text made here: a sign, 309 digits, a point, kMaxRealDigits digits and the NUL.
inline constexpr std::size_t kNumberTextSize = 340;

/// Writes `value` as "%d" does. Returns the length of the text, which is NUL-ended.
std::size_t IntegerText(std::int32_t value, char* out);

/// Writes `value` with `digits` decimals, at most kMaxRealDigits, as "%.<digits><letter>" does;
/// `letter` is 'f' or 'E'. Exponents have two digits, and three where two are not enough. Returns
/// the length of the text, which is NUL-ended.
std::size_t RealText(double value, int digits, char letter, char* out);

/// Both take white space, a sign and a decimal number, and return 0, or -1 when the text does not
/// end behind the number or the number is out of range. `*dest` is stored in either case: what the
/// text begins with, 0 without a number, the nearest end of the 32-bit range, an infinity, or zero
/// for a real too small. An empty text is 0 without failure, so that a table cut short reads
/// quietly at its end. Names of infinities and hexadecimal numbers are no numbers.
int ParseInteger(std::int32_t* dest, const char* text);
int ParseReal(double* dest, const char* text);

}  // namespace ondrel
