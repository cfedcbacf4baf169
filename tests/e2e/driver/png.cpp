// Writes pictures as PNG (RFC 2083) with a small deflate (RFC 1951): one block of fixed codes in
// which only repetitions of the pixel to the left and of the row above are looked for. Windows are
// mostly such repetitions.
#include <algorithm>
#include <array>
#include <fstream>

#include "picture.h"
#include "wait.h"

namespace ondrel::e2e {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr int kBytesPerPixel = 3;
constexpr std::size_t kShortestMatch = 3;
constexpr std::size_t kLongestMatch = 258;
constexpr std::size_t kFarthestMatch = 32768;

struct CodeRange {
  std::size_t Base;
  int ExtraBits;
};

// Codes 257 and up for lengths, 0 and up for distances.
constexpr CodeRange kLengths[] = {
    {3, 0},  {4, 0},  {5, 0},  {6, 0},   {7, 0},   {8, 0},   {9, 0},   {10, 0},  {11, 1}, {13, 1},
    {15, 1}, {17, 1}, {19, 2}, {23, 2},  {27, 2},  {31, 2},  {35, 3},  {43, 3},  {51, 3}, {59, 3},
    {67, 4}, {83, 4}, {99, 4}, {115, 4}, {131, 5}, {163, 5}, {195, 5}, {227, 5}, {258, 0}};
constexpr CodeRange kDistances[] = {{1, 0},     {2, 0},     {3, 0},      {4, 0},      {5, 1},
                                    {7, 1},     {9, 2},     {13, 2},     {17, 3},     {25, 3},
                                    {33, 4},    {49, 4},    {65, 5},     {97, 5},     {129, 6},
                                    {193, 6},   {257, 7},   {385, 7},    {513, 8},    {769, 8},
                                    {1025, 9},  {1537, 9},  {2049, 10},  {3073, 10},  {4097, 11},
                                    {6145, 11}, {8193, 12}, {12289, 12}, {16385, 13}, {24577, 13}};

class BitWriter {
 public:
  explicit BitWriter(Bytes* out) : out_(out) {}

  /// Plain numbers go least significant bit first.
  void Put(std::size_t value, int bits) {
    for (int bit = 0; bit < bits; ++bit) PutBit((value >> bit) & 1U);
  }
  /// Codes go most significant bit first.
  void PutCode(std::size_t code, int bits) {
    for (int bit = bits - 1; bit >= 0; --bit) PutBit((code >> bit) & 1U);
  }
  void Finish() {
    while (used_ != 0) PutBit(0);
  }

 private:
  void PutBit(std::size_t bit) {
    current_ |= static_cast<unsigned>(bit) << used_;
    if (++used_ < 8) return;
    out_->push_back(static_cast<std::uint8_t>(current_));
    current_ = 0;
    used_ = 0;
  }

