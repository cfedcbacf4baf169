// A frame without data and the user's own folder on the disk, empty at first.
#pragma once

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "shell/preferences.h"
#include "support/preference_texts.h"
#include "support/shell_test.h"
#include "views/all_views.h"

namespace ondrel {

inline constexpr char kWriteFailure[] =
    "Ondrel encountered an error while writing to the file. Ondrel will not write any more data to "
    "the file.";
inline constexpr char kCorrupted[] =
    "The preferences file is corrupted. Ondrel will use the default settings.";
inline constexpr char kWelcome[] = "Welcome to Ondrel for Windows X4.3.3!";

/// A folder for programs' data, as the platform has one for each user; gone after the test.
class ScratchFolder {
 public:
  ScratchFolder()
      : path_(std::filesystem::path(::testing::TempDir()) /
              ("ondrel " +
               std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()))) {
    std::filesystem::remove_all(path_);
    std::filesystem::create_directories(path_);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  std::string Path() const { return path_.string(); }
  std::string In(const std::string& name) const { return (path_ / name).string(); }
  std::string OwnFile() const { return (path_ / "Halmere" / "Ondrel.set").string(); }
  bool HasOwnFile() const { return std::filesystem::exists(OwnFile()); }

  void WriteOwnFile(const std::string& bytes) const {
    std::filesystem::create_directories(path_ / "Halmere");
    std::ofstream(OwnFile(), std::ios::binary) << bytes;
  }

 private:
  std::filesystem::path path_;
};

class PreferencesTest : public ShellTest {
 protected:
  PreferencesTest() {
    ResetViews(workspace());
    shell().UserFolder = folder_.Path();
  }

  const ScratchFolder& folder() const { return folder_; }
  std::string OwnBytes() const { return BytesOf(folder_.OwnFile()); }

  /// A file elsewhere, as a user saves one.
  std::string NewFile(const std::string& name, const std::string& bytes) {
    std::ofstream(folder_.In(name), std::ios::binary) << bytes;
    return folder_.In(name);
  }

  void Load(const std::string& path) {
    shell().FileChoices.push_back(path);
    LoadPreferencesCommand(Frame());
  }
  void SaveAs(const std::string& path) {
    shell().FileChoices.push_back(path);
    SavePreferencesCommand(Frame());
  }

  /// The settings as a file would have them.
  std::string Held() {
    const std::string path = folder_.In("held");
    const scripted::Fault write = shell().Write;
    shell().Write = {};
    SaveAs(path);
    shell().Write = write;
    return BytesOf(path);
  }

 private:
  ScratchFolder folder_;
};

}  // namespace ondrel
