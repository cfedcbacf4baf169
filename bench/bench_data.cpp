// The recording is made from a fixed seed: a channel with the levels 0, 1 and 2, times in whole
// microseconds, currents with some noise. Every sweep begins and ends at level 0.
#include "bench_data.h"

#include <cstdlib>
#include <random>
#include <system_error>

#include "shell/toolkit.h"
#include "workspace/number_text.h"

namespace ondrel::bench {
namespace {

struct SimulatedEvent {
  std::int32_t Sweep;
  double Transition;
  double PreAmplitude;
  double PostAmplitude;
  std::int32_t Level;
};

class Simulation {
 public:
  std::vector<SimulatedEvent> Run() {
    std::vector<SimulatedEvent> events;
    for (std::int32_t event = 0; event < kEventCount; ++event) {
      if (event % kEventsPerSweep == 0) BeginSweep();
      const bool mustClose = event % kEventsPerSweep >= kEventsPerSweep - level_;
      Step(mustClose);
      events.push_back(
          {sweep_, static_cast<double>(microseconds_) * 1e-6, previous_, current_, level_});
    }
    return events;
  }

 private:
  void BeginSweep() {
    ++sweep_;
    level_ = 0;
    microseconds_ = 0;
    current_ = Noisy(0);
  }

  void Step(bool mustClose) {
    microseconds_ += 1 + static_cast<std::int64_t>(dwell_(random_));
    if (level_ == 0) {
      level_ = 1;
    } else if (level_ == 2 || mustClose || random_() % 4 != 0) {
      --level_;
    } else {
      ++level_;
    }
    previous_ = current_;
    current_ = Noisy(level_);
  }

  double Noisy(std::int32_t level) { return -5e-12 * level + 1e-13 * noise_(random_); }

  std::mt19937_64 random_{20};
  std::exponential_distribution<double> dwell_{1.0 / 3000.0};
  std::normal_distribution<double> noise_;
  std::int32_t sweep_ = 0;
  std::int32_t level_ = 0;
  std::int64_t microseconds_ = 0;
  double previous_ = 0.0;
  double current_ = 0.0;
};

void AppendInteger(std::string& text, std::int32_t value, char separator) {
  char number[kNumberTextSize];
  text.append(number, IntegerText(value, number));
  text += separator;
}

void AppendReal(std::string& text, double value, int digits, char letter, char separator) {
  char number[kNumberTextSize];
  text.append(number, RealText(value, digits, letter, number));
  text += separator;
}

/// Sweeps end one second behind their last event.
void AppendSweeps(std::string& text, const std::vector<SimulatedEvent>& events) {
  for (std::int32_t sweep = 1; sweep <= kSweepCount; ++sweep) {
    const double end =
        events[static_cast<std::size_t>(sweep * kEventsPerSweep - 1)].Transition + 1.0;
    AppendInteger(text, sweep, '\t');
    AppendReal(text, end, 6, 'f', '\t');
    AppendReal(text, 0.0, 6, 'f', '\t');
    AppendReal(text, end, 6, 'f', '\t');
    AppendReal(text, 0.0, 6, 'E', '\t');
    AppendReal(text, 0.0, 6, 'E', '\r');
    text += '\n';
  }
}

std::string Version5Text(const std::vector<SimulatedEvent>& events) {
  std::string text = "5\r\nFile\r\nUndefined\r\nSweeps\r\n";
  AppendSweeps(text, events);
  text += "Segments\r\nEvents\r\n";
  for (const SimulatedEvent& event : events) {
    AppendInteger(text, event.Sweep, '\t');
    AppendReal(text, event.Transition, 6, 'f', '\t');
    AppendReal(text, event.PreAmplitude, 7, 'E', '\t');
    AppendReal(text, event.PostAmplitude, 7, 'E', '\t');
    AppendInteger(text, event.Level, '\t');
    AppendReal(text, 0.0, 6, 'E', '\r');
    text += '\n';
  }
  return text;
}

std::string BareListText(const std::vector<SimulatedEvent>& events) {
  std::string text;
  for (const SimulatedEvent& event : events) {
    AppendInteger(text, event.Sweep, '\t');
    AppendReal(text, event.Transition, 6, 'f', '\t');
    AppendReal(text, event.PreAmplitude, 7, 'E', '\t');
    AppendInteger(text, 0, '\t');
    AppendReal(text, event.PostAmplitude, 7, 'E', '\t');
    AppendInteger(text, 0, '\t');
    AppendInteger(text, event.Level, '\n');
  }
  return text;
}

/// Two runs at a time must not write the same files.
std::filesystem::path MakeFolder() {
  const std::string name = "ondrel_bench_" + std::to_string(std::random_device{}());
  const std::filesystem::path folder = std::filesystem::temp_directory_path() / name;
  std::error_code failure;
  if (!std::filesystem::create_directory(folder, failure)) std::abort();
  return folder;
}

}  // namespace

BenchData::BenchData() : Folder(MakeFolder()) {
  const std::vector<SimulatedEvent> events = Simulation().Run();
  Version5 = Version5Text(events);
  BareList = BareListText(events);
  Frame.Owner = Tables.get();
  Tables->Frame = &Frame;
  ResetWorkspace(*Tables);
  Tables->Events.Capacity = kEventCount + 1;  // the last row of a version 5 table stays free
  Tables->Levels.Capacity = kEventCount + kSweepCount + 1;
  if (!AllocateAllTables(&Frame)) std::abort();
  ProductFile = Folder / "product";
  BaselineFile = Folder / "baseline";
}

BenchData::~BenchData() {
  std::error_code ignored;
  std::filesystem::remove_all(Folder, ignored);
  toolkit::FreeMemory(Block);
  FreeAllTables(*Tables);
}

}  // namespace ondrel::bench
