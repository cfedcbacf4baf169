// The tables of file kinds and layouts, drifts worked out for one sweep, and the checks that
// concern a model as a whole.
#include "simulate/model.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace ondrel::simulate {
namespace {

constexpr std::array<FileKind, 7> kFileKinds{{
    {"Undefined", "", 0, false, false},
    {"pClamp6", "ibbiir", 6, true, false},
    {"Sampler", "i", 0, true, false},
    {"Exchange", "i", 0, true, false},
    {"Pulse", "bibibi", 0, true, false},
    {"IgorWave", "", 0, true, false},
    {"RawContinuous", "rrirbb", 2, true, true},
}};

struct LayoutRow {
  std::string_view Word;
  TableLayout Layout;
};
constexpr std::array<LayoutRow, 6> kLayouts{{
    {"bare", TableLayout::Bare},
    {"1", TableLayout::Version1},
    {"1-files", TableLayout::Version1Files},
    {"2", TableLayout::Version2},
    {"2-files", TableLayout::Version2Files},
    {"5", TableLayout::Version5},
}};

constexpr std::size_t kMostFiles = 100;    // more are refused by the program
constexpr std::size_t kLongestName = 259;  // bytes; the program cuts longer names
constexpr double kMostTransitions = 1e8;   // a slip in a rate shall not fill the memory
constexpr int kMostSweeps = 1000000;
constexpr int kMostChannels = 1000;

template <typename Rows, typename Word>
std::string JoinWords(const Rows& rows, Word word) {
  std::string words;
  for (const auto& row : rows) {
    if (!words.empty()) words += ", ";
    words += row.*word;
  }
  return words;
}

/// How far sweep `index` lies between the first and the last sweep, 0 to 1.
double SweepFraction(const FilePlan& plan, int index) {
  return plan.Sweeps > 1 ? static_cast<double>(index) / (plan.Sweeps - 1) : 0.0;
}

bool AppliesToRate(const Drift& drift, std::size_t from, std::size_t to) {
  if (drift.Target == DriftTarget::AllRates) return true;
  return drift.Target == DriftTarget::Rate && drift.From == from && drift.To == to;
}

void ApplyDrift(const Drift& drift, double sweepFraction, SweepRates& rates) {
  for (std::size_t from = 0; from < rates.Base.StateCount; ++from) {
    for (std::size_t to = 0; to < rates.Base.StateCount; ++to) {
      if (!AppliesToRate(drift, from, to) || rates.Base.At(from, to) <= 0.0) continue;
      if (drift.Span == DriftSpan::AcrossSweeps) {
        rates.Base.At(from, to) *= RampAt(drift.Factor, sweepFraction);
      } else {
        rates.Ramps[from * rates.Base.StateCount + to].push_back(drift.Factor);
      }
    }
  }
}

[[noreturn]] void Fail(const std::string& place, const std::string& text) {
  throw ModelError(place + text);
}

void CheckHeader(const FilePlan& plan, const std::string& place) {
  if (plan.Kind->HasName && plan.Name.empty()) {
    Fail(place, "a file of type " + std::string(plan.Kind->Keyword) + " needs a name");
  }
  if (!plan.Kind->HasName && !plan.Name.empty()) {
    Fail(place, "a file of type " + std::string(plan.Kind->Keyword) + " has no name");
  }
  if (plan.Name.size() > kLongestName) Fail(place, "the name is longer than 259 bytes");
  if (plan.Name.find('\t') != std::string::npos) Fail(place, "a name cannot hold a tab");
  if (!plan.Header.empty() && plan.Header.size() != plan.Kind->Columns.size()) {
    Fail(place, "the header of type " + std::string(plan.Kind->Keyword) + " has " +
                    std::to_string(plan.Kind->Columns.size()) + " values, not " +
                    std::to_string(plan.Header.size()));
  }
  for (std::size_t i = 0; i < plan.Header.size(); ++i) {
    const double value = plan.Header[i];
    const char column = plan.Kind->Columns[i];
    const std::string which = "header value " + std::to_string(i + 1);
    if (column != 'r' && (value != std::trunc(value) || std::fabs(value) > 2147483647.0)) {
      Fail(place, which + " must be a whole number of 32 bits");
    }
    if (column == 'b' && (value < 1.0 || value > 256.0)) {
      Fail(place, which + " must lie between 1 and 256");
    }
  }
}

bool LiesInSweep(const Stretch& stretch, double duration) {
  return stretch.Start >= 0.0 && stretch.Start < stretch.End && stretch.End <= duration;
}

void CheckSweeps(const FilePlan& plan, const std::string& place) {
  if (plan.Sweeps < 1 || plan.Sweeps > kMostSweeps) {
    Fail(place, "the number of sweeps must lie between 1 and 1000000");
  }
  if (!(plan.Duration > 0.0)) Fail(place, "the duration of the sweeps must be above 0");
  if (plan.Interval != 0.0 && plan.Interval < plan.Duration) {
    Fail(place, "the interval of the sweeps is shorter than their duration");
  }
  if (plan.HasRelevant && !LiesInSweep(plan.Relevant, plan.Duration)) {
    Fail(place, "the relevant segment must lie inside the sweep and end after its start");
  }
  for (const Stretch& segment : plan.Segments) {
    if (!LiesInSweep(segment, plan.Duration)) {
      Fail(place, "a segment must lie inside the sweep and end after its start");
    }
  }
}

/// An upper estimate of the transitions that the file takes to simulate.
double EstimateTransitions(const FilePlan& plan) {
  double sum = 0.0;
  for (const int sweep : {0, plan.Sweeps - 1}) {
    const RateMatrix upper = UpperRates(RatesOfSweep(plan, sweep));
    double fastest = 0.0;
    for (std::size_t state = 0; state < upper.StateCount; ++state) {
      fastest = std::max(fastest, ExitRate(upper, state));
    }
    sum = std::max(sum, fastest * plan.Duration * plan.Sweeps * plan.Channels);
  }
  return sum;
}

void CheckChannel(const FilePlan& plan, const std::string& place) {
  if (plan.Channels < 1 || plan.Channels > kMostChannels) {
    Fail(place, "the number of channels must lie between 1 and 1000");
  }
  if (plan.Noise < 0.0) Fail(place, "the noise must not be negative");
  if (plan.DeadTime < 0.0) Fail(place, "the dead time must not be negative");
  if (plan.StartState == kEquilibriumStart && !IsIrreducible(plan.Rates)) {
    Fail(place, "not every state can be reached from every other; name a state to start in");
  }
  for (const Drift& drift : plan.Drifts) {
    if (drift.Target == DriftTarget::Rate && plan.Rates.At(drift.From, drift.To) <= 0.0) {
      Fail(place, "a drift concerns a rate that is not given");
    }
  }
  if (EstimateTransitions(plan) > kMostTransitions) {
    Fail(place, "rates, sweeps and channels come to more than 100000000 transitions");
  }
}

}  // namespace

