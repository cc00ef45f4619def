#include "workbench/base/toml_text.h"

#include <toml++/toml.h>
#include <array>
#include <charconv>
#include <sstream>

namespace workbench {

std::string tomlText(const std::string& text) {
  std::ostringstream out;
  const toml::value<std::string> value(text);
  out << toml::toml_formatter{value, toml::toml_formatter::default_flags & ~toml::format_flags::allow_literal_strings};
  return out.str();
}

std::string tomlTexts(const std::vector<std::string>& texts) {
  std::string list;
  for (const std::string& text : texts) list += (list.empty() ? "" : ", ") + tomlText(text);
  return "[" + list + "]";
}

std::string tomlNumber(double value) {
  std::array<char, 32> digits{};
  const std::string text(digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr);
  return text.find_first_of(".e") == std::string::npos ? text + ".0" : text;
}

}  // namespace workbench
