#include "workspace/output_file.h"

#include <algorithm>
#include <cstring>

namespace ondrel {
namespace {

/// Nothing is open then, and nothing waits. It takes nothing when `code` tells a failure.
void Reset(OutputFile& file, std::int32_t code) {
  file.Handle = {};
  file.Used = 0;
  file.Status = code;
}

void Abandon(OutputFile& file, std::int32_t code) {
  toolkit::CloseFile(file.Handle);
  Reset(file, code);
}

void WriteGathered(OutputFile& file) {
  const std::int32_t code = toolkit::WriteBytes(file.Handle, file.Gathered.data(), file.Used);
  file.Used = 0;
  if (code != 0) Abandon(file, code);
}

}  // namespace

std::int32_t CreateOutputFile(const char* path, OutputFile& file) {
  const std::int32_t created = toolkit::CreateEmptyFile(path);
  if (created != 0) {
    Reset(file, created);
    return created;
  }
  const std::int32_t opened = OpenOutputFile(path, file);
  if (opened != 0) toolkit::RemoveFile(path);
  return opened;
}

std::int32_t OpenOutputFile(const char* path, OutputFile& file) {
  Reset(file, 0);
  file.Status = toolkit::OpenFileForWriting(path, &file.Handle);
  return file.Status;
}

std::int32_t WriteText(OutputFile& file, std::string_view text) {
  while (file.Status == 0 && !text.empty()) {
    const std::size_t taken = std::min(text.size(), file.Gathered.size() - file.Used);
    std::memcpy(file.Gathered.data() + file.Used, text.data(), taken);
    file.Used += taken;
    text.remove_prefix(taken);
    if (file.Used == file.Gathered.size()) WriteGathered(file);
  }
  return file.Status;
}

std::int32_t WriteLine(OutputFile& file, std::string_view text) {
  WriteText(file, text);
  return WriteText(file, kLineEnd);
}

std::int32_t FlushOutputFile(OutputFile& file) {
  if (file.Status == 0 && file.Used > 0) WriteGathered(file);
  return file.Status;
}

std::int32_t CloseOutputFile(OutputFile& file) {
  FlushOutputFile(file);
  if (file.Handle.Handle == nullptr) return file.Status;
  file.Status = toolkit::CloseFile(file.Handle);
  file.Handle = {};
  return file.Status;
}

}  // namespace ondrel
