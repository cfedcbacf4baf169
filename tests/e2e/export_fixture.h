// What the tests of everything that leaves the program share: a recording of which each view shows
// something, the twelve views over it, and where what they leave is kept for other readers.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "fixtures.h"
#include "text_reader.h"

namespace ondrel::e2e {

/// A view as exports know it.
struct ExportedView {
  const char* Name;                   // of tests and files
  const char* Title;                  // of the window
  int Command;                        // opens it; for the parameters of a fit, its histogram
  int FitCommand = 0;                 // then opens the parameters
  const char* TextTitle;              // of the file dialog
  const char* IgorName = "Untitled";  // that the dialog offers in the Igor form
  const char* Report;                 // what messages call the view
  bool Plot = true;                   // or text
};

/// For messages of tests.
void PrintTo(const ExportedView& view, std::ostream* out);

inline constexpr ExportedView kEventExport{.Name = "Event",
                                           .Title = "Event",
                                           .Command = 52486,
                                           .TextTitle = "Export event list as:",
                                           .IgorName = "Events",
                                           .Report = "Events",
                                           .Plot = false};
inline constexpr ExportedView kLevelExport{.Name = "Level",
                                           .Title = "Level",
                                           .Command = 52487,
                                           .TextTitle = "Export level list as:",
                                           .IgorName = "Events",
                                           .Report = "Levels",
                                           .Plot = false};
inline constexpr ExportedView kSweepExport{.Name = "Sweep",
                                           .Title = "Sweep",
                                           .Command = 52490,
                                           .TextTitle = "Export sweeps as:",
                                           .Report = "Sweeps",
                                           .Plot = false};
inline constexpr ExportedView kAmplitudeExport{.Name = "Amplitude",
                                               .Title = "Amplitude Histogram",
                                               .Command = 52481,
                                               .TextTitle = "Export amplitude histogram as:",
                                               .Report = "Amplitude"};

/// All twelve.
const std::vector<ExportedView>& ExportedViews();

namespace graph {  // controls of "Export Graph"
inline constexpr int kHeight = 5;
inline constexpr int kWidth = 7;
inline constexpr int kForm = 8;
inline constexpr int kResolution = 11;
}  // namespace graph

namespace text {  // controls of "Export Text"
inline constexpr int kForm = 3;
inline constexpr int kLimit = 4;
}  // namespace text

/// Of a view, pixels: of so many, the size in centimetres that the dialog shows is exact, and all
/// of a table or a plot lies inside.
inline constexpr Point kInside{912, 864};

/// Lines in black from the upper part of a picture of a view with text, below its formula.
std::vector<std::string> ReadTop(const ExportedView& view, const Picture& picture);

/// Puts a path into a file dialog that offers `offered`, and leaves it.
void SaveAs(const Dialog& dialog, const std::string& offered, const std::string& path);

/// The same for a file that is there: up to the platform's question, which is for the caller.
Box SaveOver(const Program& program, const Dialog& dialog, const std::string& path);

/// Tests that share one program, which is started anew behind a test that failed: what they do
/// leaves no trace in the views.
class Exports : public EndToEnd {
 public:
  static void TearDownTestSuite() { program_.reset(); }
  void SetUp() override;
  void TearDown() override;

  [[nodiscard]] Program& It() const { return *program_; }
  /// Opens a view, or brings it forward, with an inside of this size.
  void Show(const ExportedView& view, Point inside = kInside) const;
  [[nodiscard]] Window WindowOf(const ExportedView& view) const { return It().View(view.Title); }
  [[nodiscard]] Picture PictureOf(const ExportedView& view) const {
    return It().ClientPicture(WindowOf(view));
  }

  /// A path, where nothing stands, for something that leaves the program: in the folder that
  /// ONDREL_EXPORTS names, for readers to come, else in one that goes with the test.
  [[nodiscard]] std::string ExportPath(const std::string& name) const;
  /// Keeps what the view shows on the screen beside what it exports, and returns it.
  Picture KeepScreen(const ExportedView& view) const;

  /// "Export Graph" on the view on top, up to its file dialog.
  void AskForGraph(const std::string& form) const;
  /// Up to the file.
  void ExportGraph(const ExportedView& view, const std::string& form, const std::string& title,
                   const std::string& offered, const std::string& path) const;
  /// "Export Text", up to the file.
  void ExportText(const ExportedView& view, const std::string& form, bool limited,
                  const std::string& path) const;
  /// Waits until the command is done, and nothing is told.
  void ExpectDoneQuietly(const ExportedView& view) const;

 private:
  static void Start(const std::string& recording);

  static inline std::unique_ptr<Program> program_;
};

/// Tests that run for each view.
class EveryExport : public Exports, public ::testing::WithParamInterface<ExportedView> {};

std::string NameOfView(const ::testing::TestParamInfo<ExportedView>& info);

}  // namespace ondrel::e2e
