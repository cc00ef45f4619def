#include "workbench/render/number_format.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "workbench/dataset/dataset.h"

namespace workbench {

namespace {

constexpr double kScientificFrom = 1e16;
constexpr int kMostDecimals = 16;

bool showsOnlyZeros(const std::string& text) {
  return text.find_first_of("123456789") == std::string::npos;
}

std::string inDigits(double value, int decimals) {
  if (std::abs(value) >= kScientificFrom) return fmt::format("{:.6e}", value);
  std::string fixed = fmt::format("{:.{}f}", value, decimals);
  if (!showsOnlyZeros(fixed)) return fixed;
  return value == 0 ? fmt::format("{:.{}f}", 0.0, decimals) : fmt::format("{:.1e}", value);
}

}  // namespace

bool isMissing(double value) {
  return !std::isfinite(value) || value == kSystemMissing;
}

NumberText formatNumber(double value, const CellFormat& format, const Language& language) {
  const int decimals = std::clamp(format.decimals, 0, kMostDecimals);
  // Under whole numbers the sign of a missing value stands below the last digit, not after it.
  if (isMissing(value)) return {".", decimals == 0 ? std::size_t{1} : std::size_t{0}};
  std::string text = inDigits(value, decimals);
  const std::size_t point = text.find('.');
  if (point == std::string::npos) return {text, text.size()};
  text.replace(point, 1, language.decimalSeparator());
  return {text, point};
}

std::string fullPrecision(double value) {
  return isMissing(value) ? std::string() : fmt::format("{}", value);
}

}  // namespace workbench
