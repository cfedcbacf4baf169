// A fixture in which the whole program runs with all twelve views open, and which tells which of
// them were repainted.
#pragma once

#include <gmock/gmock.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "support/program_test.h"
#include "support/view_test.h"
#include "views/all_views.h"
#include "views/view_kinds.h"

namespace ondrel {

using Titles = std::vector<std::string>;

inline Titles TitlesOf(const std::vector<ViewKind>& kinds) {
  Titles titles;
  for (const ViewKind kind : kinds) titles.emplace_back(FactsOf(kind).Title);
  return titles;
}

class AllViewsTest : public ProgramTest {
 protected:
  AllViewsTest() : file_("all_views.evt", kTwoOpenings), rows_("all_views.txt", kImportRows) {}

  /// Opens all views and tells them apart by their backgrounds.
  void RunWithAllViews(const std::function<void()>& act) {
    Run([&] {
      OpenFile(file_.Path());
      for (const CommandId command :
           {command::kAmplitudeView, command::kAmplitudeManualFit, command::kDurationView,
            command::kDurationManualFit, command::kAmplitudeScatterView,
            command::kDurationScatterView, command::kScatterView, command::kStationarityView,
            command::kStatisticsView, command::kSweepView}) {
        Choose(command);
      }
      ASSERT_EQ(shell().Children.size(), kViewCount);
      for (const ViewKind kind : AllKinds()) {
        View(kind).Colors[FactsOf(kind).Background] = MarkOf(kind);
      }
      Forget();
      act();
    });
  }

  ViewState& View(ViewKind kind) { return ViewOf(workspace(), kind); }

  void Forget() {
    shell().Drawing.clear();
    for (const auto& child : shell().Children) child->Invalidated.clear();
  }

  /// The views that were repainted since the last Forget, in that order. Each is invalid as a whole
  /// afterwards, and none is marked any more.
  Titles Repainted() {
    std::vector<ViewKind> kinds;
    for (const std::string& line : LinesWith(shell().Drawing, "background ")) {
      for (const ViewKind kind : AllKinds()) {
        const std::string mark = std::to_string(MarkOf(kind).Red) + " 0 0";
        if (line == "background " + mark) kinds.push_back(kind);
      }
    }
    for (const ViewKind kind : AllKinds()) {
      EXPECT_FALSE(View(kind).NeedsRebuild) << FactsOf(kind).Title;
      if (View(kind).Window == nullptr) continue;
      const auto repaints = std::count(kinds.begin(), kinds.end(), kind);
      const scripted::Window& window = scripted::WindowOf(View(kind).Window);
      EXPECT_EQ(static_cast<std::ptrdiff_t>(window.Invalidated.size()), repaints) << window.Title;
      for (const IntRect& rect : window.Invalidated) EXPECT_EQ(rect, window.Client);
    }
    return TitlesOf(kinds);
  }

  Titles RepaintedAfter(void (*derive)(Workspace&)) {
    Forget();
    derive(workspace());
    EXPECT_THAT(LinesWith(shell().Drawing, "background "), ::testing::IsEmpty()) << "not by itself";
    RefreshViews(workspace());
    return Repainted();
  }

  /// What the window shows when the platform asks it to paint.
  std::vector<std::string> Dots(ViewKind kind) {
    return LinesWith(scripted::PaintChild(View(kind).Window), "filled rect");
  }

  static RgbColor MarkOf(ViewKind kind) { return {static_cast<std::int32_t>(kind) + 1001, 0, 0}; }

  ScratchFile file_;
  ScratchFile rows_;
};

}  // namespace ondrel
