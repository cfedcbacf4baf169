// One row of a table while it is put together: fields with one tab between them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "workspace/number_text.h"

namespace ondrel {

/// Room for more fields than any row has. The widest has 13: the row of a histogram, with the place
/// of the bin, its count, the sum of a fit and its 10 terms.
inline constexpr std::size_t kMostRowFields = 16;

struct RowText {
  std::size_t Length = 0;
  std::array<char, kMostRowFields*(kNumberTextSize + 1)> Text{};
};

inline std::string_view TextOf(const RowText& row) {
  return {row.Text.data(), row.Length};
}

/// Puts a tab behind the field that stands last, if there is one, and returns where the next
/// begins.
inline char* BeginField(RowText& row) {
  if (row.Length > 0) row.Text[row.Length++] = '\t';
  return row.Text.data() + row.Length;
}

inline void AppendInteger(RowText& row, std::int32_t value) {
  char* field = BeginField(row);
  row.Length += IntegerText(value, field);
}

/// Digits and letter are those of RealText.
inline void AppendReal(RowText& row, double value, int digits, char letter) {
  char* field = BeginField(row);
  row.Length += RealText(value, digits, letter, field);
}

/// A word or name of fewer than kNumberTextSize bytes.
inline void AppendText(RowText& row, std::string_view text) {
  char* field = BeginField(row);
  std::memcpy(field, text.data(), text.size());
  row.Length += text.size();
}

}  // namespace ondrel
