#include "workbench/render/number_format.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/render/comma_language.h"
#include "workbench/dataset/dataset.h"

namespace workbench {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(NumberFormat, ShowsFixedDecimalsAndNothingMisleading) {
  struct Case {
    double value;
    int decimals;
    const char* text;
    std::size_t integerLength;
  };
  const Case cases[] = {
      {7221.171900985223, 3, "7221.172", 4},
      {203, 0, "203", 3},
      {-2.5, 2, "-2.50", 2},
      {0, 3, "0.000", 1},
      {-0.0, 3, "0.000", 1},
      {0.0004, 3, "4.0e-04", 1},  // would print as zeros
      {-3.2e-7, 4, "-3.2e-07", 2},
      {5e-324, 3, "4.9e-324", 1},
      {123456789012.5, 3, "123456789012.500", 12},  // wider than the format's width
      {1e16, 3, "1.000000e+16", 1},
      {-1.7976931348623157e308, 3, ".", 0},  // the system-missing value
      {kInfinity, 3, ".", 0},
      {-kInfinity, 0, ".", 1},
      {std::nan(""), 3, ".", 0},
      {1.5, -4, "2", 1},  // a format out of its range
  };
  for (const Case& c : cases) {
    const NumberText number = formatNumber(c.value, {5, 10, c.decimals});
    EXPECT_EQ(number.text, c.text);
    EXPECT_EQ(number.integerLength, c.integerLength) << c.text;
  }
}

TEST(NumberFormat, TakesTheDecimalSeparatorOfTheLanguage) {
  EXPECT_EQ(formatNumber(-1234.5, {5, 10, 2}, commaLanguage()).text, "-1234,50");
  EXPECT_EQ(formatNumber(3.2e-7, {5, 10, 2}, commaLanguage()).text, "3,2e-07");
}

TEST(NumberFormat, FullPrecisionReadsBackAsTheSameDouble) {
  for (const double value : {7221.171900985223, 0.1, 1.0 / 3, -5e-324, 1e22, 203.0})
    EXPECT_EQ(std::strtod(fullPrecision(value).c_str(), nullptr), value);
  EXPECT_EQ(fullPrecision(203), "203");
  EXPECT_EQ(fullPrecision(kSystemMissing), "");
}

}  // namespace
}  // namespace workbench
