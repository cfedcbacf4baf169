#include "shell/preferences.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "views/all_views.h"
#include "views/histogram_layout.h"
#include "workspace/number_text.h"
#include "workspace/power_of_ten.h"
#include "workspace/preference_lines.h"
#include "workspace/records.h"
#include "workspace/report.h"
#include "workspace/text_scanner.h"
#include "workspace/whole_file.h"
#include "workspace/workspace.h"
#include "workspace/writing_reports.h"

namespace ondrel {
namespace {

constexpr char kFolder[] = "Halmere";
constexpr char kFileName[] = "Ondrel.set";
constexpr char kDialogTitle[] = "Preference file:";
constexpr std::size_t kShortNameSize = 32;  // bytes, the closing NUL included

// --- Writing -------------------------------------------------------------------------------------

void LineText(const Workspace& workspace, int line, char* text) {
  if (line < kFirstPreferenceValue) {
    text[0] = kPreferenceVersion;
    text[1] = '\0';
  } else {
    PreferenceText(workspace, line, text);
  }
}

bool WriteLineOf(const Workspace& workspace, int line, toolkit::FileHandle file) {
  constexpr char kLineEnd[] = "\r\n";
  char text[kNumberTextSize + sizeof kLineEnd];
  LineText(workspace, line, text);
  std::strcat(text, kLineEnd);
  return toolkit::WriteBytes(file, text, std::strlen(text)) == 0;
}

/// Half a file would be read as a corrupted one: none is better.
void WriteWholeOrNothing(FrameWindow* frame, const char* path, toolkit::FileHandle file) {
  if (WritePreferences(frame, file)) {
    toolkit::CloseFile(file);
  } else {
    toolkit::RemoveFile(path);
  }
}

/// Opens the file, which is made when it is not there yet. Returns 0 or the platform's code.
std::int32_t OpenOrCreate(const char* path, toolkit::FileHandle* file) {
  if (toolkit::OpenFileForWriting(path, file) == 0) return 0;
  std::int32_t code = toolkit::CreateEmptyFile(path);
  if (code != 0) return code;
  code = toolkit::OpenFileForWriting(path, file);
  if (code != 0) toolkit::RemoveFile(path);
  return code;
}

std::int32_t OpenOwnFile(char* path, toolkit::FileHandle* file) {
  const std::int32_t code = toolkit::FindUserFile(kFolder, kFileName, path);
  return code != 0 ? code : OpenOrCreate(path, file);
}

// --- Reading -------------------------------------------------------------------------------------

/// The version is one byte, behind which another one stands that is not looked at.
constexpr std::size_t kVersionBytes = 2;

TextScanner ScannerBehindVersion(const WholeFile& file) {
  const char* end = file.Bytes + file.Size;
  return {file.Size < kVersionBytes ? end : file.Bytes + kVersionBytes, end};
}

/// Stores what stands there up to the first line that is no number or not there at all. False when
/// there is such a line.
bool StoreLines(Workspace& workspace, const WholeFile& file) {
  TextScanner scanner = ScannerBehindVersion(file);
  for (int line = kFirstPreferenceValue; line <= kPreferenceLines; ++line) {
    if (AtEndOfData(scanner)) return false;
    char token[kTokenLimit];
    NextToken(scanner, token, sizeof token);
    if (!StorePreference(workspace, line, token)) return false;
  }
  return true;
}

void ResetAfterCorruption(FrameWindow* frame, bool quiet) {
  if (!quiet) ReportFailure(frame, {TextId::PreferencesCorrupted});
  ResetWorkspace(*frame->Owner);
  ResetViews(*frame->Owner);
}

/// False when the user has no file of his own.
bool ReadOwnFile(FrameWindow* frame) {
  char path[kPathSize];
  if (toolkit::FindUserFile(kFolder, kFileName, path) != 0) return false;
  toolkit::FileHandle file;
  if (toolkit::OpenFileForReading(path, &file) != 0) return false;
  ReadPreferences(frame, kFileName, file, true);
  return true;
}

/// The first estimates of a session stand where the axes of the last one were.
void PlaceFirstTerms(Workspace& workspace) {
  AmplitudeHistogram& amplitude = workspace.Amplitude;
  DurationHistogram& duration = workspace.Duration;
  duration.Terms[0].TimeConstant = PowerOfTen(1.0 + duration.MinimumExponent);
  amplitude.Terms[0].Current = amplitude.Minimum + amplitude.PerTick;
}

void LayOutHistograms(Workspace& workspace) {
  const GraphicsSink& sink = workspace.ScreenSink;
  LayoutAmplitude(workspace, sink, ViewOf(workspace, ViewKind::Amplitude).ViewRect);
  LayoutCountedDuration(workspace, sink, ViewOf(workspace, ViewKind::Duration).ViewRect);
}

}  // namespace

bool WritePreferences(FrameWindow* frame, toolkit::FileHandle file) {
  for (int line = 1; line <= kPreferenceLines; ++line) {
    if (WriteLineOf(*frame->Owner, line, file)) continue;
    toolkit::CloseFile(file);
    ReportWritingFailed(frame);
    return false;
  }
  return true;
}

void ReadPreferences(FrameWindow* frame, const char* name, toolkit::FileHandle file, bool quiet) {
  WholeFile whole;
  const bool held = HoldOpenFile(file, &whole);
  toolkit::CloseFile(file);
  if (!held) return;
  if (whole.Size == 0 || whole.Bytes[0] != kPreferenceVersion) {
    if (!quiet) ReportFailure(frame, {name, TextId::DifferentVersion});
  } else if (!StoreLines(*frame->Owner, whole)) {
    ResetAfterCorruption(frame, quiet);
  }
  toolkit::FreeMemory(whole.Bytes);
}

void SavePreferences(FrameWindow* frame) {
  char path[kPathSize];
  toolkit::FileHandle file;
  const std::int32_t code = OpenOwnFile(path, &file);
  if (code != 0) {
    ReportFailure(frame, {TextId::CouldNotSavePreferences, code, "."});
    return;
  }
  WriteWholeOrNothing(frame, path, file);
}

void RestorePreferences(FrameWindow* frame) {
  Workspace& workspace = *frame->Owner;
  const bool found = ReadOwnFile(frame);
  if (found) PlaceFirstTerms(workspace);
  LayOutHistograms(workspace);
  if (!found) ReportInformation(frame, {TextId::Welcome});
}

void LoadPreferencesCommand(FrameWindow* frame) {
  char path[kPathSize];
  if (!toolkit::AskFile(frame, toolkit::FileDialogMode::Open, kDialogTitle, "", path)) return;
  toolkit::FileHandle file;
  if (toolkit::OpenFileForReading(path, &file) != 0) return;
  char name[kShortNameSize];
  std::snprintf(name, sizeof name, "%s", ShortNameOf(path));
  ReadPreferences(frame, name, file, false);
}

void SavePreferencesCommand(FrameWindow* frame) {
  char path[kPathSize];
  if (!toolkit::AskFile(frame, toolkit::FileDialogMode::Save, kDialogTitle, kFileName, path)) {
    return;
  }
  toolkit::FileHandle file;
  if (toolkit::CreateEmptyFile(path) != 0 || toolkit::OpenFileForWriting(path, &file) != 0) {
    ReportWritingFailed(frame);
    return;
  }
  WriteWholeOrNothing(frame, path, file);
}

}  // namespace ondrel
