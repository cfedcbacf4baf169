// Any bytes as the preference file of a user, and then a whole run of the program with a small
// recording: every view is opened and drawn, every dialog is opened and left by its buttons.
//
// Bytes that begin with '8' are the file as it stands. Any others change lines of the default file,
// so that most of what is tried gets as far as settings: two bytes choose a line, what follows up
// to a line end is its new text.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "shell/application.h"
#include "shell/command_ids.h"
#include "shell/menus.h"
#include "support/preference_texts.h"
#include "support/scripted_shell.h"
#include "views/view_kinds.h"
#include "workspace/workspace.h"

namespace ondrel::fuzz {

/// Two sweeps with openings of two levels.
inline constexpr char kRecording[] =
    "2 Files 2 Sweeps 1 0 10 0 10 0 0 2 0 5 1 4 0 0 Events "
    "1 0.5 0 1E-12 1 0 1 1.5 1E-12 0 0 0 1 2 0 2E-12 2 3 1 2.25 2E-12 1E-12 1 0 1 2.5 1E-12 0 0 4 "
    "2 1 0 1E-12 1 0 2 1.001 1E-12 0 0 0 2 1.5 0 1E-12 1 0 2 3 1E-12 0 0 7";

/// Enough for ten thousand bins and samples; what asks for more is told that there is none.
inline constexpr std::size_t kMemory = std::size_t{1} << 19;

inline void Check(bool condition, const char* what) {
  if (condition) return;
  std::fprintf(stderr, "broken: %s\n", what);
  std::abort();
}

/// A folder of this process with the recording and the user's own file.
class UserPlace {
 public:
  UserPlace() {
    const auto number = std::random_device{}();
    folder_ = std::filesystem::temp_directory_path() / ("ondrel-fuzz-" + std::to_string(number));
    std::filesystem::create_directories(folder_ / "Halmere");
    std::ofstream(folder_ / "recording.evt", std::ios::binary) << kRecording;
  }
  ~UserPlace() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  void Write(const std::string& preferences) const {
    std::ofstream(folder_ / "Halmere" / "Ondrel.set", std::ios::binary) << preferences;
  }
  std::string Folder() const { return folder_.string(); }
  std::string Recording() const { return (folder_ / "recording.evt").string(); }

 private:
  std::filesystem::path folder_;
};

inline std::string PreferencesFrom(std::string_view bytes) {
  if (bytes.starts_with('8')) return std::string(bytes);
  PreferenceTexts texts = DefaultPreferenceTexts();
  while (bytes.size() > 2) {
    const auto high = static_cast<std::uint8_t>(bytes[0]);
    const auto low = static_cast<std::uint8_t>(bytes[1]);
    bytes.remove_prefix(2);
    const std::size_t end = std::min(bytes.find('\n'), bytes.size());
    texts[1 + (high * 256u + low) % (texts.size() - 1)] = bytes.substr(0, end);
    bytes.remove_prefix(std::min(end + 1, bytes.size()));
  }
  return PreferenceBytes(texts);
}

/// All commands that stand in the menus, but for those that end the run, let the data go, or start
/// a search whose length is the user's to choose.
inline std::vector<CommandId> SafeCommands() {
  std::vector<CommandId> commands;
  for (int menu = kMainMenu; menu <= kMainMenu + 16; ++menu) {
    for (const MenuRow& row : RowsOfMenu(menu)) {
      if (row.RowKind != MenuRow::Kind::Entry) continue;
      const auto command = static_cast<CommandId>(row.Id);
      if (command == command::kClose || command == command::kExit) continue;
      if (command == command::kAmplitudeAutomaticFit) continue;
      if (command == command::kDurationAutomaticFit) continue;
      commands.push_back(command);
    }
  }
  return commands;
}

inline void PaintAll() {
  std::vector<WindowRecord*> windows;
  for (const auto& child : scripted::TheShell().Children) windows.push_back(&child->Record);
  for (WindowRecord* window : windows) {
    scripted::PaintChild(window);
    scripted::TheShell().Windows.clear();
  }
}

/// What its user does: opens the recording, everything there is, and every dialog.
inline void UseProgram(FrameWindow* frame, const std::string& recording) {
  scripted::Shell& shell = scripted::TheShell();
  const auto choose = [&](CommandId command) {
    frame->Callbacks->Command(frame, command >> 8, command & 0xFF);
  };
  shell.FileChoices.push_back(recording);
  choose(command::kOpen);
  // Twice: what stands in the menu of a view may come before the view is opened.
  const std::vector<CommandId> commands = SafeCommands();
  for (int round = 0; round < 2; ++round) {
    for (const CommandId command : commands) {
      shell.DialogScripts.assign(1, [](scripted::OpenDialog& dialog) {
        dialog.Press(1);
        dialog.Press(2);
      });
      choose(command);
    }
  }
  PaintAll();
  choose(command::kClose);
}

/// One run of the program.
inline void FuzzPreferences(const std::uint8_t* data, std::size_t size) {
  static const UserPlace kPlace;
  kPlace.Write(PreferencesFrom({reinterpret_cast<const char*>(data), size}));
  scripted::ResetShell();
  scripted::Shell& shell = scripted::TheShell();
  shell.UserFolder = kPlace.Folder();
  shell.LargestAllocation = kMemory;
  shell.KeepsDrawing = false;
  shell.Loop = [](FrameWindow* frame) {
    UseProgram(frame, kPlace.Recording());
    frame->Callbacks->Closing(frame);
  };
  Check(RunApplication(nullptr) == 0, "the run");
  Check(shell.LiveAllocations == 0, "all memory is freed");
  Check(shell.OpenFiles == 0, "all files are closed");
  Check(shell.OpenDevices == 0 && shell.DeviceObjects == 0, "all devices are given back");
}

}  // namespace ondrel::fuzz
