// What the end-to-end tests share: small recordings, files for them, the numbers of menu entries,
// and where the rows of a table stand in a picture.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "program.h"

namespace ondrel::e2e {

namespace command {
inline constexpr int kOpen = 51713;
inline constexpr int kClose = 51714;
inline constexpr int kAdd = 51715;
inline constexpr int kImport = 51717;
inline constexpr int kSaveEvents = 51719;
inline constexpr int kSaveLevels = 51720;
inline constexpr int kSettings = 51724;
inline constexpr int kExportGraph = 51726;
inline constexpr int kExportText = 51727;
inline constexpr int kPrint = 51728;
inline constexpr int kExit = 51730;
inline constexpr int kReset = 52227;
inline constexpr int kViewEvent = 52486;
inline constexpr int kViewLevel = 52487;
inline constexpr int kViewStatistics = 52489;
inline constexpr int kViewSweep = 52490;
inline constexpr int kAbout = 55297;
inline constexpr int kEventColor = 25857;
}  // namespace command

/// Controls of the dialog "File Settings".
namespace settings {
inline constexpr int kOpen = 1;
inline constexpr int kOk = 2;
inline constexpr int kCancel = 3;
inline constexpr int kEvents = 6;
inline constexpr int kSweeps = 8;
inline constexpr int kFontSize = 10;
inline constexpr int kPenSize = 12;
inline constexpr int kSkip = 13;
}  // namespace settings

// A channel that opens to 5 pA and shuts again, one transition every millisecond. Row numbers can
// be told apart by their times. Sweeps are numbered from 1.

/// The bare list: nothing but transitions. A sweep ends at its last one, so that it gives as many
/// levels as events.
std::string BareList(int sweeps, int eventsPerSweep);
/// Version 1 or 2 of the layout with one file; a sweep goes on for 1 ms behind its last transition
/// and gives one level more than events.
std::string VersionOneOrTwo(int version, int sweeps, int eventsPerSweep);
/// Version 2 with a block that deals the sweeps to two files.
std::string VersionTwoWithFiles(int sweepsOfFirst, int sweepsOfSecond, int eventsPerSweep);
/// The layout with files, segments and events, one file of the type "Undefined".
std::string VersionFive(int sweeps, int eventsPerSweep);
/// One opening and the closing behind it.
struct Opening {
  double Current;  // pA
  double Open;     // s
  double Closed;   // s
};
/// The layout with files, one sweep with these openings.
std::string VersionFiveOf(const std::vector<Opening>& openings);
/// A sweep and what its row says of it. It ends with the closing behind its last opening.
struct RecordedSweep {
  double Relevant = 0.0;
  double Tag = 0.0;
  double Before = 0.001;  // s, in front of the first opening
  std::vector<Opening> Openings;
};
/// The layout with files, of as many sweeps.
std::string VersionFiveOfSweeps(const std::vector<RecordedSweep>& sweeps);
/// Six columns for "&Import Events...".
std::string ImportTable(int sweeps, int eventsPerSweep);

std::string ContentOf(const std::string& path);
void WriteContent(const std::string& path, const std::string& content);
/// Lines without their ends. Whatever stands behind the last end is a line, too.
std::vector<std::string> LinesOf(const std::string& content);

/// A file that nobody else may open meanwhile.
class HeldFile {
 public:
  explicit HeldFile(const std::string& path);
  ~HeldFile() { CloseHandle(handle_); }
  HeldFile(const HeldFile&) = delete;
  HeldFile& operator=(const HeldFile&) = delete;

 private:
  HANDLE handle_;
};

/// Where the rows of a table view stand in a picture of its client area, at the font size with
/// which the program starts.
class RowGrid {
 public:
  explicit RowGrid(int fontSize = 10);
  [[nodiscard]] int LineHeight() const { return lineHeight_; }
  /// How many whole rows fit under the header in this height.
  [[nodiscard]] int VisibleRows(int height) const;
  [[nodiscard]] Picture Header(const Picture& view) const;
  /// Row `place` from the top of the window, counted from 0.
  [[nodiscard]] Picture Row(const Picture& view, int place) const;
  /// All below row `place`.
  [[nodiscard]] Picture Below(const Picture& view, int place) const;

 private:
  [[nodiscard]] int RowTop(int place) const {
    return 3 * lineHeight_ - ascent_ + place * lineHeight_;
  }

  int ascent_ = 0;
  int lineHeight_ = 0;
};

/// A test with a scratch folder of its own.
class EndToEnd : public ::testing::Test {
 protected:
  EndToEnd();
  ~EndToEnd() override;

  /// Writes a file into the scratch folder and returns its path.
  [[nodiscard]] std::string File(const std::string& name, const std::string& content) const;
  /// Opens a file with this content from the menu and waits for the two views.
  void OpenTable(Program& program, const std::string& content) const;

 private:
  std::string folder_;
};

/// Gives the inside of a view this size, pixels, and waits until it has it.
void SizeInside(const Window& view, Point size);

/// Takes a colour, 0xRRGGBB, in the dialog with this title that a colour command brings up.
void ChooseColor(const Program& program, int id, const std::string& title, std::uint32_t color);

/// Waits until the bar is that of the state without data, and checks that no view is open.
void ExpectNoData(const Program& program);

}  // namespace ondrel::e2e
