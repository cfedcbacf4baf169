#include "workspace/row_scanner.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdio>
#include <iterator>
#include <limits>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "support/random_seed.h"

namespace ondrel {
namespace {

using namespace std::string_view_literals;

TextScanner ScannerOf(std::string_view text) {
  return {text.data(), text.data() + text.size()};
}

/// Enough behind a number that the short cut looks at it.
const std::string kPadding(64, ' ');

/// True when the short cut takes all of `token`.
bool IsUsualReal(std::string_view token) {
  const std::string text = std::string(token) + "\t" + kPadding;
  double value;
  const char* const behind = ScanUsualReal(text.data(), &value);
  return behind == text.data() + token.size();
}

bool IsUsualInteger(std::string_view token) {
  const std::string text = std::string(token) + "\t" + kPadding;
  std::int32_t value;
  const char* const behind = ScanUsualInteger(text.data(), &value);
  return behind == text.data() + token.size();
}

TEST(RowScanner, TheShortCutTakesTheNumbersThatAreWritten) {
  for (const char* token :
       {"0.000001", "123456.654321", "-0.500000", "1.2345678E-12", "-9.9999999E-012",
        "0.000000E+00", "0.000000E+000", "1.23E+003", "17", "-5.25", "0.1234567891", "1e+10"}) {
    EXPECT_TRUE(IsUsualReal(token)) << token;
  }
  for (const char* token : {"0", "1", "-1", "123456789", "-123456789"}) {
    EXPECT_TRUE(IsUsualInteger(token)) << token;
  }
}

TEST(RowScanner, TheShortCutLeavesWhatIsUnusual) {
  for (const char* token : {"+1.5",
                            ".5",
                            "5.",
                            "1e5",
                            "1.5E",
                            "1.5E+",
                            "1.5E-1",
                            "1.5E+1234",
                            "1.2.3",
                            "12abc",
                            "abc",
                            "",
                            "-",
                            "1234567890",
                            "0.12345678901",
                            "1.5E-23",
                            "99999999.999999999",
                            "1.5E-12x",
                            "\v1",
                            "inf",
                            "0x1"}) {
    EXPECT_FALSE(IsUsualReal(token)) << token;
  }
  for (const char* token : {"+1", "1.5", "", "-", "1234567890", "1x", "Events"}) {
    EXPECT_FALSE(IsUsualInteger(token)) << token;
  }
  EXPECT_FALSE(IsUsualReal("1\0"sv));
}

TEST(RowScanner, TheShortCutKeepsOffTheLastBytesOfTheData) {
  const std::string text = std::string(kUsualNumberRoom - 1, '1');
  EXPECT_FALSE(HasUsualRoom(ScannerOf(text)));
  EXPECT_TRUE(HasUsualRoom(ScannerOf(text + "1")));
}

TEST(RowScanner, TheLongestLookAheadStaysInsideTheRoom) {
  const std::string digits(kUsualNumberRoom, '1');
  for (const std::string& start :
       {std::string(), std::string("-"), std::string("-1."), std::string("-111111111."),
        std::string("-111111111.1111111111E"), std::string("-111111111.1111111111E+")}) {
    // A block of no more than the room, so that a sanitizer sees any look beyond it.
    const std::string text = (start + digits).substr(0, kUsualNumberRoom);
    const std::vector<char> block(text.begin(), text.end());
    double real;
    std::int32_t integer;
    EXPECT_EQ(ScanUsualReal(block.data(), &real), nullptr) << text;
    EXPECT_EQ(ScanUsualInteger(block.data(), &integer), nullptr) << text;
  }
}

TEST(RowScanner, DigitsAreCountedUpToTheFirstByteThatIsNone) {
  for (int count = 0; count <= 8; ++count) {
    for (int byte = 0; byte < 256; ++byte) {
      std::string text(16, '9');
      for (int i = 0; i < count; ++i)
        text[static_cast<std::size_t>(i)] = static_cast<char>('0' + i);
      if (count < 8) text[static_cast<std::size_t>(count)] = static_cast<char>(byte);
      const bool digit = count == 8 || IsDigit(static_cast<char>(byte));
      EXPECT_EQ(CountDigits(LoadEight(text.data())), digit ? 8 : count) << count << " " << byte;
    }
  }
}

TEST(RowScanner, UpToEightDigitsAreJoinedAtOnce) {
  const std::uint64_t bytes = LoadEight("12345678");
  const std::uint64_t expected[] = {1, 12, 123, 1234, 12345, 123456, 1234567, 12345678};
  for (int count = 1; count <= 8; ++count) {
    EXPECT_EQ(DigitsToWhole(bytes, count), expected[count - 1]);
  }
  EXPECT_EQ(DigitsToWhole(LoadEight("99999999"), 8), 99999999u);
  EXPECT_EQ(DigitsToWhole(LoadEight("00000000"), 8), 0u);
}

TEST(RowScanner, ReadsNumbersOneAfterTheOther) {
  const std::string text = " 7\t0.500000\r\n-1.5E-12 -3\n" + kPadding;
  TextScanner scanner = ScannerOf(text);
  std::int32_t integer;
  double real;
  EXPECT_EQ(ReadInteger(scanner, &integer), 0);
  EXPECT_EQ(integer, 7);
  EXPECT_EQ(ReadReal(scanner, &real), 0);
  EXPECT_EQ(real, 0.5);
  EXPECT_EQ(ReadReal(scanner, &real), 0);
  EXPECT_EQ(real, -1.5e-12);
  EXPECT_EQ(ReadInteger(scanner, &integer), 0);
  EXPECT_EQ(integer, -3);
}

TEST(RowScanner, AtTheEndOfTheDataNumbersAreZero) {
  TextScanner scanner = ScannerOf(" \r\n");
  std::int32_t integer = 5;
  double real = 5.0;
  EXPECT_EQ(ReadInteger(scanner, &integer), 0);
  EXPECT_EQ(integer, 0);
  EXPECT_EQ(ReadReal(scanner, &real), 0);
  EXPECT_EQ(real, 0.0);
}

TEST(RowScanner, ALongNumberIsCutAndItsTailIsTheNextNumber) {
  for (const std::string& behind : {std::string(), "\t" + kPadding}) {
    const std::string text = "0." + std::string(37, '0') + "25" + behind;
    TextScanner scanner = ScannerOf(text);
    double real = 1.0;
    EXPECT_EQ(ReadReal(scanner, &real), 0);
    EXPECT_EQ(real, 0.0);
    EXPECT_EQ(ReadReal(scanner, &real), 0);
    EXPECT_EQ(real, 25.0);
  }
}

TEST(RowScanner, ANulEndsANumberButNotItsToken) {
  const std::string text = std::string("12\0x 3"sv) + kPadding;
  TextScanner scanner = ScannerOf(text);
  std::int32_t integer;
  EXPECT_EQ(ReadInteger(scanner, &integer), 0);
  EXPECT_EQ(integer, 12);
  EXPECT_EQ(ReadInteger(scanner, &integer), 0);
  EXPECT_EQ(integer, 3);
}

TEST(RowScanner, DataThatEndsInsideANumberIsNotOverrun) {
  for (const char* token : {"1", "-1", "0.5", "1.2345678E-12", "12345678", "1.12345678"}) {
    // The block ends with the token, so that a sanitizer sees any look beyond it.
    const std::string_view view = token;
    const std::vector<char> block(view.begin(), view.end());
    TextScanner scanner{block.data(), block.data() + block.size()};
    double real;
    EXPECT_EQ(ReadReal(scanner, &real), 0) << token;
    EXPECT_EQ(scanner.Cursor, scanner.End);
  }
}

// --- The short cut against the long way -------------------------------------------------------

/// Reads the text to its end both ways. Fails at the first difference in status, value to the bit,
/// or place.
void ExpectBothWaysAlike(const std::string& text) {
  TextScanner fast = ScannerOf(text);
  TextScanner slow = fast;
  for (int number = 0; !AtEndOfData(slow); ++number) {
    if (number % 3 == 2) {
      std::int32_t fastValue = 1;
      std::int32_t slowValue = 2;
      const int fastStatus = ReadInteger(fast, &fastValue);
      const int slowStatus = ReadIntegerToken(slow, &slowValue);
      ASSERT_EQ(fastStatus, slowStatus) << "number " << number << " of " << text;
      ASSERT_EQ(fastValue, slowValue) << "number " << number << " of " << text;
    } else {
      double fastValue = 1.0;
      double slowValue = 2.0;
      const int fastStatus = ReadReal(fast, &fastValue);
      const int slowStatus = ReadRealToken(slow, &slowValue);
      ASSERT_EQ(fastStatus, slowStatus) << "number " << number << " of " << text;
      ASSERT_EQ(std::bit_cast<std::uint64_t>(fastValue), std::bit_cast<std::uint64_t>(slowValue))
          << "number " << number << " of " << text;
    }
    ASSERT_EQ(fast.Cursor, slow.Cursor) << "number " << number << " of " << text;
  }
}

class RowScannerProperty : public ::testing::Test {
 protected:
  std::uint64_t Below(std::uint64_t limit) { return random_() % limit; }
  template <typename Container>
  auto Pick(const Container& choices) {
    return choices[Below(std::size(choices))];
  }
  std::string Digits(std::uint64_t most) {
    std::string digits;
    const auto count = Below(most + 1);
    for (std::uint64_t i = 0; i < count; ++i) digits += static_cast<char>('0' + Below(10));
    return digits;
  }
  /// A token that is a number, or nearly one.
  std::string NearNumber() {
    static const std::vector<std::string> signs = {"", "", "", "-", "+", "--"};
    static const std::vector<std::string> exponents = {"", "", "E-", "E+", "e", "E", "e-"};
    static const std::vector<std::string> tails = {"", "", "", "", "x", ".", std::string(1, '\0')};
    std::string token = Pick(signs) + Digits(Below(4) == 0 ? 25 : 4);
    if (Below(3) != 0) token += "." + Digits(Below(4) == 0 ? 45 : 9);
    const std::string exponent = Pick(exponents);
    token += exponent;
    if (!exponent.empty()) token += Digits(Below(8) == 0 ? 6 : 3);
    return token + Pick(tails);
  }
  std::string Noise() {
    static constexpr std::string_view bytes = "0123456789.eE+-xX \t\r\n\v\0\xB0\xFF/:"sv;
    std::string noise;
    for (auto length = Below(60); length > 0; --length) noise += Pick(bytes);
    return noise;
  }
  std::string Separator() {
    static const std::vector<std::string> separators = {" ", "\t", "\r\n", "\n", "\r", "  \t"};
    return Pick(separators);
  }

