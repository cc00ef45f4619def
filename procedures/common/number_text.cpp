#include "procedures/common/number_text.h"

#include <array>
#include <cassert>
#include <charconv>
#include <system_error>

namespace procedures {

namespace {

// The longest binary64 with six decimals has a sign, 309 digits, a point and the decimals.
constexpr std::size_t kLongestNumber = 1 + 309 + 1 + 6;

template <class... Format>
std::string numberText(double value, Format... format) {
  std::array<char, kLongestNumber> buffer;
  const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format...);
  assert(error == std::errc());
  return std::string(buffer.data(), error == std::errc() ? end : buffer.data());
}

}  // namespace

std::string shortestNumber(double value) {
  return numberText(value);
}

std::string sixDecimals(double value) {
  return numberText(value, std::chars_format::fixed, 6);
}

std::string confidenceLevelText(double percent) {
  return shortestNumber(percent) + "%";
}

}  // namespace procedures
