#include "fit/direction_set.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace ondrel {
namespace {

// Where a bracket starts: at the present point and one direction further.
constexpr double kFirstBracketStep = 0.0;
constexpr double kSecondBracketStep = 1.0;

constexpr double kGoldenRatio = 1.618034;
constexpr double kLongestParabolicStep = 100.0;  // in units of the last step
constexpr double kSmallestDenominator = 1e-20;
/// Keeps the step, and with it the parameters, finite.
constexpr double kFarthestStep = 1e300;
/// Out of reach for an objective that has a minimum: it stops one that falls for ever.
constexpr std::int32_t kMostBracketSteps = 1000;

constexpr double kGoldenSection = 0.381966;
constexpr double kAbsoluteTolerance = 1e-10;
/// In effect none, so that a line search ends on the absolute tolerance or on its limit alone.
constexpr double kRelativeTolerance = 1e-40;

LinePoint PointAt(const SearchLine& line, double step) {
  return {.Step = step, .Value = LineValue(line, step)};
}

// --- Bracket ----------------------------------------------------------------------------------

double GoldenStep(const Bracket& bracket) {
  return bracket.C.Step + kGoldenRatio * (bracket.C.Step - bracket.B.Step);
}

void ShiftBracket(Bracket& bracket, const LinePoint& next) {
  bracket.A = bracket.B;
  bracket.B = bracket.C;
  bracket.C = next;
}

Bracket StartDownhill(const SearchLine& line, double firstStep, double secondStep) {
  LinePoint a = PointAt(line, firstStep);
  LinePoint b = PointAt(line, secondStep);
  if (a.Value < b.Value) std::swap(a, b);
  return {.A = a, .B = b, .C = PointAt(line, b.Step + kGoldenRatio * (b.Step - a.Step))};
}

/// The vertex of the parabola through the three points, mirrored about B: the difference has the
/// opposite sign of the textbook's. Going downhill it mostly falls behind B, where it is not used,
/// so that the bracket grows by the golden ratio. All fits are made like this.
double MirroredVertex(const Bracket& bracket) {
  const auto& [a, b, c] = bracket;
  const double r = (b.Step - a.Step) * (b.Value - c.Value);
  const double q = (b.Step - c.Step) * (b.Value - a.Value);
  const double difference = r - q;
  double divisor = 2.0 * difference;
  if (std::fabs(difference) < kSmallestDenominator) {
    divisor = difference < 0.0 ? -2.0 * kSmallestDenominator : 2.0 * kSmallestDenominator;
  }
  return b.Step - ((b.Step - c.Step) * q - (b.Step - a.Step) * r) / divisor;
}

bool IsBetween(double first, double step, double last) {
  return (first - step) * (step - last) > 0.0;
}

/// A point between B and C completes the bracket when it is lower than C or higher than B.
bool CloseAround(Bracket& bracket, const LinePoint& inner) {
  if (bracket.C.Value > inner.Value) {
    bracket.A = bracket.B;
    bracket.B = inner;
    return true;
  }
  if (bracket.B.Value < inner.Value) {
    bracket.C = inner;
    return true;
  }
  return false;
}

/// Brings the bracket one step further. False when it is complete, or has come too far.
bool StepDownhill(const SearchLine& line, Bracket& bracket) {
  const double b = bracket.B.Step;
  const double c = bracket.C.Step;
  const double vertex = MirroredVertex(bracket);
  const double limit = b + kLongestParabolicStep * (c - b);
  LinePoint next;
  if (IsBetween(b, vertex, c)) {
    if (CloseAround(bracket, PointAt(line, vertex))) return false;
    next = PointAt(line, GoldenStep(bracket));
  } else if (IsBetween(c, vertex, limit)) {
    next = PointAt(line, vertex);
    if (bracket.C.Value > next.Value) {
      const double beyond = GoldenStep(bracket);
      ShiftBracket(bracket, next);
      next = PointAt(line, beyond);
    }
  } else if (!((vertex - limit) * (limit - c) < 0.0)) {
    next = PointAt(line, limit);
  } else {
    next = PointAt(line, GoldenStep(bracket));
  }
  if (!(std::fabs(next.Step) < kFarthestStep)) return false;
  ShiftBracket(bracket, next);
  return true;
}

// --- Brent ------------------------------------------------------------------------------------

/// The state of a search, with Brent's own letters.
struct BrentSearch {
  double A;  // the interval
  double B;
  LinePoint X;     // lowest so far
  LinePoint W;     // second lowest
  LinePoint V;     // W before that
  double D = 0.0;  // last step
  double E = 0.0;  // step before that
};

BrentSearch StartSearch(const Bracket& bracket) {
  return {.A = std::min(bracket.A.Step, bracket.C.Step),
          .B = std::max(bracket.A.Step, bracket.C.Step),
          .X = bracket.B,
          .W = bracket.B,
          .V = bracket.B};
}

double WithSignOf(double size, double sign) {
  return sign < 0.0 ? -size : size;
}

/// A step to the vertex of the parabola through X, W and V. False when it cannot be trusted.
bool ChooseParabolicStep(BrentSearch& search, double middle, double tolerance) {
  const LinePoint& x = search.X;
  const LinePoint& w = search.W;
  const LinePoint& v = search.V;
  const double r = (x.Step - w.Step) * (x.Value - v.Value);
  double q = (x.Step - v.Step) * (x.Value - w.Value);
  double p = (x.Step - v.Step) * q - (x.Step - w.Step) * r;
  q = 2.0 * (q - r);
  if (q > 0.0) p = -p;
  q = std::fabs(q);
  const bool trusted = std::fabs(p) < std::fabs(0.5 * q * search.E) &&
                       p > q * (search.A - x.Step) && p < q * (search.B - x.Step);
  if (!trusted) return false;
  search.E = search.D;
  search.D = p / q;
  const double u = x.Step + search.D;
  if (u - search.A < 2.0 * tolerance || search.B - u < 2.0 * tolerance) {
    // Not the smallest step away from the end, as in the textbook: to the middle at once.
    const double distance = middle - x.Step;
    search.D = std::fabs(distance) < tolerance ? WithSignOf(tolerance, distance) : distance;
  }
  return true;
}

void ChooseGoldenStep(BrentSearch& search, double middle) {
  const double x = search.X.Step;
  search.E = x < middle ? search.B - x : search.A - x;
  search.D = kGoldenSection * search.E;
}

void ChooseStep(BrentSearch& search, double middle, double tolerance) {
  if (std::fabs(search.E) > tolerance && ChooseParabolicStep(search, middle, tolerance)) return;
  ChooseGoldenStep(search, middle);
}

/// Narrows the interval by a new point and keeps the three lowest.
void TakeIn(BrentSearch& search, const LinePoint& u) {
  if (u.Value <= search.X.Value) {
    if (u.Step >= search.X.Step) {
      search.A = search.X.Step;
    } else {
      search.B = search.X.Step;
    }
    search.V = search.W;
    search.W = search.X;
    search.X = u;
    return;
  }
  if (u.Step < search.X.Step) {
    search.A = u.Step;
  } else {
    search.B = u.Step;
  }
  if (u.Value <= search.W.Value || search.W.Step == search.X.Step) {
    search.V = search.W;
    search.W = u;
  } else if (u.Value <= search.V.Value || search.V.Step == search.X.Step ||
             search.V.Step == search.W.Step) {
    search.V = u;
  }
}

}  // namespace

