#include "workspace/number_text.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

#include "support/random_seed.h"

namespace ondrel {
namespace {

constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();

struct Integer {
  int Status;
  std::int32_t Value;
  friend bool operator==(const Integer&, const Integer&) = default;
};
void PrintTo(const Integer& integer, std::ostream* out) {
  *out << "status " << integer.Status << ", value " << integer.Value;
}

Integer IntegerOf(const char* text) {
  std::int32_t value = 77;
  const int status = ParseInteger(&value, text);
  return {status, value};
}

struct Real {
  int Status;
  double Value;
  /// To the bit, so that 0 and -0 differ.
  friend bool operator==(const Real& a, const Real& b) {
    return a.Status == b.Status &&
           std::bit_cast<std::uint64_t>(a.Value) == std::bit_cast<std::uint64_t>(b.Value);
  }
};
void PrintTo(const Real& real, std::ostream* out) {
  char text[64];
  std::snprintf(text, sizeof text, "status %d, value %.17g", real.Status, real.Value);
  *out << text;
}

Real RealOf(const std::string& text) {
  double value = 77.0;
  const int status = ParseReal(&value, text.c_str());
  return {status, value};
}

std::string TextOf(double value, int digits, char letter) {
  char text[kNumberTextSize];
  const std::size_t length = RealText(value, digits, letter, text);
  EXPECT_EQ(length, std::string(text).size());
  return text;
}

TEST(ParseInteger, ReadsWholeNumbers) {
  EXPECT_EQ(IntegerOf("0"), (Integer{0, 0}));
  EXPECT_EQ(IntegerOf("12"), (Integer{0, 12}));
  EXPECT_EQ(IntegerOf("-12"), (Integer{0, -12}));
  EXPECT_EQ(IntegerOf("+12"), (Integer{0, 12}));
  EXPECT_EQ(IntegerOf("0000000000000000000000000000012"), (Integer{0, 12}));
  EXPECT_EQ(IntegerOf("010"), (Integer{0, 10}));
}

TEST(ParseInteger, AnEmptyTextIsZeroWithoutFailure) {
  EXPECT_EQ(IntegerOf(""), (Integer{0, 0}));
}

TEST(ParseInteger, DigitsThatRunIntoLettersFailWithTheNumberStored) {
  EXPECT_EQ(IntegerOf("12abc"), (Integer{-1, 12}));
  EXPECT_EQ(IntegerOf("12 "), (Integer{-1, 12}));
  EXPECT_EQ(IntegerOf("1.5"), (Integer{-1, 1}));
  EXPECT_EQ(IntegerOf("0x10"), (Integer{-1, 0}));
}

TEST(ParseInteger, ATextWithoutANumberFailsWithZeroStored) {
  for (const char* text : {"abc", "-", "+", "+-1", " ", "\v", ".5", "Events"}) {
    EXPECT_EQ(IntegerOf(text), (Integer{-1, 0})) << text;
  }
}

TEST(ParseInteger, WhiteSpaceInFrontIsSkipped) {
  EXPECT_EQ(IntegerOf(" \t\n\v\f\r 5"), (Integer{0, 5}));
}

TEST(ParseInteger, TheEndsOfTheRangeAreInside) {
  EXPECT_EQ(IntegerOf("2147483647"), (Integer{0, kHighest}));
  EXPECT_EQ(IntegerOf("-2147483648"), (Integer{0, kLowest}));
}

TEST(ParseInteger, ANumberOutOfRangeFailsWithTheNearestStored) {
  EXPECT_EQ(IntegerOf("2147483648"), (Integer{-1, kHighest}));
  EXPECT_EQ(IntegerOf("-2147483649"), (Integer{-1, kLowest}));
  EXPECT_EQ(IntegerOf("99999999999999999999999999999999999999"), (Integer{-1, kHighest}));
  EXPECT_EQ(IntegerOf("-99999999999999999999999999999999999999"), (Integer{-1, kLowest}));
  EXPECT_EQ(IntegerOf("99999999999x"), (Integer{-1, kHighest}));
}

TEST(ParseReal, ReadsDecimalNumbers) {
  EXPECT_EQ(RealOf("1.5"), (Real{0, 1.5}));
  EXPECT_EQ(RealOf("-1.5"), (Real{0, -1.5}));
  EXPECT_EQ(RealOf("+1.5"), (Real{0, 1.5}));
  EXPECT_EQ(RealOf("5"), (Real{0, 5.0}));
  EXPECT_EQ(RealOf("5."), (Real{0, 5.0}));
  EXPECT_EQ(RealOf(".5"), (Real{0, 0.5}));
  EXPECT_EQ(RealOf("5.e1"), (Real{0, 50.0}));
  EXPECT_EQ(RealOf("1e3"), (Real{0, 1000.0}));
  EXPECT_EQ(RealOf("1E+3"), (Real{0, 1000.0}));
  EXPECT_EQ(RealOf("-0.0"), (Real{0, -0.0}));
}

TEST(ParseReal, TwoAndThreeExponentDigitsReadAlike) {
  EXPECT_EQ(RealOf("1.5000000E-12"), (Real{0, 1.5e-12}));
  EXPECT_EQ(RealOf("1.5000000E-012"), (Real{0, 1.5e-12}));
  EXPECT_EQ(RealOf("1.23E+003"), (Real{0, 1230.0}));
}

TEST(ParseReal, AnEmptyTextIsZeroWithoutFailure) {
  EXPECT_EQ(RealOf(""), (Real{0, 0.0}));
}

TEST(ParseReal, ANumberThatRunsIntoSomethingElseFailsWithItsValueStored) {
  EXPECT_EQ(RealOf("12abc"), (Real{-1, 12.0}));
  EXPECT_EQ(RealOf("1.5.2"), (Real{-1, 1.5}));
  EXPECT_EQ(RealOf("1,5"), (Real{-1, 1.0}));
  EXPECT_EQ(RealOf("1e"), (Real{-1, 1.0}));
  EXPECT_EQ(RealOf("1e+"), (Real{-1, 1.0}));
  EXPECT_EQ(RealOf("1e+x"), (Real{-1, 1.0}));
  EXPECT_EQ(RealOf("2 "), (Real{-1, 2.0}));
}

TEST(ParseReal, ATextWithoutANumberFailsWithZeroStored) {
  for (const char* text : {"abc", "-", "+", ".", "e5", "-.e5", " ", "+-1"}) {
    EXPECT_EQ(RealOf(text), (Real{-1, 0.0})) << text;
  }
}

TEST(ParseReal, InfinitiesNotANumberAndHexadecimalAreNoNumbers) {
  for (const char* text : {"inf", "-inf", "infinity", "nan", "NAN", "nan(1)"}) {
    EXPECT_EQ(RealOf(text), (Real{-1, 0.0})) << text;
  }
  EXPECT_EQ(RealOf("0x10"), (Real{-1, 0.0}));
  EXPECT_EQ(RealOf("1.#QNAN"), (Real{-1, 1.0}));
}

TEST(ParseReal, ARealTooLargeFailsWithAnInfinityStored) {
  EXPECT_EQ(RealOf("1e400"), (Real{-1, HUGE_VAL}));
  EXPECT_EQ(RealOf("-1e400"), (Real{-1, -HUGE_VAL}));
  EXPECT_EQ(RealOf("1.7976931348623159e308"), (Real{-1, HUGE_VAL}));
  EXPECT_EQ(RealOf("1" + std::string(400, '0')), (Real{-1, HUGE_VAL}));
  EXPECT_EQ(RealOf("1e99999999999999999999"), (Real{-1, HUGE_VAL}));
}

TEST(ParseReal, ARealTooSmallFailsWithZeroStored) {
  EXPECT_EQ(RealOf("1e-400"), (Real{-1, 0.0}));
  EXPECT_EQ(RealOf("-1e-400"), (Real{-1, -0.0}));
  EXPECT_EQ(RealOf("2e-324"), (Real{-1, 0.0}));
  EXPECT_EQ(RealOf("0." + std::string(400, '0') + "1"), (Real{-1, 0.0}));
  EXPECT_EQ(RealOf("1e-99999999999999999999"), (Real{-1, 0.0}));
}

TEST(ParseReal, TheEndsOfTheRangeAreInside) {
  EXPECT_EQ(RealOf("1.7976931348623157e308"), (Real{0, std::numeric_limits<double>::max()}));
  EXPECT_EQ(RealOf("4.9406564584124654e-324"),
            (Real{0, std::numeric_limits<double>::denorm_min()}));
}

TEST(ParseReal, ZeroIsInRangeWhateverItsExponent) {
  EXPECT_EQ(RealOf("0e400"), (Real{0, 0.0}));
  EXPECT_EQ(RealOf("-0e-99999999999999999999"), (Real{0, -0.0}));
  EXPECT_EQ(RealOf("0." + std::string(400, '0') + "e5"), (Real{0, 0.0}));
}

TEST(ParseReal, LeadingAndTrailingZerosDoNotMatter) {
  EXPECT_EQ(RealOf(std::string(60, '0') + "1.5"), (Real{0, 1.5}));
  EXPECT_EQ(RealOf("1.5" + std::string(60, '0')), (Real{0, 1.5}));
  EXPECT_EQ(RealOf("0." + std::string(60, '0') + "15e61"), (Real{0, 1.5}));
}

TEST(ParseReal, RoundsToTheNearestInTheHardCases) {
  EXPECT_EQ(RealOf("9007199254740993"), (Real{0, 9007199254740992.0}));
  EXPECT_EQ(RealOf("9007199254740993.0000000000000000001"), (Real{0, 9007199254740994.0}));
  EXPECT_EQ(RealOf("9007199254740992e22"), (Real{0, 9007199254740992e22}));
  EXPECT_EQ(RealOf("2.2250738585072011e-308"), (Real{0, 2.2250738585072011e-308}));
  EXPECT_EQ(RealOf("6929495644600919.5"), (Real{0, 6929495644600920.0}));
}

/// The runtime's conversion, which rounds correctly on the machines of the native tests. Windows'
/// is not held to that.
#if !defined(_WIN32)
Real RuntimeRealOf(const std::string& text) {
  const double value = std::strtod(text.c_str(), nullptr);
  const std::string mantissa = text.substr(0, text.find_first_of("eE"));
  const bool isZero = mantissa.find_first_of("123456789") == std::string::npos;
  const bool inRange = std::isfinite(value) && (isZero || value != 0.0);
  return {inRange ? 0 : -1, value};
}

TEST(ParseReal, AgreesWithTheRuntimeToTheBit) {
  std::mt19937_64 random(RandomSeed());
  const char* const formats[] = {"%.6f", "%.7E", "%.6E", "%.3E", "%.17g", "%.16e", "%.0f", "%g"};
  int compared = 0;
  for (int i = 0; i < 400000; ++i) {
    double value = std::bit_cast<double>(random());
    if (i % 2 == 0) value = std::ldexp(static_cast<double>(random() >> 11), -60 - i % 40);
    if (!std::isfinite(value)) continue;
    char text[400];
    std::snprintf(text, sizeof text, formats[random() % std::size(formats)], value);
    ASSERT_EQ(RealOf(text), RuntimeRealOf(text)) << text;
    ++compared;
  }
  EXPECT_GT(compared, 300000);
}

TEST(ParseReal, AgreesWithTheRuntimeOnRandomDigits) {
  std::mt19937_64 random(RandomSeed());
  for (int i = 0; i < 200000; ++i) {
    std::string text;
    const auto digits = 1 + random() % 25;
    const auto point = random() % (digits + 1);
    for (std::uint64_t digit = 0; digit < digits; ++digit) {
      if (digit == point) text += '.';
      text += static_cast<char>('0' + random() % 10);
    }
    if (random() % 2 == 0) text += "e" + std::to_string(static_cast<int>(random() % 700) - 350);
    ASSERT_EQ(RealOf(text), RuntimeRealOf(text)) << text;
  }
}
#endif

TEST(RealText, WritesTheFormatsOfTheWriters) {
  EXPECT_EQ(TextOf(0.1234567, 6, 'f'), "0.123457");
  EXPECT_EQ(TextOf(12345.5, 6, 'f'), "12345.500000");
  EXPECT_EQ(TextOf(-1.5e-12, 7, 'E'), "-1.5000000E-12");
  EXPECT_EQ(TextOf(0.0, 6, 'E'), "0.000000E+00");
  EXPECT_EQ(TextOf(1234.5, 2, 'E'), "1.23E+03");
  EXPECT_EQ(TextOf(-0.0, 1, 'f'), "-0.0");
  EXPECT_EQ(TextOf(2.5, 0, 'f'), "2");
  EXPECT_EQ(TextOf(1e100, 3, 'E'), "1.000E+100");
}

TEST(RealText, TheTextOf1Point5PicoamperesReadsBack) {
  const std::string text = TextOf(1.5e-12, 7, 'E');
  EXPECT_TRUE(text == "1.5000000E-12" || text == "1.5000000E-012") << text;
  EXPECT_EQ(RealOf(text), (Real{0, 1.5e-12}));
  EXPECT_EQ(RealOf("1.5000000E-012"), (Real{0, 1.5e-12}));
}

TEST(RealText, TheLongestTextFitsItsRoom) {
  const double largest = std::numeric_limits<double>::max();
  const std::string text = TextOf(-largest, kMaxRealDigits, 'f');
  EXPECT_EQ(text.size(), 1u + 309u + 1u + 17u);
  EXPECT_EQ(RealOf(text), (Real{0, -largest}));
}

#if !defined(_WIN32)
TEST(RealText, AgreesWithTheFormattedPrintOfTheRuntime) {
  std::mt19937_64 random(RandomSeed());
  for (int i = 0; i < 100000; ++i) {
    const double value = std::bit_cast<double>(random());
    if (!std::isfinite(value)) continue;
    const int digits = static_cast<int>(random() % 9);
    char expected[kNumberTextSize];
    std::snprintf(expected, sizeof expected, "%.*f", digits, value);
    ASSERT_EQ(TextOf(value, digits, 'f'), expected);
    std::snprintf(expected, sizeof expected, "%.*E", digits, value);
    ASSERT_EQ(TextOf(value, digits, 'E'), expected);
  }
}
#endif

TEST(RealText, SeventeenDigitsComeBackToTheBit) {
  std::mt19937_64 random(RandomSeed());
  for (int i = 0; i < 200000; ++i) {
    const double value = std::bit_cast<double>(random());
    if (!std::isfinite(value)) continue;
    ASSERT_EQ(RealOf(TextOf(value, 16, 'E')), (Real{0, value}));
  }
}

TEST(IntegerText, WritesWholeNumbers) {
  char text[kNumberTextSize];
  EXPECT_EQ(IntegerText(0, text), 1u);
  EXPECT_STREQ(text, "0");
  EXPECT_EQ(IntegerText(kLowest, text), 11u);
  EXPECT_STREQ(text, "-2147483648");
  IntegerText(kHighest, text);
  EXPECT_STREQ(text, "2147483647");
}

TEST(IntegerText, EveryIntegerComesBack) {
  std::mt19937 random(static_cast<std::mt19937::result_type>(RandomSeed()));
  for (int i = 0; i < 100000; ++i) {
    const auto value = static_cast<std::int32_t>(random());
    char text[kNumberTextSize];
    IntegerText(value, text);
    ASSERT_EQ(IntegerOf(text), (Integer{0, value}));
  }
}

}  // namespace
}  // namespace ondrel
