// The two histograms as a user at the mouse knows them: where plot, axis and handles stand, what
// the table of a fit says, and gestures that leave each other time.
#pragma once

#include <string>
#include <vector>

#include "program.h"

namespace ondrel::e2e {

/// What tells one histogram from the other, seen from outside.
struct Twin {
  const char* Name;
  const char* Histogram;  // titles of the windows
  const char* Fit;
  int View;  // commands
  int Autoscale;
  int ManualFit;
  int AutomaticFit;
  int FirstColor;       // of the bars; fit, labels, axes and background follow
  const char* ColorOf;  // in the titles of the first two colour dialogs
  int ManualFitKey;     // with Control
  int AutomaticFitKey;  // likewise
  const char* AxisTitle;
  double Minimum;        // the axis at the start: pA, or log10 of seconds
  double FirstEstimate;  // in axis units, where "&Manual Fit" puts the first term
  int FormulaWidth;      // pixels
  int FormulaHeight;
  bool CountsFromMiddle;  // the line of count zero
};

extern const Twin kAmplitudeTwin;
extern const Twin kDurationTwin;

/// An axis as the settings have it: pA, or decades of time.
struct Axis {
  double Minimum = 0.0;
  int Ticks = 5;
  int BinsPerTick = 20;
  double PerTick = 1.0;
};

/// The axis at the start.
Axis FirstAxis(const Twin& twin);

/// Where a histogram stands in the client area of its view, pixels. Bottom is the line of count
/// zero.
struct Plot {
  double Left = 0.0;
  double Right = 0.0;
  double Top = 0.0;
  double Bottom = 0.0;
  double HandleHalf = 0.0;
  double BinWidth = 0.0;
  double PerUnit = 0.0;  // pixels per pA or decade
  double Minimum = 0.0;  // of the axis

  [[nodiscard]] int BottomPixel() const { return static_cast<int>(Bottom); }
  [[nodiscard]] int XOf(double value) const;
  [[nodiscard]] double ValueAt(int x) const { return (x - Left) / PerUnit + Minimum; }
  /// The place on the axis, for a term of no height.
  [[nodiscard]] Point OnAxis(double value) const { return {XOf(value), BottomPixel()}; }
};

Plot PlotOf(const Twin& twin, const Rect& client, const Axis& axis);

/// Whether the handle of a peak is drawn around this place, give or take a pixel: all of its
/// outline is there.
bool ShowsHandle(const Picture& view, const Plot& plot, Point centre, std::uint32_t color = kBlue);

/// A row of the table of terms. Where is pA or seconds, StdDev pA and 0 in the duration table.
struct TermRow {
  double Weight = 0.0;
  double Where = 0.0;
  double StdDev = 0.0;
};

struct FitTable {
  int Events = 0;
  double LogLikelihood = 0.0;
  std::vector<TermRow> Terms;
};

/// Reads the picture of a fit parameter view. Fails when something other stands there.
FitTable ReadFitTable(const Twin& twin, const Picture& view);

/// A hand on the mouse over the histogram of a program. Places are in the view's client area.
class Hand {
 public:
  Hand(const Program& program, const Twin& twin) : program_(&program), twin_(&twin) {}

  [[nodiscard]] Window View() const { return program_->View(twin_->Histogram); }
  [[nodiscard]] Plot PlotNow(const Axis& axis) const {
    return PlotOf(*twin_, View().ClientArea(), axis);
  }
  [[nodiscard]] Plot PlotNow() const { return PlotNow(FirstAxis(*twin_)); }

  // Each waits first until a press would not be taken for the second of a double click.
  void Click(Point place);
  void DoubleClick(Point place);
  void Drag(Point from, Point to);
  void Press(Point place);

  void Move(Point place) const { program_->MoveHeld(OnScreen(place)); }
  void Release() const { program_->Release(); }

 private:
  [[nodiscard]] Point OnScreen(Point place) const;
  static void WaitForNewClick();
  static void NotePress() { lastPress_ = GetTickCount(); }

  const Program* program_;
  const Twin* twin_;
  static inline DWORD lastPress_ = 0;  // of all hands: both histograms share the click's clock
};

/// Gives a view the place in the frame's client area and waits until it has it.
void PlaceView(const Program& program, const std::string& title, const Rect& place);

/// Opens the histogram, and the view of its fit parameters on the right of it, with the histogram
/// on top. `room` is in the frame's client area.
void OpenHistogram(const Program& program, const Twin& twin, const Rect& room);
void OpenHistogramWithFit(const Program& program, const Twin& twin, const Rect& room);

/// Waits until a fit that has been started has ended: with a box, whose text is returned, or
/// without one, when the text is empty. The box is answered.
std::string WaitForEndOfFit(const Program& program);
/// The command, and the same.
std::string RunAutomaticFit(const Program& program, const Twin& twin);

}  // namespace ondrel::e2e
