// Files, and where those of the user are kept.
#include <shlobj.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "shell/toolkit.h"
#include "shell/win32/win32.h"
#include "workspace/records.h"

namespace ondrel::toolkit {
namespace {

/// Bytes that the platform is asked for at once.
constexpr std::size_t kLargestTransfer = std::size_t{1} << 30;

std::int32_t OpenFile(const char* path, DWORD access, FileHandle* file) {
  HANDLE handle = CreateFileA(path, access, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return win32::LastError();
  file->Handle = handle;
  return 0;
}

}  // namespace

std::int32_t OpenFileForReading(const char* path, FileHandle* file) {
  return OpenFile(path, GENERIC_READ, file);
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
    const auto asked = static_cast<DWORD>(std::min(bytes, kLargestTransfer));
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

std::int32_t CreateEmptyFile(const char* path) {
  HANDLE handle = CreateFileA(path, GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return win32::LastError();
  return CloseFile({handle});
}

std::int32_t OpenFileForWriting(const char* path, FileHandle* file) {
  return OpenFile(path, GENERIC_READ | GENERIC_WRITE, file);
}

std::int32_t WriteBytes(FileHandle file, const void* bytes, std::size_t count) {
  const auto* rest = static_cast<const char*>(bytes);
  while (count > 0) {
    const auto asked = static_cast<DWORD>(std::min(count, kLargestTransfer));
    DWORD written = 0;
    if (WriteFile(file.Handle, rest, asked, &written, nullptr) == FALSE) return win32::LastError();
    if (written == 0) return ERROR_HANDLE_DISK_FULL;
    rest += written;
    count -= written;
  }
  return 0;
}

std::int32_t RemoveFile(const char* path) {
  return DeleteFileA(path) == FALSE ? win32::LastError() : 0;
}

std::int32_t FindUserFile(const char* folder, const char* name, char* path) {
  char place[MAX_PATH] = "";
  const HRESULT found =
      SHGetFolderPathA(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, place);
  if (FAILED(found)) return static_cast<std::int32_t>(HRESULT_CODE(found));
  if (std::strlen(place) + std::strlen(folder) + std::strlen(name) + 3 > kPathSize) {
    return ERROR_FILENAME_EXCED_RANGE;
  }
  std::snprintf(path, kPathSize, "%s\\%s", place, folder);
  if (CreateDirectoryA(path, nullptr) == FALSE && GetLastError() != ERROR_ALREADY_EXISTS) {
    return win32::LastError();
  }
  std::snprintf(path, kPathSize, "%s\\%s\\%s", place, folder, name);
  return 0;
}

}  // namespace ondrel::toolkit
