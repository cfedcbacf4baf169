// What is to be simulated: the channel's states, and for each data file of the table its rates,
// sweeps and header. Currents in pA, times in s, rates in s^-1.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "simulate/markov_channel.h"

namespace ondrel::simulate {

/// Wrong input. The text is for the user and names the place.
struct ModelError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

struct ChannelState {
  std::string Name;
  int Level;
  double Current;  // pA
};

/// A value that goes on by `Step` from sweep to sweep.
struct SweepRule {
  double Start = 0.0;
  double Step = 0.0;
};

/// The rule's value for the sweep `index` of a file, counted from 0.
inline double RuleValue(const SweepRule& rule, int index) {
  return rule.Start + rule.Step * index;
}

enum class DriftSpan { AcrossSweeps, WithinSweep };
enum class DriftTarget { Rate, AllRates, Current };

/// A factor that changes in a straight line, over the sweeps of a file (from its first sweep to its
/// last, constant during each) or over the time of each sweep (from its start to its end).
struct Drift {
  DriftSpan Span;
  DriftTarget Target;
  std::size_t From;  // the two states of a single rate
  std::size_t To;
  Ramp Factor;
};

/// A stretch of time from the start of its sweep.
struct Stretch {
  double Start;
  double End;
};

/// The columns of a type's "File" line behind the name: i is an integer, b an integer of 1 to 256,
/// r a real.
struct FileKind {
  std::string_view Keyword;
  std::string_view Columns;
  int RealDigits;  // behind the point of an r column, which has an exponent
  bool HasName;
  bool EndsInTab;
};

/// The kind with that keyword, or null.
const FileKind* FindFileKind(std::string_view keyword);
/// The keywords of all kinds, with ", " between them.
std::string FileKindNames();

inline constexpr std::size_t kEquilibriumStart = static_cast<std::size_t>(-1);

/// One data file of the table.
struct FilePlan {
  const FileKind* Kind = FindFileKind("Undefined");
  std::string Name;
  std::vector<double> Header;  // as it stands in the table; empty: 0, or 1 in the b columns

  RateMatrix Rates;
  std::vector<Drift> Drifts;
  std::size_t StartState = kEquilibriumStart;
  int Channels = 1;
  double Noise = 0.0;     // pA, standard deviation of a dwell's current
  double DeadTime = 0.0;  // s; 0 keeps every visit

  int Sweeps = 1;
  double Duration = 0.0;  // s
  double Interval = 0.0;  // s, from start to start; 0: sweeps follow without a gap
  bool HasRelevant = false;
  Stretch Relevant{0.0, 0.0};     // the whole sweep when HasRelevant is false
  std::vector<Stretch> Segments;  // empty: one, the whole sweep
  SweepRule RelevantValue;
  SweepRule TagValue;
  SweepRule EventTag;
};

/// The forms of an event table that the program reads.
enum class TableLayout {
  Bare,           // rows of transitions alone
  Version1,       // sweeps, then events, of a single data file
  Version1Files,  // the same with a "Files" block before the sweeps
  Version2,
  Version2Files,
  Version5,  // a "File" group for each data file
};

/// The layout's word in model files and on the command line: "bare", "1", "1-files", "2",
/// "2-files", "5".
std::string_view LayoutWord(TableLayout layout);
/// False when `word` is no layout; `layout` is then as it was.
bool FindLayout(std::string_view word, TableLayout& layout);
/// The words of all layouts, with ", " between them.
std::string LayoutWords();

struct Model {
  std::vector<ChannelState> States;
  std::vector<FilePlan> Files;
  TableLayout Layout = TableLayout::Version5;
  std::uint64_t Seed = 1;
};

/// The sweep's rates: those of the file with its drifts across sweeps at sweep `index`, and its
/// drifts within the sweep as ramps.
SweepRates RatesOfSweep(const FilePlan& plan, int index);
/// The factor on all currents at `fraction` (0 to 1) of the sweep `index`.
double CurrentFactor(const FilePlan& plan, int index, double fraction);

/// Looks whether the model can be simulated. Throws a ModelError that names the file by its number
/// when there are several.
void CheckModel(const Model& model);
/// Looks whether the model's files can stand in a table of that layout. Throws a ModelError.
void CheckLayout(const Model& model, TableLayout layout);

}  // namespace ondrel::simulate
