// Geometry of the histograms and gestures on them.
#include "fitting_gestures.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <sstream>

#include "text_reader.h"

namespace ondrel::e2e {

const Twin kAmplitudeTwin{
    .Name = "Amplitude",
    .Histogram = "Amplitude Histogram",
    .Fit = "Amplitude Fit Parameters",
    .View = 52481,
    .Autoscale = 53249,
    .ManualFit = 53254,
    .AutomaticFit = 53255,
    .FirstColor = 26369,
    .ColorOf = "amplitude",
    .ManualFitKey = 'N',
    .AutomaticFitKey = 'K',
    .AxisTitle = "Amplitude (pA)",
    .Minimum = 0.0,
    .FirstEstimate = 1.0,
    .FormulaWidth = 376,
    .FormulaHeight = 79,
    .CountsFromMiddle = false,
};

const Twin kDurationTwin{
    .Name = "Duration",
    .Histogram = "Duration Histogram",
    .Fit = "Duration Fit Parameters",
    .View = 52484,
    .Autoscale = 53505,
    .ManualFit = 53511,
    .AutomaticFit = 53512,
    .FirstColor = 26625,
    .ColorOf = "duration",
    .ManualFitKey = 'M',
    .AutomaticFitKey = 'A',
    .AxisTitle = "log Duration (s)",
    .Minimum = -5.0,
    .FirstEstimate = -4.0,
    .FormulaWidth = 355,
    .FormulaHeight = 67,
    .CountsFromMiddle = true,
};

// --- Geometry ------------------------------------------------------------------------------------

Axis FirstAxis(const Twin& twin) {
  return {.Minimum = twin.Minimum};
}

int Plot::XOf(double value) const {
  return static_cast<int>(std::lround(Left + (value - Minimum) * PerUnit));
}

Plot PlotOf(const Twin& twin, const Rect& client, const Axis& axis) {
  const double width = client.Width();
  const double height = client.Height();
  Plot plot;
  plot.Left = width / 8.0;
  plot.Right = width / 1.1428571428571428;
  plot.Top = height / 6.0;
  plot.Bottom = height / 1.2;
  if (twin.CountsFromMiddle) plot.Bottom = (plot.Bottom - plot.Top) / 2.0 + plot.Top;
  plot.HandleHalf = (plot.Right - plot.Left) / 80.0;
  const double binWidth = (plot.Right - plot.Left) / (axis.Ticks * axis.BinsPerTick);
  plot.BinWidth = binWidth >= 1.0 ? std::floor(binWidth) : binWidth;
  plot.PerUnit = plot.BinWidth * axis.BinsPerTick / axis.PerTick;
  plot.Minimum = axis.Minimum;
  return plot;
}

bool ShowsHandle(const Picture& view, const Plot& plot, Point centre, std::uint32_t color) {
  const int reach = static_cast<int>(plot.HandleHalf);
  const auto outlineAt = [&](const Rect& box) {
    const Picture whole = view.Cut(box);
    if (whole.Width != box.Width() || whole.Height != box.Height()) return false;
    const Picture inside = view.Cut({box.Left + 1, box.Top + 1, box.Right - 1, box.Bottom - 1});
    return whole.Count(color) - inside.Count(color) == 2 * (box.Width() + box.Height()) - 4;
  };
  // The place is a whole pixel near the true one, and edges are truncated: each has three places.
  for (int shift = 0; shift < 81; ++shift) {
    const Rect box{centre.X - reach - 2 + shift % 3, centre.Y - reach - 2 + shift / 3 % 3,
                   centre.X + reach - 1 + shift / 9 % 3, centre.Y + reach - 1 + shift / 27};
    if (outlineAt(box)) return true;
  }
  return false;
}

// --- The table of a fit --------------------------------------------------------------------------

namespace {

[[noreturn]] void FailOnLines(const std::vector<std::string>& lines) {
  std::string text = "the fit parameter view cannot be read:";
  for (const std::string& line : lines) text += "\n  " + line;
  Fail(text);
}

/// The number at the start of a word that ends in `unit`.
double NumberWithUnit(const std::string& word, const std::string& unit,
                      const std::vector<std::string>& lines) {
  char* end = nullptr;
  const double value = std::strtod(word.c_str(), &end);
  if (end == word.c_str() || end != unit) FailOnLines(lines);
  return value;
}

TermRow ReadRow(const Twin& twin, std::size_t number, const std::string& line,
                const std::vector<std::string>& lines) {
  const bool amplitude = &twin == &kAmplitudeTwin;
  std::istringstream in(line);
  std::vector<std::string> words;
  for (std::string word; in >> word;) words.push_back(word);
  if (words.size() != (amplitude ? 4u : 3u) || words[0] != std::to_string(number)) {
    FailOnLines(lines);
  }
  TermRow row;
  if (amplitude) {
    row.Where = NumberWithUnit(words[1], "pA", lines);
    row.Weight = NumberWithUnit(words[2], "", lines);
    row.StdDev = NumberWithUnit(words[3], "pA", lines);
  } else {
    row.Weight = NumberWithUnit(words[1], "", lines);
    row.Where = NumberWithUnit(words[2], "s", lines);
  }
  return row;
}

double NumberBehind(const std::string& label, const std::string& line,
                    const std::vector<std::string>& lines) {
  if (line.rfind(label, 0) != 0) FailOnLines(lines);
  return NumberWithUnit(line.substr(label.size()), "", lines);
}

}  // namespace

FitTable ReadFitTable(const Twin& twin, const Picture& view) {
  constexpr int kOverlap = 4;  // the first line reaches over the formula's lower edge
  constexpr std::size_t kFirstRow = 3;
  static const TextReader reader;
  const std::vector<std::string> lines =
      reader.Lines(view.Cut({0, twin.FormulaHeight - kOverlap, view.Width, view.Height}));
  const std::string header =
      &twin == &kAmplitudeTwin ? "Term Current Weight StdDev" : "Term Weight TimeConstant";
  if (lines.size() <= kFirstRow || lines[2] != header) FailOnLines(lines);
  FitTable table;
  table.Events = static_cast<int>(NumberBehind("Events in histogram: ", lines[0], lines));
  table.LogLikelihood = NumberBehind("Log likelihood: ", lines[1], lines);
  for (std::size_t line = kFirstRow; line < lines.size(); ++line) {
    table.Terms.push_back(ReadRow(twin, line - kFirstRow + 1, lines[line], lines));
  }
  return table;
}

// --- Gestures ------------------------------------------------------------------------------------

Point Hand::OnScreen(Point place) const {
  const Rect client = View().ClientArea();
  return {client.Left + place.X, client.Top + place.Y};
}

void Hand::WaitForNewClick() {
  WaitFor("a press to be the first of its kind",
          [] { return GetTickCount() - lastPress_ > GetDoubleClickTime(); });
}

void Hand::Click(Point place) {
  WaitForNewClick();
  program_->ClickAt(OnScreen(place));
  NotePress();
}

void Hand::DoubleClick(Point place) {
  WaitForNewClick();
  program_->DoubleClickAt(OnScreen(place));
  NotePress();
}

void Hand::Press(Point place) {
  WaitForNewClick();
  program_->Press(OnScreen(place));
  NotePress();
}

void Hand::Drag(Point from, Point to) {
  WaitForNewClick();
  program_->Drag(OnScreen(from), OnScreen(to));
  NotePress();
}

// --- Windows -------------------------------------------------------------------------------------

void PlaceView(const Program& program, const std::string& title, const Rect& place) {
  const Window view = program.View(title);
  view.MoveTo(place);
  WaitFor("the view '" + title + "' to take its place",
          [&] { return view.PlaceInParent() == place; });
}

void OpenHistogram(const Program& program, const Twin& twin, const Rect& room) {
  program.Command(twin.View);
  program.WaitForTopView(twin.Histogram);
  PlaceView(program, twin.Histogram,
            {room.Left, room.Top, room.Left + room.Width() * 6 / 10, room.Bottom});
}

void OpenHistogramWithFit(const Program& program, const Twin& twin, const Rect& room) {
  OpenHistogram(program, twin, room);
  program.Command(twin.ManualFit);
  program.WaitForTopView(twin.Fit);
  PlaceView(program, twin.Fit,
            {room.Left + room.Width() * 6 / 10, room.Top, room.Right, room.Bottom});
  program.Command(twin.View);
  program.WaitForTopView(twin.Histogram);
  program.Settle(program.View(twin.Histogram));
}

std::string WaitForEndOfFit(const Program& program) {
  program.Settle(program.Frame());
  if (program.Frame().Enabled()) return {};
  // A box shows itself only when nothing else waits.
  WaitFor("the box of the fit", [&] { return !program.Dialogs().empty(); });
  const Box box(program.Dialogs().front());
  std::string text = box.Text();
  box.Answer(kOkButton);
  program.ToForeground();
  return text;
}

std::string RunAutomaticFit(const Program& program, const Twin& twin) {
  program.Command(twin.AutomaticFit);
  return WaitForEndOfFit(program);
}

}  // namespace ondrel::e2e
