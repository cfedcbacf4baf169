// Two doubles that are worked on together. Each lane gives the same bits as the operation on a
// double; the functions with a twin for doubles let one template serve both.
#pragma once

#include <emmintrin.h>

#include <cmath>
#include <cstddef>

namespace ondrel {

struct Pair {
  __m128d Lanes;

  Pair(__m128d lanes) : Lanes(lanes) {}
  Pair(double both) : Lanes(_mm_set1_pd(both)) {}
  Pair(double first, double second) : Lanes(_mm_set_pd(second, first)) {}

  double First() const { return _mm_cvtsd_f64(Lanes); }
  double Second() const { return _mm_cvtsd_f64(_mm_unpackhi_pd(Lanes, Lanes)); }
};

inline Pair operator+(Pair a, Pair b) {
  return _mm_add_pd(a.Lanes, b.Lanes);
}
inline Pair operator-(Pair a, Pair b) {
  return _mm_sub_pd(a.Lanes, b.Lanes);
}
inline Pair operator*(Pair a, Pair b) {
  return _mm_mul_pd(a.Lanes, b.Lanes);
}
inline Pair operator/(Pair a, Pair b) {
  return _mm_div_pd(a.Lanes, b.Lanes);
}
inline Pair operator-(Pair a) {
  return _mm_xor_pd(a.Lanes, _mm_set1_pd(-0.0));
}

inline Pair Magnitude(Pair a) {
  return _mm_andnot_pd(_mm_set1_pd(-0.0), a.Lanes);
}
inline double Magnitude(double a) {
  return std::fabs(a);
}

/// For each lane all bits or none.
struct PairMask {
  __m128d Lanes;
};

inline PairMask operator>(Pair a, Pair b) {
  return {_mm_cmpgt_pd(a.Lanes, b.Lanes)};
}
inline PairMask operator<(Pair a, Pair b) {
  return {_mm_cmplt_pd(a.Lanes, b.Lanes)};
}
inline PairMask operator>=(Pair a, Pair b) {
  return {_mm_cmpge_pd(a.Lanes, b.Lanes)};
}
inline PairMask operator<=(Pair a, Pair b) {
  return {_mm_cmple_pd(a.Lanes, b.Lanes)};
}
inline PairMask operator&(PairMask a, PairMask b) {
  return {_mm_and_pd(a.Lanes, b.Lanes)};
}

inline bool All(PairMask mask) {
  return _mm_movemask_pd(mask.Lanes) == 3;
}
inline bool All(bool holds) {
  return holds;
}
inline bool None(PairMask mask) {
  return _mm_movemask_pd(mask.Lanes) == 0;
}
inline bool None(bool holds) {
  return !holds;
}

/// Lane by lane `yes` where the mask is set, else `no`.
inline Pair Choose(PairMask mask, Pair yes, Pair no) {
  return _mm_or_pd(_mm_and_pd(mask.Lanes, yes.Lanes), _mm_andnot_pd(mask.Lanes, no.Lanes));
}
inline double Choose(bool holds, double yes, double no) {
  return holds ? yes : no;
}

template <typename Real>
Real Load(const double* from);
template <>
inline double Load<double>(const double* from) {
  return *from;
}
template <>
inline Pair Load<Pair>(const double* from) {
  return _mm_loadu_pd(from);
}

inline void Store(double* to, double value) {
  *to = value;
}
inline void Store(double* to, Pair value) {
  _mm_storeu_pd(to, value.Lanes);
}

/// Calls `step.operator()<Pair>(i)` for the places 0, 2, ... below `count`, with `double` for the
/// last of an odd count.
template <typename Step>
[[gnu::always_inline]] inline void ForEachPair(std::size_t count, Step step) {
  std::size_t i = 0;
  for (; i + 2 <= count; i += 2) step.template operator()<Pair>(i);
  if (i < count) step.template operator()<double>(i);
}

}  // namespace ondrel
