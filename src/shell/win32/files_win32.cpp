// Files for reading.
#include <algorithm>

#include "shell/toolkit.h"
#include "shell/win32/win32.h"

namespace ondrel::toolkit {
namespace {

constexpr std::size_t kLargestRead = std::size_t{1}
                                     << 30;  // bytes the platform is asked for at once

}  // namespace

std::int32_t OpenFileForReading(const char* path, FileHandle* file) {
  HANDLE handle = CreateFileA(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return win32::LastError();
  file->Handle = handle;
  return 0;
}

std::int32_t FileSize(FileHandle file, std::uint64_t* bytes) {
  LARGE_INTEGER size{};
  if (GetFileSizeEx(file.Handle, &size) == FALSE) return win32::LastError();
  *bytes = static_cast<std::uint64_t>(size.QuadPart);
  return 0;
}

std::int32_t SeekToStart(FileHandle file) {
  const LARGE_INTEGER start{};
  return SetFilePointerEx(file.Handle, start, nullptr, FILE_BEGIN) == FALSE ? win32::LastError()
                                                                            : 0;
}

std::int32_t ReadBytes(FileHandle file, void* buffer, std::size_t bytes) {
  auto* rest = static_cast<char*>(buffer);
  while (bytes > 0) {
    const auto asked = static_cast<DWORD>(std::min(bytes, kLargestRead));
    DWORD got = 0;
    if (ReadFile(file.Handle, rest, asked, &got, nullptr) == FALSE) return win32::LastError();
    if (got == 0) return ERROR_HANDLE_EOF;
    rest += got;
    bytes -= got;
  }
  return 0;
}

std::int32_t CloseFile(FileHandle file) {
  return CloseHandle(file.Handle) == FALSE ? win32::LastError() : 0;
}

}  // namespace ondrel::toolkit
