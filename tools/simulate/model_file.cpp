// A model file is read line by line. Each line's first word is looked up in one table of keywords,
// which knows how many words may follow and where the line may stand.
#include "simulate/model_file.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <functional>
#include <system_error>

namespace ondrel::simulate {

const std::string_view kModelFileHelp =
    R"(A model file has one setting on each line; a word that begins with # begins a comment.
Rates are in s^-1, currents in pA, times in s, or as 20ms or 40us.

  state NAME LEVEL CURRENT   a state of the channel, its level number and its current
  rate FROM TO RATE          how fast the channel leaves FROM for TO (0 unless given)
  start NAME                 the state in which each sweep begins; "equilibrium" (so
                             unless given) draws it anew for each sweep and channel
  channels N                 independent copies, whose levels and currents add up (1)
  noise SD                   standard deviation added to the current of each dwell (0)
  dead-time TIME             shorter visits are dropped (0: none)
  sweeps N                   number of sweeps (1)
  duration TIME              length of a sweep; must be given
  interval TIME              from the start of a sweep to the start of the next
                             (the duration); only the layouts 1 and 2 tell it
  relevant START END         relevant segment of each sweep (the whole sweep)
  segment START END          an analysed stretch of each sweep, in layout 5; may be
                             given several times (one, the whole sweep)
  relevant-value V [STEP]    relevant value of the first sweep, and what each further
                             sweep adds to it (0 0)
  tag-value V [STEP]         tag value of the sweeps, likewise (0 0)
  event-tag V [STEP]         tag value of a sweep's events, likewise (0 0)
  drift across-sweeps WHAT FIRST LAST
  drift within-sweep WHAT FIRST LAST
                             a factor that goes from FIRST to LAST in a straight line,
                             from the first to the last sweep or from the start to the
                             end of each sweep. WHAT is "rate FROM TO", "rates" (all of
                             them) or "current". Several drifts multiply
  layout LAYOUT              bare, 1, 1-files, 2, 2-files or 5 (5)
  seed N                     of the random numbers (1)
  file TYPE                  begins a data file of the table. Lines behind it concern
                             this file alone; lines before the first one concern all
                             files. Without it there is one file of type Undefined
  name PATH                  of the data file, to the end of the line
  header VALUE ...           values of the type's own header, as they stand in the table
)";

namespace {

using Words = std::vector<std::string_view>;

/// What has been read so far.
struct Reading {
  Model Result;
  FilePlan Common;  // lines before the first "file"
  bool InFile = false;

  FilePlan& Plan() { return InFile ? Result.Files.back() : Common; }
};

enum class Place { Anywhere, BeforeFiles, InFile };

struct Keyword {
  std::string_view Word;
  std::size_t Least;  // words that must follow
  std::size_t Most;
  Place Where;
  std::string_view Usage;
  void (*Read)(Reading& reading, const Words& words);
};

constexpr std::size_t kAnyNumber = static_cast<std::size_t>(-1);

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r';
}