double LineValue(const SearchLine& line, double step) {
  ParameterVector trial{};
  if (line.Operations.TrialPoint(step, line.Count, line.Point, line.Direction, trial)) {
    return kPenalty;
  }
  line.Operations.NormaliseWeights(trial, line.Count);
  return line.Operations.NegativeLogLikelihood(line.Workspace.Amplitude, line.Workspace.Duration,
                                               trial);
}

Bracket BracketMinimum(const SearchLine& line, double firstStep, double secondStep) {
  Bracket bracket = StartDownhill(line, firstStep, secondStep);
  for (std::int32_t i = 0; bracket.B.Value > bracket.C.Value && i < kMostBracketSteps; ++i) {
    if (!StepDownhill(line, bracket)) break;
  }
  return bracket;
}

LinePoint BrentMinimise(const SearchLine& line, const Bracket& bracket, double relativeTolerance,
                        std::int32_t iterations) {
  BrentSearch search = StartSearch(bracket);
  for (std::int64_t i = 1; i <= iterations; ++i) {
    const double middle = 0.5 * (search.A + search.B);
    const double tolerance = relativeTolerance * std::fabs(search.X.Step) + kAbsoluteTolerance;
    const double slack = 2.0 * tolerance - 0.5 * (search.B - search.A);
    if (!(std::fabs(search.X.Step - middle) > slack)) break;
    ChooseStep(search, middle, tolerance);
    const double step =
        std::fabs(search.D) < tolerance ? WithSignOf(tolerance, search.D) : search.D;
    TakeIn(search, PointAt(line, search.X.Step + step));
  }
  return search.X;
}

void LineMinimise(const Workspace& workspace, const FitOperations& operations,
                  ParameterVector& point, ParameterVector& direction, std::int32_t count,
                  double& value) {
  const SearchLine line{workspace, operations, point, direction, count};
  const Bracket bracket = BracketMinimum(line, kFirstBracketStep, kSecondBracketStep);
  const LinePoint best =
      BrentMinimise(line, bracket, kRelativeTolerance, workspace.LineSearchLimit);
  operations.ApplyStep(point, direction, count, best.Step);
  operations.NormaliseWeights(point, count);
  value = best.Value;
}

}  // namespace ondrel
