#include "shell/level_dialogs.h"

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
    ListField<&LevelSettings::AmplitudeMode>(4, kAmplitudes),
    ListField<&LevelSettings::Range>(5, kRanges),
    ListField<&LevelSettings::TagSource>(6, kTagSources),
    RealField<&LevelSettings::InstrumentDelay>(8, kAnyReal, kMilliseconds),
    ListField<&LevelSettings::MultipleOpenings>(10, kOpeningRules),
    RealField<&LevelSettings::BurstResolution>(12, kNotNegative, kMilliseconds),
    IntegerField<&LevelSettings::BaseLevel>(14),
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
    ListField<&LevelFilter::AmplitudeChoice>(4, kSelections),
    RealField<&LevelFilter::AmplitudeLow>(5, kAnyReal, kPicoamperes),
    RealField<&LevelFilter::AmplitudeHigh>(6, kAnyReal, kPicoamperes),
    ListField<&LevelFilter::DurationChoice>(8, kSelections),
    RealField<&LevelFilter::DurationLow>(9, kNotNegative, kMilliseconds),
    RealField<&LevelFilter::DurationHigh>(10, kNotNegative, kMilliseconds),
    ListField<&LevelFilter::LevelChoice>(12, kSelections),
    IntegerField<&LevelFilter::LevelLow>(13),
    IntegerField<&LevelFilter::LevelHigh>(14),
    ListField<&LevelFilter::TagChoice>(16, kSelections),
    RealField<&LevelFilter::TagLow>(17, kAnyReal),
    RealField<&LevelFilter::TagHigh>(18, kAnyReal),
    ListField<&LevelFilter::Position>(20, kPositions),
};
constexpr DialogTable kLevelFilter{.Resource = 124, .Fields = kLevelFilterFields};

constexpr DialogField kSweepFilterFields[] = {
    ListField<&SweepFilter::FileChoice>(4, kSelections),
    IntegerField<&SweepFilter::FileLow>(5, 1),
    IntegerField<&SweepFilter::FileHigh>(6, 1),
    ListField<&SweepFilter::RelevantChoice>(8, kSelections),
    RealField<&SweepFilter::RelevantLow>(9, kAnyReal),
    RealField<&SweepFilter::RelevantHigh>(10, kAnyReal),
    ListField<&SweepFilter::TagChoice>(12, kSelections),
    RealField<&SweepFilter::TagLow>(13, kAnyReal),
    RealField<&SweepFilter::TagHigh>(14, kAnyReal),
    ListField<&SweepFilter::IndexChoice>(16, kSelections),
    IntegerField<&SweepFilter::IndexLow>(17, 1),
    IntegerField<&SweepFilter::IndexHigh>(18, 1),
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
    RadioField<&EventTable::TagSetMode>(4, 5),
    RealField<&EventTable::TagSetValue>(6, kAnyReal),
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