std::string_view Trim(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

Words SplitWords(std::string_view line) {
  Words words;
  while (!(line = Trim(line)).empty()) {
    const auto end = std::find_if(line.begin(), line.end(), IsBlank);
    const auto length = static_cast<std::size_t>(end - line.begin());
    words.push_back(line.substr(0, length));
    line.remove_prefix(length);
  }
  return words;
}

/// The words before the first that begins with #. A # inside a word, as in a file's name, is kept.
Words WithoutComment(Words words) {
  const auto comment = std::find_if(words.begin(), words.end(),
                                    [](std::string_view word) { return word.front() == '#'; });
  words.erase(comment, words.end());
  return words;
}

[[noreturn]] void Reject(std::string_view word, const std::string& wanted) {
  throw ModelError("\"" + std::string(word) + "\" is not " + wanted);
}

/// The number at the start of `word`; `rest` is what stands behind it.
bool ParseNumberPart(std::string_view word, double& value, std::string_view& rest) {
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
  if (error != std::errc() || !std::isfinite(value)) return false;
  rest = word.substr(static_cast<std::size_t>(end - word.data()));
  return true;
}

double ReadNumber(std::string_view word) {
  double value = 0.0;
  std::string_view rest;
  if (!ParseNumberPart(word, value, rest) || !rest.empty()) Reject(word, "a number");
  return value;
}

double ReadTime(std::string_view word) {
  struct Unit {
    std::string_view Name;
    double PerSecond;  // dividing by a whole number rounds once: 20ms is 0.02 to the last digit
  };
  static constexpr Unit kUnits[] = {{"", 1.0}, {"s", 1.0}, {"ms", 1e3}, {"us", 1e6}};
  double value = 0.0;
  std::string_view rest;
  if (ParseNumberPart(word, value, rest)) {
    for (const Unit& unit : kUnits) {
      if (rest == unit.Name) return value / unit.PerSecond;
    }
  }
  Reject(word, "a time");
}

int ReadWhole(std::string_view word) {
  int value = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
  if (error != std::errc() || end != word.data() + word.size()) Reject(word, "a whole number");
  return value;
}

double ReadFactor(std::string_view word) {
  const double factor = ReadNumber(word);
  if (!(factor > 0.0)) Reject(word, "a factor above 0");
  return factor;
}

std::size_t ReadState(const Reading& reading, std::string_view name) {
  const auto& states = reading.Result.States;
  const auto state = std::find_if(states.begin(), states.end(),
                                  [&](const ChannelState& row) { return row.Name == name; });
  if (state == states.end()) Reject(name, "the name of a state above this line");
  return static_cast<std::size_t>(state - states.begin());
}

SweepRule ReadRule(const Words& words) {
  return {ReadNumber(words[1]), words.size() > 2 ? ReadNumber(words[2]) : 0.0};
}

/// The matrix with one more state, which no rate leads to or from.
RateMatrix WithOneMoreState(const RateMatrix& rates) {
  RateMatrix grown(rates.StateCount + 1);
  for (std::size_t from = 0; from < rates.StateCount; ++from) {
    for (std::size_t to = 0; to < rates.StateCount; ++to) {
      grown.At(from, to) = rates.At(from, to);
    }
  }
  return grown;
}

void ReadStateLine(Reading& reading, const Words& words) {
  auto& states = reading.Result.States;
  for (const ChannelState& state : states) {
    if (state.Name == words[1]) Reject(words[1], "a new name: there is a state of that name");
  }
  if (words[1] == "equilibrium") Reject(words[1], "free as a name");
  states.push_back({std::string(words[1]), ReadWhole(words[2]), ReadNumber(words[3])});
  reading.Common.Rates = WithOneMoreState(reading.Common.Rates);
}

void ReadRateLine(Reading& reading, const Words& words) {
  const std::size_t from = ReadState(reading, words[1]);
  const std::size_t to = ReadState(reading, words[2]);
  if (from == to) Reject(words[2], "another state than the one before it");
  const double rate = ReadNumber(words[3]);
  if (rate < 0.0) Reject(words[3], "a rate of 0 or above");
  reading.Plan().Rates.At(from, to) = rate;
}

void ReadStartLine(Reading& reading, const Words& words) {
  reading.Plan().StartState =
      words[1] == "equilibrium" ? kEquilibriumStart : ReadState(reading, words[1]);
}

void ReadRelevantLine(Reading& reading, const Words& words) {
  reading.Plan().HasRelevant = true;
  reading.Plan().Relevant = {ReadTime(words[1]), ReadTime(words[2])};
}

void ReadDriftLine(Reading& reading, const Words& words) {
  Drift drift{};
  if (words[1] == "across-sweeps") {
    drift.Span = DriftSpan::AcrossSweeps;
  } else if (words[1] == "within-sweep") {
    drift.Span = DriftSpan::WithinSweep;
  } else {
    Reject(words[1], "across-sweeps or within-sweep");
  }
  std::size_t next = 3;
  if (words[2] == "rate" && words.size() == 7) {
    drift.Target = DriftTarget::Rate;
    drift.From = ReadState(reading, words[3]);
    drift.To = ReadState(reading, words[4]);
    next = 5;
  } else if (words[2] == "rates" && words.size() == 5) {
    drift.Target = DriftTarget::AllRates;
  } else if (words[2] == "current" && words.size() == 5) {
    drift.Target = DriftTarget::Current;
  } else {
    Reject(words[2], "\"rate FROM TO\", \"rates\" or \"current\" with two factors behind it");
  }
  drift.Factor = {ReadFactor(words[next]), ReadFactor(words[next + 1])};
  reading.Plan().Drifts.push_back(drift);
}

void ReadFileLine(Reading& reading, const Words& words) {
  const FileKind* kind = FindFileKind(words[1]);
  if (kind == nullptr) Reject(words[1], "a type of data file (" + FileKindNames() + ")");
  reading.Result.Files.push_back(reading.Common);
  reading.Result.Files.back().Kind = kind;
  reading.InFile = true;
}

void ReadNameLine(Reading& reading, const Words& words) {
  // The words are views into one line: the name goes from the first to the end of the last.
  const char* first = words[1].data();
  const char* end = words.back().data() + words.back().size();
  reading.Plan().Name.assign(first, end);
}

void ReadHeaderLine(Reading& reading, const Words& words) {
  reading.Plan().Header.clear();
  for (std::size_t i = 1; i < words.size(); ++i) {
    reading.Plan().Header.push_back(ReadNumber(words[i]));
  }
}

void ReadLayoutLine(Reading& reading, const Words& words) {
  if (!FindLayout(words[1], reading.Result.Layout)) {
    Reject(words[1], "a layout (" + LayoutWords() + ")");
  }
}

void ReadSeedLine(Reading& reading, const Words& words) {
  if (!ParseSeed(words[1], reading.Result.Seed)) Reject(words[1], "a seed (a whole number)");
}

template <double FilePlan::*Field, double (*ReadWord)(std::string_view)>
void ReadRealLine(Reading& reading, const Words& words) {
  reading.Plan().*Field = ReadWord(words[1]);
}
template <int FilePlan::*Field>
void ReadCountLine(Reading& reading, const Words& words) {
  reading.Plan().*Field = ReadWhole(words[1]);
}
template <SweepRule FilePlan::*Field>
void ReadRuleLine(Reading& reading, const Words& words) {
  reading.Plan().*Field = ReadRule(words);
}

constexpr Keyword kKeywords[] = {
    {"state", 3, 3, Place::BeforeFiles, "NAME LEVEL CURRENT", ReadStateLine},
    {"rate", 3, 3, Place::Anywhere, "FROM TO RATE", ReadRateLine},
    {"start", 1, 1, Place::Anywhere, "NAME", ReadStartLine},
    {"channels", 1, 1, Place::Anywhere, "N", ReadCountLine<&FilePlan::Channels>},
    {"noise", 1, 1, Place::Anywhere, "SD", ReadRealLine<&FilePlan::Noise, ReadNumber>},
    {"dead-time", 1, 1, Place::Anywhere, "TIME", ReadRealLine<&FilePlan::DeadTime, ReadTime>},
    {"sweeps", 1, 1, Place::Anywhere, "N", ReadCountLine<&FilePlan::Sweeps>},
    {"duration", 1, 1, Place::Anywhere, "TIME", ReadRealLine<&FilePlan::Duration, ReadTime>},
    {"interval", 1, 1, Place::Anywhere, "TIME", ReadRealLine<&FilePlan::Interval, ReadTime>},
    {"relevant", 2, 2, Place::Anywhere, "START END", ReadRelevantLine},
    {"segment", 2, 2, Place::Anywhere, "START END",
     [](Reading& reading, const Words& words) {
       reading.Plan().Segments.push_back({ReadTime(words[1]), ReadTime(words[2])});
     }},
    {"relevant-value", 1, 2, Place::Anywhere, "V [STEP]", ReadRuleLine<&FilePlan::RelevantValue>},
    {"tag-value", 1, 2, Place::Anywhere, "V [STEP]", ReadRuleLine<&FilePlan::TagValue>},
    {"event-tag", 1, 2, Place::Anywhere, "V [STEP]", ReadRuleLine<&FilePlan::EventTag>},
    {"drift", 4, 6, Place::Anywhere, "across-sweeps|within-sweep WHAT FIRST LAST", ReadDriftLine},
    {"layout", 1, 1, Place::BeforeFiles, "LAYOUT", ReadLayoutLine},
    {"seed", 1, 1, Place::BeforeFiles, "N", ReadSeedLine},
    {"file", 1, 1, Place::Anywhere, "TYPE", ReadFileLine},
    {"name", 1, kAnyNumber, Place::InFile, "PATH", ReadNameLine},
    {"header", 1, kAnyNumber, Place::InFile, "VALUE ...", ReadHeaderLine},
};

void ReadLine(Reading& reading, std::string_view line) {
  const Words words = WithoutComment(SplitWords(line));
  if (words.empty()) return;
  const auto keyword = std::find_if(std::begin(kKeywords), std::end(kKeywords),
                                    [&](const Keyword& row) { return row.Word == words[0]; });
  if (keyword == std::end(kKeywords)) Reject(words[0], "a keyword");
  const std::size_t count = words.size() - 1;
  if (count < keyword->Least || count > keyword->Most) {
    throw ModelError("the line must read: " + std::string(words[0]) + " " +
                     std::string(keyword->Usage));
  }
  if (keyword->Where == Place::BeforeFiles && reading.InFile) {
    throw ModelError(std::string(words[0]) + " must stand before the first file line");
  }
  if (keyword->Where == Place::InFile && !reading.InFile) {
    throw ModelError(std::string(words[0]) + " must stand behind a file line");
  }
  keyword->Read(reading, words);
}

void ReadLines(Reading& reading, std::string_view text, const std::string& name) {
  for (int number = 1; !text.empty(); ++number) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(text.size(), line.size() + 1));
    try {
      ReadLine(reading, line);
    } catch (const ModelError& error) {
      throw ModelError(name + ":" + std::to_string(number) + ": " + error.what());
    }
  }
}

}  // namespace

Model ReadModel(std::string_view text, const std::string& name) {
  Reading reading;
  ReadLines(reading, text, name);
  if (reading.Result.Files.empty()) reading.Result.Files.push_back(reading.Common);
  try {
    CheckModel(reading.Result);
  } catch (const ModelError& error) {
    throw ModelError(name + ": " + error.what());
  }
  return std::move(reading.Result);
}

bool ParseSeed(std::string_view word, std::uint64_t& value) {
  std::uint64_t seed = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), seed);
  if (error != std::errc() || end != word.data() + word.size()) return false;
  value = seed;
  return true;
}

}  // namespace ondrel::simulate
