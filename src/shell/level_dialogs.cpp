#include "shell/level_dialogs.h"

#include <cstddef>

#include "derived/derived_chain.h"
#include "derived/selection_settings.h"
#include "shell/dialog_fields.h"
#include "views/all_views.h"
#include "workspace/units.h"
#include "workspace/workspace.h"

namespace ondrel {
namespace {

constexpr RealForm kMilliseconds{.Unit = kMillisecond, .Decimals = 3};

// --- Events --------------------------------------------------------------------------------------

constexpr const char* kAmplitudes[] = {"Absolute", "Delta", "Delta Magnitude"};
constexpr const char* kRanges[] = {"Relevant Segment", "Sweep"};
constexpr const char* kTagSources[] = {"Closing count", "Event"};
constexpr const char* kOpeningRules[] = {"Fragments", "Highest"};

constexpr DialogField kEventsFields[] = {
    ListField(4, offsetof(LevelSettings, AmplitudeMode), kAmplitudes),
    ListField(5, offsetof(LevelSettings, Range), kRanges),
    ListField(6, offsetof(LevelSettings, TagSource), kTagSources),
    RealField(8, offsetof(LevelSettings, InstrumentDelay), kAnyReal, kMilliseconds),
    ListField(10, offsetof(LevelSettings, MultipleOpenings), kOpeningRules),
    RealField(12, offsetof(LevelSettings, BurstResolution), kNotNegative, kMilliseconds),
    IntegerField(14, offsetof(LevelSettings, BaseLevel)),
};
constexpr DialogTable kEvents{.Resource = 123, .Fields = kEventsFields};

LevelSettings SettingsOf(const Workspace& workspace) {
  return {.AmplitudeMode = workspace.Events.AmplitudeMode,
          .Range = workspace.Levels.Range,
          .TagSource = workspace.Levels.TagSource,
          .InstrumentDelay = workspace.Levels.InstrumentDelay,
          .MultipleOpenings = workspace.Levels.MultipleOpenings,
          .BurstResolution = workspace.Events.BurstResolution,
          .BaseLevel = workspace.Levels.BaseLevel};
}

// --- Filters -------------------------------------------------------------------------------------

constexpr const char* kSelections[] = {"Select All", "Include", "Exclude"};
constexpr const char* kPositions[] = {"All",          "All But First", "All But First And Last",
                                      "All But Last", "First",         "First And Last",
                                      "Last"};

constexpr DialogField kLevelFilterFields[] = {
    ListField(4, offsetof(LevelFilter, AmplitudeChoice), kSelections),
    RealField(5, offsetof(LevelFilter, AmplitudeLow), kAnyReal, kPicoamperes),
    RealField(6, offsetof(LevelFilter, AmplitudeHigh), kAnyReal, kPicoamperes),
    ListField(8, offsetof(LevelFilter, DurationChoice), kSelections),
    RealField(9, offsetof(LevelFilter, DurationLow), kNotNegative, kMilliseconds),
    RealField(10, offsetof(LevelFilter, DurationHigh), kNotNegative, kMilliseconds),
    ListField(12, offsetof(LevelFilter, LevelChoice), kSelections),
    IntegerField(13, offsetof(LevelFilter, LevelLow)),
    IntegerField(14, offsetof(LevelFilter, LevelHigh)),
    ListField(16, offsetof(LevelFilter, TagChoice), kSelections),
    RealField(17, offsetof(LevelFilter, TagLow), kAnyReal),
    RealField(18, offsetof(LevelFilter, TagHigh), kAnyReal),
    ListField(20, offsetof(LevelFilter, Position), kPositions),
};
constexpr DialogTable kLevelFilter{.Resource = 124, .Fields = kLevelFilterFields};

constexpr DialogField kSweepFilterFields[] = {
    ListField(4, offsetof(SweepFilter, FileChoice), kSelections),
    IntegerField(5, offsetof(SweepFilter, FileLow), 1),
    IntegerField(6, offsetof(SweepFilter, FileHigh), 1),
    ListField(8, offsetof(SweepFilter, RelevantChoice), kSelections),
    RealField(9, offsetof(SweepFilter, RelevantLow), kAnyReal),
    RealField(10, offsetof(SweepFilter, RelevantHigh), kAnyReal),
    ListField(12, offsetof(SweepFilter, TagChoice), kSelections),
    RealField(13, offsetof(SweepFilter, TagLow), kAnyReal),
    RealField(14, offsetof(SweepFilter, TagHigh), kAnyReal),
    ListField(16, offsetof(SweepFilter, IndexChoice), kSelections),
    IntegerField(17, offsetof(SweepFilter, IndexLow), 1),
    IntegerField(18, offsetof(SweepFilter, IndexHigh), 1),
};
constexpr DialogTable kSweepFilter{.Resource = 134, .Fields = kSweepFilterFields};

SweepFilter FilterOf(const SweepTable& sweeps) {
  return {.FileChoice = sweeps.FileChoice,
          .FileLow = sweeps.FileLow,
          .FileHigh = sweeps.FileHigh,
          .RelevantChoice = sweeps.RelevantChoice,
          .RelevantLow = sweeps.RelevantLow,
          .RelevantHigh = sweeps.RelevantHigh,
          .TagChoice = sweeps.TagChoice,
          .TagLow = sweeps.TagLow,
          .TagHigh = sweeps.TagHigh,
          .IndexChoice = sweeps.IndexChoice,
          .IndexLow = sweeps.IndexLow,
          .IndexHigh = sweeps.IndexHigh};
}

void EditLevelFilter(FrameWindow* frame, LevelFilter& stored) {
  LevelFilter entered = stored;
  if (!EditSettings(frame, kLevelFilter, entered)) return;
  if (!StoreLevelFilter(stored, entered)) return;
  DeriveAfterLevelFilter(*frame->Owner);
  RefreshViews(*frame->Owner);
}

// --- Tags ----------------------------------------------------------------------------------------

constexpr DialogField kLevelTagFields[] = {
    RadioField(4, 5, offsetof(EventTable, TagSetMode)),
    RealField(6, offsetof(EventTable, TagSetValue), kAnyReal),
};
constexpr DialogTable kLevelTag{.Resource = 143, .Fields = kLevelTagFields};

}  // namespace

void EventsCommand(FrameWindow* frame) {
  Workspace& workspace = *frame->Owner;
  LevelSettings entered = SettingsOf(workspace);
  if (!EditSettings(frame, kEvents, entered)) return;
  if (!StoreLevelSettings(workspace, entered)) return;
  DeriveAfterLevelSettings(workspace);
  RefreshViews(workspace);
}

void SweepFilterCommand(FrameWindow* frame) {
  Workspace& workspace = *frame->Owner;
  SweepFilter entered = FilterOf(workspace.Sweeps);
  if (!EditSettings(frame, kSweepFilter, entered)) return;
  if (!StoreSweepFilter(workspace.Sweeps, entered)) return;
  DeriveAfterSweepFilter(workspace);
  RefreshViews(workspace);
}

void LevelFilterCommand(FrameWindow* frame) {
  EditLevelFilter(frame, frame->Owner->Levels.LevelSelection);
}

void PrecedingFilterCommand(FrameWindow* frame) {
  EditLevelFilter(frame, frame->Owner->Levels.PrecedingSelection);
}

void FollowingFilterCommand(FrameWindow* frame) {
  EditLevelFilter(frame, frame->Owner->Levels.FollowingSelection);
}

void LevelTagCommand(FrameWindow* frame) {
  Workspace& workspace = *frame->Owner;
  if (!EditSettings(frame, kLevelTag, workspace.Events)) return;
  DeriveAfterLevelTags(workspace);
  RefreshViews(workspace);
}

}  // namespace ondrel
