#include "workspace/whole_file.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>

#include "workspace/report.h"

namespace ondrel {
namespace {

/// Room for the whole file, of one byte for an empty one. Null when its size cannot be had, too.
bool AllocateBlock(toolkit::FileHandle handle, WholeFile* file) {
  std::uint64_t size = 0;
  if (toolkit::FileSize(handle, &size) != 0) return false;
  if (size > std::numeric_limits<std::size_t>::max()) return false;
  file->Size = static_cast<std::size_t>(size);
  file->Bytes =
      static_cast<char*>(toolkit::AllocateZeroed(std::max<std::size_t>(file->Size, 1), 1));
  return file->Bytes != nullptr;
}

/// Returns 0, or the platform's code; no block is left then.
std::int32_t FillBlock(toolkit::FileHandle handle, WholeFile* file) {
  std::int32_t code = toolkit::SeekToStart(handle);
  if (code == 0) code = toolkit::ReadBytes(handle, file->Bytes, file->Size);
  if (code == 0) return 0;
  toolkit::FreeMemory(file->Bytes);
  file->Bytes = nullptr;
  return code;
}

}  // namespace

const char* ShortNameOf(const char* path) {
  const char* const backslash = std::strrchr(path, '\\');
  return backslash != nullptr ? backslash + 1 : path;
}

bool HoldOpenFile(toolkit::FileHandle handle, WholeFile* file) {
  return AllocateBlock(handle, file) && FillBlock(handle, file) == 0;
}

bool ReadWholeFile(FrameWindow* frame, const char* path, WholeFile* file) {
  std::snprintf(file->Name, sizeof file->Name, "%s", ShortNameOf(path));
  toolkit::FileHandle handle;
  std::int32_t code = toolkit::OpenFileForReading(path, &handle);
  if (code != 0) {
    ReportFailure(frame, {TextId::CouldNotOpenFile, file->Name, TextId::DotErrorCode, code, "."});
    return false;
  }
  if (!AllocateBlock(handle, file)) {
    ReportFailure(frame, {TextId::InsufficientMemoryFor, file->Name, TextId::QuitOtherPrograms});
    toolkit::CloseFile(handle);
    return false;
  }
  code = FillBlock(handle, file);
  toolkit::CloseFile(handle);
  if (code != 0) ReportFailure(frame, {TextId::ErrorCode, code, TextId::WhileReading});
  return code == 0;
}

}  // namespace ondrel
