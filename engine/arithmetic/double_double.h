// Arithmetic with twice the digits of a double: a number is the unevaluated sum of two doubles.
//
// The error-free sum is Knuth's, the error-free product Dekker's (1971), so that no fused multiply-add is needed and
// every machine gives the same bits. The templates work on double and on vectors of doubles, lane by lane.
//
// With u = 2^-53, and as long as nothing overflows or falls below the normal range, the error is at most
//   3 u^2 (|a| + |b|)   of a + b: relative to the operands, not to the sum, since the low parts are added in doubles,
//   5 u^2 |a b|         of a b: u^2 for the product of the low parts that is left out, and four roundings
// (Joldes, Muller & Popescu, ACM Trans. Math. Softw. 44, 2017, algorithms 5 and 10).

#pragma once

#include <cmath>

namespace engine {

// sum + error = a + b exactly, sum rounded. `Lanes` is double or a vector of doubles.
template <class Lanes>
[[gnu::always_inline]] inline void exactSum(const Lanes& a, const Lanes& b, Lanes& sum, Lanes& error) {
  const Lanes total = a + b;
  const Lanes virtualB = total - a;
  error = (a - (total - virtualB)) + (b - virtualB);
  sum = total;
}

// upper + lower = a exactly, each of at most 26 bits; for |a| below 1e300.
template <class Lanes>
[[gnu::always_inline]] inline void splitInHalves(const Lanes& a, Lanes& upper, Lanes& lower) {
  const Lanes shifted = a * 134217729.0;  // 2^27 + 1
  upper = shifted - (shifted - a);
  lower = a - upper;
}

// product + error = a b exactly, product rounded; a and b are given with their halves.
template <class Lanes>
[[gnu::always_inline]] inline void exactProduct(const Lanes& a, const Lanes& aUpper, const Lanes& aLower,
                                                const Lanes& b, const Lanes& bUpper, const Lanes& bLower,
                                                Lanes& product, Lanes& error) {
  product = a * b;
  error = ((aUpper * bUpper - product) + aUpper * bLower + aLower * bUpper) + aLower * bLower;
}

// The value is hi + lo, where lo is at most half a unit in the last place of hi.
struct DoubleDouble {
  static constexpr double kUnitRoundoff = 0x1p-106;  // u^2
  static constexpr double kSumError = 3.0 * kUnitRoundoff;
  static constexpr double kProductError = 5.0 * kUnitRoundoff;

  DoubleDouble() = default;
  explicit DoubleDouble(double value) : hi(value) {}
  DoubleDouble(double high, double low) { exactSum(high, low, hi, lo); }

  double hi = 0.0;
  double lo = 0.0;
};

inline DoubleDouble exactProduct(double a, double b) {
  double aUpper, aLower, bUpper, bLower, product, error;
  splitInHalves(a, aUpper, aLower);
  splitInHalves(b, bUpper, bLower);
  exactProduct(a, aUpper, aLower, b, bUpper, bLower, product, error);
  return {product, error};
}

inline DoubleDouble operator+(DoubleDouble a, DoubleDouble b) {
  double sum, error;
  exactSum(a.hi, b.hi, sum, error);
  return {sum, error + (a.lo + b.lo)};
}

inline DoubleDouble operator-(DoubleDouble a) {
  a.hi = -a.hi;
  a.lo = -a.lo;
  return a;
}

inline DoubleDouble operator-(DoubleDouble a, DoubleDouble b) {
  return a + -b;
}

inline DoubleDouble operator*(DoubleDouble a, DoubleDouble b) {
  const DoubleDouble leadingProduct = exactProduct(a.hi, b.hi);
  return {leadingProduct.hi, leadingProduct.lo + (a.hi * b.lo + a.lo * b.hi)};
}

// Long division with one correction.
inline DoubleDouble operator/(DoubleDouble a, DoubleDouble b) {
  const double quotient = a.hi / b.hi;
  const DoubleDouble remainder = a - DoubleDouble(quotient) * b;
  return {quotient, remainder.hi / b.hi};
}

inline DoubleDouble squareRoot(DoubleDouble a) {
  if (!(a.hi > 0.0)) return DoubleDouble(std::sqrt(a.hi));
  const double root = std::sqrt(a.hi);
  const DoubleDouble remainder = a - exactProduct(root, root);
  return {root, remainder.hi / (2.0 * root)};
}

inline double squareRoot(double a) {
  return std::sqrt(a);
}

inline DoubleDouble inTwice(double a) {
  return DoubleDouble(a);
}
inline DoubleDouble inTwice(DoubleDouble a) {
  return a;
}

// The nearest double.
inline double rounded(double a) {
  return a;
}
inline double rounded(DoubleDouble a) {
  return a.hi;
}

// (a - b) times a power of two, in the precision of Real: a - b rounded, or exact.
template <class Real>
Real scaledDifference(double a, double b, double power);
template <>
inline double scaledDifference<double>(double a, double b, double power) {
  return (a - b) * power;
}
template <>
inline DoubleDouble scaledDifference<DoubleDouble>(double a, double b, double power) {
  DoubleDouble result;
  exactSum(a, -b, result.hi, result.lo);
  result.hi *= power;
  result.lo *= power;
  return result;
}

}  // namespace engine
