#include "derived/derived_chain.h"

#include <initializer_list>

#include "derived/level_builder.h"
#include "derived/selection_filters.h"
#include "derived/statistics.h"
#include "fit/amplitude_histogram.h"
#include "fit/duration_histogram.h"
#include "workspace/workspace.h"

namespace ondrel {
namespace {

void SelectSweeps(Workspace& workspace) {
  ApplySweepFilter(workspace);
  UpdateShortestSweep(workspace);
}

void SelectLevels(Workspace& workspace) {
  PropagateSweepFlags(workspace);
  ApplyLevelFilters(workspace);
}

/// What is counted from the selected levels.
void SummarizeLevels(Workspace& workspace) {
  BuildAmplitudeHistogram(workspace);
  BuildDurationHistogram(workspace);
  CalculateStatistics(workspace);
}

/// Sweeps keep their flags: which of them are out does not follow from levels.
void RebuildLevels(Workspace& workspace) {
  BuildLevels(workspace);
  SelectLevels(workspace);
  SummarizeLevels(workspace);
}

void MarkViews(Workspace& workspace, std::initializer_list<ViewKind> views) {
  for (const ViewKind view : views) ViewOf(workspace, view).NeedsRebuild = true;
}

/// The two scatter plots against a value and the sweep table keep their pictures.
void MarkAfterLevels(Workspace& workspace) {
  MarkViews(workspace, {ViewKind::Level, ViewKind::Amplitude, ViewKind::AmplitudeFit,
                        ViewKind::Duration, ViewKind::DurationFit, ViewKind::Scatter,
                        ViewKind::Statistics, ViewKind::Stationarity});
}

void SelectAllValues(LevelFilter& filter, PositionChoice position) {
  filter.AmplitudeChoice = Selection::SelectAll;
  filter.DurationChoice = Selection::SelectAll;
  filter.LevelChoice = Selection::SelectAll;
  filter.TagChoice = Selection::SelectAll;
  filter.Position = position;
}

void SelectAllSweeps(SweepTable& sweeps) {
  sweeps.FileChoice = Selection::SelectAll;
  sweeps.IndexChoice = Selection::SelectAll;
  sweeps.RelevantChoice = Selection::SelectAll;
  sweeps.TagChoice = Selection::SelectAll;
}

}  // namespace

void DeriveAfterReading(Workspace& workspace) {
  BuildLevels(workspace);
  SelectSweeps(workspace);
  SelectLevels(workspace);
}

void DeriveAfterOpening(Workspace& workspace) {
  BuildAmplitudeHistogram(workspace);  // the duration histogram waits for its view
  CalculateStatistics(workspace);
}

void DeriveAfterAdding(Workspace& workspace) {
  SummarizeLevels(workspace);
}

void DeriveAfterLevelSettings(Workspace& workspace) {
  RebuildLevels(workspace);
  MarkAfterLevels(workspace);
}

void DeriveAfterLevelTags(Workspace& workspace) {
  WriteLevelTags(workspace);
  RebuildLevels(workspace);
  MarkAfterLevels(workspace);
  MarkViews(workspace, {ViewKind::Event});
}

void DeriveAfterLevelFilter(Workspace& workspace) {
  ClearLevelFlags(workspace.Levels);
  SelectLevels(workspace);
  SummarizeLevels(workspace);
  MarkViews(workspace,
            {ViewKind::Level, ViewKind::Amplitude, ViewKind::AmplitudeFit, ViewKind::Duration,
             ViewKind::DurationFit, ViewKind::AmplitudeScatter, ViewKind::DurationScatter,
             ViewKind::Scatter, ViewKind::Statistics, ViewKind::Stationarity});
}

void DeriveAfterSweepFilter(Workspace& workspace) {
  ClearSweepFlags(workspace.Sweeps);
  SelectSweeps(workspace);
  ClearLevelFlags(workspace.Levels);
  SelectLevels(workspace);
  SummarizeLevels(workspace);
  // The two scatter plots against a value keep their pictures here, though their dots may go.
  MarkViews(workspace, {ViewKind::Sweep, ViewKind::Level, ViewKind::Amplitude,
                        ViewKind::AmplitudeFit, ViewKind::Duration, ViewKind::DurationFit,
                        ViewKind::Scatter, ViewKind::Statistics, ViewKind::Stationarity});
}

void ResetFilters(Workspace& workspace) {
  SelectAllSweeps(workspace.Sweeps);
  SelectAllValues(workspace.Levels.LevelSelection, PositionChoice::AllButFirstAndLast);
  SelectAllValues(workspace.Levels.PrecedingSelection, PositionChoice::All);
  SelectAllValues(workspace.Levels.FollowingSelection, PositionChoice::All);
  ClearSweepFlags(workspace.Sweeps);
  ClearLevelFlags(workspace.Levels);
  SelectSweeps(workspace);
  SelectLevels(workspace);
  SummarizeLevels(workspace);
  MarkViews(workspace, {ViewKind::Level, ViewKind::Sweep, ViewKind::Statistics,
                        ViewKind::AmplitudeFit, ViewKind::DurationFit, ViewKind::Amplitude,
                        ViewKind::Duration, ViewKind::AmplitudeScatter, ViewKind::DurationScatter,
                        ViewKind::Scatter, ViewKind::Stationarity});
}

}  // namespace ondrel
