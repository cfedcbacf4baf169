#include "workspace/output_file.h"

#include <algorithm>
#include <cstring>

namespace ondrel {
namespace {

void Abandon(OutputFile& file, std::int32_t code) {
  file.Status = code;
  file.Used = 0;
  toolkit::CloseFile(file.Handle);
  file.Handle = {};
}

void WriteGathered(OutputFile& file) {
  const std::int32_t code = toolkit::WriteBytes(file.Handle, file.Gathered.data(), file.Used);
  file.Used = 0;
  if (code != 0) Abandon(file, code);
}

}  // namespace

std::int32_t CreateOutputFile(const char* path, OutputFile& file) {
  std::int32_t code = toolkit::CreateEmptyFile(path);
  if (code != 0) return code;
  code = OpenOutputFile(path, file);
  if (code != 0) toolkit::RemoveFile(path);
  return code;
}

std::int32_t OpenOutputFile(const char* path, OutputFile& file) {
  file.Handle = {};
  file.Used = 0;
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
