#include "engine/arithmetic/double_double.h"

#include <gtest/gtest.h>

#include <boost/multiprecision/cpp_bin_float.hpp>

#include "tests/engine/numeric_support.h"

namespace engine {
namespace {

using Exact = boost::multiprecision::cpp_bin_float_100;

Exact exact(DoubleDouble a) {
  return Exact(a.hi) + a.lo;
}

// Signs, and sizes from 2^-60 to 2^60 in the high parts; low parts of half a unit in the last place.
std::vector<DoubleDouble> numbers() {
  const std::vector<double> high = noise(1, 4000);
  const std::vector<double> low = noise(2, 4000);
  std::vector<DoubleDouble> result;
  for (std::size_t i = 0; i < high.size(); ++i) {
    const double leading = std::ldexp(high[i], static_cast<int>(i % 121) - 60);
    result.emplace_back(leading, leading * low[i] * 0x1p-53);
  }
  return result;
}

// The errors stay within their bounds, and come near them: a bound ten times too large would not be noticed elsewhere.
TEST(DoubleDouble, ErrorsStayWithinTheirBounds) {
  const std::vector<DoubleDouble> values = numbers();
  Exact ofSums = 0;
  Exact ofProducts = 0;
  for (std::size_t i = 0; i + 121 < values.size(); ++i) {
    for (const DoubleDouble& b : {values[i + 1], values[i + 121], -values[i + 121]}) {
      const DoubleDouble a = values[i];
      const Exact sumError = abs(exact(a + b) - (exact(a) + exact(b)));
      const Exact productError = abs(exact(a * b) - exact(a) * exact(b));
      ofSums = std::max<Exact>(ofSums, sumError / (abs(exact(a)) + abs(exact(b))));
      ofProducts = std::max<Exact>(ofProducts, productError / abs(exact(a) * exact(b)));
    }
  }
  EXPECT_LE(ofSums, DoubleDouble::kSumError);
  EXPECT_GE(ofSums, DoubleDouble::kSumError / 10);
  EXPECT_LE(ofProducts, DoubleDouble::kProductError);
  EXPECT_GE(ofProducts, DoubleDouble::kProductError / 10);
}

TEST(DoubleDouble, KeepsWhatDoublesLose) {
  const DoubleDouble third = DoubleDouble(1.0) / DoubleDouble(3.0);
  EXPECT_NEAR((third * DoubleDouble(3.0) - DoubleDouble(1.0)).hi, 0.0, std::ldexp(1.0, -104));
  EXPECT_EQ((DoubleDouble(1e16) + DoubleDouble(1.0) - DoubleDouble(1e16)).hi, 1.0);
  const DoubleDouble root = squareRoot(DoubleDouble(2.0));
  EXPECT_NEAR((root * root - DoubleDouble(2.0)).hi, 0.0, std::ldexp(1.0, -102));
  const double e = 134217729.0 / 134217728.0;  // (1 + 2^-27)^2 = 1 + 2^-26 + 2^-54
  EXPECT_EQ(exactProduct(e, e).lo, std::ldexp(1.0, -54));
}

}  // namespace
}  // namespace engine