  Bytes* out_;
  unsigned current_ = 0;
  int used_ = 0;
};

void PutSymbol(BitWriter& out, std::size_t symbol) {
  if (symbol < 144) {
    out.PutCode(0x30 + symbol, 8);
  } else if (symbol < 256) {
    out.PutCode(0x190 + symbol - 144, 9);
  } else if (symbol < 280) {
    out.PutCode(symbol - 256, 7);
  } else {
    out.PutCode(0xC0 + symbol - 280, 8);
  }
}

template <std::size_t Count>
std::size_t CodeOf(const CodeRange (&table)[Count], std::size_t value) {
  std::size_t code = Count - 1;
  while (table[code].Base > value) --code;
  return code;
}

void PutMatch(BitWriter& out, std::size_t length, std::size_t distance) {
  const std::size_t lengthCode = CodeOf(kLengths, length);
  PutSymbol(out, 257 + lengthCode);
  out.Put(length - kLengths[lengthCode].Base, kLengths[lengthCode].ExtraBits);
  const std::size_t distanceCode = CodeOf(kDistances, distance);
  out.PutCode(distanceCode, 5);
  out.Put(distance - kDistances[distanceCode].Base, kDistances[distanceCode].ExtraBits);
}

std::size_t MatchLength(const Bytes& data, std::size_t at, std::size_t distance) {
  if (distance > at || distance > kFarthestMatch) return 0;
  const std::size_t limit = std::min(kLongestMatch, data.size() - at);
  std::size_t length = 0;
  while (length < limit && data[at + length] == data[at + length - distance]) ++length;
  return length;
}

void PutAdler(Bytes* out, const Bytes& data) {
  std::uint32_t a = 1;
  std::uint32_t b = 0;
  for (const std::uint8_t byte : data) {
    a = (a + byte) % 65521;
    b = (b + a) % 65521;
  }
  const std::uint32_t sum = (b << 16) | a;
  for (int shift = 24; shift >= 0; shift -= 8) {
    out->push_back(static_cast<std::uint8_t>(sum >> shift));
  }
}

Bytes Deflate(const Bytes& data, std::size_t rowBytes) {
  Bytes out{0x78, 0x01};
  BitWriter bits(&out);
  bits.Put(1, 1);  // the last block
  bits.Put(1, 2);  // fixed codes
  for (std::size_t at = 0; at < data.size();) {
    const std::size_t left = MatchLength(data, at, kBytesPerPixel);
    const std::size_t above = MatchLength(data, at, rowBytes);
    const std::size_t length = std::max(left, above);
    if (length < kShortestMatch) {
      PutSymbol(bits, data[at++]);
      continue;
    }
    PutMatch(bits, length, left >= above ? kBytesPerPixel : rowBytes);
    at += length;
  }
  PutSymbol(bits, 256);
  bits.Finish();
  PutAdler(&out, data);
  return out;
}

std::uint32_t Crc(const Bytes& data) {
  std::uint32_t crc = 0xFFFFFFFF;
  for (const std::uint8_t byte : data) {
    crc ^= byte;
    for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1) ^ ((crc & 1U) != 0 ? 0xEDB88320U : 0U);
  }
  return ~crc;
}

void PutNumber(Bytes* out, std::uint32_t number) {
  for (int shift = 24; shift >= 0; shift -= 8) {
    out->push_back(static_cast<std::uint8_t>(number >> shift));
  }
}

void PutChunk(Bytes* out, const char (&type)[5], const Bytes& content) {
  Bytes checked(type, type + 4);
  checked.insert(checked.end(), content.begin(), content.end());
  PutNumber(out, static_cast<std::uint32_t>(content.size()));
  out->insert(out->end(), checked.begin(), checked.end());
  PutNumber(out, Crc(checked));
}

Bytes Rows(const Picture& picture) {
  Bytes rows;
  for (int y = 0; y < picture.Height; ++y) {
    rows.push_back(0);  // no filter
    for (int x = 0; x < picture.Width; ++x) {
      const std::uint32_t pixel = picture.At(x, y);
      for (int shift = 16; shift >= 0; shift -= 8) {
        rows.push_back(static_cast<std::uint8_t>(pixel >> shift));
      }
    }
  }
  return rows;
}

}  // namespace

void SavePng(const Picture& picture, const std::string& path) {
  Bytes header;
  PutNumber(&header, static_cast<std::uint32_t>(picture.Width));
  PutNumber(&header, static_cast<std::uint32_t>(picture.Height));
  static constexpr std::uint8_t kTrueColor[] = {8, 2, 0, 0, 0};  // 8 bits, no interlace
  header.insert(header.end(), std::begin(kTrueColor), std::end(kTrueColor));

  const auto rowBytes = static_cast<std::size_t>(picture.Width) * kBytesPerPixel + 1;
  Bytes file{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
  PutChunk(&file, "IHDR", header);
  PutChunk(&file, "IDAT", Deflate(Rows(picture), rowBytes));
  PutChunk(&file, "IEND", {});

  std::ofstream out(path, std::ios::binary);
  out.write(reinterpret_cast<const char*>(file.data()), static_cast<std::streamsize>(file.size()));
  out.close();
  if (!out) Fail("the picture " + path + " could not be written");
}

}  // namespace ondrel::e2e
