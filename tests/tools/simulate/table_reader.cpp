// Tokens off a stream, and one function for each block of the layouts.
#include "simulate/table_reader.h"

#include <map>
#include <sstream>
#include <stdexcept>

namespace ondrel::simulate {
namespace {

const std::map<std::string, std::size_t> kHeaderLengths{
    {"Undefined", 0}, {"pClamp6", 6},  {"Sampler", 1},       {"Exchange", 1},
    {"Pulse", 6},     {"IgorWave", 0}, {"RawContinuous", 6},
};

/// Takes whole tokens off a stream.
struct Tokens {
  std::istringstream Stream;

  explicit Tokens(const std::string& text) : Stream(text) {}

  bool AtEnd() { return (Stream >> std::ws).eof(); }

  std::string Next() {
    std::string token;
    if (!(Stream >> token)) throw std::runtime_error("the table ends too early");
    return token;
  }

  int Integer() {
    const std::string token = Next();
    std::size_t used = 0;
    const int value = std::stoi(token, &used);
    if (used != token.size()) throw std::runtime_error(token + " is no integer");
    return value;
  }

  double Real() {
    const std::string token = Next();
    std::size_t used = 0;
    const double value = std::stod(token, &used);
    if (used != token.size()) throw std::runtime_error(token + " is no real");
    return value;
  }

  void Expect(const std::string& keyword) {
    const std::string token = Next();
    if (token != keyword) throw std::runtime_error(keyword + " wanted, not " + token);
  }

  /// Takes the keyword when it comes next.
  bool Take(const std::string& keyword) {
    const auto place = Stream.tellg();
    std::string token;
    if (Stream >> token && token == keyword) return true;
    Stream.clear();
    Stream.seekg(place);
    return false;
  }
};

ReadSweep ReadSweepRow(Tokens& tokens, bool withStart) {
  ReadSweep sweep;
  sweep.Number = tokens.Integer();
  if (withStart) sweep.StartTime = tokens.Real();
  sweep.Duration = tokens.Real();
  sweep.RelevantStart = tokens.Real();
  sweep.RelevantEnd = tokens.Real();
  sweep.RelevantValue = tokens.Real();
  sweep.TagValue = tokens.Real();
  return sweep;
}

ReadEvent ReadEventRow(Tokens& tokens, bool withLevels) {
  ReadEvent event;
  event.Sweep = tokens.Integer();
  event.Transition = tokens.Real();
  event.PreAmplitude = tokens.Real();
  if (withLevels) event.PreLevel = tokens.Integer();
  event.PostAmplitude = tokens.Real();
  if (withLevels) event.PostLevel = tokens.Integer();
  event.Level = tokens.Integer();
  event.TagValue = tokens.Real();
  return event;
}

void ReadSegmentRow(Tokens& tokens, ReadFile& file, std::size_t row) {
  if (tokens.Integer() != static_cast<int>(row) + 1) throw std::runtime_error("segment order");
  const int count = tokens.Integer();
  for (int i = 0; i < 2 * count; ++i) file.Sweeps.at(row).Segments.push_back(tokens.Real());
}

/// The type, and the name up to its tab or the line's end.
void ReadHeaderLine(Tokens& tokens, ReadFile& file) {
  file.Type = tokens.Next();
  if (file.Type != "Undefined") {
    tokens.Stream >> std::ws;
    for (int next = tokens.Stream.get(); next != '\t' && next != '\r'; next = tokens.Stream.get()) {
      file.Name += static_cast<char>(next);
    }
  }
  for (std::size_t i = 0; i < kHeaderLengths.at(file.Type); ++i) {
    file.Header.push_back(tokens.Next());
  }
}

ReadFile ReadGroup(Tokens& tokens) {
  ReadFile file;
  ReadHeaderLine(tokens, file);
  tokens.Expect("Sweeps");
  while (!tokens.Take("Segments")) file.Sweeps.push_back(ReadSweepRow(tokens, false));
  for (std::size_t row = 0; !tokens.Take("Events"); ++row) ReadSegmentRow(tokens, file, row);
  while (!tokens.AtEnd() && !tokens.Take("File")) {
    file.Events.push_back(ReadEventRow(tokens, false));
  }
  return file;
}

}  // namespace

std::vector<ReadEvent> ReadBareTable(const std::string& text) {
  std::vector<ReadEvent> events;
  for (Tokens tokens(text); !tokens.AtEnd();) {
    ReadEvent event;
    event.Sweep = tokens.Integer();
    event.Transition = tokens.Real();
    event.PreAmplitude = tokens.Real();
    event.PreLevel = tokens.Integer();
    event.PostAmplitude = tokens.Real();
    event.PostLevel = tokens.Integer();
    event.Level = tokens.Integer();
    events.push_back(event);
  }
  return events;
}

ReadSweepTable ReadOldTable(const std::string& text) {
  Tokens tokens(text);
  ReadSweepTable table;
  table.Version = tokens.Integer();
  if (tokens.Take("Files")) {
    while (!tokens.Take("Sweeps")) table.Files.push_back(tokens.Integer());
  } else {
    tokens.Expect("Sweeps");
  }
  while (!tokens.Take("Events")) table.Sweeps.push_back(ReadSweepRow(tokens, true));
  while (!tokens.AtEnd()) table.Events.push_back(ReadEventRow(tokens, table.Version == 1));
  return table;
}

std::vector<ReadFile> ReadFileTable(const std::string& text) {
  Tokens tokens(text);
  std::vector<ReadFile> files;
  tokens.Expect("5");
  tokens.Expect("File");
  while (!tokens.AtEnd()) files.push_back(ReadGroup(tokens));
  return files;
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = text.find('\n', start);
    if (end == std::string::npos || end == start || text[end - 1] != '\r') {
      throw std::runtime_error("a line does not end in CR LF");
    }
    lines.push_back(text.substr(start, end - 1 - start));
    if (lines.back().find('\r') != std::string::npos) throw std::runtime_error("a lone CR");
    start = end + 1;
  }
  return lines;
}

std::vector<std::string> Columns(const std::string& line) {
  std::vector<std::string> columns(1);
  for (const char c : line) {
    if (c == '\t') {
      columns.emplace_back();
    } else {
      columns.back() += c;
    }
  }
  return columns;
}

}  // namespace ondrel::simulate
