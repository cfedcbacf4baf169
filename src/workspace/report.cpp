#include "workspace/report.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstring>

#include "shell/toolkit.h"

namespace ondrel {
namespace {

/// The longest report has some 400 bytes; a longer one would be cut, never overrun.
constexpr std::size_t kReportSize = 1024;

struct ReportText {
  char Text[kReportSize] = "";
  std::size_t Length = 0;
};

void Append(ReportText& report, const char* text) {
  const std::size_t length = std::min(std::strlen(text), kReportSize - 1 - report.Length);
  std::memcpy(report.Text + report.Length, text, length);
  report.Length += length;
  report.Text[report.Length] = '\0';
}

void AppendPiece(ReportText& report, const ReportPiece& piece) {
  char buffer[kReportSize] = "";
  switch (piece.PieceKind) {
    case ReportPiece::Kind::Text:
      toolkit::LoadText(static_cast<int>(piece.Id), buffer, sizeof buffer);
      Append(report, buffer);
      return;
    case ReportPiece::Kind::Word:
      Append(report, piece.Word);
      return;
    case ReportPiece::Kind::Number:
      std::snprintf(buffer, sizeof buffer, "%d", static_cast<int>(piece.Number));
      Append(report, buffer);
      return;
  }
}

ReportText Compose(std::initializer_list<ReportPiece> pieces) {
  ReportText report;
  for (const ReportPiece& piece : pieces) AppendPiece(report, piece);
  return report;
}

}  // namespace

void ReportFailure(FrameWindow* frame, std::initializer_list<ReportPiece> pieces) {
  toolkit::ShowBox(frame, Compose(pieces).Text, toolkit::BoxButtons::Ok, toolkit::BoxIcon::Stop, 1);
}

bool AskYesNo(FrameWindow* frame, std::initializer_list<ReportPiece> pieces) {
  return toolkit::ShowBox(frame, Compose(pieces).Text, toolkit::BoxButtons::YesNo,
                          toolkit::BoxIcon::Question, 1) == toolkit::BoxAnswer::Yes;
}

void ReportInformation(FrameWindow* frame, std::initializer_list<ReportPiece> pieces) {
  toolkit::ShowBox(frame, Compose(pieces).Text, toolkit::BoxButtons::Ok,
                   toolkit::BoxIcon::Information, 1);
}

}  // namespace ondrel
