// Recordings of known distributions, and the program ready for a fit.
#include "fitting_fixture.h"

#include <cmath>
#include <cstdlib>

namespace ondrel::e2e {
namespace {

double NormalQuantile(double probability) {
  double low = -10.0;
  double high = 10.0;
  for (int step = 0; step < 60; ++step) {
    const double middle = (low + high) / 2.0;
    const bool below = 0.5 * std::erfc(-middle / std::sqrt(2.0)) < probability;
    (below ? low : high) = middle;
  }
  return low;
}

double ExponentialQuantile(double probability) {
  return -std::log1p(-probability);
}

/// The quantiles' places, in an order of their own for each `stride`, which must have no divisor
/// in common with `count`.
double Place(int index, int stride, int count) {
  const int turned = static_cast<int>((static_cast<long long>(index) * stride) % count);
  return (turned + 0.5) / count;
}

}  // namespace

std::vector<Opening> OpeningsOf(const Channel& channel) {
  std::vector<Opening> openings;
  for (int index = 0; index < channel.Openings; ++index) {
    openings.push_back(
        {channel.Current + channel.StdDev * NormalQuantile(Place(index, 1, channel.Openings)),
         channel.Open * ExponentialQuantile(Place(index, 137, channel.Openings)),
         channel.Closed * ExponentialQuantile(Place(index, 149, channel.Openings))});
  }
  return openings;
}

std::string RecordingOf(const Channel& channel) {
  return VersionFiveOf(OpeningsOf(channel));
}

int LevelsOf(const Channel& channel) {
  return 2 * channel.Openings - 1;
}

bool CurvePasses(const Picture& view, Point place, int reach) {
  return view.Cut({place.X, place.Y - reach, place.X + 1, place.Y + reach + 1}).Count(kBlue) > 0;
}

Rect FittingTest::Room() const {
  const Rect client = program_.Frame().ClientArea();
  return {0, 0, client.Width(), client.Height() * 6 / 10};
}

void FittingTest::Open(const std::string& content) {
  program_.PassStart();
  program_.PlaceFrame({8, 8, GetSystemMetrics(SM_CXSCREEN) - 8, GetSystemMetrics(SM_CYSCREEN) - 8});
  OpenTable(program_, content);
}

void FittingTest::OpenHistogram(const std::string& content) {
  Open(content);
  e2e::OpenHistogram(program_, Kind(), Room());
}

void FittingTest::OpenHistogramWithFit(const std::string& content) {
  Open(content);
  e2e::OpenHistogramWithFit(program_, Kind(), Room());
}

void FittingTest::ShowFitBesideHistogram() {
  e2e::OpenHistogramWithFit(program_, Kind(), Room());
}

double FittingTest::Shown(double axisValue) const {
  return IsAmplitude() ? axisValue : std::pow(10.0, axisValue);
}

double FittingTest::PixelAt(const Plot& plot, double axisValue) const {
  const double rounding = IsAmplitude() ? 0.0005 : Shown(axisValue) * 0.0005;
  return Shown(axisValue + 1.0 / plot.PerUnit) - Shown(axisValue) + rounding;
}

bool FittingTest::CanFit() const {
  const std::vector<MenuEntry> menu = program_.Menu();
  const MenuEntry* entry = FindEntry(menu, Kind().AutomaticFit);
  if (entry == nullptr) Fail("there is no 'Automatic Fit' in the bar; " + program_.Describe());
  return entry->Enabled;
}

double FittingTest::CurveBeside(double distance, double stdDev) const {
  if (IsAmplitude()) return std::exp(-0.5 * distance * distance / (stdDev * stdDev));
  const double times = std::pow(10.0, distance);
  return times * std::exp(1.0 - times);
}

Point FittingTest::Above(const Plot& plot, double axisValue, double height) {
  return {plot.XOf(axisValue),
          plot.BottomPixel() - static_cast<int>(height * (plot.Bottom - plot.Top))};
}

Point FittingTest::WidthHandle(const Plot& plot, Point peak, double stdDev) {
  return {peak.X + static_cast<int>(stdDev * plot.PerUnit / 2.0 + plot.HandleHalf / 2.0), peak.Y};
}

void FittingTest::Keep(const Picture& picture, const std::string& what) const {
  const std::string folder = Environment("ONDREL_PICTURES");
  if (folder.empty()) return;
  SavePng(picture, NativePath(folder) + "\\" + what + "_" + Kind().Name + ".png");
}

}  // namespace ondrel::e2e
