#include "plain_objectives.h"

#include <cmath>

#include "fit/error_function.h"
#include "fit/histogram_axis.h"

namespace ondrel::bench {
namespace {

constexpr double kImpossible = -12000.0;

double LogOf(double probability) {
  return probability > 0.0 ? std::log(probability) : kImpossible;
}

double Normaliser(double visible, std::int32_t events) {
  return visible > 0.0 ? events * std::log(visible) : kImpossible;
}

// --- Gaussians -----------------------------------------------------------------------------------

double Density(double x, const double* term) {
  const double distance = x - term[1];
  return term[0] / (std::sqrt(6.283185307178) * term[2]) *
         std::exp(-(distance * distance) / (2.0 * term[2] * term[2]));
}

double BinShare(const ParameterVector& point, std::int32_t terms, double low, double high) {
  double sum = 0.0;
  for (std::int32_t i = 0; i < terms; ++i) {
    const double* term = point.data() + kParametersPerAmplitudeTerm * i;
    sum += Density(low, term) / 6.0 + Density((low + high) / 2.0, term) * 2.0 / 3.0 +
           Density(high, term) / 6.0;
  }
  return sum * (high - low);
}

double Stretch(const ParameterVector& point, std::int32_t terms, double low, double high) {
  double sum = 0.0;
  for (std::int32_t i = 0; i < terms; ++i) {
    const double* term = point.data() + kParametersPerAmplitudeTerm * i;
    const double width = 1.4142 * term[2];
    sum +=
        (ComplementaryErf((low - term[1]) / width) - ComplementaryErf((high - term[1]) / width)) *
        term[0];
  }
  return sum / 2.0;
}

// --- Exponentials --------------------------------------------------------------------------------

double Share(const ParameterVector& point, std::int32_t terms, double low, double high) {
  double sum = 0.0;
  for (std::int32_t i = 0; i < terms; ++i) {
    const double* term = point.data() + kParametersPerDurationTerm * i;
    sum -= term[1] * std::exp(-low / term[0]) * std::expm1(-(high - low) / term[0]);
  }
  return sum;
}

}  // namespace

double PlainAmplitudeObjective(const AmplitudeHistogram& histogram, const DurationHistogram&,
                               const ParameterVector& point) {
  const double width = BinWidth(histogram);
  const std::int64_t binCount = CountBins(histogram);
  double sum = 0.0;
  for (std::int64_t i = 1; i <= binCount; ++i) {
    const double low = histogram.Minimum + static_cast<double>(i - 1) * width;
    sum += histogram.Bins[i].Count * LogOf(BinShare(point, histogram.TermCount, low, low + width));
  }
  const double visible = Stretch(point, histogram.TermCount, histogram.Minimum,
                                 histogram.Minimum + static_cast<double>(binCount) * width);
  return Normaliser(visible, histogram.EventsInHistogram) - sum;
}

double PlainDurationObjective(const AmplitudeHistogram&, const DurationHistogram& histogram,
                              const ParameterVector& point) {
  const double width = LogBinWidth(histogram);
  const std::int64_t binCount = CountBins(histogram);
  const auto edge = [&](std::int64_t i) {
    return std::pow(10.0, histogram.MinimumExponent + static_cast<double>(i) * width);
  };
  double sum = 0.0;
  for (std::int64_t i = 1; i <= binCount; ++i) {
    sum += histogram.Bins[i].Count * LogOf(Share(point, histogram.TermCount, edge(i - 1), edge(i)));
  }
  const double visible = Share(point, histogram.TermCount, edge(0), edge(binCount));
  return Normaliser(visible, histogram.EventsInHistogram) - sum;
}

}  // namespace ondrel::bench