const FileKind* FindFileKind(std::string_view keyword) {
  const auto kind = std::find_if(kFileKinds.begin(), kFileKinds.end(),
                                 [&](const FileKind& row) { return row.Keyword == keyword; });
  return kind == kFileKinds.end() ? nullptr : &*kind;
}

std::string FileKindNames() {
  return JoinWords(kFileKinds, &FileKind::Keyword);
}

std::string_view LayoutWord(TableLayout layout) {
  return std::find_if(kLayouts.begin(), kLayouts.end(),
                      [&](const LayoutRow& row) { return row.Layout == layout; })
      ->Word;
}

bool FindLayout(std::string_view word, TableLayout& layout) {
  for (const LayoutRow& row : kLayouts) {
    if (row.Word != word) continue;
    layout = row.Layout;
    return true;
  }
  return false;
}

std::string LayoutWords() {
  return JoinWords(kLayouts, &LayoutRow::Word);
}

SweepRates RatesOfSweep(const FilePlan& plan, int index) {
  SweepRates rates(plan.Rates);
  for (const Drift& drift : plan.Drifts) ApplyDrift(drift, SweepFraction(plan, index), rates);
  return rates;
}

double CurrentFactor(const FilePlan& plan, int index, double fraction) {
  double factor = 1.0;
  for (const Drift& drift : plan.Drifts) {
    if (drift.Target != DriftTarget::Current) continue;
    const bool across = drift.Span == DriftSpan::AcrossSweeps;
    factor *= RampAt(drift.Factor, across ? SweepFraction(plan, index) : fraction);
  }
  return factor;
}

void CheckModel(const Model& model) {
  if (model.States.empty()) Fail("", "the model has no state");
  if (model.Files.size() > kMostFiles) Fail("", "a table holds no more than 100 data files");
  for (std::size_t i = 0; i < model.Files.size(); ++i) {
    const std::string place =
        model.Files.size() > 1 ? "file " + std::to_string(i + 1) + ": " : std::string();
    CheckHeader(model.Files[i], place);
    CheckSweeps(model.Files[i], place);
    CheckChannel(model.Files[i], place);
  }
}

void CheckLayout(const Model& model, TableLayout layout) {
  if (model.Files.size() <= 1) return;
  const std::string word(LayoutWord(layout));
  if (layout == TableLayout::Bare) {
    Fail("", "the layout bare knows no data files and cannot hold several");
  }
  if (layout == TableLayout::Version1 || layout == TableLayout::Version2) {
    Fail("", "the layout " + word + " holds one data file; " + word + "-files holds several");
  }
}

}  // namespace ondrel::simulate
