#include "workspace/writing_reports.h"

#include "workspace/report.h"

namespace ondrel {

void ReportWritingFailed(FrameWindow* frame) {
  ReportFailure(frame, {TextId::ErrorWhileWriting});
}

bool WriteReportedLine(FrameWindow* frame, OutputFile& file, std::string_view text) {
  if (WriteLine(file, text) == 0) return true;
  ReportWritingFailed(frame);
  return false;
}

}  // namespace ondrel
