// The minimiser once more, told in one piece and without thought of speed: what the program's own
// is held against, step by step. It counts which of its ways were gone, so that a comparison can
// show that it went them all.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace ondrel::reference {

using Ways = std::map<std::string, int>;
using Line = std::function<double(double)>;
using Function = std::function<double(const std::vector<double>&)>;

struct Triple {
  double A, B, C, FA, FB, FC;
};

inline Triple Bracket(const Line& f, double a, double b, Ways& ways) {
  double fa = f(a);
  double fb = f(b);
  if (fa < fb) {
    ++ways["swapped"];
    std::swap(a, b);
    std::swap(fa, fb);
  }
  double c = b + 1.618034 * (b - a);
  double fc = f(c);
  while (fb > fc) {
    double u = 0.0;
    double fu = 0.0;
    const double r = (b - a) * (fb - fc);
    const double q = (b - c) * (fb - fa);
    const double d = r - q;
    if (!(std::fabs(d) < 1e-20)) {
      u = b - ((b - c) * q - (b - a) * r) / (2.0 * d);
    } else if (d < 0.0) {
      ++ways["small negative divisor"];
      u = b - ((b - c) * q - (b - a) * r) / -2e-20;
    } else {
      ++ways["small divisor"];
      u = b - ((b - c) * q - (b - a) * r) / 2e-20;
    }
    const double ulim = b + 100.0 * (c - b);
    if ((b - u) * (u - c) > 0.0) {
      fu = f(u);
      if (fc > fu) {
        ++ways["inside, lower"];
        return {b, u, c, fb, fu, fc};
      }
      if (fb < fu) {
        ++ways["inside, higher"];
        return {a, b, u, fa, fb, fu};
      }
      ++ways["inside, useless"];
      u = c + 1.618034 * (c - b);
      fu = f(u);
    } else if ((c - u) * (u - ulim) > 0.0) {
      fu = f(u);
      ++ways["beyond"];
      if (fc > fu) {
        ++ways["beyond, lower"];
        const double t = c + 1.618034 * (c - b);
        b = c;
        c = u;
        u = t;
        fb = fc;
        fc = fu;
        fu = f(u);
      }
    } else if (!((u - ulim) * (ulim - c) < 0.0)) {
      ++ways["at the limit"];
      u = ulim;
      fu = f(u);
    } else {
      ++ways["golden"];
      u = c + 1.618034 * (c - b);
      fu = f(u);
    }
    a = b;
    b = c;
    c = u;
    fa = fb;
    fb = fc;
    fc = fu;
  }
  return {a, b, c, fa, fb, fc};
}

struct Best {
  double Step, Value;
};

inline Best Brent(const Line& f, const Triple& triple, double relative, int limit, Ways& ways) {
  double a = std::min(triple.A, triple.C);
  double b = std::max(triple.A, triple.C);
  double x = triple.B, w = x, v = x;
  double fx = triple.FB, fw = fx, fv = fx;
  double d = 0.0;
  double e = 0.0;
  for (int iteration = 1; iteration <= limit; iteration++) {
    const double xm = (a + b) / 2.0;
    const double tol1 = relative * std::fabs(x) + 1e-10;
    const double tol2 = 2.0 * tol1;
    if (!(std::fabs(x - xm) > tol2 - (b - a) / 2.0)) {
      ++ways["converged"];
      return {x, fx};
    }
    bool golden = true;
    if (std::fabs(e) > tol1) {
      const double r = (x - w) * (fx - fv);
      double q = (x - v) * (fx - fw);
      double p = (x - v) * q - (x - w) * r;
      q = 2.0 * (q - r);
      if (q > 0.0) {
        p = -p;
      } else {
        q = -q;
      }
      const double previous = e;
      golden = !(std::fabs(p) < std::fabs(0.5 * q * previous)) || !(p > q * (a - x)) ||
               !(p < q * (b - x));
      if (golden) {
        ++ways["parabola rejected"];
      } else {
        ++ways["parabola"];
        e = d;
        d = p / q;
        const double u = x + d;
        if (u - a < tol2 || b - u < tol2) {
          const double distance = xm - x;
          if (!(std::fabs(distance) < tol1)) {
            ++ways[distance < 0.0 ? "to the middle, down" : "to the middle, up"];
            d = distance;
          } else {
            ++ways["near the middle"];
            d = distance < 0.0 ? -tol1 : tol1;
          }
        }
      }
    }
    if (golden) {
      e = !(x < xm) ? a - x : b - x;
      d = 0.381966 * e;
    }
    double u = x + d;
    if (std::fabs(d) < tol1) {
      ++ways["short step"];
      u = d < 0.0 ? x - tol1 : x + tol1;
    }
    const double fu = f(u);
    if (fu <= fx) {
      if (u >= x) {
        a = x;
      } else {
        b = x;
      }
      v = w, fv = fw;
      w = x, fw = fx;
      x = u, fx = fu;
    } else {
      if (u < x) {
        a = u;
      } else {
        b = u;
      }
      if (fu <= fw || w == x) {
        v = w, fv = fw;
        w = u, fw = fu;
      } else if (fu <= fv || v == x || v == w) {
        v = u, fv = fu;
      }
    }
  }
  ++ways["limit"];
  return {x, fx};
}

