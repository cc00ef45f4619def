#include "workbench/base/whole_number.h"

#include <charconv>

#include "workbench/base/errors.h"

namespace workbench {

std::optional<std::int64_t> wholeNumber(std::string_view text, const Notice& place, std::int64_t largest) {
  std::int64_t number = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (stop != end || error == std::errc::invalid_argument) return std::nullopt;
  if (error == std::errc() && number <= largest && number >= -largest) return number;
  throw UsageError("option.too-large", "^1: ^2 is too large. Give a number of at most ^3.", place, text, largest);
}

}  // namespace workbench