 private:
  std::mt19937_64 random_{RandomSeed()};
};

TEST_F(RowScannerProperty, NearNumbersReadAlikeBothWays) {
  for (int i = 0; i < 20000 && !HasFatalFailure(); ++i) {
    std::string text;
    for (auto count = 1 + Below(12); count > 0; --count) text += NearNumber() + Separator();
    ExpectBothWaysAlike(text);
  }
}

TEST_F(RowScannerProperty, NoiseReadsAlikeBothWays) {
  for (int i = 0; i < 50000 && !HasFatalFailure(); ++i) {
    ExpectBothWaysAlike(Noise() + Noise() + Noise());
  }
}

TEST_F(RowScannerProperty, WrittenRowsReadAlikeBothWays) {
  for (int i = 0; i < 20000 && !HasFatalFailure(); ++i) {
    char row[200];
    const double time = static_cast<double>(Below(1u << 30)) / 1e6;
    const double pre = (static_cast<double>(Below(1u << 30)) - 5e8) * 1e-20;
    std::snprintf(row, sizeof row, "%.6f\t%.7E\t%d\t%.6E\r\n", time, pre,
                  static_cast<int>(Below(9)), time);
    ExpectBothWaysAlike(row + kPadding);
  }
}

TEST_F(RowScannerProperty, EveryLengthOfDigitsAroundThePointReadsAlikeBothWays) {
  for (std::size_t whole = 0; whole < 24 && !HasFatalFailure(); ++whole) {
    for (std::size_t decimals = 0; decimals < 24; ++decimals) {
      for (const char* exponent : {"", "E-12", "E+007", "E-308", "E+22", "E-22"}) {
        for (const char digit : {'0', '1', '9'}) {
          const std::string number =
              std::string(whole, digit) + "." + std::string(decimals, digit) + exponent;
          ExpectBothWaysAlike(number + " -" + number + " " + number + kPadding);
        }
      }
    }
  }
}

}  // namespace
}  // namespace ondrel
