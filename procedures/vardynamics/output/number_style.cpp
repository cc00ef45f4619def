#include "procedures/vardynamics/output/number_style.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace vardynamics {
namespace {

constexpr int kMostDecimals = 15;
constexpr double kSmallestProbability = 1e-300;
constexpr double kNearlyCertain = 0.995;
constexpr int kFewestDigits = 2;
constexpr int kAllDigits = std::numeric_limits<double>::max_digits10;

template <typename... Format>
std::string text(double value, Format... format) {
  std::array<char, 400> buffer;  // the longest binary64 in fixed notation has 309 digits before the point
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format...).ptr;
  return {buffer.data(), end};
}

double numberIn(const std::string& shown) {
  double value = 0.0;
  std::from_chars(shown.data(), shown.data() + shown.size(), value);
  return value;
}

bool showsOnlyZeros(const std::string& digits) {
  return digits.find_first_of("123456789") == std::string::npos;
}

}  // namespace

int decimalsFor(double size, int digits) {
  if (!std::isfinite(size) || size == 0.0) return 0;
  const int exponent = static_cast<int>(std::floor(std::log10(std::fabs(size))));
  return std::clamp(digits - 1 - exponent, 0, kMostDecimals);
}

int decimalsForErrors(std::span<const double> errors, int digits) {
  double smallest = std::numeric_limits<double>::infinity();
  for (const double error : errors) {
    if (error > 0.0) smallest = std::min(smallest, error);
  }
  return decimalsFor(smallest, digits);
}

std::string fixedText(double value, int decimals) {
  const std::string fixed = text(value, std::chars_format::fixed, decimals);
  return value != 0.0 && showsOnlyZeros(fixed) ? text(value, std::chars_format::scientific, 1) : fixed;
}

std::string modulusText(double modulus) {
  constexpr int kPlainDecimals = 3;
  const double distance = std::fabs(1.0 - modulus);
  return distance == 0.0 ? "1" : fixedText(modulus, std::max(kPlainDecimals, decimalsFor(distance, 1)));
}

std::string probabilityText(double p, double level) {
  if (p < kSmallestProbability) return "< 1e-300";
  if (p >= kNearlyCertain) return "> 0.99";
  const auto tells = [&](const std::string& shown) {
    const double read = numberIn(shown);
    return (read < level) == (p < level) && (read > level) == (p > level);
  };
  std::string shown;
  for (int digits = kFewestDigits; digits <= kAllDigits; ++digits) {
    shown = text(p, std::chars_format::general, digits);
    if (tells(shown)) break;
  }
  return "= " + shown;
}

}  // namespace vardynamics
