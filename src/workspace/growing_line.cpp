#include "workspace/growing_line.h"

#include <algorithm>
#include <cstring>

#include "shell/toolkit.h"
#include "workspace/report.h"

namespace ondrel {
namespace {

bool Grow(FrameWindow* frame, GrowingLine& line, std::size_t bytes) {
  const std::size_t capacity = line.Capacity + bytes;
  auto* const text = static_cast<char*>(toolkit::AllocateZeroed(capacity, 1));
  if (text == nullptr) {
    ReportFailure(frame,
                  {TextId::InsufficientMemoryFor, "temperary string", TextId::ReduceEntries});
    return false;
  }
  if (line.Used > 0) std::memcpy(text, line.Text, line.Used);
  toolkit::FreeMemory(line.Text);
  line.Text = text;
  line.Capacity = capacity;
  return true;
}

}  // namespace

bool AppendField(FrameWindow* frame, GrowingLine& line, std::string_view text, char separator) {
  const std::size_t length = text.size() + 1;
  const bool full = line.Used + length >= line.Capacity;
  if (full && !Grow(frame, line, std::max(kLineGrowth, length))) return false;
  std::memcpy(line.Text + line.Used, text.data(), text.size());
  line.Used += length;
  line.Text[line.Used - 1] = separator;
  return true;
}

void FreeLine(GrowingLine& line) {
  toolkit::FreeMemory(line.Text);
  line = {};
}

}  // namespace ondrel
