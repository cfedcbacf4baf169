// A fixture for the commands by which pictures leave the program.
#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "shell/graph_export.h"
#include "views/destinations_fixture.h"

namespace ondrel {

inline constexpr char kWritingFailed[] =
    "Ondrel encountered an error while writing to the file. Ondrel will not write any more data to "
    "the file.";

class PictureCommandTest : public DestinationsTest {
 protected:
  static constexpr int kOk = 1;
  static constexpr int kHeight = 5;
  static constexpr int kWidth = 7;
  static constexpr int kForm = 8;
  static constexpr int kResolution = 11;

  PictureCommandTest()
      : path_((std::filesystem::path(::testing::TempDir()) /
               (std::string("picture_") +
                ::testing::UnitTest::GetInstance()->current_test_info()->name()))
                  .string()) {
    std::filesystem::remove(path_);
    workspace().ScreenDpi = 96.0;
    workspace().ExportDpi = 0.0;
    workspace().ExportRect = {};
    workspace().DeviceFontSize = 0;
    workspace().DevicePenSize = 0.0;
  }
  ~PictureCommandTest() override { std::filesystem::remove(path_); }

  /// 576 by 576 device units on a screen of 96 dots per inch, 432 points.
  struct Entries {
    const char* Height = "15.24";
    const char* Width = "15.24";
    const char* Resolution = "96";
  };

  /// Chooses "Export Graph...", enters these in its dialog, and takes the scratch file.
  void Export(ExportChoice form, const Entries& entries) {
    shell().DialogScripts.push_back([=](scripted::OpenDialog& dialog) {
      dialog.Type(kHeight, entries.Height);
      dialog.Type(kWidth, entries.Width);
      dialog.Choose(kForm, static_cast<int>(form));
      dialog.Type(kResolution, entries.Resolution);
      dialog.Press(kOk);
    });
    shell().FileChoices.push_back(path_);
    ExportGraphCommand(Frame());
    shell().FileChoices.clear();
  }
  void Export(ExportChoice form) { Export(form, Entries{}); }

  bool Exists() const { return std::filesystem::exists(path_); }
  std::string OnDisk() const {
    std::stringstream bytes;
    bytes << std::ifstream(path_, std::ios::binary).rdbuf();
    return bytes.str();
  }

  /// The lines of the file on disk.
  std::vector<std::string> DocumentLines() const {
    std::vector<std::string> lines;
    const std::string bytes = OnDisk();
    for (std::size_t start = 0; start < bytes.size();) {
      const std::size_t end = bytes.find("\r\n", start);
      EXPECT_NE(end, std::string::npos) << "a line without end";
      if (end == std::string::npos) break;
      lines.push_back(bytes.substr(start, end - start));
      start = end + 2;
    }
    return lines;
  }

  std::string path_;
};

}  // namespace ondrel
