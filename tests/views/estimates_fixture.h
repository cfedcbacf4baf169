// A fixture for estimates by mouse: both histograms in windows of a known size, with terms that
// stand at whole pixels, and a mouse.
#pragma once

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "fit/amplitude_histogram.h"
#include "fit/duration_histogram.h"
#include "shell/window_events.h"
#include "support/view_test.h"
#include "views/fit_views.h"
#include "views/term_markers.h"

namespace ondrel {

/// A place in a view. The X axis of most tests ends before the plot does, since bins are whole
/// pixels wide.
struct Place {
  int X = 0;
  int Y = 0;

  friend bool operator==(const Place&, const Place&) = default;
};

class EstimateViewsTest : public ViewTest {
 protected:
  // Of a client area of 640 by 240: bins of 4 pixels, so that a pA and a decade have 80.
  static constexpr IntRect kClient = {0, 0, 640, 240};
  static constexpr int kPlotLeft = 80;
  static constexpr int kPlotRight = 560;
  static constexpr int kAxisEnd = 480;
  static constexpr int kPlotTop = 40;
  static constexpr int kPlotBottom = 200;
  static constexpr int kZeroLine = 120;  // of durations that may be negative
  static constexpr int kHalf = 6;        // of a peak's handle
  static constexpr double kPixelsPerUnit = 80.0;

  EstimateViewsTest() { shell().Ticks = 1000000; }

  AmplitudeHistogram& Amplitude() { return workspace().Amplitude; }
  DurationHistogram& Duration() { return workspace().Duration; }

  static ViewKind FitOf(ViewKind kind) {
    return kind == ViewKind::Amplitude ? ViewKind::AmplitudeFit : ViewKind::DurationFit;
  }

  void OpenHistogram(ViewKind kind) {
    Open(kind);
    WindowOf(kind).Client = kClient;
    Paint(kind);
    ForgetAll();
  }

  /// Both views of a fit. The terms stay as they are.
  void OpenBoth(ViewKind kind) {
    Open(FitOf(kind));
    OpenHistogram(kind);
  }

  /// Terms on the axis at these distances from its left end, pA or decades, without height.
  void SetTerms(ViewKind kind, const std::vector<double>& distances) {
    for (std::size_t i = 0; i < distances.size(); ++i) {
      Amplitude().Terms[i] = {
          .Weight = 0.0, .Current = Amplitude().Minimum + distances[i], .StdDev = 1.0, .Area = 0.0};
      Duration().Terms[i] = {
          .Weight = 0.0,
          .TimeConstant = std::pow(10.0, Duration().MinimumExponent + distances[i]),
          .Area = 0.0};
    }
    TermCount(kind) = static_cast<std::int32_t>(distances.size());
    if (View(kind).Window != nullptr) Paint(kind);
    ForgetAll();
  }

  /// `count` terms, half a unit apart.
  void SetManyTerms(ViewKind kind, int count) {
    std::vector<double> distances;
    for (int i = 0; i < count; ++i) distances.push_back(0.25 + i * 0.5);
    SetTerms(kind, distances);
  }

  std::int32_t& TermCount(ViewKind kind) {
    return kind == ViewKind::Amplitude ? Amplitude().TermCount : Duration().TermCount;
  }
  std::int32_t& MarkerCount(ViewKind kind) {
    return kind == ViewKind::Amplitude ? Amplitude().MarkerCount : Duration().MarkerCount;
  }
  TermMarker& Peak(ViewKind kind, std::size_t marker) {
    return kind == ViewKind::Amplitude ? Amplitude().PeakMarkers[marker]
                                       : Duration().Markers[marker];
  }
  TermMarker& Width(std::size_t marker) { return Amplitude().WidthMarkers[marker]; }

  double Area(ViewKind kind, std::size_t term) {
    return kind == ViewKind::Amplitude ? Amplitude().Terms[term].Area : Duration().Terms[term].Area;
  }
  double Weight(ViewKind kind, std::size_t term) {
    return kind == ViewKind::Amplitude ? Amplitude().Terms[term].Weight
                                       : Duration().Terms[term].Weight;
  }
  /// Distance of a term from the left end of the axis, pA or decades.
  double Distance(ViewKind kind, std::size_t term) {
    return kind == ViewKind::Amplitude
               ? Amplitude().Terms[term].Current - Amplitude().Minimum
               : std::log10(Duration().Terms[term].TimeConstant) - Duration().MinimumExponent;
  }

  static Place CentreOf(const TermMarker& marker) {
    return {(marker.Left + marker.Right) / 2, (marker.Top + marker.Bottom) / 2};
  }
  static std::vector<int> RectOf(const TermMarker& marker) {
    return {marker.Left, marker.Top, marker.Right, marker.Bottom};
  }
  static std::vector<int> SquareAt(const Place& centre) {
    return {centre.X - kHalf, centre.Y - kHalf, centre.X + kHalf, centre.Y + kHalf};
  }

  int AxisY(ViewKind kind) {
    return kind == ViewKind::Amplitude || Duration().ConstrainPositive ? kPlotBottom : kZeroLine;
  }

  MouseGesture& Gesture(ViewKind kind) { return View(kind).Gesture; }

  // --- The mouse ---------------------------------------------------------------------------------

  /// A press `after` milliseconds after the one before.
  void Press(ViewKind kind, const Place& place, std::uint32_t after = 5000) {
    shell().Ticks += after;
    OnMouseDown(View(kind).Window, place.X, place.Y);
  }
  void Move(ViewKind kind, const Place& place) { OnMouseMove(View(kind).Window, place.X, place.Y); }
  void Release(ViewKind kind, const Place& place) {
    OnMouseUp(View(kind).Window, place.X, place.Y);
  }
  void Click(ViewKind kind, const Place& place, std::uint32_t after = 5000) {
    Press(kind, place, after);
    Release(kind, place);
  }
  void DoubleClick(ViewKind kind, const Place& place) {
    Click(kind, place);
    Click(kind, place, 100);
  }

  /// Drags a handle by its centre from `from` to `to`, and lets it go there.
  void Drag(ViewKind kind, const Place& from, const Place& to) {
    Press(kind, from);
    Move(kind, to);
    Release(kind, to);
  }

  // --- What the mouse did to the windows ---------------------------------------------------------

  int TimesDrawn(const std::string& text) {
    const std::vector<DrawnText> texts = TextsIn(Drawn());
    return static_cast<int>(std::count_if(
        texts.begin(), texts.end(), [&](const DrawnText& drawn) { return drawn.Text == text; }));
  }
  int HistogramsDrawn() { return TimesDrawn("Counts"); }
  /// The pictures of the formulas: those of the tables.
  int TablesDrawn() { return static_cast<int>(LinesWith(Drawn(), "image ").size()); }
  bool IsRepainted(ViewKind kind) { return !WindowOf(kind).Invalidated.empty(); }
};

/// What both histograms do in the same way.
class EstimateTwinsTest : public EstimateViewsTest, public ::testing::WithParamInterface<ViewKind> {
 protected:
  ViewKind Kind() { return GetParam(); }
  ViewKind Fit() { return FitOf(GetParam()); }
};

inline std::string NameOfTwin(const ::testing::TestParamInfo<ViewKind>& info) {
  return info.param == ViewKind::Amplitude ? "Amplitude" : "Duration";
}

}  // namespace ondrel
