#include "views/all_views.h"

#include "output/eps_sink.h"
#include "output/illustrator_sink.h"
#include "output/screen_sink.h"
#include "shell/toolkit.h"
#include "views/view_kinds.h"
#include "views/view_window.h"

namespace ondrel {
namespace {

constexpr ViewKind kRefreshOrder[] = {
    ViewKind::Event,
    ViewKind::Level,
    ViewKind::Amplitude,
    ViewKind::Duration,
    ViewKind::AmplitudeScatter,
    ViewKind::DurationScatter,
    ViewKind::Scatter,
    ViewKind::Stationarity,
    ViewKind::Statistics,
    ViewKind::AmplitudeFit,
    ViewKind::DurationFit,
    ViewKind::Sweep,
};
static_assert(std::size(kRefreshOrder) == kViewCount);

constexpr ViewKind kCloseOrder[] = {
    ViewKind::Amplitude,
    ViewKind::Duration,
    ViewKind::Event,
    ViewKind::Level,
    ViewKind::AmplitudeFit,
    ViewKind::DurationFit,
    ViewKind::AmplitudeScatter,
    ViewKind::DurationScatter,
    ViewKind::Scatter,
    ViewKind::Stationarity,
    ViewKind::Statistics,
    ViewKind::Sweep,
};
static_assert(std::size(kCloseOrder) == kViewCount);

/// A window that is open stays the view's.
void ResetView(ViewState& view, const ViewKindRecord& facts) {
  ChildWindow* window = view.Window;
  view = {};
  view.Window = window;
  for (std::size_t i = 0; i < facts.Colors.size(); ++i) view.Colors[i] = facts.Colors[i].Default;
}

}  // namespace

void ResetViews(Workspace& workspace) {
  for (const ViewKind kind : kRefreshOrder) ResetView(ViewOf(workspace, kind), FactsOf(kind));
  workspace.ScreenSink = kScreenSink;
  workspace.IllustratorSink = kIllustratorSink;
  workspace.EpsSink = kEpsSink;
  workspace.ScreenDpi = toolkit::ScreenDpi();
  workspace.CascadeOffset = toolkit::MinimumWindowHeight();
  workspace.CascadeStep = toolkit::MinimumWindowHeight();
}

void RefreshViews(Workspace& workspace) {
  for (const ViewKind kind : kRefreshOrder) RepaintViewIfStale(workspace, kind);
}

void CloseViews(Workspace& workspace) {
  for (const ViewKind kind : kCloseOrder) DestroyView(workspace, kind);
}

}  // namespace ondrel
