// Small recordings as text, files, and the places of table rows in pictures.
#include "fixtures.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace ondrel::e2e {
namespace {

struct Transition {
  int Sweep;
  double Time;  // s
  bool Opens;
};

std::vector<Transition> Transitions(int sweeps, int eventsPerSweep) {
  std::vector<Transition> all;
  for (int sweep = 1; sweep <= sweeps; ++sweep) {
    for (int event = 1; event <= eventsPerSweep; ++event) {
      all.push_back({sweep, 0.001 * event, event % 2 == 1});
    }
  }
  return all;
}

template <typename... Values>
std::string Format(const char* format, Values... values) {
  std::array<char, 256> line{};
  std::snprintf(line.data(), line.size(), format, values...);
  return line.data();
}

const char* Before(const Transition& transition) {
  return transition.Opens ? "0.0000000E+00" : "5.0000000E-12";
}
const char* After(const Transition& transition) {
  return transition.Opens ? "5.0000000E-12" : "0.0000000E+00";
}

/// Sweep, time, amplitudes, level and tag: the six columns of all but the oldest layouts.
std::string SixColumns(const std::vector<Transition>& transitions) {
  std::string rows;
  for (const Transition& transition : transitions) {
    rows += Format("%d\t%.6f\t%s\t%s\t%d\t%d\r\n", transition.Sweep, transition.Time,
                   Before(transition), After(transition), transition.Opens ? 1 : 0, 0);
  }
  return rows;
}

double SweepLength(int eventsPerSweep) {
  return 0.001 * (eventsPerSweep + 1);
}

std::string SweepRows(int sweeps, int eventsPerSweep) {
  const double length = SweepLength(eventsPerSweep);
  std::string rows;
  for (int sweep = 1; sweep <= sweeps; ++sweep) {
    rows += Format("%d\t%.6f\t%.6f\t%.6f\t%.6f\t%d\t%d\r\n", sweep, sweep - 1.0, length, 0.0,
                   length, 0, 0);
  }
  return rows;
}

}  // namespace

std::string BareList(int sweeps, int eventsPerSweep) {
  std::string rows;
  for (const Transition& transition : Transitions(sweeps, eventsPerSweep)) {
    const int level = transition.Opens ? 1 : 0;
    rows += Format("%d\t%.6f\t%s\t%d\t%s\t%d\t%d\n", transition.Sweep, transition.Time,
                   Before(transition), 1 - level, After(transition), level, level);
  }
  return rows;
}

std::string VersionOneOrTwo(int version, int sweeps, int eventsPerSweep) {
  std::string text =
      Format("%d\r\nSweeps\r\n", version) + SweepRows(sweeps, eventsPerSweep) + "Events\r\n";
  const std::vector<Transition> transitions = Transitions(sweeps, eventsPerSweep);
  if (version == 2) return text + SixColumns(transitions);
  for (const Transition& transition : transitions) {
    const int level = transition.Opens ? 1 : 0;
    text += Format("%d\t%.6f\t%s\t%d\t%s\t%d\t%d\t%d\r\n", transition.Sweep, transition.Time,
                   Before(transition), 1 - level, After(transition), level, level, 0);
  }
  return text;
}

std::string VersionTwoWithFiles(int sweepsOfFirst, int sweepsOfSecond, int eventsPerSweep) {
  const int sweeps = sweepsOfFirst + sweepsOfSecond;
  return Format("2\r\nFiles\r\n%d\r\n%d\r\nSweeps\r\n", sweepsOfFirst, sweepsOfSecond) +
         SweepRows(sweeps, eventsPerSweep) + "Events\r\n" +
         SixColumns(Transitions(sweeps, eventsPerSweep));
}

std::string VersionFive(int sweeps, int eventsPerSweep) {
  const double length = SweepLength(eventsPerSweep);
  std::string text = "5\r\nFile\r\nUndefined\r\nSweeps\r\n";
  for (int sweep = 1; sweep <= sweeps; ++sweep) {
    text += Format("%d\t%.6f\t%.6f\t%.6f\t%d\t%d\r\n", sweep, length, 0.0, length, 0, 0);
  }
  text += "Segments\r\n";
  for (int sweep = 1; sweep <= sweeps; ++sweep) {
    text += Format("%d\t1\t%.6f\t%.6f\r\n", sweep, 0.0, length);
  }
  return text + "Events\r\n" + SixColumns(Transitions(sweeps, eventsPerSweep));
}

std::string VersionFiveOf(const std::vector<Opening>& openings) {
  return VersionFiveOfSweeps({{.Openings = openings}});
}

std::string VersionFiveOfSweeps(const std::vector<RecordedSweep>& sweeps) {
  constexpr double kPicoampere = 1e-12;
  std::string rows;
  std::string segments;
  std::string events;
  int number = 0;
  for (const RecordedSweep& sweep : sweeps) {
    ++number;
    double time = sweep.Before;
    for (const Opening& opening : sweep.Openings) {
      const double current = opening.Current * kPicoampere;
      events += Format("%d\t%.9f\t%.7E\t%.7E\t1\t0\r\n", number, time, 0.0, current);
      time += opening.Open;
      events += Format("%d\t%.9f\t%.7E\t%.7E\t0\t0\r\n", number, time, current, 0.0);
      time += opening.Closed;
    }
    rows += Format("%d\t%.9f\t%.9f\t%.9f\t%.6f\t%.6f\r\n", number, time, 0.0, time, sweep.Relevant,
                   sweep.Tag);
    segments += Format("%d\t1\t%.9f\t%.9f\r\n", number, 0.0, time);
  }
  return "5\r\nFile\r\nUndefined\r\nSweeps\r\n" + rows + "Segments\r\n" + segments + "Events\r\n" +
         events;
}

