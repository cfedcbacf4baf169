// Messages to the user. A report is composed of pieces: texts of the string table, words, names
// and numbers.
#pragma once

#include <cstdint>
#include <initializer_list>

#include "shell/window_record.h"
#include "workspace/text_ids.h"

namespace ondrel {

/// One piece of a report, made from a text's number, a word or name, or a whole number.
struct ReportPiece {
  enum class Kind { Text, Word, Number };
  Kind PieceKind;
  TextId Id{};
  const char* Word = nullptr;  // borrowed
  std::int32_t Number = 0;

  constexpr ReportPiece(TextId id) : PieceKind(Kind::Text), Id(id) {}
  constexpr ReportPiece(const char* word) : PieceKind(Kind::Word), Word(word) {}
  constexpr ReportPiece(std::int32_t number) : PieceKind(Kind::Number), Number(number) {}
};

/// Tells a failure in a modal box with one OK button and the stop icon.
void ReportFailure(FrameWindow* frame, std::initializer_list<ReportPiece> pieces);

/// Asks with Yes and No and the question icon. True for Yes.
bool AskYesNo(FrameWindow* frame, std::initializer_list<ReportPiece> pieces);

/// Tells something in a box with the information icon.
void ReportInformation(FrameWindow* frame, std::initializer_list<ReportPiece> pieces);

}  // namespace ondrel
