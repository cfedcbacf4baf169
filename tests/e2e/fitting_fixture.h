// What the tests of histograms and fits share: a recording of known distributions, and the program
// with a histogram and the view of its fit parameters side by side. Each test runs for both twins.
#pragma once

#include <string>
#include <vector>

#include "fitting_gestures.h"
#include "fixtures.h"

namespace ondrel::e2e {

/// A channel whose openings are normal in their current, pA, and exponential in their length, with
/// exponential closings, s. The values are the quantiles of these distributions: no sample could be
/// nearer to them.
struct Channel {
  double Current = 3.0;
  double StdDev = 0.3;
  double Open = 0.001;
  double Closed = 0.05;
  int Openings = 400;
};

std::vector<Opening> OpeningsOf(const Channel& channel);
std::string RecordingOf(const Channel& channel);

/// Levels that a recording of one sweep gives to the histograms: each sweep's first and last are
/// left out at the start.
int LevelsOf(const Channel& channel);

class FittingTest : public EndToEnd, public ::testing::WithParamInterface<const Twin*> {
 protected:
  FittingTest() : hand_(program_, *GetParam()) {}

  /// Starts, opens a table and gives the frame the screen.
  void Open(const std::string& content);
  void OpenHistogram(const std::string& content);
  void OpenHistogramWithFit(const std::string& content);
  /// "Manual Fit" on a histogram that is open, with the histogram on top afterwards.
  void ShowFitBesideHistogram();

  [[nodiscard]] const Twin& Kind() const { return *GetParam(); }
  [[nodiscard]] bool IsAmplitude() const { return GetParam() == &kAmplitudeTwin; }
  [[nodiscard]] Window Histogram() const { return program_.View(Kind().Histogram); }
  [[nodiscard]] Window Fit() const { return program_.View(Kind().Fit); }
  [[nodiscard]] Picture HistogramPicture() const { return program_.ClientPicture(Histogram()); }
  [[nodiscard]] Picture FitPicture() const { return program_.ClientPicture(Fit()); }
  [[nodiscard]] FitTable Table() const { return ReadFitTable(Kind(), FitPicture()); }
  /// What stands in the table for a place on the axis: pA, or seconds.
  [[nodiscard]] double Shown(double axisValue) const;
  /// How far two places may lie apart that are a pixel apart, and are rounded for the table.
  [[nodiscard]] double PixelAt(const Plot& plot, double axisValue) const;
  [[nodiscard]] bool CanFit() const;

  /// The height of a term's curve beside its peak, as a part of the peak's: `distance` is in axis
  /// units; `stdDev` is that of an amplitude.
  [[nodiscard]] double CurveBeside(double distance, double stdDev) const;
  /// A place at this part of the plot's height above the line of count zero.
  [[nodiscard]] static Point Above(const Plot& plot, double axisValue, double height);

  /// The second handle of an amplitude's peak: the bar of its width ends at the left side of it.
  [[nodiscard]] static Point WidthHandle(const Plot& plot, Point peak, double stdDev);

  /// Keeps a picture when ONDREL_PICTURES names a folder.
  void Keep(const Picture& picture, const std::string& what) const;

  Program program_;
  Hand hand_;

 private:
  [[nodiscard]] Rect Room() const;
};

/// Whether a curve passes the place, give or take some pixels up or down.
bool CurvePasses(const Picture& view, Point place, int reach = 3);

/// Instantiates the tests of a fixture for both histograms.
#define FOR_BOTH_HISTOGRAMS(fixture)                                                          \
  INSTANTIATE_TEST_SUITE_P(Both, fixture, ::testing::Values(&kAmplitudeTwin, &kDurationTwin), \
                           [](const auto& info) { return std::string(info.param->Name); })

}  // namespace ondrel::e2e
