#include "workbench/dataset/number_text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string>

namespace workbench {

namespace {

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

std::string_view withoutPercent(std::string_view text) {
  return text.ends_with('%') ? withoutBlanks(text.substr(0, text.size() - 1)) : text;
}

std::size_t digitsAt(std::string_view text, std::size_t place) {
  std::size_t count = 0;
  while (place + count < text.size() && isDigit(text[place + count])) ++count;
  return count;
}

// The text with its groups of thousands joined and a point for decimals; nothing where a group has not three digits.
std::optional<std::string> plainNumber(std::string_view text, NumberFormat format) {
  const std::size_t sign = text.starts_with('-') ? 1 : 0;
  std::size_t place = sign + digitsAt(text, sign);
  std::string plain(text.substr(0, place));
  const bool canBeGrouped = format.thousands != '\0' && place > sign && place - sign <= 3;
  while (canBeGrouped && place < text.size() && text[place] == format.thousands) {
    if (digitsAt(text, place + 1) != 3) return std::nullopt;
    plain += text.substr(place + 1, 3);
    place += 4;
  }
  if (place < text.size() && text[place] == format.decimal) {
    plain += '.';
    ++place;
  } else if (place < text.size() && text[place] == '.') {
    return std::nullopt;
  }
  return plain += text.substr(place);
}

}  // namespace

std::string numberText(double number) {
  std::array<char, 40> text{};
  return {text.data(), std::to_chars(text.data(), text.data() + text.size(), number).ptr};
}

std::string_view withoutBlanks(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(kBlanks);
  return first == std::string_view::npos ? "" : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::optional<double> readNumber(std::string_view text, NumberFormat format) {
  text = withoutPercent(withoutBlanks(text));
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  const std::optional<std::string> plain = plainNumber(text, format);
  double value = 0.0;
  const char* end = plain ? plain->data() + plain->size() : nullptr;
  if (!plain || plain->empty() || std::from_chars(plain->data(), end, value).ptr != end || std::isnan(value)) {
    return std::nullopt;
  }
  return value;
}

}  // namespace workbench
