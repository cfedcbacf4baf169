// A fixture for views: their states are reset, the menus that they ask for are written down beside
// what happens to the windows, and tables are filled in a few words.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdio>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "shell/toolkit.h"
#include "support/shell_test.h"
#include "views/all_views.h"
#include "views/view_kinds.h"
#include "views/view_window.h"

namespace ondrel {

/// A text on the screen: where its baseline begins.
struct DrawnText {
  std::int32_t X = 0;
  std::int32_t Y = 0;
  std::string Text;

  friend bool operator==(const DrawnText&, const DrawnText&) = default;
};

inline std::ostream& operator<<(std::ostream& stream, const DrawnText& text) {
  return stream << "'" << text.Text << "' at " << text.X << " " << text.Y;
}

/// The lines that begin with `start`.
inline std::vector<std::string> LinesWith(const std::vector<std::string>& lines,
                                          const std::string& start) {
  std::vector<std::string> found;
  for (const std::string& line : lines) {
    if (line.starts_with(start)) found.push_back(line);
  }
  return found;
}

/// The texts among the lines that a device wrote down.
inline std::vector<DrawnText> TextsIn(const std::vector<std::string>& drawing) {
  std::vector<DrawnText> texts;
  for (const std::string& line : LinesWith(drawing, "text ")) {
    DrawnText text;
    int read = 0;
    EXPECT_EQ(std::sscanf(line.c_str(), "text %d %d%n", &text.X, &text.Y, &read), 2) << line;
    text.Text = line.substr(static_cast<std::size_t>(read) + 1);
    texts.push_back(text);
  }
  return texts;
}

inline std::vector<ViewKind> AllKinds() {
  std::vector<ViewKind> kinds;
  for (std::size_t i = 0; i < kViewCount; ++i) kinds.push_back(static_cast<ViewKind>(i));
  return kinds;
}

class ViewTest : public ShellTest {
 protected:
  // Of the font of 10 points on 96 dots per inch, which is 13 units high.
  static constexpr std::int32_t kLetter = 7;
  static constexpr std::int32_t kAscent = 10;
  static constexpr std::int32_t kLine = 13;

  ViewTest() {
    ResetViews(workspace());
    workspace().Menus = {.InstallViewMenu = NoteViewMenu,
                         .InstallDataMenu = NoteDataMenu,
                         .RefreshFitEntries = NoteFitEntries};
  }

  ~ViewTest() override { CloseViews(workspace()); }

  ViewState& View(ViewKind kind) { return ViewOf(workspace(), kind); }
  scripted::Window& WindowOf(ViewKind kind) { return scripted::WindowOf(View(kind).Window); }

  /// Opens the view and forgets what that drew and did.
  ChildWindow* Open(ViewKind kind) {
    OpenView(Frame(), kind);
    ForgetAll();
    return View(kind).Window;
  }

  /// A window for the view that does nothing by itself, also for kinds that cannot be opened.
  ChildWindow* OpenInert(ViewKind kind) {
    auto* callbacks = toolkit::AllocateRecords<ChildCallbacks>(1);
    *callbacks = kInert;
    View(kind).Window = toolkit::CreateChild(Frame(), FactsOf(kind).Title, {10, 20, 210, 120},
                                             false, false, &workspace(), callbacks);
    ForgetAll();
    return View(kind).Window;
  }

  std::vector<std::string> Paint(ViewKind kind) { return scripted::PaintChild(View(kind).Window); }

  /// What was done to windows and menus since the last ForgetAll.
  std::vector<std::string>& Happened() { return shell().Windows; }
  std::vector<std::string>& Drawn() { return shell().Drawing; }

  void ForgetAll() {
    shell().Windows.clear();
    shell().Drawing.clear();
    for (const auto& child : shell().Children) child->Invalidated.clear();
  }

