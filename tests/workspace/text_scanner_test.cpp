#include "workspace/text_scanner.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace ondrel {
namespace {

using namespace std::string_view_literals;

TextScanner ScannerOf(std::string_view text) {
  return {text.data(), text.data() + text.size()};
}

/// What is still to be read.
std::string Rest(const TextScanner& scanner) {
  return {scanner.Cursor, scanner.End};
}

std::string Token(TextScanner& scanner, std::size_t limit = kTokenLimit) {
  char buffer[64] = "stale";
  ReadToken(scanner, buffer, limit);
  return buffer;
}

TEST(TextScanner, SkipSpaceAtTheEndStaysThere) {
  TextScanner scanner = ScannerOf("");
  SkipSpace(scanner);
  EXPECT_EQ(scanner.Cursor, scanner.End);
  scanner = ScannerOf(" \t\r\n");
  SkipSpace(scanner);
  EXPECT_EQ(scanner.Cursor, scanner.End);
}

TEST(TextScanner, SkipSpaceStopsAtEveryOtherByte) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string text = std::string(" \t\r\n") + static_cast<char>(byte) + " ";
    TextScanner scanner = ScannerOf(text);
    SkipSpace(scanner);
    const bool separates = byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n';
    EXPECT_EQ(scanner.End - scanner.Cursor, separates ? 0 : 2) << "byte " << byte;
  }
}

TEST(TextScanner, ReadTokenStopsBeforeEachSeparator) {
  for (const char* text : {"12 3", "12\t3", "12\r3", "12\n3"}) {
    TextScanner scanner = ScannerOf(text);
    EXPECT_EQ(Token(scanner), "12");
    EXPECT_EQ(Rest(scanner), text + 2);
  }
}

TEST(TextScanner, ARunOf45DigitsYieldsATokenOf39AndOneOf6) {
  const std::string digits =
      "123456789012345678901234567890123456789"
      "012345";
  TextScanner scanner = ScannerOf(digits);
  EXPECT_EQ(Token(scanner), digits.substr(0, 39));
  EXPECT_EQ(Token(scanner), "012345");
  EXPECT_EQ(scanner.Cursor, scanner.End);
}

TEST(TextScanner, ATokenOfExactlyTheLimitIsNotCut) {
  const std::string digits(31, '7');
  TextScanner scanner = ScannerOf(digits);
  EXPECT_EQ(Token(scanner, 32), digits);
  EXPECT_EQ(scanner.Cursor, scanner.End);
}

TEST(TextScanner, ReadTokenAtASeparatorYieldsAnEmptyTokenForEver) {
  TextScanner scanner = ScannerOf("\t12");
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(Token(scanner), "");
    EXPECT_EQ(Rest(scanner), "\t12");
  }
}

TEST(TextScanner, ReadTokenAtTheEndYieldsAnEmptyToken) {
  TextScanner scanner = ScannerOf("");
  EXPECT_EQ(Token(scanner), "");
}

TEST(TextScanner, ReadTokenNeverLooksAtTheEnd) {
  const std::string_view text = "123456";
  TextScanner scanner = ScannerOf(text.substr(0, 3));
  EXPECT_EQ(Token(scanner), "123");
}

TEST(TextScanner, ReadFieldReadsAPathUpToTheTabAndKeepsItsBlank) {
  TextScanner scanner = ScannerOf("C:\\data\\a b.abf\t17");
  char name[260];
  ReadField(scanner, '\t', name, sizeof name);
  EXPECT_STREQ(name, "C:\\data\\a b.abf");
  EXPECT_EQ(Rest(scanner), "17");
}

TEST(TextScanner, ReadFieldLeavesALineEndToBeRead) {
  for (const char* text : {"a b\r\nc", "a b\nc"}) {
    TextScanner scanner = ScannerOf(text);
    char name[260];
    ReadField(scanner, '\t', name, sizeof name);
    EXPECT_STREQ(name, "a b");
    EXPECT_EQ(Rest(scanner), text + 3);
  }
}

TEST(TextScanner, ReadFieldCutsAtItsSizeAndTakesNoDelimiterThen) {
  TextScanner scanner = ScannerOf("abc\td");
  char name[4] = "";
  ReadField(scanner, '\t', name, sizeof name);
  EXPECT_STREQ(name, "abc");
  EXPECT_EQ(Rest(scanner), "\td");
}

TEST(TextScanner, ReadFieldEndsAtTheEndOfTheData) {
  TextScanner scanner = ScannerOf("abc");
  char name[260] = "stale";
  ReadField(scanner, '\t', name, sizeof name);
  EXPECT_STREQ(name, "abc");
  ReadField(scanner, '\t', name, sizeof name);
  EXPECT_STREQ(name, "");
}

TEST(TextScanner, NextTokenSkipsSpaceAndIsEmptyAtTheEnd) {
  TextScanner scanner = ScannerOf(" \r\n File \t");
  char token[kTokenLimit];
  NextToken(scanner, token, sizeof token);
  EXPECT_STREQ(token, "File");
  NextToken(scanner, token, sizeof token);
  EXPECT_STREQ(token, "");
  EXPECT_EQ(scanner.Cursor, scanner.End);
}

TEST(TextScanner, TheEndOfTheDataIsSeenBehindSpace) {
  TextScanner scanner = ScannerOf(" \t\r\n");
  EXPECT_TRUE(AtEndOfData(scanner));
  scanner = ScannerOf(" \tx");
  EXPECT_FALSE(AtEndOfData(scanner));
  EXPECT_EQ(Rest(scanner), "x");
}

TEST(TextScanner, AKeywordIsTakenWithItsCaseAndAsAWholeToken) {
  for (const char* other : {"file", "FILE", "Files", "Fil", "", "xFile"}) {
    TextScanner scanner = ScannerOf(other);
    EXPECT_FALSE(TakeKeyword(scanner, "File")) << other;
    EXPECT_EQ(Rest(scanner), other);
  }
  TextScanner scanner = ScannerOf(" \r\nFile\tx");
  EXPECT_TRUE(TakeKeyword(scanner, "File"));
  EXPECT_EQ(Rest(scanner), "\tx");
}

TEST(TextScanner, AnEmbeddedNulEndsATokensText) {
  TextScanner scanner = ScannerOf("File\0x 1"sv);
  EXPECT_TRUE(TakeKeyword(scanner, "File"));
  EXPECT_EQ(Rest(scanner), " 1");
}

}  // namespace
}  // namespace ondrel
