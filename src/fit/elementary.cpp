#include "fit/elementary.h"

namespace ondrel::elementary {
namespace {

// --- Numbers of twice the length, to make the tables with ----------------------------------------

/// The unevaluated sum of two doubles; `Low` is less than half a unit in the last place of `High`.
struct Wide {
  double High;
  double Low;
};

constexpr Wide kLogTwo{0x1.62e42fefa39efp-1, 0x1.abc9e3b39803fp-56};

constexpr Wide SumOf(double large, double small) {
  const double sum = large + small;
  return {sum, small - (sum - large)};
}

/// The leading 26 bits.
constexpr double LeadingHalf(double value) {
  constexpr double kSplitter = 0x1p27 + 1.0;
  const double spread = value * kSplitter;
  return spread - (spread - value);
}

constexpr Wide ProductOf(double a, double b) {
  const double product = a * b;
  const double aHigh = LeadingHalf(a);
  const double bHigh = LeadingHalf(b);
  const double aLow = a - aHigh;
  const double bLow = b - bHigh;
  return {product, ((aHigh * bHigh - product) + aHigh * bLow + aLow * bHigh) + aLow * bLow};
}

constexpr Wide Multiply(Wide a, Wide b) {
  const Wide product = ProductOf(a.High, b.High);
  return SumOf(product.High, product.Low + (a.High * b.Low + a.Low * b.High));
}

/// `a` is the larger.
constexpr Wide Add(Wide a, Wide b) {
  const Wide sum = SumOf(a.High, b.High);
  return SumOf(sum.High, sum.Low + (a.Low + b.Low));
}

constexpr Wide Divide(Wide a, double b) {
  const double quotient = a.High / b;
  const Wide back = ProductOf(quotient, b);
  return SumOf(quotient, ((a.High - back.High) - back.Low + a.Low) / b);
}

// --- The tables ----------------------------------------------------------------------------------

constexpr Wide TwoToOneStep() {
  constexpr int kTerms = 14;
  const Wide exponent = Divide(kLogTwo, static_cast<double>(kSteps));
  Wide sum{1.0, 0.0};
  for (int n = kTerms; n > 0; --n) sum = Add({1.0, 0.0}, Divide(Multiply(exponent, sum), n));
  return sum;
}

constexpr std::array<PowerEntry, kSteps> MakePowers() {
  std::array<PowerEntry, kSteps> powers{};
  const Wide step = TwoToOneStep();
  Wide power{1.0, 0.0};
  for (std::size_t j = 0; j < kSteps; ++j) {
    powers[j] = {std::bit_cast<std::uint64_t>(power.High) - (std::uint64_t{j} << kStepShift),
                 power.Low / power.High};
    power = Multiply(power, step);
  }
  return powers;
}

/// 1 / the middle of the step, to a few bits.
constexpr double ReciprocalOf(std::uint64_t step) {
  if (step == kStepAboutOne) return 1.0;
  const auto low = std::bit_cast<double>(kFirstStep + (step << kStepShift));
  const auto high = std::bit_cast<double>(kFirstStep + ((step + 1) << kStepShift));
  constexpr double kRoundToElevenBits = 0x1.8p41;
  return (2.0 / (low + high) + kRoundToElevenBits) - kRoundToElevenBits;
}

/// ln v = 2 artanh((v - 1) / (v + 1)), for a v from 0.7 to 1.42.
constexpr Wide LogarithmOf(double value) {
  constexpr int kHighestPower = 45;
  const Wide ratio = Divide({value - 1.0, 0.0}, value + 1.0);
  const Wide square = Multiply(ratio, ratio);
  Wide sum = Divide({1.0, 0.0}, kHighestPower);
  for (int n = kHighestPower - 2; n > 0; n -= 2) {
    sum = Add(Divide({1.0, 0.0}, n), Multiply(square, sum));
  }
  return Multiply({2.0 * ratio.High, 2.0 * ratio.Low}, sum);
}

constexpr std::array<LogarithmEntry, kSteps> MakeLogarithms() {
  constexpr double kRoundToHighPart = 0x1.8p10;
  std::array<LogarithmEntry, kSteps> logarithms{};
  for (std::size_t step = 0; step < kSteps; ++step) {
    const double reciprocal = ReciprocalOf(step);
    const Wide logarithm = LogarithmOf(reciprocal);
    const double high = (-logarithm.High + kRoundToHighPart) - kRoundToHighPart;
    logarithms[step] = {reciprocal, high, (-logarithm.High - high) - logarithm.Low};
  }
  return logarithms;
}

constexpr double kHighest = 709.782712893384;   // ln of the largest double
constexpr double kLowest = -745.1332191019412;  // ln of half the smallest

}  // namespace

constinit const std::array<PowerEntry, kSteps> kPowers = MakePowers();
constinit const std::array<LogarithmEntry, kSteps> kLogarithms = MakeLogarithms();

double ExpBeyond(double x) {
  if (x > kHighest) return std::numeric_limits<double>::infinity();
  if (x < kLowest) return 0.0;
  if (x != x) return x;
  // Away from the end of the exponents and back; only the way back to a subnormal rounds again.
  constexpr int kShift = 64;
  const std::uint64_t shift = std::uint64_t{kShift} << kFractionBits;
  const SplitExp parts = Split(x);
  const bool high = x > 0.0;
  const auto power =
      std::bit_cast<double>(high ? parts.PowerBits - shift : parts.PowerBits + shift);
  return (power + power * parts.Fraction) * (high ? 0x1p64 : 0x1p-64);
}

Pair ExpBeyond(Pair x) {
  // The usual case: far out on the tails of both.
  if (All(x < kLowest)) return 0.0;
  return {Exp(x.First()), Exp(x.Second())};
}

double LogBeyond(double x) {
  if (x == 0.0) return -std::numeric_limits<double>::infinity();
  if (x < 0.0) return std::numeric_limits<double>::quiet_NaN();
  if (!(x <= std::numeric_limits<double>::max())) return x;
  constexpr double kExponents = 64.0;
  return PlainLog(x * 0x1p64) - kExponents * (kLogTwoHigh + kLogTwoLow);
}

Pair LogBeyond(Pair x) {
  return {Log(x.First()), Log(x.Second())};
}

}  // namespace ondrel::elementary
