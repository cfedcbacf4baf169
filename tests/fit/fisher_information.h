// What theory says of the errors of a fit: the inverse of the Fisher information that the counts of
// the bins have about the parameters of a mixture.
#pragma once

#include <cmath>
#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

namespace ondrel {

using Matrix = std::vector<std::vector<double>>;

/// Probabilities of the bins for given free parameters; they need not sum to 1.
using BinModel = std::function<std::vector<double>(const std::vector<double>&)>;

/// Bins with a smaller share tell nothing, and the logarithms of theirs nothing sensible.
inline constexpr double kLeastLogShare = -30.0;

/// By Gauss and Jordan, with the largest pivot of each column.
inline Matrix Inverse(Matrix matrix) {
  const std::size_t size = matrix.size();
  Matrix inverse(size, std::vector<double>(size, 0.0));
  for (std::size_t i = 0; i < size; ++i) inverse[i][i] = 1.0;
  for (std::size_t column = 0; column < size; ++column) {
    std::size_t pivot = column;
    for (std::size_t row = column; row < size; ++row) {
      if (std::fabs(matrix[row][column]) > std::fabs(matrix[pivot][column])) pivot = row;
    }
    std::swap(matrix[column], matrix[pivot]);
    std::swap(inverse[column], inverse[pivot]);
    const double divisor = matrix[column][column];
    for (std::size_t j = 0; j < size; ++j) {
      matrix[column][j] /= divisor;
      inverse[column][j] /= divisor;
    }
    for (std::size_t row = 0; row < size; ++row) {
      if (row == column) continue;
      const double factor = matrix[row][column];
      for (std::size_t j = 0; j < size; ++j) {
        matrix[row][j] -= factor * matrix[column][j];
        inverse[row][j] -= factor * inverse[column][j];
      }
    }
  }
  return inverse;
}

inline std::vector<double> LogShares(const BinModel& model, const std::vector<double>& parameters) {
  std::vector<double> shares = model(parameters);
  double sum = 0.0;
  for (const double share : shares) sum += share;
  for (double& share : shares) share = std::log(share / sum);
  return shares;
}

/// The least covariance of estimates from `events` events: with p the share of a bin in the visible
/// ones, the information is the sum over the bins of events p (d log p / dx) (d log p / dy). The
/// derivatives are central differences.
inline Matrix Covariance(const BinModel& model, const std::vector<double>& parameters,
                         double events) {
  const std::size_t size = parameters.size();
  const std::vector<double> logs = LogShares(model, parameters);
  Matrix slopes;
  for (std::size_t i = 0; i < size; ++i) {
    const double step = 1e-5 * (parameters[i] == 0.0 ? 1.0 : std::fabs(parameters[i]));
    std::vector<double> higher = parameters;
    std::vector<double> lower = parameters;
    higher[i] += step;
    lower[i] -= step;
    std::vector<double> slope = LogShares(model, higher);
    const std::vector<double> below = LogShares(model, lower);
    for (std::size_t bin = 0; bin < slope.size(); ++bin) {
      slope[bin] = (slope[bin] - below[bin]) / (2.0 * step);
    }
    slopes.push_back(slope);
  }
  Matrix information(size, std::vector<double>(size, 0.0));
  for (std::size_t i = 0; i < size; ++i) {
    for (std::size_t j = 0; j < size; ++j) {
      for (std::size_t bin = 0; bin < logs.size(); ++bin) {
        if (!(logs[bin] > kLeastLogShare)) continue;
        information[i][j] += events * std::exp(logs[bin]) * slopes[i][bin] * slopes[j][bin];
      }
    }
  }
  return Inverse(information);
}

}  // namespace ondrel