  /// Each allocates the table with `count` records and a few spare ones, and hands each record to
  /// `fill` with its row.
  void FillEvents(std::int32_t count, const std::function<void(EventRecord&, std::int32_t)>& fill) {
    Fill<EventRecord>(workspace().Events, count, AllocateEventTable, fill);
  }
  void FillLevels(std::int32_t count, const std::function<void(LevelRecord&, std::int32_t)>& fill) {
    Fill<LevelRecord>(workspace().Levels, count, AllocateLevelTable, fill);
  }
  void FillSweeps(std::int32_t count, const std::function<void(SweepRecord&, std::int32_t)>& fill) {
    Fill<SweepRecord>(workspace().Sweeps, count, AllocateSweepTable, fill);
  }

  void FillStatistics(const std::vector<StatisticsRow>& rows, std::int32_t totalEvents) {
    StatisticsTable& statistics = workspace().Statistics;
    statistics.RowCount = static_cast<std::int32_t>(rows.size());
    statistics.Rows = toolkit::AllocateRecords<StatisticsRow>(statistics.RowCount);
    for (std::size_t i = 0; i < rows.size(); ++i) statistics.Rows[i] = rows[i];
    statistics.TotalEvents = totalEvents;
  }

  static std::int32_t WidthOf(const std::string& text) {
    return kLetter * static_cast<std::int32_t>(text.size());
  }

  /// `text` as it is drawn when it ends at `right`.
  static DrawnText EndingAt(std::int32_t right, std::int32_t y, const std::string& text) {
    return {right - WidthOf(text), y, text};
  }

 private:
  static constexpr std::int32_t kSpareRecords = 3;

  static void NoteViewMenu(FrameWindow*, ViewKind view) {
    scripted::TheShell().Windows.push_back(std::string("menu of ") + FactsOf(view).Title);
  }
  static void NoteDataMenu(FrameWindow*) {
    scripted::TheShell().Windows.push_back("menu of no view");
  }
  static void NoteFitEntries(FrameWindow*) {
    scripted::TheShell().Windows.push_back("fit entries");
  }

  template <typename Record, typename Table>
  void Fill(Table& table, std::int32_t count, void (*allocate)(FrameWindow*),
            const std::function<void(Record&, std::int32_t)>& fill) {
    table.Capacity = count + kSpareRecords;
    allocate(Frame());
    table.Count = count;
    for (std::int32_t row = 0; row < count; ++row) fill(*table.Index[row], row);
  }

  static void IgnorePoint(WindowRecord*, int, int) {}
  static void IgnoreAxis(WindowRecord*, Axis) {}
  static void IgnorePlacement(WindowRecord*, WindowPlacement) {}
  static void IgnoreFlag(WindowRecord*, bool) {}
  static void IgnoreCall(WindowRecord*) {}
  static void IgnorePaint(WindowRecord*, const DeviceRecord&) {}
  static void IgnoreChar(WindowRecord*, int) {}
  static int PassKeyOn(WindowRecord*, int) { return 0; }
  static int PassMessageOn(WindowRecord*, const void*) { return 0; }

  static constexpr ChildCallbacks kInert = {
      .Created = IgnoreCall,
      .Command = IgnorePoint,
      .MouseDown = IgnorePoint,
      .MouseMove = IgnorePoint,
      .MouseUp = IgnorePoint,
      .ScrollBegin = IgnoreAxis,
      .ScrollLineUp = IgnoreAxis,
      .ScrollPageUp = IgnoreAxis,
      .ScrollHome = IgnoreAxis,
      .ScrollEnd = IgnoreAxis,
      .ScrollPageDown = IgnoreAxis,
      .ScrollLineDown = IgnoreAxis,
      .ScrollDone = IgnoreAxis,
      .Moved = IgnorePlacement,
      .Sized = IgnorePlacement,
      .Close = IgnoreCall,
      .Activate = IgnoreFlag,
      .Paint = IgnorePaint,
      .Enabled = IgnoreFlag,
      .Unused19 = IgnoreCall,
      .Unused20 = IgnoreCall,
      .KeyDown = PassKeyOn,
      .Char = IgnoreChar,
      .FilterMessage = PassMessageOn,
      .Closing = IgnoreCall,
  };
};

}  // namespace ondrel
