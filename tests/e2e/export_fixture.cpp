// One program for many exports, and the dialogs on the way out of it.
#include "export_fixture.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "fitting_fixture.h"

namespace ondrel::e2e {
namespace {

/// Three sweeps, each at another value, over one channel.
std::string ExportedRecording() {
  constexpr std::size_t kEach = 100;
  const std::vector<Opening> all = OpeningsOf({.Open = 0.004, .Openings = 3 * kEach});
  std::vector<RecordedSweep> sweeps;
  for (std::size_t sweep = 0; sweep < 3; ++sweep) {
    RecordedSweep made{.Relevant = 12.5 * static_cast<double>(sweep),
                       .Tag = static_cast<double>(sweep) + 0.25,
                       .Openings = {}};
    for (std::size_t place = sweep; place < all.size(); place += 3) {
      made.Openings.push_back(all[place]);
    }
    sweeps.push_back(std::move(made));
  }
  return VersionFiveOfSweeps(sweeps);
}

/// So many counts to a tick that the bars are as high as the plot, and curves of all kinds.
void SetUpHistogram(const Program& program, int command, const char* title, int scaling,
                    const char* scalingTitle, int countsPerTick, int style) {
  program.Command(command);
  program.WaitForTopView(title);
  program.Command(scaling);
  Dialog dialog = program.WaitForDialog(scalingTitle);
  dialog.Type(countsPerTick, "12");
  dialog.Leave(kOkButton);
  program.Command(style);
  dialog = program.WaitForDialog("Histogram Style");
  dialog.Choose(5, "Both");
  dialog.Leave(kOkButton);
}

/// Two terms, so that there are a sum and its components.
void PlaceTerms(const Program& program, const Twin& twin, double first, double second) {
  const Rect client = program.Frame().ClientArea();
  OpenHistogramWithFit(program, twin, {0, 0, client.Width(), client.Height()});
  Hand hand(program, twin);
  const Plot plot = hand.PlotNow();
  const auto lift = [&](double from, double to, double height) {
    hand.Drag(
        plot.OnAxis(from),
        {plot.XOf(to), plot.BottomPixel() - static_cast<int>(height * (plot.Bottom - plot.Top))});
  };
  lift(twin.FirstEstimate, first, 0.5);
  hand.DoubleClick(plot.OnAxis(second));
  lift(second, second, 0.3);
}

/// The average level goes up and down; the share of selected time does not.
void AverageLevels(const Program& program) {
  program.Command(52488);
  program.WaitForTopView("Stationarity");
  program.Command(55041);
  const Dialog dialog = program.WaitForDialog("Stationarity Settings");
  dialog.Choose(3, "Level");
  dialog.Leave(kOkButton);
}

}  // namespace

void SaveAs(const Dialog& dialog, const std::string& offered, const std::string& path) {
  EXPECT_EQ(dialog.Text(kFileNameField), offered);
  ChooseFile(dialog, path);
}

std::vector<std::string> ReadTop(const ExportedView& view, const Picture& picture) {
  constexpr int kRead = 320;   // pixels, since reading takes its time
  constexpr int kOverlap = 4;  // the first line reaches over the formula's lower edge
  static const TextReader reader;
  int top = 0;
  for (const Twin* twin : {&kAmplitudeTwin, &kDurationTwin}) {
    if (view.FitCommand == twin->ManualFit) top = twin->FormulaHeight - kOverlap;
  }
  return reader.Lines(picture.Cut({0, top, picture.Width, top + kRead}));
}

Box SaveOver(const Program& program, const Dialog& dialog, const std::string& path) {
  const Window field = dialog.Frame().Control(kFileNameField);
  WaitFor("the file dialog to take the path", [&] {
    field.Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
    return field.Text() == path;
  });
  dialog.Press(kOkButton);
  Window question;
  WaitFor("the question whether to replace the file", [&] {
    const std::vector<Window> dialogs = program.Dialogs();
    if (dialogs.empty() || !Box::Is(dialogs.front())) return false;
    question = dialogs.front();
    return question.Control(kYesButton).Exists();
  });
  return Box(question);
}

void Exports::Start(const std::string& recording) {
  program_ = std::make_unique<Program>();
  Program& program = *program_;
  program.PassStart();
  program.PlaceFrame({8, 8, GetSystemMetrics(SM_CXSCREEN) - 8, GetSystemMetrics(SM_CYSCREEN) - 8});
  program.Open(recording);
  program.WaitForViews({"Level", "Event"});
  SetUpHistogram(program, 52481, "Amplitude Histogram", 53250, "Amplitude Histogram Scaling", 16,
                 53251);
  PlaceTerms(program, kAmplitudeTwin, 3.0, 1.5);
  SetUpHistogram(program, 52484, "Duration Histogram", 53506, "Duration Histogram Scaling", 17,
                 53507);
  PlaceTerms(program, kDurationTwin, -2.4, -1.3);
  AverageLevels(program);
}

void Exports::SetUp() {
  if (program_ == nullptr) Start(File("exported.evt", ExportedRecording()));
}

void Exports::TearDown() {
  if (HasFailure()) program_.reset();
}

void Exports::Show(const ExportedView& view, Point inside) const {
  const Program& program = It();
  program.Command(view.Command);
  if (view.FitCommand != 0) program.Command(view.FitCommand);
  program.WaitForTopView(view.Title);
  const Window window = WindowOf(view);
  window.MoveTo({0, 0, inside.X, inside.Y});
  SizeInside(window, inside);
  program.Settle(window);
}

std::string Exports::ExportPath(const std::string& name) const {
  const std::string folder = Environment("ONDREL_EXPORTS");
  const std::string path = folder.empty() ? File(name, "") : NativePath(folder) + "\\" + name;
  std::filesystem::remove(path);
  return path;
}

Picture Exports::KeepScreen(const ExportedView& view) const {
  const std::string name = view.Name;
  Picture picture = PictureOf(view);
  SavePng(picture, ExportPath(name + "_screen.png"));
  if (view.Plot) return picture;
  std::ofstream out(ExportPath(name + "_screen.txt"), std::ios::binary);
  for (const std::string& line : ReadTop(view, picture)) out << line << "\n";
  return picture;
}

void Exports::AskForGraph(const std::string& form) const {
  It().Command(command::kExportGraph);
  const Dialog dialog = It().WaitForDialog("Export Graph");
  dialog.Choose(graph::kForm, form);
  dialog.Leave(kOkButton);
}

void Exports::ExportGraph(const ExportedView& view, const std::string& form,
                          const std::string& title, const std::string& offered,
                          const std::string& path) const {
  AskForGraph(form);
  SaveAs(It().WaitForDialog(title), offered, path);
  ExpectDoneQuietly(view);
}

void Exports::ExportText(const ExportedView& view, const std::string& form, bool limited,
                         const std::string& path) const {
  It().Command(command::kExportText);
  const Dialog dialog = It().WaitForDialog("Export Text");
  dialog.Choose(text::kForm, form);
  if (dialog.IsChecked(text::kLimit) != limited) dialog.Press(text::kLimit);
  WaitFor("the limit to turn", [&] { return dialog.IsChecked(text::kLimit) == limited; });
  dialog.Leave(kOkButton);
  SaveAs(It().WaitForDialog(view.TextTitle), form == "Igor" ? view.IgorName : "Untitled", path);
  ExpectDoneQuietly(view);
}

void Exports::ExpectDoneQuietly(const ExportedView& view) const {
  It().Settle(WindowOf(view));
  EXPECT_THAT(It().Dialogs(), ::testing::IsEmpty()) << It().Describe();
  It().ToForeground();
}

}  // namespace ondrel::e2e