std::string ImportTable(int sweeps, int eventsPerSweep) {
  return SixColumns(Transitions(sweeps, eventsPerSweep));
}

std::string ContentOf(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void WriteContent(const std::string& path, const std::string& content) {
  std::ofstream out(path, std::ios::binary);
  out << content;
}

std::vector<std::string> LinesOf(const std::string& content) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  for (std::size_t end = 0; (end = content.find("\r\n", start)) != std::string::npos;) {
    lines.push_back(content.substr(start, end - start));
    start = end + 2;
  }
  if (start < content.size()) lines.push_back(content.substr(start));
  return lines;
}

HeldFile::HeldFile(const std::string& path)
    : handle_(CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr)) {
  if (handle_ == INVALID_HANDLE_VALUE) Fail("the file " + path + " cannot be held");
}

RowGrid::RowGrid(int fontSize) {
  const HDC screen = GetDC(nullptr);
  const int height = fontSize * GetDeviceCaps(screen, LOGPIXELSY) / 72;
  const HFONT font =
      CreateFontA(-height, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, "Arial");
  const HGDIOBJ before = SelectObject(screen, font);
  TEXTMETRICA metrics{};
  GetTextMetricsA(screen, &metrics);
  SelectObject(screen, before);
  DeleteObject(font);
  ReleaseDC(nullptr, screen);
  ascent_ = static_cast<int>(metrics.tmAscent);
  lineHeight_ = static_cast<int>(metrics.tmAscent + metrics.tmDescent);
}

int RowGrid::VisibleRows(int height) const {
  return (height - 3 * lineHeight_ + ascent_) / lineHeight_;
}

Picture RowGrid::Header(const Picture& view) const {
  return view.Cut({0, 0, view.Width, RowTop(0)});
}

Picture RowGrid::Row(const Picture& view, int place) const {
  return view.Cut({0, RowTop(place), view.Width, RowTop(place + 1)});
}

Picture RowGrid::Below(const Picture& view, int place) const {
  return view.Cut({0, RowTop(place + 1), view.Width, view.Height});
}

EndToEnd::EndToEnd() {
  std::array<char, MAX_PATH> temporary{};
  GetTempPathA(static_cast<DWORD>(temporary.size()), temporary.data());
  folder_ = std::string(temporary.data()) + "ondrel_e2e_" + std::to_string(GetCurrentProcessId());
  std::filesystem::create_directories(folder_);
}

EndToEnd::~EndToEnd() {
  std::error_code ignored;  // a file that a failed test still holds goes with the profile
  std::filesystem::remove_all(folder_, ignored);
}

std::string EndToEnd::File(const std::string& name, const std::string& content) const {
  const std::string path = folder_ + "\\" + name;
  std::ofstream out(path, std::ios::binary);
  out << content;
  return path;
}

void EndToEnd::OpenTable(Program& program, const std::string& content) const {
  program.Open(File("table.evt", content));
  program.WaitForViews({"Level", "Event"});
  program.ToForeground();
}

void SizeInside(const Window& view, Point size) {
  const Rect place = view.PlaceInParent();
  const Rect inside = view.ClientArea();
  view.MoveTo({place.Left, place.Top, place.Right + size.X - inside.Width(),
               place.Bottom + size.Y - inside.Height()});
  WaitFor("the view to take its size", [&] {
    return view.ClientArea().Width() == size.X && view.ClientArea().Height() == size.Y;
  });
}

void ChooseColor(const Program& program, int id, const std::string& title, std::uint32_t color) {
  constexpr int kRedField = 0x2C2;
  constexpr int kGreenField = 0x2C3;
  constexpr int kBlueField = 0x2C4;
  program.Command(id);
  const Dialog dialog = program.WaitForDialog(title);
  dialog.Type(kRedField, std::to_string(color >> 16));
  dialog.Type(kGreenField, std::to_string((color >> 8) & 0xFF));
  dialog.Type(kBlueField, std::to_string(color & 0xFF));
  dialog.Leave(kOkButton);
  program.ToForeground();
}

void ExpectNoData(const Program& program) {
  WaitFor(
      "the menu of the state without data",
      [&] {
        const std::vector<MenuEntry> menu = program.Menu();
        const MenuEntry* open = FindEntry(menu, command::kOpen);
        const MenuEntry* close = FindEntry(menu, command::kClose);
        return open != nullptr && open->Enabled && close != nullptr && !close->Enabled;
      },
      [&] { return program.Describe(); });
  EXPECT_TRUE(program.ViewTitles().empty()) << program.Describe();
}

}  // namespace ondrel::e2e
