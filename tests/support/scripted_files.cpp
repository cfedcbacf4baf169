// Files of the scripted shell.
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "support/scripted_shell.h"
#include "workspace/records.h"

namespace ondrel::toolkit {

using scripted::TheShell;

namespace {

// Error codes as the platform has them.
constexpr std::int32_t kNoFile = 2;
constexpr std::int32_t kNoPath = 3;
constexpr std::int32_t kNoAccess = 5;
constexpr std::int32_t kReadFault = 23;
constexpr std::int32_t kDiskFull = 112;

}  // namespace

std::int32_t OpenFileForReading(const char* path, FileHandle* file) {
  if (TheShell().Open.Strikes()) return kNoAccess;
  std::FILE* stream = std::fopen(path, "rb");
  if (stream == nullptr) return errno == ENOENT ? kNoFile : kNoAccess;
  ++TheShell().OpenFiles;
  file->Handle = stream;
  return 0;
}

std::int32_t FileSize(FileHandle file, std::uint64_t* bytes) {
  if (TheShell().Size.Strikes()) return kReadFault;
  auto* stream = static_cast<std::FILE*>(file.Handle);
  if (std::fseek(stream, 0, SEEK_END) != 0) return kReadFault;
  *bytes = static_cast<std::uint64_t>(std::ftell(stream));
  return 0;
}

std::int32_t SeekToStart(FileHandle file) {
  if (TheShell().Seek.Strikes()) return kReadFault;
  return std::fseek(static_cast<std::FILE*>(file.Handle), 0, SEEK_SET) == 0 ? 0 : kReadFault;
}

std::int32_t ReadBytes(FileHandle file, void* buffer, std::size_t bytes) {
  if (TheShell().Read.Strikes()) return kReadFault;
  const std::size_t got = std::fread(buffer, 1, bytes, static_cast<std::FILE*>(file.Handle));
  return got == bytes ? 0 : kReadFault;
}

std::int32_t CloseFile(FileHandle file) {
  if (file.Handle == nullptr) return 0;
  --TheShell().OpenFiles;
  const bool closed = std::fclose(static_cast<std::FILE*>(file.Handle)) == 0;
  return closed && !TheShell().Close.Strikes() ? 0 : kReadFault;
}

std::int32_t CreateEmptyFile(const char* path) {
  if (TheShell().Create.Strikes()) return kNoAccess;
  std::FILE* stream = std::fopen(path, "wb");
  if (stream == nullptr) return errno == ENOENT ? kNoPath : kNoAccess;
  std::fclose(stream);
  return 0;
}

std::int32_t OpenFileForWriting(const char* path, FileHandle* file) {
  if (TheShell().OpenForWriting.Strikes()) return kNoAccess;
  std::FILE* stream = std::fopen(path, "r+b");
  if (stream == nullptr) return errno == ENOENT ? kNoFile : kNoAccess;
  ++TheShell().OpenFiles;
  file->Handle = stream;
  return 0;
}

std::int32_t WriteBytes(FileHandle file, const void* bytes, std::size_t count) {
  if (TheShell().Write.Strikes()) return kDiskFull;
  const std::size_t put = std::fwrite(bytes, 1, count, static_cast<std::FILE*>(file.Handle));
  return put == count ? 0 : kDiskFull;
}

std::int32_t RemoveFile(const char* path) {
  return std::remove(path) == 0 ? 0 : kNoFile;
}

std::int32_t FindUserFile(const char* folder, const char* name, char* path) {
  if (TheShell().UserFolder.empty() || TheShell().UserFolderFault.Strikes()) return kNoPath;
  const std::filesystem::path place = std::filesystem::path(TheShell().UserFolder) / folder;
  std::error_code failure;
  std::filesystem::create_directory(place, failure);
  if (failure) return kNoAccess;
  std::snprintf(path, kPathSize, "%s", (place / name).string().c_str());
  return 0;
}

}  // namespace ondrel::toolkit
