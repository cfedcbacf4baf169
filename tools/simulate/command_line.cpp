// Takes the command line apart, and leads a model file to its event table.
#include "simulate/command_line.h"

#include <fstream>
#include <optional>
#include <ostream>

#include "simulate/event_table_text.h"
#include "simulate/model_file.h"
#include "simulate/recording.h"

namespace ondrel::simulate {
namespace {

constexpr std::string_view kUsage = R"(simulate MODEL [--output FILE] [--layout LAYOUT] [--seed N]

Makes an event table from the Markov channel that the text file MODEL describes.

  --output FILE     where the table goes (standard output)
  --layout LAYOUT   bare, 1, 1-files, 2, 2-files or 5, in place of the model's own
  --seed N          in place of the model's own; equal seeds make equal tables
  --help            shows this text

)";

// The tables of the analysis program unless its user raises them.
constexpr std::size_t kDefaultEventEntries = 8000;
constexpr std::size_t kDefaultSweepEntries = 1000;

struct Options {
  std::string ModelPath;
  std::string OutputPath;  // empty: standard output
  std::optional<TableLayout> Layout;
  std::optional<std::uint64_t> Seed;
  bool Help = false;
};

void SetOption(Options& options, const std::string& option, const std::string& value) {
  TableLayout layout{};
  std::uint64_t seed = 0;
  if (option == "--output") {
    options.OutputPath = value;
  } else if (option == "--layout") {
    if (!FindLayout(value, layout)) {
      throw ModelError("\"" + value + "\" is not a layout (" + LayoutWords() + ")");
    }
    options.Layout = layout;
  } else if (option == "--seed") {
    if (!ParseSeed(value, seed)) throw ModelError("\"" + value + "\" is not a seed");
    options.Seed = seed;
  } else {
    throw ModelError("there is no option " + option);
  }
}

Options ReadOptions(const std::vector<std::string>& arguments) {
  Options options;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string& argument = arguments[i];
    if (argument == "--help") {
      options.Help = true;
    } else if (argument.starts_with("--")) {
      if (i + 1 == arguments.size()) throw ModelError(argument + " needs a value behind it");
      SetOption(options, argument, arguments[++i]);
    } else if (options.ModelPath.empty()) {
      options.ModelPath = argument;
    } else {
      throw ModelError("there is more than one model: " + options.ModelPath + ", " + argument);
    }
  }
  if (options.ModelPath.empty() && !options.Help) {
    throw ModelError("no model is named; --help tells more");
  }
  return options;
}

std::string ReadWholeFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::string text;
  char block[4096];
  while (file.read(block, sizeof block), file.gcount() > 0) {
    text.append(block, static_cast<std::size_t>(file.gcount()));
  }
  if (!file.is_open() || file.bad()) throw ModelError("cannot read " + path);
  return text;
}

bool WriteTable(const std::string& text, const std::string& path, std::ostream& out) {
  if (path.empty()) return static_cast<bool>(out << text << std::flush);
  std::ofstream file(path, std::ios::binary);
  file << text;
  file.close();
  return static_cast<bool>(file);
}

struct Counts {
  std::size_t Sweeps = 0;
  std::size_t Events = 0;
};

Counts CountRecords(const std::vector<SimulatedFile>& files) {
  Counts counts;
  for (const SimulatedFile& file : files) {
    counts.Sweeps += file.Sweeps.size();
    for (const SimulatedSweep& sweep : file.Sweeps) counts.Events += sweep.Transitions.size();
  }
  return counts;
}

void TellWhatWasMade(const Counts& counts, std::size_t files, const Options& options,
                     std::ostream& err) {
  err << (options.OutputPath.empty() ? "standard output" : options.OutputPath) << ": data files "
      << files << ", sweeps " << counts.Sweeps << ", events " << counts.Events << '\n';
  // Version 5 tables are refused already when they fill the event table exactly.
  if (counts.Events >= kDefaultEventEntries || counts.Sweeps > kDefaultSweepEntries) {
    err << "note: more than fits " << kDefaultEventEntries << " event and " << kDefaultSweepEntries
        << " sweep entries; raise them in the settings to load it\n";
  }
}

int MakeTable(const Options& options, std::ostream& out, std::ostream& err) {
  const Model model = ReadModel(ReadWholeFile(options.ModelPath), options.ModelPath);
  const TableLayout layout = options.Layout.value_or(model.Layout);
  CheckLayout(model, layout);
  const auto files = SimulateRecording(model, options.Seed.value_or(model.Seed));
  if (!WriteTable(WriteEventTable(files, layout), options.OutputPath, out)) {
    err << "simulate: cannot write " << options.OutputPath << '\n';
    return kExitWriteFailed;
  }
  TellWhatWasMade(CountRecords(files), files.size(), options, err);
  return kExitGood;
}

}  // namespace

int RunSimulate(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
  try {
    const Options options = ReadOptions(arguments);
    if (!options.Help) return MakeTable(options, out, err);
    out << kUsage << kModelFileHelp;
    return kExitGood;
  } catch (const ModelError& error) {
    err << "simulate: " << error.what() << '\n';
    return kExitWrongInput;
  }
}

}  // namespace ondrel::simulate