/// The function and all that is asked of it, in order.
struct Logged {
  Function F;
  std::vector<std::vector<double>> Asked;

  double operator()(const std::vector<double>& point) {
    Asked.push_back(point);
    return F(point);
  }
};

/// Moves `point` and scales `direction`; returns the value.
inline double SearchLine(Logged& f, std::vector<double>& point, std::vector<double>& direction,
                         int limit, Ways& ways) {
  const Line line = [&](double step) {
    std::vector<double> trial(point.size());
    for (std::size_t j = 0; j < trial.size(); ++j) trial[j] = step * direction[j] + point[j];
    return f(trial);
  };
  const Best best = Brent(line, Bracket(line, 0.0, 1.0, ways), 1e-40, limit, ways);
  for (std::size_t j = 0; j < point.size(); ++j) {
    direction[j] *= best.Step;
    point[j] += direction[j];
  }
  return best.Value;
}

struct FitResult {
  std::vector<double> Point;
  std::vector<std::vector<double>> Directions;  // one vector each
  double Value = 0.0;
  int Passes = 0;
};

/// A fit without constraints on the parameters and without weights.
inline FitResult Fit(Logged& f, std::vector<double> point,
                     std::vector<std::vector<double>> directions, double tolerance, int limit,
                     Ways& ways) {
  std::vector<double> start = point;
  double value = 0.0;
  int pass = 0;
  for (; pass < limit; ++pass) {
    const double fp = value = f(point);
    double del = 0.0;
    std::size_t largest = 0;
    for (std::size_t i = 0; i < directions.size(); ++i) {
      std::vector<double> direction = directions[i];
      const double before = f(point);
      value = SearchLine(f, point, direction, limit, ways);
      if (std::fabs(before - value) > del) {
        del = std::fabs(before - value);
        largest = i;
      }
    }
    if (2.0 * std::fabs(fp - value) <= tolerance * (std::fabs(fp) + std::fabs(value))) {
      return {point, directions, value, pass + 1};
    }
    std::vector<double> extrapolated(point.size());
    std::vector<double> average(point.size());
    for (std::size_t j = 0; j < point.size(); ++j) {
      extrapolated[j] = 2.0 * point[j] - start[j] + 1e-30;
      average[j] = point[j] - start[j];
    }
    start = point;
    const double fe = f(extrapolated);
    if (!(fp > fe)) {
      ++ways["extrapolated higher"];
      continue;
    }
    const double fn = f(point);
    const double d = fp - fn - del;
    const double t = 2.0 * (fp - 2.0 * fn + fe) * d * d - (fp - fe) * del * (fp - fe);
    if (!(t < 0.0)) {
      ++ways["direction kept"];
      continue;
    }
    ++ways["direction replaced"];
    value = SearchLine(f, point, average, limit, ways);
    directions[largest] = directions.back();
    directions.back() = average;
  }
  return {point, directions, value, pass};
}

}  // namespace ondrel::reference
