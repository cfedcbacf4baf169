// One writer for each generation of the layout, made of row writers that each append one line.
#include "simulate/event_table_text.h"

#include <cstdarg>
#include <cstdio>

namespace ondrel::simulate {
namespace {

constexpr double kPicoampere = 1e-12;  // A

/// Appends what printf would write. Times are written with "%.6f", amplitudes with "%.7E", values
/// and tags with "%.6E".
[[gnu::format(printf, 2, 3)]] void Append(std::string& text, const char* format, ...) {
  char buffer[1024];  // the longest: two times of 309 digits before the point
  va_list arguments;
  va_start(arguments, format);
  const int length = std::vsnprintf(buffer, sizeof buffer, format, arguments);
  va_end(arguments);
  text.append(buffer, static_cast<std::size_t>(length));
}

void EndLine(std::string& text) {
  text += "\r\n";
}

void AppendKeyword(std::string& text, std::string_view keyword) {
  text += keyword;
  EndLine(text);
}

Stretch RelevantSegment(const FilePlan& plan) {
  return plan.HasRelevant ? plan.Relevant : Stretch{0.0, plan.Duration};
}

bool HasTransition(const std::vector<SimulatedFile>& files) {
  for (const SimulatedFile& file : files) {
    for (const SimulatedSweep& sweep : file.Sweeps) {
      if (!sweep.Transitions.empty()) return true;
    }
  }
  return false;
}

std::string WriteBare(const std::vector<SimulatedFile>& files) {
  std::string text;
  int number = 0;
  for (const SimulatedFile& file : files) {
    for (const SimulatedSweep& sweep : file.Sweeps) {
      if (sweep.Transitions.empty()) continue;
      ++number;
      for (const Transition& row : sweep.Transitions) {
        Append(text, "%d\t%.6f\t%.7E\t%d\t%.7E\t%d\t%d", number, row.Time,
               row.PreAmplitude * kPicoampere, row.PreLevel, row.PostAmplitude * kPicoampere,
               row.PostLevel, row.PostLevel);
        EndLine(text);
      }
    }
  }
  return text;
}

/// The four times and values that a sweep row of every layout ends with.
void AppendSweepTail(std::string& text, const FilePlan& plan, int index) {
  const Stretch relevant = RelevantSegment(plan);
  Append(text, "\t%.6f\t%.6f\t%.6E\t%.6E", relevant.Start, relevant.End,
         RuleValue(plan.RelevantValue, index), RuleValue(plan.TagValue, index));
  EndLine(text);
}

void AppendSweepRows(std::string& text, const SimulatedFile& file, int& number) {
  const double interval = file.Plan->Interval > 0.0 ? file.Plan->Interval : file.Plan->Duration;
  for (int index = 0; index < file.Plan->Sweeps; ++index) {
    Append(text, "%d\t%.6f\t%.6f", ++number, interval * index, file.Plan->Duration);
    AppendSweepTail(text, *file.Plan, index);
  }
}

void AppendEventRow(std::string& text, int version, int number, const Transition& row, double tag) {
  Append(text, "%d\t%.6f\t%.7E", number, row.Time, row.PreAmplitude * kPicoampere);
  if (version == 1) Append(text, "\t%d", row.PreLevel);
  Append(text, "\t%.7E", row.PostAmplitude * kPicoampere);
  if (version == 1) Append(text, "\t%d", row.PostLevel);
  Append(text, "\t%d\t%.6E", row.PostLevel, tag);
  EndLine(text);
}

void AppendEventRows(std::string& text, int version, const SimulatedFile& file, int& number) {
  int index = 0;
  for (const SimulatedSweep& sweep : file.Sweeps) {
    ++number;
    const double tag = RuleValue(file.Plan->EventTag, index++);
    for (const Transition& row : sweep.Transitions) {
      AppendEventRow(text, version, number, row, tag);
    }
  }
}

/// Versions 1 and 2. Sweeps are numbered through all files, as the event rows refer to them.
std::string WriteSweepTable(const std::vector<SimulatedFile>& files, int version, bool withFiles) {
  std::string text;
  AppendKeyword(text, std::to_string(version));
  if (withFiles) {
    AppendKeyword(text, "Files");
    for (const SimulatedFile& file : files) AppendKeyword(text, std::to_string(file.Plan->Sweeps));
  }
  AppendKeyword(text, "Sweeps");
  int number = 0;
  for (const SimulatedFile& file : files) AppendSweepRows(text, file, number);
  AppendKeyword(text, "Events");
  number = 0;
  for (const SimulatedFile& file : files) AppendEventRows(text, version, file, number);
  return text;
}

void AppendHeaderValue(std::string& text, const FilePlan& plan, std::size_t column) {
  const char kind = plan.Kind->Columns[column];
  const double value = !plan.Header.empty() ? plan.Header[column] : kind == 'b' ? 1.0 : 0.0;
  if (kind != 'r') {
    Append(text, "\t%d", static_cast<int>(value));
  } else {
    Append(text, "\t%.*E", plan.Kind->RealDigits, value);
  }
}

void AppendHeader(std::string& text, const FilePlan& plan) {
  text += plan.Kind->Keyword;
  if (plan.Kind->HasName) text += '\t' + plan.Name;
  for (std::size_t i = 0; i < plan.Kind->Columns.size(); ++i) AppendHeaderValue(text, plan, i);
  if (plan.Kind->EndsInTab) text += '\t';
  EndLine(text);
}

void AppendSegmentRow(std::string& text, const FilePlan& plan, int number) {
  std::vector<Stretch> segments = plan.Segments;
  if (segments.empty()) segments.push_back({0.0, plan.Duration});
  Append(text, "%d\t%d\t", number, static_cast<int>(segments.size()));
  for (const Stretch& segment : segments) Append(text, "%.6f\t%.6f\t", segment.Start, segment.End);
  EndLine(text);
}

void AppendFileGroup(std::string& text, const SimulatedFile& file) {
  AppendKeyword(text, "File");
  AppendHeader(text, *file.Plan);
  AppendKeyword(text, "Sweeps");
  for (int index = 0; index < file.Plan->Sweeps; ++index) {
    Append(text, "%d\t%.6f", index + 1, file.Plan->Duration);
    AppendSweepTail(text, *file.Plan, index);
  }
  AppendKeyword(text, "Segments");
  for (int number = 1; number <= file.Plan->Sweeps; ++number) {
    AppendSegmentRow(text, *file.Plan, number);
  }
  AppendKeyword(text, "Events");
  int number = 0;
  AppendEventRows(text, 5, file, number);
}

std::string WriteFileGroups(const std::vector<SimulatedFile>& files) {
  std::string text;
  AppendKeyword(text, "5");
  for (const SimulatedFile& file : files) AppendFileGroup(text, file);
  return text;
}

}  // namespace

std::string WriteEventTable(const std::vector<SimulatedFile>& files, TableLayout layout) {
  if (layout != TableLayout::Version5 && !HasTransition(files)) {
    throw ModelError("there is no transition, and the layout " + std::string(LayoutWord(layout)) +
                     " cannot do without one");
  }
  switch (layout) {
    case TableLayout::Bare:
      return WriteBare(files);
    case TableLayout::Version1:
      return WriteSweepTable(files, 1, false);
    case TableLayout::Version1Files:
      return WriteSweepTable(files, 1, true);
    case TableLayout::Version2:
      return WriteSweepTable(files, 2, false);
    case TableLayout::Version2Files:
      return WriteSweepTable(files, 2, true);
    case TableLayout::Version5:
      break;
  }
  return WriteFileGroups(files);
}

}  // namespace ondrel::simulate
